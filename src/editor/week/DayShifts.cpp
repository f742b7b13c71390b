#include "editor/week/DayShifts.h"

#include "editor/week/Totals.h"
#include "editor/week/WeekEdit.h"

namespace tvx {
namespace {

bool DayIsFree(const Week& week, int e, DayWindow day) {
    for (int b = 1; b <= week.BarCount[e]; ++b)
        if (week.BarStarts[e][b] < day.high && week.BarStops[e][b] > day.low) return false;
    return true;
}

} // namespace

void CopyDayIntoShifts(const Week& week, int e, int day, Shifts& shifts) {
    if (shifts.ShiftCount >= MostShifts) return;
    const int slot = shifts.ShiftCount + 1;
    const int midnight = (day - 1) * QuartersPerDay;
    shifts.ShiftBarCount[slot] = 0; // what an abandoned one left
    for (int b = 1; b <= week.BarCount[e]; ++b) {
        const int start = week.BarStarts[e][b] - midnight;
        if (start < 0 || start >= QuartersPerDay) continue;
        const int k = ++shifts.ShiftBarCount[slot];
        shifts.ShiftStarts[slot][k] = start;
        shifts.ShiftStops[slot][k] = week.BarStops[e][b] - midnight;
    }
}

PasteResult PasteShift(GlobalState& g, int index) {
    const Week& week = g.week;
    const int e = g.cursor.CurrentEmployee;
    const int day = g.cursor.CurrentDay;
    const int cutoff = g.department.DayCutoffQuarters;
    if (week.DayOffFlag[day][e] || (week.DayOffFlag[day + 1][e] && cutoff > 0)) return PasteResult::DayOff;
    if (!DayIsFree(week, e, WindowOfDay(day, cutoff))) return PasteResult::Occupied;
    const WeekChange change = WeekEdit(g).PasteShift(e, day, g.shifts, index);
    if (!change.Done()) return PasteResult::NotPermitted;
    return change.full.empty() ? PasteResult::Pasted : PasteResult::Full;
}

} // namespace tvx
