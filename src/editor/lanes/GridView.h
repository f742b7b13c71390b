// The time grid as geometry: where everything lies, in twips, before any window paints it.
#pragma once

#include "editor/lanes/BarInHand.h"
#include "platform/basic/Palette.h"
#include "platform/ports/Region.h"
#include "shell/state/TVXGLOB.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

constexpr Twips GridTop = 845; // of the grid on its form
constexpr Twips RulerHeight = 600;

/// Sets the geometry of the grid from the size of the screen, the roster and the department, and scrolls it
/// to its first page. Needs the roster.
void SetGridGeometry(GlobalState& g);

/// Week x of the grid's left edge, from `CurrentDay` and `FirstQuarter`.
void UpdateScrollX(GlobalState& g);

/// Takes a value of the horizontal scroll bar: it moves in whole hours from the cut-off, and any other value
/// falls back to the cut-off itself. Returns the value taken.
int ScrollToQuarter(GlobalState& g, int value);

/// Grid x of a week quarter.
Twips XOfQuarter(const Grid& grid, WeekQuarter quarter);
/// Grid x of the next midnight after the left edge.
Twips DayBoundaryX(const Grid& grid);
/// Top of a row, from 1.
Twips TopOfRow(const Grid& grid, int row);
/// The employee that a visible row shows.
int EmployeeOfRow(const GlobalState& g, int row);
/// The visible row that shows an employee; 0 when none does.
int RowOfEmployee(const GlobalState& g, int employee);

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

/// The lane of a visible row: the white band, the bars, the shade of days off. `drawing` is added to.
void DrawRow(const GlobalState& g, int row, Drawing& drawing);

/// The bar that is being drawn, as it stands under the mouse, on the row of its employee; nothing when there
/// is none, or when that row is not visible.
std::optional<DrawnBox> DrawDragBar(const GlobalState& g);
/// "9:00am -  5:00pm" of the bar that is being drawn, snapped to quarters.
std::string DragTimeText(const GlobalState& g);

/// Hours of absence of a visible row, above and below its lane; nothing while they are not shown, or on a day
/// off.
void DrawAvailability(const GlobalState& g, int row, Drawing& drawing);

/// Measures a text, in twips.
using TextWidth = std::function<Twips(const std::string&)>;

/// The ruler: its band, the hours' texts, and the ticks. Where hours are narrower than their texts, only
/// every second, third, fourth or sixth is written.
void DrawHourRuler(const GlobalState& g, const TextWidth& widthOf, Drawing& drawing);
void DrawTickMarks(const GlobalState& g, Drawing& drawing);
/// The band of the headcount under the hours; nothing while it is not shown. `widthOf` measures a text in the
/// band's font, in twips: a figure that would stand out at the right is left away.
void ShowHeadcount(const GlobalState& g, const std::function<Twips(const std::string&)>& widthOf,
                   Drawing& drawing);

/// Captions of the jumps to both ends of the day: "Midnight", or the time of the cut-off.
std::string EndOfDayCaption(const GlobalState& g);

/// One column of the day header.
struct HeaderColumn {
    std::string weekday;
    std::string date;
    std::string weekNumber; // "" when none is shown
    bool selected = false;
    bool memo = false;

    friend bool operator==(const HeaderColumn&, const HeaderColumn&) = default;
};

/// The seven columns. `wide` columns have room for the longer date.
std::array<HeaderColumn, 8> DayHeader(const GlobalState& g, const Region& region, bool wide); // [1..7]
/// The title of the editor's window.
std::string EditorTitle(const GlobalState& g);

} // namespace tvx
