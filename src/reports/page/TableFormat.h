// Table format strings: a list of columns parted by "|", each with an alignment and a share of the width.
#pragma once

#include <string_view>
#include <vector>

namespace tvx {

enum class CellAlign { Left, Centre, Right };

struct TableColumn {
    CellAlign align = CellAlign::Left;
    double percent = 0;     // of the text width, 0 to 100
    bool keepLines = false; // the program has broken the lines itself
    bool head = false;      // the cell names the column below it

    friend bool operator==(const TableColumn&, const TableColumn&) = default;
};

/// Columns of a format such as "<~15.5%|^~12%;". The marks "<", "^" and ">" align, "~" keeps the lines as
/// they are, "+" marks a head cell, a number before "%" is the width; the marks "_" and "&" change nothing
/// here. A column without a width gets none.
std::vector<TableColumn> ParseTableFormat(std::string_view format);

} // namespace tvx
