#include "platform/basic/Format.h"

#include "support/CommaLocale.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace tvx {
namespace {

struct Case {
    double number;
    const char* pattern;
    const char* text;
};

TEST(Format, writes_by_the_digit_marks_of_the_pattern) {
    constexpr Case cases[] = {
        {0, ".00", ".00"},
        {.5, ".00", ".50"},
        {7, ".00", "7.00"},
        {1234.5, ".00", "1234.50"},
        {-1234.5, ".00", "-1234.50"},
        {0, "##,##0.00", "0.00"},
        {.5, "##,##0.00", "0.50"},
        {1234567.891, "##,##0.00", "1,234,567.89"},
        {-1234567.891, "##,##0.00", "-1,234,567.89"},
        {999, "##,##0.00", "999.00"},
        {1000, "##,##0.00", "1,000.00"},
        {0, "###,###", ""}, // no forced digit
        {.4, "###,###", ""},
        {.5, "###,###", "1"},
        {1234, "###,###", "1,234"},
        {100000, "###,###", "100,000"},
        {0, "###,###.00", ".00"},
        {.5, "###,###.00", ".50"},
        {1234.5, "###,###.00", "1,234.50"},
        {7, "00", "07"},
        {12, "00", "12"},
        {123, "00", "123"},
        {.5, "0.##", "0.5"}, // a mark behind the point without a digit for it
        {.25, "#.0#", ".25"},
        {1e-9, ".00", ".00"},
        {1e15, "##,##0.00", "1,000,000,000,000,000.00"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Format(c.number, c.pattern), c.text) << c.number << " " << c.pattern;
}

TEST(Format, rounds_half_away_from_zero_on_the_decimal_value) {
    constexpr Case cases[] = {
        {61.625, ".00", "61.63"}, {2.675, ".00", "2.68"}, // the binary value lies below the half
        {.005, ".00", ".01"},     {-.125, ".00", "-.13"},
        {1.005, ".00", "1.01"},   {.994, ".00", ".99"},
        {.995, ".00", "1.00"}, // carried over the point
        {9.995, ".00", "10.00"},  {999.995, "##,##0.00", "1,000.00"},
        {99.5, "###,###", "100"}, {-.004, ".00", ".00"}, // no sign on a zero
        {-.4, "###,###", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Format(c.number, c.pattern), c.text) << c.number << " " << c.pattern;
}

TEST(Format, treats_money_by_its_exact_decimals) {
    EXPECT_EQ(Format(Currency::FromScaled(616250), ".00"), "61.63");
    EXPECT_EQ(Format(Currency::FromScaled(616249), ".00"), "61.62");
    EXPECT_EQ(Format(Currency::FromScaled(0), ".00"), ".00");
    EXPECT_EQ(Format(Currency::FromScaled(-1250), ".00"), "-.13");
    EXPECT_EQ(Format(Currency::FromScaled(12345678910), "##,##0.00"), "1,234,567.89");
    EXPECT_EQ(Format(Currency::FromScaled(4999), "###,###"), "");
    EXPECT_EQ(Format(Currency::FromScaled(5000), "###,###"), "1");
    EXPECT_EQ(Format(Currency::FromScaled(1), ".000000"), ".000100");
}

TEST(Format, holds_the_ends_of_the_money_range) {
    EXPECT_EQ(Format(Currency::FromScaled(INT64_MAX), "##,##0.00"), "922,337,203,685,477.58");
    EXPECT_EQ(Format(Currency::FromScaled(INT64_MIN), "##,##0.00"), "-922,337,203,685,477.58");
}

TEST(Format, writes_a_number_that_is_none_as_zero) {
    EXPECT_EQ(Format(std::strtod("nan", nullptr), ".00"), ".00");
    EXPECT_EQ(Format(std::strtod("inf", nullptr), "##,##0.00"), "0.00");
}

TEST(Format, stands_by_point_and_comma_whatever_the_country) {
    const test::CommaLocale country;
    if (!country.IsSet()) GTEST_SKIP() << "no locale could be made";
    EXPECT_EQ(Format(1234567.891, "##,##0.00"), "1,234,567.89");
}

std::string GroupedByThrees(std::int64_t whole) {
    std::string digits = std::to_string(whole);
    for (std::size_t left = digits.size(); left > 3; left -= 3) digits.insert(left - 3, ",");
    return digits;
}

/// What a number of ten-thousandths is under a pattern, by whole-number arithmetic alone.
std::string Expected(std::int64_t scaled, bool forcedDigit, bool grouped, bool cents) {
    const std::int64_t size = scaled < 0 ? -scaled : scaled;
    const std::int64_t kept = cents ? (size + 50) / 100 : (size + 5000) / 10000;
    const std::int64_t whole = cents ? kept / 100 : kept;
    std::string text = scaled < 0 && kept != 0 ? "-" : "";
    if (whole != 0 || forcedDigit) text += grouped ? GroupedByThrees(whole) : std::to_string(whole);
    if (cents) text += "." + std::to_string(100 + kept % 100).substr(1);
    return text;
}

TEST(Format, agrees_with_whole_number_arithmetic) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 50000; ++i) {
        // Ties at the third decimal come often enough to count.
        const std::int64_t limit = random.Chance(50) ? 100000 : 99999999999999;
        std::int64_t scaled = random.Whole(-limit, limit);
        if (random.Chance(30)) scaled = scaled / 100 * 100 + (scaled < 0 ? -50 : 50);
        const std::string decimal = (scaled < 0 ? "-" : "") + std::to_string(std::abs(scaled) / 10000) + "." +
                                    std::to_string(10000 + std::abs(scaled) % 10000).substr(1);
        const double x = std::strtod(decimal.c_str(), nullptr);
        const Currency money = Currency::FromScaled(scaled);
        ASSERT_EQ(Format(x, ".00"), Expected(scaled, false, false, true)) << decimal;
        ASSERT_EQ(Format(x, "##,##0.00"), Expected(scaled, true, true, true)) << decimal;
        ASSERT_EQ(Format(x, "###,###.00"), Expected(scaled, false, true, true)) << decimal;
        ASSERT_EQ(Format(x, "###,###"), Expected(scaled, false, true, false)) << decimal;
        ASSERT_EQ(Format(money, ".00"), Expected(scaled, false, false, true)) << decimal;
        ASSERT_EQ(Format(money, "###,###"), Expected(scaled, false, true, false)) << decimal;
    }
}

} // namespace
} // namespace tvx
