#include "desktop/FloodPanel.h"

#include "desktop/Scale.h"

#include <QPainter>

namespace tvx::qt {

FloodPanel::FloodPanel(QWidget* parent) : QWidget(parent) {}

void FloodPanel::Flood(int percent) {
    percent_ = percent;
    update();
}

void FloodPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.fillRect(0, 0, width() * percent_ / 100, height(), ToColor(QBColor(9)));
    painter.setPen(ToColor(QBColor(8)));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace tvx::qt
