#include "editor/RowValues.h"

#include "platform/basic/Format.h"
#include "shell/common/Conversions.h"

namespace tvx {
namespace {

constexpr int OptionDayTime = 1;
constexpr int OptionDayWages = 2;
constexpr int OptionWeekTime = 3;
constexpr int OptionWeekWages = 4;
constexpr int OptionId = 5;
constexpr int OptionAssignment = 6;
constexpr int OptionBothTimes = 7;
constexpr int OptionBothWages = 8;
constexpr int OptionDaysScheduled = 9;
constexpr int OptionLaborType = 10;
constexpr int OptionDepartment = 11;
constexpr int OptionHireDate = 12;

constexpr int FirstYearShown = 1900;
constexpr ValueColours Overtime{QBColor(15), QBColor(12)};

std::string TimeText(const Options& options, int quarters) {
    return QuartersToTextShort(quarters, options.TimeFormat);
}

std::string WageText(const Roster& roster, const Rights& rights, int e, int quarters, const char* salaried) {
    const std::optional<Wage> wages = WagesForQuarters(roster, rights, e, quarters);
    if (!wages) return "";
    return roster.IsPaidByHour(e) ? Format(*wages, ".00") : salaried;
}

std::string HireText(const Roster& roster, int e, const Region& region) {
    const DateParts date = PartsOf(roster.RosterHireDate[e]);
    if (date.year < FirstYearShown) return "";
    return region.Names().months[date.month] + "-" + std::to_string(date.year);
}

ValueColours ColoursOf(int option) {
    switch (option) {
    case OptionDayTime:
        return {QBColor(1), QBColor(15)};
    case OptionDayWages:
        return {QBColor(12), QBColor(15)};
    case OptionWeekTime:
        return {QBColor(1), Yellow};
    case OptionWeekWages:
        return {QBColor(12), Yellow};
    case OptionDaysScheduled:
        return {QBColor(0), LightBlue};
    case OptionHireDate:
        return {QBColor(2), LightGreen};
    default:
        return {QBColor(0), LightGreen};
    }
}

/// Seven squares: a day on which time begins takes the colour of the bars.
std::array<Colour, 8> DaySquares(const Roster& roster, const Week& week, int e) {
    const Colour bar = QBColor(roster.RosterBarColor[e]);
    std::array<Colour, 8> squares{};
    squares.fill(bar == Silver ? QBColor(12) : Silver);
    for (int b = 1; b <= week.BarCount[e]; ++b) {
        if (week.BarStarts[e][b] == week.BarStops[e][b]) continue; // an empty slot
        const int day = week.BarStarts[e][b] / QuartersPerDay + 1;
        if (day <= 7) squares[day] = bar;
    }
    return squares;
}

std::string SingleText(const GlobalState& g, int option, int e, const Region& region) {
    switch (option) {
    case OptionDayTime:
        return TimeText(g.application.options, g.week.DayQuarters[e]);
    case OptionDayWages:
        return WageText(g.roster, g.rights, e, g.week.DayQuarters[e], "Salary ");
    case OptionWeekTime:
        return TimeText(g.application.options, g.week.WeekQuarters[e]);
    case OptionWeekWages:
        return WageText(g.roster, g.rights, e, g.week.WeekQuarters[e], "Salary ");
    case OptionId:
        return g.roster.RosterId[e];
    case OptionAssignment:
        return g.roster.RosterAssignment[e];
    case OptionLaborType:
        return g.roster.RosterLaborType[e];
    case OptionDepartment:
        return g.roster.AllDepartmentsMode ? g.roster.RosterDepName[e] : g.department.CurrentDepName;
    case OptionHireDate:
        return HireText(g.roster, e, region);
    default:
        return "";
    }
}

void FillPair(const GlobalState& g, int option, int e, RowValues& values) {
    values.pair = true;
    values.align = Align::Right;
    if (option == OptionBothTimes) {
        values.day = " " + TimeText(g.application.options, g.week.DayQuarters[e]);
        values.week = " " + TimeText(g.application.options, g.week.WeekQuarters[e]);
    } else {
        values.day = WageText(g.roster, g.rights, e, g.week.DayQuarters[e], "Salary  ");
        values.week = WageText(g.roster, g.rights, e, g.week.WeekQuarters[e], "Salary  ");
    }
}

/// Red marks overtime: of the day and of the week apart where both show, of either where one time or wage
/// does.
void ColourRowValues(const GlobalState& g, int option, int e, RowValues& values) {
    const bool dayOver = IsOverDayLimit(g.week, g.application.options, e);
    const bool weekOver = IsOverWeekLimit(g.week, g.application.options, e);
    if (values.pair) {
        values.dayColours = dayOver ? Overtime : ValueColours{QBColor(0), QBColor(15)};
        values.weekColours = weekOver ? Overtime : ValueColours{QBColor(12), QBColor(14)};
    } else {
        values.singleColours =
            option <= OptionWeekWages && (dayOver || weekOver) ? Overtime : ColoursOf(option);
    }
    if (values.squares) values.squareColours = DaySquares(g.roster, g.week, e);
}

} // namespace

const std::array<ShowOptionText, 13>& ShowOptions() {
    static const std::array<ShowOptionText, 13> options{{
        {"", ""},
        {"Day time", "Show Day time"},
        {"Day wages", "Show Day wages"},
        {"Week time", "Show Week time"},
        {"Week wages", "Show Week wages"},
        {" ID", "Show Id for employees"},
        {"Assignment", "Show assignments"},
        {"D/W time", "Show Day and Week time"},
        {"D/W wages", "Show Day and Week wages"},
        {"Days sched.", "Indicate on which days work is scheduled "},
        {"Labor type", "Shows Labor type set in the Employee screen"},
        {"Department", "Indicate on which days work is scheduled "},
        {"Hire date", "Shows Month and Day of Hire"},
    }};
    return options;
}

bool CanShow(const Roster& roster, const Rights& rights, int option) {
    if (option < OptionDayTime || option > OptionHireDate) return false;
    if (roster.AllDepartmentsMode) return option == OptionDepartment;
    const bool money = option == OptionDayWages || option == OptionWeekWages || option == OptionBothWages;
    return !(money && rights.HideWages);
}

void ChooseShowOption(Grid& grid, const Roster& roster, const Rights& rights, int option) {
    if (CanShow(roster, rights, option)) grid.ShowOption = option;
}

RowValues ShowRowValues(const GlobalState& g, int option, int e, const Region& region) {
    RowValues values;
    if (option == OptionBothTimes || option == OptionBothWages) {
        FillPair(g, option, e, values);
    } else {
        values.single = SingleText(g, option, e, region);
        values.align = option <= OptionWeekWages ? Align::Right : Align::Left;
        values.squares = option == OptionDaysScheduled;
    }
    ColourRowValues(g, option, e, values);
    return values;
}

} // namespace tvx
