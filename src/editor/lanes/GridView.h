// The time grid as geometry: where it stands, how it scrolls, and its ruler, in twips, before any window
// paints it.
#pragma once

#include "editor/lanes/BarInHand.h"
#include "platform/basic/Palette.h"
#include "shell/state/TVXGLOB.h"

#include <functional>
#include <string>
#include <vector>

namespace tvx {

constexpr Twips GridTop = 845; // of the grid on its form
constexpr Twips RulerHeight = 600;

/// Sets the geometry of a grid of so many rows from the size of the screen and the cut-off, and scrolls it to
/// its first hour.
void SetGridGeometry(Grid& grid, const ScreenState& screen, int rows, int cutoffQuarters, int startHour);

/// Takes a value of the horizontal scroll bar: it moves in whole hours from the cut-off, and any other value
/// falls back to the cut-off itself. Returns the value taken.
int ScrollToQuarter(Grid& grid, int cutoffQuarters, int value);

/// Grid x of the next midnight after the left edge.
Twips DayBoundaryX(const Grid& grid);

/// A filled box, or, with a text, a text centred on a place.
struct DrawnBox {
    TwipsBox box;
    Colour colour = 0;

    friend bool operator==(const DrawnBox&, const DrawnBox&) = default;
};
struct DrawnText {
    Twips x = 0; // middle of the text
    Twips y = 0; // top of the text
    std::string text;
    Colour colour = 0;

    friend bool operator==(const DrawnText&, const DrawnText&) = default;
};
struct Drawing {
    std::vector<DrawnBox> boxes; // in the order in which they are painted
    std::vector<DrawnText> texts;

    void Clear() {
        boxes.clear();
        texts.clear();
    }
};

/// Adds a box to a drawing, cut off at both ends of the grid.
void FillOnGrid(Drawing& drawing, const Grid& grid, const TwipsBox& box, Colour colour);

/// Measures a text, in twips.
using TextWidth = std::function<Twips(const std::string&)>;

/// The ruler: its band, the hours' texts, and the ticks. Where hours are narrower than their texts, only
/// every second, third, fourth or sixth is written.
void DrawHourRuler(const Grid& grid, int cutoffQuarters, ClockStyle clockStyle, const TextWidth& widthOf,
                   Drawing& drawing);
void DrawTickMarks(const Grid& grid, Drawing& drawing);

/// Captions of the jumps to both ends of the day: "Midnight", or the time of the cut-off.
std::string EndOfDayCaption(int cutoffQuarters, ClockStyle clockStyle);

} // namespace tvx
