// The long seven-day schedule on paper: seven dated lines for each person.
#pragma once

#include "platform/ports/Vp.h"
#include "reports/schedules/SchedulePage.h"

namespace tvx {

/// Draws a schedule of everybody, one below the other, and closes the document.
void PrintLongSchedule(const PrintedSchedule& schedule, Vp& vp);

/// Draws each person on a page of his own.
void PrintSelectedSchedules(const PrintedSchedule& schedule, Vp& vp);

} // namespace tvx
