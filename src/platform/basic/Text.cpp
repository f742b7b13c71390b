#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr char32_t Replacement = 0xFFFD;

/// Letters of the scripts that run from right to left, and the marks that turn a text's direction.
bool IsRightToLeft(char32_t c) {
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    return within(0x0590, 0x08FF) || within(0xFB1D, 0xFDFF) || within(0xFE70, 0xFEFF) ||
           within(0x10800, 0x10FFF) || within(0x1E800, 0x1EFFF) || within(0x202A, 0x202E) || c == 0x200F;
}

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

/// How many continuation bytes a lead byte announces; 0 when it announces none.
std::size_t FollowersOf(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    if (lead >= 0xF0 && lead <= 0xF4) return 3;
    return 0;
}

/// Reads the character at `at` and moves behind it.
char32_t ReadUtf8(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) return lead;
    const std::size_t more = FollowersOf(lead);
    if (more == 0) return Replacement;
    char32_t value = lead & (0x3F >> more);
    if (at + more > text.size()) return Replacement;
    for (std::size_t i = 0; i < more; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if (!IsContinuation(byte)) return Replacement;
        value = (value << 6) | (byte & 0x3F);
    }
    const bool overlong = (more == 2 && value < 0x800) || (more == 3 && value < 0x10000);
    if (overlong || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return Replacement;
    at += more;
    return value;
}

/// Small letters whose capitals lie all at one distance.
struct LetterRange {
    char32_t first;
    char32_t last;
    int toCapital;
};

constexpr LetterRange Shifted[] = {
    {'a', 'z', -32},     {0xE0, 0xF6, -32},    {0xF8, 0xFE, -32},
    {0xFF, 0xFF, 121},   {0x131, 0x131, -232}, // the i without a dot
    {0x3AC, 0x3AC, -38}, {0x3AD, 0x3AF, -37},  {0x3B1, 0x3C1, -32},
    {0x3C2, 0x3C2, -31}, // the sigma that ends a word
    {0x3C3, 0x3CB, -32}, {0x3CC, 0x3CC, -64},  {0x3CD, 0x3CE, -63},
    {0x430, 0x44F, -32}, {0x450, 0x45F, -80},
};

/// Letters where each capital is followed by its small letter; `first` is a capital.
struct PairRange {
    char32_t first;
    char32_t last;
};

constexpr PairRange Paired[] = {
    {0x100, 0x12F}, {0x132, 0x137}, {0x139, 0x148}, {0x14A, 0x177}, {0x179, 0x17E},   {0x1A0, 0x1A1},
    {0x1AF, 0x1B0}, {0x218, 0x21B}, {0x48A, 0x4BF}, {0x4D0, 0x52F}, {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF},
};

char32_t UpperOf(char32_t c) {
    if (c < 'a') return c;
    for (const LetterRange& range : Shifted)
        if (c >= range.first && c <= range.last) return c + static_cast<char32_t>(range.toCapital);
    for (const PairRange& range : Paired)
        if (c >= range.first && c <= range.last) return c - (c - range.first) % 2;
    return c;
}

} // namespace

std::string TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string TrimRight(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string() : std::string(text.substr(0, last + 1));
}

std::string Trim(std::string_view text) {
    return TrimLeft(TrimRight(text));
}

std::string UpperCase(std::string_view text) {
    std::string upper;
    upper.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t c = ReadUtf8(text, at);
        const char32_t capital = UpperOf(c);
        // A character that stays is copied as it stands, so that damaged bytes survive.
        if (capital == c)
            upper.append(text.substr(begin, at - begin));
        else
            AppendUtf8(upper, capital);
    }
    return upper;
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) ReadUtf8(text, at);
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    std::size_t at = 0;
    while (count-- > 0 && at < text.size()) ReadUtf8(text, at);
    return std::string(text.substr(0, at));
}

std::string FixedWidth(std::string_view text, std::size_t width) {
    std::string fixed = Left(text, width);
    const std::size_t count = CharacterCount(fixed);
    fixed.append(width - count, ' ');
    return fixed;
}

std::u32string DecodeUtf8(std::string_view text) {
    std::u32string decoded;
    decoded.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) decoded += ReadUtf8(text, at);
    return decoded;
}

void AppendUtf8(std::string& text, char32_t c) {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = Replacement;
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        text += static_cast<char>(0xE0 | (c >> 12));
        text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | (c >> 18));
        text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    }
}

std::string Isolated(std::string_view text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::all_of(text.begin(), text.end(), isAscii)) return std::string(text);
    const std::u32string letters = DecodeUtf8(text);
    if (std::none_of(letters.begin(), letters.end(), IsRightToLeft)) return std::string(text);
    return std::string("\u2068").append(text).append("\u2069");
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    const auto capital = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return capital(x) == capital(y); });
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::string NormalizedLineEnds(std::string_view text) {
    std::string normal;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        normal += text[i];
    }
    return normal;
}

} // namespace tvx
