#include "masterdata/files/ShiftFile.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/SequentialFile.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tvx {
namespace {

constexpr int MostQuarters = 768; // a bar of any length that a week can hold

int ReadWhole(SequentialReader& reader, int most) {
    return static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(reader.InputNumber()), 0, most));
}

/// Reads one shift into slot n. False when it has more bars than a shift can hold.
bool ReadShift(SequentialReader& reader, Shifts& shifts, int n) {
    shifts.ShiftNames[n] = reader.InputText();
    const int bars = ReadWhole(reader, MostShiftBars + 1);
    if (bars > MostShiftBars) return false;
    for (int k = 1; k <= bars; ++k) {
        shifts.ShiftStarts[n][k] = ReadWhole(reader, MostQuarters);
        shifts.ShiftStops[n][k] = ReadWhole(reader, MostQuarters);
    }
    shifts.ShiftBarCount[n] = bars;
    return true;
}

/// Indexes of the named shifts in the order of their names, capitals and small letters alike. Equal names
/// keep the order in which they stand.
std::vector<int> SortedIndexes(const Shifts& shifts) {
    std::vector<std::pair<std::string, int>> named;
    for (int i = 1; i <= shifts.ShiftCount; ++i)
        if (!Trim(shifts.ShiftNames[i]).empty()) named.emplace_back(UpperCase(shifts.ShiftNames[i]), i);
    std::sort(named.begin(), named.end());
    std::vector<int> indexes;
    indexes.reserve(named.size());
    for (const auto& [name, index] : named) indexes.push_back(index);
    return indexes;
}

} // namespace

std::string ShiftFileName(int departmentNumber) {
    return std::to_string(departmentNumber) + ".SFT";
}

void LoadStoredShifts(const std::filesystem::path& programFolder, int departmentNumber, Shifts& shifts) {
    shifts.ShiftCount = 0;
    try {
        SequentialReader reader(FilePath(programFolder, ShiftFileName(departmentNumber)));
        while (!reader.AtEnd() && shifts.ShiftCount < MostShifts &&
               ReadShift(reader, shifts, shifts.ShiftCount + 1))
            ++shifts.ShiftCount;
    } catch (const FileError&) {
        return; // the end of the file, or a file that is not there: what was read stays
    }
}

void WriteStoredShifts(const std::filesystem::path& programFolder, int departmentNumber,
                       const Shifts& shifts) {
    SequentialWriter writer;
    for (const int n : SortedIndexes(shifts)) {
        writer.WriteText(shifts.ShiftNames[n]);
        writer.WriteNumber(shifts.ShiftBarCount[n]);
        for (int k = 1; k <= shifts.ShiftBarCount[n]; ++k) {
            writer.WriteNumber(shifts.ShiftStarts[n][k]);
            writer.WriteNumber(shifts.ShiftStops[n][k]);
        }
    }
    writer.ReplaceFile(FilePath(programFolder, ShiftFileName(departmentNumber)));
}

} // namespace tvx
