#include "editor/lanes/GridView.h"

#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr Twips DayOffShadeHeight = 215;
constexpr int CutoffWithRoomForText = 6; // quarters; a narrower part of the next day shows no word

void SetWidths(GlobalState& g) {
    Grid& grid = g.grid;
    grid.HoursShown = std::max(1, g.screen.VisibleHours);
    grid.GridLeft = g.screen.ScreenWidth * 15 / 100 + 300;
    const Twips width = g.screen.ScreenWidth * 85 / 100 - 240 - 300;
    grid.QuarterWidth = std::max(1, width / (grid.HoursShown * 4));
    grid.GridWidth = grid.QuarterWidth * 4 * grid.HoursShown;
    grid.WeekTwips = grid.QuarterWidth * QuartersPerSpan;
}

void SetRows(GlobalState& g) {
    Grid& grid = g.grid;
    grid.RowHeight = 240;
    grid.RowCapacity = std::max(1, (g.screen.ScreenHeight - 3820) / grid.RowHeight);
    grid.VisibleRows = std::min(grid.RowCapacity, g.roster.EmployeeCount);
    grid.GridHeight = grid.VisibleRows * grid.RowHeight + 10;
    g.cursor.TopRow = 0;
    g.cursor.LastFocusRow = 1;
}

void SetScrollRange(GlobalState& g) {
    Grid& grid = g.grid;
    const int cutoff = g.department.DayCutoffQuarters;
    grid.MinFirstQuarter = cutoff;
    grid.MaxFirstQuarter = cutoff + QuartersPerDay - grid.HoursShown * 4;
    const int wanted = cutoff != 0 ? cutoff : std::clamp(g.application.StartHour, 0, 24) * 4;
    grid.FirstQuarter = std::clamp(wanted, grid.MinFirstQuarter, grid.MaxFirstQuarter);
}

void Fill(Drawing& drawing, const Grid& grid, Twips left, Twips top, Twips right, Twips bottom,
          Colour colour) {
    const Twips from = std::max(left, 0);
    const Twips to = std::min(right, grid.GridWidth);
    if (from < to) drawing.boxes.push_back({{from, top, to, bottom}, colour});
}

bool IsInHand(const GlobalState& g, int e, int bar) {
    return g.drag.GestureOpen && g.drag.DragEmployee == e && g.drag.DragBar == bar;
}

void DrawBars(const GlobalState& g, int e, Twips top, Drawing& drawing) {
    const Colour colour = QBColor(g.roster.RosterBarColor[e]);
    for (int b = 1; b <= MostBarsRead; ++b) {
        const Twips x1 = XOfQuarter(g.grid, g.week.BarStarts[e][b]);
        const Twips x2 = XOfQuarter(g.grid, g.week.BarStops[e][b]);
        if (IsInHand(g, e, b)) continue; // drawn apart until the release
        if (x1 == x2) return;
        Fill(drawing, g.grid, x1, top + LaneTop, x2, top + LaneBottom, colour);
    }
}

void DrawDaysOff(const GlobalState& g, int e, Twips top, Drawing& drawing) {
    const Grid& grid = g.grid;
    const int day = g.cursor.CurrentDay;
    const Twips boundary = DayBoundaryX(grid);
    const auto shade = [&](Twips from, Twips to) {
        Fill(drawing, grid, from, top, to, top + DayOffShadeHeight, DayOffShade);
    };
    const auto word = [&](Twips middle) {
        if (middle < grid.GridWidth)
            drawing.texts.push_back({middle, top, g.department.DayOffNameSingle, QBColor(0)});
    };
    if (g.week.DayOffFlag[day][e]) {
        shade(0, boundary);
        word((QuartersPerDay - grid.FirstQuarter) * grid.QuarterWidth / 2);
    }
    if (g.week.DayOffFlag[day + 1][e]) {
        shade(boundary, QuartersPerDay * grid.QuarterWidth);
        if (g.department.DayCutoffQuarters > CutoffWithRoomForText)
            word((2 * QuartersPerDay - grid.FirstQuarter) * grid.QuarterWidth / 2);
    }
}

WeekQuarter SnappedQuarter(Twips weekX, Twips quarterWidth) {
    const Twips rest = weekX % quarterWidth;
    return weekX / quarterWidth + (quarterWidth / 2 >= rest ? 0 : 1);
}

std::string HourText(const GlobalState& g, int hourOfDay) {
    return Trim(QuarterToClockText(hourOfDay * 4, g.application.Settings[setting::ClockStyle]));
}

/// Every how many hours a text has room: a divisor of the day.
int HoursBetweenTexts(const GlobalState& g, const TextWidth& widthOf) {
    constexpr Twips Gap = 90;
    Twips widest = 0;
    for (int hour = 0; hour < 24; ++hour) widest = std::max(widest, widthOf(HourText(g, hour)));
    for (const int step : {1, 2, 3, 4})
        if (widest + Gap <= step * 4 * g.grid.QuarterWidth) return step;
    return 6;
}

/// Quarters from the left edge to the first full hour.
int FirstHourColumn(const Grid& grid) {
    return (4 - grid.FirstQuarter % 4) % 4;
}

} // namespace

void SetGridGeometry(GlobalState& g) {
    SetWidths(g);
    SetRows(g);
    SetScrollRange(g);
    UpdateScrollX(g);
}

void UpdateScrollX(GlobalState& g) {
    g.grid.ScrollX = ((g.cursor.CurrentDay - 1) * QuartersPerDay + g.grid.FirstQuarter) * g.grid.QuarterWidth;
}

int ScrollToQuarter(GlobalState& g, int value) {
    const int cutoff = g.department.DayCutoffQuarters;
    if ((value & 3) != (cutoff & 3)) value = cutoff;
    g.grid.FirstQuarter = std::clamp(value, g.grid.MinFirstQuarter, g.grid.MaxFirstQuarter);
    UpdateScrollX(g);
    return g.grid.FirstQuarter;
}

Twips XOfQuarter(const Grid& grid, WeekQuarter quarter) {
    return quarter * grid.QuarterWidth - grid.ScrollX;
}

Twips DayBoundaryX(const Grid& grid) {
    return (QuartersPerDay - grid.FirstQuarter) * grid.QuarterWidth;
}

Twips TopOfRow(const Grid& grid, int row) {
    return (row - 1) * grid.RowHeight;
}

int EmployeeOfRow(const GlobalState& g, int row) {
    return g.roster.RowOrder[row + g.cursor.TopRow];
}

int RowOfEmployee(const GlobalState& g, int employee) {
    for (int row = 1; row <= g.grid.VisibleRows; ++row)
        if (EmployeeOfRow(g, row) == employee) return row;
    return 0;
}

void DrawRow(const GlobalState& g, int row, Drawing& drawing) {
    const int e = EmployeeOfRow(g, row);
    const Twips top = TopOfRow(g.grid, row);
    Fill(drawing, g.grid, 0, top + LaneTop, g.grid.GridWidth, top + LaneBottom, QBColor(15));
    DrawBars(g, e, top, drawing);
    DrawDaysOff(g, e, top, drawing);
}

std::optional<DrawnBox> DrawDragBar(const GlobalState& g) {
    const int e = g.drag.DragEmployee;
    const int row = RowOfEmployee(g, e);
    if (e < 1 || row == 0) return std::nullopt;
    const auto [left, right] = std::minmax(g.drag.DayLeftBar, g.drag.DayRightBar);
    const Twips from = std::clamp(left - g.grid.ScrollX, 0, g.grid.GridWidth);
    const Twips to = std::clamp(right - g.grid.ScrollX, 0, g.grid.GridWidth);
    if (from >= to) return std::nullopt;
    const Twips top = TopOfRow(g.grid, row);
    return DrawnBox{{from, top + LaneTop, to, top + LaneBottom}, QBColor(g.roster.RosterBarColor[e])};
}

std::string DragTimeText(const GlobalState& g) {
    const int e = g.drag.DragEmployee;
    if (e < 1 || g.drag.DayLeftBar == g.drag.DayRightBar) return "";
    const auto [left, right] = std::minmax(g.drag.DayLeftBar, g.drag.DayRightBar);
    const auto clock = [&](Twips x) {
        const int quarter =
            std::max(0, SnappedQuarter(x, g.grid.QuarterWidth) - (g.cursor.CurrentDay - 1) * QuartersPerDay);
        return Trim(QuarterToClockText(quarter, g.application.Settings[setting::ClockStyle]));
    };
    return clock(left) + " - " + clock(right);
}

void DrawAvailability(const GlobalState& g, int row, Drawing& drawing) {
    const Grid& grid = g.grid;
    const int e = EmployeeOfRow(g, row);
    if (!grid.AvailabilityShown || g.week.DayOffFlag[g.cursor.CurrentDay][e]) return;
    const DaySerial shown = g.week.WeekStartJulian + g.cursor.CurrentDay - 1;
    const int offset = Weekday(shown) * QuartersPerDay + grid.FirstQuarter - QuartersPerDay;
    const Twips top = TopOfRow(grid, row);
    for (int slot = 1; slot <= std::min(g.roster.AvailabilityCount[e], AvailabilitySlots); ++slot) {
        if (g.roster.AvailabilityStops[e][slot] == 0) continue; // left behind by a join
        const Twips from = (g.roster.AvailabilityStarts[e][slot] - offset) * grid.QuarterWidth;
        const Twips to = (g.roster.AvailabilityStops[e][slot] - offset) * grid.QuarterWidth;
        Fill(drawing, grid, from, top + 10, to, top + 30, Red);
        Fill(drawing, grid, from, top + 180, to, top + 200, Red);
    }
}

void DrawHourRuler(const GlobalState& g, const TextWidth& widthOf, Drawing& drawing) {
    const Grid& grid = g.grid;
    constexpr Twips BandHeight = 280;
    constexpr Twips MidnightGap = 30;
    const Twips boundary = DayBoundaryX(grid);
    const bool parted = g.department.DayCutoffQuarters > 0;
    Fill(drawing, grid, 0, 0, parted ? boundary - MidnightGap : grid.GridWidth, BandHeight, QBColor(3));
    if (parted) Fill(drawing, grid, boundary + MidnightGap, 0, grid.GridWidth, BandHeight, QBColor(3));
    const int step = HoursBetweenTexts(g, widthOf);
    for (int column = FirstHourColumn(grid); column <= grid.HoursShown * 4; column += 4) {
        const int hour = (grid.FirstQuarter + column) / 4 % 24;
        if (hour % step != 0) continue;
        drawing.texts.push_back({column * grid.QuarterWidth, 40, HourText(g, hour), QBColor(15)});
    }
}

void DrawTickMarks(const GlobalState& g, Drawing& drawing) {
    const Grid& grid = g.grid;
    constexpr Twips TickWidth = 15;
    for (int column = 0; column <= grid.HoursShown * 4; ++column) {
        const int part = (grid.FirstQuarter + column) % 4;
        const Twips top = part == 0 ? 270 : part == 2 ? 450 : 500;
        const Colour colour = QBColor(part == 0 ? 15 : part == 2 ? 10 : 14);
        const Twips x = std::min(column * grid.QuarterWidth, grid.GridWidth - TickWidth);
        drawing.boxes.push_back({{x, top, x + TickWidth, RulerHeight}, colour});
    }
}

void ShowHeadcount(const GlobalState& g, const TextWidth& widthOf, Drawing& drawing) {
    if (!g.grid.HeadcountShown) return;
    constexpr Twips RightMargin = 150;
    Fill(drawing, g.grid, 0, 240, g.grid.GridWidth, 480, QBColor(0));
    for (const HeadcountFigure& figure :
         HeadcountFigures(g.week, g.grid, g.cursor.CurrentDay, g.department.DayCutoffQuarters))
        if (figure.x + widthOf(figure.text) / 2 <= g.grid.GridWidth - RightMargin)
            drawing.texts.push_back({figure.x, 250, figure.text, QBColor(15)});
}

std::string EndOfDayCaption(const GlobalState& g) {
    if (g.department.DayCutoffQuarters == 0) return "Midnight";
    const std::string time =
        Trim(QuarterToClockText(g.department.DayCutoffQuarters, g.application.Settings[setting::ClockStyle]));
    return time == "Midn." ? "Midnight" : time;
}

std::array<HeaderColumn, 8> DayHeader(const GlobalState& g, const Region& region, bool wide) {
    std::array<HeaderColumn, 8> columns;
    for (int d = 1; d <= 7; ++d) {
        const DaySerial date = g.week.WeekStartJulian + d - 1;
        const auto number = WeekNumber(date, g.department.WeekMethod, g.department.FirstWeekday);
        columns[d].weekday = region.Names().weekdays[Weekday(date)];
        columns[d].date = wide ? region.MediumDate(date) : region.ShortDate(date);
        if (number) columns[d].weekNumber = std::to_string(*number);
        columns[d].selected = d == g.cursor.CurrentDay;
        columns[d].memo = g.figures.DayMemoFlag[d];
    }
    return columns;
}

std::string EditorTitle(const GlobalState& g) {
    if (g.roster.AllDepartmentsMode) return "Multiple Department " + g.department.EmployeeNamePlural;
    return WeekTitle(g.department, g.week);
}

} // namespace tvx
