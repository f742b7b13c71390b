#include "reports/page/HtmlDocument.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/WholeFile.h"
#include "reports/page/HtmlPlan.h"
#include "reports/page/HtmlText.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace tvx {
namespace {

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

/// The text without the blank lines at its end.
std::string_view WithoutBlankEnd(std::string_view text) {
    const std::size_t last = text.find_last_not_of(" \n");
    return text.substr(0, std::min(text.size(), text.find('\n', last)));
}

/// Numbers for the pairs of text and ground that a page has.
class PageColours {
  public:
    explicit PageColours(const VpDocument& document) {
        std::optional<Pair> last; // a cell mostly has the colours of the one before
        for (const TableBlock& block : document.Tables())
            for (const TableBlockCell& cell : block.cells)
                if (const Pair pair = PairOf(cell, block); pair != last) {
                    numbers_.try_emplace(pair, static_cast<int>(numbers_.size()));
                    last = pair;
                }
    }

    std::string Rules() const {
        std::string rules;
        for (const auto& [pair, number] : numbers_)
            rules +=
                ".k" + std::to_string(number) + "{color:" + HexOf(Readable(pair.first, pair.second)) + "}\n";
        return rules;
    }

    /// "k" and the number.
    std::string_view ClassOf(const TableBlockCell& cell, const TableBlock& block) {
        const Pair pair = PairOf(cell, block);
        if (pair != lastPair_) {
            lastPair_ = pair;
            lastClass_ = "k" + std::to_string(numbers_.at(pair));
        }
        return lastClass_;
    }

  private:
    using Pair = std::pair<Colour, Colour>; // text and ground

    static Pair PairOf(const TableBlockCell& cell, const TableBlock& block) {
        return {cell.colour, block.shade.value_or(QBColor(15))};
    }

    std::map<Pair, int> numbers_;
    std::optional<Pair> lastPair_;
    std::string lastClass_;
};

class PageWriter {
  public:
    PageWriter(const VpDocument& document, const std::string& language, const ByteSink& sink)
        : document_(document), plan_(PlanPage(document)), colours_(document),
          calendarLanguage_(language.rfind("en", 0) == 0 ? "" : " lang=\"" + Escaped(language) + "\""),
          html_(sink) {}

    void Write(const std::string& title) {
        html_ << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                 "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"
              << Escaped(title) << "</title>\n<style>" << PageStyle(document_, plan_.need, plan_.labels)
              << colours_.Rules() << "</style>\n</head>\n<body>\n<main>\n";
        const bool shown = WriteTitle(title);
        WriteNames();
        for (std::size_t i = shown ? 1 : 0; i < plan_.pieces.size(); ++i) WritePiece(plan_.pieces[i]);
        GoToSection(0);
        html_ << "</main>\n</body>\n</html>\n";
        html_.HandOn();
    }

  private:
    // ---- the top ----

    /// The title is the first line where the report shows it, else it is there for screen readers alone.
    bool WriteTitle(const std::string& title) {
        const bool shown = !plan_.pieces.empty() && plan_.pieces.front().line &&
                           LineOf(document_.Tables().front().cells.front().text, 0) == title;
        if (!shown) {
            html_ << "<h1 class=\"hidden\">" << Escaped(title) << "</h1>\n";
            return false;
        }
        const TableBlock& block = document_.Tables().front();
        WriteParagraph("h1", block, title);
        const std::string_view text = block.cells.front().text;
        if (text.size() > title.size()) WriteParagraph("p", block, text.substr(title.size() + 1));
        return true;
    }

    void WriteNames() {
        const auto& people = document_.People();
        if (people.size() < 3) return;
        html_ << "<nav class=\"names\" aria-label=\"Names\"><ul>\n";
        for (std::size_t person = 1; person < people.size(); ++person) {
            html_ << "<li><a href=\"#p" << std::to_string(person) << "\">";
            WriteName(people[person]);
            html_ << "</a></li>\n";
        }
        html_ << "</ul></nav>\n";
    }

    void WriteName(const std::string& name) {
        LineOfText line(html_);
        line.Put(Isolated(IsBlank(name) ? "No name" : Trim(name)));
    }

    // ---- lines of text ----

    void WritePiece(const PagePiece& piece) {
        const TableBlock& block = document_.Tables()[piece.first];
        if (piece.line || (section_ != 0 && block.person == 0)) GoToSection(block.person);
        if (!piece.line) return WriteTable(piece);
        const std::string_view text = block.cells.front().text;
        if (IsBlank(text))
            gap_ = gap_ || block.border == TableBorders::None;
        else
            WriteParagraph(block.row.kind == RowKind::Heading ? "h2" : "p", block, text);
    }

    /// What is about somebody stands in a section of its own, to which the list of names leads.
    void GoToSection(int person) {
        if (person == section_) return;
        if (section_ != 0) html_ << "</section>\n";
        section_ = person;
        if (section_ != 0) html_ << "<section id=\"p" << std::to_string(section_) << "\">\n";
    }

    void WriteParagraph(std::string_view tag, const TableBlock& block, std::string_view text) {
        const TableBlockCell& cell = block.cells.front();
        html_ << "<" << tag << " class=\"line " << colours_.ClassOf(cell, block)
              << AlignClass(block.columns.front().align) << BorderClass(block.border);
        if (cell.bold) html_ << " b";
        WriteGap();
        html_ << "\"";
        WriteShade(block);
        WriteDirection(text);
        html_ << ">";
        const bool share = block.columns.size() > 1;
        if (share)
            html_ << "<span class=\"share\" style=\"width:" << TrimmedNumber(block.columns.front().percent)
                  << "%\">";
        WriteLines(text, true);
        if (share) html_ << "</span>";
        html_ << "</" << tag << ">\n";
    }

    /// A blank line before.
    void WriteGap() {
        if (std::exchange(gap_, false)) html_ << " gap";
    }

    void WriteShade(const TableBlock& block) {
        if (block.shade) html_ << " style=\"background:" << HexOf(*block.shade) << "\"";
    }

    /// Only letters beyond ASCII can run from right to left.
    void WriteDirection(std::string_view text) {
        if (!IsAsciiText(text)) html_ << " dir=\"auto\"";
    }

    void WriteLines(std::string_view text, bool words) {
        for (;;) {
            const std::string_view line = text.substr(0, text.find('\n'));
            WriteLine(line, words);
            if (line.size() == text.size()) return;
            text.remove_prefix(line.size() + 1);
            html_ << "<br>";
        }
    }

    void WriteLine(std::string_view line, bool words) {
        LineOfText writer(html_);
        if (words)
            writer.PutWords(line);
        else
            writer.Put(line);
    }

    void WriteUnseen(std::string_view text) {
        html_ << "<span class=\"hidden\">";
        WriteLine(text, false);
        html_ << "</span>";
    }

    // ---- tables ----

    const TableMeaning& MeaningOf(const TableBlock& block) const {
        return document_.Meanings()[static_cast<std::size_t>(block.meaning)];
    }

    void WriteTable(const PagePiece& piece) {
        const TableBlock& first = document_.Tables()[piece.first];
        meaning_ = &MeaningOf(first);
        columns_ = first.columns.size();
        html_ << "<table class=\"grid" << (piece.named ? " named" : "") << (piece.sums ? " sums" : "")
              << (piece.wide ? " wide" : "") << (piece.lines && piece.labels ? " listed" : "");
        if (piece.labels) html_ << " h" << std::to_string(*piece.labels);
        html_ << BorderClass(first.border);
        WriteGap();
        html_ << "\">";
        WriteCaption(first);
        WriteColumns(first);
        WriteBodies(piece, WriteHead(piece));
        html_ << "</table>\n";
    }

    void WriteCaption(const TableBlock& block) {
        html_ << "<caption class=\"hidden\">";
        const std::string caption = meaning_->caption.empty() ? CaptionOf(block) : meaning_->caption;
        if (section_ > 0 && !meaning_->caption.empty()) {
            WriteName(document_.People()[static_cast<std::size_t>(section_)]);
            html_ << ": ";
        }
        WriteLine(caption, false);
        html_ << "</caption>";
    }

    /// The first line of the block that shows something.
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

    // ---- heads ----

    /// Writes the rows that name the columns; returns the block behind them.
    std::size_t WriteHead(const PagePiece& piece) {
        std::size_t next = piece.first;
        if (!piece.named) {
            if (!meaning_->columns.empty()) WriteToldHead();
            return next;
        }
        html_ << "<thead>";
        WriteShownHead(document_.Tables()[next++]);
        // Another row of heads, such as the numbers of the weeks, is named by its own first cell.
        for (; next < piece.end && IsHead(document_.Tables()[next]); ++next)
            WriteRow(document_.Tables()[next], std::nullopt);
        html_ << "</thead>";
        return next;
    }

    /// Names that the eye does not need, but whom everything else reads: whose the table is, and its columns.
    void WriteToldHead() {
        html_ << "<thead class=\"unseen\">";
        if (section_ > 0) {
            html_ << "<tr><th scope=\"col\" colspan=\"" << std::to_string(columns_)
                  << "\"><span class=\"hidden\">";
            WriteName(document_.People()[static_cast<std::size_t>(section_)]);
            html_ << "</span></th></tr>";
        }
        html_ << "<tr>";
        for (const ColumnMeaning& column : meaning_->columns) WriteToldName(column);
        html_ << "</tr></thead>";
    }

    void WriteToldName(const ColumnMeaning& column) {
        if (column.name.empty()) {
            html_ << "<td></td>";
            return;
        }
        html_ << "<th scope=\"col\"" << (column.calendar == CalendarWords::InHead ? calendarLanguage_ : "")
              << ">";
        WriteUnseen(column.name);
        html_ << "</th>";
    }

    void WriteShownHead(const TableBlock& block) {
        html_ << "<tr";
        WriteShade(block);
        html_ << ">";
        for (std::size_t i = 0; i < block.cells.size(); ++i)
            if (!IsBlank(block.cells[i].text))
                WriteShownName(block, i);
            else
                WriteToldName(i < meaning_->columns.size() ? meaning_->columns[i] : ColumnMeaning());
        html_ << "</tr>";
    }

    void WriteShownName(const TableBlock& block, std::size_t i) {
        html_ << "<th scope=\"col\"";
        WriteCalendar(i, CalendarWords::InHead);
        WriteClasses(block, i);
        html_ << ">";
        WriteLines(block.cells[i].text, false);
        html_ << "</th>";
    }

    void WriteCalendar(std::size_t column, CalendarWords where) {
        if (column < meaning_->columns.size() && meaning_->columns[column].calendar == where)
            html_ << calendarLanguage_;
    }

    // ---- rows ----

    /// The rows behind the heads; those about somebody, between others, are a group with a name.
    void WriteBodies(const PagePiece& piece, std::size_t next) {
        std::optional<int> open;
        for (; next < piece.end; ++next) {
            const TableBlock& block = document_.Tables()[next];
            if (IsEmptyBox(block)) continue;
            const int person = block.person == section_ ? 0 : block.person;
            begins_ = open != person && person > 0;
            if (open && open != person) html_ << "</tbody>\n";
            if (open != person) OpenBody(person);
            open = person;
            WriteBlock(block);
        }
        if (open) html_ << "</tbody>";
    }

    void OpenBody(int person) {
        html_ << "<tbody";
        if (person > 0) html_ << " id=\"p" << std::to_string(person) << "\"";
        html_ << ">";
    }

    void WriteBlock(const TableBlock& block) {
        if (block.row.kind != RowKind::Lines) return WriteRow(block, std::nullopt);
        const std::size_t count = LineCount(block.cells.front().text);
        for (std::size_t line = 0; line < count; ++line) WriteRow(block, line);
    }

    static std::string_view TextOf(const TableBlockCell& cell, std::optional<std::size_t> line) {
        return line ? LineOf(cell.text, *line) : std::string_view(cell.text);
    }

    /// A row of a block's cells, or of one line of them.
    void WriteRow(const TableBlock& block, std::optional<std::size_t> line) {
        html_ << "<tr";
        if (block.row.kind == RowKind::Figures) html_ << " class=\"figures\"";
        if (IsSum(block)) html_ << " class=\"sum\"";
        WriteShade(block);
        html_ << ">";
        for (std::size_t i = 0; i < block.cells.size(); ++i)
            if (const std::string_view text = TextOf(block.cells[i], line); IsBlank(text))
                WriteBlankCell(block, i);
            else
                WriteCell(block, i, text);
        html_ << "</tr>";
    }

    bool IsSum(const TableBlock& block) const {
        return !meaning_->sum.empty() && IsBlank(block.cells.front().text);
    }

    /// The first cell of a row with fewer cells reaches over what is missing.
    void WriteSpan(const TableBlock& block, std::size_t i) {
        if (i == 0 && block.cells.size() < columns_)
            html_ << " colspan=\"" << std::to_string(columns_ - block.cells.size() + 1) << "\"";
    }

    void WriteBlankCell(const TableBlock& block, std::size_t i) {
        const bool empty = i < MostColumns && block.row.empty[i];
        if (i == 0 && IsSum(block)) {
            html_ << "<th scope=\"row\"";
            WriteSpan(block, i);
            html_ << ">";
            WriteUnseen(meaning_->sum);
            html_ << "</th>";
        } else if (empty && !meaning_->empty.empty()) {
            html_ << "<td><span class=\"none\">" << meaning_->empty << "</span></td>";
        } else {
            html_ << (empty ? "<td class=\"gone\"" : "<td");
            WriteSpan(block, i);
            html_ << "></td>";
        }
    }

    void WriteCell(const TableBlock& block, std::size_t i, std::string_view text) {
        const bool named = block.row.kind != RowKind::Figures && i < meaning_->rowHeads;
        const bool person = named && i == 0 && begins_;
        html_ << (person ? "<th scope=\"rowgroup\"" : named ? "<th scope=\"row\"" : "<td");
        if (named) WriteCalendar(i, CalendarWords::InCells);
        WriteSpan(block, i);
        WriteClasses(block, i);
        WriteDirection(text);
        html_ << ">";
        if (person)
            WritePerson(text);
        else
            WriteLines(named ? WithoutBlankEnd(text) : text, false);
        html_ << (named ? "</th>" : "</td>");
    }

    /// A head cell can hold no element of a heading, but be one for those who go from heading to heading.
    void WritePerson(std::string_view text) {
        const std::string_view name = LineOf(text, 0);
        if (!IsBlank(name)) {
            html_ << "<span role=\"heading\" aria-level=\"2\">";
            WriteLine(name, false);
            html_ << "</span>";
        }
        const std::string_view rest = WithoutBlankEnd(text).substr(std::min(name.size(), text.size()));
        if (!rest.empty()) WriteLines(rest, false);
    }

    void WriteClasses(const TableBlock& block, std::size_t i) {
        const TableBlockCell& cell = block.cells[i];
        html_ << " class=\"" << colours_.ClassOf(cell, block) << AlignClass(block.columns[i].align);
        if (cell.bold) html_ << " b";
        if (IsBreakable(block, i)) html_ << " w";
        html_ << "\"";
    }

    const VpDocument& document_;
    PagePlan plan_;
    PageColours colours_;
    std::string calendarLanguage_; // of the calendar's words, as an attribute; "" where it is the page's
    Markup html_;
    int section_ = 0;  // the person whose section is open
    bool gap_ = false; // a blank line came before
    // Of the table that is being written.
    const TableMeaning* meaning_ = nullptr;
    std::size_t columns_ = 0;
    bool begins_ = false; // the present row is the first about somebody
    std::vector<std::pair<std::vector<TableColumn>, std::string>> columnGroups_; // and their markup
};

} // namespace

std::string HtmlOf(const VpDocument& document, const std::string& title, const std::string& language) {
    std::string page;
    const ByteSink sink = [&](std::string_view piece) { page += piece; };
    PageWriter(document, language, sink).Write(title);
    return page;
}

void WriteHtml(const VpDocument& document, const std::string& title, const std::string& language,
               const std::filesystem::path& file) {
    ReplaceWholeFile(file, [&](const ByteSink& sink) { PageWriter(document, language, sink).Write(title); });
}

} // namespace tvx
