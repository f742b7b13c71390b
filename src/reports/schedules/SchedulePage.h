// What stands on the pages of a schedule beside its people, the sums of a run, and the texts of its figures.
#pragma once

#include "platform/ports/Vp.h"
#include "reports/schedules/PrintedPerson.h"
#include "shell/state/Options.h"
#include "shell/state/Report.h"

#include <functional>

namespace tvx {

/// What a schedule calls its figures.
struct ScheduleWords {
    std::string hours = "Hours "; // before a day's time
    std::string wages = "Wages "; // before a day's wage
    std::string whose = "Department";
};

/// Figures and settings of the productivity block: [day 1..7], and the week in element 0.
struct PrintedProductivity {
    Productivity includes;
    std::array<double, 8> sales{};
    std::array<double, 8> transactions{};
    int SalesDays = 0; // days with sales above 0
};

/// Everything on a page that does not belong to one person. Days are [day 1..7].
struct SchedulePage {
    std::string title;
    std::string departmentName;
    std::string weekSpan;  // ",  Week from 1-Mar-2026  to  7-Mar-2026", as the title ends
    std::string printedOn; // "Printed on: 3/5/2026"
    std::array<std::string, 8> weekdays;
    std::array<std::string, 8> shortWeekdays;
    std::array<std::string, 8> dates;       // as the program shows them
    std::array<std::string, 8> mediumDates; // 05-Mar-26
    std::array<std::string, 8> weekNumbers; // all "" where the weeks of the year are not counted
    std::array<std::optional<std::string>, 8> memos;
    ClockStyle clockStyle = ClockStyle::TwelveHours;
    TimeFormat timeFormat = TimeFormat::Minutes;
    int cutoffQuarters = 0;
    std::string dayOffWord;
    ReportOptions options;                           // never with wages that may not be seen
    bool lastStop = false;                           // a word stands for the last stop of a day
    std::string openWord = "_____";                  // that word
    bool saveSpace = false;                          // web pages: days with nothing are left out
    std::optional<Wage> salaries;                    // of the week; absent where pay may not be seen
    std::optional<PrintedProductivity> productivity; // absent when it is not printed
    ScheduleWords words;

    bool PrintsHours() const { return options.PrintTotalHours != 0; }
    bool PrintsWages() const { return options.PrintTotalWages != 0; }
    bool PrintsTotals() const { return PrintsHours() || PrintsWages(); }
    /// True where the business day begins after midnight and the totals need to say so.
    bool NotesCutoff() const { return cutoffQuarters > 0 && PrintsTotals(); }
    /// True when a label is the word for a day off.
    bool IsDayOff(const std::string& label) const;
};

/// A schedule: any loader makes it, any drawing takes it.
struct PrintedSchedule {
    SchedulePage page;
    std::vector<PrintedPerson> people; // in the order of the page
};

/// Sums of a run: [day 1..7], and the week in element 0.
struct ScheduleSums {
    Wage PrintTotalWagesSum;
    long PrintTotalQuarters = 0;
    std::array<long, 8> DayTotalQuarters{};
    std::array<Wage, 8> DayTotalWages;
    std::array<long, 8> WageTimeQuarters{};
    std::array<long, 8> SalaryTimeQuarters{};
    std::array<Wage, 8> WageCost;
    Wage SalaryCost; // of the whole week, shared out among the days with sales
};

/// One person's figures.
struct EmployeeSums {
    std::array<Wage, 8> wages; // [day 1..7]
    int weekQuarters = 0;
    Wage weekWages;
};

/// Adds a person to the sums of the run.
EmployeeSums AddToSums(const SchedulePage& page, const PrintedPerson& person, ScheduleSums& sums);

/// Text of a printed range of a day, row from 1: start, two blanks, stop. `cut` keeps six characters of
/// either.
std::string RangeText(const SchedulePage& page, const PrintedPerson& person, int day, int row, bool cut);

/// Texts of a day's figures: "Hours  8:00", "Wages 58.00" or "On salary  "; "" on a day without hours.
std::string DayHoursText(const SchedulePage& page, int quarters);
std::string DayWagesText(const SchedulePage& page, const PrintedPerson& person, int quarters, Wage wage);
/// The week's time, and the week's wage or the salary; "" for a wage earner without hours.
std::string WeekHoursText(const SchedulePage& page, const PrintedPerson& person, const EmployeeSums& own);
std::string WeekMoneyText(const PrintedPerson& person, const EmployeeSums& own);
/// A salary; "" where it may not be seen.
std::string SalaryText(const PrintedPerson& person);
/// A time in the form that the options ask for.
std::string HoursText(const SchedulePage& page, long quarters);
/// The wages of the run, the salaries, and both together, by a pattern of Format.
struct TotalTexts {
    std::string wages;
    std::string salaries;
    std::string compensation;
};
TotalTexts MoneyTotals(const SchedulePage& page, const ScheduleSums& sums, std::string_view pattern);
/// A day's sums as the short schedule prints them: "Hours 32:00", "Wages 320.00".
std::string DayTotalHours(const SchedulePage& page, const ScheduleSums& sums, int day);
std::string DayTotalWages(const SchedulePage& page, const ScheduleSums& sums, int day);
/// The sums of the week that are asked for, as the short schedule prints them.
struct TotalText {
    std::string label;
    std::string amount;
};
std::vector<TotalText> WeekTotalTexts(const SchedulePage& page, const ScheduleSums& sums);

/// The ratios of the productivity block, day 1 to 7 or 0 for the week; "" where there is none.
std::string SalesPerHour(const PrintedProductivity& figures, const ScheduleSums& sums, int day);
std::string TransactionsPerHour(const PrintedProductivity& figures, const ScheduleSums& sums, int day);
std::string LaborPercent(const SchedulePage& page, const ScheduleSums& sums, int day);
/// Figures of a day, or of the week for 0, as plain numbers; "" for 0.
std::string SalesText(const PrintedProductivity& figures, int day);
std::string TransactionsText(const PrintedProductivity& figures, int day);
/// The rows of the block's table, the head first; figures of day 1 to 7, or of the week for 0.
struct ProductivityRow {
    std::string label;
    std::function<std::string(int)> textOf;
};
/// They refer to what they are made of.
std::vector<ProductivityRow> ProductivityRows(const SchedulePage& page, const PrintedProductivity& figures,
                                              const ScheduleSums& sums);
/// "Wages time = Yes" or "Wages time = No".
std::string YesNo(const std::string& what, bool on);

/// "Day comments: Sunday 1-Mar-2026".
std::string DayCommentHeading(const SchedulePage& page, int day);
/// Time of the day's cut-off as the notes write it, untrimmed.
std::string CutoffText(const SchedulePage& page);
/// "Note: Time and Wage statistics are between ...".
std::string CutoffNote(const SchedulePage& page);
/// "Week of the year: 10"; "" where the weeks are not counted.
std::string WeekOfYear(const SchedulePage& page);
/// The title, of whose department only as much is left as fits in the present font.
std::string TitleIn(const SchedulePage& page, const Vp& vp, Twips room);

/// What a title leaves on either side of itself for the number of the page.
constexpr const char* TwicePageNumber = "  Page: 10000  Page: 10000";

} // namespace tvx
