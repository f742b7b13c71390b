// Stored shifts and the day of one employee: taking a shift from it, and putting one there.
#pragma once

#include "shell/state/TVXGLOB.h"

namespace tvx {

/// Puts the bars of an employee that start on a day, midnight to midnight, into the slot behind the last
/// shift, as quarters after that midnight. The count rises when the shift is named and saved.
void CopyDayIntoShifts(const Week& week, int employee, int day, Shifts& shifts);

/// What came of pasting a shift.
enum class PasteResult {
    Pasted,
    DayOff,       // the day, or with a cut-off the next one, is a day off: nothing happens
    Occupied,     // the day has time: a beep is due
    Full,         // more than 35 bars would be needed: a beep is due
    NotPermitted, // schedules may not be changed
};

/// Copies the bars of a stored shift into the current employee's day, and brings all sums up to date. The
/// day's daytype stays. What lies beyond the eight days, or on a day off behind the day, is cut off.
PasteResult PasteShift(GlobalState& g, int index);

} // namespace tvx
