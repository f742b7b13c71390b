// The global options and the workstation's facts.
#pragma once

#include "platform/basic/Palette.h"
#include "platform/basic/Twips.h"
#include "shell/state/FormCommand.h"

#include <array>
#include <filesystem>
#include <string>

namespace tvx {

/// Positions of the options in Settings; 0, 1 and 6 stay empty.
namespace setting {
constexpr std::size_t ClockStyle = 2;   // "12" or "24"
constexpr std::size_t StartHour = 3;    // first hour of the time grids
constexpr std::size_t BarColor = 4;     // palette index
constexpr std::size_t TimeFormat = 5;   // "0" minutes as :00 :15 :30 :45, else hundredths
constexpr std::size_t UnderAge = 7;     // years
constexpr std::size_t DayOvertime = 8;  // quarters of an hour
constexpr std::size_t WeekOvertime = 9; // quarters of an hour
} // namespace setting

struct ApplicationState {
    std::array<std::string, 10> Settings;
    int StartHour = 0;
    Colour DefaultBarColor = QBColor(2);
    bool OpenShared = true;                                // stored and shown, without other effect
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
};

} // namespace tvx
