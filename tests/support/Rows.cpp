#include "support/Rows.h"

#include "support/RawFile.h"

#include <gtest/gtest.h>

namespace tvx::test {
namespace {

bool WalkTo(dao::Recordset& rows, const std::string& key, std::int64_t is) {
    for (; !rows.AtEnd(); rows.MoveNext())
        if (rows.Fields(key).Long() == is) return true;
    ADD_FAILURE() << "no row with " << key << " " << is;
    return false;
}

} // namespace

std::vector<std::string> RowsOf(dao::Database& db, const std::string& table,
                                std::initializer_list<const char*> fields) {
    std::vector<std::string> found;
    for (dao::Recordset rows = db.OpenRecordset(table); !rows.AtEnd(); rows.MoveNext()) {
        std::string row;
        for (const char* field : fields)
            row += (row.empty() && field == *fields.begin() ? "" : "|") +
                   dao::ToText(rows.Fields(field).Value(), "(null)");
        found.push_back(row);
    }
    return found;
}

dao::Value FieldOf(dao::Database& db, const std::string& table, const std::string& key, std::int64_t is,
                   const std::string& field) {
    dao::Recordset rows = db.OpenRecordset(table);
    return WalkTo(rows, key, is) ? rows.Fields(field).Value() : dao::Value();
}

void PutField(dao::Database& db, const std::string& table, const std::string& key, std::int64_t is,
              const std::string& field, const dao::Value& value) {
    dao::Recordset rows = db.OpenRecordset(table);
    if (!WalkTo(rows, key, is)) return;
    rows.Edit();
    rows.Fields(field) = value;
    rows.Update();
}

void RunAsAnotherProgram(const dao::Database& db, const std::string& sql) {
    RunSql(db.Path(), sql);
}

} // namespace tvx::test
