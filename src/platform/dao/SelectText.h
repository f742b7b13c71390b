// The SQL of the system, read just far enough to run it on an engine. Private to this folder.
#pragma once

#include "platform/dao/Dialect.h"

#include <string>
#include <vector>

namespace tvx::dao {

/// In the system's SQL: what tells the records of a table without a key apart.
inline constexpr const char* RowKeyWord = "_rowid_";

/// In the system's SQL: what stands behind a field that a select names behind ORDER BY. Its texts come in the
/// order of names; of numbers it changes nothing.
inline constexpr const char* NameOrderWord = "_names_";

/// A field of a key as it stands in a text.
std::string KeyName(const std::string& key);

/// A select over one table, taken apart.
struct SelectText {
    std::string columns; // between SELECT and FROM, as written
    std::string table;   // without brackets
    std::string rest;    // WHERE and ORDER BY, with yes/no words as -1 and 0 and without the closing ";"
    bool ordered = false;

    /// The text to run: `keys` are put before the columns, and break ties of the order.
    std::string Runnable(const std::vector<std::string>& keys) const;
};

/// True when a text is a select, and not the name of a table.
bool IsSelect(const std::string& text);

/// A text of the system's SQL as an engine wants it: names, marks and the key of rows in its own words.
/// Throws DaoError 3075 when a quote or bracket is left open.
std::string InDialect(const std::string& sql, const Dialect& dialect);

/// Throws DaoError 3075 when the text is no "SELECT columns FROM table ...".
SelectText ParseSelect(const std::string& sql);

} // namespace tvx::dao
