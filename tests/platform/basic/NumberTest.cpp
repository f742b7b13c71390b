#include "platform/basic/Number.h"

#include "support/CommaLocale.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace tvx {
namespace {

constexpr std::int64_t Lowest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t Highest = std::numeric_limits<std::int64_t>::max();

TEST(RoundHalfToEven, gives_an_exact_half_to_the_even_neighbour) {
    struct Case {
        double x;
        std::int64_t whole;
    };
    constexpr Case cases[] = {
        {0, 0},       {0.5, 0},
        {1.5, 2},     {2.5, 2},
        {3.5, 4},     {-0.5, 0},
        {-1.5, -2},   {-2.5, -2},
        {0.49, 0},    {0.51, 1},
        {2.51, 3},    {-2.51, -3},
        {7, 7},       {32767.5, 32768},
        {671.5, 672}, {0.49999999999999994, 0}, // the greatest number below a half
    };
    for (const Case& c : cases) EXPECT_EQ(RoundHalfToEven(c.x), c.whole) << c.x;
}

TEST(RoundHalfToEven, clips_what_64_bits_do_not_hold) {
    EXPECT_EQ(RoundHalfToEven(1e300), Highest);
    EXPECT_EQ(RoundHalfToEven(-1e300), Lowest);
    EXPECT_EQ(RoundHalfToEven(9223372036854775808.0), Highest);
    EXPECT_EQ(RoundHalfToEven(std::numeric_limits<double>::infinity()), Highest);
    EXPECT_EQ(RoundHalfToEven(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(Int, is_the_greatest_whole_number_at_or_below) {
    struct Case {
        double x;
        std::int64_t whole;
    };
    constexpr Case cases[] = {{-2.5, -3}, {2.5, 2}, {-3, -3}, {3, 3}, {-0.1, -1}, {0.9, 0}, {-1e300, Lowest}};
    for (const Case& c : cases) EXPECT_EQ(Int(c.x), c.whole) << c.x;
}

TEST(IntegerDivide, rounds_its_operands_and_cuts_toward_zero) {
    struct Case {
        double dividend;
        double divisor;
        std::int64_t quotient;
    };
    constexpr Case cases[] = {
        {-5, 4, -1}, {5, 4, 1},   {-5, -4, 1}, {3, 4, 0}, {-3, 4, 0}, {672, 96, 7}, {7.6, 2, 4}, // 8 / 2
        {2.5, 1, 2},              // a half goes to the even neighbour before it is divided
        {3.5, 1, 4}, {7, 1.5, 3}, // 7 / 2
    };
    for (const Case& c : cases)
        EXPECT_EQ(IntegerDivide(c.dividend, c.divisor), c.quotient) << c.dividend << " \\ " << c.divisor;
}

TEST(Mod, follows_the_sign_of_the_dividend) {
    struct Case {
        double dividend;
        double divisor;
        std::int64_t rest;
    };
    constexpr Case cases[] = {
        {-5, 4, -1}, {5, -4, 1}, {5, 4, 1}, {-5, -4, -1}, {96, 96, 0}, {97, 96, 1}, {7.6, 3, 2}, // 8 Mod 3
        {2.5, 2, 0},                                                                             // 2 Mod 2
    };
    for (const Case& c : cases)
        EXPECT_EQ(Mod(c.dividend, c.divisor), c.rest) << c.dividend << " Mod " << c.divisor;
}

TEST(IntegerDivide, refuses_a_divisor_that_rounds_to_zero) {
    EXPECT_THROW(IntegerDivide(1, 0), std::domain_error);
    EXPECT_THROW(IntegerDivide(1, 0.5), std::domain_error);
    EXPECT_THROW(Mod(1, 0), std::domain_error);
    EXPECT_THROW(Mod(1, -0.5), std::domain_error);
}

TEST(IntegerDivide, stays_in_range_at_the_lowest_number) {
    EXPECT_EQ(IntegerDivide(-1e300, -1), Highest);
    EXPECT_EQ(IntegerDivide(-1e300, 1), Lowest);
    EXPECT_EQ(Mod(-1e300, -1), 0);
}

TEST(IntegerDivide, and_Mod_put_the_dividend_together_again) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const auto a = static_cast<double>(random.Whole(-100000, 100000));
        const auto b = static_cast<double>(random.Whole(1, 2000) * (random.Chance(50) ? 1 : -1));
        const std::int64_t rest = Mod(a, b);
        ASSERT_EQ(static_cast<double>(IntegerDivide(a, b)) * b + static_cast<double>(rest), a)
            << a << ' ' << b;
        ASSERT_LT(std::fabs(static_cast<double>(rest)), std::fabs(b));
        ASSERT_TRUE(rest == 0 || (rest < 0) == (a < 0)) << a << ' ' << b;
    }
}

struct ValCase {
    const char* text;
    double number;
};

TEST(Val, reads_the_longest_leading_number) {
    constexpr ValCase cases[] = {
        {"672)", 672},
        {"1,234", 1},
        {"", 0},
        {"abc", 0},
        {"-5x", -5},
        {".5", 0.5},
        {"12.5.0", 12.5},
        {"+7", 7},
        {"-.5", -.5},
        {"5.", 5},
        {"007", 7},
        {"3 apples", 3},
        {"--5", 0},
        {"-", 0},
        {".", 0},
        {"-.", 0},
        {"5-3", 5},
        {"(5)", 0},
        {"12/31", 12},
        {"1:30", 1},
        {"$5", 0},
        {"0x1F", 0},
        {"inf", 0},
        {"nan", 0},
        {"\"5\"", 0},
        {"\xE2\x82\xAC"
         "5",
         0},
    };
    for (const ValCase& c : cases) EXPECT_EQ(Val(c.text), c.number) << c.text;
}

TEST(Val, skips_blanks_tabs_and_line_feeds_anywhere) {
    constexpr ValCase cases[] = {
        {"1 2", 12},
        {"   5", 5},
        {"1\t2\n3", 123},
        {"- 5", -5},
        {"1 . 5", 1.5},
        {"1 E 3", 1000},
        {" & H 1 F", 31},
        {"    ", 0},
        {"1\r2", 1}, // a carriage return is an other character
        {"1\xC2\xA0"
         "2",
         1}, // and so is a blank that does not break
    };
    for (const ValCase& c : cases) EXPECT_EQ(Val(c.text), c.number) << c.text;
}

TEST(Val, takes_E_and_D_for_exponents) {
    constexpr ValCase cases[] = {
        {"1E3", 1000}, {"1D3", 1000}, {"1e3", 1000},  {"1d3", 1000},
        {"2E-2", .02}, {"2E+2", 200}, {"1.5E1x", 15}, {"1E", 1}, // a letter without a number is no exponent
        {"1E+", 1},    {"1Ex", 1},    {"E3", 0},      {"1E400", 0}, // nothing that a number can hold
        {"1E-400", 0},
    };
    for (const ValCase& c : cases) EXPECT_EQ(Val(c.text), c.number) << c.text;
}

TEST(Val, reads_hexadecimal_and_octal_numbers) {
    constexpr ValCase cases[] = {
        {"&H1F", 31},       {"&h1f", 31},      {"&O17", 15},       {"&o17", 15},
        {"&H", 0},          {"&", 0},          {"&X1", 0},         {"&O18", 1},        // 8 is no octal digit
        {"&HFFFF", -1},                                                                // 16 bits are signed
        {"&H8000", -32768}, {"&H7FFF", 32767}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, // and so are 32
        {"-&H1F", 0},
    };
    for (const ValCase& c : cases) EXPECT_EQ(Val(c.text), c.number) << c.text;
}

TEST(Val, agrees_with_whole_number_arithmetic) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const std::int64_t quarters = random.Whole(-4000000, 4000000);
        const std::int64_t size = quarters < 0 ? -quarters : quarters;
        std::string text = (quarters < 0 ? "-" : "") + std::to_string(size / 4) + "." +
                           std::to_string(size % 4 * 25) + random.TextOf("abc)/-", 3);
        text.insert(static_cast<std::size_t>(random.Whole(0, 2)), random.TextOf(" \t\n", 2));
        ASSERT_EQ(Val(text), static_cast<double>(quarters) / 4) << text;
    }
}

TEST(Val, never_fails) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        ASSERT_TRUE(std::isfinite(Val(random.Bytes(40))));
        ASSERT_TRUE(std::isfinite(Val(random.TextOf("0123456789.+-EeDd&HhOoFf \t\n", 60))));
    }
    EXPECT_EQ(Val(std::string("1\0"
                              "2",
                              3)),
              1);
}

struct TextCase {
    double number;
    const char* text;
};

constexpr TextCase TextCases[] = {
    {0, "0"},
    {-0.0, "0"},
    {-5, "-5"},
    {.5, ".5"},
    {-.5, "-.5"},
    {7.25, "7.25"},
    {1, "1"},
    {10, "10"},
    {0.05, ".05"},
    {1234567, "1234567"},
    {-7.25, "-7.25"},
    {100.01, "100.01"},
    {0.1 + 0.2, ".3"}, // fifteen digits, the rest is binary noise
    {999999999999999, "999999999999999"},
};

TEST(TrimmedNumber, has_no_zero_before_the_point) {
    for (const TextCase& c : TextCases) EXPECT_EQ(TrimmedNumber(c.number), c.text);
}

TEST(Str, puts_a_blank_where_the_sign_would_be) {
    for (const TextCase& c : TextCases)
        EXPECT_EQ(Str(c.number), c.number < 0 ? c.text : std::string(" ") + c.text);
    EXPECT_EQ("Page" + Str(1), "Page 1");
}

TEST(Str, is_read_back_by_Val) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const double x = static_cast<double>(random.Whole(-1000000000, 1000000000)) /
                         std::pow(10, static_cast<double>(random.Whole(0, 12)));
        ASSERT_EQ(Val(Str(x)), x) << Str(x);
        ASSERT_EQ(Val(TrimmedNumber(x)), x) << TrimmedNumber(x);
    }
}

TEST(Str, and_Val_know_only_the_point_whatever_the_country) {
    const test::CommaLocale country;
    if (!country.IsSet()) GTEST_SKIP() << "no locale could be made";
    EXPECT_EQ(Str(7.25), " 7.25");
    EXPECT_EQ(TrimmedNumber(-.5), "-.5");
    EXPECT_EQ(Val("7.25"), 7.25);
    EXPECT_EQ(Val("7,25"), 7);
}

} // namespace
} // namespace tvx
