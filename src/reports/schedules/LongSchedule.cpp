#include "reports/schedules/LongSchedule.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "reports/page/ReportText.h"
#include "reports/schedules/LongGrid.h"
#include "reports/schedules/LongScheduleFit.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace tvx {

using namespace long_grid;

namespace {

constexpr double LabelWidth = SlotWidth - 0.3; // clear of the date
constexpr Colour BandShade = RGB(240, 240, 240);

class LongSchedule {
  public:
    LongSchedule(const PrintedSchedule& schedule, Vp& vp)
        : page_(schedule.page), people_(schedule.people), longestDay_(LinesOfLongestDay(schedule)), vp_(vp),
          unit_(vp.PageWidth() / UnitsAcross) {}

    void PrintRoster(Fitting fitting) {
        if (!Begin(fitting)) return;
        Head();
        for (const PrintedPerson& person : people_) RosterBlock(person);
        if (page_.PrintsTotals()) Totals();
        vp_.EndDoc();
    }

    void PrintPicked(Fitting fitting) {
        if (!Begin(fitting)) return;
        bool first = true;
        for (const PrintedPerson& person : people_) {
            if (!first) vp_.NewPage();
            first = false;
            PickedHead(person);
            Days(person, [&] {
                vp_.NewPage();
                PickedHead(person);
            });
            if (page_.NotesCutoff()) Note(PickedNote(page_), line_ + 1);
        }
    }

  private:
    Twips X(double units) const { return static_cast<Twips>(std::lround(units * unit_)); }
    Twips Y(double line) const { return static_cast<Twips>(std::lround(line * lineHeight_)); }

    /// Takes the measures of the size that fits. False when there is none, or when not even a name and a day
    /// stand on a page.
    bool Begin(Fitting fitting) {
        fitting_ = fitting;
        lineHeight_ = GridLine(vp_);
        capacity_ = static_cast<int>(vp_.PageHeight() / lineHeight_) - (page_.PrintsTotals() ? 12 : 11);
        lastLine_ = static_cast<int>(HeightAboveFoot(vp_) / lineHeight_) - 1;
        if (fitting_ != Fitting::None && HeadLines + 1 + longestDay_ <= lastLine_) return true;
        DrawTooSmall(vp_);
        return false;
    }

    bool HasRoom(int lines) const { return line_ + lines <= lastLine_; }

    void NextPage() {
        vp_.NewPage();
        Head();
    }

    void Head() {
        line_ = 1;
        const Twips middle = vp_.PageWidth() / 2;
        const std::string number = "  Page:" + Str(vp_.CurrentPage());
        const Twips free = X(PageNumberEdge) - vp_.TextWidth(number) - middle;
        TextCentredAt(vp_, middle, Y(line_), TitleIn(page_, vp_, 2 * free));
        TextEndingAt(vp_, X(PageNumberEdge), Y(line_), number);
        ++line_;
        TextCentredAt(vp_, middle, Y(line_), page_.printedOn);
        DrawFoot(vp_);
    }

    void PickedHead(const PrintedPerson& person) {
        line_ = 1;
        std::string title = "Schedule for: " + Isolated(person.name1 + " " + person.name2);
        if (!person.detail.empty()) title += ", " + Isolated(person.detail);
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), WithEllipsis(vp_, title, vp_.PageWidth()));
        ++line_;
        vp_.FontBold(true);
        TextCentredAt(vp_, vp_.PageWidth() / 2, Y(line_), TitleIn(page_, vp_, vp_.PageWidth()));
        vp_.FontBold(false);
        DrawFoot(vp_);
    }

    /// A block stays together where a page has room for it; one that is higher than a page goes on on the
    /// next, below the name again.
    void RosterBlock(const PrintedPerson& person) {
        if (line_ > HeadLines && !HasRoom(1 + LinesOfWeek(page_, person))) NextPage();
        NameLine(person);
        Days(person, [&] {
            NextPage();
            NameLine(person);
        });
        if (line_ > capacity_) NextPage();
    }

    /// A long name leaves half of the line to what stands behind it.
    void NameLine(const PrintedPerson& person) {
        ++line_;
        const Twips room = vp_.PageWidth() - X(LeftEdge);
        std::string detail = person.detail;
        if (!detail.empty()) detail.insert(0, page_.options.NameOption <= 2 ? ", " : " ");
        detail = WithEllipsis(vp_, detail, room / 2);
        const Twips forName = room - vp_.TextWidth(detail);
        const std::string name = person.name1 + (Trim(person.name2).empty() ? "" : ", ") + person.name2;
        vp_.FontBold(true);
        const std::string shown = WithEllipsis(vp_, name, forName);
        TextAt(vp_, X(LeftEdge), Y(line_), shown);
        const Twips behind = X(LeftEdge) + vp_.TextWidth(shown);
        vp_.FontBold(false);
        TextAt(vp_, behind, Y(line_), detail);
    }

    void Days(const PrintedPerson& person, const std::function<void()>& goOn) {
        const EmployeeSums own = AddToSums(page_, person, sums_);
        for (int d = 1; d <= 7; ++d) {
            if (!HasRoom(LinesOfDay(person, d))) goOn();
            ++line_;
            if (d % 2 == 1) Band();
            Day(person, d);
            Figures(person, own, d);
        }
        if (page_.PrintsTotals() && !HasRoom(1)) goOn();
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
        TextAt(vp_, X(LeftEdge), Y(line_), page_.shortWeekdays[d]);
        TextEndingAt(vp_, X(DateEdge), Y(line_), page_.mediumDates[d]);
        if (const std::string& label = person.labels[d]; !label.empty()) {
            vp_.FontBold(page_.IsDayOff(label));
            InNextSlot(WithEllipsis(vp_, label, X(LabelWidth)));
            vp_.FontBold(false);
        }
        const int count = static_cast<int>(person.PrintRanges[d].size());
        for (int r = 1; r <= count; ++r) InNextSlot(InSlot(RangeText(page_, person, d, r, false)));
    }

    /// The text of a range; only the word for a day's last stop can be too long for its slot.
    std::string InSlot(const std::string& range) const {
        return fitting_ == Fitting::Cut ? WithEllipsis(vp_, range, X(SlotWidth)) : range;
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
        constexpr int Lines = 6; // dashes and four sums, or dashes, one of them and the end of the note
        if (line_ > HeadLines && !HasRoom(Lines)) NextPage();
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
        // From three lines above the last sum down; where the sums are so few that this would run into the
        // last person's days, from their first line down.
        if (page_.NotesCutoff()) Note(RosterNote(page_), std::max(line_ - 3, dashes));
    }

    void MoneyLines() {
        const TotalTexts money = MoneyTotals(page_, sums_, ".00");
        MoneyLine("Department total wages:", money.wages);
        MoneyLine("Department total salaries:", money.salaries);
        MoneyLine("Department total compensation:", money.compensation);
    }

    void Note(const std::vector<std::string>& note, double line) {
        for (const std::string& text : note) TextAt(vp_, X(LeftEdge), Y(line++), text);
    }

    const SchedulePage& page_;
    const std::vector<PrintedPerson>& people_;
    int longestDay_; // in lines
    Vp& vp_;
    Twips unit_;
    Fitting fitting_ = Fitting::Whole;
    double lineHeight_ = 1;
    int capacity_ = 0;   // a block that ends below this line is the page's last
    int lastLine_ = 0;   // that is whole on the page
    double line_ = 1;    // the line written last
    double dayLine_ = 1; // on which the present day begins
    int slot_ = 0;
    ScheduleSums sums_;
};

} // namespace

void PrintLongSchedule(const PrintedSchedule& schedule, Vp& vp) {
    const Fitting fitting = FitRoster(schedule, vp);
    LongSchedule(schedule, vp).PrintRoster(fitting);
}

void PrintSelectedSchedules(const PrintedSchedule& schedule, Vp& vp) {
    const Fitting fitting = FitPicked(schedule, vp);
    LongSchedule(schedule, vp).PrintPicked(fitting);
}

} // namespace tvx
