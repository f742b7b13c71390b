// Stored shifts: the bars of a day kept under a name, for other days and people.
#pragma once

#include "masterdata/DaytypeList.h"
#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx {

constexpr int MostShiftsToAdd = 20;

/// Puts the bars of the current employee that start on the current day, midnight to midnight, into the slot
/// behind the last shift, as quarters after that midnight. The count rises when the shift is named and saved.
void TakeShiftFromDay(GlobalState& g);

enum class ShiftResult {
    Done,
    Incomplete, // no name, or no room for another: a beep, nothing else
    InUse,      // told: the box is emptied and takes the focus
    NotWritten, // the file cannot be written, told; nothing has changed
};

/// Names the shift that waits behind the last one, and writes the file.
ShiftResult AddShift(GlobalState& g, Prompt& prompt, const std::string& name);
/// Gives the shift at an index another name.
ShiftResult RenameShift(GlobalState& g, Prompt& prompt, int index, const std::string& name);
ShiftResult DeleteShift(GlobalState& g, Prompt& prompt, int index);

/// The names of the list, with the index of each.
std::vector<std::pair<std::string, int>> ShiftRows(const Shifts& shifts);

/// What came of pasting a shift.
enum class PasteResult {
    Pasted,
    DayOff,   // the day, or with a cut-off the next one, is a day off: nothing happens
    Occupied, // the day has time: a beep is due
};

/// Copies the bars of a stored shift into the current employee's day, and brings all sums up to date. The
/// day's daytype stays. What lies beyond the eight days is cut off.
PasteResult PasteShift(GlobalState& g, int index);

} // namespace tvx
