// Hours, wages, overtime, headcount and labor figures: everything that is computed from the bars.
#pragma once

#include "shell/state/TVXGLOB.h"

#include <array>
#include <optional>
#include <string>

namespace tvx {

/// The business day that the editor shows: week quarters, high exclusive.
struct DayWindow {
    WeekQuarter low = 0;
    WeekQuarter high = 0;
};

/// Day 1 to 7 from its cut-off to the cut-off of the next day.
DayWindow WindowOfDay(int day, int cutoffQuarters);

/// Adds one bar to `WeekQuarters` and `DayQuarters` of an employee: what of it lies in the business week,
/// which runs from the cut-off of day 1 over exactly seven days, and on the business day summed.
void AddBarToTotals(Week& week, int employee, int bar, int cutoffQuarters);

/// Zeroes both quarters of an employee and adds all bars.
void CountBars(Week& week, int employee, int cutoffQuarters);

/// The day's quarters of an employee on any day, without touching the totals.
int QuartersOnDay(const Week& week, int employee, int day, int cutoffQuarters);
/// The same of any bars.
int QuartersOnDay(const WeekBars& bars, int day, int cutoffQuarters);

/// What sums are made from beside the week, and where they go.
struct Payroll {
    const Roster& roster;
    const Rights& rights;
    Totals& totals;
    int cutoffQuarters = 0;
};
Payroll PayrollOf(GlobalState& g);

/// Adds an employee's quarters and wages to the sums of the department. `sign` -1 takes them out.
void AddEmployeeToTotals(const Week& week, const Payroll& payroll, int employee, int sign);

/// Makes a day the one that is summed: recomputes the day's quarters of everybody and the day's sums; the
/// week's sums stay.
void SumDay(Week& week, const Payroll& payroll, int day);

/// Recomputes everything from the bars.
void SumWeek(Week& week, const Payroll& payroll, int day);

/// True when quarters and sums are what a full count gives. Counts on a copy.
bool SumsAreRight(const Week& week, const Payroll& payroll);

/// An amount made of pay, and its text: absent, and "", while pay is hidden.
std::optional<Wage> ShownPay(const Rights& rights, Wage amount);
std::string ShownPayText(const Rights& rights, Wage amount);

/// What labor costs: wages, and one of `days` equal shares of the salaries, each where it is included.
/// Without days no salary counts. A share is no whole part of money, so a cost is a real number.
double LaborCost(const Productivity& includes, Wage wages, Wage salaries, int days);

/// The week's sales and transactions from those of its days, and whether there are any.
void SumFigures(DepartmentFigures& figures, Totals& totals);

/// Texts of the totals: 0 day time, 1 week time, 2 day wages, 3 week wages; wages are "" when pay is hidden.
std::array<std::string, 4> TotalsTexts(const Totals& totals, const Rights& rights, TimeFormat style);

/// Texts of the labor figures: 0 to 2 the day's labor percentage, sales per hour and transactions per hour,
/// 3 to 5 the week's. "" where a divisor is 0, for labor also when pay is hidden; the day's labor is "" too
/// when it costs nothing.
std::array<std::string, 6> ProductivityTexts(const GlobalState& g);

/// Colours of a value: text and back, &HBBGGRR.
struct ValueColours {
    Colour text = 0;
    Colour back = 0;

    friend bool operator==(const ValueColours&, const ValueColours&) = default;
};

/// True when an employee's quarters of the day, or of the week, lie above the limit of the options; an exact
/// hit does not.
bool IsOverDayLimit(const Week& week, const Options& options, int employee);
bool IsOverWeekLimit(const Week& week, const Options& options, int employee);

/// People at work in each quarter of a business day: [1..96], 0 stays 0.
std::array<int, QuartersPerDay + 1> FillHeadCount(const Week& week, int day, int cutoffQuarters);

/// One figure of the headcount band: the mean of an hour's four quarters at the middle of that hour.
struct HeadcountFigure {
    Twips x = 0; // middle of the hour, grid twips
    std::string text;
};

/// The figures across the hours shown. With a cut-off that is no whole hour the hours begin at the first full
/// one.
std::vector<HeadcountFigure> HeadcountFigures(const Week& week, const Grid& grid, int day,
                                              int cutoffQuarters);

/// Texts of the totals box: wages, salaries and their sum; the hours of both kinds and their sum; and the
/// number of people, with a trailing blank when it has one digit. Money is "" when pay is hidden.
struct TotalsBox {
    std::array<std::string, 4> Label2; // [1..3]
    std::array<std::string, 4> Label3; // [1..3]
    std::string activeCaption;
    std::string activeCount;
};
TotalsBox WeeklyTotalsBox(const GlobalState& g);

} // namespace tvx
