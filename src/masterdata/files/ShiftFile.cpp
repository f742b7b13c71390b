#include "masterdata/files/ShiftFile.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/OldCodePage.h"
#include "platform/files/SequentialFile.h"
#include "platform/files/WholeFile.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tvx {
namespace {

constexpr int MostQuarters = 768; // a bar of any length that a week can hold

[[noreturn]] void FailDamaged(const char* why) {
    throw FileError(FileErrorNumber::PathFileAccess, std::string("The file is damaged: ") + why);
}

/// Reads the values of the file one after another, as far as they make sense, and remembers whether all did.
class ShiftReader {
  public:
    /// Files of older systems are in the code page of their time.
    explicit ShiftReader(const std::filesystem::path& file)
        : values_(SequentialReader::FromText(FromOldCodePage(ReadWholeFile(file, MostBytesOfSideFile)))) {}

    /// Adds the shifts that stand in the file. Throws FileError where the reading ends before the file does.
    void ReadInto(Shifts& shifts) {
        while (!values_.OnlyBlanksLeft()) {
            if (shifts.ShiftCount == MostShifts) FailDamaged("it holds more than 21 shifts");
            ReadShift(shifts, shifts.ShiftCount + 1);
            ++shifts.ShiftCount;
        }
        if (!sound_) FailDamaged("it holds other things than shifts");
    }

  private:
    int ReadWhole(int most) {
        sound_ = sound_ && values_.DigitsNext();
        const std::int64_t value = RoundHalfToEven(values_.InputNumber());
        const std::int64_t taken = std::clamp<std::int64_t>(value, 0, most);
        sound_ = sound_ && value == taken;
        return static_cast<int>(taken);
    }

    void ReadShift(Shifts& shifts, int n) {
        shifts.ShiftNames[n] = values_.InputText();
        const int bars = ReadWhole(MostShiftBars + 1);
        if (bars > MostShiftBars) FailDamaged("a shift has more than 35 bars");
        for (int k = 1; k <= bars; ++k) {
            shifts.ShiftStarts[n][k] = ReadWhole(MostQuarters);
            shifts.ShiftStops[n][k] = ReadWhole(MostQuarters);
        }
        shifts.ShiftBarCount[n] = bars;
    }

    SequentialReader values_;
    bool sound_ = true;
};

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

std::filesystem::path ShiftFilePath(const std::filesystem::path& programFolder, int departmentNumber) {
    return FilePath(programFolder, ShiftFileName(departmentNumber));
}

} // namespace

std::string ShiftFileName(int departmentNumber) {
    return std::to_string(departmentNumber) + ".SFT";
}

void LoadStoredShifts(const std::filesystem::path& programFolder, int departmentNumber, Shifts& shifts) {
    shifts.ShiftCount = 0;
    try {
        ShiftReader(ShiftFilePath(programFolder, departmentNumber)).ReadInto(shifts);
    } catch (const FileError&) {
        return; // the end of the reading, or a file that is not there: what was read stays
    }
}

Shifts ReadStoredShifts(const std::filesystem::path& programFolder, int departmentNumber) {
    Shifts shifts;
    const std::filesystem::path file = ShiftFilePath(programFolder, departmentNumber);
    try {
        ShiftReader(file).ReadInto(shifts);
    } catch (const FileError& trouble) {
        if (trouble.Number() != static_cast<int>(FileErrorNumber::FileNotFound))
            throw FileError(FileErrorNumber::PathFileAccess, file.string() + "\r\n" + trouble.what());
    }
    return shifts;
}

Shifts InOrderOfNames(const Shifts& shifts) {
    Shifts sorted;
    for (const int n : SortedIndexes(shifts)) {
        const int to = ++sorted.ShiftCount;
        sorted.ShiftNames[to] = shifts.ShiftNames[n];
        sorted.ShiftBarCount[to] = shifts.ShiftBarCount[n];
        sorted.ShiftStarts[to] = shifts.ShiftStarts[n];
        sorted.ShiftStops[to] = shifts.ShiftStops[n];
    }
    return sorted;
}

void WriteStoredShifts(const std::filesystem::path& programFolder, int departmentNumber,
                       const Shifts& shifts) {
    SequentialWriter writer;
    const Shifts sorted = InOrderOfNames(shifts);
    for (int n = 1; n <= sorted.ShiftCount; ++n) {
        writer.WriteText(sorted.ShiftNames[n]);
        writer.WriteNumber(sorted.ShiftBarCount[n]);
        for (int k = 1; k <= sorted.ShiftBarCount[n]; ++k) {
            writer.WriteNumber(sorted.ShiftStarts[n][k]);
            writer.WriteNumber(sorted.ShiftStops[n][k]);
        }
    }
    writer.ReplaceFile(ShiftFilePath(programFolder, departmentNumber));
}

} // namespace tvx
