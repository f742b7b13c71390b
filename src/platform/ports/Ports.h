// Every port of a run, handed down together.
#pragma once

#include "platform/ports/Clock.h"
#include "platform/ports/HelpViewer.h"
#include "platform/ports/Prompt.h"
#include "platform/ports/Region.h"
#include "platform/ports/RunningInstance.h"
#include "platform/ports/ScreenInfo.h"
#include "platform/ports/Teller.h"

namespace tvx {

struct Ports {
    Prompt& prompt;
    Clock& clock;
    Region& region;
    HelpViewer& help;
    ScreenInfo& screen;
    RunningInstance& instance;
    Teller& teller;
};

} // namespace tvx
