#include "platform/dao/Dialect.h"

namespace tvx::dao {
namespace {

std::string FieldList(const std::vector<std::string>& fields) {
    std::string list;
    for (const std::string& field : fields) list += (list.empty() ? "" : ", ") + Bracketed(field);
    return list;
}

bool IsAutoNumberKey(const TableDef& table) {
    if (table.key.fields.size() != 1) return false;
    const int position = table.PositionOf(table.key.fields[0]);
    return position >= 0 && table.fields[static_cast<std::size_t>(position)].type == FieldType::AutoNumber;
}

std::string Declaration(const TableDef& table, const FieldDef& field, const Dialect& dialect) {
    std::string text = Bracketed(field.name) + " " + dialect.DeclaredType(field);
    if (field.type == FieldType::AutoNumber)
        text += " CONSTRAINT " + Bracketed(table.key.name) + dialect.CountedKey();
    if (field.type == FieldType::Boolean) text += " NOT NULL DEFAULT 0";
    if (field.type == FieldType::Text) text += dialect.WithoutCase();
    return text;
}

} // namespace

std::vector<std::string> CreateStatements(const TableDef& table, const Dialect& dialect) {
    std::string create = "CREATE TABLE " + Bracketed(table.name) + " (";
    for (std::size_t i = 0; i < table.fields.size(); ++i)
        create += (i == 0 ? "" : ", ") + Declaration(table, table.fields[i], dialect);
    const bool ownKey = !table.key.fields.empty() && !IsAutoNumberKey(table);
    if (ownKey)
        create += ", CONSTRAINT " + Bracketed(table.key.name) + " PRIMARY KEY (" +
                  FieldList(table.key.fields) + ")";
    create += ownKey ? ")" + dialect.StoredByKey() : ")";

    std::vector<std::string> statements{create};
    for (const IndexDef& index : table.indexes)
        // Tables and indexes share one space of names in the file, so an index carries its table's name.
        statements.push_back("CREATE INDEX " + Bracketed(table.name + "." + index.name) + " ON " +
                             Bracketed(table.name) + " (" + FieldList(index.fields) + ")");
    return statements;
}

std::string AddFieldStatement(const TableDef& table, const FieldDef& field, const Dialect& dialect) {
    return "ALTER TABLE " + Bracketed(table.name) + " ADD COLUMN " + Declaration(table, field, dialect);
}

} // namespace tvx::dao
