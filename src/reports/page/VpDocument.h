// A report as it was drawn: pages of texts, lines and rectangles, and the table blocks of which it is built.
#pragma once

#include "platform/ports/Vp.h"
#include "reports/page/TableFormat.h"

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace tvx {

/// Measures of fonts, in twips.
class FontMeasures {
  public:
    virtual ~FontMeasures() = default;
    virtual Twips Width(const ReportFont& font, std::string_view text) const = 0;
    /// Height of a line.
    virtual Twips Height(const ReportFont& font) const = 0;
};

struct DrawnPageText {
    Twips x = 0; // left of the text
    Twips y = 0; // top of its line
    std::string text;
    int font = 0; // index into the document's fonts
    Colour colour = 0;
};
struct DrawnPageLine {
    Twips x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Colour colour = 0;
    int width = 0;
};
struct DrawnPageBox {
    TwipsBox box;
    Colour fill = 0;
    bool outlined = false;
    Colour outline = 0;
};
using PageOperation = std::variant<DrawnPageText, DrawnPageLine, DrawnPageBox>;

/// A cell of a table block; its lines are parted by line feeds.
struct TableBlockCell {
    std::string text;
    Colour colour = 0;
    bool bold = false;
};

/// A row of a table.
struct TableBlock {
    std::vector<TableColumn> columns;
    std::vector<TableBlockCell> cells;
    TableBorders border = TableBorders::None;
    std::optional<Colour> shade;
    int font = 0;
    Colour lines = 0; // of the border
    int meaning = 0;  // index into the document's meanings
    int person = 0;   // index into the names that the document is about; 0 for nobody
    RowMeaning row;
};

/// Size of a sheet and what of it can be printed on, portrait.
struct Paper {
    Twips width = 12240;
    Twips height = 15840;
    Twips margin = 567; // on all sides; a centimetre, which every printer leaves
};

/// The colour on paper: colours of the desktop have their own there.
Colour PaperColour(Colour colour);

class VpDocument : public Vp {
  public:
    explicit VpDocument(const FontMeasures& measures, const Paper& paper = {});

    // ---- what a report draws with ----
    using Vp::Font;
    void Font(const ReportFont& font) override;
    const ReportFont& Font() const override { return font_; }
    void Orientation(PageOrientation orientation) override { wanted_ = orientation; }
    Twips PageWidth() const override;
    Twips PageHeight() const override;
    Twips TextWidth(std::string_view text) const override;
    Twips TextHeight(std::string_view text) const override;
    std::optional<double> FittingSize(const std::vector<WidestText>& texts) const override;
    void Remark(const std::string& remark) override { remark_ = remark; }
    const std::string& Remark() const override { return remark_; }
    void CurrentX(Twips x) override { x_ = x; }
    void CurrentY(Twips y) override;
    Twips CurrentX() const override { return x_; }
    Twips CurrentY() const override;
    void Text(std::string_view text) override;
    void TextColor(Colour colour) override { tools_.text = PaperColour(colour); }
    void PenColor(Colour colour) override { tools_.pen = PaperColour(colour); }
    void PenStyle(PenStyles style) override { tools_.penStyle = style; }
    void PenWidth(int width) override { tools_.penWidth = width; }
    void BrushColor(Colour colour) override { tools_.brush = PaperColour(colour); }
    void DrawLine(Twips x1, Twips y1, Twips x2, Twips y2) override;
    void DrawRectangle(Twips left, Twips top, Twips right, Twips bottom) override;
    void TableBorder(TableBorders border) override { tools_.border = border; }
    void AddTable(std::string_view format, std::vector<std::string> cells,
                  std::optional<Colour> bodyShade = std::nullopt) override;
    void StartTable() override;
    void EndTable() override;
    void TableCell(CellSetting setting, int row, int column, Colour value) override;
    void Meaning(const TableMeaning& meaning) override;
    void About(const std::string& name) override;
    void NextRow(const RowMeaning& row) override { next_ = row; }
    void OnPage(std::function<void()> draw) override;
    void StartDoc() override;
    void EndDoc() override;
    void NewPage() override;
    int CurrentPage() const override { return PageCount(); }

    // ---- what a preview, a printer or a web page is made of ----
    bool IsOpen() const { return open_; }
    int PageCount() const;
    /// Operations of a page, from 1, in the order in which they were drawn.
    const std::vector<PageOperation>& Page(int page) const;
    const std::vector<TableBlock>& Tables() const { return tables_; }
    /// Element 0 is that of tables which mean nothing but what they show.
    const std::vector<TableMeaning>& Meanings() const { return meanings_; }
    /// Names of those whom the document is about, in its order, from element 1.
    const std::vector<std::string>& People() const { return people_; }
    /// How wide a text is in a font, in twips.
    Twips WidthIn(const ReportFont& font, std::string_view text) const { return measures_.Width(font, text); }
    const ReportFont& FontAt(int index) const { return fonts_.at(static_cast<std::size_t>(index)); }
    /// Of the document that was started last.
    PageOrientation Orientation() const { return orientation_; }
    const Paper& Sheet() const { return paper_; }
    /// Another sheet; takes effect at the next StartDoc.
    void Sheet(const Paper& paper) { wantedPaper_ = paper; }

  private:
    /// The lines of a block's cells, [column][line].
    using CellLines = std::vector<std::vector<std::string>>;
    /// Some of these lines: as many as a page has room for.
    struct LinePart {
        std::size_t first = 0;
        std::size_t end = 0;
    };

    /// What texts, lines and tables are drawn with, but for the font.
    struct Tools {
        Colour text = 0;
        Colour pen = 0;
        PenStyles penStyle = PenStyles::Solid;
        int penWidth = 0;
        Colour brush = QBColor(15);
        TableBorders border = TableBorders::None;
    };

    void ForgetMeanings();
    void Put(TableBlock block);
    bool Fits(const ReportFont& font, const std::vector<WidestText>& texts) const;
    int FontIndex(const ReportFont& font) const;
    const std::vector<TableColumn>& ColumnsOf(std::string_view format);
    void Draw(PageOperation operation);
    void BeginPage() const;
    void RaisePage() const;
    /// Width and height of the printable area of the document that was started last.
    Twips Across() const;
    Twips Down() const;
    /// Draws the tables that have come since it was called last. A web page is made of tables alone and never
    /// asks for their places, so they are laid out only when somebody does.
    void LayOutTables() const;
    void LayOut(const TableBlock& block) const;
    void DrawPart(const TableBlock& block, const CellLines& lines, LinePart part) const;
    std::vector<std::string> LinesOf(const TableBlockCell& cell, const TableColumn& column,
                                     const ReportFont& font, Twips width) const;
    void DrawCell(const std::vector<std::string>& lines, LinePart part, const TableBlockCell& cell,
                  const TableColumn& column, const ReportFont& font, TwipsBox place) const;
    void DrawBorders(const TableBlock& block, Twips top, Twips bottom) const;

    const FontMeasures& measures_;
    Paper paper_;
    Paper wantedPaper_;
    ReportFont font_;
    PageOrientation wanted_ = PageOrientation::Portrait;
    PageOrientation orientation_ = PageOrientation::Portrait;
    bool open_ = false;
    Twips x_ = 0;
    Tools tools_;
    std::string remark_;
    std::vector<TableMeaning> meanings_{1};
    std::vector<std::string> people_{1};
    int meaning_ = 0; // of the tables that come next
    int person_ = 0;
    RowMeaning next_;
    std::optional<std::vector<TableBlock>> collected_; // rows, between StartTable and EndTable
    std::function<void()> onPage_;
    std::vector<TableBlock> tables_;
    std::map<std::string, std::vector<TableColumn>, std::less<>> formats_; // those seen so far
    // What laying tables out changes.
    mutable std::vector<std::vector<PageOperation>> pages_;
    mutable std::vector<ReportFont> fonts_;
    mutable std::size_t laidOut_ = 0; // of the tables
    mutable Twips y_ = 0;             // of the next text, and top of the next table
    mutable Twips top_ = 0;           // of what follows the head of the present page
    mutable bool inPageEvent_ = false;
};

} // namespace tvx
