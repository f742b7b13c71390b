// A bar in hand: how a press takes hold of it, how a drag stretches or moves it, and how it is let go. The
// time grids and the grid of absence stand on it, each with limits, bars and a way of keeping them of its
// own.
#pragma once

#include "platform/basic/Twips.h"
#include "platform/ports/Prompt.h"

#include <optional>
#include <span>
#include <utility>

namespace tvx {

constexpr Twips LaneTop = 50; // of a lane's white band inside its row
constexpr Twips LaneBottom = 170;

enum class MouseButton { None, Left, Right };

/// A mouse event on a grid.
struct GridMouse {
    MouseButton button = MouseButton::None; // pressed, held or released
    Twips x = 0;
    Twips y = 0;
    bool shift = false; // the key is held
};

/// The nearest multiple of a quarter's width; an exact half goes down.
Twips SnapToQuarter(Twips value, Twips quarterWidth);

/// True for a place on a lane, or up to 100 twips above or below it.
bool IsOnLane(Twips y, Twips rowTop);

/// What a grid allows to its bars.
struct BarLimits {
    Twips QuarterWidth = 0;
    int LastSlot = 0; // the last slot that the mouse can reach
    Twips Low = 0;    // where a bar can begin and end, counted from the beginning of its lane
    Twips High = 0;
};

/// The bars of a lane in quarters, stops exclusive.
struct LaneBars {
    int count = 0;
    std::span<const int> starts; // [slot 1..count]
    std::span<const int> stops;  // [slot 1..count]
};

/// What became of a bar: empty when both quarters are 0.
struct BarLetGo {
    int slot = 0; // it was taken from; 0 is a new one
    int start = 0;
    int stop = 0;
};

/// The bar stays in its slot until it is let go; this is a copy of it. Ends are twips from the beginning of
/// the lane, places of the mouse are twips on the grid.
struct BarInHand {
    int MouseState = 0; // 0 idle, 1 stretching an end, 2 moving the bar
    int DragBar = 0;    // slot of the bar; 0 is a new one
    Twips DayLeftBar = 0;
    Twips DayRightBar = 0;    // the end under the mouse while one is stretched; the two may cross
    Twips LastMouseX = 0;     // of the last mouse event
    Twips ScrollX = 0;        // place of the grid's left edge on the lane
    bool GestureOpen = false; // a bar waits for the release

    bool IsStretching() const { return MouseState == 1; }
    bool IsMoving() const { return MouseState == 2; }
    /// Both ends on the grid, left to right.
    std::pair<Twips, Twips> Ends() const;

    /// Takes the first bar that a press reaches, or a new one where there is none. False, with nothing in
    /// hand, when the search comes behind the last slot in reach.
    bool PickUp(const LaneBars& bars, Twips x, const BarLimits& limits);
    /// Decides by the place of the press what a drag will do, and gives the pointer that shows it; nothing
    /// for a bar that is only held. A place well inside a bar moves it, if that `mayMove` it.
    std::optional<Pointer> Grasp(Twips x, bool onLane, bool mayMove, const BarLimits& limits);
    /// Draws the end under the mouse along.
    void StretchTo(Twips x);
    /// Draws the whole bar along.
    void MoveTo(Twips x);
    /// An edge ends the drag, and holds one of the ends.
    void HoldAt(Twips& end, Twips x);
    /// Ends the gesture: brings the ends in order, within the limits and to whole quarters. Less than a
    /// quarter is nothing.
    BarLetGo LetGo(const BarLimits& limits);

  private:
    Pointer Stretch();
};

} // namespace tvx
