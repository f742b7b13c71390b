#include "platform/dao/TimeText.h"

#include "support/Random.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

TEST(TimeText, is_stored_with_its_codes_for_characters) {
    EXPECT_EQ(EncodeTimeText(" 0@"), " 0@");
    EXPECT_EQ(EncodeTimeText("\x80"), "\xC2\x80"); // the character 128, and no sign of money
    EXPECT_EQ(EncodeTimeText("\xFF"), "\xC3\xBF");
    EXPECT_EQ(EncodeTimeText(""), "");
}

TEST(TimeText, comes_back_as_it_was) {
    for (int code = 1; code <= 255; ++code) {
        const std::string bytes = std::string("a") + static_cast<char>(code);
        EXPECT_EQ(DecodeTimeText(EncodeTimeText(bytes)), bytes) << code;
    }
}

TEST(TimeText, reads_what_is_no_code_as_a_blank) {
    EXPECT_EQ(DecodeTimeText("a€b"), "a b") << "beyond the last code";
    EXPECT_EQ(DecodeTimeText("a😀b"), "a b");
    EXPECT_EQ(DecodeTimeText("a\xFF"
                             "b"),
              "a b")
        << "a damaged byte";
    EXPECT_EQ(DecodeTimeText("a\xC2"), "a ");
    EXPECT_EQ(DecodeTimeText(std::string("a\0b", 3)), "a b");
}

TEST(TimeText, reads_any_bytes_without_a_byte_0) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 5000; ++i) {
        const std::string stored = random.Bytes(20);
        const std::string bytes = DecodeTimeText(stored);
        ASSERT_LE(bytes.size(), stored.size());
        ASSERT_EQ(bytes.find('\0'), std::string::npos);
        ASSERT_EQ(DecodeTimeText(EncodeTimeText(bytes)), bytes);
    }
}

} // namespace
} // namespace tvx::dao
