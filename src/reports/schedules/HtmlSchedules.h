// The schedules as web pages: the same data as on paper, laid out as table blocks alone.
#pragma once

#include "reports/schedules/PrintWeek.h"

namespace tvx {

/// The short schedule: a row for each employee, a column for each day.
void PrintShortScheduleHTML(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp);

/// The long schedule of the roster, or of the picked employees.
void PrintLongScheduleHTML(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp);

/// Runs the routine of a request's kind, on paper or as a web page, between StartDoc and EndDoc.
void RunSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, bool html, Vp& vp);

} // namespace tvx
