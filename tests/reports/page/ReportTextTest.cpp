#include "reports/page/ReportText.h"

#include "platform/basic/Text.h"
#include "support/FixedMeasures.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr Twips Letter = test::FixedMeasures::Letter;

class ReportTextTest : public testing::Test {
  protected:
    test::FixedMeasures measures;
    VpDocument vp{measures, Paper{9000, 6000, 0}};

    std::vector<std::string> Lines(std::string_view memo, int letters) {
        return MemoLines(vp, memo, letters * Letter);
    }
};

using Strings = std::vector<std::string>;

TEST_F(ReportTextTest, shortens_a_text_until_it_is_narrower_than_its_room) {
    EXPECT_EQ(Fitted(vp, "Anna", 5 * Letter), "Anna");
    EXPECT_EQ(Fitted(vp, "Anna", 4 * Letter), "Ann") << "narrower, not as wide";
    EXPECT_EQ(Fitted(vp, "Žofie", 3 * Letter), "Žo") << "whole letters";
    EXPECT_EQ(Fitted(vp, "Anna", 0), "");
    EXPECT_EQ(Fitted(vp, "Anna", -5), "");
}

TEST_F(ReportTextTest, shortens_as_if_letters_were_taken_away_one_by_one) {
    for (const std::string text : {"", "A", "Anna", "Žofie Čapková", "Featherstonehaugh"})
        for (Twips room = -1; room < 20 * Letter; room += Letter / 2) {
            std::string wanted = text;
            while (!wanted.empty() && vp.TextWidth(wanted) >= room)
                wanted = Left(wanted, CharacterCount(wanted) - 1);
            EXPECT_EQ(Fitted(vp, text, room), wanted);
        }
}

TEST_F(ReportTextTest, marks_a_cut_with_an_ellipsis) {
    EXPECT_EQ(WithEllipsis(vp, "Anna", 5 * Letter), "Anna");
    EXPECT_EQ(WithEllipsis(vp, "Anna", 4 * Letter), "An…") << "narrower, not as wide";
    EXPECT_EQ(WithEllipsis(vp, "Anna Adams", 7 * Letter), "Anna…") << "no blank before it";
    EXPECT_EQ(WithEllipsis(vp, "Anna", 2 * Letter), "…");
    EXPECT_EQ(WithEllipsis(vp, "Anna", Letter), "");
    EXPECT_EQ(WithEllipsis(vp, "", 0), "");
}

TEST_F(ReportTextTest, ends_a_line_of_a_memo_at_a_caret_and_at_a_line_end) {
    EXPECT_EQ(Lines("one^two\r\nthree\nfour", 40), (Strings{"  one", "  two", "  three", "  four"}));
}

TEST_F(ReportTextTest, keeps_the_empty_lines_of_a_memo) {
    EXPECT_EQ(Lines("one^^two", 40), (Strings{"  one", "  ", "  two"}));
    EXPECT_EQ(Lines("", 40), (Strings{"  "}));
}

TEST_F(ReportTextTest, cuts_a_long_memo_at_its_last_blank) {
    EXPECT_EQ(Lines("the truck comes at six", 12), (Strings{"  the truck", "  comes at", "  six"}));
}

TEST_F(ReportTextTest, cuts_a_word_that_is_too_long_by_itself) {
    EXPECT_EQ(Lines("abcdefghij", 6), (Strings{"  abcd", "  efgh", "  ij"}));
}

TEST_F(ReportTextTest, ends_where_not_even_a_letter_fits) {
    EXPECT_EQ(Lines("abc", 1), (Strings{"  a", "  b", "  c"}));
}

TEST_F(ReportTextTest, keeps_letters_of_several_bytes_whole) {
    EXPECT_EQ(Lines("ŽŽŽŽŽŽ", 6), (Strings{"  ŽŽŽŽ", "  ŽŽ"}));
}

} // namespace
} // namespace tvx
