// One person's week as reports print it: a value that any loader can make and any drawing can take.
#pragma once

#include "platform/basic/Currency.h"
#include "shell/state/Lists.h"
#include "shell/state/Week.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

/// A bar or a printed range: week quarters, stop exclusive.
struct PrintedRange {
    WeekQuarter start = 0;
    WeekQuarter stop = 0;

    friend bool operator==(const PrintedRange&, const PrintedRange&) = default;
};

using PrintedRanges = std::vector<PrintedRange>;

struct PrintedPerson {
    std::string name1;           // last name, or the first where the list is ordered by it
    std::string name2;           // the other
    std::string detail;          // what stands under or behind the name; "" for nothing
    bool paidByHour = true;      // else on a salary
    std::optional<Currency> pay; // of an hour or of a week; absent where pay may not be seen
    int barColour = 0;           // palette index
    PrintedRanges bars;          // ascending; none that begins on a day off

    // [day 1..8]; the eighth is not printed, but a night can end there.
    std::array<std::string, DaysInSpan + 1> labels; // of the daytype or the day off; "" for none
    std::array<PrintedRanges, DaysInSpan + 1> PrintRanges;
    std::array<int, DaysInSpan + 1> PrintDayQuarters{}; // worked on the business day
};

/// Fills bars, ranges and quarters of a person from the bars of a week, ascending. Bars that begin on a day
/// off are left out. Hours belong to the business days on which they lie; a printed range belongs whole to
/// the day on which it starts, and gaps not above `breakThreshold` quarters do not part it.
void LoadPrintArrays(PrintedPerson& person, const PrintedRanges& bars,
                     const std::array<bool, DaysInSpan + 1>& dayOff, int cutoffQuarters, int breakThreshold);

/// The name of the daytype of a symbol, whatever its case; "" for a blank symbol or one that is not listed.
std::string DaytypeName(const Daytypes& daytypes, const std::string& symbol);

/// Wage of a number of quarters: nothing for a salary, or where pay may not be seen.
Wage DayWageAmount(const PrintedPerson& person, int quarters);

} // namespace tvx
