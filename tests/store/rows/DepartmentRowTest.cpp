#include "store/rows/DepartmentRow.h"

#include "platform/dao/DaoError.h"
#include "store/rows/PasswordText.h"
#include "store/rows/RowFixture.h"

namespace tvx {
namespace {

DepartmentRow FullDepartment() {
    DepartmentRow row;
    row.number = 1;
    row.name = "Bakery";
    row.editorOrder = 6;
    row.firstWeekday = 216;
    row.weekMethod = 2;
    row.employeeNameSingle = "Baker";
    row.employeeNamePlural = "Bakers";
    row.dayOffNameSingle = "Free day";
    row.dayOffNamePlural = "Free days";
    row.managers[0] = {"ANNA", true, false, true};
    row.managers[1] = {"BOB", false, true, false};
    return row;
}

class DepartmentRowTest : public testing::Test {
  protected:
    test::TestStore store;
    dao::Database& db = store.db();

    void AddFull() {
        EXPECT_EQ(AddDepartmentRow(db, FullDepartment()), 1);
        ChangeDepartmentRow(db, FullDepartment());
        ChangeManagers(db, FullDepartment());
    }
};

TEST_F(DepartmentRowTest, comes_back_as_it_was_written) {
    AddFull();
    EXPECT_EQ(FindDepartmentRow(db, 1), FullDepartment());
    EXPECT_EQ(ReadDepartmentRows(db), std::vector{FullDepartment()});
}

TEST_F(DepartmentRowTest, has_a_default_for_a_null_of_every_field) {
    AddFull();
    const std::vector<test::NullCase<DepartmentRow>> cases{
        {"Department name", [](auto& row) { row.name = ""; }},
        {"Editor order", [](auto& row) { row.editorOrder = 1; }},
        {"First weekday", [](auto& row) { row.firstWeekday.reset(); }},
        {"Week methode pick", [](auto& row) { row.weekMethod = 0; }},
        {"EmployeeNameSingle", [](auto& row) { row.employeeNameSingle = "Employee"; }},
        {"EmployeeNamePlural", [](auto& row) { row.employeeNamePlural = "Employees"; }},
        {"DayOffNameSingle", [](auto& row) { row.dayOffNameSingle = "Vacation day"; }},
        {"DayOffNamePlural", [](auto& row) { row.dayOffNamePlural = "Vacation days"; }},
        {"MGR1", [](auto& row) { row.managers[0].password = ""; }},
        {"MGR2", [](auto& row) { row.managers[1].password = ""; }},
    };
    // Neither the number nor the six yes/no fields can be Null.
    test::ExpectNulls<DepartmentRow>(
        db, "Department", "Dep number", FullDepartment(), [&] { return FindDepartmentRow(db, 1).value(); },
        cases, 7);
}

TEST_F(DepartmentRowTest, keeps_an_empty_word_that_somebody_stored) {
    AddFull();
    test::PutField(db, "Department", "Dep number", 1, "EmployeeNameSingle", std::string());
    EXPECT_EQ(FindDepartmentRow(db, 1)->employeeNameSingle, "");
}

TEST_F(DepartmentRowTest, gets_no_words_and_no_managers_when_it_is_added) {
    AddDepartmentRow(db, FullDepartment());
    EXPECT_EQ(test::RowsOf(db, "Department", {"Department name", "EmployeeNameSingle", "MGR1", "HM1"}),
              std::vector<std::string>{"Bakery|(null)|(null)|0"});
}

TEST_F(DepartmentRowTest, keeps_its_managers_when_its_profile_changes_and_the_other_way_round) {
    AddFull();
    DepartmentRow other;
    other.number = 1;
    other.name = "Kitchen";
    ChangeDepartmentRow(db, other);
    EXPECT_EQ(FindDepartmentRow(db, 1)->managers, FullDepartment().managers);
    ChangeManagers(db, other);
    EXPECT_EQ(FindDepartmentRow(db, 1)->managers, DepartmentRow().managers);
    EXPECT_EQ(FindDepartmentRow(db, 1)->name, "Kitchen");
}

TEST_F(DepartmentRowTest, stores_passwords_in_disguise) {
    AddFull();
    EXPECT_EQ(test::RowsOf(db, "Department", {"MGR1"}), std::vector<std::string>{ScramblePassword("ANNA")});
    EXPECT_NE(ScramblePassword("ANNA"), "ANNA");
}

TEST_F(DepartmentRowTest, comes_in_the_order_of_the_numbers) {
    for (const char* name : {"C", "A", "B"}) {
        DepartmentRow row;
        row.name = name;
        AddDepartmentRow(db, row);
    }
    std::string names;
    for (const DepartmentRow& row : ReadDepartmentRows(db)) names += row.name;
    EXPECT_EQ(names, "CAB");
    EXPECT_TRUE(DeleteDepartmentRow(db, 2));
    EXPECT_FALSE(DeleteDepartmentRow(db, 2));
    EXPECT_FALSE(FindDepartmentRow(db, 2));
    EXPECT_EQ(ReadDepartmentRows(db).size(), 2U);
}

TEST_F(DepartmentRowTest, cannot_be_changed_when_it_is_gone) {
    try {
        ChangeDepartmentRow(db, FullDepartment());
        FAIL();
    } catch (const dao::DaoError& trouble) {
        EXPECT_EQ(trouble.Number(), 3021);
    }
}

TEST_F(DepartmentRowTest, takes_a_number_that_no_int_can_hold_for_the_nearest) {
    AddFull();
    test::RunAsAnotherProgram(db, "UPDATE Department SET [Editor order] = 99999999999");
    EXPECT_EQ(FindDepartmentRow(db, 1)->editorOrder, 2147483647);
    test::RunAsAnotherProgram(db, "UPDATE Department SET [Editor order] = 'many'");
    EXPECT_EQ(FindDepartmentRow(db, 1)->editorOrder, 0);
}

// --- the field of first weekday and cut-off ---------------------------------------------------------------

TEST(DecodeFirstWeekday, takes_apart_the_weekday_and_the_cut_off) {
    struct Case {
        long value;
        int weekday;
        int cutoff; // 20 stands for "as it was"
    };
    constexpr int AsItWas = 20;
    const Case cases[] = {
        {-32768, 1, 0},
        {-1, 1, 0},
        {0, 1, 0},
        {1, 1, AsItWas},
        {2, 2, AsItWas},
        {7, 7, AsItWas},
        {8, 1, AsItWas}, // no such weekday
        {9, 1, AsItWas},
        {10, 1, AsItWas},
        {11, 1, 11}, // weekday 0
        {99, 1, 99},
        {100, 1, 0},
        {101, 1, 1},
        {150, 1, 50}, // beyond what the screen offers,
                      // kept
        {205, 2, 5},
        {305, 3, 5},
        {732, 7, 32},
        {799, 7, 99},
        {800, 1, 0},
        {832, 1, 32},
        {999, 1, 99},
        {32767, 1, 67},
    };
    for (const Case& c : cases) {
        int weekday = 5;
        int cutoff = AsItWas;
        DecodeFirstWeekday(c.value, weekday, cutoff);
        EXPECT_EQ(weekday, c.weekday) << c.value;
        EXPECT_EQ(cutoff, c.cutoff) << c.value;
    }
}

TEST(DecodeFirstWeekday, always_gives_a_weekday) {
    for (long value = -100; value <= 40000; ++value) {
        int weekday = 0;
        int cutoff = 0;
        DecodeFirstWeekday(value, weekday, cutoff);
        ASSERT_GE(weekday, 1) << value;
        ASSERT_LE(weekday, 7) << value;
        ASSERT_GE(cutoff, 0) << value;
        ASSERT_LE(cutoff, 99) << value;
    }
}

TEST(EncodeFirstWeekday, is_decoded_to_what_was_put_in) {
    for (int weekday = 1; weekday <= 7; ++weekday)
        for (int cutoff = 0; cutoff <= 99; ++cutoff) {
            int w = 0;
            int c = -1;
            DecodeFirstWeekday(EncodeFirstWeekday(weekday, cutoff), w, c);
            ASSERT_EQ(w, weekday);
            ASSERT_EQ(c, cutoff);
        }
}

} // namespace
} // namespace tvx
