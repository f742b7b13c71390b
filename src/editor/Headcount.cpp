#include "editor/Headcount.h"

#include "editor/week/Totals.h"

namespace tvx {

void ShowHeadcount(const Grid& grid, const Week& week, int day, int cutoffQuarters, const TextWidth& widthOf,
                   Drawing& drawing) {
    if (!grid.HeadcountShown) return;
    constexpr Twips RightMargin = 150;
    FillOnGrid(drawing, grid, {0, 240, grid.GridWidth, 480}, QBColor(0));
    for (const HeadcountFigure& figure : HeadcountFigures(week, grid, day, cutoffQuarters))
        if (figure.x + widthOf(figure.text) / 2 <= grid.GridWidth - RightMargin)
            drawing.texts.push_back({figure.x, 250, figure.text, QBColor(15)});
}

} // namespace tvx
