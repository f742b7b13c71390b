#include "editor/week/RosterBuilder.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/Schema.h"

#include <algorithm>
#include <array>
#include <map>
#include <vector>

namespace tvx {
namespace {

/// Positions of the fields of table Employee that the roster takes.
namespace position {
constexpr std::size_t LastName = 0;
constexpr std::size_t FirstName = 1;
constexpr std::size_t Id = 2;
constexpr std::size_t Assignment = 3;
constexpr std::size_t Pay = 4;
constexpr std::size_t WageOrSal = 5;
constexpr std::size_t Key = 7;
constexpr std::size_t HireDate = 12;
constexpr std::size_t BirthDate = 13;
constexpr std::size_t Phone = 14;
constexpr std::size_t Comments = 18;
constexpr std::size_t DepNumber = 19;
constexpr std::size_t AvailStart = 20;
constexpr std::size_t AvailStop = 21;
constexpr std::size_t LaborType = 25;
constexpr std::size_t BarColor = 26;
} // namespace position

constexpr int FirstNameOrder = 6;
constexpr std::size_t AvailabilityText = 28;
constexpr int SlotsPerDay = 4;

const char* OrderClause(int editorOrder) {
    constexpr std::array<const char*, 7> clauses{"",
                                                 "[Last name],[First name]",
                                                 "ID",
                                                 "Assignment",
                                                 "[Birth date]",
                                                 "[Hire date]",
                                                 "[First name],[Last name]"};
    return clauses[static_cast<std::size_t>(editorOrder)];
}

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
int BarColorOf(const dao::Value& field, const std::string& defaultColor) {
    const std::int64_t color = dao::IsNull(field) ? RoundHalfToEven(Val(defaultColor)) : dao::ToLong(field);
    return color < 0 || color > 14 ? 2 : static_cast<int>(color);
}

void FillNames(dao::Recordset& rs, Roster& r, int e, int editorOrder) {
    const bool firstNameLeads = editorOrder >= FirstNameOrder;
    r.RosterName1[e] = rs.Fields(firstNameLeads ? position::FirstName : position::LastName).Text();
    r.RosterName2[e] = rs.Fields(firstNameLeads ? position::LastName : position::FirstName).Text();
}

int KeyOf(dao::Recordset& rs) {
    const std::int64_t key = rs.Fields(position::Key).Long();
    if (key < SmallestKey || key > GreatestEmployeeKey)
        throw dao::DaoError(6,
                            "Overflow: the employee number " + std::to_string(key) + " is not 1 to 32767.");
    return static_cast<int>(key);
}

void FillRow(dao::Recordset& rs, GlobalState& g, int e) {
    Roster& r = g.roster;
    r.RowOrder[e] = e;
    r.EmployeeRowIndex[e] = e;
    FillNames(rs, r, e, g.department.EditorOrder);
    r.RosterId[e] = rs.Fields(position::Id).Text();
    r.RosterAssignment[e] = rs.Fields(position::Assignment).Text();
    r.RosterPay[e] = Currency::FromAmount(Val(rs.Fields(position::Pay).Text()));
    r.RosterWageOrSal[e] = static_cast<int>(rs.Fields(position::WageOrSal).Long());
    r.RosterEmployeeKey[e] = KeyOf(rs);
    r.RosterPhone[e] = rs.Fields(position::Phone).Text();
    r.RosterComments[e] = rs.Fields(position::Comments).Text();
    r.RosterBirthDate[e] = static_cast<DaySerial>(Int(rs.Fields(position::BirthDate).Double()));
    r.RosterHireDate[e] = static_cast<DaySerial>(Int(rs.Fields(position::HireDate).Double()));
    r.RosterLaborType[e] = LaborTypeText(rs.Fields(position::LaborType).Long());
    r.RosterBarColor[e] =
        BarColorOf(rs.Fields(position::BarColor).Value(), g.application.Settings[setting::BarColor]);
    DecodeAvailability(rs.Fields(position::AvailStart).Text(), rs.Fields(position::AvailStop).Text(), r, e);
}

void FillDepartment(dao::Recordset& rs, GlobalState& g, int e) {
    const auto number = static_cast<int>(rs.Fields(position::DepNumber).Long());
    for (int i = 0; i < g.departments.DepartmentCount; ++i) {
        if (g.departments.DepNumbers[i] != number) continue;
        g.roster.RosterDepNumber[e] = number;
        g.roster.RosterDepName[e] = g.departments.DepNames[i];
    }
}

/// For each row of the query, in its order, whether its trimmed ID stands in another row too.
std::vector<bool> RowsThatShareAnId(dao::Recordset& rs) {
    std::vector<std::string> ids;
    std::map<std::string, int> times;
    for (rs.MoveFirst(); !rs.AtEnd(); rs.MoveNext()) {
        ids.push_back(Trim(rs.Fields(position::Id).Text()));
        ++times[ids.back()];
    }
    std::vector<bool> kept;
    kept.reserve(ids.size());
    for (const std::string& id : ids) kept.push_back(!id.empty() && times[id] > 1);
    return kept;
}

/// Before anything is filled, so that a refusal leaves the roster that was there.
void RequireUsableKeys(dao::Recordset& rs, const std::vector<bool>& kept) {
    rs.MoveFirst();
    for (const bool keep : kept) {
        if (keep) KeyOf(rs);
        rs.MoveNext();
    }
}

void FillRoster(GlobalState& g, const std::vector<bool>& kept) {
    dao::Recordset& rs = g.store.EmployeeRs;
    RequireUsableKeys(rs, kept);
    ResizeRoster(g.roster, static_cast<int>(std::count(kept.begin(), kept.end(), true)));
    g.week.Resize(g.roster.EmployeeCount);
    g.drag = {};
    g.totals = {};
    g.TotalSalaries = 0;
    int e = 0;
    rs.MoveFirst();
    for (const bool keep : kept) {
        if (keep) {
            FillRow(rs, g, ++e);
            if (g.roster.AllDepartmentsMode)
                FillDepartment(rs, g, e);
            else if (!g.roster.IsPaidByHour(e))
                g.TotalSalaries += g.roster.RosterPay[e].Amount();
        }
        rs.MoveNext();
    }
}

} // namespace

std::string RosterQuery(int departmentNumber, int editorOrder, bool allDepartments) {
    std::string query = "SELECT * FROM Employee WHERE ";
    if (!allDepartments) query += "[Dep number] = " + std::to_string(departmentNumber) + " and ";
    return query + "[Active] = true ORDER BY " + OrderClause(editorOrder) + ";";
}

RosterResult BuildRoster(GlobalState& g) {
    const int order = g.department.EditorOrder;
    const bool known = order >= 1 && order <= FirstNameOrder;
    dao::Recordset& rs = g.store.EmployeeRs;
    if (known || !rs.IsOpen())
        rs = g.store.Open().OpenRecordset(
            RosterQuery(g.department.CurrentDepNumber, known ? order : 1, g.roster.AllDepartmentsMode));
    if (rs.BOF() && rs.AtEnd()) return RosterResult::Empty;
    rs.MoveLast();
    std::vector<bool> kept(static_cast<std::size_t>(rs.RecordCount()), true);
    if (g.roster.AllDepartmentsMode) {
        kept = RowsThatShareAnId(rs);
        if (std::count(kept.begin(), kept.end(), true) == 0) return RosterResult::NoSharedIds;
    }
    FillRoster(g, kept);
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
    const auto codeOf = [](std::string_view text, int at) {
        return static_cast<int>(static_cast<unsigned char>(text[at]));
    };
    auto& starts = r.AvailabilityStarts[e];
    auto& stops = r.AvailabilityStops[e];
    r.AvailabilityCount[e] = 0;
    if (availStart.size() < AvailabilityText || availStop.size() < AvailabilityText) return;
    int n = 0;
    int stopBefore = 0;
    for (int d = 1; d <= DaysInSpan; ++d) {
        const int characters = d == DaysInSpan ? 0 : (d - 1) * SlotsPerDay;
        const int offset = (d - 1) * QuartersPerDay - 32;
        for (int slot = 0; slot < SlotsPerDay; ++slot) {
            const int stopCode = codeOf(availStop, characters + slot);
            if (stopCode < 33) continue;
            r.AvailabilityCount[e] = ++n;
            starts[n] = codeOf(availStart, characters + slot) + offset;
            if (starts[n] == stopBefore && (stopBefore >= 1 || d == DaysInSpan)) --n;
            stops[n] = stopBefore = stopCode + offset;
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
