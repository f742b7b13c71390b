#include "platform/dao/Recordset.h"
#include "platform/dao/ShiftList.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

class SelectTest : public test::DaoTest {
  protected:
    void SetUp() override {
        MakeTables();
        AddTown("ulm");
        AddTown("Bonn", false);
        AddTown("ULM");
        AddTown("aachen");
        Recordset towns = db->OpenRecordset("Town list");
        towns.AddNew(); // number 5, without a name
        towns.Update();
    }
    std::string Numbers(const std::string& rest) const { return All("SELECT * FROM [Town list] " + rest); }
};

TEST_F(SelectTest, orders_without_case_Null_first_and_ties_by_key) {
    EXPECT_EQ(Numbers("ORDER BY [Town name]"), "5 4 2 1 3 ");
    EXPECT_EQ(Numbers("ORDER BY [Town name] ASC;"), "5 4 2 1 3 ");
    EXPECT_EQ(Numbers("ORDER BY [town NAME] DESC"), "1 3 2 4 5 ");
    EXPECT_EQ(Numbers(""), "1 2 3 4 5 ") << "by key where nothing is said";
}

TEST_F(SelectTest, orders_letters_beyond_A_to_Z_where_readers_look_for_them) {
    AddTown("Zwickau");             // 6
    AddTown("Ärmelhausen");         // 7
    AddTown("ÜBERLINGEN");          // 8
    AddTown("A\xCC\x88rmelhausen"); // 9, the same name in other bytes
    EXPECT_EQ(Numbers("ORDER BY [Town name]"), "5 4 7 9 2 8 1 3 6 ");
}

TEST_F(SelectTest, takes_values_for_its_marks_in_order) {
    const std::string byName = "SELECT [Town number], [Town name] FROM [Town list] WHERE [Town name] = ? AND"
                               " [Town number] > ? ORDER BY [Town name]";
    Recordset towns = db->OpenRecordset(byName, {"Ulm", std::int64_t{1}});
    EXPECT_EQ(towns.Fields("Town name").Text(), "ULM");
    towns.Edit();
    towns.Fields("Town name") = "Trier";
    towns.Update();
    EXPECT_EQ(All(db->OpenRecordset(byName, {"trier", 0})), "3 ");
    EXPECT_EQ(All(db->OpenRecordset(byName, {"Ulm' OR '1' = '1", 0})), "") << "a text is never read as SQL";
    EXPECT_EQ(All(db->OpenRecordset(byName, {Null{}, 0})), "") << "nothing equals Null";
}

TEST_F(SelectTest, refuses_more_or_fewer_values_than_it_has_marks) {
    const std::string one = "SELECT * FROM [Town list] WHERE [Town number] = ?";
    EXPECT_EQ(test::DaoErrorOf([&] { db->OpenRecordset(one); }), 3061);
    EXPECT_EQ(test::DaoErrorOf([&] { db->OpenRecordset(one, {1, 2}); }), 3061);
    EXPECT_EQ(test::DaoErrorOf([&] { db->OpenRecordset("Town list", {1}); }), 3061);
    EXPECT_EQ(test::DaoErrorOf([&] { db->Scan(one, {}, [](const ScanRow&) {}); }), 3061);
    EXPECT_EQ(All(db->OpenRecordset(one, {2})), "2 ") << "the statement is of use as before";
}

TEST_F(SelectTest, puts_yes_before_no) {
    EXPECT_EQ(Numbers("ORDER BY Open"), "1 3 4 2 5 ");
    EXPECT_EQ(Numbers("ORDER BY Open DESC, [Town name]"), "5 2 4 1 3 ");
}

TEST_F(SelectTest, filters_by_yes_and_no_in_any_case) {
    EXPECT_EQ(Numbers("WHERE [Open] = True"), "1 3 4 ");
    EXPECT_EQ(Numbers("where OPEN = true and [Town number]>= 3"), "3 4 ");
    EXPECT_EQ(Numbers("WHERE [Open] = FALSE ORDER BY [Town name];"), "5 2 ");
}

TEST_F(SelectTest, includes_both_ends_of_a_range) {
    EXPECT_EQ(Numbers("WHERE [Town number] between 2  And 4 ORDER BY [Town number] ASC;"), "2 3 4 ");
    EXPECT_EQ(Numbers("WHERE [Town number]>= 2 and [Town number]<=3"), "2 3 ");
}

TEST_F(SelectTest, compares_texts_without_case) {
    EXPECT_EQ(Numbers("WHERE [Town name] = 'ULM'"), "1 3 ");
    EXPECT_EQ(Numbers("WHERE [Town name] = \"Ulm\""), "1 3 ");
    EXPECT_EQ(Numbers("WHERE [Town name] > 'B'"), "1 2 3 ") << "Null is neither";
    EXPECT_EQ(Numbers("WHERE [Town name] <> 'ulm'"), "2 4 ");
}

TEST_F(SelectTest, takes_a_quoted_text_for_a_text_even_if_it_names_a_field) {
    AddTown("Town name");
    EXPECT_EQ(Numbers("WHERE [Town name] = \"Town name\""), "6 ");
    EXPECT_EQ(Numbers("WHERE [Town name] = \"Open\""), "");
}

TEST_F(SelectTest, reads_quotes_inside_quotes) {
    AddTown("it's");
    AddTown("say \"a\"");
    EXPECT_EQ(Numbers("WHERE [Town name] = 'it''s'"), "6 ");
    EXPECT_EQ(Numbers("WHERE [Town name] = \"it's\""), "6 ");
    EXPECT_EQ(Numbers("WHERE [Town name] = \"say \"\"a\"\"\""), "7 ");
    EXPECT_EQ(Numbers("WHERE [Town name] = 'true'"), "") << "a word between quotes is a text";
}

TEST_F(SelectTest, gives_the_columns_that_were_asked_for) {
    Recordset names =
        db->OpenRecordset(" select [Town name],open from [Town list]\n where [Town number] = 2;");
    EXPECT_EQ(names.FieldCount(), 2U);
    EXPECT_EQ(names.Fields("Town name").Text(), "Bonn");
    EXPECT_EQ(names.Fields("Open").Long(), 0);
    names.Edit();
    names.Fields("Town name") = "Kiel";
    names.Update();
    EXPECT_EQ(TownNames(), "ulm Kiel ULM aachen - ");
    names.Delete();
    EXPECT_EQ(TownNames(), "ulm ULM aachen - ");
}

TEST_F(SelectTest, stays_as_it_was_read) {
    Recordset towns = db->OpenRecordset("SELECT * FROM [Town list] ORDER BY [Town name]");
    AddTown("Aalen");
    towns.MoveFirst();
    EXPECT_EQ(All(towns), "5 4 2 1 3 ");
}

TEST_F(SelectTest, counts_rows) {
    Recordset count = db->OpenRecordset("SELECT COUNT(*) FROM [Town list] WHERE Open = True");
    EXPECT_EQ(count.Fields(0).Long(), 3);
}

} // namespace
} // namespace tvx::dao
