// Editing bars with the mouse: the states, transitions and refusals of a gesture on the grid, without a
// window. Positions are twips on the grid.
#pragma once

#include "editor/lanes/BarInHand.h"
#include "shell/state/TVXGLOB.h"

namespace tvx {

/// What an event has changed, for the window to show.
struct GridChange {
    bool notPermitted = false; // scheduling is not allowed: the box is due
    bool lane = false;         // the lane of CurrentRow must be painted anew
    bool ghost = false;        // only the bar under the mouse has moved
    bool totals = false;       // the row's value, the sums and the labor figures have changed
    bool focusRow = false;     // the row's daytype box takes the focus
    bool lineMenu = false;     // the line menu is due
    bool pointer = false;      // the pointer takes `shape`
    Pointer shape = Pointer::Default;
    int hoverRow = 0;         // row under the idle mouse, from 1; 0 when none is
    bool markerMoved = false; // the ruler's marker stands at `markerX`
    Twips markerX = 0;
    bool hideMarker = false;
    bool showMarker = false;
};

/// A gesture may run over several events; its state stands in `GlobalState::drag`.
class BarDrag {
  public:
    explicit BarDrag(GlobalState& g) : g_(g) {}

    /// A press: takes hold of a bar or of one of its ends, begins a new bar on an empty place, or asks for
    /// the line menu. The bar taken stays in its slot until the release.
    GridChange Press(const GridMouse& mouse);
    /// A move, with the button that is held. A drag that reaches a day off or leaves the grid ends there; the
    /// release commits it.
    GridChange Move(const GridMouse& mouse);
    /// A release: snaps to quarters, merges the bars and corrects the sums by the difference.
    GridChange Release(const GridMouse& mouse);
    /// Commits a gesture whose release never came: the window lost the mouse, or a command is to run. No
    /// button counts as held then. True when there was a gesture.
    bool Settle();

  private:
    bool IsOutside(const GridMouse& mouse) const;
    bool IsOnDayOff(Twips x) const;
    bool InBand(Twips y) const;
    bool TakeBar(Twips weekX);
    GridChange PressLeft(const GridMouse& mouse, GridChange change);
    GridChange Hover(const GridMouse& mouse) const;
    void StretchRight(Twips x);
    void StretchLeft(Twips x);
    void MoveWhole(Twips x);
    void EndDragAt(Twips& end, Twips gridX);
    void ReturnToRow();
    bool Commit();

    Twips& Left() { return g_.drag.DayLeftBar; }
    Twips& Right() { return g_.drag.DayRightBar; }

    GlobalState& g_;
};

/// The message for who may not change schedules.
void TellSchedulingNotPermitted(Prompt& prompt);

/// What the line menu of the row in focus offers.
struct LineMenu {
    bool CutLine = false;
    bool CopyLine = false;
    bool PasteLine = false;
    bool AddToShift = false;
    bool PasteShift = false;
    std::vector<std::string> ShiftNaam; // the stored shifts to paste, when PasteShift is on

    friend bool operator==(const LineMenu&, const LineMenu&) = default;
};
LineMenu ArrangeLineMenu(const GlobalState& g);

/// True when a bar of the employee starts on the business day shown.
bool DayHasBar(const GlobalState& g, int employee);

} // namespace tvx
