#include "platform/basic/Format.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace tvx {
namespace {

/// A number in decimal digits: whole part without leading zeros, and the digits behind the point.
struct Decimal {
    bool negative = false;
    std::string whole;
    std::string fraction;
};

struct Pattern {
    std::size_t forcedWhole = 0; // digits before the point that are written even when they are 0
    std::size_t decimals = 0;
    std::size_t forcedDecimals = 0; // digits behind the point that are written even when they are 0
    bool grouped = false;
    bool point = false;
};

Pattern ReadPattern(std::string_view text) {
    Pattern pattern;
    for (const char mark : text) {
        if (mark == '.')
            pattern.point = true;
        else if (mark == ',')
            pattern.grouped = true;
        else if (pattern.point && (mark == '0' || mark == '#'))
            ++pattern.decimals;
        else if (mark == '0')
            ++pattern.forcedWhole;
        if (pattern.point && mark == '0') pattern.forcedDecimals = pattern.decimals;
    }
    return pattern;
}

std::uint64_t WithoutSign(std::int64_t number) {
    return number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
}

/// A whole part and its decimals: `fraction` of `unit`, which is a power of ten.
Decimal FromParts(std::uint64_t whole, std::uint64_t fraction, std::uint64_t unit) {
    Decimal decimal;
    if (whole != 0) decimal.whole = std::to_string(whole);
    decimal.fraction.assign(std::to_string(unit + fraction), 1); // with its leading zeros
    return decimal;
}

Decimal FromCurrency(Currency x) {
    constexpr std::uint64_t Unit = 10000;
    const std::uint64_t scaled = WithoutSign(x.Scaled());
    Decimal decimal = FromParts(scaled / Unit, scaled % Unit, Unit);
    decimal.negative = x.Scaled() < 0;
    return decimal;
}

Decimal FromWage(Wage x) {
    constexpr std::uint64_t Unit = 40000;
    constexpr std::uint64_t Millionths = 25; // of each of its parts
    const std::uint64_t fourths = WithoutSign(x.Fourths());
    Decimal decimal = FromParts(fourths / Unit, fourths % Unit * Millionths, Unit * Millionths);
    decimal.negative = x.Fourths() < 0;
    return decimal;
}

/// The number when it is one of four decimals and of so few digits that those are all that it holds for
/// certain. Most numbers that are shown are, and they are told much faster so.
std::optional<Currency> AsCurrency(double x) {
    constexpr double Scale = 10000;
    constexpr double Certain = 1e15;
    if (std::fabs(x) * Scale >= Certain) return std::nullopt;
    const auto scaled = std::llround(x * Scale);
    if (static_cast<double>(scaled) / Scale != x) return std::nullopt;
    return Currency::FromScaled(scaled);
}

Decimal FromReal(double x) {
    if (!std::isfinite(x)) x = 0;
    if (const auto money = AsCurrency(x)) return FromCurrency(*money);
    Decimal decimal;
    decimal.negative = x < 0;
    // Fifteen significant digits are what a real number holds for certain; the rest is binary noise.
    std::array<char, 48> scientific{};
    const auto end =
        std::to_chars(scientific.begin(), scientific.end(), std::fabs(x), std::chars_format::scientific, 14)
            .ptr;
    const std::string text(scientific.begin(), end);
    const std::size_t mark = text.find('e');
    const int exponent = std::atoi(text.c_str() + mark + 1);
    std::string digits = text.substr(0, 1) + text.substr(2, mark - 2);
    if (exponent < 0) {
        decimal.fraction = std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
        return decimal;
    }
    const auto wholeDigits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() < wholeDigits) digits.append(wholeDigits - digits.size(), '0');
    decimal.whole = digits.substr(0, wholeDigits);
    decimal.fraction = digits.substr(wholeDigits);
    if (decimal.whole == "0") decimal.whole.clear();
    return decimal;
}

/// Adds one to the last place of whole + fraction.
void StepUp(Decimal& decimal) {
    for (std::string* digits : {&decimal.fraction, &decimal.whole}) {
        for (std::size_t i = digits->size(); i-- > 0;) {
            if ((*digits)[i] != '9') {
                ++(*digits)[i];
                return;
            }
            (*digits)[i] = '0';
        }
    }
    decimal.whole.insert(0, "1");
}

void RoundTo(Decimal& decimal, std::size_t decimals) {
    if (decimal.fraction.size() <= decimals) {
        decimal.fraction.append(decimals - decimal.fraction.size(), '0');
        return;
    }
    const bool up = decimal.fraction[decimals] >= '5';
    decimal.fraction.resize(decimals);
    if (up) StepUp(decimal);
}

std::string Grouped(const std::string& digits) {
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i != 0 && (digits.size() - i) % 3 == 0) text += ',';
        text += digits[i];
    }
    return text;
}

void DropZerosBehind(std::string& fraction, std::size_t kept) {
    while (fraction.size() > kept && fraction.back() == '0') fraction.pop_back();
}

bool IsZero(const Decimal& decimal) {
    return decimal.whole.find_first_not_of('0') == std::string::npos &&
           decimal.fraction.find_first_not_of('0') == std::string::npos;
}

std::string Write(Decimal decimal, std::string_view patternText) {
    const Pattern pattern = ReadPattern(patternText);
    RoundTo(decimal, pattern.decimals);
    DropZerosBehind(decimal.fraction, pattern.forcedDecimals);
    if (decimal.whole.size() < pattern.forcedWhole)
        decimal.whole.insert(0, pattern.forcedWhole - decimal.whole.size(), '0');
    std::string text = decimal.negative && !IsZero(decimal) ? "-" : "";
    text += pattern.grouped ? Grouped(decimal.whole) : decimal.whole;
    if (pattern.point) text.append(".").append(decimal.fraction);
    return text;
}

} // namespace

std::string Format(double x, std::string_view pattern) {
    return Write(FromReal(x), pattern);
}

std::string Format(Currency x, std::string_view pattern) {
    return Write(FromCurrency(x), pattern);
}

std::string Format(Wage x, std::string_view pattern) {
    return Write(FromWage(x), pattern);
}

} // namespace tvx
