// The order of names, the same on every workstation whatever its language.
#pragma once

#include <string_view>

namespace tvx {

/// Below 0, 0 or above 0 as `a` stands before `b`, with it or behind it: by the root collation of Unicode,
/// the case of letters ignored, so that "Ärmel" stands between "Arm" and "Bart". Bytes that are no UTF-8
/// count as replacement characters.
int CompareNames(std::string_view a, std::string_view b);

/// True when nobody tells the two names apart but by the case of their letters.
bool IsSameName(std::string_view a, std::string_view b);

} // namespace tvx
