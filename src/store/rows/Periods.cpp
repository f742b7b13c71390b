#include "store/rows/Periods.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr int Midnight = 32; // the code of quarter 0

int QuarterAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]) - Midnight;
}

char CodeOf(int quarter) {
    return static_cast<char>(quarter + Midnight);
}

std::string Encode(const WeekAbsences& absences, int Period::*end) {
    std::string text(AbsencesPerWeek, CodeOf(0));
    for (std::size_t i = 0; i < AbsencesPerWeek; ++i) text[i] = CodeOf(absences[i].*end);
    return text;
}

} // namespace

DayPeriods DecodePeriods(std::string_view text) {
    DayPeriods periods{};
    if (text.size() < StartsStopsLength) return periods;
    for (std::size_t p = 0; p < PeriodsPerDay; ++p)
        periods[p] = {QuarterAt(text, p), QuarterAt(text, p + PeriodsPerDay)};
    return periods;
}

std::string EncodePeriods(std::span<const Period> periods) {
    std::string text(StartsStopsLength, CodeOf(0));
    for (std::size_t p = 0; p < std::min(periods.size(), PeriodsPerDay); ++p) {
        text[p] = CodeOf(periods[p].start);
        text[p + PeriodsPerDay] = CodeOf(periods[p].stop);
    }
    return text;
}

WeekAbsences DecodeAbsences(std::string_view availStart, std::string_view availStop) {
    WeekAbsences absences{};
    if (availStart.empty() || availStop.size() < AbsencesPerWeek) return absences;
    const bool startsKnown = availStart.size() >= AbsencesPerWeek; // else they are read as blanks: midnight
    for (std::size_t i = 0; i < AbsencesPerWeek; ++i)
        absences[i] = {startsKnown ? QuarterAt(availStart, i) : 0, QuarterAt(availStop, i)};
    return absences;
}

std::string EncodeAbsenceStarts(const WeekAbsences& absences) {
    return Encode(absences, &Period::start);
}

std::string EncodeAbsenceStops(const WeekAbsences& absences) {
    return Encode(absences, &Period::stop);
}

} // namespace tvx
