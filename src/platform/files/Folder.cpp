#include "platform/files/Folder.h"

#include "platform/basic/Text.h"
#include "platform/files/FileError.h"

#include <cstdio>
#include <fstream>
#include <random>
#include <system_error>

namespace fs = std::filesystem;

namespace tvx {
namespace {

fs::path Utf8Path(std::string_view name) {
    return {std::u8string(name.begin(), name.end())};
}

std::string RandomSuffix() {
    std::random_device device;
    return std::to_string(device()) + ".tmp";
}

[[noreturn]] void Fail(const std::error_code& error, const fs::path& path) {
    FileErrorNumber number = FileErrorNumber::PathFileAccess;
    if (error == std::errc::no_such_file_or_directory)
        number = FileErrorNumber::FileNotFound;
    else if (error == std::errc::no_space_on_device)
        number = FileErrorNumber::DiskFull;
    else if (error == std::errc::permission_denied)
        number = FileErrorNumber::PermissionDenied;
    else if (error == std::errc::file_exists)
        number = FileErrorNumber::AlreadyExists;
    throw FileError(number, error.message() + ": " + path.string());
}

void FillFolder(const fs::path& from, const fs::path& to, const std::vector<std::string>& shipped) {
    for (const std::string& name : shipped) {
        const auto source = FindFile(from, name);
        if (!source || FindFile(to, name)) continue;
        try {
            CopyWholeFile(*source, to / Utf8Path(name));
        } catch (const FileError&) {
            // The program starts without the file and says what it misses when it needs it.
            continue;
        }
    }
}

} // namespace

std::optional<fs::path> FindFile(const fs::path& folder, std::string_view name) {
    const fs::path exact = folder / Utf8Path(name);
    if (FileExists(exact)) return exact;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const std::u8string found = it->path().filename().u8string();
        if (EqualsNoCase(std::string(found.begin(), found.end()), name)) return it->path();
    }
    return std::nullopt;
}

fs::path FilePath(const fs::path& folder, std::string_view name) {
    if (const auto found = FindFile(folder, name)) return *found;
    return folder / Utf8Path(name);
}

bool FileExists(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error) && !error;
}

void CopyWholeFile(const fs::path& source, const fs::path& target) {
    if (FileExists(target)) Fail(std::make_error_code(std::errc::file_exists), target);
    fs::path temporary = target;
    temporary += "." + RandomSuffix();
    std::error_code error;
    fs::copy_file(source, temporary, error);
    if (!error)
        fs::permissions(temporary, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add,
                        error);
    if (!error) fs::rename(temporary, target, error);
    if (!error) return;
    std::error_code ignored;
    fs::remove(temporary, ignored);
    Fail(error, target);
}

bool CanWriteInto(const fs::path& folder) {
    const fs::path probe = folder / ("write-" + RandomSuffix());
    const bool made = std::ofstream(probe).is_open();
    std::error_code ignored;
    if (made) fs::remove(probe, ignored);
    return made;
}

fs::path ProgramFolder(const fs::path& programsOwn, const fs::path& usersFolder,
                       const std::vector<std::string>& shipped) {
    if (CanWriteInto(programsOwn)) return programsOwn;
    std::error_code error;
    fs::create_directories(usersFolder, error);
    FillFolder(programsOwn, usersFolder, shipped);
    return usersFolder;
}

} // namespace tvx
