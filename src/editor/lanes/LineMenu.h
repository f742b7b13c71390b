// The menu of the right button on a lane: what of it the lane's day offers.
#pragma once

#include "editor/lanes/Lanes.h"
#include "platform/ports/Commands.h"

#include <functional>
#include <string>
#include <vector>

namespace tvx {

/// What the line menu of a lane offers.
struct LineMenu {
    bool CutLine = false;
    bool CopyLine = false;
    bool PasteLine = false;
    bool AddToShift = false;
    bool PasteShift = false;
    std::vector<std::string> ShiftNaam; // the stored shifts to paste, when PasteShift is on

    friend bool operator==(const LineMenu&, const LineMenu&) = default;
};
LineMenu ArrangeLineMenu(const Week& week, const LaneDay& lane, int cutoffQuarters, const Shifts& shifts,
                         const LineClipboard& clipboard);

/// True when a bar of the employee starts on the business day of the lane.
bool DayHasBar(const Week& week, const LaneDay& lane, int cutoffQuarters);

/// What the entries of the line menu do; the editor's form does it.
class LineActions {
  public:
    virtual ~LineActions() = default;
    /// Keeps the day as a stored shift.
    virtual void StoreShift() = 0;
    /// Puts a stored shift, from 1, on the day.
    virtual void PasteStoredShift(int index) = 0;
};

/// The menu `Popup` and its entries. `arranged` is asked anew whenever the menu opens, and so is
/// `haveShifts`, whether the lanes have to do with stored shifts; `actions` must outlive the commands.
std::vector<Command> LineMenuCommands(const std::function<LineMenu()>& arranged,
                                      const std::function<bool()>& haveShifts, LineActions& actions);

} // namespace tvx
