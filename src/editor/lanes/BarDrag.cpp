#include "editor/lanes/BarDrag.h"

#include "editor/lanes/GridView.h"

#include <algorithm>

namespace tvx {
namespace {

void SetPointer(GridChange& change, Pointer shape) {
    change.pointer = true;
    change.shape = shape;
}

void AddRows(GridChange& change, const std::vector<int>& rows) {
    for (const int row : rows)
        if (std::find(change.rows.begin(), change.rows.end(), row) == change.rows.end())
            change.rows.push_back(row);
}

} // namespace

BarDrag::BarDrag(Lanes& lanes, GlobalState& g)
    : lanes_(lanes), edit_(g), week_(g.week), department_(g.department), rights_(g.rights) {}

bool BarDrag::Holds(int employee, int slot) const {
    return hand_.GestureOpen && lane_.employee == employee && hand_.DragBar == slot;
}

bool BarDrag::IsOutside(const GridMouse& mouse) const {
    const Grid& grid = lanes_.Geometry();
    return mouse.y >= grid.GridHeight || mouse.y <= 0 || mouse.x >= grid.GridWidth || mouse.x <= 0 ||
           lanes_.RowAt(mouse.y) == 0;
}

bool BarDrag::IsOnDayOff(Twips x) const {
    if (department_.DayCutoffQuarters == 0) return IsDayOff(0);
    const Twips boundary = DayBoundaryX(lanes_.Geometry());
    return (IsDayOff(0) && x < boundary) || (IsDayOff(1) && x > boundary);
}

BarLimits BarDrag::Limits() const {
    const Grid& grid = lanes_.Geometry();
    return {grid.QuarterWidth, MostBarsByMouse, department_.DayCutoffQuarters * grid.QuarterWidth,
            grid.WeekTwips};
}

GridChange BarDrag::Press(const GridMouse& mouse) {
    if (mouse.button == MouseButton::Right && LeftDown) return {};
    GridChange change = Settle();
    LeftDown = mouse.button == MouseButton::Left;
    IgnoreMouse = true; // until nothing refuses the press: a release after a refusal lets no bar go
    change.notPermitted = !rights_.SchedulingAllowed;
    if (change.notPermitted || IsOutside(mouse)) return change;
    change.hideMarker = true;
    edit_.Touch();
    lanes_.MakeCurrent(lanes_.At(lanes_.RowAt(mouse.y)));
    return PressLane(mouse, std::move(change));
}

GridChange BarDrag::PressLane(const GridMouse& mouse, GridChange change) {
    lane_ = lanes_.At(lanes_.RowAt(mouse.y));
    if (IsOnDayOff(mouse.x)) return change;
    IgnoreMouse = false;
    change.focusRow = lanes_.HaveDaytypes();
    change.lineMenu = mouse.button == MouseButton::Right;
    return change.lineMenu ? change : PickUpBar(mouse, std::move(change));
}

GridChange BarDrag::PickUpBar(const GridMouse& mouse, GridChange change) {
    const int e = lane_.employee;
    const BarLimits limits = Limits();
    hand_.ScrollX = lanes_.ScrollX(lane_.day);
    weekOfHand_ = week_.WeekStartJulian;
    departmentOfHand_ = week_.LoadedDepNumber;
    IgnoreMouse = !hand_.PickUp({week_.BarCount[e], week_.BarStarts[e], week_.BarStops[e]}, mouse.x, limits);
    if (IgnoreMouse) return change;
    const Twips top = lanes_.TopOf(lanes_.RowAt(mouse.y));
    const bool mayMove = mouse.button == MouseButton::Left;
    if (const auto shape = hand_.Grasp(mouse.x, IsOnLane(mouse.y, top), mayMove, limits))
        SetPointer(change, *shape);
    AddRows(change, RowsOfHand());
    return change;
}

std::vector<int> BarDrag::RowsOfHand() const {
    const auto [left, right] = std::minmax(hand_.DayLeftBar, hand_.DayRightBar);
    return lanes_.RowsTouched(lane_.employee, left, right);
}

GridChange BarDrag::Hover(const GridMouse& mouse) const {
    GridChange change;
    change.hoverRow = lanes_.RowAt(mouse.y);
    change.markerMoved = hand_.MouseState == 0;
    if (change.markerMoved) change.markerX = mouse.x;
    return change;
}

GridChange BarDrag::Move(const GridMouse& mouse) {
    if (mouse.button == MouseButton::None) return Hover(mouse);
    if (IgnoreMouse || hand_.MouseState == 0) return {};
    lanes_.MakeCurrent(lane_); // other rows may have had the focus, and the rows may have moved
    const bool stretching = hand_.IsStretching();
    if (stretching && (mouse.button != MouseButton::Left || mouse.x == hand_.LastMouseX)) return {};
    GridChange change;
    AddRows(change, RowsOfHand());
    if (stretching)
        Stretch(mouse.x);
    else
        MoveWhole(mouse.x);
    AddRows(change, RowsOfHand());
    if (hand_.MouseState == 0) SetPointer(change, Pointer::Default);
    return change;
}

/// The edge of the grid, or the midnight before a day off, holds the end under the mouse.
void BarDrag::Stretch(Twips x) {
    const bool rightwards = x > hand_.LastMouseX;
    const Twips width = lanes_.Geometry().GridWidth;
    const Twips boundary = DayBoundaryX(lanes_.Geometry());
    const auto hold = [&](Twips edge) { hand_.HoldAt(hand_.DayRightBar, edge); };
    hand_.StretchTo(x);
    if (rightwards && x > width) hold(width);
    if (rightwards && IsDayOff(1) && x >= boundary) hold(boundary);
    if (!rightwards && x < 0) hold(0);
    if (!rightwards && IsDayOff(0) && x < boundary) hold(boundary);
}

/// A day off holds the end that reaches it. A jump that carries the whole bar over the edge leaves it whole
/// before the edge.
void BarDrag::MoveWhole(Twips x) {
    const Twips boundary = DayBoundaryX(lanes_.Geometry());
    const Twips length = hand_.DayRightBar - hand_.DayLeftBar;
    const bool leftwards = x < hand_.LastMouseX;
    hand_.MoveTo(x);
    const auto [left, right] = hand_.Ends();
    if (leftwards && IsDayOff(0) && left < boundary) {
        hand_.HoldAt(hand_.DayLeftBar, boundary);
        if (right <= boundary) hand_.DayRightBar = hand_.DayLeftBar + length;
    } else if (!leftwards && IsDayOff(1) && right > boundary) {
        hand_.HoldAt(hand_.DayRightBar, boundary);
        if (left >= boundary) hand_.DayLeftBar = hand_.DayRightBar - length;
    }
}

GridChange BarDrag::Release(const GridMouse& mouse) {
    if (mouse.button == MouseButton::Left && IgnoreMouse) LeftDown = false;
    if (IgnoreMouse) return {};
    GridChange change;
    if (mouse.button != MouseButton::Right && hand_.GestureOpen) {
        change = Settle();
        change.focusRow = lanes_.HaveDaytypes();
    }
    change.markerMoved = true; // it was hidden since the press
    change.markerX = mouse.x;
    return change;
}

GridChange BarDrag::Settle() {
    LeftDown = false;
    GridChange change;
    if (!IsOfThisWeek()) Forget();
    if (!hand_.GestureOpen) return change;
    lanes_.MakeCurrent(lane_);
    AddRows(change, RowsOfHand());
    const BarLetGo bar = hand_.LetGo(Limits());
    IgnoreMouse = true; // nothing more belongs to this gesture
    change.week = edit_.ReplaceBar(lane_.employee, bar.slot, {bar.start, bar.stop});
    SetPointer(change, Pointer::Default);
    return change;
}

bool BarDrag::IsOfThisWeek() const {
    return !hand_.GestureOpen || (week_.IsLoaded && week_.WeekStartJulian == weekOfHand_ &&
                                  week_.LoadedDepNumber == departmentOfHand_);
}

void BarDrag::Forget() {
    hand_ = {};
    IgnoreMouse = true;
    LeftDown = false;
}

} // namespace tvx
