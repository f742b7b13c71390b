#include "store/rows/PasswordText.h"

#include "platform/basic/Text.h"

#include <cstdint>

namespace tvx {
namespace {

std::string Shifted(std::string_view text, std::int64_t direction) {
    std::string shifted;
    int place = 0;
    for (const char32_t c : DecodeUtf8(Trim(text))) {
        ++place;
        AppendUtf8(shifted, static_cast<char32_t>(static_cast<std::int64_t>(c) + direction * place));
    }
    return shifted;
}

} // namespace

std::string ScramblePassword(std::string_view text) {
    return Shifted(text, 1);
}

std::string UnscramblePassword(std::string_view text) {
    return Shifted(text, -1);
}

} // namespace tvx
