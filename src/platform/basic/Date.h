// Day serials and the calendar: whole days since 30 December 1899.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tvx {

using DaySerial = std::int32_t; // days since 30 December 1899; 1 January 2000 is 36526

/// A calendar date.
struct DateParts {
    int year = 1899;
    int month = 12; // 1 to 12
    int day = 30;   // 1 to 31

    friend bool operator==(const DateParts&, const DateParts&) = default;
};

/// Serial of a date given in parts. Parts overflow: month 13 is January of the next year, day 0 the last
/// day of the month before, 29 February 2026 is 1 March. Years 0 to 29 mean 2000 to 2029, 30 to 99 mean
/// 1930 to 1999.
DaySerial SerialFromParts(int year, int month, int day);

DateParts PartsOf(DaySerial serial);
bool IsLeapYear(int year);
/// True when the three parts name a day that exists; nothing overflows here.
bool IsCalendarDate(int year, int month, int day);

/// 1 to 7, counted from `firstWeekday` (1 Sunday to 7 Saturday).
int Weekday(DaySerial serial, int firstWeekday = 1);

/// What the first week of a year is.
enum class FirstWeekRule { Jan1, FirstFourDays, FirstFullWeek };

/// Week of the year, 1 to 54, with weeks that begin on `firstWeekday` (1 Sunday to 7 Saturday).
/// Jan1: week 1 holds 1 January, and late December keeps its own year's count. FirstFullWeek: week 1 begins
/// on the first such weekday of January, the days before it carry the number of the year before.
/// FirstFourDays: a week belongs to the year that holds its fourth day.
int WeekOfYear(DaySerial serial, int firstWeekday, FirstWeekRule rule);

/// Difference of the year numbers alone.
int YearsBetween(DaySerial from, DaySerial to);

/// The order in which a country writes the parts of a short date.
enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

/// Names in the language of the system, as the parser and the date texts need them.
struct CalendarNames {
    std::array<std::string, 13> months;       // 1 to 12, full
    std::array<std::string, 13> shortMonths;  // 1 to 12, three letters as a rule
    std::array<std::string, 8> weekdays;      // 1 Sunday to 7 Saturday, full
    std::array<std::string, 8> shortWeekdays; // 1 Sunday to 7 Saturday
};

/// English names.
const CalendarNames& EnglishNames();

/// Short names of the months that a date written with them can be read back by, in either order of its
/// parts: those of `names`, or the English ones where digits, blanks, points or one name for two months are
/// in the way.
std::array<std::string, 13> ReadableShortMonths(const CalendarNames& names);

/// Reads a date as a person types it: three parts, or two for a date of `today`'s year, parted by blanks,
/// "-", "/", "." or ",", with the month as a number or a name of `names` (a short or full name, or the first
/// three or more letters of a full one, case ignored). Numeric parts follow `order`; an order that cannot be
/// is tried with day and month the other way round; a first part of three or more digits is a year, and so is
/// one of two digits before the name of a month where the year comes first. A month beside a year of three or
/// more digits is the first of that month. Nothing for other texts, a bare number included.
std::optional<DaySerial> ParseDate(std::string_view text, DateOrder order, const CalendarNames& names,
                                   DaySerial today);

/// A date by a pattern of d, dd, m, mm, mmm, mmmm, yy, yyyy; letters of the pattern ignore case, every
/// other character stands for itself.
std::string FormatDate(DaySerial serial, std::string_view pattern, const CalendarNames& names);

} // namespace tvx
