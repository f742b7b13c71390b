#include "platform/basic/Text.h"

#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tvx {
namespace {

struct Case {
    const char* text;
    const char* result;
};

TEST(Trim, removes_blanks_only) {
    constexpr Case cases[] = {{"", ""},
                              {"   ", ""},
                              {"a", "a"},
                              {"  a b  ", "a b"},
                              {"\ta\t", "\ta\t"},
                              {" \na\r\n ", "\na\r\n"},
                              {"\xC2\xA0", "\xC2\xA0"}};
    for (const Case& c : cases) EXPECT_EQ(Trim(c.text), c.result);
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a "), "  a");
    EXPECT_EQ(TrimLeft("  "), "");
    EXPECT_EQ(TrimRight("  "), "");
}

TEST(UpperCase, leaves_everything_but_letters_alone) {
    EXPECT_EQ(UpperCase("abc xyz"), "ABC XYZ");
    EXPECT_EQ(UpperCase("ABC"), "ABC");
    EXPECT_EQ(UpperCase("[\\]^_`{|}~0123456789"), "[\\]^_`{|}~0123456789");
    EXPECT_EQ(UpperCase(""), "");
}

TEST(UpperCase, knows_the_letters_of_the_alphabets) {
    constexpr Case cases[] = {
        {"äöüß", "ÄÖÜß"}, // the sharp s has no capital of its own
        {"éèêëçñøåæþý", "ÉÈÊËÇÑØÅÆÞÝ"},
        {"÷", "÷"}, // stands among the letters and is none
        {"ÿ", "Ÿ"},
        {"ąćęłńśźż", "ĄĆĘŁŃŚŹŻ"},
        {"čďěňřšťůž", "ČĎĚŇŘŠŤŮŽ"},
        {"őűĺľŀ", "ŐŰĹĽĿ"},
        {"ığş", "IĞŞ"}, // the i without a dot shares its capital with the other
        {"âîșț", "ÂÎȘȚ"},
        {"αβγδςσω", "ΑΒΓΔΣΣΩ"},
        {"άέήίόύώϊϋ", "ΆΈΉΊΌΎΏΪΫ"},
        {"абвгдеёжэюя", "АБВГДЕЁЖЭЮЯ"},
        {"єіїґўђћџ", "ЄІЇҐЎЂЋЏ"},
        {"đươngếữ", "ĐƯƠNGẾỮ"},
        {"日本語 😀", "日本語 😀"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(UpperCase(c.text), c.result);
        EXPECT_EQ(UpperCase(c.result), c.result) << "a capital stays";
    }
}

TEST(UpperCase, keeps_damaged_bytes) {
    EXPECT_EQ(UpperCase("a\xFF"
                        "b\xC3"),
              "A\xFF"
              "B\xC3");
    EXPECT_EQ(UpperCase("\xE2\x82"
                        "a"),
              "\xE2\x82"
              "A");
}

TEST(CharacterCount, counts_what_people_count) {
    EXPECT_EQ(CharacterCount(""), 0U);
    EXPECT_EQ(CharacterCount("abc"), 3U);
    EXPECT_EQ(CharacterCount("é€😀"), 3U);
    EXPECT_EQ(CharacterCount("\x80\xFF"), 2U); // a byte that begins no character
    EXPECT_EQ(CharacterCount("\xE2\x82"), 2U); // a character cut off
}

TEST(Left, gives_what_there_is) {
    EXPECT_EQ(Left("abc", 2), "ab");
    EXPECT_EQ(Left("abc", 0), "");
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Left("", 1), "");
    EXPECT_EQ(Left("é€😀x", 3), "é€😀");
}

TEST(FixedWidth, pads_with_blanks_and_cuts) {
    EXPECT_EQ(FixedWidth("ab", 4), "ab  ");
    EXPECT_EQ(FixedWidth("abcdef", 4), "abcd");
    EXPECT_EQ(FixedWidth("", 2), "  ");
    EXPECT_EQ(FixedWidth("é€", 3), "é€ ");
    EXPECT_EQ(FixedWidth("ab", 0), "");
    EXPECT_EQ(FixedWidth("ab", 4), FixedWidth("ab ", 4)); // texts compare with their padding
}

TEST(Utf8, is_decoded_into_code_points) {
    EXPECT_EQ(DecodeUtf8("aé€😀"), U"aé€😀");
    EXPECT_EQ(DecodeUtf8(""), U"");
}

TEST(Utf8, decodes_each_damaged_byte_on_its_own) {
    struct Damaged {
        const char* bytes;
        std::u32string characters;
    };
    const Damaged cases[] = {
        {"\x80", U"\xFFFD"},
        {"\xC0\x80", U"\xFFFD\xFFFD"}, // a zero in two bytes
        {"\xE0\x80\x80", U"\xFFFD\xFFFD\xFFFD"},
        {"\xF0\x80\x80\x80", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xE0\x9F\xBF", U"\xFFFD\xFFFD\xFFFD"}, // the last that two bytes would hold
        {"\xF0\x8F\xBF\xBF", U"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xED\xA0\x80", U"\xFFFD\xFFFD\xFFFD"},           // half of a pair
        {"\xF4\x90\x80\x80", U"\xFFFD\xFFFD\xFFFD\xFFFD"}, // beyond the last character
        {"\xE2\x82", U"\xFFFD\xFFFD"},
        {"\xC3(", U"\xFFFD("},
    };
    for (const Damaged& c : cases) EXPECT_EQ(DecodeUtf8(c.bytes), c.characters);
}

TEST(Utf8, comes_back_from_every_code_point) {
    for (char32_t c = 0; c < 0x110000; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        std::string text;
        AppendUtf8(text, c);
        ASSERT_EQ(DecodeUtf8(text), std::u32string(1, c));
        ASSERT_EQ(CharacterCount(text), 1U);
    }
}

TEST(Utf8, writes_what_is_no_character_as_the_replacement) {
    for (const char32_t c : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}}) {
        std::string text = "a";
        AppendUtf8(text, c);
        EXPECT_EQ(text, "a\xEF\xBF\xBD");
    }
}

TEST(Utf8, parts_of_any_bytes_make_up_the_whole) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 20000; ++i) {
        const std::string bytes =
            random.Chance(50) ? random.Bytes(24) : random.TextOf("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 24);
        const std::size_t count = CharacterCount(bytes);
        ASSERT_EQ(DecodeUtf8(bytes).size(), count);
        ASSERT_EQ(Left(bytes, count), bytes);
        ASSERT_EQ(CharacterCount(UpperCase(bytes)), count);
        ASSERT_TRUE(bytes.starts_with(Left(bytes, 5)));
    }
}

TEST(EqualsNoCase, ignores_the_case_of_A_to_Z) {
    EXPECT_TRUE(EqualsNoCase("TVX.MDB", "Tvx.mdb"));
    EXPECT_TRUE(EqualsNoCase("", ""));
    EXPECT_FALSE(EqualsNoCase("a", "ab"));
    EXPECT_FALSE(EqualsNoCase("[", "{")); // 32 apart like a letter and its capital
    EXPECT_FALSE(EqualsNoCase("@", "`"));
    EXPECT_FALSE(EqualsNoCase("é", "É"));
}

TEST(PlainComparison, goes_by_character_code) {
    const std::vector<std::string> ascending{"", "  ", "A", "AB", "B", "Z", "a", "\x7F", "é", "€", "😀"};
    EXPECT_TRUE(std::is_sorted(ascending.begin(), ascending.end()));
}

TEST(Isolated, keeps_the_direction_of_a_text_to_itself) {
    EXPECT_EQ(Isolated("Bakery"), "Bakery") << "where nothing turns, nothing is added";
    EXPECT_EQ(Isolated("Łódź 2"), "Łódź 2");
    EXPECT_EQ(Isolated(""), "");
    EXPECT_EQ(Isolated("מאפייה"), "\u2068מאפייה\u2069");
    EXPECT_EQ(Isolated("North مخبز"), "\u2068North مخبز\u2069");
    EXPECT_EQ(Isolated("a\u202Eb"), "\u2068a\u202Eb\u2069") << "a mark that turns what follows";
}

TEST(Split, gives_at_least_one_part) {
    using Parts = std::vector<std::string>;
    EXPECT_EQ(Split("a,b,c", ','), (Parts{"a", "b", "c"}));
    EXPECT_EQ(Split("", ','), (Parts{""}));
    EXPECT_EQ(Split(",", ','), (Parts{"", ""}));
    EXPECT_EQ(Split("a,,b,", ','), (Parts{"a", "", "b", ""}));
    EXPECT_EQ(Split("a;b", ','), (Parts{"a;b"}));
}

TEST(NormalizedLineEnds, turns_pairs_into_line_feeds) {
    EXPECT_EQ(NormalizedLineEnds("a\r\nb\nc\r"), "a\nb\nc\r");
    EXPECT_EQ(NormalizedLineEnds("\r\r\n"), "\r\n"); // a lone carriage return stays
    EXPECT_EQ(NormalizedLineEnds(""), "");
}

} // namespace
} // namespace tvx
