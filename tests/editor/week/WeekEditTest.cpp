// What each edit of a loaded week changes, refuses and tells, and the way back.
#include "editor/week/WeekEdit.h"

#include "editor/week/LoadWeek.h"
#include "editor/week/Totals.h"
#include "editor/week/Undo.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using Numbers = std::vector<int>;

class WeekEditTest : public testing::Test {
  protected:
    GlobalState g;
    WeekEdit edit{g};

    void SetUp() override { test::MakeRoster(g, 4); }
    void Set(int e, const BarList& bars) { test::SetBars(g, e, bars); }
    BarList Bars(int e) const { return test::Bars(g, e); }
    void DayOff(int e, int day) { test::WritableWeek(g).DayOffFlag[day][e] = true; }
};

// --- what an edit does ------------------------------------------------------------------------------------

TEST_F(WeekEditTest, bars_that_are_put_melt_with_those_that_stand) {
    Set(1, {{36, 68}, {100, 110}});
    edit.PutBars(1, {{60, 80}, {110, 120}, {300, 300}, {310, 305}});
    EXPECT_EQ(Bars(1), (BarList{{36, 80}, {100, 120}}));
    EXPECT_EQ(g.week.WeekQuarters[1], 64);
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, a_bar_that_is_moved_leaves_its_place) {
    Set(1, {{36, 68}, {100, 110}});
    edit.ReplaceBar(1, 1, {90, 100});
    EXPECT_EQ(Bars(1), (BarList{{90, 110}}));
}

TEST_F(WeekEditTest, a_bar_that_is_dragged_to_nothing_goes) {
    Set(1, {{36, 68}, {100, 110}});
    edit.ReplaceBar(1, 2, {0, 0});
    EXPECT_EQ(Bars(1), (BarList{{36, 68}}));
}

TEST_F(WeekEditTest, bars_are_cut_whole_with_what_lies_on_other_days) {
    Set(1, {{36, 68}, {90, 110}, {200, 210}});
    edit.CutBars(1, {2, 7});
    EXPECT_EQ(Bars(1), (BarList{{36, 68}, {200, 210}}));
}

TEST_F(WeekEditTest, typed_times_replace_what_the_day_has_and_cut_what_reaches_in) {
    Set(1, {{90, 110}, {150, 200}});
    edit.ReplaceTime(1, 96, 192, {{120, 130}});
    EXPECT_EQ(Bars(1), (BarList{{90, 96}, {120, 130}, {192, 200}}));
}

TEST_F(WeekEditTest, a_copied_day_brings_its_bars_whole_and_its_daytype) {
    g.department.DayCutoffQuarters = 16;
    Set(1, {{90, 120}, {150, 160}});
    test::WritableWeek(g).DayTypeText[1][1] = "V";
    edit.CopyDay(1, 3);
    EXPECT_EQ(Bars(1), (BarList{{90, 120}, {150, 160}, {282, 312}}))
        << "what begins on day 2 is not of day 1";
    EXPECT_EQ(g.week.DayTypeText[3][1], "V");
}

TEST_F(WeekEditTest, clearing_a_person_leaves_days_off_and_the_others) {
    Set(1, {{36, 68}});
    Set(2, {{36, 68}});
    DayOff(1, 4);
    edit.SetDaytype(1, 2, "V");
    edit.ClearPerson(1);
    EXPECT_EQ(Bars(1), BarList{});
    EXPECT_EQ(g.week.DayTypeText[2][1], "");
    EXPECT_TRUE(g.week.DayOffFlag[4][1]);
    EXPECT_EQ(Bars(2), (BarList{{36, 68}}));
}

TEST_F(WeekEditTest, clearing_the_week_empties_the_figures_and_undo_brings_all_back) {
    Set(1, {{36, 68}});
    Set(3, {{36, 68}});
    g.figures.DailySales[2] = 500;
    g.figures.DayMemoText[2] = "Fair";
    SumFigures(g.figures, g.totals);
    const WeekChange change = edit.ClearWeek();
    EXPECT_EQ(change.employees, (Numbers{1, 3}));
    EXPECT_EQ(g.totals.TotalWeekQuarters, 0);
    EXPECT_EQ(g.totals.SalesTotal, 0);
    EXPECT_FALSE(g.figures.HasDepartmentFigures);
    EXPECT_EQ(g.figures.DayMemoText[2], "Fair");
    edit.Undo();
    EXPECT_EQ(Bars(3), (BarList{{36, 68}}));
    EXPECT_EQ(g.totals.SalesTotal, 500);
    EXPECT_EQ(g.totals.SalesDays, 1);
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, a_day_that_is_shown_is_the_one_that_is_summed) {
    Set(1, {{36, 68}, {96 + 40, 96 + 50}});
    EXPECT_TRUE(edit.ShowDay(2).figures);
    EXPECT_EQ(g.cursor.CurrentDay, 2);
    EXPECT_EQ(g.week.DayQuarters[1], 10);
    EXPECT_EQ(g.totals.TotalDayQuarters, 10);
    EXPECT_EQ(edit.ShowDay(8).answer, EditAnswer::NotLoaded);
    EXPECT_EQ(g.cursor.CurrentDay, 2);
}

TEST_F(WeekEditTest, the_day_summed_stays_true_when_the_cursor_goes_elsewhere_between_edits) {
    edit.ShowDay(1);
    edit.PutBars(1, {{36, 68}});
    g.cursor.CurrentDay = 5; // as an editor whose lanes are days does
    edit.PutBars(1, {{4 * 96 + 36, 4 * 96 + 68}});
    EXPECT_EQ(g.totals.TotalDayQuarters, 32);
    EXPECT_EQ(test::SumsText(g), test::SumsFromScratch(g));
}

// --- days off ---------------------------------------------------------------------------------------------

TEST_F(WeekEditTest, time_on_a_day_off_beside_the_day_edited_is_cut_and_the_rest_kept) {
    DayOff(1, 3);
    edit.PutBars(1, {{170, 310}});
    EXPECT_EQ(Bars(1), (BarList{{170, 192}, {288, 310}}));
    EXPECT_EQ(g.totals.TotalWeekQuarters, 44) << "what the screen counts is what a save keeps";
}

TEST_F(WeekEditTest, a_day_that_becomes_a_day_off_loses_its_time_and_undo_brings_it_back_uncut) {
    Set(1, {{80, 200}});
    edit.SetDayOff(1, 2, true);
    EXPECT_EQ(Bars(1), (BarList{{80, 96}, {192, 200}}));
    edit.Undo();
    EXPECT_FALSE(g.week.DayOffFlag[2][1]);
    EXPECT_EQ(Bars(1), (BarList{{80, 200}}));
}

TEST_F(WeekEditTest, undo_puts_time_back_that_stood_on_a_day_off) {
    Set(1, {{100, 120}});
    DayOff(1, 2);
    edit.SetDaytype(1, 5, "V");
    EXPECT_EQ(Bars(1), BarList{});
    edit.Undo();
    EXPECT_EQ(Bars(1), (BarList{{100, 120}}));
    edit.Redo();
    EXPECT_EQ(Bars(1), BarList{});
}

// --- what an edit tells -----------------------------------------------------------------------------------

TEST_F(WeekEditTest, a_change_names_the_employee_the_days_and_whether_figures_differ) {
    const WeekChange put = edit.PutBars(2, {{90, 200}});
    EXPECT_EQ(put.employees, Numbers{2});
    EXPECT_EQ(put.days, (Numbers{1, 2, 3}));
    EXPECT_TRUE(put.figures);
    EXPECT_TRUE(put.Touches(2));
    EXPECT_FALSE(put.Touches(1));
    const WeekChange typed = edit.SetDaytype(3, 8, "V");
    EXPECT_EQ(typed.employees, Numbers{3});
    EXPECT_EQ(typed.days, Numbers{8});
    EXPECT_FALSE(typed.figures);
}

TEST_F(WeekEditTest, a_bundle_undone_names_all_that_it_had_changed) {
    {
        const WeekEdit::Action action(g, "Move");
        edit.PutBars(1, {{36, 68}});
        edit.PutBars(3, {{132, 164}});
    }
    const WeekChange back = edit.Undo();
    EXPECT_EQ(back.employees, (Numbers{1, 3}));
    EXPECT_EQ(back.days, (Numbers{1, 2}));
}

TEST_F(WeekEditTest, who_would_need_more_than_35_bars_stays_and_is_named) {
    BarList many;
    for (int b = 0; b < 35; ++b) many.emplace_back(4 * b, 4 * b + 2);
    Set(1, many);
    const WeekChange change = edit.PutBars(1, {{700, 710}});
    EXPECT_EQ(change.full, Numbers{1});
    EXPECT_TRUE(change.employees.empty());
    EXPECT_EQ(Bars(1), many);
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, who_is_full_holds_nobody_else_up) {
    BarList many;
    for (int b = 0; b < 35; ++b) many.emplace_back(2 * b, 2 * b + 1);
    Set(1, many);
    Set(2, {{36, 68}});
    const WeekChange change = edit.CopyDay(1, 7);
    EXPECT_EQ(change.full, Numbers{1});
    EXPECT_EQ(change.employees, Numbers{2});
}

// --- refusals ---------------------------------------------------------------------------------------------

TEST_F(WeekEditTest, without_the_right_nothing_changes_by_any_edit) {
    Set(1, {{36, 68}});
    edit.PutBars(2, {{36, 68}});
    g.rights.SchedulingAllowed = false;
    const std::string sums = test::SumsText(g);
    for (const EditAnswer answer :
         {edit.PutBars(1, {{100, 110}}).answer, edit.ReplaceBar(1, 1, {}).answer, edit.CutBars(1, {1}).answer,
          edit.ReplaceTime(1, 0, 96, {}).answer, edit.PasteShift(1, 1, g.shifts, 1).answer,
          edit.SetDaytype(1, 1, "V").answer, edit.SetDayOff(1, 1, true).answer, edit.CopyDay(1, 2).answer,
          edit.ClearPerson(1).answer, edit.ClearWeek().answer, edit.Touch().answer, edit.Undo().answer,
          edit.Redo().answer})
        EXPECT_EQ(answer, EditAnswer::NotAllowed);
    EXPECT_EQ(Bars(1), (BarList{{36, 68}}));
    EXPECT_EQ(test::SumsText(g), sums);
    EXPECT_TRUE(edit.ShowDay(3).Done()) << "looking is free";
}

TEST_F(WeekEditTest, a_week_that_is_not_loaded_cannot_be_edited_or_shown) {
    test::WritableWeek(g).Resize(4);
    EXPECT_EQ(edit.PutBars(1, {{36, 68}}).answer, EditAnswer::NotLoaded);
    EXPECT_EQ(edit.ClearWeek().answer, EditAnswer::NotLoaded);
    EXPECT_EQ(edit.Touch().answer, EditAnswer::NotLoaded);
    EXPECT_EQ(edit.ShowDay(2).answer, EditAnswer::NotLoaded);
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, nobody_and_no_day_of_the_week_is_edited) {
    for (const int nobody : {-1, 0, 5})
        EXPECT_EQ(edit.PutBars(nobody, {{36, 68}}).answer, EditAnswer::NotLoaded) << nobody;
    for (const int noDay : {0, 9}) EXPECT_EQ(edit.SetDaytype(1, noDay, "V").answer, EditAnswer::NotLoaded);
    EXPECT_EQ(edit.CopyDay(8, 1).answer, EditAnswer::NotLoaded);
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, only_a_stored_shift_is_pasted_and_only_on_a_day_of_the_week) {
    Shifts shifts;
    shifts.ShiftCount = 1;
    shifts.ShiftBarCount = {1, 1, 1}; // behind the stored one lies what an abandoned one left
    shifts.ShiftStarts[2][1] = 36;
    for (auto& stops : shifts.ShiftStops) stops[1] = 68;
    for (const int noShift : {-1, 0, 2, MostShifts + 1})
        EXPECT_EQ(edit.PasteShift(1, 1, shifts, noShift).answer, EditAnswer::NotLoaded) << noShift;
    for (const int noDay : {0, 8})
        EXPECT_EQ(edit.PasteShift(1, noDay, shifts, 1).answer, EditAnswer::NotLoaded) << noDay;
    EXPECT_EQ(Bars(1), BarList{});
    EXPECT_TRUE(edit.PasteShift(1, 7, shifts, 1).Done());
}

// --- the way back -----------------------------------------------------------------------------------------

TEST_F(WeekEditTest, each_edit_is_a_step_back_and_forth) {
    edit.PutBars(1, {{36, 68}});
    edit.SetDaytype(1, 2, "V");
    EXPECT_TRUE(edit.Undo().Done());
    EXPECT_EQ(g.week.DayTypeText[2][1], "");
    EXPECT_EQ(Bars(1), (BarList{{36, 68}}));
    EXPECT_TRUE(edit.Undo().Done());
    EXPECT_EQ(Bars(1), BarList{});
    EXPECT_EQ(edit.Undo().answer, EditAnswer::Nothing);
    edit.Redo();
    edit.Redo();
    EXPECT_EQ(g.week.DayTypeText[2][1], "V");
    EXPECT_EQ(edit.Redo().answer, EditAnswer::Nothing);
}

TEST_F(WeekEditTest, the_name_of_the_outermost_action_is_the_hint) {
    {
        const WeekEdit::Action outer(g, "Copy day");
        const WeekEdit::Action inner(g, "Put");
        edit.PutBars(1, {{36, 68}});
        EXPECT_EQ(edit.Undo().answer, EditAnswer::Nothing) << "while it is being made";
    }
    EXPECT_EQ(edit.UndoHint(), "Copy day");
    EXPECT_EQ(edit.RedoHint(), "");
    edit.Undo();
    EXPECT_EQ(edit.RedoHint(), "Copy day");
}

TEST_F(WeekEditTest, a_step_that_ends_where_it_began_vanishes) {
    {
        const WeekEdit::Action action(g, "There and back");
        edit.PutBars(1, {{36, 68}});
        EXPECT_TRUE(g.week.WeekChanged);
        edit.CutBars(1, {1});
    }
    EXPECT_EQ(edit.Undo().answer, EditAnswer::Nothing);
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, an_edit_after_undo_ends_what_could_be_redone) {
    edit.PutBars(1, {{36, 68}});
    edit.Undo();
    edit.PutBars(2, {{36, 68}});
    EXPECT_EQ(edit.Redo().answer, EditAnswer::Nothing);
}

TEST_F(WeekEditTest, the_week_counts_as_unchanged_where_it_was_loaded_or_saved_and_nowhere_else) {
    edit.PutBars(1, {{36, 68}});
    edit.Undo();
    EXPECT_FALSE(g.week.WeekChanged);
    edit.Redo();
    edit.Saved();
    EXPECT_FALSE(g.week.WeekChanged);
    edit.Undo();
    EXPECT_TRUE(g.week.WeekChanged) << "the store has more";
    edit.Redo();
    EXPECT_FALSE(g.week.WeekChanged);
    edit.Undo();
    edit.PutBars(1, {{36, 68}});
    EXPECT_TRUE(g.week.WeekChanged) << "the same bars by another step";
}

TEST_F(WeekEditTest, a_press_marks_the_week_until_it_is_saved) {
    edit.PutBars(1, {{36, 68}});
    edit.Touch();
    edit.Undo();
    EXPECT_TRUE(g.week.WeekChanged);
    edit.Saved();
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(WeekEditTest, a_thousand_steps_are_kept) {
    for (int step = 0; step < 1100; ++step) edit.SetDaytype(1, 2, step % 2 == 0 ? "V" : "S");
    int undone = 0;
    while (edit.Undo().Done()) ++undone;
    EXPECT_EQ(undone, 1000);
    EXPECT_TRUE(g.week.WeekChanged) << "the way to what the store has is lost";
}

TEST_F(WeekEditTest, steps_of_everybody_are_kept_up_to_64_megabytes) {
    test::MakeRoster(g, 1000);
    for (int e = 1; e <= 1000; ++e) {
        test::WritableWeek(g).DayTypeText[1][e] = "A";
        test::WritableWeek(g).DayTypeText[2][e] = "B";
    }
    for (int step = 0; step < 120; ++step) edit.CopyDay(1 + step % 2, 3);
    EXPECT_LE(g.steps.bytes, MostStepBytes);
    int undone = 0;
    while (edit.Undo().Done()) ++undone;
    EXPECT_GT(undone, 40);
    EXPECT_LT(undone, 120);
    EXPECT_EQ(g.week.DayTypeText[3][1000], undone % 2 == 0 ? "B" : "A");
}

TEST_F(WeekEditTest, another_week_and_another_roster_have_no_steps) {
    test::TestStore store;
    store.AddDepartment("Bakery");
    store.AddEmployee({"Adams", "Anna", "10"});
    store.OpenWeek(46082);
    const auto put = [&] { WeekEdit(store.g).PutBars(1, {{36, 68}}); };
    put();
    LoadWeek(store.g, store.ports(), 46089);
    EXPECT_EQ(WeekEdit(store.g).Undo().answer, EditAnswer::Nothing);
    EXPECT_FALSE(store.g.week.WeekChanged);
    put();
    store.OpenEditor();
    EXPECT_EQ(WeekEdit(store.g).Undo().answer, EditAnswer::NotLoaded) << "a roster has no week yet";
    EXPECT_FALSE(store.g.week.WeekChanged);
}

} // namespace
} // namespace tvx
