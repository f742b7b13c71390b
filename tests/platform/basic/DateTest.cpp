#include "platform/basic/Date.h"

#include "support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace tvx {

void PrintTo(const DateParts& date, std::ostream* out) {
    *out << date.year << '-' << date.month << '-' << date.day;
}

namespace {

// --- serials ----------------------------------------------------------------------------------------------

TEST(SerialFromParts, counts_days_since_30_December_1899) {
    EXPECT_EQ(SerialFromParts(1899, 12, 30), 0);
    EXPECT_EQ(SerialFromParts(1899, 12, 31), 1);
    EXPECT_EQ(SerialFromParts(1899, 12, 29), -1);
    EXPECT_EQ(SerialFromParts(2000, 1, 1), 36526);
    EXPECT_EQ(SerialFromParts(2006, 2, 26), 38774);
    EXPECT_EQ(SerialFromParts(2026, 3, 5), 46086);
}

TEST(SerialFromParts, lets_parts_overflow) {
    EXPECT_EQ(SerialFromParts(2026, 2, 29), SerialFromParts(2026, 3, 1));
    EXPECT_EQ(SerialFromParts(2024, 2, 30), SerialFromParts(2024, 3, 1));
    EXPECT_EQ(SerialFromParts(2026, 13, 1), SerialFromParts(2027, 1, 1));
    EXPECT_EQ(SerialFromParts(2026, 25, 1), SerialFromParts(2028, 1, 1));
    EXPECT_EQ(SerialFromParts(2026, 0, 1), SerialFromParts(2025, 12, 1));
    EXPECT_EQ(SerialFromParts(2026, -12, 1), SerialFromParts(2024, 12, 1));
    EXPECT_EQ(SerialFromParts(2026, 3, 0), SerialFromParts(2026, 2, 28));
    EXPECT_EQ(SerialFromParts(2024, 3, 0), SerialFromParts(2024, 2, 29));
    EXPECT_EQ(SerialFromParts(2026, 1, -1), SerialFromParts(2025, 12, 30));
    EXPECT_EQ(SerialFromParts(2026, 1, 366), SerialFromParts(2027, 1, 1));
}

TEST(SerialFromParts, places_years_of_two_digits_between_1930_and_2029) {
    EXPECT_EQ(SerialFromParts(0, 1, 1), SerialFromParts(2000, 1, 1));
    EXPECT_EQ(SerialFromParts(29, 12, 31), SerialFromParts(2029, 12, 31));
    EXPECT_EQ(SerialFromParts(30, 1, 1), SerialFromParts(1930, 1, 1));
    EXPECT_EQ(SerialFromParts(99, 12, 31), SerialFromParts(1999, 12, 31));
}

TEST(PartsOf, takes_a_serial_apart) {
    EXPECT_EQ(PartsOf(0), (DateParts{1899, 12, 30}));
    EXPECT_EQ(PartsOf(-1), (DateParts{1899, 12, 29}));
    EXPECT_EQ(PartsOf(60), (DateParts{1900, 2, 28})); // 1900 was no leap year
    EXPECT_EQ(PartsOf(61), (DateParts{1900, 3, 1}));
    EXPECT_EQ(PartsOf(46086), (DateParts{2026, 3, 5}));
}

TEST(PartsOf, undoes_SerialFromParts) {
    for (DaySerial serial = SerialFromParts(1900, 1, 1); serial <= SerialFromParts(2099, 12, 31); ++serial) {
        const DateParts date = PartsOf(serial);
        ASSERT_EQ(SerialFromParts(date.year, date.month, date.day), serial);
        ASSERT_TRUE(IsCalendarDate(date.year, date.month, date.day)) << serial;
    }
}

TEST(SerialFromParts, adds_days_wherever_they_lead) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const auto year = static_cast<int>(random.Whole(1900, 2099));
        const auto month = static_cast<int>(random.Whole(1, 12));
        const auto extra = static_cast<int>(random.Whole(-2000, 2000));
        const DateParts date = PartsOf(SerialFromParts(year, month, 1 + extra));
        ASSERT_EQ(SerialFromParts(date.year, date.month, date.day), SerialFromParts(year, month, 1) + extra);
        const DateParts months = PartsOf(SerialFromParts(year, month + extra, 1));
        ASSERT_EQ(months.year * 12 + months.month, year * 12 + month + extra);
        ASSERT_EQ(months.day, 1);
    }
}

TEST(IsLeapYear, follows_the_calendar) {
    EXPECT_TRUE(IsLeapYear(2024));
    EXPECT_TRUE(IsLeapYear(2000));
    EXPECT_FALSE(IsLeapYear(1900));
    EXPECT_FALSE(IsLeapYear(2026));
}

TEST(IsCalendarDate, lets_nothing_overflow) {
    EXPECT_TRUE(IsCalendarDate(2024, 2, 29));
    EXPECT_FALSE(IsCalendarDate(2026, 2, 29));
    EXPECT_TRUE(IsCalendarDate(2026, 12, 31));
    EXPECT_FALSE(IsCalendarDate(2026, 4, 31));
    EXPECT_FALSE(IsCalendarDate(2026, 13, 1));
    EXPECT_FALSE(IsCalendarDate(2026, 0, 1));
    EXPECT_FALSE(IsCalendarDate(2026, 1, 0));
    EXPECT_FALSE(IsCalendarDate(2026, 1, 32));
    EXPECT_FALSE(IsCalendarDate(2026, -1, 257)); // would be fine when cut to a byte
}

TEST(Weekday, counts_from_the_first_day_of_the_week) {
    EXPECT_EQ(Weekday(SerialFromParts(2026, 3, 1)), 1); // a Sunday
    EXPECT_EQ(Weekday(SerialFromParts(2026, 3, 5)), 5);
    EXPECT_EQ(Weekday(SerialFromParts(2026, 3, 7)), 7);
    EXPECT_EQ(Weekday(SerialFromParts(2026, 3, 5), 2), 4); // Thursday is the fourth from Monday
    EXPECT_EQ(Weekday(SerialFromParts(2026, 3, 5), 5), 1);
    EXPECT_EQ(Weekday(SerialFromParts(2026, 3, 5), 6), 7);
    EXPECT_EQ(Weekday(1), 1);
    EXPECT_EQ(Weekday(0), 7);
    EXPECT_EQ(Weekday(-6), 1);
}

TEST(YearsBetween, looks_at_the_year_numbers_alone) {
    EXPECT_EQ(YearsBetween(SerialFromParts(2025, 12, 31), SerialFromParts(2026, 1, 1)), 1);
    EXPECT_EQ(YearsBetween(SerialFromParts(2026, 1, 1), SerialFromParts(2026, 12, 31)), 0);
    EXPECT_EQ(YearsBetween(SerialFromParts(2026, 1, 1), SerialFromParts(2010, 6, 1)), -16);
}

// --- weeks of the year ------------------------------------------------------------------------------------

struct WeekCase {
    int year, month, day;
    int firstWeekday;
    FirstWeekRule rule;
    int week;
};

TEST(WeekOfYear, numbers_the_days_about_new_year) {
    using enum FirstWeekRule;
    constexpr WeekCase cases[] = {
        {2003, 12, 29, 2, FirstFourDays, 1}, // Mondays whose week belongs to the year that follows
        {2007, 12, 31, 2, FirstFourDays, 1},
        {2019, 12, 30, 2, FirstFourDays, 1},
        {2005, 1, 1, 2, FirstFourDays, 53},
        {2005, 1, 2, 2, FirstFourDays, 53},
        {2005, 1, 3, 2, FirstFourDays, 1},
        {2006, 1, 1, 2, FirstFourDays, 52},
        {2026, 12, 31, 2, FirstFourDays, 53},
        {2026, 1, 1, 1, Jan1, 1},
        {2026, 1, 3, 1, Jan1, 1},
        {2026, 1, 4, 1, Jan1, 2},
        {2026, 12, 31, 1, Jan1, 53}, // never 1, whatever the next week holds
        {2000, 12, 31, 1, Jan1, 54}, // a leap year that begins on the last day of a week
        {2026, 1, 1, 1, FirstFullWeek, 52},
        {2026, 1, 3, 1, FirstFullWeek, 52},
        {2026, 1, 4, 1, FirstFullWeek, 1},
        {2023, 1, 1, 1, FirstFullWeek, 1}, // the year begins with the week
        {2001, 1, 6, 1, FirstFullWeek, 53},
    };
    for (const WeekCase& c : cases)
        EXPECT_EQ(WeekOfYear(SerialFromParts(c.year, c.month, c.day), c.firstWeekday, c.rule), c.week)
            << c.year << '-' << c.month << '-' << c.day << " first weekday " << c.firstWeekday;
}

/// A day of a calendar that is walked one day at a time, without any arithmetic of serials.
struct WalkedDay {
    int year;
    int ofYear;  // 1 January is 1
    int weekday; // 1 Sunday to 7 Saturday
};

std::vector<WalkedDay> WalkCalendar(int fromYear, int toYear, int weekdayOfFirst) {
    std::vector<WalkedDay> days;
    int weekday = weekdayOfFirst;
    for (int year = fromYear; year <= toYear; ++year) {
        const int length = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 366 : 365;
        for (int day = 1; day <= length; ++day) {
            days.push_back({year, day, weekday});
            weekday = weekday == 7 ? 1 : weekday + 1;
        }
    }
    return days;
}

/// Walks back from a day to 1 January and counts the days on which a week begins.
int WeeksBegunInYear(const std::vector<WalkedDay>& days, std::size_t at, int firstWeekday) {
    int begun = 0;
    for (;; --at) {
        if (days[at].weekday == firstWeekday) ++begun;
        if (days[at].ofYear == 1) return begun;
    }
}

int WeekByWalking(const std::vector<WalkedDay>& days, std::size_t at, int firstWeekday, FirstWeekRule rule) {
    if (rule == FirstWeekRule::FirstFourDays) {
        while (days[at].weekday != firstWeekday) --at;
        return (days[at + 3].ofYear - 1) / 7 + 1;
    }
    const std::size_t january1 = at - static_cast<std::size_t>(days[at].ofYear - 1);
    const int begun = WeeksBegunInYear(days, at, firstWeekday);
    if (rule == FirstWeekRule::Jan1) return days[january1].weekday == firstWeekday ? begun : begun + 1;
    return begun != 0 ? begun : WeeksBegunInYear(days, january1 - 1, firstWeekday);
}

TEST(WeekOfYear, agrees_with_counting_weeks_day_by_day) {
    using enum FirstWeekRule;
    const std::vector<WalkedDay> days = WalkCalendar(1989, 2061, 1); // 1 January 1989 was a Sunday
    const DaySerial start = SerialFromParts(1989, 1, 1);
    for (std::size_t at = 365; at < days.size() && days[at].year <= 2060; ++at) {
        const DaySerial serial = start + static_cast<DaySerial>(at);
        for (const FirstWeekRule rule : {Jan1, FirstFourDays, FirstFullWeek})
            for (int first = 1; first <= 7; ++first)
                ASSERT_EQ(WeekOfYear(serial, first, rule), WeekByWalking(days, at, first, rule))
                    << FormatDate(serial, "d-mmm-yyyy", EnglishNames()) << " first weekday " << first
                    << " rule " << static_cast<int>(rule);
    }
}

// --- dates as text ----------------------------------------------------------------------------------------

CalendarNames FrenchNames() {
    CalendarNames names = EnglishNames();
    names.months = {"",        "janvier", "février",   "mars",    "avril",    "mai",     "juin",
                    "juillet", "août",    "septembre", "octobre", "novembre", "décembre"};
    names.shortMonths = {"",      "janv.", "févr.", "mars", "avr.", "mai", "juin",
                         "juil.", "août",  "sept.", "oct.", "nov.", "déc."};
    return names;
}

const DaySerial Today = SerialFromParts(2026, 3, 5);

std::string Read(std::string_view text, DateOrder order, const CalendarNames& names = EnglishNames()) {
    const auto serial = ParseDate(text, order, names, Today);
    return serial ? FormatDate(*serial, "yyyy-mm-dd", EnglishNames()) : "none";
}

struct ReadCase {
    const char* text;
    const char* date;
};

TEST(ParseDate, reads_what_a_person_types) {
    constexpr ReadCase cases[] = {
        {"2-Mar-2004", "2004-03-02"},   {"Mar-12-2004", "2004-03-12"}, {"12-23-2004", "2004-12-23"},
        {"12/23/2004", "2004-12-23"},   {"2004/12/23", "2004-12-23"},  {"3/5/2026", "2026-03-05"},
        {"3.5.2026", "2026-03-05"},     {"3 5 2026", "2026-03-05"},    {"March 5, 2026", "2026-03-05"},
        {"5 MARCH 2026", "2026-03-05"}, {"2004-Mar-2", "2004-03-02"},  {"5 Sept 2026", "2026-09-05"},
        {"03/05/26", "2026-03-05"},     {"3/5/29", "2029-03-05"},      {"3/5/30", "1930-03-05"},
        {"3/5/0", "2000-03-05"},        {"3/5", "2026-03-05"},         {"Mar 5", "2026-03-05"},
        {"5-Mar", "2026-03-05"},        {"29-Feb-2024", "2024-02-29"}, {"5Mar2026", "2026-03-05"},
        {"45-Mar-12", "1945-03-12"}, // no day has this number, so it is the year
        {"12-Mar-45", "1945-03-12"},
    };
    for (const ReadCase& c : cases) EXPECT_EQ(Read(c.text, DateOrder::MonthDayYear), c.date) << c.text;
}

TEST(ParseDate, swaps_day_and_month_when_the_order_cannot_be) {
    EXPECT_EQ(Read("13/12/2004", DateOrder::MonthDayYear), "2004-12-13");
    EXPECT_EQ(Read("12/13/2004", DateOrder::DayMonthYear), "2004-12-13");
    EXPECT_EQ(Read("2004/23/12", DateOrder::YearMonthDay), "2004-12-23");
    EXPECT_EQ(Read("31/1", DateOrder::MonthDayYear), "2026-01-31");
    EXPECT_EQ(Read("13/13/2004", DateOrder::MonthDayYear), "none");
}

TEST(ParseDate, follows_the_order_of_the_country) {
    EXPECT_EQ(Read("4/5/2006", DateOrder::MonthDayYear), "2006-04-05");
    EXPECT_EQ(Read("4/5/2006", DateOrder::DayMonthYear), "2006-05-04");
    EXPECT_EQ(Read("4/5/06", DateOrder::YearMonthDay), "2004-05-06");
    EXPECT_EQ(Read("4/5/2006", DateOrder::YearMonthDay), "2006-04-05"); // only the last can be the year
    EXPECT_EQ(Read("2006/4/5", DateOrder::DayMonthYear), "2006-04-05"); // a year in front
    EXPECT_EQ(Read("4/5", DateOrder::DayMonthYear), "2026-05-04");
}

TEST(ParseDate, takes_two_digits_before_a_month_for_the_year_where_the_year_comes_first) {
    EXPECT_EQ(Read("26-Apr-12", DateOrder::YearMonthDay), "2026-04-12");
    EXPECT_EQ(Read("26-Apr-12", DateOrder::MonthDayYear), "2012-04-26");
    EXPECT_EQ(Read("2-Apr-12", DateOrder::YearMonthDay), "2012-04-02");
    EXPECT_EQ(Read("12-Apr-2026", DateOrder::YearMonthDay), "2026-04-12");
    EXPECT_EQ(Read("Apr-12-26", DateOrder::YearMonthDay), "2026-04-12");
}

TEST(ParseDate, takes_a_month_and_a_year_as_the_first_of_that_month) {
    for (const auto order : {DateOrder::MonthDayYear, DateOrder::DayMonthYear, DateOrder::YearMonthDay})
        for (const char* text : {"5/2026", "5-2026", "2026/5", "2026.05", "May 2026", "2026-May"})
            EXPECT_EQ(Read(text, order), "2026-05-01") << text;
}

TEST(ParseDate, finds_no_date_in_other_texts) {
    constexpr const char* texts[] = {
        "",
        " ",
        "36526",
        "2026",
        "abc",
        "Mar",
        "Ma 5 2026",
        "30-Feb-2026",
        "29-Feb-2026",
        "31/4/2026",
        "0/1/2026",
        "1/0/2026",
        "5 Mar Apr",
        "Mar 5 Apr",
        "1/2/3/4",
        "12:30",
        "3/5/2026 10:00",
        "3/5/20260",
        "5-Mrz-2026",
        "--",
        "Marchy 5 2026",
        "3/5/026x",
        "99/99/99",
        "4/31",
        "2/30",
        "13/2026",
        "0/2026",
        "5/20260",
    };
    for (const char* text : texts) EXPECT_EQ(Read(text, DateOrder::MonthDayYear), "none") << text;
}

TEST(ParseDate, knows_the_month_names_of_the_country) {
    const CalendarNames french = FrenchNames();
    EXPECT_EQ(Read("5 février 2026", DateOrder::DayMonthYear, french), "2026-02-05");
    EXPECT_EQ(Read("5 FÉVRIER 2026", DateOrder::DayMonthYear, french), "2026-02-05");
    EXPECT_EQ(Read("5 févr. 2026", DateOrder::DayMonthYear, french), "2026-02-05");
    EXPECT_EQ(Read("5-juil-2026", DateOrder::DayMonthYear, french), "2026-07-05");
    EXPECT_EQ(Read("5 mai 2026", DateOrder::DayMonthYear, french), "2026-05-05");
    EXPECT_EQ(Read("5 May 2026", DateOrder::DayMonthYear, french), "none");
}

TEST(ParseDate, reads_back_what_was_formatted) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    struct Way {
        const char* pattern;
        DateOrder order;
    };
    constexpr Way ways[] = {
        {"m/d/yyyy", DateOrder::MonthDayYear},    {"dd.mm.yyyy", DateOrder::DayMonthYear},
        {"yyyy-mm-dd", DateOrder::YearMonthDay},  {"d-mmm-yyyy", DateOrder::MonthDayYear},
        {"yyyy-mmm-d", DateOrder::DayMonthYear},  {"mmmm d, yyyy", DateOrder::YearMonthDay},
        {"mmm-dd-yyyy", DateOrder::DayMonthYear},
    };
    for (int i = 0; i < 10000; ++i) {
        const auto serial = static_cast<DaySerial>(random.Whole(SerialFromParts(1900, 1, 1), 73050));
        for (const CalendarNames& names : {EnglishNames(), FrenchNames()})
            for (const Way& way : ways) {
                const std::string text = FormatDate(serial, way.pattern, names);
                ASSERT_EQ(ParseDate(text, way.order, names, Today), serial) << text;
            }
    }
}

TEST(ParseDate, never_fails) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const std::string text =
            random.Chance(30) ? random.Bytes(20) : random.TextOf("0123456789-/., MarFebmay\xC3\xA9", 14);
        const auto serial = ParseDate(text, DateOrder::MonthDayYear, EnglishNames(), Today);
        if (!serial) continue;
        const DateParts date = PartsOf(*serial);
        ASSERT_TRUE(date.year >= 100 && date.year <= 9999) << text;
    }
}

TEST(FormatDate, follows_its_pattern) {
    const DaySerial march15 = SerialFromParts(2001, 3, 15);
    const DaySerial march5 = SerialFromParts(2026, 3, 5);
    EXPECT_EQ(FormatDate(march15, "MMDDYYYY", EnglishNames()), "03152001");
    EXPECT_EQ(FormatDate(march15, "MMDDYY", EnglishNames()), "031501");
    EXPECT_EQ(FormatDate(march5, "d-mmm-yyyy", EnglishNames()), "5-Mar-2026");
    EXPECT_EQ(FormatDate(march5, "yyyy-mmm-d", EnglishNames()), "2026-Mar-5");
    EXPECT_EQ(FormatDate(march5, "dd-mmm-yy", EnglishNames()), "05-Mar-26");
    EXPECT_EQ(FormatDate(march5, "m/d/yyyy", EnglishNames()), "3/5/2026");
    EXPECT_EQ(FormatDate(march5, "mmmm d, yyyy", EnglishNames()), "March 5, 2026");
    EXPECT_EQ(FormatDate(SerialFromParts(2026, 12, 31), "d-m-yy", EnglishNames()), "31-12-26");
    EXPECT_EQ(FormatDate(march5, "", EnglishNames()), "");
}

TEST(FormatDate, writes_months_in_the_language_of_the_country) {
    EXPECT_EQ(FormatDate(SerialFromParts(2026, 2, 5), "d-mmm-yyyy", FrenchNames()), "5-févr.-2026");
    EXPECT_EQ(FormatDate(SerialFromParts(2026, 8, 5), "d mmmm yyyy", FrenchNames()), "5 août 2026");
}

} // namespace
} // namespace tvx
