// Taking a shift from a day of the week, and putting one there.
#include "editor/week/DayShifts.h"

#include "editor/week/Totals.h"
#include "support/Bakery.h"
#include "support/Quarters.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using test::Sunday;

class DayShiftsTest : public test::PlannedBakery {
  protected:
    /// Stores bars of Monday under a name.
    void Keep(const std::string& name, const BarList& bars) {
        KeepMonday(bars, [&] { g.shifts.ShiftNames[++g.shifts.ShiftCount] = name; });
    }
};

// ---- taking a day ----

TEST_F(DayShiftsTest, a_day_gives_its_bars_counted_from_its_midnight) {
    test::SetBars(g, 1, {{20, 30}, {96 + 36, 96 + 52}, {96 + 56, 96 + 72}, {200, 220}});
    On(1, 2);
    Take();
    EXPECT_EQ(Stored(1), (BarList{{36, 52}, {56, 72}}));
    EXPECT_EQ(g.shifts.ShiftCount, 0) << "it counts when it has a name";
}

TEST_F(DayShiftsTest, a_bar_over_midnight_keeps_its_length_and_belongs_to_the_day_of_its_start) {
    test::SetBars(g, 1, {{96 + 92, 96 + 100}});
    On(1, 2);
    Take();
    EXPECT_EQ(Stored(1), (BarList{{92, 100}}));
    On(1, 3);
    Take();
    EXPECT_TRUE(Stored(1).empty()) << "and not to the day that it reaches into";
}

TEST_F(DayShiftsTest, the_midnights_bound_a_day_whatever_the_cut_off) {
    g.department.DayCutoffQuarters = 16;
    test::SetBars(g, 1, {{96 + 4, 96 + 12}, {192, 200}});
    On(1, 2);
    Take();
    EXPECT_EQ(Stored(1), (BarList{{4, 12}}));
}

TEST_F(DayShiftsTest, an_abandoned_day_leaves_nothing_behind_in_the_next) {
    test::SetBars(g, 1, {{20, 30}, {40, 50}});
    Take();
    test::SetBars(g, 1, {{60, 70}});
    Take();
    EXPECT_EQ(Stored(1), (BarList{{60, 70}}));
}

TEST_F(DayShiftsTest, a_full_store_takes_no_day) {
    g.shifts.ShiftCount = MostShifts;
    test::SetBars(g, 1, {{20, 30}});
    Take();
    EXPECT_EQ(g.shifts.ShiftBarCount[MostShifts], 0);
}

// ---- pasting ----

TEST_F(DayShiftsTest, a_paste_puts_the_bars_on_the_day_and_brings_the_sums_up_to_date) {
    Keep("Split", {{40, 56}, {64, 80}});
    On(2, 4);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 2), (BarList{{3 * 96 + 40, 3 * 96 + 56}, {3 * 96 + 64, 3 * 96 + 80}}));
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(g.week.DayQuarters[2], 32);
    EXPECT_EQ(g.week.WeekQuarters[2], 32);
    EXPECT_EQ(g.totals.TotalDayQuarters, 32);
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 80);
}

TEST_F(DayShiftsTest, a_paste_leaves_the_daytype_of_the_day) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::WritableWeek(g).DayTypeText[3][1] = "BK";
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(g.week.DayTypeText[3][1], "BK");
}

TEST_F(DayShiftsTest, a_paste_on_a_day_with_time_is_refused) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::SetBars(g, 1, {{192 + 90, 192 + 94}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Occupied);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{192 + 90, 192 + 94}}));
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(DayShiftsTest, time_that_reaches_in_from_the_day_before_occupies_a_day) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::SetBars(g, 1, {{190, 193}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Occupied);
    test::SetBars(g, 1, {{180, 192}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted) << "a bar that ends at midnight does not";
}

TEST_F(DayShiftsTest, the_business_day_is_what_must_be_free) {
    Keep("Early", {{16, 48}});
    g.department.DayCutoffQuarters = 16;
    On(1, 3);
    test::SetBars(g, 1, {{192 + 4, 192 + 12}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted) << "before the cut-off it is still the day before";
    On(2, 3);
    test::SetBars(g, 2, {{288 + 4, 288 + 12}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Occupied) << "up to the cut-off of the next date";
}

TEST_F(DayShiftsTest, a_day_off_takes_no_shift) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::DayOff);
    EXPECT_TRUE(test::Bars(g, 1).empty());
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(DayShiftsTest, a_day_before_a_day_off_takes_none_where_the_business_day_reaches_into_it) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    g.department.DayCutoffQuarters = 4;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::DayOff);
    g.department.DayCutoffQuarters = 0;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
}

TEST_F(DayShiftsTest, what_a_paste_would_put_on_a_day_off_behind_the_day_is_cut_off) {
    Keep("Night", {{88, 104}});
    On(1, 3);
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{192 + 88, 192 + 96}}));
    EXPECT_EQ(g.totals.TotalWeekQuarters, 8);
}

TEST_F(DayShiftsTest, a_paste_by_who_may_not_schedule_changes_nothing) {
    Keep("Early", {{16, 48}});
    g.rights.SchedulingAllowed = false;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::NotPermitted);
    EXPECT_TRUE(test::Bars(g, 1).empty());
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(DayShiftsTest, a_paste_on_the_last_day_reaches_into_the_eighth) {
    Keep("Night", {{92, 100}});
    On(1, 7);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{6 * 96 + 92, 6 * 96 + 100}}));
}

TEST_F(DayShiftsTest, what_lies_beyond_the_eighth_day_is_cut_off) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftBarCount[1] = 2;
    g.shifts.ShiftStarts[1] = {0, 90, 300};
    g.shifts.ShiftStops[1] = {0, 768, 310};
    On(1, 7);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{6 * 96 + 90, 768}}));
}

TEST_F(DayShiftsTest, bars_that_touch_become_one_and_odd_ones_vanish) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftBarCount[1] = 4;
    g.shifts.ShiftStarts[1] = {0, 40, 20, 60, 50};
    g.shifts.ShiftStops[1] = {0, 50, 41, 55, 50};
    On(1, 1);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{20, 50}}));
}

TEST_F(DayShiftsTest, a_paste_that_would_need_more_than_35_bars_changes_nothing) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftBarCount[1] = MostShiftBars;
    for (int k = 1; k <= MostShiftBars; ++k) {
        g.shifts.ShiftStarts[1][k] = 2 * k;
        g.shifts.ShiftStops[1][k] = 2 * k + 1;
    }
    On(1, 7);
    test::SetBars(g, 1, {{10, 20}, {30, 40}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Full);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{10, 20}, {30, 40}}));
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(DayShiftsTest, stored_and_pasted_bars_are_those_of_the_day_they_came_from) {
    store.FillWeeks(Sunday, 1, 11);
    store.OpenWeek(Sunday);
    for (int day = 1; day <= 7; ++day) {
        On(1, day);
        Take();
        const BarList taken = Stored(1);
        if (taken.empty()) continue;
        g.shifts.ShiftCount = 1;
        test::SetBars(g, 2, {});
        On(2, day);
        ASSERT_EQ(PasteShift(g, 1), PasteResult::Pasted);
        On(2, day);
        g.shifts.ShiftCount = 0;
        Take();
        EXPECT_EQ(Stored(1), taken) << day;
    }
}

} // namespace
} // namespace tvx
