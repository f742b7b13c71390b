#include "reports/page/HtmlPlan.h"

#include <algorithm>

namespace tvx {
namespace {

bool IsLine(const TableBlock& block) {
    return block.columns.size() == 1 || block.row.kind == RowKind::Text || block.row.kind == RowKind::Heading;
}

/// True when a block is a row of the table that the one at `first` begins.
bool Continues(const std::vector<TableBlock>& blocks, std::size_t first, std::size_t i) {
    const TableBlock& head = blocks[first];
    const TableBlock& block = blocks[i];
    if (IsEmptyBox(block)) return true;
    if (IsLine(block) || block.meaning != head.meaning || block.border != head.border) return false;
    if (IsHead(block) && !IsHead(blocks[i - 1])) return false;
    return block.columns.size() == head.columns.size() ||
           (block.meaning > 0 && block.columns.size() < head.columns.size());
}

bool IsWide(const TableBlock& block) {
    constexpr std::size_t Fewest = 5;
    const std::size_t count = block.columns.size();
    return count >= Fewest && block.columns[count - 1].align == CellAlign::Right &&
           block.columns[count - 2].align == CellAlign::Right;
}

class Planner {
  public:
    explicit Planner(const VpDocument& document) : document_(document), blocks_(document.Tables()) {}

    PagePlan Plan() {
        for (std::size_t i = 0; i < blocks_.size(); i = plan_.pieces.back().end)
            plan_.pieces.push_back(IsLine(blocks_[i]) ? PagePiece{i, i + 1, true} : Table(i));
        return std::move(plan_);
    }

  private:
    PagePiece Table(std::size_t first) {
        PagePiece piece{first, first + 1};
        while (piece.end < blocks_.size() && Continues(blocks_, first, piece.end)) ++piece.end;
        for (std::size_t i = first; i < piece.end; ++i) TakeRow(piece, blocks_[i]);
        piece.named = IsHead(blocks_[first]);
        piece.wide = !piece.named && !piece.lines && IsWide(blocks_[first]);
        if (piece.named)
            piece.labels = IndexOf(ShownLabels(blocks_[first]));
        else if (piece.lines && HasDays(blocks_[first]))
            piece.labels = IndexOf(ToldLabels(blocks_[first]));
        return piece;
    }

    void TakeRow(PagePiece& piece, const TableBlock& block) {
        if (IsEmptyBox(block)) return;
        piece.sums |= block.row.kind == RowKind::Figures;
        piece.lines |= block.row.kind == RowKind::Lines;
        const auto table = static_cast<std::size_t>(block.meaning);
        for (std::size_t i = 0; i < block.cells.size(); ++i) Measure(table, block, i);
    }

    void Measure(std::size_t table, const TableBlock& block, std::size_t i) {
        const std::size_t fromLast = block.cells.size() - 1 - i;
        if (IsBreakable(block, i)) return plan_.need.AddWords(table, fromLast);
        std::string_view rest = block.cells[i].text;
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\n'));
            plan_.need.AddLine(table, fromLast, line, block.cells[i].bold);
            rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        }
    }

    const std::vector<ColumnMeaning>& ColumnsOf(const TableBlock& block) const {
        return document_.Meanings()[static_cast<std::size_t>(block.meaning)].columns;
    }

    bool HasDays(const TableBlock& block) const {
        const auto& columns = ColumnsOf(block);
        return std::any_of(columns.begin(), columns.end(), [](const ColumnMeaning& column) {
            return column.calendar == CalendarWords::InHead;
        });
    }

    static ColumnLabels ShownLabels(const TableBlock& head) {
        ColumnLabels labels;
        for (const TableBlockCell& cell : head.cells) labels.push_back(cell.text);
        return labels;
    }

    ColumnLabels ToldLabels(const TableBlock& block) const {
        ColumnLabels labels;
        for (const ColumnMeaning& column : ColumnsOf(block)) labels.push_back(column.name);
        return labels;
    }

    std::size_t IndexOf(const ColumnLabels& labels) {
        const auto known = std::find(plan_.labels.begin(), plan_.labels.end(), labels);
        const auto index = static_cast<std::size_t>(known - plan_.labels.begin());
        if (known == plan_.labels.end()) plan_.labels.push_back(labels);
        return index;
    }

    const VpDocument& document_;
    const std::vector<TableBlock>& blocks_;
    PagePlan plan_;
};

} // namespace

PagePlan PlanPage(const VpDocument& document) {
    return Planner(document).Plan();
}

bool IsHead(const TableBlock& block) {
    return block.columns.size() > 1 && std::any_of(block.columns.begin(), block.columns.end(),
                                                   [](const TableColumn& column) { return column.head; });
}

bool IsEmptyBox(const TableBlock& block) {
    return block.columns.size() == 1 && block.border != TableBorders::None &&
           IsBlank(block.cells.front().text);
}

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\n'; });
}

bool IsBreakable(const TableBlock& block, std::size_t column) {
    constexpr std::size_t LongestWhole = 18; // of times and figures
    if (!block.columns[column].keepLines) return true;
    if (column == 0 && block.person > 0 && block.row.kind == RowKind::Cells && block.columns[0].percent > 10)
        return true; // a name
    std::string_view rest = block.cells[column].text;
    while (rest.size() > LongestWhole) {
        const std::size_t length = std::min(rest.size(), rest.find('\n'));
        if (length > LongestWhole) return true;
        rest.remove_prefix(std::min(rest.size(), length + 1));
    }
    return false;
}

std::size_t LineCount(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

std::string_view LineOf(std::string_view text, std::size_t line) {
    for (; line > 0; --line) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) return "";
        text.remove_prefix(end + 1);
    }
    return text.substr(0, text.find('\n'));
}

} // namespace tvx
