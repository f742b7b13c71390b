#include "platform/dao/Value.h"

#include "support/TestEngine.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

const Value Nothing = Null{};

TEST(Value, is_Null_only_when_there_is_nothing) {
    EXPECT_TRUE(IsNull(Value()));
    EXPECT_TRUE(IsNull(Nothing));
    EXPECT_FALSE(IsNull(std::int64_t{0}));
    EXPECT_FALSE(IsNull(0.0));
    EXPECT_FALSE(IsNull(std::string()));
}

TEST(Value, is_written_as_trimmed_text) {
    EXPECT_EQ(ToText(std::int64_t{-7}), "-7");
    EXPECT_EQ(ToText(7.0), "7");
    EXPECT_EQ(ToText(.5), ".5");
    EXPECT_EQ(ToText(std::string(" a ")), " a ");
    EXPECT_EQ(ToText(Nothing), "");
    EXPECT_EQ(ToText(Nothing, "none"), "none");
    EXPECT_EQ(ToText(std::string(), "none"), "");
}

TEST(Value, rounds_half_to_even_as_a_whole_number) {
    EXPECT_EQ(ToLong(std::int64_t{5}), 5);
    EXPECT_EQ(ToLong(2.5), 2);
    EXPECT_EQ(ToLong(3.5), 4);
    EXPECT_EQ(ToLong(-.5), 0);
    EXPECT_EQ(ToLong(std::string("12 hours")), 12);
    EXPECT_EQ(ToLong(std::string("")), 0);
    EXPECT_EQ(ToLong(Nothing), 0);
    EXPECT_EQ(ToLong(Nothing, -1), -1);
    EXPECT_EQ(ToLong(std::int64_t{9007199254740993}), 9007199254740993) << "more than a real number holds";
}

TEST(Value, is_an_int_only_within_its_range) {
    EXPECT_EQ(ToInt(std::int64_t{2147483647}), 2147483647);
    EXPECT_EQ(ToInt(std::int64_t{-2147483648}), -2147483647 - 1);
    EXPECT_EQ(ToInt(2.5), 2);
    EXPECT_EQ(ToInt(std::string("12 hours")), 12);
    EXPECT_EQ(ToInt(Nothing), 0);
    EXPECT_EQ(ToInt(Nothing, -1), -1);
    const Value outside[] = {std::int64_t{2147483648}, std::int64_t{-2147483649}, 1e300,
                             std::string("9999999999")};
    for (const Value& value : outside)
        EXPECT_EQ(test::DaoErrorOf([&] { ToInt(value); }), 3349) << ToText(value);
}

TEST(Value, gives_a_leading_number_as_a_real) {
    EXPECT_EQ(ToDouble(std::int64_t{5}), 5);
    EXPECT_EQ(ToDouble(7.25), 7.25);
    EXPECT_EQ(ToDouble(std::string("7.25)")), 7.25);
    EXPECT_EQ(ToDouble(std::string("1,5")), 1);
    EXPECT_EQ(ToDouble(std::string("abc"), 3), 0);
    EXPECT_EQ(ToDouble(Nothing, 3), 3);
}

} // namespace
} // namespace tvx::dao
