#include "store/rows/DayTypeRow.h"

#include "platform/dao/Database.h"
#include "store/rows/RowFields.h"

namespace tvx {
namespace {

struct AllFields {
    using Row = DayTypeRow;
    static void Of(auto& row, auto&& field) {
        field("Symbol", row.symbol);
        field("Explaination", row.explanation);
        field("Dep number", row.depNumber);
    }
};

dao::Recordset Seek(dao::Database& database, int departmentNumber, std::string_view symbol) {
    dao::Recordset set = rows::OpenTable(database, "Day Types", "TD");
    set.Seek({std::int64_t{departmentNumber}, std::string(symbol)});
    return set;
}

} // namespace

Query DayTypesQuery(int departmentNumber) {
    return Query("SELECT * FROM [Day Types] WHERE [Dep number] = ")
        .With(departmentNumber, " ORDER BY [Symbol] ASC;");
}

std::vector<DayTypeRow> ReadDayTypeRows(dao::Database& database, int departmentNumber) {
    dao::Recordset set = DayTypesQuery(departmentNumber).Open(database);
    return rows::ReadAll<AllFields>(set);
}

std::optional<DayTypeRow> FindDayTypeRow(dao::Database& database, int departmentNumber,
                                         std::string_view symbol) {
    dao::Recordset set = Seek(database, departmentNumber, symbol);
    return rows::Found<AllFields>(set);
}

void AddDayTypeRow(dao::Database& database, const DayTypeRow& row) {
    dao::Recordset set = database.OpenRecordset("Day Types");
    set.AddNew();
    rows::Record<AllFields>(set).Write(row);
    set.Update();
}

bool ChangeDayTypeRow(dao::Database& database, std::string_view symbol, const DayTypeRow& row) {
    dao::Recordset set = Seek(database, row.depNumber, symbol);
    if (set.NoMatch()) return false;
    set.Edit();
    rows::Record<AllFields>(set).Write(row);
    set.Update();
    return true;
}

bool DeleteDayTypeRow(dao::Database& database, int departmentNumber, std::string_view symbol) {
    dao::Recordset set = Seek(database, departmentNumber, symbol);
    if (set.NoMatch()) return false;
    set.Delete();
    return true;
}

void DeleteDayTypeRows(dao::Database& database, int departmentNumber) {
    rows::DeleteWhere(database, "Day Types", "Dep number", departmentNumber);
}

} // namespace tvx
