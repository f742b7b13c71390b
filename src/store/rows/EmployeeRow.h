// A row of table Employee, and who is listed in which order.
#pragma once

#include "platform/basic/Date.h"
#include "store/rows/Query.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

struct EmployeeRow {
    int key = 0;       // given by the file
    int depNumber = 0; // the department
    std::string lastName;
    std::string firstName;
    std::string id;
    std::string assignment;
    std::string pay;    // as typed; its leading number is an hourly wage or a weekly salary
    int wageOrSal = 0;  // not 0: paid by the hour; written as -1
    bool active = true; // reaches the editors
    std::string street;
    std::string city;
    std::string state;
    std::string zip;
    std::optional<DaySerial> hireDate;
    std::optional<DaySerial> birthDate;
    std::string phone;
    std::string emergencyPhone;
    std::string cellPhone;
    std::string socSecNumber;
    std::string comments;
    std::string availStart; // bytes; DecodeAbsences takes them apart
    std::string availStop;
    int laborType = 0;           // 0 full time, 1 part time, 2 student, 4 other
    std::optional<int> barColor; // palette index; nothing: that of the options
    std::string email;

    friend bool operator==(const EmployeeRow&, const EmployeeRow&) = default;
};

/// The active people of a department, or of all, in a listing order of 1 to 6.
Query RosterQuery(int departmentNumber, int editorOrder, bool allDepartments);

// All below throw DaoError.

/// The rows that a query of employees gives, from its first on. The set stands at its end.
std::vector<EmployeeRow> ReadEmployeeRows(dao::Recordset& employees);
/// Everybody of a department by last name, inactive people included; and only their keys.
std::vector<EmployeeRow> ReadEmployeeRows(dao::Database& database, int departmentNumber);
std::vector<int> ReadEmployeeKeys(dao::Database& database, int departmentNumber);
std::optional<EmployeeRow> FindEmployeeRow(dao::Database& database, int key);

/// The table, open for many lookups.
class EmployeeTable {
  public:
    explicit EmployeeTable(dao::Database& database);
    ~EmployeeTable();
    EmployeeTable(EmployeeTable&& other) noexcept;
    EmployeeTable& operator=(EmployeeTable&& other) noexcept;

    std::optional<EmployeeRow> Find(int key);

  private:
    struct Opened;
    std::unique_ptr<Opened> opened_;
};

/// People of all departments, inactive ones included.
std::int64_t CountEmployees(const dao::Database& database);

/// Adds an employee to the department that the row names. Returns the key.
int AddEmployeeRow(dao::Database& database, const EmployeeRow& row);
/// Writes everything but the department. Throws 3167 when the employee is gone.
void ChangeEmployeeRow(dao::Database& database, const EmployeeRow& row);
/// The same, but pay and its kind stay as they are stored.
void ChangeEmployeeRowButPay(dao::Database& database, const EmployeeRow& row);
/// False when the employee was gone already.
bool DeleteEmployeeRow(dao::Database& database, int key);
/// Deletes everybody of a department by one statement. Returns their keys, ascending.
std::vector<int> DeleteEmployeeRows(dao::Database& database, int departmentNumber);

} // namespace tvx
