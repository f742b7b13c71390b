#include "reports/page/HtmlStyle.h"

#include "platform/basic/Number.h"
#include "reports/page/HtmlText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace tvx {
namespace {

constexpr double PointsOfRem = 12;
constexpr int TwipsPerPoint = TwipsPerInch / 72;
constexpr double PointsAcrossSheet = 510; // of the narrower usual paper inside its margins

// Lines of a cell stay whole where they are short; what may be broken is marked.
constexpr std::string_view Everywhere = R"(
h1,h2,p{margin:0;font-size:inherit;font-weight:inherit}
.line{padding:.15rem .3rem;white-space:pre-wrap;overflow-wrap:anywhere}
table{width:100%;border-collapse:collapse}
th,td{padding:.15rem .3rem;vertical-align:top;font-weight:inherit;text-align:left;white-space:pre}
.w{white-space:pre-wrap;overflow-wrap:anywhere;min-width:5em}
.box{border:1px solid #888}.columns th,.columns td{border:1px solid #888}
.grid .unseen th,.grid .unseen td{padding:0;border:0}
.n{white-space:nowrap}
.c{text-align:center}.r{text-align:right}.line.b,.b{font-weight:bold}
.share{display:inline-block}
.gap,section>p:first-child{margin-top:1.2em}.grid+.line{margin-top:.4rem}
.hidden,.none{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%);white-space:nowrap}
.names ul{display:flex;flex-wrap:wrap;gap:0 1.2rem;margin:.4rem 0;padding:0 .3rem;list-style:none}
.names a{display:inline-block;min-width:1.5rem;line-height:1.75rem;overflow-wrap:anywhere}
)";

// A row becomes a block, and its cells stand below each other. Below the names of days a person becomes a
// list of days, the figures of a day on the line of its times; of a dated row the times stand below each
// other between its date and its figures.
constexpr std::string_view OnPhones = R"(
body{font-size:.9rem}
.grid,.grid tbody{display:block}
.grid thead{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%)}
.grid td:empty{display:none}
.grid tr{display:flex;flex-wrap:wrap;column-gap:.35rem}
.grid th,.grid td{display:block;text-align:left;white-space:normal;overflow-wrap:anywhere;padding:.15rem .2rem;border:0}
.grid th{min-width:2.1em}
.share{width:auto!important}
.none{position:static;width:auto;height:auto;clip-path:none}
.wide{border-bottom:1px solid #888}
.wide tr{display:grid;grid-template-columns:2.3em 6em 1fr 2.9em 4em;column-gap:.2rem}
.wide td{grid-column:3}
.grid.wide td:nth-last-child(2){grid-column:4;grid-row:1;text-align:right}
.grid.wide td:last-child{grid-column:5;grid-row:1;text-align:right}
.grid.wide .sum{display:flex;justify-content:flex-end}
.named tbody,.listed tr{display:grid;grid-template-columns:1fr auto;padding:.2rem 0;border-bottom:1px solid #888}
.grid.named tr{display:contents}
.named th,.listed th{font-weight:bold}
.grid.named td,.grid.listed td{grid-column:1;position:relative;padding-left:13em}
.named td:empty{display:block;min-height:1.35em}
.named td::before,.listed td::before{position:absolute;left:.2rem}
.grid.sums td{padding-left:7em;min-height:2.7em}
.sums td::before{white-space:pre}
.grid.named .figures td{grid-column:2;padding-left:.2rem;text-align:right}
.grid.named .figures td:first-child{grid-row:1;min-height:0}
.grid.named .figures td::before{content:none}
.grid.named .gone,.grid.named .figures td:empty{display:none}
)";

constexpr std::string_view OnPaper = R"(
th,td{padding:.1rem .2rem}
.names{display:none}
.line{break-inside:avoid}h2{break-after:avoid}
tr,.wide,.named tbody{break-inside:avoid}
)";

double Channel(unsigned value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour c) {
    return 0.2126 * Channel(RedOf(c)) + 0.7152 * Channel(GreenOf(c)) + 0.0722 * Channel(BlueOf(c));
}

/// For each byte how wide its letter is in a usual font, in hundredths of the font's size. Of a letter beyond
/// ASCII the first byte counts.
constexpr auto LetterWidths = [] {
    std::array<unsigned char, 256> widths{};
    widths.fill(56);
    for (unsigned char c = 'A'; c <= 'Z'; ++c) widths[c] = 72;
    for (const char c : {' ', '.', ',', ':', ';', '\'', '!', '|', 'i', 'j', 'l', 'f', 't', 'I'})
        widths[static_cast<unsigned char>(c)] = 28;
    for (const char c : {'m', 'w', 'M', 'W', '%', '@'}) widths[static_cast<unsigned char>(c)] = 94;
    for (std::size_t c = 0x80; c < 0xC0; ++c) widths[c] = 0;
    for (std::size_t c = 0xC0; c < 0x100; ++c) widths[c] = 100;
    return widths;
}();

double LettersOf(std::string_view line) {
    int hundredths = 0;
    for (const char c : line) hundredths += LetterWidths[static_cast<unsigned char>(c)];
    return hundredths / 100.0;
}

/// How much wider than a usual font this one is.
double ScaleOf(const VpDocument& document, const ReportFont& font) {
    constexpr std::string_view Sample = "Wednesday 10:30a  12:00p 1234.56";
    const double usual = LettersOf(Sample) * font.size * TwipsPerPoint;
    return usual <= 0 ? 1 : std::clamp(document.WidthIn(font, Sample) / usual, 1.0, 2.0);
}

/// A font name as a style sheet may hold it between quotes.
std::string SafeFontName(const std::string& name) {
    std::string safe;
    for (const char c : name)
        if (c != '"' && c != '\\' && c != '<' && c != '>' && c != '\'' && c != '&') safe += c;
    return Escaped(safe);
}

std::string FontRule(const ReportFont& font) {
    return "\nbody{font:" + std::string(font.italic ? "italic " : "") + TrimmedNumber(font.size) +
           "pt/1.35 \"" + SafeFontName(font.name) + "\",Arial,sans-serif}";
}

/// The column that is the n-th child of its row shows its label in front of itself, a row for each.
std::string LabelRules(std::size_t table, const ColumnLabels& labels) {
    std::string rules;
    for (std::size_t i = 1; i < labels.size(); ++i) {
        const std::string cell =
            ".h" + std::to_string(table) + " td:nth-child(" + std::to_string(i + 1) + ")";
        rules += cell + "{grid-row:" + std::to_string(i + 1) + "}";
        rules += cell + "::before{content:\"" + EscapedForStyle(labels[i]) + "\"}\n";
    }
    return rules;
}

/// What the page is measured by: its font and all its letters beside each other.
struct Measures {
    ReportFont font;
    double letters = 0;
    double columns = 0;
};

Measures MeasuresOf(const VpDocument& document, const NeededWidth& need) {
    Measures measures;
    if (document.Tables().empty()) return measures;
    measures.font = document.FontAt(document.Tables().front().font);
    measures.letters = need.Letters() * ScaleOf(document, measures.font);
    measures.columns = static_cast<double>(need.Columns());
    return measures;
}

/// Width of the whole page, in halves of a rem.
double RemAcross(const Measures& measures) {
    constexpr double Column = 0.7; // padding and border
    constexpr double Edges = 1.5;
    const double letters = measures.letters * measures.font.size / PointsOfRem;
    return std::ceil((letters + measures.columns * Column + Edges) * 2) / 2;
}

/// The largest size, not above the font's own, at which the page fits a sheet.
double PrintedSize(const Measures& measures) {
    constexpr double Column = 5.5; // points
    constexpr double Smallest = 5;
    if (measures.letters <= 0) return measures.font.size;
    const double fits = (PointsAcrossSheet - measures.columns * Column) / measures.letters;
    return std::clamp(std::floor(fits * 10) / 10, std::min(Smallest, measures.font.size), measures.font.size);
}

} // namespace

double ContrastOf(Colour a, Colour b) {
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Colour Readable(Colour text, Colour ground) {
    constexpr double Enough = 4.5;
    const bool darker = ContrastOf(QBColor(0), ground) >= ContrastOf(QBColor(15), ground);
    const auto step = [&](unsigned part) { return darker ? part * 9 / 10 : part + (264 - part) / 10; };
    while (ContrastOf(text, ground) < Enough)
        text = RGB(step(RedOf(text)), step(GreenOf(text)), step(BlueOf(text)));
    return text;
}

std::string HexOf(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", RedOf(colour), GreenOf(colour), BlueOf(colour));
    return text.data();
}

double& NeededWidth::Widest(std::size_t table, std::size_t fromLast) {
    if (widest_.size() <= table) widest_.resize(table + 1);
    if (widest_[table].size() <= fromLast) widest_[table].resize(fromLast + 1);
    return widest_[table][fromLast];
}

void NeededWidth::AddLine(std::size_t table, std::size_t fromLast, std::string_view line, bool bold) {
    constexpr double Bold = 1.08;
    double& widest = Widest(table, fromLast);
    widest = std::max(widest, LettersOf(line) * (bold ? Bold : 1));
}

void NeededWidth::AddWords(std::size_t table, std::size_t fromLast) {
    constexpr double Fewest = 6;
    double& widest = Widest(table, fromLast);
    widest = std::max(widest, Fewest);
}

double NeededWidth::Letters() const {
    double most = 0;
    for (const auto& columns : widest_)
        most = std::max(most, std::accumulate(columns.begin(), columns.end(), 0.0));
    return most;
}

std::size_t NeededWidth::Columns() const {
    std::size_t most = 0;
    for (const auto& columns : widest_) most = std::max(most, columns.size());
    return most;
}

std::string PageStyle(const VpDocument& document, const NeededWidth& need,
                      const std::vector<ColumnLabels>& labels) {
    constexpr double Phone = 40; // rem
    constexpr double Desk = 75;
    const Measures measures = MeasuresOf(document, need);
    const double across = RemAcross(measures);
    std::string style = document.Tables().empty() ? "" : FontRule(measures.font);
    style += "\nbody{margin:1rem auto;padding:0 .5rem;max-width:" + TrimmedNumber(std::max(Desk, across)) +
             "rem;background:#fff;color:#000}";
    style += Everywhere;
    style += "@media screen and (max-width:" + TrimmedNumber(std::max(Phone, across)) + "rem){";
    style += OnPhones;
    for (std::size_t table = 0; table < labels.size(); ++table) style += LabelRules(table, labels[table]);
    style +=
        "}\n@media print{\nbody{margin:0;max-width:none;font-size:" + TrimmedNumber(PrintedSize(measures)) +
        "pt;-webkit-print-color-adjust:exact;print-color-adjust:exact}";
    style += OnPaper;
    return style + "}\n";
}

} // namespace tvx
