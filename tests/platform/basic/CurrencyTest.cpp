#include "platform/basic/Currency.h"

#include "support/Random.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(Currency, keeps_four_decimals_and_rounds_half_to_even_behind_them) {
    struct Case {
        double amount;
        std::int64_t scaled;
    };
    constexpr Case cases[] = {
        {0, 0},           {7.25, 72500},    {-7.25, -72500},       {0.0001, 1},
        {19.99, 199900},  {0.1, 1000},      {1e9, 10000000000000}, {0.03125, 312}, // 312.5, an exact half
        {0.09375, 938},                                                            // 937.5
        {-0.03125, -312}, {-0.09375, -938}, {0.00004, 0},          {0.00006, 1},
    };
    for (const Case& c : cases) EXPECT_EQ(Currency::FromAmount(c.amount).Scaled(), c.scaled) << c.amount;
}

TEST(Currency, adds_and_multiplies_exactly) {
    const Currency dime = Currency::FromAmount(0.1);
    Currency sum;
    for (int i = 0; i < 1000; ++i) sum += dime;
    EXPECT_EQ(sum, Currency::FromAmount(100));
    EXPECT_EQ(sum, dime * 1000);
    EXPECT_EQ(sum - dime, dime * 999);
    EXPECT_EQ((dime + dime).Amount(), 0.2);
    EXPECT_EQ(Currency().Scaled(), 0);
}

TEST(Currency, compares_by_amount) {
    EXPECT_LT(Currency::FromAmount(-1), Currency::FromAmount(0));
    EXPECT_GT(Currency::FromAmount(7.2501), Currency::FromAmount(7.25));
    EXPECT_NE(Currency::FromScaled(1), Currency());
}

TEST(Quarter, pays_two_quarters_of_an_hour_exactly) {
    EXPECT_EQ((Currency::FromAmount(7.25) * 2).Quarter(), Currency::FromAmount(3.625));
}

TEST(Quarter, rounds_half_to_even_at_the_fourth_decimal) {
    struct Case {
        std::int64_t scaled;
        std::int64_t quarter;
    };
    constexpr Case cases[] = {{0, 0}, {1, 0}, {2, 0}, {3, 1},  {4, 1},
                              {5, 1}, {6, 2}, {7, 2}, {10, 2}, {14, 4}};
    for (const Case& c : cases) {
        EXPECT_EQ(Currency::FromScaled(c.scaled).Quarter().Scaled(), c.quarter) << c.scaled;
        EXPECT_EQ(Currency::FromScaled(-c.scaled).Quarter().Scaled(), -c.quarter) << -c.scaled;
    }
}

/// True when no whole number is nearer to a quarter of n than q, and q is the even one of two that are as
/// near.
bool IsQuarter(std::int64_t n, std::int64_t q) {
    const std::int64_t miss = 4 * q - n;
    return (miss > -2 && miss < 2) || ((miss == 2 || miss == -2) && q % 2 == 0);
}

TEST(Quarter, is_the_nearest_amount_there_is) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (std::int64_t n = -1000; n <= 1000; ++n)
        ASSERT_TRUE(IsQuarter(n, Currency::FromScaled(n).Quarter().Scaled())) << n;
    for (int i = 0; i < 20000; ++i) {
        const std::int64_t n = random.Whole(-1000000000000000, 1000000000000000);
        ASSERT_TRUE(IsQuarter(n, Currency::FromScaled(n).Quarter().Scaled())) << n;
    }
}

} // namespace
} // namespace tvx
