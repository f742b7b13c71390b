#include "editor/RowValues.h"

#include "platform/basic/Format.h"
#include "support/Quarters.h"
#include "support/Random.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

class RowValuesTest : public testing::Test {
  protected:
    GlobalState g;
    test::ScriptedRegion region;

    void SetUp() override {
        test::MakeRoster(g, 3); // the third one has a salary
        g.roster.RosterPay[1] = Currency::FromAmount(7.25);
        g.department.CurrentDepName = "Bakery";
        test::SetBars(g, 1, {{36, 70}, {132, 164}}); // 8.5 and 8 hours
        test::SetBars(g, 3, {{36, 68}});
    }
    RowValues Values(int option, int e = 1) { return ShowRowValues(g, option, e, region); }
    std::string Single(int option, int e = 1) { return Values(option, e).single; }
    void SetLimits(int day, int week) {
        g.application.options.DayOvertime = day;
        g.application.options.WeekOvertime = week;
    }
};

constexpr ValueColours WhiteOnRed{QBColor(15), QBColor(12)};

// --- the options ------------------------------------------------------------------------------------------

TEST(ShowOptions, have_their_captions_and_tooltips) {
    std::string told;
    for (const ShowOptionText& option : ShowOptions())
        told += std::string("'") + option.caption + "' '" + option.tooltip + "'\n";
    EXPECT_EQ(told, R"('' ''
'Day time' 'Show Day time'
'Day wages' 'Show Day wages'
'Week time' 'Show Week time'
'Week wages' 'Show Week wages'
' ID' 'Show Id for employees'
'Assignment' 'Show assignments'
'D/W time' 'Show Day and Week time'
'D/W wages' 'Show Day and Week wages'
'Days sched.' 'Indicate on which days work is scheduled '
'Labor type' 'Shows Labor type set in the Employee screen'
'Department' 'Indicate on which days work is scheduled '
'Hire date' 'Shows Month and Day of Hire'
)");
}

TEST_F(RowValuesTest, options_of_money_cannot_be_chosen_while_pay_is_hidden) {
    for (int option = 1; option <= 12; ++option) EXPECT_TRUE(CanShow(g.roster, g.rights, option)) << option;
    g.rights.HideWages = true;
    for (int option = 1; option <= 12; ++option)
        EXPECT_EQ(CanShow(g.roster, g.rights, option), option != 2 && option != 4 && option != 8) << option;
    for (const int none : {-1, 0, 13, 99}) EXPECT_FALSE(CanShow(g.roster, g.rights, none)) << none;
}

TEST_F(RowValuesTest, only_the_department_can_be_chosen_with_all_departments_shown) {
    g.roster.AllDepartmentsMode = true;
    for (int option = 1; option <= 12; ++option)
        EXPECT_EQ(CanShow(g.roster, g.rights, option), option == 11) << option;
}

TEST_F(RowValuesTest, an_option_that_cannot_be_chosen_leaves_the_one_before) {
    Grid grid{g.cursor.FirstQuarter};
    ChooseShowOption(grid, g.roster, g.rights, 3);
    ChooseShowOption(grid, g.roster, g.rights, 7);
    EXPECT_EQ(grid.ShowOption, 7);
    g.rights.HideWages = true;
    ChooseShowOption(grid, g.roster, g.rights, 2);
    EXPECT_EQ(grid.ShowOption, 7);
}

// --- what a row shows -------------------------------------------------------------------------------------

TEST_F(RowValuesTest, times_and_wages_of_day_and_week) {
    EXPECT_EQ(Single(1), " 8:30");
    EXPECT_EQ(Single(2), "61.63"); // 61.625
    EXPECT_EQ(Single(3), "16:30");
    EXPECT_EQ(Single(4), "119.63");
    EXPECT_EQ(Single(1, 2), " 0:00");
    EXPECT_EQ(Single(2, 2), ".00");
    g.application.options.TimeFormat = TimeFormat::Hundredths;
    EXPECT_EQ(Single(1), " 8:50");
}

TEST_F(RowValuesTest, wages_read_as_the_stated_real_number_does_beside_the_name_and_in_the_totals) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 60; ++round) {
        const auto cents = random.Whole(1, 9999);
        const double rate = static_cast<double>(cents) / 100;
        g.roster.RosterPay[1] = Currency::FromAmount(rate);
        for (int quarters = 1; quarters <= 672; ++quarters) {
            test::SetBars(g, 1, {{0, quarters}});
            const double wages = quarters / 4 * rate + quarters % 4 * rate / 4;
            const std::string text = Format(wages, ".00");
            ASSERT_EQ(Single(4), text) << rate << " for " << quarters;
            ASSERT_EQ(TotalsTexts(g.totals, g.rights, TimeFormat::Minutes)[3], " " + text);
            ASSERT_EQ(WeeklyTotalsBox(g).Label2[1], text);
        }
    }
}

TEST_F(RowValuesTest, a_salary_in_place_of_wages) {
    EXPECT_EQ(Single(2, 3), "Salary ");
    EXPECT_EQ(Single(4, 3), "Salary ");
    EXPECT_EQ(Values(8, 3).day, "Salary  ");
    EXPECT_EQ(Values(8, 3).week, "Salary  ");
    EXPECT_EQ(Single(1, 3), " 8:00");
}

TEST_F(RowValuesTest, nothing_in_place_of_money_while_pay_is_hidden) {
    g.rights.HideWages = true;
    for (const int e : {1, 3}) {
        EXPECT_EQ(Single(2, e), "");
        EXPECT_EQ(Single(4, e), "");
        EXPECT_EQ(Values(8, e).day + Values(8, e).week, "");
    }
    EXPECT_EQ(Single(1), " 8:30");
}

TEST_F(RowValuesTest, facts_of_the_employee) {
    g.roster.RosterLaborType[1] = "Student";
    EXPECT_EQ(Single(5), "ID1");
    EXPECT_EQ(Single(6), "Oven1");
    EXPECT_EQ(Single(10), "Student");
    EXPECT_EQ(Single(11), "Bakery");
    g.roster.AllDepartmentsMode = true;
    g.roster.RosterDepName[1] = "Dairy";
    EXPECT_EQ(Single(11), "Dairy");
}

TEST_F(RowValuesTest, the_month_and_year_of_hire) {
    g.roster.RosterHireDate[1] = SerialFromParts(2019, 9, 30);
    EXPECT_EQ(Single(12), "September-2019");
    g.roster.RosterHireDate[1] = 0; // not known
    EXPECT_EQ(Single(12), "");
    g.roster.RosterHireDate[1] = 1; // 31 December 1899
    EXPECT_EQ(Single(12), "");
    g.roster.RosterHireDate[1] = 2;
    EXPECT_EQ(Single(12), "January-1900");
}

TEST_F(RowValuesTest, both_times_or_wages_side_by_side) {
    const RowValues times = Values(7);
    EXPECT_TRUE(times.pair);
    EXPECT_EQ(times.day, "  8:30");
    EXPECT_EQ(times.week, " 16:30");
    EXPECT_EQ(times.single, "");
    const RowValues wages = Values(8);
    EXPECT_TRUE(wages.pair);
    EXPECT_EQ(wages.day, "61.63");
    EXPECT_EQ(wages.week, "119.63");
    for (const int option : {1, 2, 3, 4, 5, 6, 9, 10, 11, 12}) EXPECT_FALSE(Values(option).pair) << option;
}

TEST_F(RowValuesTest, figures_stand_right_and_facts_left) {
    for (const int option : {1, 2, 3, 4}) EXPECT_EQ(Values(option).align, Align::Right) << option;
    for (const int option : {5, 6, 10, 11, 12}) EXPECT_EQ(Values(option).align, Align::Left) << option;
}

// --- colours ----------------------------------------------------------------------------------------------

TEST_F(RowValuesTest, each_option_has_its_colours) {
    const std::pair<int, ValueColours> expected[] = {
        {1, {QBColor(1), QBColor(15)}}, {2, {QBColor(12), QBColor(15)}}, {3, {QBColor(1), 65535}},
        {4, {QBColor(12), 65535}},      {5, {QBColor(0), LightGreen}},   {6, {QBColor(0), LightGreen}},
        {10, {QBColor(0), LightGreen}}, {11, {QBColor(0), LightGreen}},  {12, {QBColor(2), LightGreen}},
    };
    for (const auto& [option, colours] : expected) EXPECT_EQ(Values(option).singleColours, colours) << option;
    EXPECT_EQ(LightGreen, RGB(199, 255, 177));
    EXPECT_EQ(Values(7).dayColours, (ValueColours{QBColor(0), QBColor(15)}));
    EXPECT_EQ(Values(7).weekColours, (ValueColours{QBColor(12), QBColor(14)}));
    EXPECT_EQ(Values(8).dayColours, Values(7).dayColours);
    EXPECT_EQ(Values(8).weekColours, Values(7).weekColours);
}

TEST_F(RowValuesTest, the_first_four_options_turn_red_above_either_limit) {
    for (const auto& [day, week] : {std::pair{33, 672}, {96, 65}, {33, 65}}) {
        SetLimits(day, week);
        for (const int option : {1, 2, 3, 4})
            EXPECT_EQ(Values(option).singleColours, WhiteOnRed) << day << " " << option;
        for (const int option : {5, 6, 10, 11, 12})
            EXPECT_NE(Values(option).singleColours, WhiteOnRed) << option;
    }
    SetLimits(34, 66); // an exact hit of both
    for (const int option : {1, 2, 3, 4}) EXPECT_NE(Values(option).singleColours, WhiteOnRed) << option;
}

TEST_F(RowValuesTest, of_two_values_each_turns_red_by_its_own_limit) {
    for (const int option : {7, 8}) {
        SetLimits(33, 66);
        EXPECT_EQ(Values(option).dayColours, WhiteOnRed);
        EXPECT_NE(Values(option).weekColours, WhiteOnRed);
        SetLimits(34, 65);
        EXPECT_NE(Values(option).dayColours, WhiteOnRed);
        EXPECT_EQ(Values(option).weekColours, WhiteOnRed);
    }
}

// --- days scheduled ---------------------------------------------------------------------------------------

std::string Squares(const RowValues& values, Colour marked) {
    std::string text;
    for (int d = 1; d <= 7; ++d) text += values.squareColours[d] == marked ? 'X' : '.';
    return text;
}

TEST_F(RowValuesTest, squares_mark_the_days_on_which_time_begins) {
    const Colour bar = QBColor(g.roster.RosterBarColor[1]);
    test::SetBars(g, 1, {{36, 68}, {190, 300}, {575, 577}, {671, 673}, {680, 690}});
    const RowValues values = Values(9);
    EXPECT_TRUE(values.squares);
    EXPECT_EQ(Squares(values, bar), "XX...XX");
    EXPECT_EQ(values.squareColours[3], Silver);
    test::SetBars(g, 1, {});
    EXPECT_EQ(Squares(Values(9), bar), ".......");
    EXPECT_FALSE(Values(1).squares);
}

TEST_F(RowValuesTest, squares_of_silver_bars_stand_on_red) {
    g.roster.RosterBarColor[1] = 7;
    const RowValues values = Values(9);
    EXPECT_EQ(Squares(values, Silver), "XX.....");
    EXPECT_EQ(values.squareColours[3], QBColor(12));
}

TEST_F(RowValuesTest, squares_pass_over_an_empty_slot) {
    test::SetBars(g, 1, {{0, 0}, {190, 200}});
    EXPECT_EQ(Squares(Values(9), QBColor(g.roster.RosterBarColor[1])), ".X.....");
}

} // namespace
} // namespace tvx
