#include "editor/lanes/Lanes.h"

namespace tvx {

int Lanes::RowAt(Twips y) const {
    if (y < 0) return 0;
    const int row = y / grid_.RowHeight + 1;
    return row <= Count() ? row : 0;
}

std::vector<int> Lanes::RowsTouched(int employee, Twips from, Twips to) const {
    std::vector<int> rows;
    for (const int row : RowsOf(employee)) {
        const Twips left = ScrollX(At(row).day);
        if (to >= left && from <= left + grid_.GridWidth) rows.push_back(row);
    }
    return rows;
}

LaneDay MainLanes::At(int row) const {
    return {roster_.RowOrder[row + cursor_.TopRow], cursor_.CurrentDay};
}

int MainLanes::RowOf(const LaneDay& lane) const {
    for (int row = 1; row <= Count(); ++row)
        if (At(row).employee == lane.employee && lane.day == cursor_.CurrentDay) return row;
    return 0;
}

std::vector<int> MainLanes::RowsOf(int employee) const {
    const int row = RowOf({employee, cursor_.CurrentDay});
    return row == 0 ? std::vector<int>() : std::vector<int>{row};
}

void MainLanes::MakeCurrent(const LaneDay& lane) {
    cursor_.CurrentEmployee = lane.employee;
    if (const int row = RowOf(lane); row != 0) cursor_.CurrentRow = row;
}

int WeekLanes::RowOf(const LaneDay& lane) const {
    return lane.employee == cursor_.CurrentEmployee && lane.day <= Count() ? lane.day : 0;
}

std::vector<int> WeekLanes::RowsOf(int employee) const {
    std::vector<int> rows;
    for (int row = 1; employee == cursor_.CurrentEmployee && row <= Count(); ++row) rows.push_back(row);
    return rows;
}

void WeekLanes::MakeCurrent(const LaneDay& lane) {
    cursor_.CurrentRow = lane.day;
    if (cursor_.CurrentDay != lane.day) edit_.ShowDay(lane.day);
}

} // namespace tvx
