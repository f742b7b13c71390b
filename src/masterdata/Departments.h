// Departments: the profile that is added or changed, and the delete that takes everything of one along.
#pragma once

#include "platform/ports/Ports.h"
#include "shell/common/SaveResult.h"
#include "shell/state/TVXGLOB.h"
#include "store/rows/DepartmentRow.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tvx {

constexpr int MostCutoffQuarters = 32; // 8:00

/// What the profile of a department holds.
struct DepartmentProfile {
    std::string name;
    int editorOrder = 1;    // 1 to 6
    int firstWeekday = 1;   // 1 Sunday to 7 Saturday
    int cutoffQuarters = 0; // 0 to 99; the list of times offers 0 to 32
    bool weekKnown = true;  // false when the stored department names no first weekday
    int weekMethod = 3;     // 0 to 3
    std::string employeeNameSingle = "Employee";
    std::string employeeNamePlural = "Employees";
    std::string dayOffNameSingle = "Vacation day";
    std::string dayOffNamePlural = "Vacation days";

    friend bool operator==(const DepartmentProfile&, const DepartmentProfile&) = default;
};

/// The profile to begin with, as Add or Change says: the usual one, or that of the current
/// department, found by its name.
/// Nothing, and its box is shown, when the table cannot be read or the department is gone.
std::optional<DepartmentProfile> OpenProfile(const Store& store, const Department& department, Prompt& prompt,
                                             FormCommand command);

/// Adds a department, or changes the current one, as Add or Change says, and shows the box
/// of any refusal. Empty words for people and days off become the defaults, in `profile` too. An added
/// department gets no words of its own. After Saved the current department's settings are in force.
SaveResult SaveDepartment(const Store& store, Department& department, Prompt& prompt, FormCommand command,
                          DepartmentProfile& profile);

/// True when a department has this name but for case and outer blanks.
bool CheckDepartmentNameInUse(const std::vector<DepartmentRow>& departments, const std::string& name);

/// Deletes the current department with its employees, daytypes and days; of its people's schedule rows only
/// those of the first one. Its side files stay. All in one transaction: throws DaoError, and
/// nothing is deleted then; 3021 when no department of that name and number is left.
void DeleteDepartment(const Store& store, const Department& department);

/// DeleteDepartment after its question. True when it was deleted.
bool AskAndDeleteDepartment(GlobalState& g, Prompt& prompt);

/// The times that a business day can begin at, by the clock of the options: [0..32].
std::array<std::string, MostCutoffQuarters + 1> CutoffTexts(ClockStyle clockStyle);

} // namespace tvx
