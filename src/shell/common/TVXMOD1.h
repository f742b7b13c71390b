// The common routines that every subsystem calls.
#pragma once

#include "platform/ports/Clock.h"
#include "platform/ports/Prompt.h"
#include "platform/ports/Region.h"
#include "shell/state/Department.h"
#include "shell/state/Lists.h"
#include "shell/state/Store.h"
#include "store/rows/DepartmentRow.h"

#include <optional>
#include <string>

namespace tvx {

/// Waits, letting events run. Survives midnight.
void Pause(double seconds, const Clock& clock, Prompt& prompt);

/// Shows a flood of twenty steps of 5 per cent, 0.003 seconds each, after a save.
/// `show` is called with 5, 10 .. 100.
template <typename Show>
void FloodTwentySteps(const Clock& clock, Prompt& prompt, Show show) {
    for (int i = 1; i <= 20; ++i) {
        Pause(0.003, clock, prompt);
        show(5 * i);
    }
}

/// Reads the department's daytypes in the order of their symbols: at most 71, index 0 stays empty; an empty
/// field gives "". Throws DaoError.
void LoadDayTypes(const Store& store, int departmentNumber, Daytypes& daytypes);

/// Closes the database and the roster's recordset; errors are ignored. Lets events run.
void CloseDatabase(Store& store, Prompt& prompt);

/// "MM-DD-YYYY", "DD-MM-YYYY" or "YYYY-MM-DD", by the order of the system's short date.
std::string DetectDateFormat(const Region& region);

/// The first day of the scheduling week that holds a date: the latest date at or before it that falls on the
/// department's first weekday.
DaySerial FirstDayOfWeek(DaySerial date, int firstWeekday);

/// Number of the week that holds a date, by the department's method: 0 the first week has four days, 1 the
/// first full week, 2 the week of 1 January. Nothing for any other method. With method 0 a number above 52
/// is 1 when the same date counted in weeks from Monday gives 1.
std::optional<int> WeekNumber(DaySerial date, int weekMethod, int firstWeekday);

/// Makes the words of a department those of the state.
void ReadGenericNames(const DepartmentRow& row, Department& department);
/// Makes a department the current one, but for its words. A stored weekday of 1 to 10 leaves the cut-off as
/// it was.
void ReadDepartment(const DepartmentRow& row, Department& department);

} // namespace tvx
