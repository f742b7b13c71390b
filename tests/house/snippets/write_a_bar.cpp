// Must not compile: the arrays of the loaded week are written by its edits, its load and the roster alone.
#include "shell/state/TVXGLOB.h"

void WriteABar(tvx::GlobalState& g) {
    g.week.BarStarts[1][1] = 0;
}
