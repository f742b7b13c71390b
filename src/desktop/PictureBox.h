// A surface that a screen paints.
#pragma once

#include "desktop/Scale.h"

#include <QWidget>

#include <functional>

namespace tvx::qt {

/// A surface that a screen paints; positions of the mouse reach it in twips, and of its buttons the left and
/// the right alone.
class PictureBox : public QWidget {
    Q_OBJECT
  public:
    explicit PictureBox(QWidget* parent = nullptr);

    std::function<void(QPainter&, const QRegion&)> onPaint;
    std::function<void(Qt::MouseButton, TwipsPoint)> onMouseDown;
    std::function<void(Qt::MouseButtons, TwipsPoint)> onMouseMove;
    std::function<void(Qt::MouseButton, TwipsPoint)> onMouseUp;
    std::function<void()> onMouseLeave;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
};

} // namespace tvx::qt
