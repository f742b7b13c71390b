// The two kinds of lanes: an employee a row, and the seven days of one employee.
#include "editor/lanes/DaytypeBox.h"
#include "editor/lanes/LaneView.h"
#include "support/OpenGrid.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using Rows = std::vector<int>;

constexpr Twips Width = 100; // of a quarter

class MainLanesTest : public testing::Test {
  protected:
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    MainLanes lanes{grid, g.roster, g.cursor};

    void SetUp() override {
        test::MakeRoster(g, 60); // ten more than there is room for
        test::OpenGrid(grid, g);
        g.cursor.CurrentDay = 3;
    }
};

TEST_F(MainLanesTest, show_the_current_day_of_an_employee_each) {
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[7]);
    EXPECT_EQ(lanes.At(1).employee, 7);
    EXPECT_EQ(lanes.At(1).day, 3);
    EXPECT_EQ(lanes.RowOf({7, 3}), 1);
    EXPECT_EQ(lanes.RowOf({7, 4}), 0) << "another day";
    EXPECT_EQ(lanes.RowsOf(7), Rows{1});
    EXPECT_EQ(lanes.RowsOf(60), Rows{}) << "not visible";
}

TEST_F(MainLanesTest, keep_the_row_of_who_is_scrolled_away) {
    lanes.MakeCurrent(lanes.At(4));
    EXPECT_EQ(g.cursor.CurrentEmployee, 4);
    EXPECT_EQ(g.cursor.CurrentRow, 4);
    g.cursor.TopRow = 9;
    lanes.MakeCurrent({4, 3});
    EXPECT_EQ(g.cursor.CurrentRow, 4);
    lanes.MakeCurrent({20, 3});
    EXPECT_EQ(g.cursor.CurrentEmployee, 20);
    EXPECT_EQ(g.cursor.CurrentRow, 11);
}

TEST_F(MainLanesTest, have_boxes_for_daytypes_in_one_department_alone) {
    EXPECT_TRUE(lanes.HaveDaytypes());
    g.roster.AllDepartmentsMode = true;
    EXPECT_FALSE(lanes.HaveDaytypes());
}

TEST_F(MainLanesTest, know_the_row_at_a_place) {
    EXPECT_EQ(lanes.RowAt(-1), 0);
    EXPECT_EQ(lanes.RowAt(0), 1);
    EXPECT_EQ(lanes.RowAt(239), 1);
    EXPECT_EQ(lanes.RowAt(240), 2);
    EXPECT_EQ(lanes.RowAt(50 * 240), 0);
}

TEST_F(MainLanesTest, begin_at_the_quarter_to_which_another_editor_was_scrolled_and_share_nothing_else) {
    Grid other{g.cursor.FirstQuarter};
    g.screen.VisibleHours = 12;
    test::OpenGrid(grid, g);
    SetGridGeometry(other, g.screen, 7, 0, 0);
    other.HeadcountShown = true;
    ScrollToQuarter(other, 0, 20);
    EXPECT_EQ(lanes.LeftEdge(1), 20);
    EXPECT_EQ(lanes.Count(), 50);
    EXPECT_FALSE(grid.HeadcountShown);
}

/// The second of three employees, day by day, on quarters of 100 twips.
class WeekLanesTest : public testing::Test {
  protected:
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    WeekLanes lanes{grid, g};
    BarDrag drag{lanes, g};
    LaneView view{lanes, drag, g};
    DaytypeBox boxes{lanes, g};
    GridChange last;

    void SetUp() override { Make(0); }
    void Make(int cutoff) {
        test::MakeRoster(g, 3);
        g.department.DayCutoffQuarters = cutoff;
        g.screen.VisibleHours = 24;
        SetGridGeometry(grid, g.screen, 7, cutoff, 0);
        grid.QuarterWidth = Width;
        grid.GridWidth = Width * 96;
        grid.WeekTwips = Width * 768;
        g.cursor.CurrentEmployee = 2;
        ShowDay(1);
    }
    void ShowDay(int day) { WeekEdit(g).ShowDay(day); }
    void Set(const BarList& bars) { test::SetBars(g, 2, bars); }
    BarList Bars() const { return test::Bars(g, 2); }
    Twips X(int quarter) const { return (quarter - grid.FirstQuarter) * Width; }
    GridMouse At(int day, int quarter, MouseButton button = MouseButton::Left) const {
        return {button, X(quarter), (day - 1) * 240 + 110};
    }
    void Drag(int day, int from, int to) {
        drag.Press(At(day, from));
        const int step = from < to ? 1 : -1;
        for (int quarter = from; quarter != to; quarter += step) drag.Move(At(day, quarter + step));
        last = drag.Release(At(day, to));
    }
    /// The rows on which something of the bar in hand is seen, "1:3600-6800 ".
    std::string Ghosts() const {
        std::string text;
        for (int row = 1; row <= 7; ++row)
            if (const auto ghost = view.DrawDragBar(row))
                text += std::to_string(row) + ":" + std::to_string(ghost->box.left) + "-" +
                        std::to_string(ghost->box.right) + " ";
        return text;
    }
    /// The bars drawn on a row, "3600-6800 ".
    std::string Drawn(int row) const {
        Drawing drawing;
        view.DrawRow(row, drawing);
        std::string text;
        for (const DrawnBox& box : drawing.boxes)
            if (box.colour == QBColor(g.roster.RosterBarColor[2]))
                text += std::to_string(box.box.left) + "-" + std::to_string(box.box.right) + " ";
        return text;
    }
    void ExpectTrueSums() { EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g)); }
};

TEST_F(WeekLanesTest, show_a_day_each_of_the_current_employee) {
    for (int day = 1; day <= 7; ++day) {
        EXPECT_EQ(lanes.At(day).employee, 2);
        EXPECT_EQ(lanes.At(day).day, day);
        EXPECT_EQ(lanes.RowOf({2, day}), day);
        EXPECT_EQ(lanes.RowOf({1, day}), 0);
        EXPECT_EQ(lanes.ScrollX(day), (day - 1) * 96 * Width);
    }
    EXPECT_EQ(lanes.RowsOf(2), (Rows{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(lanes.RowsOf(1), Rows{});
}

TEST_F(WeekLanesTest, take_a_bar_on_the_day_of_their_row_and_make_that_day_the_current_one) {
    for (int day = 1; day <= 7; ++day) {
        Drag(day, 36, 68);
        EXPECT_EQ(g.cursor.CurrentDay, day);
        EXPECT_EQ(g.cursor.CurrentRow, day);
        EXPECT_EQ(g.cursor.CurrentEmployee, 2);
        ExpectTrueSums();
    }
    BarList expected;
    for (int day = 0; day < 7; ++day) expected.emplace_back(day * 96 + 36, day * 96 + 68);
    EXPECT_EQ(Bars(), expected);
    EXPECT_EQ(g.week.WeekQuarters[2], 7 * 32);
    EXPECT_EQ(g.week.DayQuarters[2], 32);
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(WeekLanesTest, stretch_move_and_delete_bars_of_any_day) {
    Set({{36, 68}, {192 + 36, 192 + 68}});
    Drag(3, 68, 76);
    EXPECT_EQ(Bars(), (BarList{{36, 68}, {228, 268}}));
    Drag(3, 50, 40);
    EXPECT_EQ(Bars(), (BarList{{36, 68}, {218, 258}}));
    Drag(1, 36, 68);
    EXPECT_EQ(Bars(), (BarList{{218, 258}}));
    ExpectTrueSums();
}

TEST_F(WeekLanesTest, keep_the_sums_true_when_the_day_changes_between_two_edits) {
    test::SetBars(g, 1, {{36, 40}, {96 + 36, 96 + 46}});
    ShowDay(1);
    Drag(1, 36, 68);
    Drag(2, 36, 52);
    EXPECT_EQ(g.week.DayQuarters[2], 16);
    EXPECT_EQ(g.totals.TotalDayQuarters, 16 + 10);
    ExpectTrueSums();
    ShowDay(1);
    EXPECT_EQ(g.totals.TotalDayQuarters, 32 + 4);
    Drag(2, 52, 56);
    EXPECT_EQ(g.totals.TotalDayQuarters, 20 + 10);
    ExpectTrueSums();
}

TEST_F(WeekLanesTest, keep_a_gesture_on_its_day_whatever_becomes_current_meanwhile) {
    Set({{36, 68}});
    drag.Press(At(1, 68));
    ShowDay(5);
    g.cursor.CurrentRow = 5;
    drag.Move(At(1, 72));
    EXPECT_EQ(g.cursor.CurrentDay, 1);
    ShowDay(5);
    drag.Release(At(1, 72));
    EXPECT_EQ(Bars(), (BarList{{36, 72}}));
    EXPECT_EQ(g.cursor.CurrentDay, 1);
    EXPECT_EQ(g.cursor.CurrentRow, 1);
    ExpectTrueSums();
}

TEST_F(WeekLanesTest, draw_the_bar_in_hand_on_the_lane_of_its_day_alone) {
    Set({{192 + 36, 192 + 68}});
    drag.Press(At(3, 50));
    EXPECT_EQ(Ghosts(), "3:3600-6800 ");
    EXPECT_EQ(Drawn(3), "");
    last = drag.Move(At(3, 52));
    EXPECT_EQ(Ghosts(), "3:3800-7000 ");
    EXPECT_EQ(last.rows, Rows{3});
    EXPECT_EQ(view.DragTimeText(), "9:30am - 5:30pm");
    EXPECT_EQ(Bars(), (BarList{{228, 260}})) << "until the release nothing has changed";
    drag.Release(At(3, 52));
    EXPECT_EQ(Ghosts(), "");
    EXPECT_EQ(Drawn(3), "3800-7000 ");
}

TEST_F(WeekLanesTest, draw_what_of_a_bar_runs_over_midnight_on_the_next_lane) {
    Make(24);
    Set({{192 + 80, 192 + 110}});
    EXPECT_EQ(Drawn(3), "5600-8600 ");
    EXPECT_EQ(Drawn(4), "");
    Make(0);
    Set({{192 + 80, 192 + 110}});
    EXPECT_EQ(Drawn(3), "8000-9600 ");
    EXPECT_EQ(Drawn(4), "0-1400 ");
    drag.Press(At(3, 90));
    last = drag.Move(At(3, 92));
    EXPECT_EQ(Ghosts(), "3:8200-9600 4:0-1600 ");
    EXPECT_EQ(last.rows, (Rows{3, 4}));
    last = drag.Release(At(3, 92));
    EXPECT_EQ(last.week.employees, Rows{2});
    EXPECT_EQ(last.week.days, (Rows{3, 4}));
    EXPECT_EQ(Drawn(4), "0-1600 ");
}

TEST_F(WeekLanesTest, keep_what_runs_over_the_end_of_the_seventh_day) {
    Make(24);
    Drag(7, 90, 118);
    EXPECT_EQ(Bars(), (BarList{{576 + 90, 576 + 118}}));
    EXPECT_EQ(g.week.DayQuarters[2], 28);
    ExpectTrueSums();
}

TEST_F(WeekLanesTest, refuse_a_press_on_a_day_off_and_end_a_drag_before_one) {
    Make(24);
    test::WritableWeek(g).DayOffFlag[4][2] = true;
    Drag(4, 40, 60);
    EXPECT_EQ(Bars(), BarList{});
    Drag(3, 80, 110);
    EXPECT_EQ(Bars(), (BarList{{192 + 80, 288}}));
    Drag(5, 40, 60);
    EXPECT_EQ(g.week.BarCount[2], 2);
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(WeekLanesTest, take_a_daytype_for_the_day_of_the_row) {
    boxes.PutText(4, "V");
    EXPECT_EQ(g.week.DayTypeText[4][2], "V");
    EXPECT_EQ(g.cursor.CurrentDay, 4);
    EXPECT_EQ(boxes.TextOf(4), "V");
    EXPECT_EQ(boxes.TextOf(3), "");
    test::WritableWeek(g).DayOffFlag[6][2] = true;
    EXPECT_EQ(boxes.MayType(6), DaytypeKey::Refusal::Silent);
    EXPECT_EQ(boxes.MayType(5), DaytypeKey::Refusal::None);
}

TEST_F(WeekLanesTest, say_in_words_what_each_day_holds) {
    Set({{36, 68}});
    g.department.DayOffNameSingle = "Holiday";
    test::WritableWeek(g).DayOffFlag[2][2] = true;
    EXPECT_EQ(view.SpokenRow(1), "Last2 First2: 9:00am - 5:00pm");
    EXPECT_EQ(view.SpokenRow(2), "Last2 First2: Holiday");
    EXPECT_EQ(view.SpokenRow(8), "");
}

TEST_F(WeekLanesTest, shade_the_absence_of_each_weekday_on_its_lane) {
    test::WritableWeek(g).WeekStartJulian = 46082; // a Sunday
    g.roster.AvailabilityCount[2] = 1;
    g.roster.AvailabilityStarts[2][1] = 96 + 36; // Monday
    g.roster.AvailabilityStops[2][1] = 96 + 68;
    grid.AvailabilityShown = true;
    for (int row = 1; row <= 7; ++row) {
        Drawing drawing;
        view.DrawAvailability(row, drawing);
        EXPECT_EQ(drawing.boxes.size(), row == 2 ? 2U : 0U) << row;
    }
}

TEST_F(WeekLanesTest, follow_any_gestures_with_sound_bars_and_true_sums) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    const auto pick = [&](int low, int high) { return static_cast<int>(random.Whole(low, high)); };
    for (int week = 0; week < 60; ++week) {
        Make(pick(0, 32));
        Set(test::RunsOf(test::Covered(test::RandomBars(random, 20))));
        test::SetBars(g, 1, test::RunsOf(test::Covered(test::RandomBars(random, 20))));
        ShowDay(pick(1, 7));
        const BarList other = test::Bars(g, 1);
        for (int event = 0; event < 200; ++event) {
            const GridMouse mouse{random.Chance(90) ? MouseButton::Left : MouseButton::Right,
                                  pick(-500, grid.GridWidth + 500), pick(-100, 1800)};
            const int kind = pick(1, 10);
            last = kind <= 3 ? drag.Press(mouse) : kind <= 8 ? drag.Move(mouse) : drag.Release(mouse);
            ASSERT_EQ(test::Unsound(g), "") << week << " " << event;
            ASSERT_EQ(test::SumsText(g), test::SumsFromScratch(g)) << week << " " << event;
            ASSERT_EQ(test::Bars(g, 1), other);
        }
    }
}

} // namespace
} // namespace tvx
