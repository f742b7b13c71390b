#include "desktop/PictureBox.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace tvx::qt {

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::UpdateBox(const TwipsBox& box) {
    update(SharpRect(box, *this).toAlignedRect());
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (onPaint) onPaint(painter, event->region());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (onMouseDown)
        onMouseDown(event->button(), {ToTwips(event->position().x()), ToTwips(event->position().y())});
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (onMouseMove)
        onMouseMove(event->buttons(), {ToTwips(event->position().x()), ToTwips(event->position().y())});
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (onMouseUp)
        onMouseUp(event->button(), {ToTwips(event->position().x()), ToTwips(event->position().y())});
}

void PictureBox::leaveEvent(QEvent* event) {
    if (onMouseLeave) onMouseLeave();
    QWidget::leaveEvent(event);
}

} // namespace tvx::qt
