#include "reports/page/TableFormat.h"

#include "support/Random.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(TableFormat, has_a_column_for_each_part) {
    const auto columns = ParseTableFormat("<~25%|>~15%|>~20%|>~60% &;");
    ASSERT_EQ(columns.size(), 4U);
    EXPECT_EQ(columns[0].percent, 25);
    EXPECT_EQ(columns[3].percent, 60);
}

TEST(TableFormat, aligns_by_its_first_marks) {
    const auto columns = ParseTableFormat("<~6%|>~12%|^~14%|65%;");
    EXPECT_EQ(columns[0].align, CellAlign::Left);
    EXPECT_EQ(columns[1].align, CellAlign::Right);
    EXPECT_EQ(columns[2].align, CellAlign::Centre);
    EXPECT_EQ(columns[3].align, CellAlign::Left) << "without a mark";
}

TEST(TableFormat, takes_fractions_of_a_percent) {
    EXPECT_DOUBLE_EQ(ParseTableFormat("<~15.5%|^~12%;")[0].percent, 15.5);
    EXPECT_DOUBLE_EQ(ParseTableFormat("99.5%;")[0].percent, 99.5);
}

TEST(TableFormat, keeps_lines_only_under_its_mark) {
    EXPECT_TRUE(ParseTableFormat("<~100%;")[0].keepLines);
    EXPECT_FALSE(ParseTableFormat("<100%;")[0].keepLines);
}

TEST(TableFormat, knows_head_cells_by_the_plus) {
    const auto columns = ParseTableFormat("<~15.5%|^~+12%;");
    EXPECT_FALSE(columns[0].head);
    EXPECT_TRUE(columns[1].head);
    EXPECT_TRUE(columns[1].keepLines);
    EXPECT_EQ(columns[1].align, CellAlign::Centre);
}

TEST(TableFormat, reads_the_columns_of_totals_as_those_of_any_row) {
    const auto columns = ParseTableFormat("<~6%|>~12%|^~14%|^~14%|^~14%|^~14%|>~_14%|>~_12%;");
    ASSERT_EQ(columns.size(), 8U);
    EXPECT_EQ(columns[6].percent, 14);
    EXPECT_EQ(columns[6].align, CellAlign::Right);
    EXPECT_TRUE(columns[6].keepLines);
}

TEST(TableFormat, ends_at_the_semicolon_or_without_one) {
    EXPECT_EQ(ParseTableFormat("<10%|<20%;|<30%").size(), 2U);
    EXPECT_EQ(ParseTableFormat("<10%|<20%").size(), 2U);
}

TEST(TableFormat, that_is_empty_has_one_column_without_a_width) {
    const auto columns = ParseTableFormat("");
    ASSERT_EQ(columns.size(), 1U);
    EXPECT_EQ(columns[0].percent, 0);
}

TEST(TableFormat, of_any_bytes_gives_columns) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 2000; ++round) {
        const std::string format =
            random.Chance(50) ? random.Bytes(40) : random.TextOf("<^>~+_&|%;.0123456789eE-", 60);
        for (const TableColumn& column : ParseTableFormat(format)) {
            ASSERT_GE(column.percent, 0) << format;
            ASSERT_LE(column.percent, 100) << format;
        }
    }
}

} // namespace
} // namespace tvx
