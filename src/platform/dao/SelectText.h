// The select texts of the system, read just far enough to run them on SQLite. Private to this folder.
#pragma once

#include <string>
#include <vector>

namespace tvx::dao {

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

/// Throws DaoError 3075 when the text is no "SELECT columns FROM table ...".
SelectText ParseSelect(const std::string& sql);

} // namespace tvx::dao
