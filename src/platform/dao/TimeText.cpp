#include "platform/dao/TimeText.h"

#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx::dao {

std::string EncodeTimeText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) AppendUtf8(text, static_cast<unsigned char>(byte));
    return text;
}

std::string DecodeTimeText(std::string_view utf8) {
    const auto plain = [](char c) { return static_cast<unsigned char>(c) - 1U < 0x7F; };
    if (std::all_of(utf8.begin(), utf8.end(), plain)) return std::string(utf8);
    std::string bytes;
    for (const char32_t c : DecodeUtf8(utf8)) bytes += c == 0 || c > 255 ? ' ' : static_cast<char>(c);
    return bytes;
}

} // namespace tvx::dao
