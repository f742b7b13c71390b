// A row of table Day Types: a symbol for a day, and what it means in a department.
#pragma once

#include "store/rows/Query.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

struct DayTypeRow {
    int depNumber = 0;
    std::string symbol;      // one or two characters
    std::string explanation; // what it means

    friend bool operator==(const DayTypeRow&, const DayTypeRow&) = default;
};

/// The daytypes of a department in the order of their symbols.
Query DayTypesQuery(int departmentNumber);

// All below throw DaoError.

std::vector<DayTypeRow> ReadDayTypeRows(dao::Database& database, int departmentNumber);
std::optional<DayTypeRow> FindDayTypeRow(dao::Database& database, int departmentNumber,
                                         std::string_view symbol);
void AddDayTypeRow(dao::Database& database, const DayTypeRow& row);
/// Writes the row over the one of the same department that has `symbol`. False when there is none.
bool ChangeDayTypeRow(dao::Database& database, std::string_view symbol, const DayTypeRow& row);
/// False when there is none.
bool DeleteDayTypeRow(dao::Database& database, int departmentNumber, std::string_view symbol);
/// Deletes all daytypes of a department by one statement.
void DeleteDayTypeRows(dao::Database& database, int departmentNumber);

} // namespace tvx
