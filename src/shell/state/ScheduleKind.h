// The three schedules of a week.
#pragma once

#include <array>
#include <string>

namespace tvx {

enum class ScheduleKind {
    Short,    // a row for each employee, with seven columns of days
    Long,     // a block of seven lines for each employee
    Selected, // the same block of picked employees, on a page each
};

/// The word of a kind: "7DayLong".
inline std::string TextOf(ScheduleKind kind) {
    constexpr std::array<const char*, 3> words{"7DayShort", "7DayLong", "SelectedEmployees"};
    return words.at(static_cast<std::size_t>(kind));
}

} // namespace tvx
