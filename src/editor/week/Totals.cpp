#include "editor/week/Totals.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "shell/common/Conversions.h"

#include <algorithm>
#include <cmath>

namespace tvx {
namespace {

constexpr int QuartersPerWeek = 672;

/// What of a bar lies between low and high, as the totals count it.
int QuartersWithin(WeekQuarter start, WeekQuarter stop, DayWindow window) {
    return std::max(0, std::min(stop, window.high) - std::max(start, window.low));
}

DayWindow WindowOfWeek(int cutoffQuarters) {
    return {cutoffQuarters, cutoffQuarters + QuartersPerWeek};
}

void ZeroDaySums(Totals& totals) {
    totals.TotalDayQuarters = totals.WageDayQuarters = totals.SalaryDayQuarters = 0;
    totals.TotalDayWages = 0;
}

/// Adds an amount of money to a sum and holds it at four decimals: however often amounts are taken out and
/// put back, the sum is the one that a count from scratch gives.
void AddMoney(double& sum, double amount) {
    constexpr double MoreThanAnyPayroll = 1e11;
    sum += amount;
    if (std::fabs(sum) < MoreThanAnyPayroll) sum = Currency::FromAmount(sum).Amount();
}

void AddDay(GlobalState& g, int e, int sign) {
    const long quarters = static_cast<long>(sign) * g.week.DayQuarters[e];
    (g.roster.IsPaidByHour(e) ? g.totals.WageDayQuarters : g.totals.SalaryDayQuarters) += quarters;
    g.totals.TotalDayQuarters += quarters;
    AddMoney(g.totals.TotalDayWages, sign * WagesForQuarters(g.roster, g.rights, e, g.week.DayQuarters[e]));
}

void AddWeek(GlobalState& g, int e, int sign) {
    const long quarters = static_cast<long>(sign) * g.week.WeekQuarters[e];
    (g.roster.IsPaidByHour(e) ? g.totals.WageWeekQuarters : g.totals.SalaryWeekQuarters) += quarters;
    g.totals.TotalWeekQuarters += quarters;
    AddMoney(g.totals.TotalWeekWages, sign * WagesForQuarters(g.roster, g.rights, e, g.week.WeekQuarters[e]));
}

bool IsOver(int quarters, const std::string& limit) {
    return quarters > Val(limit);
}

/// Hours that a ratio divides by, from the two kinds of time and the flags that choose among them.
double RatioHours(long wageQuarters, bool wages, long salaryQuarters, bool salaries) {
    return HoursOfQuarters((wages ? wageQuarters : 0) + (salaries ? salaryQuarters : 0));
}

std::string Ratio(double amount, double by) {
    return by <= 0 ? "" : " " + Format(amount / by, ".00");
}

std::string DayLaborPercent(const GlobalState& g, double cost, double sales) {
    if (g.rights.HideWages || g.totals.SalesTotal / 100 <= 0 || cost <= 0 || sales <= 0) return "";
    return Ratio(cost, sales / 100);
}

std::string WeekLaborPercent(const GlobalState& g, double cost) {
    return g.rights.HideWages ? "" : Ratio(cost, g.totals.SalesTotal / 100);
}

double DayCost(const GlobalState& g) {
    double cost = g.productivity.LaborWages ? g.totals.TotalDayWages : 0;
    if (g.productivity.LaborSalary && g.totals.SalesDays > 0) cost += g.TotalSalaries / g.totals.SalesDays;
    return cost;
}

double WeekCost(const GlobalState& g) {
    return (g.productivity.LaborWages ? g.totals.TotalWeekWages : 0) +
           (g.productivity.LaborSalary ? g.TotalSalaries : 0);
}

} // namespace

DayWindow WindowOfDay(int day, int cutoffQuarters) {
    return {(day - 1) * QuartersPerDay + cutoffQuarters, day * QuartersPerDay + cutoffQuarters};
}

void AddBarToTotals(Week& week, int e, int bar, int cutoffQuarters) {
    const DayWindow businessWeek = WindowOfWeek(cutoffQuarters);
    const int start = std::max(week.BarStarts[e][bar], businessWeek.low);
    const int stop = std::min(week.BarStops[e][bar], businessWeek.high);
    if (start >= stop) return;
    week.WeekQuarters[e] += stop - start;
    week.DayQuarters[e] += QuartersWithin(start, stop, WindowOfDay(week.CurrentDay, cutoffQuarters));
}

void CountBars(Week& week, int e, int cutoffQuarters) {
    week.WeekQuarters[e] = week.DayQuarters[e] = 0;
    for (int b = 1; b <= week.BarCount[e]; ++b) AddBarToTotals(week, e, b, cutoffQuarters);
}

int QuartersOnDay(const Week& week, int e, int day, int cutoffQuarters) {
    int quarters = 0;
    const DayWindow window = WindowOfDay(day, cutoffQuarters);
    for (int b = 1; b <= week.BarCount[e]; ++b)
        quarters += QuartersWithin(week.BarStarts[e][b], week.BarStops[e][b], window);
    return quarters;
}

void AddEmployeeToTotals(GlobalState& g, int e, int sign) {
    AddDay(g, e, sign);
    AddWeek(g, e, sign);
}

void SumDay(GlobalState& g) {
    ZeroDaySums(g.totals);
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
        g.week.DayQuarters[e] = QuartersOnDay(g.week, e, g.week.CurrentDay, g.department.DayCutoffQuarters);
        AddDay(g, e, 1);
    }
}

void SumWeek(GlobalState& g) {
    ZeroDaySums(g.totals);
    g.totals.TotalWeekQuarters = g.totals.WageWeekQuarters = g.totals.SalaryWeekQuarters = 0;
    g.totals.TotalWeekWages = 0;
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
        CountBars(g.week, e, g.department.DayCutoffQuarters);
        AddEmployeeToTotals(g, e, 1);
    }
}

std::array<std::string, 4> TotalsTexts(const GlobalState& g) {
    const std::string& style = g.application.Settings[setting::TimeFormat];
    const auto money = [&](double amount) { return g.rights.HideWages ? "" : " " + Format(amount, ".00"); };
    return {QuartersToText(g.totals.TotalDayQuarters, style),
            QuartersToText(g.totals.TotalWeekQuarters, style), money(g.totals.TotalDayWages),
            money(g.totals.TotalWeekWages)};
}

std::array<std::string, 6> ProductivityTexts(const GlobalState& g) {
    const Totals& t = g.totals;
    const Productivity& p = g.productivity;
    const double daySales = g.week.DailySales[g.week.CurrentDay];
    const double dayTransactions = g.week.DailyTransactions[g.week.CurrentDay];
    const auto hours = [](long wage, bool wages, long salary, bool salaries) {
        return RatioHours(wage, wages, salary, salaries);
    };
    return {
        DayLaborPercent(g, DayCost(g), daySales),
        Ratio(daySales, hours(t.WageDayQuarters, p.SalesWageHours, t.SalaryDayQuarters, p.SalesSalaryHours)),
        Ratio(dayTransactions,
              hours(t.WageDayQuarters, p.TransWageHours, t.SalaryDayQuarters, p.TransSalaryHours)),
        WeekLaborPercent(g, WeekCost(g)),
        Ratio(t.SalesTotal,
              hours(t.WageWeekQuarters, p.SalesWageHours, t.SalaryWeekQuarters, p.SalesSalaryHours)),
        Ratio(t.TransactionsTotal,
              hours(t.WageWeekQuarters, p.TransWageHours, t.SalaryWeekQuarters, p.TransSalaryHours)),
    };
}

bool IsOverDayLimit(const GlobalState& g, int e) {
    return IsOver(g.week.DayQuarters[e], g.application.Settings[setting::DayOvertime]);
}

bool IsOverWeekLimit(const GlobalState& g, int e) {
    return IsOver(g.week.WeekQuarters[e], g.application.Settings[setting::WeekOvertime]);
}

std::array<int, QuartersPerDay + 1> FillHeadCount(const GlobalState& g) {
    std::array<int, QuartersPerDay + 1> counts{};
    const DayWindow window = WindowOfDay(g.week.CurrentDay, g.department.DayCutoffQuarters);
    for (int e = 1; e <= g.roster.EmployeeCount; ++e)
        for (int b = 1; b <= g.week.BarCount[e]; ++b) {
            const int from = std::max(g.week.BarStarts[e][b], window.low);
            const int to = std::min(g.week.BarStops[e][b], window.high);
            for (int w = from + 1; w <= to; ++w) ++counts[w - window.low];
        }
    return counts;
}

std::vector<HeadcountFigure> HeadcountFigures(const GlobalState& g) {
    const std::array<int, QuartersPerDay + 1> counts = FillHeadCount(g);
    const int cutoff = g.department.DayCutoffQuarters;
    const int partial = cutoff % 4 == 0 ? 0 : 4 - cutoff % 4; // quarters before the first full hour
    std::vector<HeadcountFigure> figures;
    for (int column = partial; column + 4 <= g.grid.HoursShown * 4; column += 4) {
        const int first = g.grid.FirstQuarter - cutoff + column;
        if (first < 0 || first + 4 > QuartersPerDay) continue;
        const int sum = counts[first + 1] + counts[first + 2] + counts[first + 3] + counts[first + 4];
        figures.push_back({(column + 2) * g.grid.QuarterWidth, Format(sum / 4.0, ".00")});
    }
    return figures;
}

TotalsBox WeeklyTotalsBox(const GlobalState& g) {
    const std::string& style = g.application.Settings[setting::TimeFormat];
    const auto money = [&](double amount) { return g.rights.HideWages ? "" : Format(amount, ".00"); };
    TotalsBox box;
    box.Label2 = {"", money(g.totals.TotalWeekWages), money(g.TotalSalaries),
                  money(g.totals.TotalWeekWages + g.TotalSalaries)};
    box.Label3 = {"", QuartersToText(g.totals.WageWeekQuarters, style),
                  QuartersToText(g.totals.SalaryWeekQuarters, style),
                  QuartersToText(g.totals.WageWeekQuarters + g.totals.SalaryWeekQuarters, style)};
    box.activeCaption = "Active " + g.department.EmployeeNamePlural + ": ";
    box.activeCount = std::to_string(g.roster.EmployeeCount);
    if (box.activeCount.size() == 1) box.activeCount += " ";
    return box;
}

} // namespace tvx
