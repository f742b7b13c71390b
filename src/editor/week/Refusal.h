// The box for who may not change schedules.
#pragma once

#include "platform/ports/Prompt.h"

namespace tvx {

/// The message for who may not change schedules.
void TellSchedulingNotPermitted(Prompt& prompt);

} // namespace tvx
