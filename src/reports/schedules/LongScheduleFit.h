// What the long schedules need of their paper, so that no text of them stands over another.
#pragma once

#include "reports/page/ReportFit.h"
#include "reports/schedules/SchedulePage.h"

namespace tvx {

/// Sets the document's size for a schedule of everybody, or for each person on a page of his own.
Fitting FitRoster(const PrintedSchedule& schedule, Vp& vp);
Fitting FitPicked(const PrintedSchedule& schedule, Vp& vp);

/// Lines of a day, and of all that stands below a person's name.
int LinesOfDay(const PrintedPerson& person, int day);
int LinesOfWeek(const SchedulePage& page, const PrintedPerson& person);
/// Those of the day that has the most of them; 1 where there is nobody.
int LinesOfLongestDay(const PrintedSchedule& schedule);

/// The lines of the note on the hours of the business day: at the foot of a schedule of everybody, and below
/// a picked person.
std::vector<std::string> RosterNote(const SchedulePage& page);
std::vector<std::string> PickedNote(const SchedulePage& page);

} // namespace tvx
