// What the seven-day schedules are opened for.
#pragma once

#include <string>

namespace tvx {

struct SchedulesAnswer {};

struct SchedulesRequest {
    using Answer = SchedulesAnswer;
    std::string kind; // "7DayLong", "7DayShort" or "SelectedEmployees"
};

} // namespace tvx
