#include "editor/lanes/BarDrag.h"

#include "editor/lanes/GridView.h"
#include "editor/week/Totals.h"
#include "editor/week/WeekEdit.h"

#include <algorithm>
#include <utility>

namespace tvx {
namespace {

constexpr int Idle = 0;
constexpr int Stretching = 1;
constexpr int Moving = 2;

constexpr Twips GrabTolerance = 60;

bool Near(Twips x, Twips end) {
    return x >= end - GrabTolerance && x <= end + GrabTolerance;
}

void SetPointer(GridChange& change, Pointer shape) {
    change.pointer = true;
    change.shape = shape;
}

} // namespace

bool BarDrag::IsOutside(const GridMouse& mouse) const {
    return mouse.y >= g_.grid.GridHeight || mouse.y <= 0 || mouse.x >= g_.grid.GridWidth || mouse.x <= 0 ||
           mouse.y / g_.grid.RowHeight + 1 > g_.grid.VisibleRows;
}

bool BarDrag::IsOnDayOff(Twips x) const {
    const int e = g_.cursor.CurrentEmployee;
    const int day = g_.cursor.CurrentDay;
    const Twips boundary = DayBoundaryX(g_.grid);
    if (g_.department.DayCutoffQuarters == 0) return g_.week.DayOffFlag[day][e];
    return (g_.week.DayOffFlag[day][e] && x < boundary) || (g_.week.DayOffFlag[day + 1][e] && x > boundary);
}

/// The lane with 100 twips above and below it.
bool BarDrag::InBand(Twips y) const {
    const Twips top = TopOfRow(g_.grid, g_.cursor.CurrentRow);
    return y >= top + LaneTop - 100 && y <= top + LaneBottom + 100;
}

GridChange BarDrag::Press(const GridMouse& mouse) {
    GridChange change;
    if (mouse.button == MouseButton::Right && g_.drag.LeftDown) return change;
    Settle();
    if (mouse.button == MouseButton::Left) g_.drag.LeftDown = true;
    g_.drag.IgnoreMouse = true; // until nothing refuses the press: a release after a refusal commits nothing
    if (!g_.rights.SchedulingAllowed) {
        change.notPermitted = true;
        return change;
    }
    if (IsOutside(mouse)) return change;
    change.hideMarker = true;
    if (mouse.button == MouseButton::Right && g_.drag.MouseState == Moving) return change;
    if (g_.drag.EditBusy) return change;
    WeekEdit(g_).Touch();
    g_.cursor.CurrentRow = mouse.y / g_.grid.RowHeight + 1;
    g_.cursor.CurrentEmployee = EmployeeOfRow(g_, g_.cursor.CurrentRow);
    if (IsOnDayOff(mouse.x)) return change;
    g_.drag.IgnoreMouse = false;
    change.focusRow = !g_.roster.AllDepartmentsMode;
    if (mouse.button == MouseButton::Right) {
        change.lineMenu = true;
        return change;
    }
    return PressLeft(mouse, change);
}

/// Takes hold of the first bar within reach of a week x; it stays in its slot while the drag values move.
/// False when the search has come to the last slot that the mouse can reach.
bool BarDrag::TakeBar(Twips weekX) {
    const Week& week = g_.week;
    const int e = g_.drag.DragEmployee;
    const Twips width = g_.grid.QuarterWidth;
    g_.drag.DragBar = 0;
    for (int b = 1; b <= week.BarCount[e]; ++b) {
        if (b > MostBarsByMouse) return false;
        const Twips start = week.BarStarts[e][b] * width;
        const Twips stop = week.BarStops[e][b] * width;
        if (weekX < start - GrabTolerance || weekX > stop + GrabTolerance) continue;
        Left() = start;
        Right() = stop;
        g_.drag.DragBar = b;
        return true;
    }
    return true;
}

GridChange BarDrag::PressLeft(const GridMouse& mouse, GridChange change) {
    const Twips weekX = mouse.x + g_.grid.ScrollX;
    g_.drag.DragEmployee = g_.cursor.CurrentEmployee;
    Left() = Right() = 0;
    if (!TakeBar(weekX)) {
        g_.drag.IgnoreMouse = true;
        return change;
    }
    g_.drag.GestureOpen = true;
    change.ghost = true;
    g_.drag.LastMouseX = mouse.x;
    if (Left() == Right()) {
        g_.drag.MouseState = Stretching;
        SetPointer(change, Pointer::Cross);
        Left() = SnapToQuarter(weekX, g_.grid.QuarterWidth);
        Right() = weekX;
        return change;
    }
    if (!InBand(mouse.y)) return change;
    const bool inside = weekX > Left() + GrabTolerance && weekX < Right() - GrabTolerance;
    if (inside && mouse.button == MouseButton::Left) {
        g_.drag.MouseState = Moving;
        SetPointer(change, Pointer::SizeWestEast);
    } else if (Near(weekX, Left()) || Near(weekX, Right())) {
        // The end under the mouse is always the right one; the two may cross.
        if (Near(weekX, Left())) std::swap(Left(), Right());
        g_.drag.MouseState = Stretching;
        SetPointer(change, Pointer::Cross);
    }
    return change;
}

GridChange BarDrag::Hover(const GridMouse& mouse) const {
    GridChange change;
    const int row = mouse.y / g_.grid.RowHeight + 1;
    if (mouse.y >= 0 && row <= g_.grid.VisibleRows) change.hoverRow = row;
    if (g_.drag.MouseState == Idle) {
        change.markerMoved = true;
        change.markerX = mouse.x;
    }
    return change;
}

GridChange BarDrag::Move(const GridMouse& mouse) {
    GridChange change;
    if (g_.drag.IgnoreMouse && mouse.button != MouseButton::None) return change;
    if (mouse.button == MouseButton::None) return Hover(mouse);
    if (g_.drag.MouseState == Idle) return change;
    ReturnToRow();
    if (g_.drag.MouseState == Stretching) {
        if (mouse.button != MouseButton::Left || mouse.x == g_.drag.LastMouseX) return change;
        if (mouse.x > g_.drag.LastMouseX)
            StretchRight(mouse.x);
        else
            StretchLeft(mouse.x);
    } else {
        MoveWhole(mouse.x);
    }
    g_.drag.LastMouseX = mouse.x;
    change.ghost = true;
    if (g_.drag.MouseState == Idle) SetPointer(change, Pointer::Default);
    return change;
}

/// Other rows may have had the focus, and the rows may have moved, since the press.
void BarDrag::ReturnToRow() {
    g_.cursor.CurrentEmployee = g_.drag.DragEmployee;
    if (const int row = RowOfEmployee(g_, g_.drag.DragEmployee); row != 0) g_.cursor.CurrentRow = row;
}

/// A limit ends the drag with one end held there.
void BarDrag::EndDragAt(Twips& end, Twips gridX) {
    end = gridX + g_.grid.ScrollX;
    g_.drag.MouseState = Idle;
}

void BarDrag::StretchRight(Twips x) {
    const Twips boundary = DayBoundaryX(g_.grid);
    Right() += x - g_.drag.LastMouseX;
    if (x > g_.grid.GridWidth) EndDragAt(Right(), g_.grid.GridWidth);
    if (g_.week.DayOffFlag[g_.cursor.CurrentDay + 1][g_.drag.DragEmployee] && x >= boundary)
        EndDragAt(Right(), boundary);
}

void BarDrag::StretchLeft(Twips x) {
    const Twips boundary = DayBoundaryX(g_.grid);
    Right() -= g_.drag.LastMouseX - x;
    if (x < 0) EndDragAt(Right(), 0);
    if (g_.week.DayOffFlag[g_.cursor.CurrentDay][g_.drag.DragEmployee] && x < boundary)
        EndDragAt(Right(), boundary);
}

void BarDrag::MoveWhole(Twips x) {
    const Twips boundary = DayBoundaryX(g_.grid);
    const Twips travelled = x - g_.drag.LastMouseX;
    const Twips length = Right() - Left();
    const int e = g_.drag.DragEmployee;
    Left() += travelled;
    Right() += travelled;
    // A jump that carries the whole bar over the edge leaves it whole before the edge.
    if (travelled < 0) {
        if (!g_.week.DayOffFlag[g_.cursor.CurrentDay][e] || Left() - g_.grid.ScrollX >= boundary) return;
        EndDragAt(Left(), boundary);
        if (Right() <= Left()) Right() = Left() + length;
    } else {
        if (!g_.week.DayOffFlag[g_.cursor.CurrentDay + 1][e] || Right() - g_.grid.ScrollX <= boundary) return;
        EndDragAt(Right(), boundary);
        if (Left() >= Right()) Left() = Right() - length;
    }
}

GridChange BarDrag::Release(const GridMouse& mouse) {
    GridChange change;
    if (mouse.button == MouseButton::Left && g_.drag.IgnoreMouse) g_.drag.LeftDown = false;
    if (g_.drag.IgnoreMouse) return change;
    change.showMarker = true;
    if (mouse.button == MouseButton::Right || !g_.drag.GestureOpen) return change;
    SetPointer(change, Pointer::Default);
    change.totals = Commit();
    change.lane = true;
    change.focusRow = !g_.roster.AllDepartmentsMode;
    return change;
}

bool BarDrag::Settle() {
    g_.drag.LeftDown = false;
    if (!g_.drag.GestureOpen) return false;
    Commit();
    return true;
}

/// Lets the bar in hand give way to the drag values. True when a figure changed.
bool BarDrag::Commit() {
    const Twips width = g_.grid.QuarterWidth;
    ReturnToRow();
    if (Left() > Right()) std::swap(Left(), Right());
    Left() = std::max(Left(), g_.department.DayCutoffQuarters * width);
    Right() = std::min(Right(), g_.grid.WeekTwips);
    if (Right() - Left() < width) Left() = Right() = 0;
    const WeekBar drawn{SnapToQuarter(Left(), width) / width, SnapToQuarter(Right(), width) / width};
    const WeekChange change = WeekEdit(g_).ReplaceBar(g_.drag.DragEmployee, g_.drag.DragBar, drawn);
    g_.drag = {};
    g_.drag.IgnoreMouse = true; // nothing more belongs to this gesture
    return change.figures;
}

void TellSchedulingNotPermitted(Prompt& prompt) {
    prompt.MsgBox("Your authorization does not allow scheduling changes", box::Exclamation,
                  "Scheduling not permitted");
}

bool DayHasBar(const GlobalState& g, int e) {
    const DayWindow day = WindowOfDay(g.cursor.CurrentDay, g.department.DayCutoffQuarters);
    for (int b = 1; b <= g.week.BarCount[e]; ++b)
        if (g.week.BarStarts[e][b] >= day.low && g.week.BarStarts[e][b] < day.high) return true;
    return false;
}

LineMenu ArrangeLineMenu(const GlobalState& g) {
    LineMenu menu;
    if (DayHasBar(g, g.cursor.CurrentEmployee)) {
        menu.CutLine = menu.CopyLine = true;
        menu.AddToShift = g.shifts.ShiftCount < MostShiftsToAdd;
        return menu;
    }
    menu.PasteLine = g.clipboard.ClipFull;
    menu.PasteShift = g.shifts.ShiftCount >= 1;
    for (int i = 1; menu.PasteShift && i <= g.shifts.ShiftCount; ++i)
        menu.ShiftNaam.push_back(g.shifts.ShiftNames[i]);
    return menu;
}

} // namespace tvx
