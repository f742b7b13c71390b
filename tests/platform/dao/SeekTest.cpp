#include "platform/dao/Recordset.h"
#include "platform/dao/ShiftList.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

using test::DaoErrorOf;

class SeekTest : public test::DaoTest {
  protected:
    void SetUp() override {
        MakeTables();
        AddShift(46086, 7, "late");
        AddShift(46086, 3, "early");
        AddShift(46087, 7, "early");
        AddShift(46087, 3, "Late");
    }
    /// Day and worker of the record found; "none" on a miss.
    std::string Found(const char* index, std::initializer_list<Value> keys) const {
        Recordset shifts = db->OpenRecordset("Shift list");
        shifts.Index(index);
        shifts.Seek(keys);
        return shifts.NoMatch() ? "none" : shifts.Fields(0).Text() + " " + shifts.Fields(1).Text();
    }
};

constexpr std::int64_t Thursday = 46086;
constexpr std::int64_t Friday = 46087;

TEST_F(SeekTest, finds_the_record_with_the_keys) {
    EXPECT_EQ(Found("Day and worker", {Thursday, std::int64_t{7}}), "46086 7");
    EXPECT_EQ(Found("DAY AND WORKER", {Friday, std::int64_t{3}}), "46087 3");
    EXPECT_EQ(Found("Day and worker", {Friday, std::int64_t{4}}), "none");
    EXPECT_EQ(Found("By worker", {std::int64_t{7}, "EARLY"}), "46087 7") << "texts have no case";
}

TEST_F(SeekTest, takes_a_number_given_as_text_or_as_a_real) {
    EXPECT_EQ(Found("Day and worker", {"46086", "7"}), "46086 7");
    EXPECT_EQ(Found("Day and worker", {46086.0, 7.0}), "46086 7");
}

TEST_F(SeekTest, compares_the_leading_fields_when_keys_are_missing) {
    EXPECT_EQ(Found("Day and worker", {Friday}), "46087 3");
    EXPECT_EQ(Found("Day and worker", {std::int64_t{7}}), "none") << "a worker is no day";
}

TEST_F(SeekTest, takes_the_first_of_several_in_the_order_of_the_index) {
    EXPECT_EQ(Found("By worker", {std::int64_t{7}}), "46087 7") << "early comes before late";
    EXPECT_EQ(Found("By worker", {std::int64_t{3}}), "46086 3");
    AddShift(46080, 7, "late");
    EXPECT_EQ(Found("By worker", {std::int64_t{7}, "late"}), "46080 7")
        << "the lower key of two that are equal";
}

TEST_F(SeekTest, never_finds_Null) {
    EXPECT_EQ(Found("Day and worker", {Null{}, std::int64_t{7}}), "none");
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Edit();
    shifts.Fields("Label") = Value(Null{});
    shifts.Update();
    EXPECT_EQ(Found("By worker", {std::int64_t{3}, Null{}}), "none");
}

TEST_F(SeekTest, leaves_no_current_record_on_a_miss) {
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    shifts.Seek({Thursday, std::int64_t{99}});
    EXPECT_TRUE(shifts.NoMatch());
    EXPECT_EQ(DaoErrorOf([&] { shifts.Fields(0).Text(); }), 3021);
    EXPECT_EQ(DaoErrorOf([&] { shifts.Edit(); }), 3021);
    EXPECT_EQ(DaoErrorOf([&] { shifts.Delete(); }), 3021);
    EXPECT_EQ(DaoErrorOf([&] { shifts.MoveNext(); }), 3021);
    EXPECT_FALSE(shifts.BOF());
    EXPECT_FALSE(shifts.AtEnd());
    shifts.MoveFirst();
    EXPECT_EQ(shifts.Fields(1).Text(), "3");
    EXPECT_TRUE(shifts.NoMatch()) << "a move does not change it";
    shifts.Seek({Thursday, std::int64_t{7}});
    EXPECT_FALSE(shifts.NoMatch());
    shifts.MoveLast();
    EXPECT_FALSE(shifts.NoMatch());
}

TEST_F(SeekTest, goes_on_from_the_record_found) {
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    shifts.Seek({Thursday, std::int64_t{7}});
    shifts.MoveNext();
    EXPECT_EQ(shifts.Fields(0).Text() + " " + shifts.Fields(1).Text(), "46087 3");
    shifts.MoveNext();
    shifts.MoveNext();
    EXPECT_TRUE(shifts.AtEnd());
}

TEST_F(SeekTest, sees_what_was_written_after_the_table_was_opened) {
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    AddShift(46090, 1, "new");
    shifts.Seek({std::int64_t{46090}, std::int64_t{1}});
    EXPECT_FALSE(shifts.NoMatch());
    EXPECT_EQ(shifts.Fields("Label").Text(), "new");
}

TEST_F(SeekTest, needs_an_index_and_no_more_keys_than_it_has_fields) {
    Recordset shifts = db->OpenRecordset("Shift list");
    EXPECT_EQ(DaoErrorOf([&] { shifts.Seek({Thursday}); }), 3015);
    EXPECT_EQ(DaoErrorOf([&] { shifts.Index("By colour"); }), 3015);
    shifts.Index("Day and worker");
    EXPECT_EQ(DaoErrorOf([&] { shifts.Seek({}); }), 3075);
    EXPECT_EQ(DaoErrorOf([&] { shifts.Seek({Thursday, Thursday, Thursday}); }), 3075);
    Recordset select = db->OpenRecordset("SELECT * FROM [Shift list]");
    EXPECT_EQ(DaoErrorOf([&] { select.Index("Day and worker"); }), 3015);
    EXPECT_EQ(DaoErrorOf([&] { select.Seek({Thursday}); }), 3015);
}

TEST_F(SeekTest, finds_the_record_through_a_changed_key) {
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    shifts.Seek({Thursday, std::int64_t{7}});
    shifts.Edit();
    shifts.Fields("Worker") = 8;
    shifts.Update();
    EXPECT_EQ(shifts.Fields("Worker").Long(), 8);
    shifts.Edit();
    shifts.Fields("Label") = "again";
    shifts.Update();
    EXPECT_EQ(Found("Day and worker", {Thursday, std::int64_t{7}}), "none");
    EXPECT_EQ(Found("By worker", {std::int64_t{8}, "again"}), "46086 8");
}

} // namespace
} // namespace tvx::dao
