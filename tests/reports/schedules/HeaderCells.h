// The header cells of a web page's data cells, by the algorithm of the HTML standard.
#pragma once

#include <string>
#include <vector>

namespace tvx::test {

/// A data cell in which something stands.
struct DataCell {
    std::string text;
    std::vector<std::string> headers; // texts of the header cells that are assigned to it, in their order
};

/// The tables of a page that this program wrote, [table][cell], without those in which no data stands. Tags
/// are taken out of the texts, line ends of the page are blanks.
std::vector<std::vector<DataCell>> DataCellsOf(const std::string& page);

} // namespace tvx::test
