#include "reports/page/screens/DocumentPainter.h"

#include "desktop/Scale.h"
#include "platform/files/FileError.h"
#include "platform/files/WholeFile.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <numeric>
#include <optional>

namespace tvx::qt {
namespace {

constexpr double TwipsPerPoint = 20;

QString ToText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// Paints operations one after the other; each font is made once.
class OperationPainter {
  public:
    OperationPainter(QPainter& painter, const VpDocument& document)
        : painter_(painter), document_(document) {}

    void Paint(int page) {
        font_ = -1;
        for (const PageOperation& operation : document_.Page(page)) std::visit(*this, operation);
    }

    void operator()(const DrawnPageText& text) {
        UseFont(text.font);
        painter_.setPen(ToColor(text.colour));
        painter_.drawText(QPointF(text.x, text.y + Font(text.font).ascent), ToText(text.text));
    }

    void operator()(const DrawnPageLine& line) {
        painter_.setPen(PenOf(line.colour, line.width));
        painter_.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }

    void operator()(const DrawnPageBox& box) {
        const QRectF place(QPointF(box.box.left, box.box.top), QPointF(box.box.right, box.box.bottom));
        painter_.fillRect(place, ToColor(box.fill));
        if (!box.outlined) return;
        painter_.setPen(PenOf(box.outline, 0));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawRect(place);
    }

  private:
    struct MadeFont {
        QFont font;
        double ascent = 0;
    };

    static QPen PenOf(Colour colour, int width) {
        constexpr double Thin = 8; // twips; a hair on paper, a pixel on a screen
        return {ToColor(colour), Thin * (1 + width), Qt::SolidLine, Qt::FlatCap};
    }

    const MadeFont& Font(int index) {
        const auto place = static_cast<std::size_t>(index);
        if (fonts_.size() <= place) fonts_.resize(place + 1);
        if (!fonts_[place]) {
            const QFont font = FontInTwips(document_.FontAt(index));
            fonts_[place] = MadeFont{font, QFontMetricsF(font).ascent()};
        }
        return *fonts_[place];
    }

    void UseFont(int index) {
        if (index == font_) return;
        font_ = index;
        painter_.setFont(Font(index).font);
    }

    QPainter& painter_;
    const VpDocument& document_;
    std::vector<std::optional<MadeFont>> fonts_; // by the document's index
    int font_ = -1;
};

void SetUpSheets(QPdfWriter& writer, const VpDocument& document) {
    const Paper& sheet = document.Sheet();
    const QSizeF points(sheet.width / TwipsPerPoint, sheet.height / TwipsPerPoint);
    const bool across = document.Orientation() == PageOrientation::Landscape;
    writer.setPageLayout(QPageLayout(QPageSize(points, QPageSize::Point),
                                     across ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()));
    writer.setResolution(TwipsPerInch);
    writer.setCreator(QStringLiteral("Tarvex"));
}

} // namespace

QFont FontInTwips(const ReportFont& font) {
    QFont made(ToText(font.name));
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size * TwipsPerPoint))));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

QtFontMeasures::Known& QtFontMeasures::KnownOf(const ReportFont& font) const {
    const auto found =
        std::find_if(known_.begin(), known_.end(), [&](const Known& known) { return known.font == font; });
    if (found != known_.end()) return *found;
    return known_.emplace_back(Known{font, QFontMetricsF(FontInTwips(font)), {}});
}

Twips QtFontMeasures::Width(const ReportFont& font, std::string_view text) const {
    constexpr std::size_t MostKept = 5000;
    Known& known = KnownOf(font);
    if (known.widths.size() >= MostKept) known.widths.clear();
    const auto [width, isNew] = known.widths.try_emplace(std::string(text), 0);
    if (isNew) width->second = static_cast<Twips>(std::lround(known.metrics.horizontalAdvance(ToText(text))));
    return width->second;
}

Twips QtFontMeasures::Height(const ReportFont& font) const {
    return static_cast<Twips>(std::lround(KnownOf(font).metrics.height()));
}

void PaintPage(QPainter& painter, const VpDocument& document, int page) {
    OperationPainter(painter, document).Paint(page);
}

void PaintPages(QPainter& painter, QPagedPaintDevice& device, const VpDocument& document,
                const std::vector<int>& pages, double scale) {
    OperationPainter paint(painter, document);
    bool first = true;
    for (const int page : pages) {
        if (!first && !device.newPage()) return;
        first = false;
        painter.resetTransform();
        painter.scale(scale, scale);
        painter.translate(document.Sheet().margin, document.Sheet().margin);
        paint.Paint(page);
    }
}

void WritePdf(const VpDocument& document, const std::string& title, const std::filesystem::path& file,
              const std::vector<int>& pages) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        SetUpSheets(writer, document);
        writer.setTitle(ToText(title));
        QPainter painter(&writer);
        PaintPages(painter, writer, document, pages, 1);
    }
    ReplaceWholeFile(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

void WritePdf(const VpDocument& document, const std::string& title, const std::filesystem::path& file) {
    std::vector<int> all(static_cast<std::size_t>(document.PageCount()));
    std::iota(all.begin(), all.end(), 1);
    WritePdf(document, title, file, all);
}

} // namespace tvx::qt
