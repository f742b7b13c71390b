// A report as one web page, made of its table blocks.
#pragma once

#include "reports/page/VpDocument.h"

#include <filesystem>
#include <string>

namespace tvx {

/// The page: self-contained, valid HTML 5, readable on a phone and when printed. One table for each block,
/// with the columns' alignment and shares; a row of head cells names the columns of the rows below it, and on
/// a phone each of their cells. Text colours that would be too faint on their ground are changed until they
/// can be read. Characters that a page may not hold are left out, damaged ones marked.
std::string HtmlOf(const VpDocument& document, const std::string& title, const std::string& language);

/// Writes the page in one step. Throws FileError; an existing file is then as it was.
void WriteHtml(const VpDocument& document, const std::string& title, const std::string& language,
               const std::filesystem::path& file);

/// The contrast of two colours as WCAG counts it, 1 to 21.
double ContrastOf(Colour a, Colour b);
/// The colour itself, or darker, on a dark ground lighter, until its contrast is at least 4.5.
Colour Readable(Colour text, Colour ground);

} // namespace tvx
