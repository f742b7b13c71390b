// A whole run of the program: application, global state, ports, console.
#pragma once

#include "platform/ports/Clock.h"

#include <functional>

namespace tvx::qt {

class ConsoleForm;

/// What a measuring program does differently from a person's run.
struct RunOptions {
    Clock* clock = nullptr;                             // nullptr: the computer's
    std::function<void(ConsoleForm&)> whenConsoleShows; // called once, after the console was shown
};

/// Runs the program until the console ends it. Returns the exit status.
int RunTarvex(int count, char** arguments, const RunOptions& options = {});

} // namespace tvx::qt
