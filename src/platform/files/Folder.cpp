#include "platform/files/Folder.h"

#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/TemporaryName.h"
#include "platform/files/WholeFile.h"

#include <fstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

fs::path Utf8Path(std::string_view name) {
    return {std::u8string(name.begin(), name.end())};
}

/// Makes the folder and those on the way to it, each closed to others. A folder that is there stays as it is.
void MakeClosedFolder(const fs::path& folder) {
    if (FileExists(folder) || !folder.has_relative_path()) return;
    MakeClosedFolder(folder.parent_path());
    mkdir(folder.c_str(), 0700); // the first use of it reports the trouble
}

bool IsOwn(const fs::path& folder) {
    struct stat found {};
    return stat(folder.c_str(), &found) == 0 && found.st_uid == geteuid();
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
    ClearTemporariesBeside(folder / "write");
    const fs::path probe = TemporaryBeside(folder / "write");
    const bool made = std::ofstream(probe).is_open();
    std::error_code ignored;
    if (made) fs::remove(probe, ignored);
    return made;
}

bool IsInstalled(const fs::path& folder) {
    std::error_code ignored;
    const fs::path whole = fs::weakly_canonical(folder, ignored);
    const fs::path first = whole.relative_path().empty() ? fs::path() : *whole.relative_path().begin();
    return first == "usr" || first == "opt";
}

fs::path ShippedFolder(const fs::path& programsOwn) {
    const fs::path shared = (programsOwn / "../share/tarvex").lexically_normal();
    const bool installed = FindFile(shared, "TVX.JAN") && !FindFile(programsOwn, "TVX.JAN");
    return installed ? shared : programsOwn;
}

fs::path ProgramFolder(const fs::path& programsOwn, const fs::path& usersFolder,
                       const std::vector<std::string>& shipped) {
    if (IsOwn(programsOwn) && !IsInstalled(programsOwn) && CanWriteInto(programsOwn)) return programsOwn;
    MakeClosedFolder(usersFolder);
    FillFolder(programsOwn, usersFolder, shipped);
    return usersFolder;
}

} // namespace tvx
