#include "platform/files/OldCodePage.h"

#include "platform/basic/Text.h"

#include <array>

namespace tvx {
namespace {

constexpr unsigned char FirstOwn = 0x80; // where the code page leaves Latin-1, for two rows
constexpr std::array<char32_t, 32> Own{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t LetterOf(unsigned char byte) {
    const std::size_t own = byte - FirstOwn;
    return own < Own.size() ? Own[own] : byte;
}

} // namespace

std::string FromOldCodePage(std::string_view text) {
    constexpr std::size_t LongestCharacter = 4;
    std::string read;
    read.reserve(text.size());
    while (!text.empty()) {
        const std::string character = Left(text.substr(0, LongestCharacter), 1);
        const auto first = static_cast<unsigned char>(character.front());
        if (character.size() == 1 && first >= FirstOwn)
            AppendUtf8(read, LetterOf(first));
        else
            read += character;
        text.remove_prefix(character.size());
    }
    return read;
}

} // namespace tvx
