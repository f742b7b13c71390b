// The shared conversions between day serials, quarters of an hour, and text for people. Blanks that
// pad a text are part of it: columns on screen and paper line up by them.
#pragma once

#include "platform/basic/Currency.h"
#include "platform/basic/Date.h"
#include "platform/ports/Prompt.h"
#include "platform/ports/Region.h"
#include "shell/state/Department.h"
#include "shell/state/Options.h"
#include "shell/state/Rights.h"
#include "shell/state/Week.h"

#include <optional>
#include <string>
#include <string_view>

namespace tvx {

/// A date in display form by `dateFormatSetting`: "5-Mar-2026", or "2026-Mar-5" when the year comes first.
std::string DateText(DaySerial serial, std::string_view dateFormatSetting, const Region& region);

/// A date that a person typed; nothing when it is none. A text that is one number as a whole, of fewer than 7
/// characters, not 0 and no date by itself, is taken as a day serial, of the years 100 to 9999.
std::optional<DaySerial> TypedDate(std::string_view text, const Region& region, DaySerial today);

/// The same in display form; "" when it is no date.
std::string NormalizeDateText(std::string_view text, std::string_view dateFormatSetting, const Region& region,
                              DaySerial today);

/// The day serial of a text in any accepted form; nothing when it is no date.
std::optional<DaySerial> DateValue(std::string_view text, const Region& region, DaySerial today);

/// The box that lists the acceptable forms of a date, with a beep.
void ShowDateHelp(Prompt& prompt, std::string_view dateFormatSetting, const Region& region, DaySerial today);

/// Heading of an hour, 0 to 24: "1" to "12" by the 12-hour clock, else "1" to "23"; "M" for 0 and 24, and
/// the hour becomes 0.
std::string HourLabel(int& hour, ClockStyle clockStyle);

/// A duration in quarters as hours and minutes, " 8:30", or " 8:50" in hundredths.
/// -5 quarters are "-1:15".
std::string QuartersToText(long quarters, TimeFormat timeFormat);

/// The same, but the remainder of a negative duration counts up: -5 quarters are "-1:45".
std::string QuartersToTextShort(int quarters, TimeFormat timeFormat);

/// Time of day, 7 characters wide as a rule, from minutes after midnight, 0 to 2880: " 8:30am" by the 12-hour
/// clock, "  8:30 " else; " Midn. " and, by the 12-hour clock, "  Noon ". Above 1440 minutes one day is
/// taken off, in the caller's variable too.
std::string MinutesToClockText(int& minutes, ClockStyle clockStyle);

/// The same for a quarter of the day, 0 to 192.
std::string QuarterToClockText(int quarter, ClockStyle clockStyle);

/// ",  Week from 1-Mar-2026  to  7-Mar-2026".
std::string WeekSpan(const Week& week);

/// "Bakery,  Week from 1-Mar-2026  to  7-Mar-2026".
std::string WeekTitle(const Department& department, const Week& week);

/// Wage of one employee for a number of quarters, nothing for a salaried one; absent while pay is hidden.
std::optional<Wage> WagesForQuarters(const Roster& roster, const Rights& rights, int employee, long quarters);

/// Paid hours of a day: whole hours plus a quarter for each quarter.
double HoursOfQuarters(long quarters);

} // namespace tvx
