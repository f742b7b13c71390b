// Must not compile: a copy that was changed does not go back as a whole.
#include "shell/state/TVXGLOB.h"

void ReplaceTheWeek(tvx::GlobalState& g, const tvx::Week& changed) {
    g.week = changed;
}
