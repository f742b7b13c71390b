// The kinds of fields, and what a table is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tvx::dao {

enum class FieldType {
    Text,     // at most `width` characters; compares and sorts without case
    Memo,     // text of any length
    TimeText, // `width` bytes of codes 32 to 128
    Integer,  // a whole number, meant to be small
    Long,     // a whole number
    Single,
    Double,
    Boolean,    // -1 or 0, never Null
    Date,       // day serial with the time as a fraction
    AutoNumber, // given by the engine, never used twice
};

/// One field of a table.
struct FieldDef {
    std::string name;
    FieldType type = FieldType::Text;
    std::size_t width = 0; // characters of Text, bytes of TimeText; 0 is no limit
};

/// An index: the fields in order, each by name.
struct IndexDef {
    std::string name;
    std::vector<std::string> fields;
};

/// A table: its fields in their true order, its key, and the indexes by which it is sought.
struct TableDef {
    std::string name;
    std::vector<FieldDef> fields;
    IndexDef key;                  // no fields: rows have no key of their own
    std::vector<IndexDef> indexes; // beside the key

    /// Position of a field, without regard to case; -1 when there is none.
    int PositionOf(std::string_view field) const;
    /// The key or an index of that name, without regard to case; nullptr when there is none.
    const IndexDef* FindIndex(std::string_view index) const;
};

/// A name between square brackets. Throws DaoError 3265 for a name that holds a bracket itself.
std::string Bracketed(std::string_view name);

} // namespace tvx::dao
