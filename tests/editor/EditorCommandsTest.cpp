#include "editor/EditorCommands.h"

#include "support/Mnemonics.h"
#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tvx {
namespace {

/// Notes what was asked of the form.
class NotedActions : public EditorActions {
  public:
    std::vector<std::string> noted;
    void Save() override { noted.emplace_back("Save"); }
    void GoToWeek(int direction) override { noted.push_back("GoToWeek " + std::to_string(direction)); }
    void LeaveEditor() override { noted.emplace_back("LeaveEditor"); }
    void PickDaytype() override { noted.emplace_back("PickDaytype"); }
    void PickShift() override { noted.emplace_back("PickShift"); }
    void OpenSchedules(ScheduleKind kind) override { noted.push_back("Schedules " + TextOf(kind)); }
    void TellHowToSeeOneWeek() override { noted.emplace_back("TellHowToSeeOneWeek"); }
    void ShowTotalsBox() override { noted.emplace_back("ShowTotalsBox"); }
    void ToggleAvailability() override { noted.emplace_back("ToggleAvailability"); }
    void ToggleHeadcount() override { noted.emplace_back("ToggleHeadcount"); }
    void ShowHelp(int topic) override { noted.push_back("Help " + std::to_string(topic)); }
    void StoreShift() override { noted.emplace_back("StoreShift"); }
    void PasteStoredShift(int index) override { noted.push_back("Paste " + std::to_string(index)); }
};

class EditorCommandsTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;
    GlobalState g;
    Grid grid{g.cursor.FirstQuarter};
    NotedActions actions;

    void SetUp() override {
        test::MakeRoster(g, 2);
        g.department.EmployeeNameSingle = "Nurse";
        g.department.EmployeeNamePlural = "Nurses";
        g.cursor.CurrentEmployee = 1;
        for (int d = 1; d <= 7; ++d) test::WritableWeek(g).WeekDateTexts[d] = std::to_string(d) + "-Mar-2026";
    }
    CommandTable Commands() { return EditorCommands(g, grid, actions); }
    MenuEntry Entry(const std::string& name) { return Commands().Entry(name); }
};

TEST_F(EditorCommandsTest, carry_the_words_of_the_department) {
    EXPECT_EQ(Entry("OneEmpl").caption, "One Nurse");
    EXPECT_EQ(Entry("One").caption, "Selected Nurses seven day schedule");
    EXPECT_EQ(Entry("SaveIt").caption, "&Save current week");
}

TEST_F(EditorCommandsTest, take_words_of_the_department_as_they_stand) {
    g.department.EmployeeNameSingle = "R&D man";
    g.department.EmployeeNamePlural = "R&D men";
    EXPECT_EQ(Entry("OneEmpl").caption, "One R&&D man");
    EXPECT_EQ(Entry("One").caption, "Selected R&&D men seven day schedule");
}

TEST_F(EditorCommandsTest, have_letters_of_their_own_but_for_the_captions_that_are_fixed) {
    EXPECT_EQ(test::SharedMnemonics(Commands().Entries("MenuBar")),
              (Texts{"C: &Copy, &Close", "C: &Clear current week, &Close"}));
    g.shifts.ShiftCount = 2;
    g.shifts.ShiftNames[1] = "Bread & butter";
    g.shifts.ShiftNames[2] = "Breakfast & bar";
    EXPECT_EQ(test::SharedMnemonics(Commands().Entries("Popup")), Texts{});
}

TEST_F(EditorCommandsTest, can_be_worked_by_keys_and_say_whether_they_are_on) {
    EXPECT_EQ(Entry("SaveIt").keys, "Ctrl+S");
    EXPECT_EQ(Entry("TimeHelp").keys, "F1");
    for (const char* toggle : {"LetSeeAvailability", "LetSeeHeadcount", "Label18", "Label25"}) {
        EXPECT_TRUE(Entry(toggle).toggles) << toggle;
        EXPECT_FALSE(Entry(toggle).checked) << toggle;
    }
    grid.AvailabilityShown = true;
    EXPECT_TRUE(Entry("LetSeeAvailability").checked);
    EXPECT_FALSE(Entry("SaveIt").toggles);
}

TEST_F(EditorCommandsTest, name_the_days_to_copy_and_leave_out_the_day_shown) {
    g.cursor.CurrentDay = 4;
    const CommandTable commands = Commands();
    for (int d = 1; d <= 7; ++d) {
        const std::string name = "CopyDay(" + std::to_string(d) + ")";
        EXPECT_EQ(commands.Entry(name).caption, std::to_string(d) + "-Mar-2026");
        EXPECT_EQ(commands[name].offered(), d != 4) << d;
    }
}

TEST_F(EditorCommandsTest, close_the_schedules_to_who_may_not_schedule) {
    g.shifts.ShiftCount = 1;
    EXPECT_TRUE(Commands().CanChoose("SaveIt"));
    EXPECT_TRUE(Entry("Shift").enabled && Entry("ShowDayTypes").enabled);
    g.rights.SchedulingAllowed = false;
    EXPECT_FALSE(Commands().CanChoose("SaveIt"));
    EXPECT_FALSE(Entry("Shift").enabled || Entry("ShowDayTypes").enabled);
    EXPECT_TRUE(Commands().CanChoose("GetOut"));
}

TEST_F(EditorCommandsTest, offer_shifts_only_when_some_are_stored) {
    EXPECT_FALSE(Entry("Shift").enabled);
    g.shifts.ShiftCount = 1;
    EXPECT_TRUE(Entry("Shift").enabled);
}

TEST_F(EditorCommandsTest, hide_what_makes_no_sense_with_all_departments_shown) {
    const std::vector<std::string> hidden{"Shift",        "DayCopy",    "SaveAs", "ShowDayTypes", "PosSort",
                                          "SortDayTypes", "DateOfHire", "Ltype",  "PrintSched",   "OneEmpl"};
    const CommandTable commands = Commands();
    for (const std::string& name : hidden) EXPECT_TRUE(commands.Entry(name).visible) << name;
    g.roster.AllDepartmentsMode = true;
    for (const std::string& name : hidden) EXPECT_FALSE(commands.Entry(name).visible) << name;
    EXPECT_TRUE(commands.CanChoose("SaveIt"));
    EXPECT_TRUE(commands.Entry("IDsort").visible);
}

TEST_F(EditorCommandsTest, keep_stored_shifts_off_the_lanes_of_all_departments) {
    g.shifts.ShiftCount = 1;
    const CommandTable commands = Commands();
    const auto shown = [&] {
        Texts names;
        for (const MenuEntry& entry : commands.Entries("Popup"))
            if (entry.visible) names.push_back(entry.name);
        return names;
    };
    const auto has = [&](const char* name) {
        const Texts names = shown();
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    EXPECT_TRUE(has("AddToShift") && has("PasteShift") && commands.CanChoose("ShiftNaam(1)"));
    g.roster.AllDepartmentsMode = true;
    EXPECT_FALSE(has("AddToShift") || has("PasteShift") || commands.CanChoose("ShiftNaam(1)"));
    EXPECT_TRUE(has("CutLine"));
}

TEST_F(EditorCommandsTest, run_what_the_form_does) {
    g.shifts.ShiftCount = 2;
    const CommandTable commands = Commands();
    for (const char* name : {"SaveIt",
                             "Gout",
                             "Shift",
                             "ShowDayTypes",
                             "NoLaser",
                             "One",
                             "Graphbased",
                             "OneEmpl",
                             "TimeHelp",
                             "DTHelp",
                             "LetSeeAvailability",
                             "LetSeeHeadcount",
                             "GetOut",
                             "Label7(0)",
                             "Label7(1)",
                             "Label8",
                             "Label12",
                             "Label18",
                             "Label25",
                             "Label13",
                             "ShiftNaam(2)"})
        commands.Choose(name);
    EXPECT_EQ(actions.noted, (Texts{"Save",
                                    "LeaveEditor",
                                    "PickShift",
                                    "PickDaytype",
                                    "Schedules 7DayLong",
                                    "Schedules SelectedEmployees",
                                    "Schedules 7DayShort",
                                    "TellHowToSeeOneWeek",
                                    "Help 170",
                                    "Help 360",
                                    "ToggleAvailability",
                                    "ToggleHeadcount",
                                    "LeaveEditor",
                                    "GoToWeek -1",
                                    "GoToWeek 1",
                                    "Save",
                                    "ShowTotalsBox",
                                    "ToggleAvailability",
                                    "ToggleHeadcount",
                                    "LeaveEditor",
                                    "Paste 2"}));
}

TEST_F(EditorCommandsTest, never_run_what_leads_nowhere_yet) {
    const CommandTable commands = Commands();
    for (const char* name : {"SaveAs", "LoadFile", "ClearSched", "CopyDay(2)", "WeekCopy", "NameSort",
                             "BarChart", "Label7(2)", "Label16", "Label17", "Label19", "CutLine"}) {
        EXPECT_FALSE(commands.CanChoose(name)) << name;
        commands.Choose(name);
    }
    EXPECT_EQ(actions.noted, Texts{});
}

TEST_F(EditorCommandsTest, close_the_tool_that_saves_to_who_may_not_schedule) {
    EXPECT_TRUE(Commands().CanChoose("Label8"));
    g.rights.SchedulingAllowed = false;
    EXPECT_FALSE(Commands().CanChoose("Label8"));
    EXPECT_TRUE(Commands().CanChoose("Label13"));
}

TEST_F(EditorCommandsTest, mark_the_tools_that_are_on) {
    const auto marked = [this] {
        Texts names;
        for (const MenuEntry& tool : Commands().Entries("ToolStrip"))
            if (tool.checked) names.push_back(tool.name);
        return names;
    };
    EXPECT_EQ(marked(), Texts{});
    grid.AvailabilityShown = true;
    EXPECT_EQ(marked(), Texts{"Label18"});
    grid.HeadcountShown = true;
    EXPECT_EQ(marked(), (Texts{"Label18", "Label25"}));
}

TEST_F(EditorCommandsTest, offer_on_a_lane_what_its_day_holds) {
    g.shifts.ShiftCount = 1;
    g.shifts.ShiftNames[1] = "Late & long";
    const CommandTable commands = Commands();
    EXPECT_TRUE(commands.CanChoose("ShiftNaam(1)"));
    EXPECT_FALSE(commands.CanChoose("ShiftNaam(2)") || commands.CanChoose("AddToShift"));
    for (const MenuEntry& entry : commands.Entries("Popup")) {
        if (entry.name != "ShiftNaam(1)") continue;
        EXPECT_EQ(entry.caption, "Late && long");
    }
    test::SetBars(g, 1, {{36, 68}});
    EXPECT_TRUE(commands.CanChoose("AddToShift"));
    EXPECT_FALSE(commands.CanChoose("ShiftNaam(1)"));
}

} // namespace
} // namespace tvx
