#include "editor/lanes/DaytypeBox.h"

#include "editor/lanes/BarDrag.h"
#include "editor/lanes/GridView.h"
#include "support/OpenGrid.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using Refusal = DaytypeKey::Refusal;

// --- the key rule -----------------------------------------------------------------------------------------

TEST(FilterDaytypeKey, takes_letters_as_capitals_digits_and_backspace) {
    for (int code = 'a'; code <= 'z'; ++code)
        if (code != 'w') {
            EXPECT_EQ(FilterDaytypeKey(code).code, code - 32);
        }
    for (int code = '0'; code <= '9'; ++code) EXPECT_EQ(FilterDaytypeKey(code).code, code);
    for (int code = 'A'; code <= 'Z'; ++code)
        if (code != 'W') {
            EXPECT_EQ(FilterDaytypeKey(code).code, code);
        }
    EXPECT_EQ(FilterDaytypeKey(8).code, 8);
    EXPECT_EQ(FilterDaytypeKey('A').refusal, Refusal::None);
}

TEST(FilterDaytypeKey, passes_the_signs_between_the_letters_by_their_codes) {
    for (int code = 91; code <= 96; ++code)
        EXPECT_EQ(FilterDaytypeKey(code).code, code) << static_cast<char>(code);
}

TEST(FilterDaytypeKey, swallows_everything_else) {
    for (const int code : {0, 7, 9, 10, 13, 27, 32, 47, 58, 64, 123, 127, 200, 233, 0x1F35E}) {
        EXPECT_EQ(FilterDaytypeKey(code).code, 0) << code;
        EXPECT_EQ(FilterDaytypeKey(code).refusal, Refusal::Silent) << code;
    }
}

TEST(FilterDaytypeKey, refuses_a_W_in_either_case) {
    for (const int code : {'w', 'W'}) {
        EXPECT_EQ(FilterDaytypeKey(code).code, 0);
        EXPECT_EQ(FilterDaytypeKey(code).refusal, Refusal::TooWide);
    }
}

// --- typing into a row ------------------------------------------------------------------------------------

class DaytypeBoxTest : public testing::Test {
  protected:
    GlobalState g;
    test::ScriptedPrompt prompt;
    Grid grid{g.cursor.FirstQuarter};
    MainLanes lanes{grid, g.roster, g.cursor};
    DaytypeBox boxes{lanes, g};

    void SetUp() override {
        test::MakeRoster(g, 3);
        test::OpenGrid(grid, g);
        std::swap(g.roster.RowOrder[1], g.roster.RowOrder[3]);
    }
};

TEST_F(DaytypeBoxTest, the_week_is_changed_by_a_text_and_not_by_the_leave_to_type_it) {
    EXPECT_EQ(boxes.MayType(1), Refusal::None);
    EXPECT_FALSE(g.week.WeekChanged);
    boxes.PutText(1, "V");
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(DaytypeBoxTest, a_day_off_is_closed_without_a_word) {
    test::WritableWeek(g).DayOffFlag[1][3] = true; // the employee of row 1
    EXPECT_EQ(boxes.MayType(1), Refusal::Silent);
    g.rights.SchedulingAllowed = false;
    EXPECT_EQ(boxes.MayType(1), Refusal::Silent);
    EXPECT_FALSE(g.week.WeekChanged);
    g.rights.SchedulingAllowed = true;
    EXPECT_EQ(boxes.MayType(3), Refusal::None);
    g.cursor.CurrentDay = 2;
    EXPECT_EQ(boxes.MayType(1), Refusal::None);
}

TEST_F(DaytypeBoxTest, who_may_not_schedule_is_refused) {
    g.rights.SchedulingAllowed = false;
    EXPECT_EQ(boxes.MayType(1), Refusal::NotPermitted);
    EXPECT_FALSE(g.week.WeekChanged);
    prompt.Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                  "Scheduling not permitted");
    TellDaytypeRefusal(prompt, Refusal::NotPermitted);
}

TEST_F(DaytypeBoxTest, a_W_is_told_with_a_beep) {
    prompt.Expect("The <W> cannot be used as a Daytype...", box::Exclamation, "Font for W is to wide.");
    TellDaytypeRefusal(prompt, Refusal::TooWide);
    EXPECT_EQ(prompt.Beeps(), 1);
    TellDaytypeRefusal(prompt, Refusal::Silent);
    TellDaytypeRefusal(prompt, Refusal::None);
    EXPECT_EQ(prompt.Boxes().size(), 1U);
    EXPECT_EQ(prompt.Beeps(), 1);
}

TEST_F(DaytypeBoxTest, the_text_of_a_box_becomes_the_daytype_of_the_row_and_day) {
    g.cursor.CurrentDay = 4;
    boxes.PutText(1, "V1");
    EXPECT_EQ(g.week.DayTypeText[4][3], "V1");
    EXPECT_EQ(g.cursor.CurrentEmployee, 3);
    test::WritableWeek(g).DayOffFlag[4][3] = true; // a save sees to it
    boxes.PutText(1, "Q");
    EXPECT_EQ(g.week.DayTypeText[4][3], "Q");
    boxes.PutText(1, "");
    EXPECT_EQ(g.week.DayTypeText[4][3], "");
    EXPECT_EQ(g.week.DayTypeText[4][1], "");
}

TEST_F(DaytypeBoxTest, typing_does_not_take_the_bar_in_hand_from_its_employee) {
    test::SetBars(g, 3, {{36, 68}});
    BarDrag drag{lanes, g};
    drag.Press({MouseButton::Left, 50 * grid.QuarterWidth, 110});
    boxes.PutText(2, "A");
    drag.Release({MouseButton::Left, 50 * grid.QuarterWidth, 110});
    EXPECT_EQ(test::Bars(g, 3), (test::BarList{{36, 68}}));
}

// --- hints and arrows -------------------------------------------------------------------------------------

TEST_F(DaytypeBoxTest, the_tooltip_explains_the_symbol_or_the_box) {
    g.daytypes.DayTypeCount = 2;
    g.daytypes.DayTypeSymbols[1] = "V ";
    g.daytypes.DayTypeNames[1] = "Vacation";
    g.daytypes.DayTypeSymbols[2] = "S1";
    g.daytypes.DayTypeNames[2] = "Seminar";
    g.daytypes.DayTypeSymbols[3] = "X"; // left over behind the count
    EXPECT_EQ(DaytypeTooltip(g.daytypes, " V"), "Vacation");
    EXPECT_EQ(DaytypeTooltip(g.daytypes, "S1"), "Seminar");
    for (const char* text : {"", "  ", "Q", "X", "v"})
        EXPECT_EQ(DaytypeTooltip(g.daytypes, text), "Place for Daytype") << text;
}

TEST_F(DaytypeBoxTest, arrows_go_round_the_visible_rows) {
    EXPECT_EQ(NeighbourRow(grid, 1, 1), 2);
    EXPECT_EQ(NeighbourRow(grid, 3, 1), 1);
    EXPECT_EQ(NeighbourRow(grid, 1, -1), 3);
    EXPECT_EQ(NeighbourRow(grid, 2, -1), 1);
}

} // namespace
} // namespace tvx
