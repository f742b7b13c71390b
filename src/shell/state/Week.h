// One week of the whole roster: bars, daytypes, days off, and what they add up to.
#pragma once

#include "shell/state/Roster.h"

#include <array>
#include <string>
#include <vector>

namespace tvx {

constexpr int BarSlots = 36;     // slots of an employee's bars
constexpr int MostBarsRead = 35; // bars that a merge gives back
constexpr int MostBarsByMouse = 33;
constexpr int DaysInSpan = 8; // day 8 is reached by a business day that ends after midnight

struct Week {
    // [0..EmployeeCount], element 0 empty.
    std::vector<int> BarCount;
    std::vector<std::array<WeekQuarter, BarSlots + 1>> BarStarts; // [employee][slot 1..36], ascending
    std::vector<std::array<WeekQuarter, BarSlots + 1>> BarStops;  // [employee][slot 1..36], exclusive
    std::vector<int> WeekQuarters;                                // [employee], worked in the business week
    std::vector<int> DayQuarters;                                 // [employee], worked on SummedDay
    int SummedDay = 1; // 1 to 7, the business day of DayQuarters and of the day's sums

    std::array<std::vector<std::string>, DaysInSpan + 1> DayTypeText; // [day 1..8][employee]
    std::array<std::vector<bool>, DaysInSpan + 1> DayOffFlag;         // [day 1..8][employee]

    // [employee], of day 8, the first day of the week behind, as far as the store is concerned.
    std::vector<std::string> KnownDaytypeOfDay8; // since the load, or the last save
    std::vector<std::string> UnreadOfDay8;       // times of who has no other row in the week

    std::string WeekGrid; // 769 characters of working space; quarter p is character p, "X" is worked

    bool IsLoaded = false;         // false: the arrays are empty, and no date is theirs
    int LoadedDepNumber = 0;       // whose week it is; of the department at hand when all are shown
    DaySerial WeekStartJulian = 0; // day 1
    DaySerial WeekEndJulian = 0;   // day 7
    std::array<std::string, 8> WeekDateTexts; // [day 1..7]
    bool WeekChanged = false;

    /// Sizes every array for employees 0..count and empties it. No week is loaded then.
    void Resize(int count);
};

struct GlobalState;
struct Ports;
enum class RosterResult;

namespace test {
class WeekWriter;
}

/// The week in memory. Everybody may read it, and copy it; for writing it opens to its edits, its load and
/// the building of the roster alone.
class LoadedWeek {
  public:
    LoadedWeek() = default;
    LoadedWeek(const LoadedWeek&) = delete;
    LoadedWeek& operator=(const LoadedWeek&) = delete;

    const Week& Read() const { return week_; }

  private:
    friend class WeekEdit;
    friend void LoadWeek(GlobalState& g, Ports& ports, DaySerial firstSerial, bool dropDaysOff);
    friend RosterResult BuildRoster(GlobalState& g);
    friend class test::WeekWriter; // sets the stage of a test

    Week week_;
};

/// Where the person is in the week: an editor's cursor.
struct Cursor {
    int CurrentDay = 1;      // 1 to 7
    int CurrentRow = 1;      // row of the grid, from 1
    int CurrentEmployee = 0; // index into the roster
    int TopRow = 0;          // rows scrolled away
    int LastFocusRow = 1;    // row of the daytype box that had the focus last
    int FirstQuarter = 0;    // quarter of the day at the left edge of the editors' grids
};

/// The department's figures and memos of the week.
struct DepartmentFigures {
    std::array<double, 8> DailySales{};        // [day 1..7]
    std::array<double, 8> DailyTransactions{}; // [day 1..7]
    std::array<std::string, 8> DayMemoText;    // [day 1..7]
    std::array<bool, 8> DayMemoFlag{};         // [day 1..7]
    bool HasDepartmentFigures = false;         // some day has sales or transactions

    friend bool operator==(const DepartmentFigures&, const DepartmentFigures&) = default;
};

/// What a running week adds up to.
struct Totals {
    long TotalDayQuarters = 0;
    long TotalWeekQuarters = 0;
    long WageDayQuarters = 0;
    long WageWeekQuarters = 0;
    long SalaryDayQuarters = 0;
    long SalaryWeekQuarters = 0;
    Wage TotalDayWages;  // nothing while pay is hidden
    Wage TotalWeekWages; // nothing while pay is hidden
    double SalesTotal = 0;
    double TransactionsTotal = 0;
    int SalesDays = 0; // days with sales above 0

    friend bool operator==(const Totals&, const Totals&) = default;
};

/// Which hours and money enter the ratios of sales, transactions and labor.
struct Productivity {
    bool SalesWageHours = true;
    bool SalesSalaryHours = false;
    bool TransWageHours = true;
    bool TransSalaryHours = false;
    bool LaborWages = true;
    bool LaborSalary = false;
};

} // namespace tvx
