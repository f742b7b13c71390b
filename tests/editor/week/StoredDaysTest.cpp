#include "editor/week/StoredDays.h"

#include "editor/week/LoadWeek.h"
#include "editor/week/SaveWeek.h"
#include "editor/week/WeekModel.h"
#include "platform/dao/TimeText.h"
#include "shell/common/TVXMOD1.h"
#include "support/Quarters.h"
#include "support/RawFile.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <sstream>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::BarList;
using test::StartsStops;

constexpr DaySerial Sunday = 46082; // 1 March 2026

// --- reading a day ----------------------------------------------------------------------------------------

class PaintTest : public testing::Test {
  protected:
    GlobalState g;

    void SetUp() override { test::MakeRoster(g, 1); }
    BarList Reading(const std::string& bytes, int day) {
        ClearWeekGrid(test::WritableWeek(g));
        PaintStoredDay(test::WritableWeek(g), day, bytes);
        test::WritableWeek(g).BarCount[1] = ReadWeekGrid(test::WritableWeek(g), 1);
        return test::Bars(g, 1);
    }
};

TEST_F(PaintTest, puts_a_period_on_its_day) {
    EXPECT_EQ(Reading(StartsStops({{36, 68}}), 1), (BarList{{36, 68}}));
    EXPECT_EQ(Reading(StartsStops({{36, 68}}), 2), (BarList{{132, 164}}));
    EXPECT_EQ(Reading(StartsStops({{0, 96}}), 8), (BarList{{672, 768}}));
    EXPECT_EQ(Reading("D      d      ", 1), (BarList{{36, 68}}));
    EXPECT_EQ(Reading("       @      ", 1), (BarList{{0, 32}})); // from midnight to 8:00
}

TEST_F(PaintTest, joins_days_that_meet_at_midnight) {
    ClearWeekGrid(test::WritableWeek(g));
    PaintStoredDay(test::WritableWeek(g), 7, StartsStops({{88, 96}}));
    PaintStoredDay(test::WritableWeek(g), 8, StartsStops({{0, 24}}));
    test::WritableWeek(g).BarCount[1] = ReadWeekGrid(test::WritableWeek(g), 1);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{664, 696}}));
}

struct CorpusFile {
    std::string name;
    std::string bytes;
    BarList bars; // quarters of the day on which it stands
};

std::vector<CorpusFile> Corpus() {
    std::vector<CorpusFile> corpus;
    const fs::path folder = fs::path(TVX_SOURCE_DIR) / "tests/corpus/starts-stops";
    for (const std::string& name : test::NamesIn(folder)) {
        if (!name.ends_with(".bin")) continue;
        CorpusFile file{name, test::ReadFile(folder / name), {}};
        std::istringstream bars(test::ReadFile(folder / fs::path(name).replace_extension(".bars")));
        for (int start = 0, stop = 0; bars >> start >> stop;) file.bars.emplace_back(start, stop);
        corpus.push_back(file);
    }
    return corpus;
}

TEST_F(PaintTest, reads_every_file_of_the_corpus_as_stated_on_every_day) {
    const auto corpus = Corpus();
    ASSERT_GE(corpus.size(), 25U);
    for (const CorpusFile& file : corpus)
        for (int day = 1; day <= 8; ++day) {
            BarList expected;
            for (const auto& [start, stop] : file.bars)
                expected.emplace_back((day - 1) * 96 + start, (day - 1) * 96 + stop);
            EXPECT_EQ(Reading(file.bytes, day), test::RunsOf(test::Covered(expected)))
                << file.name << ", day " << day;
            EXPECT_EQ(Reading(file.bytes, day), test::RunsOf(test::PlainReading(file.bytes, day)))
                << file.name;
        }
}

TEST_F(PaintTest, reads_any_bytes_as_stated) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    const auto corpus = Corpus();
    for (int round = 0; round < 30000; ++round) {
        const auto pick =
            static_cast<std::size_t>(random.Whole(0, static_cast<std::int64_t>(corpus.size()) - 1));
        const std::string bytes =
            round % 2 == 0 ? random.Mutated(corpus[pick].bytes) : random.Bytes(round % 4 == 1 ? 14 : 40);
        const int day = static_cast<int>(random.Whole(1, 8));
        ASSERT_EQ(Reading(bytes, day), test::RunsOf(test::PlainReading(bytes, day)));
        test::ExpectSound(g);
    }
}

// --- writing a day ----------------------------------------------------------------------------------------

class StartsStopsTest : public PaintTest {
  protected:
    struct Stored {
        std::string text;
        int quarters = 0;

        friend bool operator==(const Stored&, const Stored&) = default;
    };
    Stored Of(const BarList& bars, int day) {
        test::SetBars(g, 1, bars);
        Stored stored;
        stored.text = StartsStopsOf(g.week, 1, day, stored.quarters);
        return stored;
    }
};

TEST_F(StartsStopsTest, hold_the_periods_of_the_day_and_count_their_quarters) {
    EXPECT_EQ(Of({{36, 68}}, 1), (Stored{"D      d      ", 32}));
    EXPECT_EQ(Of({{36, 68}}, 2), (Stored{std::string(14, ' '), 0}));
    EXPECT_EQ(Of({}, 1), (Stored{std::string(14, ' '), 0}));
    EXPECT_EQ(Of({{132, 164}, {170, 180}}, 2), (Stored{StartsStops({{36, 68}, {74, 84}}), 42}));
    EXPECT_EQ(Of({{0, 32}}, 1), (Stored{"       @      ", 32}));
    EXPECT_EQ(Of({{96, 192}}, 2), (Stored{StartsStops({{0, 96}}), 96}));
}

TEST_F(StartsStopsTest, split_a_bar_at_midnight) {
    EXPECT_EQ(Of({{88, 120}}, 1), (Stored{StartsStops({{88, 96}}), 8}));
    EXPECT_EQ(Of({{88, 120}}, 2), (Stored{StartsStops({{0, 24}}), 24}));
    EXPECT_EQ(Of({{88, 120}}, 3), (Stored{StartsStops({}), 0}));
    EXPECT_EQ(Of({{0, 768}}, 5), (Stored{StartsStops({{0, 96}}), 96}));
    EXPECT_EQ(static_cast<unsigned char>(Of({{88, 120}}, 1).text[7]), 128U);
}

TEST_F(StartsStopsTest, leave_bars_that_only_touch_the_day_to_their_own) {
    EXPECT_EQ(Of({{36, 96}}, 2).quarters, 0);
    EXPECT_EQ(Of({{36, 96}}, 2).text, StartsStops({}));
    EXPECT_EQ(Of({{192, 200}}, 2).text, StartsStops({}));
    EXPECT_EQ(Of({{760, 768}}, 8), (Stored{StartsStops({{88, 96}}), 8}));
}

TEST_F(StartsStopsTest, hold_seven_periods_and_count_no_more) {
    BarList bars;
    for (int b = 0; b < 8; ++b) bars.emplace_back(97 + 10 * b, 97 + 10 * b + 4);
    const BarList seven(bars.begin(), bars.begin() + 7);
    EXPECT_EQ(Of(bars, 2), Of(seven, 2));
    EXPECT_EQ(Of(bars, 2).quarters, 28);
    EXPECT_EQ(Of(bars, 2).text.find(' '), std::string::npos);
}

TEST_F(StartsStopsTest, of_all_days_hold_the_whole_week) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 4000; ++round) {
        const BarList bars = test::RandomStorableBars(random);
        test::SetBars(g, 1, bars);
        ClearWeekGrid(test::WritableWeek(g));
        int sum = 0;
        for (int day = 1; day <= 8; ++day) {
            int quarters = 0;
            const std::string text = StartsStopsOf(g.week, 1, day, quarters);
            ASSERT_EQ(text.size(), 14U);
            sum += quarters;
            PaintStoredDay(test::WritableWeek(g), day, text);
        }
        test::WritableWeek(g).BarCount[1] = ReadWeekGrid(test::WritableWeek(g), 1);
        ASSERT_EQ(test::Bars(g, 1), bars);
        ASSERT_EQ(sum, static_cast<int>(test::Covered(bars).count()));
    }
}

// --- rows of the file -------------------------------------------------------------------------------------

class ReadStoredWeekTest : public testing::Test {
  protected:
    test::TestStore store;

    /// What was read of the roster, a line for each row found.
    std::vector<std::string> Read(DaySerial first) {
        const StoredWeek stored = ReadStoredWeek(store.db(), store.g.roster, first);
        std::vector<std::string> lines;
        for (int e = 1; e <= store.g.roster.EmployeeCount; ++e)
            for (int d = 1; d <= DaysInSpan; ++d) {
                const StoredDay& day = stored[e][d];
                if (!day.found) continue;
                std::ostringstream line;
                line << e << " " << d << " " << day.dayType << " " << day.startsStops << " " << day.workHours
                     << " " << day.vacationDay << " " << day.HasRate();
                lines.push_back(line.str());
            }
        return lines;
    }
    std::string Line(int e, int d, const std::string& rest) {
        return std::to_string(e) + " " + std::to_string(d) + " " + rest;
    }
};

TEST_F(ReadStoredWeekTest, finds_the_eight_days_of_the_roster_and_nothing_else) {
    store.AddDepartment("Bakery");
    const int key = store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    store.AddDepartment("Dairy");
    const int other = store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
    store.g.department.CurrentDepNumber -= 1;
    store.OpenEditor();
    const std::string text = StartsStops({{36, 68}});
    for (DaySerial day = Sunday - 1; day <= Sunday + 8; ++day) {
        store.PutDay(day, key, text, std::to_string(day % 10));
        store.PutDay(day, other, text);
    }
    std::vector<std::string> expected;
    for (int d = 1; d <= 8; ++d)
        expected.push_back(Line(1, d, std::to_string((Sunday + d - 1) % 10) + " " + text + " 0 0 1"));
    EXPECT_EQ(Read(Sunday), expected);
}

TEST_F(ReadStoredWeekTest, reads_missing_fields_as_nothing) {
    store.AddDepartment("Bakery");
    const int key = store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    store.OpenEditor();
    test::RawFile(store.folder / "TVX.MDB")
        .Run("INSERT INTO [Day Schedule] ([Day Julian], Employee) VALUES (?, ?)",
             {std::int64_t{Sunday}, std::int64_t{key}});
    EXPECT_EQ(Read(Sunday), std::vector<std::string>{Line(1, 1, "  0 0 0")});
}

TEST_F(ReadStoredWeekTest, knows_the_mark_of_a_frozen_rate) {
    store.AddDepartment("Bakery");
    const int key = store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    store.OpenEditor();
    int day = 0;
    for (const char* mark : {"W", "S", "", "w", "X"}) store.PutDay(Sunday + day++, key, "", "", false, mark);
    const StoredWeek stored = ReadStoredWeek(store.db(), store.g.roster, Sunday);
    for (int d = 1; d <= 5; ++d) EXPECT_EQ(stored[1][d].HasRate(), d <= 2) << d;
}

TEST_F(ReadStoredWeekTest, reads_the_same_row_by_row_and_in_one_scan) {
    store.AddDepartment("Large");
    store.AddPeople(60);
    store.FillWeeks(Sunday - 7, 3, 5);
    store.OpenEditor();
    const std::vector<std::string> scanned = Read(Sunday);
    ASSERT_GT(scanned.size(), 200U);
    // The same people in a file of many others are looked up one by one.
    const int here = store.g.department.CurrentDepNumber;
    store.AddDepartment("Others");
    store.AddPeople(140);
    store.g.department.CurrentDepNumber = here;
    store.OpenEditor();
    ASSERT_EQ(store.g.roster.EmployeeCount, 60);
    EXPECT_EQ(Read(Sunday), scanned);
}

TEST_F(ReadStoredWeekTest, passes_over_rows_that_a_damaged_file_holds_out_of_their_place) {
    store.AddDepartment("Bakery");
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    const int brown = store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
    store.OpenEditor();
    for (DaySerial day = Sunday; day < Sunday + 8; ++day) store.PutDay(day, brown, "", "X");
    CloseDatabase(store.g.store, store.prompt());
    std::string content = test::ReadFile(store.folder / "TVX.MDB");
    const auto key = [&](DaySerial day) {
        return std::string{'\0', static_cast<char>(day >> 8), static_cast<char>(day),
                           static_cast<char>(brown)};
    };
    // The sixth of eight rows says that it belongs nine days before the first.
    const std::size_t at = content.find(key(Sunday + 5));
    ASSERT_NE(at, std::string::npos);
    test::WriteFile(store.folder / "TVX.MDB", content.replace(at, 4, key(Sunday - 9)));
    store.g.store.Db = store.g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
    std::vector<std::string> expected;
    for (const int d : {1, 2, 3, 4, 5, 7, 8}) expected.push_back(Line(2, d, "X  0 0 1"));
    // How much of the damaged part is found is the engine's affair; what is found is right.
    const std::vector<std::string> found = Read(Sunday);
    EXPECT_FALSE(found.empty());
    for (const std::string& line : found)
        EXPECT_NE(std::find(expected.begin(), expected.end(), line), expected.end()) << line;
}

// --- any bytes in the file --------------------------------------------------------------------------------

class OddRowsTest : public testing::Test {
  protected:
    test::TestStore store;
    int key = 0;

    void SetUp() override {
        store.AddDepartment("Bakery");
        key = store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
        store.OpenEditor();
        store.PutDay(Sunday + 1, key, "");
    }
    void Put(const test::RawValue& value) {
        test::RawFile(store.folder / "TVX.MDB")
            .Run("UPDATE [Day Schedule] SET [Starts & Stops] = ? WHERE Employee = ?",
                 {value, std::int64_t{key}});
    }
    BarList Load() {
        LoadWeek(store.g, store.ports(), Sunday);
        test::ExpectSound(store.g);
        return test::Bars(store.g, 1);
    }
};

TEST_F(OddRowsTest, the_corpus_stored_as_text_is_loaded_as_stated) {
    for (const CorpusFile& file : Corpus()) {
        Put(dao::EncodeTimeText(file.bytes));
        // Byte 0 is no character of a text: it stands for a blank.
        std::string bytes = file.bytes;
        std::replace(bytes.begin(), bytes.end(), '\0', ' ');
        EXPECT_EQ(Load(), test::RunsOf(test::PlainReading(bytes, 2))) << file.name;
    }
}

TEST_F(OddRowsTest, null_and_numbers_are_empty_days) {
    for (const test::RawValue& value :
         {test::RawValue(), test::RawValue(std::int64_t{0}), test::RawValue(std::int64_t{-7}),
          test::RawValue(3.25), test::RawValue(std::string())}) {
        Put(value);
        EXPECT_EQ(Load(), BarList{});
    }
    Put(std::int64_t{12345678901234}); // fourteen digits are fourteen characters
    EXPECT_EQ(Load(), test::RunsOf(test::PlainReading("12345678901234", 2)));
}

TEST_F(OddRowsTest, a_blob_of_plain_bytes_reads_like_a_text) {
    Put(test::Blob{StartsStops({{36, 68}, {70, 80}})});
    EXPECT_EQ(Load(), (BarList{{132, 164}, {166, 176}}));
    Put(test::Blob{""});
    EXPECT_EQ(Load(), BarList{});
    Put(test::Blob{std::string("\xFF\xFE\x00 \xC3", 5)});
    EXPECT_EQ(Load(), BarList{});
}

TEST_F(OddRowsTest, any_value_is_loaded_without_harm_and_a_save_makes_it_whole) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    const auto corpus = Corpus();
    for (int round = 0; round < 600; ++round) {
        const auto pick =
            static_cast<std::size_t>(random.Whole(0, static_cast<std::int64_t>(corpus.size()) - 1));
        const std::string bytes = round % 3 == 0 ? random.Bytes(30) : random.Mutated(corpus[pick].bytes);
        switch (random.Whole(0, 3)) {
        case 0:
            Put(test::Blob{bytes});
            break;
        case 1:
            Put(bytes);
            break;
        case 2:
            Put(dao::EncodeTimeText(bytes));
            break;
        default:
            Put(static_cast<double>(random.Whole(-100, 100)) * 1e13);
        }
        const BarList loaded = Load();
        if (random.Chance(80)) continue;
        ASSERT_TRUE(SaveWeek(store.g, store.ports(), store.gauge, [] {}));
        const BarList again = Load();
        ASSERT_EQ(again, loaded);
        test::RawFile(store.folder / "TVX.MDB").Run("DELETE FROM [Day Schedule]");
        store.PutDay(Sunday + 1, key, "");
    }
}

} // namespace
} // namespace tvx
