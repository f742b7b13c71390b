// Which form answers which request: the one place that knows the forms of every room.
#pragma once

#include "desktop/Screens.h"
#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

namespace tvx::qt {

/// All three must outlive every form that asks.
void RegisterScreens(Screens& screens, GlobalState& g, Ports& ports);

} // namespace tvx::qt
