#include "store/rows/Schema.h"

#include "platform/dao/DaoError.h"
#include "platform/dao/Recordset.h"

#include <algorithm>

namespace tvx {
namespace {

using dao::FieldDef;
using dao::FieldType;
using dao::TableDef;

constexpr std::size_t GenericNameWidth = 14;
constexpr std::size_t PasswordWidth = 12;

TableDef Application() {
    return {"Application",
            {{"12 or 24", FieldType::Text, 2},
             {"StartHour", FieldType::Text, 2},
             {"BarColor", FieldType::Text, 2},
             {"TimeFormat", FieldType::Text, 1},
             {"UnderAge", FieldType::Text, 3},
             {"DayOvertime", FieldType::Text, 8},
             {"WeekOvertime", FieldType::Text, 8},
             {"To Try", FieldType::Text, 2},
             {"BigBoss", FieldType::Text, PasswordWidth},
             {"DB Version", FieldType::Integer, 0}},
            {},
            {}};
}

TableDef Department() {
    return {"Department",
            {{"Dep number", FieldType::AutoNumber, 0},
             {"Department name", FieldType::Text, 30},
             {"Editor order", FieldType::Integer, 0},
             {"First weekday", FieldType::Integer, 0},
             {"Week methode pick", FieldType::Integer, 0},
             {"EmployeeNameSingle", FieldType::Text, GenericNameWidth},
             {"EmployeeNamePlural", FieldType::Text, GenericNameWidth},
             {"DayOffNameSingle", FieldType::Text, GenericNameWidth},
             {"DayOffNamePlural", FieldType::Text, GenericNameWidth},
             {"MGR1", FieldType::Text, PasswordWidth},
             {"HM1", FieldType::Boolean, 0},
             {"OKSCH1", FieldType::Boolean, 0},
             {"OKPW1", FieldType::Boolean, 0},
             {"MGR2", FieldType::Text, PasswordWidth},
             {"HM2", FieldType::Boolean, 0},
             {"OKSCH2", FieldType::Boolean, 0},
             {"OKPW2", FieldType::Boolean, 0}},
            {"Dept Nbr", {"Dep number"}},
            {}};
}

// In the order of the files that people have: a new field goes behind the last.
TableDef Employee() {
    return {"Employee",
            {{"Last name", FieldType::Text, 18},
             {"First name", FieldType::Text, 9},
             {"ID", FieldType::Text, 6},
             {"Assignment", FieldType::Text, 7},
             {"Pay", FieldType::Text, 12},
             {"Wage or Sal", FieldType::Integer, 0},
             {"Active", FieldType::Boolean, 0},
             {"Employee", FieldType::AutoNumber, 0},
             {"Street", FieldType::Text, 30},
             {"City", FieldType::Text, 20},
             {"State", FieldType::Text, 3},
             {"Zip", FieldType::Text, 10},
             {"Hire Date", FieldType::Date, 0},
             {"Birth date", FieldType::Date, 0},
             {"Phone", FieldType::Text, 15},
             {"Emergency phone", FieldType::Text, 15},
             {"Page/Cell phone", FieldType::Text, 15},
             {"Soc Sec number", FieldType::Text, 11},
             {"Comments", FieldType::Memo, 0},
             {"Dep number", FieldType::Long, 0},
             {"Avail start", FieldType::TimeText, 28},
             {"Avail stop", FieldType::TimeText, 28},
             {"Reserved 22", FieldType::Text, 1},
             {"Reserved 23", FieldType::Text, 1},
             {"Reserved 24", FieldType::Text, 1},
             {"Labor type", FieldType::Integer, 0},
             {"EbarColor", FieldType::Integer, 0},
             {"Email", FieldType::Text, 40}},
            {"Seq", {"Employee"}},
            {}};
}

TableDef DaySchedule() {
    return {"Day Schedule",
            {{"Day Julian", FieldType::Long, 0},
             {"Employee", FieldType::Integer, 0},
             {"DayType", FieldType::Text, 2},
             {"Starts & Stops", FieldType::TimeText, 14},
             {"Work hours", FieldType::Single, 0},
             {"Current Rate", FieldType::Double, 0},
             {"Salary", FieldType::Text, 1},
             {"Vacation day", FieldType::Boolean, 0}},
            {"Day and Employee", {"Day Julian", "Employee"}},
            {}};
}

TableDef DepartmentDay() {
    return {"Department day",
            {{"Day", FieldType::Long, 0},
             {"Dep number", FieldType::Long, 0},
             {"Sales", FieldType::Double, 0},
             {"Transactions", FieldType::Double, 0},
             {"Remarks", FieldType::Memo, 0}},
            {"Day and Dep", {"Day", "Dep number"}},
            {}};
}

TableDef DayTypes() {
    return {"Day Types",
            {{"Symbol", FieldType::Text, 2},
             {"Explaination", FieldType::Text, 14},
             {"Dep number", FieldType::Long, 0}},
            {"TD", {"Dep number", "Symbol"}},
            {{"Department", {"Dep number"}}}};
}

struct AddedField {
    const char* table;
    FieldDef field;
};

const std::vector<AddedField>& FieldsAddedSinceTheFirstVersion() {
    static const std::vector<AddedField> added{
        {"Day Schedule", {"Current Rate", FieldType::Double, 0}},
        {"Day Schedule", {"Salary", FieldType::Text, 1}},
        {"Day Schedule", {"Vacation day", FieldType::Boolean, 0}},
        {"Employee", {"Labor type", FieldType::Integer, 0}},
        {"Employee", {"EbarColor", FieldType::Integer, 0}},
        {"Department", {"Week methode pick", FieldType::Integer, 0}},
        {"Department", {"EmployeeNameSingle", FieldType::Text, GenericNameWidth}},
        {"Department", {"EmployeeNamePlural", FieldType::Text, GenericNameWidth}},
        {"Department", {"DayOffNameSingle", FieldType::Text, GenericNameWidth}},
        {"Department", {"DayOffNamePlural", FieldType::Text, GenericNameWidth}},
        {"Employee", {"Email", FieldType::Text, 40}},
    };
    return added;
}

bool AnUpgradeAdds(const TableDef& table, const FieldDef& field) {
    const auto& added = FieldsAddedSinceTheFirstVersion();
    return std::any_of(added.begin(), added.end(), [&](const AddedField& candidate) {
        return candidate.table == table.name && candidate.field.name == field.name;
    });
}

[[noreturn]] void FailMissing(const std::string& what) {
    throw dao::DaoError(dao::error::ItemNotFound, "Item not found in this collection: " + what);
}

/// The first table or field that the file lacks, of those that `counts` lets through; "" when it has all.
template <typename Counts>
std::string FirstMissing(const dao::Database& database, Counts counts) {
    for (const TableDef& wanted : SystemTables()) {
        if (!database.HasTable(wanted.name)) return wanted.name;
        const TableDef& present = database.Table(wanted.name);
        for (const FieldDef& field : wanted.fields)
            if (present.PositionOf(field.name) < 0 && counts(wanted, field))
                return wanted.name + "." + field.name;
    }
    return "";
}

} // namespace

const std::vector<TableDef>& SystemTables() {
    static const std::vector<TableDef> tables{Application(), Department(),    Employee(),
                                              DaySchedule(), DepartmentDay(), DayTypes()};
    return tables;
}

void CreateSystemTables(dao::Database& database) {
    dao::Transaction transaction(database);
    for (const TableDef& table : SystemTables()) database.CreateTable(table);
    transaction.Commit();
}

void CheckDBversion(dao::Database& database, dao::Recordset& application) {
    dao::Transaction transaction(database);
    for (const AddedField& added : FieldsAddedSinceTheFirstVersion()) {
        if (!database.HasTable(added.table)) continue;
        if (database.Table(added.table).PositionOf(added.field.name) < 0)
            database.AppendField(added.table, added.field);
    }
    if (const std::string missing = MissingFromFile(database); !missing.empty()) FailMissing(missing);
    application.Edit();
    application.Fields("DB Version") = SchemaVersion;
    application.Update();
    transaction.Commit();
}

std::string MissingFromFile(const dao::Database& database) {
    return FirstMissing(database, [](const TableDef&, const FieldDef&) { return true; });
}

void RequireUsableFile(const dao::Database& database) {
    database.RequireWholeFile();
    const std::string missing = FirstMissing(
        database, [](const TableDef& table, const FieldDef& field) { return !AnUpgradeAdds(table, field); });
    if (!missing.empty()) FailMissing(missing);
}

} // namespace tvx
