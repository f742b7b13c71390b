// The arithmetic of hours, money and texts with numbers: division that truncates, rounding half to even, the
// leading-number parse, and numbers as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tvx {

/// The whole number nearest to x; an exact half goes to the even neighbour. This is what storing a real
/// number in a whole one means. Values beyond 64 bits are clipped to the ends of the range; NaN gives 0.
std::int64_t RoundHalfToEven(double x);

/// The greatest whole number at or below x.
std::int64_t Int(double x);

/// Whole division: both operands are rounded half to even first, the quotient is cut toward zero.
/// Throws std::domain_error when the divisor rounds to 0.
std::int64_t IntegerDivide(double dividend, double divisor);

/// Remainder of IntegerDivide; its sign follows the dividend. Throws std::domain_error on a divisor of 0.
std::int64_t Mod(double dividend, double divisor);

/// The leading number of a text. Blanks, tabs and line feeds are skipped everywhere in the number; reading
/// stops at the first other character. "." is the only decimal point, E and D mark an exponent, "&H" and
/// "&O" begin hexadecimal and octal numbers (of at most 16 bits: signed). Never fails: no number gives 0.
double Val(std::string_view text);

/// A number as plain text: a leading blank when it is not negative, "." always, no zero before the point.
std::string Str(double x);

/// Str without its leading blank: "0", "-5", ".5", "7.25".
std::string TrimmedNumber(double x);

} // namespace tvx
