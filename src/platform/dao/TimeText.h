// The stored time texts: one character a time, its code 32 plus the quarter of the day.
#pragma once

#include <string>
#include <string_view>

namespace tvx::dao {

/// A time text as the file holds it (UTF-8, code point = byte) from its bytes.
std::string EncodeTimeText(std::string_view bytes);

/// The bytes of a stored time text. A character beyond code 255, or a damaged one, reads as a blank, which is
/// "no time"; so does byte 0.
std::string DecodeTimeText(std::string_view utf8);

} // namespace tvx::dao
