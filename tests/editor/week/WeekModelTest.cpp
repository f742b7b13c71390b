#include "editor/week/WeekModel.h"

#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using test::QuarterSet;

class WeekModelTest : public testing::Test {
  protected:
    GlobalState g;
    Week& week = test::WritableWeek(g);

    void SetUp() override { test::MakeRoster(g, 2); }
    void Set(const BarList& bars) { test::SetBars(g, 1, bars); }
    BarList Bars() const { return test::Bars(g, 1); }
    BarList Merged(const BarList& bars) {
        Set(bars);
        MergeBars(week, 1);
        return Bars();
    }
    int Read() { return week.BarCount[1] = ReadWeekGrid(week, 1); }
};

// --- the string of quarters -------------------------------------------------------------------------------

TEST_F(WeekModelTest, an_empty_string_has_769_blanks) {
    ClearWeekGrid(week);
    EXPECT_EQ(week.WeekGrid, std::string(769, ' '));
    PaintWeekGrid(week, 0, 768);
    EXPECT_EQ(week.WeekGrid, std::string(768, 'X') + " ");
    ClearWeekGrid(week);
    EXPECT_EQ(week.WeekGrid, std::string(769, ' '));
}

TEST_F(WeekModelTest, painting_marks_from_the_start_up_to_the_stop) {
    ClearWeekGrid(week);
    PaintWeekGrid(week, 36, 68);
    EXPECT_EQ(week.WeekGrid, std::string(36, ' ') + std::string(32, 'X') + std::string(701, ' '));
}

TEST_F(WeekModelTest, painting_cuts_off_what_lies_outside_the_eight_days) {
    struct Case {
        int start, stop;
        BarList bars;
    };
    const Case cases[] = {{-50, 10, {{0, 10}}}, {760, 900, {{760, 768}}}, {-1, 769, {{0, 768}}}, {-9, -1, {}},
                          {768, 900, {}},       {900, 950, {}},           {10, 10, {}},          {10, 9, {}},
                          {700, 5, {}},         {767, 768, {{767, 768}}}, {0, 1, {{0, 1}}}};
    for (const Case& c : cases) {
        ClearWeekGrid(week);
        PaintWeekGrid(week, c.start, c.stop);
        Read();
        EXPECT_EQ(Bars(), c.bars) << c.start << ".." << c.stop;
        EXPECT_EQ(week.WeekGrid.size(), 769U);
        EXPECT_EQ(week.WeekGrid.back(), ' ');
    }
}

TEST_F(WeekModelTest, reading_gives_the_runs_in_order) {
    ClearWeekGrid(week);
    PaintWeekGrid(week, 700, 768);
    PaintWeekGrid(week, 0, 5);
    PaintWeekGrid(week, 100, 101);
    EXPECT_EQ(ReadWeekGrid(week, 1), 3);
    EXPECT_EQ(week.BarCount[1], 0) << "the count is the caller's";
    week.BarCount[1] = 3;
    EXPECT_EQ(Bars(), (BarList{{0, 5}, {100, 101}, {700, 768}}));
    EXPECT_TRUE(test::Bars(g, 2).empty());
}

TEST_F(WeekModelTest, reading_nothing_empties_what_was_there) {
    Set({{36, 68}, {100, 120}});
    ClearWeekGrid(week);
    EXPECT_EQ(Read(), 0);
    test::ExpectSound(g);
}

TEST_F(WeekModelTest, reading_fewer_bars_than_before_empties_the_slots_behind_them) {
    Set({{36, 68}, {100, 120}, {200, 220}});
    ClearWeekGrid(week);
    PaintWeekGrid(week, 5, 6);
    EXPECT_EQ(Read(), 1);
    test::ExpectSound(g);
}

TEST_F(WeekModelTest, reading_stops_at_the_35th_bar) {
    for (const int marked : {34, 35, 36, 384}) {
        ClearWeekGrid(week);
        BarList all;
        for (int b = 0; b < marked; ++b) {
            PaintWeekGrid(week, 2 * b, 2 * b + 1);
            all.emplace_back(2 * b, 2 * b + 1);
        }
        EXPECT_EQ(Read(), std::min(marked, 35));
        all.resize(static_cast<std::size_t>(std::min(marked, 35)));
        EXPECT_EQ(Bars(), all);
        test::ExpectSound(g);
    }
}

TEST_F(WeekModelTest, building_takes_the_bars_out_of_their_slots) {
    Set({{36, 68}, {60, 100}});
    BuildWeekGrid(week, 1);
    EXPECT_EQ(week.WeekGrid.find('X'), 36U);
    EXPECT_EQ(week.WeekGrid.find(' ', 36), 100U);
    for (int b = 0; b <= BarSlots; ++b) EXPECT_EQ(week.BarStarts[1][b] + week.BarStops[1][b], 0);
}

TEST_F(WeekModelTest, building_forgets_what_the_string_held_before) {
    ClearWeekGrid(week);
    PaintWeekGrid(week, 300, 400);
    Set({{36, 68}});
    BuildWeekGrid(week, 1);
    EXPECT_EQ(week.WeekGrid.find('X', 68), std::string::npos);
}

// --- merging ----------------------------------------------------------------------------------------------

TEST_F(WeekModelTest, bars_that_overlap_or_touch_become_one) {
    EXPECT_EQ(Merged({{36, 68}, {60, 100}}), (BarList{{36, 100}}));
    EXPECT_EQ(Merged({{36, 68}, {68, 100}}), (BarList{{36, 100}}));
    EXPECT_EQ(Merged({{36, 68}, {69, 100}}), (BarList{{36, 68}, {69, 100}}));
    EXPECT_EQ(Merged({{36, 68}, {40, 50}}), (BarList{{36, 68}}));
    EXPECT_EQ(Merged({{100, 120}, {0, 10}, {10, 100}}), (BarList{{0, 120}}));
    EXPECT_EQ(Merged({{90, 96}, {96, 100}}), (BarList{{90, 100}})); // over midnight
}

TEST_F(WeekModelTest, empty_and_turned_bars_vanish) {
    EXPECT_EQ(Merged({{0, 0}, {36, 68}, {70, 70}, {90, 80}}), (BarList{{36, 68}}));
    EXPECT_EQ(Merged({}), BarList{});
    EXPECT_EQ(Merged({{0, 0}}), BarList{});
}

TEST_F(WeekModelTest, merging_covers_the_same_quarters_in_order_and_once) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 5000; ++round) {
        const BarList bars = test::RandomBars(random, 35);
        const BarList merged = Merged(bars);
        ASSERT_EQ(merged, test::RunsOf(test::Covered(bars)));
        test::ExpectSound(g);
        ASSERT_EQ(Merged(merged), merged);
    }
}

// --- days off ---------------------------------------------------------------------------------------------

class DaysOffTest : public WeekModelTest {
  protected:
    BarList Cut(const BarList& bars, const std::vector<int>& daysOff) {
        Set(bars);
        for (auto& day : week.DayOffFlag) day.assign(3, false);
        for (const int day : daysOff) week.DayOffFlag[day][1] = true;
        CutBarsAgainstDaysOff(week, 1);
        test::ExpectSound(g);
        return Bars();
    }
};

TEST_F(DaysOffTest, take_what_lies_within_them) {
    EXPECT_EQ(Cut({{96, 192}}, {2}), BarList{});
    EXPECT_EQ(Cut({{100, 110}, {120, 130}}, {2}), BarList{});
    EXPECT_EQ(Cut({{36, 68}, {100, 110}, {200, 220}}, {2}), (BarList{{36, 68}, {200, 220}}));
    EXPECT_EQ(Cut({{0, 96}}, {1}), BarList{});
    EXPECT_EQ(Cut({{672, 768}}, {8}), BarList{});
}

TEST_F(DaysOffTest, leave_what_lies_before_or_behind_them) {
    EXPECT_EQ(Cut({{36, 96}}, {2}), (BarList{{36, 96}}));
    EXPECT_EQ(Cut({{192, 200}}, {2}), (BarList{{192, 200}}));
    EXPECT_EQ(Cut({{36, 68}}, {}), (BarList{{36, 68}}));
}

TEST_F(DaysOffTest, cut_a_bar_that_reaches_into_them_or_out_of_them) {
    EXPECT_EQ(Cut({{80, 120}}, {2}), (BarList{{80, 96}}));
    EXPECT_EQ(Cut({{80, 192}}, {3}), (BarList{{80, 192}}));
    EXPECT_EQ(Cut({{150, 220}}, {2}), (BarList{{192, 220}}));
    EXPECT_EQ(Cut({{97, 193}}, {2}), (BarList{{192, 193}}));
}

TEST_F(DaysOffTest, take_a_bar_that_covers_them_whole) {
    EXPECT_EQ(Cut({{120, 320}}, {3}), BarList{}); // from day 2 to day 4
    EXPECT_EQ(Cut({{95, 193}}, {2}), BarList{});
    EXPECT_EQ(Cut({{80, 192}}, {2}), BarList{}); // up to the very end of the day
    EXPECT_EQ(Cut({{96, 200}}, {2}), BarList{}); // from its very beginning
    EXPECT_EQ(Cut({{0, 768}}, {5}), BarList{});
}

TEST_F(DaysOffTest, work_one_after_the_other) {
    EXPECT_EQ(Cut({{80, 230}}, {2, 3}), BarList{});
    EXPECT_EQ(Cut({{150, 300}}, {2, 4}), (BarList{{192, 288}}));
    EXPECT_EQ(Cut({{80, 100}, {190, 200}, {400, 420}}, {1, 2, 3, 4, 5, 6, 7, 8}), BarList{});
}

TEST_F(DaysOffTest, are_days_of_the_calendar_whatever_the_cut_off) {
    g.department.DayCutoffQuarters = 24;
    EXPECT_EQ(Cut({{96, 110}, {110, 130}}, {2}), BarList{});
    EXPECT_EQ(Cut({{80, 110}}, {2}), (BarList{{80, 96}}));
}

/// What stays of one bar, told by its place before, in, behind or around the day.
BarList Remaining(int start, int stop, int day) {
    const int low = (day - 1) * 96;
    const int high = day * 96;
    if (stop <= low || start >= high) return {{start, stop}};
    const bool beginsBefore = start < low;
    const bool beginsWithTheDay = start == low;
    const bool endsBehind = stop > high;
    if (beginsBefore && stop < high) return {{start, low}};
    if (!beginsBefore && !beginsWithTheDay && endsBehind) return {{high, stop}};
    return {};
}

TEST_F(DaysOffTest, cut_a_bar_that_begins_or_ends_within_them_and_drop_any_other_on_them) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 5000; ++round) {
        const BarList bars = Merged(test::RandomBars(random, 12));
        std::vector<int> daysOff;
        for (int day = 1; day <= 8; ++day)
            if (random.Chance(30)) daysOff.push_back(day);
        BarList expected = bars;
        for (const int day : daysOff) {
            BarList next;
            for (const auto& [start, stop] : expected)
                for (const auto& rest : Remaining(start, stop, day)) next.push_back(rest);
            expected = next;
        }
        ASSERT_EQ(Cut(bars, daysOff), test::RunsOf(test::Covered(expected)));
        for (const int day : daysOff)
            ASSERT_TRUE((test::Covered(Bars()) & test::Covered({{(day - 1) * 96, day * 96}})).none());
    }
}

} // namespace
} // namespace tvx
