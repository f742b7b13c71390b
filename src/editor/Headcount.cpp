#include "editor/Headcount.h"

#include "editor/week/Totals.h"

#include <algorithm>

namespace tvx {
namespace {

/// Every how many hours a figure has room.
std::size_t HoursBetween(const std::vector<HeadcountFigure>& figures, Twips hour, const TextWidth& widthOf) {
    constexpr Twips Gap = 60;
    Twips widest = 0;
    for (const HeadcountFigure& figure : figures) widest = std::max(widest, widthOf(figure.text));
    return static_cast<std::size_t>((widest + Gap + hour - 1) / hour);
}

} // namespace

void ShowHeadcount(const Grid& grid, const Week& week, int day, int cutoffQuarters, const TextWidth& widthOf,
                   Drawing& drawing) {
    if (!grid.HeadcountShown) return;
    constexpr Twips RightMargin = 150;
    FillOnGrid(drawing, grid, {0, 240, grid.GridWidth, 480}, QBColor(0));
    const auto figures = HeadcountFigures(week, grid, day, cutoffQuarters);
    const std::size_t step = HoursBetween(figures, 4 * grid.QuarterWidth, widthOf);
    for (std::size_t hour = 0; hour < figures.size(); hour += step)
        if (const HeadcountFigure& figure = figures[hour];
            figure.x + widthOf(figure.text) / 2 <= grid.GridWidth - RightMargin)
            drawing.texts.push_back({figure.x, 250, figure.text, QBColor(15)});
}

} // namespace tvx
