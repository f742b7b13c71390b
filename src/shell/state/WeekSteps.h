// The steps by which the loaded week came to be what it is, for undo and redo.
#pragma once

#include "shell/state/Week.h"

#include <array>
#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

/// A period of work, week quarters, stop exclusive.
struct WeekBar {
    WeekQuarter start = 0;
    WeekQuarter stop = 0;

    friend bool operator==(const WeekBar&, const WeekBar&) = default;
};
using WeekBars = std::vector<WeekBar>;

/// One person's week as a value: what an edit takes from the week and puts back.
struct PersonWeek {
    WeekBars bars;                                       // ascending, at most 36
    std::array<std::string, DaysInSpan + 1> DayTypeText; // [day 1..8]
    std::array<bool, DaysInSpan + 1> DayOffFlag{};       // [day 1..8]

    friend bool operator==(const PersonWeek&, const PersonWeek&) = default;
};

/// One person before and after a step.
struct PersonStep {
    int employee = 0;
    PersonWeek before;
    PersonWeek after;
};

/// The department's figures before and after a step that changed them.
struct FiguresStep {
    DepartmentFigures before;
    DepartmentFigures after;
};

struct WeekStep {
    std::string name;
    std::vector<PersonStep> people; // by employee, ascending
    std::optional<FiguresStep> figures;
    std::size_t bytes = 0;
};

/// The step that is being made: what its edits have touched, as it was before them.
struct OpenStep {
    int depth = 0; // actions open, one within the other
    std::string name;
    std::map<int, PersonWeek> people; // [employee]
    std::optional<DepartmentFigures> figures;
};

struct WeekSteps {
    std::deque<WeekStep> steps;
    std::size_t bytes = 0; // of all steps
    std::size_t place = 0; // steps done; those behind it can be redone
    std::optional<std::size_t>
        kept;             // the place at which the store has this week; none when no step leads there
    bool touched = false; // a press has marked the week since its load or save
    OpenStep open;
};

} // namespace tvx
