#include "editor/lanes/LaneView.h"

#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "shell/common/Conversions.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr Twips DayOffShadeHeight = 215;
constexpr int CutoffWithRoomForText = 6; // quarters; a narrower part of the next day shows no word

} // namespace

LaneView::LaneView(const Lanes& lanes, const BarDrag& drag, const GlobalState& g)
    : lanes_(lanes), drag_(drag), week_(g.week), roster_(g.roster), department_(g.department),
      options_(g.application.options) {}

Twips LaneView::XOf(const LaneDay& lane, WeekQuarter quarter) const {
    return quarter * lanes_.Geometry().QuarterWidth - lanes_.ScrollX(lane.day);
}

std::string LaneView::ClockText(int dayQuarter) const {
    return Trim(QuarterToClockText(dayQuarter, options_.ClockStyle));
}

void LaneView::DrawRow(int row, Drawing& drawing) const {
    const Grid& grid = lanes_.Geometry();
    const Twips top = lanes_.TopOf(row);
    FillOnGrid(drawing, grid, {0, top + LaneTop, grid.GridWidth, top + LaneBottom}, QBColor(15));
    DrawBars(row, drawing);
    DrawDaysOff(row, drawing);
}

void LaneView::DrawBars(int row, Drawing& drawing) const {
    const LaneDay lane = lanes_.At(row);
    const Twips top = lanes_.TopOf(row);
    const Colour colour = QBColor(roster_.RosterBarColor[lane.employee]);
    for (int b = 1; b <= MostBarsRead; ++b) {
        const Twips left = XOf(lane, week_.BarStarts[lane.employee][b]);
        const Twips right = XOf(lane, week_.BarStops[lane.employee][b]);
        if (left == right) return;
        if (!drag_.Holds(lane.employee, b))
            FillOnGrid(drawing, lanes_.Geometry(), {left, top + LaneTop, right, top + LaneBottom}, colour);
    }
}

void LaneView::DrawDaysOff(int row, Drawing& drawing) const {
    const Grid& grid = lanes_.Geometry();
    const LaneDay lane = lanes_.At(row);
    const Twips top = lanes_.TopOf(row);
    const Twips boundary = DayBoundaryX(lanes_.Geometry());
    const auto shade = [&](Twips from, Twips to) {
        FillOnGrid(drawing, grid, {from, top, to, top + DayOffShadeHeight}, DayOffShade);
    };
    const auto word = [&](Twips middle) {
        if (middle < grid.GridWidth)
            drawing.texts.push_back({middle, top, department_.DayOffNameSingle, QBColor(0)});
    };
    if (week_.DayOffFlag[lane.day][lane.employee]) {
        shade(0, boundary);
        word((QuartersPerDay - grid.FirstQuarter) * grid.QuarterWidth / 2);
    }
    if (week_.DayOffFlag[lane.day + 1][lane.employee]) {
        shade(boundary, QuartersPerDay * grid.QuarterWidth);
        if (department_.DayCutoffQuarters > CutoffWithRoomForText)
            word((2 * QuartersPerDay - grid.FirstQuarter) * grid.QuarterWidth / 2);
    }
}

std::optional<DrawnBox> LaneView::DrawDragBar(int row) const {
    const BarInHand& hand = drag_.Hand();
    const LaneDay lane = lanes_.At(row);
    if (!hand.GestureOpen || lane.employee != drag_.Lane().employee) return std::nullopt;
    const auto [left, right] = std::minmax(hand.DayLeftBar, hand.DayRightBar);
    const auto onGrid = [&](Twips x) {
        return std::clamp(x - lanes_.ScrollX(lane.day), 0, lanes_.Geometry().GridWidth);
    };
    if (onGrid(left) >= onGrid(right)) return std::nullopt;
    const Twips top = lanes_.TopOf(row);
    return DrawnBox{{onGrid(left), top + LaneTop, onGrid(right), top + LaneBottom},
                    QBColor(roster_.RosterBarColor[lane.employee])};
}

std::string LaneView::DragTimeText() const {
    const BarInHand& hand = drag_.Hand();
    if (hand.DayLeftBar == hand.DayRightBar) return "";
    const auto [left, right] = std::minmax(hand.DayLeftBar, hand.DayRightBar);
    const auto clock = [&](Twips x) {
        const Twips width = lanes_.Geometry().QuarterWidth;
        return ClockText(std::max(0, SnapToQuarter(x, width) / width) % QuartersPerDay);
    };
    return clock(left) + " - " + clock(right);
}

std::string LaneView::SpokenRow(int row) const {
    if (row < 1 || row > lanes_.Count()) return "";
    const auto [e, day] = lanes_.At(row);
    const DayWindow window = WindowOfDay(day, department_.DayCutoffQuarters);
    const auto clock = [&](WeekQuarter quarter) { return ClockText(quarter % QuartersPerDay); };
    std::string text = roster_.RosterName1[e] + " " + roster_.RosterName2[e] + ":";
    for (int b = 1; b <= week_.BarCount[e]; ++b) {
        if (week_.BarStops[e][b] <= window.low || week_.BarStarts[e][b] >= window.high) continue;
        text += " " + clock(week_.BarStarts[e][b]) + " - " + clock(week_.BarStops[e][b]);
    }
    if (week_.DayOffFlag[day][e]) text += " " + department_.DayOffNameSingle;
    return text;
}

void LaneView::DrawAvailability(int row, Drawing& drawing) const {
    const Grid& grid = lanes_.Geometry();
    const auto [e, day] = lanes_.At(row);
    if (!grid.AvailabilityShown || week_.DayOffFlag[day][e]) return;
    const int offset = (Weekday(week_.WeekStartJulian + day - 1) - 1) * QuartersPerDay + grid.FirstQuarter;
    const Twips top = lanes_.TopOf(row);
    for (int slot = 1; slot <= std::min(roster_.AvailabilityCount[e], AvailabilitySlots); ++slot) {
        if (roster_.AvailabilityStops[e][slot] == 0) continue; // left behind by a join
        const Twips from = (roster_.AvailabilityStarts[e][slot] - offset) * grid.QuarterWidth;
        const Twips to = (roster_.AvailabilityStops[e][slot] - offset) * grid.QuarterWidth;
        FillOnGrid(drawing, grid, {from, top + 10, to, top + 30}, Red);
        FillOnGrid(drawing, grid, {from, top + 180, to, top + 200}, Red);
    }
}

} // namespace tvx
