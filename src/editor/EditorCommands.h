// The commands of the Main Editor: its menus, its tool strip and the menu of a lane.
#pragma once

#include "editor/lanes/LineMenu.h"
#include "platform/ports/Commands.h"
#include "shell/state/ScheduleKind.h"
#include "shell/state/TVXGLOB.h"

namespace tvx {

/// What the commands do; the editor's form does it.
class EditorActions : public LineActions {
  public:
    virtual void Save() = 0;
    /// -1 the week before, 1 the week behind.
    virtual void GoToWeek(int direction) = 0;
    virtual void LeaveEditor() = 0;
    virtual void PickDaytype() = 0;
    virtual void PickShift() = 0;
    virtual void OpenSchedules(ScheduleKind kind) = 0;
    virtual void TellHowToSeeOneWeek() = 0;
    virtual void ShowTotalsBox() = 0;
    virtual void ToggleAvailability() = 0;
    virtual void ToggleHeadcount() = 0;
    virtual void ShowHelp(int topic) = 0;
};

/// All commands of the editor of a grid, below `MenuBar`, `ToolStrip` and `Popup`. What makes no sense while
/// all departments are shown is hidden then; what changes a schedule is closed to a person who may not. The
/// arguments must outlive the table.
CommandTable EditorCommands(const GlobalState& g, const Grid& grid, EditorActions& actions);

} // namespace tvx
