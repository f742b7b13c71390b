#include "editor/lanes/LineMenu.h"

#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;

constexpr int Cutoff = 24; // 6:00

class LineMenuTest : public testing::Test {
  protected:
    GlobalState g;

    void SetUp() override { test::MakeRoster(g, 2); }
    LineMenu Menu() const { return ArrangeLineMenu(g.week, {1, 1}, 0, g.shifts, g.clipboard); }
};

TEST_F(LineMenuTest, the_line_menu_of_a_day_with_a_bar_cuts_copies_and_stores) {
    test::SetBars(g, 1, {{36, 68}});
    g.clipboard.ClipFull = true;
    g.shifts.ShiftCount = 3;
    EXPECT_EQ(Menu(), (LineMenu{true, true, false, true, false, {}}));
    g.shifts.ShiftCount = 19;
    EXPECT_TRUE(Menu().AddToShift);
    for (const int full : {20, 21}) {
        g.shifts.ShiftCount = full;
        EXPECT_FALSE(Menu().AddToShift) << full;
    }
}

TEST_F(LineMenuTest, a_night_that_begins_behind_midnight_is_not_offered_as_a_shift) {
    const auto menu = [this] { return ArrangeLineMenu(g.week, {1, 1}, Cutoff, g.shifts, g.clipboard); };
    test::SetBars(g, 1, {{100, 115}});
    EXPECT_EQ(menu(), (LineMenu{true, true, false, false, false, {}}));
    test::SetBars(g, 1, {{60, 70}, {100, 115}});
    EXPECT_TRUE(menu().AddToShift) << "the bar of the afternoon would be taken";
}

TEST_F(LineMenuTest, the_line_menu_of_a_day_without_bar_pastes) {
    EXPECT_EQ(Menu(), LineMenu{});
    g.clipboard.ClipFull = true;
    EXPECT_EQ(Menu(), (LineMenu{false, false, true, false, false, {}}));
    g.shifts.ShiftCount = 2;
    g.shifts.ShiftNames[1] = "Early";
    g.shifts.ShiftNames[2] = "Late";
    EXPECT_EQ(Menu(), (LineMenu{false, false, true, false, true, {"Early", "Late"}}));
    g.shifts.ShiftCount = 21;
    EXPECT_EQ(Menu().ShiftNaam.size(), 21U);
}

TEST_F(LineMenuTest, a_day_has_a_bar_when_one_begins_on_its_business_day) {
    const auto has = [&](int day, const BarList& bars) {
        test::SetBars(g, 1, bars);
        return DayHasBar(g.week, {1, day}, Cutoff);
    };
    EXPECT_TRUE(has(2, {{120, 130}}));  // from its cut-off on
    EXPECT_TRUE(has(2, {{215, 220}}));  // up to the cut-off of the next
    EXPECT_FALSE(has(2, {{119, 130}})); // came over from the day before
    EXPECT_FALSE(has(2, {{216, 220}}));
    EXPECT_FALSE(has(2, {{20, 300}}));
    EXPECT_FALSE(has(2, {}));
}

} // namespace
} // namespace tvx
