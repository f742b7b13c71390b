#include "editor/week/WeekEdit.h"

#include "editor/week/Totals.h"
#include "editor/week/Undo.h"
#include "editor/week/WeekModel.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

namespace tvx {
namespace {

void JoinNumbers(std::vector<int>& numbers, const std::vector<int>& others) {
    std::vector<int> both;
    std::set_union(numbers.begin(), numbers.end(), others.begin(), others.end(), std::back_inserter(both));
    numbers = std::move(both);
}

/// What of the bars lies on a day, midnight to midnight.
WeekBars OnDay(const WeekBars& bars, int day) {
    WeekBars part;
    for (const WeekBar& bar : bars) {
        const WeekBar cut{std::max(bar.start, (day - 1) * QuartersPerDay),
                          std::min(bar.stop, day * QuartersPerDay)};
        if (cut.start < cut.stop) part.push_back(cut);
    }
    return part;
}

std::vector<int> DaysThatDiffer(const PersonWeek& before, const PersonWeek& after) {
    std::vector<int> days;
    for (int d = 1; d <= DaysInSpan; ++d)
        if (before.DayTypeText[d] != after.DayTypeText[d] || before.DayOffFlag[d] != after.DayOffFlag[d] ||
            OnDay(before.bars, d) != OnDay(after.bars, d))
            days.push_back(d);
    return days;
}

void PaintBars(Week& week, const WeekBars& bars) {
    for (const WeekBar& bar : bars) PaintWeekGrid(week, bar.start, bar.stop);
}

/// Slots that hold no bar are passed over.
void EraseSlots(Week& week, const PersonWeek& person, const std::vector<int>& slots) {
    for (const int slot : slots) {
        if (slot < 1 || slot > static_cast<int>(person.bars.size())) continue;
        const WeekBar& bar = person.bars[static_cast<std::size_t>(slot) - 1];
        EraseWeekGrid(week, bar.start, bar.stop);
    }
}

void ClearTimeAndDaytypes(Week& week, int e, const PersonWeek&) {
    ClearWeekGrid(week);
    for (auto& day : week.DayTypeText) day[e].clear();
}

bool IsDayOfSpan(int day) {
    return day >= 1 && day <= DaysInSpan;
}

bool IsDayOfWeek(int day) {
    return day >= 1 && day < DaysInSpan;
}

} // namespace

bool WeekChange::Touches(int employee) const {
    return std::binary_search(employees.begin(), employees.end(), employee);
}

void WeekChange::Join(const WeekChange& other) {
    if (answer == EditAnswer::Done) answer = other.answer;
    JoinNumbers(employees, other.employees);
    JoinNumbers(days, other.days);
    JoinNumbers(full, other.full);
    figures = figures || other.figures;
}

// ---- steps ----

WeekEdit::Action::Action(GlobalState& g, std::string name) : g_(g) {
    OpenStep& open = g_.steps.open;
    if (open.depth++ == 0) open.name = std::move(name);
}

WeekEdit::Action::~Action() {
    if (--g_.steps.open.depth > 0) return;
    CloseStep(g_.steps, g_.week, g_.figures);
    g_.loadedWeek.week_.WeekChanged = g_.week.IsLoaded && DiffersFromStore(g_.steps);
}

WeekChange WeekEdit::PutBack(const WeekStep& step, bool before) {
    WeekChange change;
    for (const PersonStep& person : step.people) {
        const PersonWeek was = PersonOf(g_.week, person.employee);
        PutPerson(Open(), person.employee, before ? person.before : person.after);
        change.Join(RefreshRowAfterEdit(person.employee, was));
    }
    if (step.figures) {
        g_.figures = before ? step.figures->before : step.figures->after;
        SumFigures(g_.figures, g_.totals);
        change.figures = true;
    }
    return change;
}

WeekChange WeekEdit::Undo() {
    WeekChange change{RightAnswer()};
    if (!change.Done()) return change;
    const WeekStep* step = StepBack(g_.steps);
    if (step == nullptr) return {EditAnswer::Nothing};
    change = PutBack(*step, true);
    --g_.steps.place;
    Open().WeekChanged = DiffersFromStore(g_.steps);
    Check();
    return change;
}

WeekChange WeekEdit::Redo() {
    WeekChange change{RightAnswer()};
    if (!change.Done()) return change;
    const WeekStep* step = StepForth(g_.steps);
    if (step == nullptr) return {EditAnswer::Nothing};
    change = PutBack(*step, false);
    ++g_.steps.place;
    Open().WeekChanged = DiffersFromStore(g_.steps);
    Check();
    return change;
}

std::string WeekEdit::UndoHint() const {
    const WeekStep* step = StepBack(g_.steps);
    return step == nullptr ? "" : step->name;
}

std::string WeekEdit::RedoHint() const {
    const WeekStep* step = StepForth(g_.steps);
    return step == nullptr ? "" : step->name;
}

void WeekEdit::Saved() {
    KeepPlace(g_.steps);
    Open().KnownDaytypeOfDay8 = Open().DayTypeText[DaysInSpan];
    Open().WeekChanged = DiffersFromStore(g_.steps);
}

// ---- one edit ----

EditAnswer WeekEdit::RightAnswer() const {
    if (!g_.rights.SchedulingAllowed) return EditAnswer::NotAllowed;
    return g_.week.IsLoaded ? EditAnswer::Done : EditAnswer::NotLoaded;
}

constexpr int NoDay = 0;

EditAnswer WeekEdit::AnswerFor(int e, int day) const {
    const EditAnswer answer = RightAnswer();
    if (answer != EditAnswer::Done) return answer;
    const bool known = e >= 1 && e <= g_.roster.EmployeeCount && IsDayOfSpan(day);
    return known ? EditAnswer::Done : EditAnswer::NotLoaded;
}

/// Brings quarters and sums up to date by the difference, and says what differs from before.
WeekChange WeekEdit::RefreshRowAfterEdit(int e, const PersonWeek& before) {
    WeekChange change;
    const PersonWeek after = PersonOf(g_.week, e);
    if (after == before) return change;
    change.employees = {e};
    change.days = DaysThatDiffer(before, after);
    const int weekBefore = g_.week.WeekQuarters[e];
    const int dayBefore = g_.week.DayQuarters[e];
    const Payroll payroll = PayrollOf(g_);
    AddEmployeeToTotals(g_.week, payroll, e, -1);
    CountBars(Open(), e, payroll.cutoffQuarters);
    AddEmployeeToTotals(g_.week, payroll, e, 1);
    change.figures = g_.week.WeekQuarters[e] != weekBefore || g_.week.DayQuarters[e] != dayBefore;
    return change;
}

WeekChange WeekEdit::EditOne(int e, const Painter& edit) {
    Week& week = Open();
    const PersonWeek before = PersonOf(week, e);
    BuildWeekGrid(week, e);
    edit(week, e, before);
    CutDaysOffFromGrid(week, e);
    if (RunsInWeekGrid(week) > MostBarsRead) {
        PutPerson(week, e, before);
        WeekChange change;
        change.full = {e};
        return change;
    }
    week.BarCount[e] = ReadWeekGrid(week, e);
    g_.steps.open.people.try_emplace(e, before);
    return RefreshRowAfterEdit(e, before);
}

WeekChange WeekEdit::EditPerson(int e, int day, const Painter& edit) {
    WeekChange change{AnswerFor(e, day)};
    if (!change.Done()) return change;
    {
        const Action step(g_, "");
        change = EditOne(e, edit);
        if (!change.employees.empty()) Open().WeekChanged = true;
    }
    Check();
    return change;
}

WeekChange WeekEdit::EditEverybody(const Painter& edit) {
    WeekChange change{RightAnswer()};
    if (!change.Done()) return change;
    {
        const Action step(g_, "");
        for (int e = 1; e <= g_.roster.EmployeeCount; ++e) change.Join(EditOne(e, edit));
        if (!change.employees.empty()) Open().WeekChanged = true;
    }
    Check();
    return change;
}

void WeekEdit::Check() const {
    assert(SumsAreRight(g_.week, PayrollOf(g_)));
}

// ---- what can be done ----

WeekChange WeekEdit::Touch() {
    WeekChange change{RightAnswer()};
    if (!change.Done()) return change;
    g_.steps.touched = true;
    Open().WeekChanged = true;
    return change;
}

WeekChange WeekEdit::ShowDay(int day) {
    WeekChange change;
    if (!g_.week.IsLoaded || !IsDayOfWeek(day)) return {EditAnswer::NotLoaded};
    const Totals before = g_.totals;
    g_.cursor.CurrentDay = day;
    SumDay(Open(), PayrollOf(g_), day);
    change.figures = !(before == g_.totals);
    return change;
}

WeekChange WeekEdit::PutBars(int e, const WeekBars& bars) {
    return EditPerson(e, 1, [&](Week& week, int, const PersonWeek&) { PaintBars(week, bars); });
}

WeekChange WeekEdit::ReplaceBar(int e, int slot, WeekBar bar) {
    return EditPerson(e, 1, [&](Week& week, int, const PersonWeek& before) {
        EraseSlots(week, before, {slot});
        PaintBars(week, {bar});
    });
}

WeekChange WeekEdit::CutBars(int e, const std::vector<int>& slots) {
    return EditPerson(e, 1,
                      [&](Week& week, int, const PersonWeek& before) { EraseSlots(week, before, slots); });
}

WeekChange WeekEdit::ReplaceTime(int e, WeekQuarter from, WeekQuarter to, const WeekBars& bars) {
    return EditPerson(e, 1, [&](Week& week, int, const PersonWeek&) {
        EraseWeekGrid(week, from, to);
        PaintBars(week, bars);
    });
}

WeekChange WeekEdit::PasteShift(int e, int day, const Shifts& shifts, int shift) {
    if (!IsDayOfWeek(day) || shift < 1 || shift > shifts.ShiftCount) return {AnswerFor(e, NoDay)};
    const int midnight = (day - 1) * QuartersPerDay;
    WeekBars bars;
    for (int k = 1; k <= shifts.ShiftBarCount[shift]; ++k)
        bars.push_back({midnight + shifts.ShiftStarts[shift][k], midnight + shifts.ShiftStops[shift][k]});
    return EditPerson(e, day, [&](Week& week, int, const PersonWeek&) { PaintBars(week, bars); });
}

WeekChange WeekEdit::SetDaytype(int e, int day, const std::string& text) {
    return EditPerson(e, day, [&](Week& week, int, const PersonWeek&) { week.DayTypeText[day][e] = text; });
}

WeekChange WeekEdit::SetDayOff(int e, int day, bool off) {
    return EditPerson(e, day, [&](Week& week, int, const PersonWeek&) { week.DayOffFlag[day][e] = off; });
}

WeekChange WeekEdit::CopyDay(int from, int to) {
    if (!IsDayOfWeek(from) || !IsDayOfWeek(to)) return {EditAnswer::NotLoaded};
    const DayWindow window = WindowOfDay(from, g_.department.DayCutoffQuarters);
    const int shift = (to - from) * QuartersPerDay;
    return EditEverybody([=](Week& week, int e, const PersonWeek& before) {
        for (const WeekBar bar : before.bars)
            if (bar.start < window.high && bar.stop > window.low)
                PaintWeekGrid(week, bar.start + shift, bar.stop + shift);
        week.DayTypeText[to][e] = week.DayTypeText[from][e];
    });
}

WeekChange WeekEdit::ClearPerson(int e) {
    return EditPerson(e, 1, ClearTimeAndDaytypes);
}

WeekChange WeekEdit::ClearWeek() {
    const Action step(g_, "");
    WeekChange change = EditEverybody(ClearTimeAndDaytypes);
    if (!change.Done()) return change;
    if (!g_.steps.open.figures) g_.steps.open.figures = g_.figures;
    DepartmentFigures cleared = g_.figures;
    cleared.DailySales = cleared.DailyTransactions = {};
    if (cleared == g_.figures) return change;
    g_.figures = cleared;
    SumFigures(g_.figures, g_.totals);
    Open().WeekChanged = change.figures = true;
    return change;
}

} // namespace tvx
