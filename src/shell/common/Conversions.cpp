#include "shell/common/Conversions.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tvx {
namespace {

constexpr double FirstSerial = -657434; // 1 January 100
constexpr double LastSerial = 2958465;  // 31 December 9999

bool YearComesFirst(std::string_view dateFormatSetting) {
    return dateFormatSetting == "YYYY-MM-DD";
}

/// Is the text one number as a whole: a sign, digits, at most one point?
bool IsOneNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const bool digits = text.find_first_of("0123456789") != std::string_view::npos;
    return digits && text.find_first_not_of("0123456789.") == std::string_view::npos &&
           std::count(text.begin(), text.end(), '.') <= 1;
}

std::string PadLeft(std::string text, std::size_t width) {
    if (text.size() < width) text.insert(0, width - text.size(), ' ');
    return text;
}

/// Hours and a remainder of quarters as "h:mm", at least two characters for either.
std::string DurationText(long hours, long remainder, TimeFormat timeFormat) {
    const long minutes = std::labs(remainder * (timeFormat == TimeFormat::Minutes ? 15 : 25));
    std::string text = PadLeft(std::to_string(hours), 2);
    text += minutes < 10 ? ":0" : ":";
    return text += std::to_string(minutes);
}

std::string TwentyFourHourText(int minutes, const std::string& minuteText) {
    return PadLeft(std::to_string(minutes / 60) + minuteText + " ", 7);
}

std::string TwelveHourText(int minutes, const std::string& minuteText) {
    const bool afternoon = minutes > 720;
    const std::string hour = std::to_string((afternoon ? minutes - 720 : minutes) / 60);
    std::string text = PadLeft(hour + minuteText + (afternoon ? "pm" : "am"), 7);
    if (text.starts_with(" 0:")) text = "12" + text.substr(text.size() - 5);
    return text;
}

} // namespace

std::string DateText(DaySerial serial, std::string_view dateFormatSetting, const Region& region) {
    return FormatDate(serial, YearComesFirst(dateFormatSetting) ? "yyyy-mmm-d" : "d-mmm-yyyy",
                      region.Names());
}

std::optional<DaySerial> DateValue(std::string_view text, const Region& region, DaySerial today) {
    return ParseDate(text, region.ShortDateOrder(), region.Names(), today);
}

std::optional<DaySerial> TypedDate(std::string_view text, const Region& region, DaySerial today) {
    const std::string trimmed = Trim(text);
    if (const auto date = DateValue(trimmed, region, today)) return date;
    const double number = IsOneNumber(trimmed) ? Val(trimmed) : 0;
    const bool inCalendar = number >= FirstSerial && number <= LastSerial;
    if (number == 0 || !inCalendar || CharacterCount(trimmed) >= 7) return std::nullopt;
    return static_cast<DaySerial>(Int(number));
}

std::string NormalizeDateText(std::string_view text, std::string_view dateFormatSetting, const Region& region,
                              DaySerial today) {
    const auto date = TypedDate(text, region, today);
    return date ? DateText(*date, dateFormatSetting, region) : "";
}

void ShowDateHelp(Prompt& prompt, std::string_view dateFormatSetting, const Region& region, DaySerial today) {
    const std::string year = std::to_string(PartsOf(today).year);
    const std::string& march = region.Names().shortMonths[3];
    const std::string& august = region.Names().shortMonths[8];
    const std::string gap = "\r\n\r\n";
    std::string text = "Acceptable date formats are;" + gap;
    if (YearComesFirst(dateFormatSetting)) {
        text += march + "-12-" + year + ", " + year + "-" + august + "-12," + gap + year + "-12-23" + " or " +
                year + "/12/23";
    } else {
        text += "2-" + march + "-" + year + ", " + august + "-12-" + year + "," + gap;
        const bool monthFirst = dateFormatSetting == "MM-DD-YYYY";
        text += monthFirst ? "12-23-" + year + " or 12/23/" + year : "23-12-" + year + " or 23/12/" + year;
    }
    prompt.Beep();
    prompt.MsgBox(text, box::Ok, "Date error");
}

std::string HourLabel(int& hour, ClockStyle clockStyle) {
    if (hour == 0 || hour == 24) {
        hour = 0;
        return "M";
    }
    return std::to_string(clockStyle == ClockStyle::TwelveHours && hour > 12 ? hour - 12 : hour);
}

std::string QuartersToText(long quarters, TimeFormat timeFormat) {
    return DurationText(quarters / 4, quarters % 4, timeFormat);
}

std::string QuartersToTextShort(int quarters, TimeFormat timeFormat) {
    return DurationText(quarters / 4, quarters & 3, timeFormat);
}

std::string MinutesToClockText(int& minutes, ClockStyle clockStyle) {
    if (minutes > 1440) minutes -= 1440;
    if (minutes == 0 || minutes == 1440) return " Midn. ";
    std::string minuteText = ":" + std::to_string(minutes % 60);
    if (minuteText.size() < 3) minuteText += "0";
    if (clockStyle == ClockStyle::TwentyFourHours) return TwentyFourHourText(minutes, minuteText);
    if (minutes == 720) return "  Noon ";
    return TwelveHourText(minutes, minuteText);
}

std::string QuarterToClockText(int quarter, ClockStyle clockStyle) {
    constexpr int Minutes = 15;
    constexpr int Known = 2 * QuartersPerDay; // a report asks for thousands of them
    static const auto textsOf = [](ClockStyle style) {
        std::array<std::string, Known + 1> texts;
        for (int minutes = 0; std::string & text : texts) {
            int asked = minutes;
            text = MinutesToClockText(asked, style);
            minutes += Minutes;
        }
        return texts;
    };
    static const auto twelve = textsOf(ClockStyle::TwelveHours);
    static const auto twentyFour = textsOf(ClockStyle::TwentyFourHours);
    if (quarter >= 0 && quarter <= Known)
        return (clockStyle == ClockStyle::TwelveHours ? twelve
                                                      : twentyFour)[static_cast<std::size_t>(quarter)];
    int minutes = quarter * Minutes;
    return MinutesToClockText(minutes, clockStyle);
}

std::string WeekSpan(const Week& week) {
    return ",  Week from " + week.WeekDateTexts[1] + "  to  " + week.WeekDateTexts[7];
}

std::string WeekTitle(const Department& department, const Week& week) {
    return Isolated(department.CurrentDepName) + WeekSpan(week);
}

std::optional<Wage> WagesForQuarters(const Roster& roster, const Rights& rights, int employee,
                                     long quarters) {
    if (rights.HideWages) return std::nullopt;
    return roster.IsPaidByHour(employee) ? Wage::ForQuarters(quarters, roster.RosterPay[employee]) : Wage();
}

double HoursOfQuarters(long quarters) {
    const long wholeHours = quarters / 4;
    return static_cast<double>(wholeHours) + static_cast<double>(quarters & 3) * .25;
}

} // namespace tvx
