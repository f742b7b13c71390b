// The menu bar of the Main Editor and what of it can be chosen.
#pragma once

#include "platform/ports/MenuBar.h"
#include "shell/state/TVXGLOB.h"

namespace tvx {

/// The menus with the department's words. What makes no sense while all departments are shown is hidden then.
MenuBar EditorMenus(const GlobalState& g);

/// Brings the entries that depend on the week and on the rights up to date: the menu of copying a day, and
/// what is closed to a person who may not schedule.
void UpdateEditorMenus(const GlobalState& g, MenuBar& menus);

} // namespace tvx
