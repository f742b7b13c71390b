#include "editor/week/SaveWeek.h"

#include "editor/lanes/BarDrag.h"
#include "editor/week/LoadWeek.h"
#include "editor/week/WeekEdit.h"
#include "platform/dao/DaoError.h"
#include "shell/common/TVXMOD1.h"
#include "support/Bakery.h"
#include "support/FailingSession.h"
#include "support/Quarters.h"
#include "support/RawFile.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using test::RawFile;
using test::StartsStops;
using test::Sunday;
using Rows = std::vector<std::string>;

class SaveWeekTest : public test::Bakery {
  protected:
    bool Save() {
        return SaveWeek(g, store.ports(), store.gauge, [this] { drag.Settle(); });
    }
    /// One row as it should stand.
    std::string Row(DaySerial day, int key, const std::string& dayType, const std::string& periods,
                    const std::string& rest) {
        return std::to_string(day) + "|" + std::to_string(key) + "|" + dayType + "|" + periods + "|" + rest;
    }
};

// --- what is written --------------------------------------------------------------------------------------

TEST_F(SaveWeekTest, a_bar_is_stored_as_a_row_of_its_day) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 68}});
    test::WritableWeek(g).WeekChanged = true;
    EXPECT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{"46082|1||9:00am-5:00pm|8|7.25|W|0"});
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(SaveWeekTest, a_salaried_day_carries_a_seventh_of_the_salary) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 2, {{36, 69}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, brown, "", "9:00am-5:15pm", "8.25|100|S|0")});
}

TEST_F(SaveWeekTest, the_rate_is_exact_to_four_decimals_or_a_whole_seventh) {
    store.SetEmployee(adams, "Pay", std::string("7.12345"));
    store.SetEmployee(brown, "Pay", std::string("500"));
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 68}});
    test::SetBars(g, 2, {{36, 68}});
    ASSERT_TRUE(Save());
    const Rows rates =
        RawFile(store.folder / "TVX.MDB").Rows("SELECT [Current Rate] FROM [Day Schedule] ORDER BY Employee");
    ASSERT_EQ(rates.size(), 2U);
    EXPECT_EQ(std::stod(rates[0]), 7.1234);
    EXPECT_NEAR(std::stod(rates[1]), 500.0 / 7, 1e-12);
}

TEST_F(SaveWeekTest, a_bar_over_midnight_is_stored_in_two_rows_and_comes_back_as_one) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 2, {{88, 120}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), (Rows{Row(Sunday, brown, "", "10:00pm-midnight", "2|100|S|0"),
                                  Row(Sunday + 1, brown, "", "12:00am-6:00am", "6|100|S|0")}));
    Load();
    EXPECT_EQ(test::Bars(g, 2), (BarList{{88, 120}}));
    EXPECT_EQ(g.totals.SalaryWeekQuarters, 32);
}

TEST_F(SaveWeekTest, midnight_is_stored_as_code_128) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{0, 96}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{"46082|1||12:00am-midnight|24|7.25|W|0"});
    // In the file it is the character of that number, and no code page's.
    EXPECT_EQ(RawFile(store.folder / "TVX.MDB")
                  .Rows("SELECT hex([Starts & Stops]), typeof([Starts & Stops]) FROM [Day Schedule]"),
              Rows{"20202020202020C280202020202020|text"});
}

TEST_F(SaveWeekTest, of_eight_bars_on_a_day_seven_are_stored) {
    store.OpenWeek(Sunday);
    BarList bars;
    std::vector<std::pair<int, int>> seven;
    for (int b = 0; b < 8; ++b) {
        bars.emplace_back(10 + 10 * b, 14 + 10 * b);
        if (b < 7) seven.push_back(bars.back());
    }
    test::SetBars(g, 1, bars);
    test::WritableWeek(g).WeekChanged = true;
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(),
              Rows{Row(Sunday, adams, "", test::PeriodsText(StartsStops(seven)), "7|7.25|W|0")});
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_EQ(test::Bars(g, 1), bars) << "the week in memory stays";
}

TEST_F(SaveWeekTest, a_daytype_alone_makes_a_row_without_time) {
    store.OpenWeek(Sunday);
    test::WritableWeek(g).DayTypeText[3][1] = "V";
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday + 2, adams, "V", "", "0|7.25|W|0")});
}

TEST_F(SaveWeekTest, a_daytype_of_blanks_counts_as_none) {
    store.OpenWeek(Sunday);
    for (const char* blank : {"", " ", "  "}) {
        test::WritableWeek(g).DayTypeText[3][1] = blank;
        ASSERT_TRUE(Save());
        EXPECT_TRUE(store.Rows().empty()) << '"' << blank << '"';
    }
    for (const char* some : {"A", "1", "zz", "~"}) {
        test::WritableWeek(g).DayTypeText[3][1] = some;
        ASSERT_TRUE(Save());
        EXPECT_EQ(store.Rows().size(), 1U) << some;
    }
}

TEST_F(SaveWeekTest, blanks_in_the_place_of_a_daytype_stay_as_they_were_stored) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), " ");
    store.PutDay(Sunday + 1, adams, StartsStops({{36, 68}}), "  ");
    store.OpenWeek(Sunday);
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), (std::vector<std::string>{"46082|1| |9:00am-5:00pm|8|10|W|0",
                                                      "46083|1|  |9:00am-5:00pm|8|10|W|0"}));
}

TEST_F(SaveWeekTest, an_empty_week_writes_nothing) {
    store.OpenWeek(Sunday);
    EXPECT_TRUE(Save());
    EXPECT_TRUE(store.Rows().empty());
}

TEST_F(SaveWeekTest, the_eighth_day_is_written_too) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{660, 700}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), (Rows{Row(Sunday + 6, adams, "", "9:00pm-midnight", "3|7.25|W|0"),
                                  Row(Sunday + 7, adams, "", "12:00am-7:00am", "7|7.25|W|0")}));
}

// --- rows that are there already --------------------------------------------------------------------------

TEST_F(SaveWeekTest, a_day_that_was_emptied_loses_its_row) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.PutDay(Sunday + 1, adams, StartsStops({{36, 68}}));
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{132, 164}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday + 1, adams, "", "9:00am-5:00pm", "8|10|W|0")});
}

TEST_F(SaveWeekTest, a_row_that_holds_nothing_is_removed) {
    store.PutDay(Sunday, adams, StartsStops({}), "  ");
    store.PutDay(Sunday + 1, brown, "");
    store.OpenWeek(Sunday);
    ASSERT_TRUE(Save());
    EXPECT_TRUE(store.Rows().empty());
}

TEST_F(SaveWeekTest, a_day_off_keeps_its_row_and_stores_no_time) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "V", true);
    store.PutDay(Sunday + 1, adams, StartsStops({}), "", true);
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{40, 60}});
    ASSERT_TRUE(Save());
    // The hours of the bars are written all the same.
    EXPECT_EQ(store.Rows(),
              (Rows{Row(Sunday, adams, "", "", "5|10|W|-1"), Row(Sunday + 1, adams, "", "", "0|10|W|-1")}));
    EXPECT_EQ(test::Bars(g, 1), (BarList{{40, 60}}));
}

TEST_F(SaveWeekTest, the_mark_of_a_day_off_is_never_changed_by_a_save) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "", true);
    store.OpenWeek(Sunday);
    test::WritableWeek(g).DayOffFlag[1][1] = false; // as after a load for the copy of a week
    test::WritableWeek(g).DayOffFlag[2][1] = true;
    test::SetBars(g, 1, {{36, 68}, {132, 164}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), (Rows{Row(Sunday, adams, "", "", "8|10|W|-1"),
                                  Row(Sunday + 1, adams, "", "9:00am-5:00pm", "8|7.25|W|0")}));
}

TEST_F(SaveWeekTest, a_rate_that_stands_in_a_row_stays) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "", false, "W", 6.5);
    store.PutDay(Sunday + 1, adams, StartsStops({{36, 68}}), "", false, "S", 90);
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 60}, {132, 150}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), (Rows{Row(Sunday, adams, "", "9:00am-3:00pm", "6|6.5|W|0"),
                                  Row(Sunday + 1, adams, "", "9:00am-1:30pm", "4.5|90|S|0")}));
}

TEST_F(SaveWeekTest, a_new_pay_does_not_change_the_past) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 68}});
    ASSERT_TRUE(Save());
    store.SetEmployee(adams, "Pay", std::string("99"));
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 69}, {132, 164}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), (Rows{Row(Sunday, adams, "", "9:00am-5:15pm", "8.25|7.25|W|0"),
                                  Row(Sunday + 1, adams, "", "9:00am-5:00pm", "8|99|W|0")}));
}

TEST_F(SaveWeekTest, a_row_without_a_rate_gets_the_present_one) {
    int day = 0;
    for (const char* mark : {"", "w", "X"})
        store.PutDay(Sunday + day++, adams, StartsStops({{36, 68}}), "", false, mark, 1);
    store.OpenWeek(Sunday);
    ASSERT_TRUE(Save());
    for (int d = 0; d < 3; ++d)
        EXPECT_EQ(store.Rows()[d], Row(Sunday + d, adams, "", "9:00am-5:00pm", "8|7.25|W|0"));
}

TEST_F(SaveWeekTest, small_letters_of_a_daytype_become_capitals) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "v");
    store.OpenWeek(Sunday);
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "V", "9:00am-5:00pm", "8|10|W|0")});
}

// --- the first day of the week behind ---------------------------------------------------------------------

class NextWeekTest : public SaveWeekTest {
  protected:
    static constexpr int SixInTheMorning = 24;
    static constexpr DaySerial NextSunday = Sunday + 7;

    /// Opens the week with days that begin so many quarters after midnight.
    void OpenWithCutoff(int quarters) {
        g.department.DayCutoffQuarters = quarters;
        store.OpenWeek(Sunday);
    }
    /// What the file holds of somebody's first day of the week behind, "" without a row.
    std::string NextDay(int key) {
        const std::string start = std::to_string(NextSunday) + "|" + std::to_string(key) + "|";
        for (const std::string& row : store.Rows())
            if (row.starts_with(start)) return row.substr(start.size());
        return "";
    }
};

TEST_F(NextWeekTest, stays_of_who_has_no_row_in_this_week_however_it_is_planned) {
    store.PutDay(NextSunday, adams, StartsStops({{10, 20}, {36, 68}}), "v", false, "W", 6.5);
    const std::string before = NextDay(adams);
    for (const int cutoff : {0, SixInTheMorning}) {
        OpenWithCutoff(cutoff);
        ASSERT_TRUE(Save());
        EXPECT_EQ(NextDay(adams), before) << "without an edit";
        WeekEdit(g).PutBars(1, {{36, 68}});
        for (int time = 1; time <= 2; ++time) {
            ASSERT_TRUE(Save());
            EXPECT_EQ(NextDay(adams), before) << cutoff << ", save " << time;
        }
        WeekEdit(g).ClearPerson(1);
        ASSERT_TRUE(Save());
        EXPECT_EQ(NextDay(adams), before) << cutoff << ", cleared";
    }
}

TEST_F(NextWeekTest, outlives_the_clearing_of_a_week_that_was_read) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.PutDay(NextSunday, adams, StartsStops({{36, 68}}), "A");
    OpenWithCutoff(SixInTheMorning);
    WeekEdit(g).ClearWeek();
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(NextSunday, adams, "A", "9:00am-5:00pm", "0|10|W|0")});
    WeekEdit(g).Undo();
    ASSERT_TRUE(Save());
    EXPECT_EQ(NextDay(adams), "A|9:00am-5:00pm|0|10|W|0");
}

TEST_F(NextWeekTest, takes_a_night_in_and_gives_it_back_without_losing_its_own_time) {
    store.PutDay(NextSunday, adams, StartsStops({{36, 68}}));
    for (const int cutoff : {0, SixInTheMorning}) {
        OpenWithCutoff(cutoff);
        WeekEdit(g).PutBars(1, {{660, 692}});
        ASSERT_TRUE(Save());
        EXPECT_EQ(NextDay(adams), "|12:00am-5:00am 9:00am-5:00pm|13|10|W|0");
        Load();
        const int night = 1;
        WeekEdit(g).ReplaceBar(1, night, {660, 680});
        ASSERT_TRUE(Save());
        EXPECT_EQ(NextDay(adams), "|12:00am-2:00am 9:00am-5:00pm|10|10|W|0");
        WeekEdit(g).CutBars(1, {night});
        ASSERT_TRUE(Save());
        EXPECT_EQ(NextDay(adams), "|9:00am-5:00pm|8|10|W|0");
    }
}

TEST_F(NextWeekTest, is_told_from_a_night_that_runs_up_to_it) {
    store.PutDay(NextSunday, adams, StartsStops({{36, 68}}));
    OpenWithCutoff(0);
    WeekEdit(g).PutBars(1, {{660, 708}});
    ASSERT_TRUE(Save());
    Load();
    EXPECT_EQ(test::Bars(g, 1), (BarList{{660, 740}}));
    WeekEdit(g).CutBars(1, {1});
    ASSERT_TRUE(Save());
    EXPECT_EQ(NextDay(adams), "|9:00am-5:00pm|8|10|W|0");
}

TEST_F(NextWeekTest, gets_no_row_when_a_night_that_reached_it_is_taken_back) {
    OpenWithCutoff(0);
    WeekEdit(g).PutBars(1, {{660, 692}});
    ASSERT_TRUE(Save());
    EXPECT_NE(NextDay(adams), "");
    WeekEdit(g).ReplaceBar(1, 1, {660, 672});
    ASSERT_TRUE(Save());
    EXPECT_EQ(NextDay(adams), "");
}

TEST_F(NextWeekTest, keeps_what_a_colleague_has_planned_there_meanwhile) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    OpenWithCutoff(SixInTheMorning);
    store.PutDay(NextSunday, adams, StartsStops({{40, 60}}), "B");
    const std::string planned = NextDay(adams);
    ASSERT_TRUE(Save());
    EXPECT_EQ(NextDay(adams), planned);
}

TEST_F(NextWeekTest, takes_the_daytype_that_was_given_to_it_here) {
    store.PutDay(NextSunday, adams, StartsStops({{36, 68}}), "A");
    OpenWithCutoff(0);
    WeekEdit(g).SetDaytype(1, 8, "B");
    ASSERT_TRUE(Save());
    EXPECT_EQ(NextDay(adams), "B|9:00am-5:00pm|0|10|W|0");
}

TEST_F(NextWeekTest, keeps_its_own_time_where_there_is_no_room_for_more) {
    std::vector<std::pair<int, int>> seven;
    for (int p = 0; p < 7; ++p) seven.emplace_back(30 + 8 * p, 34 + 8 * p);
    store.PutDay(NextSunday, adams, StartsStops(seven));
    const std::string before = NextDay(adams);
    OpenWithCutoff(SixInTheMorning);
    WeekEdit(g).PutBars(1, {{660, 690}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(NextDay(adams), before);
}

TEST_F(NextWeekTest, is_as_it_was_after_a_load_and_a_save_whatever_stands_in_the_week) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 60; ++round) {
        const DaySerial first = Sunday + 14 * round;
        g.department.DayCutoffQuarters = static_cast<int>(random.Whole(0, 32));
        for (int d = 0; d < 8; ++d) {
            if (random.Chance(50)) continue;
            const int start = static_cast<int>(random.Whole(0, 40));
            const int late = static_cast<int>(random.Whole(50, 80));
            store.PutDay(first + d, adams, StartsStops({{start, start + 8}, {late, 96}}), "a",
                         random.Chance(20), "W", 6.5);
        }
        const std::string start = std::to_string(first + 7) + "|";
        const auto eighth = [&] {
            Rows rows = store.Rows();
            std::erase_if(rows, [&](const std::string& row) { return !row.starts_with(start); });
            return rows;
        };
        const Rows before = eighth();
        store.OpenWeek(first);
        ASSERT_TRUE(Save());
        ASSERT_EQ(eighth(), before) << round;
    }
}

// --- the rows of others -----------------------------------------------------------------------------------

TEST_F(SaveWeekTest, touches_nobody_elses_rows_and_no_other_days) {
    store.PutDay(Sunday - 1, adams, StartsStops({{36, 68}}));
    store.PutDay(Sunday + 8, adams, StartsStops({{36, 68}}));
    store.PutDay(Sunday, 999, StartsStops({{36, 68}}));
    const Rows before = store.Rows();
    store.OpenWeek(Sunday);
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), before);
}

TEST_F(SaveWeekTest, overwrites_what_another_workstation_wrote_meanwhile) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 68}});
    store.PutDay(Sunday, adams, StartsStops({{10, 20}}), "A", false, "W", 5);
    store.PutDay(Sunday + 1, brown, StartsStops({{10, 20}}));
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "", "9:00am-5:00pm", "8|5|W|0")});
}

TEST_F(SaveWeekTest, an_unchanged_week_writes_nothing) {
    store.AddPeople(20);
    store.FillWeeks(Sunday, 2, 7);
    store.OpenWeek(Sunday);
    ASSERT_TRUE(Save()); // brings hours and rates up to date
    RawFile file(store.folder / "TVX.MDB");
    const Rows version = file.Rows("PRAGMA data_version");
    ASSERT_TRUE(Save());
    Load();
    ASSERT_TRUE(Save());
    EXPECT_EQ(file.Rows("PRAGMA data_version"), version);
    test::SetBars(g, 5, {{1, 2}});
    ASSERT_TRUE(Save());
    EXPECT_NE(file.Rows("PRAGMA data_version"), version);
}

TEST_F(SaveWeekTest, saving_what_was_loaded_changes_no_time_and_no_daytype) {
    store.AddPeople(30);
    store.FillWeeks(Sunday, 2, 9);
    const std::string kept =
        "SELECT [Day Julian], Employee, DayType, [Starts & Stops], Salary, [Current Rate] FROM"
        " [Day Schedule] ORDER BY 1, 2";
    const Rows before = RawFile(store.folder / "TVX.MDB").Rows(kept);
    store.OpenWeek(Sunday);
    std::vector<BarList> bars;
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) bars.push_back(test::Bars(g, e));
    ASSERT_TRUE(Save());
    Load();
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) EXPECT_EQ(test::Bars(g, e), bars[e - 1]);
    Rows after = RawFile(store.folder / "TVX.MDB").Rows(kept);
    // The row of a person who works on the eighth day alone went; nothing else did.
    std::erase_if(after, [&](const std::string& row) {
        return std::find(before.begin(), before.end(), row) != before.end();
    });
    EXPECT_TRUE(after.empty()) << after.front();
}

TEST_F(SaveWeekTest, a_week_is_written_to_the_date_that_it_is_given) {
    store.OpenWeek(Sunday);
    WeekEdit(g).PutBars(1, {{36, 68}});
    EXPECT_TRUE(SaveWeek(
        g, store.ports(), store.gauge, [] {}, g.week, Sunday + 14));
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday + 14, adams, "", "9:00am-5:00pm", "8|7.25|W|0")});
    EXPECT_EQ(g.week.WeekStartJulian, Sunday);
    EXPECT_TRUE(g.week.WeekChanged) << "its own date has not been saved";
}

TEST_F(SaveWeekTest, a_copy_that_was_altered_is_written_and_the_week_in_memory_stays) {
    store.OpenWeek(Sunday);
    WeekEdit(g).PutBars(1, {{36, 68}});
    Week copy = g.week;
    copy.BarStops[1][1] = 60;
    EXPECT_TRUE(SaveWeek(
        g, store.ports(), store.gauge, [] {}, copy, Sunday));
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "", "9:00am-3:00pm", "6|7.25|W|0")});
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(SaveWeekTest, a_week_that_is_not_loaded_is_not_saved) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    const Rows before = store.Rows();
    store.OpenEditor();
    EXPECT_FALSE(Save());
    EXPECT_FALSE(SaveWeek(
        g, store.ports(), store.gauge, [] {}, g.week, Sunday));
    EXPECT_EQ(store.Rows(), before);
    EXPECT_TRUE(store.gauge.floods.empty());
}

TEST_F(SaveWeekTest, undo_finds_the_way_back_to_what_was_saved) {
    store.OpenWeek(Sunday);
    WeekEdit(g).PutBars(1, {{36, 68}});
    ASSERT_TRUE(Save());
    WeekEdit(g).PutBars(1, {{68, 72}});
    WeekEdit(g).Undo();
    EXPECT_FALSE(g.week.WeekChanged);
    WeekEdit(g).Undo();
    EXPECT_TRUE(g.week.WeekChanged);
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{});
}

TEST_F(SaveWeekTest, writes_every_person_of_a_sorted_roster_under_the_own_key) {
    store.OpenWeek(Sunday);
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[2]);
    test::SetBars(g, 1, {{36, 68}});
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "", "9:00am-5:00pm", "8|7.25|W|0")});
}

// --- the gauge and the flags ------------------------------------------------------------------------------

TEST_F(SaveWeekTest, shows_a_gauge_that_fills_in_twenty_steps) {
    store.OpenWeek(Sunday);
    std::vector<bool> shown;
    store.prompt().WhenEventsRun([&] { shown.push_back(store.gauge.visible); });
    ASSERT_TRUE(Save());
    std::vector<int> floods{0};
    for (int percent = 5; percent <= 100; percent += 5) floods.push_back(percent);
    EXPECT_EQ(store.gauge.floods, floods);
    EXPECT_TRUE(store.gauge.wasVisible);
    EXPECT_FALSE(store.gauge.visible);
    ASSERT_FALSE(shown.empty());
    EXPECT_TRUE(std::all_of(shown.begin(), shown.end(), [](bool visible) { return visible; }));
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(SaveWeekTest, what_is_edited_while_the_gauge_fills_is_a_change_again) {
    store.OpenWeek(Sunday);
    test::WritableWeek(g).WeekChanged = true;
    store.prompt().WhenEventsRun([&] {
        if (store.gauge.floods.back() == 50) test::WritableWeek(g).WeekChanged = true;
    });
    ASSERT_TRUE(Save());
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(SaveWeekTest, a_bar_in_hand_is_saved_with_the_week) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.OpenWeek(Sunday);
    drag.Press({MouseButton::Left, 50 * store.grid.QuarterWidth, 100});
    ASSERT_TRUE(Save());
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "", "9:00am-5:00pm", "8|10|W|0")});
}

TEST_F(SaveWeekTest, a_bar_taken_while_the_gauge_appears_is_saved_with_the_week) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    store.OpenWeek(Sunday);
    bool taken = false;
    store.prompt().WhenEventsRun([&] {
        if (!taken) drag.Press({MouseButton::Left, 50 * store.grid.QuarterWidth, 100});
        taken = true;
    });
    ASSERT_TRUE(Save());
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "", "9:00am-5:00pm", "8|10|W|0")});
    drag.Release({MouseButton::Left, 50 * store.grid.QuarterWidth, 100});
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
}

// --- trouble ----------------------------------------------------------------------------------------------

TEST_F(SaveWeekTest, a_table_that_cannot_be_opened_is_told_and_the_week_stays_changed) {
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{36, 68}});
    test::WritableWeek(g).WeekChanged = true;
    RawFile(store.folder / "TVX.MDB").Run("DROP TABLE [Day Schedule]");
    store.prompt().Expect(
        "Database error, try again..\n\n3078 A table is missing in the database.\nDAY SCHEDULE", box::Ok,
        "Database error...");
    EXPECT_FALSE(Save());
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_FALSE(store.gauge.visible);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(SaveWeekTest, a_refusal_in_the_middle_undoes_the_days_before_it) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}), "A");
    store.OpenWeek(Sunday);
    RawFile file(store.folder / "TVX.MDB");
    file.Run("CREATE TRIGGER refuse BEFORE INSERT ON [Day Schedule] WHEN new.Employee = 2"
             " BEGIN SELECT raise(ABORT, 'refused'); END");
    const Rows before = store.Rows();
    test::SetBars(g, 1, {{10, 20}, {132, 150}});
    test::SetBars(g, 2, {{36, 68}});
    test::WritableWeek(g).WeekChanged = true;
    const std::string sums = test::SumsText(g);
    store.prompt().Expect(
        "Could not save this schedule,\nthis page is locked by another user, try again..\n\n(3022)", box::Ok,
        "Locked page...");
    EXPECT_FALSE(Save());
    EXPECT_EQ(store.Rows(), before);
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{10, 20}, {132, 150}}));
    EXPECT_EQ(test::SumsText(g), sums);
    EXPECT_FALSE(store.gauge.visible);
    EXPECT_FALSE(store.db().InTransaction());
    file.Run("DROP TRIGGER refuse");
    EXPECT_TRUE(Save());
    EXPECT_EQ(store.Rows().size(), 3U);
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(SaveWeekTest, a_table_that_is_gone_is_told_of_and_the_week_stays_changed) {
    store.OpenWeek(Sunday);
    WeekEdit(g).PutBars(1, {{36, 68}});
    RawFile(store.folder / "TVX.MDB").Run("DROP TABLE [Day Schedule]");
    store.prompt().AlwaysAnswer(Answer::Ok);
    EXPECT_FALSE(Save());
    EXPECT_EQ(store.prompt().Boxes().size(), 1U);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_FALSE(store.gauge.visible);
}

TEST(LockedSave, tells_of_a_locked_page_wherever_it_meets_the_commit_of_another) {
    const auto faults = std::make_shared<test::Faults>();
    test::TestStore store{dao::Engine(test::TestEngineOptions(), test::FailingSessions(faults))};
    store.AddDepartment("Bakery");
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    store.OpenWeek(Sunday);
    store.prompt().AlwaysAnswer(Answer::Ok);
    WeekEdit(store.g).PutBars(1, {{36, 68}});
    using test::Call;
    for (const Call call : {Call::Prepare, Call::Step, Call::Begin, Call::Commit})
        test::FailEachInTurn(
            *faults, call, dao::error::CouldNotLock,
            [&] {
                // A file that another has altered is looked at anew.
                RawFile(store.folder / "TVX.MDB").Run("CREATE TABLE Altered (a)");
                RawFile(store.folder / "TVX.MDB").Run("DROP TABLE Altered");
                WeekEdit(store.g).Touch();
                SaveWeek(store.g, store.ports(), store.gauge, [] {});
            },
            [&](int nth) {
                EXPECT_EQ(store.prompt().Last().title, "Locked page...") << nth;
                EXPECT_TRUE(store.g.week.WeekChanged) << nth;
            });
    EXPECT_GE(store.prompt().Boxes().size(), 4U);
}

TEST_F(SaveWeekTest, who_may_not_schedule_is_told_so_and_nothing_is_written) {
    store.PutDay(Sunday, adams, StartsStops({{36, 68}}));
    const Rows before = store.Rows();
    store.OpenWeek(Sunday);
    test::SetBars(g, 1, {{10, 20}});
    test::WritableWeek(g).WeekChanged = true;
    g.rights.SchedulingAllowed = false;
    store.prompt().Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                          "Scheduling not permitted");
    EXPECT_FALSE(Save());
    EXPECT_EQ(store.Rows(), before);
    EXPECT_TRUE(store.gauge.floods.empty());
    EXPECT_TRUE(MayLeaveWeek(
        g, store.ports(), store.gauge, [] {}, "You made changes"))
        << "and is not asked about what cannot be saved";
}

// --- leaving the week -------------------------------------------------------------------------------------

class LeaveWeekTest : public SaveWeekTest {
  protected:
    static constexpr int YesNoCancelQuestion = 35;

    void WillSay(Answer answer) {
        store.prompt().Expect("Save the changes first?", YesNoCancelQuestion, "You made changes", answer);
    }
    bool Go(int direction) {
        return GoToNeighbourWeek(
            g, store.ports(), store.gauge, [this] { drag.Settle(); }, direction);
    }
    void Change() {
        test::SetBars(g, 1, {{36, 68}});
        test::WritableWeek(g).WeekChanged = true;
    }
};

TEST_F(LeaveWeekTest, an_unchanged_week_is_left_without_a_question) {
    store.OpenWeek(Sunday + 2);
    EXPECT_TRUE(Go(1));
    EXPECT_EQ(g.week.WeekStartJulian, Sunday + 7);
    EXPECT_EQ(g.cursor.CurrentDay, 3);
    EXPECT_TRUE(Go(-1));
    EXPECT_TRUE(Go(-1));
    EXPECT_EQ(g.week.WeekStartJulian, Sunday - 7);
}

TEST_F(LeaveWeekTest, yes_saves_first) {
    store.OpenWeek(Sunday);
    Change();
    WillSay(Answer::Yes);
    EXPECT_TRUE(Go(1));
    EXPECT_EQ(g.week.WeekStartJulian, Sunday + 7);
    EXPECT_EQ(store.Rows().size(), 1U);
}

TEST_F(LeaveWeekTest, no_gives_the_changes_up) {
    store.OpenWeek(Sunday);
    Change();
    WillSay(Answer::No);
    EXPECT_TRUE(Go(1));
    EXPECT_TRUE(store.Rows().empty());
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(LeaveWeekTest, cancel_stays) {
    store.OpenWeek(Sunday);
    Change();
    WillSay(Answer::Cancel);
    EXPECT_FALSE(Go(1));
    EXPECT_EQ(g.week.WeekStartJulian, Sunday);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{36, 68}}));
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_TRUE(store.Rows().empty());
}

TEST_F(LeaveWeekTest, a_save_that_fails_stays) {
    store.OpenWeek(Sunday);
    Change();
    RawFile(store.folder / "TVX.MDB").Run("DROP TABLE [Day Schedule]");
    WillSay(Answer::Yes);
    store.prompt().WillAnswer(Answer::Ok);
    EXPECT_FALSE(Go(1));
    EXPECT_EQ(g.week.WeekStartJulian, Sunday);
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(store.prompt().Last().title, "Database error...");
}

TEST_F(LeaveWeekTest, a_bar_in_hand_is_a_change_to_be_asked_about) {
    store.OpenWeek(Sunday);
    drag.Press({MouseButton::Left, 40 * store.grid.QuarterWidth, 100});
    drag.Move({MouseButton::Left, 60 * store.grid.QuarterWidth, 100});
    WillSay(Answer::Yes);
    EXPECT_TRUE(Go(1));
    EXPECT_EQ(store.Rows(), Rows{Row(Sunday, adams, "", "10:00am-3:00pm", "5|7.25|W|0")});
}

} // namespace
} // namespace tvx
