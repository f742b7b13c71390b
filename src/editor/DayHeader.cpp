#include "editor/DayHeader.h"

#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

namespace tvx {

std::array<HeaderColumn, 8> DayHeader(const Department& department, const Week& week,
                                      const DepartmentFigures& figures, int day, const Region& region,
                                      bool wide) {
    std::array<HeaderColumn, 8> columns;
    for (int d = 1; d <= 7; ++d) {
        const DaySerial date = week.WeekStartJulian + d - 1;
        const auto number = WeekNumber(date, department.WeekMethod, department.FirstWeekday);
        columns[d].weekday = region.Names().weekdays[Weekday(date)];
        columns[d].date = wide ? region.MediumDate(date) : region.ShortDate(date);
        if (number) columns[d].weekNumber = std::to_string(*number);
        columns[d].selected = d == day;
        columns[d].memo = figures.DayMemoFlag[d];
    }
    return columns;
}

std::string EditorTitle(const Roster& roster, const Department& department, const Week& week) {
    if (roster.AllDepartmentsMode) return "Multiple Department " + department.EmployeeNamePlural;
    return WeekTitle(department, week);
}

} // namespace tvx
