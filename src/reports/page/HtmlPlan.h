// How the table blocks of a document become the lines and tables of a web page.
#pragma once

#include "reports/page/HtmlStyle.h"
#include "reports/page/VpDocument.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// A line of text, or the blocks from `first` to before `end` as the rows of one table.
struct PagePiece {
    std::size_t first = 0;
    std::size_t end = 0;
    bool line = false;
    bool named = false; // a row shows the names of the columns
    bool sums = false;  // rows have figures of their own below them
    bool lines = false; // blocks have a row for each of their lines
    bool wide = false;  // rows of a name, a date, several texts and two figures
    /// Of the columns on a phone, an index into the plan's.
    std::optional<std::size_t> labels = std::nullopt;
};

struct PagePlan {
    std::vector<PagePiece> pieces;
    std::vector<ColumnLabels> labels;
    NeededWidth need;
};

PagePlan PlanPage(const VpDocument& document);

/// True for a row whose cells name the columns below it.
bool IsHead(const TableBlock& block);
/// True for a line with a border in which nothing stands: a web page leaves it out.
bool IsEmptyBox(const TableBlock& block);
/// True for a text in which nothing shows.
bool IsBlank(std::string_view text);
/// True where a cell's lines may be broken: they are no times or figures.
bool IsBreakable(const TableBlock& block, std::size_t column);
/// The lines of a text; at least one.
std::size_t LineCount(std::string_view text);
/// A line of a text, from 0; "" behind the last.
std::string_view LineOf(std::string_view text, std::size_t line);

} // namespace tvx
