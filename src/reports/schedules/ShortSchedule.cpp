#include "reports/schedules/ShortSchedule.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "reports/page/ReportText.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tvx {
namespace {

constexpr int UnitsAcross = 143;
constexpr double LeftUnit = 2;
constexpr int NameUnits = 30;
constexpr int DayUnits = 16;
constexpr int RightUnit = NameUnits + 7 * DayUnits; // 142
constexpr double NameUnit = 2.2;
constexpr double FiguresInDay = 15.5; // right edge of a day's figures in its column
constexpr double WeekFiguresEdge = 29;
constexpr double FigureDrop = 0.05; // of the figures below their line
constexpr int LinesKeptFree = 4;
constexpr double HeadLines = 5;    // the first block begins below these
constexpr double RuleDrop = 0.2;   // of the text of a rule below its line, so that it stands clear of it
constexpr double BlockEdge = 1.06; // where the rule then shows
constexpr int NamesWithDetail = 5; // name options below this have a second line
constexpr int LastQuarter = 672;
constexpr int RunsOn = 680; // stop of a bar that goes on after the seventh day
constexpr Colour Grey = 0x808080;

class ShortSchedule {
  public:
    ShortSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp)
        : g_(g), ports_(ports), request_(request), vp_(vp), unit_(vp.PageWidth() / UnitsAcross),
          lineHeight_(std::max<Twips>(1, vp.TextHeight("V")) * 1.1),
          capacity_(static_cast<int>(vp.PageHeight() / lineHeight_) - LinesKeptFree),
          rule_(UnderscoreRule(vp)) {}

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
    Twips FiguresEdge(int day) const { return X(ColumnLeft(day) + FiguresInDay); }
    const std::string& TimeStyle() const { return g_.application.Settings[setting::TimeFormat]; }
    bool Hours() const { return g_.reports.options.PrintTotalHours != 0; }
    bool Wages() const { return g_.reports.options.PrintTotalWages != 0; }

    // ---- the page ----

    void Head() {
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(0), WeekTitle(g_.department, g_.week));
        TextEndingAt(vp_, X(RightUnit), Y(0), "Page" + Str(vp_.CurrentPage()));
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(1), PrintedOn(ports_));
        vp_.PenWidth(1);
        vp_.DrawLine(X(LeftUnit), Y(3), X(RightUnit), Y(3));
        vp_.PenWidth(0);
        const auto number =
            WeekNumber(g_.week.WeekStartJulian, g_.department.WeekMethod, g_.department.FirstWeekday);
        if (number) TextAt(vp_, X(3), Y(3.5), "Week of the year: " + std::to_string(*number));
        for (int d = 1; d <= 7; ++d) DayHead(d);
        line_ = HeadLines;
        Rule();
    }

    void DayHead(int d) {
        vp_.FontBold(true);
        TextCentredAt(vp_, X(ColumnMiddle(d)), Y(3.5), ports_.region.Names().weekdays[WeekdayOf(g_, d)]);
        vp_.FontBold(false);
        TextCentredAt(vp_, X(ColumnMiddle(d)), Y(4.5), g_.week.WeekDateTexts[d]);
    }

    /// Closes the present line across the page.
    void Rule() { TextAt(vp_, 0, Y(line_ + RuleDrop), rule_); }

    void NextPage() {
        vp_.NewPage();
        Head();
    }

    /// Begins a new page when so many lines are not left on this one. A page that has only its head is not
    /// left: the next would have no more room.
    void Need(double lines) {
        if (line_ + lines >= capacity_ && line_ > HeadLines) NextPage();
    }

    // ---- one employee ----

    struct BlockOf {
        int employee = 0;
        EmployeeSums own;
        std::array<std::string, 8> labels; // [day 1..7]
        int rows = 0;
        double hoursLine = 0; // of the figures at its foot
        double moneyLine = 0;
    };

    int RowsOf(const BlockOf& block) const {
        const ReportOptions& options = g_.reports.options;
        const PrintArrays& print = g_.reports.print;
        int rows = *std::max_element(print.PrintRangeCount.begin() + 1, print.PrintRangeCount.begin() + 8);
        for (int d = 1; d <= 7; ++d)
            if (!block.labels[d].empty() && print.PrintRangeCount[d] == rows) ++rows;
        rows += options.PrintTotalHours + options.PrintTotalWages + (options.PrintTimeBars ? 1 : 0);
        if (options.NameOption < NamesWithDetail) rows = std::max(rows, 2);
        return std::max(rows, 1); // the name needs a line of its own
    }

    void Block(int e) {
        LoadPrintArrays(g_, e);
        BlockOf block;
        block.employee = e;
        block.own = AddToSums(g_, e, request_.productivity, sums_);
        for (int d = 1; d <= 7; ++d) block.labels[d] = DayLabel(g_, e, d);
        block.rows = RowsOf(block);
        Need(block.rows + 1);
        block.moneyLine = line_ + block.rows;
        block.hoursLine = Wages() ? block.moneyLine - 1 : block.moneyLine;
        Name(block);
        if (g_.reports.options.PrintTimeBars) TimeBars(e);
        for (int d = 1; d <= 7; ++d) Day(block, d);
        Foot(block);
        Close(block.rows);
    }

    /// The rule below a block of some rows, and the lines between its days.
    void Close(int rows) {
        const Twips top = Y(line_ + BlockEdge);
        line_ += rows;
        Rule();
        const Twips bottom = Y(line_ + BlockEdge);
        for (int d = 0; d <= 8; ++d) {
            const Twips x = d == 0 ? X(LeftUnit) : X(ColumnLeft(d));
            vp_.DrawLine(x, top, x, bottom);
        }
    }

    /// What a name or its detail may take of a line: less where a figure of the week stands on it too.
    Twips NameRoom(const BlockOf& block, double line) const {
        Twips room = X(28);
        const auto leave = [&](bool asked, double figuresLine, const std::string& figure) {
            if (asked && figuresLine == line && !figure.empty())
                room = std::min(room, X(WeekFiguresEdge - NameUnit - 1) - vp_.TextWidth(figure));
        };
        leave(Hours(), block.hoursLine, WeekHoursText(g_, block.employee, block.own));
        leave(Wages(), block.moneyLine, WeekMoneyText(g_, block.employee, block.own));
        return room;
    }

    void Name(const BlockOf& block) {
        const int e = block.employee;
        const std::string name = g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e];
        TextAt(vp_, X(NameUnit), Y(line_ + 1.1), Fitted(vp_, name, NameRoom(block, line_ + 1)) + " ");
        if (g_.reports.options.NameOption < NamesWithDetail)
            TextAt(vp_, X(NameUnit), Y(line_ + 2.1),
                   Fitted(vp_, NameDetail(g_, e), NameRoom(block, line_ + 2)));
    }

    void Day(const BlockOf& block, int d) {
        double row = line_ + (g_.reports.options.PrintTimeBars ? 2 : 1);
        if (const std::string& label = block.labels[d]; !label.empty()) {
            vp_.FontBold(IsDayOffLabel(g_, label));
            TextCentredAt(vp_, X(ColumnMiddle(d)), Y(row + 0.1), Fitted(vp_, label, X(DayUnits)));
            vp_.FontBold(false);
            ++row;
        }
        for (int r = 1; r <= g_.reports.print.PrintRangeCount[d]; ++r, ++row)
            TextCentredAt(vp_, X(ColumnMiddle(d)), Y(row + 0.1), RangeText(g_, request_, d, r, true));
    }

    /// Hours and wages on the last lines of a block: the wages on the last, the hours above them.
    void Foot(const BlockOf& block) {
        const EmployeeSums& own = block.own;
        vp_.TextColor(QBColor(12));
        for (int d = 1; d <= 7; ++d) {
            if (Hours())
                TextEndingAt(vp_, FiguresEdge(d), Y(block.hoursLine + FigureDrop),
                             DayHoursText(g_, own.quarters[d]));
            if (Wages())
                TextEndingAt(vp_, FiguresEdge(d), Y(block.moneyLine + FigureDrop),
                             DayWagesText(g_, block.employee, own.quarters[d], own.wages[d]));
        }
        vp_.TextColor(WindowText);
        if (Hours())
            TextEndingAt(vp_, X(WeekFiguresEdge), Y(block.hoursLine + FigureDrop),
                         WeekHoursText(g_, block.employee, own));
        if (Wages())
            TextEndingAt(vp_, X(WeekFiguresEdge), Y(block.moneyLine + FigureDrop),
                         WeekMoneyText(g_, block.employee, own));
    }

    // ---- the time bars ----

    void Tick(double unit, double down, Colour colour) {
        vp_.PenColor(colour);
        vp_.DrawLine(X(unit), Y(line_ + 1), X(unit), Y(line_ + 1 + down));
    }

    void Ticks(int d) {
        const double left = ColumnLeft(d);
        Tick(left + DayUnits / 2.0, 0.4, Red);
        for (const int quarter : {1, 3}) Tick(left + DayUnits * quarter / 4.0, 0.3, Grey);
        for (const int eighth : {1, 3, 5, 7}) Tick(left + DayUnits * eighth / 8.0, 0.2, WindowText);
    }

    void TimeBars(int e) {
        vp_.PenWidth(2);
        for (int d = 1; d <= 7; ++d) Ticks(d);
        vp_.PenWidth(0);
        vp_.PenColor(WindowText);
        vp_.BrushColor(QBColor(g_.roster.RosterBarColor[e]));
        for (const auto& [start, stop] : BarsToDraw(e)) {
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

    void Totals() {
        Need(g_.reports.options.PrintTotalHours + g_.reports.options.PrintTotalWages + 2);
        vp_.FontBold(true);
        TextAt(vp_, X(LeftUnit), Y(line_ + 1.1), "Day totals");
        vp_.FontBold(false);
        for (int d = 1; d <= 7; ++d) DayTotals(d);
        line_ += g_.reports.options.PrintTotalHours + g_.reports.options.PrintTotalWages;
        Note();
        Need(3);
        DepartmentTotals();
    }

    void DayTotals(int d) {
        const PrintTotals& totals = g_.reports.totals;
        double row = line_ + 1.1;
        if (Hours())
            TextEndingAt(vp_, FiguresEdge(d), Y(row++),
                         "Hours " + QuartersToText(totals.DayTotalQuarters[d], TimeStyle()));
        if (Wages())
            TextEndingAt(vp_, FiguresEdge(d), Y(row), "Wages " + Format(totals.DayTotalWages[d], ".00"));
    }

    void Note() {
        if (g_.department.DayCutoffQuarters <= 0) return;
        const std::string time = CutoffText(g_);
        line_ += 1.2;
        TextAt(vp_, X(LeftUnit), Y(line_),
               "Note: Time and Wage statistics are between " + time + " and " + time + " the following day.");
    }

    void TotalLine(const std::string& label, const std::string& amount) {
        ++line_;
        TextEndingAt(vp_, X(RightUnit - DayUnits - 1), Y(line_ + 0.5), label);
        TextEndingAt(vp_, X(RightUnit), Y(line_ + 0.5), amount);
    }

    void DepartmentTotals() {
        vp_.FontBold(true);
        if (Hours())
            TotalLine("Department total time:", QuartersToText(sums_.PrintTotalQuarters, TimeStyle()));
        if (Wages()) {
            TotalLine("Department total wages:", Format(sums_.PrintTotalWagesSum, "##,##0.00"));
            TotalLine("Department total salaries:", Format(g_.TotalSalaries, "##,##0.00"));
            TotalLine("Department total compensation:",
                      Format(sums_.PrintTotalWagesSum + g_.TotalSalaries, "##,##0.00"));
        }
        vp_.FontBold(false);
    }

    // ---- the productivity block ----

    void ProductivityBlock() {
        constexpr int Rows = 12;
        Need(Rows);
        vp_.CurrentY(Y(line_ + 2));
        vp_.TextColor(QBColor(0));
        vp_.TableBorder(TableBorders::Box);
        vp_.FontBold(true);
        vp_.AddTable("^~100%;", {"Productivity"});
        vp_.FontBold(false);
        vp_.TableBorder(TableBorders::None);
        const Productivity& p = g_.productivity;
        Words("Sales includes", YesNo("Wages time", p.SalesWageHours),
              YesNo("Salaried time", p.SalesSalaryHours));
        Words("Transactions include", YesNo("Wages time", p.TransWageHours),
              YesNo("Salaried time", p.TransSalaryHours));
        Words("Labor% includes", YesNo("Wages", p.LaborWages), YesNo("Salaries", p.LaborSalary));
        Figures();
        vp_.TextColor(WindowText);
        line_ = vp_.CurrentY() / lineHeight_;
    }

    void Words(const std::string& label, const std::string& wages, const std::string& salaries) {
        vp_.AddTable("<~25%|<~20%|<~20%;", {label, wages, salaries});
    }

    void Figures() {
        vp_.TableBorder(TableBorders::BoxColumns);
        Figure("", [this](int d) {
            return d == 0 ? "Week" : ports_.region.Names().shortWeekdays[WeekdayOf(g_, d)];
        });
        Figure("Sales", [this](int d) { return SalesText(g_, d); });
        Figure("Transactions", [this](int d) { return TransactionsText(g_, d); });
        Figure("Sales/hrs", [this](int d) { return SalesPerHour(g_, sums_, d); });
        Figure("Transactions/hrs", [this](int d) { return TransactionsPerHour(g_, sums_, d); });
        Figure("Labor %", [this](int d) { return LaborPercent(g_, sums_, d); });
        vp_.TableBorder(TableBorders::None);
    }

    /// A row of a label, the week's figure, and the figures of the days.
    template <typename TextOfDay>
    void Figure(const std::string& label, const TextOfDay& textOf) {
        std::vector<std::string> cells{label};
        for (int d = 0; d <= 7; ++d) cells.push_back(textOf(d));
        vp_.AddTable("<~14%|>~10.4%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%;", cells);
    }

    // ---- day comments ----

    void Comments() {
        const Twips height = vp_.TextHeight("Test");
        Twips y = Y(line_ + 1.5);
        for (int d = 1; d <= 7; ++d) {
            if (!g_.week.DayMemoFlag[d]) continue;
            const std::string heading = DayCommentHeading(g_, ports_, d);
            y = CommentLine(y, height, heading, true, "");
            for (const std::string& text : MemoLines(vp_, g_.week.DayMemoText[d], X(RightUnit - LeftUnit)))
                y = CommentLine(y, height, text, false, heading);
            y += height / 2;
        }
    }

    /// Writes one line, on the next page when this one is full; `heading` is repeated there. Returns where
    /// the next line goes.
    Twips CommentLine(Twips y, Twips height, const std::string& text, bool bold, const std::string& heading) {
        const Twips top = Y(HeadLines + 1.5);
        if (y + height > vp_.PageHeight() && y > top) {
            NextPage();
            y = top;
            if (!heading.empty()) y = CommentLine(y, height, heading + " Cont.....", true, "");
        }
        vp_.FontBold(bold);
        TextAt(vp_, X(LeftUnit), y, text);
        vp_.FontBold(false);
        return y + height;
    }

    GlobalState& g_;
    Ports& ports_;
    const ScheduleRequest& request_;
    Vp& vp_;
    Twips unit_;
    double lineHeight_;
    int capacity_;
    std::string rule_;
    double line_ = 0; // the line above what comes next
    ScheduleSums sums_;
};

} // namespace

void Print7day(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp) {
    ScheduleRequest run = request;
    BeginRun(g, run);
    ShortSchedule(g, ports, run, vp).Print();
    ports.prompt.MousePointer(Pointer::Default);
}

} // namespace tvx
