#include "store/FirstDatabase.h"

#include "platform/dao/DaoError.h"
#include "platform/files/FileError.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "store/JudgeJournal.h"
#include "store/rows/EmployeeRow.h"
#include "store/rows/Schema.h"
#include "support/ChildProcess.h"
#include "support/FailingFlush.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::RawFile;
using Rows = std::vector<std::string>;

constexpr DaySerial ExampleSunday = 38774; // 26 February 2006
constexpr DaySerial Sunday = 46082;        // 1 March 2026

class FirstDatabaseTest : public testing::Test {
  protected:
    test::TempFolder folder;
    test::ScriptedPorts script;
    fs::path Made() const { return folder / "TVX.MDB"; }
    fs::path ReadyMade() const { return folder / "TVX.JAN"; }

    /// A small ready-made file: one department, one employee with a row on each day of the example week and
    /// on the days around it.
    void SetUp() override {
        const dao::Engine engine(test::TestEngineOptions());
        const auto db = engine.CreateDatabase(ReadyMade());
        CreateSystemTables(*db);
        RawFile file(ReadyMade());
        file.Run("INSERT INTO Application ([12 or 24], [DB Version]) VALUES ('12', 8)");
        file.Run("INSERT INTO Department ([Department name]) VALUES ('Example department')");
        file.Run("INSERT INTO Employee ([Last name], Active, [Dep number]) VALUES ('Adams', -1, 1)");
        for (std::int64_t day = ExampleSunday - 1; day <= ExampleSunday + 7; ++day) {
            file.Run("INSERT INTO [Day Schedule] ([Day Julian], Employee, DayType) VALUES (?, 1, ?)",
                     {day, std::to_string(day - ExampleSunday)});
            file.Run("INSERT INTO [Department day] (Day, [Dep number], Sales) VALUES (?, 1, ?)",
                     {day, day - ExampleSunday});
        }
    }
    void Seed(DaySerial today) {
        SeedFirstDatabase(dao::Engine(test::TestEngineOptions()), folder.Path(), today);
    }
    Rows DayRows() {
        return RawFile(Made()).Rows("SELECT [Day Julian], DayType FROM [Day Schedule] ORDER BY 1");
    }
    Rows FigureRows() { return RawFile(Made()).Rows("SELECT Day, Sales FROM [Department day] ORDER BY 1"); }
    static Rows Moved(DaySerial base, bool figures) {
        Rows rows;
        const auto row = [&](DaySerial day, int n) {
            rows.push_back(std::to_string(day) + "|" + std::to_string(n) + (figures ? ".0" : ""));
        };
        row(ExampleSunday - 1, -1);
        row(ExampleSunday + 7, 7);
        for (int n = 0; n < 7; ++n) row(base + n, n);
        return rows;
    }
    void Prepare(GlobalState& g) const {
        g.store.Engine = dao::Engine(test::TestEngineOptions());
        g.paths.ProgramPath = folder.Path();
    }
};

TEST_F(FirstDatabaseTest, has_its_example_week_in_the_week_of_today_on_every_weekday) {
    for (DaySerial today = Sunday; today < Sunday + 7; ++today) {
        fs::remove(Made());
        Seed(today);
        EXPECT_EQ(DayRows(), Moved(Sunday, false)) << today;
        EXPECT_EQ(FigureRows(), Moved(Sunday, true)) << today;
    }
    fs::remove(Made());
    Seed(Sunday + 7);
    EXPECT_EQ(DayRows(), Moved(Sunday + 7, false));
}

TEST_F(FirstDatabaseTest, keeps_the_example_week_where_it_is_in_its_own_time) {
    Seed(ExampleSunday + 3);
    EXPECT_EQ(DayRows().size(), 9U);
    EXPECT_EQ(DayRows().front(), std::to_string(ExampleSunday - 1) + "|-1");
    EXPECT_EQ(DayRows()[3], std::to_string(ExampleSunday + 2) + "|2");
}

TEST_F(FirstDatabaseTest, moves_hundreds_of_rows_each_once) {
    RawFile file(ReadyMade());
    for (std::int64_t employee = 2; employee <= 200; ++employee)
        for (std::int64_t day = ExampleSunday; day < ExampleSunday + 7; ++day)
            file.Run("INSERT INTO [Day Schedule] ([Day Julian], Employee, DayType) VALUES (?, ?, ?)",
                     {day, employee, std::to_string(day - ExampleSunday)});
    Seed(Sunday + 2);
    EXPECT_EQ(RawFile(Made()).Rows("SELECT [Day Julian] - 46082, DayType, count(*) FROM [Day Schedule]"
                                   " WHERE [Day Julian] > 40000 GROUP BY 1, 2 ORDER BY 1"),
              (Rows{"0|0|200", "1|1|200", "2|2|200", "3|3|200", "4|4|200", "5|5|200", "6|6|200"}));
}

TEST_F(FirstDatabaseTest, leaves_the_ready_made_one_as_it_is) {
    const std::string before = test::ReadFile(ReadyMade());
    Seed(Sunday);
    EXPECT_TRUE(test::ReadFile(ReadyMade()) == before);
    EXPECT_EQ(test::NamesIn(folder.Path()), (Rows{"TVX.JAN", "TVX.MDB"}));
}

TEST_F(FirstDatabaseTest, can_be_written_even_where_the_ready_made_one_cannot) {
    fs::permissions(ReadyMade(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    Seed(Sunday);
    EXPECT_NE(fs::status(Made()).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(FirstDatabaseTest, is_made_from_any_spelling_and_never_over_a_database_in_any_spelling) {
    fs::rename(ReadyMade(), folder / "tvx.jan");
    Seed(Sunday);
    EXPECT_EQ(DayRows(), Moved(Sunday, false));
    fs::rename(Made(), folder / "Tvx.mdb");
    test::WriteFile(folder / "Tvx.mdb", "the user's own");
    Seed(Sunday);
    EXPECT_EQ(test::ReadFile(folder / "Tvx.mdb"), "the user's own");
    EXPECT_EQ(test::NamesIn(folder.Path()), (Rows{"Tvx.mdb", "tvx.jan"}));
}

TEST_F(FirstDatabaseTest, is_not_made_without_a_ready_made_one) {
    fs::remove(ReadyMade());
    Seed(Sunday);
    EXPECT_TRUE(test::NamesIn(folder.Path()).empty());
}

TEST_F(FirstDatabaseTest, recovers_from_a_start_that_was_cut_off) {
    test::WriteFile(folder / "TVX.NEW", "half a file");
    Seed(Sunday);
    EXPECT_EQ(DayRows(), Moved(Sunday, false));
    EXPECT_EQ(test::NamesIn(folder.Path()), (Rows{"TVX.JAN", "TVX.MDB"}));
}

TEST_F(FirstDatabaseTest, recovers_from_a_start_that_was_killed_in_the_middle_of_the_move) {
    {
        test::ChildProcess start([&](test::ChildProcess& test) {
            fs::copy_file(ReadyMade(), folder / "TVX.NEW");
            RawFile file(folder / "TVX.NEW");
            file.Run("PRAGMA cache_size = 1"); // pages reach the file before the transaction ends
            file.Run("BEGIN IMMEDIATE");
            for (std::int64_t i = 0; i < 2000; ++i)
                file.Run("INSERT INTO Department ([Department name]) VALUES (?)", {std::string(200, 'x')});
            test.Say("ready");
            test.Hear();
        });
        ASSERT_EQ(start.Hear(), "ready");
        start.Kill();
    }
    ASSERT_TRUE(fs::exists(folder / "TVX.NEW-journal"));
    // Meanwhile a newer version of the program has brought another ready-made file.
    RawFile(ReadyMade()).Run("UPDATE Department SET [Department name] = 'Newer example'");
    RawFile(ReadyMade())
        .Run("CREATE TABLE Filler AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
             " WHERE i < 500) SELECT i, hex(randomblob(100)) h FROM n");
    Seed(Sunday);
    EXPECT_EQ(DayRows(), Moved(Sunday, false));
    EXPECT_EQ(RawFile(Made()).Rows("SELECT [Department name] FROM Department"), Rows{"Newer example"});
    EXPECT_EQ(RawFile(Made()).Integrity(), "ok");
    EXPECT_EQ(test::NamesIn(folder.Path()), (Rows{"TVX.JAN", "TVX.MDB"}));
}

TEST_F(FirstDatabaseTest, recovers_from_a_power_cut_at_any_call_of_its_making) {
    int cuts = 0;
    for (bool cut = true; cut; cuts += cut ? 1 : 0) {
        fs::remove(Made());
        test::ChildProcess start([&](test::ChildProcess& test) {
            test::CutPowerAt(cuts + 1);
            Seed(Sunday);
            test::CutPowerAt(0);
            test.Say("made");
        });
        cut = start.Hear() != "made";
        start.Wait();
        Seed(Sunday);
        JudgeJournal(Made());
        ASSERT_EQ(DayRows(), Moved(Sunday, false)) << cuts;
        ASSERT_EQ(test::NamesIn(folder.Path()), (Rows{"TVX.JAN", "TVX.MDB"})) << cuts;
    }
    std::cout << cuts << " power cuts in the making\n";
    EXPECT_GT(cuts, 10);
}

/// Starts on each folder that it hears, adds an employee of that name, and says what came of it.
void StartAndHire(const std::string& lastName, test::ChildProcess& test) {
    for (std::string folder = test.Hear(); !folder.empty(); folder = test.Hear()) {
        GlobalState g;
        test::ScriptedPorts script;
        ConsoleFace face;
        script.prompt.AlwaysAnswer(Answer::Ok);
        g.store.Engine = dao::Engine(test::TestEngineOptions());
        g.paths.ProgramPath = folder;
        const bool ready = LoadConsole(g, script.ports, face) == LoadResult::Ready;
        EmployeeRow person;
        person.lastName = lastName;
        person.depNumber = 1;
        if (ready) AddEmployeeRow(g.store.Open(), person);
        const auto& boxes = script.prompt.Boxes();
        test.Say(!boxes.empty() ? boxes.back().text : ready ? "saved" : "no start");
        CloseDatabase(g.store, script.prompt);
    }
}

TEST_F(FirstDatabaseTest, is_made_once_by_two_starts_at_the_same_time) {
    const int pairs = std::getenv("TVX_TEST_FULL") != nullptr ? 1500 : 150;
    test::ChildProcess one([](test::ChildProcess& test) { StartAndHire("One", test); });
    test::ChildProcess two([](test::ChildProcess& test) { StartAndHire("Two", test); });
    const fs::path shared = folder / "shared";
    for (int pair = 0; pair < pairs; ++pair) {
        fs::remove_all(shared);
        fs::create_directory(shared);
        fs::copy_file(ReadyMade(), shared / "TVX.JAN");
        one.Say(shared.string());
        two.Say(shared.string());
        ASSERT_EQ(one.Hear(), "saved") << pair;
        ASSERT_EQ(two.Hear(), "saved") << pair;
        RawFile file(shared / "TVX.MDB");
        ASSERT_EQ(file.Rows("SELECT [Last name] FROM Employee ORDER BY 1"), (Rows{"Adams", "One", "Two"}))
            << pair;
        ASSERT_EQ(test::NamesIn(shared), (Rows{"TVX.JAN", "TVX.MDB"})) << pair;
    }
    std::cout << pairs << " pairs of first starts: 0 employees lost of " << 2 * pairs << "\n";
}

TEST_F(FirstDatabaseTest, is_not_harmed_by_what_an_older_database_left_behind) {
    Seed(Sunday);
    {
        test::ChildProcess run([&](test::ChildProcess& test) {
            RawFile file(Made());
            file.Run("PRAGMA cache_size = 1");
            file.Run("BEGIN IMMEDIATE");
            for (std::int64_t i = 0; i < 2000; ++i)
                file.Run("INSERT INTO Department ([Department name]) VALUES (?)", {std::string(200, 'x')});
            test.Say("ready");
            test.Hear();
        });
        ASSERT_EQ(run.Hear(), "ready");
        run.Kill();
    }
    ASSERT_TRUE(fs::exists(folder / "TVX.MDB-journal"));
    fs::remove(Made()); // somebody wants to begin anew
    RawFile(ReadyMade()).Run("UPDATE Department SET [Department name] = 'Begun anew'");
    Seed(Sunday);
    EXPECT_EQ(RawFile(Made()).Rows("SELECT [Department name] FROM Department"), Rows{"Begun anew"});
    EXPECT_EQ(RawFile(Made()).Integrity(), "ok");
    EXPECT_EQ(test::NamesIn(folder.Path()), (Rows{"TVX.JAN", "TVX.MDB"}));
}

TEST_F(FirstDatabaseTest, does_not_appear_when_the_ready_made_one_is_damaged) {
    test::WriteFile(ReadyMade(), "this is no database at all, though it is long enough to look at: " +
                                     std::string(4096, 'x'));
    GlobalState g;
    Prepare(g);
    ConsoleFace face;
    script.prompt.Expect("Damaged database file (TVX.MDB).\nWill attempt to restore...restart the program.",
                         box::Exclamation, "Damaged database file.");
    EXPECT_EQ(LoadConsole(g, script.ports, face), LoadResult::EndRun);
    EXPECT_FALSE(fs::exists(Made()));
}

TEST_F(FirstDatabaseTest, appears_whole_or_not_at_all_however_small_the_disk) {
    folder.OpenToAll();
    const auto whole = static_cast<std::size_t>(fs::file_size(ReadyMade()));
    int refused = 0;
    for (std::size_t bytes = 0; bytes <= whole + 8192; bytes += 4096) {
        const std::string said = test::AskOnFullDisk(bytes, [&]() -> std::string {
            try {
                Seed(Sunday);
                return "made";
            } catch (const dao::DaoError&) {
                return "refused";
            } catch (const FileError&) {
                return "refused";
            }
        });
        if (said == "refused") {
            ++refused;
            ASSERT_FALSE(fs::exists(Made())) << bytes;
            continue;
        }
        ASSERT_EQ(said, "made") << bytes;
        ASSERT_EQ(DayRows(), Moved(Sunday, false)) << bytes;
        fs::remove(Made());
    }
    EXPECT_GT(refused, 0);
    Seed(Sunday);
    EXPECT_EQ(DayRows(), Moved(Sunday, false));
    EXPECT_EQ(test::NamesIn(folder.Path()), (Rows{"TVX.JAN", "TVX.MDB"}));
}

TEST_F(FirstDatabaseTest, is_opened_by_the_start_that_made_it) {
    GlobalState g;
    Prepare(g);
    ConsoleFace face;
    script.clock.Set(Sunday + 4);
    ASSERT_EQ(LoadConsole(g, script.ports, face), LoadResult::Ready);
    EXPECT_EQ(g.department.CurrentDepName, "Example department");
    EXPECT_TRUE(ExampleNoteIsDue(g.department, g.departments, g.application));
    EXPECT_EQ(DayRows(), Moved(Sunday, false));
}

TEST_F(FirstDatabaseTest, missing_like_its_ready_made_one_ends_the_run) {
    fs::remove(ReadyMade());
    GlobalState g;
    Prepare(g);
    ConsoleFace face;
    script.prompt.Expect("Missing database file...", box::Exclamation, "Tvx.mdb is missing...");
    EXPECT_EQ(LoadConsole(g, script.ports, face), LoadResult::EndRun);
    EXPECT_EQ(script.prompt.Beeps(), 1);
    EXPECT_TRUE(test::NamesIn(folder.Path()).empty());
}

} // namespace
} // namespace tvx
