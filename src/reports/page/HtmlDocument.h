// A report as one web page, made of its table blocks.
#pragma once

#include "reports/page/VpDocument.h"

#include <filesystem>
#include <string>

namespace tvx {

/// The page: self-contained, valid HTML 5 in English, readable on a phone, when printed and with a screen
/// reader. Lines of text are headings and paragraphs; rows of one meaning are one table, in which head cells
/// reach every figure, with the columns' alignment and shares. Those whom the document is about are listed at
/// the top. `language` is that of the calendar's words. Text colours that would be too faint on their ground
/// are changed until they can be read. Characters that a page may not hold are left out, damaged ones marked.
std::string HtmlOf(const VpDocument& document, const std::string& title, const std::string& language);

/// Writes the page in one step. Throws FileError; an existing file is then as it was.
void WriteHtml(const VpDocument& document, const std::string& title, const std::string& language,
               const std::filesystem::path& file);

} // namespace tvx
