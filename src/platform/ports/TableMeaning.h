// What the tables of a report tell beside what they show, for those who read it as a web page: with a screen
// reader, on a phone, or from the list of names at its top.
#pragma once

#include <bitset>
#include <cstddef>
#include <string>
#include <vector>

namespace tvx {

/// Where a column has words of the calendar, which stand in the language of the system and not in the
/// report's.
enum class CalendarWords { None, InHead, InCells };

struct ColumnMeaning {
    std::string name;
    CalendarWords calendar = CalendarWords::None;

    friend bool operator==(const ColumnMeaning&, const ColumnMeaning&) = default;
};

/// What a table is about and what its cells are. Rows of the same meaning make one table; a row with fewer
/// cells stands below its last columns.
struct TableMeaning {
    std::string caption;
    std::vector<ColumnMeaning> columns; // a head row of the table shows names of its own instead
    std::size_t rowHeads = 1;           // cells from the left that name their row
    std::string empty;                  // told by a cell that has nothing
    std::string sum;                    // names a row whose first cell is blank

    friend bool operator==(const TableMeaning&, const TableMeaning&) = default;
};

/// What a row is: cells under their columns; figures of the row above it; several rows, one for each line of
/// its cells; a line of text; or a heading of what follows.
enum class RowKind { Cells, Figures, Lines, Text, Heading };

constexpr std::size_t MostColumns = 16; // of a row that tells of cells with nothing

struct RowMeaning {
    RowKind kind = RowKind::Cells;
    std::bitset<MostColumns> empty; // cells that have nothing, by their column
};

} // namespace tvx
