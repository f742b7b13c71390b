#include "desktop/PictureBox.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace tvx::qt {
namespace {

/// The wheel's button and those at the sides lead to other pages elsewhere; here they would draw.
constexpr Qt::MouseButtons Acting = Qt::LeftButton | Qt::RightButton;

TwipsPoint PlaceOf(const QMouseEvent& event) {
    return {ToTwips(event.position().x()), ToTwips(event.position().y())};
}

} // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (onPaint) onPaint(painter, event->region());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (onMouseDown && Acting.testFlag(event->button())) onMouseDown(event->button(), PlaceOf(*event));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (onMouseMove) onMouseMove(event->buttons() & Acting, PlaceOf(*event));
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (onMouseUp && Acting.testFlag(event->button())) onMouseUp(event->button(), PlaceOf(*event));
}

void PictureBox::leaveEvent(QEvent* event) {
    if (onMouseLeave) onMouseLeave();
    QWidget::leaveEvent(event);
}

} // namespace tvx::qt
