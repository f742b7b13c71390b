#include "reports/page/HtmlText.h"

#include "platform/basic/Text.h"

#include <algorithm>
#include <array>

namespace tvx {
namespace {

constexpr char32_t IsolationBegins = 0x2068;
constexpr char32_t IsolationEnds = 0x2069;

/// Characters that a page may hold: no control characters, no code points that are set aside.
bool IsForPages(char32_t c) {
    if (c < 0x20) return c == U'\t';
    if (c >= 0x7F && c < 0xA0) return false;
    return (c & 0xFFFE) != 0xFFFE && (c < 0xFDD0 || c > 0xFDEF);
}

/// For each byte whether it stands for itself.
constexpr auto PlainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x7F; ++byte) plain[byte] = true;
    for (const char mark : {'&', '<', '>', '"', '\''}) plain[static_cast<unsigned char>(mark)] = false;
    return plain;
}();

bool IsPlain(char c) {
    return PlainBytes[static_cast<unsigned char>(c)];
}

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// A mark of markup as a reference; a control character goes.
std::string_view MarkOf(const char& c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    default:
        return IsForPages(static_cast<unsigned char>(c)) ? std::string_view(&c, 1) : std::string_view();
    }
}

/// The beginning of a text whose characters all belong to it; the text loses it.
template <typename Belongs>
std::string_view TakeRun(std::string_view& text, const Belongs& belongs) {
    std::size_t length = 0;
    while (length < text.size() && belongs(text[length])) ++length;
    const std::string_view run = text.substr(0, length);
    text.remove_prefix(length);
    return run;
}

/// Hands a text on in runs that are alike: as it is, mark by mark, and what is beyond ASCII.
template <typename Plain, typename Foreign>
void InRuns(std::string_view text, const Plain& plain, const Foreign& foreign) {
    while (!text.empty()) {
        plain(TakeRun(text, IsPlain));
        if (text.empty()) return;
        if (IsAscii(text.front())) {
            plain(MarkOf(text.front()));
            text.remove_prefix(1);
        } else {
            foreign(TakeRun(text, [](char c) { return !IsAscii(c); }));
        }
    }
}

} // namespace

Markup& Markup::operator<<(std::string_view piece) {
    if (piece.size() > bytes_.size() - length_) HandOn();
    if (piece.size() > bytes_.size()) {
        sink_(piece);
        return *this;
    }
    std::copy_n(piece.data(), piece.size(), bytes_.data() + length_);
    length_ += piece.size();
    return *this;
}

bool IsAsciiText(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsAscii);
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    InRuns(
        text, [&](std::string_view run) { escaped += run; },
        [&](std::string_view run) {
            for (const char32_t c : DecodeUtf8(run))
                if (IsForPages(c) && c != IsolationBegins && c != IsolationEnds) AppendUtf8(escaped, c);
        });
    return escaped;
}

std::string EscapedForStyle(std::string_view text) {
    constexpr std::string_view Marks = "\"\\<>&'\n";
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string escaped;
    for (const char32_t c : DecodeUtf8(text)) {
        if (c < 0x80 && Marks.find(static_cast<char>(c)) != std::string_view::npos)
            escaped += {'\\', Digits[c >> 4U], Digits[c & 15U], ' '};
        else if (IsForPages(c))
            AppendUtf8(escaped, c);
    }
    return escaped;
}

LineOfText::~LineOfText() {
    for (; isolated_ > 0; --isolated_) html_ << "</bdi>";
}

void LineOfText::Put(std::string_view piece) {
    InRuns(
        piece, [&](std::string_view run) { html_ << run; }, [&](std::string_view run) { PutForeign(run); });
}

void LineOfText::PutForeign(std::string_view bytes) {
    for (const char32_t c : DecodeUtf8(bytes)) {
        if (c == IsolationBegins) {
            ++isolated_;
            html_ << "<bdi>";
        } else if (c == IsolationEnds) {
            if (isolated_ > 0) html_ << "</bdi>";
            isolated_ = std::max(0, isolated_ - 1);
        } else if (IsForPages(c)) {
            std::string character;
            AppendUtf8(character, c);
            html_ << character;
        }
    }
}

void LineOfText::PutWords(std::string_view words) {
    bool first = true;
    for (const std::string& word : Split(words, ' ')) {
        if (!first) html_ << " ";
        first = false;
        PutWord(word);
    }
}

void LineOfText::PutWord(std::string_view word) {
    constexpr std::size_t LongestDate = 12;
    if (word.size() > LongestDate || word.find('-') == std::string_view::npos || !IsAsciiText(word))
        return Put(word);
    html_ << "<span class=\"n\">";
    Put(word);
    html_ << "</span>";
}

} // namespace tvx
