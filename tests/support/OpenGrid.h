// The Main Editor's grid as its form opens it, for tests without a form.
#pragma once

#include "editor/lanes/GridView.h"

namespace tvx::test {

/// Sets a grid's geometry for the roster and the screen. Does not touch the cursor but for the left edge.
inline void OpenGrid(Grid& grid, const GlobalState& g) {
    SetGridGeometry(grid, g.screen, g.roster.EmployeeCount, g.department.DayCutoffQuarters,
                    g.application.options.StartHour);
}

} // namespace tvx::test
