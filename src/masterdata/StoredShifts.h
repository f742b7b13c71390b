// Stored shifts as a list: naming, renaming and deleting them.
#pragma once

#include "masterdata/DaytypeList.h"
#include "platform/ports/Ports.h"
#include "shell/common/SaveResult.h"
#include "shell/state/ApplicationState.h"
#include "shell/state/Department.h"
#include "shell/state/Lists.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx {

/// Names the shift that waits behind the last one, and writes the file.
SaveResult AddShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                    const std::string& name);
/// Gives the shift at an index another name.
SaveResult RenameShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                       int index, const std::string& name);
SaveResult DeleteShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                       int index);

/// The names of the list, with the index of each.
std::vector<std::pair<std::string, int>> ShiftRows(const Shifts& shifts);

} // namespace tvx
