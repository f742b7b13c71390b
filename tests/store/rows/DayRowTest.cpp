#include "store/rows/DayRow.h"

#include "platform/dao/DaoError.h"
#include "store/rows/RowFixture.h"
#include "support/Random.h"

#include <algorithm>
#include <tuple>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026

DayRow FullDay() {
    DayRow row;
    row.day = 1;
    row.employee = 1;
    row.dayType = "c";
    row.startsStops = test::StartsStops({{0, 96}, {68, 36}});
    row.workHours = 7.75;
    row.currentRate = 10.5;
    row.salary = "S";
    row.vacationDay = true;
    return row;
}

DayRow DayOf(DaySerial day, int employee) {
    DayRow row = FullDay();
    row.day = day;
    row.employee = employee;
    return row;
}

/// Row by row in a known order.
std::vector<DayRow> Sorted(std::vector<DayRow> rows) {
    std::sort(rows.begin(), rows.end(), [](const DayRow& a, const DayRow& b) {
        return std::tie(a.employee, a.day) < std::tie(b.employee, b.day);
    });
    return rows;
}

class DayRowTest : public testing::Test {
  protected:
    test::TestStore store;
    dao::Database& db = store.db();

    DayRow Read() { return DayTable(db).Find(1, 1).value(); }
    std::vector<DayRow> ReadAll(const std::vector<int>& employees, DaySerial first, DaySerial last) {
        std::vector<DayRow> rows;
        ReadDayRows(db, employees, first, last, [&](std::size_t at, const DayRow& row) {
            EXPECT_EQ(employees.at(at), row.employee);
            rows.push_back(row);
        });
        return Sorted(rows);
    }
    void Fill() {
        DayTable table(db);
        for (DaySerial day = Sunday; day < Sunday + 10; ++day)
            for (int employee = 1; employee <= 20; ++employee)
                if ((day + employee) % 3 != 0) table.Add(DayOf(day, employee));
    }
};

TEST_F(DayRowTest, comes_back_as_it_was_written_sought_and_scanned) {
    DayTable table(db);
    table.Add(FullDay());
    EXPECT_EQ(table.Find(1, 1), FullDay());
    EXPECT_EQ(ReadAll({1}, 1, 1), std::vector{FullDay()});
    DayRow other;
    other.day = other.employee = 1;
    table.Change(other);
    EXPECT_EQ(table.Find(1, 1), other);
    EXPECT_EQ(ReadAll({1}, 1, 1), std::vector{other});
    table.Delete(1, 1);
    EXPECT_FALSE(table.Find(1, 1));
    EXPECT_TRUE(ReadAll({1}, 1, 1).empty());
}

TEST_F(DayRowTest, has_a_default_for_a_null_of_every_field) {
    DayTable(db).Add(FullDay());
    const std::vector<test::NullCase<DayRow>> cases{
        {"DayType", [](auto& row) { row.dayType = ""; }},
        {"Starts & Stops", [](auto& row) { row.startsStops = ""; }},
        {"Work hours", [](auto& row) { row.workHours = 0; }},
        {"Current Rate", [](auto& row) { row.currentRate.reset(); }},
        {"Salary", [](auto& row) { row.salary = ""; }},
    };
    const auto read = [&] {
        EXPECT_EQ(ReadAll({1}, 1, 1), std::vector{Read()});
        return Read();
    };
    test::ExpectNulls<DayRow>(db, "Day Schedule", "Employee", FullDay(), read, cases, 3);
}

TEST_F(DayRowTest, says_whether_a_rate_stays_with_it) {
    DayRow row;
    for (const auto& [mark, has] :
         {std::pair("W", true), {"S", true}, {"", false}, {"w", false}, {"X", false}}) {
        row.salary = mark;
        EXPECT_EQ(row.HasRate(), has) << mark;
    }
}

TEST_F(DayRowTest, is_read_alike_for_few_people_and_for_many) {
    store.AddDepartment("Bakery");
    store.AddPeople(20);
    Fill();
    std::vector<int> everybody;
    for (int employee = 1; employee <= 20; ++employee) everybody.push_back(employee);
    const std::vector<DayRow> all = ReadAll(everybody, Sunday + 1, Sunday + 8);
    EXPECT_GT(all.size(), 100U);
    for (int employee = 1; employee <= 20; ++employee) {
        std::vector<DayRow> own;
        for (const DayRow& row : all)
            if (row.employee == employee) own.push_back(row);
        EXPECT_EQ(ReadAll({employee}, Sunday + 1, Sunday + 8), own) << "sought one by one";
    }
}

TEST_F(DayRowTest, is_read_only_for_who_was_asked_for_and_between_the_days) {
    store.AddDepartment("Bakery");
    store.AddPeople(3);
    Fill();
    for (const DayRow& row : ReadAll({3, 1}, Sunday + 2, Sunday + 4)) {
        EXPECT_TRUE(row.employee == 1 || row.employee == 3);
        EXPECT_TRUE(row.day >= Sunday + 2 && row.day <= Sunday + 4);
    }
    EXPECT_TRUE(ReadAll({}, Sunday, Sunday + 9).empty());
    EXPECT_TRUE(ReadAll({0, -5, 32768, 2000000}, Sunday, Sunday + 9).empty());
    EXPECT_TRUE(ReadAll({1}, Sunday + 4, Sunday + 2).empty());
}

TEST_F(DayRowTest, is_read_into_its_place_without_its_rate) {
    store.AddDepartment("Bakery");
    store.AddPeople(20);
    Fill();
    for (const std::vector<int>& employees : {std::vector{3, 1, 2, 4, 5, 6, 7, 8}, std::vector{9}}) {
        std::vector<DayRow> planned(employees.size());
        ReadPlannedDays(db, employees, Sunday + 4, Sunday + 5, [&](std::size_t at, DaySerial day) -> DayRow& {
            planned[at].currentRate = day; // of no row
            return planned[at];
        });
        ReadDayRows(db, employees, Sunday + 4, Sunday + 5, [&](std::size_t at, DayRow row) {
            if (row.day != planned[at].day) return;
            row.currentRate = row.day;
            EXPECT_EQ(planned[at], row);
            planned[at] = {};
        });
        EXPECT_EQ(planned, std::vector<DayRow>(employees.size()));
    }
}

TEST_F(DayRowTest, reads_any_bytes_of_its_time_text_as_the_file_holds_them) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    DayTable table(db);
    for (int round = 0; round < 300; ++round) {
        DayRow row = DayOf(Sunday + round, 1);
        row.startsStops = random.Bytes(14);
        for (char& byte : row.startsStops)
            if (byte == '\0') byte = ' '; // no time either
        table.Add(row);
        ASSERT_EQ(table.Find(row.day, 1), row);
        ASSERT_EQ(ReadAll({1}, row.day, row.day), std::vector{row});
    }
}

TEST_F(DayRowTest, cannot_be_changed_or_deleted_when_it_is_gone) {
    DayTable table(db);
    EXPECT_THROW(table.Change(FullDay()), dao::DaoError);
    EXPECT_THROW(table.Delete(1, 1), dao::DaoError);
}

TEST_F(DayRowTest, goes_with_its_employee_or_its_day) {
    Fill();
    DeleteDayRows(db, 7);
    EXPECT_TRUE(ReadAll({7}, Sunday, Sunday + 9).empty());
    EXPECT_EQ(ReadAll({8}, Sunday, Sunday + 9).size(), 7U);
    DeleteDayRowsOfDay(db, Sunday);
    EXPECT_TRUE(ReadAll({1, 2, 3, 8}, Sunday, Sunday).empty());
    EXPECT_FALSE(ReadAll({1, 2, 3, 8}, Sunday + 1, Sunday + 1).empty());
}

TEST_F(DayRowTest, moves_onto_days_that_are_being_moved_themselves) {
    DayTable table(db);
    for (DaySerial day = Sunday; day < Sunday + 10; ++day) {
        DayRow row = DayOf(day, 1);
        row.workHours = day - Sunday;
        table.Add(row);
    }
    DeleteDayRowsOfDay(db, Sunday);
    MoveDayRows(db, Sunday + 1, Sunday + 7, -1);
    std::vector<double> hours;
    for (const DayRow& row : ReadAll({1}, Sunday, Sunday + 6)) hours.push_back(row.workHours);
    EXPECT_EQ(hours, (std::vector<double>{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(table.Find(Sunday + 8, 1)->workHours, 8);
}

} // namespace
} // namespace tvx
