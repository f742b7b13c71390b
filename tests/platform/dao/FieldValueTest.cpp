#include "platform/basic/Text.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/ShiftList.h"
#include "support/Random.h"
#include "support/RawFile.h"

#include <gtest/gtest.h>

#include <map>

namespace tvx::dao {
namespace {

class FieldValueTest : public test::DaoTest {};

TEST_F(FieldValueTest, tells_Null_from_nothing_and_from_blanks) {
    AddShift(1, 1, "");
    AddShift(1, 2, "  ");
    AddShift(1, 3);
    Recordset shifts = db->OpenRecordset("Shift list");
    EXPECT_FALSE(shifts.Fields("Label").IsNull());
    EXPECT_EQ(shifts.Fields("Label").Text("none"), "");
    shifts.MoveNext();
    EXPECT_EQ(shifts.Fields("Label").Text("none"), "  ");
    EXPECT_TRUE(shifts.Fields("Remarks").IsNull());
    EXPECT_EQ(shifts.Fields("Remarks").Text("none"), "none");
    EXPECT_EQ(shifts.Fields("Remarks").Text(), "");
    EXPECT_EQ(shifts.Fields("Rate").Long(5), 5);
    EXPECT_EQ(shifts.Fields("Rate").Double(2.5), 2.5);
    EXPECT_EQ(shifts.Fields("Rate").Double(), 0);
    EXPECT_EQ(shifts.Fields("Rate").Long(), 0);
    EXPECT_TRUE(IsNull(shifts.Fields("Rate").Value()));
}

TEST_F(FieldValueTest, sets_a_field_back_to_Null) {
    AddShift(1, 1, "x");
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Edit();
    shifts.Fields("Label") = Value(Null{});
    shifts.Update();
    EXPECT_TRUE(shifts.Fields("Label").IsNull());
    EXPECT_EQ(All("Shift list", 2), "- ");
}

TEST_F(FieldValueTest, keeps_yes_and_no_as_minus_one_and_zero) {
    AddTown("Ulm", true);
    AddTown("Bonn", false);
    EXPECT_EQ(All("Town list", 2), "-1 0 ");
    Recordset towns = db->OpenRecordset("Town list");
    EXPECT_EQ(towns.Fields("Open").Long(), -1);
    const Value numbers[] = {std::int64_t{1}, std::int64_t{7}, 0.4, "5"};
    for (const Value& number : numbers) {
        towns.Edit();
        towns.Fields("Open") = false;
        towns.Update();
        towns.Edit();
        towns.Fields("Open") = number;
        towns.Update();
        EXPECT_EQ(towns.Fields("Open").Long(), -1) << ToText(number);
        EXPECT_EQ(All("SELECT [Town name] FROM [Town list] WHERE [Open] = true"), "Ulm ");
    }
}

TEST_F(FieldValueTest, has_no_Null_in_a_yes_no_field) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    EXPECT_FALSE(towns.Fields("Open").IsNull()) << "before it is set";
    EXPECT_EQ(towns.Fields("Open").Long(5), 0);
    towns.Update();
    towns.AddNew();
    towns.Fields("Open") = Value(Null{});
    towns.Update();
    EXPECT_EQ(All("Town list", 2), "0 0 ");
}

TEST_F(FieldValueTest, reads_yes_no_fields_that_others_wrote_their_own_way) {
    db.reset();
    test::RunSql(file, "CREATE TABLE Strange (Id INTEGER PRIMARY KEY, Flag BOOLEAN);"
                       "INSERT INTO Strange (Flag) VALUES (1), (NULL), (0), (-1)");
    db = engine.OpenDatabase(file);
    EXPECT_EQ(All("Strange", 1), "-1 0 0 -1 ");
}

TEST_F(FieldValueTest, rounds_a_real_that_is_stored_in_a_whole_number) {
    AddShift(1, 1);
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Edit();
    shifts.Fields("Worker") = 2.5;
    shifts.Fields("Day") = 3.5;
    shifts.Fields("Rate") = 2.5;
    shifts.Update();
    EXPECT_EQ(shifts.Fields("Worker").Text(), "2");
    EXPECT_EQ(shifts.Fields("Day").Text(), "4");
    EXPECT_EQ(shifts.Fields("Rate").Text(), "2.5");
    EXPECT_EQ(All("Shift list", 1), "2 ");
}

TEST_F(FieldValueTest, turns_texts_into_numbers_and_numbers_into_texts) {
    AddShift(1, 1);
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Edit();
    shifts.Fields("Worker") = "7 workers";
    shifts.Fields("Rate") = "7.25";
    shifts.Fields("Label") = 12;
    shifts.Fields("Remarks") = -.5;
    shifts.Update();
    for (int pass = 0; pass < 2; ++pass) {
        EXPECT_EQ(shifts.Fields("Worker").Long(), 7);
        EXPECT_EQ(shifts.Fields("Rate").Double(), 7.25);
        EXPECT_EQ(shifts.Fields("Label").Text(), "12");
        EXPECT_EQ(shifts.Fields("Label").Long(), 12);
        EXPECT_EQ(shifts.Fields("Remarks").Text(), "-.5");
        shifts.MoveFirst(); // the second pass sees what the file holds
    }
}

TEST_F(FieldValueTest, gives_no_int_that_another_program_made_too_large) {
    AddShift(46086, 7);
    db.reset();
    test::RunSql(file, "UPDATE [Shift list] SET Worker = 4294967303");
    db = engine.OpenDatabase(file);
    Recordset shifts = db->OpenRecordset("Shift list");
    EXPECT_EQ(shifts.Fields("Day").Int(), 46086);
    EXPECT_EQ(shifts.Fields("Rate").Int(5), 5) << "Null";
    EXPECT_EQ(shifts.Fields("Worker").Long(), 4294967303);
    EXPECT_EQ(test::DaoErrorOf([&] { shifts.Fields("Worker").Int(); }), 3349) << "not 7";
    db->Scan("SELECT [Day], Worker, Rate FROM [Shift list]", {}, [](const ScanRow& row) {
        EXPECT_EQ(row.Int(0), 46086);
        EXPECT_EQ(test::DaoErrorOf([&] { row.Int(1); }), 3349);
        EXPECT_EQ(row.Int(2), 0);
    });
}

TEST_F(FieldValueTest, keeps_numbers_as_they_are) {
    AddShift(1, 1);
    const double numbers[] = {0, .25, -.25, 7.1, 1e-9, 123456789.125, 46086.75, 1e300, -32768, 2147483647};
    for (const double number : numbers) {
        Recordset shifts = db->OpenRecordset("Shift list");
        shifts.Edit();
        for (const char* field : {"Rate", "Share", "Made"}) shifts.Fields(field) = number;
        shifts.Update();
        shifts.MoveFirst();
        for (const char* field : {"Rate", "Share", "Made"})
            EXPECT_EQ(shifts.Fields(field).Double(), number) << field;
    }
}

const std::vector<std::string>& OddTexts() {
    static const std::vector<std::string> texts{
        "it's",
        "''",
        "\"quoted\"",
        "[x]",
        "]]",
        "100 %",
        "a_b*?",
        "\\",
        "x;--",
        "?1 :a @b $c",
        "true",
        "NULL",
        "  ",
        " a ",
        "\t\r\n",
        "é€ß",
        "😀😀",
        "日本語",
        std::string("a\0b", 3),
        "\xFF\xC3", // no character at all
    };
    return texts;
}

TEST_F(FieldValueTest, keeps_texts_as_they_are) {
    for (const std::string& text : OddTexts()) {
        AddShift(1, 1);
        Recordset shifts = db->OpenRecordset("Shift list");
        shifts.Edit();
        shifts.Fields("Label") = Left(text, 6);
        shifts.Fields("Remarks") = text;
        shifts.Update();
        shifts.MoveFirst();
        EXPECT_EQ(shifts.Fields("Label").Text(), Left(text, 6));
        EXPECT_EQ(shifts.Fields("Remarks").Text(), text);
        shifts.Delete();
    }
}

TEST_F(FieldValueTest, seeks_texts_as_they_are) {
    for (const std::string& text : OddTexts()) AddTown(text);
    Recordset towns = db->OpenRecordset("Town list");
    towns.Index("By name");
    for (std::size_t i = 0; i < OddTexts().size(); ++i) {
        towns.Seek({OddTexts()[i]});
        ASSERT_FALSE(towns.NoMatch()) << OddTexts()[i];
        EXPECT_EQ(towns.Fields(0).Long(), static_cast<std::int64_t>(i) + 1) << OddTexts()[i];
    }
}

TEST_F(FieldValueTest, keeps_ten_thousand_characters) {
    AddShift(1, 1);
    std::string memo;
    while (memo.size() < 40000) memo += "😀";
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Edit();
    shifts.Fields("Remarks") = memo;
    shifts.Update();
    shifts.MoveFirst();
    EXPECT_EQ(CharacterCount(shifts.Fields("Remarks").Text()), 10000U);
    EXPECT_EQ(shifts.Fields("Remarks").Text(), memo);
}

TEST_F(FieldValueTest, keeps_every_code_of_a_time_text) {
    AddTown("Ulm");
    for (int code = 32; code <= 128; ++code) {
        Recordset towns = db->OpenRecordset("Town list");
        const std::string bytes = std::string(6, ' ') + static_cast<char>(code) + std::string(7, ' ');
        towns.Edit();
        towns.Fields("Hours") = bytes;
        towns.Update();
        towns.MoveFirst();
        ASSERT_EQ(towns.Fields("Hours").Text(), bytes) << code;
    }
}

TEST_F(FieldValueTest, works_on_a_table_whose_key_is_a_time_text) {
    db->CreateTable(
        {"Plans", {{"Hours", FieldType::TimeText, 2}, {"Name", FieldType::Text, 9}}, {"H", {"Hours"}}, {}});
    Recordset plans = db->OpenRecordset("Plans");
    plans.AddNew();
    plans.Fields("Hours") = " \x80";
    plans.Update();
    plans.MoveFirst();
    plans.Edit();
    plans.Fields("Hours") = "\x80 ";
    plans.Update();
    plans.Edit();
    plans.Fields("Name") = "night";
    plans.Update();
    plans.MoveFirst();
    EXPECT_EQ(plans.Fields("Hours").Text() + plans.Fields("Name").Text(), "\x80 night");
}

TEST_F(FieldValueTest, keeps_whatever_was_written) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    std::map<std::pair<std::int64_t, std::int64_t>, std::string> expected;
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    for (int i = 0; i < 400; ++i) {
        const std::int64_t day = random.Whole(1, 30);
        const std::int64_t worker = random.Whole(1, 4);
        const std::string remarks = random.Bytes(30);
        shifts.Seek({day, worker});
        ASSERT_EQ(shifts.NoMatch(), !expected.contains({day, worker}));
        if (!shifts.NoMatch() && random.Chance(40)) {
            shifts.Delete();
            expected.erase({day, worker});
            continue;
        }
        if (shifts.NoMatch())
            shifts.AddNew();
        else
            shifts.Edit();
        shifts.Fields("Day") = Value(day);
        shifts.Fields("Worker") = Value(worker);
        shifts.Fields("Remarks") = remarks;
        shifts.Update();
        expected[{day, worker}] = remarks;
    }
    shifts = db->OpenRecordset("Shift list");
    for (const auto& [key, remarks] : expected) {
        ASSERT_EQ(shifts.Fields("Day").Long(), key.first);
        ASSERT_EQ(shifts.Fields("Worker").Long(), key.second);
        ASSERT_EQ(shifts.Fields("Remarks").Text(), remarks);
        shifts.MoveNext();
    }
    EXPECT_TRUE(shifts.AtEnd());
}

} // namespace
} // namespace tvx::dao
