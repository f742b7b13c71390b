#include "reports/page/screens/Preview.h"

#include "desktop/Scale.h"
#include "reports/page/screens/DocumentPainter.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace tvx::qt {
namespace {

constexpr double Margin = 8;     // pixels around a sheet that fits
constexpr double ZoomFactor = 2; // of a sheet as wide as the widget

} // namespace

Preview::Preview(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::OpenHandCursor);
}

void Preview::Show(const VpDocument& document) {
    document_ = &document;
    page_ = std::clamp(page_, 1, std::max(1, document.PageCount()));
    KeepInside();
    update();
    if (onPage) onPage();
}

void Preview::GoToPage(int page) {
    if (document_ == nullptr) return;
    const int wanted = std::clamp(page, 1, std::max(1, document_->PageCount()));
    if (wanted == page_) return;
    page_ = wanted;
    offset_.setY(Margin);
    KeepInside();
    update();
    if (onPage) onPage();
}

QSizeF Preview::SheetSize() const {
    const Paper& sheet = document_->Sheet();
    const bool across = document_->Orientation() == PageOrientation::Landscape;
    return across ? QSizeF(sheet.height, sheet.width) : QSizeF(sheet.width, sheet.height);
}

double Preview::Scale() const {
    const QSizeF sheet = SheetSize();
    const double fitting =
        std::min((width() - 2 * Margin) / sheet.width(), (height() - 2 * Margin) / sheet.height());
    return zoomed_ ? std::max(fitting * ZoomFactor, Pixels(TwipsPerInch) / static_cast<double>(TwipsPerInch))
                   : fitting;
}

void Preview::KeepInside() {
    if (document_ == nullptr) return;
    const QSizeF size = SheetSize() * Scale();
    const auto keep = [](double at, double sheet, double room) {
        if (sheet <= room) return (room - sheet) / 2;
        return std::clamp(at, room - sheet - Margin, Margin);
    };
    offset_ = {keep(offset_.x(), size.width(), width()), keep(offset_.y(), size.height(), height())};
}

void Preview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ToColor(QBColor(8)));
    if (document_ == nullptr || document_->PageCount() == 0) return;
    const double scale = Scale();
    const QRectF sheet(offset_, SheetSize() * scale);
    painter.fillRect(sheet.translated(3, 3), QColor(60, 60, 60));
    painter.fillRect(sheet, Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(sheet);
    painter.translate(offset_);
    painter.scale(scale, scale);
    painter.translate(document_->Sheet().margin, document_->Sheet().margin);
    PaintPage(painter, *document_, page_);
}

void Preview::mousePressEvent(QMouseEvent* event) {
    grabbed_ = event->position();
    if (event->button() == Qt::LeftButton) setCursor(Qt::ClosedHandCursor);
    setFocus();
}

void Preview::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) == 0) return;
    Move(event->position() - grabbed_);
    grabbed_ = event->position();
}

void Preview::mouseReleaseEvent(QMouseEvent*) {
    setCursor(Qt::OpenHandCursor);
}

/// Moves the sheet, as far as it stays in sight.
void Preview::Move(QPointF by) {
    offset_ += by;
    KeepInside();
    update();
}

/// Zooms in around a place, or back out.
void Preview::Zoom(QPointF at) {
    if (document_ == nullptr) return;
    const QPointF place = (at - offset_) / Scale();
    zoomed_ = !zoomed_;
    offset_ = at - place * Scale();
    KeepInside();
    update();
}

void Preview::mouseDoubleClickEvent(QMouseEvent* event) {
    Zoom(event->position());
}

void Preview::wheelEvent(QWheelEvent* event) {
    constexpr int Notch = 120;
    if (zoomed_) return Move(event->angleDelta());
    turned_ += event->angleDelta().y();
    const int pages = turned_ / Notch;
    turned_ -= pages * Notch;
    GoToPage(page_ - pages);
}

void Preview::keyPressEvent(QKeyEvent* event) {
    if (!Key(event->key())) QWidget::keyPressEvent(event);
}

bool Preview::Key(int key) {
    constexpr double Step = 60;
    switch (key) {
    case Qt::Key_PageDown:
        GoToPage(page_ + 1);
        return true;
    case Qt::Key_PageUp:
        GoToPage(page_ - 1);
        return true;
    case Qt::Key_Home:
        GoToPage(1);
        return true;
    case Qt::Key_End:
        GoToPage(document_ != nullptr ? document_->PageCount() : 1);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        if (zoomed_ != (key == Qt::Key_Plus)) Zoom(rect().center());
        return true;
    case Qt::Key_Up:
        Move({0, Step});
        return true;
    case Qt::Key_Down:
        Move({0, -Step});
        return true;
    case Qt::Key_Left:
        Move({Step, 0});
        return true;
    case Qt::Key_Right:
        Move({-Step, 0});
        return true;
    default:
        return false;
    }
}

void Preview::resizeEvent(QResizeEvent*) {
    KeepInside();
}

} // namespace tvx::qt
