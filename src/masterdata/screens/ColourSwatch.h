// One colour of a row of colours to choose from; the chosen one stands in a frame.
#pragma once

#include "desktop/Controls.h"

#include <QAbstractButton>

namespace tvx::qt {

/// Of the swatches on one parent one is chosen, or none; the row is one stop of the Tab key, and the arrow
/// keys choose in it. A click leaves the focus where it is.
class ColourSwatch : public QAbstractButton {
    Q_OBJECT
  public:
    explicit ColourSwatch(QWidget* parent = nullptr);

    void SetColour(Colour colour);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour colour_ = QBColor(0);
};

/// Chooses the swatch of an index, or none when the row has no such index. Tells no handler.
void ShowChosen(const ControlArray<ColourSwatch>& swatches, int index);

} // namespace tvx::qt
