// The tables of the database: the one place that names them, their fields in true order, and their indexes.
#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/FieldType.h"

#include <string>
#include <vector>

namespace tvx {

constexpr int SchemaVersion = 8; // the value of `DB Version` in `Application`

constexpr int SmallestKey = 1;
constexpr int GreatestEmployeeKey = 32767;

/// The six tables.
const std::vector<dao::TableDef>& SystemTables();

/// Makes the six tables in an empty file, in one transaction.
void CreateSystemTables(dao::Database& database);

/// The first table or field, as "Employee" or "Employee.Email", that the file lacks; "" when it has all.
std::string MissingFromFile(const dao::Database& database);

/// Throws DaoError 3265 when the file lacks a table, or a field that no upgrade can add; 3343 when its end is
/// cut off.
void RequireUsableFile(const dao::Database& database);

/// Brings a file to the present version: adds every field that it lacks, one after the other, and writes the
/// version into the current record of `application`. Fields that stand there already are passed over. All or
/// nothing: throws DaoError and leaves the file as it was; 3265 when something is missing that it cannot add.
void CheckDBversion(dao::Database& database, dao::Recordset& application);

} // namespace tvx
