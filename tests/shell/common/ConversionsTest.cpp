#include "shell/common/Conversions.h"

#include "support/Random.h"
#include "support/Scripted.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tvx {
namespace {

constexpr DaySerial March5 = 46086; // 5 March 2026, a Thursday
constexpr ClockStyle Twelve = ClockStyle::TwelveHours;
constexpr ClockStyle TwentyFour = ClockStyle::TwentyFourHours;
constexpr const char* MonthFirst = "MM-DD-YYYY";
constexpr const char* DayFirst = "DD-MM-YYYY";
constexpr const char* YearFirst = "YYYY-MM-DD";

std::string Clock(int minutes, ClockStyle style) {
    return MinutesToClockText(minutes, style);
}

std::string Normalized(const std::string& text, DateOrder order = DateOrder::MonthDayYear,
                       const char* setting = MonthFirst) {
    return NormalizeDateText(text, setting, test::ScriptedRegion(order), March5);
}

// --- dates ------------------------------------------------------------------------------------------------

TEST(DateText, writes_the_month_as_a_name_behind_the_day_or_behind_the_year) {
    const test::ScriptedRegion region;
    EXPECT_EQ(DateText(March5, MonthFirst, region), "5-Mar-2026");
    EXPECT_EQ(DateText(March5, DayFirst, region), "5-Mar-2026");
    EXPECT_EQ(DateText(March5, YearFirst, region), "2026-Mar-5");
    EXPECT_EQ(DateText(36526, MonthFirst, region), "1-Jan-2000");
    EXPECT_EQ(DateText(38774, YearFirst, region), "2006-Feb-26");
    EXPECT_EQ(DateText(0, MonthFirst, region), "30-Dec-1899");
}

TEST(NormalizeDateText, takes_every_form_that_its_help_lists) {
    struct Case {
        const char* text;
        DateOrder order;
        const char* setting;
        const char* shown;
    };
    const Case cases[] = {
        {"2-Mar-2026", DateOrder::MonthDayYear, MonthFirst, "2-Mar-2026"},
        {"Aug-12-2026", DateOrder::MonthDayYear, MonthFirst, "12-Aug-2026"},
        {"12-23-2026", DateOrder::MonthDayYear, MonthFirst, "23-Dec-2026"},
        {"12/23/2026", DateOrder::MonthDayYear, MonthFirst, "23-Dec-2026"},
        {"2-Mar-2026", DateOrder::DayMonthYear, DayFirst, "2-Mar-2026"},
        {"Aug-12-2026", DateOrder::DayMonthYear, DayFirst, "12-Aug-2026"},
        {"23-12-2026", DateOrder::DayMonthYear, DayFirst, "23-Dec-2026"},
        {"23/12/2026", DateOrder::DayMonthYear, DayFirst, "23-Dec-2026"},
        {"Mar-12-2026", DateOrder::YearMonthDay, YearFirst, "2026-Mar-12"},
        {"2026-Aug-12", DateOrder::YearMonthDay, YearFirst, "2026-Aug-12"},
        {"2026-12-23", DateOrder::YearMonthDay, YearFirst, "2026-Dec-23"},
        {"2026/12/23", DateOrder::YearMonthDay, YearFirst, "2026-Dec-23"},
    };
    for (const Case& c : cases) EXPECT_EQ(Normalized(c.text, c.order, c.setting), c.shown) << c.text;
}

struct Typed {
    const char* text;
    const char* shown; // "": refused
};

void ExpectShown(DateOrder order, const char* setting, const std::vector<Typed>& table) {
    for (const Typed& typed : table)
        EXPECT_EQ(Normalized(typed.text, order, setting), typed.shown) << typed.text;
}

const std::vector<Typed> TypedAnywhere{
    {"hello", ""},
    {"-", ""},
    {"0", ""},
    {"31-Feb-2026", ""},
    {"99/99/9999", ""},
    {"1234567", ""},
    {"2-Mar", "2-Mar-2026"},
    {"Mar", ""},
    {"'; --", ""},
    {"1-2-3-4-5", ""},
    {"\xF0\x9F\xA5\x90", ""},
    {"2-Mxr-2026", ""},
};

TEST(NormalizeDateText, takes_every_accepted_form_where_the_month_comes_first) {
    ExpectShown(DateOrder::MonthDayYear, "MM-DD-YYYY",
                {{"2-Mar-2026", "2-Mar-2026"},
                 {"2-Jan-2026", "2-Jan-2026"},
                 {"Apr-12-26", "12-Apr-2026"},
                 {"Aug-12-2026", "12-Aug-2026"},
                 {"12-23-2026", "23-Dec-2026"},
                 {"12/23/2026", "23-Dec-2026"},
                 {"23/12/2026", "23-Dec-2026"},
                 {"2/3/2026", "3-Feb-2026"},
                 {" 2-mar-26 ", "2-Mar-2026"},
                 {"2-March-1998", "2-Mar-1998"},
                 {"2/3/29", "3-Feb-2029"},
                 {"2/3/30", "3-Feb-1930"},
                 {"2026-12-23", "23-Dec-2026"},
                 {"29-Feb-2024", "29-Feb-2024"},
                 {"29-Feb-2026", ""},
                 {"36526", "1-Jan-2000"},
                 {"123456", "3-Jan-2238"}});
    ExpectShown(DateOrder::MonthDayYear, "MM-DD-YYYY", TypedAnywhere);
}

TEST(NormalizeDateText, takes_every_accepted_form_where_the_day_comes_first) {
    ExpectShown(DateOrder::DayMonthYear, "DD-MM-YYYY",
                {{"2-Mar-2026", "2-Mar-2026"},
                 {"Aug-12-2026", "12-Aug-2026"},
                 {"23-12-2026", "23-Dec-2026"},
                 {"23/12/2026", "23-Dec-2026"},
                 {"12/23/2026", "23-Dec-2026"},
                 {"2.3.2026", "2-Mar-2026"},
                 {"36526", "1-Jan-2000"}});
    ExpectShown(DateOrder::DayMonthYear, "DD-MM-YYYY", TypedAnywhere);
}

TEST(NormalizeDateText, takes_every_accepted_form_where_the_year_comes_first) {
    ExpectShown(DateOrder::YearMonthDay, "YYYY-MM-DD",
                {{"Mar-12-2026", "2026-Mar-12"},
                 {"2026-Aug-12", "2026-Aug-12"},
                 {"2026-12-23", "2026-Dec-23"},
                 {"2026/12/23", "2026-Dec-23"},
                 {"26-12-23", "2026-Dec-23"},
                 {"Jan-12-26", "2026-Jan-12"},
                 {"26-Apr-12", "2026-Apr-12"},
                 {"36526", "2000-Jan-1"},
                 {"hello", ""}});
}

TEST(NormalizeDateText, reads_its_own_output_as_the_same_date) {
    for (const auto& [order, setting] : {std::pair{DateOrder::MonthDayYear, MonthFirst},
                                         {DateOrder::DayMonthYear, DayFirst},
                                         {DateOrder::YearMonthDay, YearFirst}})
        for (DaySerial day = 20000; day < 60000; day += 97) {
            const std::string shown = DateText(day, setting, test::ScriptedRegion(order));
            ASSERT_EQ(Normalized(shown, order, setting), shown) << day;
        }
}

TEST(NormalizeDateText, takes_a_short_number_as_a_day_serial) {
    EXPECT_EQ(Normalized("36526"), "1-Jan-2000");
    EXPECT_EQ(Normalized("  36526  "), "1-Jan-2000");
    EXPECT_EQ(Normalized("123456"), "3-Jan-2238");
    EXPECT_EQ(Normalized("36526", DateOrder::YearMonthDay, YearFirst), "2000-Jan-1");
    EXPECT_EQ(Normalized("-5"), "25-Dec-1899");
    EXPECT_EQ(Normalized("+5"), "4-Jan-1900");
    EXPECT_EQ(Normalized("1.50"), "31-Dec-1899"); // no month has a fiftieth day
}

TEST(NormalizeDateText, refuses_a_text_that_is_more_than_a_number) {
    for (const char* text : {"4/31", "31/4", "2/30", "8:30", "12:00", "5 app", "5x", "4-31", "1E5", "&H10",
                             "5.5.5.5", "1 2 3 4", "-", ".", "+-5", "$5"})
        for (const auto& [order, setting] : {std::pair{DateOrder::MonthDayYear, MonthFirst},
                                             {DateOrder::DayMonthYear, DayFirst},
                                             {DateOrder::YearMonthDay, YearFirst}})
            EXPECT_EQ(Normalized(text, order, setting), "") << text;
}

TEST(NormalizeDateText, takes_a_month_and_a_year_as_the_first_of_that_month) {
    for (const char* text : {"5/2026", "5-2026", "2026/5", "May 2026", "2026-May"})
        for (const auto& [order, setting] :
             {std::pair{DateOrder::MonthDayYear, MonthFirst}, {DateOrder::DayMonthYear, DayFirst}})
            EXPECT_EQ(Normalized(text, order, setting), "1-May-2026") << text;
    EXPECT_EQ(Normalized("13/2026"), "");
}

TEST(NormalizeDateText, lets_a_date_win_over_a_number) {
    EXPECT_EQ(Normalized("1.5"), "5-Jan-2026");
    EXPECT_EQ(Normalized("1.5", DateOrder::DayMonthYear, DayFirst), "1-May-2026");
}

TEST(NormalizeDateText, refuses_what_is_no_date) {
    for (const char* text : {"", "   ", "0", "1234567", "abc", "March", "31-Feb-2026", "13/13/2026",
                             "0/0/2026", "5 apples", "\xF0\x9F\x8D\x9E"})
        EXPECT_EQ(Normalized(text), "") << text;
}

TEST(NormalizeDateText, refuses_a_number_that_lies_outside_the_calendar) {
    for (const char* text : {"1E9", "9E99", "-9E99", "-1E9", "1E7", "-1E6", "9999999", "-999999"})
        EXPECT_EQ(Normalized(text), "") << text;
}

TEST(NormalizeDateText, answers_any_bytes_with_a_date_or_nothing) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const std::string text =
            i % 2 == 0 ? random.Bytes(12) : random.TextOf("0123456789-/. ,EeMarDc&H", 12);
        const std::string shown = Normalized(text);
        if (shown.empty()) continue;
        ASSERT_EQ(Normalized(shown), shown) << text;
    }
}

TEST(ShowDateHelp, lists_the_forms_of_each_country) {
    struct Case {
        const char* setting;
        const char* text;
    };
    const Case cases[] = {
        {MonthFirst, "Acceptable date formats are;\n\n2-Mar-2026, Aug-12-2026,\n\n12-23-2026 or 12/23/2026"},
        {DayFirst, "Acceptable date formats are;\n\n2-Mar-2026, Aug-12-2026,\n\n23-12-2026 or 23/12/2026"},
        {YearFirst, "Acceptable date formats are;\n\nMar-12-2026, 2026-Aug-12,\n\n2026-12-23 or 2026/12/23"},
    };
    for (const Case& c : cases) {
        test::ScriptedPrompt prompt;
        prompt.Expect(c.text, box::Ok, "Date error");
        ShowDateHelp(prompt, c.setting, test::ScriptedRegion(), March5);
        EXPECT_EQ(prompt.Beeps(), 1);
    }
}

// --- hours and times of day -------------------------------------------------------------------------------

TEST(HourLabel, counts_by_the_clock_of_the_options) {
    for (int hour = 1; hour <= 23; ++hour) {
        int twelve = hour;
        int twentyFour = hour;
        EXPECT_EQ(HourLabel(twelve, Twelve), std::to_string(hour > 12 ? hour - 12 : hour));
        EXPECT_EQ(HourLabel(twentyFour, TwentyFour), std::to_string(hour));
        EXPECT_EQ(twelve, hour);
        EXPECT_EQ(twentyFour, hour);
    }
}

TEST(HourLabel, calls_midnight_M_and_begins_the_hours_again) {
    for (const ClockStyle style : {Twelve, TwentyFour})
        for (const int midnight : {0, 24}) {
            int hour = midnight;
            EXPECT_EQ(HourLabel(hour, style), "M");
            EXPECT_EQ(hour, 0);
            ++hour;
            EXPECT_EQ(HourLabel(hour, style), "1");
        }
}

TEST(MinutesToClockText, is_seven_characters_by_both_clocks) {
    struct Case {
        int minutes;
        const char* twelve;
        const char* twentyFour;
    };
    const Case cases[] = {
        {0, " Midn. ", " Midn. "},    {15, "12:15am", "  0:15 "},   {45, "12:45am", "  0:45 "},
        {60, " 1:00am", "  1:00 "},   {510, " 8:30am", "  8:30 "},  {600, "10:00am", " 10:00 "},
        {705, "11:45am", " 11:45 "},  {720, "  Noon ", " 12:00 "},  {735, "12:15pm", " 12:15 "},
        {780, " 1:00pm", " 13:00 "},  {810, " 1:30pm", " 13:30 "},  {1425, "11:45pm", " 23:45 "},
        {1440, " Midn. ", " Midn. "}, {1455, "12:15am", "  0:15 "}, {2160, "  Noon ", " 12:00 "},
        {2865, "11:45pm", " 23:45 "}, {2880, " Midn. ", " Midn. "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Clock(c.minutes, Twelve), c.twelve) << c.minutes;
        EXPECT_EQ(Clock(c.minutes, TwentyFour), c.twentyFour) << c.minutes;
    }
    for (int minutes = 0; minutes <= 2880; minutes += 15)
        for (const ClockStyle style : {Twelve, TwentyFour})
            EXPECT_EQ(Clock(minutes, style).size(), 7U) << minutes;
}

TEST(MinutesToClockText, takes_off_one_day_and_no_more) {
    EXPECT_EQ(Clock(2895, TwentyFour), " 24:15 ");
    EXPECT_EQ(Clock(3000, Twelve), "14:00pm");
    EXPECT_EQ(Clock(4320, TwentyFour), " 48:00 ");
}

TEST(MinutesToClockText, takes_the_day_off_in_the_callers_variable) {
    for (const auto& [before, after] :
         {std::pair{1440, 1440}, {1441, 1}, {1455, 15}, {2880, 1440}, {510, 510}}) {
        int minutes = before;
        MinutesToClockText(minutes, Twelve);
        EXPECT_EQ(minutes, after);
    }
}

TEST(MinutesToClockText, appends_its_zero_behind_a_single_minute_figure) {
    EXPECT_EQ(Clock(5, TwentyFour), "  0:50 ");
}

TEST(QuarterToClockText, is_the_time_of_a_quarter) {
    for (int quarter = 0; quarter <= 192; ++quarter)
        EXPECT_EQ(QuarterToClockText(quarter, Twelve), Clock(quarter * 15, Twelve)) << quarter;
}

// --- durations --------------------------------------------------------------------------------------------

TEST(QuartersToText, writes_hours_and_minutes_or_hundredths) {
    struct Case {
        long quarters;
        const char* minutes;
        const char* hundredths;
    };
    const Case cases[] = {
        {0, " 0:00", " 0:00"},           {1, " 0:15", " 0:25"},     {2, " 0:30", " 0:50"},
        {3, " 0:45", " 0:75"},           {34, " 8:30", " 8:50"},    {39, " 9:45", " 9:75"},
        {40, "10:00", "10:00"},          {400, "100:00", "100:00"}, {672, "168:00", "168:00"},
        {-5, "-1:15", "-1:25"},          {-1, " 0:15", " 0:25"},    {-43, "-10:45", "-10:75"},
        {67201, "16800:15", "16800:25"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(QuartersToText(c.quarters, TimeFormat::Minutes), c.minutes) << c.quarters;
        EXPECT_EQ(QuartersToText(c.quarters, TimeFormat::Hundredths), c.hundredths) << c.quarters;
    }
}

TEST(QuartersToTextShort, counts_the_remainder_of_a_negative_duration_upwards) {
    EXPECT_EQ(QuartersToTextShort(-5, TimeFormat::Minutes), "-1:45");
    EXPECT_EQ(QuartersToTextShort(-4, TimeFormat::Minutes), "-1:00");
    EXPECT_EQ(QuartersToTextShort(-1, TimeFormat::Minutes), " 0:45");
    for (int quarters = 0; quarters <= 768; ++quarters)
        for (const TimeFormat style : {TimeFormat::Minutes, TimeFormat::Hundredths})
            ASSERT_EQ(QuartersToTextShort(quarters, style), QuartersToText(quarters, style));
}

TEST(HoursOfQuarters, are_whole_hours_and_fourths) {
    EXPECT_EQ(HoursOfQuarters(0), 0);
    EXPECT_EQ(HoursOfQuarters(33), 8.25);
    for (long quarters = 0; quarters <= 96; ++quarters)
        EXPECT_EQ(HoursOfQuarters(quarters) * 4, static_cast<double>(quarters));
}

// --- wages ------------------------------------------------------------------------------------------------

std::optional<Wage> Paid(long quarters, double rate, bool hourly = true, bool hidden = false) {
    Roster roster;
    roster.RosterPay = {Currency(), Currency::FromAmount(rate)};
    roster.RosterWageOrSal = {0, hourly ? -1 : 0};
    Rights rights;
    rights.HideWages = hidden;
    return WagesForQuarters(roster, rights, 1, quarters);
}

TEST(WagesForQuarters, pays_whole_hours_and_the_part_of_one) {
    EXPECT_EQ(Paid(137, 10)->Amount(), 342.5);
    EXPECT_EQ(Paid(34, 7.25)->Amount(), 61.625);
    EXPECT_EQ(Paid(0, 7.25)->Amount(), 0);
    EXPECT_EQ(Paid(1, 7.25)->Amount(), 1.8125);
    EXPECT_EQ(Paid(4, 0.0001)->Amount(), 0.0001);
}

TEST(WagesForQuarters, keep_the_part_of_an_hour_exact_behind_the_fourth_decimal) {
    EXPECT_EQ(Paid(2, 0.0001)->Amount(), 0.00005);
    EXPECT_EQ(Paid(2, 0.0003)->Amount(), 0.00015);
    EXPECT_EQ(Paid(1, 10.0001)->Amount(), 2.500025);
    EXPECT_EQ(Paid(6, 0.0003)->Amount(), 0.00045);
}

TEST(WagesForQuarters, are_nothing_for_a_salary_and_absent_while_pay_is_hidden) {
    EXPECT_EQ(Paid(40, 700, false), Wage());
    EXPECT_EQ(Paid(40, 10, true, true), std::nullopt);
    EXPECT_EQ(Paid(40, 700, false, true), std::nullopt);
}

TEST(WagesForQuarters, take_any_mark_but_0_for_an_hourly_wage) {
    for (const int mark : {-1, 1, 2, 32767, -32768}) {
        Roster roster;
        roster.RosterPay = {Currency(), Currency::FromAmount(10)};
        roster.RosterWageOrSal = {0, mark};
        EXPECT_EQ(WagesForQuarters(roster, Rights(), 1, 4)->Amount(), 10) << mark;
    }
}

TEST(WagesForQuarters, stay_a_number_for_a_pay_beyond_all_money) {
    for (const double pay : {1e15, 1e30, 1e99, -1e99}) {
        const double wage = Paid(671, pay)->Amount();
        EXPECT_TRUE(std::isfinite(wage)) << pay;
        EXPECT_EQ(wage > 0, pay > 0) << pay;
    }
}

// --- titles -----------------------------------------------------------------------------------------------

TEST(WeekTitle, names_the_department_and_both_ends_of_the_week) {
    Department department;
    department.CurrentDepName = "Bakery";
    Week week;
    week.WeekDateTexts[1] = "1-Mar-2026";
    week.WeekDateTexts[7] = "7-Mar-2026";
    EXPECT_EQ(WeekTitle(department, week), "Bakery,  Week from 1-Mar-2026  to  7-Mar-2026");
    department.CurrentDepName = "מאפייה";
    EXPECT_EQ(WeekTitle(department, week), "\u2068מאפייה\u2069,  Week from 1-Mar-2026  to  7-Mar-2026");
}

} // namespace
} // namespace tvx
