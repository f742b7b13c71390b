#include "store/rows/EmployeeRow.h"

#include "platform/dao/DaoError.h"
#include "store/rows/RowFields.h"

#include <array>

namespace tvx {
namespace {

constexpr const char* Table = "Employee";
constexpr const char* Key = "Seq";

/// What a person edits who may not see the pay.
struct UnpaidFields {
    using Row = EmployeeRow;
    static void Of(auto& row, auto&& field) {
        OfName(row, field);
        OfRest(row, field);
    }
    static void OfName(auto& row, auto&& field) {
        field("Last name", row.lastName);
        field("First name", row.firstName);
        field("ID", row.id);
        field("Assignment", row.assignment);
    }
    static void OfRest(auto& row, auto&& field) {
        field("Active", row.active);
        OfAddress(row, field);
        field("Comments", row.comments);
        field("Avail start", row.availStart);
        field("Avail stop", row.availStop);
        field("Labor type", row.laborType);
        field("EbarColor", row.barColor);
        field("Email", row.email);
    }

  private:
    static void OfAddress(auto& row, auto&& field) {
        field("Street", row.street);
        field("City", row.city);
        field("State", row.state);
        field("Zip", row.zip);
        field("Hire Date", row.hireDate, std::nullopt, rows::DateOnly());
        field("Birth date", row.birthDate, std::nullopt, rows::DateOnly());
        field("Phone", row.phone);
        field("Emergency phone", row.emergencyPhone);
        field("Page/Cell phone", row.cellPhone);
        field("Soc Sec number", row.socSecNumber);
    }
};

/// What a person edits.
struct PersonFields {
    using Row = EmployeeRow;
    static void Of(auto& row, auto&& field) {
        UnpaidFields::OfName(row, field);
        field("Pay", row.pay);
        field("Wage or Sal", row.wageOrSal);
        UnpaidFields::OfRest(row, field);
    }
};

struct NewFields {
    using Row = EmployeeRow;
    static void Of(auto& row, auto&& field) {
        field("Dep number", row.depNumber);
        PersonFields::Of(row, field);
    }
};

struct AllFields {
    using Row = EmployeeRow;
    static void Of(auto& row, auto&& field) {
        field("Employee", row.key);
        NewFields::Of(row, field);
    }
};

const char* OrderClause(int editorOrder) {
    constexpr std::array<const char*, 7> clauses{"",
                                                 "[Last name],[First name]",
                                                 "ID",
                                                 "Assignment",
                                                 "[Birth date]",
                                                 "[Hire date]",
                                                 "[First name],[Last name]"};
    return clauses[static_cast<std::size_t>(editorOrder)];
}

Query ByLastName(int departmentNumber) {
    return Query("SELECT * FROM Employee  WHERE [Dep number] = ")
        .With(departmentNumber, " ORDER BY [Last name] ASC;");
}

Query KeysByLastName(int departmentNumber) {
    return Query("SELECT Employee FROM Employee  WHERE [Dep number] = ")
        .With(departmentNumber, " ORDER BY [Last name] ASC;");
}

dao::Recordset Seek(dao::Database& database, int key) {
    dao::Recordset set = rows::OpenTable(database, Table, Key);
    set.Seek({std::int64_t{key}});
    return set;
}

template <typename Fields>
void Change(dao::Database& database, const EmployeeRow& row) {
    dao::Recordset set = Seek(database, row.key);
    if (set.NoMatch()) throw dao::DaoError(dao::error::RecordDeleted, "Record is deleted.");
    set.Edit();
    rows::Record<Fields>(set).Write(row);
    set.Update();
}

} // namespace

Query RosterQuery(int departmentNumber, int editorOrder, bool allDepartments) {
    Query query = allDepartments ? Query("SELECT * FROM Employee WHERE [Active] = true ORDER BY ")
                                 : Query("SELECT * FROM Employee WHERE [Dep number] = ")
                                       .With(departmentNumber, " and [Active] = true ORDER BY ");
    return query.Then(OrderClause(editorOrder)).Then(";");
}

std::vector<EmployeeRow> ReadEmployeeRows(dao::Recordset& employees) {
    return rows::ReadAll<AllFields>(employees);
}

std::vector<EmployeeRow> ReadEmployeeRows(dao::Database& database, int departmentNumber) {
    dao::Recordset set = ByLastName(departmentNumber).Open(database);
    return ReadEmployeeRows(set);
}

std::vector<int> ReadEmployeeKeys(dao::Database& database, int departmentNumber) {
    dao::Recordset set = KeysByLastName(departmentNumber).Open(database);
    std::vector<int> keys;
    for (; !set.AtEnd(); set.MoveNext()) keys.push_back(rows::Whole(set.Fields(std::size_t{0}).Long()));
    return keys;
}

std::optional<EmployeeRow> FindEmployeeRow(dao::Database& database, int key) {
    return EmployeeTable(database).Find(key);
}

struct EmployeeTable::Opened {
    dao::Recordset set;
    rows::Record<AllFields> all{set};
};

EmployeeTable::EmployeeTable(dao::Database& database)
    : opened_(new Opened{rows::OpenTable(database, Table, Key)}) {}
EmployeeTable::~EmployeeTable() = default;
EmployeeTable::EmployeeTable(EmployeeTable&& other) noexcept = default;
EmployeeTable& EmployeeTable::operator=(EmployeeTable&& other) noexcept = default;

std::optional<EmployeeRow> EmployeeTable::Find(int key) {
    opened_->set.Seek({std::int64_t{key}});
    if (opened_->set.NoMatch()) return std::nullopt;
    return opened_->all.Read();
}

std::int64_t CountEmployees(const dao::Database& database) {
    std::int64_t people = 0;
    database.Scan("SELECT count(*) FROM Employee", {},
                  [&](const dao::ScanRow& row) { people = row.Long(0); });
    return people;
}

int AddEmployeeRow(dao::Database& database, const EmployeeRow& row) {
    dao::Recordset added = rows::Add<NewFields>(database, Table, row);
    return rows::Record<AllFields>(added).Read().key;
}

void ChangeEmployeeRow(dao::Database& database, const EmployeeRow& row) {
    Change<PersonFields>(database, row);
}

void ChangeEmployeeRowButPay(dao::Database& database, const EmployeeRow& row) {
    Change<UnpaidFields>(database, row);
}

bool DeleteEmployeeRow(dao::Database& database, int key) {
    dao::Recordset set = Seek(database, key);
    if (set.NoMatch()) return false;
    set.Delete();
    return true;
}

std::vector<int> DeleteEmployeeRows(dao::Database& database, int departmentNumber) {
    std::vector<int> keys;
    database.Scan("SELECT Employee FROM Employee WHERE [Dep number] = ? ORDER BY Employee",
                  {std::int64_t{departmentNumber}},
                  [&](const dao::ScanRow& row) { keys.push_back(rows::Whole(row.Long(0))); });
    rows::DeleteWhere(database, Table, "Dep number", departmentNumber);
    return keys;
}

} // namespace tvx
