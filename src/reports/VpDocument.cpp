#include "reports/VpDocument.h"

#include "platform/basic/Text.h"

#include <algorithm>
#include <cmath>

namespace tvx {
namespace {

constexpr Twips CellPadding = 45;

Twips WidthOf(const TableColumn& column, Twips textWidth) {
    return static_cast<Twips>(std::lround(textWidth * column.percent / 100));
}

/// A font of a cell: the block's, with the cell's weight.
ReportFont FontOf(ReportFont font, const TableBlockCell& cell) {
    font.bold = cell.bold;
    return font;
}

} // namespace

VpDocument::VpDocument(const FontMeasures& measures, const Paper& paper)
    : measures_(measures), paper_(paper), wantedPaper_(paper) {}

void VpDocument::Font(const ReportFont& font) {
    font_ = font;
    if (font_.name.empty()) font_.name = "Arial";
}

Twips VpDocument::PageWidth() const {
    const Paper& paper = open_ ? paper_ : wantedPaper_;
    const bool across = (open_ ? orientation_ : wanted_) == PageOrientation::Landscape;
    return (across ? paper.height : paper.width) - 2 * paper.margin;
}

Twips VpDocument::PageHeight() const {
    const Paper& paper = open_ ? paper_ : wantedPaper_;
    const bool across = (open_ ? orientation_ : wanted_) == PageOrientation::Landscape;
    return (across ? paper.width : paper.height) - 2 * paper.margin;
}

Twips VpDocument::TextWidth(std::string_view text) const {
    return measures_.Width(font_, text);
}

Twips VpDocument::TextHeight(std::string_view) const {
    return measures_.Height(font_);
}

int VpDocument::FontIndex(const ReportFont& font) {
    const auto known = std::find(fonts_.begin(), fonts_.end(), font);
    if (known != fonts_.end()) return static_cast<int>(known - fonts_.begin());
    fonts_.push_back(font);
    return static_cast<int>(fonts_.size()) - 1;
}

void VpDocument::StartDoc() {
    pages_.assign(1, {});
    tables_.clear();
    fonts_.clear();
    touchedUp_.reset();
    touchingUp_ = false;
    orientation_ = wanted_;
    paper_ = wantedPaper_;
    open_ = true;
    x_ = y_ = 0;
    textColor_ = penColor_ = 0;
    penStyle_ = PenStyles::Solid;
    penWidth_ = 0;
    brushColor_ = QBColor(15);
    border_ = TableBorders::None;
}

void VpDocument::NewPage() {
    if (!open_) return;
    pages_.emplace_back();
    x_ = y_ = 0;
}

void VpDocument::Draw(PageOperation operation) {
    if (open_) pages_.back().push_back(std::move(operation));
}

void VpDocument::Text(std::string_view text) {
    if (text.empty()) return;
    Draw(DrawnPageText{x_, y_, std::string(text), FontIndex(font_), textColor_});
}

void VpDocument::DrawLine(Twips x1, Twips y1, Twips x2, Twips y2) {
    Draw(DrawnPageLine{x1, y1, x2, y2, penColor_, penWidth_});
}

void VpDocument::DrawRectangle(Twips left, Twips top, Twips right, Twips bottom) {
    const bool outlined = penStyle_ != PenStyles::NoOutline;
    Draw(DrawnPageBox{{left, top, right, bottom}, brushColor_, outlined, penColor_});
}

// ---- tables ----

void VpDocument::AddTable(std::string_view format, const std::vector<std::string>& cells,
                          std::optional<Colour> bodyShade) {
    if (!open_) return;
    TableBlock block{ParseTableFormat(format), {}, border_, bodyShade, FontIndex(font_), CurrentPage()};
    for (std::size_t i = 0; i < block.columns.size(); ++i)
        block.cells.push_back({i < cells.size() ? NormalizedLineEnds(cells[i]) : "", textColor_, font_.bold});
    if (touchingUp_)
        touchedUp_ = std::move(block);
    else
        LayOut(block);
}

void VpDocument::StartTable() {
    touchingUp_ = true;
    touchedUp_.reset();
}

void VpDocument::TableCell(CellSetting setting, int row, int column, Colour value) {
    if (!touchedUp_ || row != 1 || column < 1 || column > static_cast<int>(touchedUp_->cells.size())) return;
    TableBlockCell& cell = touchedUp_->cells[static_cast<std::size_t>(column) - 1];
    if (setting == CellSetting::TextColor)
        cell.colour = value;
    else
        cell.bold = value != 0;
}

void VpDocument::EndTable() {
    touchingUp_ = false;
    if (touchedUp_) LayOut(*touchedUp_);
    touchedUp_.reset();
}

/// The lines of a cell: as the program broke them, or wrapped at blanks to the column.
std::vector<std::string> VpDocument::LinesOf(const TableBlockCell& cell, const TableColumn& column,
                                             const ReportFont& font, Twips width) const {
    std::vector<std::string> lines = Split(cell.text, '\n');
    if (column.keepLines) return lines;
    std::vector<std::string> wrapped;
    for (const std::string& line : lines) {
        std::string present;
        for (const std::string& word : Split(line, ' ')) {
            std::string longer = present;
            if (!present.empty()) longer += ' ';
            longer += word;
            if (!present.empty() && measures_.Width(font, longer) > width) {
                wrapped.push_back(present);
                present = word;
            } else {
                present = std::move(longer);
            }
        }
        wrapped.push_back(present);
    }
    return wrapped;
}

/// A row stays together where a page has room for it; one that is taller than a page goes on on the next.
void VpDocument::LayOut(const TableBlock& block) {
    tables_.push_back(block);
    CellLines lines;
    std::size_t most = 1;
    for (std::size_t i = 0; i < block.cells.size(); ++i) {
        const ReportFont font = FontOf(FontAt(block.font), block.cells[i]);
        lines.push_back(LinesOf(block.cells[i], block.columns[i], font,
                                WidthOf(block.columns[i], PageWidth()) - 2 * CellPadding));
        most = std::max(most, lines.back().size());
    }
    const auto linesThatFit = [&] {
        const Twips room = PageHeight() - CellPadding - y_;
        return static_cast<std::size_t>(
            std::max(0, room / std::max(1, measures_.Height(FontAt(block.font)))));
    };
    if (y_ > 0 && most > linesThatFit()) NewPage();
    tables_.back().page = CurrentPage();
    for (std::size_t first = 0; first < most;) {
        if (first > 0) NewPage();
        const std::size_t end = std::min(most, first + std::max<std::size_t>(1, linesThatFit()));
        DrawPart(block, lines, {first, end});
        first = end;
    }
}

void VpDocument::DrawPart(const TableBlock& block, const CellLines& lines, LinePart part) {
    const auto count = static_cast<Twips>(part.end - part.first);
    const Twips top = y_;
    const Twips bottom = top + count * measures_.Height(FontAt(block.font)) + CellPadding;
    if (block.shade) Draw(DrawnPageBox{{0, top, PageWidth(), bottom}, *block.shade, false, 0});
    Twips left = 0;
    for (std::size_t i = 0; i < block.cells.size(); ++i) {
        const Twips right = left + WidthOf(block.columns[i], PageWidth());
        DrawCell(lines[i], part, block.cells[i], block.columns[i], FontOf(FontAt(block.font), block.cells[i]),
                 {left, top, right, bottom});
        left = right;
    }
    DrawBorders(block, top, bottom);
    y_ = bottom;
}

void VpDocument::DrawCell(const std::vector<std::string>& lines, LinePart part, const TableBlockCell& cell,
                          const TableColumn& column, const ReportFont& font, TwipsBox place) {
    const int fontIndex = FontIndex(font);
    Twips y = place.top + CellPadding / 2;
    for (std::size_t i = part.first; i < std::min(part.end, lines.size()); ++i) {
        const std::string& line = lines[i];
        if (!line.empty()) {
            const Twips textWidth = measures_.Width(font, line);
            Twips x = place.left + CellPadding;
            if (column.align == CellAlign::Centre) x = place.left + (place.Width() - textWidth) / 2;
            if (column.align == CellAlign::Right) x = place.right - CellPadding - textWidth;
            Draw(DrawnPageText{x, y, line, fontIndex, cell.colour});
        }
        y += measures_.Height(font);
    }
}

void VpDocument::DrawBorders(const TableBlock& block, Twips top, Twips bottom) {
    if (block.border == TableBorders::None) return;
    Twips right = 0;
    std::vector<Twips> edges;
    for (const TableColumn& column : block.columns) edges.push_back(right += WidthOf(column, PageWidth()));
    const auto line = [&](Twips x1, Twips y1, Twips x2, Twips y2) {
        Draw(DrawnPageLine{x1, y1, x2, y2, penColor_, 0});
    };
    line(0, top, right, top);
    line(0, bottom, right, bottom);
    line(0, top, 0, bottom);
    line(right, top, right, bottom);
    if (block.border != TableBorders::BoxColumns) return;
    edges.pop_back();
    for (const Twips x : edges) line(x, top, x, bottom);
}

} // namespace tvx
