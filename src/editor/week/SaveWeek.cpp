#include "editor/week/SaveWeek.h"

#include "editor/week/LoadWeek.h"
#include "editor/week/StoredDays.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

namespace tvx {
namespace {

constexpr std::size_t WidestSymbol = 2;
const std::string TwoBlanks(WidestSymbol, ' ');
const std::string EmptyText(StartsStopsLength, ' ');

/// What a row of one employee and day is to hold.
struct WantedDay {
    std::string dayType;
    std::string startsStops;
    double workHours = 0;
    bool empty = true;
};

WantedDay WantedOf(const Week& week, int e, int d) {
    int quarters = 0;
    WantedDay wanted;
    wanted.dayType = week.DayTypeText[d][e];
    wanted.startsStops = StartsStopsOf(week, e, d, quarters);
    wanted.workHours = HoursOfQuarters(quarters);
    wanted.empty = wanted.dayType <= TwoBlanks && wanted.startsStops <= EmptyText;
    return wanted;
}

/// Writes the rows of one week through the table's recordset.
class DayWriter {
  public:
    DayWriter(dao::Recordset& rows, const Roster& roster, const Week& week)
        : rows_(rows), roster_(roster), week_(week) {}

    void Write(int e, int d, const StoredDay& stored) {
        WantedDay wanted = WantedOf(week_, e, d);
        KeepWideSymbol(wanted, stored);
        if (!stored.found) {
            if (!wanted.empty) Add(e, d, wanted);
        } else if (stored.vacation || !wanted.empty) {
            if (stored.vacation) ClearForDayOff(wanted);
            Change(e, d, stored, wanted);
        } else {
            Seek(e, d);
            rows_.Delete();
        }
    }

  private:
    /// A symbol that some other program wrote, wider than its field, stays as it stands: its capitals, as the
    /// week in memory has them, would be refused, and the whole week with them.
    static void KeepWideSymbol(WantedDay& wanted, const StoredDay& stored) {
        if (CharacterCount(stored.dayType) > WidestSymbol && UpperCase(stored.dayType) == wanted.dayType)
            wanted.dayType = stored.dayType;
    }

    /// A day off never stores working time; its hours are written all the same.
    static void ClearForDayOff(WantedDay& wanted) {
        wanted.dayType.clear();
        wanted.startsStops = EmptyText;
    }

    void Seek(int e, int d) {
        rows_.Seek({std::int64_t{week_.WeekStartJulian + d - 1}, std::int64_t{roster_.RosterEmployeeKey[e]}});
    }

    void Add(int e, int d, const WantedDay& wanted) {
        rows_.AddNew();
        rows_.Fields(DayJulian) = week_.WeekStartJulian + d - 1;
        rows_.Fields(Employee) = roster_.RosterEmployeeKey[e];
        rows_.Fields(VacationDay) = false;
        Set(wanted);
        FreezeRate(e);
        rows_.Update();
    }

    void Change(int e, int d, const StoredDay& stored, const WantedDay& wanted) {
        const bool same = stored.rateFrozen && stored.dayType == wanted.dayType &&
                          stored.startsStops == wanted.startsStops && stored.workHours == wanted.workHours;
        if (same) return;
        Seek(e, d);
        rows_.Edit();
        Set(wanted);
        if (!stored.rateFrozen) FreezeRate(e);
        rows_.Update();
    }

    void Set(const WantedDay& wanted) {
        rows_.Fields(DayType) = wanted.dayType;
        rows_.Fields(StartsStops) = wanted.startsStops;
        rows_.Fields(WorkHours) = wanted.workHours;
    }

    /// The pay in force when the day is first saved stays with it.
    void FreezeRate(int e) {
        const bool hourly = roster_.IsPaidByHour(e);
        const double pay = roster_.RosterPay[e].Amount();
        rows_.Fields(CurrentRate) = hourly ? pay : pay / 7;
        rows_.Fields(Salary) = hourly ? "W" : "S";
    }

    // Positions of the fields in the table, looked up once.
    std::size_t Position(const char* name) const { return rows_.PositionOf(name); }

    dao::Recordset& rows_;
    const Roster& roster_;
    const Week& week_;
    const std::size_t DayJulian = Position("Day Julian");
    const std::size_t Employee = Position("Employee");
    const std::size_t DayType = Position("DayType");
    const std::size_t StartsStops = Position("Starts & Stops");
    const std::size_t WorkHours = Position("Work hours");
    const std::size_t CurrentRate = Position("Current Rate");
    const std::size_t Salary = Position("Salary");
    const std::size_t VacationDay = Position("Vacation day");
};

void WriteRows(dao::Database& database, dao::Recordset& rows, const Roster& roster, const Week& week) {
    dao::Transaction transaction(database);
    const StoredWeek stored = ReadStoredWeek(database, roster, week.WeekStartJulian);
    DayWriter writer(rows, roster, week);
    for (int row = 1; row <= roster.EmployeeCount; ++row) {
        const int e = roster.EmployeeRowIndex[row];
        for (int d = 1; d <= DaysInSpan; ++d) writer.Write(e, d, stored[e][d]);
    }
    transaction.Commit();
}

dao::Recordset OpenDaySchedule(dao::Database& database) {
    dao::Recordset rows = database.OpenRecordset("DAY SCHEDULE");
    rows.Index("Day and Employee");
    return rows;
}

void TellDatabaseError(Prompt& prompt, const dao::DaoError& trouble) {
    prompt.MsgBox("Database error, try again..\r\n\r\n" + std::to_string(trouble.Number()) + " " +
                      trouble.what(),
                  box::Ok, "Database error...");
}

void TellLockedPage(Prompt& prompt, const dao::DaoError& trouble) {
    prompt.MsgBox(
        "Could not save this schedule,\r\nthis page is locked by another user, try again..\r\n\r\n(" +
            std::to_string(trouble.Number()) + ")",
        box::Ok, "Locked page...");
}

bool TryToWrite(GlobalState& g, Ports& ports) {
    const Hourglass hourglass(ports.prompt);
    try {
        g.store.DayScheduleRs = OpenDaySchedule(g.store.Open());
    } catch (const dao::DaoError& trouble) {
        ports.prompt.MousePointer(Pointer::Default);
        TellDatabaseError(ports.prompt, trouble);
        return false;
    }
    try {
        WriteRows(g.store.Open(), g.store.DayScheduleRs, g.roster, g.week);
    } catch (const dao::DaoError& trouble) {
        ports.prompt.MousePointer(Pointer::Default);
        TellLockedPage(ports.prompt, trouble);
        return false;
    }
    return true;
}

} // namespace

void WriteWeek(dao::Database& database, const Roster& roster, const Week& week) {
    dao::Recordset rows = OpenDaySchedule(database);
    WriteRows(database, rows, roster, week);
}

bool SaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle) {
    gauge.Flood(0);
    gauge.Show(true);
    ports.prompt.DoEvents();
    settle(); // events may have taken hold of a bar
    const bool saved = TryToWrite(g, ports);
    if (saved) {
        // Before the flood lets events run: what is edited meanwhile is a change again.
        g.week.WeekChanged = false;
        FloodTwentySteps(ports.clock, ports.prompt, [&](int percent) { gauge.Flood(percent); });
    }
    gauge.Show(false);
    return saved;
}

bool MayLeaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                  const std::string& title) {
    settle();
    if (!g.week.WeekChanged) return true;
    switch (ports.prompt.MsgBox("Save the changes first?", box::YesNoCancel + box::Question, title)) {
    case Answer::Yes:
        return SaveWeek(g, ports, gauge, settle);
    case Answer::No:
        return true;
    default:
        return false;
    }
}

bool GoToNeighbourWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                       int direction) {
    if (!MayLeaveWeek(g, ports, gauge, settle, "You made changes")) return false;
    LoadWeek(g, ports, g.week.WeekStartJulian + 7 * direction);
    return true;
}

} // namespace tvx
