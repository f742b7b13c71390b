// The door of the week against a model of it in plain sets of quarters that shares no code with it.
#include "editor/week/Totals.h"
#include "editor/week/WeekEdit.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <deque>

namespace tvx {
namespace {

using test::BarList;

constexpr int People = 4;

/// Faults that a test puts into the model to see that the comparison finds them.
enum class Planted {
    None,
    BarsEndLate,
    DaysOffKeepTime,
    MidnightsBoundTheDay,
    UndoLosesDaytypes,
    EmptyStepsCount,
    SavesAreForgotten,
    RedoOutlivesAnEdit,
    FiguresStayCleared,
};

// ---- the model -------------------------------------------------------------------------------------------

struct Person {
    std::bitset<768> work;
    std::array<std::string, 9> types;
    std::array<bool, 9> off{};
    bool operator==(const Person&) const = default;
};

struct Picture {
    std::array<Person, People + 1> people;
    double sales = 0;
    bool operator==(const Picture&) const = default;
};

BarList RunsIn(const std::bitset<768>& work) {
    BarList runs;
    const std::bitset<768> edges = work ^ (work << 1);
    for (auto q = edges._Find_first(); q < 768; q = edges._Find_next(q))
        if (work[q])
            runs.emplace_back(q, 768);
        else
            runs.back().second = static_cast<int>(q);
    return runs;
}

class Model {
  public:
    Planted planted = Planted::None;
    std::deque<Picture> pictures{1};
    int place = 0;
    int kept = 0; // -1: no picture is the one in the store
    bool touched = false;

    const Picture& Now() const { return pictures[place]; }
    bool Changed() const { return touched || kept != place; }
    void Fill(Person& p, int from, int to, bool on) const {
        if (on && planted == Planted::BarsEndLate && to > from) ++to;
        for (int q = std::max(from, 0); q < std::min(to, 768); ++q) p.work[q] = on;
    }
    /// What every edit ends with: days off are cut, and whoever would need more than 35 bars stays.
    void Settle(Person& p, const Person& before) const {
        for (int q = 0; q < 768; ++q)
            if (p.off[q / 96 + 1] && planted != Planted::DaysOffKeepTime) p.work[q] = false;
        if (RunsIn(p.work).size() > 35) p = before;
    }
    void Step(const Picture& next) {
        if (next == pictures[place] && planted != Planted::EmptyStepsCount) return;
        if (planted != Planted::RedoOutlivesAnEdit || place + 1 == static_cast<int>(pictures.size())) {
            pictures.resize(place + 1);
            if (kept > place) kept = -1;
            pictures.push_back(next);
        } else {
            pictures[place + 1] = next;
        }
        if (++place <= 1000) return;
        pictures.pop_front();
        --place;
        kept = std::max(kept - 1, -1);
    }
    void Undo() {
        if (place == 0) return;
        --place;
        if (planted == Planted::UndoLosesDaytypes)
            for (Person& p : pictures[place].people) p.types = {};
        if (planted == Planted::FiguresStayCleared) pictures[place].sales = pictures[place + 1].sales;
    }
    void Redo() {
        if (place + 1 < static_cast<int>(pictures.size())) ++place;
    }
    void Save() {
        if (planted != Planted::SavesAreForgotten) kept = place;
        touched = false;
    }
    int Quarters(int e, int low, int high) const {
        const std::bitset<768>& work = Now().people[e].work;
        return static_cast<int>(((work >> low) << (768 - high + low)).count());
    }
};

// ---- the two side by side --------------------------------------------------------------------------------

class SideBySide {
  public:
    SideBySide(int cutoff, Planted planted) : cutoff_(cutoff) {
        model_.planted = planted;
        test::MakeRoster(g_, People);
        g_.department.DayCutoffQuarters = cutoff;
        Load();
    }

    /// Makes so many random events. Returns the first difference, or "".
    std::string Run(int events) {
        for (int i = 1; i <= events; ++i) {
            const std::string what = Event();
            const std::string difference = Difference();
            if (!difference.empty()) return what + ", event " + std::to_string(i) + ": " + difference;
        }
        return "";
    }

    test::Random random;

  private:
    int Pick(int low, int high) { return static_cast<int>(random.Whole(low, high)); }

    /// Another week comes from the store: the steps are forgotten.
    void Load() {
        Week& week = test::NewWeek(g_, People);
        Picture picture;
        for (int e = 1; e <= People; ++e) {
            Person& p = picture.people[e];
            for (int bars = Pick(0, 12); bars > 0; --bars) {
                const int start = Pick(0, 767);
                model_.Fill(p, start, start + Pick(1, 60), true);
            }
            for (int d = 1; d <= 8; ++d) {
                week.DayTypeText[d][e] = p.types[d] = random.Chance(20) ? "V" : "";
                week.DayOffFlag[d][e] = p.off[d] = random.Chance(10);
            }
            model_.Settle(p, {});
            test::SetBars(g_, e, RunsIn(p.work));
        }
        g_.figures = {};
        g_.figures.DailySales[2] = picture.sales = 500;
        SumFigures(g_.figures, g_.totals);
        const Planted planted = model_.planted;
        model_ = {};
        model_.planted = planted;
        model_.pictures = {picture};
    }

    std::string Event() {
        const int kind = Pick(1, 1000);
        if (kind == 1) return Load(), "load";
        if (kind <= 200) return WeekEdit(g_).Undo(), model_.Undo(), "undo";
        if (kind <= 330) return WeekEdit(g_).Redo(), model_.Redo(), "redo";
        if (kind <= 340) return WeekEdit(g_).Saved(), model_.Save(), "save";
        if (kind <= 350) return Touch();
        if (kind <= 380) return ShowDay();
        if (kind <= 400) return Refused();
        Picture next = model_.Now();
        if (kind > 450) {
            const std::string what = Edit(next);
            model_.Step(next);
            return what;
        }
        std::string what = "bundle";
        {
            const WeekEdit::Action action(g_, "several");
            for (int edits = Pick(0, 3); edits > 0; --edits) what += ", " + Edit(next);
        }
        model_.Step(next);
        return what;
    }
    std::string Touch() {
        WeekEdit(g_).Touch();
        model_.touched = true;
        return "touch";
    }
    std::string ShowDay() {
        day_ = Pick(1, 7);
        WeekEdit(g_).ShowDay(day_);
        return "show a day";
    }
    std::string Refused() {
        g_.rights.SchedulingAllowed = false;
        Picture unused = model_.Now();
        const std::string what = Edit(unused) + " without the right";
        g_.rights.SchedulingAllowed = true;
        return what;
    }

    /// One edit of either.
    std::string Edit(Picture& next) {
        const int e = Pick(1, People);
        const int d = Pick(1, 8);
        switch (Pick(1, 20)) {
        case 1:
        case 2:
            return SetDaytype(next, e, d);
        case 3:
            return SetDayOff(next, e, d);
        case 4:
            return CopyDay(next, Pick(1, 7), Pick(1, 7));
        case 5:
            return Pick(1, 4) == 1 ? ClearWeek(next) : ClearPerson(next, e);
        case 6:
        case 7:
            return CutBars(next, e);
        case 8:
        case 9:
            return ReplaceTime(next, e, d);
        case 10:
        case 11:
            return PasteShift(next, e, Pick(1, 7));
        case 12:
        case 13:
        case 14:
            return PutBars(next, e);
        default:
            return ReplaceBar(next, e);
        }
    }
    WeekBar AnyBar() {
        const int start = Pick(-20, 770);
        return {start, start + Pick(-2, random.Chance(15) ? 300 : 30)};
    }
    std::string PutBars(Picture& next, int e) {
        WeekBars bars;
        Person& p = next.people[e];
        const Person before = p;
        for (int count = random.Chance(5) ? 36 : Pick(0, 4); count > 0; --count) {
            bars.push_back(AnyBar());
            model_.Fill(p, bars.back().start, bars.back().stop, true);
        }
        model_.Settle(p, before);
        WeekEdit(g_).PutBars(e, bars);
        return "put bars";
    }
    std::string ReplaceBar(Picture& next, int e) {
        Person& p = next.people[e];
        const Person before = p;
        const BarList runs = RunsIn(p.work);
        const int slot = Pick(0, static_cast<int>(runs.size()));
        const WeekBar bar = AnyBar();
        if (slot > 0) model_.Fill(p, runs[slot - 1].first, runs[slot - 1].second, false);
        model_.Fill(p, bar.start, bar.stop, true);
        model_.Settle(p, before);
        WeekEdit(g_).ReplaceBar(e, slot, bar);
        return "replace a bar";
    }
    std::string CutBars(Picture& next, int e) {
        Person& p = next.people[e];
        const Person before = p;
        const BarList runs = RunsIn(p.work);
        std::vector<int> slots;
        for (int slot = 1; slot <= static_cast<int>(runs.size()); ++slot) {
            if (random.Chance(60)) continue;
            slots.push_back(slot);
            model_.Fill(p, runs[slot - 1].first, runs[slot - 1].second, false);
        }
        model_.Settle(p, before);
        WeekEdit(g_).CutBars(e, slots);
        return "cut bars";
    }
    std::string ReplaceTime(Picture& next, int e, int d) {
        Person& p = next.people[e];
        const Person before = p;
        const WeekBar bar = AnyBar();
        model_.Fill(p, (d - 1) * 96, d * 96, false);
        model_.Fill(p, bar.start, bar.stop, true);
        model_.Settle(p, before);
        WeekEdit(g_).ReplaceTime(e, (d - 1) * 96, d * 96, {bar});
        return "replace time";
    }
    std::string PasteShift(Picture& next, int e, int d) {
        Shifts shifts;
        shifts.ShiftCount = 1;
        Person& p = next.people[e];
        const Person before = p;
        for (int k = 1; k <= 2; ++k) {
            shifts.ShiftBarCount[1] = k;
            shifts.ShiftStarts[1][k] = Pick(0, 95);
            shifts.ShiftStops[1][k] = Pick(0, 120);
            model_.Fill(p, (d - 1) * 96 + shifts.ShiftStarts[1][k], (d - 1) * 96 + shifts.ShiftStops[1][k],
                        true);
        }
        model_.Settle(p, before);
        WeekEdit(g_).PasteShift(e, d, shifts, 1);
        return "paste a shift";
    }
    std::string SetDaytype(Picture& next, int e, int d) {
        Person& p = next.people[e];
        const Person before = p;
        p.types[d] = random.Chance(50) ? "V" : "S";
        WeekEdit(g_).SetDaytype(e, d, p.types[d]);
        model_.Settle(p, before);
        return "set a daytype";
    }
    std::string SetDayOff(Picture& next, int e, int d) {
        Person& p = next.people[e];
        const Person before = p;
        p.off[d] = random.Chance(40);
        WeekEdit(g_).SetDayOff(e, d, p.off[d]);
        model_.Settle(p, before);
        return "set a day off";
    }
    std::string CopyDay(Picture& next, int from, int to) {
        const int low = (from - 1) * 96 + cutoff_;
        for (int e = 1; e <= People; ++e) {
            Person& p = next.people[e];
            const Person before = p;
            for (const auto& [start, stop] : RunsIn(before.work))
                if (start < low + 96 && stop > low)
                    model_.Fill(p, start + (to - from) * 96, stop + (to - from) * 96, true);
            p.types[to] = p.types[from];
            model_.Settle(p, before);
        }
        WeekEdit(g_).CopyDay(from, to);
        return "copy a day";
    }
    static void Clear(Person& p) {
        p.work.reset();
        p.types = {};
    }
    std::string ClearPerson(Picture& next, int e) {
        Clear(next.people[e]);
        WeekEdit(g_).ClearPerson(e);
        return "clear a person";
    }
    std::string ClearWeek(Picture& next) {
        for (Person& p : next.people) Clear(p);
        next.sales = 0;
        WeekEdit(g_).ClearWeek();
        return "clear the week";
    }

    // ---- the comparison ----

    std::string Difference() const {
        const Picture& now = model_.Now();
        for (int e = 1; e <= People; ++e) {
            const Person& p = now.people[e];
            if (test::Bars(g_, e) != RunsIn(p.work)) return "bars of employee " + std::to_string(e);
            for (int d = 1; d <= 8; ++d)
                if (g_.week.DayTypeText[d][e] != p.types[d] || g_.week.DayOffFlag[d][e] != p.off[d])
                    return "day " + std::to_string(d) + " of employee " + std::to_string(e);
        }
        if (g_.week.WeekChanged != model_.Changed()) return "WeekChanged";
        if (g_.totals.SalesTotal != now.sales) return "sales";
        return Totals();
    }
    std::string Totals() const {
        const int cutoff = model_.planted == Planted::MidnightsBoundTheDay ? 0 : cutoff_;
        long week = 0;
        long day = 0;
        double wages = 0;
        for (int e = 1; e <= People; ++e) {
            const int ofWeek = model_.Quarters(e, cutoff, cutoff + 672);
            const int ofDay = model_.Quarters(e, (day_ - 1) * 96 + cutoff, day_ * 96 + cutoff);
            if (g_.week.WeekQuarters[e] != ofWeek || g_.week.DayQuarters[e] != ofDay) return "quarters";
            week += ofWeek;
            day += ofDay;
            if (e % 3 != 0) wages += (7.2501 + 1.2347 * e) * ofWeek / 4;
        }
        if (g_.totals.TotalWeekQuarters != week || g_.totals.TotalDayQuarters != day) return "sums";
        return std::fabs(g_.totals.TotalWeekWages.Amount() - wages) > 0.01 ? "wages" : "";
    }

    int cutoff_;
    int day_ = 1;
    GlobalState g_;
    Model model_;
};

TEST(WeekEditModel, agrees_over_a_hundred_thousand_edits_on_three_cut_offs) {
    for (const int cutoff : {0, 16, 31}) {
        SideBySide both(cutoff, Planted::None);
        SCOPED_TRACE(both.random.Trace());
        EXPECT_EQ(both.Run(60000), "") << "cut-off " << cutoff;
    }
}

TEST(WeekEditModel, finds_every_fault_that_is_planted_in_it) {
    for (const Planted fault :
         {Planted::BarsEndLate, Planted::DaysOffKeepTime, Planted::MidnightsBoundTheDay,
          Planted::UndoLosesDaytypes, Planted::EmptyStepsCount, Planted::SavesAreForgotten,
          Planted::RedoOutlivesAnEdit, Planted::FiguresStayCleared}) {
        SideBySide both(16, fault);
        SCOPED_TRACE(both.random.Trace());
        EXPECT_NE(both.Run(20000), "") << "fault " << static_cast<int>(fault);
    }
}

} // namespace
} // namespace tvx
