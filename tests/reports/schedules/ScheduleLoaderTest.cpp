#include "reports/schedules/ScheduleLoader.h"

#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "support/RawFile.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026

class ScheduleLoaderTest : public testing::Test {
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
    PrintedPerson Person(int e) {
        ScheduleRequest one = request;
        one.kind = ScheduleKind::Selected;
        one.picked = {e};
        return LoadSchedule(g, store.ports(), one).people.at(0);
    }
    SchedulePage Page() { return LoadSchedulePage(g, store.ports(), request); }
    std::string Label(int e, int day) { return Person(e).labels[static_cast<std::size_t>(day)]; }
    /// The printed ranges of a day as quarters of the week.
    test::BarList Ranges(int day) {
        test::BarList ranges;
        const PrintedPerson person = Person(ann);
        for (const auto& [start, stop] : person.PrintRanges[static_cast<std::size_t>(day)])
            ranges.emplace_back(start, stop);
        return ranges;
    }
    test::BarList Load(const test::BarList& bars, int day) {
        test::SetBars(g, ann, bars);
        return Ranges(day);
    }
    int Quarters(int day) { return Person(ann).PrintDayQuarters[static_cast<std::size_t>(day)]; }
    std::string Range(int day, int row, bool cut) { return RangeText(Page(), Person(ann), day, row, cut); }
    bool IsListed(int e) { return IsPrinted(g.week, g.roster, g.reports.options, e); }
    /// The sums of everybody.
    ScheduleSums Sums() {
        const PrintedSchedule schedule = LoadSchedule(g, store.ports(), request);
        ScheduleSums sums;
        for (const PrintedPerson& person : schedule.people) AddToSums(schedule.page, person, sums);
        return sums;
    }
};

using List = test::BarList;

// ---- ranges and hours ----

TEST_F(ScheduleLoaderTest, clears_what_was_printed_before) {
    Load({{36, 68}}, 1);
    EXPECT_EQ(Load({}, 1), List{});
    EXPECT_EQ(Quarters(1), 0);
}

TEST_F(ScheduleLoaderTest, splits_the_hours_of_a_night_at_midnight_and_prints_its_range_on_the_first_day) {
    EXPECT_EQ(Load({{96 + 88, 192 + 8}}, 2), (List{{184, 200}})); // Monday 22:00 to Tuesday 2:00
    EXPECT_EQ(Ranges(3), List{});
    EXPECT_EQ(Quarters(2), 8);
    EXPECT_EQ(Quarters(3), 8);
    EXPECT_EQ(Range(2, 1, true), "10:00p   2:00a");
}

TEST_F(ScheduleLoaderTest, leaves_the_hours_of_a_night_with_the_day_when_the_next_begins_later) {
    g.department.DayCutoffQuarters = 16;
    Load({{96 + 88, 192 + 8}}, 2);
    EXPECT_EQ(Quarters(2), 16);
    EXPECT_EQ(Quarters(3), 0);
}

TEST_F(ScheduleLoaderTest, counts_the_hours_before_the_first_days_cut_off_nowhere) {
    g.department.DayCutoffQuarters = 16;
    Load({{8, 24}}, 1);
    EXPECT_EQ(Quarters(1), 8);
    EXPECT_EQ(Ranges(1), (List{{8, 24}}));
}

TEST_F(ScheduleLoaderTest, counts_a_night_into_the_eighth_day_there) {
    Load({{6 * 96 + 80, 7 * 96 + 20}}, 7);
    EXPECT_EQ(Quarters(7), 16);
    EXPECT_EQ(Quarters(8), 20);
    EXPECT_EQ(Ranges(7).size(), 1U);
}

TEST_F(ScheduleLoaderTest, parts_ranges_only_at_breaks_above_the_threshold) {
    const List split{{32, 48}, {49, 64}}; // a quarter of an hour between
    g.reports.options.BreakThreshold = 0;
    EXPECT_EQ(Load(split, 1), split);
    g.reports.options.BreakThreshold = 1;
    EXPECT_EQ(Load(split, 1), (List{{32, 64}})) << "not greater than the threshold";
    EXPECT_EQ(Quarters(1), 31) << "the break is not work";
}

TEST_F(ScheduleLoaderTest, parts_ranges_by_each_threshold) {
    for (int threshold = 0; threshold <= 4; ++threshold)
        for (int gap = 1; gap <= 6; ++gap) {
            g.reports.options.BreakThreshold = threshold;
            EXPECT_EQ(Load({{32, 40}, {40 + gap, 60}}, 1).size(), gap > threshold ? 2U : 1U)
                << gap << " over " << threshold;
        }
}

TEST_F(ScheduleLoaderTest, joins_over_midnight_into_the_column_of_the_start) {
    g.reports.options.BreakThreshold = 4;
    EXPECT_EQ(Load({{80, 94}, {98, 110}}, 1), (List{{80, 110}}));
    EXPECT_EQ(Ranges(2), List{});
}

TEST_F(ScheduleLoaderTest, leaves_the_bars_of_a_day_off_out_and_in_the_week_in_memory) {
    test::WritableWeek(g).DayOffFlag[2][static_cast<std::size_t>(ann)] = true;
    const List all{{36, 68}, {96 + 36, 96 + 68}, {192 + 36, 192 + 68}};
    EXPECT_EQ(Load(all, 2), List{});
    EXPECT_EQ(Person(ann).bars, (PrintedRanges{{36, 68}, {228, 260}}));
    EXPECT_EQ(Quarters(2), 0);
    EXPECT_EQ(test::Bars(g, ann), all) << "what a save stores does not depend on a print";
}

TEST_F(ScheduleLoaderTest, takes_as_many_bars_as_a_week_holds) {
    List bars;
    for (int b = 0; b < BarSlots; ++b) bars.emplace_back(b * 2, b * 2 + 1);
    EXPECT_EQ(Load(bars, 1).size(), static_cast<std::size_t>(BarSlots));
}

// ---- texts ----

TEST_F(ScheduleLoaderTest, writes_six_characters_of_a_time_or_all_of_them) {
    Load({{36, 68}}, 1);
    EXPECT_EQ(Range(1, 1, true), " 9:00a   5:00p");
    EXPECT_EQ(Range(1, 1, false), " 9:00am   5:00pm");
}

TEST_F(ScheduleLoaderTest, writes_the_word_for_the_last_stop_of_each_day_trimmed_and_uncut) {
    request.lastStop = true;
    request.openWord = "  Closing time ";
    Load({{32, 48}, {52, 68}}, 1);
    EXPECT_EQ(Range(1, 1, true), " 8:00a    Noon");
    EXPECT_EQ(Range(1, 2, true), " 1:00p  Closing time");
}

TEST_F(ScheduleLoaderTest, takes_one_day_off_a_stop_that_lies_beyond_midnight) {
    g.reports.options.BreakThreshold = 0;
    Load({{80, 288 + 4}}, 1); // joined over three nights
    EXPECT_EQ(Range(1, 1, false).substr(0, 9), " 8:00pm  ");
}

TEST_F(ScheduleLoaderTest, labels_a_day_with_the_name_of_its_daytype) {
    g.daytypes.DayTypeCount = 2;
    g.daytypes.DayTypeSymbols[1] = "ca";
    g.daytypes.DayTypeNames[1] = "Cashier";
    g.daytypes.DayTypeSymbols[2] = "CA";
    g.daytypes.DayTypeNames[2] = "Second";
    auto& text = test::WritableWeek(g).DayTypeText[3][static_cast<std::size_t>(ann)];
    text = "Ca";
    EXPECT_EQ(Label(ann, 3), "Cashier") << "the first match, whatever the case";
    text = "XX";
    EXPECT_EQ(Label(ann, 3), "") << "a symbol that the department does not have";
    text = " ";
    EXPECT_EQ(Label(ann, 3), "");
}

TEST_F(ScheduleLoaderTest, labels_a_day_off_whatever_its_daytype) {
    g.department.DayOffNameSingle = "Holiday";
    test::WritableWeek(g).DayTypeText[3][static_cast<std::size_t>(ann)] = "CA";
    test::WritableWeek(g).DayOffFlag[3][static_cast<std::size_t>(ann)] = true;
    EXPECT_EQ(Label(ann, 3), "Holiday");
    EXPECT_TRUE(Page().IsDayOff(" HOLIDAY "));
    EXPECT_FALSE(Page().IsDayOff("Cashier"));
}

// ---- who is printed ----

TEST_F(ScheduleLoaderTest, prints_everybody_or_those_with_something_on_the_week) {
    EXPECT_TRUE(IsListed(ann));
    g.reports.options.WhoToPrint = 1;
    EXPECT_FALSE(IsListed(ann));
    test::SetBars(g, ann, {{36, 68}});
    EXPECT_TRUE(IsListed(ann));
    test::SetBars(g, ann, {});
    test::WritableWeek(g).DayTypeText[7][static_cast<std::size_t>(ann)] = "CA";
    EXPECT_TRUE(IsListed(ann));
    test::WritableWeek(g).DayTypeText[7][static_cast<std::size_t>(ann)] = " ";
    EXPECT_FALSE(IsListed(ann));
    test::WritableWeek(g).DayOffFlag[1][static_cast<std::size_t>(ann)] = true;
    EXPECT_TRUE(IsListed(ann));
}

TEST_F(ScheduleLoaderTest, prints_a_salaried_employee_without_a_schedule_for_the_sake_of_the_salary) {
    g.reports.options.WhoToPrint = 1;
    EXPECT_FALSE(IsListed(boss));
    g.reports.options.PrintTotalWages = 1;
    EXPECT_TRUE(IsListed(boss));
    EXPECT_FALSE(IsListed(ann));
}

TEST_F(ScheduleLoaderTest, does_not_look_at_the_eighth_day_to_decide) {
    g.reports.options.WhoToPrint = 1;
    test::WritableWeek(g).DayTypeText[8][static_cast<std::size_t>(ann)] = "CA";
    test::WritableWeek(g).DayOffFlag[8][static_cast<std::size_t>(ann)] = true;
    EXPECT_FALSE(IsListed(ann));
}

// ---- names ----

TEST_F(ScheduleLoaderTest, puts_behind_a_name_what_the_option_says) {
    const int key = g.roster.RosterEmployeeKey[static_cast<std::size_t>(ann)];
    store.SetEmployee(key, "Phone", std::string("555-1234"));
    store.SetEmployee(key, "Soc Sec number", std::string("078-05-1120"));
    const std::vector<std::string> wanted{"", "Oven", "A1", "555-1234", "078-05-1120", ""};
    for (int option = 0; option <= 5; ++option) {
        g.reports.options.NameOption = option;
        EXPECT_EQ(Person(ann).detail, wanted[static_cast<std::size_t>(option)]) << option;
    }
}

TEST_F(ScheduleLoaderTest, puts_nothing_behind_a_name_whose_record_holds_nothing_or_is_gone) {
    for (const int option : {3, 4}) {
        g.reports.options.NameOption = option;
        EXPECT_EQ(Person(ann).detail, "") << "Null";
    }
    test::RawFile(store.folder / "TVX.MDB").Run("DELETE FROM Employee");
    EXPECT_EQ(Person(ann).detail, "") << "no record";
    test::RawFile(store.folder / "TVX.MDB").Run("DROP TABLE Employee");
    EXPECT_EQ(Person(ann).detail, "") << "no table";
}

TEST_F(ScheduleLoaderTest, leaves_the_record_that_others_stand_on_where_it_is) {
    g.store.EmployeeRs = g.store.Open().OpenRecordset("Employee");
    const std::string before = g.store.EmployeeRs.Fields("Last name").Text();
    g.reports.options.NameOption = 3;
    Person(boss);
    EXPECT_EQ(g.store.EmployeeRs.Fields("Last name").Text(), before);
}

// ---- money ----

TEST_F(ScheduleLoaderTest, pays_whole_hours_and_the_quarters_beyond_them) {
    const PrintedPerson person = Person(ann);
    EXPECT_EQ(DayWageAmount(person, 34).Amount(), 61.625);
    EXPECT_EQ(DayWagesText(Page(), person, 34, DayWageAmount(person, 34)), "Wages 61.63");
    EXPECT_EQ(DayWageAmount(Person(boss), 34), Wage());
}

TEST_F(ScheduleLoaderTest, gives_no_pay_that_may_not_be_seen) {
    g.reports.options.PrintTotalWages = 1;
    EXPECT_EQ(Person(ann).pay, Currency::FromAmount(7.25));
    EXPECT_TRUE(Page().salaries);
    g.rights.HideWages = true;
    for (const int e : {ann, boss}) {
        EXPECT_FALSE(Person(e).pay);
        EXPECT_EQ(DayWageAmount(Person(e), 34), Wage());
        EXPECT_EQ(SalaryText(Person(e)), "");
    }
    EXPECT_FALSE(Page().salaries);
    EXPECT_FALSE(Page().PrintsWages()) << "though it was asked for";
    EXPECT_EQ(g.reports.options.PrintTotalWages, 1) << "kept for who may see it";
}

TEST_F(ScheduleLoaderTest, writes_no_figures_on_a_day_without_hours) {
    EXPECT_EQ(DayHoursText(Page(), 0), "");
    EXPECT_EQ(DayHoursText(Page(), 34), "Hours  8:30");
    EXPECT_EQ(DayWagesText(Page(), Person(ann), 0, Wage()), "");
    EXPECT_EQ(DayWagesText(Page(), Person(boss), 34, Wage()), "On salary  ");
}

TEST_F(ScheduleLoaderTest, writes_the_weeks_wage_or_the_salary_and_nothing_for_a_wage_earner_without_hours) {
    EmployeeSums sums;
    EXPECT_EQ(WeekMoneyText(Person(ann), sums), "");
    EXPECT_EQ(WeekHoursText(Page(), Person(ann), sums), "");
    EXPECT_EQ(WeekMoneyText(Person(boss), sums), "900.00");
    sums.weekQuarters = 34;
    sums.weekWages = DayWageAmount(Person(ann), 34);
    EXPECT_EQ(WeekMoneyText(Person(ann), sums), "61.63");
    EXPECT_EQ(WeekHoursText(Page(), Person(ann), sums), " 8:30");
}

TEST_F(ScheduleLoaderTest, fills_a_blank_word_for_the_last_stop) {
    EXPECT_EQ(Page().openWord, " Open");
    request.openWord = "  ";
    EXPECT_EQ(Page().openWord, "_____");
}

TEST_F(ScheduleLoaderTest, sums_what_the_editor_sums) {
    test::SetBars(g, ann, {{36, 70}, {96 + 40, 96 + 75}, {6 * 96 + 80, 7 * 96 + 20}});
    test::SetBars(g, boss, {{36, 68}});
    const ScheduleSums sums = Sums();
    EXPECT_EQ(sums.PrintTotalQuarters, g.totals.TotalWeekQuarters);
    EXPECT_EQ(sums.PrintTotalWagesSum, g.totals.TotalWeekWages);
    EXPECT_EQ(sums.DayTotalQuarters[1], 34 + 32);
}

// ---- productivity ----

class RatiosTest : public ScheduleLoaderTest {
  protected:
    ScheduleSums sums;
    SchedulePage page;

    /// Monday: 8 hours of Ann, 4 of the boss; sales of 1000 and 200 transactions.
    void Sum(const Productivity& flags) {
        g.productivity = flags;
        test::SetBars(g, ann, {{96 + 36, 96 + 68}});
        test::SetBars(g, boss, {{96 + 36, 96 + 52}});
        g.figures.DailySales[2] = g.totals.SalesTotal = 1000;
        g.figures.DailyTransactions[2] = g.totals.TransactionsTotal = 200;
        g.totals.SalesDays = 1;
        Count();
    }
    void Count() {
        request.productivity = true;
        page = Page();
        sums = Sums();
    }
    std::string Sales(int day) { return SalesPerHour(*page.productivity, sums, day); }
    std::string Transactions(int day) { return TransactionsPerHour(*page.productivity, sums, day); }
    std::string Labor(int day) { return LaborPercent(page, sums, day); }
};

TEST_F(RatiosTest, divide_a_days_figures_by_the_time_that_the_flags_select) {
    Sum({true, false, false, true, true, false});
    EXPECT_EQ(Sales(2), "125.00");
    EXPECT_EQ(Transactions(2), "50.00");
    Sum({true, true, true, true, true, false});
    EXPECT_EQ(Sales(2), "83.33");
    EXPECT_EQ(Transactions(2), "16.67");
    Sum({false, false, false, false, true, false});
    EXPECT_EQ(Sales(2), "");
    EXPECT_EQ(Transactions(2), "");
}

TEST_F(RatiosTest, are_blank_on_a_day_without_hours) {
    Sum({true, true, true, true, true, true});
    g.figures.DailySales[5] = 70;
    Count();
    EXPECT_EQ(Sales(5), "");
    EXPECT_EQ(Transactions(5), "");
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
        EXPECT_EQ(Transactions(0), wanted) << bits;
    }
}

TEST_F(RatiosTest, of_labor_take_the_selected_cost) {
    Sum({true, false, true, false, true, false});
    EXPECT_EQ(Labor(2), "5.80"); // 58.00 of 1000
    Sum({true, false, true, false, false, true});
    EXPECT_EQ(Labor(2), "90.00"); // the whole salary on the one day with sales
    Sum({true, false, true, false, true, true});
    EXPECT_EQ(Labor(2), "95.80");
    Sum({true, false, true, false, false, false});
    EXPECT_EQ(Labor(2), "");
}

TEST_F(RatiosTest, of_the_weeks_labor_are_those_of_the_screen) {
    for (const bool wages : {false, true})
        for (const bool salaries : {false, true}) {
            Sum({true, false, true, false, wages, salaries});
            if (!wages && !salaries) continue; // the report leaves a cost of 0 blank
            EXPECT_EQ(Labor(0), Trim(ProductivityTexts(g)[3])) << wages << salaries;
        }
}

TEST_F(RatiosTest, of_labor_are_blank_without_sales_and_where_pay_is_hidden) {
    Sum({true, false, true, false, true, true});
    EXPECT_EQ(Labor(3), "");
    g.rights.HideWages = true;
    Sum({true, false, true, false, true, true});
    EXPECT_EQ(Labor(2), "");
    EXPECT_EQ(Labor(0), "");
}

TEST_F(RatiosTest, share_no_salary_out_when_no_day_has_sales) {
    Sum({true, true, true, true, true, true});
    EXPECT_EQ(Labor(2), "95.80");
    g.totals.SalesDays = 0;
    Count();
    EXPECT_EQ(Labor(2), "5.80") << "the wages alone";
}

TEST_F(RatiosTest, write_figures_as_plain_numbers) {
    g.figures.DailySales[2] = 1200.5;
    g.figures.DailyTransactions[2] = 0.5;
    Count();
    EXPECT_EQ(SalesText(*page.productivity, 2), "1200.5");
    EXPECT_EQ(TransactionsText(*page.productivity, 2), "0.5");
    EXPECT_EQ(SalesText(*page.productivity, 3), "");
}

} // namespace
} // namespace tvx
