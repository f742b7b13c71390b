// A panel that floods from left to right.
#pragma once

#include <QWidget>

namespace tvx::qt {

class FloodPanel : public QWidget {
    Q_OBJECT
  public:
    explicit FloodPanel(QWidget* parent = nullptr);
    void Flood(int percent);
    int FloodPercent() const { return percent_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int percent_ = 0;
};

} // namespace tvx::qt
