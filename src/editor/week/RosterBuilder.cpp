#include "editor/week/RosterBuilder.h"

#include "editor/week/Undo.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "store/rows/EmployeeRow.h"
#include "store/rows/Periods.h"
#include "store/rows/Schema.h"

#include <map>
#include <optional>
#include <vector>

namespace tvx {
namespace {

constexpr int FirstNameOrder = 6;

void ResizeRoster(Roster& r, int count) {
    const bool all = r.AllDepartmentsMode;
    r = {};
    r.AllDepartmentsMode = all;
    r.EmployeeCount = count;
    const auto size = static_cast<std::size_t>(count) + 1;
    for (auto* numbers :
         {&r.RowOrder, &r.EmployeeRowIndex, &r.RosterWageOrSal, &r.RosterEmployeeKey, &r.RosterBirthDate,
          &r.RosterHireDate, &r.RosterBarColor, &r.RosterDepNumber, &r.AvailabilityCount})
        numbers->assign(size, 0);
    for (auto* texts : {&r.RosterName1, &r.RosterName2, &r.RosterId, &r.RosterAssignment, &r.RosterPhone,
                        &r.RosterComments, &r.RosterLaborType, &r.RosterDepName})
        texts->assign(size, "");
    r.RosterPay.assign(size, Currency());
    r.AvailabilityStarts.assign(size, {});
    r.AvailabilityStops.assign(size, {});
}

/// Palette index of an employee's bars: the field, else the default of the options; above 14 it is 2.
int BarColorOf(const std::optional<int>& stored, int defaultColor) {
    const int color = stored.value_or(defaultColor);
    return color < 0 || color > 14 ? 2 : color;
}

void FillRow(const EmployeeRow& row, GlobalState& g, int e) {
    Roster& r = g.roster;
    const bool firstNameLeads = g.department.EditorOrder >= FirstNameOrder;
    r.RowOrder[e] = e;
    r.EmployeeRowIndex[e] = e;
    r.RosterName1[e] = firstNameLeads ? row.firstName : row.lastName;
    r.RosterName2[e] = firstNameLeads ? row.lastName : row.firstName;
    r.RosterId[e] = row.id;
    r.RosterAssignment[e] = row.assignment;
    r.RosterPay[e] = Currency::FromAmount(Val(row.pay));
    r.RosterWageOrSal[e] = row.wageOrSal;
    r.RosterEmployeeKey[e] = row.key;
    r.RosterPhone[e] = row.phone;
    r.RosterComments[e] = row.comments;
    r.RosterBirthDate[e] = row.birthDate.value_or(0);
    r.RosterHireDate[e] = row.hireDate.value_or(0);
    r.RosterLaborType[e] = LaborTypeText(row.laborType);
    r.RosterBarColor[e] = BarColorOf(row.barColor, g.application.options.BarColor);
    DecodeAvailability(row.availStart, row.availStop, r, e);
}

void FillDepartment(int number, GlobalState& g, int e) {
    for (int i = 0; i < g.departments.DepartmentCount; ++i) {
        if (g.departments.DepNumbers[i] != number) continue;
        g.roster.RosterDepNumber[e] = number;
        g.roster.RosterDepName[e] = g.departments.DepNames[i];
    }
}

/// Keeps the rows whose trimmed ID stands in another row too.
void KeepSharedIds(std::vector<EmployeeRow>& rows) {
    std::map<std::string, int> times;
    for (const EmployeeRow& row : rows) ++times[Trim(row.id)];
    std::erase_if(rows, [&](const EmployeeRow& row) {
        const std::string id = Trim(row.id);
        return id.empty() || times[id] < 2;
    });
}

/// Before anything is filled, so that a refusal leaves the roster that was there.
void RequireUsableKeys(const std::vector<EmployeeRow>& rows) {
    for (const EmployeeRow& row : rows)
        if (row.key < SmallestKey || row.key > GreatestEmployeeKey)
            throw dao::DaoError(dao::error::Overflow, "Overflow: the employee number is not 1 to 32767.",
                                std::to_string(row.key));
}

void EmptyWeekFor(GlobalState& g, Week& week) {
    week.Resize(g.roster.EmployeeCount);
    g.cursor.CurrentRow = 1;
    g.cursor.CurrentEmployee = 0;
    ForgetSteps(g.steps);
    g.totals = {};
    g.TotalSalaries = {};
}

void FillRoster(GlobalState& g, Week& week, const std::vector<EmployeeRow>& rows) {
    RequireUsableKeys(rows);
    ResizeRoster(g.roster, static_cast<int>(rows.size()));
    EmptyWeekFor(g, week);
    int e = 0;
    for (const EmployeeRow& row : rows) {
        FillRow(row, g, ++e);
        if (g.roster.AllDepartmentsMode)
            FillDepartment(row.depNumber, g, e);
        else if (!g.roster.IsPaidByHour(e))
            g.TotalSalaries += Wage::Whole(g.roster.RosterPay[e]);
    }
}

} // namespace

RosterResult BuildRoster(GlobalState& g) {
    const int order = g.department.EditorOrder;
    const bool known = order >= 1 && order <= FirstNameOrder;
    dao::Recordset& rs = g.store.EmployeeRs;
    if (known || !rs.IsOpen())
        rs = RosterQuery(g.department.CurrentDepNumber, known ? order : 1, g.roster.AllDepartmentsMode)
                 .Open(g.store.Open());
    std::vector<EmployeeRow> rows = ReadEmployeeRows(rs);
    if (rows.empty()) return RosterResult::Empty;
    if (g.roster.AllDepartmentsMode) {
        KeepSharedIds(rows);
        if (rows.empty()) return RosterResult::NoSharedIds;
    }
    FillRoster(g, g.loadedWeek.week_, rows);
    return RosterResult::Ready;
}

bool PrepareRoster(GlobalState& g, Prompt& prompt) {
    const Department& words = g.department;
    switch (BuildRoster(g)) {
    case RosterResult::Ready:
        return true;
    case RosterResult::Empty:
        prompt.MsgBox("To begin scheduling, you must\nenter at least one " + words.EmployeeNameSingle + "!",
                      box::Ok, "No " + words.EmployeeNamePlural + " entered");
        return false;
    case RosterResult::NoSharedIds:
        prompt.Beep();
        prompt.MsgBox("No duplicate Emloyee IDs\n" + words.EmployeeNamePlural +
                          " entered in more than one Department\nmust be Active and have the same " +
                          words.EmployeeNameSingle + " ID",
                      box::Stop, words.EmployeeNamePlural + " entered in more then one Department");
        g.roster.AllDepartmentsMode = false;
        return false;
    }
    return false;
}

void DecodeAvailability(std::string_view availStart, std::string_view availStop, Roster& r, int e) {
    const WeekAbsences absences = DecodeAbsences(availStart, availStop);
    auto& starts = r.AvailabilityStarts[e];
    auto& stops = r.AvailabilityStops[e];
    r.AvailabilityCount[e] = 0;
    int n = 0;
    int stopBefore = 0;
    for (int d = 0; d < DaysInSpan; ++d) {
        for (std::size_t slot = 0; slot < AbsencesPerDay; ++slot) {
            const Period& absence = absences[static_cast<std::size_t>(d % 7) * AbsencesPerDay + slot];
            if (!absence.IsUsed()) continue;
            r.AvailabilityCount[e] = ++n;
            starts[n] = absence.start + d * QuartersPerDay;
            if (starts[n] == stopBefore && (stopBefore >= 1 || d == DaysInSpan - 1)) --n;
            stops[n] = stopBefore = absence.stop + d * QuartersPerDay;
        }
    }
}

std::string LaborTypeText(long code) {
    switch (code) {
    case 0:
        return "Full time";
    case 1:
        return "Part time";
    case 2:
        return "Student";
    case 4:
        return "Other";
    default:
        return "";
    }
}

} // namespace tvx
