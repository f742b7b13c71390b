// Editing bars with the mouse: the states, transitions and refusals of a gesture on the lanes of an editor,
// without a window. Positions are twips on the grid.
#pragma once

#include "editor/lanes/BarInHand.h"
#include "editor/lanes/Lanes.h"

#include <vector>

namespace tvx {

/// What an event has changed, for the window to show.
struct GridChange {
    bool notPermitted = false;  // scheduling is not allowed: the box is due
    std::vector<int> rows = {}; // lanes to be painted anew, as the bar in hand was or is on them
    WeekChange week = {};       // what became of the week when a bar was let go
    bool focusRow = false;      // the daytype box of the current row takes the focus
    bool lineMenu = false;      // the line menu is due
    bool pointer = false;       // the pointer takes `shape`
    Pointer shape = Pointer::Default;
    int hoverRow = 0;         // row under the idle mouse, from 1; 0 when none is
    bool markerMoved = false; // the ruler's marker shows, at `markerX`
    Twips markerX = 0;
    bool hideMarker = false;
};

/// A gesture may run over several events. Nothing of the week changes before its end, when the bar is let go
/// and goes through the week's door in one call; until then its slot keeps it.
class BarDrag {
  public:
    BarDrag(Lanes& lanes, GlobalState& g);

    /// A press: takes hold of a bar or of one of its ends, begins a new bar on an empty place, or asks for
    /// the line menu. Marks the week as changed unless it is refused. Ends a gesture before, as Settle does.
    GridChange Press(const GridMouse& mouse);
    /// A move, with the button that is held. A drag that reaches a day off or leaves the grid ends there; the
    /// release lets the bar go.
    GridChange Move(const GridMouse& mouse);
    /// A release: snaps the bar to quarters and puts it back among the others.
    GridChange Release(const GridMouse& mouse);
    /// Lets the bar go of a gesture whose release never came: the window lost the mouse, or a command is to
    /// run. No button counts as held then. Does nothing without a gesture, and forgets one that belongs to a
    /// week that has given way to another.
    GridChange Settle();
    /// Forgets a gesture. Its bar stays as it was.
    void Forget();

    const BarInHand& Hand() const { return hand_; }
    /// Whose bar is in hand, and the day of the lane of the press, wherever that lane is scrolled or sorted
    /// to meanwhile.
    const LaneDay& Lane() const { return lane_; }
    /// True for the slot whose bar is in hand.
    bool Holds(int employee, int slot) const;

  private:
    bool IsOutside(const GridMouse& mouse) const;
    bool IsOnDayOff(Twips x) const;
    bool IsDayOff(int daysOn) const { return week_.DayOffFlag[lane_.day + daysOn][lane_.employee]; }
    bool IsOfThisWeek() const;
    BarLimits Limits() const;
    GridChange PressLane(const GridMouse& mouse, GridChange change);
    GridChange PickUpBar(const GridMouse& mouse, GridChange change);
    GridChange Hover(const GridMouse& mouse) const;
    void Stretch(Twips x);
    void MoveWhole(Twips x);
    std::vector<int> RowsOfHand() const;

    Lanes& lanes_;
    WeekEdit edit_;
    const Week& week_;
    const Department& department_;
    const Rights& rights_;

    BarInHand hand_;
    LaneDay lane_;
    DaySerial weekOfHand_ = 0; // its first day
    int departmentOfHand_ = 0;
    bool IgnoreMouse = false; // after a refused press, until the next
    bool LeftDown = false;
};

} // namespace tvx
