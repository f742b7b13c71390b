#include "reports/schedules/HtmlSchedules.h"

#include "platform/basic/Format.h"
#include "platform/basic/Text.h"
#include "reports/schedules/LongSchedule.h"
#include "reports/schedules/ShortSchedule.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

#include <array>
#include <utility>

namespace tvx {
namespace {

constexpr Colour FirstRowShade = RGB(248, 254, 175);
constexpr std::string_view DayHeads = "<~15.5%|^~+12%|^~+12%|^~+12%|^~+12%|^~+12%|^~+12%|^~+12%;";
constexpr std::string_view WeekNumbers = ">~15.5%|>~+12%|>~+12%|>~+12%|>~+12%|>~+12%|>~+12%|>~+12%;";
constexpr std::string_view Ranges = "<~15.5%|^~12%|^~12%|^~12%|^~12%|^~12%|^~12%|^~12%;";
constexpr std::string_view Figures = ">~15.5%|>~12%|>~12%|>~12%|>~12%|>~12%|>~12%|>~12%;";
constexpr std::string_view ProductivityFigures = "<~6%|>~9.5%|>~12%|>~12%|>~12%|>~12%|>~12%|>~12%|>~12%;";
constexpr std::string_view LongDay = "<~6%|>~12%|^~14%|^~14%|^~14%|^~14%|>~_14%|>~_12%;";

/// What both web pages write with.
class HtmlSchedule {
  public:
    HtmlSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp)
        : g_(g), ports_(ports), request_(request), vp_(vp) {}

  protected:
    void Spacer() { vp_.AddTable("^+100%;", {" "}); }

    void Line(std::string_view format, const std::string& text) { vp_.AddTable(format, {text}); }

    /// A table whose first cell has a colour of its own and is not bold.
    void TouchedUp(std::string_view format, std::vector<std::string> cells, Colour text, Colour first) {
        vp_.TextColor(text);
        vp_.StartTable();
        vp_.AddTable(format, std::move(cells));
        vp_.TableCell(CellSetting::TextColor, 1, 1, first);
        vp_.TableCell(CellSetting::Bold, 1, 1, 0);
        vp_.EndTable();
    }

    const std::string& TimeStyle() const { return g_.application.Settings[setting::TimeFormat]; }
    bool Hours() const { return g_.reports.options.PrintTotalHours != 0; }
    bool Wages() const { return g_.reports.options.PrintTotalWages != 0; }

    /// Two lines of a cell; the line feed only where both are asked for.
    std::string Stacked(std::string hours, const std::string& wages) const {
        const bool both = Hours() && Wages() && !(hours.empty() && wages.empty());
        if (!Hours()) hours.clear();
        if (both) hours += '\n';
        if (Wages()) hours += wages;
        return hours;
    }

    GlobalState& g_;
    Ports& ports_;
    const ScheduleRequest& request_;
    Vp& vp_;
    ScheduleSums sums_;
};

class ShortHtml : private HtmlSchedule {
  public:
    using HtmlSchedule::HtmlSchedule;

    void Print() {
        vp_.PenColor(ButtonFace);
        Heads();
        for (int position = 1; position <= g_.roster.EmployeeCount; ++position) {
            const int e = g_.roster.RowOrder[position];
            if (IsPrinted(g_, e)) Employee(e);
        }
        if (PrintsTotals(g_)) DayTotals();
        if (request_.productivity) ProductivityBlock();
        Note();
        Totals();
        if (g_.reports.options.PrintDayComments) Comments();
    }

  private:
    void Heads() {
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(QBColor(0));
        Line("^~100%;", WeekTitle(g_.department, g_.week) + "\n" + PrintedOn(ports_));
        Spacer();
        std::vector<std::string> days{""};
        for (int d = 1; d <= 7; ++d)
            days.push_back(ports_.region.Names().weekdays[WeekdayOf(g_, d)] + "\n" +
                           g_.week.WeekDateTexts[d]);
        vp_.TableBorder(TableBorders::BoxColumns);
        vp_.TextColor(QBColor(1));
        vp_.AddTable(DayHeads, days);
        WeekRow();
    }

    void WeekRow() {
        std::vector<std::string> numbers{" Week"};
        for (int d = 1; d <= 7; ++d) {
            const auto number = WeekNumber(g_.week.WeekStartJulian + d - 1, g_.department.WeekMethod,
                                           g_.department.FirstWeekday);
            if (number) numbers.push_back(std::to_string(*number));
        }
        if (numbers.size() == 8) {
            vp_.TextColor(QBColor(9));
            vp_.AddTable(WeekNumbers, numbers);
        } else {
            vp_.TableBorder(TableBorders::Box);
            Line("99.5%;", " ");
        }
    }

    void Employee(int e) {
        vp_.TextColor(QBColor(10));
        ports_.prompt.MousePointer(Pointer::Hourglass);
        LoadPrintArrays(g_, e);
        const EmployeeSums own = AddToSums(g_, e, request_.productivity, sums_);
        std::vector<std::string> cells;
        cells.reserve(8);
        cells.push_back(NameCell(e));
        for (int d = 1; d <= 7; ++d) cells.push_back(DayCell(e, d));
        vp_.TableBorder(TableBorders::BoxColumns);
        vp_.TextColor(QBColor(3));
        vp_.AddTable(Ranges, std::move(cells));
        if (PrintsTotals(g_)) FigureRow(e, own);
    }

    std::string NameCell(int e) {
        std::string name = g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e];
        const int option = g_.reports.options.NameOption;
        if (option > 4) return name;
        return name + "\n" + (option == 0 ? " " : NameDetail(g_, e));
    }

    std::string DayCell(int e, int d) {
        std::string cell = DayLabel(g_, e, d);
        for (int r = 1; r <= g_.reports.print.PrintRangeCount[d]; ++r)
            cell.append(cell.empty() ? "" : "\n").append(RangeText(g_, request_, d, r, true));
        return cell;
    }

    void FigureRow(int e, const EmployeeSums& own) {
        const std::string hours = WeekHoursText(g_, e, own);
        const std::string money = WeekMoneyText(g_, e, own);
        std::vector<std::string> cells;
        cells.reserve(8);
        cells.push_back(
            Stacked(hours.empty() ? "" : "Total:  " + hours, money.empty() ? "" : "Total:  " + money));
        for (int d = 1; d <= 7; ++d)
            cells.push_back(Stacked(DayHoursText(g_, own.quarters[d]),
                                    DayWagesText(g_, e, own.quarters[d], own.wages[d])));
        TouchedUp(Figures, std::move(cells), QBColor(12), QBColor(9));
    }

    void DayTotals() {
        std::vector<std::string> cells{"Day Totals"};
        for (int d = 1; d <= 7; ++d)
            cells.push_back(
                Stacked("Hours " + QuartersToText(g_.reports.totals.DayTotalQuarters[d], TimeStyle()),
                        "Wages " + Format(g_.reports.totals.DayTotalWages[d], ".00")));
        vp_.TableBorder(TableBorders::BoxColumns);
        TouchedUp(Figures, std::move(cells), QBColor(9), QBColor(1));
    }

    void ProductivityBlock() {
        const Productivity& p = g_.productivity;
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(QBColor(0));
        vp_.FontBold(true);
        vp_.AddTable("^~30%|>40% |^30%;", {" Productivity", ""}, QBColor(11));
        vp_.FontBold(false);
        vp_.TextColor(QBColor(4));
        vp_.AddTable("<~25%|>~15%|>~20%|>~60% &;",
                     {"Sales includes\nTransactions include\nLabor% includes",
                      YesNo("Wages time", p.SalesWageHours) + "\n" + YesNo("Wages time", p.TransWageHours) +
                          "\n" + YesNo("Wages", p.LaborWages),
                      YesNo("Salaried time", p.SalesSalaryHours) + "\n" +
                          YesNo("Salaried time", p.TransSalaryHours) + "\n" +
                          YesNo("Salaries", p.LaborSalary),
                      ""});
        ProductivityRows();
    }

    void ProductivityRows() {
        std::vector<std::string> figures{"Sales\nTrans."};
        std::vector<std::string> ratios{"Sales/hrs\nTrans/hrs\nLabor %"};
        for (int d = 0; d <= 7; ++d) {
            figures.push_back(SalesText(g_, d) + "\n" + TransactionsText(g_, d));
            ratios.push_back(SalesPerHour(g_, sums_, d) + "\n" + TransactionsPerHour(g_, sums_, d) + "\n" +
                             LaborPercent(g_, sums_, d));
        }
        vp_.TableBorder(TableBorders::BoxColumns);
        TouchedUp(ProductivityFigures, std::move(figures), QBColor(0), QBColor(1));
        TouchedUp(ProductivityFigures, std::move(ratios), QBColor(0), QBColor(1));
    }

    void Note() {
        vp_.TableBorder(TableBorders::None);
        if (g_.department.DayCutoffQuarters <= 0 || !PrintsTotals(g_)) return;
        const std::string time = CutoffText(g_);
        vp_.TextColor(QBColor(12));
        vp_.FontBold(false);
        Line("<~100%;",
             "Note:\nTime and Wage statistics are between " + time + " and " + time + " the following day.");
    }

    /// A label and an amount, the amount widened so that the amounts stand under each other.
    void Total(const std::string& label, std::string amount) {
        const Twips width = vp_.TextWidth("XXXXXXX");
        while (vp_.TextWidth(amount) < width && amount.size() < 60) amount.insert(0, " ");
        Line(">~100%;", label + amount);
    }

    void Totals() {
        vp_.TextColor(QBColor(0));
        vp_.FontBold(true);
        if (Hours()) Total("Department total time:  ", QuartersToText(sums_.PrintTotalQuarters, TimeStyle()));
        if (Wages()) {
            Total("Department total wages:  ", Format(sums_.PrintTotalWagesSum, "##,##0.00"));
            Total("Department total salaries:  ", Format(g_.TotalSalaries, "##,##0.00"));
            Total("Department total compensation:  ",
                  Format(sums_.PrintTotalWagesSum + g_.TotalSalaries, "##,##0.00"));
        }
        vp_.FontBold(false);
    }

    void Comments() {
        for (int d = 1; d <= 7; ++d) {
            if (!g_.week.DayMemoFlag[d]) continue;
            vp_.FontBold(true);
            vp_.TextColor(QBColor(0));
            Line("<~100%;", DayCommentHeading(g_, ports_, d));
            vp_.FontBold(false);
            vp_.TextColor(QBColor(3));
            Line("<100%;", g_.week.DayMemoText[d]);
        }
    }
};

class LongHtml : private HtmlSchedule {
  public:
    using HtmlSchedule::HtmlSchedule;

    void PrintRoster() {
        Begin();
        Line("^~100%;", WeekTitle(g_.department, g_.week) + "\n" + PrintedOn(ports_));
        Spacer();
        for (int position = 1; position <= g_.roster.EmployeeCount; ++position) {
            const int e = g_.roster.RowOrder[position];
            if (!IsPrinted(g_, e)) continue;
            NameLine(e);
            Days(e);
        }
        Totals();
        Note();
        vp_.EndDoc();
    }

    void PrintPicked() {
        Begin();
        for (const int e : request_.picked) {
            Line("^~100%;", WeekTitle(g_.department, g_.week));
            Spacer();
            vp_.FontBold(true);
            Line("^~100%;", "Schedule for: " + g_.roster.RosterName2[e] + " " + g_.roster.RosterName1[e] +
                                "  - " + Suffix(e));
            vp_.FontBold(false);
            Line("^~100%;", PrintedOn(ports_));
            Spacer();
            Days(e);
        }
    }

  private:
    void Begin() {
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(QBColor(0));
    }

    std::string Suffix(int e) {
        const std::string detail = NameDetail(g_, e);
        return detail.empty() ? "" : ", " + detail;
    }

    void NameLine(int e) {
        const std::string& second = g_.roster.RosterName2[e];
        vp_.FontBold(true);
        Line("<~100%;", g_.roster.RosterName1[e] + (Trim(second).empty() ? "" : ", ") + second + Suffix(e));
        vp_.FontBold(false);
    }

    void Days(int e) {
        ports_.prompt.MousePointer(Pointer::Hourglass);
        LoadPrintArrays(g_, e);
        const EmployeeSums own = AddToSums(g_, e, false, sums_);
        Colour shade = FirstRowShade;
        for (int d = 1; d <= 7; ++d) {
            const std::string label = DayLabel(g_, e, d);
            if (request_.saveSpace && label.empty() && g_.reports.print.PrintRangeCount[d] == 0) continue;
            vp_.AddTable(LongDay, DayRow(e, own, d, label), shade);
            shade = shade == FirstRowShade ? QBColor(15) : FirstRowShade;
        }
        WeekRow(e, own);
    }

    std::vector<std::string> DayRow(int e, const EmployeeSums& own, int d, const std::string& label) {
        std::array<std::string, 4> slots;
        std::size_t next = 0;
        const auto put = [&](const std::string& text) {
            std::string& slot = slots[next % slots.size()];
            slot += (next >= slots.size() ? "\n" : "") + text;
            ++next;
        };
        if (!label.empty()) put(label);
        for (int r = 1; r <= g_.reports.print.PrintRangeCount[d]; ++r)
            put(RangeText(g_, request_, d, r, false));
        return {ports_.region.Names().shortWeekdays[WeekdayOf(g_, d)],
                ports_.region.MediumDate(g_.week.WeekStartJulian + d - 1) + ">",
                slots[0],
                slots[1],
                slots[2],
                slots[3],
                HoursCell(own.quarters[d]),
                MoneyCell(e, own.wages[d])};
    }

    std::string HoursCell(int quarters) const {
        const std::string text = QuartersToText(quarters, TimeStyle());
        return !Hours() || Trim(text) == "0:00" ? "" : text;
    }

    std::string MoneyCell(int e, double wage) const {
        if (!Wages()) return "";
        if (!g_.roster.IsPaidByHour(e)) return "Salary";
        const std::string text = Format(wage, ".00");
        return text == ".00" ? "" : text;
    }

    void WeekRow(int e, const EmployeeSums& own) {
        if (!PrintsTotals(g_)) return Spacer();
        const std::string money =
            g_.roster.IsPaidByHour(e) ? Format(own.weekWages, ".00") : Format(g_.roster.RosterPay[e], ".00");
        vp_.FontBold(true);
        vp_.AddTable("65%|>~_23%|>~_12%;",
                     {"", Hours() ? "Total:  " + QuartersToText(own.weekQuarters, TimeStyle()) : "",
                      Wages() ? money : ""});
        vp_.FontBold(false);
    }

    void Totals() {
        vp_.TextColor(QBColor(9));
        const std::string& name = g_.department.CurrentDepName;
        if (Hours())
            vp_.AddTable(
                ">~_88%|>~_12%;",
                {name + ", total time:  " + QuartersToText(sums_.PrintTotalQuarters, TimeStyle()), " "});
        if (!Wages()) return;
        const auto money = [](double amount) { return Format(amount, "##,##0.00"); };
        Line(">~_100%;", name + ", total wages:  " + money(sums_.PrintTotalWagesSum));
        Line(">~_100%;", name + ", total salaries:   " + money(g_.TotalSalaries));
        Line(">~_100%;",
             name + ", total compensation:   " + money(sums_.PrintTotalWagesSum + g_.TotalSalaries));
    }

    void Note() {
        if (g_.department.DayCutoffQuarters <= 0 || !PrintsTotals(g_)) return;
        const std::string time = CutoffText(g_);
        vp_.FontBold(false);
        Line("<+100%;", "Note:\nTime and Wage statistics are between the hours of:" + time + " and" + time +
                            " the following day.");
    }
};

} // namespace

void PrintShortScheduleHTML(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp) {
    ScheduleRequest run = request;
    BeginRun(g, run);
    ShortHtml(g, ports, run, vp).Print();
    ports.prompt.MousePointer(Pointer::Default);
}

void PrintLongScheduleHTML(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp) {
    ScheduleRequest run = request;
    BeginRun(g, run);
    LongHtml schedule(g, ports, run, vp);
    if (run.kind == "SelectedEmployees")
        schedule.PrintPicked();
    else
        schedule.PrintRoster();
    ports.prompt.MousePointer(Pointer::Default);
}

void RunSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, bool html, Vp& vp) {
    vp.StartDoc();
    const bool shortKind = request.kind == "7DayShort";
    if (html && shortKind)
        PrintShortScheduleHTML(g, ports, request, vp);
    else if (html)
        PrintLongScheduleHTML(g, ports, request, vp);
    else if (shortKind)
        Print7day(g, ports, request, vp);
    else
        PrintLongSchedule(g, ports, request, vp);
    vp.EndDoc();
}

} // namespace tvx
