// Runs a schedule of the loaded week, whatever its kind.
#pragma once

#include "reports/schedules/ScheduleLoader.h"

namespace tvx {

/// Loads and draws a request's kind, on paper or as a web page, between StartDoc and EndDoc.
void RunSchedule(GlobalState& g, const Ports& ports, const ScheduleRequest& request, bool html, Vp& vp);

} // namespace tvx
