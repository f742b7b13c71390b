#include "reports/page/VpDocument.h"

#include "platform/basic/Text.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

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

Colour PaperColour(Colour colour) {
    constexpr Colour OfTheDesktop = 0x80000000U;
    constexpr Colour Surface = RGB(240, 240, 240);
    if ((colour & OfTheDesktop) == 0) return colour;
    return colour == ButtonFace ? Surface : QBColor(0);
}

VpDocument::VpDocument(const FontMeasures& measures, const Paper& paper)
    : measures_(measures), paper_(paper), wantedPaper_(paper) {}

void VpDocument::Font(const ReportFont& font) {
    font_ = font;
    if (font_.name.empty()) font_.name = "Arial";
}

Twips VpDocument::PageWidth() const {
    if (open_) return Across();
    const bool across = wanted_ == PageOrientation::Landscape;
    return (across ? wantedPaper_.height : wantedPaper_.width) - 2 * wantedPaper_.margin;
}

Twips VpDocument::PageHeight() const {
    if (open_) return Down();
    const bool across = wanted_ == PageOrientation::Landscape;
    return (across ? wantedPaper_.width : wantedPaper_.height) - 2 * wantedPaper_.margin;
}

Twips VpDocument::TextWidth(std::string_view text) const {
    return measures_.Width(font_, text);
}

Twips VpDocument::TextHeight(std::string_view) const {
    return measures_.Height(font_);
}

bool VpDocument::Fits(const ReportFont& font, const std::vector<WidestText>& texts) const {
    return std::all_of(texts.begin(), texts.end(), [&](const WidestText& widest) {
        ReportFont measured = font;
        measured.bold = widest.bold;
        return measures_.Width(measured, widest.text) <= widest.room;
    });
}

std::optional<double> VpDocument::FittingSize(const std::vector<WidestText>& texts) const {
    ReportFont font = font_;
    while (!Fits(font, texts)) {
        font.size = std::ceil(font.size * 2 - 1) / 2; // the next half below
        if (font.size < SmallestFittingSize) return std::nullopt;
    }
    return font.size;
}

Twips VpDocument::Across() const {
    return (orientation_ == PageOrientation::Landscape ? paper_.height : paper_.width) - 2 * paper_.margin;
}

Twips VpDocument::Down() const {
    return (orientation_ == PageOrientation::Landscape ? paper_.width : paper_.height) - 2 * paper_.margin;
}

int VpDocument::FontIndex(const ReportFont& font) const {
    const auto known = std::find(fonts_.begin(), fonts_.end(), font);
    if (known != fonts_.end()) return static_cast<int>(known - fonts_.begin());
    fonts_.push_back(font);
    return static_cast<int>(fonts_.size()) - 1;
}

void VpDocument::StartDoc() {
    pages_.assign(1, {});
    tables_.clear();
    laidOut_ = 0;
    fonts_.clear();
    collected_.reset();
    inPageEvent_ = false;
    orientation_ = wanted_;
    paper_ = wantedPaper_;
    open_ = true;
    x_ = y_ = 0;
    tools_ = {};
    remark_.clear();
    ForgetMeanings();
    RaisePage();
}

void VpDocument::EndDoc() {
    open_ = false;
    onPage_ = nullptr;
}

void VpDocument::OnPage(std::function<void()> draw) {
    LayOutTables(); // those that came before do not raise it
    onPage_ = [this, draw = std::move(draw)] {
        const auto before = std::tuple(font_, tools_, x_);
        auto collecting = std::exchange(collected_, std::nullopt);
        draw();
        std::tie(font_, tools_, x_) = before;
        collected_ = std::move(collecting);
    };
}

void VpDocument::NewPage() {
    if (!open_) return;
    LayOutTables();
    BeginPage();
    x_ = 0;
}

void VpDocument::BeginPage() const {
    pages_.emplace_back();
    y_ = 0;
    RaisePage();
}

/// A page that the event itself begins, because its head is higher than a page, raises none.
void VpDocument::RaisePage() const {
    top_ = 0;
    if (!onPage_ || inPageEvent_) return;
    inPageEvent_ = true;
    onPage_();
    inPageEvent_ = false;
    top_ = y_;
}

void VpDocument::CurrentY(Twips y) {
    LayOutTables();
    y_ = y;
}

Twips VpDocument::CurrentY() const {
    LayOutTables();
    return y_;
}

int VpDocument::PageCount() const {
    LayOutTables();
    return static_cast<int>(pages_.size());
}

const std::vector<PageOperation>& VpDocument::Page(int page) const {
    LayOutTables();
    return pages_.at(static_cast<std::size_t>(page) - 1);
}

void VpDocument::Draw(PageOperation operation) {
    if (!open_) return;
    LayOutTables();
    pages_.back().push_back(std::move(operation));
}

void VpDocument::Text(std::string_view text) {
    if (text.empty()) return;
    LayOutTables(); // which moves the place
    Draw(DrawnPageText{x_, y_, std::string(text), FontIndex(font_), tools_.text});
}

void VpDocument::DrawLine(Twips x1, Twips y1, Twips x2, Twips y2) {
    Draw(DrawnPageLine{x1, y1, x2, y2, tools_.pen, tools_.penWidth});
}

void VpDocument::DrawRectangle(Twips left, Twips top, Twips right, Twips bottom) {
    const bool outlined = tools_.penStyle != PenStyles::NoOutline;
    Draw(DrawnPageBox{{left, top, right, bottom}, tools_.brush, outlined, tools_.pen});
}

// ---- tables ----

void VpDocument::ForgetMeanings() {
    meanings_.assign(1, {});
    people_.assign(1, "");
    meaning_ = person_ = 0;
    next_ = {};
}

void VpDocument::Meaning(const TableMeaning& meaning) {
    const auto known = std::find(meanings_.begin(), meanings_.end(), meaning);
    meaning_ = static_cast<int>(known - meanings_.begin());
    if (known == meanings_.end()) meanings_.push_back(meaning);
}

void VpDocument::About(const std::string& name) {
    person_ = name.empty() ? 0 : static_cast<int>(people_.size());
    if (!name.empty()) people_.push_back(name);
}

const std::vector<TableColumn>& VpDocument::ColumnsOf(std::string_view format) {
    const auto known = formats_.find(format);
    if (known != formats_.end()) return known->second;
    return formats_.emplace(format, ParseTableFormat(format)).first->second;
}

void VpDocument::AddTable(std::string_view format, std::vector<std::string> cells,
                          std::optional<Colour> bodyShade) {
    if (!open_) return;
    if (bodyShade) bodyShade = PaperColour(*bodyShade);
    TableBlock block{ColumnsOf(format),       {},         tools_.border, bodyShade,
                     FontIndex(font_),        tools_.pen, meaning_,      person_,
                     std::exchange(next_, {})};
    cells.resize(block.columns.size());
    block.cells.reserve(cells.size());
    for (std::string& cell : cells) {
        if (cell.find('\r') != std::string::npos) cell = NormalizedLineEnds(cell);
        block.cells.push_back({std::move(cell), tools_.text, font_.bold});
    }
    if (collected_)
        collected_->push_back(std::move(block));
    else
        Put(std::move(block));
}

/// Tables wait until somebody asks for their places, unless they may raise a page; those of the page event
/// stand on their page alone.
void VpDocument::Put(TableBlock block) {
    if (inPageEvent_) return LayOut(block);
    tables_.push_back(std::move(block));
    if (onPage_) LayOutTables();
}

void VpDocument::StartTable() {
    collected_.emplace();
}

void VpDocument::TableCell(CellSetting setting, int row, int column, Colour value) {
    const auto isOne = [](int number, const auto& all) {
        return number >= 1 && number <= static_cast<int>(all.size());
    };
    if (!collected_ || !isOne(row, *collected_)) return;
    auto& cells = (*collected_)[static_cast<std::size_t>(row) - 1].cells;
    if (!isOne(column, cells)) return;
    TableBlockCell& cell = cells[static_cast<std::size_t>(column) - 1];
    if (setting == CellSetting::TextColor)
        cell.colour = PaperColour(value);
    else
        cell.bold = value != 0;
}

void VpDocument::EndTable() {
    auto rows = std::exchange(collected_, std::nullopt);
    if (!rows) return;
    for (TableBlock& row : *rows) Put(std::move(row));
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

void VpDocument::LayOutTables() const {
    while (laidOut_ < tables_.size()) LayOut(tables_[laidOut_++]);
}

/// A row stays together where a page has room for it; one that is taller than a page goes on on the next.
void VpDocument::LayOut(const TableBlock& block) const {
    CellLines lines;
    std::size_t most = 1;
    for (std::size_t i = 0; i < block.cells.size(); ++i) {
        const ReportFont font = FontOf(FontAt(block.font), block.cells[i]);
        lines.push_back(LinesOf(block.cells[i], block.columns[i], font,
                                WidthOf(block.columns[i], Across()) - 2 * CellPadding));
        most = std::max(most, lines.back().size());
    }
    const auto linesThatFit = [&] {
        const Twips room = Down() - CellPadding - y_;
        return static_cast<std::size_t>(
            std::max(0, room / std::max(1, measures_.Height(FontAt(block.font)))));
    };
    if (y_ > top_ && most > linesThatFit()) BeginPage();
    for (std::size_t first = 0; first < most;) {
        if (first > 0) BeginPage();
        const std::size_t end = std::min(most, first + std::max<std::size_t>(1, linesThatFit()));
        DrawPart(block, lines, {first, end});
        first = end;
    }
}

void VpDocument::DrawPart(const TableBlock& block, const CellLines& lines, LinePart part) const {
    const auto count = static_cast<Twips>(part.end - part.first);
    const Twips top = y_;
    const Twips bottom = top + count * measures_.Height(FontAt(block.font)) + CellPadding;
    if (block.shade)
        pages_.back().push_back(DrawnPageBox{{0, top, Across(), bottom}, *block.shade, false, 0});
    Twips left = 0;
    for (std::size_t i = 0; i < block.cells.size(); ++i) {
        const Twips right = left + WidthOf(block.columns[i], Across());
        DrawCell(lines[i], part, block.cells[i], block.columns[i], FontOf(FontAt(block.font), block.cells[i]),
                 {left, top, right, bottom});
        left = right;
    }
    DrawBorders(block, top, bottom);
    y_ = bottom;
}

void VpDocument::DrawCell(const std::vector<std::string>& lines, LinePart part, const TableBlockCell& cell,
                          const TableColumn& column, const ReportFont& font, TwipsBox place) const {
    const int fontIndex = FontIndex(font);
    Twips y = place.top + CellPadding / 2;
    for (std::size_t i = part.first; i < std::min(part.end, lines.size()); ++i) {
        const std::string& line = lines[i];
        if (!line.empty()) {
            const Twips textWidth = measures_.Width(font, line);
            Twips x = place.left + CellPadding;
            if (column.align == CellAlign::Centre) x = place.left + (place.Width() - textWidth) / 2;
            if (column.align == CellAlign::Right) x = place.right - CellPadding - textWidth;
            pages_.back().push_back(DrawnPageText{x, y, line, fontIndex, cell.colour});
        }
        y += measures_.Height(font);
    }
}

void VpDocument::DrawBorders(const TableBlock& block, Twips top, Twips bottom) const {
    if (block.border == TableBorders::None) return;
    Twips right = 0;
    std::vector<Twips> edges;
    for (const TableColumn& column : block.columns) edges.push_back(right += WidthOf(column, Across()));
    const auto line = [&](Twips x1, Twips y1, Twips x2, Twips y2) {
        pages_.back().push_back(DrawnPageLine{x1, y1, x2, y2, block.lines, 0});
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
