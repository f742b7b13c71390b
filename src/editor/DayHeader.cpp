#include "editor/DayHeader.h"

#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

namespace tvx {

std::array<HeaderColumn, 8> DayHeader(const GlobalState& g, const Region& region, bool wide) {
    std::array<HeaderColumn, 8> columns;
    for (int d = 1; d <= 7; ++d) {
        const DaySerial date = g.week.WeekStartJulian + d - 1;
        const auto number = WeekNumber(date, g.department.WeekMethod, g.department.FirstWeekday);
        columns[d].weekday = region.Names().weekdays[Weekday(date)];
        columns[d].date = wide ? region.MediumDate(date) : region.ShortDate(date);
        if (number) columns[d].weekNumber = std::to_string(*number);
        columns[d].selected = d == g.cursor.CurrentDay;
        columns[d].memo = g.figures.DayMemoFlag[d];
    }
    return columns;
}

std::string EditorTitle(const Roster& roster, const Department& department, const Week& week) {
    if (roster.AllDepartmentsMode) return "Multiple Department " + department.EmployeeNamePlural;
    return WeekTitle(department, week);
}

} // namespace tvx
