#include "reports/schedules/ShortSchedule.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "reports/page/ReportText.h"
#include "reports/schedules/ShortGrid.h"

#include <algorithm>
#include <cmath>

namespace tvx {

using namespace short_grid;

namespace {

constexpr double FigureDrop = 0.05; // of the figures below their line
constexpr int LinesKeptFree = 4;
constexpr double RuleDrop = 1.06; // of a rule below the top of its line, clear of the texts on either side
constexpr double MostOfName = NameUnits - NameUnit - 0.4; // clear of the line behind it
constexpr double LabelUnits = DayUnits - 0.4;             // clear of the lines between the days
constexpr int NamesWithDetail = 5;                        // name options below this have a second line
constexpr int LastQuarter = 672;
constexpr int RunsOn = 680; // stop of a bar that goes on after the seventh day
constexpr Colour Grey = 0x808080;

double ColumnLeft(int day) {
    return NameUnits + (day - 1) * DayUnits;
}

double ColumnMiddle(int day) {
    return ColumnLeft(day) + DayUnits / 2.0;
}

} // namespace

ShortSchedule::ShortSchedule(const SchedulePage& page, Vp& vp)
    : page_(page), vp_(vp), fit_(page, vp), unit_(vp.PageWidth() / UnitsAcross) {}

Twips ShortSchedule::X(double units) const {
    return static_cast<Twips>(std::lround(units * unit_));
}

Twips ShortSchedule::Y(double line) const {
    return static_cast<Twips>(std::lround(line * lineHeight_));
}

Twips ShortSchedule::FiguresEdge(int day) const {
    return X(ColumnLeft(day) + FiguresInDay);
}

Twips ShortSchedule::BarX(int quarter) const {
    return X(quarter * DayUnits * 7.0 / LastQuarter + NameUnits);
}

void ShortSchedule::Measure(const PrintedPerson& person) {
    fit_.Measure(person, RowsOf(person));
}

bool ShortSchedule::Begin() {
    fitting_ = fit_.SetSize(vp_);
    lineHeight_ = GridLine(vp_);
    capacity_ = static_cast<int>(vp_.PageHeight() / lineHeight_) - LinesKeptFree;
    vp_.TextColor(WindowText);
    if (fitting_ == Fitting::None)
        DrawTooSmall(vp_);
    else
        Head();
    return fitting_ != Fitting::None;
}

void ShortSchedule::Finish() {
    if (page_.PrintsTotals()) Totals();
    if (page_.productivity) ProductivityBlock(*page_.productivity);
    if (page_.options.PrintDayComments) Comments();
}

// ---- the page ----

void ShortSchedule::Head() {
    HeadLine();
    TextCentredAt(vp_, vp_.PageWidth() / 2, Y(1), page_.printedOn);
    DrawFoot(vp_);
    vp_.PenWidth(1);
    vp_.DrawLine(X(LeftUnit), Y(3), X(RightUnit), Y(3));
    vp_.PenWidth(0);
    if (const std::string number = WeekOfYear(page_); !number.empty())
        TextAt(vp_, X(WeekNumberUnit), Y(3.5), number);
    for (int d = 1; d <= 7; ++d) DayHead(d);
    line_ = HeadLines;
    Rule();
}

/// The title in the middle, the number of the page at the right.
void ShortSchedule::HeadLine() {
    const Twips middle = vp_.PageWidth() / 2;
    const std::string number = "Page" + Str(vp_.CurrentPage());
    const Twips free = X(RightUnit) - vp_.TextWidth("  " + number) - middle;
    TextCentredAt(vp_, middle, Y(0), TitleIn(page_, vp_, 2 * free));
    TextEndingAt(vp_, X(RightUnit), Y(0), number);
}

void ShortSchedule::DayHead(int d) {
    const bool brief = fitting_ == Fitting::Cut;
    vp_.FontBold(true);
    TextCentredAt(vp_, X(ColumnMiddle(d)), Y(3.5), brief ? page_.shortWeekdays[d] : page_.weekdays[d]);
    vp_.FontBold(false);
    TextCentredAt(vp_, X(ColumnMiddle(d)), Y(4.5), page_.dates[d]);
}

/// Closes the present line across the grid.
void ShortSchedule::Rule() {
    vp_.DrawLine(X(LeftUnit), Y(line_ + RuleDrop), X(RightUnit), Y(line_ + RuleDrop));
}

void ShortSchedule::NextPage() {
    vp_.NewPage();
    Head();
    PageWentOn();
}

void ShortSchedule::Need(double lines) {
    if (line_ + lines >= capacity_ && line_ > HeadLines) NextPage();
}

// ---- one person ----

int ShortSchedule::RowsOf(const PrintedPerson& person) const {
    const auto count = [&](int d) { return static_cast<int>(person.PrintRanges[d].size()); };
    int rows = 0;
    for (int d = 1; d <= 7; ++d) rows = std::max(rows, count(d));
    for (int d = 1; d <= 7; ++d)
        if (!person.labels[d].empty() && count(d) == rows) ++rows;
    const ReportOptions& options = page_.options;
    rows += options.PrintTotalHours + options.PrintTotalWages + (options.PrintTimeBars ? 1 : 0);
    if (options.NameOption < NamesWithDetail) rows = std::max(rows, 2);
    return std::max(rows, 1); // the name needs a line of its own
}

void ShortSchedule::Person(const PrintedPerson& person) {
    Block block{person, AddToSums(page_, person, sums_), RowsOf(person)};
    Need(block.rows + 1);
    block.moneyLine = line_ + block.rows;
    block.hoursLine = page_.PrintsWages() ? block.moneyLine - 1 : block.moneyLine;
    Name(block);
    if (page_.options.PrintTimeBars) TimeBars(person);
    for (int d = 1; d <= 7; ++d) Day(block, d);
    Foot(block);
    Close(block.rows);
}

/// The rule below a block of some rows, and the lines between its days.
void ShortSchedule::Close(int rows) {
    const Twips top = Y(line_ + RuleDrop);
    line_ += rows;
    Rule();
    const Twips bottom = Y(line_ + RuleDrop);
    for (int d = 0; d <= 8; ++d) {
        const Twips x = d == 0 ? X(LeftUnit) : X(ColumnLeft(d));
        vp_.DrawLine(x, top, x, bottom);
    }
}

Twips ShortSchedule::NameRoom(const Block& block, double line) const {
    Twips room = X(MostOfName);
    const auto leave = [&](bool asked, double figuresLine, const std::string& figure) {
        if (asked && figuresLine == line && !figure.empty())
            room = std::min(room, X(WeekFiguresEdge - NameUnit - 1) - vp_.TextWidth(figure));
    };
    leave(page_.PrintsHours(), block.hoursLine, WeekHoursText(page_, block.person, block.own));
    leave(page_.PrintsWages(), block.moneyLine, WeekMoneyText(block.person, block.own));
    return room;
}

void ShortSchedule::Name(const Block& block) {
    const std::string name = block.person.name1 + " " + block.person.name2;
    TextAt(vp_, X(NameUnit), Y(line_ + 1.1), Shortened(name, NameRoom(block, line_ + 1)) + " ");
    if (page_.options.NameOption < NamesWithDetail)
        TextAt(vp_, X(NameUnit), Y(line_ + 2.1), Shortened(block.person.detail, NameRoom(block, line_ + 2)));
}

std::string ShortSchedule::Shortened(const std::string& text, Twips room) const {
    return fitting_ == Fitting::Cut ? WithEllipsis(vp_, text, room) : Fitted(vp_, text, room);
}

/// The text of a range; only the word for a day's last stop can be too long for its column.
std::string ShortSchedule::InColumn(const std::string& range) const {
    return fitting_ == Fitting::Cut ? WithEllipsis(vp_, range, X(DayUnits)) : range;
}

void ShortSchedule::Day(const Block& block, int d) {
    double row = line_ + (page_.options.PrintTimeBars ? 2 : 1);
    if (const std::string& label = block.person.labels[d]; !label.empty()) {
        vp_.FontBold(page_.IsDayOff(label));
        TextCentredAt(vp_, X(ColumnMiddle(d)), Y(row + 0.1), WithEllipsis(vp_, label, X(LabelUnits)));
        vp_.FontBold(false);
        ++row;
    }
    const int count = static_cast<int>(block.person.PrintRanges[d].size());
    for (int r = 1; r <= count; ++r, ++row)
        TextCentredAt(vp_, X(ColumnMiddle(d)), Y(row + 0.1),
                      InColumn(RangeText(page_, block.person, d, r, true)));
}

/// Hours and wages on the last lines of a block: the wages on the last, the hours above them.
void ShortSchedule::Foot(const Block& block) {
    vp_.TextColor(QBColor(12));
    for (int d = 1; d <= 7; ++d) {
        const int quarters = block.person.PrintDayQuarters[d];
        if (page_.PrintsHours())
            TextEndingAt(vp_, FiguresEdge(d), Y(block.hoursLine + FigureDrop), DayHoursText(page_, quarters));
        if (page_.PrintsWages())
            TextEndingAt(vp_, FiguresEdge(d), Y(block.moneyLine + FigureDrop),
                         DayWagesText(page_, block.person, quarters, block.own.wages[d]));
    }
    vp_.TextColor(WindowText);
    WeekFigures(block);
}

void ShortSchedule::WeekFigures(const Block& block) {
    if (page_.PrintsHours())
        TextEndingAt(vp_, X(WeekFiguresEdge), Y(block.hoursLine + FigureDrop),
                     WeekHoursText(page_, block.person, block.own));
    if (page_.PrintsWages())
        TextEndingAt(vp_, X(WeekFiguresEdge), Y(block.moneyLine + FigureDrop),
                     WeekMoneyText(block.person, block.own));
}

// ---- the time bars ----

void ShortSchedule::Tick(double unit, double down, Colour colour) {
    vp_.PenColor(colour);
    vp_.DrawLine(X(unit), Y(line_ + 1), X(unit), Y(line_ + 1 + down));
}

void ShortSchedule::Ticks(int d) {
    const double left = ColumnLeft(d);
    Tick(left + DayUnits / 2.0, 0.4, Red);
    for (const int quarter : {1, 3}) Tick(left + DayUnits * quarter / 4.0, 0.3, Grey);
    for (const int eighth : {1, 3, 5, 7}) Tick(left + DayUnits * eighth / 8.0, 0.2, WindowText);
}

void ShortSchedule::TimeBars(const PrintedPerson& person) {
    vp_.PenWidth(2);
    for (int d = 1; d <= 7; ++d) Ticks(d);
    vp_.PenWidth(0);
    vp_.PenColor(WindowText);
    vp_.BrushColor(QBColor(person.barColour));
    for (const auto& [start, stop] : BarsToDraw(person)) {
        vp_.DrawRectangle(BarX(start), Y(line_ + 1.4), BarX(stop), Y(line_ + 1.8));
        if (stop == RunsOn) vp_.DrawLine(BarX(682), Y(line_ + 1.2), BarX(678), Y(line_ + 2));
    }
    vp_.BrushColor(QBColor(15));
}

/// The bars of the seven days, gaps that do not count closed.
PrintedRanges ShortSchedule::BarsToDraw(const PrintedPerson& person) const {
    PrintedRanges bars;
    for (const auto& [start, stop] : person.bars) {
        if (start >= LastQuarter) break;
        if (!bars.empty() && start - bars.back().stop <= page_.options.BreakThreshold)
            bars.back().stop = start;
        bars.push_back({start, stop > LastQuarter ? RunsOn : stop});
    }
    return bars;
}

// ---- the end of the schedule ----

void ShortSchedule::Totals() {
    const int rows = page_.options.PrintTotalHours + page_.options.PrintTotalWages;
    Need(rows + 2);
    vp_.FontBold(true);
    TextAt(vp_, X(LeftUnit), Y(line_ + 1.1), "Day totals");
    vp_.FontBold(false);
    for (int d = 1; d <= 7; ++d) DayTotals(d);
    line_ += rows;
    if (page_.NotesCutoff()) Note();
    Need(3);
    WeekTotals();
}

void ShortSchedule::DayTotals(int d) {
    double row = line_ + 1.1;
    if (page_.PrintsHours()) TextEndingAt(vp_, FiguresEdge(d), Y(row++), DayTotalHours(page_, sums_, d));
    if (page_.PrintsWages()) TextEndingAt(vp_, FiguresEdge(d), Y(row), DayTotalWages(page_, sums_, d));
}

void ShortSchedule::Note() {
    line_ += 1.2;
    TextAt(vp_, X(LeftUnit), Y(line_), CutoffNote(page_));
}

void ShortSchedule::WeekTotals() {
    vp_.FontBold(true);
    for (const TotalText& total : WeekTotalTexts(page_, sums_)) {
        ++line_;
        TextEndingAt(vp_, X(TotalLabelsEdge), Y(line_ + 0.5), total.label);
        TextEndingAt(vp_, X(RightUnit), Y(line_ + 0.5), total.amount);
    }
    vp_.FontBold(false);
}

// ---- the productivity block ----

void ShortSchedule::ProductivityBlock(const PrintedProductivity& figures) {
    constexpr int Rows = 12;
    Need(Rows);
    vp_.CurrentY(Y(line_ + 2));
    vp_.TextColor(QBColor(0));
    vp_.TableBorder(TableBorders::Box);
    vp_.FontBold(true);
    vp_.AddTable("^~100%;", {"Productivity"});
    vp_.FontBold(false);
    vp_.TableBorder(TableBorders::None);
    Includes(figures.includes);
    Figures(figures);
    vp_.TextColor(WindowText);
    line_ = vp_.CurrentY() / lineHeight_;
}

void ShortSchedule::Includes(const Productivity& p) {
    Words("Sales includes", YesNo("Wages time", p.SalesWageHours),
          YesNo("Salaried time", p.SalesSalaryHours));
    Words("Transactions include", YesNo("Wages time", p.TransWageHours),
          YesNo("Salaried time", p.TransSalaryHours));
    Words("Labor% includes", YesNo("Wages", p.LaborWages), YesNo("Salaries", p.LaborSalary));
}

void ShortSchedule::Words(const std::string& label, const std::string& wages, const std::string& salaries) {
    vp_.AddTable("<~25%|<~20%|<~20%;", {label, wages, salaries});
}

void ShortSchedule::Figures(const PrintedProductivity& figures) {
    vp_.TableBorder(TableBorders::BoxColumns);
    for (const ProductivityRow& row : ProductivityRows(page_, figures, sums_)) Figure(row);
    vp_.TableBorder(TableBorders::None);
}

/// A label, the week's figure, and the figures of the days.
void ShortSchedule::Figure(const ProductivityRow& row) {
    std::vector<std::string> cells{row.label};
    for (int d = 0; d <= 7; ++d) cells.push_back(row.textOf(d));
    vp_.AddTable("<~14%|>~10.4%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%|>~10.8%;", cells);
}

// ---- day comments ----

void ShortSchedule::Comments() {
    Twips y = Y(line_ + 1.5);
    for (int d = 1; d <= 7; ++d) {
        if (!page_.memos[d]) continue;
        const std::string heading = DayCommentHeading(page_, d);
        y = CommentLine(y, heading, true, "");
        for (const std::string& text : MemoLines(vp_, *page_.memos[d], X(RightUnit - LeftUnit)))
            y = CommentLine(y, text, false, heading);
        y += vp_.TextHeight("Test") / 2;
    }
}

/// Writes one line, on the next page when this one is full; `heading` is repeated there. Returns where the
/// next line goes.
Twips ShortSchedule::CommentLine(Twips y, const std::string& text, bool bold, const std::string& heading) {
    const Twips top = Y(HeadLines + 1.5);
    const Twips height = vp_.TextHeight("Test");
    if (y + height > HeightAboveFoot(vp_) && y > top) {
        NextPage();
        y = top;
        if (!heading.empty()) y = CommentLine(y, heading + " Cont.....", true, "");
    }
    vp_.FontBold(bold);
    TextAt(vp_, X(LeftUnit), y, text);
    vp_.FontBold(false);
    return y + height;
}

void Print7day(const PrintedSchedule& schedule, Vp& vp) {
    ShortSchedule drawing(schedule.page, vp);
    for (const PrintedPerson& person : schedule.people) drawing.Measure(person);
    if (!drawing.Begin()) return;
    for (const PrintedPerson& person : schedule.people) drawing.Person(person);
    drawing.Finish();
}

} // namespace tvx
