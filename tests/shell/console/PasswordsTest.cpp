#include "shell/console/Passwords.h"

#include "shell/common/TVXMOD1.h"
#include "store/rows/PasswordText.h"
#include "support/ConsoleMenus.h"
#include "support/Random.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

// --- the keys of the prompt -------------------------------------------------------------------------------

TEST(PromptKey, turns_letters_to_capitals_and_drops_what_no_password_holds) {
    EXPECT_EQ(PromptKey(8), 8);
    EXPECT_EQ(PromptKey(13), 13);
    for (int code = 'a'; code <= 'z'; ++code) EXPECT_EQ(PromptKey(code), code - 32);
    for (int code = 32; code <= 94; ++code) EXPECT_EQ(PromptKey(code), code);
    for (const int code : {0, 1, 7, 9, 10, 27, 31, 95, 96, 123, 127, 128, 233, 0x1F600})
        EXPECT_EQ(PromptKey(code), 0) << code;
}

// --- logging in -------------------------------------------------------------------------------------------

class LoginTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;
    ConsoleFace face;
    const test::ConsoleMenus menus{g};
    int bakery = 0;
    int dairy = 0;

    struct Manager {
        std::string password;
        bool hideWages = false;
        bool scheduling = true;
        bool passwords = true;
    };

    void SetUp() override {
        bakery = store.AddDepartment("Bakery", 220, 3);
        dairy = store.AddDepartment("Dairy", 100, 2);
        SetField(bakery, "EmployeeNameSingle", std::string("Baker"));
        SetField(dairy, "EmployeeNameSingle", std::string("Milker"));
        g.departments = {};
        g.department = {};
        g.rights = {};
        g.rights.AccessLevel = "Big boss";
        g.application.GeneralManagerPassword = "SECRET1";
        ActivateConsole(g, store.ports(), face);
    }
    void SetField(int department, const std::string& field, const test::RawValue& value) {
        test::RawFile(store.folder / "TVX.MDB")
            .Run("UPDATE Department SET [" + field + "] = ? WHERE [Dep number] = ?",
                 {value, std::int64_t{department}});
    }
    void SetManager(int department, int which, const Manager& manager) {
        const std::string n = std::to_string(which);
        SetField(department, "MGR" + n, ScramblePassword(manager.password));
        SetField(department, "HM" + n, std::int64_t{manager.hideWages ? -1 : 0});
        SetField(department, "OKSCH" + n, std::int64_t{manager.scheduling ? -1 : 0});
        SetField(department, "OKPW" + n, std::int64_t{manager.passwords ? -1 : 0});
    }
    LoginResult Type(const std::string& text) { return LogInAtConsole(g, store.ports(), face, text); }
    void ExpectDenied(const std::string& text) {
        store.prompt().Expect("Access denied!", box::Stop, "Password not valid");
        const int beeps = store.prompt().Beeps();
        EXPECT_EQ(Type(text), LoginResult::Denied) << text;
        EXPECT_EQ(store.prompt().Beeps(), beeps + 1);
        EXPECT_TRUE(face.PromptVisible);
        EXPECT_FALSE(menus.Offers("cmdSchedule"));
        EXPECT_FALSE(g.rights.PasswordOk);
    }
    bool CanUse(const char* menu) const { return menus.Offers(menu); }
};

TEST_F(LoginTest, of_the_general_manager_opens_everything) {
    EXPECT_EQ(Type("SECRET1"), LoginResult::Granted);
    EXPECT_EQ(g.rights.AccessLevel, "Big boss");
    EXPECT_TRUE(g.rights.PasswordOk);
    EXPECT_TRUE(g.rights.SchedulingAllowed);
    EXPECT_FALSE(face.PromptVisible);
    EXPECT_TRUE(face.Frame1Visible);
    EXPECT_TRUE(menus.Offers("cmdSchedule"));
    for (const char* menu : {"Fi", "Dep", "EmplRecords", "ww", "OptionFrame", "PW", "NeedHelp"})
        EXPECT_TRUE(CanUse(menu)) << menu;
    for (const char* menu : {"FixConflics", "Niks", "Trans", "Niets", "mnu7days"})
        EXPECT_TRUE(menus[menu].visible) << menu;
    EXPECT_EQ(g.departments.DepartmentCount, 2);
    EXPECT_TRUE(face.Combo1Visible);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
}

TEST_F(LoginTest, takes_small_letters_for_capitals_and_trims) {
    EXPECT_EQ(Type("  secret1 "), LoginResult::Granted);
}

TEST_F(LoginTest, of_the_general_manager_lifts_the_workstations_ban_on_scheduling) {
    g.rights.SchedulingAllowed = false;
    g.rights.HideWages = true;
    EXPECT_EQ(Type("SECRET1"), LoginResult::Granted);
    EXPECT_TRUE(g.rights.SchedulingAllowed);
    EXPECT_TRUE(g.rights.HideWages); // that one stays
    ActivateConsole(g, store.ports(), face);
    EXPECT_TRUE(CanUse("PW"));
}

TEST_F(LoginTest, ignores_a_text_of_one_character) {
    for (const char* text : {"", " ", "A", " A ", "\xC3\xA9"}) {
        EXPECT_EQ(Type(text), LoginResult::Ignored) << text;
        EXPECT_TRUE(face.PromptVisible);
    }
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(LoginTest, is_denied_with_a_box_for_anything_else) {
    SetManager(bakery, 1, {"OVEN55"});
    ExpectDenied("WRONG");
    ExpectDenied("SECRET");
    ExpectDenied("SECRET12");
    ExpectDenied(ScramblePassword("OVEN55"));
    EXPECT_EQ(Type("OVEN55"), LoginResult::Granted); // attempts are not limited
}

TEST_F(LoginTest, stays_at_the_prompt_when_there_is_no_department_to_look_in) {
    test::RawFile(store.folder / "TVX.MDB").Run("DELETE FROM Department");
    EXPECT_EQ(Type("WRONG"), LoginResult::Ignored);
    EXPECT_TRUE(face.PromptVisible);
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(LoginTest, of_a_manager_binds_to_the_department) {
    SetManager(dairy, 1, {"MILK99"});
    EXPECT_EQ(Type("milk99"), LoginResult::Granted);
    EXPECT_EQ(g.rights.AccessLevel, "Manager 1");
    EXPECT_EQ(g.department.CurrentDepNumber, dairy);
    EXPECT_EQ(g.department.CurrentDepName, "Dairy");
    EXPECT_EQ(g.department.EditorOrder, 2);
    EXPECT_EQ(g.department.FirstWeekday, 1);
    EXPECT_EQ(g.department.DayCutoffQuarters, 0);
    EXPECT_EQ(face.title, "------ Dairy ------");
    EXPECT_EQ(face.Label2, "Dairy");
    EXPECT_TRUE(face.Label2Visible);
    EXPECT_TRUE(face.Frame1Visible);
    EXPECT_FALSE(face.PromptVisible);
    EXPECT_FALSE(face.Combo1Visible);
    EXPECT_TRUE(menus.Offers("cmdSchedule"));
    EXPECT_EQ(g.departments.DepartmentCount, 0); // the list is not for managers
    for (const char* menu : {"FixConflics", "Niks", "Trans", "Niets", "mnu7days"})
        EXPECT_FALSE(menus[menu].visible) << menu;
    for (const char* menu : {"Dep", "Fi", "OptionFrame"}) EXPECT_FALSE(CanUse(menu)) << menu;
    for (const char* menu : {"ww", "NeedHelp", "EmplRecords", "PW"}) EXPECT_TRUE(CanUse(menu)) << menu;
    ActivateConsole(g, store.ports(), face);
    EXPECT_EQ(g.departments.DepartmentCount, 0);
    EXPECT_FALSE(CanUse("Dep"));
}

TEST_F(LoginTest, of_a_manager_takes_the_words_of_the_first_department) {
    SetManager(dairy, 1, {"MILK99"});
    EXPECT_EQ(Type("MILK99"), LoginResult::Granted);
    EXPECT_EQ(g.department.EmployeeNameSingle, "Baker");
    EXPECT_EQ(g.department.EmployeeNamePlural, "Employees");
}

TEST_F(LoginTest, of_a_manager_gives_exactly_the_managers_rights) {
    for (const bool hide : {false, true})
        for (const bool scheduling : {false, true})
            for (const bool passwords : {false, true}) {
                face = ConsoleFace();
                ActivateConsole(g, store.ports(), face);
                SetManager(bakery, 2, {"OVEN55", hide, scheduling, passwords});
                g.rights.SchedulingAllowed = !scheduling; // what the workstation says no longer counts
                g.rights.HideWages = !hide;
                EXPECT_EQ(Type("OVEN55"), LoginResult::Granted);
                EXPECT_EQ(g.rights.AccessLevel, "Manager 2");
                EXPECT_EQ(g.rights.HideWages, hide);
                EXPECT_EQ(g.rights.SchedulingAllowed, scheduling);
                EXPECT_EQ(CanUse("EmplRecords"), scheduling);
                EXPECT_EQ(CanUse("PW"), passwords);
                ActivateConsole(g, store.ports(), face);
                EXPECT_EQ(CanUse("EmplRecords"), scheduling);
                EXPECT_EQ(CanUse("PW"), passwords) << "the password menu follows the manager's own right";
            }
}

TEST_F(LoginTest, goes_to_the_first_match_in_the_order_of_the_departments) {
    SetManager(bakery, 2, {"SAME123"});
    SetManager(dairy, 1, {"SAME123"});
    EXPECT_EQ(Type("SAME123"), LoginResult::Granted);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
    EXPECT_EQ(g.rights.AccessLevel, "Manager 2");
}

TEST_F(LoginTest, tries_the_first_manager_of_a_department_before_the_second) {
    SetManager(dairy, 1, {"SAME123", true});
    SetManager(dairy, 2, {"SAME123", false});
    EXPECT_EQ(Type("SAME123"), LoginResult::Granted);
    EXPECT_EQ(g.rights.AccessLevel, "Manager 1");
    EXPECT_TRUE(g.rights.HideWages);
}

TEST_F(LoginTest, prefers_the_general_manager) {
    SetManager(bakery, 1, {"SECRET1"});
    EXPECT_EQ(Type("SECRET1"), LoginResult::Granted);
    EXPECT_EQ(g.rights.AccessLevel, "Big boss");
}

TEST_F(LoginTest, never_fits_a_manager_without_password) {
    SetField(bakery, "MGR1", std::monostate());
    SetField(bakery, "MGR2", std::string());
    ExpectDenied("AB");
    ExpectDenied("NULL");
}

} // namespace
} // namespace tvx
