// The grid on which an employee's hours of absence are painted: seven days of 24 hours, three or four bars a
// day, edited with the mouse. No window: positions are twips on the grid.
#pragma once

#include "editor/lanes/BarInHand.h"
#include "platform/ports/Commands.h"
#include "shell/state/Roster.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tvx {

/// Hours of absence, Sunday first. Row 0 is the clipboard of the grid.
struct Absence {
    std::array<int, 8> AvailCount{};                       // [row 0..7]
    std::array<std::array<DayQuarter, 5>, 8> AvailStart{}; // [row 0..7][slot 1..4]
    std::array<std::array<DayQuarter, 5>, 8> AvailStop{};  // [row 0..7][slot 1..4]

    friend bool operator==(const Absence&, const Absence&) = default;
};

/// Takes apart the two stored texts of 28 bytes; shorter ones are 28 blanks. A slot is used when its stop is
/// above a blank; the count of a day is the number of its last used slot.
Absence DecodeAbsence(std::string_view availStart, std::string_view availStop);

/// The two stored texts, 28 bytes each.
std::string EncodeStarts(const Absence& absence);
std::string EncodeStops(const Absence& absence);

namespace absence {
constexpr Twips QuarterWidth = 90;
constexpr Twips RightEnd = 8670; // the last place that the mouse can reach; snaps to 24:00
constexpr Twips RowHeight = 240;
constexpr Twips SeparatorTop = 230; // of the line that ends a row
} // namespace absence

/// What an event has changed.
struct AbsenceChange {
    bool pressed = false; // a press was taken: the record counts as changed, the notice is due
    bool row = false;     // the row of the gesture must be painted anew
    bool menu = false;    // the menu of cutting and pasting is due
    bool pointer = false; // the pointer takes `shape`
    Pointer shape = Pointer::Default;
    int hoverRow = 0;         // row under the idle mouse, 1 to 7; 0 when none
    bool markerMoved = false; // the mark that follows the mouse stands at `markerX`
    Twips markerX = 0;
};

class AvailabilityGrid {
  public:
    const Absence& Bars() const { return bars_; }
    /// Replaces the bars of all days and forgets a gesture. The clipboard stays.
    void SetBars(const Absence& bars);

    AbsenceChange Press(const GridMouse& mouse);
    /// A move with no button held tells that the release of a gesture was lost: the gesture is committed.
    AbsenceChange Move(const GridMouse& mouse);
    /// Commits the gesture: snaps, merges, keeps the three earliest bars of the day.
    AbsenceChange Release(const GridMouse& mouse);

    /// Commits a gesture whose release never came. True when there was one.
    bool Settle();

    /// Row of the gesture, 1 to 7.
    int Row() const { return row_; }
    /// The bar in hand, grid twips, left to right; both 0 when there is none.
    std::pair<Twips, Twips> Band() const;
    /// The slot of a row whose bar is in hand, and which is not painted meanwhile; 0 when there is none.
    int SlotInHand(int row) const { return hand_.GestureOpen && row == row_ ? hand_.DragBar : 0; }

    // The menu works on the row of the last press. Its commands commit an open gesture first.
    bool CanCut() const { return bars_.AvailCount[row_] > 0; }
    bool CanPaste() const { return bars_.AvailCount[row_] == 0 && clipboardFull_; }
    void CopyLine();
    void CutLine();
    /// False, with a beep due, when the row has bars.
    bool PasteLine();

  private:
    LaneBars BarsOfRow() const;
    AbsenceChange Hover(const GridMouse& mouse);
    void Commit();
    void NormalizeAvailabilityRow();

    Absence bars_;
    bool clipboardFull_ = false;
    int row_ = 1;
    bool leftDown_ = false;
    BarInHand hand_;
};

/// The menu `Popup` of the grid, on the row of its last press. `refused` is called where a row takes nothing.
/// The grid must outlive the table.
CommandTable AvailabilityCommands(AvailabilityGrid& grid, std::function<void()> refused);

/// The filled boxes of a row, grid twips: its white band, then its red bars but for the one in hand.
struct AbsenceBox {
    Twips left = 0;
    Twips top = 0;
    Twips right = 0;
    Twips bottom = 0;
    bool bar = false;
};
std::vector<AbsenceBox> DrawAvailabilityRow(const Absence& bars, int row, int slotInHand = 0);

} // namespace tvx
