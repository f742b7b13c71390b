// Makes a schedule of the week that is loaded, for the rights and options of the run.
#pragma once

#include "platform/ports/Ports.h"
#include "platform/ports/Vp.h"
#include "reports/schedules/SchedulePage.h"
#include "shell/state/ScheduleKind.h"
#include "shell/state/TVXGLOB.h"

namespace tvx {

/// What a run of a schedule is asked for beside the options that last.
struct ScheduleRequest {
    ScheduleKind kind = ScheduleKind::Short;
    bool lastStop = false;          // a word stands for the last stop of a day
    std::string openWord = " Open"; // that word; "_____" stands for a blank one
    bool productivity = false;
    bool saveSpace = false;  // web pages: days with nothing are left out
    std::vector<int> picked; // employees, in the order of the list
};

/// True when an employee of the loaded week is to be printed.
bool IsPrinted(const Week& week, const Roster& roster, const ReportOptions& options, int employee);

/// The options of a run: no wages where they may not be seen. The options that last stay as they are.
ReportOptions OptionsOfRun(const ReportOptions& options, const Rights& rights);

/// What stands on the pages of a schedule of the loaded week.
SchedulePage LoadSchedulePage(const GlobalState& g, const Ports& ports, const ScheduleRequest& request);

/// The schedule of the loaded week: the picked employees, or those of the roster who are printed, in the
/// order of the rows. The week itself stays as it is.
PrintedSchedule LoadSchedule(GlobalState& g, const Ports& ports, const ScheduleRequest& request);

} // namespace tvx
