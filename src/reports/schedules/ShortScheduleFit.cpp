#include "reports/schedules/ShortScheduleFit.h"

#include "platform/basic/Format.h"
#include "reports/schedules/ShortGrid.h"

#include <cmath>

namespace tvx {

using namespace short_grid;

namespace {

constexpr const char* LineGap = " "; // so that what stands in the middle is clear of the lines on both sides

} // namespace

ShortScheduleFit::ShortScheduleFit(const SchedulePage& page, const Vp& vp)
    : page_(page), brief_(page), pageWidth_(vp.PageWidth()), unit_(vp.PageWidth() / UnitsAcross) {
    brief_.openWord = "\u2026";
}

Twips ShortScheduleFit::X(double units) const {
    return static_cast<Twips>(std::lround(units * unit_));
}

Twips ShortScheduleFit::Percent(double percent) const {
    constexpr Twips Padding = 90; // of a cell, both sides
    return static_cast<Twips>(std::lround(pageWidth_ * percent / 100)) - Padding;
}

void ShortScheduleFit::Measure(const PrintedPerson& person, int rows) {
    constexpr double FreeLines = 4; // a rule, the foot, and what a page keeps free
    Ranges(person);
    Figures(person, AddToSums(page_, person, sums_));
    fit_.NeedsLines(HeadLines + rows + FreeLines);
}

void ShortScheduleFit::Ranges(const PrintedPerson& person) {
    for (int d = 1; d <= 7; ++d)
        for (int r = 1; r <= static_cast<int>(person.PrintRanges[d].size()); ++r)
            fit_.Needs({RangeText(page_, person, d, r, true) + LineGap, X(DayUnits)},
                       RangeText(brief_, person, d, r, true) + LineGap);
}

void ShortScheduleFit::Figures(const PrintedPerson& person, const EmployeeSums& own) {
    const Twips besideName = X(WeekFiguresEdge - NameUnit) / 2;
    if (page_.PrintsHours()) fit_.Needs({WeekHoursText(page_, person, own), besideName});
    if (page_.PrintsWages()) fit_.Needs({WeekMoneyText(person, own), besideName});
    for (int d = 1; d <= 7; ++d) {
        const int quarters = person.PrintDayQuarters[d];
        if (page_.PrintsHours()) fit_.Needs({DayHoursText(page_, quarters), X(FiguresInDay)});
        if (page_.PrintsWages())
            fit_.Needs({DayWagesText(page_, person, quarters, own.wages[d]), X(FiguresInDay)});
    }
}

Fitting ShortScheduleFit::SetSize(Vp& vp) {
    Head();
    if (page_.PrintsTotals()) Totals();
    if (page_.productivity) ProductivityBlock(*page_.productivity);
    return fit_.SetSize(vp);
}

void ShortScheduleFit::Head() {
    fit_.Needs({page_.weekSpan + TwicePageNumber, pageWidth_});
    fit_.Needs({page_.printedOn, pageWidth_});
    fit_.Needs({WeekOfYear(page_), X(NameUnits - WeekNumberUnit)});
    for (int d = 1; d <= 7; ++d) {
        fit_.Needs({page_.weekdays[d] + LineGap, X(DayUnits), true}, page_.shortWeekdays[d] + LineGap);
        fit_.Needs({page_.dates[d] + LineGap, X(DayUnits)});
    }
}

void ShortScheduleFit::Totals() {
    for (int d = 1; d <= 7; ++d) {
        if (page_.PrintsHours()) fit_.Needs({DayTotalHours(page_, sums_, d), X(FiguresInDay)});
        if (page_.PrintsWages()) fit_.Needs({DayTotalWages(page_, sums_, d), X(FiguresInDay)});
    }
    fit_.Needs({"Day totals", X(NameUnits - LeftUnit), true});
    if (page_.NotesCutoff()) fit_.Needs({CutoffNote(page_), X(RightUnit - LeftUnit)});
    for (const TotalText& total : WeekTotalTexts(page_, sums_)) TotalLine(total.label, total.amount);
}

void ShortScheduleFit::TotalLine(const std::string& label, const std::string& amount) {
    fit_.Needs({label, X(TotalLabelsEdge), true});
    fit_.Needs({amount, X(RightUnit - TotalLabelsEdge), true});
}

void ShortScheduleFit::ProductivityBlock(const PrintedProductivity& figures) {
    for (const char* label : {"Sales includes", "Transactions include", "Labor% includes"})
        fit_.Needs({label, Percent(WordLabelPercent)});
    for (const char* words : {"Wages time", "Salaried time", "Wages", "Salaries"})
        fit_.Needs({YesNo(words, true), Percent(WordPercent)});
    for (const ProductivityRow& row : ProductivityRows(page_, figures, sums_)) {
        fit_.Needs({row.label, Percent(FigureLabelPercent)});
        fit_.Needs({row.textOf(0), Percent(WeekFigurePercent)});
        for (int d = 1; d <= 7; ++d) fit_.Needs({row.textOf(d), Percent(DayFigurePercent)});
    }
}

} // namespace tvx
