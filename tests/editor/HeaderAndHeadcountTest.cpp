#include "editor/DayHeader.h"
#include "editor/Headcount.h"
#include "editor/lanes/GridView.h"
#include "support/OpenGrid.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026
constexpr Twips Width = 100;        // of a quarter

class DayHeaderTest : public testing::Test {
  protected:
    GlobalState g;
    test::ScriptedRegion region;

    void SetUp() override {
        test::MakeRoster(g, 3);
        test::WritableWeek(g).WeekStartJulian = Sunday;
    }
    std::array<HeaderColumn, 8> Header(bool wide) const {
        return DayHeader(g.department, g.week, g.figures, g.cursor.CurrentDay, region, wide);
    }
};

TEST_F(DayHeaderTest, the_header_names_seven_days) {
    g.department.WeekMethod = 0;
    g.department.FirstWeekday = 1;
    g.figures.DayMemoFlag[3] = true;
    g.cursor.CurrentDay = 4;
    const auto wide = Header(true);
    EXPECT_EQ(wide[1], (HeaderColumn{"Sunday", "01-Mar-26", "9", false, false}));
    EXPECT_EQ(wide[3], (HeaderColumn{"Tuesday", "03-Mar-26", "9", false, true}));
    EXPECT_EQ(wide[4], (HeaderColumn{"Wednesday", "04-Mar-26", "9", true, false}));
    EXPECT_EQ(wide[7].weekday, "Saturday");
    EXPECT_EQ(Header(false)[1].date, "3/1/2026");
    g.department.WeekMethod = 3;
    EXPECT_EQ(Header(true)[1].weekNumber, "");
}

TEST_F(DayHeaderTest, the_header_numbers_each_day_by_itself) {
    g.department.WeekMethod = 2;
    g.department.FirstWeekday = 1;
    test::WritableWeek(g).WeekStartJulian = SerialFromParts(2025, 12, 28); // a Sunday
    const auto header = Header(true);
    EXPECT_EQ(header[4].weekNumber, "53");
    EXPECT_EQ(header[5].weekNumber, "1"); // 1 January
}

TEST_F(DayHeaderTest, the_title_names_the_week_or_the_people_of_all_departments) {
    g.department.CurrentDepName = "Bakery";
    g.department.EmployeeNamePlural = "Nurses";
    test::WritableWeek(g).WeekDateTexts[1] = "1-Mar-2026";
    test::WritableWeek(g).WeekDateTexts[7] = "7-Mar-2026";
    EXPECT_EQ(EditorTitle(g.roster, g.department, g.week), "Bakery,  Week from 1-Mar-2026  to  7-Mar-2026");
    g.roster.AllDepartmentsMode = true;
    EXPECT_EQ(EditorTitle(g.roster, g.department, g.week), "Multiple Department Nurses");
}

class HeadcountTest : public testing::Test {
  protected:
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    Drawing drawing;

    void SetUp() override {
        test::MakeRoster(g, 3);
        test::OpenGrid(grid, g);
        grid.QuarterWidth = Width;
        grid.GridWidth = Width * 96;
    }
    void Show(Twips width) {
        drawing.Clear();
        ShowHeadcount(
            grid, g.week, 1, 0, [=](const std::string&) { return width; }, drawing);
    }
};

TEST_F(HeadcountTest, shows_the_headcount_under_the_hours_when_it_is_asked_for) {
    test::SetBars(g, 1, {{36, 42}});
    Show(200);
    EXPECT_TRUE(drawing.boxes.empty() && drawing.texts.empty());
    grid.HeadcountShown = true;
    Show(200);
    ASSERT_EQ(drawing.boxes.size(), 1U);
    EXPECT_EQ(drawing.boxes[0].box, (TwipsBox{0, 240, 9600, 480}));
    EXPECT_EQ(drawing.boxes[0].colour, QBColor(0));
    EXPECT_EQ(drawing.texts[9], (DrawnText{38 * Width, 250, "1.00", QBColor(15)}));
    EXPECT_EQ(drawing.texts[10].text, ".50");
}

TEST_F(HeadcountTest, writes_every_second_or_third_hour_where_hours_are_narrow) {
    grid.HeadcountShown = true;
    const auto between = [&](Twips width) {
        Show(width);
        return (drawing.texts[1].x - drawing.texts[0].x) / (4 * Width);
    };
    EXPECT_EQ(between(4 * Width - 60), 1);
    EXPECT_EQ(between(4 * Width - 59), 2);
    EXPECT_EQ(between(8 * Width - 60), 2);
    EXPECT_EQ(between(8 * Width - 59), 3);
}

TEST_F(HeadcountTest, leaves_a_headcount_away_that_would_stand_out_at_the_right) {
    grid.HeadcountShown = true;
    const auto shown = [&](Twips width) {
        Show(width);
        return drawing.texts.size();
    };
    EXPECT_EQ(shown(100), 24U); // 9400 + 50 is 150 from the edge
    EXPECT_EQ(shown(102), 23U);
}

} // namespace
} // namespace tvx
