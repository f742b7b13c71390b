// The first database of a new installation.
#pragma once

#include "platform/basic/Date.h"
#include "platform/dao/Database.h"

#include <filesystem>

namespace tvx {

constexpr const char* DatabaseFile = "TVX.MDB";

/// Makes the first database from the ready-made one: its example week is moved to the week of `today`. Does
/// nothing when the folder has a database, or has no ready-made one. The file appears whole or not at all,
/// and never over another: of two first starts at once the second finds that of the first. Throws DaoError or
/// FileError.
void SeedFirstDatabase(const dao::Engine& engine, const std::filesystem::path& folder, DaySerial today);

} // namespace tvx
