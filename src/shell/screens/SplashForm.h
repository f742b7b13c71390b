// The splash: stands for two seconds while the program starts.
#pragma once

#include "platform/qt/Form.h"

namespace tvx::qt {

class SplashForm : public Form {
    Q_OBJECT
  public:
    explicit SplashForm(Ports& ports);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tvx::qt
