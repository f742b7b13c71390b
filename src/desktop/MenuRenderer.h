// Shows a menu bar model in a window and keeps the two together.
#pragma once

#include "desktop/Scale.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tvx::qt {

/// Builds actions for a model of the kind of shell's MenuBar and shows its states. Every action and menu has
/// the entry's name as its objectName.
template <typename Model>
class MenuRenderer {
  public:
    /// `chosen` gets the name of an entry that a person picks.
    MenuRenderer(QMenuBar& bar, const Model& model, std::function<void(const std::string&)> chosen)
        : chosen_(std::move(chosen)) {
        for (const auto& entry : model.Entries()) Build(bar, model, entry.name);
        Show(model);
    }

    /// Brings captions, enabled, visible and checked states up to date.
    void Show(const Model& model) {
        for (const auto& entry : model.Entries()) {
            QAction& action = *actions_.at(entry.name);
            action.setText(ToQString(entry.caption));
            action.setVisible(entry.visible);
            action.setEnabled(IsMenu(entry.name) ? entry.enabled : entry.enabled && entry.built);
            action.setCheckable(entry.checked);
            action.setChecked(entry.checked);
        }
    }

    QAction* Action(const std::string& name) const {
        const auto found = actions_.find(name);
        return found == actions_.end() ? nullptr : found->second;
    }

  private:
    bool IsMenu(const std::string& name) const { return menus_.contains(name); }

    void Build(QMenuBar& bar, const Model& model, const std::string& name) {
        const auto& entry = model[name];
        QMenu* holder = entry.parent.empty() ? nullptr : menus_.at(entry.parent);
        bool isMenu = false;
        for (const auto& other : model.Entries()) isMenu = isMenu || other.parent == name;
        QAction* action = nullptr;
        if (isMenu) {
            QMenu* menu = holder != nullptr ? holder->addMenu(QString()) : bar.addMenu(QString());
            menu->setObjectName(ToQString(name));
            menus_[name] = menu;
            action = menu->menuAction();
        } else if (entry.separator) {
            action = holder->addSeparator();
        } else {
            action = holder != nullptr ? holder->addAction(QString()) : bar.addAction(QString());
            QObject::connect(action, &QAction::triggered, action, [this, name] { chosen_(name); });
        }
        if (!isMenu) action->setObjectName(ToQString(name));
        actions_[name] = action;
    }

    std::function<void(const std::string&)> chosen_;
    std::map<std::string, QAction*> actions_;
    std::map<std::string, QMenu*> menus_;
};

} // namespace tvx::qt
