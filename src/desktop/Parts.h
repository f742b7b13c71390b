// What assistive tools meet of a control that paints its own parts, and of the ground on which controls
// stand.
#pragma once

#include <QAccessible>
#include <QWidget>

#include <string>

namespace tvx::qt {

/// A widget whose painted parts assistive tools meet one by one, before the controls that stand on it.
class Parted {
  public:
    struct Roles {
        QAccessible::Role whole = QAccessible::Client;
        QAccessible::Role part = QAccessible::NoRole;
    };
    struct Part {
        std::string name;
        QRect place; // on the widget
        bool chosen = false;
    };

    virtual ~Parted() = default;
    virtual Roles PartRoles() const = 0;
    virtual int PartCount() const = 0;
    /// A part, from 0.
    virtual Part PartAt(int index) const = 0;
    /// Does what a click on a part does; nothing where parts are only read.
    virtual void ChoosePart(int) {}
};

/// Ground on which controls stand as one group: its accessibleName calls them together.
class Group : public QWidget, public Parted {
    Q_OBJECT
  public:
    explicit Group(QWidget* parent = nullptr) : QWidget(parent) {}
    Roles PartRoles() const override { return {.whole = QAccessible::Grouping}; }
    int PartCount() const override { return 0; }
    Part PartAt(int) const override { return {}; }
};

/// Makes parted widgets known to assistive tools. Call once.
void InstallPartsAccessibility();

} // namespace tvx::qt
