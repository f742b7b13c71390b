#include "shell/console/ConsoleCommands.h"

#include "store/NetworkPath.h"

#include <map>

namespace tvx {
namespace {

using Commands = std::vector<Command>;
using Question = std::function<bool()>;

/// The rows of the table: who may do what is told once here, for menus and buttons alike.
class Table {
  public:
    Table(const Rights& rights, const DepartmentList& departments, ConsoleActions& actions)
        : rights_(rights), departments_(departments), actions_(actions) {}

    Commands FileMenu() const;
    Commands DepartmentMenu() const;
    Commands EmployeeMenu() const;
    Commands ReportMenu() const;
    Commands OtherMenus() const;
    Commands Buttons() const;

  private:
    template <typename... Parameters, typename... Arguments>
    std::function<void()> Does(void (ConsoleActions::*action)(Parameters...), Arguments... arguments) const {
        return [&actions = actions_, action, arguments...] { (actions.*action)(arguments...); };
    }
    /// A menu of the bar that waits for the password and for more.
    Command Menu(const char* name, const char* caption, const Question& offered) const {
        return {.name = name, .parent = "MenuBar", .caption = caption, .offered = [&r = rights_, offered] {
                    return r.PasswordOk && offered();
                }};
    }
    static Command Line(const char* name, const char* parent) {
        return {.name = name, .parent = parent, .separator = true};
    }

    Question Always() const {
        return [] { return true; };
    }
    Question NoManager() const {
        return [&r = rights_] { return !r.IsManager(); };
    }
    Question NoManagerAndMaySchedule() const {
        return [&r = rights_] { return !r.IsManager() && r.SchedulingAllowed; };
    }
    Question HasDepartment() const {
        return [&r = rights_, &d = departments_] { return OffersDepartment(r, d); };
    }
    /// The menus of a department stand closed before the password, and go only when there is none.
    Question NotKnownToBeNone() const {
        return [&r = rights_, &d = departments_] { return !r.PasswordOk || OffersDepartment(r, d); };
    }
    Question Several() const {
        return [&r = rights_, &d = departments_] { return OffersSeveralDepartments(r, d); };
    }
    /// A manager's own right counts for the own password, anybody else needs that of scheduling.
    Question MayChangePasswords() const {
        return [&r = rights_] { return r.IsManager() ? r.PasswordsAllowed : r.SchedulingAllowed; };
    }
    /// The workstation does not take the right away.
    Question Left(int flag) const {
        return [&r = rights_, flag] { return (r.WorkstationFlags & flag) == 0; };
    }

    const Rights& rights_;
    const DepartmentList& departments_;
    ConsoleActions& actions_;
};

Commands Table::FileMenu() const {
    return {
        Menu("Fi", "&File", NoManager()),
        {.name = "Compact",
         .parent = "Fi",
         .caption = "&Compact database",
         .offered = Left(workstation::NoCompact)},
        {.name = "Backup",
         .parent = "Fi",
         .caption = "&Backup database",
         .offered = Left(workstation::NoBackup)},
        {.name = "Restore",
         .parent = "Fi",
         .caption = "&Restore database",
         .offered = Left(workstation::NoRestore)},
        Line("n2", "Fi"),
        {.name = "mnuExport", .parent = "Fi", .caption = "Export file"},
        Line("as", "Fi"),
        {.name = "Prior",
         .parent = "Fi",
         .caption = "&Delete all schedules prior to a date",
         .offered = Left(workstation::NoPrior)},
        Line("te", "Fi"),
        {.name = "Network",
         .parent = "Fi",
         .caption = "Network path",
         .offered = Left(workstation::NoNetwork)},
        Line("spa", "Fi"),
        {.name = "GetOut", .parent = "Fi", .caption = "E&xit", .run = Does(&ConsoleActions::EndRun)},
    };
}

Commands Table::DepartmentMenu() const {
    return {
        Menu("Dep", "&Departments", NoManagerAndMaySchedule()),
        {.name = "AddDep",
         .parent = "Dep",
         .caption = "&Add a new Department",
         .run = Does(&ConsoleActions::EditDepartment, FormCommand::Add)},
        {.name = "ChangeName",
         .parent = "Dep",
         .caption = "&Change the current Department settings",
         .run = Does(&ConsoleActions::EditDepartment, FormCommand::Change),
         .offered = HasDepartment(),
         .shown = NotKnownToBeNone()},
        {.name = "DeleteDep",
         .parent = "Dep",
         .caption = "&Delete the current Department",
         .run = Does(&ConsoleActions::DeleteDepartment),
         .offered = HasDepartment(),
         .shown = NotKnownToBeNone()},
    };
}

Commands Table::EmployeeMenu() const {
    Command menu = Menu("EmplRecords", "&Employees", [&r = rights_, &d = departments_] {
        return r.SchedulingAllowed && OffersDepartment(r, d);
    });
    menu.shown = NotKnownToBeNone();
    Command beforeTransfer = Line("Niets", "EmplRecords");
    Command beforeConflicts = Line("Niks", "EmplRecords");
    beforeTransfer.shown = beforeConflicts.shown = Several();
    return {
        menu,
        {.name = "NewEmployee",
         .parent = "EmplRecords",
         .caption = "&Add new Employee",
         .run = Does(&ConsoleActions::AddEmployee)},
        {.name = "ChangeEmplRec",
         .parent = "EmplRecords",
         .caption = "&Change Employee record",
         .run = Does(&ConsoleActions::ChangeEmployee)},
        {.name = "DeleteEmpl",
         .parent = "EmplRecords",
         .caption = "&Delete Employee record",
         .run = Does(&ConsoleActions::DeleteEmployee)},
        {.name = "BA", .parent = "EmplRecords", .caption = "&Birthdays and Anniversaries"},
        beforeTransfer,
        {.name = "Trans",
         .parent = "EmplRecords",
         .caption = "&Transfer Employee to other department",
         .shown = Several()},
        beforeConflicts,
        {.name = "FixConflics",
         .parent = "EmplRecords",
         .caption = "Check &Interdepartmental Schedule Conflicts",
         .run = Does(&ConsoleActions::ShowConflicts),
         .shown = Several()},
    };
}

Commands Table::ReportMenu() const {
    Command menu = Menu("ww", "Reports", HasDepartment());
    menu.shown = NotKnownToBeNone();
    return {
        menu,
        {.name = "EmplStats", .parent = "ww", .caption = "&Employee statistics between dates"},
        {.name = "EmplPr", .parent = "ww", .caption = "&Print Employee information"},
        {.name = "mnu7days",
         .parent = "ww",
         .caption = "&Selected departments seven day schedules",
         .shown = Several()},
        Line("wwy", "ww"),
        {.name = "ExcelSS", .parent = "ww", .caption = "&Excel spreadsheet"},
    };
}

Commands Table::OtherMenus() const {
    return {
        Menu("PW", "Pass&word", MayChangePasswords()),
        Menu("OptionFrame", "&Options", NoManagerAndMaySchedule()),
        Menu("NeedHelp", "        &Help", Always()),
        {.name = "ThisProgram",
         .parent = "NeedHelp",
         .caption = "&About this program",
         .run = Does(&ConsoleActions::ShowAbout)},
        {.name = "Freq",
         .parent = "NeedHelp",
         .caption = "&Frequently Asked Questions",
         .run = Does(&ConsoleActions::ShowQuestions),
         .keys = "F1"},
    };
}

Commands Table::Buttons() const {
    return {
        {.name = "Buttons"},
        {.name = "cmdSchedule",
         .parent = "Buttons",
         .caption = "Schedule",
         .run = Does(&ConsoleActions::Schedule),
         .offered = [&r = rights_, &d = departments_] { return r.PasswordOk && OffersDepartment(r, d); }},
        {.name = "cmdExit", .parent = "Buttons", .caption = "E&xit", .run = Does(&ConsoleActions::EndRun)},
    };
}

/// The captions that carry the department and its words.
std::map<std::string, std::string> CaptionsFor(const Department& d) {
    const std::string name = WithoutMnemonic(d.CurrentDepName);
    const std::string one = WithoutMnemonic(d.EmployeeNameSingle);
    const std::string many = WithoutMnemonic(d.EmployeeNamePlural);
    return {
        {"ChangeName", "&Change " + name + " settings"},
        {"DeleteDep", "&Delete " + name},
        {"NewEmployee", "&Add new " + one + " to " + name},
        {"ChangeEmplRec", "&Change " + name + " " + one + " record"},
        {"DeleteEmpl", "&Delete " + one + " from " + name},
        {"Trans", "&Transfer " + name + " " + one},
        {"EmplPr", "&Print " + many + " information for selected Departments"},
        {"EmplStats", "&Print " + many + " statistics between two dates"},
        {"EmplRecords", many},
        {"cmdSchedule", "Schedule " + name},
    };
}

/// Gives those commands captions that follow the department; without one they keep their own.
void SetMenuCaptions(Commands& commands, const Department& department) {
    const auto worded = CaptionsFor(department);
    for (Command& command : commands) {
        if (!worded.contains(command.name)) continue;
        command.wording = [&department, name = command.name, own = command.caption] {
            return department.CurrentDepNumber == 0 ? own : CaptionsFor(department).at(name);
        };
    }
}

} // namespace

bool OffersSeveralDepartments(const Rights& rights, const DepartmentList& departments) {
    return departments.DepartmentCount > 1 && rights.PasswordOk && !rights.IsManager();
}

bool OffersDepartment(const Rights& rights, const DepartmentList& departments) {
    return rights.IsManager() || departments.DepartmentCount > 0;
}

CommandTable ConsoleCommands(const Rights& rights, const DepartmentList& departments,
                             const Department& department, ConsoleActions& actions) {
    const Table table(rights, departments, actions);
    Commands commands{{.name = "MenuBar"}};
    for (const Commands& more : {table.FileMenu(), table.DepartmentMenu(), table.EmployeeMenu(),
                                 table.ReportMenu(), table.OtherMenus(), table.Buttons()})
        commands.insert(commands.end(), more.begin(), more.end());
    SetMenuCaptions(commands, department);
    return CommandTable(std::move(commands));
}

} // namespace tvx
