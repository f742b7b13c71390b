// The screen that the program draws on.
#pragma once

#include "platform/basic/Twips.h"

namespace tvx {

class ScreenInfo {
  public:
    virtual ~ScreenInfo() = default;

    /// Usable size of the screen, without the desktop's own bars.
    virtual Twips Width() const = 0;
    virtual Twips Height() const = 0;
};

} // namespace tvx
