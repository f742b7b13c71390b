// A report as one web page, made of its table blocks.
#pragma once

#include "reports/VpDocument.h"

#include <filesystem>
#include <string>

namespace tvx {

/// The page: self-contained, valid HTML 5, readable on a phone and when printed. One table for each block,
/// with the columns' alignment and shares; the row of day names is the head of the rows below it. Text
/// colours that would be too faint on their ground are darkened until they can be read.
std::string HtmlOf(const VpDocument& document, const std::string& title, const std::string& language);

/// Writes the page in one step. Throws FileError; an existing file is then as it was.
void WriteHtml(const VpDocument& document, const std::string& title, const std::string& language,
               const std::filesystem::path& file);

/// The contrast of two colours as WCAG counts it, 1 to 21.
double ContrastOf(Colour a, Colour b);
/// The colour itself, or darker until its contrast to the ground is at least 4.5.
Colour Readable(Colour text, Colour ground);

} // namespace tvx
