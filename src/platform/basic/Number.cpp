#include "platform/basic/Number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace tvx {
namespace {

constexpr double Int64Limit = 9223372036854775808.0;

std::int64_t ClipToInt64(double whole) {
    if (std::isnan(whole)) return 0;
    if (whole >= Int64Limit) return std::numeric_limits<std::int64_t>::max();
    if (whole < -Int64Limit) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(whole);
}

bool IsSkipped(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

/// Walks a text and passes over the characters that a number may hold anywhere.
class NumberReader {
  public:
    explicit NumberReader(std::string_view text) : text_(text) { Skip(); }

    char Peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    void Next() {
        ++at_;
        Skip();
    }
    bool Take(char wanted) {
        if (Peek() != wanted) return false;
        Next();
        return true;
    }
    std::size_t Mark() const { return at_; }
    void Back(std::size_t mark) { at_ = mark; }

  private:
    void Skip() {
        while (at_ < text_.size() && IsSkipped(text_[at_])) ++at_;
    }
    std::string_view text_;
    std::size_t at_ = 0;
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int DigitValue(char c) {
    if (IsDigit(c)) return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return 16;
}

double ReadWholeOfBase(NumberReader& reader, int base) {
    std::uint32_t value = 0;
    while (DigitValue(reader.Peek()) < base) {
        value =
            value * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(DigitValue(reader.Peek()));
        reader.Next();
    }
    if (value <= 0xFFFF) return static_cast<std::int16_t>(value);
    return static_cast<std::int32_t>(value);
}

void ReadDigits(NumberReader& reader, std::string& out) {
    while (IsDigit(reader.Peek())) {
        out += reader.Peek();
        reader.Next();
    }
}

void ReadExponent(NumberReader& reader, std::string& out) {
    const char letter = reader.Peek();
    if (letter != 'E' && letter != 'e' && letter != 'D' && letter != 'd') return;
    const std::size_t mark = reader.Mark();
    reader.Next();
    std::string exponent = "e";
    if (reader.Peek() == '+' || reader.Peek() == '-') {
        exponent += reader.Peek();
        reader.Next();
    }
    const std::size_t bare = exponent.size();
    ReadDigits(reader, exponent);
    if (exponent.size() == bare) {
        reader.Back(mark);
        return;
    }
    out += exponent;
}

// The C library's own ways between numbers and text follow the country of the desktop; these do not.

/// The number that digits, point and exponent mean; 0 when no real number is that large or small.
double RealOf(const std::string& digits) {
    double value = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return read.ec == std::errc() ? value : 0;
}

std::string FifteenDigits(double x) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.begin(), buffer.end(), x, std::chars_format::general, 15).ptr;
    std::replace(buffer.begin(), end, 'e', 'E');
    return {buffer.begin(), end};
}

} // namespace

std::int64_t RoundHalfToEven(double x) {
    return ClipToInt64(std::nearbyint(x));
}

std::int64_t Int(double x) {
    return ClipToInt64(std::floor(x));
}

std::int64_t IntegerDivide(double dividend, double divisor) {
    const std::int64_t by = RoundHalfToEven(divisor);
    if (by == 0) throw std::domain_error("division by zero");
    if (by == -1) return RoundHalfToEven(-dividend); // the lowest number has no opposite in 64 bits
    return RoundHalfToEven(dividend) / by;
}

std::int64_t Mod(double dividend, double divisor) {
    const std::int64_t by = RoundHalfToEven(divisor);
    if (by == 0) throw std::domain_error("division by zero");
    return by == -1 ? 0 : RoundHalfToEven(dividend) % by;
}

double Val(std::string_view text) {
    NumberReader reader(text);
    if (reader.Take('&')) {
        if (reader.Take('H') || reader.Take('h')) return ReadWholeOfBase(reader, 16);
        if (reader.Take('O') || reader.Take('o')) return ReadWholeOfBase(reader, 8);
        return 0;
    }
    std::string digits;
    if (reader.Take('-'))
        digits = "-";
    else
        reader.Take('+');
    const std::size_t sign = digits.size();
    ReadDigits(reader, digits);
    if (reader.Take('.')) {
        digits += '.';
        ReadDigits(reader, digits);
    }
    if (digits.size() == sign || digits.substr(sign) == ".") return 0;
    ReadExponent(reader, digits);
    return RealOf(digits);
}

std::string TrimmedNumber(double x) {
    if (x == 0 || !std::isfinite(x)) return "0";
    std::string text = FifteenDigits(x);
    const std::size_t first = text.front() == '-' ? 1 : 0;
    if (text.size() > first + 1 && text[first] == '0' && text[first + 1] == '.') text.erase(first, 1);
    return text;
}

std::string Str(double x) {
    return x < 0 ? TrimmedNumber(x) : " " + TrimmedNumber(x);
}

} // namespace tvx
