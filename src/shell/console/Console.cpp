#include "shell/console/Console.h"

#include "editor/week/RosterBuilder.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "shell/common/TVXMOD1.h"
#include "store/FirstDatabase.h"
#include "store/NetworkPath.h"
#include "store/OpenStore.h"
#include "store/Troubles.h"
#include "store/rows/DepartmentRow.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr const char* ExampleDepartment = "Example department";

std::string Framed(const std::string& text) {
    return "------ " + text + " ------";
}

/// Text of a caption in which an ampersand is meant as itself.
std::string Plain(const std::string& text) {
    std::string plain;
    for (const char c : text) plain += c == '&' ? "&&" : std::string(1, c);
    return plain;
}

// ---- the start of a run ----

void MeasureScreen(GlobalState& g, const ScreenInfo& screen) {
    g.screen.ScreenWidth = screen.Width();
    g.screen.ScreenHeight = screen.Height() - 150;
    g.screen.VisibleHours = VisibleHoursFor(g.screen.ScreenWidth);
}

void ApplyWorkstationFlags(GlobalState& g, ConsoleFace& face, int flags) {
    if ((flags & workstation::HideWages) != 0) g.rights.HideWages = true;
    if ((flags & workstation::NoScheduling) != 0) g.rights.SchedulingAllowed = false;
    face.menus["Network"].enabled = (flags & workstation::NoNetwork) == 0;
    face.menus["Prior"].enabled = (flags & workstation::NoPrior) == 0;
    face.menus["Restore"].enabled = (flags & workstation::NoRestore) == 0;
    face.menus["Backup"].enabled = (flags & workstation::NoBackup) == 0;
    face.menus["Compact"].enabled = (flags & workstation::NoCompact) == 0;
}

void RefusePath(const fs::path& programFolder, Ports& ports) {
    ports.prompt.MsgBox("Database Path not valid, restart the program.", box::Exclamation, "Invalid path");
    std::error_code ignored;
    fs::remove(FilePath(programFolder, NetworkPathFileName), ignored);
    ports.prompt.DoEvents();
}

/// Takes the database folder and the workstation's rights from the side file, if there is one.
LoadResult SetPath(GlobalState& g, Ports& ports, ConsoleFace& face) {
    const auto file = ReadNetworkPath(g.paths.ProgramPath);
    if (!file) return LoadResult::Ready;
    if (file->databasePath.empty()) {
        RefusePath(g.paths.ProgramPath, ports);
        return LoadResult::EndRun;
    }
    g.paths.DatabasePath = file->databasePath;
    ApplyWorkstationFlags(g, face, file->flags);
    if (FindFile(g.paths.DatabasePath, DatabaseFile)) return LoadResult::Ready;
    ports.prompt.MsgBox("Cannot find database TVX.MDB\nCurrent folder setting: " +
                            g.paths.DatabasePath.string(),
                        box::Exclamation, "Not a valid database path");
    return LoadResult::EndRun;
}

void WarnOfOldDate(Ports& ports) {
    if (PartsOf(ports.clock.Today()).year < 2004)
        ports.prompt.MsgBox("The System date is incorrect... ", box::Exclamation, "System date");
}

// ---- the department list ----

int Index(const DepartmentList& list, int number) {
    const auto found = std::find(list.DepNumbers.begin(), list.DepNumbers.end(), number);
    return found == list.DepNumbers.end() ? 0 : static_cast<int>(found - list.DepNumbers.begin());
}

int IndexByCommand(const GlobalState& g) {
    const DepartmentList& list = g.departments;
    switch (g.application.FormCommand) {
    case FormCommand::None:
    case FormCommand::Delete:
    case FormCommand::Convert:
    case FormCommand::Restore:
        return 0;
    case FormCommand::Add:
        return list.DepartmentCount - 1;
    case FormCommand::Options:
    case FormCommand::Change:
        return Index(list, list.PreviousDepNumber);
    default:
        return Index(list, g.department.CurrentDepNumber);
    }
}

void TakeDepartment(Department& d, const DepartmentRow& row) {
    ReadDepartment(row, d);
    ReadGenericNames(row, d);
}

void TakeDepartmentList(DepartmentList& list, const std::vector<DepartmentRow>& rows) {
    list.DepartmentCount = static_cast<int>(rows.size());
    list.DepNumbers.clear();
    list.DepNames.clear();
    for (const DepartmentRow& row : rows) {
        list.DepNumbers.push_back(row.number);
        list.DepNames.push_back(row.name);
    }
}

void ShowDepartmentMenus(ConsoleFace& face, bool any) {
    face.menus.Enable({"ChangeName", "DeleteDep", "EmplRecords", "ww"}, any);
    face.menus.Show({"ChangeName", "DeleteDep", "EmplRecords", "ww"}, any);
    face.cmdScheduleEnabled = any;
    face.Frame1Visible = true;
}

void ShowCrossDepartmentMenus(ConsoleFace& face, bool shown) {
    face.menus.Show({"FixConflics", "Niks", "Trans", "Niets", "mnu7days"}, shown);
}

void ShowDepartmentChoice(const GlobalState& g, ConsoleFace& face, int current) {
    const int count = g.departments.DepartmentCount;
    ShowDepartmentMenus(face, count > 0);
    ShowCrossDepartmentMenus(face, count > 1 && g.rights.PasswordOk && !g.rights.IsManager());
    face.Combo1 = g.departments.DepNames;
    face.Combo1Index = count > 1 ? current : -1;
    face.Combo1Visible = count > 1;
    face.Label2Visible = count <= 1;
    face.Label2 = Framed(count == 0 ? "No departments installed!" : g.department.CurrentDepName);
}

// ---- activation ----

void LockConsole(ConsoleFace& face) {
    face.PromptVisible = true;
    face.Frame1Visible = false;
    face.cmdScheduleEnabled = false;
    face.menus.Enable({"Fi", "Dep", "EmplRecords", "ww", "OptionFrame", "PW", "NeedHelp"}, false);
}

void LayOut(GlobalState& g, Ports& ports, ConsoleFace& face) {
    face.printed = {"Version " + std::to_string(ProgramMajor) + "." + std::to_string(ProgramRevision)};
    if (g.paths.DatabasePath != g.paths.ProgramPath)
        face.printed.push_back("Network path: " + g.paths.DatabasePath.string());
    face.printed.push_back("Internet:");
    face.menus["PW"].enabled = g.rights.SchedulingAllowed;
    if (g.rights.AccessLevel == "Big boss") RefreshDepartments(g, ports, face);
    if (!g.rights.PasswordOk) LockConsole(face);
    face.laidOut = true;
}

void LimitToRights(const GlobalState& g, ConsoleFace& face) {
    if (g.rights.SchedulingAllowed) return;
    face.menus.Enable({"Dep", "EmplRecords", "OptionFrame"}, false);
    if (!g.rights.IsManager()) face.menus["PW"].enabled = false;
}

/// The database and the department list; the box of any trouble.
LoadResult OpenDatabase(GlobalState& g, Ports& ports, ConsoleFace& face) {
    try {
        OpenStore(g, ports.clock.Today());
        RefreshDepartments(g, ports, face);
        return LoadResult::Ready;
    } catch (const dao::DaoError& trouble) {
        TellTrouble(ports.prompt, TroubleOf(Occasion::Opening, trouble));
    } catch (const FileError& trouble) {
        TellTrouble(ports.prompt, TroubleOf(Occasion::Opening, trouble));
    }
    CloseDatabase(g.store, ports.prompt);
    return LoadResult::EndRun;
}

} // namespace

ConsoleFace::ConsoleFace() : menus(ConsoleMenus()) {
    menus.Show({"FixConflics", "Niks", "Trans", "Niets", "mnu7days"}, false);
}

MenuBar ConsoleMenus() {
    const bool built = true;
    const auto line = [](const char* name, const char* parent) { return MenuEntry{name, parent, "", true}; };
    return MenuBar({
        {"Fi", "", "&File"},
        {"Compact", "Fi", "&Compact database"},
        {"Backup", "Fi", "&Backup database"},
        {"Restore", "Fi", "&Restore database"},
        line("n2", "Fi"),
        {"mnuExport", "Fi", "Export file"},
        line("as", "Fi"),
        {"Prior", "Fi", "&Delete all schedules prior to a date"},
        line("te", "Fi"),
        {"Network", "Fi", "Network path"},
        line("spa", "Fi"),
        {"GetOut", "Fi", "E&xit", false, built},
        {"Dep", "", "&Departments"},
        {"AddDep", "Dep", "&Add a new Department", false, built},
        {"ChangeName", "Dep", "&Change the current Department settings", false, built},
        {"DeleteDep", "Dep", "&Delete the current Department", false, built},
        {"EmplRecords", "", "&Employees"},
        {"NewEmployee", "EmplRecords", "&Add new Employee", false, built},
        {"ChangeEmplRec", "EmplRecords", "&Change Employee record", false, built},
        {"DeleteEmpl", "EmplRecords", "&Delete Employee record", false, built},
        {"BA", "EmplRecords", "&Birthdays and Anniversaries"},
        line("Niets", "EmplRecords"),
        {"Trans", "EmplRecords", "&Transfer Employee to other department"},
        line("Niks", "EmplRecords"),
        {"FixConflics", "EmplRecords", "Check &Interdepartmental Schedule Conflicts", false, built},
        {"ww", "", "Reports"},
        {"EmplStats", "ww", "&Employee statistics between dates"},
        {"EmplPr", "ww", "&Print Employee information"},
        {"mnu7days", "ww", "&Selected departments seven day schedules"},
        line("wwy", "ww"),
        {"ExcelSS", "ww", "&Excel spreadsheet"},
        {"PW", "", "Pass&word"},
        {"OptionFrame", "", "&Options"},
        {"NeedHelp", "", "        &Help"},
        {"ThisProgram", "NeedHelp", "&About this program", false, built},
        {"Freq", "NeedHelp", "&Frequently Asked Questions", false, built},
    });
}

bool SplashIsOver(int startSecond, int secondOfDay) {
    return secondOfDay >= startSecond + 2;
}

int VisibleHoursFor(Twips screenWidth) {
    return std::min((screenWidth - 2400) / 480, 24);
}

LoadResult LoadConsole(GlobalState& g, Ports& ports, ConsoleFace& face) {
    if (!ports.instance.Claim()) {
        ports.prompt.MsgBox("Tarvex already running", box::Ok, "Tarvex");
        return LoadResult::EndRun;
    }
    g.application.CrLf = "\r\n";
    g.rights.SchedulingAllowed = true;
    g.paths.DatabasePath = g.paths.ProgramPath;
    if (SetPath(g, ports, face) == LoadResult::EndRun) return LoadResult::EndRun;
    MeasureScreen(g, ports.screen);
    WarnOfOldDate(ports);
    g.application.DateFormatSetting = DetectDateFormat(ports.region);
    if (OpenDatabase(g, ports, face) == LoadResult::EndRun) return LoadResult::EndRun;
    ports.prompt.MousePointer(Pointer::Default);
    return LoadResult::Ready;
}

void RefreshDepartments(GlobalState& g, Ports& ports, ConsoleFace& face) {
    if (!g.rights.PasswordOk) return;
    const std::vector<DepartmentRow> rows = ReadDepartmentRows(g.store.Open());
    TakeDepartmentList(g.departments, rows);
    int current = 0;
    if (!rows.empty()) {
        current = IndexByCommand(g);
        TakeDepartment(g.department, rows[static_cast<std::size_t>(current)]);
        SetMenuCaptions(g.department, face);
    } else {
        g.department = {};
        face.cmdScheduleCaption.clear();
    }
    ShowDepartmentChoice(g, face, current);
    g.departments.MultipleDepartments = face.menus["FixConflics"].visible;
    ports.prompt.DoEvents();
}

void ChooseDepartment(GlobalState& g, ConsoleFace& face, int index) {
    if (index < 0 || index >= g.departments.DepartmentCount) return;
    const std::vector<DepartmentRow> rows = ReadDepartmentRows(g.store.Open());
    const auto chosen = std::find_if(rows.begin(), rows.end(), [&](const DepartmentRow& row) {
        return row.name == g.departments.DepNames[index];
    });
    if (chosen == rows.end()) return; // another workstation renamed or deleted it
    TakeDepartment(g.department, *chosen);
    face.Combo1Index = index;
    face.Label2 = Framed(g.department.CurrentDepName);
    SetMenuCaptions(g.department, face);
}

void SetMenuCaptions(const Department& d, ConsoleFace& face) {
    const std::string name = Plain(d.CurrentDepName);
    const std::string one = Plain(d.EmployeeNameSingle);
    const std::string many = Plain(d.EmployeeNamePlural);
    face.menus["ChangeName"].caption = "&Change " + name + " settings";
    face.menus["DeleteDep"].caption = "&Delete " + name;
    face.menus["NewEmployee"].caption = "&Add new " + one + " to " + name;
    face.menus["ChangeEmplRec"].caption = "&Change " + name + " " + one + " record";
    face.menus["DeleteEmpl"].caption = "&Delete " + one + " from " + name;
    face.menus["Trans"].caption = "&Transfer " + name + " " + one;
    face.menus["EmplPr"].caption = "&Print " + many + " information for selected Departments";
    face.menus["EmplStats"].caption = "&Print " + many + " statistics between two dates";
    face.menus["EmplRecords"].caption = many;
    face.cmdScheduleCaption = "Schedule " + name;
}

void ActivateConsole(GlobalState& g, Ports& ports, ConsoleFace& face) {
    g.roster.AllDepartmentsMode = false;
    if (!face.laidOut) LayOut(g, ports, face);
    LimitToRights(g, face);
}

bool ExampleNoteIsDue(const GlobalState& g) {
    return g.department.CurrentDepName == ExampleDepartment && g.departments.DepartmentCount == 1 &&
           !g.application.ExampleNoteShown;
}

bool PrepareSchedule(GlobalState& g, Ports& ports) {
    g.application.StartHour =
        static_cast<int>(RoundHalfToEven(Val(g.application.Settings[setting::StartHour])));
    try {
        return PrepareRoster(g, ports.prompt);
    } catch (const dao::DaoError& trouble) {
        TellTrouble(ports.prompt, TroubleOf(Occasion::Opening, trouble));
        return false;
    }
}

std::vector<std::pair<std::string, int>> ExampleNote(const Department& d) {
    constexpr int Black = 0;
    constexpr int Green = 2;
    return {{"The purpose of the  Example Department is to make you familiar with the", Black},
            {"application without having to set up a Department and entering " + d.EmployeeNamePlural + ".",
             Black},
            {"When you are ready:", Green},
            {"1. Add your own Department (See menu).", Green},
            {"2. Add " + d.EmployeeNamePlural + " to that new Department.", Green},
            {"Delete the Example Department when you no longer need it.", Black}};
}

} // namespace tvx
