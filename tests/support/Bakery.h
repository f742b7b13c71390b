// Departments of two people that several tests of weeks begin with.
#pragma once

#include "editor/lanes/BarDrag.h"
#include "editor/week/DayShifts.h"
#include "editor/week/LoadWeek.h"
#include "editor/week/Totals.h"
#include "support/Quarters.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx::test {

constexpr DaySerial Sunday = 46082; // 1 March 2026

/// Anna Adams by the hour and Bob Brown on a salary, with the mouse on their grid and no week loaded.
class Bakery : public testing::Test {
  protected:
    TestStore store;
    GlobalState& g = store.g;
    MainLanes lanes{store.grid, g.roster, g.cursor};
    BarDrag drag{lanes, g};
    int adams = 0;
    int brown = 0;

    void SetUp() override {
        store.AddDepartment("Bakery");
        adams = store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "7.25"});
        brown = store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "700", .hourly = false});
    }
    void Load(DaySerial first = Sunday) { LoadWeek(g, store.ports(), first); }
};

/// Anna Adams and Bob Brown by the hour, on the first day of a loaded week.
class PlannedBakery : public testing::Test {
  protected:
    TestStore store;
    GlobalState& g = store.g;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "10"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "10"});
        store.OpenWeek(Sunday);
        On(1, 1);
    }
    /// Puts the cursor on a person's day.
    void On(int employee, int day) {
        g.cursor.CurrentEmployee = employee;
        g.cursor.CurrentDay = day;
        SumDay(WritableWeek(g), PayrollOf(g), day);
    }
    void Take() { CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts); }
    /// Takes bars of the first person's Monday as a shift, which `keep` stores, and leaves the week as it
    /// was.
    template <typename Keep>
    void KeepMonday(const BarList& bars, Keep keep) {
        On(1, 2);
        BarList ofWeek;
        for (const auto& [start, stop] : bars) ofWeek.emplace_back(96 + start, 96 + stop);
        SetBars(g, 1, ofWeek);
        Take();
        keep();
        SetBars(g, 1, {});
        WritableWeek(g).WeekChanged = false;
    }
    /// The bars of a stored shift.
    BarList Stored(int n) const {
        BarList bars;
        for (int k = 1; k <= g.shifts.ShiftBarCount[n]; ++k)
            bars.emplace_back(g.shifts.ShiftStarts[n][k], g.shifts.ShiftStops[n][k]);
        return bars;
    }
};

} // namespace tvx::test
