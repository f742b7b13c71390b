#include "shell/screens/Banner.h"

#include "desktop/Scale.h"

#include <QLinearGradient>
#include <QPainter>

namespace tvx::qt {
namespace {

struct Bar {
    double from; // share of the width
    double to;
    int lane;
    int colour; // palette index
};

constexpr Bar Bars[] = {{.44, .62, 0, 2}, {.66, .80, 0, 2},  {.50, .78, 1, 9}, {.58, .92, 2, 3},
                        {.46, .56, 3, 6}, {.70, .97, 3, 13}, {.52, .74, 4, 4}};
constexpr int Lanes = 5;

void PaintLanes(QPainter& painter, const QRect& place) {
    const double lane = place.height() / (Lanes + 1.0);
    for (const Bar& bar : Bars) {
        const double left = place.left() + bar.from * place.width();
        const QRectF box(left, place.top() + lane * (bar.lane + .6), (bar.to - bar.from) * place.width() - 12,
                         lane * .55);
        painter.setBrush(ToColor(QBColor(bar.colour)));
        painter.drawRoundedRect(box, 2, 2);
    }
}

} // namespace

void PaintBanner(QPainter& painter, const QRect& place) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient ground(place.topLeft(), place.topRight());
    ground.setColorAt(0, ToColor(LightBlue));
    ground.setColorAt(1, Qt::white);
    painter.fillRect(place, ground);
    painter.setPen(Qt::NoPen);
    PaintLanes(painter, place);
    QFont font = painter.font();
    font.setPointSizeF(30);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QColor(20, 50, 90));
    painter.drawText(place.adjusted(Pixels(705), 0, 0, -place.height() / 8), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Tarvex"));
    font.setPointSizeF(9);
    font.setBold(false);
    painter.setFont(font);
    painter.drawText(place.adjusted(Pixels(735), place.height() * 5 / 8, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                     QStringLiteral("Working hours, planned"));
    painter.restore();
}

} // namespace tvx::qt
