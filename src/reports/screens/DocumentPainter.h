// Paints the pages of a document, at any scale and on any device.
#pragma once

#include "reports/VpDocument.h"

#include <QFont>

#include <filesystem>

class QPainter;

namespace tvx::qt {

/// Measures of fonts that are the same on every device.
class QtFontMeasures : public FontMeasures {
  public:
    Twips Width(const ReportFont& font, std::string_view text) const override;
    Twips Height(const ReportFont& font) const override;
};

/// A font for painting where one unit is a twip.
QFont FontInTwips(const ReportFont& font);

/// Paints a page, from 1, with its printable area's top left at the painter's origin and one unit a twip.
void PaintPage(QPainter& painter, const VpDocument& document, int page);

/// Writes the document as a PDF. Throws FileError; an existing file is then as it was.
void WritePdf(const VpDocument& document, const std::string& title, const std::filesystem::path& file);

} // namespace tvx::qt
