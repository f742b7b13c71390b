// About the program: its version, and facts of the system it runs on.
#pragma once

#include "desktop/Form.h"
#include "shell/state/TVXGLOB.h"

namespace tvx::qt {

class AboutForm : public Form {
    Q_OBJECT
  public:
    AboutForm(const GlobalState& g, Ports& ports, Form* owner);

  private:
    void StartSysInfo();

    const GlobalState& g_;
};

} // namespace tvx::qt
