#include "editor/week/Totals.h"

#include "editor/lanes/GridView.h"
#include "shell/common/Conversions.h"
#include "store/rows/ApplicationRow.h"
#include "support/OpenGrid.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;

class TotalsTest : public testing::Test {
  protected:
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};

    void SetUp() override {
        test::MakeRoster(g, 3); // the third one has a salary of 700
        g.roster.RosterPay[1] = Currency::FromAmount(10);
        g.roster.RosterPay[2] = Currency::FromAmount(7.25);
        test::WritableWeek(g).WeekStartJulian = 46082;
        test::OpenGrid(grid, g);
    }
    void Set(int e, const BarList& bars) { test::SetBars(g, e, bars); }
    void SetCutoff(int cutoff) {
        g.department.DayCutoffQuarters = cutoff;
        test::OpenGrid(grid, g);
        SumWeek(test::WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
    }
    void GoTo(int day) {
        g.cursor.CurrentDay = day;
        SumDay(test::WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
    }
};

// --- one bar ----------------------------------------------------------------------------------------------

TEST_F(TotalsTest, a_business_day_runs_from_cut_off_to_cut_off) {
    EXPECT_EQ(WindowOfDay(1, 0).low, 0);
    EXPECT_EQ(WindowOfDay(1, 0).high, 96);
    EXPECT_EQ(WindowOfDay(7, 24).low, 600);
    EXPECT_EQ(WindowOfDay(7, 24).high, 696);
}

struct Counted {
    int week = 0;
    int day = 0;

    friend bool operator==(const Counted&, const Counted&) = default;
};

/// What of the quarters of a bar lies in the business week and on the business day, one by one.
Counted CountedOneByOne(int start, int stop, int day, int cutoff) {
    Counted counted;
    for (int q = start; q < stop; ++q) {
        const int business = q - cutoff;
        if (business < 0 || business >= 672) continue;
        ++counted.week;
        if (business / 96 == day - 1) ++counted.day;
    }
    return counted;
}

TEST_F(TotalsTest, a_bar_counts_with_what_lies_in_the_business_week_and_day) {
    std::vector<int> edges;
    for (int day = 0; day <= 8; ++day)
        for (const int near : {-1, 0, 1}) edges.push_back(day * 96 + near);
    for (const int cutoff : {0, 1, 5, 24, 32, 50}) {
        std::vector<int> times = edges;
        for (int day = 0; day <= 8; ++day)
            for (const int near : {-1, 0, 1}) times.push_back(day * 96 + cutoff + near);
        std::erase_if(times, [](int time) { return time < 0 || time > 768; });
        for (const int start : times)
            for (const int stop : times) {
                if (start >= stop) continue;
                for (int day = 1; day <= 7; ++day) {
                    test::WritableWeek(g).SummedDay = day;
                    test::WritableWeek(g).BarStarts[1][1] = start;
                    test::WritableWeek(g).BarStops[1][1] = stop;
                    test::WritableWeek(g).WeekQuarters[1] = test::WritableWeek(g).DayQuarters[1] = 0;
                    AddBarToTotals(test::WritableWeek(g), 1, 1, cutoff);
                    ASSERT_EQ((Counted{g.week.WeekQuarters[1], g.week.DayQuarters[1]}),
                              CountedOneByOne(start, stop, day, cutoff))
                        << start << ".." << stop << " on day " << day << " with a cut-off of " << cutoff;
                }
            }
    }
}

TEST_F(TotalsTest, the_last_business_day_counts_up_to_its_end_and_no_further) {
    SetCutoff(24);
    GoTo(7);
    Set(1, {{600, 696}});
    EXPECT_EQ(g.week.WeekQuarters[1], 96);
    EXPECT_EQ(g.week.DayQuarters[1], 96);
    Set(1, {{690, 700}});
    EXPECT_EQ(g.week.WeekQuarters[1], 6);
    Set(1, {{696, 768}});
    EXPECT_EQ(g.week.WeekQuarters[1], 0);
}

TEST_F(TotalsTest, time_before_the_cut_off_of_the_first_day_counts_nowhere) {
    SetCutoff(24);
    Set(1, {{0, 24}});
    EXPECT_EQ(g.week.WeekQuarters[1], 0);
    EXPECT_EQ(g.week.DayQuarters[1], 0);
    Set(1, {{20, 30}});
    EXPECT_EQ(g.week.WeekQuarters[1], 6);
    EXPECT_EQ(g.week.DayQuarters[1], 6);
}

TEST_F(TotalsTest, adding_a_bar_adds_to_what_is_there_and_counting_begins_anew) {
    Set(1, {{36, 68}, {100, 110}});
    AddBarToTotals(test::WritableWeek(g), 1, 2, 0);
    EXPECT_EQ(g.week.WeekQuarters[1], 52);
    CountBars(test::WritableWeek(g), 1, 0);
    EXPECT_EQ(g.week.WeekQuarters[1], 42);
    EXPECT_EQ(g.week.DayQuarters[1], 32);
}

TEST_F(TotalsTest, the_quarters_of_any_day_can_be_asked_for) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 500; ++round) {
        const int cutoff = static_cast<int>(random.Whole(0, 32));
        Set(1, test::RunsOf(test::Covered(test::RandomBars(random, 20))));
        int week = 0;
        for (int day = 1; day <= 7; ++day) {
            test::WritableWeek(g).SummedDay = day;
            CountBars(test::WritableWeek(g), 1, cutoff);
            ASSERT_EQ(QuartersOnDay(g.week, 1, day, cutoff), g.week.DayQuarters[1]);
            week += g.week.DayQuarters[1];
        }
        ASSERT_EQ(week, g.week.WeekQuarters[1]) << "seven business days are the business week";
    }
}

// --- sums -------------------------------------------------------------------------------------------------

TEST_F(TotalsTest, sums_keep_wages_and_salaries_apart) {
    Set(1, {{36, 68}, {132, 164}}); // 8 hours on two days at 10
    Set(2, {{36, 70}});             // 8.5 hours at 7.25
    Set(3, {{40, 60}, {300, 310}}); // a salary
    EXPECT_EQ(g.totals.WageDayQuarters, 66);
    EXPECT_EQ(g.totals.WageWeekQuarters, 98);
    EXPECT_EQ(g.totals.SalaryDayQuarters, 20);
    EXPECT_EQ(g.totals.SalaryWeekQuarters, 30);
    EXPECT_EQ(g.totals.TotalDayQuarters, 86);
    EXPECT_EQ(g.totals.TotalWeekQuarters, 128);
    EXPECT_EQ(g.totals.TotalDayWages.Amount(), 80 + 61.625);
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 160 + 61.625);
}

TEST_F(TotalsTest, a_week_of_34_hours_and_a_quarter_at_10_costs_342_50) {
    Set(1, {{96, 192}, {200, 241}});
    EXPECT_EQ(g.week.WeekQuarters[1], 137);
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 342.5);
}

TEST_F(TotalsTest, another_day_changes_the_sums_of_the_day_alone) {
    Set(1, {{36, 68}, {132, 140}});
    const long week = g.totals.TotalWeekQuarters;
    const Wage wages = g.totals.TotalWeekWages;
    GoTo(2);
    EXPECT_EQ(g.week.DayQuarters[1], 8);
    EXPECT_EQ(g.totals.TotalDayQuarters, 8);
    EXPECT_EQ(g.totals.TotalDayWages.Amount(), 20);
    EXPECT_EQ(g.totals.TotalWeekQuarters, week);
    EXPECT_EQ(g.totals.TotalWeekWages, wages);
    EXPECT_EQ(g.week.WeekQuarters[1], 40);
}

TEST_F(TotalsTest, an_employee_taken_out_and_put_back_changes_no_sum) {
    test::MakeRoster(g, 20);
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int e = 1; e <= 20; ++e) Set(e, test::RunsOf(test::Covered(test::RandomBars(random, 12))));
    const std::string sums = test::SumsText(g);
    for (int round = 0; round < 2000; ++round) {
        const int e = static_cast<int>(random.Whole(1, 20));
        AddEmployeeToTotals(g.week, PayrollOf(g), e, -1);
        AddEmployeeToTotals(g.week, PayrollOf(g), e, 1);
        ASSERT_EQ(test::SumsText(g), sums);
    }
    for (int e = 1; e <= 20; ++e) AddEmployeeToTotals(g.week, PayrollOf(g), e, -1);
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 0) << "nobody costs exactly nothing";
    EXPECT_EQ(g.totals.TotalDayWages.Amount(), 0);
}

TEST_F(TotalsTest, the_sum_of_wages_does_not_depend_on_the_order_in_which_it_grew) {
    test::MakeRoster(g, 200);
    for (int e = 1; e <= 200; ++e) Set(e, {{36, 69}});
    const Wage upwards = g.totals.TotalWeekWages;
    g.totals = {};
    for (int e = 200; e >= 1; --e) AddEmployeeToTotals(g.week, PayrollOf(g), e, 1);
    EXPECT_EQ(g.totals.TotalWeekWages, upwards);
}

// --- texts of the totals ----------------------------------------------------------------------------------

using Texts4 = std::array<std::string, 4>;

TEST_F(TotalsTest, texts_are_times_and_money_behind_a_blank) {
    EXPECT_EQ(TotalsTexts(g.totals, g.rights, g.application.options.TimeFormat),
              (Texts4{" 0:00", " 0:00", " .00", " .00"}));
    Set(2, {{36, 70}, {132, 140}});
    EXPECT_EQ(TotalsTexts(g.totals, g.rights, g.application.options.TimeFormat),
              (Texts4{" 8:30", "10:30", " 61.63", " 76.13"})); // 61.625 and 76.125
    g.application.options.TimeFormat = TimeFormat::Hundredths;
    EXPECT_EQ(TotalsTexts(g.totals, g.rights, g.application.options.TimeFormat)[0], " 8:50");
}

TEST_F(TotalsTest, texts_of_money_are_empty_while_pay_is_hidden) {
    g.rights.HideWages = true;
    Set(2, {{36, 70}});
    EXPECT_EQ(TotalsTexts(g.totals, g.rights, g.application.options.TimeFormat),
              (Texts4{" 8:30", " 8:30", "", ""}));
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 0);
}

// --- labor figures ----------------------------------------------------------------------------------------

using Texts6 = std::array<std::string, 6>;

class ProductivityTest : public TotalsTest {
  protected:
    void SetUp() override {
        TotalsTest::SetUp();
        g.TotalSalaries = Wage::Whole(Currency::FromAmount(700));
        g.figures.DailySales[1] = 1000;
        g.figures.DailySales[2] = 400;
        g.figures.DailyTransactions[1] = 120;
        g.totals.SalesTotal = 1400;
        g.totals.TransactionsTotal = 120;
        g.totals.SalesDays = 2;
        Set(1, {{36, 76}, {132, 172}}); // 10 hours on two days at 10
        Set(3, {{40, 60}});             // 5 hours on a salary
    }
    void Choose(bool wages, bool salaries) {
        Productivity& p = g.productivity;
        p.SalesWageHours = p.TransWageHours = p.LaborWages = wages;
        p.SalesSalaryHours = p.TransSalaryHours = p.LaborSalary = salaries;
    }
};

TEST_F(ProductivityTest, of_wages_divides_by_the_hours_that_are_paid_by_the_hour) {
    Choose(true, false);
    EXPECT_EQ(ProductivityTexts(g), (Texts6{" 10.00", " 100.00", " 12.00", " 14.29", " 70.00", " 6.00"}));
}

TEST_F(ProductivityTest, of_salaries_spreads_them_over_the_days_with_sales) {
    Choose(false, true);
    // 700 over two days against 1000; the whole 700 against 1400
    EXPECT_EQ(ProductivityTexts(g), (Texts6{" 35.00", " 200.00", " 24.00", " 50.00", " 280.00", " 24.00"}));
}

TEST_F(ProductivityTest, of_both_adds_them) {
    Choose(true, true);
    EXPECT_EQ(ProductivityTexts(g), (Texts6{" 45.00", " 66.67", " 8.00", " 64.29", " 56.00", " 4.80"}));
}

TEST_F(ProductivityTest, of_neither_has_no_hours_to_divide_by) {
    Choose(false, false);
    const Texts6 texts = ProductivityTexts(g);
    for (const int i : {0, 1, 2, 4, 5}) EXPECT_EQ(texts[i], "") << i;
    EXPECT_EQ(texts[3], " .00") << "the week has sales, and nothing that counts as cost";
}

TEST(LaborCost, counts_what_is_included_and_shares_out_salaries_alone) {
    const Wage wages = Wage::Whole(Currency::FromAmount(120));
    const Wage salaries = Wage::Whole(Currency::FromAmount(700));
    const auto cost = [&](bool ofWages, bool ofSalaries, int days) {
        return LaborCost({.LaborWages = ofWages, .LaborSalary = ofSalaries}, wages, salaries, days);
    };
    EXPECT_EQ(cost(true, true, 1), 820);
    EXPECT_EQ(cost(true, true, 7), 220);
    EXPECT_EQ(cost(true, true, 0), 120) << "without days there is nothing to share among";
    EXPECT_EQ(cost(true, false, 7), 120);
    EXPECT_EQ(cost(false, true, 7), 100);
    EXPECT_EQ(cost(false, false, 7), 0);
}

TEST_F(ProductivityTest, chooses_hours_for_sales_and_for_transactions_apart) {
    Choose(true, false);
    g.productivity.TransWageHours = false;
    g.productivity.TransSalaryHours = true;
    EXPECT_EQ(ProductivityTexts(g)[1], " 100.00");
    EXPECT_EQ(ProductivityTexts(g)[2], " 24.00");
    EXPECT_EQ(ProductivityTexts(g)[4], " 70.00");
    EXPECT_EQ(ProductivityTexts(g)[5], " 24.00");
}

TEST_F(ProductivityTest, is_empty_for_a_day_without_hours_even_with_sales) {
    Choose(true, false);
    g.figures.DailySales[4] = 50;
    GoTo(4);
    EXPECT_EQ(ProductivityTexts(g)[0], "");
    EXPECT_EQ(ProductivityTexts(g)[1], "");
    EXPECT_EQ(ProductivityTexts(g)[2], "");
    EXPECT_EQ(ProductivityTexts(g)[4], " 70.00") << "the week goes on";
}

TEST_F(ProductivityTest, shows_no_sales_as_nothing_an_hour) {
    Choose(true, false);
    g.figures.DailySales[1] = 0;
    EXPECT_EQ(ProductivityTexts(g)[0], "");
    EXPECT_EQ(ProductivityTexts(g)[1], " .00");
}

TEST_F(ProductivityTest, has_no_percentage_without_sales_in_the_week) {
    Choose(true, true);
    g.totals.SalesTotal = 0;
    EXPECT_EQ(ProductivityTexts(g)[0], "");
    EXPECT_EQ(ProductivityTexts(g)[3], "");
}

TEST_F(ProductivityTest, has_no_percentage_while_pay_is_hidden) {
    Choose(true, true);
    g.rights.HideWages = true;
    SumWeek(test::WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
    const Texts6 texts = ProductivityTexts(g);
    EXPECT_EQ(texts[0], "");
    EXPECT_EQ(texts[3], "");
    EXPECT_EQ(texts[1], " 66.67");
}

TEST_F(ProductivityTest, leaves_salaries_out_of_a_day_when_no_day_has_sales) {
    Choose(true, true);
    g.totals.SalesDays = 0;
    EXPECT_EQ(ProductivityTexts(g)[0], " 10.00");
}

TEST_F(ProductivityTest, has_no_percentage_when_the_last_bar_is_gone) {
    Choose(true, false);
    test::MakeRoster(g, 10);
    g.totals.SalesTotal = 1400;
    for (int e = 1; e <= 10; ++e) Set(e, {{36, 36 + e}});
    ASSERT_NE(ProductivityTexts(g)[0], "");
    for (int e = 1; e <= 10; ++e) {
        AddEmployeeToTotals(g.week, PayrollOf(g), e, -1);
        test::WritableWeek(g).BarCount[e] = 0;
        CountBars(test::WritableWeek(g), e, 0);
        AddEmployeeToTotals(g.week, PayrollOf(g), e, 1);
    }
    EXPECT_EQ(ProductivityTexts(g)[0], "");
}

// --- overtime ---------------------------------------------------------------------------------------------

TEST_F(TotalsTest, overtime_begins_above_the_limit) {
    g.application.options.DayOvertime = 32;
    g.application.options.WeekOvertime = 40;
    Set(1, {{36, 68}, {132, 140}});
    EXPECT_FALSE(IsOverDayLimit(g.week, g.application.options, 1));
    EXPECT_FALSE(IsOverWeekLimit(g.week, g.application.options, 1));
    Set(1, {{36, 69}, {132, 139}});
    EXPECT_TRUE(IsOverDayLimit(g.week, g.application.options, 1));
    EXPECT_FALSE(IsOverWeekLimit(g.week, g.application.options, 1));
    Set(1, {{36, 68}, {132, 141}});
    EXPECT_FALSE(IsOverDayLimit(g.week, g.application.options, 1));
    EXPECT_TRUE(IsOverWeekLimit(g.week, g.application.options, 1));
}

TEST_F(TotalsTest, only_the_leading_number_of_a_stored_limit_counts) {
    Options& options = g.application.options;
    const auto store = [&](const char* day, const char* week) {
        ApplicationRow row;
        row.dayOvertime = day;
        row.weekOvertime = week;
        options = OptionsOf(row);
    };
    store("96", "672)");
    Set(1, {{0, 672}});
    EXPECT_FALSE(IsOverWeekLimit(g.week, options, 1));
    store("95.5", "671)");
    EXPECT_TRUE(IsOverWeekLimit(g.week, options, 1));
    EXPECT_TRUE(IsOverDayLimit(g.week, options, 1));
    store("", "");
    Set(1, {});
    EXPECT_FALSE(IsOverDayLimit(g.week, options, 1));
    Set(1, {{0, 1}});
    EXPECT_TRUE(IsOverDayLimit(g.week, options, 1));
}

// --- headcount --------------------------------------------------------------------------------------------

TEST_F(TotalsTest, headcount_is_the_number_of_people_in_each_quarter_of_the_business_day) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    test::MakeRoster(g, 8);
    for (int cutoff = 0; cutoff <= 32; ++cutoff) {
        SetCutoff(cutoff);
        for (int e = 1; e <= 8; ++e) Set(e, test::RunsOf(test::Covered(test::RandomBars(random, 12))));
        for (int day = 1; day <= 7; ++day) {
            GoTo(day);
            const auto counts = FillHeadCount(g.week, g.cursor.CurrentDay, g.department.DayCutoffQuarters);
            ASSERT_EQ(counts[0], 0);
            for (int q = 1; q <= 96; ++q) {
                int people = 0;
                for (int e = 1; e <= 8; ++e)
                    people += test::Covered(
                        test::Bars(g, e))[static_cast<std::size_t>((day - 1) * 96 + cutoff + q - 1)];
                ASSERT_EQ(counts[q], people) << "day " << day << ", quarter " << q << ", cut-off " << cutoff;
            }
        }
    }
}

std::string FiguresText(const GlobalState& g, const Grid& grid) {
    std::string text;
    for (const HeadcountFigure& figure :
         HeadcountFigures(g.week, grid, g.cursor.CurrentDay, g.department.DayCutoffQuarters))
        text += std::to_string(figure.x / grid.QuarterWidth) + ":" + figure.text + " ";
    return text;
}

TEST_F(TotalsTest, headcount_figures_are_the_means_of_the_hours_shown) {
    Set(1, {{36, 68}});
    Set(2, {{38, 41}});
    const std::string text = FiguresText(g, grid);
    EXPECT_EQ(HeadcountFigures(g.week, grid, g.cursor.CurrentDay, g.department.DayCutoffQuarters).size(),
              24U);
    EXPECT_EQ(text.substr(0, 12), "2:.00 6:.00 ");
    EXPECT_NE(text.find(" 38:1.50 42:1.25 46:1.00 "), std::string::npos) << text;
}

TEST_F(TotalsTest, headcount_figures_follow_the_scrolled_day) {
    g.screen.VisibleHours = 8;
    g.application.options.StartHour = 8;
    test::OpenGrid(grid, g);
    Set(1, {{36, 40}});
    EXPECT_EQ(FiguresText(g, grid), "2:.00 6:1.00 10:.00 14:.00 18:.00 22:.00 26:.00 30:.00 ");
    ScrollToQuarter(grid, g.department.DayCutoffQuarters, 36);
    EXPECT_EQ(FiguresText(g, grid), "2:1.00 6:.00 10:.00 14:.00 18:.00 22:.00 26:.00 30:.00 ");
}

TEST_F(TotalsTest, headcount_figures_begin_at_the_first_full_hour_behind_an_odd_cut_off) {
    SetCutoff(21);      // 5:15
    Set(1, {{24, 28}}); // 6:00 to 7:00
    const auto figures = HeadcountFigures(g.week, grid, g.cursor.CurrentDay, g.department.DayCutoffQuarters);
    ASSERT_EQ(figures.size(), 23U);
    EXPECT_EQ(figures[0].x, 5 * grid.QuarterWidth); // the middle of 6:00 to 7:00
    EXPECT_EQ(figures[0].text, "1.00");
    EXPECT_EQ(figures[1].text, ".00");
}

// --- the totals box ---------------------------------------------------------------------------------------

TEST_F(TotalsTest, the_totals_box_shows_the_week_by_kind) {
    g.TotalSalaries = Wage::Whole(Currency::FromAmount(700));
    g.department.EmployeeNamePlural = "Nurses";
    Set(1, {{36, 68}});
    Set(2, {{36, 70}});
    Set(3, {{40, 62}});
    TotalsBox box = WeeklyTotalsBox(g);
    EXPECT_EQ(box.Label2, (Texts4{"", "141.63", "700.00", "841.63"}));
    EXPECT_EQ(box.Label3, (Texts4{"", "16:30", " 5:30", "22:00"}));
    EXPECT_EQ(box.activeCaption, "Active Nurses: ");
    EXPECT_EQ(box.activeCount, "3 ");
    test::MakeRoster(g, 12);
    EXPECT_EQ(WeeklyTotalsBox(g).activeCount, "12");
}

TEST_F(TotalsTest, the_totals_box_shows_no_money_while_pay_is_hidden) {
    g.TotalSalaries = Wage::Whole(Currency::FromAmount(700));
    g.rights.HideWages = true;
    Set(1, {{36, 68}});
    EXPECT_EQ(WeeklyTotalsBox(g).Label2, (Texts4{"", "", "", ""}));
    EXPECT_EQ(WeeklyTotalsBox(g).Label3[1], " 8:00");
}

} // namespace
} // namespace tvx
