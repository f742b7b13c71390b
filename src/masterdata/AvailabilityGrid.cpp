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
constexpr Twips GrabTolerance = 60;
constexpr Twips MarkerOffset = 140; // the mark that follows the mouse is centred on it

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

Twips Snap(Twips x) {
    const Twips rest = x % QuarterWidth;
    return rest > QuarterWidth / 2 ? x - rest + QuarterWidth : x - rest;
}

bool Near(Twips x, Twips end) {
    return x >= end - GrabTolerance && x <= end + GrabTolerance;
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

bool AvailabilityGrid::InBand(Twips y) const {
    const Twips top = (row_ - 1) * RowHeight;
    return y >= top + BandTop - 100 && y <= top + BandBottom + 100;
}

AbsenceChange AvailabilityGrid::Press(const AbsenceMouse& mouse) {
    AbsenceChange change;
    const int row = RowAt(mouse.y);
    if (row == 0 || mouse.x < 0 || mouse.x > RightEnd) return change;
    if (mouse.button == AbsenceMouse::Button::Right && leftDown_) return change;
    Settle();
    leftDown_ = leftDown_ || mouse.button == AbsenceMouse::Button::Left;
    change.pressed = true;
    row_ = row;
    if (mouse.button == AbsenceMouse::Button::Right)
        change.menu = true;
    else
        BeginDrag(mouse, change);
    return change;
}

/// Takes the first bar within reach out of its slot. False when the search comes to the fourth slot.
bool AvailabilityGrid::TakeSlot(Twips x) {
    pickedSlot_ = 0;
    bandStart_ = bandStop_ = 0;
    for (int k = 1; k <= bars_.AvailCount[row_]; ++k) {
        if (k > SlotsKept) return false;
        const Twips start = bars_.AvailStart[row_][k] * QuarterWidth;
        const Twips stop = bars_.AvailStop[row_][k] * QuarterWidth;
        if (x < start - GrabTolerance || x > stop + GrabTolerance) continue;
        bandStart_ = start;
        bandStop_ = stop;
        pickedSlot_ = k;
        bars_.AvailStart[row_][k] = bars_.AvailStop[row_][k] = 0;
        return true;
    }
    return true;
}

void AvailabilityGrid::BeginDrag(const AbsenceMouse& mouse, AbsenceChange& change) {
    if (!TakeSlot(mouse.x)) return;
    open_ = true;
    change.row = true;
    dragAnchor_ = mouse.x;
    const auto stretch = [&] {
        state_ = State::Stretching;
        change.pointer = true;
        change.shape = Pointer::Cross;
    };
    if (pickedSlot_ == 0) {
        bandStart_ = Snap(mouse.x);
        bandStop_ = mouse.x;
        stretch();
        return;
    }
    if (!InBand(mouse.y)) return;
    const bool inside = mouse.x > bandStart_ + GrabTolerance && mouse.x < bandStop_ - GrabTolerance;
    if (inside && mouse.shift) {
        state_ = State::Moving;
        change.pointer = true;
        change.shape = Pointer::SizeWestEast;
    } else if (Near(mouse.x, bandStart_)) {
        std::swap(bandStart_, bandStop_); // the end under the mouse is always the second
        stretch();
    } else if (Near(mouse.x, bandStop_)) {
        stretch();
    }
}

/// A limit ends the drag with the moving end held there.
void AvailabilityGrid::EndAt(Twips x) {
    bandStop_ = x;
    state_ = State::Idle;
}

AbsenceChange AvailabilityGrid::Hover(const AbsenceMouse& mouse) {
    AbsenceChange change;
    leftDown_ = false;
    change.row = change.pointer = Settle();
    change.hoverRow = RowAt(mouse.y);
    change.markerMoved = true;
    change.markerX = mouse.x - MarkerOffset;
    return change;
}

AbsenceChange AvailabilityGrid::Move(const AbsenceMouse& mouse) {
    if (mouse.button == AbsenceMouse::Button::None) return Hover(mouse);
    AbsenceChange change;
    if (state_ == State::Idle) return change;
    const Twips travelled = mouse.x - dragAnchor_;
    dragAnchor_ = mouse.x;
    bandStop_ += travelled;
    if (state_ == State::Moving)
        bandStart_ += travelled;
    else if (mouse.x >= RightEnd)
        EndAt(RightEnd);
    else if (mouse.x < 0)
        EndAt(0);
    change.row = true;
    change.pointer = state_ == State::Idle;
    return change;
}

AbsenceChange AvailabilityGrid::Release(const AbsenceMouse& mouse) {
    AbsenceChange change;
    if (mouse.button == AbsenceMouse::Button::Right) return change;
    leftDown_ = false;
    if (!open_) return change;
    Commit();
    change.row = true;
    change.pointer = true;
    change.markerMoved = true;
    change.markerX = mouse.x - MarkerOffset;
    return change;
}

bool AvailabilityGrid::Settle() {
    if (!open_) return false;
    Commit();
    return true;
}

void AvailabilityGrid::Commit() {
    open_ = false;
    state_ = State::Idle;
    if (bandStart_ > bandStop_) std::swap(bandStart_, bandStop_);
    bandStart_ = std::max(bandStart_, 0);
    bandStop_ = std::min(bandStop_, RightEnd);
    if (bandStop_ - bandStart_ < QuarterWidth) bandStart_ = bandStop_ = 0;
    const int slot = pickedSlot_ == 0 ? bars_.AvailCount[row_] + 1 : pickedSlot_;
    bars_.AvailStart[row_][slot] = Snap(bandStart_) / QuarterWidth;
    bars_.AvailStop[row_][slot] = Snap(bandStop_) / QuarterWidth;
    bandStart_ = bandStop_ = 0;
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
    if (!open_) return {0, 0};
    const auto [left, right] = std::minmax(bandStart_, bandStop_);
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

std::vector<AbsenceBox> DrawAvailabilityRow(const Absence& bars, int row) {
    const Twips top = (row - 1) * RowHeight;
    std::vector<AbsenceBox> boxes{{0, top + BandTop, RightEnd, top + BandBottom, false}};
    for (int k = 1; k <= SlotsStored; ++k) {
        const int start = bars.AvailStart[row][k];
        const int stop = bars.AvailStop[row][k];
        if (start == stop) break;
        if (stop > start)
            boxes.push_back(
                {start * QuarterWidth, top + BandTop, stop * QuarterWidth, top + BandBottom, true});
    }
    return boxes;
}

} // namespace tvx
