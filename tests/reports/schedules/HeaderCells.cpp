#include "HeaderCells.h"

#include "platform/basic/Text.h"

#include <algorithm>

namespace tvx::test {
namespace {

struct Cell {
    int x = 0;
    int y = 0;
    int width = 1;
    int group = 0; // of rows
    bool header = false;
    std::string scope;
    std::string text;
};

/// The value of an attribute of a tag; "" without it.
std::string Attribute(const std::string& tag, const std::string& name) {
    const std::size_t at = tag.find(" " + name + "=\"");
    if (at == std::string::npos) return "";
    const std::size_t from = at + name.size() + 3;
    return tag.substr(from, tag.find('"', from) - from);
}

class Table {
  public:
    /// Reads the markup between the tags of a table.
    explicit Table(const std::string& markup) {
        for (std::size_t at = 0; (at = markup.find('<', at)) != std::string::npos;) {
            const std::size_t end = markup.find('>', at);
            const std::string tag = markup.substr(at + 1, end - at - 1);
            const std::string name = tag.substr(0, tag.find(' '));
            if (name == "thead" || name == "tbody") ++group_;
            if (name == "tr") ++rows_, column_ = 0;
            at = end + 1;
            if (name == "td" || name == "th")
                Take(tag, name, markup.substr(at, markup.find("</" + name, at) - at));
        }
    }

    std::vector<DataCell> DataCells() const {
        std::vector<DataCell> data;
        for (const Cell& cell : cells_)
            if (!cell.header && !cell.text.empty()) data.push_back({cell.text, HeadersOf(cell)});
        return data;
    }

  private:
    using Cells = std::vector<const Cell*>;

    void Take(const std::string& tag, const std::string& name, const std::string& content) {
        const std::string span = Attribute(tag, "colspan");
        const int width = span.empty() ? 1 : std::stoi(span);
        cells_.push_back(
            {column_, rows_ - 1, width, group_, name == "th", Attribute(tag, "scope"), TextOf(content)});
        column_ += width;
        columns_ = std::max(columns_, column_);
    }

    static std::string TextOf(const std::string& content) {
        std::string text;
        bool inTag = false;
        for (const char c : content) {
            if (c == '<') inTag = true;
            if (!inTag) text += c == '\n' ? ' ' : c;
            if (c == '>') {
                inTag = false;
                text += ' ';
            }
        }
        return Trim(text);
    }

    const Cell* At(int x, int y) const {
        const auto covers = [&](const Cell& cell) {
            return cell.y == y && cell.x <= x && x < cell.x + cell.width;
        };
        const auto found = std::find_if(cells_.begin(), cells_.end(), covers);
        return found == cells_.end() ? nullptr : &*found;
    }

    bool HasDataIn(int firstX, int endX, int firstY, int endY) const {
        return std::any_of(cells_.begin(), cells_.end(), [&](const Cell& cell) {
            return !cell.header && cell.x < endX && cell.x + cell.width > firstX && cell.y >= firstY &&
                   cell.y < endY;
        });
    }
    bool IsColumnHeader(const Cell& cell) const {
        return cell.scope == "col" || (cell.scope.empty() && !HasDataIn(0, columns_, cell.y, cell.y + 1));
    }
    bool IsRowHeader(const Cell& cell) const {
        return cell.scope == "row" || (cell.scope.empty() && !IsColumnHeader(cell) &&
                                       !HasDataIn(cell.x, cell.x + cell.width, 0, rows_));
    }

    /// The internal algorithm for scanning and assigning header cells.
    void Scan(int x, int y, int dx, int dy, Cells& headers) const {
        Cells opaque;
        Cells block;
        bool inBlock = false;
        for (x += dx, y += dy; x >= 0 && y >= 0; x += dx, y += dy) {
            const Cell* cell = At(x, y);
            if (cell == nullptr) continue;
            if (cell->header) {
                inBlock = true;
                block.push_back(cell);
                if (!IsBlocked(*cell, dx, opaque)) headers.push_back(cell);
            } else if (inBlock) {
                inBlock = false;
                opaque.insert(opaque.end(), block.begin(), block.end());
                block.clear();
            }
        }
    }

    bool IsBlocked(const Cell& cell, int dx, const Cells& opaque) const {
        return std::any_of(opaque.begin(), opaque.end(),
                           [&](const Cell* other) {
                               return dx == 0 ? other->x == cell.x && other->width == cell.width
                                              : other->y == cell.y;
                           }) ||
               (dx == 0 ? !IsColumnHeader(cell) : !IsRowHeader(cell));
    }

    std::vector<std::string> HeadersOf(const Cell& cell) const {
        Cells headers;
        Scan(cell.x, cell.y, -1, 0, headers);
        for (int x = cell.x; x < cell.x + cell.width; ++x) Scan(x, cell.y, 0, -1, headers);
        for (const Cell& other : cells_)
            if (other.header && other.scope == "rowgroup" && other.group == cell.group &&
                other.x < cell.x + cell.width && other.y <= cell.y)
                headers.push_back(&other);
        std::vector<std::string> texts;
        for (const Cell* header : headers)
            if (!header->text.empty() && std::find(texts.begin(), texts.end(), header->text) == texts.end())
                texts.push_back(header->text);
        return texts;
    }

    std::vector<Cell> cells_;
    int rows_ = 0;
    int columns_ = 0;
    int column_ = 0; // of the next cell
    int group_ = 0;
};

} // namespace

std::vector<std::vector<DataCell>> DataCellsOf(const std::string& page) {
    std::vector<std::vector<DataCell>> tables;
    for (std::size_t at = 0; (at = page.find("<table", at)) != std::string::npos; ++at) {
        const std::size_t from = page.find('>', at) + 1;
        auto cells = Table(page.substr(from, page.find("</table>", at) - from)).DataCells();
        if (!cells.empty()) tables.push_back(std::move(cells));
    }
    return tables;
}

} // namespace tvx::test
