// The week of one employee as bars, and the string of quarters through which bars melt into one.
#pragma once

#include "shell/state/Week.h"

namespace tvx {

/// Empties the string of quarters.
void ClearWeekGrid(Week& week);

/// Marks the quarters from `start` up to, not including, `stop`. Times outside the eight days are cut off; a
/// start at or after its stop marks nothing.
void PaintWeekGrid(Week& week, WeekQuarter start, WeekQuarter stop);

/// Takes the marks from `start` up to, not including, `stop` away, with the same limits.
void EraseWeekGrid(Week& week, WeekQuarter start, WeekQuarter stop);

/// Takes the marks on an employee's days off away, midnight to midnight; what lies outside them stays.
void CutDaysOffFromGrid(Week& week, int employee);

/// Runs of marked quarters, also those beyond the 35 that a reading gives back.
int RunsInWeekGrid(const Week& week);

/// Reads the runs of marked quarters back as the bars of an employee, in order, 35 at most, into slots 1 on;
/// the slots behind them are emptied. Returns their number, 0 when nothing is marked. Leaves `BarCount`
/// alone.
int ReadWeekGrid(Week& week, int employee);

/// Marks all bars of an employee and takes them out of their slots; `BarCount` stays as it is. A ReadWeekGrid
/// must follow.
void BuildWeekGrid(Week& week, int employee);

/// BuildWeekGrid and ReadWeekGrid: overlapping and touching bars become one, empty ones vanish.
void MergeBars(Week& week, int employee);

/// Takes out what lies on days off: a bar within such a day goes; a bar that reaches out of it on one side
/// keeps that side; a bar that covers the day, or begins with it and ends behind it, goes whole. The day is
/// midnight to midnight. The bars that stay are packed in order and merged.
void CutBarsAgainstDaysOff(Week& week, int employee);

} // namespace tvx
