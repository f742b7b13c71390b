#include "masterdata/Departments.h"

#include "platform/basic/Collation.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "store/Troubles.h"
#include "store/rows/DayRow.h"
#include "store/rows/DayTypeRow.h"
#include "store/rows/DepartmentDayRow.h"
#include "store/rows/EmployeeRow.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tvx {
namespace {

[[noreturn]] void FailGone() {
    throw dao::DaoError(dao::error::NoCurrentRecord, "No current record.");
}

/// The first department of a name; nullptr when there is none.
const DepartmentRow* Named(const std::vector<DepartmentRow>& rows, const std::string& name) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const DepartmentRow& row) {
        return IsSameName(Trim(row.name), Trim(name));
    });
    return found == rows.end() ? nullptr : &*found;
}

void FillInDefault(std::string& word, const char* usual) {
    if (Trim(word).empty()) word = usual;
}

void FillInDefaults(DepartmentProfile& profile) {
    const DepartmentProfile usual;
    FillInDefault(profile.employeeNameSingle, usual.employeeNameSingle.c_str());
    FillInDefault(profile.employeeNamePlural, usual.employeeNamePlural.c_str());
    FillInDefault(profile.dayOffNameSingle, usual.dayOffNameSingle.c_str());
    FillInDefault(profile.dayOffNamePlural, usual.dayOffNamePlural.c_str());
}

DepartmentRow RowOf(const DepartmentProfile& profile) {
    DepartmentRow row;
    row.name = Trim(profile.name);
    row.editorOrder = profile.editorOrder;
    row.firstWeekday = EncodeFirstWeekday(profile.firstWeekday, profile.cutoffQuarters);
    row.weekMethod = profile.weekMethod;
    row.employeeNameSingle = Trim(profile.employeeNameSingle);
    row.employeeNamePlural = Trim(profile.employeeNamePlural);
    row.dayOffNameSingle = Trim(profile.dayOffNameSingle);
    row.dayOffNamePlural = Trim(profile.dayOffNamePlural);
    return row;
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
bool WriteProfile(const Store& store, const Department& department, const DepartmentProfile& profile,
                  bool adding) {
    dao::Database& database = store.Open();
    dao::Transaction transaction(database);
    const std::vector<DepartmentRow> rows = ReadDepartmentRows(database);
    const bool renamed = adding || profile.name != Trim(department.CurrentDepName);
    if (renamed && CheckDepartmentNameInUse(rows, profile.name)) return false;
    DepartmentRow row = RowOf(profile);
    if (adding) {
        row.number = AddDepartmentRow(database, row);
    } else {
        const DepartmentRow* present = Named(rows, department.CurrentDepName);
        if (present == nullptr) FailGone();
        row.number = present->number;
        ChangeDepartmentRow(database, row);
    }
    const auto written = FindDepartmentRow(database, row.number);
    transaction.Commit([&] { return FindDepartmentRow(database, row.number) == written; });
    return true;
}

DepartmentProfile ReadProfile(const Department& department, const std::vector<DepartmentRow>& rows) {
    const DepartmentRow* row = Named(rows, department.CurrentDepName);
    if (row == nullptr) FailGone();
    DepartmentProfile profile;
    profile.name = Trim(department.CurrentDepName);
    profile.weekKnown = row->firstWeekday.has_value();
    profile.cutoffQuarters = profile.weekKnown ? department.DayCutoffQuarters : 0;
    if (profile.weekKnown)
        DecodeFirstWeekday(*row->firstWeekday, profile.firstWeekday, profile.cutoffQuarters);
    profile.editorOrder = std::clamp(row->editorOrder, 1, 6);
    profile.weekMethod = std::clamp(row->weekMethod, 0, 3);
    profile.employeeNameSingle = row->employeeNameSingle;
    profile.employeeNamePlural = row->employeeNamePlural;
    profile.dayOffNameSingle = row->dayOffNameSingle;
    profile.dayOffNamePlural = row->dayOffNamePlural;
    return profile;
}

/// Deletes the row of the current department, unless a colleague has renamed or deleted it.
void DeleteRowOf(dao::Database& database, const Department& department) {
    const std::vector<DepartmentRow> rows = ReadDepartmentRows(database);
    const bool stands = std::any_of(rows.begin(), rows.end(), [&](const DepartmentRow& row) {
        return row.name == department.CurrentDepName && row.number == department.CurrentDepNumber;
    });
    if (!stands) FailGone();
    DeleteDepartmentRow(database, department.CurrentDepNumber);
}

} // namespace

std::optional<DepartmentProfile> OpenProfile(const Store& store, const Department& department, Prompt& prompt,
                                             FormCommand command) {
    try {
        const std::vector<DepartmentRow> rows = ReadDepartmentRows(store.Open());
        return command == FormCommand::Add ? DepartmentProfile() : ReadProfile(department, rows);
    } catch (const dao::DaoError& trouble) {
        TellTrouble(prompt, TroubleOf(Occasion::ReadingDepartments, trouble));
        return std::nullopt;
    }
}

bool CheckDepartmentNameInUse(const std::vector<DepartmentRow>& departments, const std::string& name) {
    return Named(departments, name) != nullptr;
}

SaveResult SaveDepartment(const Store& store, Department& department, Prompt& prompt, FormCommand command,
                          DepartmentProfile& profile) {
    FillInDefaults(profile);
    if (Trim(profile.name).empty()) return SaveResult::Incomplete;
    Occasion occasion = Occasion::ReadingDepartments;
    try {
        ReadDepartmentRows(store.Open()); // a table that cannot be read is told apart from a lock
        occasion = Occasion::Saving;
        const std::string typed = std::exchange(profile.name, Trim(profile.name));
        const bool adding = command == FormCommand::Add;
        if (!WriteProfile(store, department, profile, adding)) {
            TellNameInUse(prompt, typed);
            return SaveResult::InUse;
        }
        PutInForce(department, profile, adding);
        return SaveResult::Saved;
    } catch (const dao::DaoError& trouble) {
        TellTrouble(prompt, TroubleOf(occasion, trouble, "Department"));
        return SaveResult::Refused;
    }
}

void DeleteDepartment(const Store& store, const Department& department) {
    dao::Database& database = store.Open();
    const int number = department.CurrentDepNumber;
    dao::Transaction transaction(database);
    DeleteRowOf(database, department);
    const std::vector<int> keys = DeleteEmployeeRows(database, number);
    // Only the first one's schedule goes; the rows of the others are cleared with the old weeks.
    if (!keys.empty()) DeleteDayRows(database, keys.front());
    DeleteDayTypeRows(database, number);
    DeleteDepartmentDayRows(database, number);
    transaction.Commit([&] { return !FindDepartmentRow(database, number); });
}

bool AskAndDeleteDepartment(GlobalState& g, Prompt& prompt) {
    const std::string& name = g.department.CurrentDepName;
    const Answer answer =
        prompt.MsgBox("You are about to delete the " + name + " from the database.  Are you sure?",
                      box::YesNo + box::Stop, "Delete " + name);
    if (answer != Answer::Yes) return false;
    const Hourglass hourglass(prompt);
    g.application.FormCommand = FormCommand::Delete;
    DeleteDepartment(g.store, g.department);
    return true;
}

std::array<std::string, MostCutoffQuarters + 1> CutoffTexts(ClockStyle clockStyle) {
    std::array<std::string, MostCutoffQuarters + 1> texts;
    for (int quarter = 0; quarter <= MostCutoffQuarters; ++quarter)
        texts[quarter] = QuarterToClockText(quarter, clockStyle);
    return texts;
}

} // namespace tvx
