#include "platform/basic/Collation.h"

#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tvx {
namespace {

TEST(CompareNames, puts_letters_where_readers_look_for_them) {
    std::vector<std::string> names{"Zorn", "Ärmel", "bart", "Arm", "Øst", "Ost", "", "Éva", "Ewa", "Eva"};
    std::sort(names.begin(), names.end(),
              [](const auto& a, const auto& b) { return CompareNames(a, b) < 0; });
    EXPECT_EQ(names, (std::vector<std::string>{"", "Arm", "Ärmel", "bart", "Eva", "Éva", "Ewa", "Ost", "Øst",
                                               "Zorn"}));
}

TEST(CompareNames, tells_accents_apart_and_cases_not) {
    EXPECT_TRUE(IsSameName("ÄRMEL", "ärmel"));
    EXPECT_TRUE(IsSameName("\xC3\x84rmel", "A\xCC\x88rmel")) << "one name in two ways of writing";
    EXPECT_FALSE(IsSameName("Ärmel", "Armel"));
    EXPECT_FALSE(IsSameName("Eva", "Eva "));
}

TEST(CompareNames, orders_plain_names_as_all_others) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    constexpr std::string_view letters = " 09AaBbZz";
    const auto text = [&] {
        std::string made;
        for (auto n = random.Whole(0, 4); n > 0; --n)
            made += letters[static_cast<std::size_t>(random.Whole(0, std::ssize(letters) - 1))];
        return made;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::string a = text(), b = text();
        const int plain = CompareNames(a, b), other = CompareNames("é" + a, "é" + b);
        ASSERT_EQ(plain < 0, other < 0) << '"' << a << "\", \"" << b << '"';
        ASSERT_EQ(plain == 0, other == 0) << '"' << a << "\", \"" << b << '"';
    }
}

TEST(CompareNames, orders_any_bytes) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 2000; ++round) {
        const std::string a = random.Bytes(6), b = random.Bytes(6), c = random.Bytes(6);
        EXPECT_EQ(CompareNames(a, a), 0);
        EXPECT_EQ(CompareNames(a, b) < 0, CompareNames(b, a) > 0);
        EXPECT_FALSE(CompareNames(a, b) < 0 && CompareNames(b, c) < 0 && CompareNames(a, c) > 0);
    }
}

} // namespace
} // namespace tvx
