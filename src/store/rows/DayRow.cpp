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

/// What was planned.
struct WorkFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        field("DayType", row.dayType);
        field("Starts & Stops", row.startsStops, "", rows::Times());
        field("Work hours", row.workHours);
    }
};

struct PlanFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        WorkFields::Of(row, field);
        field("Salary", row.salary);
        field("Vacation day", row.vacationDay);
    }
};

struct DataFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        PlanFields::Of(row, field);
        field("Current Rate", row.currentRate);
    }
};

struct KeyFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        field("Day Julian", row.day);
        field("Employee", row.employee);
    }
};

struct AllFields {
    using Row = DayRow;
    static void Of(auto& row, auto&& field) {
        KeyFields::Of(row, field);
        DataFields::Of(row, field);
    }
};

// ---- scanning ----

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
    const double number = row.Double(column);
    member = number == 0 && row.IsNull(column) ? std::nullopt : std::optional(number);
}
void Take(std::string& member, const dao::ScanRow& row, int column, const char*, rows::Times) {
    member = dao::DecodeTimeText(row.Text(column));
}

constexpr int KeyColumns = 2;

/// Reads fields of the row of a scan, which stand behind its key.
template <typename Fields>
void Read(DayRow& row, const dao::ScanRow& scanned) {
    int column = KeyColumns;
    Fields::Of(row,
               [&](const char*, auto& member, auto... kind) { Take(member, scanned, column++, kind...); });
}

/// A select of the key and of fields, up to the words behind "WHERE".
template <typename Fields>
std::string SelectDays() {
    std::string list;
    const auto name = [&](const char* field, const auto&...) {
        list += (list.empty() ? "SELECT " : ", ") + dao::Bracketed(field);
    };
    const DayRow any;
    KeyFields::Of(any, name);
    Fields::Of(any, name);
    return list + " FROM [Day Schedule] WHERE ";
}

/// Which rows are read. The key of a row is told apart: in a damaged file the row may name another one.
struct Asked {
    const std::vector<int>& employees;
    DaySerial first;
    DaySerial last;
};
using TakeScanned = std::function<void(std::size_t employee, DaySerial day, const dao::ScanRow& row)>;

/// The place of each key in the list of employees; -1 of one that is not there.
std::vector<int> PlacesOfKeys(const std::vector<int>& employees) {
    std::vector<int> places(GreatestEmployeeKey + 1, -1);
    for (std::size_t i = 0; i < employees.size(); ++i)
        if (employees[i] >= SmallestKey && employees[i] <= GreatestEmployeeKey)
            places[static_cast<std::size_t>(employees[i])] = static_cast<int>(i);
    return places;
}

template <typename Fields>
void ScanDays(const dao::Database& database, const Asked& asked, const TakeScanned& take) {
    static const std::string range = SelectDays<Fields>() + "[Day Julian] BETWEEN ? AND ?";
    const std::vector<int> places = PlacesOfKeys(asked.employees);
    const auto takeAsked = [&](const dao::ScanRow& row) {
        const std::int64_t day = row.Long(0);
        const std::int64_t key = row.Long(1);
        if (day < asked.first || day > asked.last || key < 0 || key > GreatestEmployeeKey) return;
        const int place = places[static_cast<std::size_t>(key)];
        if (place >= 0) take(static_cast<std::size_t>(place), static_cast<DaySerial>(day), row);
    };
    database.Scan(range, {std::int64_t{asked.first}, std::int64_t{asked.last}}, takeAsked);
}

template <typename Fields>
void SeekDays(const dao::Database& database, const Asked& asked, const TakeScanned& take) {
    static const std::string one = SelectDays<Fields>() + "[Day Julian] = ? AND [Employee] = ?";
    for (std::size_t i = 0; i < asked.employees.size(); ++i)
        for (DaySerial day = asked.first; day <= asked.last; ++day)
            database.Scan(one, {std::int64_t{day}, std::int64_t{asked.employees[i]}},
                          [&](const dao::ScanRow& row) { take(i, day, row); });
}

/// Reads what was asked for into the rows that `place` gives, and calls `done` with each.
template <typename Fields, typename Place, typename Done>
void ReadDays(const dao::Database& database, const Asked& asked, const Place& place, const Done& done) {
    const auto take = [&](std::size_t employee, DaySerial day, const dao::ScanRow& scanned) {
        DayRow& row = place(employee, day);
        row.day = day;
        row.employee = asked.employees[employee];
        Read<Fields>(row, scanned);
        done(employee, row);
    };
    const dao::Snapshot snapshot(database);
    const auto seeks = RowsScannedForOneSeek * static_cast<std::int64_t>(asked.employees.size());
    const bool scan = seeks >= CountEmployees(database);
    scan ? ScanDays<Fields>(database, asked, take) : SeekDays<Fields>(database, asked, take);
}

} // namespace

void ReadDayRows(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
                 DaySerial last, const TakeDay& take) {
    DayRow row;
    const auto place = [&](std::size_t, DaySerial) -> DayRow& { return row; };
    ReadDays<DataFields>(database, {employees, first, last}, place, take);
}

void ReadPlannedDays(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
                     DaySerial last, const PlaceOfDay& place) {
    const auto done = [](std::size_t, const DayRow&) {};
    ReadDays<PlanFields>(database, {employees, first, last}, place, done);
}

// ---- the table ----

struct DayTable::Opened {
    dao::Recordset set;
    rows::Record<AllFields> all{set};
    rows::Record<DataFields> data{set};
    rows::Record<WorkFields> work{set};

    template <typename Fields>
    void Change(const DayRow& row, const rows::Record<Fields>& fields) {
        Seek(row.day, row.employee);
        set.Edit();
        fields.Write(row);
        set.Update();
    }
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
    opened_->Change(row, opened_->data);
}

void DayTable::ChangeWork(const DayRow& row) {
    opened_->Change(row, opened_->work);
}

void DayTable::Delete(DaySerial day, int employee) {
    opened_->Seek(day, employee);
    opened_->set.Delete();
}

void DeleteDayRows(dao::Database& database, int employee) {
    rows::DeleteWhere(database, "Day Schedule", "Employee", employee);
}

void DeleteDayRowsOfDay(dao::Database& database, std::int64_t day) {
    rows::DeleteWhere(database, "Day Schedule", "Day Julian", day);
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
