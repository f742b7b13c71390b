#include "reports/schedules/SchedulePage.h"

#include "editor/week/Totals.h"
#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "reports/page/ReportText.h"
#include "shell/common/Conversions.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::size_t RangeCharacters = 6;

std::string ClockOf(const SchedulePage& page, WeekQuarter quarter, int day) {
    return QuarterToClockText(quarter - (day - 1) * QuartersPerDay, page.clockStyle);
}

/// What an amount comes to in each hour.
std::string RatioText(double amount, long quarters) {
    const double hours = HoursOfQuarters(quarters);
    return hours <= 0 ? "" : Format(amount / hours, ".00");
}

/// The quarters of the kinds of time that count.
long Counted(const ScheduleSums& sums, int day, bool wages, bool salaries) {
    return (wages ? sums.WageTimeQuarters[day] : 0) + (salaries ? sums.SalaryTimeQuarters[day] : 0);
}

std::string PlainNumber(double number) {
    if (number == 0) return "";
    const std::string text = TrimmedNumber(number);
    return text.front() == '.' ? "0" + text : text;
}

void AddTime(const Productivity& includes, bool paidByHour, int day, int quarters, ScheduleSums& sums) {
    if (paidByHour && (includes.SalesWageHours || includes.TransWageHours)) {
        sums.WageTimeQuarters[day] += quarters;
        sums.WageTimeQuarters[0] += quarters;
    }
    if (!paidByHour && (includes.SalesSalaryHours || includes.TransSalaryHours)) {
        sums.SalaryTimeQuarters[day] += quarters;
        sums.SalaryTimeQuarters[0] += quarters;
    }
}

void AddProductivity(const Productivity& includes, const PrintedPerson& person, const EmployeeSums& own,
                     ScheduleSums& sums) {
    for (int d = 1; d <= 7; ++d) {
        AddTime(includes, person.paidByHour, d, person.PrintDayQuarters[d], sums);
        if (includes.LaborWages) sums.WageCost[d] += own.wages[d];
    }
    if (includes.LaborSalary && !person.paidByHour && person.pay) sums.SalaryCost += Wage::Whole(*person.pay);
}

double DayCost(const PrintedProductivity& figures, const ScheduleSums& sums, int day) {
    return LaborCost(figures.includes, sums.WageCost[day], sums.SalaryCost, figures.SalesDays);
}

/// As on the screen: the week's wages and the whole salaries.
double WeekCost(const SchedulePage& page, const ScheduleSums& sums) {
    return LaborCost(page.productivity->includes, sums.PrintTotalWagesSum, page.salaries.value_or(Wage()), 1);
}

} // namespace

bool SchedulePage::IsDayOff(const std::string& label) const {
    return UpperCase(Trim(label)) == UpperCase(Trim(dayOffWord));
}

EmployeeSums AddToSums(const SchedulePage& page, const PrintedPerson& person, ScheduleSums& sums) {
    EmployeeSums own;
    for (int d = 1; d <= 7; ++d) {
        const int quarters = person.PrintDayQuarters[d];
        own.wages[d] = DayWageAmount(person, quarters);
        own.weekQuarters += quarters;
        own.weekWages += own.wages[d];
        sums.DayTotalQuarters[d] += quarters;
        sums.DayTotalWages[d] += own.wages[d];
    }
    sums.PrintTotalQuarters += own.weekQuarters;
    sums.PrintTotalWagesSum += own.weekWages;
    if (page.productivity) AddProductivity(page.productivity->includes, person, own, sums);
    return own;
}

std::string RangeText(const SchedulePage& page, const PrintedPerson& person, int day, int row, bool cut) {
    const PrintedRanges& ranges = person.PrintRanges[day];
    const PrintedRange& range = ranges[static_cast<std::size_t>(row) - 1];
    std::string start = ClockOf(page, range.start, day);
    std::string stop = ClockOf(page, range.stop, day);
    if (cut) {
        start.resize(std::min(start.size(), RangeCharacters));
        stop.resize(std::min(stop.size(), RangeCharacters));
    }
    if (page.lastStop && row == static_cast<int>(ranges.size())) stop = Trim(page.openWord);
    start.append("  ").append(stop);
    return start;
}

std::string HoursText(const SchedulePage& page, long quarters) {
    return QuartersToText(quarters, page.timeFormat);
}

std::string DayHoursText(const SchedulePage& page, int quarters) {
    return quarters == 0 ? "" : page.words.hours + HoursText(page, quarters); // "" for "0:00"
}

std::string DayWagesText(const SchedulePage& page, const PrintedPerson& person, int quarters, Wage wage) {
    if (quarters == 0) return "";
    return person.paidByHour ? page.words.wages + Format(wage, ".00") : "On salary  ";
}

std::string WeekHoursText(const SchedulePage& page, const PrintedPerson& person, const EmployeeSums& own) {
    return person.paidByHour && own.weekQuarters == 0 ? "" : HoursText(page, own.weekQuarters);
}

std::string WeekMoneyText(const PrintedPerson& person, const EmployeeSums& own) {
    if (!person.paidByHour) return SalaryText(person);
    return own.weekQuarters == 0 ? "" : Format(own.weekWages, ".00");
}

std::string SalaryText(const PrintedPerson& person) {
    return person.pay ? Format(*person.pay, ".00") : "";
}

TotalTexts MoneyTotals(const SchedulePage& page, const ScheduleSums& sums, std::string_view pattern) {
    const Wage salaries = page.salaries.value_or(Wage());
    return {Format(sums.PrintTotalWagesSum, pattern), Format(salaries, pattern),
            Format(sums.PrintTotalWagesSum + salaries, pattern)};
}

std::string DayTotalHours(const SchedulePage& page, const ScheduleSums& sums, int day) {
    return page.words.hours + HoursText(page, sums.DayTotalQuarters[day]);
}

std::string DayTotalWages(const SchedulePage& page, const ScheduleSums& sums, int day) {
    return page.words.wages + Format(sums.DayTotalWages[day], ".00");
}

std::vector<TotalText> WeekTotalTexts(const SchedulePage& page, const ScheduleSums& sums) {
    std::vector<TotalText> totals;
    const auto add = [&](const char* label, const std::string& amount) {
        totals.push_back({page.words.whose + label, amount});
    };
    if (page.PrintsHours()) add(" total time:", HoursText(page, sums.PrintTotalQuarters));
    if (!page.PrintsWages()) return totals;
    const TotalTexts money = MoneyTotals(page, sums, "##,##0.00");
    add(" total wages:", money.wages);
    add(" total salaries:", money.salaries);
    add(" total compensation:", money.compensation);
    return totals;
}

std::string SalesPerHour(const PrintedProductivity& figures, const ScheduleSums& sums, int day) {
    const Productivity& p = figures.includes;
    return RatioText(figures.sales[day], Counted(sums, day, p.SalesWageHours, p.SalesSalaryHours));
}

std::string TransactionsPerHour(const PrintedProductivity& figures, const ScheduleSums& sums, int day) {
    const Productivity& p = figures.includes;
    bool wages = p.TransWageHours;
    bool salaries = p.TransSalaryHours;
    if (day == 0) { // the week's column asks other flags than the days do
        const bool both = p.TransWageHours && p.SalesSalaryHours;
        wages = both || p.SalesWageHours;
        salaries = both || (!p.SalesWageHours && p.SalesSalaryHours);
    }
    return RatioText(figures.transactions[day], Counted(sums, day, wages, salaries));
}

std::string LaborPercent(const SchedulePage& page, const ScheduleSums& sums, int day) {
    const PrintedProductivity& figures = *page.productivity;
    const double cost = day == 0 ? WeekCost(page, sums) : DayCost(figures, sums, day);
    const double sales = figures.sales[day];
    return cost == 0 || sales == 0 ? "" : Format(cost / (sales / 100), ".00");
}

std::string SalesText(const PrintedProductivity& figures, int day) {
    return PlainNumber(figures.sales[day]);
}

std::string TransactionsText(const PrintedProductivity& figures, int day) {
    return PlainNumber(figures.transactions[day]);
}

std::vector<ProductivityRow> ProductivityRows(const SchedulePage& page, const PrintedProductivity& figures,
                                              const ScheduleSums& sums) {
    return {{"", [&](int d) { return d == 0 ? "Week" : page.shortWeekdays[d]; }},
            {"Sales", [&](int d) { return SalesText(figures, d); }},
            {"Transactions", [&](int d) { return TransactionsText(figures, d); }},
            {"Sales/hrs", [&](int d) { return SalesPerHour(figures, sums, d); }},
            {"Transactions/hrs", [&](int d) { return TransactionsPerHour(figures, sums, d); }},
            {"Labor %", [&](int d) { return LaborPercent(page, sums, d); }}};
}

std::string YesNo(const std::string& what, bool on) {
    return what + (on ? " = Yes" : " = No");
}

std::string DayCommentHeading(const SchedulePage& page, int day) {
    return "Day comments: " + page.weekdays[day] + " " + page.dates[day];
}

std::string CutoffText(const SchedulePage& page) {
    return QuarterToClockText(page.cutoffQuarters, page.clockStyle);
}

std::string CutoffNote(const SchedulePage& page) {
    const std::string time = CutoffText(page);
    return "Note: Time and Wage statistics are between " + time + " and " + time + " the following day.";
}

std::string WeekOfYear(const SchedulePage& page) {
    const std::string& number = page.weekNumbers[1];
    return number.empty() ? "" : "Week of the year: " + number;
}

std::string TitleIn(const SchedulePage& page, const Vp& vp, Twips room) {
    if (Fitted(vp, page.title, room).size() == page.title.size()) return page.title;
    const std::string name = WithEllipsis(vp, page.departmentName, room - vp.TextWidth(page.weekSpan));
    return Isolated(name) + page.weekSpan;
}

} // namespace tvx
