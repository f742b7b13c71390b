// The commands of the console as a person sees them now, without its form.
#pragma once

#include "shell/console/ConsoleCommands.h"
#include "shell/state/TVXGLOB.h"

namespace tvx::test {

/// Does nothing of what the console does.
class NoConsoleActions : public ConsoleActions {
  public:
    void EndRun() override {}
    void Schedule() override {}
    void ShowConflicts() override {}
    void EditDepartment(FormCommand) override {}
    void DeleteDepartment() override {}
    void AddEmployee() override {}
    void ChangeEmployee() override {}
    void DeleteEmployee() override {}
    void ShowAbout() override {}
    void ShowQuestions() override {}
};

/// Menus and buttons of a state, by name. The state must outlive it.
class ConsoleMenus {
  public:
    explicit ConsoleMenus(const GlobalState& g)
        : table_(ConsoleCommands(g.rights, g.departments, g.department, actions_)) {}

    MenuEntry operator[](const char* name) const { return table_.Entry(name); }
    /// What the command asks by itself: its menu may be closed, and it may lead nowhere yet.
    bool Offers(const char* name) const {
        const Command& command = table_[name];
        return !command.offered || command.offered();
    }
    const CommandTable& Table() const { return table_; }

  private:
    NoConsoleActions actions_;
    CommandTable table_;
};

} // namespace tvx::test
