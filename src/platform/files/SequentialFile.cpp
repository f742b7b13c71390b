#include "platform/files/SequentialFile.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/WholeFile.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr std::string_view LineEnd = "\r\n";

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

} // namespace

SequentialReader::SequentialReader(const fs::path& path) : text_(ReadWholeFile(path, MostBytesOfSideFile)) {}

SequentialReader SequentialReader::FromText(std::string text) {
    SequentialReader reader;
    reader.text_ = std::move(text);
    return reader;
}

bool SequentialReader::AtEnd() const {
    return at_ >= text_.size();
}

bool SequentialReader::OnlyBlanksLeft() const {
    return text_.find_first_not_of(" \t\r\n", at_) == std::string::npos;
}

bool SequentialReader::DigitsNext() const {
    const std::size_t begin = text_.find_first_not_of(" \t\r\n", at_);
    if (begin == std::string::npos) return false;
    const std::size_t end = std::min(text_.find_first_of(", \t\r\n", begin), text_.size());
    return end > begin && std::all_of(text_.begin() + static_cast<std::ptrdiff_t>(begin),
                                      text_.begin() + static_cast<std::ptrdiff_t>(end),
                                      [](char c) { return c >= '0' && c <= '9'; });
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
    ReplaceWholeFile(path, text_);
}

} // namespace tvx
