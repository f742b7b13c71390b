#include "shell/common/TVXMOD1.h"

#include "store/rows/DayTypeRow.h"

namespace tvx {
namespace {

constexpr double SecondsPerDay = 86400;

} // namespace

void Pause(double seconds, const Clock& clock, Prompt& prompt) {
    double last = clock.Timer();
    double end = last + seconds;
    for (double now = last; now < end; now = clock.Timer()) {
        if (now < last) end -= SecondsPerDay; // midnight passed
        last = now;
        prompt.DoEvents();
    }
}

void LoadDayTypes(const Store& store, int departmentNumber, Daytypes& daytypes) {
    const std::vector<DayTypeRow> rows = ReadDayTypeRows(store.Open(), departmentNumber);
    daytypes = {};
    for (const DayTypeRow& row : rows) {
        if (daytypes.DayTypeCount == MostDayTypes) return;
        const int index = ++daytypes.DayTypeCount;
        daytypes.DayTypeSymbols[index] = row.symbol;
        daytypes.DayTypeNames[index] = row.explanation;
    }
}

void CloseDatabase(Store& store, Prompt& prompt) {
    store.EmployeeRs.Close();
    store.Db.reset();
    prompt.DoEvents();
}

std::string DetectDateFormat(const Region& region) {
    switch (region.ShortDateOrder()) {
    case DateOrder::MonthDayYear:
        return "MM-DD-YYYY";
    case DateOrder::DayMonthYear:
        return "DD-MM-YYYY";
    case DateOrder::YearMonthDay:
        break;
    }
    return "YYYY-MM-DD";
}

DaySerial FirstDayOfWeek(DaySerial date, int firstWeekday) {
    return date - (Weekday(date, firstWeekday) - 1);
}

std::optional<int> WeekNumber(DaySerial date, int weekMethod, int firstWeekday) {
    constexpr int Monday = 2;
    switch (weekMethod) {
    case 0: {
        const int number = WeekOfYear(date, firstWeekday, FirstWeekRule::FirstFourDays);
        const bool recount = number > 52 && WeekOfYear(date, Monday, FirstWeekRule::FirstFourDays) == 1;
        return recount ? 1 : number;
    }
    case 1:
        return WeekOfYear(date, firstWeekday, FirstWeekRule::FirstFullWeek);
    case 2:
        return WeekOfYear(date, firstWeekday, FirstWeekRule::Jan1);
    default:
        return std::nullopt;
    }
}

void ReadGenericNames(const DepartmentRow& row, Department& department) {
    department.EmployeeNameSingle = row.employeeNameSingle;
    department.EmployeeNamePlural = row.employeeNamePlural;
    department.DayOffNameSingle = row.dayOffNameSingle;
    department.DayOffNamePlural = row.dayOffNamePlural;
}

void ReadDepartment(const DepartmentRow& row, Department& department) {
    department.CurrentDepNumber = row.number;
    department.CurrentDepName = row.name;
    department.EditorOrder = row.editorOrder;
    department.WeekMethod = row.weekMethod;
    DecodeFirstWeekday(row.firstWeekday.value_or(0), department.FirstWeekday, department.DayCutoffQuarters);
}

} // namespace tvx
