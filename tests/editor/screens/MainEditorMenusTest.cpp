// Menus, toggles and modes of the Main Editor: the line menu, what opens over the editor, availability,
// headcount, people without rights, all departments together.
#include "MainEditorFixture.h"

namespace tvx {
namespace {

class MainEditorMenusTest : public MainEditorTest {
  protected:
    /// The names of the entries of a line menu that can be chosen.
    static Rows OpenEntries(const QMenu& menu) {
        Rows open;
        for (const QAction* entry : menu.actions())
            if (entry->isEnabled() && !entry->isSeparator())
                open.push_back(entry->objectName().toStdString());
        return open;
    }
    static void Trigger(QMenu& menu, const std::string& entry) { test::Find<QAction>(menu, entry).trigger(); }
    /// Hours of absence on Monday from 9 to noon, for Adams.
    void AddAbsence() {
        std::string starts(28, ' ');
        std::string stops(28, ' ');
        starts[4] = static_cast<char>(32 + 36);
        stops[4] = static_cast<char>(32 + 48);
        store.SetEmployee(1, "Avail start", starts);
        store.SetEmployee(1, "Avail stop", stops);
    }
    /// Over the lane, where absence shows.
    TwipsPoint OverLane(int row, int quarter) const {
        return {Lane(row, quarter).x, Lane(row, quarter).y - 90};
    }
    Colour BandOfRuler() { return test::ColourAt(Ruler(), Lane(1, 1).x + 300, 245); }
};

// --- the line menu ----------------------------------------------------------------------------------------

TEST_F(MainEditorMenusTest, the_line_menu_of_a_day_with_time_offers_to_keep_a_shift) {
    KeepShift("Early", 24, 56);
    Open();
    WithLineMenu(1, 50, [](QMenu& menu) { EXPECT_EQ(OpenEntries(menu), Rows{"AddToShift"}); });
    EXPECT_EQ(Focus(), "Text1(1)");
}

TEST_F(MainEditorMenusTest, the_line_menu_of_an_empty_day_offers_the_shifts) {
    KeepShift("Early", 24, 56);
    KeepShift("Late & long", 56, 88);
    Open();
    WithLineMenu(3, 50, [](QMenu& menu) {
        EXPECT_EQ(OpenEntries(menu), Rows{"PasteShift"});
        const auto caption = [&](const char* name) {
            return test::Find<QAction>(menu, name).text().toStdString();
        };
        EXPECT_EQ(caption("ShiftNaam(1)"), "Early");
        EXPECT_EQ(caption("ShiftNaam(2)"), "Late && long");
    });
}

TEST_F(MainEditorMenusTest, the_line_menu_of_an_empty_day_offers_nothing_without_shifts) {
    Open();
    WithLineMenu(3, 50, [](QMenu& menu) { EXPECT_EQ(OpenEntries(menu), Rows{}); });
}

TEST_F(MainEditorMenusTest, a_shift_is_pasted_into_the_row_of_the_line_menu) {
    KeepShift("Early", 24, 56);
    Open();
    WithLineMenu(3, 50, [](QMenu& menu) { Trigger(menu, "ShiftNaam(1)"); });
    EXPECT_EQ(Spoken(3), "Clark Cleo: 6:00am - 2:00pm");
    EXPECT_EQ(ValueOf(3), " 8:00");
    EXPECT_EQ(TextOf("Label15(0)"), "16:00");
    EXPECT_EQ(ColourAt(Lane(3, 30)), QBColor(2));
    EXPECT_EQ(Focus(), "Text1(3)");
    EXPECT_TRUE(HasChanges());
}

TEST_F(MainEditorMenusTest, the_line_menu_opens_the_shifts_to_keep_one) {
    Open();
    WithLineMenu(1, 50, [](QMenu& menu) { Trigger(menu, "AddToShift"); });
    EXPECT_EQ(screens.opened, Rows{"Shifts"});
    EXPECT_EQ(Focus(), "Text1(1)");
}

// --- what opens over the editor ---------------------------------------------------------------------------

TEST_F(MainEditorMenusTest, the_menu_of_daytypes_opens_them_for_the_row_in_focus) {
    Open();
    FocusBox(2);
    test::Choose(*form, "ShowDayTypes");
    EXPECT_EQ(screens.opened, Rows{"Daytypes"});
    EXPECT_EQ(Focus(), "Text1(2)");
}

TEST_F(MainEditorMenusTest, a_day_off_is_refused_the_daytypes_with_a_beep) {
    PutDayOff(Sunday + 1, 2);
    Open();
    FocusBox(2);
    test::Choose(*form, "ShowDayTypes");
    EXPECT_EQ(screens.opened, Rows{});
    EXPECT_EQ(store.prompt().Beeps(), 1);
}

TEST_F(MainEditorMenusTest, the_menu_of_shifts_is_open_when_there_are_some) {
    Open();
    EXPECT_FALSE(Entry("Shift").isEnabled());
    KeepShift("Early", 24, 56);
    Open();
    EXPECT_TRUE(Entry("Shift").isEnabled());
    test::Choose(*form, "Shift");
    EXPECT_EQ(screens.opened, Rows{"Shifts"});
}

TEST_F(MainEditorMenusTest, every_schedule_opens_over_the_editor) {
    Open();
    FocusBox(3);
    for (const char* entry : {"NoLaser", "Graphbased", "One"}) test::Choose(*form, entry);
    EXPECT_EQ(screens.opened, (Rows{"Schedules", "Schedules", "Schedules"}));
    EXPECT_EQ(Focus(), "Text1(3)");
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 5:00pm");
}

TEST_F(MainEditorMenusTest, one_week_is_explained_in_the_words_of_the_department) {
    store.g.department.EmployeeNameSingle = "Baker";
    store.g.department.DayOffNamePlural = "Free days";
    Open();
    store.prompt().Expect("To see the Week schedule for this Baker, click on the Baker name.\n"
                          "For marking Free days, do a right mouse click on the Baker name.",
                          box::Ok, "Look at Baker week");
    test::Choose(*form, "OneEmpl");
}

TEST_F(MainEditorMenusTest, the_hints_open_their_topics) {
    Open();
    test::Choose(*form, "TimeHelp");
    test::Choose(*form, "DTHelp");
    ASSERT_EQ(store.script.help.topics.size(), 2U);
    EXPECT_NE(store.script.help.topics[0], store.script.help.topics[1]);
}

// --- availability and headcount ---------------------------------------------------------------------------

TEST_F(MainEditorMenusTest, hours_of_absence_show_when_asked_for) {
    AddAbsence();
    Open();
    EXPECT_NE(ColourAt(OverLane(1, 40)), Red);
    Click("Label18");
    EXPECT_EQ(ColourAt(OverLane(1, 40)), Red);
    EXPECT_NE(ColourAt(OverLane(1, 50)), Red);
    EXPECT_NE(ColourAt(OverLane(3, 40)), Red);
    EXPECT_EQ(GroundOf("Label18"), QBColor(14));
    ClickDay(3);
    EXPECT_NE(ColourAt(OverLane(1, 40)), Red);
    ClickDay(2);
    test::Choose(*form, "LetSeeAvailability");
    EXPECT_NE(ColourAt(OverLane(1, 40)), Red);
    EXPECT_EQ(GroundOf("Label18"), QBColor(15));
}

TEST_F(MainEditorMenusTest, absence_forbids_nothing) {
    AddAbsence();
    Open();
    Click("Label18");
    Drag(1, 40, 44);
    EXPECT_EQ(Spoken(1), "Adams Anna: 10:00am - 6:00pm");
}

TEST_F(MainEditorMenusTest, the_headcount_shows_under_the_hours_when_asked_for) {
    Open();
    EXPECT_NE(BandOfRuler(), QBColor(0));
    Click("Label25");
    EXPECT_EQ(BandOfRuler(), QBColor(0));
    EXPECT_EQ(GroundOf("Label25"), QBColor(14));
    test::Choose(*form, "LetSeeHeadcount");
    EXPECT_NE(BandOfRuler(), QBColor(0));
    EXPECT_EQ(GroundOf("Label25"), QBColor(15));
}

TEST_F(MainEditorMenusTest, the_headcount_follows_edits_and_days) {
    Open();
    Click("Label25");
    const QImage before = Ruler().grab().toImage();
    Drag(3, 32, 48);
    const QImage after = Ruler().grab().toImage();
    EXPECT_NE(after, before);
    ClickDay(3);
    EXPECT_NE(Ruler().grab().toImage(), after);
    ClickDay(2);
    EXPECT_EQ(Ruler().grab().toImage(), after);
}

// --- rights -----------------------------------------------------------------------------------------------

TEST_F(MainEditorMenusTest, who_may_not_schedule_finds_the_ways_to_change_closed) {
    KeepShift("Early", 24, 56);
    ForbidScheduling();
    Open();
    EXPECT_FALSE(IsEnabled("Label8"));
    for (const char* menu : {"Sched", "ShowDayTypes", "Shift"}) EXPECT_FALSE(Entry(menu).isEnabled()) << menu;
    for (const char* menu : {"PrintSched", "gethelp", "GetOut"}) EXPECT_TRUE(Entry(menu).isEnabled()) << menu;
    Click("Label7(1)");
    EXPECT_EQ(Title(), "Bakery,  Week from 8-Mar-2026  to  14-Mar-2026");
    EXPECT_FALSE(IsEnabled("Label8"));
}

TEST_F(MainEditorMenusTest, who_may_schedule_finds_them_open) {
    Open();
    EXPECT_TRUE(IsEnabled("Label8"));
    for (const char* menu : {"Sched", "ShowDayTypes", "PrintSched", "SaveIt", "Gout"})
        EXPECT_TRUE(Entry(menu).isEnabled()) << menu;
}

// --- all departments --------------------------------------------------------------------------------------

class AllDepartmentsEditorTest : public MainEditorMenusTest {
  protected:
    /// Adams works in the dairy too.
    void OpenAll() {
        store.AddDepartment("Dairy");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "9", .id = "A7"});
        store.g.roster.AllDepartmentsMode = true;
        Open();
    }
};

TEST_F(AllDepartmentsEditorTest, lists_who_works_in_several_with_the_department) {
    OpenAll();
    EXPECT_EQ(Title(), "Multiple Department Employees");
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 5:00pm");
    EXPECT_EQ(Spoken(2), "Adams Anna:");
    EXPECT_EQ((Rows{ValueOf(1), ValueOf(2)}), (Rows{"Bakery", "Dairy"}));
    EXPECT_EQ(TextOf("Label28"), "Department");
}

TEST_F(AllDepartmentsEditorTest, hides_what_belongs_to_one_department) {
    OpenAll();
    for (const char* gone : {"Text1(1)", "Text1(2)", "Label12", "Label16", "Label17", "Label19", "imMemo(1)",
                             "Label4(1)", "Label4(12)"})
        EXPECT_FALSE(IsShown(gone)) << gone;
    for (const char* kept :
         {"Label4(11)", "Label7(0)", "Label7(1)", "Label8", "Label13", "Label18", "Label25"})
        EXPECT_TRUE(IsShown(kept)) << kept;
    for (const char* menu : {"Shift", "DayCopy", "ShowDayTypes", "PrintSched"})
        EXPECT_FALSE(Entry(menu).isVisible()) << menu;
    EXPECT_TRUE(Entry("Sched").isVisible());
}

TEST_F(AllDepartmentsEditorTest, draws_and_saves_bars_of_every_department) {
    OpenAll();
    Drag(2, 72, 80);
    EXPECT_EQ(Spoken(2), "Adams Anna: 6:00pm - 8:00pm");
    EXPECT_EQ(TextOf("Label15(0)"), "10:00");
    Click("Label8");
    EXPECT_EQ(FileRows(), (Rows{"46083|1|CA|9:00am-5:00pm|8|10|W|0", "46083|4||6:00pm-8:00pm|2|9|W|0"}));
}

TEST_F(AllDepartmentsEditorTest, moves_through_days_and_weeks) {
    OpenAll();
    ClickDay(3);
    EXPECT_EQ(Spoken(1), "Adams Anna:");
    Click("Label7(1)");
    EXPECT_EQ(DayShown(), "Tuesday 10-Mar-26");
    EXPECT_EQ(Title(), "Multiple Department Employees");
}

} // namespace
} // namespace tvx
