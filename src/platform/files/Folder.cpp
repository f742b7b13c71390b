#include "platform/files/Folder.h"

#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/WholeFile.h"

#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace tvx {
namespace {

fs::path Utf8Path(std::string_view name) {
    return {std::u8string(name.begin(), name.end())};
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
    if (name.empty()) return std::nullopt; // the folder itself otherwise
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
    if (FileExists(target))
        throw FileError(FileErrorNumber::AlreadyExists, "File already exists: " + target.string());
    ReplaceWholeFile(target, ReadWholeFile(source));
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
