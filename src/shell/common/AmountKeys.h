// The keys of a box that takes an amount or another number with decimals.
#pragma once

#include <string_view>

namespace tvx {

/// The character that a key enters: digits, one point, backspace and Enter pass; the country's decimal sign
/// enters the point; 0 drops the key. `text` is what the box holds.
int FilterAmountKey(int code, std::string_view text, int decimalSign);

} // namespace tvx
