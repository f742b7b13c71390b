// Texts made to fit a page: shortened or broken into lines.
#pragma once

#include "platform/ports/Vp.h"

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// The text without as many of its last letters as it takes to be narrower than `room`, in the present font.
/// However long it is, little more of it is measured than fits.
std::string Fitted(const Vp& vp, const std::string& text, Twips room);

/// The same, with an ellipsis where letters were taken away.
std::string WithEllipsis(const Vp& vp, const std::string& text, Twips room);

/// A memo in lines that fit `room`, each behind two blanks. A "^" ends a line, as a line end does; a part
/// that is too long is cut at its last blank that fits, or inside a word that is too long by itself.
std::vector<std::string> MemoLines(const Vp& vp, std::string_view memo, Twips room);

} // namespace tvx
