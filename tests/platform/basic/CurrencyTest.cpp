#include "platform/basic/Currency.h"

#include "platform/basic/Format.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <limits>

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

// ---- wages ----

TEST(Wage, is_the_same_whatever_parts_it_is_paid_in) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 2000; ++round) {
        const Currency rate = Currency::FromScaled(random.Whole(-1000000, 1000000));
        Wage sum;
        std::int64_t quarters = 0;
        for (int part = 0; part < 20; ++part) {
            const std::int64_t more = random.Whole(-40, 96);
            sum += Wage::ForQuarters(more, rate);
            quarters += more;
        }
        ASSERT_EQ(sum, Wage::ForQuarters(quarters, rate));
        sum -= Wage::ForQuarters(quarters, rate);
        ASSERT_EQ(sum, Wage()) << "nothing is left over";
    }
}

TEST(Wage, adds_to_salaries) {
    const Wage wage = Wage::ForQuarters(34, Currency::FromAmount(7.25));
    EXPECT_EQ(wage.Amount(), 61.625);
    EXPECT_EQ((wage + Wage::Whole(Currency::FromAmount(900))).Amount(), 961.625);
    EXPECT_EQ((wage - Wage::Whole(Currency::FromAmount(900))).Amount(), -838.375);
    EXPECT_LT(wage, Wage::Whole(Currency::FromAmount(61.63)));
}

TEST(Wage, stays_at_the_end_of_its_range) {
    const Currency most = Currency::FromScaled(std::numeric_limits<std::int64_t>::max());
    const Wage end = Wage::Whole(most);
    EXPECT_EQ(end.Fourths(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(end + end, end);
    EXPECT_EQ(Wage::ForQuarters(-4, most).Fourths(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Wage::ForQuarters(-4, most) - end, Wage::ForQuarters(-4, most));
}

/// What a page shows of a wage counted in real numbers: the rate times the whole hours, and the rate times
/// the quarters beyond them divided by 4.
std::string AsReal(double rate, int quarters) {
    return Format(rate * (quarters / 4) + rate * (quarters % 4) / 4, ".00");
}

TEST(Wage, is_written_as_the_real_number_is_for_every_rate_of_two_decimals) {
    for (int cents = 0; cents <= 20000; ++cents) {
        const Currency rate = Currency::FromScaled(cents * 100);
        for (int quarters = cents % 7; quarters <= 96; quarters += 7)
            ASSERT_EQ(Format(Wage::ForQuarters(quarters, rate), ".00"), AsReal(rate.Amount(), quarters))
                << cents << " cents, " << quarters << " quarters";
    }
    for (int cents = 0; cents <= 20000; cents += 97)
        for (int quarters = 0; quarters <= 672; ++quarters) {
            const Currency rate = Currency::FromScaled(cents * 100);
            ASSERT_EQ(Format(Wage::ForQuarters(quarters, rate), ".00"), AsReal(rate.Amount(), quarters))
                << cents << " cents, " << quarters << " quarters";
        }
}

TEST(Wage, is_written_from_six_exact_decimals) {
    const Wage wage = Wage::ForQuarters(1, Currency::FromScaled(72501)); // 1.8125250
    EXPECT_EQ(Format(wage, ".000000"), "1.812525");
    EXPECT_EQ(Format(wage, ".0000"), "1.8125");
    EXPECT_EQ(Format(Wage::ForQuarters(-1, Currency::FromScaled(72501)), ".00"), "-1.81");
    EXPECT_EQ(Format(Wage::FromFourths(1), ".00"), ".00");
    EXPECT_EQ(Format(Wage::Whole(Currency::FromAmount(12345.6)), "##,##0.00"), "12,345.60");
}

} // namespace
} // namespace tvx
