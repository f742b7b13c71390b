// Whose the journal is that lies beside the database file when a run begins.
#pragma once

#include "platform/ports/Prompt.h"

#include <filesystem>
#include <optional>

namespace tvx {

/// A journal that was not played back, and a copy of the file as it was found beside it.
struct SetAside {
    std::filesystem::path journal;
    std::filesystem::path copy;
};

/// Looks at the journal of a save that was interrupted, before the database is opened. It is this file's when
/// the count of changes in its first page is the file's or one less, and when a copy of the file with it
/// played back is sound: then it stays for the engine to play back. Any other, which would mix two days, is
/// renamed beside a copy of the file. Does nothing while another process uses the file, whose save or whose
/// start the journal then belongs to. Throws DaoError, and FileError when there is no room to keep the two;
/// the file and its journal are then as they were.
std::optional<SetAside> JudgeJournal(const std::filesystem::path& database);

/// The box that names both.
void TellJournalSetAside(Prompt& prompt, const SetAside& kept);

} // namespace tvx
