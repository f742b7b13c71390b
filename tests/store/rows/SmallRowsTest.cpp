#include "platform/dao/DaoError.h"
#include "store/rows/ApplicationRow.h"
#include "store/rows/DayTypeRow.h"
#include "store/rows/DepartmentDayRow.h"
#include "store/rows/PasswordText.h"
#include "store/rows/RowFixture.h"

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026

// --- the options ------------------------------------------------------------------------------------------

class ApplicationRowTest : public testing::Test {
  protected:
    test::TestStore store;
    dao::Database& db = store.db();

    dao::Recordset Opened() { return db.OpenRecordset("Application"); }
    ApplicationRow Read() { return ReadApplicationRow(db).value(); }
};

TEST_F(ApplicationRowTest, is_missing_from_an_empty_table) {
    Opened().Delete();
    EXPECT_FALSE(ReadApplicationRow(db));
}

TEST_F(ApplicationRowTest, comes_back_as_it_was_written_but_for_password_and_version) {
    Opened().Delete();
    ApplicationRow row{"24", "4", "7", "1", "18", "32", "160", "S", "", {}};
    AddApplicationRow(db, row);
    EXPECT_EQ(Read(), row);
    EXPECT_EQ(test::RowsOf(db, "Application", {"BigBoss", "DB Version"}),
              std::vector<std::string>{"(null)|(null)"});
}

TEST_F(ApplicationRowTest, has_a_default_for_a_null_of_every_field) {
    dao::Recordset set = Opened();
    set.Edit();
    for (std::size_t i = 0; i < set.FieldCount(); ++i) set.Fields(i) = dao::Value(dao::Null{});
    set.Update();
    EXPECT_EQ(Read(), (ApplicationRow{"12", "", "2", "0", "16", "96", "672)", "", "", {}}));
}

TEST_F(ApplicationRowTest, gives_the_password_in_clear_and_the_version_as_a_number) {
    dao::Recordset set = Opened();
    set.Edit();
    set.Fields("BigBoss") = ScramblePassword("BOSS");
    set.Fields("DB Version") = 8;
    set.Update();
    EXPECT_EQ(Read().password, "BOSS");
    EXPECT_EQ(Read().version, 8);
}

TEST(OptionsOf, gives_a_missing_row_its_defaults) {
    EXPECT_EQ(OptionsOf(ApplicationRow()).WeekOvertime, 672) << "the bracket behind it does no harm";
    Options expected;
    expected.OpenShared = false;
    EXPECT_EQ(OptionsOf(ApplicationRow()), expected);
}

TEST(OptionsOf, takes_any_clock_but_12_for_24_and_any_format_but_0_for_hundredths) {
    ApplicationRow row;
    for (const char* text : {"24", "", "13", "12h", "1 2"}) {
        row.clockStyle = text;
        EXPECT_EQ(OptionsOf(row).ClockStyle, ClockStyle::TwentyFourHours) << text;
    }
    for (const char* text : {"1", "", "00", "x"}) {
        row.timeFormat = text;
        EXPECT_EQ(OptionsOf(row).TimeFormat, TimeFormat::Hundredths) << text;
    }
    row.clockStyle = " 12 ";
    row.timeFormat = " 0";
    EXPECT_EQ(OptionsOf(row).ClockStyle, ClockStyle::TwelveHours);
    EXPECT_EQ(OptionsOf(row).TimeFormat, TimeFormat::Minutes);
}

TEST(OptionsOf, reads_the_number_that_leads_a_text) {
    struct Case {
        const char* stored;
        int hour, colour, years, quarters;
    };
    for (const Case& c : {Case{"7x", 7, 7, 7, 7},
                          {"", 0, 0, 0, 0},
                          {"x", 0, 0, 0, 0},
                          {"-1", 4, -1, 0, -1},
                          {"6.5", 6, 6, 6, 6},
                          {"7.5", 8, 8, 8, 7},
                          {" 9 ", 9, 9, 9, 9}}) {
        const Options options =
            OptionsOf({"12", c.stored, c.stored, "0", c.stored, c.stored, c.stored, "S", "", {}});
        EXPECT_EQ(options.StartHour, c.hour) << c.stored;
        EXPECT_EQ(options.BarColor, c.colour) << c.stored;
        EXPECT_EQ(options.UnderAge.years, c.years) << c.stored;
        EXPECT_EQ(options.DayOvertime, c.quarters) << c.stored;
        EXPECT_EQ(options.WeekOvertime, c.quarters) << c.stored;
    }
}

// --- the figures of a day ---------------------------------------------------------------------------------

class DepartmentDayRowTest : public testing::Test {
  protected:
    test::TestStore store;
    dao::Database& db = store.db();
    const DepartmentDayRow full{1, 1, 1234.5, 67, "Fair\r\nÄpfel"};

    DepartmentDayRow Read() { return FindDepartmentDayRow(db, 1, 1).value(); }
};

TEST_F(DepartmentDayRowTest, comes_back_as_it_was_written_and_is_written_over) {
    PutDepartmentDayRow(db, full);
    EXPECT_EQ(Read(), full);
    const DepartmentDayRow other{1, 1, 0, 0, ""};
    PutDepartmentDayRow(db, other);
    EXPECT_EQ(Read(), other);
    EXPECT_EQ(ReadDepartmentDayRows(db, 1, 0, 5), std::vector{other});
}

TEST_F(DepartmentDayRowTest, has_a_default_for_a_null_of_every_field) {
    PutDepartmentDayRow(db, full);
    const std::vector<test::NullCase<DepartmentDayRow>> cases{
        {"Sales", [](auto& row) { row.sales = 0; }},
        {"Transactions", [](auto& row) { row.transactions = 0; }},
        {"Remarks", [](auto& row) { row.remarks = ""; }},
    };
    test::ExpectNulls<DepartmentDayRow>(
        db, "Department day", "Day", full, [&] { return Read(); }, cases, 2);
}

TEST_F(DepartmentDayRowTest, is_read_for_its_department_between_two_days) {
    for (DaySerial day = Sunday; day < Sunday + 5; ++day)
        for (int department = 1; department <= 2; ++department)
            if (day != Sunday + 2) PutDepartmentDayRow(db, {day, department, 1.0 * department, 0, ""});
    const std::vector<DepartmentDayRow> expected{{Sunday + 1, 2, 2, 0, ""}, {Sunday + 3, 2, 2, 0, ""}};
    EXPECT_EQ(ReadDepartmentDayRows(db, 2, Sunday + 1, Sunday + 3), expected);
    EXPECT_FALSE(FindDepartmentDayRow(db, 2, Sunday + 2));
}

TEST_F(DepartmentDayRowTest, goes_with_its_department_and_moves_with_its_week) {
    for (DaySerial day = Sunday; day < Sunday + 3; ++day)
        for (int department = 1; department <= 2; ++department)
            PutDepartmentDayRow(db, {day, department, 5, 0, ""});
    DeleteDepartmentDayRows(db, 1);
    EXPECT_TRUE(ReadDepartmentDayRows(db, 1, Sunday, Sunday + 2).empty());
    MoveDepartmentDayRows(db, Sunday, Sunday + 1, 7);
    EXPECT_EQ(test::RowsOf(db, "Department day", {"Day", "Dep number"}),
              (std::vector<std::string>{"46084|2", "46089|2", "46090|2"}));
}

// --- daytypes ---------------------------------------------------------------------------------------------

class DayTypeRowTest : public testing::Test {
  protected:
    test::TestStore store;
    dao::Database& db = store.db();
};

TEST_F(DayTypeRowTest, comes_back_in_the_order_of_the_symbols) {
    AddDayTypeRow(db, {1, "SI", "Sick"});
    AddDayTypeRow(db, {2, "A", "Elsewhere"});
    AddDayTypeRow(db, {1, "CA", "Cashier"});
    const std::vector<DayTypeRow> expected{{1, "CA", "Cashier"}, {1, "SI", "Sick"}};
    EXPECT_EQ(ReadDayTypeRows(db, 1), expected);
    EXPECT_EQ(FindDayTypeRow(db, 2, "A"), (DayTypeRow{2, "A", "Elsewhere"}));
    EXPECT_FALSE(FindDayTypeRow(db, 2, "SI"));
}

TEST_F(DayTypeRowTest, is_changed_and_deleted_by_department_and_symbol) {
    AddDayTypeRow(db, {1, "SI", "Sick"});
    AddDayTypeRow(db, {2, "SI", "Sitting"});
    EXPECT_TRUE(ChangeDayTypeRow(db, "SI", {1, "IL", "Ill"}));
    EXPECT_FALSE(ChangeDayTypeRow(db, "SI", {1, "X", "X"}));
    EXPECT_EQ(ReadDayTypeRows(db, 1), (std::vector<DayTypeRow>{{1, "IL", "Ill"}}));
    EXPECT_TRUE(DeleteDayTypeRow(db, 1, "IL"));
    EXPECT_FALSE(DeleteDayTypeRow(db, 1, "IL"));
    EXPECT_EQ(ReadDayTypeRows(db, 2), (std::vector<DayTypeRow>{{2, "SI", "Sitting"}}));
    DeleteDayTypeRows(db, 2);
    EXPECT_TRUE(ReadDayTypeRows(db, 2).empty());
}

TEST_F(DayTypeRowTest, has_a_default_for_a_null_of_its_explanation) {
    AddDayTypeRow(db, {1, "SI", "Sick"});
    test::PutField(db, "Day Types", "Dep number", 1, "Explaination", dao::Null{});
    EXPECT_EQ(ReadDayTypeRows(db, 1), (std::vector<DayTypeRow>{{1, "SI", ""}}));
}

TEST(DayTypesQuery, asks_for_one_department_by_symbol) {
    EXPECT_EQ(DayTypesQuery(5).Whole(),
              "SELECT * FROM [Day Types] WHERE [Dep number] = 5 ORDER BY [Symbol] ASC;");
    EXPECT_EQ(DayTypesQuery(5).Marked(),
              "SELECT * FROM [Day Types] WHERE [Dep number] = ? ORDER BY [Symbol] ASC;");
}

} // namespace
} // namespace tvx
