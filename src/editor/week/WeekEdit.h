// The only door through which a loaded week changes.
#pragma once

#include "editor/week/PersonWeek.h"
#include "shell/state/TVXGLOB.h"

#include <functional>
#include <string>
#include <vector>

namespace tvx {

/// What came of an edit.
enum class EditAnswer {
    Done,       // also when the week already was as the edit wants it
    NotAllowed, // the right to schedule is missing
    NotLoaded,  // no week is loaded, or it has no such employee or day, or the shift is not stored
    Nothing,    // there is nothing to undo or to redo
};

/// What every open editor follows after an edit. On another answer than Done nothing has changed.
struct WeekChange {
    EditAnswer answer = EditAnswer::Done;
    std::vector<int> employees{}; // whose bars, daytypes or days off differ now, ascending
    std::vector<int> days{}; // 1 to 8, midnight to midnight, on which something of theirs differs, ascending
    bool figures = false;    // somebody's quarters, a sum or a figure of the department differs
    std::vector<int> full{}; // who would have needed more than 35 bars and stays as before, ascending

    bool Done() const { return answer == EditAnswer::Done; }
    bool Touches(int employee) const;
    /// Takes in what another edit of the same command has changed.
    void Join(const WeekChange& other);
};

/// Every edit asks the right to schedule, cuts what comes out against the person's days off, merges, corrects
/// quarters and sums by the difference, and sets `WeekChanged`. Each call is a step that can be undone,
/// unless an Action is open; a step that ends where it began vanishes. Whether a day off refuses a command is
/// the command's to ask before. Employees are 1 to EmployeeCount, days 1 to 7 unless said otherwise. An
/// object may be made for one call: it keeps nothing of its own.
class WeekEdit {
  public:
    explicit WeekEdit(GlobalState& g) : g_(g) {}

    /// Bundles the edits of its lifetime into one step, whose name is the hint of undo. Within another it
    /// adds nothing. Undo and Redo find nothing while one is open.
    class Action {
      public:
        Action(GlobalState& g, std::string name);
        ~Action();
        Action(const Action&) = delete;
        Action& operator=(const Action&) = delete;

      private:
        GlobalState& g_;
    };

    /// Marks the week as changed, which a press on the grid does before anything else. It is no step: undo
    /// leaves the mark.
    WeekChange Touch();
    /// Makes a day the current one and counts what is summed for it. Needs no right and is no step.
    WeekChange ShowDay(int day);

    /// Adds periods of work. What is empty or reversed adds nothing.
    WeekChange PutBars(int employee, const WeekBars& bars);
    /// The end of a gesture: the bar of a slot gives way to a period. Slot 0 is a new bar; an empty period
    /// takes the bar away.
    WeekChange ReplaceBar(int employee, int slot, WeekBar bar);
    /// Takes out the bars of these slots whole.
    WeekChange CutBars(int employee, const std::vector<int>& slots);
    /// What the employee has from `from` to `to` gives way to these periods, as when times are typed.
    WeekChange ReplaceTime(int employee, WeekQuarter from, WeekQuarter to, const WeekBars& bars);
    /// Adds the bars of a stored shift, 1 to `ShiftCount`, on the clock of that day.
    WeekChange PasteShift(int employee, int day, const Shifts& shifts, int shift);

    /// Days 1 to 8.
    WeekChange SetDaytype(int employee, int day, const std::string& text);
    /// Marks a day, 1 to 8, as a day off, or takes the mark away.
    WeekChange SetDayOff(int employee, int day, bool off);

    /// Adds to day `to` of everybody the bars that overlap the business day `from`, and gives it the daytype
    /// of that day. Whether the two days may be copied is the command's to ask.
    WeekChange CopyDay(int from, int to);
    /// Takes all bars and daytypes of an employee. Days off stay.
    WeekChange ClearPerson(int employee);
    /// The same for everybody; the sales and transactions of the week in memory go too.
    WeekChange ClearWeek();

    /// Puts back what was before the last step, or after the one undone last, as it was and uncut.
    WeekChange Undo();
    WeekChange Redo();
    /// The name of the step that Undo, or Redo, would put back; "" when there is none.
    std::string UndoHint() const;
    std::string RedoHint() const;

    /// The store has the week as it stands: `WeekChanged` is False, and will be again when undo or redo come
    /// back here.
    void Saved();

  private:
    /// Alters a person's daytypes, days off, and the string of quarters in which the bars are painted.
    using Painter = std::function<void(Week&, int employee, const PersonWeek& before)>;

    Week& Open() { return g_.loadedWeek.week_; }
    EditAnswer RightAnswer() const;
    EditAnswer AnswerFor(int employee, int day) const;
    WeekChange EditPerson(int employee, int day, const Painter& edit);
    WeekChange EditEverybody(const Painter& edit);
    WeekChange EditOne(int employee, const Painter& edit);
    WeekChange PutBack(const WeekStep& step, bool before);
    WeekChange RefreshRowAfterEdit(int employee, const PersonWeek& before);
    void Check() const;

    GlobalState& g_;
};

} // namespace tvx
