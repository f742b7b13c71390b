// The common routines that every subsystem calls.
#pragma once

#include "platform/ports/Clock.h"
#include "platform/ports/Prompt.h"
#include "platform/ports/Region.h"
#include "shell/state/Department.h"
#include "shell/state/Lists.h"
#include "shell/state/Store.h"

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
void LoadDayTypes(Store& store, int departmentNumber, Daytypes& daytypes);

/// Closes the database and every recordset; errors are ignored. Lets events run.
void CloseDatabase(Store& store, Prompt& prompt);

/// Takes apart the field `First weekday`. Below 1: weekday 1, cut-off 0. 1 to 10: that weekday, the cut-off
/// stays as it was. Above 10: weekday * 100 + cut-off. A weekday outside 1 to 7 becomes 1.
void DecodeFirstWeekday(long value, int& firstWeekday, int& cutoffQuarters);

/// The field `First weekday` of a weekday, 1 to 7, and a cut-off, 0 to 99 quarters.
int EncodeFirstWeekday(int firstWeekday, int cutoffQuarters);

/// "MM-DD-YYYY", "DD-MM-YYYY" or "YYYY-MM-DD", by the order of the system's short date.
std::string DetectDateFormat(const Region& region);

/// The first day of the scheduling week that holds a date: the latest date at or before it that falls on the
/// department's first weekday.
DaySerial FirstDayOfWeek(DaySerial date, int firstWeekday);

/// Number of the week that holds a date, by the department's method: 0 the first week has four days, 1 the
/// first full week, 2 the week of 1 January. Nothing for any other method. With method 0 a number above 52
/// is 1 when the same date counted in weeks from Monday gives 1.
std::optional<int> WeekNumber(DaySerial date, int weekMethod, int firstWeekday);

/// The words of a department from its current record, each with its default where the field is Null.
void ReadGenericNames(dao::Recordset& departmentRs, Department& department);

} // namespace tvx
