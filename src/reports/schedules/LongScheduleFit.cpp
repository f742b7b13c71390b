#include "reports/schedules/LongScheduleFit.h"

#include "platform/basic/Format.h"
#include "reports/schedules/LongGrid.h"

#include <algorithm>
#include <cmath>

namespace tvx {

using namespace long_grid;

namespace {

constexpr const char* BetweenRanges = "  "; // more than stands between start and stop

class LongScheduleFit {
  public:
    LongScheduleFit(const PrintedSchedule& schedule, const Vp& vp)
        : page_(schedule.page), brief_(schedule.page), pageWidth_(vp.PageWidth()),
          unit_(vp.PageWidth() / UnitsAcross) {
        brief_.openWord = "\u2026";
        Dates();
        for (const PrintedPerson& person : schedule.people) Person(person);
    }

    Fitting SetSize(Vp& vp) const { return fit_.SetSize(vp); }

    void RosterHead() {
        fit_.Needs({page_.weekSpan + TwicePageNumber, pageWidth_});
        fit_.Needs({page_.printedOn, pageWidth_});
    }

    void PickedHead() {
        fit_.Needs({page_.weekSpan, pageWidth_, true});
        if (!page_.NotesCutoff()) return;
        for (const std::string& line : PickedNote(page_)) fit_.Needs({line, pageWidth_});
    }

    void Totals() {
        if (page_.PrintsHours())
            Total("Department total time:", TimeLabelEdge, HoursText(page_, sums_.PrintTotalQuarters),
                  HoursEdge);
        if (!page_.PrintsWages()) return;
        const TotalTexts money = MoneyTotals(page_, sums_, ".00");
        for (const std::string& amount : {money.wages, money.salaries, money.compensation})
            Total("Department total compensation:", MoneyLabelEdge, amount, MoneyEdge);
    }

  private:
    Twips X(double units) const { return static_cast<Twips>(std::lround(units * unit_)); }

    void Dates() {
        for (int d = 1; d <= 7; ++d)
            fit_.Needs({page_.shortWeekdays[d] + " " + page_.mediumDates[d], X(DateEdge - LeftEdge)});
    }

    void Person(const PrintedPerson& person) {
        constexpr double PageLines =
            4; // the line above the head, the name, the foot, and what rounding takes
        const EmployeeSums own = AddToSums(page_, person, sums_);
        for (int d = 1; d <= 7; ++d) Day(person, own, d);
        if (page_.PrintsHours()) Hours("Total: " + HoursText(page_, own.weekQuarters));
        if (page_.PrintsWages()) Money(person.paidByHour ? Format(own.weekWages, ".00") : SalaryText(person));
        fit_.NeedsLines(HeadLines + PageLines + LinesOfWeek(page_, person));
    }

    void Day(const PrintedPerson& person, const EmployeeSums& own, int d) {
        for (int r = 1; r <= static_cast<int>(person.PrintRanges[d].size()); ++r)
            fit_.Needs({RangeText(page_, person, d, r, false) + BetweenRanges, X(SlotWidth)},
                       RangeText(brief_, person, d, r, false));
        if (page_.PrintsHours()) Hours(HoursText(page_, person.PrintDayQuarters[d]));
        if (page_.PrintsWages()) Money(person.paidByHour ? Format(own.wages[d], ".00") : "Salary  ");
    }

    void Hours(const std::string& text) { fit_.Needs({text, X(HoursEdge - LastSlotEdge)}); }
    void Money(const std::string& text) { fit_.Needs({text, X(MoneyEdge - HoursEdge)}); }

    /// The note stands at the left of the totals, on the same lines.
    void Total(const std::string& label, double labelEdge, const std::string& amount, double edge) {
        fit_.Needs({amount, X(edge - labelEdge)});
        fit_.Needs({label, X(labelEdge)});
        if (!page_.NotesCutoff()) return;
        for (const std::string& line : RosterNote(page_))
            fit_.Needs({std::string(line).append("  ").append(label), X(labelEdge - LeftEdge)});
    }

    const SchedulePage& page_;
    SchedulePage brief_; // with the shortest words
    Twips pageWidth_;
    Twips unit_;
    ScheduleSums sums_;
    ReportFit fit_;
};

} // namespace

Fitting FitRoster(const PrintedSchedule& schedule, Vp& vp) {
    LongScheduleFit fit(schedule, vp);
    fit.RosterHead();
    if (schedule.page.PrintsTotals()) fit.Totals();
    return fit.SetSize(vp);
}

Fitting FitPicked(const PrintedSchedule& schedule, Vp& vp) {
    LongScheduleFit fit(schedule, vp);
    fit.PickedHead();
    return fit.SetSize(vp);
}

int LinesOfDay(const PrintedPerson& person, int day) {
    const int texts = static_cast<int>(person.PrintRanges[day].size()) + (person.labels[day].empty() ? 0 : 1);
    return std::max(1, (texts + Slots - 1) / Slots);
}

int LinesOfWeek(const SchedulePage& page, const PrintedPerson& person) {
    int lines = page.PrintsTotals() ? 1 : 0;
    for (int d = 1; d <= 7; ++d) lines += LinesOfDay(person, d);
    return lines;
}

int LinesOfLongestDay(const PrintedSchedule& schedule) {
    int most = 1;
    for (const PrintedPerson& person : schedule.people)
        for (int d = 1; d <= 7; ++d) most = std::max(most, LinesOfDay(person, d));
    return most;
}

std::vector<std::string> RosterNote(const SchedulePage& page) {
    const std::string time = CutoffText(page);
    return {"Note:", "Time and Wage statistics are between the hours",
            "of:" + time + " and" + time + " the following day."};
}

std::vector<std::string> PickedNote(const SchedulePage& page) {
    const std::string time = CutoffText(page);
    return {"Note:", "Time and Wage statistics are between the hours of:" + time + " and" + time +
                         " the following day."};
}

} // namespace tvx
