#include "platform/basic/Text.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/ShiftList.h"
#include "support/Random.h"

#include <gtest/gtest.h>

#include <set>

namespace tvx::dao {
namespace {

using test::DaoErrorOf;

class PagingTest : public test::DaoTest {};

TEST_F(PagingTest, walks_through_every_record_of_a_long_table) {
    for (const int days : {1, 2, 255, 256, 257, 258, 511, 512, 513, 514, 1000}) {
        std::filesystem::remove(file);
        MakeTables();
        FillDays(days);
        Recordset shifts = db->OpenRecordset("Shift list");
        EXPECT_EQ(shifts.RecordCount(), days);
        for (int day = 1; day <= days; ++day, shifts.MoveNext()) ASSERT_EQ(shifts.Fields(0).Long(), day);
        EXPECT_TRUE(shifts.AtEnd());
        EXPECT_EQ(DaoErrorOf([&] { shifts.MoveNext(); }), 3021);
    }
}

TEST_F(PagingTest, walks_from_the_record_sought) {
    FillDays(1000);
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    shifts.Seek({std::int64_t{300}, std::int64_t{1}});
    for (int day = 300; day <= 1000; ++day, shifts.MoveNext()) ASSERT_EQ(shifts.Fields(0).Long(), day);
    EXPECT_TRUE(shifts.AtEnd());
}

TEST_F(PagingTest, deletes_every_record_of_a_long_table) {
    FillDays(600);
    int deleted = 0;
    for (Recordset shifts = db->OpenRecordset("Shift list"); !shifts.AtEnd(); shifts.MoveNext(), ++deleted)
        shifts.Delete();
    EXPECT_EQ(deleted, 600);
    EXPECT_EQ(db->OpenRecordset("Shift list").RecordCount(), 0);
}

TEST_F(PagingTest, changes_every_record_of_a_long_table) {
    FillDays(600);
    for (Recordset shifts = db->OpenRecordset("Shift list"); !shifts.AtEnd(); shifts.MoveNext()) {
        shifts.Edit();
        shifts.Fields("Label") = "seen";
        shifts.Update();
    }
    Recordset seen = db->OpenRecordset("SELECT COUNT(*) FROM [Shift list] WHERE Label = 'seen'");
    EXPECT_EQ(seen.Fields(0).Long(), 600);
}

TEST_F(PagingTest, reaches_every_record_while_their_keys_change) {
    constexpr int Farther = 10000;
    FillDays(600);
    for (Recordset shifts = db->OpenRecordset("Shift list"); !shifts.AtEnd(); shifts.MoveNext()) {
        const int day = shifts.Fields(0).Int();
        if (day > Farther) continue; // moved ones are met again at the end
        shifts.Edit();
        shifts.Fields(0) = day + Farther;
        shifts.Update();
    }
    Recordset shifts = db->OpenRecordset("Shift list");
    for (int day = 1; day <= 600; ++day, shifts.MoveNext()) ASSERT_EQ(shifts.Fields(0).Long(), day + Farther);
    EXPECT_TRUE(shifts.AtEnd());
}

TEST_F(PagingTest, walks_by_a_text_key_without_case) {
    db->CreateTable({"Words", {{"Word", FieldType::Text, 20}}, {"W", {"Word"}}, {}});
    std::set<std::string> capitals;
    Transaction all(*db); // for speed
    Recordset words = db->OpenRecordset("Words");
    for (int i = 0; i < 600; ++i) {
        const std::string word = (i % 2 == 0 ? "Word " : "wORD ") + std::to_string(i * 7919 % 600);
        words.AddNew();
        words.Fields(0) = word;
        words.Update();
        capitals.insert(UpperCase(word));
    }
    words.MoveFirst();
    for (const std::string& word : capitals) {
        ASSERT_EQ(UpperCase(words.Fields(0).Text()), word);
        words.MoveNext();
    }
    EXPECT_TRUE(words.AtEnd());
}

TEST_F(PagingTest, walks_through_a_table_without_a_key) {
    db->CreateTable({"Log", {{"Line", FieldType::Text, 20}}, {}, {}});
    Transaction all(*db); // for speed
    Recordset log = db->OpenRecordset("Log");
    for (int i = 1; i <= 600; ++i) {
        log.AddNew();
        log.Fields(0) = i;
        log.Update();
    }
    log.MoveFirst();
    for (int i = 1; i <= 600; ++i, log.MoveNext()) {
        ASSERT_EQ(log.Fields(0).Long(), i);
        if (i % 2 == 0) log.Delete();
    }
    EXPECT_EQ(log.RecordCount(), 300);
}

TEST_F(PagingTest, misses_and_repeats_nothing_while_others_add_and_delete) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    FillDays(2000);
    std::set<std::int64_t> added;
    std::set<std::int64_t> deleted;
    std::set<std::int64_t> seen;
    Recordset others = db->OpenRecordset("Shift list");
    others.Index("Day and worker");
    std::int64_t before = 0;
    for (Recordset shifts = db->OpenRecordset("Shift list"); !shifts.AtEnd(); shifts.MoveNext()) {
        const std::int64_t day = shifts.Fields("Day").Long();
        ASSERT_GT(day, before) << "always on";
        before = day;
        seen.insert(day);
        if (random.Chance(20)) shifts.Delete();
        const std::int64_t other = random.Whole(1, 2500);
        others.Seek({other, std::int64_t{1}});
        if (others.NoMatch()) {
            others.AddNew();
            others.Fields("Day") = Value(other);
            others.Fields("Worker") = 1;
            others.Update();
            added.insert(other);
        } else if (random.Chance(10)) {
            others.Delete();
            deleted.insert(other);
        }
    }
    for (std::int64_t day = 1; day <= 2000; ++day)
        ASSERT_TRUE(seen.contains(day) || deleted.contains(day)) << day;
    for (const std::int64_t day : seen) ASSERT_TRUE(day <= 2000 || added.contains(day)) << day;
}

} // namespace
} // namespace tvx::dao
