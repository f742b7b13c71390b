// Shows menu entries in a menu bar or a menu, and keeps their states together.
#pragma once

#include "desktop/Scale.h"
#include "platform/ports/Commands.h"

#include <QAction>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tvx::qt {

/// Builds actions for entries and shows their states. Every action and menu has the entry's name as its
/// objectName.
class MenuRenderer {
  public:
    /// `holder` is a QMenuBar or a QMenu; `chosen` gets the name of an entry that a person picks.
    template <typename Holder>
    MenuRenderer(Holder& holder, const std::vector<MenuEntry>& entries,
                 std::function<void(const std::string&)> chosen)
        : chosen_(std::move(chosen)) {
        for (const MenuEntry& entry : entries) Build(holder, entry, HoldsOthers(entries, entry.name));
        Show(entries);
    }

    /// Brings captions, enabled, visible and checked states up to date.
    void Show(const std::vector<MenuEntry>& entries) {
        for (const MenuEntry& entry : entries) {
            QAction& action = *actions_.at(entry.name);
            action.setText(ToQString(entry.caption));
            action.setVisible(entry.visible);
            action.setEnabled(entry.enabled);
            action.setCheckable(entry.toggles);
            action.setChecked(entry.checked);
        }
    }

    QAction* Action(const std::string& name) const {
        const auto found = actions_.find(name);
        return found == actions_.end() ? nullptr : found->second;
    }

  private:
    static bool HoldsOthers(const std::vector<MenuEntry>& entries, const std::string& name) {
        return std::any_of(entries.begin(), entries.end(),
                           [&](const MenuEntry& other) { return other.parent == name; });
    }

    template <typename Holder>
    void Build(Holder& top, const MenuEntry& entry, bool isMenu) {
        if (entry.parent.empty())
            BuildIn(top, entry, isMenu);
        else
            BuildIn(*menus_.at(entry.parent), entry, isMenu);
    }

    template <typename Holder>
    void BuildIn(Holder& holder, const MenuEntry& entry, bool isMenu) {
        QAction* action = nullptr;
        if (isMenu) {
            QMenu* menu = holder.addMenu(QString());
            menu->setObjectName(ToQString(entry.name));
            menus_[entry.name] = menu;
            action = menu->menuAction();
        } else if (entry.separator) {
            action = holder.addSeparator();
        } else {
            action = holder.addAction(QString());
            action->setShortcut(QKeySequence(ToQString(entry.keys)));
            QObject::connect(action, &QAction::triggered, action,
                             [this, name = entry.name] { chosen_(name); });
        }
        action->setObjectName(ToQString(entry.name));
        actions_[entry.name] = action;
    }

    std::function<void(const std::string&)> chosen_;
    std::map<std::string, QAction*> actions_;
    std::map<std::string, QMenu*> menus_;
};

/// Opens the menu `top` of a table at the mouse, and returns when it has closed.
inline void OpenMenu(QWidget& owner, const CommandTable& commands, const char* top,
                     std::function<void(const std::string&)> chosen) {
    QMenu menu(&owner);
    menu.setObjectName(QLatin1String(top));
    const MenuRenderer renderer(menu, commands.Entries(top), std::move(chosen));
    menu.exec(QCursor::pos());
}

} // namespace tvx::qt
