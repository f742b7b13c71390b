#include "editor/week/StoredDays.h"

#include "editor/week/WeekModel.h"

namespace tvx {
StoredWeek ReadStoredWeek(const dao::Database& database, const Roster& roster, DaySerial firstSerial) {
    StoredWeek stored(static_cast<std::size_t>(roster.EmployeeCount) + 1);
    const auto first = roster.RosterEmployeeKey.begin() + 1;
    const std::vector<int> keys(first, first + roster.EmployeeCount);
    ReadDayRows(database, keys, firstSerial, firstSerial + DaysInSpan - 1,
                [&](std::size_t employee, const DayRow& row) {
                    stored[employee + 1][row.day - firstSerial + 1] = {row, true};
                });
    return stored;
}

void PaintStoredDay(Week& week, int day, std::string_view text) {
    const int offset = (day - 1) * QuartersPerDay;
    for (const Period& period : DecodePeriods(text)) {
        if (!period.IsUsed()) continue;
        if (period.start > period.stop) return;
        PaintWeekGrid(week, period.start + offset, period.stop + offset);
    }
}

std::string StartsStopsOf(const Week& week, int e, int day, int& quarters) {
    const int dayLow = (day - 1) * QuartersPerDay;
    const int dayHigh = day * QuartersPerDay;
    std::vector<Period> periods;
    quarters = 0;
    for (int b = 1; b <= week.BarCount[e] && periods.size() < PeriodsPerDay; ++b) {
        int s = week.BarStarts[e][b];
        int t = week.BarStops[e][b];
        if ((t <= dayLow && s < dayLow) || (s >= dayHigh && t > dayHigh)) continue;
        if (s <= dayLow) s = dayLow;
        if (t > dayHigh) t = dayHigh;
        quarters += t - s;
        periods.push_back({s - dayLow, t - dayLow});
    }
    return EncodePeriods(periods);
}

} // namespace tvx
