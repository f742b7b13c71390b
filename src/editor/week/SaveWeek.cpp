#include "editor/week/SaveWeek.h"

#include "editor/week/LoadWeek.h"
#include "editor/week/NextWeek.h"
#include "editor/week/Refusal.h"
#include "editor/week/StoredDays.h"
#include "editor/week/WeekEdit.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"
#include "store/Troubles.h"

namespace tvx {
namespace {

constexpr std::size_t WidestSymbol = 2;
const std::string TwoBlanks(WidestSymbol, ' ');
const std::string EmptyText(StartsStopsLength, ' ');

/// What the row of one employee and day is to hold; its rate is not yet told.
DayRow WantedOf(const Roster& roster, const Week& week, DaySerial firstSerial, int e, int d) {
    int quarters = 0;
    DayRow wanted;
    wanted.day = firstSerial + d - 1;
    wanted.employee = roster.RosterEmployeeKey[e];
    wanted.dayType = week.DayTypeText[d][e];
    wanted.startsStops = StartsStopsOf(week, e, d, quarters);
    wanted.workHours = HoursOfQuarters(quarters);
    return wanted;
}

bool IsEmpty(const DayRow& wanted) {
    return wanted.dayType <= TwoBlanks && wanted.startsStops <= EmptyText;
}

/// Blanks, which the week in memory has as no symbol, stay as they stand. So does a symbol that some other
/// program wrote, wider than its field: its capitals, as the week in memory has them, would be refused, and
/// the whole week with them.
void KeepStoredSymbol(DayRow& wanted, const DayRow& stored) {
    if (wanted.dayType.empty() && Trim(stored.dayType).empty()) wanted.dayType = stored.dayType;
    if (CharacterCount(stored.dayType) > WidestSymbol && UpperCase(stored.dayType) == wanted.dayType)
        wanted.dayType = stored.dayType;
}

/// The pay in force when the day is first saved stays with it.
void FreezeRate(DayRow& wanted, const Roster& roster, int e) {
    const bool hourly = roster.IsPaidByHour(e);
    const double pay = roster.RosterPay[e].Amount();
    wanted.currentRate = hourly ? pay : pay / 7;
    wanted.salary = hourly ? "W" : "S";
}

/// Takes over what a save leaves alone. A day off never stores working time; its hours are written all the
/// same.
void KeepStored(DayRow& wanted, const StoredDay& stored, const Roster& roster, int e) {
    wanted.vacationDay = stored.vacationDay;
    if (stored.vacationDay) {
        wanted.dayType.clear();
        wanted.startsStops = EmptyText;
    }
    wanted.salary = stored.salary;
    if (!stored.HasRate()) FreezeRate(wanted, roster, e);
}

/// False when the row stands already as it is wanted.
bool WriteDay(DayTable& table, const Roster& roster, int e, DayRow wanted, const StoredDay& stored) {
    KeepStoredSymbol(wanted, stored);
    const bool empty = IsEmpty(wanted);
    if (!stored.found) {
        if (empty) return false;
        FreezeRate(wanted, roster, e);
        table.Add(wanted);
    } else if (stored.vacationDay || !empty) {
        KeepStored(wanted, stored, roster, e);
        if (wanted == stored) return false;
        stored.HasRate() ? table.ChangeWork(wanted) : table.Change(wanted);
    } else {
        table.Delete(wanted.day, wanted.employee);
    }
    return true;
}

/// Inside a transaction. Returns how many rows had to be written.
int WriteDifferences(dao::Database& database, DayTable& table, const Roster& roster, const Week& week,
                     DaySerial firstSerial, int cutoffQuarters) {
    int written = 0;
    const StoredWeek stored = ReadStoredWeek(database, roster, firstSerial);
    for (int row = 1; row <= roster.EmployeeCount; ++row) {
        const int e = roster.EmployeeRowIndex[row];
        const auto& days = stored[e];
        for (int d = 1; d < DaysInSpan; ++d)
            written += WriteDay(table, roster, e, WantedOf(roster, week, firstSerial, e, d), days[d]);
        const DayRow ofModel = WantedOf(roster, week, firstSerial, e, DaysInSpan);
        const auto wanted =
            WithNextWeek(ofModel, week, e, days[DaysInSpan - 1], days[DaysInSpan], cutoffQuarters);
        if (wanted) written += WriteDay(table, roster, e, *wanted, days[DaysInSpan]);
    }
    return written;
}

void WriteRows(dao::Database& database, DayTable& table, const Roster& roster, const Week& week,
               DaySerial firstSerial, int cutoffQuarters) {
    const auto write = [&] {
        return WriteDifferences(database, table, roster, week, firstSerial, cutoffQuarters);
    };
    dao::Transaction transaction(database);
    write();
    transaction.Commit([&] {
        const dao::Transaction look(database); // undone: it only asks what there would be to write
        return write() == 0;
    });
}

bool TryToWrite(GlobalState& g, Prompt& prompt, const Week& week, DaySerial firstSerial) {
    const Hourglass hourglass(prompt);
    Occasion occasion = Occasion::BeginningSave;
    try {
        DayTable table(g.store.Open());
        occasion = Occasion::Saving;
        WriteRows(g.store.Open(), table, g.roster, week, firstSerial, g.department.DayCutoffQuarters);
        return true;
    } catch (const dao::DaoError& trouble) {
        // Another's commit may be met at any step, the opening of the table included.
        if (trouble.Number() == dao::error::CouldNotLock) occasion = Occasion::Saving;
        TellTrouble(prompt, TroubleOf(occasion, trouble, "schedule"));
        return false;
    }
}

} // namespace

bool SaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle, const Week& week,
              DaySerial firstSerial) {
    if (!week.IsLoaded) return false;
    if (!g.rights.SchedulingAllowed) {
        TellSchedulingNotPermitted(ports.prompt);
        return false;
    }
    gauge.Flood(0);
    gauge.Show(true);
    ports.prompt.DoEvents();
    settle(); // events may have taken hold of a bar
    const bool saved = TryToWrite(g, ports.prompt, week, firstSerial);
    gauge.Ended(saved);
    if (saved) {
        // Before the flood lets events run: what is edited meanwhile is a change again.
        if (&week == &g.week && firstSerial == week.WeekStartJulian) WeekEdit(g).Saved();
        FloodTwentySteps(ports.clock, ports.prompt, [&](int percent) { gauge.Flood(percent); });
    }
    gauge.Show(false);
    return saved;
}

bool SaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle) {
    return SaveWeek(g, ports, gauge, settle, g.week, g.week.WeekStartJulian);
}

bool MayLeaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                  const std::string& title) {
    settle();
    if (!g.week.WeekChanged || !g.rights.SchedulingAllowed) return true;
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
    if (!g.week.IsLoaded || !MayLeaveWeek(g, ports, gauge, settle, "You made changes")) return false;
    LoadWeek(g, ports, g.week.WeekStartJulian + 7 * direction);
    return true;
}

} // namespace tvx
