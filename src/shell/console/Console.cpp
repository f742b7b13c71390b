#include "shell/console/Console.h"

#include "editor/week/RosterBuilder.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Passwords.h"
#include "store/NetworkPath.h"
#include "store/rows/Schema.h"

#include <algorithm>
#include <system_error>

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr const char* DatabaseFile = "TVX.MDB";
constexpr const char* ReadyMadeFile = "TVX.JAN";
constexpr const char* ExampleDepartment = "Example department";
constexpr DaySerial ExampleWeek = 38774; // 26 February 2006, the first day of the ready-made week

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

void MoveWeek(dao::Database& db, const std::string& table, const std::string& dayField, DaySerial base) {
    // A select, which is read whole: a table is read on by its key, which the moves change.
    dao::Recordset rows =
        db.OpenRecordset("SELECT * FROM [" + table + "] WHERE [" + dayField + "] between " +
                         std::to_string(ExampleWeek) + " and " + std::to_string(ExampleWeek + 6));
    for (; !rows.AtEnd(); rows.MoveNext()) {
        const std::int64_t day = rows.Fields(dayField).Long();
        rows.Edit();
        rows.Fields(dayField) = static_cast<int>(base + day - ExampleWeek);
        rows.Update();
    }
}

void MoveExampleWeek(dao::Database& db, DaySerial today) {
    constexpr int Sunday = 1;
    const DaySerial base = FirstDayOfWeek(today, Sunday);
    dao::Transaction transaction(db);
    MoveWeek(db, "Day Schedule", "Day Julian", base);
    MoveWeek(db, "Department day", "Day", base);
    transaction.Commit();
}

/// A start that was cut off leaves its unfinished file, and the engine a journal, which it would play back
/// into the next file of that name.
void RemoveWhatWasCutOff(const fs::path& folder) {
    std::error_code ignored;
    for (const char* name : {"TVX.NEW", "TVX.NEW-journal", "TVX.MDB-journal"})
        fs::remove(folder / name, ignored);
}

std::string SettingOf(dao::Recordset& rs, const char* field, const char* ifNull) {
    return Trim(rs.Fields(field).Text(ifNull));
}

void TakeSettings(GlobalState& g, dao::Recordset& rs) {
    auto& settings = g.application.Settings;
    settings[setting::ClockStyle] = SettingOf(rs, "12 or 24", "12");
    settings[setting::StartHour] = SettingOf(rs, "StartHour", "");
    settings[setting::BarColor] = SettingOf(rs, "BarColor", "2");
    settings[setting::TimeFormat] = SettingOf(rs, "TimeFormat", "0");
    settings[setting::UnderAge] = SettingOf(rs, "UnderAge", "16");
    settings[setting::DayOvertime] = SettingOf(rs, "DayOvertime", "96");
    // The bracket does no harm: only the leading number of the text is ever used.
    settings[setting::WeekOvertime] = SettingOf(rs, "WeekOvertime", "672)");
    g.application.OpenShared = !SettingOf(rs, "To Try", "").empty();
    g.application.GeneralManagerPassword = UnscramblePassword(rs.Fields("BigBoss").Text());
}

void WriteDefaultSettings(GlobalState& g, dao::Recordset& rs) {
    auto& settings = g.application.Settings;
    settings = {"", "", "12", TrimmedNumber(24 - g.screen.VisibleHours), "2", "0", "", "16", "96", "672"};
    rs.AddNew();
    rs.Fields("12 or 24") = settings[setting::ClockStyle];
    rs.Fields("StartHour") = settings[setting::StartHour];
    rs.Fields("BarColor") = settings[setting::BarColor];
    rs.Fields("TimeFormat") = settings[setting::TimeFormat];
    rs.Fields("UnderAge") = settings[setting::UnderAge];
    rs.Fields("DayOvertime") = settings[setting::DayOvertime];
    rs.Fields("WeekOvertime") = settings[setting::WeekOvertime];
    rs.Fields("To Try") = "S";
    rs.Update(); // without a version: the file may be an old one, which is brought up to date next
    g.application.OpenShared = true;
    g.application.GeneralManagerPassword.clear();
}

void ApplySettings(GlobalState& g) {
    auto& settings = g.application.Settings;
    if (Val(settings[setting::StartHour]) < 0) settings[setting::StartHour] = "4";
    g.application.StartHour = static_cast<int>(RoundHalfToEven(Val(settings[setting::StartHour])));
    g.application.DefaultBarColor =
        QBColor(static_cast<int>(RoundHalfToEven(Val(settings[setting::BarColor]))));
}

void Authorise(GlobalState& g) {
    const bool locked = !g.application.GeneralManagerPassword.empty();
    if (locked) g.rights.AccessLevel = "Big boss";
    g.rights.PasswordOk = !locked;
}

void BringToVersion(GlobalState& g) {
    g.store.ApplicationRs.MoveFirst();
    const dao::Value version = g.store.ApplicationRs.Fields("DB Version").Value();
    if (dao::IsNull(version) || dao::ToLong(version) != SchemaVersion) {
        CheckDBversion(g.store.Open(), g.store.ApplicationRs);
        return;
    }
    if (const std::string missing = MissingFromFile(g.store.Open()); !missing.empty())
        throw dao::DaoError(dao::error::ItemNotFound, "Item not found in this collection: " + missing);
}

void OpenStore(GlobalState& g, Ports& ports, ConsoleFace& face) {
    SeedFirstDatabase(g.store.Engine, g.paths.DatabasePath, ports.clock.Today());
    g.store.Db = g.store.Engine.OpenDatabase(FilePath(g.paths.DatabasePath, DatabaseFile));
    RequireUsableFile(g.store.Open());
    ReadSettings(g);
    Authorise(g);
    ApplySettings(g);
    BringToVersion(g);
    RefreshDepartments(g, ports, face);
}

void TellLoadTrouble(Prompt& prompt, int number, const std::string& text) {
    const auto tell = [&](const std::string& message, int style, const std::string& title) {
        prompt.Beep();
        prompt.MsgBox(message, style, title);
    };
    switch (number) {
    case dao::error::PermissionDenied:
    case dao::error::InternalError:
    case dao::error::FileInUse:
    case dao::error::CouldNotLock:
    case dao::error::OpenedExclusively:
        return tell("Database is in use!\r\n\r\nTry later.\r\n\r\n(" + text + ")", box::Stop, "Database");
    case dao::error::FileNotFound:
        return tell("Missing database file...", box::Exclamation, "Tvx.mdb is missing...");
    case dao::error::ItemNotFound:
        return tell("The database is the wrong version...\nUse a later version of this program. ",
                    box::Exclamation, "Tvx.mdb wrong version...");
    case dao::error::UnrecognisedFormat:
        return tell("Damaged database file (TVX.MDB).\r\nWill attempt to restore...restart the program.",
                    box::Exclamation, "Damaged database file.");
    default:
        return tell("Database problem.. Error number is:" + std::to_string(number) + ".\n" + text, box::Stop,
                    "Database");
    }
}

// ---- the department list ----

int Index(const DepartmentList& list, int number) {
    const auto found = std::find(list.DepNumbers.begin(), list.DepNumbers.end(), number);
    return found == list.DepNumbers.end() ? 0 : static_cast<int>(found - list.DepNumbers.begin());
}

int IndexByCommand(const GlobalState& g) {
    const std::string& command = g.application.FormCommand;
    const DepartmentList& list = g.departments;
    if (command.empty() || command == "Delete" || command == "Convert" || command == "Restore") return 0;
    if (command == "Add") return list.DepartmentCount - 1;
    const bool back = command == "Options" || command == "Change";
    return Index(list, back ? list.PreviousDepNumber : g.department.CurrentDepNumber);
}

void TakeDepartment(Department& d, dao::Recordset& rs) {
    d.CurrentDepNumber = static_cast<int>(rs.Fields("Dep number").Long());
    d.CurrentDepName = rs.Fields("Department name").Text();
    d.WeekMethod = static_cast<int>(rs.Fields("Week methode pick").Long(0));
    d.EditorOrder = static_cast<int>(rs.Fields("Editor order").Long(1));
    DecodeFirstWeekday(rs.Fields("First weekday").Long(), d.FirstWeekday, d.DayCutoffQuarters);
    ReadGenericNames(rs, d);
}

void ReadDepartmentList(GlobalState& g) {
    dao::Recordset& rs = g.store.DepartmentRs;
    DepartmentList& list = g.departments;
    list.DepartmentCount = 0;
    list.DepNumbers.clear();
    list.DepNames.clear();
    for (; !rs.AtEnd(); rs.MoveNext()) {
        list.DepNumbers.push_back(static_cast<int>(rs.Fields("Dep number").Long()));
        list.DepNames.push_back(rs.Fields("Department name").Text());
        ++list.DepartmentCount;
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

void SeedFirstDatabase(const dao::Engine& engine, const fs::path& folder, DaySerial today) {
    const auto readyMade = FindFile(folder, ReadyMadeFile);
    if (!readyMade || FindFile(folder, DatabaseFile)) return;
    const fs::path unfinished = folder / "TVX.NEW";
    RemoveWhatWasCutOff(folder);
    CopyWholeFile(*readyMade, unfinished);
    MoveExampleWeek(*engine.OpenDatabase(unfinished), today);
    std::error_code trouble;
    fs::rename(unfinished, folder / DatabaseFile, trouble);
    if (trouble) throw FileError(FileErrorNumber::PathFileAccess, trouble.message());
}

void ReadSettings(GlobalState& g) {
    dao::Recordset& rs = g.store.ApplicationRs;
    rs = g.store.Open().OpenRecordset("Application");
    if (rs.BOF() && rs.AtEnd())
        WriteDefaultSettings(g, rs);
    else
        TakeSettings(g, rs);
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
    try {
        OpenStore(g, ports, face);
    } catch (const dao::DaoError& trouble) {
        TellLoadTrouble(ports.prompt, trouble.Number(), trouble.what());
        CloseDatabase(g.store, ports.prompt);
        return LoadResult::EndRun;
    } catch (const FileError& trouble) {
        TellLoadTrouble(ports.prompt, trouble.Number(), trouble.what());
        return LoadResult::EndRun;
    }
    ports.prompt.MousePointer(Pointer::Default);
    return LoadResult::Ready;
}

void RefreshDepartments(GlobalState& g, Ports& ports, ConsoleFace& face) {
    if (!g.rights.PasswordOk) return;
    dao::Recordset& rs = g.store.DepartmentRs;
    rs = g.store.Open().OpenRecordset("Department");
    ReadDepartmentList(g);
    int current = 0;
    if (g.departments.DepartmentCount > 0) {
        current = IndexByCommand(g);
        rs.Index("Dept Nbr");
        rs.Seek({dao::Value(std::int64_t{g.departments.DepNumbers[current]})});
        TakeDepartment(g.department, rs);
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
    dao::Recordset& rs = g.store.DepartmentRs;
    rs = g.store.Open().OpenRecordset("Department");
    while (!rs.AtEnd() && rs.Fields("Department name").Text() != g.departments.DepNames[index]) rs.MoveNext();
    if (rs.AtEnd()) return; // another workstation renamed or deleted it
    TakeDepartment(g.department, rs);
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
    g.week.WeekChanged = false;
    g.application.StartHour =
        static_cast<int>(RoundHalfToEven(Val(g.application.Settings[setting::StartHour])));
    try {
        return PrepareRoster(g, ports.prompt);
    } catch (const dao::DaoError& trouble) {
        TellLoadTrouble(ports.prompt, trouble.Number(), trouble.what());
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
