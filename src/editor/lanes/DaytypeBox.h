// The boxes beside the lanes in which a day's daytype is typed, one letter at a time.
#pragma once

#include "editor/lanes/Lanes.h"
#include "platform/ports/Prompt.h"

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

/// The rules of the boxes, one to each visible row.
class DaytypeBox {
  public:
    DaytypeBox(Lanes& lanes, GlobalState& g);

    /// May a row's box change, by whatever way? A day off is closed without a word, and who may not schedule
    /// is refused. Changes nothing itself: what is typed may still be swallowed.
    DaytypeKey::Refusal MayType(int row) const;
    /// The daytype of the row's day.
    const std::string& TextOf(int row) const;
    /// Makes the text of a row's box the daytype of its day, and that day's person the current one. Nothing
    /// happens when it is that already.
    WeekChange PutText(int row, const std::string& text);

  private:
    bool IsDayOff(int row) const;

    Lanes& lanes_;
    WeekEdit edit_;
    const Week& week_;
    const Rights& rights_;
};

/// The boxes that some refusals bring, with the beep.
void TellDaytypeRefusal(Prompt& prompt, DaytypeKey::Refusal refusal);

/// The tooltip of a box: the explanation of its symbol, or what the box is for.
std::string DaytypeTooltip(const Daytypes& daytypes, const std::string& text);

/// The row above (-1) or below (1), wrapping between the first and the last visible one.
int NeighbourRow(const Grid& grid, int row, int direction);

} // namespace tvx
