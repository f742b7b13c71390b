// Paints the pages of a document, at any scale and on any device.
#pragma once

#include "reports/page/VpDocument.h"

#include <QFont>
#include <QFontMetricsF>

#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace tvx::qt {

/// Measures of fonts that are the same on every device. A font that is not there is measured as the one that
/// the desktop shows for it.
class QtFontMeasures : public FontMeasures {
  public:
    Twips Width(const ReportFont& font, std::string_view text) const override;
    Twips Height(const ReportFont& font) const override;

  private:
    struct Known {
        ReportFont font;
        QFontMetricsF metrics;
        std::unordered_map<std::string, Twips> widths; // of texts: those of a schedule come again and again
    };
    Known& KnownOf(const ReportFont& font) const;

    mutable std::vector<Known> known_; // a report has few fonts
};

/// A font for painting where one unit is a twip.
QFont FontInTwips(const ReportFont& font);

/// Paints a page, from 1, with its printable area's top left at the painter's origin and one unit a twip.
void PaintPage(QPainter& painter, const VpDocument& document, int page);

/// Paints pages on sheets of a device one after the other; `scale` is the device's units to a twip.
void PaintPages(QPainter& painter, QPagedPaintDevice& device, const VpDocument& document,
                const std::vector<int>& pages, double scale);

/// Writes pages of the document as a PDF. Throws FileError; an existing file is then as it was.
void WritePdf(const VpDocument& document, const std::string& title, const std::filesystem::path& file,
              const std::vector<int>& pages);
/// The same with all pages.
void WritePdf(const VpDocument& document, const std::string& title, const std::filesystem::path& file);

} // namespace tvx::qt
