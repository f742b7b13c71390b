#include "masterdata/StoredShifts.h"

#include "editor/week/Totals.h"
#include "masterdata/files/ShiftFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::BarList;

constexpr DaySerial Sunday = 46082; // 1 March 2026

class StoredShiftsTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "10"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "10"});
        store.OpenWeek(Sunday);
        On(1, 1);
    }
    void On(int employee, int day) {
        g.week.CurrentEmployee = employee;
        g.week.CurrentDay = day;
        SumDay(g);
    }
    /// Stores bars of Monday under a name.
    void Keep(const std::string& name, const BarList& bars) {
        On(1, 2);
        BarList ofWeek;
        for (const auto& [start, stop] : bars) ofWeek.emplace_back(96 + start, 96 + stop);
        test::SetBars(g, 1, ofWeek);
        TakeShiftFromDay(g);
        ASSERT_EQ(AddShift(g, store.prompt(), name), ShiftResult::Done);
        test::SetBars(g, 1, {});
        g.week.WeekChanged = false;
    }
    BarList Stored(int n) {
        BarList bars;
        for (int k = 1; k <= g.shifts.ShiftBarCount[n]; ++k)
            bars.emplace_back(g.shifts.ShiftStarts[n][k], g.shifts.ShiftStops[n][k]);
        return bars;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const auto& [name, index] : ShiftRows(g.shifts)) names.push_back(name);
        return names;
    }
    std::vector<std::string> NamesInFile() {
        Shifts read;
        LoadStoredShifts(store.folder.Path(), g.department.CurrentDepNumber, read);
        return {read.ShiftNames.begin() + 1, read.ShiftNames.begin() + 1 + read.ShiftCount};
    }
    ShiftResult Add(const std::string& name) { return AddShift(g, store.prompt(), name); }
    ShiftResult Rename(int index, const std::string& name) {
        return RenameShift(g, store.prompt(), index, name);
    }
    void ExpectNameInUse(const std::string& text) {
        store.prompt().Expect(text + "\n is in use...", 0, "Shift name duplicate");
    }
};

// ---- taking a day ----

TEST_F(StoredShiftsTest, a_day_gives_its_bars_counted_from_its_midnight) {
    test::SetBars(g, 1, {{20, 30}, {96 + 36, 96 + 52}, {96 + 56, 96 + 72}, {200, 220}});
    On(1, 2);
    TakeShiftFromDay(g);
    EXPECT_EQ(Stored(1), (BarList{{36, 52}, {56, 72}}));
    EXPECT_EQ(g.shifts.ShiftCount, 0) << "it counts when it has a name";
}

TEST_F(StoredShiftsTest, a_bar_over_midnight_keeps_its_length_and_belongs_to_the_day_of_its_start) {
    test::SetBars(g, 1, {{96 + 92, 96 + 100}});
    On(1, 2);
    TakeShiftFromDay(g);
    EXPECT_EQ(Stored(1), (BarList{{92, 100}}));
    On(1, 3);
    TakeShiftFromDay(g);
    EXPECT_TRUE(Stored(1).empty()) << "and not to the day that it reaches into";
}

TEST_F(StoredShiftsTest, the_midnights_bound_a_day_whatever_the_cut_off) {
    g.department.DayCutoffQuarters = 16;
    test::SetBars(g, 1, {{96 + 4, 96 + 12}, {192, 200}});
    On(1, 2);
    TakeShiftFromDay(g);
    EXPECT_EQ(Stored(1), (BarList{{4, 12}}));
}

TEST_F(StoredShiftsTest, an_abandoned_day_leaves_nothing_behind_in_the_next) {
    test::SetBars(g, 1, {{20, 30}, {40, 50}});
    TakeShiftFromDay(g);
    test::SetBars(g, 1, {{60, 70}});
    TakeShiftFromDay(g);
    EXPECT_EQ(Stored(1), (BarList{{60, 70}}));
}

TEST_F(StoredShiftsTest, a_full_store_takes_no_day) {
    g.shifts.ShiftCount = MostShifts;
    test::SetBars(g, 1, {{20, 30}});
    TakeShiftFromDay(g);
    EXPECT_EQ(g.shifts.ShiftBarCount[MostShifts], 0);
}

// ---- naming ----

TEST_F(StoredShiftsTest, a_named_shift_is_in_the_list_and_in_the_file) {
    Keep("  Late ", {{60, 92}});
    Keep("Early, baking", {{16, 48}});
    EXPECT_EQ(Names(), (std::vector<std::string>{"Early, baking", "Late"}));
    EXPECT_EQ(NamesInFile(), Names());
    EXPECT_EQ(Stored(1), (BarList{{16, 48}}));
    EXPECT_EQ(Stored(2), (BarList{{60, 92}}));
}

TEST_F(StoredShiftsTest, a_shift_needs_a_name) {
    test::SetBars(g, 1, {{20, 30}});
    TakeShiftFromDay(g);
    EXPECT_EQ(Add(""), ShiftResult::Incomplete);
    EXPECT_EQ(Add("   "), ShiftResult::Incomplete);
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_FALSE(fs::exists(store.folder / "1.SFT"));
}

TEST_F(StoredShiftsTest, names_that_differ_in_case_alone_are_the_same) {
    Keep("Early", {{16, 48}});
    TakeShiftFromDay(g);
    ExpectNameInUse("Shift EARLY");
    EXPECT_EQ(Add(" EARLY "), ShiftResult::InUse);
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(Names(), std::vector<std::string>{"Early"});
}

TEST_F(StoredShiftsTest, twenty_can_be_added) {
    for (int n = 1; n <= 20; ++n) Keep("Shift " + std::to_string(100 + n), {{n, n + 8}});
    TakeShiftFromDay(g);
    EXPECT_EQ(Add("One more"), ShiftResult::Incomplete);
    EXPECT_EQ(Names().size(), 20U);
}

// ---- renaming and deleting ----

TEST_F(StoredShiftsTest, a_new_name_moves_a_shift_with_its_bars) {
    Keep("Early", {{16, 48}});
    Keep("Late", {{60, 92}});
    EXPECT_EQ(Rename(1, " Zero "), ShiftResult::Done);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Late", "Zero"}));
    EXPECT_EQ(Stored(2), (BarList{{16, 48}}));
    EXPECT_EQ(NamesInFile(), Names());
}

TEST_F(StoredShiftsTest, a_shift_may_take_its_own_name_in_other_letters) {
    Keep("Early", {{16, 48}});
    EXPECT_EQ(Rename(1, "EARLY"), ShiftResult::Done);
    EXPECT_EQ(Names(), std::vector<std::string>{"EARLY"});
}

TEST_F(StoredShiftsTest, a_shift_cannot_take_the_name_of_another_or_none) {
    Keep("Early", {{16, 48}});
    Keep("Late", {{60, 92}});
    ExpectNameInUse("Shift name late");
    EXPECT_EQ(Rename(1, "late"), ShiftResult::InUse);
    EXPECT_EQ(Rename(1, " "), ShiftResult::Incomplete);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Early", "Late"}));
}

TEST_F(StoredShiftsTest, a_deleted_shift_is_gone_and_the_others_stay) {
    for (const char* name : {"A", "B", "C"}) Keep(name, {{16, 48}});
    EXPECT_EQ(DeleteShift(g, store.prompt(), 2), ShiftResult::Done);
    EXPECT_EQ(Names(), (std::vector<std::string>{"A", "C"}));
    EXPECT_EQ(DeleteShift(g, store.prompt(), 1), ShiftResult::Done);
    EXPECT_EQ(DeleteShift(g, store.prompt(), 1), ShiftResult::Done);
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(test::ReadFile(store.folder / "1.SFT"), "");
    EXPECT_TRUE(fs::exists(store.folder / "1.SFT"));
}

TEST_F(StoredShiftsTest, a_file_that_cannot_be_written_is_told_and_nothing_changes) {
    Keep("Early", {{16, 48}});
    fs::rename(store.folder / "1.SFT", store.folder / "old");
    fs::create_directory(store.folder / "1.SFT");
    fs::create_directory(store.folder / "1.SFT" / "full");
    for (const auto& deed : std::vector<std::function<ShiftResult()>>{
             [&] { return Add("Late"); }, [&] { return Rename(1, "Late"); },
             [&] { return DeleteShift(g, store.prompt(), 1); }}) {
        store.prompt().WillAnswer(Answer::Ok);
        EXPECT_EQ(deed(), ShiftResult::NotWritten);
        EXPECT_EQ(store.prompt().Last().title, "File error");
        EXPECT_EQ(Names(), std::vector<std::string>{"Early"});
    }
}

TEST_F(StoredShiftsTest, of_two_workstations_the_last_write_wins) {
    Keep("Early", {{16, 48}});
    Shifts theirs = g.shifts;
    theirs.ShiftNames[++theirs.ShiftCount] = "Theirs";
    WriteStoredShifts(store.folder.Path(), 1, theirs);
    Keep("Ours", {{20, 30}});
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Early", "Ours"}));
}

// ---- pasting ----

TEST_F(StoredShiftsTest, a_paste_puts_the_bars_on_the_day_and_brings_the_sums_up_to_date) {
    Keep("Split", {{40, 56}, {64, 80}});
    On(2, 4);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 2), (BarList{{3 * 96 + 40, 3 * 96 + 56}, {3 * 96 + 64, 3 * 96 + 80}}));
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(g.week.DayQuarters[2], 32);
    EXPECT_EQ(g.week.WeekQuarters[2], 32);
    EXPECT_EQ(g.totals.TotalDayQuarters, 32);
    EXPECT_EQ(g.totals.TotalWeekWages, 80);
}

TEST_F(StoredShiftsTest, a_paste_leaves_the_daytype_of_the_day) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    g.week.DayTypeText[3][1] = "BK";
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(g.week.DayTypeText[3][1], "BK");
}

TEST_F(StoredShiftsTest, a_paste_on_a_day_with_time_is_refused) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::SetBars(g, 1, {{192 + 90, 192 + 94}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Occupied);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{192 + 90, 192 + 94}}));
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(StoredShiftsTest, time_that_reaches_in_from_the_day_before_occupies_a_day) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    test::SetBars(g, 1, {{190, 193}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Occupied);
    test::SetBars(g, 1, {{180, 192}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted) << "a bar that ends at midnight does not";
}

TEST_F(StoredShiftsTest, the_business_day_is_what_must_be_free) {
    Keep("Early", {{16, 48}});
    g.department.DayCutoffQuarters = 16;
    On(1, 3);
    test::SetBars(g, 1, {{192 + 4, 192 + 12}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted) << "before the cut-off it is still the day before";
    On(2, 3);
    test::SetBars(g, 2, {{288 + 4, 288 + 12}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Occupied) << "up to the cut-off of the next date";
}

TEST_F(StoredShiftsTest, a_day_off_takes_no_shift) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    g.week.DayOffFlag[3][1] = true;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::DayOff);
    EXPECT_TRUE(test::Bars(g, 1).empty());
    EXPECT_FALSE(g.week.WeekChanged);
}

TEST_F(StoredShiftsTest, a_day_before_a_day_off_takes_none_where_the_business_day_reaches_into_it) {
    Keep("Early", {{16, 48}});
    On(1, 3);
    g.week.DayOffFlag[4][1] = true;
    g.department.DayCutoffQuarters = 4;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::DayOff);
    g.department.DayCutoffQuarters = 0;
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
}

TEST_F(StoredShiftsTest, a_paste_on_the_last_day_reaches_into_the_eighth) {
    Keep("Night", {{92, 100}});
    On(1, 7);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{6 * 96 + 92, 6 * 96 + 100}}));
}

TEST_F(StoredShiftsTest, what_lies_beyond_the_eighth_day_is_cut_off) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftBarCount[1] = 2;
    g.shifts.ShiftStarts[1] = {0, 90, 300};
    g.shifts.ShiftStops[1] = {0, 768, 310};
    On(1, 7);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{6 * 96 + 90, 768}}));
}

TEST_F(StoredShiftsTest, bars_that_touch_become_one_and_odd_ones_vanish) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftBarCount[1] = 4;
    g.shifts.ShiftStarts[1] = {0, 40, 20, 60, 50};
    g.shifts.ShiftStops[1] = {0, 50, 41, 55, 50};
    On(1, 1);
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(test::Bars(g, 1), (BarList{{20, 50}}));
}

TEST_F(StoredShiftsTest, a_paste_of_many_bars_never_gives_more_than_35) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftBarCount[1] = MostShiftBars;
    for (int k = 1; k <= MostShiftBars; ++k) {
        g.shifts.ShiftStarts[1][k] = 2 * k;
        g.shifts.ShiftStops[1][k] = 2 * k + 1;
    }
    On(1, 7);
    test::SetBars(g, 1, {{10, 20}, {30, 40}});
    EXPECT_EQ(PasteShift(g, 1), PasteResult::Pasted);
    EXPECT_EQ(g.week.BarCount[1], 35);
}

TEST_F(StoredShiftsTest, stored_and_pasted_bars_are_those_of_the_day_they_came_from) {
    store.FillWeeks(Sunday, 1, 11);
    store.OpenWeek(Sunday);
    for (int day = 1; day <= 7; ++day) {
        On(1, day);
        TakeShiftFromDay(g);
        const BarList taken = Stored(1);
        if (taken.empty()) continue;
        ASSERT_EQ(AddShift(g, store.prompt(), "Day " + std::to_string(day)), ShiftResult::Done);
        test::SetBars(g, 2, {});
        On(2, day);
        ASSERT_EQ(PasteShift(g, 1), PasteResult::Pasted);
        On(2, day);
        g.shifts.ShiftCount = 0;
        TakeShiftFromDay(g);
        EXPECT_EQ(Stored(1), taken) << day;
    }
}

} // namespace
} // namespace tvx
