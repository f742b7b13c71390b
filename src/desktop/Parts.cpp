#include "desktop/Parts.h"

#include "desktop/Scale.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <map>

namespace tvx::qt {
namespace {

/// One part. It has no object of its own: the whole hands it out by number.
class AccessiblePart : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    AccessiblePart(QWidget& widget, int index) : widget_(&widget), index_(index) {}
    bool isValid() const override { return widget_ != nullptr && index_ < Whole().PartCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(widget_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? ToQString(Whole().PartAt(index_).name) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = Whole().PartAt(index_).place;
        return {widget_->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override {
        return isValid() ? Whole().PartRoles().part : QAccessible::NoRole;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (role() != QAccessible::PageTab) return state;
        const bool chosen = Whole().PartAt(index_).chosen;
        state.selectable = state.focusable = true;
        state.selected = chosen;
        state.focused = chosen && widget_->hasFocus();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        const bool acts = type == QAccessible::ActionInterface && role() == QAccessible::PageTab;
        return acts ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction() && isValid()) Whole().ChoosePart(index_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    Parted& Whole() const { return dynamic_cast<Parted&>(*widget_); }

    QPointer<QWidget> widget_;
    int index_;
};

class AccessibleWhole : public QAccessibleWidget {
  public:
    AccessibleWhole(QWidget& widget, Parted& whole)
        : QAccessibleWidget(&widget, whole.PartRoles().whole), widget_(widget), whole_(whole) {}
    ~AccessibleWhole() override {
        for (const auto& [index, id] : parts_) QAccessible::deleteAccessibleInterface(id);
    }
    int childCount() const override { return whole_.PartCount() + QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override {
        if (index >= whole_.PartCount()) return QAccessibleWidget::child(index - whole_.PartCount());
        if (index < 0) return nullptr;
        const auto known = parts_.find(index);
        if (known != parts_.end()) return QAccessible::accessibleInterface(known->second);
        auto* part = new AccessiblePart(widget_, index);
        parts_[index] = QAccessible::registerAccessibleInterface(part);
        return part;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [index, id] : parts_)
            if (QAccessible::accessibleInterface(id) == wanted) return index;
        const int control = QAccessibleWidget::indexOfChild(wanted);
        return control < 0 ? control : whole_.PartCount() + control;
    }

  private:
    QWidget& widget_;
    Parted& whole_;
    mutable std::map<int, QAccessible::Id> parts_;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* whole = dynamic_cast<Parted*>(object);
    return whole != nullptr ? new AccessibleWhole(*qobject_cast<QWidget*>(object), *whole) : nullptr;
}

} // namespace

void InstallPartsAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

} // namespace tvx::qt
