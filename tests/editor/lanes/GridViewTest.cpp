#include "editor/lanes/GridView.h"

#include "editor/lanes/LaneView.h"
#include "editor/week/RosterBuilder.h"
#include "editor/week/Totals.h"
#include "support/OpenGrid.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace tvx {
namespace {

using test::BarList;

constexpr DaySerial Sunday = 46082; // 1 March 2026
constexpr Twips Width = 100;        // of a quarter, where a test draws

std::string Text(const TwipsBox& box) {
    std::ostringstream text;
    text << box.left << "," << box.top << "-" << box.right << "," << box.bottom;
    return text.str();
}

class GridViewTest : public testing::Test {
  protected:
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    MainLanes lanes{grid, g.roster, g.cursor};
    BarDrag drag{lanes, g};
    LaneView view{lanes, drag, g};

    void SetUp() override { Make(3, 0); }

    /// A grid of a whole day or of fewer hours, quarters of 100 twips.
    void Make(int people, int cutoff, int hours = 24, int startHour = 0) {
        test::MakeRoster(g, people);
        g.cursor.CurrentDay = 1;
        test::WritableWeek(g).WeekStartJulian = Sunday;
        g.department.DayCutoffQuarters = cutoff;
        g.application.options.StartHour = startHour;
        g.screen = {28800, 16200 - 150, hours};
        test::OpenGrid(grid, g);
        grid.QuarterWidth = Width;
        grid.GridWidth = Width * 4 * grid.HoursShown;
        grid.WeekTwips = Width * 768;
    }
    void GoTo(int day) { g.cursor.CurrentDay = day; }
    /// Left and right of the boxes of a colour, "left-right" each.
    static std::string Spans(const Drawing& drawing, Colour colour) {
        std::string spans;
        for (const DrawnBox& box : drawing.boxes)
            if (box.colour == colour)
                spans += (spans.empty() ? "" : " ") + std::to_string(box.box.left) + "-" +
                         std::to_string(box.box.right);
        return spans;
    }
    /// Grid x of a week quarter on the day shown.
    Twips X(WeekQuarter quarter) const { return quarter * Width - lanes.ScrollX(g.cursor.CurrentDay); }
    /// The bar in hand, on whatever row it is seen.
    std::optional<DrawnBox> Ghost() const {
        for (int row = 1; row <= lanes.Count(); ++row)
            if (const auto ghost = view.DrawDragBar(row)) return ghost;
        return std::nullopt;
    }
    Drawing Row(int row = 1) {
        Drawing drawing;
        view.DrawRow(row, drawing);
        return drawing;
    }
    std::string BarSpans(int row = 1) {
        return Spans(Row(row), QBColor(g.roster.RosterBarColor[lanes.At(row).employee]));
    }
};

// --- geometry ---------------------------------------------------------------------------------------------

struct Geometry {
    Twips screenWidth, screenHeight;
    Twips left, quarter, width;
    int rows;
};

TEST(GridGeometry, follows_the_size_of_the_screen) {
    const Geometry cases[] = {
        {1920 * 15, 1080 * 15, 4620, 249, 23904, 50},
        {1024 * 15, 768 * 15, 2604, 130, 12480, 31},
        {1280 * 15, 600 * 15, 3180, 164, 15744, 20},
        {3840 * 15, 2160 * 15, 8940, 504, 48384, 118},
        // A width whose hundredths decide the width of a quarter.
        {1887 * 15, 1080 * 15, 4545, 244, 23424, 50},
    };
    for (const Geometry& c : cases) {
        GlobalState g;
        Grid grid{g.cursor.FirstQuarter};
        test::MakeRoster(g, 200);
        g.screen = {c.screenWidth, c.screenHeight - 150, 24};
        test::OpenGrid(grid, g);
        EXPECT_EQ(grid.GridLeft, c.left) << c.screenWidth;
        EXPECT_EQ(grid.QuarterWidth, c.quarter) << c.screenWidth;
        EXPECT_EQ(grid.GridWidth, c.width) << c.screenWidth;
        EXPECT_EQ(grid.WeekTwips, c.quarter * 768) << c.screenWidth;
        EXPECT_EQ(grid.RowCapacity, c.rows) << c.screenHeight;
        EXPECT_EQ(grid.VisibleRows, c.rows);
        EXPECT_EQ(grid.GridHeight, c.rows * 240 + 10);
        EXPECT_EQ(grid.RowHeight, 240);
    }
}

TEST(GridGeometry, shows_no_more_rows_than_people) {
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    test::MakeRoster(g, 7);
    test::OpenGrid(grid, g);
    EXPECT_EQ(grid.RowCapacity, 50);
    EXPECT_EQ(grid.VisibleRows, 7);
    EXPECT_EQ(grid.GridHeight, 7 * 240 + 10);
}

TEST(GridGeometry, stands_on_the_smallest_screens) {
    for (Twips width = 0; width < 6000; width += 15)
        for (const int hours : {-5, -1, 0, 1, 2}) {
            GlobalState g;
            Grid grid{g.cursor.FirstQuarter};
            test::MakeRoster(g, 2);
            g.screen = {width, 100, hours};
            test::OpenGrid(grid, g);
            ASSERT_GE(grid.QuarterWidth, 1);
            ASSERT_GE(grid.HoursShown, 1);
            ASSERT_GE(grid.RowCapacity, 1);
            ASSERT_GT(grid.GridWidth, 0);
            Drawing drawing;
            DrawTickMarks(grid, drawing);
            ASSERT_FALSE(drawing.boxes.empty());
        }
}

// --- scrolling --------------------------------------------------------------------------------------------

TEST_F(GridViewTest, a_day_begins_at_the_first_hour_or_at_the_cut_off) {
    struct Case {
        int cutoff, hours, startHour;
        int first, min, max;
    };
    const Case cases[] = {
        {0, 24, 0, 0, 0, 0},
        {0, 24, 4, 0, 0, 0}, // nothing to scroll
        {0, 16, 6, 24, 0, 32},
        {0, 16, 8, 32, 0, 32},
        {0, 16, 9, 32, 0, 32},
        {0, 16, 99, 32, 0, 32},
        {0, 16, -3, 0, 0, 32},
        {24, 24, 8, 24, 24, 24},
        {24, 16, 8, 24, 24, 56},
        {5, 20, 0, 5, 5, 21},
        {32, 1, 0, 32, 32, 124},
        {0, 12, std::numeric_limits<int>::max(), 48, 0, 48},
        {0, 12, std::numeric_limits<int>::min(), 0, 0, 48},
    };
    for (const Case& c : cases) {
        Make(1, c.cutoff, c.hours, c.startHour);
        EXPECT_EQ(grid.FirstQuarter, c.first) << c.cutoff << " " << c.hours << " " << c.startHour;
        EXPECT_EQ(grid.MinFirstQuarter, c.min) << c.cutoff;
        EXPECT_EQ(grid.MaxFirstQuarter, c.max) << c.cutoff << " " << c.hours;
    }
}

TEST_F(GridViewTest, scrolling_goes_in_whole_hours_from_the_cut_off) {
    Make(1, 5, 12);
    EXPECT_EQ(ScrollToQuarter(grid, g.department.DayCutoffQuarters, 9), 9);
    EXPECT_EQ(grid.FirstQuarter, 9);
    EXPECT_EQ(ScrollToQuarter(grid, g.department.DayCutoffQuarters, 53), 53);
    for (const int odd : {8, 10, 11, 12, 52})
        EXPECT_EQ(ScrollToQuarter(grid, g.department.DayCutoffQuarters, odd), 5)
            << odd << " falls back to the cut-off";
    EXPECT_EQ(ScrollToQuarter(grid, g.department.DayCutoffQuarters, 1), 5);
    EXPECT_EQ(ScrollToQuarter(grid, g.department.DayCutoffQuarters, 57), 53);
}

TEST_F(GridViewTest, no_scroll_value_leaves_the_range_or_the_hours) {
    for (int cutoff = 0; cutoff <= 32; ++cutoff)
        for (const int hours : {1, 8, 16, 24}) {
            Make(1, cutoff, hours);
            for (int value = -20; value < 150; ++value) {
                const int taken = ScrollToQuarter(grid, g.department.DayCutoffQuarters, value);
                ASSERT_EQ(taken, grid.FirstQuarter);
                ASSERT_GE(taken, grid.MinFirstQuarter);
                ASSERT_LE(taken, grid.MaxFirstQuarter);
                ASSERT_EQ(taken % 4, cutoff % 4);
            }
        }
}

TEST_F(GridViewTest, a_quarter_has_its_place_by_day_and_scroll) {
    Make(1, 0, 16, 6);
    EXPECT_EQ(lanes.ScrollX(1), 24 * Width);
    EXPECT_EQ(X(24), 0);
    EXPECT_EQ(X(36), 12 * Width);
    EXPECT_EQ(DayBoundaryX(grid), 72 * Width);
    GoTo(3);
    EXPECT_EQ(lanes.ScrollX(3), (192 + 24) * Width);
    EXPECT_EQ(X(192 + 36), 12 * Width);
    EXPECT_EQ(X(36), -180 * Width);
}

TEST_F(GridViewTest, rows_follow_the_sort_and_the_scroll) {
    Make(60, 0);
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[60]);
    EXPECT_EQ(lanes.At(1).employee, 60);
    EXPECT_EQ(lanes.RowOf({60, 1}), 1);
    EXPECT_EQ(lanes.RowOf({1, 1}), 0) << "not visible";
    g.cursor.TopRow = 10;
    EXPECT_EQ(lanes.At(1).employee, 11);
    EXPECT_EQ(lanes.At(50).employee, 1);
    EXPECT_EQ(lanes.RowOf({1, 1}), 50);
    EXPECT_EQ(lanes.TopOf(1), 0);
    EXPECT_EQ(lanes.TopOf(3), 480);
}

// --- lanes ------------------------------------------------------------------------------------------------

TEST_F(GridViewTest, a_lane_is_a_white_band_with_its_bars_on_it) {
    test::SetBars(g, 2, {{36, 68}});
    const Drawing drawing = Row(2);
    ASSERT_EQ(drawing.boxes.size(), 2U);
    EXPECT_EQ(Text(drawing.boxes[0].box), "0,290-9600,410");
    EXPECT_EQ(drawing.boxes[0].colour, QBColor(15));
    EXPECT_EQ(Text(drawing.boxes[1].box), "3600,290-6800,410");
    EXPECT_EQ(drawing.boxes[1].colour, QBColor(g.roster.RosterBarColor[2]));
    EXPECT_TRUE(drawing.texts.empty());
}

TEST_F(GridViewTest, bars_are_clipped_to_the_hours_shown) {
    Make(1, 0, 16, 6); // 6:00 to 22:00
    test::SetBars(g, 1, {{10, 30}, {40, 44}, {80, 92}});
    EXPECT_EQ(BarSpans(), "0-600 1600-2000 5600-6400");
}

TEST_F(GridViewTest, a_bar_outside_the_hours_shown_is_not_drawn_but_counted) {
    Make(1, 0, 16, 6);
    test::SetBars(g, 1, {{0, 24}, {88, 96}, {132, 164}});
    EXPECT_EQ(BarSpans(), "");
    EXPECT_EQ(g.week.DayQuarters[1], 32);
}

TEST_F(GridViewTest, a_bar_is_drawn_on_every_day_that_it_touches) {
    test::SetBars(g, 1, {{90, 300}});
    EXPECT_EQ(BarSpans(), "9000-9600");
    GoTo(2);
    EXPECT_EQ(BarSpans(), "0-9600");
    GoTo(4);
    EXPECT_EQ(BarSpans(), "0-1200");
    GoTo(5);
    EXPECT_EQ(BarSpans(), "");
}

TEST_F(GridViewTest, an_empty_slot_ends_the_bars) {
    test::SetBars(g, 1, {{36, 68}, {0, 0}, {80, 90}});
    EXPECT_EQ(BarSpans(), "3600-6800");
}

TEST_F(GridViewTest, the_other_bars_of_the_lane_stay_while_one_is_in_hand) {
    test::SetBars(g, 1, {{10, 20}, {36, 68}, {80, 90}});
    drag.Press({MouseButton::Left, 15 * Width, 110});
    drag.Move({MouseButton::Left, 17 * Width, 110});
    EXPECT_EQ(BarSpans(), "3600-6800 8000-9000");
    const auto ghost = Ghost();
    ASSERT_TRUE(ghost.has_value());
    EXPECT_EQ(Text(ghost->box), "1200,50-2200,170");
    drag.Release({MouseButton::Left, 17 * Width, 110});
    EXPECT_EQ(BarSpans(), "1200-2200 3600-6800 8000-9000");
}

TEST_F(GridViewTest, every_bar_of_random_weeks_is_drawn_where_it_lies) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 400; ++round) {
        Make(1, static_cast<int>(random.Whole(0, 32)), static_cast<int>(random.Whole(1, 24)));
        test::SetBars(g, 1, test::RunsOf(test::Covered(test::RandomBars(random, 20))));
        GoTo(static_cast<int>(random.Whole(1, 7)));
        ScrollToQuarter(grid, g.department.DayCutoffQuarters, static_cast<int>(random.Whole(0, 120)));
        const int first = (g.cursor.CurrentDay - 1) * 96 + grid.FirstQuarter;
        const test::QuarterSet covered = test::Covered(test::Bars(g, 1));
        std::string wanted(static_cast<std::size_t>(grid.HoursShown) * 4, '.');
        for (std::size_t q = 0; q < wanted.size() && first + q < 768; ++q)
            if (covered[first + q]) wanted[q] = 'X';
        std::string drawn(wanted.size(), '.');
        for (const DrawnBox& box : Row().boxes) {
            if (box.colour == QBColor(15)) continue;
            for (Twips x = box.box.left; x < box.box.right; x += Width)
                drawn[static_cast<std::size_t>(x / Width)] = 'X';
        }
        ASSERT_EQ(drawn, wanted);
    }
}

// --- days off ---------------------------------------------------------------------------------------------

class DayOffViewTest : public GridViewTest {
  protected:
    std::string Shades() { return Spans(Row(), DayOffShade); }
    std::string Words() {
        std::string words;
        for (const DrawnText& text : Row().texts)
            words += text.text + "@" + std::to_string(text.x) + "," + std::to_string(text.y) + " ";
        return words;
    }
};

TEST_F(DayOffViewTest, a_day_off_is_shaded_over_the_bars_with_its_word) {
    g.department.DayOffNameSingle = "Holiday";
    test::SetBars(g, 1, {{36, 68}});
    test::WritableWeek(g).DayOffFlag[1][1] = true;
    const Drawing drawing = Row();
    ASSERT_EQ(drawing.boxes.size(), 3U);
    EXPECT_EQ(drawing.boxes[2].colour, DayOffShade) << "on top";
    EXPECT_EQ(Text(drawing.boxes[2].box), "0,0-9600,215");
    EXPECT_EQ(Words(), "Holiday@4800,0 ");
    EXPECT_EQ(Row(2).boxes.size(), 1U);
}

TEST_F(DayOffViewTest, with_a_cut_off_each_date_shades_its_own_side_of_midnight) {
    Make(1, 24);
    g.department.DayOffNameSingle = "Holiday";
    GoTo(3);
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    EXPECT_EQ(Shades(), "0-7200");
    EXPECT_EQ(Words(), "Holiday@3600,0 ");
    test::WritableWeek(g).DayOffFlag[3][1] = false;
    test::WritableWeek(g).DayOffFlag[4][1] = true;
    EXPECT_EQ(Shades(), "7200-9600");
    EXPECT_EQ(Words(), "Holiday@8400,0 ");
    test::WritableWeek(g).DayOffFlag[3][1] = true;
    EXPECT_EQ(Shades(), "0-7200 7200-9600");
}

TEST_F(DayOffViewTest, a_sliver_of_the_next_day_has_no_room_for_the_word) {
    for (const auto& [cutoff, words] :
         {std::pair{5, ""}, {6, ""}, {7, "Holiday@9250,0 "}, {8, "Holiday@9200,0 "}}) {
        Make(1, cutoff);
        g.department.DayOffNameSingle = "Holiday";
        test::WritableWeek(g).DayOffFlag[2][1] = true;
        EXPECT_EQ(Words(), words) << cutoff;
        EXPECT_NE(Shades(), "") << cutoff;
    }
}

TEST_F(DayOffViewTest, without_cut_off_the_next_day_off_is_not_to_be_seen) {
    for (const int hours : {24, 16}) {
        Make(1, 0, hours, 6);
        test::WritableWeek(g).DayOffFlag[2][1] = true;
        EXPECT_EQ(Shades(), "") << hours;
    }
}

TEST_F(DayOffViewTest, the_eighth_day_shades_the_end_of_the_seventh) {
    Make(1, 24);
    GoTo(7);
    test::WritableWeek(g).DayOffFlag[8][1] = true;
    EXPECT_EQ(Shades(), "7200-9600");
}

TEST_F(DayOffViewTest, a_scrolled_day_is_shaded_up_to_midnight) {
    Make(1, 24, 12);
    test::WritableWeek(g).DayOffFlag[1][1] = true;
    ScrollToQuarter(grid, g.department.DayCutoffQuarters, 72); // 18:00 to 6:00
    EXPECT_EQ(Shades(), "0-2400");
}

// --- the bar in hand --------------------------------------------------------------------------------------

TEST_F(GridViewTest, the_ghost_is_the_bar_under_the_mouse) {
    EXPECT_FALSE(Ghost().has_value());
    EXPECT_EQ(view.DragTimeText(), "");
    drag.Press({MouseButton::Left, 36 * Width, 350});
    drag.Move({MouseButton::Left, 68 * Width, 350});
    EXPECT_EQ(Text(Ghost()->box), "3600,290-6800,410");
    EXPECT_EQ(Ghost()->colour, QBColor(g.roster.RosterBarColor[2]));
    EXPECT_EQ(view.DragTimeText(), "9:00am - 5:00pm");
    drag.Move({MouseButton::Left, 20 * Width, 350}); // the ends cross
    EXPECT_EQ(Text(Ghost()->box), "2000,290-3600,410");
    EXPECT_EQ(view.DragTimeText(), "5:00am - 9:00am");
    drag.Release({MouseButton::Left, 20 * Width, 350});
    EXPECT_FALSE(Ghost().has_value());
    EXPECT_EQ(view.DragTimeText(), "");
}

TEST_F(GridViewTest, the_ghost_is_clipped_to_the_grid) {
    test::SetBars(g, 1, {{80, 110}});
    drag.Press({MouseButton::Left, 90 * Width, 110});
    drag.Move({MouseButton::Left, 94 * Width, 110});
    EXPECT_EQ(Text(Ghost()->box), "8400,50-9600,170");
    EXPECT_EQ(view.DragTimeText(), "9:00pm - 4:30am");
    drag.Release({MouseButton::Left, 94 * Width, 110});
}

TEST_F(GridViewTest, the_time_of_a_ghost_is_one_of_a_clock_however_many_days_it_reaches_over) {
    test::SetBars(g, 1, {{80, 3 * 96 + 60}});
    drag.Press({MouseButton::Left, 90 * Width, 110});
    EXPECT_EQ(view.DragTimeText(), "8:00pm - 3:00pm");
    drag.Move({MouseButton::Left, 94 * Width, 110});
    EXPECT_EQ(view.DragTimeText(), "9:00pm - 4:00pm");
    drag.Settle();
}

TEST_F(GridViewTest, the_time_of_a_ghost_from_the_day_before_is_that_of_its_own_day) {
    test::SetBars(g, 1, {{88, 96 + 20}});
    g.cursor.CurrentDay = 2;
    drag.Press({MouseButton::Left, 20 * Width, 110});
    EXPECT_EQ(view.DragTimeText(), "10:00pm - 5:00am");
    drag.Move({MouseButton::Left, 8 * Width, 110});
    EXPECT_EQ(view.DragTimeText(), "10:00pm - 2:00am");
    drag.Settle();
}

TEST_F(GridViewTest, the_ghost_stays_on_the_row_of_its_employee) {
    test::SetBars(g, 1, {{36, 68}});
    drag.Press({MouseButton::Left, 50 * Width, 110});
    g.cursor.CurrentRow = 3;
    g.cursor.CurrentEmployee = 3;
    EXPECT_EQ(Text(Ghost()->box), "3600,50-6800,170");
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[2]);
    EXPECT_EQ(Text(Ghost()->box), "3600,290-6800,410");
    drag.Settle();
}

TEST_F(GridViewTest, the_time_of_the_ghost_snaps_to_quarters_by_the_clock_of_the_options) {
    g.application.options.ClockStyle = ClockStyle::TwentyFourHours;
    drag.Press({MouseButton::Left, 36 * Width + 20, 110});
    drag.Move({MouseButton::Left, 68 * Width + 51, 110});
    EXPECT_EQ(view.DragTimeText(), "9:00 - 17:15");
    drag.Settle();
}

// --- availability -----------------------------------------------------------------------------------------

class AvailabilityViewTest : public GridViewTest {
  protected:
    /// Absent on Sunday 2:00 to 4:00, on Monday 9:00 to 17:00, on Saturday 20:00 to 24:00.
    void SetUp() override {
        Make(1, 0);
        MakeAbsent();
        grid.AvailabilityShown = true;
    }
    void MakeAbsent() {
        std::string starts(28, ' ');
        std::string stops(28, ' ');
        const auto put = [&](int day, int start, int stop) {
            starts[(day - 1) * 4] = static_cast<char>(32 + start);
            stops[(day - 1) * 4] = static_cast<char>(32 + stop);
        };
        put(1, 8, 16);
        put(2, 36, 68);
        put(7, 80, 96);
        DecodeAvailability(starts, stops, g.roster, 1);
    }
    std::string Reds() {
        Drawing drawing;
        view.DrawAvailability(1, drawing);
        return Spans(drawing, Red);
    }
};

TEST_F(AvailabilityViewTest, absence_is_drawn_above_and_below_the_lane) {
    Drawing drawing;
    GoTo(2);
    view.DrawAvailability(1, drawing);
    ASSERT_EQ(drawing.boxes.size(), 2U);
    EXPECT_EQ(Text(drawing.boxes[0].box), "3600,10-6800,30");
    EXPECT_EQ(Text(drawing.boxes[1].box), "3600,180-6800,200");
    EXPECT_EQ(drawing.boxes[0].colour, Red);
}

TEST_F(AvailabilityViewTest, absence_stands_on_its_weekday_whatever_the_first_day_of_the_week) {
    test::WritableWeek(g).WeekStartJulian = Sunday + 1; // weeks that begin on Monday
    const char* monday = "3600-6800 3600-6800";
    EXPECT_EQ(Reds(), monday);
    GoTo(6);
    EXPECT_EQ(Reds(), "8000-9600 8000-9600");
    GoTo(7);
    EXPECT_EQ(Reds(), "800-1600 800-1600") << "Sunday";
    test::WritableWeek(g).WeekStartJulian = Sunday;
    EXPECT_EQ(Reds(), "8000-9600 8000-9600") << "Saturday";
    GoTo(3);
    EXPECT_EQ(Reds(), "");
}

TEST_F(AvailabilityViewTest, with_a_cut_off_the_night_belongs_to_the_next_weekday) {
    Make(1, 24);
    MakeAbsent();
    GoTo(7); // Saturday from 6:00, and Sunday up to 6:00
    EXPECT_EQ(Reds(), "5600-7200 5600-7200 8000-8800 8000-8800");
    GoTo(1); // Sunday from 6:00: its own absence lies before
    EXPECT_EQ(Reds(), "");
}

TEST_F(AvailabilityViewTest, a_slot_left_behind_by_a_join_is_passed_over) {
    g.roster.AvailabilityCount[1] = 2;
    g.roster.AvailabilityStarts[1] = {0, 132, 164};
    g.roster.AvailabilityStops[1] = {0, 176, 0};
    GoTo(2);
    EXPECT_EQ(Reds(), "3600-8000 3600-8000");
}

TEST_F(AvailabilityViewTest, absence_is_not_drawn_on_a_day_off_or_while_it_is_not_shown) {
    GoTo(2);
    test::WritableWeek(g).DayOffFlag[2][1] = true;
    EXPECT_EQ(Reds(), "");
    test::WritableWeek(g).DayOffFlag[2][1] = false;
    EXPECT_NE(Reds(), "");
    grid.AvailabilityShown = false;
    EXPECT_EQ(Reds(), "");
}

// --- the ruler --------------------------------------------------------------------------------------------

class RulerTest : public GridViewTest {
  protected:
    static Twips Narrow(const std::string&) { return 200; }

    Drawing Ruler(const TextWidth& widthOf = Narrow) {
        Drawing drawing;
        DrawHourRuler(grid, g.department.DayCutoffQuarters, g.application.options.ClockStyle, widthOf,
                      drawing);
        return drawing;
    }
    std::string Hours(const TextWidth& widthOf = Narrow) {
        std::string hours;
        for (const DrawnText& text : Ruler(widthOf).texts)
            hours += std::to_string(text.x / Width) + ":" + text.text + " ";
        return hours;
    }
};

TEST_F(RulerTest, names_the_hours_at_their_ticks) {
    Make(1, 0, 16, 8);
    EXPECT_EQ(
        Hours(),
        "0:8:00am 4:9:00am 8:10:00am 12:11:00am 16:Noon 20:1:00pm 24:2:00pm 28:3:00pm 32:4:00pm 36:5:00pm"
        " 40:6:00pm 44:7:00pm 48:8:00pm 52:9:00pm 56:10:00pm 60:11:00pm 64:Midn. ");
    g.application.options.ClockStyle = ClockStyle::TwentyFourHours;
    EXPECT_EQ(Hours().substr(0, 30), "0:8:00 4:9:00 8:10:00 12:11:00");
    EXPECT_NE(Hours().find(" 16:12:00 "), std::string::npos);
}

TEST_F(RulerTest, names_a_whole_day_from_midnight_to_midnight) {
    EXPECT_EQ(Hours().substr(0, 17), "0:Midn. 4:1:00am ");
    EXPECT_EQ(Ruler().texts.size(), 25U);
    EXPECT_EQ(Ruler().texts.back().text, "Midn.");
}

TEST_F(RulerTest, begins_at_the_first_full_hour_behind_an_odd_cut_off) {
    Make(1, 5); // 1:15
    EXPECT_EQ(Hours().substr(0, 17), "3:2:00am 7:3:00am");
    EXPECT_EQ(Ruler().texts.size(), 24U);
}

TEST_F(RulerTest, leaves_hours_out_where_their_texts_are_wider_than_the_hours) {
    const auto wide = [](Twips width) { return [width](const std::string&) { return width; }; };
    EXPECT_EQ(Ruler(wide(310)).texts.size(), 25U);
    EXPECT_EQ(Ruler(wide(311)).texts.size(), 13U);
    EXPECT_EQ(Ruler(wide(711)).texts.size(), 9U);
    EXPECT_EQ(Ruler(wide(1111)).texts.size(), 7U);
    EXPECT_EQ(Ruler(wide(9999)).texts.size(), 5U);
    EXPECT_EQ(Hours(wide(9999)), "0:Midn. 24:6:00am 48:Noon 72:6:00pm 96:Midn. ");
}

TEST_F(RulerTest, has_a_cyan_band_that_midnight_parts_where_there_is_a_cut_off) {
    EXPECT_EQ(Spans(Ruler(), QBColor(3)), "0-9600");
    EXPECT_EQ(Ruler().boxes[0].box.bottom, 280);
    Make(1, 24);
    EXPECT_EQ(Spans(Ruler(), QBColor(3)), "0-7170 7230-9600");
}

TEST_F(RulerTest, has_ticks_for_hours_halves_and_quarters) {
    Make(1, 0, 2);
    Drawing drawing;
    DrawTickMarks(grid, drawing);
    ASSERT_EQ(drawing.boxes.size(), 9U);
    std::string ticks;
    for (const DrawnBox& tick : drawing.boxes) {
        EXPECT_EQ(tick.box.bottom, 600);
        ticks += std::to_string(tick.box.left / Width) + ":" + std::to_string(tick.box.top) +
                 (tick.colour == QBColor(15)   ? "w "
                  : tick.colour == QBColor(10) ? "g "
                  : tick.colour == QBColor(14) ? "y "
                                               : "? ");
    }
    EXPECT_EQ(ticks, "0:270w 1:500y 2:450g 3:500y 4:270w 5:500y 6:450g 7:500y 7:270w ")
        << "the last one stands inside";
}

TEST_F(RulerTest, ticks_follow_an_odd_cut_off) {
    Make(1, 5, 2);
    Drawing drawing;
    DrawTickMarks(grid, drawing);
    EXPECT_EQ(drawing.boxes[0].box.top, 500); // 1:15
    EXPECT_EQ(drawing.boxes[1].box.top, 450); // 1:30
    EXPECT_EQ(drawing.boxes[3].box.top, 270); // 2:00
}

// --- captions ---------------------------------------------------------------------------------------------

TEST_F(GridViewTest, the_jumps_are_called_midnight_or_by_the_time_of_the_cut_off) {
    EXPECT_EQ(EndOfDayCaption(g.department.DayCutoffQuarters, g.application.options.ClockStyle), "Midnight");
    for (const auto& [cutoff, caption] :
         {std::pair{24, "6:00am"}, {5, "1:15am"}, {1, "12:15am"}, {48, "Noon"}, {96, "Midnight"}}) {
        g.department.DayCutoffQuarters = cutoff;
        EXPECT_EQ(EndOfDayCaption(g.department.DayCutoffQuarters, g.application.options.ClockStyle), caption);
    }
    g.application.options.ClockStyle = ClockStyle::TwentyFourHours;
    g.department.DayCutoffQuarters = 24;
    EXPECT_EQ(EndOfDayCaption(g.department.DayCutoffQuarters, g.application.options.ClockStyle), "6:00");
}

} // namespace
} // namespace tvx
