// Finding an employee of the department by name, and deleting one.
#pragma once

#include "platform/basic/Twips.h"
#include "platform/ports/Prompt.h"
#include "shell/state/Department.h"
#include "shell/state/FormCommand.h"
#include "shell/state/Store.h"

#include <functional>
#include <string>
#include <vector>

namespace tvx {

/// A row of the search list.
struct FoundEmployee {
    std::string name; // "Last First", padded and cut to its column
    std::string id;
    std::string assignment;
    std::string folded; // the whole row in capitals, for the search
    int key = 0;

    /// The row as one text, its columns parted by tabs.
    std::string Text() const { return name + "\t" + id + "\t" + assignment; }
};

/// The people of the current department in the order of last names, inactive ones included. `widthOf`
/// measures a text in the list's font, in twips. Throws DaoError.
std::vector<FoundEmployee> FindEmployees(const Store& store, const Department& department,
                                         const std::function<Twips(const std::string&)>& widthOf);

/// A text padded with blanks to at least 1500 twips, then cut by single characters until it is under 1750.
std::string FitToNameColumn(const std::string& name, const std::function<Twips(const std::string&)>& widthOf);

/// Index of the first row that begins with the typed text, without regard to case; -1 when none does.
int FirstMatch(const std::vector<FoundEmployee>& rows, const std::string& typed);

/// Title of the search: "Delete Employee".
std::string SearchTitle(const Department& department, FormCommand command);

/// Asks, and deletes the employee's record. The schedule rows stay, and no report sees them any more. True
/// when it was deleted. Throws DaoError.
bool AskAndDeleteEmployee(const Store& store, const Department& department, Prompt& prompt, int employeeKey);

} // namespace tvx
