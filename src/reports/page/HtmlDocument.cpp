#include "reports/page/HtmlDocument.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/WholeFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <utility>

namespace tvx {
namespace {

// On a phone a row becomes a block: each cell stands on a line of its own behind the name of its column.
// Where the columns have no names the texts of a row stand below each other between its date and its figures.
// Empty cells go.
constexpr std::string_view Style = R"(
body{margin:1rem auto;padding:0 .5rem;max-width:75rem;background:#fff;color:#000}
table{width:100%;border-collapse:collapse;table-layout:fixed}
th,td{padding:.15rem .3rem;vertical-align:top;font-weight:inherit;text-align:left;
white-space:pre-wrap;overflow-wrap:anywhere}
.box{border:1px solid #888}.columns th,.columns td{border:1px solid #888}
.columns+.columns,.columns+.box,.box+.columns{margin-top:-1px}
.n{white-space:nowrap}
.c{text-align:center}.r{text-align:right}.b{font-weight:bold}
.grid+.line{margin-top:.4rem}
.hidden{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%);white-space:nowrap}
@media screen and (max-width:40rem){
body{font-size:.9rem}
.grid,.grid tbody{display:block}.grid td:empty,.head{display:none}
.grid tr{display:flex;flex-wrap:wrap;column-gap:.35rem}
.grid th,.grid td{display:block;text-align:left;white-space:normal;padding:.15rem .2rem}
.grid th{min-width:2.1em}
.push,.grid:not(.named) th.r{margin-left:auto}
.wide tr{display:grid;grid-template-columns:2.3em 6em 1fr 2.9em 4em;column-gap:.2rem}
.wide td:nth-child(n+3){grid-column:3}
.wide td:nth-last-child(2){grid-column:4;grid-row:1;text-align:right}
.wide td:last-child{grid-column:5;grid-row:1;text-align:right}
.named,.rows{border-bottom:1px solid #888}
.named tr,.rows tr{display:block}
.columns th,.columns td{border:0}
.named th{font-weight:bold}
.named td[data-label]{position:relative;padding-left:12.5em}
.named td[data-label]::before{content:attr(data-label);position:absolute;left:.2rem}
.rows th{display:none}
[data-row]::before{content:attr(data-row) " "}
}
@media print{
body{margin:0;max-width:none;-webkit-print-color-adjust:exact;print-color-adjust:exact}
table{break-inside:avoid}
}
)";

/// Characters that a page may hold: no control characters, no code points that are set aside.
bool IsForPages(char32_t c) {
    if (c < 0x20) return c == U'\t';
    if (c >= 0x7F && c < 0xA0) return false;
    return (c & 0xFFFE) != 0xFFFE && (c < 0xFDD0 || c > 0xFDEF);
}

/// A page while it is written: a great many small pieces, handed on together.
class Markup {
  public:
    explicit Markup(const ByteSink& sink) : sink_(sink) {}

    Markup& operator<<(std::string_view piece) {
        if (piece.size() > bytes_.size() - length_) HandOn();
        if (piece.size() > bytes_.size()) {
            sink_(piece);
            return *this;
        }
        std::copy_n(piece.data(), piece.size(), bytes_.data() + length_);
        length_ += piece.size();
        return *this;
    }
    /// A literal, whose length the compiler knows.
    template <std::size_t Size>
    Markup& operator<<(const char (&piece)[Size]) {
        return *this << std::string_view(piece, Size - 1);
    }
    void HandOn() { sink_({bytes_.data(), std::exchange(length_, 0)}); }

  private:
    const ByteSink& sink_;
    std::vector<char> bytes_ = std::vector<char>(0x10000);
    std::size_t length_ = 0;
};

/// A text of its own, for the same writers.
struct Letters {
    std::string text;
    Letters& operator<<(std::string_view piece) {
        text += piece;
        return *this;
    }
};

/// Characters beyond ASCII, damaged ones as a mark of replacement.
template <typename Out>
void AppendForeign(Out& html, std::string_view bytes) {
    std::string characters;
    for (const char32_t c : DecodeUtf8(bytes))
        if (IsForPages(c)) AppendUtf8(characters, c);
    html << characters;
}

/// For each byte whether it stands for itself.
constexpr auto PlainBytes = [] {
    std::array<bool, 256> plain{};
    for (std::size_t byte = 0x20; byte < 0x7F; ++byte) plain[byte] = true;
    for (const char mark : {'&', '<', '>', '"', '\''}) plain[static_cast<unsigned char>(mark)] = false;
    return plain;
}();

bool IsPlain(char c) {
    return PlainBytes[static_cast<unsigned char>(c)];
}

/// Marks of markup as references; control characters go.
template <typename Out>
void AppendMark(Out& html, char c) {
    switch (c) {
    case '&':
        html << "&amp;";
        break;
    case '<':
        html << "&lt;";
        break;
    case '>':
        html << "&gt;";
        break;
    case '"':
        html << "&quot;";
        break;
    case '\'':
        html << "&#39;";
        break;
    default:
        if (IsForPages(static_cast<unsigned char>(c))) html << std::string_view(&c, 1);
    }
}

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

/// The beginning of a text whose characters all belong to it; the text loses it.
template <typename Belongs>
std::string_view TakeRun(std::string_view& text, const Belongs& belongs) {
    std::size_t length = 0;
    while (length < text.size() && belongs(text[length])) ++length;
    const std::string_view run = text.substr(0, length);
    text.remove_prefix(length);
    return run;
}

template <typename Out>
void AppendEscaped(Out& html, std::string_view text) {
    while (!text.empty()) {
        html << TakeRun(text, IsPlain);
        if (text.empty()) return;
        if (IsAscii(text.front())) {
            AppendMark(html, text.front());
            text.remove_prefix(1);
        } else {
            AppendForeign(html, TakeRun(text, [](char c) { return !IsAscii(c); }));
        }
    }
}

std::string Escaped(std::string_view text) {
    Letters html;
    AppendEscaped(html, text);
    return html.text;
}

std::string HexOf(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", RedOf(colour), GreenOf(colour), BlueOf(colour));
    return text.data();
}

double Channel(unsigned value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour c) {
    return 0.2126 * Channel(RedOf(c)) + 0.7152 * Channel(GreenOf(c)) + 0.0722 * Channel(BlueOf(c));
}

std::string_view AlignClass(CellAlign align) {
    switch (align) {
    case CellAlign::Centre:
        return " c";
    case CellAlign::Right:
        return " r";
    case CellAlign::Left:
        break;
    }
    return "";
}

std::string_view BorderClass(TableBorders border) {
    switch (border) {
    case TableBorders::Box:
        return " box";
    case TableBorders::BoxColumns:
        return " columns";
    case TableBorders::None:
        break;
    }
    return "";
}

bool IsHead(const TableBlock& block) {
    return block.columns.size() > 1 && std::any_of(block.columns.begin(), block.columns.end(),
                                                   [](const TableColumn& column) { return column.head; });
}

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || c == '\n'; });
}

std::size_t LineCount(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

/// A line of a text, from 0.
std::string_view LineOf(std::string_view text, std::size_t line) {
    for (; line > 0; --line) text.remove_prefix(text.find('\n') + 1);
    return text.substr(0, text.find('\n'));
}

std::string OnOneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return Trim(text);
}

/// A font name as a style sheet may hold it between quotes.
std::string SafeFontName(const std::string& name) {
    std::string safe;
    for (const char c : name)
        if (c != '"' && c != '\\' && c != '<' && c != '>' && c != '\'' && c != '&') safe += c;
    return Escaped(safe);
}

/// Writes the blocks of a document one after the other and remembers the heads that name the columns.
class PageWriter {
  public:
    PageWriter(const VpDocument& document, const ByteSink& sink) : document_(document), html_(sink) {}

    void Write(const std::string& title, const std::string& language) {
        NumberColours();
        const std::string safeTitle = Escaped(title);
        html_ << "<!DOCTYPE html>\n<html lang=\"" << Escaped(language)
              << "\">\n<head>\n<meta charset=\"utf-8\">\n"
                 "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
              << safeTitle << "</title>\n<style>" << FontRule() << Style << ColourRules()
              << "</style>\n</head>\n<body>\n<main>\n<h1 class=\"hidden\">" << safeTitle << "</h1>\n";
        for (const TableBlock& block : document_.Tables()) WriteBlock(block);
        html_ << "</main>\n</body>\n</html>\n";
        html_.HandOn();
    }

  private:
    // ---- the style ----

    std::string FontRule() const {
        if (document_.Tables().empty()) return "";
        const ReportFont& font = document_.FontAt(document_.Tables().front().font);
        return "\nbody{font:" + std::string(font.italic ? "italic " : "") + TrimmedNumber(font.size) +
               "pt/1.35 \"" + SafeFontName(font.name) + "\",Arial,sans-serif}";
    }

    std::string ColourRules() const {
        std::string rules;
        for (const auto& [pair, number] : colours_)
            rules +=
                ".k" + std::to_string(number) + "{color:" + HexOf(Readable(pair.first, pair.second)) + "}\n";
        return rules;
    }

    using ColourPair = std::pair<Colour, Colour>; // text and ground

    static ColourPair ColoursOf(const TableBlockCell& cell, const TableBlock& block) {
        return {cell.colour, block.shade.value_or(QBColor(15))};
    }

    /// The style stands before what it is for, so the colours are counted first.
    void NumberColours() {
        std::optional<ColourPair> last; // a cell mostly has the colours of the one before
        for (const TableBlock& block : document_.Tables())
            for (const TableBlockCell& cell : block.cells)
                if (const ColourPair pair = ColoursOf(cell, block); pair != last) {
                    colours_.try_emplace(pair, static_cast<int>(colours_.size()));
                    last = pair;
                }
    }

    /// The class of a text colour on its ground, "k" and its number.
    std::string_view ColourClass(const TableBlockCell& cell, const TableBlock& block) {
        const ColourPair pair = ColoursOf(cell, block);
        if (pair != lastPair_) {
            lastPair_ = pair;
            lastClass_ = "k" + std::to_string(colours_.at(pair));
        }
        return lastClass_;
    }

    // ---- a table for each block ----

    /// What a row is, for all its cells.
    struct Kind {
        bool grid = false;    // more than one column
        bool head = false;    // names the columns below it
        bool named = false;   // its cells stand below named columns, with or without one more column of sums
        std::size_t sums = 0; // columns before the named ones
        bool rows = false;    // the lines of its first cell name the lines of the others
        std::size_t firstFigure = 0; // column from which a figure may be pushed
    };

    Kind KindOf(const TableBlock& block) const {
        Kind kind;
        kind.grid = block.columns.size() > 1;
        kind.head = IsHead(block);
        const std::size_t names = heads_.size();
        kind.named = names > 1 && (block.columns.size() == names || block.columns.size() == names + 1);
        kind.sums = kind.named ? block.columns.size() - names : 0;
        const std::string_view first = block.cells.empty() ? std::string_view() : block.cells.front().text;
        kind.rows = kind.grid && block.columns.size() != names && first.find('\n') != std::string::npos;
        kind.firstFigure = IsBlank(first) ? 1 : 2;
        return kind;
    }

    void WriteBlock(const TableBlock& block) {
        TakeHeads(block);
        kind_ = KindOf(block);
        pushed_ = false;
        html_ << "<table class=\"" << (kind_.grid ? "grid" : "line") << PhoneClass(block)
              << BorderClass(block.border) << (kind_.grid ? "\">" : "\" role=\"presentation\">");
        if (kind_.grid) WriteCaption(block);
        WriteColumns(block);
        html_ << "<tbody>";
        if (block.shade)
            html_ << "<tr style=\"background:" << HexOf(*block.shade) << "\">";
        else
            html_ << "<tr>";
        for (std::size_t i = 0; i < block.cells.size(); ++i) WriteCell(block, i);
        html_ << "</tr></tbody></table>\n";
    }

    /// How a phone lays out the rows.
    std::string_view PhoneClass(const TableBlock& block) const {
        if (kind_.head) return " head";
        if (kind_.named) return " named";
        if (kind_.rows) return " rows";
        return IsWide(block) ? " wide" : "";
    }

    /// The first of several head rows names the columns below them.
    void TakeHeads(const TableBlock& block) {
        const bool head = IsHead(block);
        if (head && !afterHead_) {
            heads_.clear();
            for (const TableBlockCell& cell : block.cells) heads_.push_back(Escaped(OnOneLine(cell.text)));
        }
        afterHead_ = head;
    }

    /// True for a row of a name, a date, several texts and two figures.
    static bool IsWide(const TableBlock& block) {
        constexpr std::size_t Fewest = 5;
        const std::size_t count = block.columns.size();
        return count >= Fewest && block.columns[count - 1].align == CellAlign::Right &&
               block.columns[count - 2].align == CellAlign::Right;
    }

    /// The first line of the block that shows something.
    void WriteCaption(const TableBlock& block) {
        html_ << "<caption class=\"hidden\">";
        AppendEscaped(html_, CaptionOf(block));
        html_ << "</caption>";
    }

    static std::string CaptionOf(const TableBlock& block) {
        for (const TableBlockCell& cell : block.cells)
            for (std::size_t line = 0; line < LineCount(cell.text); ++line)
                if (std::string caption = Trim(LineOf(cell.text, line)); !Escaped(caption).empty())
                    return caption;
        return "Schedule";
    }

    /// Most tables have the columns of one before them.
    void WriteColumns(const TableBlock& block) {
        const auto known = std::find_if(columnGroups_.begin(), columnGroups_.end(),
                                        [&](const auto& group) { return group.first == block.columns; });
        if (known != columnGroups_.end()) {
            html_ << known->second;
            return;
        }
        std::string group = "<colgroup>";
        for (const TableColumn& column : block.columns)
            group += "<col style=\"width:" + TrimmedNumber(column.percent) + "%\">";
        html_ << columnGroups_.emplace_back(block.columns, group + "</colgroup>").second;
    }

    // ---- cells ----

    void WriteCell(const TableBlock& block, std::size_t i) {
        const std::string& text = block.cells[i].text;
        const bool blank = IsBlank(text);
        const bool head = kind_.grid && !blank && (i == 0 || kind_.head);
        if (head)
            html_ << (kind_.head ? "<th scope=\"col\"" : "<th scope=\"row\"");
        else
            html_ << "<td";
        WriteClasses(block, i, blank);
        // Only letters beyond ASCII can run from right to left.
        if (!std::all_of(text.begin(), text.end(), IsAscii)) html_ << " dir=\"auto\"";
        if (!head) WriteLabel(i);
        html_ << ">";
        if (!blank)
            WriteLines(block, i);
        else if (!kind_.grid)
            html_ << "&nbsp;"; // a line that parts two others
        html_ << (head ? "</th>" : "</td>");
    }

    void WriteClasses(const TableBlock& block, std::size_t i, bool blank) {
        const TableBlockCell& cell = block.cells[i];
        const CellAlign align = block.columns[i].align;
        html_ << " class=\"" << ColourClass(cell, block) << AlignClass(align);
        if (cell.bold) html_ << " b";
        // A phone pushes the first figure behind the texts of a row to its right edge.
        if (!pushed_ && !blank && i >= kind_.firstFigure && align == CellAlign::Right) {
            html_ << " push";
            pushed_ = true;
        }
        html_ << "\"";
    }

    void WriteLabel(std::size_t i) {
        if (kind_.head || !kind_.named || i <= kind_.sums || heads_[i - kind_.sums].empty()) return;
        html_ << " data-label=\"" << heads_[i - kind_.sums] << "\"";
    }

    void WriteLines(const TableBlock& block, std::size_t i) {
        const std::string& text = block.cells[i].text;
        const std::string& names = block.cells.front().text;
        const bool named = kind_.rows && i > 0 && LineCount(names) == LineCount(text);
        std::string_view rest = text;
        for (std::size_t line = 0;; ++line) {
            const std::string_view words = rest.substr(0, rest.find('\n'));
            if (named && !IsBlank(words))
                WriteNamedLine(LineOf(names, line), words);
            else if (kind_.grid)
                AppendEscaped(html_, words);
            else
                WriteWords(words);
            if (words.size() == rest.size()) return;
            rest.remove_prefix(words.size() + 1);
            html_ << "<br>";
        }
    }

    /// A line of text, in which a narrow screen may break between words but not inside a date.
    void WriteWords(std::string_view line) {
        constexpr std::size_t LongestDate = 12;
        bool first = true;
        for (const std::string& word : Split(line, ' ')) {
            if (!first) html_ << " ";
            first = false;
            const bool date = word.size() <= LongestDate && word.find('-') != std::string::npos;
            if (date) html_ << "<span class=\"n\">";
            AppendEscaped(html_, word);
            if (date) html_ << "</span>";
        }
    }

    void WriteNamedLine(std::string_view name, std::string_view line) {
        html_ << "<span data-row=\"";
        AppendEscaped(html_, name);
        html_ << "\">";
        AppendEscaped(html_, line);
        html_ << "</span>";
    }

    const VpDocument& document_;
    Markup html_;
    Kind kind_;
    std::vector<std::string> heads_; // texts of the head row that is in force, escaped
    bool afterHead_ = false;
    bool pushed_ = false;               // in the present row
    std::map<ColourPair, int> colours_; // number of the class
    std::optional<ColourPair> lastPair_;
    std::string lastClass_;
    std::vector<std::pair<std::vector<TableColumn>, std::string>> columnGroups_; // and their markup
};

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

std::string HtmlOf(const VpDocument& document, const std::string& title, const std::string& language) {
    std::string page;
    PageWriter(document, [&](std::string_view piece) { page += piece; }).Write(title, language);
    return page;
}

void WriteHtml(const VpDocument& document, const std::string& title, const std::string& language,
               const std::filesystem::path& file) {
    ReplaceWholeFile(file, [&](const ByteSink& sink) { PageWriter(document, sink).Write(title, language); });
}

} // namespace tvx
