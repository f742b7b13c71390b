// Must not compile: what builds bars cannot be given the loaded week.
#include "editor/week/WeekModel.h"
#include "shell/state/TVXGLOB.h"

void HandTheWeekOn(tvx::GlobalState& g) {
    tvx::BuildWeekGrid(g.week, 1);
}
