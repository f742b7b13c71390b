#include "editor/EditorMenus.h"

namespace tvx {
namespace {

constexpr bool Built = true;

MenuEntry Entry(const char* name, const char* parent, const std::string& caption, bool built = false) {
    return {name, parent, caption, false, built};
}

std::vector<MenuEntry> ScheduleEntries() {
    return {Entry("Sched", "", "&Schedules"),
            Entry("SaveIt", "Sched", "&Save current week", Built),
            Entry("SaveAs", "Sched", "Save current week &as..."),
            Entry("LoadFile", "Sched", "&Load week schedule "),
            Entry("ClearSched", "Sched", "&Clear current week"),
            Entry("Gout", "Sched", "&Close", Built)};
}

std::vector<MenuEntry> CopyEntries() {
    std::vector<MenuEntry> entries{Entry("DayCopy", "", "&Copy")};
    for (int d = 1; d <= 7; ++d)
        entries.push_back(Entry(("CopyDay(" + std::to_string(d) + ")").c_str(), "DayCopy", ""));
    entries.push_back(Entry("WeekCopy", "DayCopy", "&Copy and save this week as week.."));
    return entries;
}

std::vector<MenuEntry> SortEntries() {
    return {Entry("Sorting", "", "Sor&t"),
            Entry("NameSort", "Sorting", "Sort by &Name"),
            Entry("IDsort", "Sorting", "Sort by &ID"),
            Entry("PosSort", "Sorting", "Sort by &Assignment"),
            Entry("DateOfHire", "Sorting", "Sort by Hired date"),
            Entry("StimeSort", "Sorting", "Sort by &Start time"),
            Entry("StoptimeSort", "Sorting", "Sort by St&op time"),
            Entry("SortDayTypes", "Sorting", "Sort by &Daytypes"),
            Entry("Ltype", "Sorting", "Sort by Labor type")};
}

std::vector<MenuEntry> PrintEntries(const Department& d) {
    return {Entry("PrintSched", "", " &Print schedules"),
            Entry("BarChart", "PrintSched", "&Bar Charts schedule "),
            Entry("NoLaser", "PrintSched", "&Seven day schedule, Long format", Built),
            Entry("One", "PrintSched", "Selected " + d.EmployeeNamePlural + " seven day schedule", Built),
            Entry("Graphbased", "PrintSched", "&Department seven day schedule", Built),
            Entry("OneEmpl", "PrintSched", "One " + d.EmployeeNameSingle, Built)};
}

std::vector<MenuEntry> HelpEntries() {
    return {Entry("gethelp", "", "&Hints/Help"), Entry("TimeHelp", "gethelp", "&Entering time", Built),
            Entry("DTHelp", "gethelp", "&Daytypes", Built),
            Entry("LetSeeAvailability", "gethelp", "Show availability", Built),
            Entry("LetSeeHeadcount", "gethelp", "Show headcount", Built)};
}

void HideForAllDepartments(MenuBar& menus) {
    menus.Show({"Shift", "DayCopy", "SaveAs", "ShowDayTypes", "PosSort", "SortDayTypes", "DateOfHire",
                "Ltype", "PrintSched", "OneEmpl"},
               false);
}

} // namespace

MenuBar EditorMenus(const GlobalState& g) {
    std::vector<MenuEntry> entries;
    const auto append = [&](const std::vector<MenuEntry>& more) {
        entries.insert(entries.end(), more.begin(), more.end());
    };
    append(ScheduleEntries());
    append(CopyEntries());
    append(SortEntries());
    append({Entry("Shift", "", "Shi&fts", Built), Entry("ShowDayTypes", "", "&Daytypes", Built)});
    append(PrintEntries(g.department));
    append(HelpEntries());
    append({Entry("GetOut", "", "&Close", Built)});
    MenuBar menus(std::move(entries));
    if (g.roster.AllDepartmentsMode) HideForAllDepartments(menus);
    return menus;
}

void UpdateEditorMenus(const GlobalState& g, MenuBar& menus) {
    for (int d = 1; d <= 7; ++d) {
        MenuEntry& entry = menus["CopyDay(" + std::to_string(d) + ")"];
        entry.caption = g.week.WeekDateTexts[d];
        entry.enabled = d != g.cursor.CurrentDay;
    }
    menus.Enable({"Sched", "ShowDayTypes"}, g.rights.SchedulingAllowed);
    menus["Shift"].enabled = g.rights.SchedulingAllowed && g.shifts.ShiftCount >= 1;
}

} // namespace tvx
