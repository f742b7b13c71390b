#include "shell/console/Console.h"

#include "editor/week/RosterBuilder.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/TemporaryName.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/ConsoleCommands.h"
#include "store/FirstDatabase.h"
#include "store/JudgeJournal.h"
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

// ---- the start of a run ----

void MeasureScreen(GlobalState& g, const ScreenInfo& screen) {
    const ScreenSize size = screen.Size();
    g.screen.ScreenWidth = size.ScreenWidth;
    g.screen.ScreenHeight = size.ScreenHeight;
    g.screen.VisibleHours = VisibleHoursFor(g.screen.ScreenWidth);
}

void ApplyWorkstationFlags(Rights& rights, int flags) {
    rights.WorkstationFlags = flags;
    if ((flags & workstation::HideWages) != 0) rights.HideWages = true;
    if ((flags & workstation::NoScheduling) != 0) rights.SchedulingAllowed = false;
}

void RefusePath(const fs::path& programFolder, Ports& ports) {
    ports.prompt.MsgBox("Database Path not valid, restart the program.", box::Exclamation, "Invalid path");
    std::error_code ignored;
    fs::remove(FilePath(programFolder, NetworkPathFileName), ignored);
    ports.prompt.DoEvents();
}

/// What the workstation may do is not known, so it may do nothing.
LoadResult TellUnread(const FileError& trouble, Ports& ports) {
    ports.prompt.MsgBox(
        "The file that says where the database lies could not be read, so the program ends. The "
        "file stays as it is.\r\n\r\n" +
            std::string(trouble.what()),
        box::Exclamation, "Invalid path");
    return LoadResult::EndRun;
}

/// Takes the database folder and the workstation's rights from the side file, if there is one.
LoadResult SetPath(Paths& paths, Rights& rights, Ports& ports) {
    std::optional<NetworkPathFile> file;
    try {
        file = ReadNetworkPath(paths.ProgramPath);
    } catch (const FileError& trouble) {
        return TellUnread(trouble, ports);
    }
    if (!file) return LoadResult::Ready;
    if (file->databasePath.empty()) {
        RefusePath(paths.ProgramPath, ports);
        return LoadResult::EndRun;
    }
    paths.DatabasePath = file->databasePath;
    ApplyWorkstationFlags(rights, file->flags);
    if (FindFile(paths.DatabasePath, DatabaseFile)) return LoadResult::Ready;
    ports.prompt.MsgBox("Cannot find database TVX.MDB\nCurrent folder setting: " +
                            paths.DatabasePath.string(),
                        box::Exclamation, "Not a valid database path");
    return LoadResult::EndRun;
}

/// Who cannot write beside the program would miss the data that lies there.
void TellUnusedDatabase(const Paths& paths, Prompt& prompt) {
    if (paths.UnusedPath.empty() || paths.DatabasePath != paths.ProgramPath) return;
    prompt.MsgBox(
        "The database in the folder of the program is not used, since that folder is not yours to write "
        "in:\r\n\r\n" +
            FilePath(paths.UnusedPath, DatabaseFile).string() +
            "\r\n\r\nThe data of this run lies in the folder\r\n\r\n" + paths.DatabasePath.string(),
        box::Exclamation, "Database");
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

void FillDepartment(Department& d, const DepartmentRow& row) {
    ReadDepartment(row, d);
    ReadGenericNames(row, d);
}

void FillDepartmentList(DepartmentList& list, const std::vector<DepartmentRow>& rows) {
    list.DepartmentCount = static_cast<int>(rows.size());
    list.DepNumbers.clear();
    list.DepNames.clear();
    for (const DepartmentRow& row : rows) {
        list.DepNumbers.push_back(row.number);
        list.DepNames.push_back(row.name);
    }
}

void ShowDepartmentChoice(const GlobalState& g, ConsoleFace& face, int current) {
    const int count = g.departments.DepartmentCount;
    face.Frame1Visible = true;
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
}

void LayOut(GlobalState& g, Ports& ports, ConsoleFace& face) {
    face.printed = {"Version " + std::to_string(ProgramMajor) + "." + std::to_string(ProgramRevision)};
    if (g.paths.DatabasePath != g.paths.ProgramPath)
        face.printed.push_back("Network path: " + g.paths.DatabasePath.string());
    face.printed.push_back("Internet:");
    if (g.rights.AccessLevel == "Big boss") RefreshDepartments(g, ports, face);
    if (!g.rights.PasswordOk) LockConsole(face);
    face.laidOut = true;
}

void LookAtLeftJournal(const fs::path& database, Prompt& prompt) {
    if (const auto kept = JudgeJournal(database)) TellJournalSetAside(prompt, *kept);
}

/// Which file it is about is said beyond the words of the box.
void TellOpening(const Paths& paths, Prompt& prompt, const std::exception& error) {
    Trouble trouble = TroubleOf(Occasion::Opening, error);
    const fs::path file = FilePath(paths.DatabasePath, DatabaseFile);
    trouble.detail =
        "The file is " + file.filename().string() + "\r\nin the folder " + paths.DatabasePath.string();
    TellTrouble(prompt, trouble);
}

/// The database and the department list; the box of any trouble.
LoadResult OpenDatabase(GlobalState& g, Ports& ports, ConsoleFace& face) {
    try {
        for (const fs::path& folder : {g.paths.ProgramPath, g.paths.DatabasePath}) ClearTemporariesIn(folder);
        LookAtLeftJournal(FilePath(g.paths.DatabasePath, DatabaseFile), ports.prompt);
        OpenStore(g, ports.clock.Today());
        RefreshDepartments(g, ports, face);
        return LoadResult::Ready;
    } catch (const dao::DaoError& trouble) {
        TellOpening(g.paths, ports.prompt, trouble);
    } catch (const FileError& trouble) {
        TellOpening(g.paths, ports.prompt, trouble);
    }
    CloseDatabase(g.store, ports.prompt);
    return LoadResult::EndRun;
}

} // namespace

bool SplashIsOver(int startSecond, int secondOfDay) {
    return secondOfDay >= startSecond + 2;
}

int VisibleHoursFor(Twips screenWidth) {
    return std::min((screenWidth - 2400) / 480, 24);
}

LoadResult LoadConsole(GlobalState& g, Ports& ports, ConsoleFace& face) {
    if (!ports.instance.Claim()) {
        ports.instance.RaiseOther();
        ports.prompt.MsgBox("Tarvex already running", box::Ok, "Tarvex");
        return LoadResult::EndRun;
    }
    g.application.CrLf = "\r\n";
    g.rights.SchedulingAllowed = true;
    g.paths.DatabasePath = g.paths.ProgramPath;
    if (SetPath(g.paths, g.rights, ports) == LoadResult::EndRun) return LoadResult::EndRun;
    TellUnusedDatabase(g.paths, ports.prompt);
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
    FillDepartmentList(g.departments, rows);
    int current = 0;
    if (!rows.empty()) {
        current = IndexByCommand(g);
        FillDepartment(g.department, rows[static_cast<std::size_t>(current)]);
    } else {
        g.department = {};
    }
    ShowDepartmentChoice(g, face, current);
    g.departments.MultipleDepartments = OffersSeveralDepartments(g.rights, g.departments);
    ports.prompt.DoEvents();
}

void ChooseDepartment(const Store& store, const DepartmentList& departments, Department& department,
                      ConsoleFace& face, int index) {
    if (index < 0 || index >= departments.DepartmentCount) return;
    const std::vector<DepartmentRow> rows = ReadDepartmentRows(store.Open());
    const auto chosen = std::find_if(rows.begin(), rows.end(), [&](const DepartmentRow& row) {
        return row.name == departments.DepNames[index];
    });
    if (chosen == rows.end()) return; // another workstation renamed or deleted it
    FillDepartment(department, *chosen);
    face.Combo1Index = index;
    face.Label2 = Framed(department.CurrentDepName);
}

void ActivateConsole(GlobalState& g, Ports& ports, ConsoleFace& face) {
    g.roster.AllDepartmentsMode = false;
    if (!face.laidOut) LayOut(g, ports, face);
}

bool ExampleNoteIsDue(const Department& department, const DepartmentList& departments,
                      const ApplicationState& application) {
    return department.CurrentDepName == ExampleDepartment && departments.DepartmentCount == 1 &&
           !application.ExampleNoteShown;
}

bool PrepareSchedule(GlobalState& g, Ports& ports) {
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
