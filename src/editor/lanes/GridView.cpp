#include "editor/lanes/GridView.h"

#include "platform/basic/Text.h"
#include "shell/common/Conversions.h"

#include <algorithm>

namespace tvx {
namespace {

void SetWidths(Grid& grid, const ScreenState& screen) {
    grid.HoursShown = std::max(1, screen.VisibleHours);
    grid.GridLeft = screen.ScreenWidth * 15 / 100 + 300;
    const Twips width = screen.ScreenWidth * 85 / 100 - 240 - 300;
    grid.QuarterWidth = std::max(1, width / (grid.HoursShown * 4));
    grid.GridWidth = grid.QuarterWidth * 4 * grid.HoursShown;
    grid.WeekTwips = grid.QuarterWidth * QuartersPerSpan;
}

void SetRows(Grid& grid, const ScreenState& screen, int rows) {
    grid.RowHeight = 240;
    grid.RowCapacity = std::max(1, (screen.ScreenHeight - 3820) / grid.RowHeight);
    grid.VisibleRows = std::min(grid.RowCapacity, rows);
    grid.GridHeight = grid.VisibleRows * grid.RowHeight + 10;
}

void SetScrollRange(Grid& grid, int cutoff, int startHour) {
    grid.MinFirstQuarter = cutoff;
    grid.MaxFirstQuarter = cutoff + QuartersPerDay - grid.HoursShown * 4;
    const int wanted = cutoff != 0 ? cutoff : std::clamp(startHour, 0, 24) * 4;
    grid.FirstQuarter = std::clamp(wanted, grid.MinFirstQuarter, grid.MaxFirstQuarter);
}

std::string HourText(ClockStyle clockStyle, int hourOfDay) {
    return Trim(QuarterToClockText(hourOfDay * 4, clockStyle));
}

/// Every how many hours a text has room: a divisor of the day.
int HoursBetweenTexts(const Grid& grid, ClockStyle clockStyle, const TextWidth& widthOf) {
    constexpr Twips Gap = 90;
    Twips widest = 0;
    for (int hour = 0; hour < 24; ++hour) widest = std::max(widest, widthOf(HourText(clockStyle, hour)));
    for (const int step : {1, 2, 3, 4})
        if (widest + Gap <= step * 4 * grid.QuarterWidth) return step;
    return 6;
}

/// Quarters from the left edge to the first full hour.
int FirstHourColumn(const Grid& grid) {
    return (4 - grid.FirstQuarter % 4) % 4;
}

} // namespace

void SetGridGeometry(Grid& grid, const ScreenState& screen, int rows, int cutoffQuarters, int startHour) {
    SetWidths(grid, screen);
    SetRows(grid, screen, rows);
    SetScrollRange(grid, cutoffQuarters, startHour);
}

int ScrollToQuarter(Grid& grid, int cutoffQuarters, int value) {
    if ((value & 3) != (cutoffQuarters & 3)) value = cutoffQuarters;
    grid.FirstQuarter = std::clamp(value, grid.MinFirstQuarter, grid.MaxFirstQuarter);
    return grid.FirstQuarter;
}

Twips DayBoundaryX(const Grid& grid) {
    return (QuartersPerDay - grid.FirstQuarter) * grid.QuarterWidth;
}

void FillOnGrid(Drawing& drawing, const Grid& grid, const TwipsBox& box, Colour colour) {
    const Twips from = std::max(box.left, 0);
    const Twips to = std::min(box.right, grid.GridWidth);
    if (from < to) drawing.boxes.push_back({{from, box.top, to, box.bottom}, colour});
}

void DrawHourRuler(const Grid& grid, int cutoffQuarters, ClockStyle clockStyle, const TextWidth& widthOf,
                   Drawing& drawing) {
    constexpr Twips BandHeight = 280;
    constexpr Twips MidnightGap = 30;
    const Twips boundary = DayBoundaryX(grid);
    const bool parted = cutoffQuarters > 0;
    const auto band = [&](Twips from, Twips to) {
        FillOnGrid(drawing, grid, {from, 0, to, BandHeight}, QBColor(3));
    };
    band(0, parted ? boundary - MidnightGap : grid.GridWidth);
    if (parted) band(boundary + MidnightGap, grid.GridWidth);
    const int step = HoursBetweenTexts(grid, clockStyle, widthOf);
    for (int column = FirstHourColumn(grid); column <= grid.HoursShown * 4; column += 4) {
        const int hour = (grid.FirstQuarter + column) / 4 % 24;
        if (hour % step != 0) continue;
        drawing.texts.push_back({column * grid.QuarterWidth, 40, HourText(clockStyle, hour), QBColor(15)});
    }
}

void DrawTickMarks(const Grid& grid, Drawing& drawing) {
    constexpr Twips TickWidth = 15;
    for (int column = 0; column <= grid.HoursShown * 4; ++column) {
        const int part = (grid.FirstQuarter + column) % 4;
        const Twips top = part == 0 ? 270 : part == 2 ? 450 : 500;
        const Colour colour = QBColor(part == 0 ? 15 : part == 2 ? 10 : 14);
        const Twips x = std::min(column * grid.QuarterWidth, grid.GridWidth - TickWidth);
        drawing.boxes.push_back({{x, top, x + TickWidth, RulerHeight}, colour});
    }
}

std::string EndOfDayCaption(int cutoffQuarters, ClockStyle clockStyle) {
    if (cutoffQuarters == 0) return "Midnight";
    const std::string time = Trim(QuarterToClockText(cutoffQuarters, clockStyle));
    return time == "Midn." ? "Midnight" : time;
}

} // namespace tvx
