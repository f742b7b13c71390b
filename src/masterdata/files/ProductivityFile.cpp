#include "masterdata/files/ProductivityFile.h"

#include "platform/basic/Number.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/SequentialFile.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr int WagesOnly = 64 + 16 + 4;

/// The older format: 1 wages, 2 salaries, 3 both; nothing of transactions.
void DecodeOlder(int number, Productivity& p) {
    p.LaborWages = p.SalesWageHours = number != 2;
    p.LaborSalary = p.SalesSalaryHours = number != 1;
}

} // namespace

std::string ProductivityFileName(int departmentNumber) {
    return std::to_string(departmentNumber) + "WS.DAT";
}

void DecodeProductivity(int number, Productivity& p) {
    if (number == 0) number = WagesOnly;
    if (number >= 1 && number <= 3) {
        DecodeOlder(number, p);
        return;
    }
    const auto take = [&](int bit) {
        if (number < bit) return false;
        number -= bit;
        return true;
    };
    p.TransSalaryHours = take(128);
    p.TransWageHours = take(64);
    p.SalesSalaryHours = take(32);
    p.SalesWageHours = take(16);
    p.LaborSalary = take(8);
    p.LaborWages = take(4);
}

void ReadProductivity(const std::filesystem::path& programFolder, int departmentNumber,
                      Productivity& productivity) {
    int number = 0;
    try {
        SequentialReader reader(FilePath(programFolder, ProductivityFileName(departmentNumber)));
        number = static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(reader.InputNumber()), 0, 32767));
    } catch (const FileError&) {
        number = 0;
    }
    DecodeProductivity(number, productivity);
}

} // namespace tvx
