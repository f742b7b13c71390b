#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/SqliteSession.h"

namespace tvx::dao {
namespace {

class Words final : public Dialect {
  public:
    std::string Name(std::string_view name) const override { return "[" + std::string(name) + "]"; }
    std::string Mark(std::size_t) const override { return "?"; }
    std::string RowKey() const override { return "_rowid_"; }
    std::string DeclaredType(const FieldDef& field) const override;
    std::string WithoutCase() const override { return " COLLATE NOCASE"; }
    std::string NameOrder() const override { return std::string("COLLATE ") + NameCollation; }
    std::string CountedKey() const override { return " PRIMARY KEY AUTOINCREMENT"; }
    std::string StoredByKey() const override { return " WITHOUT ROWID"; }
};

std::string Words::DeclaredType(const FieldDef& field) const {
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

} // namespace

const Dialect& SqliteDialect() {
    static const Words words;
    return words;
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

} // namespace tvx::dao
