#include "reports/schedules/PrintWeek.h"

#include "editor/week/Totals.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr int PhoneOption = 3;
constexpr int SocSecOption = 4;
constexpr std::size_t RangeCharacters = 6;

int DayOf(WeekQuarter quarter) {
    return quarter / QuartersPerDay + 1;
}

void DropDaysOff(Week& week, int e) {
    auto& starts = week.BarStarts[e];
    auto& stops = week.BarStops[e];
    int kept = 0;
    for (int b = 1; b <= week.BarCount[e]; ++b) {
        if (week.DayOffFlag[std::clamp(DayOf(starts[b]), 1, DaysInSpan)][e]) continue;
        ++kept;
        starts[kept] = starts[b];
        stops[kept] = stops[b];
    }
    for (int b = kept + 1; b <= BarSlots; ++b) starts[b] = stops[b] = 0;
    week.BarCount[e] = kept;
}

void PutRange(PrintArrays& print, WeekQuarter start, WeekQuarter stop) {
    const int day = std::clamp(DayOf(start), 1, DaysInSpan);
    const int row = ++print.PrintRangeCount[day];
    print.PrintRangeStart[row][day] = start;
    print.PrintRangeStop[row][day] = stop;
}

void LoadRanges(const GlobalState& g, PrintArrays& print, int e) {
    const int count = g.week.BarCount[e];
    int opened = 0; // bar at which the open range began; 0 when none is open
    for (int b = 1; b <= count; ++b) {
        if (opened == 0) opened = b;
        const bool last = b == count;
        const int gap = last ? 0 : g.week.BarStarts[e][b + 1] - g.week.BarStops[e][b];
        if (!last && gap <= g.reports.options.BreakThreshold) continue;
        PutRange(print, g.week.BarStarts[e][opened], g.week.BarStops[e][b]);
        opened = 0;
    }
}

std::string ClockOf(const GlobalState& g, WeekQuarter quarter, int day) {
    return QuarterToClockText(quarter - (day - 1) * QuartersPerDay,
                              g.application.Settings[setting::ClockStyle]);
}

std::string FieldOfEmployee(GlobalState& g, int e, const char* field) {
    try {
        dao::Recordset& rs = g.store.EmployeeRs;
        rs = g.store.Open().OpenRecordset("Employee");
        rs.Index("Seq");
        rs.Seek({std::int64_t{g.roster.RosterEmployeeKey[e]}});
        return rs.NoMatch() ? "" : rs.Fields(field).Text();
    } catch (const dao::DaoError&) {
        return ""; // a report goes on without it
    }
}

/// Quarters that a ratio divides by, and its text.
std::string RatioText(double amount, long quarters) {
    const double hours = HoursOfQuarters(quarters);
    return hours <= 0 ? "" : Format(amount / hours, ".00");
}

long Selected(const ScheduleSums& sums, int day, bool wages, bool salaries) {
    return (wages ? sums.WageTimeQuarters[day] : 0) + (salaries ? sums.SalaryTimeQuarters[day] : 0);
}

std::string PlainNumber(double number) {
    if (number == 0) return "";
    const std::string text = TrimmedNumber(number);
    return text.front() == '.' ? "0" + text : text;
}

void AddProductivity(const GlobalState& g, int e, int day, int quarters, double wage, ScheduleSums& sums) {
    const Productivity& p = g.productivity;
    const bool hourly = g.roster.IsPaidByHour(e);
    if (hourly && (p.SalesWageHours || p.TransWageHours)) {
        sums.WageTimeQuarters[day] += quarters;
        sums.WageTimeQuarters[0] += quarters;
    }
    if (!hourly && (p.SalesSalaryHours || p.TransSalaryHours)) {
        sums.SalaryTimeQuarters[day] += quarters;
        sums.SalaryTimeQuarters[0] += quarters;
    }
    if (g.rights.HideWages) return;
    if (hourly && p.LaborWages) sums.WageCost[day] += wage;
    if (!hourly && p.LaborSalary && g.totals.SalesDays > 0)
        sums.SalaryCost[day] += g.roster.RosterPay[e].Amount() / g.totals.SalesDays;
}

} // namespace

void LoadPrintArrays(GlobalState& g, int e) {
    PrintArrays& print = g.reports.print;
    print = {};
    DropDaysOff(g.week, e);
    for (int d = 1; d <= DaysInSpan; ++d)
        print.PrintDayQuarters[d] = QuartersOnDay(g.week, e, d, g.department.DayCutoffQuarters);
    LoadRanges(g, print, e);
}

std::string RangeText(const GlobalState& g, const ScheduleRequest& request, int day, int row, bool cut) {
    const PrintArrays& print = g.reports.print;
    std::string start = ClockOf(g, print.PrintRangeStart[row][day], day);
    std::string stop = ClockOf(g, print.PrintRangeStop[row][day], day);
    if (cut) {
        start.resize(std::min(start.size(), RangeCharacters));
        stop.resize(std::min(stop.size(), RangeCharacters));
    }
    if (request.lastStop && row == print.PrintRangeCount[day]) stop = Trim(request.openWord);
    start.append("  ").append(stop);
    return start;
}

std::string DayLabel(const GlobalState& g, int e, int day) {
    if (g.week.DayOffFlag[day][e]) return g.department.DayOffNameSingle;
    const std::string& symbol = g.week.DayTypeText[day][e];
    if (symbol <= " ") return "";
    const std::string wanted = UpperCase(Trim(symbol));
    for (int i = 1; i <= g.daytypes.DayTypeCount; ++i)
        if (UpperCase(Trim(g.daytypes.DayTypeSymbols[i])) == wanted) return g.daytypes.DayTypeNames[i];
    return "";
}

bool IsDayOffLabel(const GlobalState& g, const std::string& label) {
    return UpperCase(Trim(label)) == UpperCase(Trim(g.department.DayOffNameSingle));
}

bool IsPrinted(const GlobalState& g, int e) {
    if (g.reports.options.WhoToPrint == 0 || g.week.BarCount[e] > 0) return true;
    for (int d = 1; d <= 7; ++d)
        if (!Trim(g.week.DayTypeText[d][e]).empty() || g.week.DayOffFlag[d][e]) return true;
    return !g.roster.IsPaidByHour(e) && g.reports.options.PrintTotalWages != 0;
}

double DayWageAmount(const GlobalState& g, int e, int quarters) {
    return WagesForQuarters(g.roster, g.rights, e, quarters);
}

std::string NameDetail(GlobalState& g, int e) {
    switch (g.reports.options.NameOption) {
    case 1:
        return g.roster.RosterAssignment[e];
    case 2:
        return g.roster.RosterId[e];
    case PhoneOption:
        return FieldOfEmployee(g, e, "Phone");
    case SocSecOption:
        return FieldOfEmployee(g, e, "Soc Sec number");
    default:
        return "";
    }
}

EmployeeSums AddToSums(GlobalState& g, int e, bool productivity, ScheduleSums& sums) {
    EmployeeSums own;
    for (int d = 1; d <= 7; ++d) {
        own.quarters[d] = g.reports.print.PrintDayQuarters[d];
        own.wages[d] = DayWageAmount(g, e, own.quarters[d]);
        own.weekQuarters += own.quarters[d];
        own.weekWages += own.wages[d];
        g.reports.totals.DayTotalQuarters[d] += own.quarters[d];
        g.reports.totals.DayTotalWages[d] += own.wages[d];
        if (productivity) AddProductivity(g, e, d, own.quarters[d], own.wages[d], sums);
    }
    sums.PrintTotalQuarters += own.weekQuarters;
    sums.PrintTotalWagesSum += own.weekWages;
    return own;
}

std::string DayHoursText(const GlobalState& g, int quarters) {
    if (quarters == 0) return ""; // "0:00"
    return "Hours " + QuartersToText(quarters, g.application.Settings[setting::TimeFormat]);
}

std::string DayWagesText(const GlobalState& g, int e, int quarters, double wages) {
    if (quarters == 0) return "";
    return g.roster.IsPaidByHour(e) ? "Wages " + Format(wages, ".00") : "On salary  ";
}

std::string WeekHoursText(const GlobalState& g, int e, const EmployeeSums& sums) {
    if (g.roster.IsPaidByHour(e) && sums.weekQuarters == 0) return "";
    return QuartersToText(sums.weekQuarters, g.application.Settings[setting::TimeFormat]);
}

std::string WeekMoneyText(const GlobalState& g, int e, const EmployeeSums& sums) {
    if (!g.roster.IsPaidByHour(e)) return Format(g.roster.RosterPay[e], ".00");
    return sums.weekQuarters == 0 ? "" : Format(sums.weekWages, ".00");
}

std::string SalesPerHour(const GlobalState& g, const ScheduleSums& sums, int day) {
    const Productivity& p = g.productivity;
    const double sales = day == 0 ? g.totals.SalesTotal : g.week.DailySales[day];
    return RatioText(sales, Selected(sums, day, p.SalesWageHours, p.SalesSalaryHours));
}

std::string TransactionsPerHour(const GlobalState& g, const ScheduleSums& sums, int day) {
    const Productivity& p = g.productivity;
    if (day != 0)
        return RatioText(g.week.DailyTransactions[day],
                         Selected(sums, day, p.TransWageHours, p.TransSalaryHours));
    // The week's column asks other flags than the days do.
    const bool both = p.TransWageHours && p.SalesSalaryHours;
    const bool wages = both || p.SalesWageHours;
    const bool salaries = both || (!p.SalesWageHours && p.SalesSalaryHours);
    return RatioText(g.totals.TransactionsTotal, Selected(sums, 0, wages, salaries));
}

std::string LaborPercent(const GlobalState& g, const ScheduleSums& sums, int day) {
    if (g.rights.HideWages) return "";
    double cost = sums.WageCost[day] + sums.SalaryCost[day];
    if (day == 0) {
        // As on the screen: the week's wages and the whole salaries.
        cost = g.productivity.LaborWages ? sums.PrintTotalWagesSum : 0;
        if (g.productivity.LaborSalary) cost += g.TotalSalaries;
    }
    const double sales = day == 0 ? g.totals.SalesTotal : g.week.DailySales[day];
    return cost == 0 || sales == 0 ? "" : Format(cost / (sales / 100), ".00");
}

std::string SalesText(const GlobalState& g, int day) {
    return PlainNumber(day == 0 ? g.totals.SalesTotal : g.week.DailySales[day]);
}

std::string TransactionsText(const GlobalState& g, int day) {
    return PlainNumber(day == 0 ? g.totals.TransactionsTotal : g.week.DailyTransactions[day]);
}

std::string YesNo(const std::string& what, bool on) {
    return what + (on ? " = Yes" : " = No");
}

std::string DayCommentHeading(const GlobalState& g, const Ports& ports, int day) {
    return "Day comments: " + ports.region.Names().weekdays[WeekdayOf(g, day)] + " " +
           g.week.WeekDateTexts[day];
}

std::string CutoffText(const GlobalState& g) {
    return QuarterToClockText(g.department.DayCutoffQuarters, g.application.Settings[setting::ClockStyle]);
}

std::string PrintedOn(const Ports& ports) {
    return "Printed on: " + ports.region.ShortDate(ports.clock.Today());
}

bool PrintsTotals(const GlobalState& g) {
    return g.reports.options.PrintTotalHours != 0 || g.reports.options.PrintTotalWages != 0;
}

void BeginRun(GlobalState& g, ScheduleRequest& request) {
    g.reports.totals = {};
    if (g.rights.HideWages) g.reports.options.PrintTotalWages = 0;
    if (Trim(request.openWord).empty()) request.openWord = "_____";
}

int WeekdayOf(const GlobalState& g, int day) {
    return Weekday(g.week.WeekStartJulian + day - 1);
}

} // namespace tvx
