// Text: UTF-8 strings, counted in characters where people count, compared by
// character code.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// Text without its leading and trailing blanks. Only blanks count, not tabs or line ends.
std::string Trim(std::string_view text);
std::string TrimLeft(std::string_view text);
std::string TrimRight(std::string_view text);

/// Capital letters. Knows the Latin, Greek and Cyrillic alphabets; every other character stays.
std::string UpperCase(std::string_view text);

/// Number of characters (code points) of a UTF-8 text; a byte that begins no character counts as one.
std::size_t CharacterCount(std::string_view text);

/// The first `count` characters; the whole text when it is shorter.
std::string Left(std::string_view text, std::size_t count);

/// The text cut, or padded with blanks, to exactly `width` characters, as a fixed-length text holds it.
std::string FixedWidth(std::string_view text, std::size_t width);

/// Code points of a UTF-8 text. A byte that begins no character becomes U+FFFD.
std::u32string DecodeUtf8(std::string_view text);

/// Appends one code point as UTF-8; values that are no character are written as U+FFFD.
void AppendUtf8(std::string& text, char32_t codePoint);

/// A text that stands inside another: where it holds letters that are written from right to left it is
/// isolated, so that it keeps its own direction and leaves the other's alone.
std::string Isolated(std::string_view text);

/// True when a and b are the same text but for the case of the letters A to Z; the rule for names of
/// files, tables and fields.
bool EqualsNoCase(std::string_view a, std::string_view b);

/// The parts between separators; always at least one.
std::vector<std::string> Split(std::string_view text, char separator);

/// Every CR LF as a lone LF, for showing and comparing.
std::string NormalizedLineEnds(std::string_view text);

} // namespace tvx
