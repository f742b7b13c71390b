// Day 8 of a week in a save: it is the first day of the week behind, which keeps there what is its own.
#pragma once

#include "editor/week/StoredDays.h"

#include <optional>

namespace tvx {

/// Makes of what the model holds of an employee's day 8 what its row is to hold. `day7` and `day8` are the
/// rows as they stand. To the week behind belongs what begins at or after the cut-off and does not continue
/// day 7, and all that the load has left unread; it stays, as does the daytype unless it was edited. The
/// model's time is added, and takes the place of the rest. Nothing when the row holds that already.
std::optional<DayRow> WithNextWeek(DayRow wanted, const Week& week, int employee, const StoredDay& day7,
                                   const StoredDay& day8, int cutoffQuarters);

} // namespace tvx
