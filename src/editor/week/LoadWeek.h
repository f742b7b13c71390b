// A week from the store into memory.
#pragma once

#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

namespace tvx {

/// Loads the week that begins at `firstSerial`: bars, daytypes, days off, the sums, sales, transactions,
/// memos and the choice of what enters the ratios. Resets `WeekChanged`, empties the line clipboard, and
/// keeps `CurrentDay`. With `dropDaysOff`, for the copy of a week, no day counts as a day off. Throws
/// DaoError when the schedule rows cannot be read: the week in memory is then as it was. Trouble with the
/// department's figures of a day leaves the sales and the memo of that day empty without a word.
void LoadWeek(GlobalState& g, Ports& ports, DaySerial firstSerial, bool dropDaysOff = false);

/// Finds the week that holds a date, makes that date the current day, and loads the week.
void LoadWeekOf(GlobalState& g, Ports& ports, DaySerial date);

} // namespace tvx
