// The options and the workstation's facts.
#pragma once

#include "platform/basic/Twips.h"
#include "shell/state/FormCommand.h"
#include "shell/state/Options.h"

#include <filesystem>
#include <string>

namespace tvx {

struct ApplicationState {
    Options options;
    std::string DateFormatSetting = std::string(10, ' ');  // "MM-DD-YYYY", "DD-MM-YYYY" or "YYYY-MM-DD"
    std::string CrLf;                                      // set by the console's load
    std::string GeneralManagerPassword;                    // in clear; "" is no protection
    tvx::FormCommand FormCommand = tvx::FormCommand::None; // what the console did last
    bool ExampleNoteShown = false;                         // in this run
};

struct ScreenState {
    Twips ScreenWidth = 0;
    Twips ScreenHeight = 0; // 150 less than the screen's
    int VisibleHours = 24;  // hours across the time grids, at most 24; may be below 1 on a tiny screen
};

struct Paths {
    std::filesystem::path ProgramPath;  // side files, the ready-made database
    std::filesystem::path DatabasePath; // the folder of TVX.MDB
    std::filesystem::path UnusedPath;   // of a database beside the program that is not used; mostly ""
};

} // namespace tvx
