// The splash: stands for two seconds while the program starts.
#pragma once

#include "desktop/Form.h"

namespace tvx::qt {

class SplashForm : public Form {
    Q_OBJECT
  public:
    explicit SplashForm(Ports& ports);

    /// Shows the splash and returns when it is painted: what follows gives the window system no time for it.
    /// Waits a second at most.
    void ShowPainted();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    bool painted_ = false;
    std::function<void()> onPainted_;
};

} // namespace tvx::qt
