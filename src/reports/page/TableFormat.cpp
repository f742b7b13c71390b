#include "reports/page/TableFormat.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx {
namespace {

TableColumn ParseColumn(const std::string& marks) {
    TableColumn column;
    std::string number;
    for (const char mark : marks) {
        if (mark == '^')
            column.align = CellAlign::Centre;
        else if (mark == '>')
            column.align = CellAlign::Right;
        else if (mark == '~')
            column.keepLines = true;
        else if (mark == '+')
            column.head = true;
        else if ((mark >= '0' && mark <= '9') || mark == '.')
            number += mark;
    }
    column.percent = std::min(Val(number), 100.0);
    return column;
}

} // namespace

std::vector<TableColumn> ParseTableFormat(std::string_view format) {
    std::vector<TableColumn> columns;
    for (const std::string& marks : Split(format.substr(0, format.find(';')), '|'))
        columns.push_back(ParseColumn(marks));
    return columns;
}

} // namespace tvx
