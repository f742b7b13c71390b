#include "reports/schedules/PrintWeek.h"

#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026

class PrintWeekTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;
    ScheduleRequest request;
    int ann = 0;  // by the hour
    int boss = 0; // on a salary

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee(
            {.lastName = "Adams", .firstName = "Ann", .pay = "7.25", .id = "A1", .assignment = "Oven"});
        store.AddEmployee({.lastName = "Boss", .firstName = "Bo", .pay = "900.00", .hourly = false});
        store.OpenWeek(Sunday);
        ann = 1;
        boss = 2;
    }
    /// The printed ranges of a day as quarters of the week.
    test::BarList Ranges(int day) const {
        test::BarList ranges;
        const PrintArrays& print = g.reports.print;
        for (int row = 1; row <= print.PrintRangeCount[day]; ++row)
            ranges.emplace_back(print.PrintRangeStart[row][day], print.PrintRangeStop[row][day]);
        return ranges;
    }
    test::BarList Load(const test::BarList& bars, int day) {
        test::SetBars(g, ann, bars);
        LoadPrintArrays(g, ann);
        return Ranges(day);
    }
    int Quarters(int day) const { return g.reports.print.PrintDayQuarters[day]; }
};

using List = test::BarList;

// ---- ranges and hours ----

TEST_F(PrintWeekTest, clears_what_was_printed_before) {
    Load({{36, 68}}, 1);
    EXPECT_EQ(Load({}, 1), List{});
    EXPECT_EQ(Quarters(1), 0);
}

TEST_F(PrintWeekTest, splits_the_hours_of_a_night_at_midnight_and_prints_its_range_on_the_first_day) {
    EXPECT_EQ(Load({{96 + 88, 192 + 8}}, 2), (List{{184, 200}})); // Monday 22:00 to Tuesday 2:00
    EXPECT_EQ(Ranges(3), List{});
    EXPECT_EQ(Quarters(2), 8);
    EXPECT_EQ(Quarters(3), 8);
    EXPECT_EQ(RangeText(g, request, 2, 1, true), "10:00p   2:00a");
}

TEST_F(PrintWeekTest, leaves_the_hours_of_a_night_with_the_day_when_the_next_begins_later) {
    g.department.DayCutoffQuarters = 16;
    Load({{96 + 88, 192 + 8}}, 2);
    EXPECT_EQ(Quarters(2), 16);
    EXPECT_EQ(Quarters(3), 0);
}

TEST_F(PrintWeekTest, counts_the_hours_before_the_first_days_cut_off_nowhere) {
    g.department.DayCutoffQuarters = 16;
    Load({{8, 24}}, 1);
    EXPECT_EQ(Quarters(1), 8);
    EXPECT_EQ(Ranges(1), (List{{8, 24}}));
}

TEST_F(PrintWeekTest, counts_a_night_into_the_eighth_day_there) {
    Load({{6 * 96 + 80, 7 * 96 + 20}}, 7);
    EXPECT_EQ(Quarters(7), 16);
    EXPECT_EQ(Quarters(8), 20);
    EXPECT_EQ(Ranges(7).size(), 1U);
}

TEST_F(PrintWeekTest, parts_ranges_only_at_breaks_above_the_threshold) {
    const List split{{32, 48}, {49, 64}}; // a quarter of an hour between
    g.reports.options.BreakThreshold = 0;
    EXPECT_EQ(Load(split, 1), split);
    g.reports.options.BreakThreshold = 1;
    EXPECT_EQ(Load(split, 1), (List{{32, 64}})) << "not greater than the threshold";
    EXPECT_EQ(Quarters(1), 31) << "the break is not work";
}

TEST_F(PrintWeekTest, parts_ranges_by_each_threshold) {
    for (int threshold = 0; threshold <= 4; ++threshold)
        for (int gap = 1; gap <= 6; ++gap) {
            g.reports.options.BreakThreshold = threshold;
            EXPECT_EQ(Load({{32, 40}, {40 + gap, 60}}, 1).size(), gap > threshold ? 2U : 1U)
                << gap << " over " << threshold;
        }
}

TEST_F(PrintWeekTest, joins_over_midnight_into_the_column_of_the_start) {
    g.reports.options.BreakThreshold = 4;
    EXPECT_EQ(Load({{80, 94}, {98, 110}}, 1), (List{{80, 110}}));
    EXPECT_EQ(Ranges(2), List{});
}

TEST_F(PrintWeekTest, drops_the_bars_of_a_day_off_from_the_week_in_memory) {
    g.week.DayOffFlag[2][static_cast<std::size_t>(ann)] = true;
    EXPECT_EQ(Load({{36, 68}, {96 + 36, 96 + 68}, {192 + 36, 192 + 68}}, 2), List{});
    EXPECT_EQ(test::Bars(g, ann), (List{{36, 68}, {228, 260}}));
    EXPECT_EQ(Quarters(2), 0);
    LoadPrintArrays(g, ann);
    EXPECT_EQ(test::Bars(g, ann), (List{{36, 68}, {228, 260}})) << "a second report finds them gone";
}

TEST_F(PrintWeekTest, takes_as_many_bars_as_a_week_holds) {
    List bars;
    for (int b = 0; b < BarSlots; ++b) bars.emplace_back(b * 2, b * 2 + 1);
    EXPECT_EQ(Load(bars, 1).size(), static_cast<std::size_t>(BarSlots));
}

// ---- texts ----

TEST_F(PrintWeekTest, writes_six_characters_of_a_time_or_all_of_them) {
    Load({{36, 68}}, 1);
    EXPECT_EQ(RangeText(g, request, 1, 1, true), " 9:00a   5:00p");
    EXPECT_EQ(RangeText(g, request, 1, 1, false), " 9:00am   5:00pm");
}

TEST_F(PrintWeekTest, writes_the_word_for_the_last_stop_of_each_day_trimmed_and_uncut) {
    request.lastStop = true;
    request.openWord = "  Closing time ";
    Load({{32, 48}, {52, 68}}, 1);
    EXPECT_EQ(RangeText(g, request, 1, 1, true), " 8:00a    Noon");
    EXPECT_EQ(RangeText(g, request, 1, 2, true), " 1:00p  Closing time");
}

TEST_F(PrintWeekTest, takes_one_day_off_a_stop_that_lies_beyond_midnight) {
    g.reports.options.BreakThreshold = 0;
    Load({{80, 288 + 4}}, 1); // joined over three nights
    EXPECT_EQ(RangeText(g, request, 1, 1, false).substr(0, 9), " 8:00pm  ");
}

TEST_F(PrintWeekTest, labels_a_day_with_the_name_of_its_daytype) {
    g.daytypes.DayTypeCount = 2;
    g.daytypes.DayTypeSymbols[1] = "ca";
    g.daytypes.DayTypeNames[1] = "Cashier";
    g.daytypes.DayTypeSymbols[2] = "CA";
    g.daytypes.DayTypeNames[2] = "Second";
    auto& text = g.week.DayTypeText[3][static_cast<std::size_t>(ann)];
    text = "Ca";
    EXPECT_EQ(DayLabel(g, ann, 3), "Cashier") << "the first match, whatever the case";
    text = "XX";
    EXPECT_EQ(DayLabel(g, ann, 3), "") << "a symbol that the department does not have";
    text = " ";
    EXPECT_EQ(DayLabel(g, ann, 3), "");
}

TEST_F(PrintWeekTest, labels_a_day_off_whatever_its_daytype) {
    g.department.DayOffNameSingle = "Holiday";
    g.week.DayTypeText[3][static_cast<std::size_t>(ann)] = "CA";
    g.week.DayOffFlag[3][static_cast<std::size_t>(ann)] = true;
    EXPECT_EQ(DayLabel(g, ann, 3), "Holiday");
    EXPECT_TRUE(IsDayOffLabel(g, " HOLIDAY "));
    EXPECT_FALSE(IsDayOffLabel(g, "Cashier"));
}

// ---- who is printed ----

TEST_F(PrintWeekTest, prints_everybody_or_those_with_something_on_the_week) {
    EXPECT_TRUE(IsPrinted(g, ann));
    g.reports.options.WhoToPrint = 1;
    EXPECT_FALSE(IsPrinted(g, ann));
    test::SetBars(g, ann, {{36, 68}});
    EXPECT_TRUE(IsPrinted(g, ann));
    test::SetBars(g, ann, {});
    g.week.DayTypeText[7][static_cast<std::size_t>(ann)] = "CA";
    EXPECT_TRUE(IsPrinted(g, ann));
    g.week.DayTypeText[7][static_cast<std::size_t>(ann)] = " ";
    EXPECT_FALSE(IsPrinted(g, ann));
    g.week.DayOffFlag[1][static_cast<std::size_t>(ann)] = true;
    EXPECT_TRUE(IsPrinted(g, ann));
}

TEST_F(PrintWeekTest, prints_a_salaried_employee_without_a_schedule_for_the_sake_of_the_salary) {
    g.reports.options.WhoToPrint = 1;
    EXPECT_FALSE(IsPrinted(g, boss));
    g.reports.options.PrintTotalWages = 1;
    EXPECT_TRUE(IsPrinted(g, boss));
    EXPECT_FALSE(IsPrinted(g, ann));
}

TEST_F(PrintWeekTest, does_not_look_at_the_eighth_day_to_decide) {
    g.reports.options.WhoToPrint = 1;
    g.week.DayTypeText[8][static_cast<std::size_t>(ann)] = "CA";
    g.week.DayOffFlag[8][static_cast<std::size_t>(ann)] = true;
    EXPECT_FALSE(IsPrinted(g, ann));
}

// ---- names ----

TEST_F(PrintWeekTest, puts_behind_a_name_what_the_option_says) {
    const int key = g.roster.RosterEmployeeKey[static_cast<std::size_t>(ann)];
    store.SetEmployee(key, "Phone", std::string("555-1234"));
    store.SetEmployee(key, "Soc Sec number", std::string("078-05-1120"));
    const std::vector<std::string> wanted{"", "Oven", "A1", "555-1234", "078-05-1120", ""};
    for (int option = 0; option <= 5; ++option) {
        g.reports.options.NameOption = option;
        EXPECT_EQ(NameDetail(g, ann), wanted[static_cast<std::size_t>(option)]) << option;
    }
}

TEST_F(PrintWeekTest, puts_nothing_behind_a_name_whose_record_holds_nothing_or_is_gone) {
    for (const int option : {3, 4}) {
        g.reports.options.NameOption = option;
        EXPECT_EQ(NameDetail(g, ann), "") << "Null";
    }
    test::RawFile(store.folder / "TVX.MDB").Run("DELETE FROM Employee");
    EXPECT_EQ(NameDetail(g, ann), "") << "no record";
    test::RawFile(store.folder / "TVX.MDB").Run("DROP TABLE Employee");
    EXPECT_EQ(NameDetail(g, ann), "") << "no table";
}

// ---- money ----

TEST_F(PrintWeekTest, pays_whole_hours_and_the_quarters_beyond_them) {
    EXPECT_DOUBLE_EQ(DayWageAmount(g, ann, 34), 61.625);
    EXPECT_EQ(DayWagesText(g, ann, 34, DayWageAmount(g, ann, 34)), "Wages 61.63");
    EXPECT_EQ(DayWageAmount(g, boss, 34), 0);
    g.rights.HideWages = true;
    EXPECT_EQ(DayWageAmount(g, ann, 34), 0);
}

TEST_F(PrintWeekTest, writes_no_figures_on_a_day_without_hours) {
    EXPECT_EQ(DayHoursText(g, 0), "");
    EXPECT_EQ(DayHoursText(g, 34), "Hours  8:30");
    EXPECT_EQ(DayWagesText(g, ann, 0, 0), "");
    EXPECT_EQ(DayWagesText(g, boss, 34, 0), "On salary  ");
}

TEST_F(PrintWeekTest, writes_the_weeks_wage_or_the_salary_and_nothing_for_a_wage_earner_without_hours) {
    EmployeeSums sums;
    EXPECT_EQ(WeekMoneyText(g, ann, sums), "");
    EXPECT_EQ(WeekHoursText(g, ann, sums), "");
    EXPECT_EQ(WeekMoneyText(g, boss, sums), "900.00");
    sums.weekQuarters = 34;
    sums.weekWages = 61.625;
    EXPECT_EQ(WeekMoneyText(g, ann, sums), "61.63");
    EXPECT_EQ(WeekHoursText(g, ann, sums), " 8:30");
}

TEST_F(PrintWeekTest, begins_a_run_with_empty_sums_and_a_word_for_the_last_stop) {
    g.reports.totals.DayTotalQuarters[3] = 7;
    request.openWord = "  ";
    BeginRun(g, request);
    EXPECT_EQ(g.reports.totals.DayTotalQuarters[3], 0);
    EXPECT_EQ(request.openWord, "_____");
}

TEST_F(PrintWeekTest, prints_no_money_that_may_not_be_seen_though_it_was_asked_for) {
    g.reports.options.PrintTotalWages = 1;
    g.rights.HideWages = true;
    BeginRun(g, request);
    EXPECT_EQ(g.reports.options.PrintTotalWages, 0);
}

TEST_F(PrintWeekTest, sums_what_the_editor_sums) {
    test::SetBars(g, ann, {{36, 70}, {96 + 40, 96 + 75}, {6 * 96 + 80, 7 * 96 + 20}});
    test::SetBars(g, boss, {{36, 68}});
    ScheduleSums sums;
    BeginRun(g, request);
    for (const int e : {ann, boss}) {
        LoadPrintArrays(g, e);
        AddToSums(g, e, false, sums);
    }
    EXPECT_EQ(sums.PrintTotalQuarters, g.totals.TotalWeekQuarters);
    EXPECT_DOUBLE_EQ(sums.PrintTotalWagesSum, g.totals.TotalWeekWages);
    EXPECT_EQ(g.reports.totals.DayTotalQuarters[1], 34 + 32);
}

// ---- productivity ----

class RatiosTest : public PrintWeekTest {
  protected:
    ScheduleSums sums;

    /// Monday: 8 hours of Ann, 4 of the boss; sales of 1000 and 200 transactions.
    void Sum(const Productivity& flags) {
        g.productivity = flags;
        test::SetBars(g, ann, {{96 + 36, 96 + 68}});
        test::SetBars(g, boss, {{96 + 36, 96 + 52}});
        g.week.DailySales[2] = g.totals.SalesTotal = 1000;
        g.week.DailyTransactions[2] = g.totals.TransactionsTotal = 200;
        g.totals.SalesDays = 1;
        sums = {};
        BeginRun(g, request);
        for (const int e : {ann, boss}) {
            LoadPrintArrays(g, e);
            AddToSums(g, e, true, sums);
        }
    }
};

TEST_F(RatiosTest, divide_a_days_figures_by_the_time_that_the_flags_select) {
    Sum({true, false, false, true, true, false});
    EXPECT_EQ(SalesPerHour(g, sums, 2), "125.00");
    EXPECT_EQ(TransactionsPerHour(g, sums, 2), "50.00");
    Sum({true, true, true, true, true, false});
    EXPECT_EQ(SalesPerHour(g, sums, 2), "83.33");
    EXPECT_EQ(TransactionsPerHour(g, sums, 2), "16.67");
    Sum({false, false, false, false, true, false});
    EXPECT_EQ(SalesPerHour(g, sums, 2), "");
    EXPECT_EQ(TransactionsPerHour(g, sums, 2), "");
}

TEST_F(RatiosTest, are_blank_on_a_day_without_hours) {
    Sum({true, true, true, true, true, true});
    g.week.DailySales[5] = 70;
    EXPECT_EQ(SalesPerHour(g, sums, 5), "");
    EXPECT_EQ(TransactionsPerHour(g, sums, 5), "");
}

TEST_F(RatiosTest, of_the_weeks_transactions_ask_flags_of_their_own) {
    // Both kinds of time: transactions count wage time and sales count salaried time. One kind alone: by the
    // flags of the sales.
    for (int bits = 0; bits < 16; ++bits) {
        const bool salesWage = (bits & 1) != 0;
        const bool salesSalary = (bits & 2) != 0;
        const bool transWage = (bits & 4) != 0;
        const bool transSalary = (bits & 8) != 0;
        Sum({salesWage, salesSalary, transWage, transSalary, true, false});
        const long wage = sums.WageTimeQuarters[0];
        const long salary = sums.SalaryTimeQuarters[0];
        EXPECT_EQ(wage, salesWage || transWage ? 32 : 0) << bits;
        EXPECT_EQ(salary, salesSalary || transSalary ? 16 : 0) << bits;
        std::string wanted;
        if (transWage && salesSalary)
            wanted = "16.67";
        else if (salesWage)
            wanted = "25.00";
        else if (salesSalary)
            wanted = "50.00";
        EXPECT_EQ(TransactionsPerHour(g, sums, 0), wanted) << bits;
    }
}

TEST_F(RatiosTest, of_labor_take_the_selected_cost) {
    Sum({true, false, true, false, true, false});
    EXPECT_EQ(LaborPercent(g, sums, 2), "5.80"); // 58.00 of 1000
    Sum({true, false, true, false, false, true});
    EXPECT_EQ(LaborPercent(g, sums, 2), "90.00"); // the whole salary on the one day with sales
    Sum({true, false, true, false, true, true});
    EXPECT_EQ(LaborPercent(g, sums, 2), "95.80");
    Sum({true, false, true, false, false, false});
    EXPECT_EQ(LaborPercent(g, sums, 2), "");
}

TEST_F(RatiosTest, of_the_weeks_labor_are_those_of_the_screen) {
    for (const bool wages : {false, true})
        for (const bool salaries : {false, true}) {
            Sum({true, false, true, false, wages, salaries});
            if (!wages && !salaries) continue; // the report leaves a cost of 0 blank
            EXPECT_EQ(LaborPercent(g, sums, 0), Trim(ProductivityTexts(g)[3])) << wages << salaries;
        }
}

TEST_F(RatiosTest, of_labor_are_blank_without_sales_and_where_pay_is_hidden) {
    Sum({true, false, true, false, true, true});
    EXPECT_EQ(LaborPercent(g, sums, 3), "");
    g.rights.HideWages = true;
    Sum({true, false, true, false, true, true});
    EXPECT_EQ(LaborPercent(g, sums, 2), "");
    EXPECT_EQ(LaborPercent(g, sums, 0), "");
}

TEST_F(RatiosTest, share_no_salary_out_when_no_day_has_sales) {
    Sum({true, true, true, true, true, true});
    g.totals.SalesDays = 0;
    sums = {};
    LoadPrintArrays(g, boss);
    AddToSums(g, boss, true, sums);
    EXPECT_EQ(sums.SalaryCost[2], 0);
}

TEST_F(RatiosTest, write_figures_as_plain_numbers) {
    g.week.DailySales[2] = 1200.5;
    g.week.DailyTransactions[2] = 0.5;
    EXPECT_EQ(SalesText(g, 2), "1200.5");
    EXPECT_EQ(TransactionsText(g, 2), "0.5");
    EXPECT_EQ(SalesText(g, 3), "");
}

} // namespace
} // namespace tvx
