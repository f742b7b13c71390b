// The side file in which a department keeps its stored shifts.
#pragma once

#include "shell/state/Lists.h"

#include <filesystem>
#include <string>

namespace tvx {

/// "3.SFT" for department 3.
std::string ShiftFileName(int departmentNumber);

/// Reads a department's stored shifts from the program's folder, at most 21 of at most 35 bars. A missing
/// file means none; whatever ends the reading early leaves the shifts that were read whole.
void LoadStoredShifts(const std::filesystem::path& programFolder, int departmentNumber, Shifts& shifts);

/// Writes the shifts in the order of their names, case ignored, those without a name left out, and replaces
/// the file in one step. Throws FileError; the file is then as it was.
void WriteStoredShifts(const std::filesystem::path& programFolder, int departmentNumber,
                       const Shifts& shifts);

} // namespace tvx
