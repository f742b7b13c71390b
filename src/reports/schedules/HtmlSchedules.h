// The schedules as web pages: the same data as on paper, laid out as table blocks alone.
#pragma once

#include "platform/ports/Vp.h"
#include "reports/schedules/SchedulePage.h"

namespace tvx {

/// The short schedule: a row for each person, a column for each day.
void PrintShortScheduleHTML(const PrintedSchedule& schedule, Vp& vp);

/// The long schedule of everybody; closes the document.
void PrintLongScheduleHTML(const PrintedSchedule& schedule, Vp& vp);

/// The long schedule of each person under a title of his own.
void PrintSelectedSchedulesHTML(const PrintedSchedule& schedule, Vp& vp);

} // namespace tvx
