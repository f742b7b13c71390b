// A database of a test's own, and the one builder of departments of a realistic size.
#pragma once

#include "shell/state/TVXGLOB.h"
#include "support/Scripted.h"
#include "support/TempFolder.h"

#include <functional>
#include <string>
#include <vector>

namespace tvx::test {

/// What a test says of an employee; the rest is made up.
struct TestEmployee {
    std::string lastName{};
    std::string firstName{};
    std::string pay = "10.00";
    bool hourly = true;
    std::string id{};
    std::string assignment{};
    bool active = true;
    int barColor = 2;
    int laborType = 0;
    DaySerial hireDate = 0;
    DaySerial birthDate = 0;
    std::string availStart{}; // 28 bytes or ""
    std::string availStop{};
};

/// The options under which tests open files.
dao::EngineOptions TestEngineOptions();

/// A program folder with an open database of the present schema, whose one row of options is filled with the
/// defaults; a global state that stands on it; and scripted ports.
class TestStore {
  public:
    /// With an engine of the test's own, for example one whose sessions fail.
    explicit TestStore(dao::Engine engine = dao::Engine(TestEngineOptions()));

    /// Adds a department and makes it the current one. Returns its number.
    int AddDepartment(const std::string& name, int firstWeekday = 100, int editorOrder = 1,
                      int weekMethod = 3);
    /// Adds an employee to the current department. Returns the key.
    int AddEmployee(const TestEmployee& employee);
    /// Changes one field of an employee's record.
    void SetEmployee(int key, const std::string& field, const dao::Value& value);
    /// Adds the figures and the memo of a day to the current department.
    void PutFigures(DaySerial day, double sales, double transactions, const std::string& memo = "");
    /// A department of `count` employees "Last001 First1" and so on, with mixed pay.
    void AddPeople(int count);
    /// Puts a row of `Day Schedule` as it stands in the file. `startsStops` are bytes.
    void PutDay(DaySerial day, int employeeKey, const std::string& startsStops,
                const std::string& dayType = "", bool vacation = false, const std::string& salaryMark = "W",
                double rate = 10);
    /// Fills weeks with believable shifts for everybody, from a printed seed.
    void FillWeeks(DaySerial firstDay, int weeks, unsigned seed = 1);

    /// Every row of `Day Schedule`, "day|employee|daytype|periods|hours|rate|mark|vacation", in order;
    /// periods as PeriodsText has them.
    std::vector<std::string> Rows() const;

    /// Builds the roster of the current department and sets up the grid, as the console does.
    void OpenEditor();
    /// OpenEditor, and the week that holds `date`.
    void OpenWeek(DaySerial date);

    TempFolder folder;
    ScriptedPorts script;
    ScriptedGauge gauge;
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter}; // of the editor, as opened

    Ports& ports() { return script.ports; }
    ScriptedPrompt& prompt() { return script.prompt; }
    dao::Database& db() { return g.store.Open(); }
};

/// 14 bytes for work periods given as {start quarter, stop quarter} of a day.
std::string StartsStops(const std::vector<std::pair<int, int>>& periods);

/// Bytes of a stored day as times: "10:00am-12:30pm 1:00pm-midnight", "" for seven blanks twice, "no text"
/// for no bytes. Bytes that this program would not write come as their codes.
std::string PeriodsText(const std::string& bytes);

/// The bars of an employee in memory.
using BarList = std::vector<std::pair<int, int>>;
BarList Bars(const GlobalState& g, int employee);
/// Gives an employee these bars and brings all sums up to date.
void SetBars(GlobalState& g, int employee, const BarList& bars);

} // namespace tvx::test
