// What a start makes of a database that is not as it should be: a clear word, and the file as it was.
#include "editor/week/LoadWeek.h"
#include "editor/week/RosterBuilder.h"
#include "editor/week/SaveWeek.h"
#include "platform/dao/DaoError.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "store/rows/Schema.h"
#include "support/ChildProcess.h"
#include "support/Random.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <optional>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::RawFile;
using test::ShownBox;
using Names = std::vector<std::string>;

const ShownBox WrongVersion{"The database is the wrong version...\nUse a later version of this program. ",
                            box::Exclamation, "Tvx.mdb wrong version..."};
const ShownBox Damaged{"Damaged database file (TVX.MDB).\nWill attempt to restore...restart the program.",
                       box::Exclamation, "Damaged database file."};

/// Tables as they should be, but for what `change` does to them.
std::vector<dao::TableDef> TablesBut(const std::function<void(std::vector<dao::TableDef>&)>& change) {
    std::vector<dao::TableDef> tables = SystemTables();
    change(tables);
    return tables;
}

bool Holds(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Takes a field out of a table, and out of the key and the indexes that need it.
void Drop(dao::TableDef& table, const std::string& field) {
    std::erase_if(table.fields, [&](const dao::FieldDef& f) { return f.name == field; });
    if (Holds(table.key.fields, field)) table.key = {};
    std::erase_if(table.indexes, [&](const dao::IndexDef& index) { return Holds(index.fields, field); });
}

/// The fields that the first version of the file did not have.
const std::vector<std::pair<std::string, std::string>>& AddedFields() {
    static const std::vector<std::pair<std::string, std::string>> added{
        {"Day Schedule", "Current Rate"},
        {"Day Schedule", "Salary"},
        {"Day Schedule", "Vacation day"},
        {"Employee", "Labor type"},
        {"Employee", "EbarColor"},
        {"Department", "Week methode pick"},
        {"Department", "EmployeeNameSingle"},
        {"Department", "EmployeeNamePlural"},
        {"Department", "DayOffNameSingle"},
        {"Department", "DayOffNamePlural"},
        {"Employee", "Email"},
    };
    return added;
}

void DropAdded(std::vector<dao::TableDef>& tables) {
    for (dao::TableDef& table : tables)
        for (const auto& [name, field] : AddedFields())
            if (table.name == name) Drop(table, field);
}

class DamagedDatabaseTest : public testing::Test {
  protected:
    test::TempFolder folder;
    test::ScriptedPorts script;
    std::optional<GlobalState> run{std::in_place};
    GlobalState& g() { return *run; }
    fs::path File() const { return folder / "TVX.MDB"; }

    /// A file with these tables and, where `Application` stands, one row of options with this version.
    void Make(const std::vector<dao::TableDef>& tables, const test::RawValue& version = std::int64_t{8}) {
        fs::remove(File());
        {
            const auto db = dao::Engine(test::TestEngineOptions()).CreateDatabase(File());
            for (const dao::TableDef& table : tables) db->CreateTable(table);
        }
        RawFile file(File());
        for (const dao::TableDef& table : tables) {
            if (table.name != "Application") continue;
            file.Run("INSERT INTO Application DEFAULT VALUES");
            if (table.PositionOf("DB Version") >= 0)
                file.Run("UPDATE Application SET [DB Version] = ?", {version});
        }
    }
    LoadResult Start() {
        run.emplace();
        g().store.Engine = dao::Engine(test::TestEngineOptions());
        g().paths.ProgramPath = folder.Path();
        ConsoleFace face;
        return LoadConsole(g(), script.ports, face);
    }
    /// A start that ends with this box and leaves the file alone.
    void ExpectEnd(const ShownBox& box, const std::string& what) {
        SCOPED_TRACE(what);
        const std::string before = test::ReadFile(File());
        const int beeps = script.prompt.Beeps();
        script.prompt.Expect(box.text, box.style, box.title);
        EXPECT_EQ(Start(), LoadResult::EndRun);
        EXPECT_EQ(g().store.Db, nullptr);
        EXPECT_EQ(script.prompt.Beeps(), beeps + 1);
        EXPECT_TRUE(test::ReadFile(File()) == before);
        EXPECT_EQ(test::NamesIn(folder.Path()), Names{"TVX.MDB"});
    }
    Names FieldsOf(const std::string& table) {
        return RawFile(File()).Rows("SELECT name, type FROM pragma_table_info(?)", {table});
    }
};

// --- no database at all -----------------------------------------------------------------------------------

TEST_F(DamagedDatabaseTest, an_empty_file_is_a_damaged_one) {
    test::WriteFile(File(), "");
    ExpectEnd(Damaged, "0 bytes");
}

TEST_F(DamagedDatabaseTest, a_file_of_another_kind_is_a_damaged_one) {
    std::string everyByte;
    for (int i = 0; i < 8192; ++i) everyByte += static_cast<char>(i * 7);
    const std::pair<const char*, std::string> contents[] = {
        {"a letter", "Dear Anna,\r\nthe schedule is in the other file.\r\n"},
        {"one byte", "x"},
        {"99 bytes", std::string(99, 'x')},
        {"100 bytes", std::string(100, 'x')},
        {"a long text", std::string(100000, 'y')},
        {"zeros", std::string(65536, '\0')},
        {"every byte", everyByte},
    };
    for (const auto& [what, content] : contents) {
        test::WriteFile(File(), content);
        ExpectEnd(Damaged, what);
    }
}

TEST_F(DamagedDatabaseTest, a_database_of_another_program_is_of_the_wrong_version) {
    RawFile(File()).Run("CREATE TABLE Recipes (Name TEXT)");
    ExpectEnd(WrongVersion, "recipes");
}

TEST_F(DamagedDatabaseTest, a_folder_in_its_place_cannot_be_opened) {
    fs::create_directory(File());
    script.prompt.Expect(
        "Database problem.. Error number is:3051.\nThe database file cannot be opened or written.\n" +
            File().string(),
        box::Stop, "Database");
    EXPECT_EQ(Start(), LoadResult::EndRun);
}

TEST_F(DamagedDatabaseTest, a_file_cut_off_anywhere_is_a_damaged_one) {
    test::TestStore store;
    store.AddDepartment("Bakery");
    store.AddPeople(60);
    store.FillWeeks(46082, 4);
    CloseDatabase(store.g.store, store.prompt());
    const std::string whole = test::ReadFile(store.folder / "TVX.MDB");
    ASSERT_GT(whole.size(), 40000U);
    for (const std::size_t kept :
         {std::size_t{1}, std::size_t{50}, std::size_t{99}, std::size_t{100}, std::size_t{512},
          std::size_t{4095}, std::size_t{4096}, std::size_t{8192}, whole.size() / 2,
          whole.size() / 2 / 4096 * 4096, whole.size() - 4096, whole.size() - 1}) {
        test::WriteFile(File(), whole.substr(0, kept));
        ExpectEnd(Damaged, std::to_string(kept) + " bytes of " + std::to_string(whole.size()));
    }
}

// --- rights -----------------------------------------------------------------------------------------------

class OtherUserTest : public DamagedDatabaseTest {
  protected:
    /// Box and result of a start by a user without rights of his own.
    std::string StartAsAnotherUser() {
        return test::AskAnotherUser([&]() -> std::string {
            script.prompt.AlwaysAnswer(Answer::Ok);
            const std::string result = Start() == LoadResult::Ready ? "ready" : "end";
            const ShownBox& box = script.prompt.Last();
            std::string said = result + "|" + std::to_string(box.style) + "|" + box.title + "|" + box.text;
            std::replace(said.begin(), said.end(), '\n', '/');
            return said;
        });
    }
};

TEST_F(OtherUserTest, who_may_only_read_the_file_is_told_and_nothing_is_written) {
    Make(SystemTables());
    folder.OpenToAll();
    fs::permissions(File(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const std::string before = test::ReadFile(File());
    EXPECT_EQ(StartAsAnotherUser(), "end|16|Database|Database problem.. Error number is:3051./The database "
                                    "file cannot be opened or written./" +
                                        File().string());
    EXPECT_TRUE(test::ReadFile(File()) == before);
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"TVX.MDB"});
}

TEST_F(OtherUserTest, who_may_not_even_read_the_file_is_told) {
    Make(SystemTables());
    folder.OpenToAll();
    fs::permissions(File(), fs::perms::none);
    EXPECT_EQ(
        StartAsAnotherUser(),
        "end|16|Database|Database problem.. Error number is:3051./The database file cannot be opened or "
        "written.");
}

TEST_F(OtherUserTest, who_may_not_write_into_the_folder_cannot_make_a_first_database_there) {
    Make(SystemTables());
    fs::rename(File(), folder / "TVX.JAN");
    fs::permissions(folder.Path(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    fs::permissions(folder / "TVX.JAN", fs::perms::owner_read | fs::perms::others_read);
    EXPECT_EQ(StartAsAnotherUser().substr(0, 16), "end|16|Database|");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"TVX.JAN"});
}

// --- a file that another workstation holds ----------------------------------------------------------------

TEST_F(DamagedDatabaseTest, a_file_that_another_workstation_holds_alone_is_in_use) {
    Make(SystemTables());
    {
        test::ChildProcess other([&](test::ChildProcess& test) {
            RawFile file(File());
            file.Run("BEGIN EXCLUSIVE");
            test.Say("held");
            test.Hear();
        });
        ASSERT_EQ(other.Hear(), "held");
        script.prompt.Expect(
            "Database is in use!\n\nTry later.\n\n(Another workstation is using the database.\n" +
                File().string() + ")",
            box::Stop, "Database");
        EXPECT_EQ(Start(), LoadResult::EndRun);
        EXPECT_EQ(script.prompt.Beeps(), 1);
    }
    EXPECT_EQ(Start(), LoadResult::Ready);
}

// --- tables and fields that are missing -------------------------------------------------------------------

TEST_F(DamagedDatabaseTest, a_missing_table_is_the_wrong_version_and_nothing_is_written) {
    for (std::size_t missing = 0; missing < SystemTables().size(); ++missing) {
        const std::string name = SystemTables()[missing].name;
        for (const std::int64_t version : {8, 7}) {
            Make(TablesBut([&](auto& tables) {
                     tables.erase(tables.begin() + static_cast<std::ptrdiff_t>(missing));
                 }),
                 version);
            ExpectEnd(WrongVersion, name);
        }
    }
}

TEST_F(DamagedDatabaseTest, a_missing_field_is_the_wrong_version_and_nothing_is_written) {
    for (std::size_t t = 0; t < SystemTables().size(); ++t)
        for (const dao::FieldDef& field : SystemTables()[t].fields) {
            Make(TablesBut([&](auto& tables) { Drop(tables[t], field.name); }));
            ExpectEnd(WrongVersion, SystemTables()[t].name + "." + field.name);
        }
}

TEST_F(DamagedDatabaseTest, an_old_file_that_lacks_more_than_an_upgrade_adds_is_left_alone) {
    for (const char* field : {"Last name", "Pay", "Avail start", "Active"}) {
        Make(TablesBut([&](auto& tables) {
                 DropAdded(tables);
                 Drop(tables[2], field);
             }),
             std::int64_t{5});
        ExpectEnd(WrongVersion, field);
    }
}

TEST_F(DamagedDatabaseTest, a_version_field_that_is_missing_is_the_wrong_version_and_not_an_upgrade) {
    Make(TablesBut([](auto& tables) {
        DropAdded(tables);
        Drop(tables[0], "DB Version");
    }));
    ExpectEnd(WrongVersion, "DB Version");
}

// --- older files ------------------------------------------------------------------------------------------

TEST_F(DamagedDatabaseTest, an_older_file_gets_the_fields_that_it_lacks) {
    for (const test::RawValue& version :
         {test::RawValue(), test::RawValue(std::int64_t{7}), test::RawValue(std::int64_t{9})}) {
        Make(TablesBut(DropAdded), version);
        EXPECT_EQ(Start(), LoadResult::Ready);
        CloseDatabase(g().store, script.prompt);
        EXPECT_EQ(RawFile(File()).Rows("SELECT [DB Version] FROM Application"), Names{"8"});
        EXPECT_TRUE(Holds(FieldsOf("Day Schedule"), "Current Rate|DOUBLE"));
        EXPECT_TRUE(Holds(FieldsOf("Day Schedule"), "Salary|TEXT(1)"));
        EXPECT_TRUE(Holds(FieldsOf("Day Schedule"), "Vacation day|BOOLEAN"));
        EXPECT_TRUE(Holds(FieldsOf("Employee"), "Labor type|INTEGER"));
        EXPECT_TRUE(Holds(FieldsOf("Employee"), "EbarColor|INTEGER"));
        EXPECT_TRUE(Holds(FieldsOf("Employee"), "Email|TEXT(40)"));
        for (const char* name :
             {"EmployeeNameSingle", "EmployeeNamePlural", "DayOffNameSingle", "DayOffNamePlural"})
            EXPECT_TRUE(Holds(FieldsOf("Department"), name + std::string("|TEXT(14)")));
        EXPECT_TRUE(Holds(FieldsOf("Department"), "Week methode pick|INTEGER"));
    }
}

TEST_F(DamagedDatabaseTest, an_older_file_that_lacks_only_one_of_them_gets_that_one) {
    for (const auto& [table, field] : AddedFields()) {
        Make(TablesBut([&, table = table, field = field](auto& tables) {
                 for (dao::TableDef& t : tables)
                     if (t.name == table) Drop(t, field);
             }),
             std::int64_t{7});
        EXPECT_EQ(Start(), LoadResult::Ready) << table << "." << field;
        EXPECT_EQ(MissingFromFile(g().store.Open()), "");
    }
}

TEST_F(DamagedDatabaseTest, an_older_file_without_a_row_of_options_is_brought_up_to_date_too) {
    Make(TablesBut(DropAdded));
    RawFile(File()).Run("DELETE FROM Application");
    EXPECT_EQ(Start(), LoadResult::Ready);
    EXPECT_EQ(MissingFromFile(g().store.Open()), "");
    EXPECT_EQ(RawFile(File()).Rows("SELECT [12 or 24], [To Try], [DB Version] FROM Application"),
              Names{"12|S|8"});
}

TEST_F(DamagedDatabaseTest, rows_of_an_older_file_read_with_the_defaults_of_the_fields_that_came_later) {
    Make(TablesBut(DropAdded), std::int64_t{5});
    {
        RawFile file(File());
        file.Run("INSERT INTO Department ([Department name], [First weekday]) VALUES ('Bakery', 100)");
        file.Run("INSERT INTO Employee ([Last name], Pay, [Wage or Sal], Active, [Dep number])"
                 " VALUES ('Adams', '10', -1, -1, 1)");
        file.Run("INSERT INTO [Day Schedule] ([Day Julian], Employee, [Starts & Stops]) VALUES (46082, 1, ?)",
                 {test::StartsStops({{36, 68}})});
    }
    ASSERT_EQ(Start(), LoadResult::Ready);
    EXPECT_EQ(g().department.EmployeeNamePlural, "Employees");
    EXPECT_EQ(g().department.WeekMethod, 0);
    ASSERT_TRUE(PrepareSchedule(g(), script.ports));
    EXPECT_EQ(g().roster.RosterLaborType[1], "Full time");
    EXPECT_EQ(g().roster.RosterBarColor[1], 2);
    LoadWeekOf(g(), script.ports, 46082);
    EXPECT_FALSE(g().week.DayOffFlag[1][1]);
    EXPECT_EQ(test::Bars(g(), 1), (test::BarList{{36, 68}}));
}

// --- damage inside ----------------------------------------------------------------------------------------

TEST_F(DamagedDatabaseTest, bytes_changed_anywhere_never_bring_the_program_down) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    test::TestStore store;
    store.AddDepartment("Bakery");
    store.AddPeople(8);
    store.FillWeeks(46082, 2);
    CloseDatabase(store.g.store, store.prompt());
    const std::string whole = test::ReadFile(store.folder / "TVX.MDB");
    script.prompt.AlwaysAnswer(Answer::Ok);
    int ended = 0;
    for (int round = 0; round < 150; ++round) {
        std::string content = whole;
        for (auto changes = random.Whole(1, 40); changes > 0; --changes)
            content[static_cast<std::size_t>(random.Whole(
                0, static_cast<std::int64_t>(content.size()) - 1))] = static_cast<char>(random.Whole(0, 255));
        if (random.Chance(30)) content = random.Mutated(content);
        test::WriteFile(File(), content);
        if (Start() == LoadResult::EndRun) {
            ++ended;
            ASSERT_EQ(g().store.Db, nullptr);
            ASSERT_FALSE(script.prompt.Last().text.empty());
            continue;
        }
        try {
            if (!PrepareSchedule(g(), script.ports)) continue;
            LoadWeekOf(g(), script.ports, 46082);
            test::ScriptedGauge gauge;
            SaveWeek(g(), script.ports, gauge, [] {});
        } catch (const dao::DaoError&) {
            // Told by the one handler of the program; the action ends there.
            continue;
        }
    }
    EXPECT_GT(ended, 0);
}

} // namespace
} // namespace tvx
