// The week in memory as a test may set it up, which nobody else may outside the week's own edits.
#pragma once

#include "editor/week/Undo.h"
#include "shell/state/TVXGLOB.h"

namespace tvx::test {

class WeekWriter {
  public:
    static Week& Open(GlobalState& g) { return g.loadedWeek.week_; }
};

inline Week& WritableWeek(GlobalState& g) {
    return WeekWriter::Open(g);
}

/// An empty week for `people`, as loaded, without steps.
inline Week& NewWeek(GlobalState& g, int people) {
    Week& week = WritableWeek(g);
    week.Resize(people);
    week.IsLoaded = true;
    ForgetSteps(g.steps);
    return week;
}

} // namespace tvx::test
