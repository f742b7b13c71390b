// The side file of a department that says which hours and money enter its ratios.
#pragma once

#include "shell/state/Week.h"

#include <filesystem>

namespace tvx {

/// "3WS.DAT" for department 3.
std::string ProductivityFileName(int departmentNumber);

/// Reads the choice of a department from the program's folder. A missing or damaged file gives wages only in
/// all three ratios. The values 1 to 3 of an older format leave the two transaction flags as they were.
void ReadProductivity(const std::filesystem::path& programFolder, int departmentNumber,
                      Productivity& productivity);

/// The same from the number that the file holds.
void DecodeProductivity(int number, Productivity& productivity);

} // namespace tvx
