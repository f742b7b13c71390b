// The screen that the program draws on.
#pragma once

#include "platform/basic/Twips.h"

namespace tvx {

struct ScreenSize {
    Twips ScreenWidth = 0;
    Twips ScreenHeight = 0; // 150 less than the screen's
};

class ScreenInfo {
  public:
    virtual ~ScreenInfo() = default;

    /// Usable size of the screen, without the desktop's own bars.
    virtual Twips Width() const = 0;
    virtual Twips Height() const = 0;

    /// The size that forms are made for and stand in the middle of.
    ScreenSize Size() const { return {Width(), Height() - 150}; }
};

} // namespace tvx
