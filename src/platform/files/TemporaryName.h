// Names of files that are made beside a file until they are complete, and that a killed run leaves.
#pragma once

#include <filesystem>

namespace tvx {

/// A name beside `file` that nobody else uses: it carries the host, the process and a random number. The
/// engine's journal of it, with "-journal" behind, is its own too.
std::filesystem::path TemporaryBeside(const std::filesystem::path& file);

/// Clears what runs that are gone have left beside `file` under such names: those of this host whose process
/// does not run any more, and any that is older than a day. What cannot be cleared stays.
void ClearTemporariesBeside(const std::filesystem::path& file);

/// The same for whatever file of a folder; other programs' files, whatever they are called, stay.
void ClearTemporariesIn(const std::filesystem::path& folder);

} // namespace tvx
