// Folders and file names: lookup without regard to case, and the folder that belongs to the program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// The file of a folder whose name equals `name` without regard to case; the exact spelling wins where both
/// exist. Nothing when there is none, or when the folder cannot be read.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& folder, std::string_view name);

/// Where to read or write the file `name`: the existing file in whatever spelling it has, else a new one
/// spelled as given.
std::filesystem::path FilePath(const std::filesystem::path& folder, std::string_view name);

/// True when the path names an existing file or folder. Errors count as false.
bool FileExists(const std::filesystem::path& path);

/// Copies a file whole, under a temporary name first, so that `target` is either as before or complete.
/// The copy is writable whatever the source was. Throws FileError: 53 no such source, 58 `target` exists, 61
/// the disk is full, 70, 75 or 76 when the file cannot be read or made.
void CopyWholeFile(const std::filesystem::path& source, const std::filesystem::path& target);

/// The folder that holds the side files, the ready-made database and, by default, the database.
///
/// That is the folder of the running program when it is this user's own, is no place of installed programs
/// and files can be written there. Else it is `usersFolder`, which is made, closed to others, and filled with
/// every file of `shipped` that is found beside the program and not yet there. A folder that cannot be made
/// or filled is answered all the same; the first use of it reports the trouble.
std::filesystem::path ProgramFolder(const std::filesystem::path& programsOwn,
                                    const std::filesystem::path& usersFolder,
                                    const std::vector<std::string>& shipped);

/// True for a folder below /usr or /opt, where programs are installed for everybody.
bool IsInstalled(const std::filesystem::path& folder);

/// The folder of what comes with the program: the shared data folder of the place where the program is
/// installed when the ready-made database lies there alone, else the program's own.
std::filesystem::path ShippedFolder(const std::filesystem::path& programsOwn);

/// True when a new file can be made in the folder. Leaves nothing behind.
bool CanWriteInto(const std::filesystem::path& folder);

} // namespace tvx
