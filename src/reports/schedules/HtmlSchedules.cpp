#include "reports/schedules/HtmlSchedules.h"

#include "platform/basic/Format.h"
#include "platform/basic/Text.h"

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
constexpr const char* NoTime = "no time";
constexpr std::bitset<MostColumns> FirstSlot(1U << 2U); // of a day of the long schedule
constexpr std::string_view LongDay = "<~6%|>~12%|^~14%|^~14%|^~14%|^~14%|>~_14%|>~_12%;";

bool IsEmptyDay(const PrintedPerson& person, int d) {
    return person.labels[d].empty() && person.PrintRanges[d].empty() && person.PrintDayQuarters[d] == 0;
}

/// What both web pages write with.
class HtmlSchedule {
  public:
    HtmlSchedule(const PrintedSchedule& schedule, Vp& vp)
        : page_(schedule.page), people_(schedule.people), vp_(vp) {}

  protected:
    void Spacer() { vp_.AddTable("^+100%;", {" "}); }

    void Line(std::string_view format, const std::string& text) { vp_.AddTable(format, {text}); }

    void Heading(std::string_view format, std::vector<std::string> cells,
                 std::optional<Colour> shade = std::nullopt) {
        vp_.NextRow({RowKind::Heading, {}});
        vp_.AddTable(format, std::move(cells), shade);
    }

    /// What an empty day says.
    std::string EmptyWord() const { return page_.saveSpace ? "" : NoTime; }

    /// A table whose first cell has a colour of its own and is not bold.
    void TouchedUp(std::string_view format, std::vector<std::string> cells, Colour text, Colour first) {
        vp_.TextColor(text);
        vp_.StartTable();
        vp_.AddTable(format, std::move(cells));
        vp_.TableCell(CellSetting::TextColor, 1, 1, first);
        vp_.TableCell(CellSetting::Bold, 1, 1, 0);
        vp_.EndTable();
    }

    /// Two lines of a cell; the line feed only where both are asked for.
    std::string Stacked(std::string hours, const std::string& wages) const {
        const bool both = page_.PrintsHours() && page_.PrintsWages() && !(hours.empty() && wages.empty());
        if (!page_.PrintsHours()) hours.clear();
        if (both) hours += '\n';
        if (page_.PrintsWages()) hours += wages;
        return hours;
    }

    const SchedulePage& page_;
    const std::vector<PrintedPerson>& people_;
    Vp& vp_;
    ScheduleSums sums_;
};

class ShortHtml : private HtmlSchedule {
  public:
    using HtmlSchedule::HtmlSchedule;

    void Print() {
        vp_.PenColor(ButtonFace);
        Title();
        Heads();
        for (const PrintedPerson& person : people_) Person(person);
        vp_.About("");
        if (page_.PrintsTotals()) DayTotals();
        vp_.Meaning({});
        if (page_.productivity) ProductivityBlock(*page_.productivity);
        vp_.TableBorder(TableBorders::None);
        if (page_.NotesCutoff()) Note();
        Totals();
        if (page_.options.PrintDayComments) Comments();
    }

  private:
    void Title() {
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(QBColor(0));
        Line("^~100%;", page_.title + "\n" + page_.printedOn);
        Spacer();
    }

    /// Columns for the days, behind others.
    TableMeaning Days(std::string caption, std::vector<ColumnMeaning> before) const {
        TableMeaning meaning{std::move(caption), std::move(before), 1, EmptyWord(), ""};
        for (int d = 1; d <= 7; ++d)
            meaning.columns.push_back(
                {Isolated(page_.weekdays[d]) + " " + page_.dates[d], CalendarWords::InHead});
        return meaning;
    }

    void Heads() {
        vp_.Meaning(Days("Times of the week", {{"Name and week", CalendarWords::None}}));
        std::vector<std::string> days{""};
        for (int d = 1; d <= 7; ++d) days.push_back(Isolated(page_.weekdays[d]) + "\n" + page_.dates[d]);
        vp_.TableBorder(TableBorders::BoxColumns);
        vp_.TextColor(QBColor(1));
        vp_.AddTable(DayHeads, days);
        WeekRow();
    }

    void WeekRow() {
        if (page_.weekNumbers[1].empty()) {
            vp_.TableBorder(TableBorders::Box);
            return Line("99.5%;", " ");
        }
        std::vector<std::string> numbers{" Week"};
        for (int d = 1; d <= 7; ++d) numbers.push_back(page_.weekNumbers[d]);
        vp_.TextColor(QBColor(9));
        vp_.AddTable(WeekNumbers, numbers);
    }

    void Person(const PrintedPerson& person) {
        vp_.TextColor(QBColor(10));
        vp_.About(person.name1 + " " + person.name2);
        const EmployeeSums own = AddToSums(page_, person, sums_);
        std::vector<std::string> cells;
        cells.reserve(8);
        cells.push_back(NameCell(person));
        for (int d = 1; d <= 7; ++d) cells.push_back(DayCell(person, d));
        vp_.TableBorder(TableBorders::BoxColumns);
        vp_.TextColor(QBColor(3));
        vp_.NextRow({RowKind::Cells, EmptyDays(person)});
        vp_.AddTable(Ranges, std::move(cells));
        if (page_.PrintsTotals()) FigureRow(person, own);
    }

    static std::bitset<MostColumns> EmptyDays(const PrintedPerson& person) {
        std::bitset<MostColumns> empty;
        for (int d = 1; d <= 7; ++d) empty[static_cast<std::size_t>(d)] = IsEmptyDay(person, d);
        return empty;
    }

    std::string NameCell(const PrintedPerson& person) const {
        std::string name = Isolated(person.name1 + " " + person.name2);
        const int option = page_.options.NameOption;
        if (option > 4) return name;
        return name + "\n" + (option == 0 ? " " : Isolated(person.detail));
    }

    std::string DayCell(const PrintedPerson& person, int d) const {
        std::string cell = Isolated(person.labels[d]);
        const int count = static_cast<int>(person.PrintRanges[d].size());
        for (int r = 1; r <= count; ++r)
            cell.append(cell.empty() ? "" : "\n").append(RangeText(page_, person, d, r, true));
        return cell;
    }

    void FigureRow(const PrintedPerson& person, const EmployeeSums& own) {
        const std::string hours = WeekHoursText(page_, person, own);
        const std::string money = WeekMoneyText(person, own);
        std::vector<std::string> cells;
        cells.reserve(8);
        cells.push_back(
            Stacked(hours.empty() ? "" : "Total:  " + hours, money.empty() ? "" : "Total:  " + money));
        for (int d = 1; d <= 7; ++d)
            cells.push_back(Stacked(DayHoursText(page_, person.PrintDayQuarters[d]),
                                    DayWagesText(page_, person, person.PrintDayQuarters[d], own.wages[d])));
        vp_.NextRow({RowKind::Figures, {}});
        TouchedUp(Figures, std::move(cells), QBColor(12), QBColor(9));
    }

    void DayTotals() {
        std::vector<std::string> cells{"Day Totals"};
        for (int d = 1; d <= 7; ++d)
            cells.push_back(Stacked(page_.words.hours + HoursText(page_, sums_.DayTotalQuarters[d]),
                                    page_.words.wages + Format(sums_.DayTotalWages[d], ".00")));
        vp_.TableBorder(TableBorders::BoxColumns);
        TouchedUp(Figures, std::move(cells), QBColor(9), QBColor(1));
    }

    void ProductivityBlock(const PrintedProductivity& figures) {
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(QBColor(0));
        vp_.FontBold(true);
        Heading("^~30%|>40% |^30%;", {" Productivity", ""}, QBColor(11));
        vp_.FontBold(false);
        Includes(figures.includes);
        ProductivityRows(figures);
        vp_.Meaning({});
    }

    void Includes(const Productivity& p) {
        vp_.TextColor(QBColor(4));
        vp_.Meaning({"What the figures include", {{"Figure"}, {"Wages"}, {"Salaries"}, {}}, 1, "", ""});
        vp_.NextRow({RowKind::Lines, {}});
        vp_.AddTable("<~25%|>~15%|>~20%|>~60% &;",
                     {"Sales includes\nTransactions include\nLabor% includes",
                      YesNo("Wages time", p.SalesWageHours) + "\n" + YesNo("Wages time", p.TransWageHours) +
                          "\n" + YesNo("Wages", p.LaborWages),
                      YesNo("Salaried time", p.SalesSalaryHours) + "\n" +
                          YesNo("Salaried time", p.TransSalaryHours) + "\n" +
                          YesNo("Salaries", p.LaborSalary),
                      ""});
    }

    void ProductivityRows(const PrintedProductivity& figures) {
        std::vector<std::string> amounts{"Sales\nTrans."};
        std::vector<std::string> ratios{"Sales/hrs\nTrans/hrs\nLabor %"};
        for (int d = 0; d <= 7; ++d) {
            amounts.push_back(SalesText(figures, d) + "\n" + TransactionsText(figures, d));
            ratios.push_back(SalesPerHour(figures, sums_, d) + "\n" + TransactionsPerHour(figures, sums_, d) +
                             "\n" + LaborPercent(page_, sums_, d));
        }
        vp_.TableBorder(TableBorders::BoxColumns);
        vp_.Meaning(Days("Sales and transactions", {{"Figure"}, {"Week"}}));
        vp_.NextRow({RowKind::Lines, {}});
        TouchedUp(ProductivityFigures, std::move(amounts), QBColor(0), QBColor(1));
        vp_.NextRow({RowKind::Lines, {}});
        TouchedUp(ProductivityFigures, std::move(ratios), QBColor(0), QBColor(1));
    }

    void Note() {
        const std::string time = CutoffText(page_);
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
        if (page_.PrintsHours())
            Total("Department total time:  ", HoursText(page_, sums_.PrintTotalQuarters));
        if (page_.PrintsWages()) {
            const TotalTexts money = MoneyTotals(page_, sums_, "##,##0.00");
            Total("Department total wages:  ", money.wages);
            Total("Department total salaries:  ", money.salaries);
            Total("Department total compensation:  ", money.compensation);
        }
        vp_.FontBold(false);
    }

    void Comments() {
        for (int d = 1; d <= 7; ++d) {
            if (!page_.memos[d]) continue;
            vp_.FontBold(true);
            vp_.TextColor(QBColor(0));
            Heading("<~100%;", {DayCommentHeading(page_, d)});
            vp_.FontBold(false);
            vp_.TextColor(QBColor(3));
            Line("<100%;", *page_.memos[d]);
        }
    }
};

class LongHtml : private HtmlSchedule {
  public:
    using HtmlSchedule::HtmlSchedule;

    void PrintRoster() {
        Begin();
        Line("^~100%;", page_.title + "\n" + page_.printedOn);
        Spacer();
        for (const PrintedPerson& person : people_) {
            vp_.About(person.name1 + Comma(person) + person.name2);
            NameLine(person);
            Days(person);
        }
        vp_.About("");
        Totals();
        if (page_.NotesCutoff()) Note();
        vp_.EndDoc();
    }

    void PrintPicked() {
        Begin();
        for (const PrintedPerson& person : people_) {
            const std::string name = person.name2 + " " + person.name1;
            vp_.About(name);
            Line("^~100%;", page_.title);
            Spacer();
            vp_.FontBold(true);
            Heading("^~100%;", {"Schedule for: " + Isolated(name) + "  - " + Suffix(person)});
            vp_.FontBold(false);
            Line("^~100%;", page_.printedOn);
            Spacer();
            Days(person);
        }
    }

  private:
    void Begin() {
        vp_.TableBorder(TableBorders::None);
        vp_.TextColor(QBColor(0));
    }

    static std::string Suffix(const PrintedPerson& person) {
        return person.detail.empty() ? "" : ", " + Isolated(person.detail);
    }

    static std::string Comma(const PrintedPerson& person) { return Trim(person.name2).empty() ? "" : ", "; }

    TableMeaning WeekMeaning() const {
        return {"Times of the week",
                {{"Day", CalendarWords::InCells},
                 {"Date", CalendarWords::InCells},
                 {"Times"},
                 {"More times"},
                 {"More times"},
                 {"More times"},
                 {"Hours"},
                 {"Wages"}},
                2,
                EmptyWord(),
                "Week"};
    }

    void NameLine(const PrintedPerson& person) {
        vp_.FontBold(true);
        Heading("<~100%;", {Isolated(person.name1 + Comma(person) + person.name2) + Suffix(person)});
        vp_.FontBold(false);
    }

    void Days(const PrintedPerson& person) {
        const EmployeeSums own = AddToSums(page_, person, sums_);
        vp_.Meaning(WeekMeaning());
        Colour shade = FirstRowShade;
        for (int d = 1; d <= 7; ++d) {
            if (page_.saveSpace && person.labels[d].empty() && person.PrintRanges[d].empty()) continue;
            vp_.NextRow({RowKind::Cells, IsEmptyDay(person, d) ? FirstSlot : std::bitset<MostColumns>()});
            vp_.AddTable(LongDay, DayRow(person, own, d), shade);
            shade = shade == FirstRowShade ? QBColor(15) : FirstRowShade;
        }
        WeekRow(person, own);
        vp_.Meaning({});
    }

    std::vector<std::string> DayRow(const PrintedPerson& person, const EmployeeSums& own, int d) const {
        std::array<std::string, 4> slots;
        std::size_t next = 0;
        const auto put = [&](const std::string& text) {
            std::string& slot = slots[next % slots.size()];
            slot += (next >= slots.size() ? "\n" : "") + text;
            ++next;
        };
        if (!person.labels[d].empty()) put(Isolated(person.labels[d]));
        const int count = static_cast<int>(person.PrintRanges[d].size());
        for (int r = 1; r <= count; ++r) put(RangeText(page_, person, d, r, false));
        return {Isolated(page_.shortWeekdays[d]),
                page_.mediumDates[d] + ">",
                slots[0],
                slots[1],
                slots[2],
                slots[3],
                HoursCell(person.PrintDayQuarters[d]),
                MoneyCell(person, own.wages[d])};
    }

    std::string HoursCell(int quarters) const {
        const std::string text = HoursText(page_, quarters);
        return !page_.PrintsHours() || Trim(text) == "0:00" ? "" : text;
    }

    std::string MoneyCell(const PrintedPerson& person, Wage wage) const {
        if (!page_.PrintsWages()) return "";
        if (!person.paidByHour) return "Salary";
        const std::string text = Format(wage, ".00");
        return text == ".00" ? "" : text;
    }

    void WeekRow(const PrintedPerson& person, const EmployeeSums& own) {
        if (!page_.PrintsTotals()) return Spacer();
        const std::string money = person.paidByHour ? Format(own.weekWages, ".00") : SalaryText(person);
        vp_.FontBold(true);
        vp_.AddTable("65%|>~_23%|>~_12%;",
                     {"", page_.PrintsHours() ? "Total:  " + HoursText(page_, own.weekQuarters) : "",
                      page_.PrintsWages() ? money : ""});
        vp_.FontBold(false);
    }

    void Totals() {
        vp_.TextColor(QBColor(9));
        const std::string name = Isolated(page_.departmentName);
        if (page_.PrintsHours()) {
            vp_.NextRow({RowKind::Text, {}});
            vp_.AddTable(">~_88%|>~_12%;",
                         {name + ", total time:  " + HoursText(page_, sums_.PrintTotalQuarters), " "});
        }
        if (!page_.PrintsWages()) return;
        const TotalTexts money = MoneyTotals(page_, sums_, "##,##0.00");
        Line(">~_100%;", name + ", total wages:  " + money.wages);
        Line(">~_100%;", name + ", total salaries:   " + money.salaries);
        Line(">~_100%;", name + ", total compensation:   " + money.compensation);
    }

    void Note() {
        const std::string time = CutoffText(page_);
        vp_.FontBold(false);
        Line("<+100%;", "Note:\nTime and Wage statistics are between the hours of:" + time + " and" + time +
                            " the following day.");
    }
};

} // namespace

void PrintShortScheduleHTML(const PrintedSchedule& schedule, Vp& vp) {
    ShortHtml(schedule, vp).Print();
}

void PrintLongScheduleHTML(const PrintedSchedule& schedule, Vp& vp) {
    LongHtml(schedule, vp).PrintRoster();
}

void PrintSelectedSchedulesHTML(const PrintedSchedule& schedule, Vp& vp) {
    LongHtml(schedule, vp).PrintPicked();
}

} // namespace tvx
