// What the lanes of a time grid show: a person's day each, from a quarter on. And back: which lane shows it.
#pragma once

#include "editor/week/WeekEdit.h"

#include <vector>

namespace tvx {

/// What a lane shows.
struct LaneDay {
    int employee = 0; // 0 is nobody
    int day = 1;      // 1 to 7
};

/// The lanes of an editor. Rows are visible ones, from 1.
class Lanes {
  public:
    explicit Lanes(const Grid& grid) : grid_(grid) {}
    virtual ~Lanes() = default;
    Lanes(const Lanes&) = delete;
    Lanes& operator=(const Lanes&) = delete;

    virtual LaneDay At(int row) const = 0;
    /// The row that shows a person's day; 0 when none does.
    virtual int RowOf(const LaneDay& lane) const = 0;
    /// Every row that shows something of a person.
    virtual std::vector<int> RowsOf(int employee) const = 0;
    /// Makes the person, the day and the row the current ones, as far as they are the editor's to change. A
    /// lane that is scrolled away leaves the row as it is.
    virtual void MakeCurrent(const LaneDay& lane) = 0;
    /// False where the rows have no box for a daytype.
    virtual bool HaveDaytypes() const { return true; }

    const Grid& Geometry() const { return grid_; }
    int Count() const { return grid_.VisibleRows; }
    /// The row at a place on the grid; 0 above and below the rows.
    int RowAt(Twips y) const;
    Twips TopOf(int row) const { return (row - 1) * grid_.RowHeight; }
    /// Quarter of the week at the left edge of a lane of that day.
    WeekQuarter LeftEdge(int day) const { return (day - 1) * QuartersPerDay + grid_.FirstQuarter; }
    /// Place of that left edge, in twips of the week.
    Twips ScrollX(int day) const { return LeftEdge(day) * grid_.QuarterWidth; }
    /// The rows on which a stretch of a person's week, in twips, is to be seen.
    std::vector<int> RowsTouched(int employee, Twips from, Twips to) const;

  private:
    const Grid& grid_;
};

/// The Main Editor's: an employee a row, in the order of the roster, on the current day.
class MainLanes : public Lanes {
  public:
    MainLanes(const Grid& grid, const Roster& roster, Cursor& cursor)
        : Lanes(grid), roster_(roster), cursor_(cursor) {}

    LaneDay At(int row) const override;
    int RowOf(const LaneDay& lane) const override;
    std::vector<int> RowsOf(int employee) const override;
    void MakeCurrent(const LaneDay& lane) override;
    bool HaveDaytypes() const override { return !roster_.AllDepartmentsMode; }

  private:
    const Roster& roster_;
    Cursor& cursor_;
};

/// The Week Editor's: seven days of the current employee, a day a row. Its grid has seven rows.
class WeekLanes : public Lanes {
  public:
    WeekLanes(const Grid& grid, GlobalState& g) : Lanes(grid), cursor_(g.cursor), edit_(g) {}

    LaneDay At(int row) const override { return {cursor_.CurrentEmployee, row}; }
    int RowOf(const LaneDay& lane) const override;
    std::vector<int> RowsOf(int employee) const override;
    /// Another day is shown by the door, which sums it.
    void MakeCurrent(const LaneDay& lane) override;

  private:
    Cursor& cursor_;
    WeekEdit edit_;
};

} // namespace tvx
