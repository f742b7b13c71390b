#include "ScheduleCase.h"

#include "editor/week/Totals.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/common/Conversions.h"
#include "support/WeekWriter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

namespace tvx::test {
namespace {

constexpr std::array<std::string_view, 8> ShortDays{"", "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

std::vector<std::string> Parts(const std::string& text, char separator) {
    std::vector<std::string> parts;
    for (const std::string& part : Split(text, separator)) parts.push_back(Trim(part));
    return parts;
}

std::vector<std::string> Words(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

int Number(const std::string& text) {
    return std::stoi(text);
}

/// "4:30" as quarters.
int Quarters(const std::string& text) {
    const auto parts = Parts(text, ':');
    return Number(parts.at(0)) * 4 + Number(parts.at(1)) / 15;
}

ScheduleKind KindIn(const std::string& word) {
    for (const auto kind : {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected})
        if (TextOf(kind) == word) return kind;
    throw std::runtime_error("no kind of schedule: " + word);
}

/// Reads the lines of one file into a case.
class CaseReader {
  public:
    explicit CaseReader(ScheduleCase& made) : made_(made), g_(made.store.g) {
        made_.store.AddDepartment("Bakery", 100, 1, 3);
        verbs_ = {
            {"department", [this](const std::string& v) { g_.department.CurrentDepName = v; }},
            {"week of", [this](const std::string& v) { date_ = SerialOf(v); }},
            {"first weekday", [this](const std::string& v) { g_.department.FirstWeekday = WeekdayIn(v); }},
            {"cut-off", [this](const std::string& v) { g_.department.DayCutoffQuarters = Quarters(v); }},
            {"week numbers", [this](const std::string& v) { g_.department.WeekMethod = Number(v); }},
            {"words", [this](const std::string& v) { TakeWords(Parts(v, '|')); }},
            {"clock",
             [this](const std::string& v) {
                 g_.application.options.ClockStyle =
                     v == "12" ? ClockStyle::TwelveHours : ClockStyle::TwentyFourHours;
             }},
            {"minutes",
             [this](const std::string& v) {
                 g_.application.options.TimeFormat = v == "60" ? TimeFormat::Minutes : TimeFormat::Hundredths;
             }},
            {"kind", [this](const std::string& v) { made_.request.kind = KindIn(v); }},
            {"output", [this](const std::string& v) { made_.html = v == "web page"; }},
            {"lines on a page", [this](const std::string& v) { lines_ = Number(v); }},
            {"print", [this](const std::string& v) { TakePrint(Parts(v, ',')); }},
            {"name option", [this](const std::string& v) { g_.reports.options.NameOption = Number(v); }},
            {"breaks over", [this](const std::string& v) { g_.reports.options.BreakThreshold = Number(v); }},
            {"who", [this](const std::string& v) { g_.reports.options.WhoToPrint = Number(v); }},
            {"last stop", [this](const std::string& v) { TakeLastStop(v); }},
            {"picked", [this](const std::string& v) { picked_ = Parts(v, ','); }},
            {"order", [this](const std::string& v) { order_ = Parts(v, ','); }},
            {"ratios", [this](const std::string& v) { TakeRatios(Parts(v, ',')); }},
            {"daytype", [this](const std::string& v) { TakeDaytype(Parts(v, '|')); }},
            {"employee", [this](const std::string& v) { TakeEmployee(Parts(v, '|')); }},
            {"sales", [this](const std::string& v) { figures_.push_back(v); }},
            {"memo", [this](const std::string& v) { memos_.push_back(v); }},
        };
    }

    void Line(const std::string& line) {
        if (Trim(line).empty() || line.front() == '#') return;
        if (line.front() == ' ') {
            days_.push_back({lastName_, Trim(line)});
            return;
        }
        const std::size_t colon = line.find(':');
        const auto verb = verbs_.find(line.substr(0, colon));
        if (colon == std::string::npos || verb == verbs_.end()) throw std::runtime_error("unknown line");
        verb->second(Trim(std::string_view(line).substr(colon + 1)));
    }

    void Finish() {
        const Department department = g_.department; // building the roster reads it again from its row
        if (lastName_.empty() && days_.empty())
            WritableWeek(g_).Resize(0); // the editor would not open on nobody
        else
            made_.store.OpenWeek(date_);
        g_.department = department;
        WritableWeek(g_).WeekStartJulian = date_;
        for (int d = 1; d <= 7; ++d)
            WritableWeek(g_).WeekDateTexts[d] =
                DateText(date_ + d - 1, "MM-DD-YYYY", made_.store.ports().region);
        g_.daytypes = daytypes_;
        g_.productivity = productivity_;
        for (const auto& [name, text] : days_) TakeDay(EmployeeOf(name), text);
        for (const std::string& text : figures_) TakeFigures(Words(text));
        for (const std::string& text : memos_) TakeMemo(text);
        for (const std::string& name : picked_) made_.request.picked.push_back(EmployeeOf(name));
        for (std::size_t i = 0; i < order_.size(); ++i) g_.roster.RowOrder[i + 1] = EmployeeOf(order_[i]);
        SumWeek(WritableWeek(g_), PayrollOf(g_), g_.cursor.CurrentDay);
        constexpr Twips GridLine = 220;
        made_.paper = {made_.request.kind == ScheduleKind::Short ? 14300 : 16000, lines_ * GridLine, 0};
    }

  private:
    DaySerial SerialOf(const std::string& text) {
        const auto serial = DateValue(text, made_.store.ports().region, made_.store.ports().clock.Today());
        if (!serial) throw std::runtime_error("no date: " + text);
        return *serial;
    }

    static int WeekdayIn(const std::string& name) {
        const auto found = std::find(ShortDays.begin() + 1, ShortDays.end(), name.substr(0, 3));
        if (found == ShortDays.end()) throw std::runtime_error("no weekday: " + name);
        return static_cast<int>(found - ShortDays.begin());
    }

    /// Day 1 to 7 of the week, by the weekday that its first day falls on.
    int DayIn(const std::string& name) const { return (WeekdayIn(name) - Weekday(date_) + 7) % 7 + 1; }

    void TakeWords(const std::vector<std::string>& words) {
        g_.department.EmployeeNameSingle = words.at(0);
        g_.department.EmployeeNamePlural = words.at(1);
        g_.department.DayOffNameSingle = words.at(2);
        g_.department.DayOffNamePlural = words.at(3);
    }

    void TakePrint(const std::vector<std::string>& what) {
        const auto asked = [&](const char* word) {
            return std::find(what.begin(), what.end(), word) != what.end();
        };
        ReportOptions& options = g_.reports.options;
        options.PrintTotalHours = asked("hours") ? 1 : 0;
        options.PrintTotalWages = asked("wages") ? 1 : 0;
        options.PrintDayComments = asked("comments");
        options.PrintTimeBars = asked("time bars");
        made_.request.productivity = asked("productivity");
        made_.request.saveSpace = asked("save space");
        g_.rights.HideWages = asked("hidden pay");
    }

    void TakeLastStop(const std::string& word) {
        made_.request.lastStop = true;
        made_.request.openWord = word == "(blank)" ? " " : word;
    }

    void TakeRatios(const std::vector<std::string>& what) {
        const auto asked = [&](const char* word) {
            return std::find(what.begin(), what.end(), word) != what.end();
        };
        productivity_ = {asked("sales by wage time"),
                         asked("sales by salaried time"),
                         asked("transactions by wage time"),
                         asked("transactions by salaried time"),
                         asked("labor of wages"),
                         asked("labor of salaries")};
    }

    void TakeDaytype(const std::vector<std::string>& parts) {
        const auto i = static_cast<std::size_t>(++daytypes_.DayTypeCount);
        daytypes_.DayTypeSymbols[i] = parts.at(0);
        daytypes_.DayTypeNames[i] = parts.at(1);
    }

    /// last | first | pay | hour or week | ID | assignment | phone | soc. sec. | bar colour
    void TakeEmployee(std::vector<std::string> parts) {
        parts.resize(9);
        TestEmployee employee;
        employee.lastName = lastName_ = parts[0];
        employee.firstName = parts[1];
        employee.pay = parts[2].empty() ? "10.00" : parts[2];
        employee.hourly = parts[3] != "week";
        employee.id = parts[4];
        employee.assignment = parts[5];
        if (!parts[8].empty()) employee.barColor = Number(parts[8]);
        const int key = made_.store.AddEmployee(employee);
        dao::Recordset rs = made_.store.db().OpenRecordset("Employee");
        rs.Index("Seq");
        rs.Seek({std::int64_t{key}});
        rs.Edit();
        if (!parts[6].empty()) rs.Fields("Phone") = parts[6];
        if (!parts[7].empty()) rs.Fields("Soc Sec number") = parts[7];
        rs.Update();
    }

    int EmployeeOf(const std::string& lastName) const {
        for (int e = 1; e <= g_.roster.EmployeeCount; ++e)
            if (g_.roster.RosterName1[e] == lastName) return e;
        throw std::runtime_error("no employee " + lastName);
    }

    /// "Mon 8:00-12:00 13:00-17:00", where an end before its start lies on the next day; "Mon label CA"; "Mon
    /// off"; "next Sun 8:00-12:00" for the eighth day.
    void TakeDay(int e, const std::string& text) {
        std::vector<std::string> words = Words(text);
        int day = DaysInSpan;
        if (words.at(0) == "next")
            words.erase(words.begin());
        else
            day = DayIn(words.at(0));
        if (words.at(1) == "off")
            WritableWeek(g_).DayOffFlag[day][e] = true;
        else if (words.at(1) == "label")
            WritableWeek(g_).DayTypeText[day][e] = words.size() > 2 ? words[2] : " ";
        else
            for (std::size_t i = 1; i < words.size(); ++i) AddBar(e, day, Parts(words[i], '-'));
    }

    void AddBar(int e, int day, const std::vector<std::string>& times) {
        const int start = Quarters(times.at(0));
        int stop = Quarters(times.at(1));
        if (stop <= start) stop += QuartersPerDay;
        const int offset = (day - 1) * QuartersPerDay;
        const auto b = static_cast<std::size_t>(++WritableWeek(g_).BarCount[e]);
        WritableWeek(g_).BarStarts[e][b] = offset + start;
        WritableWeek(g_).BarStops[e][b] = offset + stop;
    }

    /// "Mon 1200.50 310": sales and transactions.
    void TakeFigures(const std::vector<std::string>& words) {
        const auto day = static_cast<std::size_t>(DayIn(words.at(0)));
        const double sales = Val(words.at(1));
        g_.figures.DailySales[day] = sales;
        g_.totals.SalesTotal += sales;
        if (sales > 0) ++g_.totals.SalesDays;
        g_.figures.DailyTransactions[day] = words.size() > 2 ? Val(words[2]) : 0;
        g_.totals.TransactionsTotal += g_.figures.DailyTransactions[day];
    }

    /// "Mon | text"; "\n" in it is a line end.
    void TakeMemo(const std::string& text) {
        const auto parts = Parts(text, '|');
        const auto day = static_cast<std::size_t>(DayIn(parts.at(0)));
        std::string memo = parts.at(1);
        for (std::size_t at; (at = memo.find("\\n")) != std::string::npos;) memo.replace(at, 2, "\r\n");
        g_.figures.DayMemoText[day] = memo;
        g_.figures.DayMemoFlag[day] = true;
    }

    ScheduleCase& made_;
    GlobalState& g_;
    std::map<std::string, std::function<void(const std::string&)>> verbs_;
    DaySerial date_ = 46082; // Sunday, 1 March 2026
    int lines_ = 66;
    std::string lastName_;
    Daytypes daytypes_;
    Productivity productivity_;
    std::vector<std::pair<std::string, std::string>> days_;
    std::vector<std::string> figures_;
    std::vector<std::string> memos_;
    std::vector<std::string> picked_;
    std::vector<std::string> order_;
};

// ---- what was drawn ----

std::string Printed(const char* pattern, double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), pattern, number);
    return text.data();
}

std::string ColourText(Colour colour) {
    if (colour == WindowText || colour == QBColor(0)) return "";
    if (colour == ButtonFace) return " button face";
    constexpr std::array<const char*, 16> names{"black",      "blue",           "green",        "cyan",
                                                "red",        "magenta",        "brown",        "light grey",
                                                "grey",       "bright blue",    "bright green", "bright cyan",
                                                "bright red", "bright magenta", "yellow",       "white"};
    for (int i = 1; i < 16; ++i)
        if (colour == QBColor(i)) return std::string(" ") + names[static_cast<std::size_t>(i)];
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), " %u,%u,%u", RedOf(colour), GreenOf(colour), BlueOf(colour));
    return text.data();
}

/// A text between quotes on one line; a long run of underscores as their count.
std::string Quoted(const std::string& text) {
    if (text.size() > 20 && text.find_first_not_of('_') == std::string::npos)
        return std::to_string(text.size()) + " underscores";
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '\n' ? std::string("\\n") : std::string(1, c);
    return quoted + "\"";
}

class OperationTeller {
  public:
    OperationTeller(const VpDocument& document, const FontMeasures& measures, int unitsAcross)
        : document_(document), measures_(measures), unit_(document.PageWidth() / unitsAcross) {}

    std::string operator()(const DrawnPageText& t) const {
        const ReportFont& font = document_.FontAt(t.font);
        const Twips right = t.x + measures_.Width(font, t.text);
        return "line " + Line(t.y) + "  units " + Span(t.x, right) + "  " + Quoted(t.text) +
               (font.bold ? " bold" : "") + ColourText(t.colour);
    }
    std::string operator()(const DrawnPageLine& l) const {
        return "rule from line " + Line(l.y1) + " unit " + Unit(l.x1) + " to line " + Line(l.y2) + " unit " +
               Unit(l.x2) + (l.width > 0 ? " of width " + std::to_string(l.width) : "") +
               ColourText(l.colour);
    }
    std::string operator()(const DrawnPageBox& b) const {
        return "box  lines " + Line(b.box.top) + ".." + Line(b.box.bottom) + "  units " +
               Span(b.box.left, b.box.right) + (b.outlined ? " outlined" : "") +
               (ColourText(b.fill).empty() ? " black" : ColourText(b.fill));
    }

  private:
    static std::string Line(Twips y) { return Printed("%.2f", y / 220.0); }
    std::string Unit(Twips x) const { return Printed("%.2f", static_cast<double>(x) / unit_); }
    std::string Span(Twips left, Twips right) const { return Unit(left) + ".." + Unit(right); }

    const VpDocument& document_;
    const FontMeasures& measures_;
    Twips unit_;
};

std::string ColumnText(const TableColumn& column) {
    constexpr std::array<const char*, 3> aligns{"left", "centre", "right"};
    return std::string(aligns[static_cast<std::size_t>(column.align)]) + " " + Printed("%g", column.percent) +
           "%" + (column.head ? " head" : "");
}

} // namespace

void ReadScheduleCase(const std::filesystem::path& file, ScheduleCase& made) {
    std::ifstream in(file);
    if (!in) throw std::runtime_error("no file " + file.string());
    CaseReader reader(made);
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        try {
            reader.Line(line);
        } catch (const std::exception& trouble) {
            throw std::runtime_error(file.string() + ":" + std::to_string(number) + ": " + trouble.what() +
                                     ": " + line);
        }
    }
    reader.Finish();
}

std::string PagesAsText(const VpDocument& document, const FontMeasures& measures, int unitsAcross) {
    const OperationTeller tell(document, measures, unitsAcross);
    std::string text;
    for (int page = 1; page <= document.PageCount(); ++page) {
        text += "page " + std::to_string(page) + "\n";
        for (const PageOperation& operation : document.Page(page))
            text += "  " + std::visit(tell, operation) + "\n";
    }
    return text;
}

std::string TablesAsText(const VpDocument& document) {
    std::string text;
    for (const TableBlock& block : document.Tables()) {
        text += "table";
        if (block.border == TableBorders::Box) text += " in a box";
        if (block.border == TableBorders::BoxColumns) text += " in a box with columns";
        if (block.shade) text += " on" + (*block.shade == 0 ? " black" : ColourText(*block.shade));
        text += "\n";
        for (std::size_t i = 0; i < block.cells.size(); ++i)
            text += "  " + ColumnText(block.columns[i]) + "  " + Quoted(block.cells[i].text) +
                    (block.cells[i].bold ? " bold" : "") + ColourText(block.cells[i].colour) + "\n";
    }
    return text;
}

} // namespace tvx::test
