#include "platform/dao/Value.h"

#include "platform/basic/Number.h"
#include "platform/dao/DaoError.h"

#include <limits>

namespace tvx::dao {

bool IsNull(const Value& value) {
    return std::holds_alternative<Null>(value);
}

std::string ToText(const Value& value, std::string_view ifNull) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&value)) return TrimmedNumber(*real);
    return std::string(ifNull);
}

std::int64_t ToLong(const Value& value, std::int64_t ifNull) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (IsNull(value)) return ifNull;
    return RoundHalfToEven(ToDouble(value));
}

int Narrowed(std::int64_t whole) {
    using Range = std::numeric_limits<int>;
    if (whole < Range::min() || whole > Range::max())
        throw DaoError(error::NumberTooLarge, "Numeric field overflow.");
    return static_cast<int>(whole);
}

int ToInt(const Value& value, int ifNull) {
    return Narrowed(ToLong(value, ifNull));
}

double ToDouble(const Value& value, double ifNull) {
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
    if (const auto* text = std::get_if<std::string>(&value)) return Val(*text);
    return ifNull;
}

} // namespace tvx::dao
