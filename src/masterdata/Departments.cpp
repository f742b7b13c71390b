#include "masterdata/Departments.h"

#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

#include <algorithm>
#include <vector>

namespace tvx {
namespace {

std::string Folded(const std::string& name) {
    return UpperCase(Trim(name));
}

[[noreturn]] void FailGone() {
    throw dao::DaoError(dao::error::NoCurrentRecord, "No current record.");
}

/// Walks to the department of a name; false when there is none.
bool WalkTo(dao::Recordset& rs, const std::string& name) {
    if (rs.BOF() && rs.AtEnd()) return false;
    for (rs.MoveFirst(); !rs.AtEnd(); rs.MoveNext())
        if (Folded(rs.Fields("Department name").Text()) == Folded(name)) return true;
    return false;
}

void TakeDefault(std::string& word, const char* usual) {
    if (Trim(word).empty()) word = usual;
}

void TakeDefaults(DepartmentProfile& profile) {
    const DepartmentProfile usual;
    TakeDefault(profile.employeeNameSingle, usual.employeeNameSingle.c_str());
    TakeDefault(profile.employeeNamePlural, usual.employeeNamePlural.c_str());
    TakeDefault(profile.dayOffNameSingle, usual.dayOffNameSingle.c_str());
    TakeDefault(profile.dayOffNamePlural, usual.dayOffNamePlural.c_str());
}

void WriteSettings(dao::Recordset& rs, const DepartmentProfile& profile) {
    rs.Fields("Department name") = Trim(profile.name);
    rs.Fields("Editor order") = profile.editorOrder;
    rs.Fields("First weekday") = EncodeFirstWeekday(profile.firstWeekday, profile.cutoffQuarters);
    rs.Fields("Week methode pick") = profile.weekMethod;
}

void WriteWords(dao::Recordset& rs, const DepartmentProfile& profile) {
    rs.Fields("EmployeeNameSingle") = Trim(profile.employeeNameSingle);
    rs.Fields("EmployeeNamePlural") = Trim(profile.employeeNamePlural);
    rs.Fields("DayOffNameSingle") = Trim(profile.dayOffNameSingle);
    rs.Fields("DayOffNamePlural") = Trim(profile.dayOffNamePlural);
}

void PutInForce(Department& d, const DepartmentProfile& profile, bool added) {
    d.FirstWeekday = profile.firstWeekday;
    d.DayCutoffQuarters = profile.cutoffQuarters;
    if (added) return; // the console takes the rest when it selects the department
    d.CurrentDepName = Trim(profile.name);
    d.EditorOrder = profile.editorOrder;
    d.WeekMethod = profile.weekMethod;
    d.EmployeeNameSingle = Trim(profile.employeeNameSingle);
    d.EmployeeNamePlural = Trim(profile.employeeNamePlural);
    d.DayOffNameSingle = Trim(profile.dayOffNameSingle);
    d.DayOffNamePlural = Trim(profile.dayOffNamePlural);
}

void TellNameInUse(Prompt& prompt, const std::string& name) {
    prompt.Beep();
    prompt.MsgBox("Duplicate department name..\r\n" + TrimRight(name) + ", is in use!\r\n", box::Ok,
                  "Error in department name.");
}

/// Writes the profile in one transaction. False when the name is in use; nothing is stored then.
bool WriteProfile(GlobalState& g, const DepartmentProfile& profile, bool adding) {
    dao::Recordset& rs = g.store.DepartmentRs;
    dao::Transaction transaction(g.store.Open());
    const bool renamed = adding || profile.name != Trim(g.department.CurrentDepName);
    if (renamed && CheckDepartmentNameInUse(rs, profile.name)) return false;
    if (adding) {
        rs.AddNew();
        WriteSettings(rs, profile);
    } else {
        if (!WalkTo(rs, g.department.CurrentDepName)) FailGone();
        rs.Edit();
        WriteSettings(rs, profile);
        WriteWords(rs, profile);
    }
    rs.Update();
    transaction.Commit();
    return true;
}

/// Deletes every row of a table that a test wants gone, table by table in one go.
template <typename Wanted>
void DeleteRows(GlobalState& g, const char* table, Wanted wanted) {
    dao::Transaction transaction(g.store.Open());
    dao::Recordset rows = g.store.Open().OpenRecordset(table);
    for (; !rows.AtEnd(); rows.MoveNext())
        if (wanted(rows)) rows.Delete();
    transaction.Commit();
}

/// Deletes the department's employees and gives back their keys, in the order of the table.
std::vector<std::int64_t> DeleteEmployees(GlobalState& g) {
    std::vector<std::int64_t> keys;
    DeleteRows(g, "Employee", [&](dao::Recordset& row) {
        if (row.Fields("Dep number").Long() != g.department.CurrentDepNumber) return false;
        keys.push_back(row.Fields("Employee").Long());
        return true;
    });
    return keys;
}

void TellDatabaseError(Prompt& prompt, const dao::DaoError& trouble) {
    prompt.MousePointer(Pointer::Default);
    prompt.MsgBox("Database error, try again.." + std::to_string(trouble.Number()) + " " + trouble.what(),
                  box::Ok, "Database error...");
}

DepartmentProfile ReadProfile(GlobalState& g) {
    dao::Recordset& rs = g.store.DepartmentRs;
    if (!WalkTo(rs, g.department.CurrentDepName)) FailGone();
    DepartmentProfile profile;
    profile.name = Trim(g.department.CurrentDepName);
    profile.cutoffQuarters = g.department.DayCutoffQuarters;
    profile.weekKnown = !rs.Fields("First weekday").IsNull();
    if (!profile.weekKnown)
        profile.cutoffQuarters = 0;
    else
        DecodeFirstWeekday(rs.Fields("First weekday").Long(), profile.firstWeekday, profile.cutoffQuarters);
    profile.cutoffQuarters = std::clamp(profile.cutoffQuarters, 0, MostCutoffQuarters);
    profile.editorOrder = static_cast<int>(std::clamp<std::int64_t>(rs.Fields("Editor order").Long(1), 1, 6));
    profile.weekMethod =
        static_cast<int>(std::clamp<std::int64_t>(rs.Fields("Week methode pick").Long(0), 0, 3));
    profile.employeeNameSingle = rs.Fields("EmployeeNameSingle").Text(profile.employeeNameSingle);
    profile.employeeNamePlural = rs.Fields("EmployeeNamePlural").Text(profile.employeeNamePlural);
    profile.dayOffNameSingle = rs.Fields("DayOffNameSingle").Text(profile.dayOffNameSingle);
    profile.dayOffNamePlural = rs.Fields("DayOffNamePlural").Text(profile.dayOffNamePlural);
    return profile;
}

} // namespace

std::optional<DepartmentProfile> OpenProfile(GlobalState& g, Prompt& prompt) {
    try {
        g.store.DepartmentRs = g.store.Open().OpenRecordset("Department");
        return g.application.FormCommand == "Add" ? DepartmentProfile() : ReadProfile(g);
    } catch (const dao::DaoError& trouble) {
        TellDatabaseError(prompt, trouble);
        return std::nullopt;
    }
}

bool CheckDepartmentNameInUse(dao::Recordset& departments, const std::string& name) {
    return WalkTo(departments, name);
}

ProfileResult SaveDepartment(GlobalState& g, Prompt& prompt, DepartmentProfile& profile) {
    TakeDefaults(profile);
    if (Trim(profile.name).empty()) return ProfileResult::NameMissing;
    try {
        g.store.DepartmentRs = g.store.Open().OpenRecordset("Department");
    } catch (const dao::DaoError& trouble) {
        TellDatabaseError(prompt, trouble);
        return ProfileResult::Refused;
    }
    const std::string typed = profile.name;
    profile.name = Trim(profile.name);
    const bool adding = g.application.FormCommand == "Add";
    try {
        if (!WriteProfile(g, profile, adding)) {
            TellNameInUse(prompt, typed);
            return ProfileResult::NameInUse;
        }
    } catch (const dao::DaoError& trouble) {
        prompt.MousePointer(Pointer::Default);
        prompt.MsgBox(
            "Could not save this Department,\r\nthis page is locked by another user, try again..\r\n\r\n(" +
                std::to_string(trouble.Number()) + ")",
            box::Ok, "Locked page...");
        return ProfileResult::Refused;
    }
    PutInForce(g.department, profile, adding);
    return ProfileResult::Saved;
}

void DeleteDepartment(GlobalState& g) {
    const std::string name = g.department.CurrentDepName;
    const auto ofDepartment = [&](dao::Recordset& row) {
        return row.Fields("Dep number").Long() == g.department.CurrentDepNumber;
    };
    bool found = false;
    DeleteRows(g, "Department", [&](dao::Recordset& row) {
        const bool first = !found && row.Fields("Department name").Text() == name;
        found = found || first;
        return first;
    });
    if (!found) FailGone();
    const std::vector<std::int64_t> keys = DeleteEmployees(g);
    // Only the first one's schedule goes; the rows of the others are cleared with the old weeks.
    if (!keys.empty())
        DeleteRows(g, "Day Schedule",
                   [&](dao::Recordset& row) { return row.Fields("Employee").Long() == keys.front(); });
    DeleteRows(g, "Day Types", ofDepartment);
    DeleteRows(g, "Department day", ofDepartment);
}

bool AskAndDeleteDepartment(GlobalState& g, Prompt& prompt) {
    const std::string& name = g.department.CurrentDepName;
    const Answer answer =
        prompt.MsgBox("You are about to delete the " + name + " from the database.  Are you sure?",
                      box::YesNo + box::Stop, "Delete " + name);
    if (answer != Answer::Yes) return false;
    const Hourglass hourglass(prompt);
    g.application.FormCommand = "Delete";
    DeleteDepartment(g);
    return true;
}

std::array<std::string, MostCutoffQuarters + 1> CutoffTexts(const std::string& clockStyle) {
    std::array<std::string, MostCutoffQuarters + 1> texts;
    for (int quarter = 0; quarter <= MostCutoffQuarters; ++quarter)
        texts[quarter] = QuarterToClockText(quarter, clockStyle);
    return texts;
}

} // namespace tvx
