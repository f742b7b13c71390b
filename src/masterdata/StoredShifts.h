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

// Each works on the file as it is at that moment, by the name of the shift, so that what another workstation
// stored meanwhile stays. A file that is not read to its end is never written; a box names it. After Saved
// the list in memory is that of the file, after anything else it is as it was.

/// Names the shift that waits behind the last one, and writes the file; refused when it holds twenty, and
/// when the one that waits has no bar.
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
