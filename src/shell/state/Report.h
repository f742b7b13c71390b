// What reports share: the font and paper of the report last shown, and the options that last for the run.
#pragma once

#include "platform/ports/ReportFont.h"
#include "shell/state/Week.h"

#include <array>
#include <string>

namespace tvx {

/// One current set, read from a department's file whenever a report form opens.
struct ReportSettings {
    /// Its name is "" until a file or the font dialog gives one; bold is kept and written, though no report
    /// opens in it.
    ReportFont font{.name = "", .size = 9, .bold = false, .italic = false};
    int ReportOrientation = 0; // 0 portrait, 1 landscape
};

struct ReportOptions {
    int BreakThreshold = 0;  // quarters that a break must exceed to part a printed time range, 0 to 4
    int PrintTotalHours = 0; // 0 or 1
    int PrintTotalWages = 0; // 0 or 1
    int NameOption = 0;      // what stands under the name, 0 to 5
    int WhoToPrint = 0;      // 0 everybody, 1 only those with schedules
    bool PrintDayComments = false;
    bool PrintTimeBars = false;
};

/// One employee's week as it is printed, refilled for each.
struct PrintArrays {
    std::array<int, DaysInSpan + 1> PrintRangeCount{}; // [day 1..8]
    std::array<std::array<WeekQuarter, DaysInSpan + 1>, BarSlots + 1>
        PrintRangeStart{}; // [row 1..36][day 1..8]
    std::array<std::array<WeekQuarter, DaysInSpan + 1>, BarSlots + 1>
        PrintRangeStop{};                               // [row 1..36][day 1..8]
    std::array<int, DaysInSpan + 1> PrintDayQuarters{}; // [day 1..8]
};

/// Sums over the people of a report, cleared when it starts.
struct PrintTotals {
    std::array<long, DaysInSpan + 1> DayTotalQuarters{}; // [day 1..8]
    std::array<double, DaysInSpan + 1> DayTotalWages{};  // [day 1..8]
};

struct Reports {
    ReportSettings settings;
    ReportOptions options;
    PrintArrays print;
    PrintTotals totals;
};

} // namespace tvx
