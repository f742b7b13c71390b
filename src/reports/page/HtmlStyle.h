// The style of a web page: colours that can be read, and widths at which nothing needs to be broken.
#pragma once

#include "platform/basic/Palette.h"
#include "reports/page/VpDocument.h"

#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// The contrast of two colours as WCAG counts it, 1 to 21.
double ContrastOf(Colour a, Colour b);
/// The colour itself, or darker, on a dark ground lighter, until its contrast is at least 4.5.
Colour Readable(Colour text, Colour ground);
/// "#rrggbb".
std::string HexOf(Colour colour);

/// What the tables of a page need so that no line of their cells is broken. The columns of a table are
/// counted from its last, where its rows end alike.
class NeededWidth {
  public:
    void AddLine(std::size_t table, std::size_t fromLast, std::string_view line, bool bold);
    /// A cell whose lines may be broken.
    void AddWords(std::size_t table, std::size_t fromLast);

    /// Widths of all letters beside each other in the widest table, as a multiple of the font's size.
    double Letters() const;
    std::size_t Columns() const;

  private:
    double& Widest(std::size_t table, std::size_t fromLast);

    std::vector<std::vector<double>> widest_; // [table][column from the last]
};

/// The labels of a table's columns on a phone.
using ColumnLabels = std::vector<std::string>;

/// The style of a page whose tables need so much: laid out for a phone where a screen is narrower, and small
/// enough for a sheet when it is printed. A table of class "h" and an index has these labels.
std::string PageStyle(const VpDocument& document, const NeededWidth& need,
                      const std::vector<ColumnLabels>& labels);

} // namespace tvx
