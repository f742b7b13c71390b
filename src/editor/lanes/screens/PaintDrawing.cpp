#include "editor/lanes/screens/PaintDrawing.h"

#include "desktop/Scale.h"

#include <QPaintDevice>
#include <QPainter>

namespace tvx::qt {

void PaintDrawing(QPainter& painter, const Drawing& drawing, TwipsPoint origin) {
    const QPaintDevice& device = *painter.device();
    for (const DrawnBox& drawn : drawing.boxes) {
        const TwipsBox& box = drawn.box;
        const TwipsBox moved{box.left + origin.x, box.top + origin.y, box.right + origin.x,
                             box.bottom + origin.y};
        painter.fillRect(SharpRect(moved, device), ToColor(drawn.colour));
    }
    const QFontMetrics metrics = painter.fontMetrics();
    for (const DrawnText& drawn : drawing.texts) {
        const QString text = ToQString(drawn.text);
        const int width = metrics.horizontalAdvance(text);
        painter.setPen(ToColor(drawn.colour));
        painter.drawText(Pixels(drawn.x + origin.x) - width / 2,
                         Pixels(drawn.y + origin.y) + metrics.ascent(), text);
    }
}

} // namespace tvx::qt
