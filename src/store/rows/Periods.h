// The times of day that rows store as text: a start or a stop a character, its code 32 plus the quarter.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tvx {

constexpr std::size_t PeriodsPerDay = 7;
constexpr std::size_t StartsStopsLength = 2 * PeriodsPerDay;
constexpr std::size_t AbsencesPerDay = 4;
constexpr std::size_t AbsencesPerWeek = 7 * AbsencesPerDay;

/// A start and a stop as a text holds them, in quarters after midnight: 0 to 96 in a sound text, -32 to 223
/// in any. Nothing is put right: a start may lie after its stop.
struct Period {
    int start = 0;
    int stop = 0;

    /// Of an unused pair the start means nothing.
    bool IsUsed() const { return stop > 0; }
    friend bool operator==(const Period&, const Period&) = default;
};

using DayPeriods = std::array<Period, PeriodsPerDay>;
using WeekAbsences = std::array<Period, AbsencesPerWeek>; // [4 * day + slot], day 0 is Sunday, slot 0 to 3

/// The seven pairs of `Starts & Stops`. A text shorter than 14 bytes has none, bytes behind them are passed
/// over.
DayPeriods DecodePeriods(std::string_view startsStops);
/// The 14 bytes of `Starts & Stops`: those seven, or fewer and blanks behind them. What stands behind the
/// seventh is cut.
std::string EncodePeriods(std::span<const Period> periods);

/// The pairs of `Avail start` and `Avail stop`, the hours at which somebody is not available. When one of the
/// texts is shorter than 28 bytes there are none.
WeekAbsences DecodeAbsences(std::string_view availStart, std::string_view availStop);
/// The 28 bytes of each of the two texts.
std::string EncodeAbsenceStarts(const WeekAbsences& absences);
std::string EncodeAbsenceStops(const WeekAbsences& absences);

} // namespace tvx
