#include "editor/lanes/LineMenu.h"

#include "editor/week/Totals.h"

namespace tvx {
namespace {

Command ShiftEntry(const std::function<LineMenu()>& arranged, LineActions& actions, int index) {
    const auto place = static_cast<std::size_t>(index) - 1;
    Command entry{.name = "ShiftNaam(" + std::to_string(index) + ")", .parent = "PasteShift"};
    entry.run = [&actions, index] { actions.PasteStoredShift(index); };
    entry.shown = [arranged, place] { return place < arranged().ShiftNaam.size(); };
    entry.wording = [arranged, place] {
        const auto names = arranged().ShiftNaam;
        return place < names.size() ? WithoutMnemonic(names[place]) : "";
    };
    return entry;
}

bool BeginsOn(const Week& week, int e, const DayWindow& day) {
    for (int b = 1; b <= week.BarCount[e]; ++b)
        if (week.BarStarts[e][b] >= day.low && week.BarStarts[e][b] < day.high) return true;
    return false;
}

} // namespace

bool DayHasBar(const Week& week, const LaneDay& lane, int cutoffQuarters) {
    return BeginsOn(week, lane.employee, WindowOfDay(lane.day, cutoffQuarters));
}

LineMenu ArrangeLineMenu(const Week& week, const LaneDay& lane, int cutoffQuarters, const Shifts& shifts,
                         const LineClipboard& clipboard) {
    LineMenu menu;
    if (DayHasBar(week, lane, cutoffQuarters)) {
        menu.CutLine = menu.CopyLine = true;
        // A shift takes what begins between two midnights, and a night behind the last one is none.
        menu.AddToShift =
            shifts.ShiftCount < MostShiftsToAdd && BeginsOn(week, lane.employee, WindowOfDay(lane.day, 0));
        return menu;
    }
    menu.PasteLine = clipboard.ClipFull;
    menu.PasteShift = shifts.ShiftCount >= 1;
    for (int i = 1; menu.PasteShift && i <= shifts.ShiftCount; ++i)
        menu.ShiftNaam.push_back(shifts.ShiftNames[i]);
    return menu;
}

std::vector<Command> LineMenuCommands(const std::function<LineMenu()>& arranged,
                                      const std::function<bool()>& haveShifts, LineActions& actions) {
    const auto offers = [arranged](bool LineMenu::*entry) { return [=] { return arranged().*entry; }; };
    std::vector<Command> commands{
        {.name = "Popup"},
        {.name = "CutLine", .parent = "Popup", .caption = "&Cut", .offered = offers(&LineMenu::CutLine)},
        {.name = "CopyLine", .parent = "Popup", .caption = "C&opy", .offered = offers(&LineMenu::CopyLine)},
        {.name = "PasteLine",
         .parent = "Popup",
         .caption = "&Paste",
         .offered = offers(&LineMenu::PasteLine)},
        {.name = "LineOfShifts", .parent = "Popup", .separator = true},
        {.name = "AddToShift",
         .parent = "Popup",
         .caption = "&Add to standard Shifts",
         .run = [&actions] { actions.StoreShift(); },
         .offered = offers(&LineMenu::AddToShift),
         .shown = haveShifts},
        {.name = "PasteShift",
         .parent = "Popup",
         .caption = "Paste &Shift",
         .offered = offers(&LineMenu::PasteShift),
         .shown = haveShifts},
    };
    for (int i = 1; i <= MostShifts; ++i) commands.push_back(ShiftEntry(arranged, actions, i));
    return commands;
}

} // namespace tvx
