#include "shell/common/AmountKeys.h"

namespace tvx {

int FilterAmountKey(int code, std::string_view text, int decimalSign) {
    constexpr int Backspace = 8;
    constexpr int Enter = 13;
    if (code == Backspace || code == Enter || (code >= '0' && code <= '9')) return code;
    const bool point = code == '.' || code == decimalSign;
    return point && text.find('.') == std::string_view::npos ? '.' : 0;
}

} // namespace tvx
