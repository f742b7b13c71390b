#include "store/rows/EmployeeRow.h"

#include "platform/dao/DaoError.h"
#include "store/rows/RowFixture.h"

namespace tvx {
namespace {

using Keys = std::vector<int>;

EmployeeRow FullEmployee() {
    EmployeeRow row;
    row.key = 1;
    row.depNumber = 3;
    row.lastName = "Adams";
    row.firstName = "Anna";
    row.id = "A1";
    row.assignment = "Oven";
    row.pay = "7.25 a bun";
    row.wageOrSal = -1;
    row.active = true;
    row.street = "Main 1";
    row.city = "Town";
    row.state = "TX";
    row.zip = "12345";
    row.hireDate = 38774;
    row.birthDate = 30000;
    row.phone = "1";
    row.emergencyPhone = "2";
    row.cellPhone = "3";
    row.socSecNumber = "4";
    row.comments = "Ärger\r\nmit ihm";
    row.availStart = std::string(28, 'D');
    row.availStop = std::string(27, 'd') + '\x80';
    row.laborType = 4;
    row.barColor = 14;
    row.email = "a@b";
    return row;
}

class EmployeeRowTest : public testing::Test {
  protected:
    test::TestStore store;
    dao::Database& db = store.db();

    int Add(const std::string& lastName, int department) {
        EmployeeRow row;
        row.lastName = lastName;
        row.depNumber = department;
        return AddEmployeeRow(db, row);
    }
};

TEST_F(EmployeeRowTest, comes_back_as_it_was_written) {
    EXPECT_EQ(AddEmployeeRow(db, FullEmployee()), 1);
    EXPECT_EQ(FindEmployeeRow(db, 1), FullEmployee());
    EmployeeRow other;
    other.key = 1;
    other.depNumber = 3;
    ChangeEmployeeRow(db, other);
    EXPECT_EQ(FindEmployeeRow(db, 1), other);
    ChangeEmployeeRow(db, FullEmployee());
    EXPECT_EQ(FindEmployeeRow(db, 1), FullEmployee());
}

TEST_F(EmployeeRowTest, has_a_default_for_a_null_of_every_field) {
    AddEmployeeRow(db, FullEmployee());
    const std::vector<test::NullCase<EmployeeRow>> cases{
        {"Last name", [](auto& row) { row.lastName = ""; }},
        {"First name", [](auto& row) { row.firstName = ""; }},
        {"ID", [](auto& row) { row.id = ""; }},
        {"Assignment", [](auto& row) { row.assignment = ""; }},
        {"Pay", [](auto& row) { row.pay = ""; }},
        {"Wage or Sal", [](auto& row) { row.wageOrSal = 0; }},
        {"Street", [](auto& row) { row.street = ""; }},
        {"City", [](auto& row) { row.city = ""; }},
        {"State", [](auto& row) { row.state = ""; }},
        {"Zip", [](auto& row) { row.zip = ""; }},
        {"Hire Date", [](auto& row) { row.hireDate.reset(); }},
        {"Birth date", [](auto& row) { row.birthDate.reset(); }},
        {"Phone", [](auto& row) { row.phone = ""; }},
        {"Emergency phone", [](auto& row) { row.emergencyPhone = ""; }},
        {"Page/Cell phone", [](auto& row) { row.cellPhone = ""; }},
        {"Soc Sec number", [](auto& row) { row.socSecNumber = ""; }},
        {"Comments", [](auto& row) { row.comments = ""; }},
        {"Dep number", [](auto& row) { row.depNumber = 0; }},
        {"Avail start", [](auto& row) { row.availStart = ""; }},
        {"Avail stop", [](auto& row) { row.availStop = ""; }},
        {"Labor type", [](auto& row) { row.laborType = 0; }},
        {"EbarColor", [](auto& row) { row.barColor.reset(); }},
        {"Email", [](auto& row) { row.email = ""; }},
    };
    // The key and the yes/no field cannot be Null, three fields nobody reads.
    test::ExpectNulls<EmployeeRow>(
        db, "Employee", "Employee", FullEmployee(), [&] { return FindEmployeeRow(db, 1).value(); }, cases, 5);
}

TEST_F(EmployeeRowTest, reads_a_date_without_its_time) {
    AddEmployeeRow(db, FullEmployee());
    test::PutField(db, "Employee", "Employee", 1, "Hire Date", 38774.99);
    EXPECT_EQ(FindEmployeeRow(db, 1)->hireDate, 38774);
    test::PutField(db, "Employee", "Employee", 1, "Hire Date", -1.5);
    EXPECT_EQ(FindEmployeeRow(db, 1)->hireDate, -2);
    test::PutField(db, "Employee", "Employee", 1, "Hire Date", 0.0);
    EXPECT_EQ(FindEmployeeRow(db, 1)->hireDate, 0); // a date, and no Null
}

TEST_F(EmployeeRowTest, stays_in_its_department_when_it_is_changed) {
    AddEmployeeRow(db, FullEmployee());
    EmployeeRow moved = FullEmployee();
    moved.depNumber = 9;
    ChangeEmployeeRow(db, moved);
    EXPECT_EQ(FindEmployeeRow(db, 1)->depNumber, 3);
}

TEST_F(EmployeeRowTest, cannot_be_changed_or_deleted_when_it_is_gone) {
    try {
        ChangeEmployeeRow(db, FullEmployee());
        FAIL();
    } catch (const dao::DaoError& trouble) {
        EXPECT_EQ(trouble.Number(), 3167);
    }
    EXPECT_FALSE(DeleteEmployeeRow(db, 1));
    EXPECT_FALSE(FindEmployeeRow(db, 1));
}

TEST_F(EmployeeRowTest, is_listed_by_last_name_in_its_department) {
    Add("Cook", 1);
    Add("Adams", 1);
    Add("Brown", 2);
    Add("baker", 1);
    EXPECT_EQ(ReadEmployeeKeys(db, 1), (Keys{2, 4, 1}));
    EXPECT_EQ(ReadEmployeeKeys(db, 3), Keys{});
    Keys keys;
    for (const EmployeeRow& row : ReadEmployeeRows(db, 1)) keys.push_back(row.key);
    EXPECT_EQ(keys, (Keys{2, 4, 1}));
    EXPECT_EQ(CountEmployees(db), 4);
}

TEST_F(EmployeeRowTest, goes_with_its_department) {
    Add("Adams", 1);
    Add("Brown", 2);
    Add("Cook", 1);
    EXPECT_EQ(DeleteEmployeeRows(db, 1), (Keys{1, 3}));
    EXPECT_EQ(DeleteEmployeeRows(db, 1), Keys{});
    EXPECT_EQ(CountEmployees(db), 1);
    EXPECT_TRUE(DeleteEmployeeRow(db, 2));
    EXPECT_EQ(CountEmployees(db), 0);
}

TEST_F(EmployeeRowTest, comes_from_any_set_of_employees_from_its_first_on) {
    Add("Adams", 1);
    Add("Brown", 1);
    dao::Recordset set = RosterQuery(1, 6, false).Open(db);
    EXPECT_EQ(ReadEmployeeRows(set).size(), 2U);
    EXPECT_EQ(ReadEmployeeRows(set).size(), 2U) << "again, from its end";
    dao::Recordset nobody = RosterQuery(2, 1, false).Open(db);
    EXPECT_TRUE(ReadEmployeeRows(nobody).empty());
}

TEST(RosterQuery, asks_for_the_active_people_in_each_listing_order) {
    const std::vector<std::string> orders{
        "[Last name],[First name]", "ID", "Assignment", "[Birth date]", "[Hire date]",
        "[First name],[Last name]"};
    for (int order = 1; order <= 6; ++order) {
        const std::string& clause = orders[static_cast<std::size_t>(order - 1)];
        EXPECT_EQ(RosterQuery(17, order, false).Whole(),
                  "SELECT * FROM Employee WHERE [Dep number] = 17 and [Active] = true ORDER BY " + clause +
                      ";");
        EXPECT_EQ(RosterQuery(17, order, true).Whole(),
                  "SELECT * FROM Employee WHERE [Active] = true ORDER BY " + clause + ";");
    }
}

TEST(RosterQuery, leaves_the_number_to_a_parameter) {
    const Query query = RosterQuery(17, 2, false);
    EXPECT_EQ(query.Marked(),
              "SELECT * FROM Employee WHERE [Dep number] = ? and [Active] = true ORDER BY ID;");
    EXPECT_EQ(query.Values(), std::vector<dao::Value>{std::int64_t{17}});
    EXPECT_TRUE(RosterQuery(17, 2, true).Values().empty());
}

} // namespace
} // namespace tvx
