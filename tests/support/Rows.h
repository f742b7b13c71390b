// Looking at rows as the next program would see them.
#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace tvx::test {

/// Fields of every row of a table, in the order of its key, parted by "|". Null is "(null)".
std::vector<std::string> RowsOf(dao::Database& db, const std::string& table,
                                std::initializer_list<const char*> fields);

/// One field of the row whose field `key` holds a number. Fails the test when there is no such row.
dao::Value FieldOf(dao::Database& db, const std::string& table, const std::string& key, std::int64_t is,
                   const std::string& field);

/// Writes one field of that row.
void PutField(dao::Database& db, const std::string& table, const std::string& key, std::int64_t is,
              const std::string& field, const dao::Value& value);

/// Runs a statement on the file as another program would, without the widths and types of fields. Throws
/// std::runtime_error.
void RunAsAnotherProgram(const dao::Database& db, const std::string& sql);

} // namespace tvx::test
