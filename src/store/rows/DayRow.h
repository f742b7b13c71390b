// A row of table Day Schedule: one day of one employee.
#pragma once

#include "platform/basic/Date.h"
#include "platform/dao/Database.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

struct DayRow {
    DaySerial day = 0;
    int employee = 0;                  // key of the employee's row
    std::string dayType;               // the symbol, as stored
    std::string startsStops;           // bytes; DecodePeriods takes them apart
    double workHours = 0;              // hours
    std::optional<double> currentRate; // in force when the day was first saved
    std::string salary;                // "W" when that is an hourly wage, "S" when a share of a salary
    bool vacationDay = false;

    /// The rate of the day stands in the row, and stays.
    bool HasRate() const { return salary == "W" || salary == "S"; }
    friend bool operator==(const DayRow&, const DayRow&) = default;
};

/// Called with the place of the employee in the list that was asked for, and a row.
using TakeDay = std::function<void(std::size_t employee, const DayRow& row)>;

/// Reads the rows of several employees, named by key, from one day to another, in one read transaction: by
/// one scan of the days when they are a good part of the file's people, else row by row. The order of the
/// rows is not told. Throws DaoError.
void ReadDayRows(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
                 DaySerial last, const TakeDay& take);

/// Gives the row to read a day into, by the place of the employee in the list that was asked for.
using PlaceOfDay = std::function<DayRow&(std::size_t employee, DaySerial day)>;

/// ReadDayRows for who keeps every row and asks for no pay: `currentRate` stays as it is.
void ReadPlannedDays(const dao::Database& database, const std::vector<int>& employees, DaySerial first,
                     DaySerial last, const PlaceOfDay& place);

/// The table, open for many lookups and writes. Everything throws DaoError.
class DayTable {
  public:
    explicit DayTable(dao::Database& database);
    ~DayTable();
    DayTable(DayTable&& other) noexcept;
    DayTable& operator=(DayTable&& other) noexcept;

    std::optional<DayRow> Find(DaySerial day, int employee);
    void Add(const DayRow& row);
    /// Writes all fields of the row of that day and employee; ChangeWork only its daytype, times and hours.
    /// Throws 3021 when it is gone; so does Delete.
    void Change(const DayRow& row);
    void ChangeWork(const DayRow& row);
    void Delete(DaySerial day, int employee);

  private:
    struct Opened;
    std::unique_ptr<Opened> opened_;
};

/// Deletes all days of an employee by one statement.
void DeleteDayRows(dao::Database& database, int employee);
/// Deletes the rows whose day is this number.
void DeleteDayRowsOfDay(dao::Database& database, std::int64_t day);
/// Moves the rows from one day to another by a number of days.
void MoveDayRows(dao::Database& database, DaySerial first, DaySerial last, int days);

} // namespace tvx
