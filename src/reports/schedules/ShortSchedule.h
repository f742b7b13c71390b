// The short seven-day schedule on paper: a row for each employee, a column for each day.
#pragma once

#include "reports/schedules/PrintWeek.h"

namespace tvx {

/// Draws the whole schedule into the open document. Employees come in the order of the rows.
void Print7day(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp);

} // namespace tvx
