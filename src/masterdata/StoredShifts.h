// Stored shifts as a list: naming, renaming and deleting them.
#pragma once

#include "masterdata/DaytypeList.h"
#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx {

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

} // namespace tvx
