// Journals that lie beside the database when a run begins: those of this file are played back without a word,
// and no other ever is.
#include "store/JudgeJournal.h"

#include "editor/week/LoadWeek.h"
#include "editor/week/SaveWeek.h"
#include "platform/dao/LeftJournal.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "support/ChildProcess.h"
#include "support/FailingFlush.h"
#include "support/FileTrouble.h"
#include "support/Random.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <set>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::ChildProcess;
using test::RawFile;
using Rows = std::vector<std::string>;

constexpr DaySerial Sunday = 46082; // 1 March 2026
constexpr int People = 40;
constexpr int CallsOfASave = 45; // about; flushes and writes

/// The whole run with TVX_TEST_FULL, a tenth of it without.
int Rounds() {
    return std::getenv("TVX_TEST_FULL") != nullptr ? 300 : 30;
}

fs::path Database(const fs::path& folder) {
    return folder / "TVX.MDB";
}
fs::path Journal(const fs::path& folder) {
    return dao::JournalOf(Database(folder));
}

/// Every row with its version, which is the start of the bar.
Rows WeekIn(const fs::path& folder) {
    return RawFile(Database(folder))
        .Rows("SELECT [Day Julian], Employee, unicode([Starts & Stops]) FROM [Day Schedule] ORDER BY 1, 2");
}

/// The one version of a week that is whole; -1 for a week that is not.
int VersionIn(const fs::path& folder) {
    RawFile file(Database(folder));
    const Rows found =
        file.Rows("SELECT DISTINCT unicode([Starts & Stops]) - 33, count(*) FROM [Day Schedule] GROUP BY 1");
    const std::string behind = "|" + std::to_string(7 * People);
    const bool whole = found.size() == 1 && found.front().ends_with(behind) && file.Integrity() == "ok";
    return whole ? std::stoi(found.front()) : -1;
}

void SetVersion(GlobalState& g, int version) {
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
        test::BarList bars;
        for (int day = 0; day < 7; ++day) bars.emplace_back(day * 96 + 1 + version % 40, day * 96 + 80);
        test::SetBars(g, e, bars);
    }
}

/// A start of the program on the folder of a database.
struct Start {
    GlobalState g;
    test::ScriptedPorts script;
    test::ScriptedGauge gauge;
    ConsoleFace face;
    LoadResult result;

    explicit Start(const fs::path& folder) {
        g.store.Engine = dao::Engine(test::TestEngineOptions());
        g.paths.ProgramPath = folder;
        script.prompt.AlwaysAnswer(Answer::Ok);
        result = LoadConsole(g, script.ports, face);
    }
    ~Start() { CloseDatabase(g.store, script.prompt); }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    bool OpenWeek() {
        if (result != LoadResult::Ready || !PrepareSchedule(g, script.ports)) return false;
        LoadWeek(g, script.ports, Sunday);
        return true;
    }
    bool Save(int version) {
        SetVersion(g, version);
        return SaveWeek(g, script.ports, gauge, [] {});
    }
};

/// Saves one version after the other, at most so many, with a word before and behind each.
void SaveVersions(const fs::path& folder, int first, int most, ChildProcess& test) {
    Start run(folder);
    if (!run.OpenWeek() || !run.script.prompt.Boxes().empty()) return test.Say("no start");
    for (int version = first; version < first + most; ++version) {
        test.Say("saving");
        if (!run.Save(version)) return test.Say("no save");
        test.Say("saved");
    }
}

/// Saves version 1 whole, and is cut off in version 2.
void SaveIntoAPowerCut(const fs::path& folder, int atCall) {
    ChildProcess run([&](ChildProcess&) {
        Start start(folder);
        if (!start.OpenWeek() || !start.Save(1)) return;
        test::CutPowerAt(atCall);
        for (int version = 2;; ++version)
            if (!start.Save(version)) return;
    });
    run.Hear(); // "" when it is gone
}

void CopyPair(const fs::path& from, const fs::path& to) {
    fs::create_directories(to);
    for (const auto& entry : fs::directory_iterator(to)) fs::remove(entry.path());
    fs::copy_file(Database(from), Database(to));
    if (fs::exists(Journal(from))) fs::copy_file(Journal(from), Journal(to));
}

class JudgeJournalTest : public testing::Test {
  protected:
    test::TempFolder folder;
    test::Random random;
    const fs::path yesterday = folder / "yesterday";
    const fs::path today = folder / "today";
    const fs::path crashed = folder / "crashed";
    const fs::path started = folder / "started";
    Rows ofYesterday;

    /// Yesterday's file holds another week whole, and lacks what was saved since.
    void SetUp() override {
        {
            test::TestStore store;
            store.AddDepartment("Bakery");
            store.AddPeople(People);
            store.OpenWeek(Sunday);
            SetVersion(store.g, 30);
            ASSERT_TRUE(SaveWeek(store.g, store.ports(), store.gauge, [] {}));
            CloseDatabase(store.g.store, store.prompt());
            CopyPair(store.folder.Path(), yesterday);
        }
        ofYesterday = WeekIn(yesterday);
        CopyPair(yesterday, today);
        Start run(today);
        ASSERT_TRUE(run.OpenWeek());
        for (int version = 20; version < 25; ++version) ASSERT_TRUE(run.Save(version));
    }
    /// A pair as a power cut leaves it. True when the journal is live.
    bool Crash(int atCall) {
        CopyPair(today, crashed);
        SaveIntoAPowerCut(crashed, atCall);
        return dao::IsLive(Journal(crashed));
    }
    /// With a live journal, one that holds what the engine has half written.
    void CrashLive() {
        for (int call = 25; call < CallsOfASave; ++call)
            if (Crash(call)) return;
        FAIL() << "no power cut left a live journal";
    }
    /// Where in its calls a save is killed is chance, and so is how often a live journal is left: when that
    /// was too seldom to tell anything, the kills go on.
    static bool GoesOn(int round, int live) {
        return round < Rounds() || (live < Rounds() / 15 && round < 20 * Rounds());
    }
    Rows NamesInStarted() { return test::NamesIn(started); }
};

TEST_F(JudgeJournalTest, plays_its_own_back_without_a_word_and_no_row_is_lost) {
    SCOPED_TRACE(random.Trace());
    int live = 0, old = 0;
    for (int round = 0; GoesOn(round, live); ++round) {
        live += Crash(static_cast<int>(random.Whole(1, CallsOfASave))) ? 1 : 0;
        CopyPair(crashed, started);
        {
            const Start run(started);
            ASSERT_EQ(run.result, LoadResult::Ready) << round;
            ASSERT_TRUE(run.script.prompt.Boxes().empty()) << round << ": " << run.script.prompt.Last();
        }
        const int version = VersionIn(started);
        ASSERT_GE(version, 1) << round;
        ASSERT_LE(version, 4) << round;
        old += version == 1 ? 1 : 0;
        ASSERT_FALSE(dao::IsLive(Journal(started))) << round;
        ASSERT_LE(NamesInStarted().size(), 2U) << round << ": the file, and a journal that was never flushed";
    }
    std::cout << Rounds() << " kills in saves, " << live << " with a live journal: 0 boxes, 0 rows lost, "
              << old << " times the week before\n";
    EXPECT_GE(live, Rounds() / 15);
}

TEST_F(JudgeJournalTest, leaves_that_of_a_running_save_alone) {
    SCOPED_TRACE(random.Trace());
    int saves = 0;
    for (int round = 0; round < Rounds(); ++round) {
        Crash(static_cast<int>(random.Whole(1, CallsOfASave)));
        CopyPair(crashed, started);
        ChildProcess other([&](ChildProcess& test) { SaveVersions(started, 5, 3, test); });
        // Beside its own start half of the time.
        if (round % 2 == 0) {
            ASSERT_EQ(other.Hear(), "saving") << round;
        }
        {
            const Start run(started);
            ASSERT_EQ(run.result, LoadResult::Ready) << round;
            ASSERT_TRUE(run.script.prompt.Boxes().empty()) << round << ": " << run.script.prompt.Last();
        }
        for (std::string word = other.Hear(); !word.empty(); word = other.Hear()) {
            ASSERT_TRUE(word == "saving" || word == "saved") << round << ": " << word;
            saves += word == "saved" ? 1 : 0;
        }
        ASSERT_EQ(VersionIn(started), 7) << round;
        ASSERT_EQ(NamesInStarted(), Rows{"TVX.MDB"}) << round;
    }
    std::cout << Rounds() << " starts beside " << saves << " saves: 0 boxes, 0 saves refused, 0 rows lost\n";
}

TEST_F(JudgeJournalTest, never_plays_that_of_another_day_into_a_copy_put_over_the_file) {
    SCOPED_TRACE(random.Trace());
    int live = 0, told = 0;
    for (int round = 0; GoesOn(round, live); ++round) {
        const bool foreign = Crash(static_cast<int>(random.Whole(1, CallsOfASave)));
        live += foreign ? 1 : 0;
        CopyPair(crashed, started);
        fs::copy_file(Database(yesterday), Database(started), fs::copy_options::overwrite_existing);
        {
            const Start run(started);
            ASSERT_EQ(run.result, LoadResult::Ready) << round;
            ASSERT_EQ(run.script.prompt.Boxes().size(), foreign ? 1U : 0U) << round;
            told += static_cast<int>(run.script.prompt.Boxes().size());
        }
        ASSERT_EQ(WeekIn(started), ofYesterday) << round;
        ASSERT_EQ(RawFile(Database(started)).Integrity(), "ok") << round;
        ASSERT_EQ(NamesInStarted(),
                  foreign ? (Rows{"TVX.MDB", "TVX.MDB-journal.kept-1", "TVX.MDB.kept-1"}) : Rows{"TVX.MDB"})
            << round;
    }
    std::cout << Rounds() << " copies put over the file, " << live << " beside a live journal: " << told
              << " told, every row the copy's\n";
    EXPECT_GE(live, Rounds() / 15);
}

TEST_F(JudgeJournalTest, keeps_a_foreign_one_and_the_file_as_they_were_found_and_names_both) {
    ASSERT_NO_FATAL_FAILURE(CrashLive());
    CopyPair(crashed, started);
    fs::copy_file(Database(yesterday), Database(started), fs::copy_options::overwrite_existing);
    fs::permissions(Database(started), fs::perms::owner_read | fs::perms::owner_write);
    const Start run(started);
    const fs::path journal = started / "TVX.MDB-journal.kept-1", copy = started / "TVX.MDB.kept-1";
    ASSERT_EQ(run.script.prompt.Boxes().size(), 1U);
    EXPECT_EQ(run.script.prompt.Last(),
              (test::ShownBox{
                  "A save that was interrupted has left a journal that does not fit the database file.\n"
                  "The file is opened as it stands. The journal is kept as\n\n" +
                      journal.string() + "\n\nand a copy of the file as\n\n" + copy.string(),
                  box::Exclamation, "Database"}));
    EXPECT_TRUE(test::ReadFile(journal) == test::ReadFile(Journal(crashed)));
    EXPECT_TRUE(test::ReadFile(copy) == test::ReadFile(Database(yesterday)));
    EXPECT_EQ(fs::status(copy).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(JudgeJournalTest, keeps_a_second_foreign_one_beside_the_first) {
    ASSERT_NO_FATAL_FAILURE(CrashLive());
    CopyPair(yesterday, started);
    for (int time = 0; time < 2; ++time) {
        fs::copy_file(Journal(crashed), Journal(started));
        const Start run(started);
        EXPECT_EQ(run.script.prompt.Boxes().size(), 1U);
    }
    EXPECT_EQ(NamesInStarted(), (Rows{"TVX.MDB", "TVX.MDB-journal.kept-1", "TVX.MDB-journal.kept-2",
                                      "TVX.MDB.kept-1", "TVX.MDB.kept-2"}));
}

TEST_F(JudgeJournalTest, does_not_play_back_one_that_would_damage_the_file_though_it_counts_as_its_own) {
    ASSERT_NO_FATAL_FAILURE(CrashLive());
    CopyPair(crashed, started);
    // The kind of every page but the first becomes one that does not exist; the checksums do not see it.
    std::string journal = test::ReadFile(Journal(started));
    constexpr std::size_t Sector = 512, Page = 4096;
    for (std::size_t at = Sector; at + Page + 8 <= journal.size(); at += Page + 8)
        if (journal.substr(at, 4) != std::string("\0\0\0\1", 4)) journal[at + 4] = '\x7F';
    test::WriteFile(Journal(started), journal);
    const std::string before = test::ReadFile(Database(started));
    const auto kept = JudgeJournal(Database(started));
    ASSERT_TRUE(kept.has_value());
    EXPECT_TRUE(test::ReadFile(Database(started)) == before);
    EXPECT_TRUE(test::ReadFile(kept->copy) == before);
    EXPECT_TRUE(test::ReadFile(kept->journal) == journal);
}

TEST_F(JudgeJournalTest, refuses_a_pipe_of_that_name_instead_of_waiting_for_it) {
    CopyPair(today, started);
    ASSERT_EQ(mkfifo(Journal(started).c_str(), 0600), 0);
    const Start run(started);
    EXPECT_EQ(run.result, LoadResult::EndRun);
    EXPECT_EQ(run.script.prompt.Boxes().size(), 1U);
}

TEST_F(JudgeJournalTest, clears_what_a_start_that_was_killed_has_left_beside_the_file) {
    CopyPair(today, started);
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    const std::string ours = std::string("TVX.MDB.") + host.data() + "-";
    const std::string running = ours + std::to_string(getpid()) + "-7.tmp";
    const std::string gone = ours + "999999999-7.tmp"; // no process has such a number
    for (const std::string& name : {running, gone, gone + "-journal", std::string("TVX.MDB.far-1-2.tmp"),
                                    std::string("TVX.MDB.old-1-2.tmp"), std::string("Other.tmp")})
        test::WriteFile(started / name, "left");
    fs::last_write_time(started / "TVX.MDB.old-1-2.tmp",
                        fs::file_time_type::clock::now() - std::chrono::hours(25));
    JudgeJournal(Database(started));
    const Rows names = NamesInStarted();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()),
              (std::set<std::string>{"Other.tmp", "TVX.MDB", "TVX.MDB.far-1-2.tmp", running}));
}

} // namespace
} // namespace tvx
