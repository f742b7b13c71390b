// The lists that a department keeps for planning: daytypes and stored shifts.
#pragma once

#include <array>
#include <string>

namespace tvx {

constexpr int MostDayTypes = 71;
constexpr int MostShifts = 21;
constexpr int MostShiftsToAdd = 20; // by hand; a file may hold one more
constexpr int MostShiftBars = 35;

struct Daytypes {
    int DayTypeCount = 0;
    std::array<std::string, MostDayTypes + 1> DayTypeSymbols; // [1..DayTypeCount]
    std::array<std::string, MostDayTypes + 1> DayTypeNames;   // [1..DayTypeCount]
};

struct Shifts {
    int ShiftCount = 0;
    std::array<std::string, MostShifts + 1> ShiftNames; // [shift 1..21]
    std::array<int, MostShifts + 1> ShiftBarCount{};    // [shift]
    std::array<std::array<int, MostShiftBars + 1>, MostShifts + 1>
        ShiftStarts{}; // [shift][bar 1..35], quarters
    std::array<std::array<int, MostShiftBars + 1>, MostShifts + 1> ShiftStops{}; // after the day's midnight
};

} // namespace tvx
