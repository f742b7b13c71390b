// The options of the whole program, as values.
#pragma once

#include "platform/basic/Palette.h"

#include <string>

namespace tvx {

/// How a time of day is written.
enum class ClockStyle { TwelveHours, TwentyFourHours };

/// How the part of an hour is written in a duration: :00 :15 :30 :45, or :00 :25 :50 :75.
enum class TimeFormat { Minutes, Hundredths };

/// The age below which somebody is flagged.
struct AgeLimit {
    int years = 16;          // 0 to 1000
    std::string text = "16"; // as it was typed, which the notice repeats

    friend bool operator==(const AgeLimit&, const AgeLimit&) = default;
};

/// The defaults are those of a database that says nothing.
struct Options {
    tvx::ClockStyle ClockStyle = tvx::ClockStyle::TwelveHours;
    tvx::TimeFormat TimeFormat = tvx::TimeFormat::Minutes;
    int StartHour = 0; // first hour of the time grids, never negative
    int BarColor = 2;  // palette index as it is stored, which may lie beyond the palette
    AgeLimit UnderAge;
    int DayOvertime = 96;   // quarters of an hour; more than these are overtime
    int WeekOvertime = 672; // quarters of an hour; more than these are overtime
    bool OpenShared = true; // stored and shown, without other effect

    Colour DefaultBarColor() const { return QBColor(BarColor); }

    friend bool operator==(const Options&, const Options&) = default;
};

} // namespace tvx
