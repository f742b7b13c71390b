// The commands of the console: its menus and its buttons.
#pragma once

#include "platform/ports/Commands.h"
#include "shell/state/Department.h"
#include "shell/state/FormCommand.h"
#include "shell/state/Rights.h"

namespace tvx {

/// What the commands do; the console's form does it.
class ConsoleActions {
  public:
    virtual ~ConsoleActions() = default;
    virtual void EndRun() = 0;
    virtual void Schedule() = 0;
    /// The Main Editor on the people who work in several departments.
    virtual void ShowConflicts() = 0;
    /// `command` is Add, or Change of the current one.
    virtual void EditDepartment(FormCommand command) = 0;
    virtual void DeleteDepartment() = 0;
    virtual void AddEmployee() = 0;
    virtual void ChangeEmployee() = 0;
    virtual void DeleteEmployee() = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowQuestions() = 0;
};

/// What only a person can do who may reach every department is offered while there are several of them.
bool OffersSeveralDepartments(const Rights& rights, const DepartmentList& departments);

/// There is a department to work on: a manager has one without a list.
bool OffersDepartment(const Rights& rights, const DepartmentList& departments);

/// All commands, below `MenuBar` and `Buttons`. The captions carry the current department and its words. All
/// arguments must outlive the table.
CommandTable ConsoleCommands(const Rights& rights, const DepartmentList& departments,
                             const Department& department, ConsoleActions& actions);

} // namespace tvx
