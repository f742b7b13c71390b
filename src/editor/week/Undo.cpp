#include "editor/week/Undo.h"

#include "editor/week/PersonWeek.h"

#include <utility>

namespace tvx {
namespace {

std::size_t BytesOf(const WeekStep& step) {
    std::size_t bytes = sizeof(WeekStep) + step.name.capacity();
    for (const PersonStep& person : step.people)
        bytes += sizeof(int) + BytesOf(person.before) + BytesOf(person.after);
    return bytes;
}

/// What the open step has changed after all.
WeekStep StepOf(OpenStep&& open, const Week& week, const DepartmentFigures& figures) {
    WeekStep step{std::move(open.name), {}, {}, 0};
    for (auto& [employee, before] : open.people) {
        PersonWeek after = PersonOf(week, employee);
        if (before != after) step.people.push_back({employee, std::move(before), std::move(after)});
    }
    if (open.figures && *open.figures != figures)
        step.figures = FiguresStep{std::move(*open.figures), figures};
    step.bytes = BytesOf(step);
    return step;
}

void DropWhatCouldBeRedone(WeekSteps& steps) {
    for (; steps.steps.size() > steps.place; steps.steps.pop_back()) steps.bytes -= steps.steps.back().bytes;
    if (steps.kept > steps.place) steps.kept.reset();
}

void DropOldest(WeekSteps& steps) {
    steps.bytes -= steps.steps.front().bytes;
    steps.steps.pop_front();
    --steps.place;
    if (steps.kept == 0U)
        steps.kept.reset();
    else if (steps.kept)
        --*steps.kept;
}

} // namespace

void ForgetSteps(WeekSteps& steps) {
    const int depth = steps.open.depth;
    steps = {};
    steps.kept = 0;
    steps.open.depth = depth; // whoever opened an action still closes it
}

void KeepPlace(WeekSteps& steps) {
    steps.kept = steps.place;
    steps.touched = false;
}

void CloseStep(WeekSteps& steps, const Week& week, const DepartmentFigures& figures) {
    WeekStep step = StepOf(std::exchange(steps.open, {}), week, figures);
    if (step.people.empty() && !step.figures) return;
    DropWhatCouldBeRedone(steps);
    steps.bytes += step.bytes;
    steps.steps.push_back(std::move(step));
    ++steps.place;
    while (steps.steps.size() > MostSteps || steps.bytes > MostStepBytes) DropOldest(steps);
}

const WeekStep* StepBack(const WeekSteps& steps) {
    if (steps.open.depth > 0 || steps.place == 0) return nullptr;
    return &steps.steps[steps.place - 1];
}

const WeekStep* StepForth(const WeekSteps& steps) {
    if (steps.open.depth > 0 || steps.place == steps.steps.size()) return nullptr;
    return &steps.steps[steps.place];
}

bool DiffersFromStore(const WeekSteps& steps) {
    return steps.touched || steps.kept != steps.place;
}

} // namespace tvx
