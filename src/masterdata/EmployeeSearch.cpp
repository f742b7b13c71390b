#include "masterdata/EmployeeSearch.h"

#include "platform/basic/MostThatFits.h"
#include "platform/basic/Text.h"
#include "store/rows/DayRow.h"
#include "store/rows/EmployeeRow.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr Twips NarrowestName = 1500;
constexpr Twips WidestName = 1750;

std::string Question(const EmployeeRow& row, const std::string& plural) {
    const std::string gap = "\r\n\r\n";
    return "Deleting:  " + row.firstName + " " + row.lastName + " - " + row.id + " - " + row.assignment +
           gap + "Are you sure?" + gap + "Note!\r\nDeleted " + plural +
           " will not be\r\npart of any statistics or history...\r\nIf you mark them as Inactive,\r\nthey "
           "will be.";
}

} // namespace

std::string FitToNameColumn(const std::string& name,
                            const std::function<Twips(const std::string&)>& widthOf) {
    const std::size_t length = CharacterCount(name);
    const std::size_t fitting =
        MostThatFits(length, [&](std::size_t count) { return widthOf(Left(name, count)) < WidestName; });
    if (fitting < length) return Left(name, fitting);
    std::string padded = name;
    const Twips width = widthOf(padded);
    if (width >= NarrowestName) return padded;
    // Most blanks at once; measuring the text again settles the last ones.
    const Twips blank = std::max(1, widthOf(padded + ' ') - width);
    padded.append(static_cast<std::size_t>((NarrowestName - width) / blank), ' ');
    while (widthOf(padded) < NarrowestName) padded += ' ';
    return padded;
}

std::vector<FoundEmployee> FindEmployees(const Store& store, const Department& department,
                                         const std::function<Twips(const std::string&)>& widthOf) {
    std::vector<FoundEmployee> found;
    for (const EmployeeRow& row : ReadEmployeeRows(store.Open(), department.CurrentDepNumber)) {
        FoundEmployee& employee = found.emplace_back();
        employee.name = FitToNameColumn(row.lastName + " " + row.firstName, widthOf);
        employee.id = row.id;
        employee.assignment = row.assignment;
        employee.key = row.key;
        employee.folded = UpperCase(employee.Text());
    }
    return found;
}

int FirstMatch(const std::vector<FoundEmployee>& rows, const std::string& typed) {
    const std::string wanted = UpperCase(typed);
    if (wanted.empty()) return rows.empty() ? -1 : 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].folded.starts_with(wanted)) return static_cast<int>(i);
    return -1;
}

std::string SearchTitle(const Department& department, FormCommand command) {
    return TextOf(command) + " " + department.EmployeeNameSingle;
}

bool AskAndDeleteEmployee(const Store& store, const Department& department, Prompt& prompt, int employeeKey) {
    dao::Database& database = store.Open();
    const std::optional<EmployeeRow> row = FindEmployeeRow(database, employeeKey);
    if (!row) return false; // another workstation was faster
    const std::string question = Question(*row, department.EmployeeNamePlural);
    if (prompt.MsgBox(question, box::YesNo + box::Stop, "Employee delete") != Answer::Yes) return false;
    DeleteEmployeeRow(database, employeeKey);
    // The schedule's first key is a day, so that rows of the employee are not among these: they stay.
    DeleteDayRowsOfDay(database, employeeKey);
    return true;
}

} // namespace tvx
