#include "masterdata/EmployeeSearch.h"

#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr Twips NarrowestName = 1500;
constexpr Twips WidestName = 1750;

std::string Question(dao::Recordset& rs, const std::string& plural) {
    const std::string gap = "\r\n\r\n";
    return "Deleting:  " + rs.Fields("First name").Text() + " " + rs.Fields("Last name").Text() + " - " +
           rs.Fields("ID").Text() + " - " + rs.Fields("Assignment").Text() + gap + "Are you sure?" + gap +
           "Note!\r\nDeleted " + plural +
           " will not be\r\npart of any statistics or history...\r\nIf you mark them as Inactive,\r\nthey "
           "will be.";
}

/// Deletes the schedule rows whose first key equals the employee's number. The first key is a day, so that
/// rows of the employee are not among them: they stay.
void DeleteDaysOf(GlobalState& g, std::int64_t key) {
    dao::Recordset rows = g.store.Open().OpenRecordset("Day schedule");
    rows.Index("Day and Employee");
    if (rows.BOF() && rows.AtEnd()) return;
    rows.MoveFirst();
    rows.Seek({key});
    while (!rows.NoMatch() && !rows.AtEnd()) {
        rows.Delete();
        rows.Seek({key});
    }
}

} // namespace

std::string FitToNameColumn(const std::string& name,
                            const std::function<Twips(const std::string&)>& widthOf) {
    std::string fitted = name;
    Twips width = widthOf(fitted);
    if (width < NarrowestName) {
        // Most blanks at once; measuring the text again settles the last ones.
        const Twips blank = std::max(1, widthOf(fitted + ' ') - width);
        fitted.append(static_cast<std::size_t>((NarrowestName - width) / blank), ' ');
        while (widthOf(fitted) < NarrowestName) fitted += ' ';
        return fitted;
    }
    while (width >= WidestName && !fitted.empty()) {
        fitted = DropLastCharacter(fitted);
        width = widthOf(fitted);
    }
    return fitted;
}

std::vector<FoundEmployee> FindEmployees(GlobalState& g,
                                         const std::function<Twips(const std::string&)>& widthOf) {
    g.store.EmployeeRs = g.store.Open().OpenRecordset(
        "SELECT * FROM Employee  WHERE [Dep number] = " + std::to_string(g.department.CurrentDepNumber) +
        " ORDER BY [Last name] ASC;");
    std::vector<FoundEmployee> rows;
    dao::Recordset& rs = g.store.EmployeeRs;
    for (; !rs.AtEnd(); rs.MoveNext()) {
        FoundEmployee row;
        row.name = FitToNameColumn(rs.Fields(std::size_t{0}).Text() + " " + rs.Fields(1).Text(), widthOf);
        row.id = rs.Fields(2).Text();
        row.assignment = rs.Fields(3).Text();
        row.key = static_cast<int>(rs.Fields(7).Long());
        row.folded = UpperCase(row.Text());
        rows.push_back(std::move(row));
    }
    return rows;
}

int FirstMatch(const std::vector<FoundEmployee>& rows, const std::string& typed) {
    const std::string wanted = UpperCase(typed);
    if (wanted.empty()) return rows.empty() ? -1 : 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].folded.starts_with(wanted)) return static_cast<int>(i);
    return -1;
}

std::string SearchTitle(const GlobalState& g) {
    const std::string& command = g.application.FormCommand;
    const std::string verb = command == "Delete" || command == "Transfer" ? command : "Change";
    return verb + " " + g.department.EmployeeNameSingle;
}

bool AskAndDeleteEmployee(GlobalState& g, Prompt& prompt, int employeeKey) {
    dao::Recordset& rs = g.store.EmployeeRs;
    rs = g.store.Open().OpenRecordset("Employee");
    rs.Index("Seq");
    rs.Seek({std::int64_t{employeeKey}});
    if (rs.NoMatch()) return false; // another workstation was faster
    const std::string question = Question(rs, g.department.EmployeeNamePlural);
    if (prompt.MsgBox(question, box::YesNo + box::Stop, "Employee delete") != Answer::Yes) return false;
    rs.Delete();
    DeleteDaysOf(g, employeeKey);
    return true;
}

} // namespace tvx
