#include "editor/week/LoadWeek.h"

#include "editor/week/StoredDays.h"
#include "editor/week/Totals.h"
#include "editor/week/WeekModel.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DepartmentDayRow.h"

namespace tvx {
namespace {

void EmptyFigures(GlobalState& g) {
    g.week.DailySales.fill(0);
    g.week.DailyTransactions.fill(0);
    g.week.DayMemoText.fill("");
    g.week.DayMemoFlag.fill(false);
    g.week.HasDepartmentFigures = false;
    g.totals.SalesDays = 0;
    g.totals.SalesTotal = g.totals.TransactionsTotal = 0;
}

void EmptyWeek(GlobalState& g) {
    const int day = g.week.CurrentDay;
    g.week.Resize(g.roster.EmployeeCount);
    g.week.CurrentDay = day;
    g.totals = {};
    g.clipboard.ClipFull = false;
    g.drag = {};
    EmptyFigures(g);
}

void NameDays(GlobalState& g, const Region& region, DaySerial firstSerial) {
    g.week.WeekStartJulian = firstSerial;
    g.week.WeekEndJulian = firstSerial + 6;
    for (int d = 1; d <= 7; ++d)
        g.week.WeekDateTexts[d] = DateText(firstSerial + d - 1, g.application.DateFormatSetting, region);
}

void TakeEmployee(GlobalState& g, int e, const std::array<StoredDay, DaysInSpan + 1>& days,
                  bool dropDaysOff) {
    Week& week = g.week;
    bool scheduled = false;
    ClearWeekGrid(week);
    for (int d = 1; d <= DaysInSpan; ++d) {
        const StoredDay& day = days[d];
        if (!day.found) continue;
        if (d < DaysInSpan) scheduled = true; // a row on day 8 alone belongs to the next week
        week.DayTypeText[d][e] = UpperCase(day.dayType);
        week.DayOffFlag[d][e] = day.vacationDay && !dropDaysOff;
        PaintStoredDay(week, d, day.startsStops);
    }
    if (!scheduled) return;
    week.BarCount[e] = ReadWeekGrid(week, e);
    CountBars(week, e, g.department.DayCutoffQuarters);
    AddEmployeeToTotals(g, e, 1);
}

void TakeFigures(GlobalState& g, const DepartmentDayRow& row) {
    Week& week = g.week;
    const int d = row.day - week.WeekStartJulian + 1;
    week.DailySales[d] = row.sales;
    week.DailyTransactions[d] = row.transactions;
    if (row.sales > 0) {
        g.totals.SalesTotal += row.sales;
        ++g.totals.SalesDays;
    }
    if (row.transactions > 0) g.totals.TransactionsTotal += row.transactions;
    if (row.sales > 0 || row.transactions > 0) week.HasDepartmentFigures = true;
    week.DayMemoText[d] = row.remarks;
    week.DayMemoFlag[d] = !Trim(row.remarks).empty();
}

void ReadFigures(GlobalState& g) {
    if (g.roster.AllDepartmentsMode) return;
    const DaySerial first = g.week.WeekStartJulian;
    for (const DepartmentDayRow& row :
         ReadDepartmentDayRows(g.store.Open(), g.department.CurrentDepNumber, first, first + 6))
        TakeFigures(g, row);
}

} // namespace

void LoadWeek(GlobalState& g, Ports& ports, DaySerial firstSerial, bool dropDaysOff) {
    const Hourglass hourglass(ports.prompt);
    const dao::Snapshot snapshot(g.store.Open());
    const StoredWeek stored = ReadStoredWeek(g.store.Open(), g.roster, firstSerial);
    EmptyWeek(g);
    NameDays(g, ports.region, firstSerial);
    for (int row = 1; row <= g.roster.EmployeeCount; ++row) {
        const int e = g.roster.EmployeeRowIndex[row];
        TakeEmployee(g, e, stored[e], dropDaysOff);
    }
    g.week.WeekChanged = false;
    try {
        ReadFigures(g);
    } catch (const dao::DaoError&) {
        EmptyFigures(g); // the schedule can be worked on without the figures
    }
}

void LoadWeekOf(GlobalState& g, Ports& ports, DaySerial date) {
    const DaySerial first = FirstDayOfWeek(date, g.department.FirstWeekday);
    LoadWeek(g, ports, first);
    g.week.CurrentDay = date - first + 1;
    SumDay(g);
}

} // namespace tvx
