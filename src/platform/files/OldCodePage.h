// Text files that were written in the old Western code page.
#pragma once

#include <string>
#include <string_view>

namespace tvx {

/// The text in UTF-8: bytes that are UTF-8 stay, every other one is a letter of Windows-1252. Its five bytes
/// without a letter become the control characters of their numbers.
std::string FromOldCodePage(std::string_view text);

} // namespace tvx
