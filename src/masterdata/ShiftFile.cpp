#include "masterdata/ShiftFile.h"

#include "platform/basic/Number.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/SequentialFile.h"

#include <algorithm>

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

} // namespace tvx
