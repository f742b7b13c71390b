// The rows of `Day Schedule` for one week of the roster, as they stand in the file.
#pragma once

#include "platform/dao/Database.h"
#include "shell/state/Week.h"
#include "store/rows/DayRow.h"
#include "store/rows/Periods.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// One row, or none: then it is empty.
struct StoredDay : DayRow {
    bool found = false;
};

/// [employee][day 1..8]
using StoredWeek = std::vector<std::array<StoredDay, DaysInSpan + 1>>;

/// Reads the eight days from `firstSerial` on for everybody of the roster, without their rates. Throws
/// DaoError.
StoredWeek ReadStoredWeek(const dao::Database& database, const Roster& roster, DaySerial firstSerial);

/// Up to seven periods. A load reads those of every day, so they take no memory of their own.
class ReadPeriods {
  public:
    void Add(const Period& period) { periods_[count_++] = period; }
    const Period* begin() const { return periods_.data(); }
    const Period* end() const { return begin() + count_; }
    bool empty() const { return count_ == 0; }
    std::size_t size() const { return count_; }

  private:
    DayPeriods periods_{};
    std::size_t count_ = 0;
};

/// The periods of a day's stored text that count, in their order. A text shorter than 14 bytes is an empty
/// day; a period whose start lies after its stop ends the reading of the day.
ReadPeriods ReadablePeriods(std::string_view startsStops);

/// Marks the readable periods of a day's stored text in the string of quarters. Day 1 to 8.
void PaintStoredDay(Week& week, int day, std::string_view startsStops);

/// The stored text of a day, 14 bytes, from the bars of an employee, and the quarters that it holds. More
/// than seven bars on the day are cut.
std::string StartsStopsOf(const Week& week, int employee, int day, int& quarters);

} // namespace tvx
