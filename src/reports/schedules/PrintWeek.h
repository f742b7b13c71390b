// One employee's week as schedules print it: time ranges by day, hours and wages, labels, and who is printed.
#pragma once

#include "platform/ports/Ports.h"
#include "platform/ports/Vp.h"
#include "shell/state/TVXGLOB.h"

#include <array>
#include <string>
#include <vector>

namespace tvx {

/// What a run of a schedule is asked for beside the options that last.
struct ScheduleRequest {
    std::string kind = "7DayShort"; // "7DayLong", "7DayShort" or "SelectedEmployees"
    bool lastStop = false;          // a word stands for the last stop of a day
    std::string openWord = " Open"; // that word
    bool productivity = false;
    bool saveSpace = false;  // web pages: days with nothing are left out
    std::vector<int> picked; // employees, in the order of the list
};

/// Fills the print arrays for an employee. Bars that begin on a day off are dropped, from the week in memory
/// too. Hours belong to the business days on which they lie; a printed range belongs whole to the day on
/// which it starts, and gaps not above `BreakThreshold` do not part it.
void LoadPrintArrays(GlobalState& g, int employee);

/// Text of a printed range of a day, row from 1: start, two blanks, stop. `cut` keeps six characters of
/// either.
std::string RangeText(const GlobalState& g, const ScheduleRequest& request, int day, int row, bool cut);

/// The day's label: the explanation of its daytype, or the word for a day off; "" when it has none.
std::string DayLabel(const GlobalState& g, int employee, int day);
/// True when a label is the word for a day off.
bool IsDayOffLabel(const GlobalState& g, const std::string& label);

/// True when an employee is to be printed.
bool IsPrinted(const GlobalState& g, int employee);

/// Wage of a day: 0 when pay is hidden or the employee is salaried.
double DayWageAmount(const GlobalState& g, int employee, int quarters);

/// What stands under or behind a name by `NameOption`, from the store where the roster does not have it.
std::string NameDetail(GlobalState& g, int employee);

/// Sums of a run, [day 1..7], and the week in element 0.
struct ScheduleSums {
    double PrintTotalWagesSum = 0;
    long PrintTotalQuarters = 0;
    std::array<long, 8> WageTimeQuarters{};
    std::array<long, 8> SalaryTimeQuarters{};
    std::array<double, 8> WageCost{};
    std::array<double, 8> SalaryCost{};
};

/// One employee's figures.
struct EmployeeSums {
    std::array<int, 8> quarters{}; // [day 1..7]
    std::array<double, 8> wages{}; // [day 1..7]
    int weekQuarters = 0;
    double weekWages = 0;
};

/// Adds the employee of the print arrays to the sums of the run and to the day totals.
EmployeeSums AddToSums(GlobalState& g, int employee, bool productivity, ScheduleSums& sums);

/// Texts of a day's figures: "Hours  8:00", "Wages 58.00" or "On salary  "; "" on a day without hours.
std::string DayHoursText(const GlobalState& g, int quarters);
std::string DayWagesText(const GlobalState& g, int employee, int quarters, double wages);
/// The week's time, and the week's wage or the salary; "" for a wage earner without hours.
std::string WeekHoursText(const GlobalState& g, int employee, const EmployeeSums& sums);
std::string WeekMoneyText(const GlobalState& g, int employee, const EmployeeSums& sums);

/// The ratios of the productivity block, day 1 to 7 or 0 for the week; "" where there is none.
std::string SalesPerHour(const GlobalState& g, const ScheduleSums& sums, int day);
std::string TransactionsPerHour(const GlobalState& g, const ScheduleSums& sums, int day);
std::string LaborPercent(const GlobalState& g, const ScheduleSums& sums, int day);
/// Figures of a day, or of the week for 0, as plain numbers; "" for 0.
std::string SalesText(const GlobalState& g, int day);
std::string TransactionsText(const GlobalState& g, int day);
/// "Wages time = Yes" or "Wages time = No".
std::string YesNo(const std::string& what, bool on);

/// "Day comments: Sunday 1-Mar-2026".
std::string DayCommentHeading(const GlobalState& g, const Ports& ports, int day);

/// Time of the day's cut-off as the notes write it, untrimmed.
std::string CutoffText(const GlobalState& g);
/// "Printed on: 3/5/2026".
std::string PrintedOn(const Ports& ports);
/// True when hours or wages are totalled.
bool PrintsTotals(const GlobalState& g);
/// Clears the day totals and fills a blank word for the last stop; hides money that may not be seen.
void BeginRun(GlobalState& g, ScheduleRequest& request);

/// Weekday, 1 Sunday, of a day of the week shown, 1 to 7.
int WeekdayOf(const GlobalState& g, int day);

} // namespace tvx
