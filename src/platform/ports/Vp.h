// The page layout of a report: what a report needs to draw itself, on a screen, on paper or as a web page.
#pragma once

#include "platform/basic/Palette.h"
#include "platform/basic/Twips.h"
#include "platform/ports/ReportFont.h"
#include "platform/ports/TableMeaning.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// Paper the long way up or across.
enum class PageOrientation { Portrait = 0, Landscape = 1 };

/// How a table is bordered, by the numbers of the table formats.
enum class TableBorders { None = 0, Box = 4, BoxColumns = 9 };

/// What can be touched up in a cell, by the numbers of the table formats.
enum class CellSetting { TextColor = 21, Bold = 25 };

/// Outlines of rectangles; 5 is the number of no pen.
enum class PenStyles { Solid = 0, NoOutline = 5 };

/// The widest text of a column and the room that it has there.
struct WidestText {
    std::string text;
    Twips room = 0;
    bool bold = false;
};

constexpr double SmallestFittingSize = 7; // points

/// A document is drawn between StartDoc and EndDoc. All measures are twips from the top left of the printable
/// area. Nothing here fails: what does not fit is drawn where it falls. Paper has colours of its own: where a
/// screen takes the desktop's text it is black, where it takes the desktop's surface a light grey.
class Vp {
  public:
    virtual ~Vp() = default;

    /// The font of the texts that follow.
    virtual void Font(const ReportFont& font) = 0;
    virtual const ReportFont& Font() const = 0;
    void FontBold(bool bold) {
        ReportFont font = Font();
        font.bold = bold;
        Font(font);
    }

    /// Takes effect at the next StartDoc.
    virtual void Orientation(PageOrientation orientation) = 0;
    /// Size of the printable area.
    virtual Twips PageWidth() const = 0;
    virtual Twips PageHeight() const = 0;

    /// Size of a text in the present font.
    virtual Twips TextWidth(std::string_view text) const = 0;
    virtual Twips TextHeight(std::string_view text) const = 0;

    /// The largest size, from the present font's downward by halves of a point to SmallestFittingSize, at
    /// which every text is as narrow as its room; nothing when there is none. A font that is smaller already
    /// is asked as it is. Each size is measured anew.
    virtual std::optional<double> FittingSize(const std::vector<WidestText>& texts) const = 0;

    /// What a person is told of the document as a whole, on a screen beside its pages; "" for nothing.
    /// Forgotten at StartDoc.
    virtual void Remark(const std::string& remark) = 0;
    virtual const std::string& Remark() const = 0;

    /// Where the next text goes: the top left of its first line.
    virtual void CurrentX(Twips x) = 0;
    virtual void CurrentY(Twips y) = 0;
    virtual Twips CurrentX() const = 0;
    virtual Twips CurrentY() const = 0;
    /// Writes a text; the position afterwards is not relied on.
    virtual void Text(std::string_view text) = 0;

    virtual void TextColor(Colour colour) = 0;
    virtual void PenColor(Colour colour) = 0;
    virtual void PenStyle(PenStyles style) = 0;
    /// 0 is the thinnest line.
    virtual void PenWidth(int width) = 0;
    virtual void BrushColor(Colour colour) = 0;
    virtual void DrawLine(Twips x1, Twips y1, Twips x2, Twips y2) = 0;
    virtual void DrawRectangle(Twips left, Twips top, Twips right, Twips bottom) = 0;

    /// Border of the tables that follow.
    virtual void TableBorder(TableBorders border) = 0;
    /// One row of cells at CurrentY, which moves below it; a row that does not fit begins the next page.
    /// `format` gives each column's alignment and share of the width; a line feed in a cell begins a new line
    /// there. `bodyShade` fills the row.
    virtual void AddTable(std::string_view format, std::vector<std::string> cells,
                          std::optional<Colour> bodyShade = std::nullopt) = 0;
    /// Between the two, AddTable collects the rows of one table, whose cells can be touched up; EndTable adds
    /// them in order.
    virtual void StartTable() = 0;
    virtual void EndTable() = 0;
    /// Row and column of the collected table, from 1.
    virtual void TableCell(CellSetting setting, int row, int column, Colour value) = 0;

    /// What tables mean is told by a web page alone. Meaning holds for the tables that follow, until another.
    virtual void Meaning(const TableMeaning& meaning) = 0;
    /// What follows is about this person, until another; "" for nobody. A web page lists them at its top.
    virtual void About(const std::string& name) = 0;
    /// What the next row is; the ones behind it are plain again.
    virtual void NextRow(const RowMeaning& row) = 0;

    /// What is drawn at the beginning of each page, the first included, before anything else there: a head, a
    /// foot, a frame. Set before StartDoc, or for the pages that follow; forgotten at EndDoc. Font, pen and
    /// colours are afterwards as before; what comes next stands below. A web page, which has no pages, does
    /// not show it.
    virtual void OnPage(std::function<void()> draw) = 0;

    virtual void StartDoc() = 0;
    /// A second call does nothing.
    virtual void EndDoc() = 0;
    virtual void NewPage() = 0;
    /// From 1.
    virtual int CurrentPage() const = 0;
};

/// Writes a text with its top left at a place.
inline void TextAt(Vp& vp, Twips x, Twips y, std::string_view text) {
    vp.CurrentX(x);
    vp.CurrentY(y);
    vp.Text(text);
}

/// Writes a text that ends at x.
inline void TextEndingAt(Vp& vp, Twips x, Twips y, std::string_view text) {
    TextAt(vp, x - vp.TextWidth(text), y, text);
}

/// Writes a text around x.
inline void TextCentredAt(Vp& vp, Twips x, Twips y, std::string_view text) {
    TextAt(vp, x - vp.TextWidth(text) / 2, y, text);
}

} // namespace tvx
