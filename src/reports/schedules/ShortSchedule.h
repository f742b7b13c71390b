// The short seven-day schedule on paper: a row for each person, a column for each day.
#pragma once

#include "platform/ports/Vp.h"
#include "reports/schedules/SchedulePage.h"
#include "reports/schedules/ShortScheduleFit.h"

namespace tvx {

/// Draws a schedule into an open document, step by step, so that a loader can go through more people than it
/// holds and a schedule of another kind can put lines of its own between them. Places are units across the
/// page and lines down it.
class ShortSchedule {
  public:
    ShortSchedule(const SchedulePage& page, Vp& vp);
    virtual ~ShortSchedule() = default;
    ShortSchedule(const ShortSchedule&) = delete;
    ShortSchedule& operator=(const ShortSchedule&) = delete;

    /// What a person needs of the paper. Everybody who is to be drawn is measured before Begin; who is not
    /// may stand over his neighbours.
    void Measure(const PrintedPerson& person);
    /// Sets the size that fits and draws the head of the first page. False when the paper is too small, which
    /// the page then says: nothing else is to be drawn.
    bool Begin();
    /// A person's block, on the next page when this one has no room for it.
    void Person(const PrintedPerson& person);
    /// Totals, productivity and day comments, as far as they are asked for.
    void Finish();

  protected:
    /// A person's rows, as they are drawn.
    struct Block {
        const PrintedPerson& person;
        EmployeeSums own;
        int rows = 0;
        double hoursLine = 0; // of the figures at its foot
        double moneyLine = 0;
    };

    /// What stands in the name column of a block.
    virtual void Name(const Block& block);
    /// A page was begun behind the first; its head stands.
    virtual void PageWentOn() {}

    Twips X(double units) const;
    Twips Y(double line) const;
    /// Begins a new page when so many lines are not left on this one. A page that has only its head is not
    /// left: the next would have no more room.
    void Need(double lines);
    /// What a name or its detail may take of a line: less where a figure of the week stands on it too.
    Twips NameRoom(const Block& block, double line) const;
    /// A name or a detail shortened to its room.
    std::string Shortened(const std::string& text, Twips room) const;

    const SchedulePage& page_;
    Vp& vp_;
    double line_ = 0; // the line above what comes next

  private:
    Twips FiguresEdge(int day) const;
    Twips BarX(int quarter) const;
    void Head();
    void HeadLine();
    void DayHead(int day);
    void Rule();
    void NextPage();

    int RowsOf(const PrintedPerson& person) const;
    void Close(int rows);
    std::string InColumn(const std::string& range) const;
    void Day(const Block& block, int day);
    void Foot(const Block& block);
    void WeekFigures(const Block& block);

    void Tick(double unit, double down, Colour colour);
    void Ticks(int day);
    void TimeBars(const PrintedPerson& person);
    PrintedRanges BarsToDraw(const PrintedPerson& person) const;

    void Totals();
    void DayTotals(int day);
    void Note();
    void WeekTotals();

    void ProductivityBlock(const PrintedProductivity& figures);
    void Includes(const Productivity& includes);
    void Words(const std::string& label, const std::string& wages, const std::string& salaries);
    void Figures(const PrintedProductivity& figures);
    void Figure(const ProductivityRow& row);

    void Comments();
    Twips CommentLine(Twips y, const std::string& text, bool bold, const std::string& heading);

    ShortScheduleFit fit_;
    Fitting fitting_ = Fitting::Whole;
    Twips unit_;
    double lineHeight_ = 1;
    int capacity_ = 0;
    ScheduleSums sums_;
};

/// Draws a whole schedule into the open document.
void Print7day(const PrintedSchedule& schedule, Vp& vp);

} // namespace tvx
