// The seven days above the Main Editor's grid, and the title of its window.
#pragma once

#include "platform/ports/Region.h"
#include "shell/state/TVXGLOB.h"

#include <array>
#include <string>

namespace tvx {

/// One column of the day header.
struct HeaderColumn {
    std::string weekday;
    std::string date;
    std::string weekNumber; // "" when none is shown
    bool selected = false;
    bool memo = false;

    friend bool operator==(const HeaderColumn&, const HeaderColumn&) = default;
};

/// The seven columns, [1..7]; `day` is the one shown. `wide` columns have room for the longer date.
std::array<HeaderColumn, 8> DayHeader(const Department& department, const Week& week,
                                      const DepartmentFigures& figures, int day, const Region& region,
                                      bool wide);

/// The title of the editor's window.
std::string EditorTitle(const Roster& roster, const Department& department, const Week& week);

} // namespace tvx
