// What a field can hold.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tvx::dao {

/// Nothing, which is neither 0 nor "".
using Null = std::monostate;

/// The value of a field: Null, a whole number (yes/no fields are -1 and 0), a real number, or text. Text is
/// UTF-8, but for time texts, which are bytes 32 to 128.
using Value = std::variant<Null, std::int64_t, double, std::string>;

bool IsNull(const Value& value);

/// As text; numbers as trimmed text, Null as `ifNull`.
std::string ToText(const Value& value, std::string_view ifNull = "");

/// As a whole number; reals round half to even, text gives its leading number, Null gives `ifNull`.
std::int64_t ToLong(const Value& value, std::int64_t ifNull = 0);

/// A whole number as an int. Throws DaoError 3349 when it is out of that range, which no file of ours holds.
int Narrowed(std::int64_t whole);

/// As a whole number like ToLong, within the range of int. Throws DaoError 3349 outside it.
int ToInt(const Value& value, int ifNull = 0);

/// As a real number; text gives its leading number, Null gives `ifNull`.
double ToDouble(const Value& value, double ifNull = 0);

} // namespace tvx::dao
