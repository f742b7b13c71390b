#include "store/rows/DayRow.h"

#include "platform/dao/TimeText.h"
#include "store/rows/EmployeeRow.h"
#include "store/rows/Query.h"
#include "store/rows/RowFields.h"
#include "store/rows/Schema.h"

namespace tvx {
namespace {

/// A scan passes over the rows of everybody in the file, a seek costs about three of its rows.
constexpr std::int64_t RowsScannedForOneSeek = 3;

struct DataFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        field("DayType", row.dayType);
        field("Starts & Stops", row.startsStops);
        field("Work hours", row.workHours);
        field("Current Rate", row.currentRate);
        field("Salary", row.salary);
        field("Vacation day", row.vacationDay);
    }
};

struct AllFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        field("Day Julian", row.day);
        field("Employee", row.employee);
        DataFields::Of(row, field);
    }
};

// ---- scanning ----

void Take(int& member, const dao::ScanRow& row, int column) {
    member = rows::Whole(row.Long(column));
}
void Take(bool& member, const dao::ScanRow& row, int column) {
    member = row.Long(column) != 0;
}
void Take(double& member, const dao::ScanRow& row, int column) {
    member = row.Double(column);
}
void Take(std::string& member, const dao::ScanRow& row, int column) {
    member = row.Text(column);
}
void Take(std::optional<double>& member, const dao::ScanRow& row, int column) {
    member = row.IsNull(column) ? std::nullopt : std::optional(row.Double(column));
}

DayRow RowOf(const dao::ScanRow& scanned) {
    DayRow row;
    int column = 0;
    AllFields::Of(row, [&](const char*, auto& member) { Take(member, scanned, column++); });
    row.startsStops = dao::DecodeTimeText(row.startsStops);
    return row;
}

std::string SelectDays() {
    std::string list;
    DayRow any;
    AllFields::Of(any, [&](const char* name, const auto&) {
        list += (list.empty() ? "SELECT " : ", ") + dao::Bracketed(name);
    });
    return list + " FROM [Day Schedule] WHERE ";
}

void ScanDays(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
              DaySerial last, const TakeDay& take) {
    static const std::string range = SelectDays() + "[Day Julian] BETWEEN ? AND ?";
    constexpr std::size_t Nobody = ~std::size_t{0};
    std::vector<std::size_t> placeOfKey(GreatestEmployeeKey + 1, Nobody);
    const auto inFile = [](int key) { return key >= SmallestKey && key <= GreatestEmployeeKey; };
    for (std::size_t i = 0; i < employees.size(); ++i)
        if (inFile(employees[i])) placeOfKey[static_cast<std::size_t>(employees[i])] = i;
    database.Scan(range, {std::int64_t{first}, std::int64_t{last}}, [&](const dao::ScanRow& scanned) {
        const DayRow row = RowOf(scanned);
        // In a damaged file a row may stand where its key does not belong, outside the days asked for too.
        if (row.day < first || row.day > last || !inFile(row.employee)) return;
        const std::size_t place = placeOfKey[static_cast<std::size_t>(row.employee)];
        if (place != Nobody) take(place, row);
    });
}

void SeekDays(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
              DaySerial last, const TakeDay& take) {
    static const std::string one = SelectDays() + "[Day Julian] = ? AND [Employee] = ?";
    for (std::size_t i = 0; i < employees.size(); ++i)
        for (DaySerial day = first; day <= last; ++day)
            database.Scan(one, {std::int64_t{day}, std::int64_t{employees[i]}},
                          [&](const dao::ScanRow& scanned) {
                              DayRow row = RowOf(scanned);
                              row.day = day; // as it was sought, whatever a damaged row says
                              row.employee = employees[i];
                              take(i, row);
                          });
}

} // namespace

void ReadDayRows(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
                 DaySerial last, const TakeDay& take) {
    const dao::Snapshot snapshot(database);
    const auto asked = static_cast<std::int64_t>(employees.size());
    const auto read = RowsScannedForOneSeek * asked >= CountEmployees(database) ? ScanDays : SeekDays;
    read(database, employees, first, last, take);
}

// ---- the table ----

struct DayTable::Opened {
    dao::Recordset set;
    rows::Record<AllFields> all{set};
    rows::Record<DataFields> data{set};

    void Seek(DaySerial day, int employee) { set.Seek({std::int64_t{day}, std::int64_t{employee}}); }
};

DayTable::DayTable(dao::Database& database)
    : opened_(new Opened{rows::OpenTable(database, "DAY SCHEDULE", "Day and Employee")}) {}
DayTable::~DayTable() = default;
DayTable::DayTable(DayTable&& other) noexcept = default;
DayTable& DayTable::operator=(DayTable&& other) noexcept = default;

std::optional<DayRow> DayTable::Find(DaySerial day, int employee) {
    opened_->Seek(day, employee);
    if (opened_->set.NoMatch()) return std::nullopt;
    return opened_->all.Read();
}

void DayTable::Add(const DayRow& row) {
    opened_->set.AddNew();
    opened_->all.Write(row);
    opened_->set.Update();
}

void DayTable::Change(const DayRow& row) {
    opened_->Seek(row.day, row.employee);
    opened_->set.Edit();
    opened_->data.Write(row);
    opened_->set.Update();
}

void DayTable::Delete(DaySerial day, int employee) {
    opened_->Seek(day, employee);
    opened_->set.Delete();
}

void DeleteDayRows(dao::Database& database, int employee) {
    dao::Transaction transaction(database);
    dao::Recordset set =
        Query("SELECT Employee FROM [Day Schedule] WHERE Employee = ").With(employee, "").Open(database);
    rows::DeleteAll(set);
    transaction.Commit();
}

void DeleteDayRowsOfDay(dao::Database& database, std::int64_t day) {
    dao::Recordset set =
        Query("SELECT Employee FROM [Day Schedule] WHERE [Day Julian] = ").With(day, "").Open(database);
    rows::DeleteAll(set);
}

void MoveDayRows(dao::Database& database, DaySerial first, DaySerial last, int days) {
    // A select, which is read whole: a table is read on by its key, which the moves change.
    dao::Recordset set = Query("SELECT [Day Julian] FROM [Day Schedule] WHERE [Day Julian] between ")
                             .With(first, " and ")
                             .With(last, "")
                             .Open(database);
    rows::AddToFirstField(set, days);
}

} // namespace tvx
