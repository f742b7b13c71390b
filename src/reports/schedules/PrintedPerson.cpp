#include "reports/schedules/PrintedPerson.h"

#include "editor/week/Totals.h"
#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx {
namespace {

int DayOf(WeekQuarter quarter) {
    return std::clamp(quarter / QuartersPerDay + 1, 1, DaysInSpan);
}

int QuartersWithin(const PrintedRanges& bars, DayWindow window) {
    int quarters = 0;
    for (const PrintedRange& bar : bars)
        quarters += std::max(0, std::min(bar.stop, window.high) - std::max(bar.start, window.low));
    return quarters;
}

void LoadRanges(PrintedPerson& person, int breakThreshold) {
    for (PrintedRanges& ranges : person.PrintRanges) ranges.clear();
    PrintedRange* open = nullptr;
    for (const PrintedRange& bar : person.bars) {
        if (open != nullptr && bar.start - open->stop <= breakThreshold)
            open->stop = bar.stop;
        else
            open = &person.PrintRanges[DayOf(bar.start)].emplace_back(bar);
    }
}

} // namespace

void LoadPrintArrays(PrintedPerson& person, const PrintedRanges& bars,
                     const std::array<bool, DaysInSpan + 1>& dayOff, int cutoffQuarters, int breakThreshold) {
    person.bars.clear();
    std::copy_if(bars.begin(), bars.end(), std::back_inserter(person.bars),
                 [&](const PrintedRange& bar) { return !dayOff[DayOf(bar.start)]; });
    for (int d = 1; d <= DaysInSpan; ++d)
        person.PrintDayQuarters[d] = QuartersWithin(person.bars, WindowOfDay(d, cutoffQuarters));
    LoadRanges(person, breakThreshold);
}

std::string DaytypeName(const Daytypes& daytypes, const std::string& symbol) {
    if (symbol <= " ") return "";
    const std::string wanted = UpperCase(Trim(symbol));
    for (int i = 1; i <= daytypes.DayTypeCount; ++i)
        if (UpperCase(Trim(daytypes.DayTypeSymbols[i])) == wanted) return daytypes.DayTypeNames[i];
    return "";
}

Wage DayWageAmount(const PrintedPerson& person, int quarters) {
    return person.pay && person.paidByHour ? Wage::ForQuarters(quarters, *person.pay) : Wage();
}

} // namespace tvx
