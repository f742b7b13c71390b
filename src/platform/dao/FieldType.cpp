#include "platform/dao/FieldType.h"

#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"

namespace tvx::dao {
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

std::string Bracketed(std::string_view name) {
    if (name.empty() || name.find_first_of("[]") != std::string_view::npos ||
        name.find('\0') != std::string_view::npos)
        throw DaoError(error::ItemNotFound, "Item not found in this collection: " + std::string(name));
    return "[" + std::string(name) + "]";
}

} // namespace tvx::dao
