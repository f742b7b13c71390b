#include "platform/basic/Date.h"

#include "platform/basic/Text.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace tvx {
namespace {

namespace chr = std::chrono;

constexpr chr::sys_days Epoch{chr::year{1899} / chr::December / chr::day{30}};

int FullYear(int year) {
    if (year >= 0 && year <= 29) return 2000 + year;
    if (year >= 30 && year <= 99) return 1900 + year;
    return year;
}

DaySerial SerialOf(chr::year_month_day date) {
    return static_cast<DaySerial>((chr::sys_days{date} - Epoch).count());
}

DaySerial FirstWeekOf(int year, int firstWeekday, FirstWeekRule rule) {
    const DaySerial january1 = SerialFromParts(year, 1, 1);
    const int into = Weekday(january1, firstWeekday) - 1; // days of that week before 1 January
    const DaySerial weekOfJanuary1 = january1 - into;
    switch (rule) {
    case FirstWeekRule::Jan1:
        return weekOfJanuary1;
    case FirstWeekRule::FirstFullWeek:
        return into == 0 ? january1 : weekOfJanuary1 + 7;
    case FirstWeekRule::FirstFourDays:
        return into <= 3 ? weekOfJanuary1 : weekOfJanuary1 + 7;
    }
    return weekOfJanuary1;
}

struct DateWord {
    bool isNumber = false;
    int value = 0; // the number, or the month 1 to 12 that a name stands for
    std::size_t digits = 0;
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsSeparator(char c) {
    return c == ' ' || c == '-' || c == '/' || c == '.' || c == ',';
}

/// Month 1 to 12 of the first name that a test takes, else 0.
template <typename Test>
int MonthWhere(const std::array<std::string, 13>& names, Test takes) {
    const auto found = std::find_if(names.begin() + 1, names.end(),
                                    [&](const std::string& name) { return takes(UpperCase(name)); });
    return found == names.end() ? 0 : static_cast<int>(found - names.begin());
}

/// Month 1 to 12 for a name or a beginning of a full one of at least three characters, else 0. A whole name
/// wins: that of one month may be how another's begins.
int MonthByName(std::string_view word, const CalendarNames& names) {
    const std::string wanted = UpperCase(word);
    const auto same = [&](const std::string& name) { return name == wanted; };
    const auto begins = [&](const std::string& name) { return name.starts_with(wanted); };
    if (const int month = MonthWhere(names.shortMonths, same)) return month;
    if (const int month = MonthWhere(names.months, same)) return month;
    return CharacterCount(wanted) < 3 ? 0 : MonthWhere(names.months, begins);
}

/// The words of a date text, or nothing when a part is neither a number nor a month.
std::optional<std::vector<DateWord>> ReadWords(std::string_view text, const CalendarNames& names) {
    std::vector<DateWord> words;
    for (std::size_t at = 0; at < text.size();) {
        if (IsSeparator(text[at])) {
            ++at;
            continue;
        }
        const bool number = IsDigit(text[at]);
        std::size_t end = at;
        while (end < text.size() && !IsSeparator(text[end]) && IsDigit(text[end]) == number) ++end;
        const std::string_view word = text.substr(at, end - at);
        DateWord found{number, 0, word.size()};
        if (number && word.size() > 4) return std::nullopt;
        found.value = number ? std::stoi(std::string(word)) : MonthByName(word, names);
        if (!number && found.value == 0) return std::nullopt;
        words.push_back(found);
        at = end;
    }
    return words;
}

std::optional<DaySerial> Build(int year, int month, int day) {
    const int full = FullYear(year);
    if (full < 100 || full > 9999 || !IsCalendarDate(full, month, day)) return std::nullopt;
    return SerialFromParts(full, month, day);
}

std::optional<DaySerial> MonthOrDayFirst(int year, int first, int second, DateOrder order) {
    const bool monthFirst = order != DateOrder::DayMonthYear;
    if (const auto straight = monthFirst ? Build(year, first, second) : Build(year, second, first))
        return straight;
    return monthFirst ? Build(year, second, first) : Build(year, first, second);
}

bool IsYear(const DateWord& word) {
    return word.isNumber && (word.digits >= 3 || word.value > 31);
}

/// A month beside one number: the first of that month of a year, or a day of the present year.
std::optional<DaySerial> MonthAndNumber(int month, const DateWord& number, int presentYear) {
    return number.digits >= 3 ? Build(number.value, month, 1) : Build(presentYear, month, number.value);
}

std::optional<DaySerial> TwoNumbers(const DateWord& first, const DateWord& second, DateOrder order,
                                    int presentYear) {
    if (second.digits >= 3) return MonthAndNumber(first.value, second, presentYear);
    if (first.digits >= 3) return MonthAndNumber(second.value, first, presentYear);
    return MonthOrDayFirst(presentYear, first.value, second.value, order);
}

std::optional<DaySerial> WithMonthName(const std::vector<DateWord>& words, std::size_t name, DateOrder order,
                                       int presentYear) {
    std::vector<DateWord> numbers;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (i != name) numbers.push_back(words[i]);
    const int month = words[name].value;
    if (numbers.size() == 1) return MonthAndNumber(month, numbers[0], presentYear);
    // "26-Apr-12" is of 2026 where people put the year first; nobody writes a year in one digit.
    const bool yearInFront = order == DateOrder::YearMonthDay && name == 1 && numbers[0].digits >= 2;
    if (IsYear(numbers[0]) || (yearInFront && !IsYear(numbers[1])))
        return Build(numbers[0].value, month, numbers[1].value);
    return Build(numbers[1].value, month, numbers[0].value);
}

std::optional<DaySerial> AllNumbers(const std::vector<DateWord>& words, DateOrder order, int presentYear) {
    if (words.size() == 2) return TwoNumbers(words[0], words[1], order, presentYear);
    if (IsYear(words[0]) || (order == DateOrder::YearMonthDay && !IsYear(words[2])))
        return MonthOrDayFirst(words[0].value, words[1].value, words[2].value, DateOrder::YearMonthDay);
    return MonthOrDayFirst(words[2].value, words[0].value, words[1].value, order);
}

std::string Padded(int number, std::size_t width) {
    std::string text = std::to_string(number);
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

std::string DatePiece(char letter, std::size_t length, const DateParts& date, const CalendarNames& names) {
    const auto month = static_cast<std::size_t>(date.month);
    switch (letter) {
    case 'd':
        return Padded(date.day, length >= 2 ? 2 : 1);
    case 'm':
        if (length >= 4) return names.months[month];
        if (length == 3) return names.shortMonths[month];
        return Padded(date.month, length);
    default:
        return length <= 2 ? Padded(date.year % 100, 2) : Padded(date.year, 4);
    }
}

} // namespace

DaySerial SerialFromParts(int year, int month, int day) {
    const int months = FullYear(year) * 12 + month - 1;
    const int wholeYear = months >= 0 ? months / 12 : (months - 11) / 12;
    const auto first =
        chr::year{wholeYear} / chr::month{static_cast<unsigned>(months - wholeYear * 12 + 1)} / 1;
    return SerialOf(first) + day - 1;
}

DateParts PartsOf(DaySerial serial) {
    const chr::year_month_day date{Epoch + chr::days{serial}};
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

bool IsLeapYear(int year) {
    return chr::year{year}.is_leap();
}

bool IsCalendarDate(int year, int month, int day) {
    if (month < 1 || month > 12 || day < 1 || day > 31) return false;
    return (chr::year{year} / chr::month{static_cast<unsigned>(month)} / chr::day{static_cast<unsigned>(day)})
        .ok();
}

int Weekday(DaySerial serial, int firstWeekday) {
    // Serial 1 is Sunday, 31 December 1899.
    const int fromSunday = ((serial - 1) % 7 + 7) % 7;
    return (fromSunday - (firstWeekday - 1) % 7 + 7) % 7 + 1;
}

int WeekOfYear(DaySerial serial, int firstWeekday, FirstWeekRule rule) {
    const int year = PartsOf(serial).year;
    DaySerial first = FirstWeekOf(year, firstWeekday, rule);
    if (serial < first) {
        first = FirstWeekOf(year - 1, firstWeekday, rule);
    } else if (rule == FirstWeekRule::FirstFourDays) {
        const DaySerial next = FirstWeekOf(year + 1, firstWeekday, rule);
        if (serial >= next) first = next;
    }
    return (serial - first) / 7 + 1;
}

int YearsBetween(DaySerial from, DaySerial to) {
    return PartsOf(to).year - PartsOf(from).year;
}

const CalendarNames& EnglishNames() {
    static const CalendarNames names{
        {"", "January", "February", "March", "April", "May", "June", "July", "August", "September", "October",
         "November", "December"},
        {"", "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
        {"", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
        {"", "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"}};
    return names;
}

std::array<std::string, 13> ReadableShortMonths(const CalendarNames& names) {
    const auto readable = [&](int month) {
        const DaySerial date = SerialFromParts(2026, month, 1);
        const auto reads = [&](const char* pattern, DateOrder order) {
            return ParseDate(FormatDate(date, pattern, names), order, names, date) == date;
        };
        return reads("d-mmm-yyyy", DateOrder::DayMonthYear) && reads("yyyy-mmm-d", DateOrder::YearMonthDay);
    };
    for (int month = 1; month <= 12; ++month)
        if (!readable(month)) return EnglishNames().shortMonths;
    return names.shortMonths;
}

std::optional<DaySerial> ParseDate(std::string_view text, DateOrder order, const CalendarNames& names,
                                   DaySerial today) {
    const auto words = ReadWords(text, names);
    if (!words || words->size() < 2 || words->size() > 3) return std::nullopt;
    const int presentYear = PartsOf(today).year;
    const auto isName = [](const DateWord& word) { return !word.isNumber; };
    const auto name = std::find_if(words->begin(), words->end(), isName);
    if (name == words->end()) return AllNumbers(*words, order, presentYear);
    if (std::count_if(words->begin(), words->end(), isName) > 1) return std::nullopt;
    return WithMonthName(*words, static_cast<std::size_t>(name - words->begin()), order, presentYear);
}

std::string FormatDate(DaySerial serial, std::string_view pattern, const CalendarNames& names) {
    const DateParts date = PartsOf(serial);
    std::string text;
    for (std::size_t at = 0; at < pattern.size();) {
        const char letter = static_cast<char>(pattern[at] | 0x20);
        if (letter != 'd' && letter != 'm' && letter != 'y') {
            text += pattern[at++];
            continue;
        }
        std::size_t end = at;
        while (end < pattern.size() && static_cast<char>(pattern[end] | 0x20) == letter) ++end;
        text += DatePiece(letter, end - at, date, names);
        at = end;
    }
    return text;
}

} // namespace tvx
