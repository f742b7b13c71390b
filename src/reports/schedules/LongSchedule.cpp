#include "reports/schedules/LongSchedule.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "reports/page/ReportText.h"
#include "shell/common/Conversions.h"

#include <algorithm>
#include <cmath>

namespace tvx {
namespace {

constexpr int UnitsAcross = 80;
constexpr double LeftEdge = 0.1; // of names, weekdays and notes
constexpr double DateEdge = 9.8;
constexpr double FirstSlotBase = 10;
constexpr double SlotWidth = 11;
constexpr int Slots = 4;
constexpr double TimeLabelEdge = 61;
constexpr double HoursEdge = 68;
constexpr double MoneyLabelEdge = 70;
constexpr double MoneyEdge = 77;
constexpr Colour BandShade = RGB(240, 240, 240);

class LongSchedule {
  public:
    LongSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp)
        : g_(g), ports_(ports), request_(request), vp_(vp), unit_(vp.PageWidth() / UnitsAcross),
          lineHeight_(std::max<Twips>(1, vp.TextHeight("V")) * 1.1),
          capacity_(static_cast<int>(vp.PageHeight() / lineHeight_) - (PrintsTotals(g) ? 12 : 11)) {}

    void PrintRoster() {
        Head();
        for (int position = 1; position <= g_.roster.EmployeeCount; ++position) {
            const int e = g_.roster.RowOrder[position];
            if (!IsPrinted(g_, e)) continue;
            NameLine(e);
            Days(e);
            if (line_ <= capacity_) continue;
            vp_.NewPage();
            line_ = 1;
            Head();
        }
        if (PrintsTotals(g_)) Totals();
        vp_.EndDoc();
    }

    void PrintPicked() {
        bool first = true;
        for (const int e : request_.picked) {
            if (!first) vp_.NewPage();
            first = false;
            line_ = 1;
            PickedTitle(e);
            Days(e);
            PickedNote();
        }
    }

  private:
    Twips X(double units) const { return static_cast<Twips>(std::lround(units * unit_)); }
    Twips Y(double line) const { return static_cast<Twips>(std::lround(line * lineHeight_)); }
    const std::string& TimeStyle() const { return g_.application.Settings[setting::TimeFormat]; }

    void Head() {
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), WeekTitle(g_.department, g_.week));
        TextEndingAt(vp_, X(UnitsAcross - 1), Y(line_), "  Page:" + Str(vp_.CurrentPage()));
        ++line_;
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), PrintedOn(ports_));
    }

    void PickedTitle(int e) {
        const std::string detail = NameDetail(g_, e);
        std::string title = "Schedule for: " + g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e];
        if (!detail.empty()) title += ", " + detail;
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), title);
        ++line_;
        vp_.FontBold(true);
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), WeekTitle(g_.department, g_.week));
        vp_.FontBold(false);
    }

    void PickedNote() {
        if (g_.department.DayCutoffQuarters <= 0 || !PrintsTotals(g_)) return;
        const std::string time = CutoffText(g_);
        TextAt(vp_, X(LeftEdge), Y(++line_), "Note:");
        TextAt(vp_, X(LeftEdge), Y(++line_),
               "Time and Wage statistics are between the hours of:" + time + " and" + time +
                   " the following day.");
    }

    void NameLine(int e) {
        ++line_;
        const std::string& second = g_.roster.RosterName2[e];
        const std::string name = g_.roster.RosterName1[e] + (Trim(second).empty() ? "" : ", ") + second;
        vp_.FontBold(true);
        TextAt(vp_, X(LeftEdge), Y(line_), name);
        const Twips behind = X(LeftEdge) + vp_.TextWidth(name);
        vp_.FontBold(false);
        const std::string detail = NameDetail(g_, e);
        if (detail.empty()) return;
        TextAt(vp_, behind, Y(line_), (g_.reports.options.NameOption <= 2 ? ", " : " ") + detail);
    }

    void Days(int e) {
        ports_.prompt.MousePointer(Pointer::Hourglass);
        LoadPrintArrays(g_, e);
        const EmployeeSums own = AddToSums(g_, e, false, sums_);
        bool shade = true;
        for (int d = 1; d <= 7; ++d) {
            ++line_;
            if (shade) Band();
            shade = !shade;
            Day(e, d);
            Figures(e, own, d);
        }
        ++line_;
        WeekFigures(e, own);
    }

    void Band() {
        vp_.PenStyle(PenStyles::NoOutline);
        vp_.BrushColor(BandShade);
        vp_.DrawRectangle(0, Y(line_), vp_.PageWidth(), Y(line_ + 1));
        vp_.PenStyle(PenStyles::Solid);
    }

    void Day(int e, int d) {
        dayLine_ = line_;
        slot_ = 0;
        Date(d);
        const std::string label = DayLabel(g_, e, d);
        if (!label.empty()) {
            vp_.FontBold(IsDayOffLabel(g_, label));
            InNextSlot(Fitted(vp_, label, X(SlotWidth)));
            vp_.FontBold(false);
        }
        for (int r = 1; r <= g_.reports.print.PrintRangeCount[d]; ++r)
            InNextSlot(RangeText(g_, request_, d, r, false));
    }

    /// The weekday and the date; a large font leaves less of the weekday, never of the date.
    void Date(int d) {
        const std::string date = ports_.region.MediumDate(g_.week.WeekStartJulian + d - 1);
        const std::string& weekday = ports_.region.Names().shortWeekdays[WeekdayOf(g_, d)];
        TextAt(vp_, X(LeftEdge), Y(line_),
               Fitted(vp_, weekday, X(DateEdge) - vp_.TextWidth(date) - X(LeftEdge)));
        TextEndingAt(vp_, X(DateEdge), Y(line_), date);
    }

    /// Writes into the next of the four slots; behind the last one a further line begins.
    void InNextSlot(const std::string& text) {
        if (slot_ == Slots) {
            slot_ = 0;
            ++line_;
        }
        ++slot_;
        TextEndingAt(vp_, X(FirstSlotBase + SlotWidth * slot_), Y(line_), text);
    }

    void Figures(int e, const EmployeeSums& own, int d) {
        if (g_.reports.options.PrintTotalHours != 0)
            TextEndingAt(vp_, X(HoursEdge), Y(dayLine_), QuartersToText(own.quarters[d], TimeStyle()));
        if (g_.reports.options.PrintTotalWages != 0)
            TextEndingAt(vp_, X(MoneyEdge), Y(dayLine_),
                         g_.roster.IsPaidByHour(e) ? Format(own.wages[d], ".00") : "Salary  ");
        g_.reports.print.PrintDayQuarters[d] = 0;
    }

    void WeekFigures(int e, const EmployeeSums& own) {
        if (g_.reports.options.PrintTotalHours != 0)
            TextEndingAt(vp_, X(HoursEdge), Y(line_),
                         "Total: " + QuartersToText(own.weekQuarters, TimeStyle()));
        if (g_.reports.options.PrintTotalWages != 0)
            TextEndingAt(vp_, X(MoneyEdge), Y(line_),
                         g_.roster.IsPaidByHour(e) ? Format(own.weekWages, ".00")
                                                   : Format(g_.roster.RosterPay[e], ".00"));
    }

    void MoneyLine(const std::string& label, double amount) {
        ++line_;
        TextEndingAt(vp_, X(MoneyLabelEdge), Y(line_), label);
        TextEndingAt(vp_, X(MoneyEdge), Y(line_), Format(amount, ".00"));
    }

    void Totals() {
        const bool hours = g_.reports.options.PrintTotalHours != 0;
        const bool wages = g_.reports.options.PrintTotalWages != 0;
        ++line_;
        const double dashes = line_;
        if (hours) TextEndingAt(vp_, X(HoursEdge), Y(line_), "------");
        if (wages) TextEndingAt(vp_, X(MoneyEdge), Y(line_), "------");
        if (hours) {
            ++line_;
            TextEndingAt(vp_, X(TimeLabelEdge), Y(line_), "Department total time:");
            TextEndingAt(vp_, X(HoursEdge), Y(line_), QuartersToText(sums_.PrintTotalQuarters, TimeStyle()));
        }
        if (wages) {
            MoneyLine("Department total wages:", sums_.PrintTotalWagesSum);
            MoneyLine("Department total salaries:", g_.TotalSalaries);
            MoneyLine("Department total compensation:", sums_.PrintTotalWagesSum + g_.TotalSalaries);
        }
        Note(std::max(line_ - 3, dashes));
    }

    /// At the left of the totals, from three lines above the last one down; where the totals are so short
    /// that this would run into the last employee's days, from their first line down.
    void Note(double line) {
        if (g_.department.DayCutoffQuarters <= 0) return;
        const std::string time = CutoffText(g_);
        TextAt(vp_, X(LeftEdge), Y(line++), "Note:");
        TextAt(vp_, X(LeftEdge), Y(line++), "Time and Wage statistics are between the hours");
        TextAt(vp_, X(LeftEdge), Y(line), "of:" + time + " and" + time + " the following day.");
    }

    GlobalState& g_;
    Ports& ports_;
    const ScheduleRequest& request_;
    Vp& vp_;
    Twips unit_;
    double lineHeight_;
    int capacity_;
    double line_ = 1;    // the line written last
    double dayLine_ = 1; // on which the present day begins
    int slot_ = 0;
    ScheduleSums sums_;
};

} // namespace

void PrintLongSchedule(GlobalState& g, Ports& ports, const ScheduleRequest& request, Vp& vp) {
    ScheduleRequest run = request;
    BeginRun(g, run);
    LongSchedule schedule(g, ports, run, vp);
    if (run.kind == "SelectedEmployees")
        schedule.PrintPicked();
    else
        schedule.PrintRoster();
    ports.prompt.MousePointer(Pointer::Default);
}

} // namespace tvx
