#include "editor/week/LoadWeek.h"

#include "editor/lanes/BarDrag.h"
#include "editor/week/SaveWeek.h"
#include "editor/week/Totals.h"
#include "editor/week/WeekEdit.h"
#include "platform/dao/DaoError.h"
#include "shell/common/TVXMOD1.h"
#include "support/Bakery.h"
#include "support/FailingSession.h"
#include "support/Quarters.h"
#include "support/RawFile.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tvx {
namespace {

using test::BarList;
using test::RawFile;
using test::StartsStops;
using test::Sunday;

class LoadWeekTest : public test::Bakery {
  protected:
    RawFile File() { return RawFile(store.folder / "TVX.MDB"); }
};

// --- finding the week -------------------------------------------------------------------------------------

TEST_F(LoadWeekTest, finds_the_week_of_a_date_for_every_first_weekday) {
    store.OpenEditor();
    for (int first = 1; first <= 7; ++first)
        for (DaySerial date = Sunday; date < Sunday + 7; ++date) {
            g.department.FirstWeekday = first;
            LoadWeekOf(g, store.ports(), date);
            EXPECT_EQ(Weekday(g.week.WeekStartJulian), first);
            EXPECT_LE(g.week.WeekStartJulian, date);
            EXPECT_EQ(g.cursor.CurrentDay, date - g.week.WeekStartJulian + 1);
            EXPECT_GE(g.cursor.CurrentDay, 1);
            EXPECT_LE(g.cursor.CurrentDay, 7);
            EXPECT_EQ(g.week.WeekEndJulian, g.week.WeekStartJulian + 6);
        }
}

TEST_F(LoadWeekTest, names_the_seven_days) {
    store.OpenWeek(Sunday + 3);
    EXPECT_EQ(g.week.WeekDateTexts,
              (std::array<std::string, 8>{"", "1-Mar-2026", "2-Mar-2026", "3-Mar-2026", "4-Mar-2026",
                                          "5-Mar-2026", "6-Mar-2026", "7-Mar-2026"}));
    g.application.DateFormatSetting = "YYYY-MM-DD";
    Load(Sunday + 28);
    EXPECT_EQ(g.week.WeekDateTexts[1], "2026-Mar-29");
    EXPECT_EQ(g.week.WeekDateTexts[7], "2026-Apr-4");
}

TEST_F(LoadWeekTest, keeps_the_day_on_which_the_person_is) {
    store.OpenWeek(Sunday + 3);
    store.PutDay(Sunday + 10, adams, StartsStops({{36, 68}}));
    Load(Sunday + 7);
    EXPECT_EQ(g.cursor.CurrentDay, 4);
    EXPECT_EQ(g.week.DayQuarters[1], 32);
    EXPECT_EQ(g.totals.TotalDayQuarters, 32);
}

// --- bars -------------------------------------------------------------------------------------------------

TEST_F(LoadWeekTest, reads_the_bars_of_every_day) {
    for (int d = 0; d < 8; ++d) store.PutDay(Sunday + d, adams, StartsStops({{20 + d, 40}, {50, 60 + d}}));
    store.OpenWeek(Sunday);
    BarList expected;
    for (int d = 0; d < 8; ++d) {
        expected.emplace_back(d * 96 + 20 + d, d * 96 + 40);
        expected.emplace_back(d * 96 + 50, d * 96 + 60 + d);
    }
    EXPECT_EQ(test::Bars(g, 1), expected);
    EXPECT_EQ(g.week.BarCount[1], 16);
    EXPECT_EQ(g.week.BarCount[2], 0);
    test::ExpectSound(g);
}

TEST_F(LoadWeekTest, joins_periods_that_touch_or_overlap) {
    store.PutDay(Sunday, adams, StartsStops({{36, 48}, {48, 68}, {60, 80}}));
    store.OpenWeek(Sunday);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 80}}));
}

TEST_F(LoadWeekTest, joins_the_seventh_and_the_eighth_day_at_midnight) {
    store.PutDay(Sunday + 6, adams, StartsStops({{80, 96}}));
    store.PutDay(Sunday + 7, adams, StartsStops({{0, 24}}));
    store.OpenWeek(Sunday);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{656, 696}}));
}

TEST_F(LoadWeekTest, reads_a_whole_day) {
    store.PutDay(Sunday + 2, adams, StartsStops({{0, 96}}));
    store.OpenWeek(Sunday);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{192, 288}}));
}

TEST_F(LoadWeekTest, shows_no_bars_for_who_has_a_row_only_on_the_eighth_day) {
    store.PutDay(Sunday + 7, adams, StartsStops({{36, 68}}), "A", true);
    store.OpenWeek(Sunday);
    EXPECT_EQ(g.week.BarCount[1], 0);
    test::ExpectSound(g);
    EXPECT_EQ(g.week.DayTypeText[8][1], "A");
    EXPECT_TRUE(g.week.DayOffFlag[8][1]);
    Load(Sunday + 7);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
}

TEST_F(LoadWeekTest, counts_a_row_without_time_as_a_row_of_the_week) {
    store.PutDay(Sunday + 3, adams, "", "A");
    store.PutDay(Sunday + 7, adams, StartsStops({{36, 68}}));
    store.OpenWeek(Sunday);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{708, 740}}));
}

TEST_F(LoadWeekTest, keeps_the_first_35_bars) {
    for (int d = 0; d < 8; ++d) {
        std::vector<std::pair<int, int>> periods;
        for (int p = 0; p < 7; ++p) periods.emplace_back(2 + 12 * p, 6 + 12 * p);
        store.PutDay(Sunday + d, adams, StartsStops(periods));
    }
    store.OpenWeek(Sunday);
    EXPECT_EQ(g.week.BarCount[1], 35);
    EXPECT_EQ(test::Bars(g, 1).back(), (std::pair{4 * 96 + 74, 4 * 96 + 78}));
    test::ExpectSound(g);
}

TEST_F(LoadWeekTest, forgets_the_bars_of_the_week_before) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "A");
    store.OpenWeek(Sunday);
    ASSERT_EQ(g.week.BarCount[1], 1);
    Load(Sunday + 7);
    EXPECT_EQ(g.week.BarCount[1], 0);
    EXPECT_EQ(g.week.DayTypeText[1][1], "");
    EXPECT_EQ(g.totals.TotalWeekQuarters, 0);
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 0);
    test::ExpectSound(g);
}

// --- daytypes and days off --------------------------------------------------------------------------------

TEST_F(LoadWeekTest, reads_daytypes_in_capitals) {
    store.PutDay(Sunday, adams, "", "v1");
    store.PutDay(Sunday + 1, adams, "", "\xC3\xA9");
    store.PutDay(Sunday + 2, brown, "", "X");
    store.PutDay(Sunday + 3, brown, "", "  ");
    File().Run("INSERT INTO [Day Schedule] ([Day Julian], Employee) VALUES (?, ?)",
               {std::int64_t{Sunday + 4}, std::int64_t{brown}});
    store.OpenWeek(Sunday);
    EXPECT_EQ(g.week.DayTypeText[1][1], "V1");
    EXPECT_EQ(g.week.DayTypeText[2][1], "\xC3\x89");
    EXPECT_EQ(g.week.DayTypeText[3][2], "X");
    EXPECT_EQ(g.week.DayTypeText[4][2], "") << "blanks are none";
    EXPECT_EQ(g.week.DayTypeText[5][2], "");
    EXPECT_EQ(g.week.DayTypeText[1][2], "");
}

TEST_F(LoadWeekTest, reads_days_off_and_takes_a_missing_mark_for_none) {
    store.PutDay(Sunday, adams, "", "", true);
    store.PutDay(Sunday + 1, adams, "", "A", false);
    store.OpenWeek(Sunday);
    EXPECT_TRUE(g.week.DayOffFlag[1][1]);
    EXPECT_FALSE(g.week.DayOffFlag[2][1]);
    EXPECT_FALSE(g.week.DayOffFlag[3][1]);
    EXPECT_FALSE(g.week.DayOffFlag[1][2]);
    // A field that came with an upgrade, where no engine wrote a default.
    CloseDatabase(g.store, store.prompt());
    File().Run("ALTER TABLE [Day Schedule] DROP COLUMN [Vacation day]");
    File().Run("ALTER TABLE [Day Schedule] ADD COLUMN [Vacation day] BOOLEAN");
    g.store.Db = g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
    Load();
    EXPECT_FALSE(g.week.DayOffFlag[1][1]);
}

TEST_F(LoadWeekTest, drops_the_days_off_for_the_copy_of_a_week) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "A", true);
    store.OpenWeek(Sunday);
    LoadWeek(g, store.ports(), Sunday, true);
    EXPECT_FALSE(g.week.DayOffFlag[1][1]);
    EXPECT_EQ(g.week.DayTypeText[1][1], "A");
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    Load();
    EXPECT_TRUE(g.week.DayOffFlag[1][1]);
}

// --- sums -------------------------------------------------------------------------------------------------

TEST_F(LoadWeekTest, adds_up_hours_and_wages_by_kind) {
    store.PutDay(Sunday, adams, StartsStops({{36, 70}}));     // 8.5 hours
    store.PutDay(Sunday + 1, adams, StartsStops({{40, 44}})); // 1 hour
    store.PutDay(Sunday, brown, StartsStops({{36, 68}}));     // 8 hours on a salary
    store.OpenWeek(Sunday);
    EXPECT_EQ(g.week.DayQuarters, (std::vector<int>{0, 34, 32}));
    EXPECT_EQ(g.week.WeekQuarters, (std::vector<int>{0, 38, 32}));
    EXPECT_EQ(g.totals.TotalDayQuarters, 66);
    EXPECT_EQ(g.totals.TotalWeekQuarters, 70);
    EXPECT_EQ(g.totals.WageDayQuarters, 34);
    EXPECT_EQ(g.totals.WageWeekQuarters, 38);
    EXPECT_EQ(g.totals.SalaryDayQuarters, 32);
    EXPECT_EQ(g.totals.SalaryWeekQuarters, 32);
    EXPECT_EQ(g.totals.TotalDayWages.Amount(), 61.625);
    EXPECT_EQ(g.totals.TotalWeekWages.Amount(), 68.875);
    EXPECT_EQ(g.TotalSalaries.Amount(), 700);
}

TEST_F(LoadWeekTest, leaves_the_sums_as_a_count_from_scratch_would) {
    store.AddPeople(30);
    store.FillWeeks(Sunday, 2, 3);
    for (const int cutoff : {0, 5, 24, 32}) {
        g.department.DayCutoffQuarters = cutoff;
        for (int day = 0; day < 7; ++day) {
            store.OpenWeek(Sunday + day);
            ASSERT_GT(g.totals.TotalWeekQuarters, 0);
            EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g)) << cutoff << ", day " << day;
        }
    }
}

// --- figures and memos ------------------------------------------------------------------------------------

TEST_F(LoadWeekTest, reads_sales_transactions_and_memos_of_seven_days) {
    store.PutFigures(Sunday, 1000, 50, "Fair in town");
    store.PutFigures(Sunday + 1, 0, 20, "   ");
    store.PutFigures(Sunday + 2, 250.5, 0, "");
    store.PutFigures(Sunday + 7, 9999, 99, "next week");
    store.OpenWeek(Sunday);
    EXPECT_EQ(g.figures.DailySales, (std::array<double, 8>{0, 1000, 0, 250.5, 0, 0, 0, 0}));
    EXPECT_EQ(g.figures.DailyTransactions, (std::array<double, 8>{0, 50, 20, 0, 0, 0, 0, 0}));
    EXPECT_EQ(g.totals.SalesTotal, 1250.5);
    EXPECT_EQ(g.totals.TransactionsTotal, 70);
    EXPECT_EQ(g.totals.SalesDays, 2);
    EXPECT_TRUE(g.figures.HasDepartmentFigures);
    EXPECT_EQ(g.figures.DayMemoText[1], "Fair in town");
    EXPECT_EQ(g.figures.DayMemoFlag,
              (std::array<bool, 8>{false, true, false, false, false, false, false, false}));
}

TEST_F(LoadWeekTest, forgets_figures_and_memos_of_the_week_before) {
    store.PutFigures(Sunday, 1000, 50, "Fair in town");
    store.OpenWeek(Sunday);
    Load(Sunday + 7);
    EXPECT_EQ(g.figures.DailySales, (std::array<double, 8>{}));
    EXPECT_EQ(g.totals.SalesTotal, 0);
    EXPECT_EQ(g.totals.SalesDays, 0);
    EXPECT_FALSE(g.figures.HasDepartmentFigures);
    EXPECT_EQ(g.figures.DayMemoText[1], "");
    EXPECT_FALSE(g.figures.DayMemoFlag[1]);
}

TEST_F(LoadWeekTest, has_no_figures_in_a_week_that_holds_only_a_memo_or_losses) {
    store.PutFigures(Sunday, 0, 0, "closed");
    store.PutFigures(Sunday + 1, -10, -1, "");
    store.OpenWeek(Sunday);
    EXPECT_FALSE(g.figures.HasDepartmentFigures);
    EXPECT_EQ(g.totals.SalesDays, 0);
    EXPECT_EQ(g.totals.SalesTotal, 0);
    EXPECT_TRUE(g.figures.DayMemoFlag[1]);
}

TEST_F(LoadWeekTest, forgets_a_memo_that_is_missing_in_a_row_that_stands) {
    store.PutFigures(Sunday, 5, 5, "Fair in town");
    store.OpenWeek(Sunday);
    File().Run("UPDATE [Department day] SET Remarks = NULL, Sales = NULL, Transactions = NULL");
    Load();
    EXPECT_EQ(g.figures.DayMemoText[1], "");
    EXPECT_FALSE(g.figures.DayMemoFlag[1]);
    EXPECT_EQ(g.figures.DailySales[1], 0);
}

TEST_F(LoadWeekTest, reads_the_figures_of_its_own_department_only) {
    store.PutFigures(Sunday, 1000, 50, "ours");
    store.AddDepartment("Dairy");
    store.AddEmployee({.lastName = "Clark", .firstName = "Cleo"});
    store.PutFigures(Sunday, 7, 3, "theirs");
    store.OpenWeek(Sunday);
    EXPECT_EQ(g.figures.DailySales[1], 7);
    EXPECT_EQ(g.figures.DayMemoText[1], "theirs");
}

TEST_F(LoadWeekTest, reads_no_figures_with_all_departments_shown) {
    store.PutFigures(Sunday, 1000, 50, "Fair in town");
    store.OpenEditor();
    g.roster.AllDepartmentsMode = true;
    Load();
    EXPECT_FALSE(g.figures.HasDepartmentFigures);
    EXPECT_EQ(g.figures.DayMemoText[1], "");
}

TEST_F(LoadWeekTest, opens_the_week_without_a_word_when_the_figures_cannot_be_read) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.PutFigures(Sunday, 1000, 50, "Fair in town");
    store.OpenWeek(Sunday);
    File().Run("DROP TABLE [Department day]");
    Load();
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_FALSE(g.figures.HasDepartmentFigures);
    EXPECT_EQ(g.totals.SalesTotal, 0);
    EXPECT_EQ(g.figures.DayMemoText[1], "");
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST(LoadWeekFigures, of_a_day_that_cannot_be_read_leave_the_other_days_theirs) {
    const auto faults = std::make_shared<test::Faults>();
    test::TestStore store{dao::Engine(test::TestEngineOptions(), test::FailingSessions(faults))};
    store.AddDepartment("Bakery");
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    for (int d = 0; d < 7; ++d) store.PutFigures(Sunday + d, 100, 10, "Fair");
    store.OpenWeek(Sunday);
    const DepartmentFigures& figures = store.g.figures;
    int loaded = 0;
    bool refused = false;
    test::FailEachInTurn(
        *faults, test::Call::Step, dao::error::DiskError,
        [&] {
            refused = false;
            try {
                LoadWeek(store.g, store.ports(), Sunday);
            } catch (const dao::DaoError&) {
                refused = true;
            }
        },
        [&](int nth) {
            if (refused) return;
            ++loaded;
            EXPECT_EQ(std::count(figures.DailySales.begin(), figures.DailySales.end(), 100), 6) << nth;
            EXPECT_EQ(std::count(figures.DayMemoFlag.begin(), figures.DayMemoFlag.end(), true), 6) << nth;
            EXPECT_EQ(store.g.totals.SalesTotal, 600) << nth;
        });
    EXPECT_GE(loaded, 7);
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(LoadWeekTest, reads_what_enters_the_ratios_of_its_department) {
    store.OpenWeek(Sunday);
    EXPECT_FALSE(g.productivity.LaborSalary);
    test::WriteFile(store.folder / "1WS.DAT", " 12 \r\n"); // labor of both kinds
    Load(Sunday + 7);
    EXPECT_TRUE(g.productivity.LaborWages && g.productivity.LaborSalary);
    EXPECT_FALSE(g.productivity.SalesWageHours);
}

// --- what a load resets -----------------------------------------------------------------------------------

TEST_F(LoadWeekTest, begins_unchanged_with_the_first_row_and_an_empty_clipboard) {
    store.OpenWeek(Sunday);
    test::WritableWeek(g).WeekChanged = true;
    g.clipboard.ClipFull = true;
    g.cursor.CurrentRow = 2;
    Load();
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_FALSE(g.clipboard.ClipFull);
    EXPECT_EQ(g.cursor.CurrentRow, 1);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(LoadWeekTest, of_another_date_knows_nothing_of_a_gesture_that_was_left_open) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.OpenWeek(Sunday);
    drag.Press({MouseButton::Left, 50 * store.grid.QuarterWidth, 100});
    ASSERT_TRUE(drag.Hand().GestureOpen);
    drag.Move({MouseButton::Left, 60 * store.grid.QuarterWidth, 100});
    Load(Sunday + 7);
    EXPECT_TRUE(drag.Settle().rows.empty());
    EXPECT_EQ(test::Bars(g, 1), BarList{});
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(LoadWeekTest, of_another_roster_knows_nothing_of_a_gesture_that_was_left_open) {
    store.OpenWeek(Sunday);
    drag.Press({MouseButton::Left, 50 * store.grid.QuarterWidth, 240 + 100});
    ASSERT_TRUE(drag.Hand().GestureOpen);
    store.AddDepartment("Dairy");
    store.AddEmployee({.lastName = "Clark", .firstName = "Cleo"});
    store.OpenEditor();
    EXPECT_EQ(g.roster.EmployeeCount, 1);
    EXPECT_TRUE(drag.Settle().rows.empty());
    EXPECT_FALSE(drag.Hand().GestureOpen);
}

TEST_F(LoadWeekTest, that_fails_leaves_the_week_that_was_open) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "A");
    store.PutFigures(Sunday, 1000, 50, "Fair in town");
    store.OpenWeek(Sunday);
    test::WritableWeek(g).WeekChanged = true;
    const std::string sums = test::SumsText(g);
    File().Run("DROP TABLE [Day Schedule]");
    EXPECT_THROW(Load(Sunday + 7), dao::DaoError);
    EXPECT_EQ(g.week.WeekStartJulian, Sunday);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_EQ(g.week.DayTypeText[1][1], "A");
    EXPECT_EQ(g.figures.DayMemoText[1], "Fair in town");
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(test::SumsText(g), sums);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(LoadWeekTest, knows_its_date_and_department) {
    store.OpenEditor();
    EXPECT_FALSE(g.week.IsLoaded);
    Load(Sunday + 7);
    EXPECT_TRUE(g.week.IsLoaded);
    EXPECT_EQ(g.week.WeekStartJulian, Sunday + 7);
    EXPECT_EQ(g.week.LoadedDepNumber, g.department.CurrentDepNumber);
    store.OpenEditor();
    EXPECT_FALSE(g.week.IsLoaded) << "a new roster has no week";
}

TEST_F(LoadWeekTest, that_fails_at_first_leaves_no_week) {
    store.OpenEditor();
    File().Run("DROP TABLE [Day Schedule]");
    EXPECT_THROW(Load(Sunday), dao::DaoError);
    EXPECT_FALSE(g.week.IsLoaded);
    EXPECT_FALSE(WeekEdit(g).PutBars(1, {{36, 68}}).Done());
    const auto settle = [] {};
    EXPECT_FALSE(GoToNeighbourWeek(g, store.ports(), store.gauge, settle, 1)) << "from nowhere";
}

TEST_F(LoadWeekTest, of_a_sorted_roster_keeps_each_row_with_its_person) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.PutDay(Sunday, brown, StartsStops({{20, 30}}));
    store.OpenWeek(Sunday);
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[2]);
    Load();
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_EQ(test::Bars(g, 2), (BarList{{20, 30}}));
}

// --- weeks come back as they were saved -------------------------------------------------------------------

TEST_F(LoadWeekTest, gives_back_every_saved_week_for_every_cut_off) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    store.AddPeople(4);
    store.OpenEditor();
    for (int cutoff = 0; cutoff <= 32; ++cutoff) {
        g.department.DayCutoffQuarters = cutoff;
        Load(Sunday + 14 * cutoff);
        std::vector<BarList> bars(7);
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
            bars[e] = test::RandomStorableBars(random);
            // Rows on the eighth day alone belong to the next week.
            if (!bars[e].empty() && bars[e].front().first >= 672) bars[e].clear();
            test::SetBars(g, e, bars[e]);
            for (int d = 1; d <= 8; ++d)
                if (random.Chance(20))
                    test::WritableWeek(g).DayTypeText[d][e] = random.Chance(50) ? "A" : "V2";
        }
        const auto daytypes = g.week.DayTypeText;
        const std::string sums = test::SumsFromScratch(g);
        test::WritableWeek(g).WeekChanged = true;
        ASSERT_TRUE(SaveWeek(g, store.ports(), store.gauge, [] {}));
        Load(Sunday + 14 * cutoff);
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) ASSERT_EQ(test::Bars(g, e), bars[e]) << cutoff;
        ASSERT_EQ(g.week.DayTypeText, daytypes);
        ASSERT_EQ(test::SumsText(g), sums);
    }
}

} // namespace
} // namespace tvx
