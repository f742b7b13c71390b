#include "store/rows/PasswordText.h"

#include "support/Random.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(ScramblePassword, raises_each_character_by_its_place) {
    EXPECT_EQ(ScramblePassword("ABC"), "BDF");
    EXPECT_EQ(ScramblePassword("  ABC  "), "BDF");
    EXPECT_EQ(ScramblePassword(""), "");
    EXPECT_EQ(ScramblePassword("999999999999"), ":;<=>?@ABCDE");
    EXPECT_EQ(ScramblePassword("ZZZZZZZZZZZZ"), "[\\]^_`abcdef");
}

TEST(UnscramblePassword, gives_back_every_password_that_can_be_typed) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    EXPECT_EQ(UnscramblePassword("BDF"), "ABC");
    for (int i = 0; i < 5000; ++i) {
        const std::string password = random.TextOf("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", 12);
        const std::string stored = ScramblePassword(password);
        ASSERT_EQ(UnscramblePassword(stored), password);
        ASSERT_LE(stored.size(), 12U); // fits its field
    }
}

TEST(UnscramblePassword, answers_anything_for_what_no_scrambling_wrote) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 5000; ++i) UnscramblePassword(random.Bytes(20));
    EXPECT_EQ(UnscramblePassword("\x01"), std::string(1, '\0'));
}

} // namespace
} // namespace tvx
