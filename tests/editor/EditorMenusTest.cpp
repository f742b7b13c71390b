#include "editor/EditorMenus.h"

#include "support/Quarters.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

class EditorMenusTest : public testing::Test {
  protected:
    GlobalState g;

    void SetUp() override {
        test::MakeRoster(g, 2);
        g.department.EmployeeNameSingle = "Nurse";
        g.department.EmployeeNamePlural = "Nurses";
        for (int d = 1; d <= 7; ++d) test::WritableWeek(g).WeekDateTexts[d] = std::to_string(d) + "-Mar-2026";
    }
    MenuBar Menus() {
        MenuBar menus = EditorMenus(g);
        UpdateEditorMenus(g, menus);
        return menus;
    }
};

TEST_F(EditorMenusTest, carry_the_words_of_the_department) {
    EXPECT_EQ(Menus()["OneEmpl"].caption, "One Nurse");
    EXPECT_EQ(Menus()["One"].caption, "Selected Nurses seven day schedule");
    EXPECT_EQ(Menus()["SaveIt"].caption, "&Save current week");
}

TEST_F(EditorMenusTest, name_the_days_to_copy_and_leave_out_the_day_shown) {
    g.cursor.CurrentDay = 4;
    const MenuBar menus = Menus();
    for (int d = 1; d <= 7; ++d) {
        const MenuEntry& entry = menus["CopyDay(" + std::to_string(d) + ")"];
        EXPECT_EQ(entry.caption, std::to_string(d) + "-Mar-2026");
        EXPECT_EQ(entry.enabled, d != 4) << d;
    }
}

TEST_F(EditorMenusTest, close_the_schedules_to_who_may_not_schedule) {
    g.shifts.ShiftCount = 1;
    EXPECT_TRUE(Menus().CanChoose("SaveIt"));
    EXPECT_TRUE(Menus()["Shift"].enabled && Menus()["ShowDayTypes"].enabled);
    g.rights.SchedulingAllowed = false;
    EXPECT_FALSE(Menus().CanChoose("SaveIt"));
    EXPECT_FALSE(Menus()["Shift"].enabled || Menus()["ShowDayTypes"].enabled);
    EXPECT_TRUE(Menus().CanChoose("GetOut"));
}

TEST_F(EditorMenusTest, offer_shifts_only_when_some_are_stored) {
    EXPECT_FALSE(Menus()["Shift"].enabled);
    g.shifts.ShiftCount = 1;
    EXPECT_TRUE(Menus()["Shift"].enabled);
}

TEST_F(EditorMenusTest, hide_what_makes_no_sense_with_all_departments_shown) {
    const std::vector<std::string> hidden{"Shift",        "DayCopy",    "SaveAs", "ShowDayTypes", "PosSort",
                                          "SortDayTypes", "DateOfHire", "Ltype",  "PrintSched",   "OneEmpl"};
    const MenuBar one = Menus();
    g.roster.AllDepartmentsMode = true;
    const MenuBar all = Menus();
    for (const std::string& name : hidden) {
        EXPECT_TRUE(one[name].visible) << name;
        EXPECT_FALSE(all[name].visible) << name;
    }
    EXPECT_TRUE(all.CanChoose("SaveIt"));
    EXPECT_TRUE(all["IDsort"].visible);
}

} // namespace
} // namespace tvx
