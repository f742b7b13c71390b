#include "editor/week/PersonWeek.h"

namespace tvx {

WeekBars BarsOf(const Week& week, int e) {
    WeekBars bars;
    bars.reserve(static_cast<std::size_t>(week.BarCount[e]));
    for (int b = 1; b <= week.BarCount[e]; ++b) bars.push_back({week.BarStarts[e][b], week.BarStops[e][b]});
    return bars;
}

PersonWeek PersonOf(const Week& week, int e) {
    PersonWeek person;
    person.bars = BarsOf(week, e);
    for (int d = 1; d <= DaysInSpan; ++d) {
        person.DayTypeText[d] = week.DayTypeText[d][e];
        person.DayOffFlag[d] = week.DayOffFlag[d][e];
    }
    return person;
}

void PutPerson(Week& week, int e, const PersonWeek& person) {
    week.BarStarts[e].fill(0);
    week.BarStops[e].fill(0);
    int count = 0;
    for (const WeekBar& bar : person.bars) {
        ++count;
        week.BarStarts[e][count] = bar.start;
        week.BarStops[e][count] = bar.stop;
    }
    week.BarCount[e] = count;
    for (int d = 1; d <= DaysInSpan; ++d) {
        week.DayTypeText[d][e] = person.DayTypeText[d];
        week.DayOffFlag[d][e] = person.DayOffFlag[d];
    }
}

std::size_t BytesOf(const PersonWeek& person) {
    constexpr std::size_t HeldInPlace = 15; // characters that a text keeps without memory of its own
    std::size_t bytes = sizeof(PersonWeek) + person.bars.capacity() * sizeof(WeekBar);
    for (const std::string& text : person.DayTypeText)
        if (text.capacity() > HeldInPlace) bytes += text.capacity() + 1;
    return bytes;
}

} // namespace tvx
