#include "shell/common/TVXMOD1.h"

#include "platform/dao/DaoError.h"

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

void LoadDayTypes(Store& store, int departmentNumber, Daytypes& daytypes) {
    store.DayTypesRs = store.Open().OpenRecordset(
        "SELECT * FROM [Day Types] WHERE [Dep number] = " + std::to_string(departmentNumber) +
        " ORDER BY [Symbol] ASC;");
    daytypes = {};
    dao::Recordset& rows = store.DayTypesRs;
    for (; !rows.AtEnd() && daytypes.DayTypeCount < MostDayTypes; rows.MoveNext()) {
        const int index = ++daytypes.DayTypeCount;
        daytypes.DayTypeSymbols[index] = rows.Fields("Symbol").Text();
        daytypes.DayTypeNames[index] = rows.Fields("Explaination").Text();
    }
}

void CloseDatabase(Store& store, Prompt& prompt) {
    for (dao::Recordset* set : {&store.ApplicationRs, &store.DepartmentRs, &store.EmployeeRs,
                                &store.DayScheduleRs, &store.DepartmentDayRs, &store.DayTypesRs})
        set->Close();
    store.Db.reset();
    prompt.DoEvents();
}

void DecodeFirstWeekday(long value, int& firstWeekday, int& cutoffQuarters) {
    if (value < 1) {
        firstWeekday = 1;
        cutoffQuarters = 0;
    } else if (value <= 10) {
        firstWeekday = static_cast<int>(value);
    } else {
        firstWeekday = static_cast<int>(value / 100);
        cutoffQuarters = static_cast<int>(value % 100);
    }
    if (firstWeekday < 1 || firstWeekday > 7) firstWeekday = 1;
}

int EncodeFirstWeekday(int firstWeekday, int cutoffQuarters) {
    return firstWeekday * 100 + cutoffQuarters;
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

void ReadGenericNames(dao::Recordset& rs, Department& department) {
    department.EmployeeNameSingle = rs.Fields("EmployeeNameSingle").Text("Employee");
    department.EmployeeNamePlural = rs.Fields("EmployeeNamePlural").Text("Employees");
    department.DayOffNameSingle = rs.Fields("DayOffNameSingle").Text("Vacation day");
    department.DayOffNamePlural = rs.Fields("DayOffNamePlural").Text("Vacation days");
}

} // namespace tvx
