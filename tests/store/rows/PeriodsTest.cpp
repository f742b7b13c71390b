#include "store/rows/Periods.h"

#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::StartsStops;

TEST(DecodePeriods, gives_a_start_and_a_stop_for_each_of_seven_places) {
    const DayPeriods periods = DecodePeriods(StartsStops({{36, 68}, {70, 96}}));
    EXPECT_EQ(periods[0], (Period{36, 68}));
    EXPECT_EQ(periods[1], (Period{70, 96}));
    for (std::size_t p = 2; p < PeriodsPerDay; ++p) EXPECT_FALSE(periods[p].IsUsed());
}

TEST(DecodePeriods, takes_a_blank_start_for_midnight_and_code_128_for_the_midnight_that_ends_the_day) {
    const DayPeriods periods = DecodePeriods("       \x80      ");
    EXPECT_EQ(periods[0], (Period{0, 96}));
    EXPECT_TRUE(periods[0].IsUsed());
}

TEST(DecodePeriods, leaves_reversed_and_impossible_pairs_as_they_stand) {
    std::string bytes = StartsStops({{68, 36}, {40, 40}});
    bytes[2] = '\0';
    bytes[9] = '\xFF';
    const DayPeriods periods = DecodePeriods(bytes);
    EXPECT_EQ(periods[0], (Period{68, 36}));
    EXPECT_EQ(periods[1], (Period{40, 40}));
    EXPECT_EQ(periods[2], (Period{-32, 223}));
    EXPECT_TRUE(periods[0].IsUsed());
}

TEST(DecodePeriods, knows_an_unused_place_by_its_stop_alone) {
    EXPECT_FALSE(DecodePeriods("D             ")[0].IsUsed());
    EXPECT_FALSE(DecodePeriods("D      \x1F      ")[0].IsUsed());
    EXPECT_TRUE(DecodePeriods("       !      ")[0].IsUsed());
}

TEST(DecodePeriods, finds_nothing_in_a_text_that_is_too_short_and_passes_over_what_is_too_much) {
    for (const std::string& bytes : {std::string(), std::string(1, 'd'), std::string(13, 'd')})
        EXPECT_EQ(DecodePeriods(bytes), DayPeriods{});
    EXPECT_EQ(DecodePeriods(StartsStops({{36, 68}}) + "dd"), DecodePeriods(StartsStops({{36, 68}})));
}

TEST(EncodePeriods, fills_the_places_behind_the_last_period_with_blanks) {
    EXPECT_EQ(EncodePeriods(std::vector<Period>{}), std::string(14, ' '));
    EXPECT_EQ(EncodePeriods(std::vector<Period>{{36, 68}}), "D      d      ");
    EXPECT_EQ(EncodePeriods(std::vector<Period>{{0, 96}}), "       \x80      ");
}

TEST(EncodePeriods, cuts_what_stands_behind_the_seventh) {
    std::vector<Period> eight(8, {36, 37});
    EXPECT_EQ(EncodePeriods(eight), "DDDDDDDEEEEEEE");
}

TEST(EncodePeriods, gives_back_the_bytes_of_any_text_of_14) {
    const fs::path folder = fs::path(TVX_SOURCE_DIR) / "tests/corpus/starts-stops";
    int read = 0;
    for (const std::string& name : test::NamesIn(folder)) {
        const std::string bytes = test::ReadFile(folder / name).substr(0, StartsStopsLength);
        if (!name.ends_with(".bin") || bytes.size() < StartsStopsLength) continue;
        EXPECT_EQ(EncodePeriods(DecodePeriods(bytes)), bytes) << name;
        ++read;
    }
    EXPECT_GT(read, 10);
    std::string all;
    for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
    for (std::size_t at = 0; at + StartsStopsLength <= all.size(); ++at) {
        const std::string bytes = all.substr(at, StartsStopsLength);
        EXPECT_EQ(EncodePeriods(DecodePeriods(bytes)), bytes) << at;
    }
}

TEST(DecodeAbsences, gives_four_places_a_day_from_sunday_on) {
    std::string starts(28, ' ');
    std::string stops(28, ' ');
    stops[0] = '@';     // Sunday, slot 1: midnight to 8:00
    starts[27] = 'd';   // Saturday, slot 4
    stops[27] = '\x80'; // to midnight
    starts[4] = 'd';    // Monday, slot 1: reversed
    stops[4] = 'D';
    const WeekAbsences absences = DecodeAbsences(starts, stops);
    EXPECT_EQ(absences[0], (Period{0, 32}));
    EXPECT_EQ(absences[27], (Period{68, 96}));
    EXPECT_EQ(absences[4], (Period{68, 36}));
    EXPECT_FALSE(absences[1].IsUsed());
    EXPECT_EQ(EncodeAbsenceStarts(absences), starts);
    EXPECT_EQ(EncodeAbsenceStops(absences), stops);
}

TEST(DecodeAbsences, reads_starts_that_are_too_short_as_blanks_and_keeps_the_bars) {
    std::string stops(28, ' ');
    stops[0] = '@';
    stops[27] = '\x80';
    for (const std::string& starts : {std::string("dddd"), std::string(27, 'd'), std::string(" ")}) {
        const WeekAbsences absences = DecodeAbsences(starts, stops);
        EXPECT_EQ(absences[0], (Period{0, 32}));
        EXPECT_EQ(absences[27], (Period{0, 96}));
        EXPECT_FALSE(absences[1].IsUsed());
    }
}

TEST(DecodeAbsences, finds_nothing_without_stops_or_without_any_start) {
    const std::string whole(28, 'd');
    EXPECT_EQ(DecodeAbsences(whole, whole.substr(1)), WeekAbsences{});
    EXPECT_EQ(DecodeAbsences(whole, ""), WeekAbsences{});
    EXPECT_EQ(DecodeAbsences("", whole), WeekAbsences{});
    EXPECT_EQ(DecodeAbsences("", ""), WeekAbsences{});
    EXPECT_NE(DecodeAbsences(whole, whole), WeekAbsences{});
}

} // namespace
} // namespace tvx
