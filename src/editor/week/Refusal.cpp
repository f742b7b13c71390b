#include "editor/week/Refusal.h"

namespace tvx {

void TellSchedulingNotPermitted(Prompt& prompt) {
    prompt.MsgBox("Your authorization does not allow scheduling changes", box::Exclamation,
                  "Scheduling not permitted");
}

} // namespace tvx
