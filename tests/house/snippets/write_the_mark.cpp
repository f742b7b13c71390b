// Must not compile: whether the week has changed is for its edits to say.
#include "shell/state/TVXGLOB.h"

void WriteTheMark(tvx::GlobalState& g) {
    g.week.WeekChanged = true;
}
