#include "editor/EditorCommands.h"

#include "platform/ports/HelpViewer.h"

namespace tvx {
namespace {

using Commands = std::vector<Command>;
using Question = std::function<bool()>;

/// The rows of the table: what is asked and done is told once here, for every place that offers it.
class Table {
  public:
    Table(const GlobalState& g, const Grid& grid, EditorActions& actions)
        : g_(g), grid_(grid), actions_(actions) {}

    Commands Menus() const;
    Commands Tools() const;
    Commands Line() const;

  private:
    Commands ScheduleMenu() const;
    Commands CopyMenu() const;
    static Commands SortMenu(const Question& oneDepartment);
    Commands PrintMenu() const;
    Commands HelpMenu() const;

    /// Calls an action of the form, with its arguments.
    template <typename... Parameters, typename... Arguments>
    std::function<void()> Does(void (EditorActions::*action)(Parameters...), Arguments... arguments) const {
        return [&actions = actions_, action, arguments...] { (actions.*action)(arguments...); };
    }
    Question MaySchedule() const {
        return [&g = g_] { return g.rights.SchedulingAllowed; };
    }
    Question HasShifts() const {
        return [&g = g_] { return g.rights.SchedulingAllowed && g.shifts.ShiftCount >= 1; };
    }
    Question OneDepartment() const {
        return [&g = g_] { return !g.roster.AllDepartmentsMode; };
    }

    const GlobalState& g_;
    const Grid& grid_;
    EditorActions& actions_;
};

void Append(Commands& commands, const Commands& more) {
    commands.insert(commands.end(), more.begin(), more.end());
}

Commands Table::ScheduleMenu() const {
    return {
        {.name = "Sched", .parent = "MenuBar", .caption = "&Schedules", .offered = MaySchedule()},
        {.name = "SaveIt",
         .parent = "Sched",
         .caption = "&Save current week",
         .run = Does(&EditorActions::Save),
         .keys = "Ctrl+S"},
        {.name = "SaveAs",
         .parent = "Sched",
         .caption = "Save current week &as...",
         .shown = OneDepartment()},
        {.name = "LoadFile", .parent = "Sched", .caption = "&Load week schedule "},
        {.name = "ClearSched", .parent = "Sched", .caption = "&Clear current week"},
        {.name = "Gout", .parent = "Sched", .caption = "&Close", .run = Does(&EditorActions::LeaveEditor)},
    };
}

Commands Table::CopyMenu() const {
    Commands commands{{.name = "DayCopy", .parent = "MenuBar", .caption = "&Copy", .shown = OneDepartment()}};
    for (int d = 1; d <= 7; ++d) {
        Command day{.name = "CopyDay(" + std::to_string(d) + ")", .parent = "DayCopy"};
        day.offered = [&g = g_, d] { return d != g.cursor.CurrentDay; };
        day.wording = [&g = g_, d] { return g.week.WeekDateTexts[d]; };
        commands.push_back(std::move(day));
    }
    commands.push_back(
        {.name = "WeekCopy", .parent = "DayCopy", .caption = "&Copy and save this week as week.."});
    return commands;
}

Commands Table::SortMenu(const Question& oneDepartment) {
    return {
        {.name = "Sorting", .parent = "MenuBar", .caption = "Sor&t"},
        {.name = "NameSort", .parent = "Sorting", .caption = "Sort by &Name"},
        {.name = "IDsort", .parent = "Sorting", .caption = "Sort by &ID"},
        {.name = "PosSort", .parent = "Sorting", .caption = "Sort by &Assignment", .shown = oneDepartment},
        {.name = "DateOfHire", .parent = "Sorting", .caption = "Sort by Hired date", .shown = oneDepartment},
        {.name = "StimeSort", .parent = "Sorting", .caption = "Sort by &Start time"},
        {.name = "StoptimeSort", .parent = "Sorting", .caption = "Sort by St&op time"},
        {.name = "SortDayTypes", .parent = "Sorting", .caption = "Sort by &Daytypes", .shown = oneDepartment},
        {.name = "Ltype", .parent = "Sorting", .caption = "Sort by Labor type", .shown = oneDepartment},
    };
}

Commands Table::PrintMenu() const {
    const auto schedules = [this](ScheduleKind kind) { return Does(&EditorActions::OpenSchedules, kind); };
    return {
        {.name = "PrintSched", .parent = "MenuBar", .caption = " &Print schedules", .shown = OneDepartment()},
        {.name = "BarChart", .parent = "PrintSched", .caption = "&Bar Charts schedule "},
        {.name = "NoLaser",
         .parent = "PrintSched",
         .caption = "&Seven day schedule, Long format",
         .run = schedules(ScheduleKind::Long)},
        {.name = "One",
         .parent = "PrintSched",
         .caption = "Selected " + WithoutMnemonic(g_.department.EmployeeNamePlural) + " seven day schedule",
         .run = schedules(ScheduleKind::Selected)},
        {.name = "Graphbased",
         .parent = "PrintSched",
         .caption = "&Department seven day schedule",
         .run = schedules(ScheduleKind::Short)},
        {.name = "OneEmpl",
         .parent = "PrintSched",
         .caption = "One " + WithoutMnemonic(g_.department.EmployeeNameSingle),
         .run = Does(&EditorActions::TellHowToSeeOneWeek),
         .shown = OneDepartment()},
    };
}

Commands Table::HelpMenu() const {
    return {
        {.name = "gethelp", .parent = "MenuBar", .caption = "&Hints/Help"},
        {.name = "TimeHelp",
         .parent = "gethelp",
         .caption = "&Entering time",
         .run = Does(&EditorActions::ShowHelp, help::EnteringTime),
         .keys = "F1"},
        {.name = "DTHelp",
         .parent = "gethelp",
         .caption = "&Daytypes",
         .run = Does(&EditorActions::ShowHelp, help::Daytypes)},
        {.name = "LetSeeAvailability",
         .parent = "gethelp",
         .caption = "Show availability",
         .run = Does(&EditorActions::ToggleAvailability),
         .checked = [&grid = grid_] { return grid.AvailabilityShown; }},
        {.name = "LetSeeHeadcount",
         .parent = "gethelp",
         .caption = "Show headcount",
         .run = Does(&EditorActions::ToggleHeadcount),
         .checked = [&grid = grid_] { return grid.HeadcountShown; }},
    };
}

Commands Table::Menus() const {
    Commands commands{{.name = "MenuBar"}};
    Append(commands, ScheduleMenu());
    Append(commands, CopyMenu());
    Append(commands, SortMenu(OneDepartment()));
    commands.push_back({.name = "Shift",
                        .parent = "MenuBar",
                        .caption = "Shi&fts",
                        .run = Does(&EditorActions::PickShift),
                        .offered = HasShifts(),
                        .shown = OneDepartment()});
    commands.push_back({.name = "ShowDayTypes",
                        .parent = "MenuBar",
                        .caption = "&Daytypes",
                        .run = Does(&EditorActions::PickDaytype),
                        .offered = MaySchedule(),
                        .shown = OneDepartment()});
    Append(commands, PrintMenu());
    Append(commands, HelpMenu());
    commands.push_back({.name = "GetOut",
                        .parent = "MenuBar",
                        .caption = "&Close",
                        .run = Does(&EditorActions::LeaveEditor)});
    return commands;
}

Commands Table::Tools() const {
    const auto tool = [](const char* name, const char* caption, const char* hint,
                         std::function<void()> run = {}, Question shown = {}) {
        return Command{.name = name,
                       .parent = "ToolStrip",
                       .caption = caption,
                       .run = std::move(run),
                       .shown = std::move(shown),
                       .hint = hint};
    };
    Command save = tool("Label8", "Save", "Save current week", Does(&EditorActions::Save));
    save.offered = MaySchedule();
    Command availability =
        tool("Label18", "Availability", "Show availability", Does(&EditorActions::ToggleAvailability));
    availability.checked = [&grid = grid_] { return grid.AvailabilityShown; };
    Command headcount = tool("Label25", "Headcount", "Show headcount", Does(&EditorActions::ToggleHeadcount));
    headcount.checked = [&grid = grid_] { return grid.HeadcountShown; };
    return {
        {.name = "ToolStrip"},
        tool("Label7(0)", "\u25C4 Week", "Previous week", Does(&EditorActions::GoToWeek, -1)),
        tool("Label7(1)", "Week \u25BA", "Next week", Does(&EditorActions::GoToWeek, 1)),
        tool("Label7(2)", "Load", "Load week"),
        save,
        tool("Label12", "Totals", "Weekly hours and compensation totals", Does(&EditorActions::ShowTotalsBox),
             OneDepartment()),
        tool("Label16", "Chart", "Day graph, bars only", {}, OneDepartment()),
        tool("Label17", "Day graph", "Day graph", {}, OneDepartment()),
        availability,
        headcount,
        tool("Label19", "Productivity", "Sales and transactions", {}, OneDepartment()),
        tool("Label13", "Close", "Back to the console", Does(&EditorActions::LeaveEditor)),
    };
}

Commands Table::Line() const {
    return LineMenuCommands(
        [&g = g_] {
            return ArrangeLineMenu(g.week, {g.cursor.CurrentEmployee, g.cursor.CurrentDay},
                                   g.department.DayCutoffQuarters, g.shifts, g.clipboard);
        },
        OneDepartment(), actions_);
}

} // namespace

CommandTable EditorCommands(const GlobalState& g, const Grid& grid, EditorActions& actions) {
    const Table table(g, grid, actions);
    Commands commands = table.Menus();
    Append(commands, table.Tools());
    Append(commands, table.Line());
    return CommandTable(std::move(commands));
}

} // namespace tvx
