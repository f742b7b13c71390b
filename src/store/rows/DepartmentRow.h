// A row of table Department: name, order, week, words, and what its two managers may do.
#pragma once

#include "platform/dao/Database.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

/// One of the two managers of a department.
struct ManagerRow {
    std::string password; // in clear; "" is no manager
    bool hideWages = false;
    bool allowScheduling = false;
    bool allowPasswords = false;

    friend bool operator==(const ManagerRow&, const ManagerRow&) = default;
};

struct DepartmentRow {
    int number = 0; // given by the file
    std::string name;
    int editorOrder = 1;
    std::optional<int> firstWeekday; // weekday and cut-off in one; DecodeFirstWeekday takes it apart
    int weekMethod = 0;
    std::string employeeNameSingle = "Employee"; // the words: of a Null each has its default
    std::string employeeNamePlural = "Employees";
    std::string dayOffNameSingle = "Vacation day";
    std::string dayOffNamePlural = "Vacation days";
    std::array<ManagerRow, 2> managers;

    friend bool operator==(const DepartmentRow&, const DepartmentRow&) = default;
};

/// Takes apart the field `First weekday`. Below 1: weekday 1, cut-off 0. 1 to 10: that weekday, the cut-off
/// stays as it was. Above 10: weekday * 100 + cut-off. A weekday outside 1 to 7 becomes 1.
void DecodeFirstWeekday(long value, int& firstWeekday, int& cutoffQuarters);

/// The field `First weekday` of a weekday, 1 to 7, and a cut-off, 0 to 99 quarters.
int EncodeFirstWeekday(int firstWeekday, int cutoffQuarters);

// All below throw DaoError.

/// Every department, by its number.
std::vector<DepartmentRow> ReadDepartmentRows(dao::Database& database);
std::optional<DepartmentRow> FindDepartmentRow(dao::Database& database, int number);

/// Adds a department with its name, order and week; words and managers stay Null. Returns its number.
int AddDepartmentRow(dao::Database& database, const DepartmentRow& row);
/// Writes name, order, week and words. Throws 3021 when the department is gone.
void ChangeDepartmentRow(dao::Database& database, const DepartmentRow& row);
/// Writes what the managers may do, and their passwords. Throws 3021 when the department is gone.
void ChangeManagers(dao::Database& database, const DepartmentRow& row);
/// False when the department was gone already.
bool DeleteDepartmentRow(dao::Database& database, int number);

} // namespace tvx
