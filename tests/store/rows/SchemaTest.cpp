#include "store/rows/Schema.h"

#include "platform/dao/DaoError.h"
#include "platform/dao/Recordset.h"
#include "shell/common/TVXMOD1.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using Names = std::vector<std::string>;

Names FieldNames(const dao::TableDef& table) {
    Names names;
    for (const dao::FieldDef& field : table.fields) names.push_back(field.name);
    return names;
}

// --- the tables -------------------------------------------------------------------------------------------

TEST(SystemTables, are_six_with_their_fields_in_true_order) {
    const std::vector<std::pair<std::string, Names>> expected = {
        {"Application",
         {"12 or 24", "StartHour", "BarColor", "TimeFormat", "UnderAge", "DayOvertime", "WeekOvertime",
          "To Try", "BigBoss", "DB Version"}},
        {"Department",
         {"Dep number", "Department name", "Editor order", "First weekday", "Week methode pick",
          "EmployeeNameSingle", "EmployeeNamePlural", "DayOffNameSingle", "DayOffNamePlural", "MGR1", "HM1",
          "OKSCH1", "OKPW1", "MGR2", "HM2", "OKSCH2", "OKPW2"}},
        {"Employee",
         {"Last name",
          "First name",
          "ID",
          "Assignment",
          "Pay",
          "Wage or Sal",
          "Active",
          "Employee",
          "Street",
          "City",
          "State",
          "Zip",
          "Hire Date",
          "Birth date",
          "Phone",
          "Emergency phone",
          "Page/Cell phone",
          "Soc Sec number",
          "Comments",
          "Dep number",
          "Avail start",
          "Avail stop",
          "Reserved 22",
          "Reserved 23",
          "Reserved 24",
          "Labor type",
          "EbarColor",
          "Email"}},
        {"Day Schedule",
         {"Day Julian", "Employee", "DayType", "Starts & Stops", "Work hours", "Current Rate", "Salary",
          "Vacation day"}},
        {"Department day", {"Day", "Dep number", "Sales", "Transactions", "Remarks"}},
        {"Day Types", {"Symbol", "Explaination", "Dep number"}},
    };
    ASSERT_EQ(SystemTables().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(SystemTables()[i].name, expected[i].first);
        EXPECT_EQ(FieldNames(SystemTables()[i]), expected[i].second);
    }
}

TEST(SystemTables, come_back_from_the_file_as_they_were_written) {
    test::TestStore store;
    EXPECT_EQ(store.db().TableNames().size(), 6U);
    for (const dao::TableDef& wanted : SystemTables()) {
        const dao::TableDef& found = store.db().Table(wanted.name);
        EXPECT_EQ(found.name, wanted.name);
        ASSERT_EQ(FieldNames(found), FieldNames(wanted));
        for (std::size_t i = 0; i < wanted.fields.size(); ++i) {
            EXPECT_EQ(found.fields[i].type, wanted.fields[i].type) << wanted.fields[i].name;
            EXPECT_EQ(found.fields[i].width, wanted.fields[i].width) << wanted.fields[i].name;
        }
        EXPECT_EQ(found.key.name, wanted.key.name);
        EXPECT_EQ(found.key.fields, wanted.key.fields);
        ASSERT_EQ(found.indexes.size(), wanted.indexes.size());
        for (std::size_t i = 0; i < wanted.indexes.size(); ++i) {
            EXPECT_EQ(found.indexes[i].name, wanted.indexes[i].name);
            EXPECT_EQ(found.indexes[i].fields, wanted.indexes[i].fields);
        }
    }
    EXPECT_EQ(MissingFromFile(store.db()), "");
    RequireUsableFile(store.db());
}

TEST(SystemTables, hold_the_widths_that_the_time_texts_and_the_words_need) {
    const auto width = [](const char* table, const char* field) {
        for (const dao::TableDef& t : SystemTables())
            if (t.name == table) return t.fields[static_cast<std::size_t>(t.PositionOf(field))].width;
        return std::size_t{0};
    };
    EXPECT_EQ(width("Employee", "Avail start"), 28U);
    EXPECT_EQ(width("Employee", "Avail stop"), 28U);
    EXPECT_EQ(width("Employee", "Email"), 40U);
    EXPECT_EQ(width("Day Schedule", "Starts & Stops"), 14U);
    EXPECT_EQ(width("Day Schedule", "DayType"), 2U);
    EXPECT_EQ(width("Day Schedule", "Salary"), 1U);
    EXPECT_EQ(width("Day Types", "Symbol"), 2U);
    for (const char* word :
         {"EmployeeNameSingle", "EmployeeNamePlural", "DayOffNameSingle", "DayOffNamePlural"})
        EXPECT_EQ(width("Department", word), 14U) << word;
}

TEST(SystemTables, are_found_in_any_spelling) {
    test::TestStore store;
    for (const char* name : {"Day Schedule", "DAY SCHEDULE", "Day schedule", "day types", "DEPARTMENT DAY"})
        EXPECT_TRUE(store.db().HasTable(name)) << name;
    dao::Recordset employees = store.db().OpenRecordset("EMPLOYEE");
    for (const auto& [spelled, position] :
         {std::pair{"Hire date", 12U}, {"Birth Date", 13U}, {"Dep Number", 19U}})
        EXPECT_EQ(employees.PositionOf(spelled), position) << spelled;
}

// --- the indexes ------------------------------------------------------------------------------------------

class IndexTest : public testing::Test {
  protected:
    test::TestStore store;

    dao::Recordset Open(const char* table, const char* index) {
        dao::Recordset rs = store.db().OpenRecordset(table);
        rs.Index(index);
        return rs;
    }
};

TEST_F(IndexTest, Dept_Nbr_finds_a_department) {
    const int bakery = store.AddDepartment("Bakery");
    dao::Recordset rs = Open("Department", "Dept Nbr");
    rs.Seek({std::int64_t{bakery}});
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields("Department name").Text(), "Bakery");
    rs.Seek({std::int64_t{bakery + 1}});
    EXPECT_TRUE(rs.NoMatch());
}

TEST_F(IndexTest, Seq_finds_an_employee_by_number_or_text) {
    store.AddDepartment("Bakery");
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    const int key = store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
    dao::Recordset rs = Open("Employee", "seq");
    rs.Seek({std::int64_t{key}});
    EXPECT_EQ(rs.Fields("Last name").Text(), "Brown");
    rs.Seek({std::to_string(key)});
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields("Last name").Text(), "Brown");
}

TEST_F(IndexTest, Day_and_Employee_finds_the_one_row_of_a_day) {
    store.PutDay(46082, 7, test::StartsStops({{36, 68}}), "A");
    store.PutDay(46082, 8, test::StartsStops({{36, 68}}), "B");
    store.PutDay(46083, 7, test::StartsStops({{36, 68}}), "C");
    dao::Recordset rs = Open("Day Schedule", "Day and Employee");
    rs.Seek({std::int64_t{46082}, std::int64_t{8}});
    EXPECT_EQ(rs.Fields("DayType").Text(), "B");
    rs.Seek({std::int64_t{46083}, std::int64_t{8}});
    EXPECT_TRUE(rs.NoMatch());
    try {
        store.PutDay(46083, 7, "");
        FAIL() << "an employee has one row a day";
    } catch (const dao::DaoError& trouble) {
        EXPECT_EQ(trouble.Number(), dao::error::DuplicateKey);
    }
}

TEST_F(IndexTest, Day_and_Dep_finds_the_figures_of_a_day) {
    store.AddDepartment("Bakery");
    store.PutFigures(46082, 100, 5);
    store.PutFigures(46083, 200, 6);
    dao::Recordset rs = Open("Department day", "Day and Dep");
    rs.Seek({std::int64_t{46083}, std::int64_t{store.g.department.CurrentDepNumber}});
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields("Sales").Double(), 200);
}

TEST_F(IndexTest, TD_finds_a_daytype_without_case_and_Department_the_first_of_a_department) {
    test::RawFile file(store.folder / "TVX.MDB");
    file.Run(
        "INSERT INTO [Day Types] VALUES ('V', 'Vacation', 1), ('a', 'Assisting', 2), ('B', 'Baking', 2)");
    dao::Recordset rs = Open("Day types", "TD");
    rs.Seek({std::int64_t{1}, std::string("v")});
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields("Explaination").Text(), "Vacation");
    rs.Seek({std::int64_t{2}, std::string("V")});
    EXPECT_TRUE(rs.NoMatch());
    rs.Index("Department");
    rs.Seek({std::int64_t{2}});
    ASSERT_FALSE(rs.NoMatch());
    EXPECT_EQ(rs.Fields("Symbol").Text(), "a");
}

TEST(AutoNumber, of_a_deleted_employee_is_not_given_again) {
    test::TestStore store;
    store.AddDepartment("Bakery");
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    const int last = store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
    dao::Recordset rs = store.db().OpenRecordset("Employee");
    rs.MoveLast();
    rs.Delete();
    EXPECT_EQ(store.AddEmployee({.lastName = "Clark", .firstName = "Cleo"}), last + 1);
}

// --- the upgrade ------------------------------------------------------------------------------------------

class UpgradeTest : public testing::Test {
  protected:
    test::TestStore store;

    void Upgrade() {
        dao::Recordset application = store.db().OpenRecordset("Application");
        CheckDBversion(store.db(), application);
    }
    Names Everything() {
        test::RawFile file(store.folder / "TVX.MDB");
        Names rows = file.Rows("SELECT type, name, sql FROM sqlite_schema ORDER BY name");
        for (const dao::TableDef& table : SystemTables())
            for (const std::string& row : file.Rows("SELECT * FROM [" + table.name + "]"))
                rows.push_back(row);
        return rows;
    }
};

TEST_F(UpgradeTest, writes_the_version_and_changes_nothing_the_second_time) {
    store.AddDepartment("Bakery");
    store.AddPeople(5);
    store.FillWeeks(46082, 1);
    store.PutFigures(46082, 100, 5, "memo");
    test::RawFile(store.folder / "TVX.MDB").Run("UPDATE Application SET [DB Version] = 7");
    Upgrade();
    EXPECT_EQ(test::RawFile(store.folder / "TVX.MDB").Rows("SELECT [DB Version] FROM Application"),
              Names{"8"});
    const Names once = Everything();
    Upgrade();
    EXPECT_EQ(Everything(), once);
}

TEST_F(UpgradeTest, adds_a_field_and_keeps_every_row) {
    store.AddDepartment("Bakery");
    store.AddPeople(5);
    store.FillWeeks(46082, 1);
    test::RawFile file(store.folder / "TVX.MDB");
    const std::string kept = "SELECT [Day Julian], Employee, [Starts & Stops], Salary FROM [Day Schedule]";
    file.Run("ALTER TABLE [Day Schedule] DROP COLUMN [Vacation day]");
    file.Run("ALTER TABLE Employee DROP COLUMN Email");
    const Names before = file.Rows(kept);
    CloseDatabase(store.g.store, store.prompt());
    store.g.store.Db = store.g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
    EXPECT_EQ(MissingFromFile(store.db()), "Employee.Email");
    RequireUsableFile(store.db());
    Upgrade();
    EXPECT_EQ(file.Rows(kept), before);
    EXPECT_EQ(file.Rows("SELECT DISTINCT [Vacation day] FROM [Day Schedule]"), Names{"0"});
    EXPECT_EQ(file.Rows("SELECT DISTINCT Email FROM Employee"), Names{"NULL"});
}

TEST_F(UpgradeTest, is_undone_whole_when_it_cannot_be_finished) {
    test::RawFile file(store.folder / "TVX.MDB");
    file.Run("ALTER TABLE Employee DROP COLUMN Email");
    file.Run("ALTER TABLE Employee DROP COLUMN City");
    file.Run("UPDATE Application SET [DB Version] = 5");
    CloseDatabase(store.g.store, store.prompt());
    store.g.store.Db = store.g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
    const Names before = Everything();
    try {
        Upgrade();
        FAIL() << "the city is still missing";
    } catch (const dao::DaoError& trouble) {
        EXPECT_EQ(trouble.Number(), dao::error::ItemNotFound);
        EXPECT_EQ(trouble.what(), std::string("Item not found in this collection: Employee.City"));
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(UpgradeTest, is_undone_whole_when_there_is_no_row_for_the_version) {
    test::RawFile file(store.folder / "TVX.MDB");
    file.Run("ALTER TABLE Employee DROP COLUMN Email");
    file.Run("DELETE FROM Application");
    CloseDatabase(store.g.store, store.prompt());
    store.g.store.Db = store.g.store.Engine.OpenDatabase(store.folder / "TVX.MDB");
    const Names before = Everything();
    EXPECT_THROW(Upgrade(), dao::DaoError);
    EXPECT_EQ(Everything(), before);
}

TEST(RequireUsableFile, refuses_a_file_whose_last_page_is_not_whole) {
    test::TempFolder folder;
    const auto path = folder / "TVX.MDB";
    const dao::Engine engine(test::TestEngineOptions());
    CreateSystemTables(*engine.CreateDatabase(path));
    const std::string whole = test::ReadFile(path);
    for (const std::size_t lost : {std::size_t{1}, std::size_t{2000}, std::size_t{4095}}) {
        test::WriteFile(path, whole.substr(0, whole.size() - lost));
        const auto db = engine.OpenDatabase(path);
        try {
            RequireUsableFile(*db);
            FAIL() << lost;
        } catch (const dao::DaoError& trouble) {
            EXPECT_EQ(trouble.Number(), dao::error::UnrecognisedFormat) << lost;
        }
    }
    test::WriteFile(path, whole);
    RequireUsableFile(*engine.OpenDatabase(path));
}

} // namespace
} // namespace tvx
