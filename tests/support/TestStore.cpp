#include "support/TestStore.h"

#include "editor/week/LoadWeek.h"
#include "editor/week/RosterBuilder.h"
#include "editor/week/Totals.h"
#include "platform/basic/Number.h"
#include "platform/dao/TimeText.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "store/OpenStore.h"
#include "store/rows/Schema.h"
#include "support/OpenGrid.h"
#include "support/TestEngine.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tvx::test {
namespace {

std::string Codes(std::string_view bytes) {
    std::string codes;
    for (const char byte : bytes)
        codes += (codes.empty() ? "" : " ") + std::to_string(static_cast<unsigned char>(byte));
    return codes;
}

std::string Clock(int quarter) {
    if (quarter == QuartersPerDay) return "midnight";
    const int hour = quarter / 4 % 12 == 0 ? 12 : quarter / 4 % 12;
    const std::string minutes = std::to_string(quarter % 4 * 15);
    return std::to_string(hour) + (minutes.size() < 2 ? ":0" : ":") + minutes + (quarter < 48 ? "am" : "pm");
}

std::string Padded(int number) {
    const std::string digits = std::to_string(number);
    return std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

/// One believable day: off, one shift, a split one, or one over midnight.
std::vector<std::pair<int, int>> RandomPeriods(std::mt19937& random) {
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const int kind = pick(0, 9);
    if (kind < 2) return {};
    const int start = pick(20, 48);
    if (kind < 7) return {{start, start + pick(16, 34)}};
    if (kind < 9) return {{start, start + 14}, {start + 18, start + 32}};
    return {{pick(70, 84), 96}};
}

} // namespace

dao::EngineOptions TestEngineOptions() {
    return TestOptions(200);
}

TestStore::TestStore(dao::Engine engine) {
    g.store.Engine = std::move(engine);
    g.store.Db = g.store.Engine.CreateDatabase(folder / "TVX.MDB");
    CreateSystemTables(db());
    g.paths.ProgramPath = g.paths.DatabasePath = folder.Path();
    g.screen = {1920 * 15, 1080 * 15 - 150, VisibleHoursFor(1920 * 15)};
    g.application.CrLf = "\r\n";
    g.application.DateFormatSetting = "MM-DD-YYYY";
    g.rights.PasswordOk = true;
    ReadSettings(db(), g.screen, g.application);
}

int TestStore::AddDepartment(const std::string& name, int firstWeekday, int editorOrder, int weekMethod) {
    dao::Recordset rs = db().OpenRecordset("Department");
    rs.AddNew();
    rs.Fields("Department name") = name;
    rs.Fields("First weekday") = firstWeekday;
    rs.Fields("Editor order") = editorOrder;
    rs.Fields("Week methode pick") = weekMethod;
    rs.Update();
    rs.MoveLast();
    const int number = static_cast<int>(rs.Fields("Dep number").Long());
    g.department.CurrentDepNumber = number;
    g.department.CurrentDepName = name;
    g.department.EditorOrder = editorOrder;
    g.department.WeekMethod = weekMethod;
    DecodeFirstWeekday(firstWeekday, g.department.FirstWeekday, g.department.DayCutoffQuarters);
    g.departments.DepNumbers.push_back(number);
    g.departments.DepNames.push_back(name);
    ++g.departments.DepartmentCount;
    return number;
}

int TestStore::AddEmployee(const TestEmployee& employee) {
    dao::Recordset rs = db().OpenRecordset("Employee");
    rs.AddNew();
    rs.Fields("Last name") = employee.lastName;
    rs.Fields("First name") = employee.firstName;
    rs.Fields("ID") = employee.id;
    rs.Fields("Assignment") = employee.assignment;
    rs.Fields("Pay") = employee.pay;
    rs.Fields("Wage or Sal") = employee.hourly ? -1 : 0;
    rs.Fields("Active") = employee.active;
    rs.Fields("Dep number") = g.department.CurrentDepNumber;
    rs.Fields("Labor type") = employee.laborType;
    rs.Fields("EbarColor") = employee.barColor;
    if (employee.hireDate != 0) rs.Fields("Hire Date") = employee.hireDate;
    if (employee.birthDate != 0) rs.Fields("Birth date") = employee.birthDate;
    if (!employee.availStart.empty()) rs.Fields("Avail start") = employee.availStart;
    if (!employee.availStop.empty()) rs.Fields("Avail stop") = employee.availStop;
    rs.Update();
    rs.MoveLast();
    return static_cast<int>(rs.Fields("Employee").Long());
}

void TestStore::SetEmployee(int key, const std::string& field, const dao::Value& value) {
    dao::Recordset rs = db().OpenRecordset("Employee");
    rs.Index("Seq");
    rs.Seek({std::int64_t{key}});
    rs.Edit();
    rs.Fields(field) = value;
    rs.Update();
}

void TestStore::PutFigures(DaySerial day, double sales, double transactions, const std::string& memo) {
    dao::Recordset rs = db().OpenRecordset("Department day");
    rs.AddNew();
    rs.Fields("Day") = day;
    rs.Fields("Dep number") = g.department.CurrentDepNumber;
    rs.Fields("Sales") = sales;
    rs.Fields("Transactions") = transactions;
    rs.Fields("Remarks") = memo;
    rs.Update();
}

void TestStore::AddPeople(int count) {
    dao::Transaction transaction(db());
    for (int i = 1; i <= count; ++i) {
        TestEmployee employee;
        employee.lastName = "Last" + Padded(i);
        employee.firstName = "First" + std::to_string(i % 7);
        employee.hourly = i % 6 != 0;
        employee.pay = employee.hourly ? TrimmedNumber(7.25 + i % 9) : "900.00";
        employee.id = std::to_string(1000 + i);
        employee.barColor = 1 + i % 14;
        AddEmployee(employee);
    }
    transaction.Commit();
}

namespace {

void AddDay(dao::Recordset& rs, DaySerial day, int employeeKey, const std::string& startsStops,
            const std::string& dayType = "", bool vacation = false, const std::string& salaryMark = "W",
            double rate = 10) {
    rs.AddNew();
    rs.Fields("Day Julian") = day;
    rs.Fields("Employee") = employeeKey;
    rs.Fields("DayType") = dayType;
    rs.Fields("Starts & Stops") = startsStops;
    rs.Fields("Vacation day") = vacation;
    rs.Fields("Current Rate") = rate;
    rs.Fields("Salary") = salaryMark;
    rs.Update();
}

} // namespace

void TestStore::PutDay(DaySerial day, int employeeKey, const std::string& startsStops,
                       const std::string& dayType, bool vacation, const std::string& salaryMark,
                       double rate) {
    dao::Recordset rs = db().OpenRecordset("Day Schedule");
    AddDay(rs, day, employeeKey, startsStops, dayType, vacation, salaryMark, rate);
}

void TestStore::FillWeeks(DaySerial firstDay, int weeks, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<int> keys;
    db().Scan("SELECT Employee FROM Employee ORDER BY Employee", {},
              [&](const dao::ScanRow& row) { keys.push_back(static_cast<int>(row.Long(0))); });
    dao::Transaction transaction(db());
    dao::Recordset rs = db().OpenRecordset("Day Schedule");
    for (DaySerial day = firstDay; day < firstDay + 7 * weeks; ++day)
        for (const int key : keys)
            if (const auto periods = RandomPeriods(random); !periods.empty())
                AddDay(rs, day, key, StartsStops(periods));
    transaction.Commit();
}

std::vector<std::string> TestStore::Rows() const {
    std::vector<std::string> rows;
    g.store.Open().Scan(
        "SELECT [Day Julian], Employee, DayType, [Starts & Stops], [Work hours], [Current Rate], Salary,"
        " [Vacation day] FROM [Day Schedule] ORDER BY [Day Julian], Employee",
        {}, [&](const dao::ScanRow& row) {
            rows.push_back(std::to_string(row.Long(0)) + "|" + std::to_string(row.Long(1)) + "|" +
                           std::string(row.Text(2)) + "|" + PeriodsText(dao::DecodeTimeText(row.Text(3))) +
                           "|" + TrimmedNumber(row.Double(4)) + "|" + TrimmedNumber(row.Double(5)) + "|" +
                           std::string(row.Text(6)) + "|" + std::to_string(row.Long(7)));
        });
    return rows;
}

void TestStore::OpenEditor() {
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    OpenGrid(grid, g);
}

void TestStore::OpenWeek(DaySerial date) {
    OpenEditor();
    LoadWeekOf(g, ports(), date);
}

std::string StartsStops(const std::vector<std::pair<int, int>>& periods) {
    std::string text(14, ' ');
    for (std::size_t p = 0; p < std::min<std::size_t>(periods.size(), 7); ++p) {
        text[p] = static_cast<char>(32 + periods[p].first);
        text[p + 7] = static_cast<char>(32 + periods[p].second);
    }
    return text;
}

std::string PeriodsText(const std::string& bytes) {
    std::vector<std::pair<int, int>> periods;
    std::string text;
    for (std::size_t p = 0; p < 7 && bytes.size() == 14; ++p) {
        const int start = static_cast<unsigned char>(bytes[p]) - 32;
        const int stop = static_cast<unsigned char>(bytes[p + 7]) - 32;
        if (start < 0 || start >= stop || stop > QuartersPerDay) break;
        periods.emplace_back(start, stop);
        text += (p == 0 ? "" : " ") + Clock(start) + "-" + Clock(stop);
    }
    if (bytes.empty()) return "no text";
    return bytes == StartsStops(periods) ? text : Codes(bytes);
}

BarList Bars(const GlobalState& g, int employee) {
    BarList bars;
    for (int b = 1; b <= g.week.BarCount[employee]; ++b)
        bars.emplace_back(g.week.BarStarts[employee][b], g.week.BarStops[employee][b]);
    return bars;
}

void SetBars(GlobalState& g, int employee, const BarList& bars) {
    WritableWeek(g).BarStarts[employee] = {};
    WritableWeek(g).BarStops[employee] = {};
    WritableWeek(g).BarCount[employee] = static_cast<int>(bars.size());
    for (std::size_t b = 0; b < bars.size(); ++b) {
        WritableWeek(g).BarStarts[employee][b + 1] = bars[b].first;
        WritableWeek(g).BarStops[employee][b + 1] = bars[b].second;
    }
    SumWeek(WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
}

} // namespace tvx::test
