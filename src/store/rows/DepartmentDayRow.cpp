#include "store/rows/DepartmentDayRow.h"

#include "store/rows/Query.h"
#include "store/rows/RowFields.h"

namespace tvx {
namespace {

constexpr const char* Table = "Department day";
constexpr const char* Key = "Day and Dep";

struct DataFields {
    using Row = DepartmentDayRow;
    static void Of(auto& row, auto&& field) {
        field("Sales", row.sales);
        field("Transactions", row.transactions);
        field("Remarks", row.remarks);
    }
};

struct AllFields {
    using Row = DepartmentDayRow;
    static void Of(auto& row, auto&& field) {
        field("Day", row.day);
        field("Dep number", row.depNumber);
        DataFields::Of(row, field);
    }
};

void Seek(dao::Recordset& set, int depNumber, DaySerial day) {
    set.Seek({std::int64_t{day}, std::int64_t{depNumber}});
}

} // namespace

std::vector<DepartmentDayRow> ReadDepartmentDayRows(dao::Database& database, int depNumber, DaySerial first,
                                                    DaySerial last) {
    dao::Recordset set = rows::OpenTable(database, Table, Key);
    std::vector<DepartmentDayRow> found;
    for (DaySerial day = first; day <= last; ++day) {
        Seek(set, depNumber, day);
        if (auto row = rows::Found<AllFields>(set)) found.push_back(std::move(*row));
    }
    return found;
}

std::optional<DepartmentDayRow> FindDepartmentDayRow(dao::Database& database, int depNumber, DaySerial day) {
    dao::Recordset set = rows::OpenTable(database, Table, Key);
    Seek(set, depNumber, day);
    return rows::Found<AllFields>(set);
}

void PutDepartmentDayRow(dao::Database& database, const DepartmentDayRow& row) {
    dao::Recordset set = rows::OpenTable(database, Table, Key);
    Seek(set, row.depNumber, row.day);
    if (set.NoMatch()) {
        set.AddNew();
        rows::Record<AllFields>(set).Write(row);
    } else {
        set.Edit();
        rows::Record<DataFields>(set).Write(row);
    }
    set.Update();
}

void DeleteDepartmentDayRows(dao::Database& database, int depNumber) {
    rows::DeleteWhere(database, Table, "Dep number", depNumber);
}

void MoveDepartmentDayRows(dao::Database& database, DaySerial first, DaySerial last, int days) {
    dao::Recordset set = Query("SELECT [Day] FROM [Department day] WHERE [Day] between ")
                             .With(first, " and ")
                             .With(last, "")
                             .Open(database);
    rows::AddToFirstField(set, days);
}

} // namespace tvx
