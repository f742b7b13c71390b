#include "masterdata/AvailabilityGrid.h"

#include "store/rows/Periods.h"

#include <algorithm>
#include <utility>

namespace tvx {
namespace {

using namespace absence;

constexpr int Days = 7;
constexpr int SlotsStored = 4;
constexpr int SlotsKept = 3;
constexpr Twips MarkerOffset = 140; // the mark that follows the mouse is centred on it
constexpr BarLimits Limits{QuarterWidth, SlotsKept, 0, RightEnd};

std::size_t PlaceOf(int day, int slot) {
    return static_cast<std::size_t>((day - 1) * SlotsStored + slot - 1);
}

WeekAbsences AbsencesOf(const Absence& bars) {
    WeekAbsences absences;
    for (int d = 1; d <= Days; ++d)
        for (int k = 1; k <= SlotsStored; ++k)
            absences[PlaceOf(d, k)] = {bars.AvailStart[d][k], bars.AvailStop[d][k]};
    return absences;
}

/// Row 1 to 7 of a place, 0 outside.
int RowAt(Twips y) {
    if (y < 0) return 0;
    const int row = y / RowHeight + 1;
    return row <= Days ? row : 0;
}

void CopyRow(Absence& bars, int from, int to) {
    bars.AvailCount[to] = bars.AvailCount[from];
    bars.AvailStart[to] = bars.AvailStart[from];
    bars.AvailStop[to] = bars.AvailStop[from];
}

void ClearRow(Absence& bars, int row) {
    bars.AvailCount[row] = 0;
    bars.AvailStart[row] = {};
    bars.AvailStop[row] = {};
}

/// Ends the row's list of bars at its first empty slot, as painting it finds it.
void TrimRow(Absence& bars, int row) {
    for (int k = 1; k <= SlotsStored; ++k) {
        if (bars.AvailStart[row][k] != bars.AvailStop[row][k]) continue;
        bars.AvailCount[row] = k - 1;
        bars.AvailStart[row][k] = bars.AvailStop[row][k] = 0;
        return;
    }
}

} // namespace

Absence DecodeAbsence(std::string_view availStart, std::string_view availStop) {
    Absence bars;
    const WeekAbsences absences = DecodeAbsences(availStart, availStop);
    for (int d = 1; d <= Days; ++d) {
        for (int k = 1; k <= SlotsStored; ++k) {
            const Period& absence = absences[PlaceOf(d, k)];
            if (!absence.IsUsed()) continue;
            bars.AvailCount[d] = k;
            bars.AvailStart[d][k] = std::clamp(absence.start, 0, QuartersPerDay);
            bars.AvailStop[d][k] = std::clamp(absence.stop, 0, QuartersPerDay);
        }
        TrimRow(bars, d);
    }
    return bars;
}

std::string EncodeStarts(const Absence& bars) {
    return EncodeAbsenceStarts(AbsencesOf(bars));
}

std::string EncodeStops(const Absence& bars) {
    return EncodeAbsenceStops(AbsencesOf(bars));
}

void AvailabilityGrid::SetBars(const Absence& bars) {
    AvailabilityGrid fresh;
    fresh.bars_ = bars;
    fresh.clipboardFull_ = clipboardFull_;
    fresh.bars_.AvailCount[0] = bars_.AvailCount[0];
    fresh.bars_.AvailStart[0] = bars_.AvailStart[0];
    fresh.bars_.AvailStop[0] = bars_.AvailStop[0];
    *this = fresh;
}

LaneBars AvailabilityGrid::BarsOfRow() const {
    return {bars_.AvailCount[row_], bars_.AvailStart[row_], bars_.AvailStop[row_]};
}

AbsenceChange AvailabilityGrid::Press(const GridMouse& mouse) {
    AbsenceChange change;
    const int row = RowAt(mouse.y);
    if (row == 0 || mouse.x < 0 || mouse.x > RightEnd) return change;
    if (mouse.button == MouseButton::Right && leftDown_) return change;
    Settle();
    leftDown_ = leftDown_ || mouse.button == MouseButton::Left;
    change.pressed = true;
    row_ = row;
    change.menu = mouse.button == MouseButton::Right;
    if (change.menu || !hand_.PickUp(BarsOfRow(), mouse.x, Limits)) return change;
    change.row = true;
    const bool onLane = IsOnLane(mouse.y, (row_ - 1) * RowHeight);
    const auto pointer = hand_.Grasp(mouse.x, onLane, mouse.shift, Limits);
    change.pointer = pointer.has_value();
    change.shape = pointer.value_or(Pointer::Default);
    return change;
}

AbsenceChange AvailabilityGrid::Hover(const GridMouse& mouse) {
    AbsenceChange change;
    leftDown_ = false;
    change.row = change.pointer = Settle();
    change.hoverRow = RowAt(mouse.y);
    change.markerMoved = true;
    change.markerX = mouse.x - MarkerOffset;
    return change;
}

AbsenceChange AvailabilityGrid::Move(const GridMouse& mouse) {
    if (mouse.button == MouseButton::None) return Hover(mouse);
    AbsenceChange change;
    if (hand_.IsMoving())
        hand_.MoveTo(mouse.x);
    else if (hand_.IsStretching())
        hand_.StretchTo(mouse.x);
    else
        return change;
    if (hand_.IsStretching() && (mouse.x >= RightEnd || mouse.x < 0))
        hand_.HoldAt(hand_.DayRightBar, mouse.x < 0 ? 0 : RightEnd);
    change.row = true;
    change.pointer = hand_.MouseState == 0;
    return change;
}

AbsenceChange AvailabilityGrid::Release(const GridMouse& mouse) {
    AbsenceChange change;
    if (mouse.button == MouseButton::Right) return change;
    leftDown_ = false;
    if (!Settle()) return change;
    change.row = true;
    change.pointer = true;
    change.markerMoved = true;
    change.markerX = mouse.x - MarkerOffset;
    return change;
}

bool AvailabilityGrid::Settle() {
    if (!hand_.GestureOpen) return false;
    Commit();
    return true;
}

void AvailabilityGrid::Commit() {
    const BarLetGo bar = hand_.LetGo(Limits);
    const int slot = bar.slot == 0 ? bars_.AvailCount[row_] + 1 : bar.slot;
    bars_.AvailStart[row_][slot] = bar.start;
    bars_.AvailStop[row_][slot] = bar.stop;
    NormalizeAvailabilityRow();
}

/// Paints the bars of the row into a string of quarters and reads the first three runs back.
void AvailabilityGrid::NormalizeAvailabilityRow() {
    std::string quarters(QuartersPerDay + 1, ' '); // the last place stays blank and closes the last run
    for (int k = 1; k <= SlotsStored; ++k)
        for (int q = bars_.AvailStart[row_][k]; q < bars_.AvailStop[row_][k]; ++q)
            quarters[static_cast<std::size_t>(q)] = 'X';
    ClearRow(bars_, row_);
    std::size_t at = 0;
    for (int k = 1; k <= SlotsKept; ++k) {
        at = quarters.find('X', at);
        if (at == std::string::npos) return;
        const std::size_t end = quarters.find(' ', at);
        bars_.AvailStart[row_][k] = static_cast<int>(at);
        bars_.AvailStop[row_][k] = static_cast<int>(end);
        bars_.AvailCount[row_] = k;
        at = end;
    }
}

std::pair<Twips, Twips> AvailabilityGrid::Band() const {
    if (!hand_.GestureOpen) return {0, 0};
    const auto [left, right] = hand_.Ends();
    return {std::clamp(left, 0, RightEnd), std::clamp(right, 0, RightEnd)}; // a moved bar may be outside
}

void AvailabilityGrid::CopyLine() {
    Settle();
    CopyRow(bars_, row_, 0);
    clipboardFull_ = true;
}

void AvailabilityGrid::CutLine() {
    CopyLine();
    ClearRow(bars_, row_);
}

bool AvailabilityGrid::PasteLine() {
    Settle();
    if (bars_.AvailCount[row_] != 0) return false;
    CopyRow(bars_, 0, row_);
    return true;
}

CommandTable AvailabilityCommands(AvailabilityGrid& grid, std::function<void()> refused) {
    const auto canCut = [&grid] { return grid.CanCut(); };
    return CommandTable({
        {.name = "Popup"},
        {.name = "CutLine",
         .parent = "Popup",
         .caption = "&Cut",
         .run = [&grid] { grid.CutLine(); },
         .offered = canCut},
        {.name = "CopyLine",
         .parent = "Popup",
         .caption = "C&opy",
         .run = [&grid] { grid.CopyLine(); },
         .offered = canCut},
        {.name = "PasteLine",
         .parent = "Popup",
         .caption = "&Paste",
         .run =
             [&grid, refused = std::move(refused)] {
                 if (!grid.PasteLine()) refused();
             },
         .offered = [&grid] { return grid.CanPaste(); }},
    });
}

std::vector<AbsenceBox> DrawAvailabilityRow(const Absence& bars, int row, int slotInHand) {
    const Twips top = (row - 1) * RowHeight;
    std::vector<AbsenceBox> boxes{{0, top + LaneTop, RightEnd, top + LaneBottom, false}};
    for (int k = 1; k <= SlotsStored; ++k) {
        const int start = bars.AvailStart[row][k];
        const int stop = bars.AvailStop[row][k];
        if (start == stop) break;
        if (stop > start && k != slotInHand)
            boxes.push_back(
                {start * QuarterWidth, top + LaneTop, stop * QuarterWidth, top + LaneBottom, true});
    }
    return boxes;
}

} // namespace tvx
