// Which form answers which request: the one place that knows the forms of every room.
#pragma once

#include "desktop/Screens.h"
#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

namespace tvx::qt {

/// State and ports must outlive the screens.
void RegisterScreens(Screens& screens, GlobalState& g, Ports& ports);

} // namespace tvx::qt
