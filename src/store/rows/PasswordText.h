// Passwords as the file holds them.
#pragma once

#include <string>
#include <string_view>

namespace tvx {

/// A disguise against a casual look into the file, and no cipher: the trimmed text with each character's code
/// raised by its place, counted from 1.
std::string ScramblePassword(std::string_view text);
std::string UnscramblePassword(std::string_view text);

} // namespace tvx
