#include "reports/HtmlDocument.h"

#include "platform/basic/Text.h"
#include "platform/files/WholeFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tvx {
namespace {

constexpr std::string_view Style = R"(
body{margin:1rem auto;padding:0 .5rem;max-width:75rem;background:#fff;color:#000}
table{width:100%;border-collapse:collapse;table-layout:fixed}
th,td{padding:.15rem .3rem;vertical-align:top;font-weight:inherit;overflow-wrap:anywhere;text-align:left}
.box{border:1px solid #888}.columns,.columns th,.columns td{border:1px solid #888}
.c{text-align:center}.r{text-align:right}.b{font-weight:bold}.n{font-weight:normal}
.hidden{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%);white-space:nowrap}
caption{height:0}
@media (max-width:40rem){
.grid,.grid tbody,.grid tr,.grid td,.grid th{display:block;width:auto;text-align:left}
.grid{border-bottom:1px solid #888}.grid td:empty,.grid.head{display:none}
.grid td[data-label]::before{content:attr(data-label) ": ";font-weight:bold}
.grid br{display:none}.grid .line{display:block}
}
@media print{body{margin:0;max-width:none}table{break-inside:avoid}}
)";

void AppendEscaped(std::string& html, std::string_view text) {
    for (const char c : text) {
        switch (c) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '"':
            html += "&quot;";
            break;
        case '\'':
            html += "&#39;";
            break;
        default:
            // Control characters have no place in a page.
            if (static_cast<unsigned char>(c) >= 32 || c == '\t') html += c;
        }
    }
}

std::string Escaped(std::string_view text) {
    std::string html;
    AppendEscaped(html, text);
    return html;
}

std::string HexOf(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", RedOf(colour), GreenOf(colour), BlueOf(colour));
    return text.data();
}

/// A desktop colour stands for black here.
Colour Plain(Colour colour) {
    return (colour & 0x80000000U) != 0 ? QBColor(0) : colour;
}

double Channel(unsigned value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour c) {
    return 0.2126 * Channel(RedOf(c)) + 0.7152 * Channel(GreenOf(c)) + 0.0722 * Channel(BlueOf(c));
}

const char* AlignClass(CellAlign align) {
    switch (align) {
    case CellAlign::Centre:
        return "c";
    case CellAlign::Right:
        return "r";
    case CellAlign::Left:
        break;
    }
    return "";
}

const char* BorderClass(TableBorders border) {
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

/// Writes the blocks of a document one after the other and remembers the heads that name the columns.
class PageWriter {
  public:
    explicit PageWriter(const VpDocument& document) : document_(document) {}

    std::string Write(const std::string& title, const std::string& language) {
        html_ = "<!DOCTYPE html>\n<html lang=\"" + Escaped(language) +
                "\">\n<head>\n<meta charset=\"utf-8\">\n" +
                "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
                Escaped(title) + "</title>\n<style>" + std::string(Style) + FontRule() +
                "</style>\n</head>\n<body>\n<main>\n<h1 class=\"hidden\">" + Escaped(title) + "</h1>\n";
        for (const TableBlock& block : document_.Tables()) WriteBlock(block);
        html_ += "</main>\n</body>\n</html>\n";
        return std::move(html_);
    }

  private:
    std::string FontRule() const {
        if (document_.Tables().empty()) return "";
        const ReportFont& font = document_.FontAt(document_.Tables().front().font);
        std::string name;
        for (const char c : font.name)
            if (c != '"' && c != '\\' && c != '<' && c != '>' && static_cast<unsigned char>(c) >= 32)
                name += c;
        return "body{font:" + std::string(font.italic ? "italic " : "") +
               std::to_string(font.size).substr(0, 4) + "pt/1.35 \"" + name + "\",Arial,sans-serif}\n";
    }

    void WriteBlock(const TableBlock& block) {
        const bool grid = block.columns.size() > 1;
        const bool head = IsHead(block);
        if (head) TakeHeads(block);
        html_ += "<table class=\"" + std::string(grid ? "grid" : "line") + (head ? " head" : "") +
                 BorderClass(block.border) + "\"" + (grid ? "" : " role=\"presentation\"") + ">";
        if (grid) {
            html_ += "<caption class=\"hidden\">";
            AppendEscaped(html_, CaptionOf(block));
            html_ += "</caption>";
        }
        WriteColumns(block);
        html_ += block.shade ? "<tbody><tr style=\"background:" + HexOf(*block.shade) + "\">" : "<tbody><tr>";
        for (std::size_t i = 0; i < block.cells.size(); ++i) WriteCell(block, i, grid);
        html_ += "</tr></tbody></table>\n";
    }

    void TakeHeads(const TableBlock& block) {
        heads_.clear();
        for (const TableBlockCell& cell : block.cells) heads_.push_back(FirstLine(cell.text));
    }

    static std::string FirstLine(const std::string& text) { return text.substr(0, text.find('\n')); }

    static std::string CaptionOf(const TableBlock& block) {
        for (const TableBlockCell& cell : block.cells)
            if (!Trim(cell.text).empty()) return FirstLine(cell.text);
        return "Schedule";
    }

    void WriteColumns(const TableBlock& block) {
        html_ += "<colgroup>";
        for (const TableColumn& column : block.columns) {
            std::array<char, 40> width{};
            std::snprintf(width.data(), width.size(), "<col style=\"width:%.4g%%\">", column.percent);
            html_ += width.data();
        }
        html_ += "</colgroup>";
    }

    void WriteCell(const TableBlock& block, std::size_t i, bool grid) {
        const TableBlockCell& cell = block.cells[i];
        const bool head =
            grid && (IsHead(block) ? !Trim(cell.text).empty() : i == 0 && !Trim(cell.text).empty());
        const char* tag = head ? "th" : "td";
        const Colour ground = block.shade ? *block.shade : QBColor(15);
        html_ += std::string("<") + tag;
        if (head) html_ += IsHead(block) ? " scope=\"col\"" : " scope=\"row\"";
        const std::string classes = std::string(AlignClass(block.columns[i].align)) + (cell.bold ? " b" : "");
        if (!classes.empty()) html_ += " class=\"" + classes + "\"";
        html_ += " dir=\"auto\" style=\"color:" + HexOf(Readable(Plain(cell.colour), Plain(ground))) + "\"";
        if (!head && grid && i < heads_.size() && heads_.size() == block.cells.size() &&
            !Trim(heads_[i]).empty()) {
            html_ += " data-label=\"";
            AppendEscaped(html_, heads_[i]);
            html_ += "\"";
        }
        html_ += ">";
        WriteLines(cell.text);
        html_ += std::string("</") + tag + ">";
    }

    void WriteLines(const std::string& text) {
        bool first = true;
        for (const std::string& line : Split(text, '\n')) {
            if (!first) html_ += "<br>";
            AppendEscaped(html_, first && Trim(text).empty() ? Trim(line) : line);
            first = false;
        }
    }

    const VpDocument& document_;
    std::string html_;
    std::vector<std::string> heads_; // texts of the last head row
};

} // namespace

double ContrastOf(Colour a, Colour b) {
    const auto [darker, lighter] = std::minmax(Luminance(a), Luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

Colour Readable(Colour text, Colour ground) {
    constexpr double Enough = 4.5;
    for (int step = 0; step < 20 && ContrastOf(text, ground) < Enough; ++step)
        text = RGB(RedOf(text) * 9 / 10, GreenOf(text) * 9 / 10, BlueOf(text) * 9 / 10);
    return text;
}

std::string HtmlOf(const VpDocument& document, const std::string& title, const std::string& language) {
    return PageWriter(document).Write(title, language);
}

void WriteHtml(const VpDocument& document, const std::string& title, const std::string& language,
               const std::filesystem::path& file) {
    ReplaceWholeFile(file, HtmlOf(document, title, language));
}

} // namespace tvx
