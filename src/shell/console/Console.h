// The main console: how a run starts, the department list, and the road to the Main Editor. What the console
// shows beside its commands is a plain structure here; the form renders it.
#pragma once

#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <vector>

namespace tvx {

constexpr int ProgramMajor = 1;
constexpr int ProgramRevision = 0;

/// What the console shows.
struct ConsoleFace {
    std::string title = "Tarvex";
    std::string Label2; // "------ Bakery ------"
    bool Label2Visible = true;
    std::vector<std::string> Combo1; // department names
    int Combo1Index = -1;            // the one shown, from 0
    bool Combo1Visible = false;
    bool Frame1Visible = true;
    bool PromptVisible = false;       // Text3 and Label1, the password prompt
    bool laidOut = false;             // the first activation of the run is over
    std::vector<std::string> printed; // lines on the form's own surface
};

enum class LoadResult { Ready, EndRun };

/// The splash stays until this is true: at least two seconds of the wall clock after `startSecond`, by the
/// time of day alone. A start in the last two seconds of a day has a target that the day does not reach.
bool SplashIsOver(int startSecond, int secondOfDay);

/// Everything between the splash and the console, in its order. Shows the box of any trouble; on EndRun the
/// database file is as it was found.
LoadResult LoadConsole(GlobalState& g, Ports& ports, ConsoleFace& face);

/// Hours that the time grids show across a screen, at most 24; below 1 on a screen under 2880 twips.
int VisibleHoursFor(Twips screenWidth);

/// Reads the department list and chooses the current department by `FormCommand`: "", "Delete", "Convert"
/// and "Restore" take the first, "Add" the last, "Options" and "Change" the one of `PreviousDepNumber`; any
/// other word keeps the present one while it exists. Does nothing before the password is right.
void RefreshDepartments(GlobalState& g, Ports& ports, ConsoleFace& face);

/// Makes a department of the list the current one, by its place in Combo1.
void ChooseDepartment(const Store& store, const DepartmentList& departments, Department& department,
                      ConsoleFace& face, int index);

/// Each time the console comes to the front.
void ActivateConsole(GlobalState& g, Ports& ports, ConsoleFace& face);

/// The note of the example department is due before the Main Editor opens: once in a run, while it is the
/// only department.
bool ExampleNoteIsDue(const Department& department, const DepartmentList& departments,
                      const ApplicationState& application);

/// The steps of `cmdSchedule` up to the Main Editor: true when it can open. Trouble with the store is shown.
bool PrepareSchedule(GlobalState& g, Ports& ports);

/// Lines of the note on the example department; the second of a pair is the palette colour.
std::vector<std::pair<std::string, int>> ExampleNote(const Department& department);

} // namespace tvx
