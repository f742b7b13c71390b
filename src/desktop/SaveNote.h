// The quiet line that tells how the last save ended.
#pragma once

#include "desktop/Label.h"

namespace tvx::qt {

class SaveNote : public Label {
    Q_OBJECT
  public:
    using Label::Label;

    /// Shows "Saved 19:22", by the second of the day, or "Not saved".
    void Tell(bool saved, int secondOfDay);
    /// Something was edited since: takes "Not saved" away.
    void Edited();

  private:
    bool refused_ = false;
};

} // namespace tvx::qt
