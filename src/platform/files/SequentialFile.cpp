#include "platform/files/SequentialFile.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr std::string_view LineEnd = "\r\n";

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

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

void WriteAndFlush(const fs::path& path, const std::string& text) {
    FileHandle file(std::fopen(path.c_str(), "wb"));
    if (!file) FailFromErrno(path);
    if (std::fwrite(text.data(), 1, text.size(), file.get()) != text.size()) FailFromErrno(path);
    if (FlushToDisk(file.get()) != 0) FailFromErrno(path);
    if (std::fclose(file.release()) != 0) FailFromErrno(path);
}

} // namespace

SequentialReader::SequentialReader(const fs::path& path) {
    std::error_code error;
    if (!fs::exists(path, error))
        throw FileError(FileErrorNumber::FileNotFound, "File not found: " + path.string());
    std::ifstream file(path, std::ios::binary);
    if (fs::is_regular_file(path, error) && file)
        text_.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    else
        throw FileError(FileErrorNumber::PathFileAccess, "Path/File access error: " + path.string());
}

SequentialReader SequentialReader::FromText(std::string text) {
    SequentialReader reader;
    reader.text_ = std::move(text);
    return reader;
}

bool SequentialReader::AtEnd() const {
    return at_ >= text_.size();
}

void SequentialReader::SkipBlanks() {
    while (!AtEnd() && (text_[at_] == ' ' || text_[at_] == '\t' || IsLineEnd(text_[at_]))) ++at_;
    if (AtEnd()) throw FileError(FileErrorNumber::InputPastEnd, "Input past end of file");
}

void SequentialReader::SkipSeparator() {
    while (!AtEnd() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
    if (AtEnd()) return;
    const bool lineEnd = IsLineEnd(text_[at_]);
    if (!lineEnd && text_[at_] != ',') return;
    const bool carriageReturn = text_[at_++] == '\r';
    if (carriageReturn && !AtEnd() && text_[at_] == '\n') ++at_;
}

std::string SequentialReader::InputText() {
    SkipBlanks();
    if (text_[at_] == '"') {
        const std::size_t begin = ++at_;
        const std::size_t close = text_.find('"', begin);
        const std::size_t end = close == std::string::npos ? text_.size() : close;
        at_ = close == std::string::npos ? end : end + 1;
        SkipSeparator();
        return text_.substr(begin, end - begin);
    }
    const std::size_t begin = at_;
    while (!AtEnd() && text_[at_] != ',' && !IsLineEnd(text_[at_])) ++at_;
    std::string value = TrimRight(std::string_view(text_).substr(begin, at_ - begin));
    SkipSeparator();
    return value;
}

double SequentialReader::InputNumber() {
    SkipBlanks();
    if (text_[at_] == '"') return Val(InputText());
    const std::size_t begin = at_;
    while (!AtEnd() && text_[at_] != ',' && text_[at_] != ' ' && text_[at_] != '\t' && !IsLineEnd(text_[at_]))
        ++at_;
    const std::string word = text_.substr(begin, at_ - begin);
    SkipSeparator();
    if (EqualsNoCase(word, "#TRUE#")) return -1;
    return Val(word);
}

void SequentialWriter::WriteText(std::string_view text) {
    text_ += '"';
    text_ += text;
    text_ += '"';
    text_ += LineEnd;
}

void SequentialWriter::WriteNumber(long long number) {
    text_ += std::to_string(number);
    text_ += LineEnd;
}

void SequentialWriter::PrintText(std::string_view text) {
    text_ += text;
    text_ += LineEnd;
}

void SequentialWriter::PrintNumber(double number) {
    text_ += Str(number);
    text_ += ' ';
    text_ += LineEnd;
}

void SequentialWriter::ReplaceFile(const fs::path& path) const {
    fs::path temporary = path;
    temporary += ".new";
    try {
        WriteAndFlush(temporary, text_);
        if (std::rename(temporary.c_str(), path.c_str()) != 0) FailFromErrno(path);
    } catch (const FileError&) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw;
    }
}

} // namespace tvx
