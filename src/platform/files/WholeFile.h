// Files read and written in one piece.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tvx {

constexpr std::size_t NoLimit = static_cast<std::size_t>(-1);

/// The content of a file. Throws FileError 53 when there is no such file, and 75, with the name and the
/// reason, when it is there and cannot be read to its end, is no plain file, or holds more than `limit`
/// bytes. Never waits for a pipe; a link that leads nowhere is no missing file.
std::string ReadWholeFile(const std::filesystem::path& path, std::size_t limit = NoLimit);

/// Writes a file under a temporary name of its own, flushes it to the disk and renames it, so that `path` is
/// either as before or complete, also when two workstations write it at once. Throws FileError 61 on a full
/// disk, 64 on a name that cannot be, 70, 75 or 76 when the file cannot be made, and leaves nothing behind;
/// what killed writes of this file have left is cleared. A link stays one: what it leads to is written.
///
/// A file that is replaced keeps its owner, group and mode as far as the system lets it. A new one takes the
/// group of its folder and the mode of the database beside it; without one it is for its owner alone in a
/// folder that is closed to others, and elsewhere as the user's files are made.
void ReplaceWholeFile(const std::filesystem::path& path, std::string_view content);

/// Takes the bytes of a file, piece after piece.
using ByteSink = std::function<void(std::string_view)>;

/// The same for a file that is made while it is written: `write` gets the sink, and what it throws leaves
/// `path` as it was.
void ReplaceWholeFile(const std::filesystem::path& path, const std::function<void(const ByteSink&)>& write);

} // namespace tvx
