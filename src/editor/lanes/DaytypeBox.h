// The box in which a day's daytype is typed, one letter at a time.
#pragma once

#include "platform/ports/Prompt.h"
#include "shell/state/TVXGLOB.h"

#include <string>

namespace tvx {

/// What becomes of a typed key.
struct DaytypeKey {
    enum class Refusal { None, Silent, NotPermitted, TooWide };
    int code = 0; // the key to take, a capital for a letter; 0 when it is swallowed
    Refusal refusal = Refusal::None;
};

/// The key rule of a symbol, without regard to the day: capitals for letters, backspace passes, codes 48 to
/// 57 and 65 to 122 pass, the letter W is too wide. Other keys are swallowed.
DaytypeKey FilterDaytypeKey(int code);

/// The same for the box of a visible row: a day off swallows every key, and who may not schedule is refused.
/// Marks the week as changed where the rules reach that step.
DaytypeKey TypeDaytype(GlobalState& g, int row, int code);

/// The boxes that some refusals bring, with the beep.
void TellDaytypeRefusal(Prompt& prompt, DaytypeKey::Refusal refusal);

/// Takes the text of a row's box as the day's daytype.
void TakeDaytype(GlobalState& g, int row, const std::string& text);

/// The tooltip of a box: the explanation of its symbol, or what the box is for.
std::string DaytypeTooltip(const Daytypes& daytypes, const std::string& text);

/// The row above (-1) or below (1), wrapping between the first and the last visible one.
int NeighbourRow(const Grid& grid, int row, int direction);

} // namespace tvx
