// The long seven-day schedule on paper: seven dated lines for each employee.
#pragma once

#include "reports/schedules/PrintWeek.h"

namespace tvx {

/// Draws the schedule of the whole roster, or of the picked employees on a page each, into the open document.
void PrintLongSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp);

} // namespace tvx
