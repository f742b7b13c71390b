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

/// The same before the file is changed: a missing file means none, but one that was not read to its end
/// (unreadable, damaged, over 1 MB, more than 21 shifts) throws FileError 75, which names it.
Shifts ReadStoredShifts(const std::filesystem::path& programFolder, int departmentNumber);

/// The shifts as they stand in the file after a write: in the order of their names, case ignored, those
/// without a name left out.
Shifts InOrderOfNames(const Shifts& shifts);

/// Writes the shifts in the order of their names, case ignored, those without a name left out, and replaces
/// the file in one step. Throws FileError; the file is then as it was.
void WriteStoredShifts(const std::filesystem::path& programFolder, int departmentNumber,
                       const Shifts& shifts);

} // namespace tvx
