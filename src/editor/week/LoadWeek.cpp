#include "editor/week/LoadWeek.h"

#include "editor/week/StoredDays.h"
#include "editor/week/Totals.h"
#include "editor/week/Undo.h"
#include "editor/week/WeekEdit.h"
#include "editor/week/WeekModel.h"
#include "masterdata/files/ProductivityFile.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DepartmentDayRow.h"

#include <optional>

namespace tvx {
namespace {

void EmptyFigures(DepartmentFigures& figures, Totals& totals) {
    figures = {};
    SumFigures(figures, totals);
}

void EmptyWeek(GlobalState& g, Week& week) {
    week.Resize(g.roster.EmployeeCount);
    g.cursor.CurrentRow = 1;
    g.cursor.CurrentEmployee = 0;
    g.totals = {};
    g.clipboard.ClipFull = false;
    ForgetSteps(g.steps);
}

void NameWeek(Week& week, DaySerial firstSerial, int depNumber, const std::string& dateFormat,
              const Region& region) {
    week.LoadedDepNumber = depNumber;
    week.WeekStartJulian = firstSerial;
    week.WeekEndJulian = firstSerial + 6;
    for (int d = 1; d <= 7; ++d) week.WeekDateTexts[d] = DateText(firstSerial + d - 1, dateFormat, region);
}

void FillEmployee(Week& week, const Payroll& payroll, int e,
                  const std::array<StoredDay, DaysInSpan + 1>& days, bool dropDaysOff) {
    bool scheduled = false;
    ClearWeekGrid(week);
    for (int d = 1; d <= DaysInSpan; ++d) {
        const StoredDay& day = days[d];
        if (!day.found) continue;
        if (d < DaysInSpan) scheduled = true; // a row on day 8 alone belongs to the next week
        // Blanks are no symbol: they would sort first and differ from what their box shows.
        week.DayTypeText[d][e] = Trim(day.dayType).empty() ? "" : UpperCase(day.dayType);
        week.DayOffFlag[d][e] = day.vacationDay && !dropDaysOff;
        PaintStoredDay(week, d, day.startsStops);
    }
    week.KnownDaytypeOfDay8[e] = week.DayTypeText[DaysInSpan][e];
    if (!scheduled) {
        week.UnreadOfDay8[e] = days[DaysInSpan].startsStops;
        return;
    }
    week.BarCount[e] = ReadWeekGrid(week, e);
    CountBars(week, e, payroll.cutoffQuarters);
    AddEmployeeToTotals(week, payroll, e, 1);
}

void FillFigures(const DepartmentDayRow& row, int d, DepartmentFigures& figures) {
    figures.DailySales[d] = row.sales;
    figures.DailyTransactions[d] = row.transactions;
    figures.DayMemoText[d] = row.remarks;
    figures.DayMemoFlag[d] = !Trim(row.remarks).empty();
}

/// The schedule can be worked on without the figures: a day whose row cannot be read is as one without.
std::optional<DepartmentDayRow> FiguresOf(const GlobalState& g, int d) {
    const DaySerial day = g.week.WeekStartJulian + d - 1;
    try {
        return FindDepartmentDayRow(g.store.Open(), g.department.CurrentDepNumber, day);
    } catch (const dao::DaoError&) {
        return std::nullopt;
    }
}

void ReadFigures(GlobalState& g) {
    if (g.roster.AllDepartmentsMode) return;
    for (int d = 1; d < DaysInSpan; ++d)
        if (const auto row = FiguresOf(g, d)) FillFigures(*row, d, g.figures);
    SumFigures(g.figures, g.totals);
}

} // namespace

void LoadWeek(GlobalState& g, Ports& ports, DaySerial firstSerial, bool dropDaysOff) {
    const Hourglass hourglass(ports.prompt);
    const dao::Snapshot snapshot(g.store.Open());
    const StoredWeek stored = ReadStoredWeek(g.store.Open(), g.roster, firstSerial);
    Week& week = g.loadedWeek.week_;
    EmptyWeek(g, week);
    EmptyFigures(g.figures, g.totals);
    NameWeek(week, firstSerial, g.department.CurrentDepNumber, g.application.DateFormatSetting, ports.region);
    week.SummedDay = g.cursor.CurrentDay;
    for (int row = 1; row <= g.roster.EmployeeCount; ++row) {
        const int e = g.roster.EmployeeRowIndex[row];
        FillEmployee(week, PayrollOf(g), e, stored[e], dropDaysOff);
    }
    week.IsLoaded = true;
    ReadProductivity(g.paths.ProgramPath, g.department.CurrentDepNumber, g.productivity);
    ReadFigures(g);
}

void LoadWeekOf(GlobalState& g, Ports& ports, DaySerial date) {
    const DaySerial first = FirstDayOfWeek(date, g.department.FirstWeekday);
    LoadWeek(g, ports, first);
    WeekEdit(g).ShowDay(date - first + 1);
}

} // namespace tvx
