#include "platform/files/WholeFile.h"

#include "platform/files/FileError.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

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
#ifdef _WIN32
    return _commit(_fileno(file));
#else
    return fsync(fileno(file));
#endif
}

void WriteAndFlush(const fs::path& path, const std::function<void(const ByteSink&)>& write) {
    FileHandle file(std::fopen(path.c_str(), "wb"));
    if (!file) FailFromErrno(path);
    write([&](std::string_view piece) {
        if (std::fwrite(piece.data(), 1, piece.size(), file.get()) != piece.size()) FailFromErrno(path);
    });
    if (FlushToDisk(file.get()) != 0) FailFromErrno(path);
    if (std::fclose(file.release()) != 0) FailFromErrno(path);
}

} // namespace

std::string RandomSuffix() {
    std::random_device device;
    return std::to_string(device()) + ".tmp";
}

std::string ReadWholeFile(const fs::path& path) {
    std::error_code error;
    if (!fs::exists(path, error))
        throw FileError(FileErrorNumber::FileNotFound, "File not found: " + path.string());
    // Asked before opening: a pipe would be waited for.
    if (fs::is_regular_file(path, error))
        if (std::ifstream file(path, std::ios::binary); file)
            return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    throw FileError(FileErrorNumber::PathFileAccess, "Path/File access error: " + path.string());
}

void ReplaceWholeFile(const fs::path& path, std::string_view content) {
    ReplaceWholeFile(path, [&](const ByteSink& sink) { sink(content); });
}

void ReplaceWholeFile(const fs::path& path, const std::function<void(const ByteSink&)>& write) {
    fs::path temporary = path;
    temporary += "." + RandomSuffix();
    try {
        WriteAndFlush(temporary, write);
        if (std::rename(temporary.c_str(), path.c_str()) != 0) FailFromErrno(path);
    } catch (...) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw;
    }
}

} // namespace tvx
