#include "reports/ShortSchedule.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "shell/Conversions.h"
#include "shell/TVXMOD1.h"

#include <algorithm>
#include <cmath>

namespace tvx {
namespace {

constexpr int UnitsAcross = 143;
constexpr int NameUnits = 30;
constexpr int DayUnits = 16;
constexpr int RightUnit = NameUnits + 7 * DayUnits; // 142
constexpr int LinesKeptFree = 4;
constexpr double FirstBlockLine = 5;
constexpr double NamesWithDetail = 5; // name options below this have a second line
constexpr int LastQuarter = 672;
constexpr int RunsOn = 680; // stop of a bar that goes on after the seventh day
constexpr Colour Grey = 0x808080;

class ShortSchedule {
  public:
    ShortSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp)
        : g_(g), ports_(ports), request_(request), vp_(vp), unit_(vp.PageWidth() / UnitsAcross),
          lineHeight_(vp.TextHeight("V") * 1.1),
          capacity_(static_cast<int>(vp.PageHeight() / lineHeight_) - LinesKeptFree) {}

    void Print() {
        vp_.TextColor(WindowText);
        Head();
        for (int position = 1; position <= g_.roster.EmployeeCount; ++position) {
            const int e = g_.roster.RowOrder[position];
            if (IsPrinted(g_, e)) Block(e);
        }
        if (PrintsTotals(g_)) Totals();
        if (request_.productivity) ProductivityBlock();
        if (g_.reports.options.PrintDayComments) Comments();
    }

  private:
    Twips X(double units) const { return static_cast<Twips>(std::lround(units * unit_)); }
    Twips Y(double line) const { return static_cast<Twips>(std::lround(line * lineHeight_)); }
    static double ColumnLeft(int day) { return NameUnits + (day - 1) * DayUnits; }
    static double ColumnMiddle(int day) { return ColumnLeft(day) + DayUnits / 2.0; }

    void Head() {
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(0), WeekTitle(g_.department, g_.week));
        TextEndingAt(vp_, X(RightUnit), Y(0), "Page" + Str(vp_.CurrentPage()));
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(1), PrintedOn(ports_));
        vp_.PenWidth(1);
        vp_.DrawLine(X(2), Y(3), X(RightUnit), Y(3));
        vp_.PenWidth(0);
        const auto number =
            WeekNumber(g_.week.WeekStartJulian, g_.department.WeekMethod, g_.department.FirstWeekday);
        if (number) TextAt(vp_, X(3), Y(3.5), "Week of the year: " + std::to_string(*number));
        for (int d = 1; d <= 7; ++d) {
            vp_.FontBold(true);
            TextCentredAt(vp_, X(ColumnMiddle(d)), Y(3.5), ports_.region.Names().weekdays[WeekdayOf(g_, d)]);
            vp_.FontBold(false);
            TextCentredAt(vp_, X(ColumnMiddle(d)), Y(4.5), g_.week.WeekDateTexts[d]);
        }
        line_ = FirstBlockLine;
        Rule();
    }

    /// The horizontal rule under the present line.
    void Rule() { vp_.DrawLine(X(2), Y(line_ + 1) - Y(0.05), X(RightUnit), Y(line_ + 1) - Y(0.05)); }

    void NextPage() {
        vp_.NewPage();
        Head();
    }

    int RowsOf(int e) const {
        const ReportOptions& options = g_.reports.options;
        const PrintArrays& print = g_.reports.print;
        int rows = *std::max_element(print.PrintRangeCount.begin() + 1, print.PrintRangeCount.begin() + 8);
        for (int d = 1; d <= 7; ++d)
            if (!DayLabel(g_, e, d).empty() && print.PrintRangeCount[d] == rows) ++rows;
        rows += options.PrintTotalHours + options.PrintTotalWages + (options.PrintTimeBars ? 1 : 0);
        if (options.NameOption < NamesWithDetail) rows = std::max(rows, 2);
        if (options.WhoToPrint == 0) rows = std::max(rows, 1);
        return rows;
    }

    void Block(int e) {
        LoadPrintArrays(g_, e);
        const EmployeeSums own = AddToSums(g_, e, request_.productivity, sums_);
        const int rows = RowsOf(e);
        if (line_ + rows >= capacity_ - 1) NextPage();
        Name(e);
        if (g_.reports.options.PrintTimeBars) TimeBars(e);
        for (int d = 1; d <= 7; ++d) Day(e, d);
        Foot(e, own, line_ + rows);
        const double top = line_;
        line_ += rows;
        Rule();
        for (int d = 0; d <= 8; ++d) {
            const Twips x = d == 0 ? X(2) : X(ColumnLeft(d));
            vp_.DrawLine(x, Y(top + 1) - Y(0.05), x, Y(line_ + 1) - Y(0.05));
        }
    }

    void Name(int e) {
        std::string name = g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e];
        while (!name.empty() && vp_.TextWidth(name) >= X(28)) name = DropLastCharacter(name);
        TextAt(vp_, X(2.2), Y(line_ + 1.1), name + " ");
        if (g_.reports.options.NameOption < NamesWithDetail)
            TextAt(vp_, X(2.2), Y(line_ + 2.1), NameDetail(g_, e));
    }

    void Day(int e, int d) {
        double row = line_ + (g_.reports.options.PrintTimeBars ? 2 : 1);
        const std::string label = DayLabel(g_, e, d);
        if (!label.empty()) {
            vp_.FontBold(IsDayOffLabel(g_, label));
            TextCentredAt(vp_, X(ColumnMiddle(d)), Y(row + 0.1), label);
            vp_.FontBold(false);
            ++row;
        }
        for (int r = 1; r <= g_.reports.print.PrintRangeCount[d]; ++r, ++row)
            TextCentredAt(vp_, X(ColumnMiddle(d)), Y(row + 0.1), RangeText(g_, request_, d, r, true));
    }

    /// Hours and wages on the last lines of a block: the wages on the last, the hours above them.
    void Foot(int e, const EmployeeSums& own, double last) {
        const ReportOptions& options = g_.reports.options;
        const double hoursLine = options.PrintTotalWages != 0 ? last - 1 : last;
        vp_.TextColor(QBColor(12));
        for (int d = 1; d <= 7; ++d) {
            const Twips right = X(ColumnLeft(d) + 15.5);
            if (options.PrintTotalHours != 0)
                TextEndingAt(vp_, right, Y(hoursLine + 0.1), DayHoursText(g_, own.quarters[d]));
            if (options.PrintTotalWages != 0)
                TextEndingAt(vp_, right, Y(last + 0.1), DayWagesText(g_, e, own.quarters[d], own.wages[d]));
        }
        vp_.TextColor(WindowText);
        if (options.PrintTotalHours != 0)
            TextEndingAt(vp_, X(29), Y(hoursLine + 0.1), WeekHoursText(g_, e, own));
        if (options.PrintTotalWages != 0) TextEndingAt(vp_, X(29), Y(last + 0.1), WeekMoneyText(g_, e, own));
    }

    // ---- the time bars ----

    void Tick(double unit, double down, Colour colour) {
        vp_.PenColor(colour);
        vp_.DrawLine(X(unit), Y(line_ + 1), X(unit), Y(line_ + 1 + down));
    }

    void TimeBars(int e) {
        vp_.PenWidth(2);
        for (int d = 1; d <= 7; ++d) {
            const double left = ColumnLeft(d);
            Tick(left + DayUnits / 2.0, 0.4, Red);
            for (const int quarter : {1, 3}) Tick(left + DayUnits * quarter / 4.0, 0.3, Grey);
            for (const int eighth : {1, 3, 5, 7}) Tick(left + DayUnits * eighth / 8.0, 0.2, WindowText);
        }
        vp_.PenWidth(0);
        vp_.PenColor(WindowText);
        const Colour colour = QBColor(g_.roster.RosterBarColor[e]);
        for (const auto& [start, stop] : BarsToDraw(e)) {
            vp_.BrushColor(colour);
            vp_.DrawRectangle(BarX(start), Y(line_ + 1.4), BarX(stop), Y(line_ + 1.8));
            if (stop == RunsOn) vp_.DrawLine(BarX(682), Y(line_ + 1.2), BarX(678), Y(line_ + 2));
        }
        vp_.BrushColor(QBColor(15));
    }

    Twips BarX(int quarter) const { return X(quarter * DayUnits * 7.0 / LastQuarter + NameUnits); }

    /// The bars of the seven days, gaps that do not count closed.
    std::vector<std::pair<int, int>> BarsToDraw(int e) const {
        std::vector<std::pair<int, int>> bars;
        for (int b = 1; b <= g_.week.BarCount[e]; ++b) {
            const int start = g_.week.BarStarts[e][b];
            const int stop = g_.week.BarStops[e][b];
            if (start >= LastQuarter) break;
            if (!bars.empty() && start - bars.back().second <= g_.reports.options.BreakThreshold)
                bars.back().second = start;
            bars.emplace_back(start, stop > LastQuarter ? RunsOn : stop);
        }
        return bars;
    }

    // ---- the end of the schedule ----

    void Need(double lines) {
        if (line_ + lines >= capacity_) NextPage();
    }

    void Totals() {
        const ReportOptions& options = g_.reports.options;
        Need(options.PrintTotalHours + options.PrintTotalWages + 2);
        ++line_;
        vp_.FontBold(true);
        TextAt(vp_, X(2), Y(line_ + 0.1), "Day totals");
        vp_.FontBold(false);
        for (int d = 1; d <= 7; ++d) {
            double row = line_ + 0.1;
            const Twips right = X(ColumnLeft(d) + 15.5);
            const std::string time = QuartersToText(g_.reports.totals.DayTotalQuarters[d], TimeStyle());
            if (options.PrintTotalHours != 0) TextEndingAt(vp_, right, Y(row++), "Hours " + time);
            if (options.PrintTotalWages != 0)
                TextEndingAt(vp_, right, Y(row),
                             "Wages " + Format(g_.reports.totals.DayTotalWages[d], ".00"));
        }
        line_ += options.PrintTotalHours + options.PrintTotalWages;
        Note();
        Need(3);
        DepartmentTotals();
    }

    const std::string& TimeStyle() const { return g_.application.Settings[setting::TimeFormat]; }

    void Note() {
        if (g_.department.DayCutoffQuarters <= 0) return;
        const std::string time = CutoffText(g_);
        TextAt(vp_, X(2), Y(line_ + 0.3),
               "Note: Time and Wage statistics are between " + time + " and " + time + " the following day.");
        ++line_;
    }

    void TotalLine(const std::string& label, const std::string& amount) {
        Need(1);
        TextEndingAt(vp_, X(RightUnit - DayUnits - 1), Y(line_ + 0.6), label);
        TextEndingAt(vp_, X(RightUnit), Y(line_ + 0.6), amount);
        ++line_;
    }

    void DepartmentTotals() {
        vp_.FontBold(true);
        if (g_.reports.options.PrintTotalHours != 0)
            TotalLine("Department total time:", QuartersToText(sums_.PrintTotalQuarters, TimeStyle()));
        if (g_.reports.options.PrintTotalWages != 0) {
            TotalLine("Department total wages:", Format(sums_.PrintTotalWagesSum, "##,##0.00"));
            TotalLine("Department total salaries:", Format(g_.TotalSalaries, "##,##0.00"));
            TotalLine("Department total compensation:",
                      Format(sums_.PrintTotalWagesSum + g_.TotalSalaries, "##,##0.00"));
        }
        vp_.FontBold(false);
    }

    void ProductivityBlock() {
        constexpr int Rows = 11;
        Need(Rows);
        ++line_;
        vp_.CurrentY(Y(line_ + 0.5));
        vp_.TextColor(QBColor(0));
        vp_.TableBorder(TableBorders::Box);
        vp_.FontBold(true);
        vp_.AddTable("^~100%;", {"Productivity"});
        vp_.FontBold(false);
        vp_.TableBorder(TableBorders::None);
        const Productivity& p = g_.productivity;
        const auto words = [&](const char* label, const char* wages, bool wagesOn, const char* salaries,
                               bool salariesOn) {
            vp_.AddTable("<~25%|<~20%|<~20%;", {label, std::string(wages) + (wagesOn ? " = Yes" : " = No"),
                                                std::string(salaries) + (salariesOn ? " = Yes" : " = No")});
        };
        words("Sales includes", "Wages time", p.SalesWageHours, "Salaried time", p.SalesSalaryHours);
        words("Transactions include", "Wages time", p.TransWageHours, "Salaried time", p.TransSalaryHours);
        words("Labor% includes", "Wages", p.LaborWages, "Salaries", p.LaborSalary);
        Figures();
        line_ = vp_.CurrentY() / lineHeight_;
    }

    void Figures() {
        constexpr std::string_view Format7 =
            "<~14%|>~10%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%;";
        vp_.TableBorder(TableBorders::BoxColumns);
        std::vector<std::string> heads{"", "Week"};
        for (int d = 1; d <= 7; ++d) heads.push_back(ports_.region.Names().shortWeekdays[WeekdayOf(g_, d)]);
        vp_.AddTable(Format7, heads);
        const auto row = [&](const char* label, auto figure) {
            std::vector<std::string> cells{label};
            for (int d = 0; d <= 7; ++d) cells.push_back(figure(d));
            vp_.AddTable(Format7, cells);
        };
        row("Sales", [&](int d) { return SalesText(g_, d); });
        row("Transactions", [&](int d) { return TransactionsText(g_, d); });
        row("Sales/hrs", [&](int d) { return SalesPerHour(g_, sums_, d); });
        row("Transactions/hrs", [&](int d) { return TransactionsPerHour(g_, sums_, d); });
        row("Labor %", [&](int d) { return LaborPercent(g_, sums_, d); });
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(WindowText);
    }

    // ---- day comments ----

    void Comments() {
        const Twips height = vp_.TextHeight("Test");
        Twips y = Y(line_ + 1.5);
        for (int d = 1; d <= 7; ++d) {
            if (!g_.week.DayMemoFlag[d]) continue;
            const std::string heading = "Day comments: " + ports_.region.Names().weekdays[WeekdayOf(g_, d)] +
                                        " " + g_.week.WeekDateTexts[d];
            y = CommentLine(y, height, heading, true, "");
            for (const std::string& text : MemoLines(g_.week.DayMemoText[d]))
                y = CommentLine(y, height, text, false, heading);
            y += height / 2;
        }
    }

    /// Writes one line, on the next page when this one is full; `heading` is repeated there.
    Twips CommentLine(Twips y, Twips height, const std::string& text, bool bold, const std::string& heading) {
        if (y + height > vp_.PageHeight()) {
            NextPage();
            y = Y(FirstBlockLine + 1.5);
            if (!heading.empty()) y = CommentLine(y, height, heading + " Cont.....", true, "");
        }
        vp_.FontBold(bold);
        TextAt(vp_, X(2), y, text);
        vp_.FontBold(false);
        return y + height;
    }

    std::vector<std::string> MemoLines(const std::string& memo) const {
        std::vector<std::string> lines;
        std::string marked = memo;
        std::replace(marked.begin(), marked.end(), '\n', '^');
        marked.erase(std::remove(marked.begin(), marked.end(), '\r'), marked.end());
        for (const std::string& part : Split(marked, '^')) {
            std::string rest = part;
            do {
                const std::string line = FittingPart(rest);
                rest = TrimLeft(std::string_view(rest).substr(line.size()));
                lines.push_back("  " + TrimRight(line));
            } while (!rest.empty());
        }
        return lines;
    }

    /// The longest beginning that fits the page, cut at its last blank where it has one.
    std::string FittingPart(const std::string& text) const {
        const Twips room = X(RightUnit - 4);
        if (vp_.TextWidth(text) <= room) return text;
        std::size_t few = 1;
        std::size_t many = CharacterCount(text);
        while (few + 1 < many) {
            const std::size_t middle = (few + many) / 2;
            (vp_.TextWidth(Left(text, middle)) <= room ? few : many) = middle;
        }
        const std::string fitting = Left(text, few);
        const std::size_t blank = fitting.rfind(' ');
        return blank == std::string::npos || blank == 0 ? fitting : fitting.substr(0, blank);
    }

    GlobalState& g_;
    Ports& ports_;
    const ScheduleRequest& request_;
    Vp& vp_;
    Twips unit_;
    double lineHeight_;
    int capacity_;
    double line_ = 0; // the line before the next block
    ScheduleSums sums_;
};

} // namespace

void Print7day(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp) {
    ScheduleRequest run = request;
    BeginRun(g, run);
    ShortSchedule(g, ports, run, vp).Print();
}

} // namespace tvx
