#include "editor/lanes/DaytypeBox.h"

#include "editor/week/Refusal.h"
#include "platform/basic/Text.h"

namespace tvx {

DaytypeKey FilterDaytypeKey(int code) {
    constexpr int Backspace = 8;
    if (code >= 'a' && code <= 'z') code -= 32;
    if (code == 'W') return {0, DaytypeKey::Refusal::TooWide};
    const bool passes = code == Backspace || (code >= 48 && code <= 57) || (code >= 65 && code <= 122);
    return passes ? DaytypeKey{code} : DaytypeKey{0, DaytypeKey::Refusal::Silent};
}

DaytypeBox::DaytypeBox(Lanes& lanes, GlobalState& g)
    : lanes_(lanes), edit_(g), week_(g.week), rights_(g.rights) {}

bool DaytypeBox::IsDayOff(int row) const {
    const LaneDay lane = lanes_.At(row);
    return week_.DayOffFlag[lane.day][lane.employee];
}

DaytypeKey::Refusal DaytypeBox::MayType(int row) const {
    if (IsDayOff(row)) return DaytypeKey::Refusal::Silent;
    if (!rights_.SchedulingAllowed) return DaytypeKey::Refusal::NotPermitted;
    return DaytypeKey::Refusal::None;
}

const std::string& DaytypeBox::TextOf(int row) const {
    const LaneDay lane = lanes_.At(row);
    return week_.DayTypeText[lane.day][lane.employee];
}

WeekChange DaytypeBox::PutText(int row, const std::string& text) {
    if (text == TextOf(row)) return {};
    const LaneDay lane = lanes_.At(row);
    lanes_.MakeCurrent(lane);
    return edit_.SetDaytype(lane.employee, lane.day, text);
}

void TellDaytypeRefusal(Prompt& prompt, DaytypeKey::Refusal refusal) {
    if (refusal == DaytypeKey::Refusal::NotPermitted) TellSchedulingNotPermitted(prompt);
    if (refusal != DaytypeKey::Refusal::TooWide) return;
    prompt.Beep();
    prompt.MsgBox("The <W> cannot be used as a Daytype...", box::Exclamation, "Font for W is to wide.");
}

std::string DaytypeTooltip(const Daytypes& daytypes, const std::string& text) {
    const std::string symbol = Trim(text);
    for (int i = 1; !symbol.empty() && i <= daytypes.DayTypeCount; ++i)
        if (Trim(daytypes.DayTypeSymbols[i]) == symbol) return daytypes.DayTypeNames[i];
    return "Place for Daytype";
}

int NeighbourRow(const Grid& grid, int row, int direction) {
    const int next = row + direction;
    if (next < 1) return grid.VisibleRows;
    return next > grid.VisibleRows ? 1 : next;
}

} // namespace tvx
