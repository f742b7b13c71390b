#include "reports/schedules/ScheduleLoader.h"

#include "platform/basic/Text.h"
#include "reports/schedules/NameDetails.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

#include <algorithm>

namespace tvx {
namespace {

void LoadDays(const GlobalState& g, const Region& region, SchedulePage& page) {
    for (int d = 1; d <= 7; ++d) {
        const DaySerial day = g.week.WeekStartJulian + d - 1;
        page.weekdays[d] = region.Names().weekdays[Weekday(day)];
        page.shortWeekdays[d] = region.Names().shortWeekdays[Weekday(day)];
        page.dates[d] = g.week.WeekDateTexts[d];
        page.mediumDates[d] = region.MediumDate(day);
        const auto number = WeekNumber(day, g.department.WeekMethod, g.department.FirstWeekday);
        if (number) page.weekNumbers[d] = std::to_string(*number);
        if (g.figures.DayMemoFlag[d]) page.memos[d] = g.figures.DayMemoText[d];
    }
}

PrintedProductivity LoadProductivity(const Productivity& includes, const DepartmentFigures& ofWeek,
                                     const Totals& totals) {
    PrintedProductivity figures{includes, ofWeek.DailySales, ofWeek.DailyTransactions, totals.SalesDays};
    figures.sales[0] = totals.SalesTotal;
    figures.transactions[0] = totals.TransactionsTotal;
    return figures;
}

std::array<bool, DaysInSpan + 1> DaysOffOf(const Week& week, int e) {
    std::array<bool, DaysInSpan + 1> daysOff{};
    for (int d = 1; d <= DaysInSpan; ++d) daysOff[d] = week.DayOffFlag[d][e];
    return daysOff;
}

/// The bars of an employee in the loaded week, as they stand.
PrintedRanges LoadedBars(const Week& week, int e) {
    PrintedRanges bars;
    bars.reserve(static_cast<std::size_t>(week.BarCount[e]));
    for (int b = 1; b <= week.BarCount[e]; ++b) bars.push_back({week.BarStarts[e][b], week.BarStops[e][b]});
    return bars;
}

PrintedPerson LoadPerson(const GlobalState& g, const SchedulePage& page, NameDetails& details, int e) {
    PrintedPerson person;
    person.name1 = g.roster.RosterName1[e];
    person.name2 = g.roster.RosterName2[e];
    person.detail = details.Of(e);
    person.paidByHour = g.roster.IsPaidByHour(e);
    if (!g.rights.HideWages) person.pay = g.roster.RosterPay[e];
    person.barColour = g.roster.RosterBarColor[e];
    const auto daysOff = DaysOffOf(g.week, e);
    for (int d = 1; d <= DaysInSpan; ++d)
        person.labels[d] = daysOff[d] ? page.dayOffWord : DaytypeName(g.daytypes, g.week.DayTypeText[d][e]);
    LoadPrintArrays(person, LoadedBars(g.week, e), daysOff, page.cutoffQuarters, page.options.BreakThreshold);
    return person;
}

/// The employees of a run, in the order of the page.
std::vector<int> Chosen(const GlobalState& g, const ReportOptions& options, const ScheduleRequest& request) {
    if (request.kind == ScheduleKind::Selected) return request.picked;
    std::vector<int> chosen;
    for (int position = 1; position <= g.roster.EmployeeCount; ++position) {
        const int e = g.roster.RowOrder[position];
        if (IsPrinted(g.week, g.roster, options, e)) chosen.push_back(e);
    }
    return chosen;
}

} // namespace

bool IsPrinted(const Week& week, const Roster& roster, const ReportOptions& options, int e) {
    if (options.WhoToPrint == 0 || week.BarCount[e] > 0) return true;
    for (int d = 1; d <= 7; ++d)
        if (!Trim(week.DayTypeText[d][e]).empty() || week.DayOffFlag[d][e]) return true;
    return !roster.IsPaidByHour(e) && options.PrintTotalWages != 0;
}

ReportOptions OptionsOfRun(const ReportOptions& options, const Rights& rights) {
    ReportOptions run = options;
    if (rights.HideWages) run.PrintTotalWages = 0;
    return run;
}

SchedulePage LoadSchedulePage(const GlobalState& g, const Ports& ports, const ScheduleRequest& request) {
    SchedulePage page;
    page.title = WeekTitle(g.department, g.week);
    page.departmentName = g.department.CurrentDepName;
    page.weekSpan = WeekSpan(g.week);
    page.printedOn = "Printed on: " + ports.region.ShortDate(ports.clock.Today());
    LoadDays(g, ports.region, page);
    page.clockStyle = g.application.options.ClockStyle;
    page.timeFormat = g.application.options.TimeFormat;
    page.cutoffQuarters = g.department.DayCutoffQuarters;
    page.dayOffWord = g.department.DayOffNameSingle;
    page.options = OptionsOfRun(g.reports.options, g.rights);
    page.lastStop = request.lastStop;
    if (!Trim(request.openWord).empty()) page.openWord = request.openWord;
    page.saveSpace = request.saveSpace;
    if (!g.rights.HideWages) page.salaries = g.TotalSalaries;
    if (request.productivity) page.productivity = LoadProductivity(g.productivity, g.figures, g.totals);
    return page;
}

PrintedSchedule LoadSchedule(GlobalState& g, const Ports& ports, const ScheduleRequest& request) {
    PrintedSchedule schedule{LoadSchedulePage(g, ports, request), {}};
    NameDetails details(g.store, g.roster, schedule.page.options.NameOption);
    const std::vector<int> chosen = Chosen(g, schedule.page.options, request);
    schedule.people.reserve(chosen.size());
    for (const int e : chosen) schedule.people.push_back(LoadPerson(g, schedule.page, details, e));
    return schedule;
}

} // namespace tvx
