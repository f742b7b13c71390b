#include "masterdata/screens/ColourSwatch.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace tvx::qt {

ColourSwatch::ColourSwatch(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::TabFocus);
}

void ColourSwatch::SetColour(Colour colour) {
    colour_ = colour;
    update();
}

QSize ColourSwatch::sizeHint() const {
    return {Pixels(162), Pixels(240)};
}

void ColourSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    const int margin = isChecked() ? 2 : 1;
    if (isChecked()) painter.fillRect(rect(), Qt::black);
    if (isChecked()) painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::white);
    painter.fillRect(rect().adjusted(margin, margin, -margin, -margin), ToColor(colour_));
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void ShowChosen(const ControlArray<ColourSwatch>& swatches, int index) {
    const int tabStop = swatches.Has(index) ? index : swatches.begin()->first;
    for (const auto& [i, swatch] : swatches) {
        const QSignalBlocker quiet(swatch);
        swatch->setAutoExclusive(false);
        swatch->setChecked(i == index);
        swatch->setFocusPolicy(i == tabStop ? Qt::TabFocus : Qt::NoFocus);
    }
    for (const auto& [i, swatch] : swatches) swatch->setAutoExclusive(true);
}

} // namespace tvx::qt
