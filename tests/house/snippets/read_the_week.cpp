// Reads and copies the loaded week: compiles anywhere.
#include "shell/state/TVXGLOB.h"

int ReadTheWeek(tvx::GlobalState& g) {
    tvx::Week copy = g.week;
    copy.BarStarts[1][1] = 0;
    return g.week.BarStarts[1][1] + g.loadedWeek.Read().BarCount[1];
}
