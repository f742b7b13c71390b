// The global state of a run: everything that the screens share.
#pragma once

#include "shell/state/ApplicationState.h"
#include "shell/state/Department.h"
#include "shell/state/Grid.h"
#include "shell/state/Lists.h"
#include "shell/state/Report.h"
#include "shell/state/Rights.h"
#include "shell/state/Roster.h"
#include "shell/state/Store.h"
#include "shell/state/Week.h"
#include "shell/state/WeekSteps.h"

namespace tvx {

/// There is one in a run, owned by main and handed down. A procedure takes the slice that it needs, and the
/// whole only when it truly works across topics.
struct GlobalState {
    ApplicationState application;
    ScreenState screen;
    Paths paths;
    Rights rights;
    Department department;
    DepartmentList departments;
    Roster roster;
    LoadedWeek loadedWeek;
    const Week& week = loadedWeek.Read();
    WeekSteps steps;
    Cursor cursor;
    DepartmentFigures figures;
    Totals totals;
    Wage TotalSalaries; // weekly salaries of the roster
    Productivity productivity;
    Daytypes daytypes;
    Shifts shifts;
    LineClipboard clipboard;
    Reports reports;
    Store store;
};

} // namespace tvx
