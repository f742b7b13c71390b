#include "editor/lanes/BarInHand.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr int Idle = 0;
constexpr int Stretching = 1;
constexpr int Moving = 2;

constexpr Twips GrabTolerance = 60;
constexpr Twips LaneTolerance = 100;

bool IsNear(Twips x, Twips end) {
    return x >= end - GrabTolerance && x <= end + GrabTolerance;
}

} // namespace

Twips SnapToQuarter(Twips value, Twips quarterWidth) {
    const Twips rest = value % quarterWidth;
    const Twips below = value - rest;
    return quarterWidth / 2 >= rest ? below : below + quarterWidth;
}

bool IsOnLane(Twips y, Twips rowTop) {
    return y >= rowTop + LaneTop - LaneTolerance && y <= rowTop + LaneBottom + LaneTolerance;
}

std::pair<Twips, Twips> BarInHand::Ends() const {
    const auto [left, right] = std::minmax(DayLeftBar, DayRightBar);
    return {left - ScrollX, right - ScrollX};
}

bool BarInHand::PickUp(const LaneBars& bars, Twips x, const BarLimits& limits) {
    DragBar = 0;
    DayLeftBar = DayRightBar = 0;
    LastMouseX = x;
    const Twips at = x + ScrollX;
    for (int b = 1; b <= bars.count; ++b) {
        if (b > limits.LastSlot) return false;
        const Twips start = bars.starts[b] * limits.QuarterWidth;
        const Twips stop = bars.stops[b] * limits.QuarterWidth;
        if (at < start - GrabTolerance || at > stop + GrabTolerance) continue;
        DragBar = b;
        DayLeftBar = start;
        DayRightBar = stop;
        break;
    }
    GestureOpen = true;
    return true;
}

std::optional<Pointer> BarInHand::Grasp(Twips x, bool onLane, bool mayMove, const BarLimits& limits) {
    const Twips at = x + ScrollX;
    if (DragBar == 0) {
        DayLeftBar = SnapToQuarter(at, limits.QuarterWidth);
        DayRightBar = at;
        return Stretch();
    }
    if (!onLane) return std::nullopt;
    if (mayMove && at > DayLeftBar + GrabTolerance && at < DayRightBar - GrabTolerance) {
        MouseState = Moving;
        return Pointer::SizeWestEast;
    }
    const bool left = IsNear(at, DayLeftBar);
    if (!left && !IsNear(at, DayRightBar)) return std::nullopt;
    if (left) std::swap(DayLeftBar, DayRightBar);
    return Stretch();
}

Pointer BarInHand::Stretch() {
    MouseState = Stretching;
    return Pointer::Cross;
}

void BarInHand::StretchTo(Twips x) {
    DayRightBar += x - LastMouseX;
    LastMouseX = x;
}

void BarInHand::MoveTo(Twips x) {
    DayLeftBar += x - LastMouseX;
    StretchTo(x);
}

void BarInHand::HoldAt(Twips& end, Twips x) {
    end = x + ScrollX;
    MouseState = Idle;
}

BarLetGo BarInHand::LetGo(const BarLimits& limits) {
    const Twips left = std::max(std::min(DayLeftBar, DayRightBar), limits.Low);
    const Twips right = std::min(std::max(DayLeftBar, DayRightBar), limits.High);
    BarLetGo bar{DragBar};
    if (right - left >= limits.QuarterWidth) {
        bar.start = SnapToQuarter(left, limits.QuarterWidth) / limits.QuarterWidth;
        bar.stop = SnapToQuarter(right, limits.QuarterWidth) / limits.QuarterWidth;
    }
    *this = {};
    return bar;
}

} // namespace tvx
