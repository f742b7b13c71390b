#include "reports/schedules/LongSchedule.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "reports/page/ReportText.h"

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
    LongSchedule(const PrintedSchedule& schedule, Vp& vp)
        : page_(schedule.page), people_(schedule.people), vp_(vp), unit_(vp.PageWidth() / UnitsAcross),
          lineHeight_(std::max<Twips>(1, vp.TextHeight("V")) * 1.1),
          capacity_(static_cast<int>(vp.PageHeight() / lineHeight_) - (page_.PrintsTotals() ? 12 : 11)) {}

    void PrintRoster() {
        Head();
        for (const PrintedPerson& person : people_) {
            NameLine(person);
            Days(person);
            if (line_ <= capacity_) continue;
            vp_.NewPage();
            line_ = 1;
            Head();
        }
        if (page_.PrintsTotals()) Totals();
        vp_.EndDoc();
    }

    void PrintPicked() {
        bool first = true;
        for (const PrintedPerson& person : people_) {
            if (!first) vp_.NewPage();
            first = false;
            line_ = 1;
            PickedTitle(person);
            Days(person);
            if (page_.NotesCutoff()) PickedNote();
        }
    }

  private:
    Twips X(double units) const { return static_cast<Twips>(std::lround(units * unit_)); }
    Twips Y(double line) const { return static_cast<Twips>(std::lround(line * lineHeight_)); }

    void Head() {
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), page_.title);
        TextEndingAt(vp_, X(UnitsAcross - 1), Y(line_), "  Page:" + Str(vp_.CurrentPage()));
        ++line_;
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), page_.printedOn);
    }

    void PickedTitle(const PrintedPerson& person) {
        std::string title = "Schedule for: " + person.name1 + " " + person.name2;
        if (!person.detail.empty()) title += ", " + person.detail;
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), title);
        ++line_;
        vp_.FontBold(true);
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), page_.title);
        vp_.FontBold(false);
    }

    void PickedNote() {
        const std::string time = CutoffText(page_);
        TextAt(vp_, X(LeftEdge), Y(++line_), "Note:");
        TextAt(vp_, X(LeftEdge), Y(++line_),
               "Time and Wage statistics are between the hours of:" + time + " and" + time +
                   " the following day.");
    }

    void NameLine(const PrintedPerson& person) {
        ++line_;
        const std::string name = person.name1 + (Trim(person.name2).empty() ? "" : ", ") + person.name2;
        vp_.FontBold(true);
        TextAt(vp_, X(LeftEdge), Y(line_), name);
        const Twips behind = X(LeftEdge) + vp_.TextWidth(name);
        vp_.FontBold(false);
        if (person.detail.empty()) return;
        TextAt(vp_, behind, Y(line_), (page_.options.NameOption <= 2 ? ", " : " ") + person.detail);
    }

    void Days(const PrintedPerson& person) {
        const EmployeeSums own = AddToSums(page_, person, sums_);
        bool shade = true;
        for (int d = 1; d <= 7; ++d) {
            ++line_;
            if (shade) Band();
            shade = !shade;
            Day(person, d);
            Figures(person, own, d);
        }
        ++line_;
        WeekFigures(person, own);
    }

    void Band() {
        vp_.PenStyle(PenStyles::NoOutline);
        vp_.BrushColor(BandShade);
        vp_.DrawRectangle(0, Y(line_), vp_.PageWidth(), Y(line_ + 1));
        vp_.PenStyle(PenStyles::Solid);
    }

    void Day(const PrintedPerson& person, int d) {
        dayLine_ = line_;
        slot_ = 0;
        Date(d);
        if (const std::string& label = person.labels[d]; !label.empty()) {
            vp_.FontBold(page_.IsDayOff(label));
            InNextSlot(Fitted(vp_, label, X(SlotWidth)));
            vp_.FontBold(false);
        }
        const int count = static_cast<int>(person.PrintRanges[d].size());
        for (int r = 1; r <= count; ++r) InNextSlot(RangeText(page_, person, d, r, false));
    }

    /// The weekday and the date; a large font leaves less of the weekday, never of the date.
    void Date(int d) {
        const std::string& date = page_.mediumDates[d];
        TextAt(vp_, X(LeftEdge), Y(line_),
               Fitted(vp_, page_.shortWeekdays[d], X(DateEdge) - vp_.TextWidth(date) - X(LeftEdge)));
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

    void Figures(const PrintedPerson& person, const EmployeeSums& own, int d) {
        if (page_.PrintsHours())
            TextEndingAt(vp_, X(HoursEdge), Y(dayLine_), HoursText(page_, person.PrintDayQuarters[d]));
        if (page_.PrintsWages())
            TextEndingAt(vp_, X(MoneyEdge), Y(dayLine_),
                         person.paidByHour ? Format(own.wages[d], ".00") : "Salary  ");
    }

    void WeekFigures(const PrintedPerson& person, const EmployeeSums& own) {
        if (page_.PrintsHours())
            TextEndingAt(vp_, X(HoursEdge), Y(line_), "Total: " + HoursText(page_, own.weekQuarters));
        if (page_.PrintsWages())
            TextEndingAt(vp_, X(MoneyEdge), Y(line_),
                         person.paidByHour ? Format(own.weekWages, ".00") : SalaryText(person));
    }

    void MoneyLine(const std::string& label, const std::string& amount) {
        ++line_;
        TextEndingAt(vp_, X(MoneyLabelEdge), Y(line_), label);
        TextEndingAt(vp_, X(MoneyEdge), Y(line_), amount);
    }

    void Totals() {
        ++line_;
        const double dashes = line_;
        if (page_.PrintsHours()) TextEndingAt(vp_, X(HoursEdge), Y(line_), "------");
        if (page_.PrintsWages()) TextEndingAt(vp_, X(MoneyEdge), Y(line_), "------");
        if (page_.PrintsHours()) {
            ++line_;
            TextEndingAt(vp_, X(TimeLabelEdge), Y(line_), "Department total time:");
            TextEndingAt(vp_, X(HoursEdge), Y(line_), HoursText(page_, sums_.PrintTotalQuarters));
        }
        if (page_.PrintsWages()) MoneyLines();
        if (page_.NotesCutoff()) Note(std::max(line_ - 3, dashes));
    }

    void MoneyLines() {
        const TotalTexts money = MoneyTotals(page_, sums_, ".00");
        MoneyLine("Department total wages:", money.wages);
        MoneyLine("Department total salaries:", money.salaries);
        MoneyLine("Department total compensation:", money.compensation);
    }

    /// At the left of the totals, from three lines above the last one down; where the totals are so short
    /// that this would run into the last employee's days, from their first line down.
    void Note(double line) {
        const std::string time = CutoffText(page_);
        TextAt(vp_, X(LeftEdge), Y(line++), "Note:");
        TextAt(vp_, X(LeftEdge), Y(line++), "Time and Wage statistics are between the hours");
        TextAt(vp_, X(LeftEdge), Y(line), "of:" + time + " and" + time + " the following day.");
    }

    const SchedulePage& page_;
    const std::vector<PrintedPerson>& people_;
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

void PrintLongSchedule(const PrintedSchedule& schedule, Vp& vp) {
    LongSchedule(schedule, vp).PrintRoster();
}

void PrintSelectedSchedules(const PrintedSchedule& schedule, Vp& vp) {
    LongSchedule(schedule, vp).PrintPicked();
}

} // namespace tvx
