// A row of table Department day: the figures and the memo of one day of a department.
#pragma once

#include "platform/basic/Date.h"
#include "platform/dao/Database.h"

#include <optional>
#include <string>
#include <vector>

namespace tvx {

struct DepartmentDayRow {
    DaySerial day = 0;
    int depNumber = 0;
    double sales = 0;
    double transactions = 0;
    std::string remarks; // the memo

    friend bool operator==(const DepartmentDayRow&, const DepartmentDayRow&) = default;
};

// All throw DaoError.

/// The days of a department that have a row, ascending, from one day to another.
std::vector<DepartmentDayRow> ReadDepartmentDayRows(dao::Database& database, int depNumber, DaySerial first,
                                                    DaySerial last);
std::optional<DepartmentDayRow> FindDepartmentDayRow(dao::Database& database, int depNumber, DaySerial day);
/// Adds the row of that day and department, or writes over it.
void PutDepartmentDayRow(dao::Database& database, const DepartmentDayRow& row);
/// Deletes all days of a department by one statement.
void DeleteDepartmentDayRows(dao::Database& database, int depNumber);
/// Moves the rows of all departments from one day to another by a number of days.
void MoveDepartmentDayRows(dao::Database& database, DaySerial first, DaySerial last, int days);

} // namespace tvx
