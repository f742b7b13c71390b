#include "reports/page/ReportFit.h"

#include "platform/basic/Number.h"
#include "reports/page/ReportText.h"

#include <algorithm>
#include <cmath>

namespace tvx {
namespace {

constexpr double LineSpacing = 1.1;
constexpr std::string_view Gap = " "; // between a text and its neighbour

void SetFontSize(Vp& vp, double size) {
    ReportFont font = vp.Font();
    font.size = size;
    vp.Font(font);
}

std::string DrawnAt(const Vp& vp) {
    return "Drawn at " + TrimmedNumber(vp.Font().size) + " points";
}

} // namespace

void ReportFit::Needs(const WidestText& text, const std::string& shortest) {
    if (text.text.empty()) return;
    whole_.emplace(text.text, text.room, text.bold);
    shortest_.emplace(shortest, text.room, text.bold);
}

void ReportFit::NeedsLines(double lines) {
    lines_ = std::max(lines_, lines);
}

std::vector<WidestText> ReportFit::ListOf(const Texts& texts) {
    std::vector<WidestText> list;
    list.reserve(texts.size());
    for (const auto& [text, room, bold] : texts) list.push_back({text + std::string(Gap), room, bold});
    return list;
}

/// Smaller than the widths ask for where that brings all lines onto the page; else as the widths ask.
void ReportFit::SetSizeForLines(Vp& vp) const {
    const double asked = vp.Font().size;
    const auto overflows = [&] { return lines_ * GridLine(vp) > vp.PageHeight(); };
    while (overflows() && vp.Font().size - 0.5 >= SmallestFittingSize) SetFontSize(vp, vp.Font().size - 0.5);
    if (overflows()) SetFontSize(vp, asked);
}

Fitting ReportFit::SetSize(Vp& vp) const {
    const double chosen = vp.Font().size;
    if (const auto size = vp.FittingSize(ListOf(whole_))) {
        SetFontSize(vp, *size);
        SetSizeForLines(vp);
        if (vp.Font().size < chosen) vp.Remark(DrawnAt(vp) + " so that everything fits");
        return Fitting::Whole;
    }
    SetFontSize(vp, std::min(chosen, SmallestFittingSize));
    const bool fits = vp.FittingSize(ListOf(shortest_)).has_value();
    vp.Remark(fits ? DrawnAt(vp) + ", long words cut" : "");
    return fits ? Fitting::Cut : Fitting::None;
}

double GridLine(const Vp& vp) {
    return std::max<Twips>(1, vp.TextHeight("V")) * LineSpacing;
}

void DrawFoot(Vp& vp) {
    if (vp.Remark().empty()) return;
    const bool bold = vp.Font().bold;
    vp.FontBold(false);
    TextAt(vp, 0, vp.PageHeight() - vp.TextHeight(vp.Remark()), vp.Remark());
    vp.FontBold(bold);
}

Twips HeightAboveFoot(const Vp& vp) {
    if (vp.Remark().empty()) return vp.PageHeight();
    return vp.PageHeight() - static_cast<Twips>(std::lround(GridLine(vp)));
}

void DrawTooSmall(Vp& vp) {
    vp.Remark("The paper is too small for this report.");
    Twips y = 0;
    for (const std::string& line : MemoLines(vp, vp.Remark(), vp.PageWidth())) {
        TextAt(vp, 0, y, line);
        y += vp.TextHeight(line);
    }
}

} // namespace tvx
