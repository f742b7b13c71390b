// A flat button that looks like a label.
#pragma once

#include "desktop/Scale.h"

#include <QPushButton>

namespace tvx::qt {

/// A flat button that looks like a label: chosen ones are white on blue, or as SetChosenColours says.
class LabelButton : public QPushButton {
    Q_OBJECT
  public:
    explicit LabelButton(QWidget* parent = nullptr);
    void SetColours(Colour text, Colour back);
    void SetChosenColours(Colour text, Colour back);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    Colour text_ = QBColor(0);
    Colour back_ = LightBlue;
    Colour chosenText_ = QBColor(15);
    Colour chosenBack_ = QBColor(9);
};

} // namespace tvx::qt
