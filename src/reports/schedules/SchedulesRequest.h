// What the seven-day schedules are opened for.
#pragma once

#include "shell/state/ScheduleKind.h"

namespace tvx {

struct SchedulesAnswer {};

struct SchedulesRequest {
    using Answer = SchedulesAnswer;
    ScheduleKind kind = ScheduleKind::Short;
};

} // namespace tvx
