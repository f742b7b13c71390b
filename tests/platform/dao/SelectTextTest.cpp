#include "platform/dao/SelectText.h"

#include "support/Random.h"
#include "support/TestEngine.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

using test::DaoErrorOf;

TEST(IsSelect, tells_a_select_from_a_table) {
    EXPECT_TRUE(IsSelect("SELECT * FROM Employee"));
    EXPECT_TRUE(IsSelect("  select * from Employee"));
    EXPECT_TRUE(IsSelect("Select\n*\nFrom Employee"));
    EXPECT_FALSE(IsSelect("Employee"));
    EXPECT_FALSE(IsSelect("Selected employees"));
    EXPECT_FALSE(IsSelect("SELECT"));
    EXPECT_FALSE(IsSelect(""));
    EXPECT_FALSE(IsSelect("  "));
}

TEST(ParseSelect, takes_a_select_apart) {
    const SelectText select = ParseSelect("SELECT [Day],[Off] FROM [Shift list]  WHERE [Off] = true and "
                                          "Worker = 7 and [Day] between 1  And 5 ORDER BY [Day] ASC;");
    EXPECT_EQ(select.columns, "[Day],[Off]");
    EXPECT_EQ(select.table, "Shift list");
    EXPECT_EQ(select.rest,
              "WHERE [Off] = -1 and Worker = 7 and [Day] between 1 And 5 ORDER BY [Day] _names_ ASC");
    EXPECT_TRUE(select.ordered);
}

TEST(ParseSelect, needs_no_condition_and_no_order) {
    const SelectText select = ParseSelect("select * from Employee");
    EXPECT_EQ(select.columns, "*");
    EXPECT_EQ(select.table, "Employee");
    EXPECT_EQ(select.rest, "");
    EXPECT_FALSE(select.ordered);
}

TEST(ParseSelect, reads_yes_and_no_as_numbers_where_they_are_words) {
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = TRUE or b = False").rest, "WHERE a = -1 or b = 0");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE [true] = 'False'").rest, "WHERE [true] = 'False'");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE truer = 1").rest, "WHERE truer = 1");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a=true").rest, "WHERE a=-1");
}

TEST(ParseSelect, turns_double_quotes_into_single_ones) {
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = \"x\"").rest, "WHERE a = 'x'");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = \"it's\"").rest, "WHERE a = 'it''s'");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = \"\"\"x\"\"\"").rest, "WHERE a = '\"x\"'");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = \"\"").rest, "WHERE a = ''");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = 'say \"x\"'").rest, "WHERE a = 'say \"x\"'");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = 'it''s'").rest, "WHERE a = 'it''s'");
}

TEST(ParseSelect, keeps_an_end_mark_inside_a_text) {
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE a = ';';").rest, "WHERE a = ';'");
    EXPECT_FALSE(ParseSelect("SELECT * FROM t WHERE a = 'order by'").ordered);
    EXPECT_FALSE(ParseSelect("SELECT * FROM t WHERE [order] = 1").ordered);
}

TEST(ParseSelect, refuses_what_it_does_not_understand) {
    for (const char* text : {"SELECT", "SELECT *", "SELECT * FROM", "SELECT FROM t", "SELECT * FROM [t",
                             "SELECT * FROM t WHERE a = 'x", "SELECT * FROM t WHERE a = \"x", ""})
        EXPECT_EQ(DaoErrorOf([&] { ParseSelect(text); }), 3075) << text;
}

TEST(Runnable, reads_the_keys_first_and_breaks_ties_by_them) {
    EXPECT_EQ(ParseSelect("SELECT * FROM t ORDER BY a DESC;").Runnable({"Day", "Worker"}),
              "SELECT [Day], [Worker], * FROM [t] ORDER BY a _names_ DESC, [Day], [Worker]");
    EXPECT_EQ(ParseSelect("SELECT a FROM t WHERE b = 1").Runnable({"Day", "Worker"}),
              "SELECT [Day], [Worker], a FROM [t] WHERE b = 1 ORDER BY [Day], [Worker]");
    EXPECT_EQ(ParseSelect("SELECT a FROM t").Runnable({"_rowid_"}),
              "SELECT _rowid_, a FROM [t]  ORDER BY _rowid_");
}

TEST(ParseSelect, puts_every_field_of_an_order_into_the_order_of_names) {
    EXPECT_EQ(ParseSelect("SELECT * FROM t ORDER BY a").rest, "ORDER BY a _names_");
    EXPECT_EQ(ParseSelect("SELECT * FROM t ORDER BY [a b], 2 desc, c ASC;").rest,
              "ORDER BY [a b] _names_, 2 _names_ desc, c _names_ ASC");
    EXPECT_EQ(ParseSelect("SELECT * FROM t WHERE [by] = 'asc'").rest, "WHERE [by] = 'asc'");
}

TEST(ParseSelect, refuses_or_reads_any_bytes) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 5000; ++i) {
        const std::string tail =
            random.Chance(50) ? random.Bytes(40) : random.TextOf("[]'\"; from order true,a=\\", 40);
        const int number = DaoErrorOf([&] { ParseSelect("SELECT * FROM t " + tail).Runnable({"Day"}); });
        ASSERT_TRUE(number == 0 || number == 3075) << tail;
    }
}

} // namespace
} // namespace tvx::dao
