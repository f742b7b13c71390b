// Stored shifts as a list: naming, renaming and deleting them.
#pragma once

#include "masterdata/DaytypeList.h"
#include "platform/ports/Ports.h"
#include "shell/common/SaveResult.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx {

/// Names the shift that waits behind the last one, and writes the file.
SaveResult AddShift(GlobalState& g, Prompt& prompt, const std::string& name);
/// Gives the shift at an index another name.
SaveResult RenameShift(GlobalState& g, Prompt& prompt, int index, const std::string& name);
SaveResult DeleteShift(GlobalState& g, Prompt& prompt, int index);

/// The names of the list, with the index of each.
std::vector<std::pair<std::string, int>> ShiftRows(const Shifts& shifts);

} // namespace tvx
