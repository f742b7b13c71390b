#include "editor/lanes/BarDrag.h"

#include "editor/lanes/GridView.h"
#include "editor/lanes/LineMenu.h"
#include "editor/week/Refusal.h"
#include "editor/week/Totals.h"
#include "support/OpenGrid.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using test::QuarterSet;

constexpr Twips Width = 120; // of a quarter, in all of these tests
constexpr int Cutoff = 24;   // 6:00, where a test needs one

TEST(SnapToQuarter, goes_to_the_nearest_quarter_and_from_an_exact_half_down) {
    struct Case {
        Twips value, width, snapped;
    };
    const Case cases[] = {{0, 120, 0},         {59, 120, 0},    {60, 120, 0},    {61, 120, 120},
                          {119, 120, 120},     {120, 120, 120}, {180, 120, 120}, {181, 120, 240},
                          {124, 249, 0},       {125, 249, 249}, {373, 249, 249}, {374, 249, 498},
                          {92160, 120, 92160}, {7, 1, 7},       {1, 2, 0}};
    for (const Case& c : cases)
        EXPECT_EQ(SnapToQuarter(c.value, c.width), c.snapped) << c.value << " " << c.width;
    for (Twips value = 0; value < 2000; ++value) {
        const Twips snapped = SnapToQuarter(value, 120);
        ASSERT_EQ(snapped % 120, 0);
        ASSERT_LE(std::abs(snapped - value), 60);
    }
}

class BarDragTest : public testing::Test {
  protected:
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    MainLanes lanes{grid, g.roster, g.cursor};
    BarDrag drag{lanes, g};
    GridChange last;
    using Rows = std::vector<int>;

    void SetUp() override { Make(6, 0); }

    /// People on a grid of a whole day, quarters of 120 twips.
    void Make(int people, int cutoff, int hours = 24) {
        test::MakeRoster(g, people);
        drag.Forget();
        g.cursor.CurrentDay = 1;
        g.department.DayCutoffQuarters = cutoff;
        g.screen = {14190, 16200 - 150, hours};
        test::OpenGrid(grid, g);
        grid.QuarterWidth = Width;
        grid.GridWidth = Width * 4 * hours;
        grid.WeekTwips = Width * 768;
        SumWeek(test::WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
    }
    void GoTo(int day) {
        g.cursor.CurrentDay = day;
        SumDay(test::WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
    }
    void Set(const BarList& bars, int e = 1) { test::SetBars(g, e, bars); }
    BarList Bars(int e = 1) const { return test::Bars(g, e); }

    /// Grid x of a quarter of the day shown, counted from its midnight.
    Twips X(double quarter) const { return static_cast<Twips>(quarter * Width) - grid.FirstQuarter * Width; }
    static Twips Y(int row = 1) { return (row - 1) * 240 + 110; }

    GridChange Press(Twips x, int row = 1, MouseButton button = MouseButton::Left) {
        return last = drag.Press({button, x, Y(row)});
    }
    GridChange Move(Twips x, int row = 1, MouseButton button = MouseButton::Left) {
        return last = drag.Move({button, x, Y(row)});
    }
    GridChange Release(Twips x, int row = 1, MouseButton button = MouseButton::Left) {
        return last = drag.Release({button, x, Y(row)});
    }
    /// A press, a move in steps as a hand makes them, and the release.
    void Drag(Twips from, Twips to, int row = 1) {
        Press(from, row);
        const Twips step = from < to ? 45 : -45;
        for (Twips x = from; std::abs(to - x) > 45; x += step) Move(x, row);
        Move(to, row);
        Release(to, row);
    }
    /// A drag of one jump.
    void Jump(Twips from, Twips to, int row = 1) {
        Press(from, row);
        Move(to, row);
        Release(to, row);
    }
    void ExpectNoGesture() {
        EXPECT_FALSE(drag.Hand().GestureOpen);
        EXPECT_EQ(drag.Hand().MouseState, 0);
        EXPECT_EQ(drag.Hand().DayLeftBar, 0);
        EXPECT_EQ(drag.Hand().DayRightBar, 0);
    }
};

// --- drawing a bar ----------------------------------------------------------------------------------------

TEST_F(BarDragTest, a_drag_on_an_empty_lane_draws_a_bar) {
    Drag(X(36), X(68));
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    EXPECT_EQ(g.week.BarCount[1], 1);
    EXPECT_TRUE(g.week.WeekChanged);
    ExpectNoGesture();
    test::ExpectSound(g);
}

TEST_F(BarDragTest, a_drag_to_the_left_draws_the_same_bar) {
    Drag(X(68), X(36));
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
}

TEST_F(BarDragTest, both_ends_snap_to_the_nearest_quarter) {
    Drag(X(36) + 60, X(68) + 60); // an exact half goes down
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    Set({});
    Drag(X(36) + 61, X(68) + 61);
    EXPECT_EQ(Bars(), (BarList{{37, 69}}));
}

TEST_F(BarDragTest, a_click_on_an_empty_lane_adds_nothing_but_marks_the_week_as_changed) {
    Press(X(40));
    Release(X(40));
    EXPECT_EQ(Bars(), BarList{});
    EXPECT_TRUE(g.week.WeekChanged);
    ExpectNoGesture();
    test::ExpectSound(g);
}

TEST_F(BarDragTest, a_drag_of_less_than_a_quarter_adds_nothing) {
    Drag(X(40), X(41) - 1);
    EXPECT_EQ(Bars(), BarList{});
    Drag(X(40), X(41));
    EXPECT_EQ(Bars(), (BarList{{40, 41}}));
}

TEST_F(BarDragTest, a_bar_goes_to_the_employee_of_its_row) {
    std::swap(g.roster.RowOrder[2], g.roster.RowOrder[5]);
    Drag(X(36), X(68), 2);
    EXPECT_EQ(Bars(5), (BarList{{36, 68}}));
    EXPECT_EQ(Bars(2), BarList{});
    EXPECT_EQ(g.cursor.CurrentRow, 2);
    EXPECT_EQ(g.cursor.CurrentEmployee, 5);
}

TEST_F(BarDragTest, a_bar_goes_to_the_scrolled_row) {
    Make(60, 0); // ten more than there is room for
    g.cursor.TopRow = 3;
    Drag(X(36), X(68), 2);
    EXPECT_EQ(Bars(5), (BarList{{36, 68}}));
}

TEST_F(BarDragTest, a_bar_is_drawn_on_the_day_shown) {
    for (int day = 1; day <= 7; ++day) {
        GoTo(day);
        Drag(X(36), X(68));
    }
    BarList expected;
    for (int day = 0; day < 7; ++day) expected.emplace_back(day * 96 + 36, day * 96 + 68);
    EXPECT_EQ(Bars(), expected);
}

// --- stretching -------------------------------------------------------------------------------------------

TEST_F(BarDragTest, the_ends_of_a_bar_can_be_stretched_both_ways) {
    Set({{36, 68}});
    Drag(X(68), X(76));
    EXPECT_EQ(Bars(), (BarList{{36, 76}}));
    Drag(X(76), X(60));
    EXPECT_EQ(Bars(), (BarList{{36, 60}}));
    Drag(X(36), X(20));
    EXPECT_EQ(Bars(), (BarList{{20, 60}}));
    Drag(X(20), X(30));
    EXPECT_EQ(Bars(), (BarList{{30, 60}}));
    EXPECT_EQ(g.week.BarCount[1], 1);
}

TEST_F(BarDragTest, an_end_is_taken_within_60_twips_of_it) {
    for (const Twips off : {-60, -59, 0, 59, 60}) {
        Set({{36, 68}});
        Drag(X(68) + off, X(76) + off);
        EXPECT_EQ(Bars(), (BarList{{36, 76}})) << off;
        Set({{36, 68}});
        Drag(X(36) + off, X(30) + off);
        EXPECT_EQ(Bars(), (BarList{{30, 68}})) << off;
    }
}

TEST_F(BarDragTest, a_press_61_twips_from_an_end_draws_another_bar_or_moves_this_one) {
    Set({{36, 68}});
    Drag(X(68) + 61, X(80));
    EXPECT_EQ(Bars(), (BarList{{36, 68}, {69, 80}}));
    Set({{36, 68}});
    Drag(X(68) - 61, X(70) - 61);
    EXPECT_EQ(Bars(), (BarList{{38, 70}}));
}

TEST_F(BarDragTest, a_press_between_two_bars_takes_the_lower_slot) {
    Set({{36, 68}, {69, 90}});
    Drag(X(68) + 60, X(66) + 60); // 60 from either
    EXPECT_EQ(Bars(), (BarList{{36, 66}, {69, 90}}));
}

TEST_F(BarDragTest, stretching_over_the_next_bar_makes_one_of_both) {
    Set({{36, 48}, {60, 72}, {80, 84}});
    Drag(X(48), X(66));
    EXPECT_EQ(Bars(), (BarList{{36, 72}, {80, 84}}));
    EXPECT_EQ(g.week.BarCount[1], 2);
    Drag(X(72), X(80)); // touching is enough
    EXPECT_EQ(Bars(), (BarList{{36, 84}}));
}

TEST_F(BarDragTest, an_end_dragged_onto_the_other_deletes_the_bar) {
    Set({{36, 68}, {80, 84}});
    Drag(X(68), X(36));
    EXPECT_EQ(Bars(), (BarList{{80, 84}}));
    EXPECT_EQ(g.week.BarCount[1], 1);
    Set({{36, 68}});
    Drag(X(68), X(36) - 119); // past it, but less than a quarter
    EXPECT_EQ(Bars(), BarList{});
    test::ExpectSound(g);
}

TEST_F(BarDragTest, an_end_dragged_past_the_other_turns_the_bar_over) {
    Set({{36, 68}});
    Drag(X(68), X(20));
    EXPECT_EQ(Bars(), (BarList{{20, 36}}));
    Drag(X(20), X(50));
    EXPECT_EQ(Bars(), (BarList{{36, 50}}));
}

// --- moving -----------------------------------------------------------------------------------------------

TEST_F(BarDragTest, a_press_well_inside_moves_the_bar) {
    Set({{36, 68}});
    Press(X(50));
    EXPECT_EQ(drag.Hand().MouseState, 2);
    EXPECT_TRUE(last.pointer);
    EXPECT_EQ(last.shape, Pointer::SizeWestEast);
    Move(X(54));
    Release(X(54));
    EXPECT_EQ(Bars(), (BarList{{40, 72}}));
    Drag(X(50), X(30));
    EXPECT_EQ(Bars(), (BarList{{20, 52}}));
}

TEST_F(BarDragTest, a_bar_moved_onto_another_makes_one_of_both) {
    Set({{36, 44}, {60, 72}});
    Drag(X(40), X(60));
    EXPECT_EQ(Bars(), (BarList{{56, 72}}));
}

TEST_F(BarDragTest, a_bar_moved_and_put_back_is_where_it_was) {
    Set({{36, 68}});
    const std::string sums = test::SumsText(g);
    Press(X(50));
    Move(X(70));
    Move(X(50));
    Release(X(50));
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    EXPECT_FALSE(last.week.figures);
    EXPECT_EQ(test::SumsText(g), sums);
}

TEST_F(BarDragTest, a_bar_may_be_moved_out_of_the_picture_and_is_clipped_to_the_week) {
    Set({{4, 12}});
    Drag(X(8), X(2));
    EXPECT_EQ(Bars(), (BarList{{0, 6}}));
    GoTo(7);
    Set({{660, 672}});
    Drag(X(86), X(95));
    EXPECT_EQ(Bars(), (BarList{{669, 681}})) << "the eighth day takes what goes over midnight";
}

TEST_F(BarDragTest, a_bar_moved_beyond_the_end_of_the_week_is_clipped_there) {
    GoTo(7);
    Set({{600, 668}});
    Jump(X(40), X(160)); // 120 quarters to the right, outside the picture
    EXPECT_EQ(Bars(), (BarList{{720, 768}}));
    Set({{600, 668}});
    Jump(X(40), X(300));
    EXPECT_EQ(Bars(), BarList{}) << "nothing of it is left in the week";
}

TEST_F(BarDragTest, the_pointer_is_a_cross_while_an_end_is_held) {
    Set({{36, 68}});
    Press(X(68));
    EXPECT_EQ(last.shape, Pointer::Cross);
    Release(X(68));
    EXPECT_TRUE(last.pointer);
    EXPECT_EQ(last.shape, Pointer::Default);
    Press(X(10));
    EXPECT_EQ(last.shape, Pointer::Cross);
    Release(X(10));
}

TEST_F(BarDragTest, only_the_left_button_stretches) {
    Press(X(36));
    for (const MouseButton button : {MouseButton::Right, MouseButton::None}) Move(X(60), 1, button);
    Release(X(60));
    EXPECT_EQ(Bars(), BarList{});
}

TEST_F(BarDragTest, a_narrow_bar_is_taken_by_its_left_end_first) {
    Set({{40, 41}}); // one quarter: every place is within 60 twips of an end
    Drag(X(40.5), X(36.5));
    EXPECT_EQ(Bars(), (BarList{{36, 41}}));
}

// --- the edges of the picture -----------------------------------------------------------------------------

TEST_F(BarDragTest, a_stretch_that_leaves_the_picture_ends_at_its_edge) {
    Press(X(90));
    Move(X(94));
    Move(grid.GridWidth + 200);
    EXPECT_EQ(drag.Hand().MouseState, 0);
    EXPECT_EQ(last.shape, Pointer::Default);
    Move(X(70)); // comes back: the drag is over
    Release(X(70));
    EXPECT_EQ(Bars(), (BarList{{90, 96}}));

    Set({{36, 68}});
    Press(X(36));
    Move(-300);
    EXPECT_EQ(drag.Hand().MouseState, 0);
    Release(-300);
    EXPECT_EQ(Bars(), (BarList{{0, 68}}));
}

TEST_F(BarDragTest, the_edge_itself_still_belongs_to_the_picture) {
    Press(X(90));
    Move(grid.GridWidth);
    EXPECT_EQ(drag.Hand().MouseState, 1);
    Move(X(92));
    Release(X(92));
    EXPECT_EQ(Bars(), (BarList{{90, 92}}));
    Press(X(10));
    Move(0);
    EXPECT_EQ(drag.Hand().MouseState, 1);
    Move(X(5));
    Release(X(5));
    EXPECT_EQ(Bars().front(), (std::pair{5, 10}));
}

TEST_F(BarDragTest, nothing_can_lie_before_the_cut_off_of_the_first_day) {
    Make(2, Cutoff);
    Drag(X(30), X(24) - 500);
    EXPECT_EQ(Bars(), (BarList{{24, 30}}));
    Set({{30, 40}});
    Drag(X(35), X(25));
    EXPECT_EQ(Bars(), (BarList{{24, 30}})) << "what was pushed over the beginning is gone";
    Set({{26, 40}});
    Jump(X(35), X(24) - 15 * Width);
    EXPECT_EQ(Bars(), BarList{});
}

TEST_F(BarDragTest, a_bar_of_the_last_day_may_run_to_its_cut_off_in_the_eighth) {
    Make(2, Cutoff);
    GoTo(7);
    Drag(X(90), X(120));
    EXPECT_EQ(Bars(), (BarList{{666, 696}}));
    EXPECT_EQ(g.week.WeekQuarters[1], 30);
    EXPECT_EQ(g.week.DayQuarters[1], 30);
}

TEST_F(BarDragTest, a_bar_runs_over_midnight_into_a_day_that_is_no_day_off) {
    Make(2, Cutoff);
    GoTo(3);
    Drag(X(80), X(110));
    EXPECT_EQ(Bars(), (BarList{{272, 302}}));
}

// --- presses that are refused -----------------------------------------------------------------------------

TEST_F(BarDragTest, a_press_outside_the_picture_does_nothing) {
    Set({{0, 768}});
    const auto outside = [&](Twips x, Twips y) {
        test::WritableWeek(g).WeekChanged = false;
        const GridChange pressed = drag.Press({MouseButton::Left, x, y});
        EXPECT_FALSE(!pressed.rows.empty() || pressed.focusRow || pressed.notPermitted) << x << " " << y;
        drag.Move({MouseButton::Left, X(50), Y()});
        drag.Release({MouseButton::Left, X(50), Y()});
        EXPECT_FALSE(g.week.WeekChanged) << x << " " << y;
        EXPECT_EQ(Bars(), (BarList{{0, 768}})) << x << " " << y;
    };
    outside(0, Y());
    outside(-1, Y());
    outside(grid.GridWidth, Y());
    outside(X(40), 0);
    outside(X(40), -5);
    outside(X(40), grid.GridHeight);
    outside(X(40), grid.VisibleRows * 240 + 5); // the line under the last row
}

TEST_F(BarDragTest, a_press_of_who_may_not_schedule_is_refused) {
    Set({{36, 68}});
    g.rights.SchedulingAllowed = false;
    for (const MouseButton button : {MouseButton::Left, MouseButton::Right}) {
        EXPECT_TRUE(Press(X(50), 1, button).notPermitted);
        Move(X(60), 1, button);
        Release(X(60), 1, button);
    }
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    EXPECT_FALSE(g.week.WeekChanged);
    test::ScriptedPrompt prompt;
    prompt.Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                  "Scheduling not permitted");
    TellSchedulingNotPermitted(prompt);
}

TEST_F(BarDragTest, a_refused_press_after_another_gesture_harms_no_bar) {
    Set({{36, 68}, {80, 90}});
    Drag(X(85), X(86)); // bar 2 was in hand
    test::WritableWeek(g).DayOffFlag[1][1] = true;
    Press(X(10));
    Move(X(30));
    Release(X(30));
    EXPECT_EQ(Bars(), (BarList{{36, 68}, {81, 91}}));
}

TEST_F(BarDragTest, bars_beyond_the_33rd_cannot_be_reached) {
    BarList bars;
    for (int b = 0; b < 35; ++b) bars.emplace_back(2 * b, 2 * b + 1);
    grid.QuarterWidth = 240; // so that neighbours are told apart
    grid.GridWidth = 240 * 96;
    grid.WeekTwips = 240 * 768;
    Set(bars);
    Jump(67 * 240, 90 * 240); // the 34th begins at 66
    EXPECT_EQ(Bars(), bars);
    EXPECT_TRUE(g.week.WeekChanged);
    ExpectNoGesture();
    Jump(65 * 240, 65 * 240 + 100); // the 33rd
    EXPECT_EQ(Bars(), bars);
    Jump(64 * 240, 64 * 240 - 400); // its left end
    EXPECT_EQ(g.week.BarCount[1], 34);
    test::ExpectSound(g);
}

TEST_F(BarDragTest, a_33rd_and_a_34th_bar_can_be_drawn_and_no_more) {
    BarList bars;
    for (int b = 0; b < 33; ++b) bars.emplace_back(2 * b, 2 * b + 1);
    Set(bars);
    Drag(X(80), X(84));
    EXPECT_EQ(g.week.BarCount[1], 34);
    Drag(X(88), X(92));
    EXPECT_EQ(g.week.BarCount[1], 34);
    test::ExpectSound(g);
}

// --- days off ---------------------------------------------------------------------------------------------

TEST_F(BarDragTest, a_day_off_without_cut_off_takes_no_press) {
    Set({{36, 68}});
    test::WritableWeek(g).DayOffFlag[1][1] = true;
    Drag(X(50), X(60));
    Drag(X(80), X(90));
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    Drag(X(80), X(90), 2);
    EXPECT_EQ(Bars(2), (BarList{{80, 90}})) << "it is one person's day off";
    test::WritableWeek(g).DayOffFlag[1][1] = false;
    Drag(X(80), X(90));
    EXPECT_EQ(Bars(), (BarList{{36, 68}, {80, 90}}));
}

class DayOffDragTest : public BarDragTest {
  protected:
    /// Midnight lies at quarter 96 of a day that is shown from 6:00 to 6:00.
    void SetUp() override {
        Make(2, Cutoff);
        GoTo(3);
    }
    static std::pair<int, int> At(int start, int stop) { return {192 + start, 192 + stop}; }
};

TEST_F(DayOffDragTest, a_press_is_refused_on_the_side_of_the_day_off_alone) {
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    Drag(X(40), X(60));
    Drag(X(96) - 1, X(90));
    EXPECT_EQ(Bars(), BarList{});
    Drag(X(100), X(110));
    EXPECT_EQ(Bars(), (BarList{At(100, 110)}));
    Set({});
    test::WritableWeek(g).DayOffFlag[3][1] = false;
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    Drag(X(100), X(110));
    Drag(X(96) + 1, X(110));
    EXPECT_EQ(Bars(), BarList{});
    Drag(X(40), X(60));
    EXPECT_EQ(Bars(), (BarList{At(40, 60)}));
}

TEST_F(DayOffDragTest, a_press_on_the_midnight_line_itself_passes) {
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    Drag(X(96), X(104));
    EXPECT_EQ(Bars(), (BarList{At(96, 104)}));
}

TEST_F(DayOffDragTest, a_bar_cannot_be_stretched_into_the_next_day_off) {
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    for (const bool jump : {false, true}) {
        Set({});
        if (jump)
            Jump(X(80), X(115));
        else
            Drag(X(80), X(115));
        EXPECT_EQ(Bars(), (BarList{At(80, 96)})) << jump;
    }
    Press(X(80));
    Move(X(97));
    EXPECT_EQ(drag.Hand().MouseState, 0);
    EXPECT_EQ(last.shape, Pointer::Default);
    Release(X(97));
}

TEST_F(DayOffDragTest, a_bar_cannot_be_stretched_back_into_the_day_off) {
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    Set({At(100, 110)});
    Drag(X(100), X(60));
    EXPECT_EQ(Bars(), (BarList{At(96, 110)}));
    Set({At(100, 110)});
    Jump(X(100), X(60));
    EXPECT_EQ(Bars(), (BarList{At(96, 110)}));
}

TEST_F(DayOffDragTest, a_bar_cannot_be_moved_into_the_next_day_off) {
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    Set({At(80, 90)});
    Drag(X(85), X(110));
    EXPECT_EQ(Bars(), (BarList{At(86, 96)}));
    EXPECT_EQ(drag.Hand().MouseState, 0);
}

TEST_F(DayOffDragTest, a_bar_cannot_be_moved_back_into_the_day_off) {
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    Set({At(100, 110)});
    Drag(X(105), X(60));
    EXPECT_EQ(Bars(), (BarList{At(96, 106)}));
}

TEST_F(DayOffDragTest, a_jump_leaves_a_moved_bar_before_the_edge) {
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    Set({At(80, 90)});
    Jump(X(85), X(88)); // stays clear of it
    EXPECT_EQ(Bars(), (BarList{At(83, 93)}));
    Jump(X(88), X(94)); // reaches over it with its right end: that end is held there
    EXPECT_EQ(Bars(), (BarList{At(89, 96)}));
    Set({At(80, 90)});
    Jump(X(85), X(118)); // would lie on the day off as a whole
    EXPECT_EQ(Bars(), (BarList{At(86, 96)}));

    test::WritableWeek(g).DayOffFlag[4][1] = false;
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    Set({At(108, 116)});
    Jump(X(112), X(40));
    EXPECT_EQ(Bars(), (BarList{At(96, 104)}));
}

TEST_F(DayOffDragTest, a_bar_between_two_days_off_stays_between_them) {
    test::WritableWeek(g).DayOffFlag[3][1] = test::WritableWeek(g).DayOffFlag[4][1] = true;
    Set({At(90, 100)});
    Drag(X(92), X(94));
    Drag(X(98), X(97));
    EXPECT_EQ(Bars(), (BarList{At(90, 100)})) << "both sides refuse the press";
}

/// Screens on which a quarter is narrower than the reach of a grip around an end.
class NarrowQuarterTest : public DayOffDragTest {
  protected:
    void OnScreen(int pixels, int cutoff) {
        const Twips width = pixels * 15;
        g.department.DayCutoffQuarters = cutoff;
        g.screen = {width, 16200 - 150, std::min(24, (width - 2400) / 480)};
        test::OpenGrid(grid, g);
        ScrollToQuarter(grid, cutoff, grid.MaxFirstQuarter);
        ASSERT_LE(grid.QuarterWidth, 120);
    }
    Twips PlaceOf(int quarter) const { return (quarter - grid.FirstQuarter) * grid.QuarterWidth; }
    /// Draws an end that was gripped up to 60 twips beside it until the mouse just does not touch the edge.
    BarList DrawnToTheEdge(std::pair<int, int> bar, int from, Twips beside) {
        Set({bar});
        const Twips inside = from < 96 ? -1 : 1; // of the edge
        Drag(PlaceOf(from) + beside, PlaceOf(96) + inside);
        return Bars();
    }
};

TEST_F(NarrowQuarterTest, an_end_stays_on_its_side_of_a_day_off_wherever_it_was_gripped) {
    for (const int pixels : {800, 928})
        for (const Twips beside : {-60, -30, 0, 30, 60}) {
            OnScreen(pixels, Cutoff);
            test::WritableWeek(g).DayOffFlag[3][1] = false;
            test::WritableWeek(g).DayOffFlag[4][1] = true;
            for (const auto& [start, stop] : DrawnToTheEdge(At(80, 90), 90, beside))
                EXPECT_LE(stop, 192 + 96) << pixels << " " << beside;
            test::WritableWeek(g).DayOffFlag[3][1] = true;
            test::WritableWeek(g).DayOffFlag[4][1] = false;
            for (const auto& [start, stop] : DrawnToTheEdge(At(102, 110), 102, beside))
                EXPECT_GE(start, 192 + 96) << pixels << " " << beside;
        }
}

// --- the right button -------------------------------------------------------------------------------------

TEST_F(BarDragTest, a_right_press_asks_for_the_line_menu_and_changes_no_bar) {
    Set({{36, 68}});
    EXPECT_TRUE(Press(X(50), 1, MouseButton::Right).lineMenu);
    EXPECT_TRUE(last.focusRow);
    EXPECT_EQ(g.cursor.CurrentRow, 1);
    EXPECT_TRUE(g.week.WeekChanged);
    Move(X(60), 1, MouseButton::Right);
    Release(X(60), 1, MouseButton::Right);
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    ExpectNoGesture();
}

TEST_F(BarDragTest, a_right_press_while_the_left_button_is_down_is_ignored) {
    Set({{36, 68}});
    Press(X(50));
    Move(X(54));
    EXPECT_FALSE(Press(X(20), 2, MouseButton::Right).lineMenu);
    EXPECT_EQ(g.cursor.CurrentRow, 1);
    Release(X(20), 2, MouseButton::Right); // commits nothing
    EXPECT_TRUE(drag.Hand().GestureOpen);
    Move(X(58));
    Release(X(58));
    EXPECT_EQ(Bars(), (BarList{{44, 76}}));
}

TEST_F(BarDragTest, the_right_button_works_again_after_a_refused_left_press_whose_release_was_lost) {
    drag.Press({MouseButton::Left, -5, Y()});
    drag.Settle(); // the window lost the mouse
    EXPECT_TRUE(Press(X(50), 1, MouseButton::Right).lineMenu);
}

// --- what a window shows ----------------------------------------------------------------------------------

TEST_F(BarDragTest, a_press_gives_the_daytype_box_of_the_row_the_focus_but_not_with_all_departments_shown) {
    EXPECT_TRUE(Press(X(50), 2).focusRow);
    EXPECT_TRUE(last.hideMarker);
    Release(X(50), 2);
    EXPECT_TRUE(last.focusRow);
    EXPECT_TRUE(last.markerMoved) << "the ruler's marker is back where the mouse is";
    EXPECT_EQ(last.markerX, X(50));
    EXPECT_EQ(last.rows, Rows{2});
    g.roster.AllDepartmentsMode = true;
    EXPECT_FALSE(Press(X(50), 2).focusRow);
    EXPECT_FALSE(Release(X(50), 2).focusRow);
}

TEST_F(BarDragTest, only_the_ghost_changes_while_a_bar_is_dragged) {
    Set({{36, 68}});
    Press(X(50));
    const std::string sums = test::SumsText(g);
    Move(X(54));
    EXPECT_EQ(last.rows, Rows{1});
    EXPECT_FALSE(!last.week.employees.empty() || last.week.figures || last.focusRow);
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    EXPECT_EQ(test::SumsText(g), sums);
    Release(X(54));
}

TEST_F(BarDragTest, the_figures_are_due_only_when_one_has_changed) {
    Set({{36, 68}});
    Drag(X(50), X(54));
    EXPECT_FALSE(last.week.figures) << "moved within the day";
    Drag(X(72), X(76));
    EXPECT_TRUE(last.week.figures) << "an hour more";
}

TEST_F(BarDragTest, the_idle_mouse_marks_the_row_and_the_place_on_the_ruler) {
    const GridChange over = drag.Move({MouseButton::None, X(50), Y(2)});
    EXPECT_EQ(over.hoverRow, 2);
    EXPECT_TRUE(over.markerMoved);
    EXPECT_EQ(over.markerX, X(50));
    EXPECT_FALSE(!over.rows.empty() || over.pointer);
    EXPECT_EQ(drag.Move({MouseButton::None, X(50), grid.VisibleRows * 240 + 3}).hoverRow, 0);
    EXPECT_EQ(drag.Move({MouseButton::None, X(50), -3}).hoverRow, 0);
}

TEST_F(BarDragTest, a_gesture_whose_release_never_came_is_committed_by_the_next_press) {
    Set({{36, 68}});
    Press(X(50));
    Move(X(54));
    Press(X(80), 2);
    EXPECT_EQ(Bars(), (BarList{{40, 72}}));
    Release(X(80), 2);
    EXPECT_EQ(Bars(), (BarList{{40, 72}}));
    test::ExpectSound(g);
}

TEST_F(BarDragTest, settling_commits_an_open_gesture_once) {
    Set({{36, 68}});
    Press(X(50));
    Move(X(54));
    const GridChange settled = drag.Settle();
    EXPECT_EQ(settled.rows, Rows{1});
    EXPECT_EQ(settled.week.employees, Rows{1});
    EXPECT_EQ(Bars(), (BarList{{40, 72}}));
    EXPECT_TRUE(drag.Settle().rows.empty());
    Move(X(90));
    Release(X(90)); // of the same press
    EXPECT_EQ(Bars(), (BarList{{40, 72}}));
}

TEST_F(BarDragTest, a_bar_in_hand_stays_with_its_employee_when_another_row_gets_the_focus) {
    Set({{36, 68}});
    Set({{10, 20}}, 2);
    Press(X(50));
    g.cursor.CurrentRow = 2; // an arrow key moved the focus
    g.cursor.CurrentEmployee = 2;
    Move(X(54));
    g.cursor.CurrentRow = 2;
    g.cursor.CurrentEmployee = 2;
    Release(X(54));
    EXPECT_EQ(Bars(1), (BarList{{40, 72}}));
    EXPECT_EQ(Bars(2), (BarList{{10, 20}}));
    EXPECT_EQ(g.cursor.CurrentRow, 1);
    EXPECT_EQ(g.cursor.CurrentEmployee, 1);
    EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g));
}

TEST_F(BarDragTest, a_bar_in_hand_stays_with_its_employee_when_the_rows_scroll_or_are_sorted) {
    Make(60, 0);
    Set({{36, 68}});
    Press(X(50));
    g.cursor.TopRow = 3;
    Move(X(54));
    Release(X(54));
    EXPECT_EQ(Bars(1), (BarList{{40, 72}}));
    for (int e = 2; e <= 60; ++e) EXPECT_EQ(Bars(e), BarList{});
    g.cursor.TopRow = 0;
    Press(X(50));
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[6]);
    Release(X(50));
    EXPECT_EQ(Bars(1), (BarList{{40, 72}}));
    EXPECT_EQ(g.cursor.CurrentRow, 6);
    EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g));
}

// --- sums by difference -----------------------------------------------------------------------------------

TEST_F(BarDragTest, an_edit_corrects_the_sums_by_the_difference) {
    Set({{36, 68}});
    Set({{36, 70}}, 2);
    Set({{40, 44}}, 3); // a salary
    Drag(X(68), X(72));
    EXPECT_EQ(g.week.DayQuarters[1], 36);
    EXPECT_EQ(g.totals.WageDayQuarters, 70);
    EXPECT_EQ(g.totals.SalaryDayQuarters, 4);
    EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g));
    Drag(X(44), X(48), 3);
    EXPECT_EQ(g.totals.SalaryDayQuarters, 8);
    EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g));
}

// --- gestures without an end ------------------------------------------------------------------------------

TEST_F(BarDragTest, a_forgotten_gesture_leaves_its_bar_where_it_was) {
    Set({{36, 68}});
    Press(X(50));
    Move(X(54));
    drag.Forget();
    Move(X(60));
    EXPECT_TRUE(Release(X(60)).rows.empty());
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    ExpectNoGesture();
}

TEST_F(BarDragTest, a_press_tells_of_the_gesture_that_it_ends) {
    Set({{36, 68}});
    Press(X(68));
    Move(X(72));
    Press(X(80), 2);
    EXPECT_EQ(last.rows, (Rows{1, 2}));
    EXPECT_EQ(last.week.employees, Rows{1});
    EXPECT_TRUE(last.week.figures);
    Release(X(80), 2);
}

TEST_F(BarDragTest, a_bar_in_hand_can_be_taken_back) {
    Set({{36, 68}});
    Drag(X(68), X(72));
    WeekEdit(g).Undo();
    EXPECT_EQ(Bars(), (BarList{{36, 68}}));
    WeekEdit(g).Redo();
    EXPECT_EQ(Bars(), (BarList{{36, 72}}));
}

// --- any gestures -----------------------------------------------------------------------------------------

/// What must hold after every event: the bars in memory and the one in hand.
class GestureTest : public BarDragTest {
  protected:
    test::Random random;

    int Pick(int low, int high) { return static_cast<int>(random.Whole(low, high)); }
    Twips AnyX() {
        if (random.Chance(5)) return Pick(-200000, 200000);
        return random.Chance(10) ? Pick(-500, grid.GridWidth + 500) : Pick(1, grid.GridWidth);
    }
    Twips AnyY() { return random.Chance(5) ? Pick(-5000, 20000) : Pick(1, grid.GridHeight); }
    MouseButton AnyButton() { return Pick(1, 100) <= 85 ? MouseButton::Left : MouseButton::Right; }
    void Start() {
        Make(Pick(1, 8), Pick(0, 32), Pick(6, 24));
        g.rights.SchedulingAllowed = !random.Chance(5);
        g.roster.AllDepartmentsMode = random.Chance(10);
        GoTo(Pick(1, 7));
        const int cutoff = g.department.DayCutoffQuarters;
        ScrollToQuarter(grid, cutoff, cutoff + 4 * Pick(0, 18));
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
            Set(test::RunsOf(test::Covered(test::RandomBars(random, Pick(0, 40)))), e);
            for (int day = 1; day <= 8; ++day) test::WritableWeek(g).DayOffFlag[day][e] = random.Chance(15);
        }
        for (int swaps = Pick(0, 5); swaps > 0; --swaps)
            std::swap(g.roster.RowOrder[Pick(1, g.roster.EmployeeCount)],
                      g.roster.RowOrder[Pick(1, g.roster.EmployeeCount)]);
    }
    /// One event of any kind. True when it was a press.
    bool Event() {
        switch (Pick(1, 20)) {
        case 1:
        case 2:
        case 3:
            drag.Press({AnyButton(), AnyX(), AnyY()});
            return true;
        case 4:
        case 5:
        case 6:
            drag.Release({AnyButton(), AnyX(), AnyY()});
            break;
        case 7:
            drag.Move({MouseButton::None, AnyX(), AnyY()});
            break;
        case 8:
            if (random.Chance(20)) drag.Settle();
            break;
        case 9:
            if (random.Chance(20))
                g.cursor.CurrentRow = Pick(1, grid.VisibleRows); // the focus went elsewhere
            break;
        default:
            drag.Move({AnyButton(), AnyX(), AnyY()});
        }
        return false;
    }
    std::vector<QuarterSet> Standing() {
        std::vector<QuarterSet> sets{QuarterSet()};
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) sets.push_back(test::Covered(Bars(e)));
        return sets;
    }
    /// What a gesture under way may take from its employee: the bar in hand, and what lies on days off.
    QuarterSet MayGo() const {
        const int e = drag.Lane().employee;
        BarList going;
        for (int day = 1; day <= 8; ++day)
            if (g.week.DayOffFlag[day][e]) going.emplace_back((day - 1) * 96, day * 96);
        if (const int b = drag.Hand().DragBar; b != 0)
            going.push_back(Bars(e)[static_cast<std::size_t>(b) - 1]);
        return test::Covered(going);
    }
};

TEST_F(GestureTest, of_any_kind_leave_sound_bars_and_true_sums) {
    SCOPED_TRACE(random.Trace());
    for (int week = 0; week < 400; ++week) {
        Start();
        for (int event = 0; event < 500; ++event) {
            const bool wasOpen = drag.Hand().GestureOpen;
            Event();
            ASSERT_EQ(test::Unsound(g), "") << "week " << week << ", event " << event;
            if (!wasOpen || drag.Hand().GestureOpen) continue;
            ASSERT_EQ(test::SumsText(g), test::SumsFromScratch(g)) << "week " << week << ", event " << event;
        }
        drag.Settle();
        ASSERT_EQ(test::Unsound(g), "");
        ASSERT_EQ(test::SumsText(g), test::SumsFromScratch(g));
    }
}

TEST_F(GestureTest, lose_no_other_bar) {
    SCOPED_TRACE(random.Trace());
    for (int week = 0; week < 300; ++week) {
        Start();
        for (int event = 0; event < 300; ++event) {
            const std::vector<QuarterSet> before = Standing();
            const int committed = drag.Hand().GestureOpen ? drag.Lane().employee : 0;
            const QuarterSet mayGo = committed != 0 ? MayGo() : QuarterSet();
            Event();
            const std::vector<QuarterSet> now = Standing();
            for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
                const QuarterSet gone = before[e] & ~now[e];
                if (e == committed)
                    ASSERT_TRUE((gone & ~mayGo).none()) << "week " << week << ", event " << event;
                else
                    ASSERT_EQ(now[e], before[e]) << "week " << week << ", event " << event;
            }
        }
    }
}

} // namespace
} // namespace tvx
