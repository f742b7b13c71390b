// A save among other workstations, power cuts and full disks: the week in the file is the old one or the new
// one, and the week in memory is never lost.
#include "editor/week/LoadWeek.h"
#include "editor/week/RosterBuilder.h"
#include "editor/week/SaveWeek.h"
#include "platform/dao/DaoError.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "support/ChildProcess.h"
#include "support/FullDisk.h"
#include "support/Quarters.h"
#include "support/RawFile.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <sys/resource.h>
#include <thread>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::BarList;
using test::ChildProcess;
using test::RawFile;
using Rows = std::vector<std::string>;

constexpr DaySerial Sunday = 46082; // 1 March 2026

// --- another workstation ----------------------------------------------------------------------------------

/// The other workstation is a process that was started before anything was opened here. It works on demand.
class TwoWorkstationsTest : public testing::Test {
  protected:
    test::TempFolder shared;
    fs::path File() const { return shared / "TVX.MDB"; }

    ChildProcess other{[this](ChildProcess& test) { Obey(test); }};
    std::unique_ptr<test::TestStore> store;
    GlobalState& g() { return store->g; }

    /// Runs in the other process: each word is a statement, answered by "ok" or by what went wrong.
    void Obey(ChildProcess& test) {
        std::unique_ptr<RawFile> file;
        for (std::string word = test.Hear(); !word.empty(); word = test.Hear()) {
            if (!file) file = std::make_unique<RawFile>(File());
            try {
                file->Run(word);
                test.Say("ok");
            } catch (const std::exception& trouble) {
                test.Say(trouble.what());
            }
        }
    }
    std::string Tell(const std::string& statement) {
        other.Say(statement);
        return other.Hear();
    }

    void SetUp() override {
        store = std::make_unique<test::TestStore>();
        store->AddDepartment("Bakery");
        store->AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "7.25"});
        store->AddEmployee({.lastName = "Brown", .firstName = "Bob"});
        store->PutDay(Sunday, 1, test::StartsStops({{10, 20}}), "A");
        store->PutDay(Sunday + 3, 2, test::StartsStops({{30, 40}}));
        CloseDatabase(g().store, store->prompt());
        fs::rename(store->folder / "TVX.MDB", File());
        g().store.Db = g().store.Engine.OpenDatabase(File());
        store->OpenWeek(Sunday);
        test::SetBars(g(), 1, {{36, 68}, {132, 164}});
        test::SetBars(g(), 2, {{88, 120}});
        test::WritableWeek(g()).DayTypeText[5][1] = "V";
        test::WritableWeek(g()).WeekChanged = true;
    }
    bool Save() {
        return SaveWeek(g(), store->ports(), store->gauge, [] {});
    }
    void ExpectLockedPage() {
        store->prompt().Expect(
            "Could not save this schedule,\nthis page is locked by another user, try again..\n\n(3260)",
            box::Ok, "Locked page...");
    }
    std::string Model() {
        std::string text = test::SumsText(g());
        for (int e = 1; e <= 2; ++e)
            for (const auto& [start, stop] : test::Bars(g(), e))
                text += " " + std::to_string(start) + ".." + std::to_string(stop);
        for (int d = 1; d <= 8; ++d) text += " " + g().week.DayTypeText[d][1];
        return text;
    }
};

TEST_F(TwoWorkstationsTest, the_one_that_finds_the_file_locked_says_so_loses_nothing_and_succeeds_next) {
    const Rows before = store->Rows();
    const std::string model = Model();
    ASSERT_EQ(Tell("BEGIN IMMEDIATE"), "ok");
    ASSERT_EQ(Tell("UPDATE [Day Schedule] SET DayType = 'Q' WHERE Employee = 2"), "ok");
    for (int attempt = 0; attempt < 2; ++attempt) {
        ExpectLockedPage();
        EXPECT_FALSE(Save());
        EXPECT_TRUE(g().week.WeekChanged);
        EXPECT_EQ(Model(), model);
        EXPECT_EQ(store->Rows(), before) << "what the other has not finished is not seen either";
        EXPECT_FALSE(store->gauge.visible);
        EXPECT_EQ(store->prompt().Shape(), Pointer::Default);
        EXPECT_FALSE(store->db().InTransaction());
    }
    ASSERT_EQ(Tell("COMMIT"), "ok");
    EXPECT_TRUE(Save());
    EXPECT_FALSE(g().week.WeekChanged);
    EXPECT_EQ(Model(), model);
    LoadWeek(g(), store->ports(), Sunday);
    EXPECT_EQ(Model(), model);
}

TEST_F(TwoWorkstationsTest, a_file_locked_for_the_last_step_of_a_commit_gives_the_same_word) {
    ASSERT_EQ(Tell("BEGIN EXCLUSIVE"), "ok");
    store->prompt().WillAnswer(Answer::Ok);
    EXPECT_FALSE(Save());
    EXPECT_TRUE(g().week.WeekChanged);
    ASSERT_EQ(Tell("ROLLBACK"), "ok");
    EXPECT_TRUE(Save());
}

TEST_F(TwoWorkstationsTest,
       a_reader_in_the_middle_of_its_reading_delays_a_save_and_the_save_is_undone_whole) {
    const Rows before = store->Rows();
    const std::string model = Model();
    ASSERT_EQ(Tell("BEGIN"), "ok");
    ASSERT_EQ(Tell("SELECT count(*) FROM [Day Schedule]"), "ok"); // holds its read lock from now on
    ExpectLockedPage();
    EXPECT_FALSE(Save());
    EXPECT_EQ(Model(), model);
    EXPECT_TRUE(g().week.WeekChanged);
    ASSERT_EQ(Tell("COMMIT"), "ok");
    EXPECT_EQ(store->Rows(), before);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Model(), model);
}

TEST_F(TwoWorkstationsTest, an_open_week_never_blocks_the_other_ones_writing) {
    // The roster's recordset is open, the week is loaded, the department and its figures have been read.
    ASSERT_TRUE(g().store.EmployeeRs.IsOpen());
    ConsoleFace face;
    RefreshDepartments(g(), store->ports(), face);
    LoadDayTypes(g().store, 1, g().daytypes);
    g().store.EmployeeRs.MoveFirst();
    EXPECT_EQ(Tell("BEGIN EXCLUSIVE"), "ok");
    EXPECT_EQ(Tell("UPDATE [Day Schedule] SET DayType = 'Q' WHERE Employee = 2"), "ok");
    EXPECT_EQ(Tell("COMMIT"), "ok");
    EXPECT_TRUE(Save());
    EXPECT_EQ(Tell("BEGIN EXCLUSIVE"), "ok") << "after a save nothing stays locked";
    EXPECT_EQ(Tell("COMMIT"), "ok");
    store->prompt().Expect(
        "Could not save this schedule,\nthis page is locked by another user, try again..\n\n(3260)", box::Ok,
        "Locked page...");
    EXPECT_EQ(Tell("BEGIN IMMEDIATE"), "ok");
    EXPECT_FALSE(Save());
    EXPECT_EQ(Tell("UPDATE [Day Schedule] SET DayType = 'R' WHERE Employee = 2"), "ok");
    EXPECT_EQ(Tell("COMMIT"), "ok") << "a refused save leaves nothing locked";
}

TEST_F(TwoWorkstationsTest, a_load_while_the_other_one_writes_shows_the_week_before) {
    ASSERT_EQ(Tell("BEGIN IMMEDIATE"), "ok");
    ASSERT_EQ(Tell("DELETE FROM [Day Schedule]"), "ok");
    LoadWeek(g(), store->ports(), Sunday);
    EXPECT_EQ(test::Bars(g(), 1), (BarList{{10, 20}}));
    ASSERT_EQ(Tell("COMMIT"), "ok") << "and did not hold it up";
    LoadWeek(g(), store->ports(), Sunday);
    EXPECT_EQ(test::Bars(g(), 1), BarList{});
}

TEST_F(TwoWorkstationsTest, a_load_that_finds_the_file_held_alone_keeps_the_week_that_is_open) {
    const std::string model = Model();
    ASSERT_EQ(Tell("BEGIN EXCLUSIVE"), "ok");
    EXPECT_THROW(LoadWeek(g(), store->ports(), Sunday + 7), dao::DaoError);
    EXPECT_EQ(Model(), model);
    EXPECT_EQ(g().week.WeekStartJulian, Sunday);
    EXPECT_TRUE(g().week.WeekChanged);
    ASSERT_EQ(Tell("COMMIT"), "ok");
    LoadWeek(g(), store->ports(), Sunday + 7);
    EXPECT_EQ(g().week.WeekStartJulian, Sunday + 7);
}

// --- power cuts -------------------------------------------------------------------------------------------

constexpr int People = 6;

/// The bars of a version of the week: everybody works at the same times on all seven days.
BarList BarsOfVersion(int version) {
    BarList bars;
    for (int day = 0; day < 7; ++day)
        bars.emplace_back(day * 96 + 1 + version % 40, day * 96 + 50 + version % 40);
    return bars;
}

/// A second run of the program on the file: saves versions of two weeks one after the other until it is
/// killed, with a word before each.
void SaveForEver(const fs::path& folder, int first, ChildProcess& test) {
    GlobalState g;
    test::ScriptedPorts script;
    test::ScriptedGauge gauge;
    ConsoleFace face;
    g.store.Engine = dao::Engine(test::TestEngineOptions());
    g.paths.ProgramPath = folder;
    if (LoadConsole(g, script.ports, face) != LoadResult::Ready || !PrepareSchedule(g, script.ports))
        return test.Say("no start");
    for (int version = first;; ++version) {
        LoadWeek(g, script.ports, version % 2 == 0 ? Sunday : Sunday + 14);
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) test::SetBars(g, e, BarsOfVersion(version));
        test.Say("saving");
        if (!SaveWeek(g, script.ports, gauge, [] {})) return test.Say("no save");
    }
}

/// The versions that stand in the file for a week, one for each different text; one when it is whole.
std::vector<std::string> VersionsOf(RawFile& file, DaySerial first) {
    return file.Rows(
        "SELECT DISTINCT [Starts & Stops] FROM [Day Schedule] WHERE [Day Julian] BETWEEN ? AND ?",
        {std::int64_t{first}, std::int64_t{first + 6}});
}

using Moment = std::chrono::steady_clock;

/// Lets a run save at least one version whole, and kills it at a random moment of a later save.
void CutPowerDuringASave(const fs::path& folder, int first, test::Random& random) {
    ChildProcess run([&](ChildProcess& test) { SaveForEver(folder, first, test); });
    ASSERT_EQ(run.Hear(), "saving");
    const auto began = Moment::now();
    ASSERT_EQ(run.Hear(), "saving");
    const std::chrono::nanoseconds oneSave = Moment::now() - began;
    std::this_thread::sleep_for(std::chrono::nanoseconds(random.Whole(0, oneSave.count())));
    run.Kill();
}

TEST(PowerCut, leaves_every_week_wholly_old_or_wholly_new) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    test::TempFolder folder;
    {
        test::TestStore store;
        store.AddDepartment("Bakery");
        store.AddPeople(People);
        CloseDatabase(store.g.store, store.prompt());
        fs::rename(store.folder / "TVX.MDB", folder / "TVX.MDB");
    }
    std::set<std::string> seen;
    int leftJournals = 0;
    for (int round = 0; round < 300; ++round) {
        ASSERT_NO_FATAL_FAILURE(CutPowerDuringASave(folder.Path(), round * 7, random)) << "round " << round;
        if (fs::exists(folder / "TVX.MDB-journal")) ++leftJournals;
        RawFile file(folder / "TVX.MDB");
        for (const DaySerial first : {Sunday, Sunday + 14}) {
            const auto versions = VersionsOf(file, first);
            ASSERT_LE(versions.size(), 1U) << "round " << round << ": a week is half old and half new";
            if (versions.empty()) continue;
            seen.insert(versions.front());
            ASSERT_EQ(file.Rows("SELECT count(*) FROM [Day Schedule] WHERE [Day Julian] BETWEEN ? AND ?",
                                {std::int64_t{first}, std::int64_t{first + 6}}),
                      Rows{std::to_string(7 * People)})
                << "round " << round;
        }
        if (round % 25 == 0) {
            ASSERT_EQ(file.Integrity(), "ok") << "round " << round;
        }
    }
    EXPECT_EQ(RawFile(folder / "TVX.MDB").Integrity(), "ok");
    EXPECT_GT(seen.size(), 20U) << "the runs have saved something";
    EXPECT_GT(leftJournals, 0) << "some were killed in the middle of a save";
}

// --- a full disk ------------------------------------------------------------------------------------------

TEST(FullDisk, refuses_a_save_that_does_not_fit_and_takes_it_when_there_is_room) {
    test::TestStore store;
    store.AddDepartment("Bakery");
    store.AddPeople(120);
    for (int e = 1; e <= 3; ++e) store.PutDay(Sunday + e, e, test::StartsStops({{10, 20}}), "A");
    store.OpenWeek(Sunday);
    GlobalState& g = store.g;
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) test::SetBars(g, e, BarsOfVersion(e));
    test::WritableWeek(g).WeekChanged = true;
    const Rows before = store.Rows();
    const std::string sums = test::SumsText(g);
    const auto size = fs::file_size(store.folder / "TVX.MDB");
    int refused = 0;
    bool saved = false;
    for (rlim_t bytes = 0; bytes < 4 * size && !saved; bytes += 8192) {
        store.script.prompt.AlwaysAnswer(Answer::Ok);
        {
            const test::FullDisk full(bytes);
            saved = SaveWeek(g, store.ports(), store.gauge, [] {});
        }
        if (saved) break;
        ++refused;
        const test::ShownBox& box = store.prompt().Last();
        ASSERT_EQ(box.title, "Locked page...") << bytes;
        ASSERT_EQ(box.style, box::Ok);
        ASSERT_EQ(box.text.substr(0, 79),
                  "Could not save this schedule,\nthis page is locked by another user, try again..\n")
            << bytes;
        ASSERT_TRUE(box.text.ends_with("(3043)") || box.text.ends_with("(3026)")) << box.text;
        ASSERT_EQ(store.Rows(), before) << bytes;
        ASSERT_EQ(test::SumsText(g), sums);
        ASSERT_TRUE(g.week.WeekChanged);
        ASSERT_FALSE(store.gauge.visible);
        ASSERT_FALSE(store.db().InTransaction());
    }
    EXPECT_GE(refused, 3);
    EXPECT_TRUE(saved) << "with more room it fits";
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_EQ(store.Rows().size(), 7U * 120);
    EXPECT_EQ(test::SumsText(g), sums);
    EXPECT_EQ(RawFile(store.folder / "TVX.MDB").Integrity(), "ok");
}

TEST(FullDisk, refuses_a_small_change_too_and_the_old_week_stands_for_the_next_run) {
    test::TestStore store;
    store.AddDepartment("Bakery");
    store.AddPeople(10);
    store.FillWeeks(Sunday, 1, 4);
    store.OpenWeek(Sunday);
    const Rows before = store.Rows();
    test::SetBars(store.g, 1, {{1, 2}});
    store.prompt().AlwaysAnswer(Answer::Ok);
    {
        const test::FullDisk full(0);
        EXPECT_FALSE(SaveWeek(store.g, store.ports(), store.gauge, [] {}));
    }
    CloseDatabase(store.g.store, store.prompt());
    store.g.store.Db = store.g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
    EXPECT_EQ(store.Rows(), before);
    EXPECT_TRUE(SaveWeek(store.g, store.ports(), store.gauge, [] {}));
    EXPECT_NE(store.Rows(), before);
}

} // namespace
} // namespace tvx
