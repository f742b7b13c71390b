// Texts made to fit a page: shortened, broken into lines, or long enough to rule it.
#pragma once

#include "platform/ports/Vp.h"

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// The text without as many of its last letters as it takes to be narrower than `room`, in the present font.
std::string Fitted(const Vp& vp, std::string text, Twips room);

/// The underscores that rule a page from edge to edge: as many as fit `PageWidth`, at most 300.
std::string UnderscoreRule(const Vp& vp);

/// A memo in lines that fit `room`, each behind two blanks. A "^" ends a line, as a line end does; a part
/// that is too long is cut at its last blank that fits, or inside a word that is too long by itself.
std::vector<std::string> MemoLines(const Vp& vp, std::string_view memo, Twips room);

} // namespace tvx
