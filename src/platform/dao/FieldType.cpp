#include "platform/dao/FieldType.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"

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

std::string ColumnText(const TableDef& table, const FieldDef& field) {
    std::string text = Bracketed(field.name) + " " + DeclaredType(field);
    if (field.type == FieldType::AutoNumber)
        text += " CONSTRAINT " + Bracketed(table.key.name) + " PRIMARY KEY AUTOINCREMENT";
    if (field.type == FieldType::Boolean) text += " NOT NULL DEFAULT 0";
    if (field.type == FieldType::Text) text += " COLLATE NOCASE";
    return text;
}

} // namespace

int TableDef::PositionOf(std::string_view field) const {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (EqualsNoCase(fields[i].name, field)) return static_cast<int>(i);
    return -1;
}

const IndexDef* TableDef::FindIndex(std::string_view index) const {
    if (EqualsNoCase(key.name, index)) return &key;
    for (const IndexDef& candidate : indexes)
        if (EqualsNoCase(candidate.name, index)) return &candidate;
    return nullptr;
}

std::string DeclaredType(const FieldDef& field) {
    const std::string width = "(" + std::to_string(field.width) + ")";
    switch (field.type) {
    case FieldType::Text:
        return "TEXT" + width;
    case FieldType::Memo:
        return "MEMO TEXT";
    case FieldType::TimeText:
        return "TIME TEXT" + width;
    case FieldType::Integer:
    case FieldType::AutoNumber:
        return "INTEGER";
    case FieldType::Long:
        return "LONG INTEGER";
    case FieldType::Single:
        return "SINGLE REAL";
    case FieldType::Double:
        return "DOUBLE";
    case FieldType::Boolean:
        return "BOOLEAN";
    case FieldType::Date:
        return "DATETIME";
    }
    return "TEXT";
}

FieldDef FieldOfDeclaration(std::string name, std::string_view declaredType, bool autoNumber) {
    const std::string type = UpperCase(declaredType);
    const auto has = [&](std::string_view word) { return type.find(word) != std::string::npos; };
    FieldDef field{std::move(name), FieldType::Text, 0};
    if (const std::size_t open = type.find('('); open != std::string::npos)
        field.width = static_cast<std::size_t>(Val(type.substr(open + 1)));
    if (autoNumber)
        field.type = FieldType::AutoNumber;
    else if (has("TIME TEXT"))
        field.type = FieldType::TimeText;
    else if (has("MEMO"))
        field.type = FieldType::Memo;
    else if (has("TEXT"))
        field.type = FieldType::Text;
    else if (has("LONG"))
        field.type = FieldType::Long;
    else if (has("INT"))
        field.type = FieldType::Integer;
    else if (has("SINGLE"))
        field.type = FieldType::Single;
    else if (has("BOOL"))
        field.type = FieldType::Boolean;
    else if (has("DATE"))
        field.type = FieldType::Date;
    else if (has("DOUB") || has("REAL"))
        field.type = FieldType::Double;
    return field;
}

std::vector<std::string> CreateStatements(const TableDef& table) {
    std::string create = "CREATE TABLE " + Bracketed(table.name) + " (";
    for (std::size_t i = 0; i < table.fields.size(); ++i)
        create += (i == 0 ? "" : ", ") + ColumnText(table, table.fields[i]);
    const bool ownKey = !table.key.fields.empty() && !IsAutoNumberKey(table);
    if (ownKey)
        create += ", CONSTRAINT " + Bracketed(table.key.name) + " PRIMARY KEY (" +
                  FieldList(table.key.fields) + ")";
    create += ownKey ? ") WITHOUT ROWID" : ")";

    std::vector<std::string> statements{create};
    for (const IndexDef& index : table.indexes)
        // Tables and indexes share one space of names in the file, so an index carries its table's name.
        statements.push_back("CREATE INDEX " + Bracketed(table.name + "." + index.name) + " ON " +
                             Bracketed(table.name) + " (" + FieldList(index.fields) + ")");
    return statements;
}

std::string Bracketed(std::string_view name) {
    if (name.empty() || name.find_first_of("[]") != std::string_view::npos ||
        name.find('\0') != std::string_view::npos)
        throw DaoError(error::ItemNotFound, "Item not found in this collection: " + std::string(name));
    return "[" + std::string(name) + "]";
}

} // namespace tvx::dao
