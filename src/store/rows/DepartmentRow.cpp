#include "store/rows/DepartmentRow.h"

#include "store/rows/PasswordText.h"
#include "store/rows/RowFields.h"

namespace tvx {
namespace {

constexpr const char* Table = "Department";
constexpr const char* Key = "Dept Nbr";

struct SettingFields {
    using Row = DepartmentRow;
    static void Of(auto& row, auto&& field) {
        field("Department name", row.name);
        field("Editor order", row.editorOrder, 1);
        field("First weekday", row.firstWeekday);
        field("Week methode pick", row.weekMethod);
    }
};

struct ProfileFields {
    using Row = DepartmentRow;
    static void Of(auto& row, auto&& field) {
        SettingFields::Of(row, field);
        field("EmployeeNameSingle", row.employeeNameSingle, "Employee");
        field("EmployeeNamePlural", row.employeeNamePlural, "Employees");
        field("DayOffNameSingle", row.dayOffNameSingle, "Vacation day");
        field("DayOffNamePlural", row.dayOffNamePlural, "Vacation days");
    }
};

struct ManagerFields {
    using Row = DepartmentRow;
    static void Of(auto& row, auto&& field) {
        auto& [first, second] = row.managers;
        field("MGR1", first.password);
        field("HM1", first.hideWages);
        field("OKSCH1", first.allowScheduling);
        field("OKPW1", first.allowPasswords);
        field("MGR2", second.password);
        field("HM2", second.hideWages);
        field("OKSCH2", second.allowScheduling);
        field("OKPW2", second.allowPasswords);
    }
};

struct AllFields {
    using Row = DepartmentRow;
    static void Of(auto& row, auto&& field) {
        field("Dep number", row.number);
        ProfileFields::Of(row, field);
        ManagerFields::Of(row, field);
    }
};

void ClearPasswords(DepartmentRow& row) {
    for (ManagerRow& manager : row.managers) manager.password = UnscramblePassword(manager.password);
}

dao::Recordset Seek(dao::Database& database, int number) {
    dao::Recordset set = rows::OpenTable(database, Table, Key);
    set.Seek({std::int64_t{number}});
    return set;
}

template <typename Fields>
void Change(dao::Database& database, const DepartmentRow& row) {
    dao::Recordset set = Seek(database, row.number);
    set.Edit();
    rows::Record<Fields>(set).Write(row);
    set.Update();
}

} // namespace

void DecodeFirstWeekday(long value, int& firstWeekday, int& cutoffQuarters) {
    if (value < 1) {
        firstWeekday = 1;
        cutoffQuarters = 0;
    } else if (value <= 10) {
        firstWeekday = static_cast<int>(value);
    } else {
        firstWeekday = static_cast<int>(value / 100);
        cutoffQuarters = static_cast<int>(value % 100);
    }
    if (firstWeekday < 1 || firstWeekday > 7) firstWeekday = 1;
}

int EncodeFirstWeekday(int firstWeekday, int cutoffQuarters) {
    return firstWeekday * 100 + cutoffQuarters;
}

std::vector<DepartmentRow> ReadDepartmentRows(dao::Database& database) {
    dao::Recordset set = database.OpenRecordset(Table);
    std::vector<DepartmentRow> departments = rows::ReadAll<AllFields>(set);
    for (DepartmentRow& row : departments) ClearPasswords(row);
    return departments;
}

std::optional<DepartmentRow> FindDepartmentRow(dao::Database& database, int number) {
    dao::Recordset set = Seek(database, number);
    std::optional<DepartmentRow> row = rows::Found<AllFields>(set);
    if (row) ClearPasswords(*row);
    return row;
}

int AddDepartmentRow(dao::Database& database, const DepartmentRow& row) {
    dao::Recordset added = rows::Add<SettingFields>(database, Table, row);
    return rows::Record<AllFields>(added).Read().number;
}

void ChangeDepartmentRow(dao::Database& database, const DepartmentRow& row) {
    Change<ProfileFields>(database, row);
}

void ChangeManagers(dao::Database& database, const DepartmentRow& row) {
    DepartmentRow stored = row;
    for (ManagerRow& manager : stored.managers) manager.password = ScramblePassword(manager.password);
    Change<ManagerFields>(database, stored);
}

bool DeleteDepartmentRow(dao::Database& database, int number) {
    dao::Recordset set = Seek(database, number);
    if (set.NoMatch()) return false;
    set.Delete();
    return true;
}

} // namespace tvx
