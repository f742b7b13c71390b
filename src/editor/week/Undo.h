// The list of steps: what is kept of an edit, the way back and forth, and the place that the store has.
#pragma once

#include "shell/state/WeekSteps.h"

#include <cstddef>

namespace tvx {

constexpr std::size_t MostSteps = 1000;
constexpr std::size_t MostStepBytes = 64U << 20U;

/// Forgets all steps, also the one that is being made: another week, or the same one read again, is loaded.
/// The store has the week as it stands.
void ForgetSteps(WeekSteps& steps);

/// The store has the week as it stands now, while the steps remain.
void KeepPlace(WeekSteps& steps);

/// Ends the step that is being made, and adds it behind the steps done; what could be redone is gone. A step
/// that ends where it began vanishes. The oldest go beyond 1,000 steps or 64 MB.
void CloseStep(WeekSteps& steps, const Week& week, const DepartmentFigures& figures);

/// The step that undo, or redo, would put back; nullptr when there is none or an action is open.
const WeekStep* StepBack(const WeekSteps& steps);
const WeekStep* StepForth(const WeekSteps& steps);

/// What `WeekChanged` is to be: False only at the place that the store has, unless a press has marked the
/// week since.
bool DiffersFromStore(const WeekSteps& steps);

} // namespace tvx
