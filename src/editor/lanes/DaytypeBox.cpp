#include "editor/lanes/DaytypeBox.h"

#include "editor/lanes/BarDrag.h"
#include "editor/lanes/GridView.h"
#include "editor/week/WeekEdit.h"
#include "platform/basic/Text.h"

namespace tvx {

DaytypeKey FilterDaytypeKey(int code) {
    constexpr int Backspace = 8;
    if (code >= 'a' && code <= 'z') code -= 32;
    if (code == 'W') return {0, DaytypeKey::Refusal::TooWide};
    const bool passes = code == Backspace || (code >= 48 && code <= 57) || (code >= 65 && code <= 122);
    return passes ? DaytypeKey{code} : DaytypeKey{0, DaytypeKey::Refusal::Silent};
}

DaytypeKey TypeDaytype(GlobalState& g, int row, int code) {
    const int e = EmployeeOfRow(g, row);
    if (g.week.DayOffFlag[g.cursor.CurrentDay][e]) return {0, DaytypeKey::Refusal::Silent};
    if (!g.rights.SchedulingAllowed) return {0, DaytypeKey::Refusal::NotPermitted};
    WeekEdit(g).Touch();
    return FilterDaytypeKey(code);
}

void TellDaytypeRefusal(Prompt& prompt, DaytypeKey::Refusal refusal) {
    if (refusal == DaytypeKey::Refusal::NotPermitted) TellSchedulingNotPermitted(prompt);
    if (refusal != DaytypeKey::Refusal::TooWide) return;
    prompt.Beep();
    prompt.MsgBox("The <W> cannot be used as a Daytype...", box::Exclamation, "Font for W is to wide.");
}

void TakeDaytype(GlobalState& g, int row, const std::string& text) {
    g.cursor.CurrentEmployee = EmployeeOfRow(g, row);
    WeekEdit(g).SetDaytype(g.cursor.CurrentEmployee, g.cursor.CurrentDay, text);
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
