#include "editor/week/WeekModel.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::size_t GridLength = QuartersPerSpan + 1;

void FillWeekGrid(Week& week, WeekQuarter start, WeekQuarter stop, char mark) {
    const int from = std::clamp(start, 0, QuartersPerSpan);
    const int to = std::clamp(stop, 0, QuartersPerSpan);
    if (from < to) std::fill(week.WeekGrid.begin() + from, week.WeekGrid.begin() + to, mark);
}

void CutOneBar(WeekQuarter& s, WeekQuarter& t, WeekQuarter dayLow, WeekQuarter dayHigh) {
    if (t <= dayLow || s >= dayHigh) return;
    if (s >= dayLow && t <= dayHigh) {
        s = t = 0;
    } else if (s > dayLow && t > dayHigh) {
        s = dayHigh;
    } else {
        // A bar that covers the day ends with its start above its stop, and so loses both sides.
        if (t >= dayHigh) s = dayHigh;
        t = dayLow;
    }
}

void PackBars(Week& week, int employee) {
    auto& starts = week.BarStarts[employee];
    auto& stops = week.BarStops[employee];
    int kept = 0;
    for (int b = 1; b <= week.BarCount[employee]; ++b) {
        if (starts[b] < 1 && stops[b] < 1) continue;
        ++kept;
        starts[kept] = starts[b];
        stops[kept] = stops[b];
    }
    for (int b = kept + 1; b <= BarSlots; ++b) starts[b] = stops[b] = 0;
    week.BarCount[employee] = kept;
}

} // namespace

void ClearWeekGrid(Week& week) {
    week.WeekGrid.assign(GridLength, ' ');
}

void PaintWeekGrid(Week& week, WeekQuarter start, WeekQuarter stop) {
    FillWeekGrid(week, start, stop, 'X');
}

void EraseWeekGrid(Week& week, WeekQuarter start, WeekQuarter stop) {
    FillWeekGrid(week, start, stop, ' ');
}

void CutDaysOffFromGrid(Week& week, int employee) {
    for (int d = 1; d <= DaysInSpan; ++d)
        if (week.DayOffFlag[d][employee]) EraseWeekGrid(week, (d - 1) * QuartersPerDay, d * QuartersPerDay);
}

int RunsInWeekGrid(const Week& week) {
    int runs = 0;
    char before = ' ';
    for (const char quarter : week.WeekGrid) {
        if (quarter == 'X' && before == ' ') ++runs;
        before = quarter;
    }
    return runs;
}

int ReadWeekGrid(Week& week, int employee) {
    auto& starts = week.BarStarts[employee];
    auto& stops = week.BarStops[employee];
    int bars = 0;
    std::size_t at = 0;
    while (bars < MostBarsRead) {
        at = week.WeekGrid.find('X', at);
        if (at == std::string::npos) break;
        const std::size_t end = week.WeekGrid.find(' ', at); // the last position is never marked
        ++bars;
        starts[bars] = static_cast<WeekQuarter>(at);
        stops[bars] = static_cast<WeekQuarter>(end);
        at = end;
    }
    for (int b = bars + 1; b <= BarSlots; ++b) starts[b] = stops[b] = 0;
    return bars;
}

void BuildWeekGrid(Week& week, int employee) {
    ClearWeekGrid(week);
    auto& starts = week.BarStarts[employee];
    auto& stops = week.BarStops[employee];
    for (int b = 1; b <= week.BarCount[employee]; ++b) {
        PaintWeekGrid(week, starts[b], stops[b]);
        starts[b] = stops[b] = 0;
    }
}

void MergeBars(Week& week, int employee) {
    BuildWeekGrid(week, employee);
    week.BarCount[employee] = ReadWeekGrid(week, employee);
}

void CutBarsAgainstDaysOff(Week& week, int employee) {
    for (int d = 1; d <= DaysInSpan; ++d) {
        if (!week.DayOffFlag[d][employee]) continue;
        for (int b = 1; b <= week.BarCount[employee]; ++b)
            CutOneBar(week.BarStarts[employee][b], week.BarStops[employee][b], (d - 1) * QuartersPerDay,
                      d * QuartersPerDay);
    }
    PackBars(week, employee);
    MergeBars(week, employee);
}

} // namespace tvx
