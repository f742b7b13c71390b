#include "platform/files/WholeFile.h"

#include "platform/files/FileError.h"
#include "platform/files/TemporaryName.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

[[noreturn]] void FailFromErrno(const fs::path& path) {
    const int code = errno;
    FileErrorNumber number = FileErrorNumber::PathFileAccess;
    if (code == ENOSPC || code == EDQUOT || code == EFBIG)
        number = FileErrorNumber::DiskFull;
    else if (code == EACCES || code == EPERM)
        number = FileErrorNumber::PermissionDenied;
    else if (code == ENOENT || code == ENOTDIR)
        number = FileErrorNumber::PathNotFound;
    else if (code == ENAMETOOLONG)
        number = FileErrorNumber::BadFileName;
    throw FileError(number, std::string(std::strerror(code)) + ": " + path.string());
}

struct FileCloser {
    void operator()(std::FILE* file) const {
        if (file != nullptr) std::fclose(file);
    }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// Makes the system put on the disk what was written; 0 on success.
int FlushToDisk(std::FILE* file) {
    if (std::fflush(file) != 0) return -1;
    return fsync(fileno(file));
}

/// What a link leads to, and to its end; a file that is no link is itself, also when it is not there yet.
fs::path BehindLinks(fs::path path) {
    constexpr int MostLinks = 40;
    std::error_code none;
    for (int links = 0; links < MostLinks && fs::is_symlink(fs::symlink_status(path, none)); ++links) {
        const fs::path target = fs::read_symlink(path, none);
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

/// Whose a new file is to be and who may read it.
struct Rights {
    std::optional<mode_t> mode; // none: as the user's files are made
    uid_t owner = static_cast<uid_t>(-1);
    gid_t group = static_cast<gid_t>(-1);
};

/// Of a file that is replaced its own; of a new one those of the database beside it, else, in a folder that
/// is closed to others, those of its owner alone. The group of a new one is the folder's.
Rights RightsFor(const fs::path& path) {
    struct stat found {};
    if (stat(path.c_str(), &found) == 0 && S_ISREG(found.st_mode))
        return {found.st_mode & 07777, found.st_uid, found.st_gid};
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    Rights rights;
    if (stat(folder.c_str(), &found) != 0) return rights;
    rights.group = found.st_gid;
    if ((found.st_mode & 077) == 0) rights.mode = 0600;
    if (stat((folder / "TVX.MDB").c_str(), &found) == 0) rights.mode = found.st_mode & 0666;
    return rights;
}

/// Where the group cannot be given, it gets no more than everybody else has.
void GiveRights(int file, const Rights& rights) {
    const bool asWanted = fchown(file, rights.owner, rights.group) == 0 ||
                          fchown(file, static_cast<uid_t>(-1), rights.group) == 0;
    if (!rights.mode) return;
    const mode_t mode = asWanted ? *rights.mode : (*rights.mode & ~070U) | ((*rights.mode & 07U) << 3);
    if (fchmod(file, mode) != 0) return; // some file systems keep no rights
}

/// A new file of that name, closed to others until it has its rights.
FileHandle MakeFile(const fs::path& path, const Rights& rights) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, rights.mode ? 0600 : 0666);
    if (file < 0) FailFromErrno(path);
    GiveRights(file, rights);
    return FileHandle(fdopen(file, "wb"));
}

void WriteAndFlush(const fs::path& path, const Rights& rights,
                   const std::function<void(const ByteSink&)>& write) {
    FileHandle file = MakeFile(path, rights);
    if (!file) FailFromErrno(path);
    write([&](std::string_view piece) {
        if (std::fwrite(piece.data(), 1, piece.size(), file.get()) != piece.size()) FailFromErrno(path);
    });
    if (FlushToDisk(file.get()) != 0) FailFromErrno(path);
    if (std::fclose(file.release()) != 0) FailFromErrno(path);
}

[[noreturn]] void FailToRead(const fs::path& path, const std::string& why) {
    throw FileError(FileErrorNumber::PathFileAccess,
                    "Path/File access error: " + path.string() + " (" + why + ")");
}

/// A link to what is not there, perhaps on a share that is not mounted, is no missing file.
[[noreturn]] void FailToOpen(const fs::path& path) {
    const int code = errno;
    std::error_code ignored;
    if ((code == ENOENT || code == ENOTDIR) && !fs::is_symlink(fs::symlink_status(path, ignored)))
        throw FileError(FileErrorNumber::FileNotFound, "File not found: " + path.string());
    FailToRead(path, std::strerror(code));
}

/// A plain file that is open for reading.
class OpenFile {
  public:
    /// Opened without waiting, since nobody may ever write to a pipe of that name.
    explicit OpenFile(const fs::path& path)
        : path_(path), file_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {
        if (file_ < 0) FailToOpen(path);
        struct stat found {};
        const bool plain = fstat(file_, &found) == 0 && S_ISREG(found.st_mode);
        if (plain) return;
        close(file_);
        FailToRead(path, "no plain file");
    }
    ~OpenFile() { close(file_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// Adds the next bytes to the content; false at the end of the file.
    bool ReadPiece(std::string& content) const {
        std::array<char, 65536> piece{};
        ssize_t got = 0;
        do got = read(file_, piece.data(), piece.size());
        while (got < 0 && errno == EINTR);
        if (got < 0) FailToRead(path_, std::strerror(errno));
        content.append(piece.data(), static_cast<std::size_t>(got));
        return got > 0;
    }

  private:
    const fs::path& path_;
    int file_;
};

} // namespace

std::string ReadWholeFile(const fs::path& path, std::size_t limit) {
    const OpenFile file(path);
    std::string content;
    while (file.ReadPiece(content))
        if (content.size() > limit) FailToRead(path, "the file is too large");
    return content;
}

void ReplaceWholeFile(const fs::path& path, std::string_view content) {
    ReplaceWholeFile(path, [&](const ByteSink& sink) { sink(content); });
}

void ReplaceWholeFile(const fs::path& path, const std::function<void(const ByteSink&)>& write) {
    const fs::path target = BehindLinks(path);
    ClearTemporariesBeside(target);
    const fs::path temporary = TemporaryBeside(target);
    try {
        WriteAndFlush(temporary, RightsFor(target), write);
        if (std::rename(temporary.c_str(), target.c_str()) != 0) FailFromErrno(path);
    } catch (...) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw;
    }
}

} // namespace tvx
