#include "editor/week/Totals.h"

#include "platform/basic/Format.h"
#include "shell/common/Conversions.h"

#include <algorithm>

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
    totals.TotalDayWages = {};
}

void ZeroWeekSums(Totals& totals) {
    totals.TotalWeekQuarters = totals.WageWeekQuarters = totals.SalaryWeekQuarters = 0;
    totals.TotalWeekWages = {};
}

/// Adds what an employee earns in some quarters to a sum, or takes it out.
void AddWages(Wage& sum, const Payroll& payroll, int e, int quarters, int sign) {
    const Wage wages = WagesForQuarters(payroll.roster, payroll.rights, e, quarters).value_or(Wage());
    sum = sign < 0 ? sum - wages : sum + wages;
}

void AddDay(const Week& week, const Payroll& payroll, int e, int sign) {
    Totals& totals = payroll.totals;
    const long quarters = static_cast<long>(sign) * week.DayQuarters[e];
    (payroll.roster.IsPaidByHour(e) ? totals.WageDayQuarters : totals.SalaryDayQuarters) += quarters;
    totals.TotalDayQuarters += quarters;
    AddWages(totals.TotalDayWages, payroll, e, week.DayQuarters[e], sign);
}

void AddWeek(const Week& week, const Payroll& payroll, int e, int sign) {
    Totals& totals = payroll.totals;
    const long quarters = static_cast<long>(sign) * week.WeekQuarters[e];
    (payroll.roster.IsPaidByHour(e) ? totals.WageWeekQuarters : totals.SalaryWeekQuarters) += quarters;
    totals.TotalWeekQuarters += quarters;
    AddWages(totals.TotalWeekWages, payroll, e, week.WeekQuarters[e], sign);
}

/// Hours that a ratio divides by, from the two kinds of time and the flags that choose among them.
double RatioHours(long wageQuarters, bool wages, long salaryQuarters, bool salaries) {
    return HoursOfQuarters((wages ? wageQuarters : 0) + (salaries ? salaryQuarters : 0));
}

std::string Ratio(double amount, double by) {
    return by <= 0 ? "" : " " + Format(amount / by, ".00");
}

/// Absent while pay is hidden.
std::optional<double> ShownCost(const GlobalState& g, Wage wages, int days) {
    const auto shown = ShownPay(g.rights, wages);
    const auto salaries = ShownPay(g.rights, g.TotalSalaries);
    if (!shown || !salaries) return std::nullopt;
    return LaborCost(g.productivity, *shown, *salaries, days);
}

std::string DayLaborPercent(const GlobalState& g, double sales) {
    const auto cost = ShownCost(g, g.totals.TotalDayWages, g.totals.SalesDays);
    if (!cost || g.totals.SalesTotal / 100 <= 0 || *cost <= 0 || sales <= 0) return "";
    return Ratio(*cost, sales / 100);
}

std::string WeekLaborPercent(const GlobalState& g) {
    const auto cost = ShownCost(g, g.totals.TotalWeekWages, 1);
    return cost ? Ratio(*cost, g.totals.SalesTotal / 100) : "";
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
    week.DayQuarters[e] += QuartersWithin(start, stop, WindowOfDay(week.SummedDay, cutoffQuarters));
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

int QuartersOnDay(const WeekBars& bars, int day, int cutoffQuarters) {
    int quarters = 0;
    const DayWindow window = WindowOfDay(day, cutoffQuarters);
    for (const WeekBar& bar : bars) quarters += QuartersWithin(bar.start, bar.stop, window);
    return quarters;
}

Payroll PayrollOf(GlobalState& g) {
    return {g.roster, g.rights, g.totals, g.department.DayCutoffQuarters};
}

void AddEmployeeToTotals(const Week& week, const Payroll& payroll, int e, int sign) {
    AddDay(week, payroll, e, sign);
    AddWeek(week, payroll, e, sign);
}

void SumDay(Week& week, const Payroll& payroll, int day) {
    ZeroDaySums(payroll.totals);
    week.SummedDay = day;
    for (int e = 1; e <= payroll.roster.EmployeeCount; ++e) {
        week.DayQuarters[e] = QuartersOnDay(week, e, day, payroll.cutoffQuarters);
        AddDay(week, payroll, e, 1);
    }
}

void SumWeek(Week& week, const Payroll& payroll, int day) {
    ZeroDaySums(payroll.totals);
    ZeroWeekSums(payroll.totals);
    week.SummedDay = day;
    for (int e = 1; e <= payroll.roster.EmployeeCount; ++e) {
        CountBars(week, e, payroll.cutoffQuarters);
        AddEmployeeToTotals(week, payroll, e, 1);
    }
}

bool SumsAreRight(const Week& week, const Payroll& payroll) {
    Week counted = week;
    Totals fresh = payroll.totals;
    SumWeek(counted, {payroll.roster, payroll.rights, fresh, payroll.cutoffQuarters}, week.SummedDay);
    return counted.DayQuarters == week.DayQuarters && counted.WeekQuarters == week.WeekQuarters &&
           fresh == payroll.totals;
}

std::optional<Wage> ShownPay(const Rights& rights, Wage amount) {
    return rights.HideWages ? std::nullopt : std::optional(amount);
}

std::string ShownPayText(const Rights& rights, Wage amount) {
    const auto shown = ShownPay(rights, amount);
    return shown ? Format(*shown, ".00") : "";
}

double LaborCost(const Productivity& includes, Wage wages, Wage salaries, int days) {
    const Wage paid = includes.LaborWages ? wages : Wage();
    const Wage shared = includes.LaborSalary && days > 0 ? salaries : Wage();
    if (days <= 1) return (paid + shared).Amount(); // of a week it is rounded once
    return paid.Amount() + shared.Amount() / days;
}

void SumFigures(DepartmentFigures& figures, Totals& totals) {
    totals.SalesTotal = totals.TransactionsTotal = 0;
    totals.SalesDays = 0;
    for (int d = 1; d <= 7; ++d) {
        if (figures.DailyTransactions[d] > 0) totals.TransactionsTotal += figures.DailyTransactions[d];
        if (figures.DailySales[d] <= 0) continue;
        totals.SalesTotal += figures.DailySales[d];
        ++totals.SalesDays;
    }
    figures.HasDepartmentFigures = totals.SalesDays > 0 || totals.TransactionsTotal > 0;
}

std::array<std::string, 4> TotalsTexts(const Totals& totals, const Rights& rights, TimeFormat style) {
    const auto money = [&](Wage amount) {
        const std::string text = ShownPayText(rights, amount);
        return text.empty() ? text : " " + text;
    };
    return {QuartersToText(totals.TotalDayQuarters, style), QuartersToText(totals.TotalWeekQuarters, style),
            money(totals.TotalDayWages), money(totals.TotalWeekWages)};
}

std::array<std::string, 6> ProductivityTexts(const GlobalState& g) {
    const Totals& t = g.totals;
    const Productivity& p = g.productivity;
    const double daySales = g.figures.DailySales[g.cursor.CurrentDay];
    const double dayTransactions = g.figures.DailyTransactions[g.cursor.CurrentDay];
    const auto hours = [](long wage, bool wages, long salary, bool salaries) {
        return RatioHours(wage, wages, salary, salaries);
    };
    return {
        DayLaborPercent(g, daySales),
        Ratio(daySales, hours(t.WageDayQuarters, p.SalesWageHours, t.SalaryDayQuarters, p.SalesSalaryHours)),
        Ratio(dayTransactions,
              hours(t.WageDayQuarters, p.TransWageHours, t.SalaryDayQuarters, p.TransSalaryHours)),
        WeekLaborPercent(g),
        Ratio(t.SalesTotal,
              hours(t.WageWeekQuarters, p.SalesWageHours, t.SalaryWeekQuarters, p.SalesSalaryHours)),
        Ratio(t.TransactionsTotal,
              hours(t.WageWeekQuarters, p.TransWageHours, t.SalaryWeekQuarters, p.TransSalaryHours)),
    };
}

bool IsOverDayLimit(const Week& week, const Options& options, int e) {
    return week.DayQuarters[e] > options.DayOvertime;
}

bool IsOverWeekLimit(const Week& week, const Options& options, int e) {
    return week.WeekQuarters[e] > options.WeekOvertime;
}

std::array<int, QuartersPerDay + 1> FillHeadCount(const Week& week, int day, int cutoffQuarters) {
    std::array<int, QuartersPerDay + 1> counts{};
    const DayWindow window = WindowOfDay(day, cutoffQuarters);
    for (std::size_t e = 1; e < week.BarCount.size(); ++e)
        for (int b = 1; b <= week.BarCount[e]; ++b) {
            const int from = std::max(week.BarStarts[e][b], window.low);
            const int to = std::min(week.BarStops[e][b], window.high);
            for (int w = from + 1; w <= to; ++w) ++counts[w - window.low];
        }
    return counts;
}

std::vector<HeadcountFigure> HeadcountFigures(const Week& week, const Grid& grid, int day, int cutoff) {
    const std::array<int, QuartersPerDay + 1> counts = FillHeadCount(week, day, cutoff);
    const int partial = cutoff % 4 == 0 ? 0 : 4 - cutoff % 4; // quarters before the first full hour
    std::vector<HeadcountFigure> figures;
    for (int column = partial; column + 4 <= grid.HoursShown * 4; column += 4) {
        const int first = grid.FirstQuarter - cutoff + column;
        if (first < 0 || first + 4 > QuartersPerDay) continue;
        const int sum = counts[first + 1] + counts[first + 2] + counts[first + 3] + counts[first + 4];
        figures.push_back({(column + 2) * grid.QuarterWidth, Format(sum / 4.0, ".00")});
    }
    return figures;
}

TotalsBox WeeklyTotalsBox(const GlobalState& g) {
    const TimeFormat style = g.application.options.TimeFormat;
    const auto money = [&](Wage amount) { return ShownPayText(g.rights, amount); };
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
