// The rows of `Day Schedule` for one week of the roster, as they stand in the file.
#pragma once

#include "platform/dao/Database.h"
#include "shell/state/Week.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

constexpr std::size_t PeriodsPerDay = 7;
constexpr std::size_t StartsStopsLength = 2 * PeriodsPerDay;

/// One row, or none.
struct StoredDay {
    bool found = false;
    bool vacation = false;
    bool rateFrozen = false; // the rate of the day stands in the row
    double workHours = 0;
    std::string dayType;
    std::string startsStops; // bytes; "" when Null
};

/// [employee][day 1..8]
using StoredWeek = std::vector<std::array<StoredDay, DaysInSpan + 1>>;

/// Reads the eight days from `firstSerial` on for everybody of the roster, in one read transaction: by one
/// scan of the days when the roster is a good part of the file's people, else row by row. Throws DaoError.
StoredWeek ReadStoredWeek(const dao::Database& database, const Roster& roster, DaySerial firstSerial);

/// Marks the periods of a day's stored text in the string of quarters. Day 1 to 8. A text shorter than 14
/// bytes is an empty day; a period whose start lies after its stop ends the reading of the day.
void PaintStoredDay(Week& week, int day, std::string_view startsStops);

/// The stored text of a day, 14 bytes, from the bars of an employee, and the quarters that it holds. More
/// than seven bars on the day are cut.
std::string StartsStopsOf(const Week& week, int employee, int day, int& quarters);

} // namespace tvx
