#include "reports/screens/DocumentPainter.h"

#include "platform/files/FileError.h"
#include "platform/files/WholeFile.h"
#include "platform/qt/Scale.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <map>
#include <tuple>

namespace tvx::qt {
namespace {

constexpr double TwipsPerPoint = 20;

QString ToText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// Metrics of a font, made once for each.
const QFontMetricsF& MetricsOf(const ReportFont& font) {
    using Key = std::tuple<std::string, double, bool, bool>;
    static std::map<Key, QFontMetricsF> known;
    const Key key{font.name, font.size, font.bold, font.italic};
    auto found = known.find(key);
    if (found == known.end()) found = known.emplace(key, QFontMetricsF(FontInTwips(font))).first;
    return found->second;
}

/// Paints the operations of one page; fonts are made once.
class PagePainter {
  public:
    PagePainter(QPainter& painter, const VpDocument& document) : painter_(painter), document_(document) {}

    void operator()(const DrawnPageText& text) {
        const ReportFont& font = document_.FontAt(text.font);
        if (text.font != font_) {
            font_ = text.font;
            painter_.setFont(FontInTwips(font));
            ascent_ = MetricsOf(font).ascent();
        }
        painter_.setPen(ToColor(text.colour));
        painter_.drawText(QPointF(text.x, text.y + ascent_), ToText(text.text));
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
    static QPen PenOf(Colour colour, int width) {
        constexpr double Thin = 8; // twips; a hair on paper, a pixel on a screen
        return {ToColor(colour), Thin * (1 + width), Qt::SolidLine, Qt::FlatCap};
    }

    QPainter& painter_;
    const VpDocument& document_;
    int font_ = -1;
    double ascent_ = 0;
};

} // namespace

QFont FontInTwips(const ReportFont& font) {
    QFont made(ToText(font.name));
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(font.size * TwipsPerPoint))));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferNoHinting);
    return made;
}

Twips QtFontMeasures::Width(const ReportFont& font, std::string_view text) const {
    return static_cast<Twips>(std::lround(MetricsOf(font).horizontalAdvance(ToText(text))));
}

Twips QtFontMeasures::Height(const ReportFont& font) const {
    return static_cast<Twips>(std::lround(MetricsOf(font).height()));
}

void PaintPage(QPainter& painter, const VpDocument& document, int page) {
    PagePainter paint(painter, document);
    for (const PageOperation& operation : document.Page(page)) std::visit(paint, operation);
}

void WritePdf(const VpDocument& document, const std::string& title, const std::filesystem::path& file) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        const Paper& sheet = document.Sheet();
        const QSizeF points(sheet.width / TwipsPerPoint, sheet.height / TwipsPerPoint);
        const bool across = document.Orientation() == PageOrientation::Landscape;
        writer.setPageLayout(QPageLayout(QPageSize(points, QPageSize::Point),
                                         across ? QPageLayout::Landscape : QPageLayout::Portrait,
                                         QMarginsF()));
        writer.setResolution(TwipsPerInch);
        writer.setTitle(ToText(title));
        writer.setCreator(QStringLiteral("Tarvex"));
        QPainter painter(&writer);
        for (int page = 1; page <= document.PageCount(); ++page) {
            if (page > 1) writer.newPage();
            painter.resetTransform();
            painter.translate(sheet.margin, sheet.margin);
            PaintPage(painter, document, page);
        }
    }
    ReplaceWholeFile(file, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

} // namespace tvx::qt
