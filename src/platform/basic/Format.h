// Numbers as text by a pattern of digit marks.
#pragma once

#include "platform/basic/Currency.h"

#include <string>
#include <string_view>

namespace tvx {

/// Writes x by a pattern such as ".00", "##,##0.00", "###,###" or "###,###.00". "#" is a digit where there
/// is one, "0" a digit always, a comma between digit marks groups by threes. Rounds half away from zero on
/// the decimal value (15 digits), so 61.625 gives "61.63" under ".00". "." and "," stand whatever the
/// country. With no "0" before the point a whole part of 0 writes nothing: 0 under "###,###" is "".
std::string Format(double x, std::string_view pattern);

/// The same on the exact four decimals of an amount of money.
std::string Format(Currency x, std::string_view pattern);

/// The same on a wage, whose six decimals are exact too.
std::string Format(Wage x, std::string_view pattern);

} // namespace tvx
