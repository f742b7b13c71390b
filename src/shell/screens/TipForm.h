// A note over the console: what the example department is for.
#pragma once

#include "desktop/Form.h"
#include "shell/state/Department.h"

namespace tvx::qt {

class TipForm : public Form {
    Q_OBJECT
  public:
    TipForm(const Department& department, Ports& ports, Form* owner);
};

} // namespace tvx::qt
