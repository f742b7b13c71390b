// The value column beside the names: what it shows for each of the twelve options, and in which colours.
#pragma once

#include "editor/week/Totals.h"
#include "platform/ports/Region.h"
#include "shell/state/TVXGLOB.h"

#include <array>
#include <string>

namespace tvx {

/// An option of the value column.
struct ShowOptionText {
    const char* caption;
    const char* tooltip;
};

/// Captions and tooltips of the options, [1..12].
const std::array<ShowOptionText, 13>& ShowOptions();

/// True when an option can be chosen: wages not while pay is hidden; with all departments shown, only the
/// department's name.
bool CanShow(const Roster& roster, const Rights& rights, int option);

/// Chooses an option. Does nothing for one that cannot be chosen.
void ChooseShowOption(Grid& grid, const Roster& roster, const Rights& rights, int option);

enum class Align { Left, Right };

/// What stands beside a name: one value, or, for the options of day and week together, two.
struct RowValues {
    bool pair = false;
    std::string single; // Label10
    ValueColours singleColours;
    Align align = Align::Left;
    std::string day; // Label23
    ValueColours dayColours;
    std::string week; // Label24
    ValueColours weekColours;
    bool squares = false;                  // the option that marks the days with time
    std::array<Colour, 8> squareColours{}; // [1..7]

    friend bool operator==(const RowValues&, const RowValues&) = default;
};

/// The value of an employee under an option.
RowValues ShowRowValues(const GlobalState& g, int option, int employee, const Region& region);

} // namespace tvx
