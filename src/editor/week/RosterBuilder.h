// From the button of the console to the people of the Main Editor: the roster query and its arrays.
#pragma once

#include "platform/ports/Prompt.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <string_view>

namespace tvx {

/// What came of building the roster.
enum class RosterResult {
    Ready,
    Empty,       // the department has no active employee
    NoSharedIds, // nobody works in more than one department
};

/// Opens the roster query of the current department, or of everybody whose ID occurs in more than one row
/// when `AllDepartmentsMode` is on, and fills the roster arrays; the week arrays are sized for it and empty.
/// An `EditorOrder` outside 1 to 6 keeps the query of the last run, or takes order 1 when there was none.
/// On another result than Ready the arrays are as they were. Throws DaoError, also 6 for an employee number
/// outside 1 to 32767, and leaves the arrays then too.
RosterResult BuildRoster(GlobalState& g);

/// BuildRoster with its messages. True when the Main Editor can open; `AllDepartmentsMode` is cleared when
/// nobody shares an ID.
bool PrepareRoster(GlobalState& g, Prompt& prompt);

/// Decodes an employee's hours of absence from the stored texts of 28 bytes, Sunday first, into slots on a
/// scale of eight days; day 8 is Sunday again. A slot that begins where the one before ends joins it, which
/// leaves a count one too high when it is the last. Shorter texts mean no absence.
void DecodeAvailability(std::string_view availStart, std::string_view availStop, Roster& roster,
                        int employee);

/// "Full time" (0), "Part time" (1), "Student" (2), "Other" (4); "" for any other code.
std::string LaborTypeText(long code);

} // namespace tvx
