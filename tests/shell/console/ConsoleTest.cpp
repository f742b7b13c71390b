#include "shell/console/Console.h"

#include "shell/common/TVXMOD1.h"
#include "shell/console/Passwords.h"
#include "store/NetworkPath.h"
#include "store/rows/PasswordText.h"
#include "store/rows/Schema.h"
#include "support/ChildProcess.h"
#include "support/ConsoleMenus.h"
#include "support/Random.h"
#include "support/RawFile.h"
#include "support/ReadFault.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::RawFile;

/// A file is prepared in `made`; Start() then begins a run on it with a state of its own.
class ConsoleTest : public testing::Test {
  protected:
    test::TestStore made;
    GlobalState g;
    ConsoleFace face;
    const test::ConsoleMenus menus{g};

    test::ScriptedPrompt& prompt() { return made.prompt(); }
    fs::path File() const { return made.folder / "TVX.MDB"; }

    LoadResult Start() {
        CloseDatabase(made.g.store, prompt());
        g.store.Engine = dao::Engine(test::TestEngineOptions());
        g.paths.ProgramPath = made.folder.Path();
        return LoadConsole(g, made.ports(), face);
    }
    void StartReady() { ASSERT_EQ(Start(), LoadResult::Ready); }

    /// Sets a field of the one row of options.
    void SetOption(const std::string& field, const test::RawValue& value) {
        RawFile(File()).Run("UPDATE Application SET [" + field + "] = ?", {value});
    }
    void SetDepartment(int number, const std::string& field, const test::RawValue& value) {
        RawFile(File()).Run("UPDATE Department SET [" + field + "] = ? WHERE [Dep number] = ?",
                            {value, std::int64_t{number}});
    }
    std::string Option(const std::string& field) {
        return RawFile(File()).Rows("SELECT [" + field + "] FROM Application").front();
    }
};

// --- the splash -------------------------------------------------------------------------------------------

TEST(SplashIsOver, two_seconds_after_the_start) {
    EXPECT_FALSE(SplashIsOver(36000, 36000));
    EXPECT_FALSE(SplashIsOver(36000, 36001));
    EXPECT_TRUE(SplashIsOver(36000, 36002));
    EXPECT_TRUE(SplashIsOver(36000, 50000));
}

TEST(SplashIsOver, never_on_the_same_day_for_a_start_in_its_last_two_seconds) {
    for (int second = 0; second <= 86399; ++second) {
        ASSERT_FALSE(SplashIsOver(86398, second));
        ASSERT_FALSE(SplashIsOver(86399, second));
    }
    EXPECT_TRUE(SplashIsOver(86397, 86399));
}

// --- the start of a run -----------------------------------------------------------------------------------

TEST_F(ConsoleTest, a_second_instance_says_so_and_touches_no_file) {
    fs::rename(File(), made.folder / "TVX.JAN");
    test::WriteFile(made.folder / "NetworkPath.DAT", "\"\"\r\n0\r\n");
    made.script.instance.another = true;
    prompt().Expect("Tarvex already running", box::Ok, "Tarvex");
    EXPECT_EQ(Start(), LoadResult::EndRun);
    EXPECT_EQ(made.script.instance.raised, 1) << "the first one's window comes to the front";
    EXPECT_EQ(test::NamesIn(made.folder.Path()), (std::vector<std::string>{"NetworkPath.DAT", "TVX.JAN"}));
}

TEST_F(ConsoleTest, a_database_beside_the_program_that_is_not_used_is_told_with_both_folders) {
    const test::TempFolder beside;
    test::WriteFile(beside / "tvx.MDB", "somebody's data");
    g.paths.UnusedPath = beside.Path();
    prompt().Expect(
        "The database in the folder of the program is not used, since that folder is not yours to "
        "write in:\n\n" +
            (beside / "tvx.MDB").string() + "\n\nThe data of this run lies in the folder\n\n" +
            made.folder.Path().string(),
        box::Exclamation, "Database");
    StartReady();
    EXPECT_EQ(test::ReadFile(beside / "tvx.MDB"), "somebody's data");
    test::WriteFile(made.folder / "NetworkPath.DAT", "\"" + made.folder.Path().string() + "/.\"\r\n0\r\n");
    StartReady(); // the workstation says itself where its data lies
}

TEST_F(ConsoleTest, a_missing_or_a_wrong_file_is_named_with_its_folder) {
    const auto expectNamed = [&](const std::string& title) {
        prompt().WillAnswer(Answer::Ok);
        EXPECT_EQ(Start(), LoadResult::EndRun);
        EXPECT_EQ(prompt().Last().title, title);
        EXPECT_EQ(prompt().Last().detail,
                  "The file is TVX.MDB\r\nin the folder " + made.folder.Path().string());
    };
    CloseDatabase(made.g.store, prompt());
    fs::remove(File());
    expectNamed("Tvx.mdb is missing...");
    test::WriteFile(File(), "no database, but a text that is long enough to be looked at by the engine");
    expectNamed("Damaged database file.");
}

TEST_F(ConsoleTest, a_start_opens_the_database_beside_the_program) {
    made.AddDepartment("Bakery");
    StartReady();
    EXPECT_EQ(g.paths.DatabasePath, made.folder.Path());
    ASSERT_NE(g.store.Db, nullptr);
    EXPECT_EQ(g.store.Open().Path(), File());
    EXPECT_EQ(g.application.CrLf, "\r\n");
    EXPECT_TRUE(g.rights.SchedulingAllowed);
    EXPECT_FALSE(g.rights.HideWages);
    EXPECT_TRUE(g.rights.PasswordOk);
    EXPECT_EQ(g.rights.AccessLevel, "");
    EXPECT_EQ(prompt().Shape(), Pointer::Default);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
}

TEST_F(ConsoleTest, a_start_finds_the_database_in_any_spelling) {
    made.AddDepartment("Bakery");
    CloseDatabase(made.g.store, prompt());
    fs::rename(File(), made.folder / "tvx.mdb");
    StartReady();
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
    EXPECT_EQ(test::NamesIn(made.folder.Path()), std::vector<std::string>{"tvx.mdb"});
}

TEST_F(ConsoleTest, a_start_measures_the_screen) {
    made.script.screen.width = 1024 * 15;
    made.script.screen.height = 768 * 15;
    StartReady();
    EXPECT_EQ(g.screen.ScreenWidth, 15360);
    EXPECT_EQ(g.screen.ScreenHeight, 11520 - 150);
    EXPECT_EQ(g.screen.VisibleHours, 24);
}

TEST(VisibleHoursFor, are_the_whole_hours_that_fit_and_at_most_24) {
    struct Case {
        Twips width;
        int hours;
    };
    const Case cases[] = {{28800, 24}, {57600, 24}, {14000, 24}, {13920, 24}, {13919, 23}, {13680, 23},
                          {13440, 23}, {13439, 22}, {2880, 1},   {2879, 0},   {2400, 0},   {2399, 0},
                          {1921, 0},   {1920, -1},  {1440, -2},  {0, -5}};
    for (const Case& c : cases) EXPECT_EQ(VisibleHoursFor(c.width), c.hours) << c.width;
}

TEST_F(ConsoleTest, a_clock_before_2004_is_told_and_the_start_goes_on) {
    made.script.clock.Set(SerialFromParts(2003, 12, 31));
    prompt().Expect("The System date is incorrect... ", box::Exclamation, "System date");
    StartReady();
}

TEST_F(ConsoleTest, a_clock_from_2004_on_is_taken) {
    made.script.clock.Set(SerialFromParts(2004, 1, 1));
    StartReady();
}

TEST_F(ConsoleTest, the_date_format_is_that_of_the_country) {
    for (const auto& [order, setting] : {std::pair{DateOrder::MonthDayYear, "MM-DD-YYYY"},
                                         {DateOrder::DayMonthYear, "DD-MM-YYYY"},
                                         {DateOrder::YearMonthDay, "YYYY-MM-DD"}}) {
        made.script.region = test::ScriptedRegion(order);
        StartReady();
        EXPECT_EQ(g.application.DateFormatSetting, setting);
    }
}

// --- the workstation's own file ---------------------------------------------------------------------------

class WorkstationTest : public ConsoleTest {
  protected:
    void Write(const std::string& path, const std::string& flags) {
        test::WriteFile(made.folder / "NetworkPath.DAT", "\"" + path + "\"\r\n" + flags + "\r\n");
    }
    void WriteFlags(int flags) { Write(made.folder.Path().string(), std::to_string(flags)); }
    std::string Disabled() const {
        std::string names;
        for (const char* name : {"Compact", "Backup", "Restore", "Prior", "Network"})
            if (!menus.Offers(name)) names += (names.empty() ? "" : " ") + std::string(name);
        return names;
    }
};

TEST_F(WorkstationTest, flags_of_127_take_everything_away) {
    WriteFlags(127);
    StartReady();
    EXPECT_EQ(Disabled(), "Compact Backup Restore Prior Network");
    EXPECT_FALSE(g.rights.SchedulingAllowed);
    EXPECT_TRUE(g.rights.HideWages);
}

TEST_F(WorkstationTest, flags_of_0_and_no_file_take_nothing_away) {
    StartReady();
    EXPECT_EQ(Disabled(), "");
    WriteFlags(0);
    StartReady();
    EXPECT_EQ(Disabled(), "");
    EXPECT_TRUE(g.rights.SchedulingAllowed);
    EXPECT_FALSE(g.rights.HideWages);
}

TEST_F(WorkstationTest, each_flag_takes_its_own_right) {
    const std::pair<int, const char*> closed[] = {{1, "Compact"}, {2, "Backup"},   {4, "Restore"},
                                                  {8, "Prior"},   {16, "Network"}, {5, "Compact Restore"}};
    for (const auto& [flags, names] : closed) {
        WriteFlags(flags);
        StartReady();
        EXPECT_EQ(Disabled(), names) << flags;
        EXPECT_TRUE(g.rights.SchedulingAllowed) << flags;
    }
    WriteFlags(32);
    StartReady();
    EXPECT_FALSE(g.rights.SchedulingAllowed);
    EXPECT_FALSE(g.rights.HideWages);
    WriteFlags(64);
    StartReady();
    EXPECT_TRUE(g.rights.SchedulingAllowed);
    EXPECT_TRUE(g.rights.HideWages);
    EXPECT_EQ(Disabled(), "");
}

TEST_F(WorkstationTest, the_path_leads_to_a_database_elsewhere) {
    made.AddDepartment("Far away");
    CloseDatabase(made.g.store, prompt());
    const test::TempFolder share;
    fs::rename(File(), share / "tvx.MDB");
    test::WriteFile(made.folder / "networkpath.dat", "\"" + share.Path().string() + "\"\r\n1\r\n");
    StartReady();
    EXPECT_EQ(g.paths.DatabasePath, share.Path());
    EXPECT_EQ(g.paths.ProgramPath, made.folder.Path());
    EXPECT_EQ(g.department.CurrentDepName, "Far away");
    EXPECT_EQ(Disabled(), "Compact");
    ActivateConsole(g, made.ports(), face);
    EXPECT_EQ(face.printed, (std::vector<std::string>{"Version 1.0", "Network path: " + share.Path().string(),
                                                      "Internet:"}));
}

TEST_F(WorkstationTest, an_empty_path_is_refused_and_its_file_removed) {
    for (const char* content : {"\"\"\r\n3\r\n", "\"\"\r\n", "\r\n", "   \r\n"}) {
        test::WriteFile(made.folder / "NetworkPath.DAT", content);
        prompt().Expect("Database Path not valid, restart the program.", box::Exclamation, "Invalid path");
        EXPECT_EQ(Start(), LoadResult::EndRun);
        EXPECT_EQ(test::NamesIn(made.folder.Path()), std::vector<std::string>{"TVX.MDB"});
        EXPECT_EQ(g.store.Db, nullptr);
    }
    StartReady(); // the next start goes back to the program's own folder
}

TEST_F(WorkstationTest, a_file_that_is_not_read_ends_the_run_and_stays) {
    const fs::path file = made.folder / "NetworkPath.DAT";
    const auto expectTold = [&](const std::string& trouble) {
        prompt().WillAnswer(Answer::Ok);
        EXPECT_EQ(Start(), LoadResult::EndRun) << trouble;
        EXPECT_EQ(prompt().Last().title, "Invalid path");
        EXPECT_NE(prompt().Last().text.find(file.string()), std::string::npos) << trouble;
        EXPECT_EQ(test::NamesIn(made.folder.Path()),
                  (std::vector<std::string>{"NetworkPath.DAT", "TVX.MDB"}));
        EXPECT_EQ(g.store.Db, nullptr) << trouble;
    };
    for (const char* cut : {"", "   ", "\"/srv/plan\"\r\n", "\"/srv/pl"}) {
        test::WriteFile(file, cut);
        expectTold(cut);
        EXPECT_EQ(test::ReadFile(file), cut);
    }
    WriteFlags(127);
    for (int call = 0; call <= 2; ++call) {
        const test::ReadFault fault("NetworkPath.DAT", call, EIO);
        expectTold("call " + std::to_string(call));
    }
    fs::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    expectTold("a pipe");
    fs::remove(file);
    fs::create_directory(file);
    expectTold("a folder");
}

TEST_F(WorkstationTest, a_folder_without_database_is_told_and_nothing_is_made_or_removed) {
    const test::TempFolder share;
    test::WriteFile(made.folder / "TVX.JAN", "a ready-made one that must not be used");
    Write(share.Path().string(), "0");
    prompt().Expect("Cannot find database TVX.MDB\nCurrent folder setting: " + share.Path().string(),
                    box::Exclamation, "Not a valid database path");
    EXPECT_EQ(Start(), LoadResult::EndRun);
    EXPECT_TRUE(test::NamesIn(share.Path()).empty());
    EXPECT_EQ(test::NamesIn(made.folder.Path()),
              (std::vector<std::string>{"NetworkPath.DAT", "TVX.JAN", "TVX.MDB"}));
}

TEST_F(WorkstationTest, a_folder_that_does_not_exist_is_told) {
    Write("/no/such/folder", "0");
    prompt().Expect("Cannot find database TVX.MDB\nCurrent folder setting: /no/such/folder", box::Exclamation,
                    "Not a valid database path");
    EXPECT_EQ(Start(), LoadResult::EndRun);
}

TEST_F(WorkstationTest, any_bytes_in_the_file_end_in_a_word_or_in_a_start) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    const std::string good = "\"" + made.folder.Path().string() + "\"\r\n7\r\n";
    prompt().AlwaysAnswer(Answer::Ok);
    std::size_t boxes = 0;
    for (int round = 0; round < 300; ++round) {
        test::WriteFile(made.folder / "NetworkPath.DAT",
                        round % 2 == 0 ? random.Bytes(60) : random.Mutated(good));
        const bool ready = Start() == LoadResult::Ready;
        ASSERT_EQ(prompt().Boxes().size(), boxes + (ready ? 0 : 1));
        boxes = prompt().Boxes().size();
        ASSERT_TRUE(fs::exists(File()));
    }
    EXPECT_GT(boxes, 0U);
}

// --- the options ------------------------------------------------------------------------------------------

TEST_F(ConsoleTest, options_are_read_trimmed_into_their_places) {
    const char* fields[] = {"12 or 24", "StartHour",   "BarColor",    "TimeFormat",
                            "UnderAge", "DayOvertime", "WeekOvertime"};
    const char* values[] = {" 24", "6 ", " 5", "1", "18", " 40 ", "160"};
    for (int i = 0; i < 7; ++i) SetOption(fields[i], std::string(values[i]));
    StartReady();
    EXPECT_EQ(
        g.application.options,
        (Options{ClockStyle::TwentyFourHours, TimeFormat::Hundredths, 6, 5, {18, "18"}, 40, 160, true}));
    EXPECT_EQ(g.application.options.StartHour, 6);
    EXPECT_EQ(g.application.options.DefaultBarColor(), QBColor(5));
}

TEST_F(ConsoleTest, missing_options_take_their_defaults) {
    for (const char* field : {"12 or 24", "StartHour", "BarColor", "TimeFormat", "UnderAge", "DayOvertime",
                              "WeekOvertime", "To Try", "BigBoss"})
        SetOption(field, std::monostate());
    StartReady();
    EXPECT_EQ(g.application.options,
              (Options{ClockStyle::TwelveHours, TimeFormat::Minutes, 0, 2, {16, "16"}, 96, 672, false}));
    EXPECT_EQ(g.application.options.StartHour, 0);
    EXPECT_EQ(g.application.options.DefaultBarColor(), QBColor(2));
    EXPECT_FALSE(g.application.options.OpenShared);
    EXPECT_TRUE(g.rights.PasswordOk);
}

TEST_F(ConsoleTest, the_database_is_shared_unless_the_option_is_blank) {
    for (const auto& [stored, shared] :
         {std::pair{"S", true}, {" S", true}, {"x", true}, {"", false}, {"  ", false}}) {
        SetOption("To Try", std::string(stored));
        StartReady();
        EXPECT_EQ(g.application.options.OpenShared, shared) << stored;
    }
}

TEST_F(ConsoleTest, a_negative_first_hour_becomes_4) {
    SetOption("StartHour", std::string("-1"));
    StartReady();
    EXPECT_EQ(g.application.options.StartHour, 4);
}

TEST_F(ConsoleTest, an_odd_bar_colour_is_black) {
    for (const char* stored : {"16", "-1", "99", "red", "0"}) {
        SetOption("BarColor", std::string(stored));
        StartReady();
        EXPECT_EQ(g.application.options.DefaultBarColor(), QBColor(0)) << stored;
    }
}

TEST_F(ConsoleTest, a_table_without_a_row_of_options_gets_one_that_is_in_force_at_once) {
    RawFile(File()).Run("DELETE FROM Application");
    made.script.screen.width = 12 * 480 + 2400; // twelve hours
    StartReady();
    EXPECT_EQ(
        RawFile(File()).Rows("SELECT [12 or 24], StartHour, BarColor, TimeFormat, UnderAge, DayOvertime,"
                             " WeekOvertime, [To Try], BigBoss, [DB Version] FROM Application"),
        std::vector<std::string>{"12|12|2|0|16|96|672|S|NULL|8"});
    EXPECT_EQ(g.application.options,
              (Options{ClockStyle::TwelveHours, TimeFormat::Minutes, 12, 2, {16, "16"}, 96, 672, true}));
    EXPECT_EQ(g.application.options.StartHour, 12);
    EXPECT_EQ(g.application.options.DefaultBarColor(), QBColor(2));
    EXPECT_TRUE(g.application.options.OpenShared);
    EXPECT_TRUE(g.rights.PasswordOk);
    const Options first = g.application.options;
    StartReady();
    EXPECT_EQ(g.application.options, first);
    EXPECT_EQ(RawFile(File()).Rows("SELECT count(*) FROM Application").front(), "1");
}

TEST_F(ConsoleTest, a_general_managers_password_locks_the_console) {
    made.AddDepartment("Bakery");
    SetOption("BigBoss", ScramblePassword("SECRET1"));
    StartReady();
    EXPECT_EQ(g.application.GeneralManagerPassword, "SECRET1");
    EXPECT_FALSE(g.rights.PasswordOk);
    EXPECT_EQ(g.rights.AccessLevel, "Big boss");
    EXPECT_EQ(g.departments.DepartmentCount, 0);
    ActivateConsole(g, made.ports(), face);
    EXPECT_TRUE(face.PromptVisible);
    EXPECT_FALSE(face.Frame1Visible);
    EXPECT_FALSE(menus.Offers("cmdSchedule"));
    for (const char* menu : {"Fi", "Dep", "EmplRecords", "ww", "OptionFrame", "PW", "NeedHelp"})
        EXPECT_FALSE(menus.Offers(menu)) << menu;
    EXPECT_EQ(g.departments.DepartmentCount, 0);
}

// --- versions ---------------------------------------------------------------------------------------------

TEST_F(ConsoleTest, a_file_of_another_version_is_brought_to_8) {
    for (const test::RawValue& version : {test::RawValue(), test::RawValue(std::int64_t{7}),
                                          test::RawValue(std::int64_t{9}), test::RawValue(std::int64_t{0})}) {
        SetOption("DB Version", version);
        StartReady();
        EXPECT_EQ(Option("DB Version"), "8");
    }
}

// --- the department list ----------------------------------------------------------------------------------

class DepartmentListTest : public ConsoleTest {
  protected:
    int bakery = 0;
    int dairy = 0;
    int cheese = 0;

    void AddThree() {
        bakery = made.AddDepartment("Bakery", 305, 2, 1);
        dairy = made.AddDepartment("dairy");
        cheese = made.AddDepartment("Cheese");
    }
    std::string After(FormCommand command, int present, int previous) {
        g.application.FormCommand = command;
        g.department.CurrentDepNumber = present;
        g.departments.PreviousDepNumber = previous;
        RefreshDepartments(g, made.ports(), face);
        return g.department.CurrentDepName;
    }
    bool AllVisible(std::initializer_list<const char*> names) const {
        return std::all_of(names.begin(), names.end(), [&](const char* name) { return menus[name].visible; });
    }
    bool AnyVisible(std::initializer_list<const char*> names) const {
        return std::any_of(names.begin(), names.end(), [&](const char* name) { return menus[name].visible; });
    }
};

TEST_F(DepartmentListTest, stands_in_the_order_of_the_numbers) {
    AddThree();
    StartReady();
    EXPECT_EQ(g.departments.DepartmentCount, 3);
    EXPECT_EQ(g.departments.DepNumbers, (std::vector<int>{bakery, dairy, cheese}));
    EXPECT_EQ(g.departments.DepNames, (std::vector<std::string>{"Bakery", "dairy", "Cheese"}));
    EXPECT_EQ(face.Combo1, g.departments.DepNames);
}

TEST_F(DepartmentListTest, is_read_anew_and_not_added_to) {
    AddThree();
    StartReady();
    RefreshDepartments(g, made.ports(), face);
    EXPECT_EQ(g.departments.DepartmentCount, 3);
    EXPECT_EQ(g.departments.DepNumbers.size(), 3U);
}

TEST_F(DepartmentListTest, chooses_by_what_was_done_last) {
    AddThree();
    StartReady();
    for (const FormCommand command :
         {FormCommand::None, FormCommand::Delete, FormCommand::Convert, FormCommand::Restore})
        EXPECT_EQ(After(command, cheese, dairy), "Bakery") << TextOf(command);
    EXPECT_EQ(After(FormCommand::Add, bakery, bakery), "Cheese");
    for (const FormCommand command : {FormCommand::Options, FormCommand::Change}) {
        EXPECT_EQ(After(command, bakery, dairy), "dairy") << TextOf(command);
        EXPECT_EQ(After(command, cheese, 999), "Bakery") << TextOf(command);
    }
    for (const FormCommand command : {FormCommand::Backup, FormCommand::PriorToDate, FormCommand::Network,
                                      FormCommand::EmplStats, FormCommand::Transfer, FormCommand::Example}) {
        EXPECT_EQ(After(command, dairy, cheese), "dairy") << TextOf(command);
        EXPECT_EQ(After(command, 999, cheese), "Bakery") << TextOf(command);
    }
}

TEST_F(DepartmentListTest, waits_for_the_password) {
    AddThree();
    SetOption("BigBoss", ScramblePassword("SECRET1"));
    StartReady();
    RefreshDepartments(g, made.ports(), face);
    EXPECT_EQ(g.departments.DepartmentCount, 0);
    EXPECT_EQ(g.department.CurrentDepName, "");
    g.rights.PasswordOk = true;
    RefreshDepartments(g, made.ports(), face);
    EXPECT_EQ(g.departments.DepartmentCount, 3);
}

TEST_F(DepartmentListTest, takes_the_fields_of_the_current_department) {
    const int number = made.AddDepartment("Bakery", 305, 4, 2);
    SetDepartment(number, "EmployeeNameSingle", std::string("Nurse"));
    SetDepartment(number, "EmployeeNamePlural", std::string("Nurses"));
    SetDepartment(number, "DayOffNameSingle", std::string("Off day"));
    SetDepartment(number, "DayOffNamePlural", std::string("Off days"));
    StartReady();
    const Department& d = g.department;
    EXPECT_EQ(d.CurrentDepNumber, number);
    EXPECT_EQ(d.EditorOrder, 4);
    EXPECT_EQ(d.WeekMethod, 2);
    EXPECT_EQ(d.FirstWeekday, 3);
    EXPECT_EQ(d.DayCutoffQuarters, 5);
    EXPECT_EQ(d.EmployeeNameSingle + d.EmployeeNamePlural + d.DayOffNameSingle + d.DayOffNamePlural,
              "NurseNursesOff dayOff days");
}

TEST_F(DepartmentListTest, reads_missing_fields_as_their_defaults) {
    const int number = made.AddDepartment("Bakery", 305, 4, 2);
    for (const char* field : {"Editor order", "First weekday", "Week methode pick", "EmployeeNameSingle",
                              "EmployeeNamePlural", "DayOffNameSingle", "DayOffNamePlural"})
        SetDepartment(number, field, std::monostate());
    StartReady();
    const Department& d = g.department;
    EXPECT_EQ(d.EditorOrder, 1);
    EXPECT_EQ(d.WeekMethod, 0);
    EXPECT_EQ(d.FirstWeekday, 1);
    EXPECT_EQ(d.DayCutoffQuarters, 0);
    EXPECT_EQ(d.EmployeeNameSingle, "Employee");
    EXPECT_EQ(d.EmployeeNamePlural, "Employees");
    EXPECT_EQ(d.DayOffNameSingle, "Vacation day");
    EXPECT_EQ(d.DayOffNamePlural, "Vacation days");
}

TEST_F(DepartmentListTest, begins_with_a_cut_off_of_0_where_the_first_department_names_none) {
    made.AddDepartment("Old", 2);
    StartReady();
    EXPECT_EQ(g.department.FirstWeekday, 2);
    EXPECT_EQ(g.department.DayCutoffQuarters, 0);
}

TEST_F(DepartmentListTest, keeps_the_cut_off_when_an_old_department_names_none) {
    made.AddDepartment("Night", 120);
    made.AddDepartment("Old", 2);
    StartReady();
    EXPECT_EQ(g.department.DayCutoffQuarters, 20);
    ChooseDepartment(g.store, g.departments, g.department, face, 1);
    EXPECT_EQ(g.department.FirstWeekday, 2);
    EXPECT_EQ(g.department.DayCutoffQuarters, 20);
}

TEST_F(DepartmentListTest, of_one_shows_its_name_and_no_list) {
    made.AddDepartment("Bakery");
    StartReady();
    EXPECT_TRUE(face.Label2Visible);
    EXPECT_EQ(face.Label2, "------ Bakery ------");
    EXPECT_FALSE(face.Combo1Visible);
    EXPECT_TRUE(face.Frame1Visible);
    EXPECT_TRUE(menus.Offers("cmdSchedule"));
    EXPECT_FALSE(AnyVisible({"FixConflics", "Niks", "Trans", "Niets"}));
    for (const char* menu : {"ChangeName", "DeleteDep", "EmplRecords", "ww"})
        EXPECT_TRUE(menus.Offers(menu) && menus[menu].visible) << menu;
    EXPECT_FALSE(g.departments.MultipleDepartments);
}

TEST_F(DepartmentListTest, of_many_shows_the_list_and_what_needs_several) {
    AddThree();
    StartReady();
    EXPECT_TRUE(face.Combo1Visible);
    EXPECT_EQ(face.Combo1Index, 0);
    EXPECT_FALSE(face.Label2Visible);
    EXPECT_TRUE(menus.Offers("cmdSchedule"));
    EXPECT_TRUE(AllVisible({"FixConflics", "Niks", "Trans", "Niets", "mnu7days"}));
    EXPECT_TRUE(g.departments.MultipleDepartments);
    EXPECT_TRUE(menus.Table().CanChoose("FixConflics"));
}

TEST_F(DepartmentListTest, that_shrinks_to_one_takes_away_what_needs_several) {
    made.AddDepartment("Bakery");
    const int second = made.AddDepartment("Dairy");
    StartReady();
    dao::Recordset rs = g.store.Open().OpenRecordset("Department");
    rs.Index("Dept Nbr");
    rs.Seek({std::int64_t{second}});
    rs.Delete();
    EXPECT_EQ(After(FormCommand::Delete, second, second), "Bakery");
    EXPECT_FALSE(face.Combo1Visible);
    EXPECT_TRUE(face.Label2Visible);
    EXPECT_FALSE(AnyVisible({"FixConflics", "Niks", "Trans", "Niets", "mnu7days"}));
    EXPECT_FALSE(g.departments.MultipleDepartments);
}

TEST_F(DepartmentListTest, that_is_empty_says_so_and_disables_scheduling) {
    StartReady();
    EXPECT_TRUE(face.Label2Visible);
    EXPECT_EQ(face.Label2, "------ No departments installed! ------");
    EXPECT_FALSE(face.Combo1Visible);
    EXPECT_TRUE(face.Frame1Visible);
    EXPECT_FALSE(menus.Offers("cmdSchedule"));
    for (const char* menu : {"ChangeName", "DeleteDep", "EmplRecords", "ww"})
        EXPECT_FALSE(menus.Offers(menu) || menus[menu].visible) << menu;
    EXPECT_TRUE(menus.Offers("AddDep") && menus["AddDep"].visible);
    EXPECT_FALSE(AnyVisible({"FixConflics", "Niks", "Trans", "Niets", "mnu7days"}));
}

TEST_F(DepartmentListTest, is_never_offered_to_a_manager) {
    AddThree();
    StartReady();
    g.rights.AccessLevel = "Manager 1";
    RefreshDepartments(g, made.ports(), face);
    EXPECT_FALSE(AnyVisible({"FixConflics", "Niks", "Trans", "Niets", "mnu7days"}));
}

TEST_F(DepartmentListTest, gives_another_department_on_a_choice) {
    AddThree();
    StartReady();
    ChooseDepartment(g.store, g.departments, g.department, face, 1);
    EXPECT_EQ(g.department.CurrentDepNumber, dairy);
    EXPECT_EQ(face.Combo1Index, 1);
    EXPECT_EQ(face.Label2, "------ dairy ------");
    EXPECT_EQ(menus["cmdSchedule"].caption, "Schedule dairy");
    EXPECT_EQ(g.department.FirstWeekday, 1);
    ChooseDepartment(g.store, g.departments, g.department, face, 0);
    EXPECT_EQ(g.department.FirstWeekday, 3);
    EXPECT_EQ(g.department.DayCutoffQuarters, 5);
    EXPECT_EQ(g.department.EditorOrder, 2);
}

TEST_F(DepartmentListTest, stays_on_a_choice_that_is_none) {
    AddThree();
    StartReady();
    for (const int index : {-1, 3, 99}) {
        ChooseDepartment(g.store, g.departments, g.department, face, index);
        EXPECT_EQ(g.department.CurrentDepNumber, bakery) << index;
    }
    RawFile(File()).Run("DELETE FROM Department WHERE [Dep number] = ?", {std::int64_t{dairy}});
    ChooseDepartment(g.store, g.departments, g.department, face, 1);
    EXPECT_EQ(g.department.CurrentDepNumber, bakery);
}

// --- menus and captions -----------------------------------------------------------------------------------

TEST(ConsoleMenus, have_captions_of_their_own_before_a_department_is_known) {
    const std::pair<const char*, const char*> captions[] = {
        {"Fi", "&File"},
        {"Compact", "&Compact database"},
        {"Backup", "&Backup database"},
        {"Restore", "&Restore database"},
        {"mnuExport", "Export file"},
        {"Prior", "&Delete all schedules prior to a date"},
        {"Network", "Network path"},
        {"GetOut", "E&xit"},
        {"Dep", "&Departments"},
        {"AddDep", "&Add a new Department"},
        {"ChangeName", "&Change the current Department settings"},
        {"DeleteDep", "&Delete the current Department"},
        {"EmplRecords", "&Employees"},
        {"NewEmployee", "&Add new Employee"},
        {"ChangeEmplRec", "&Change Employee record"},
        {"DeleteEmpl", "&Delete Employee record"},
        {"BA", "&Birthdays and Anniversaries"},
        {"Trans", "&Transfer Employee to other department"},
        {"FixConflics", "Check &Interdepartmental Schedule Conflicts"},
        {"ww", "Reports"},
        {"EmplStats", "&Employee statistics between dates"},
        {"EmplPr", "&Print Employee information"},
        {"mnu7days", "&Selected departments seven day schedules"},
        {"ExcelSS", "&Excel spreadsheet"},
        {"PW", "Pass&word"},
        {"OptionFrame", "&Options"},
        {"NeedHelp", "        &Help"},
        {"ThisProgram", "&About this program"},
        {"Freq", "&Frequently Asked Questions"},
    };
    const GlobalState g;
    const test::ConsoleMenus menus(g);
    for (const auto& [name, caption] : captions) EXPECT_EQ(menus[name].caption, caption) << name;
    for (const char* line : {"n2", "as", "te", "spa", "wwy", "Niets", "Niks"})
        EXPECT_TRUE(menus[line].separator) << line;
}

TEST(ConsoleMenus, hide_at_first_what_needs_several_departments) {
    const GlobalState g;
    const test::ConsoleMenus menus(g);
    for (const char* name : {"FixConflics", "Niks", "Trans", "Niets", "mnu7days"})
        EXPECT_FALSE(menus[name].visible) << name;
}

TEST_F(ConsoleTest, no_menu_entry_can_be_chosen_that_leads_nowhere) {
    made.AddDepartment("Bakery");
    made.AddDepartment("Dairy");
    StartReady();
    ActivateConsole(g, made.ports(), face);
    const std::vector<MenuEntry> entries = menus.Table().Entries("MenuBar");
    for (const MenuEntry& entry : entries) {
        const bool isMenu = std::any_of(entries.begin(), entries.end(),
                                        [&](const MenuEntry& child) { return child.parent == entry.name; });
        const bool leadsOn = isMenu || menus.Table()[entry.name].run != nullptr;
        EXPECT_TRUE(leadsOn || !(entry.enabled || menus.Table().CanChoose(entry.name))) << entry.name;
    }
    EXPECT_TRUE(menus.Table().CanChoose("GetOut"));
}

TEST_F(ConsoleTest, captions_carry_the_department_and_its_words) {
    const int number = made.AddDepartment("Ward 7");
    SetDepartment(number, "EmployeeNameSingle", std::string("Nurse"));
    SetDepartment(number, "EmployeeNamePlural", std::string("Nurses"));
    StartReady();
    const std::pair<const char*, const char*> captions[] = {
        {"ChangeName", "&Change Ward 7 settings"},
        {"DeleteDep", "&Delete Ward 7"},
        {"NewEmployee", "&Add new Nurse to Ward 7"},
        {"ChangeEmplRec", "&Change Ward 7 Nurse record"},
        {"DeleteEmpl", "&Delete Nurse from Ward 7"},
        {"Trans", "&Transfer Ward 7 Nurse"},
        {"EmplPr", "&Print Nurses information for selected Departments"},
        {"EmplStats", "&Print Nurses statistics between two dates"},
        {"EmplRecords", "Nurses"},
    };
    for (const auto& [name, caption] : captions) EXPECT_EQ(menus[name].caption, caption) << name;
    EXPECT_EQ(menus["cmdSchedule"].caption, "Schedule Ward 7");
}

TEST(ConsoleMenus, show_an_ampersand_of_a_name_as_itself) {
    GlobalState g;
    g.department.CurrentDepNumber = 1;
    g.department.CurrentDepName = "Food & Drink";
    const test::ConsoleMenus menus(g);
    EXPECT_EQ(menus["DeleteDep"].caption, "&Delete Food && Drink");
    EXPECT_EQ(menus["cmdSchedule"].caption, "Schedule Food && Drink");
}

// --- activation -------------------------------------------------------------------------------------------

TEST_F(ConsoleTest, the_first_activation_prints_the_version_and_where_help_is) {
    StartReady();
    EXPECT_FALSE(face.laidOut);
    ActivateConsole(g, made.ports(), face);
    EXPECT_TRUE(face.laidOut);
    EXPECT_EQ(face.printed, (std::vector<std::string>{"Version 1.0", "Internet:"}));
    EXPECT_TRUE(menus.Offers("PW"));
    EXPECT_FALSE(face.PromptVisible);
}

TEST_F(ConsoleTest, each_activation_ends_the_view_of_all_departments) {
    StartReady();
    for (int i = 0; i < 2; ++i) {
        g.roster.AllDepartmentsMode = true;
        ActivateConsole(g, made.ports(), face);
        EXPECT_FALSE(g.roster.AllDepartmentsMode);
    }
}

TEST_F(ConsoleTest, a_workstation_that_may_not_schedule_loses_four_menus_at_each_activation) {
    made.AddDepartment("Bakery");
    test::WriteFile(made.folder / "NetworkPath.DAT", "\"" + made.folder.Path().string() + "\"\r\n32\r\n");
    StartReady();
    for (int i = 0; i < 2; ++i) {
        ActivateConsole(g, made.ports(), face);
        for (const char* menu : {"Dep", "EmplRecords", "OptionFrame", "PW"})
            EXPECT_FALSE(menus.Offers(menu)) << menu;
        EXPECT_TRUE(menus.Offers("Fi"));
        EXPECT_TRUE(menus.Offers("cmdSchedule"));
    }
}

// --- on to the editor -------------------------------------------------------------------------------------

TEST_F(ConsoleTest, the_note_of_the_example_department_is_due_once_while_it_is_alone) {
    made.AddDepartment("Example department");
    StartReady();
    EXPECT_TRUE(ExampleNoteIsDue(g.department, g.departments, g.application));
    g.application.ExampleNoteShown = true;
    EXPECT_FALSE(ExampleNoteIsDue(g.department, g.departments, g.application));
    g.application.ExampleNoteShown = false;
    g.departments.DepartmentCount = 2;
    EXPECT_FALSE(ExampleNoteIsDue(g.department, g.departments, g.application));
    g.departments.DepartmentCount = 1;
    g.department.CurrentDepName = "Bakery";
    EXPECT_FALSE(ExampleNoteIsDue(g.department, g.departments, g.application));
}

TEST(ExampleNote, tells_what_to_do_in_the_words_of_the_department) {
    Department department;
    department.EmployeeNamePlural = "Nurses";
    const std::vector<std::pair<std::string, int>> expected = {
        {"The purpose of the  Example Department is to make you familiar with the", 0},
        {"application without having to set up a Department and entering Nurses.", 0},
        {"When you are ready:", 2},
        {"1. Add your own Department (See menu).", 2},
        {"2. Add Nurses to that new Department.", 2},
        {"Delete the Example Department when you no longer need it.", 0}};
    EXPECT_EQ(ExampleNote(department), expected);
}

TEST_F(ConsoleTest, scheduling_begins_with_an_unchanged_week_and_the_first_hour_of_the_options) {
    made.AddDepartment("Bakery");
    made.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    SetOption("StartHour", std::string("7"));
    StartReady();
    test::WritableWeek(g).WeekChanged = true;
    EXPECT_TRUE(PrepareSchedule(g, made.ports()));
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_EQ(g.application.options.StartHour, 7);
    EXPECT_EQ(g.roster.EmployeeCount, 1);
}

TEST_F(ConsoleTest, scheduling_an_empty_department_leaves_the_console_as_it_was) {
    made.AddDepartment("Bakery");
    StartReady();
    prompt().Expect("To begin scheduling, you must\nenter at least one Employee!", box::Ok,
                    "No Employees entered");
    EXPECT_FALSE(PrepareSchedule(g, made.ports()));
    EXPECT_TRUE(menus.Offers("cmdSchedule"));
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
}

TEST_F(ConsoleTest, scheduling_shows_the_trouble_of_the_store_and_goes_back) {
    made.AddDepartment("Bakery");
    made.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    StartReady();
    RawFile(File()).Run("DROP TABLE Employee");
    prompt().Expect("Database problem.. Error number is:3078.\nA table is missing in the database.",
                    box::Stop, "Database");
    EXPECT_FALSE(PrepareSchedule(g, made.ports()));
}

} // namespace
} // namespace tvx
