// A text on a coloured ground.
#pragma once

#include "desktop/Scale.h"

#include <QLabel>

#include <functional>
#include <optional>
#include <string>

namespace tvx::qt {

/// A text on a coloured ground that repaints only when something about it changed.
class Label : public QLabel {
    Q_OBJECT
  public:
    explicit Label(QWidget* parent = nullptr);

    void SetText(const std::string& text);
    void SetColours(Colour text, std::optional<Colour> back);
    void SetAlignment(Qt::Alignment alignment);

    /// A press on the label, and the mouse passing over it.
    std::function<void(Qt::MouseButton)> onPress;
    std::function<void()> onHover;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    QString Fitted(int room) const;

    Colour text_ = WindowText;
    std::optional<Colour> back_;
};

} // namespace tvx::qt
