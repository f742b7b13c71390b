#include "editor/week/StoredDays.h"

#include "editor/week/WeekModel.h"

namespace tvx {

StoredWeek ReadStoredWeek(const dao::Database& database, const Roster& roster, DaySerial firstSerial) {
    StoredWeek stored(static_cast<std::size_t>(roster.EmployeeCount) + 1);
    const auto first = roster.RosterEmployeeKey.begin() + 1;
    const std::vector<int> keys(first, first + roster.EmployeeCount);
    const auto place = [&](std::size_t employee, DaySerial serial) -> DayRow& {
        StoredDay& day = stored[employee + 1][serial - firstSerial + 1];
        day.found = true;
        return day;
    };
    ReadPlannedDays(database, keys, firstSerial, firstSerial + DaysInSpan - 1, place);
    return stored;
}

ReadPeriods ReadablePeriods(std::string_view startsStops) {
    ReadPeriods readable;
    for (const Period& period : DecodePeriods(startsStops)) {
        if (!period.IsUsed()) continue;
        if (period.start > period.stop) break;
        readable.Add(period);
    }
    return readable;
}

void PaintStoredDay(Week& week, int day, std::string_view text) {
    const int offset = (day - 1) * QuartersPerDay;
    for (const Period& period : ReadablePeriods(text))
        PaintWeekGrid(week, period.start + offset, period.stop + offset);
}

std::string StartsStopsOf(const Week& week, int e, int day, int& quarters) {
    const int dayLow = (day - 1) * QuartersPerDay;
    const int dayHigh = day * QuartersPerDay;
    DayPeriods periods{};
    std::size_t count = 0;
    quarters = 0;
    for (int b = 1; b <= week.BarCount[e] && count < PeriodsPerDay; ++b) {
        int s = week.BarStarts[e][b];
        int t = week.BarStops[e][b];
        if ((t <= dayLow && s < dayLow) || (s >= dayHigh && t > dayHigh)) continue;
        if (s <= dayLow) s = dayLow;
        if (t > dayHigh) t = dayHigh;
        quarters += t - s;
        periods[count++] = {s - dayLow, t - dayLow};
    }
    return EncodePeriods(std::span(periods).first(count));
}

} // namespace tvx
