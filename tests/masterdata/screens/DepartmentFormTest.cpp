#include "masterdata/screens/DepartmentForm.h"

#include "support/FormFixture.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::Find;

class DepartmentFormTest : public test::FormFixture<qt::DepartmentForm> {
  protected:
    test::OtherWorkstation other;

    void SetUp() override {
        store.AddDepartment("Stores");
        store.AddDepartment("Bakery", 304, 5, 2);
        other.Open(store.folder / "TVX.MDB");
    }
    qt::DepartmentForm& Open(FormCommand command) { return OpenFor(DepartmentRequest{command}); }
    void Enter(const std::string& box, const std::string& text) {
        Box(box).setFocus();
        Box(box).selectAll();
        if (text.empty()) test::Press(*form, Qt::Key_Delete);
        test::TypeAny(Box(box), text);
    }
    void Pick(const std::string& combo, int index) {
        auto& box = Find<QComboBox>(*form, combo);
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Home);
        for (int i = 0; i < index; ++i) QTest::keyClick(&box, Qt::Key_Down);
        EXPECT_EQ(box.currentIndex(), index);
    }
    std::string HintOver(const std::string& control) {
        test::Hover(Find<QWidget>(*form, control));
        return TextOf("Label4");
    }
    std::vector<std::string> Rows() {
        return test::RowsOf(store.db(), "Department",
                            {"Department name", "Editor order", "First weekday", "Week methode pick",
                             "EmployeeNameSingle", "EmployeeNamePlural", "DayOffNameSingle",
                             "DayOffNamePlural"});
    }
    void ExpectNameInUse(const std::string& shown) {
        store.prompt().Expect("Duplicate department name..\n" + shown + ", is in use!\n", 0,
                              "Error in department name.");
    }
};

const std::string Untouched = "(null)|(null)|(null)|(null)";

// ---- opening ----

TEST_F(DepartmentFormTest, opens_for_a_new_department_with_the_usual_settings) {
    Open(FormCommand::Add);
    EXPECT_EQ(form->windowTitle().toStdString(), "Add a new Department");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(Box("Text1").Text(), "");
    EXPECT_EQ(Find<QComboBox>(*form, "Combo1").currentText().toStdString(), "Sunday");
    EXPECT_EQ(Find<QComboBox>(*form, "Combo2").currentText().toStdString(), " Midn. ");
    EXPECT_EQ(Find<QComboBox>(*form, "Combo2").count(), 33);
    EXPECT_TRUE(Chosen("SSOption2(1)"));
    EXPECT_TRUE(Chosen("SSOption1(3)"));
    EXPECT_EQ(Box("txtDaysOff").Text(), "Vacation days");
}

TEST_F(DepartmentFormTest, opens_for_a_change_with_what_is_stored) {
    Open(FormCommand::Change);
    EXPECT_EQ(form->windowTitle().toStdString(), "Change Department information");
    EXPECT_EQ(Box("Text1").Text(), "Bakery");
    EXPECT_EQ(Find<QComboBox>(*form, "Combo1").currentText().toStdString(), "Tuesday");
    EXPECT_EQ(Find<QComboBox>(*form, "Combo2").currentText().toStdString(), " 1:00am");
    EXPECT_EQ(TextOf("Label1"), "and  1:00am");
    EXPECT_TRUE(Chosen("SSOption2(5)"));
    EXPECT_TRUE(Chosen("SSOption1(2)"));
    EXPECT_EQ(Box("txtGenEmployee").Text(), "Employee");
}

TEST_F(DepartmentFormTest, tells_that_the_business_day_ends_on_the_next_day_unless_it_begins_at_midnight) {
    Open(FormCommand::Add);
    EXPECT_FALSE(Find<qt::Label>(*form, "Label2").isVisible());
    EXPECT_EQ(TextOf("Label1"), "and  Midn. ");
    Pick("Combo2", 12);
    EXPECT_EQ(TextOf("Label1"), "and  3:00am");
    EXPECT_TRUE(Find<qt::Label>(*form, "Label2").isVisible());
    EXPECT_EQ(TextOf("Label2"), "the next day");
    Pick("Combo2", 0);
    EXPECT_FALSE(Find<qt::Label>(*form, "Label2").isVisible());
}

TEST_F(DepartmentFormTest, a_department_without_a_first_weekday_opens_on_sunday_and_midnight) {
    test::PutField(store.db(), "Department", "Dep number", 2, "First weekday", dao::Value());
    Open(FormCommand::Change);
    EXPECT_EQ(Find<QComboBox>(*form, "Combo1").currentIndex(), 0);
    EXPECT_EQ(Find<QComboBox>(*form, "Combo2").currentIndex(), 0);
    EXPECT_EQ(TextOf("Label1"), "and Midn.");
}

TEST_F(DepartmentFormTest, closes_at_once_with_a_box_when_the_department_is_gone) {
    other.Delete("Department", "Department name", "Bakery");
    store.prompt().WillAnswer(Answer::Ok);
    Open(FormCommand::Change);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(store.prompt().Last().title, "Database error...");
}

TEST_F(DepartmentFormTest, a_cut_off_that_is_not_offered_stays_until_another_is_chosen) {
    test::PutField(store.db(), "Department", "Dep number", 2, "First weekday", std::int64_t{150});
    Open(FormCommand::Change);
    EXPECT_EQ(Find<QComboBox>(*form, "Combo2").currentIndex(), -1);
    EXPECT_EQ(TextOf("Label1"), "and 12:30pm");
    EXPECT_TRUE(Shown("Label2"));
    test::Click(*form, "Command3D1");
    EXPECT_NE(Rows().back().find("|150|"), std::string::npos);
    EXPECT_EQ(g.department.DayCutoffQuarters, 50);
    Open(FormCommand::Change);
    Pick("Combo2", 4);
    test::Click(*form, "Command3D1");
    EXPECT_NE(Rows().back().find("|104|"), std::string::npos);
}

// ---- saving ----

TEST_F(DepartmentFormTest, a_department_is_added_from_the_keyboard_alone) {
    Open(FormCommand::Add);
    test::Type(*form, "  Kitchen ");
    test::Press(*form, Qt::Key_Tab);
    test::Type(*form, "m"); // Monday
    test::Press(*form, Qt::Key_Tab);
    for (int quarter = 0; quarter < 8; ++quarter) test::Press(*form, Qt::Key_Down);
    test::Press(*form, Qt::Key_Tab);
    test::Press(*form, Qt::Key_Down); // Employee ID
    test::Press(*form, Qt::Key_Tab);
    test::Press(*form, Qt::Key_Up); // January date
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->Answer().saved);
    EXPECT_EQ(Rows().back(), "Kitchen|2|208|2|" + Untouched);
    EXPECT_EQ(g.department.FirstWeekday, 2);
    EXPECT_EQ(g.department.DayCutoffQuarters, 8);
}

TEST_F(DepartmentFormTest, captions_stand_as_they_are_with_their_blanks) {
    Open(FormCommand::Change);
    EXPECT_EQ(Caption("SSOption1(1)"), " First full week in the new year ");
}

TEST_F(DepartmentFormTest, words_cannot_be_typed_while_adding_and_their_boxes_say_where_they_can) {
    Open(FormCommand::Add);
    for (const char* name : {"txtGenEmployee", "txtGenEmployees", "txtDayOff", "txtDaysOff"}) {
        EXPECT_FALSE(Enabled(name)) << name;
        EXPECT_EQ(
            Box(name).toolTip().toStdString(),
            "A new department begins with the usual words.  You can give it words of its own under Change.");
    }
    Enter("Text1", "Kitchen");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Rows().back(), "Kitchen|1|100|3|" + Untouched);
    g.department.CurrentDepName = "Kitchen";
    Open(FormCommand::Change);
    EXPECT_EQ(Box("txtGenEmployee").Text(), "Employee");
    EXPECT_TRUE(Enabled("txtGenEmployee") && Enabled("txtDaysOff"));
    EXPECT_EQ(Box("txtGenEmployee").toolTip().toStdString(), "");
}

TEST_F(DepartmentFormTest, a_change_stores_everything_and_is_in_force_at_once) {
    Open(FormCommand::Change);
    Enter("Text1", "Patisserie");
    Pick("Combo1", 6);
    Pick("Combo2", 32);
    test::Click(*form, "SSOption2(3)");
    test::Click(*form, "SSOption1(0)");
    Enter("txtGenEmployee", "Associate");
    Enter("txtGenEmployees", "Associates");
    Enter("txtDayOff", "Free day");
    Enter("txtDaysOff", "Free days");
    test::Press(*form, Qt::Key_Return);
    EXPECT_TRUE(form->Answer().saved);
    EXPECT_EQ(Rows().back(), "Patisserie|3|732|0|Associate|Associates|Free day|Free days");
    EXPECT_EQ(g.department.EmployeeNamePlural, "Associates");
    EXPECT_EQ(g.department.DayOffNameSingle, "Free day");
    EXPECT_EQ(g.department.FirstWeekday, 7);
    EXPECT_EQ(g.department.DayCutoffQuarters, 32);
    EXPECT_EQ(g.department.EditorOrder, 3);
    EXPECT_EQ(g.department.WeekMethod, 0);
}

TEST_F(DepartmentFormTest, an_empty_word_becomes_the_usual_one) {
    Open(FormCommand::Change);
    Enter("txtGenEmployee", "");
    Enter("txtDaysOff", "   ");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Rows().back(), "Bakery|5|304|2|Employee|Employees|Vacation day|Vacation days");
}

TEST_F(DepartmentFormTest, without_a_name_the_focus_goes_there_and_nothing_is_said) {
    Open(FormCommand::Add);
    Enter("txtGenEmployee", "");
    test::Click(*form, "Command3D1");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(Box("txtGenEmployee").Text(), "Employee");
    EXPECT_EQ(store.prompt().Beeps(), 0);
    EXPECT_EQ(Rows().size(), 2u);
}

TEST_F(DepartmentFormTest, a_name_in_use_is_told_and_everything_typed_stays) {
    Open(FormCommand::Add);
    Enter("Text1", " sTORES ");
    Pick("Combo2", 4);
    ExpectNameInUse(" sTORES");
    test::Click(*form, "Command3D1");
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(form->Answer().saved);
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(Box("Text1").Text(), " sTORES ");
    EXPECT_EQ(Find<QComboBox>(*form, "Combo2").currentIndex(), 4);
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(Rows().size(), 2u);
    EXPECT_FALSE(store.db().InTransaction());
}

TEST_F(DepartmentFormTest, its_own_name_in_other_letters_is_in_use) {
    Open(FormCommand::Change);
    Enter("Text1", "BAKERY");
    ExpectNameInUse("BAKERY");
    test::Click(*form, "Command3D1");
    EXPECT_TRUE(form->isVisible());
    Enter("Text1", "Bakery");
    test::Click(*form, "Command3D1");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(DepartmentFormTest, cancel_and_escape_leave_the_department_alone) {
    for (const bool byKey : {false, true}) {
        Open(FormCommand::Change);
        Enter("Text1", "Patisserie");
        Enter("txtGenEmployee", "Baker");
        if (byKey)
            test::Press(*form, Qt::Key_Escape);
        else
            test::Click(*form, "Command3D2");
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(form->Answer().saved);
        EXPECT_EQ(Rows().back(), "Bakery|5|304|2|" + Untouched);
        EXPECT_EQ(g.department.EmployeeNameSingle, "Employee");
    }
}

TEST_F(DepartmentFormTest, help_opens_its_topic) {
    Open(FormCommand::Add);
    test::Click(*form, "Command3D3");
    EXPECT_EQ(store.script.help.topics, std::vector<int>{370});
}

// ---- two workstations ----

TEST_F(DepartmentFormTest, nothing_typed_is_lost_while_another_workstation_saves) {
    Open(FormCommand::Change);
    Enter("Text1", "Patisserie");
    Enter("txtGenEmployees", "Bakers");
    other.Hold();
    store.prompt().Expect("Could not save this Department,\nthis page is locked by another user, try "
                          "again..\n\n(3260)",
                          0, "Locked page...");
    test::Click(*form, "Command3D1");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Box("Text1").Text(), "Patisserie");
    EXPECT_EQ(Box("txtGenEmployees").Text(), "Bakers");
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    other.LetGo();
    test::Click(*form, "Command3D1");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Rows().back(), "Patisserie|5|304|2|Employee|Bakers|Vacation day|Vacation days");
}

TEST_F(DepartmentFormTest, of_two_workstations_that_change_it_the_last_save_wins) {
    Open(FormCommand::Change);
    other.Change("Department", "Department name", "Bakery", "EmployeeNamePlural", "Bakers");
    Enter("txtDayOff", "Free day");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Rows().back(), "Bakery|5|304|2|Employee|Employees|Free day|Vacation days");
}

// ---- what can be entered ----

TEST_F(DepartmentFormTest, boxes_take_so_many_characters_however_they_come) {
    const std::map<std::string, std::size_t> limits{{"Text1", 30},
                                                    {"txtGenEmployee", 14},
                                                    {"txtGenEmployees", 14},
                                                    {"txtDayOff", 14},
                                                    {"txtDaysOff", 14}};
    const std::string many(50, 'm');
    Open(FormCommand::Change);
    for (const auto& [name, limit] : limits) {
        for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
            Box(name).clear();
            Box(name).setFocus();
            way(Box(name), many);
            EXPECT_EQ(Box(name).Text().size(), limit) << name;
        }
    }
    Box("Text1").clear();
    test::Paste(Box("Text1"), "Kitchen\r\nand more");
    EXPECT_EQ(Box("Text1").Text(), "Kitchenand more");
}

TEST_F(DepartmentFormTest, names_in_any_script_are_kept_whole) {
    Open(FormCommand::Change);
    Enter("Text1", "O'Brien's \"Café\" 🥐 パン屋");
    Enter("txtGenEmployee", "👩‍🍳 Bäcker");
    test::Click(*form, "Command3D1");
    ASSERT_FALSE(form->isVisible());
    EXPECT_EQ(Rows().back(),
              "O'Brien's \"Café\" 🥐 パン屋|5|304|2|👩‍🍳 Bäcker|Employees|Vacation "
              "day|Vacation days");
}

TEST_F(DepartmentFormTest, no_character_is_cut_in_two_at_the_end_of_a_box) {
    Open(FormCommand::Change);
    Enter("txtGenEmployee", "");
    test::Paste(Box("txtGenEmployee"), "thirteen char🥐");
    EXPECT_EQ(Box("txtGenEmployee").Text(), "thirteen char");
}

// ---- hints ----

TEST_F(DepartmentFormTest, each_frame_has_its_hint_under_the_mouse) {
    Open(FormCommand::Add);
    EXPECT_EQ(HintOver("Frame1"),
              "The default name on an employee is: Employee.  Some organizations refer to employees as "
              "Associates or any local name that is appropriate");
    EXPECT_EQ(HintOver("Frame3"),
              "A requested day off is usually called a Vacation day. You may however substitute a Day off "
              "for any local term that is appropriate.");
    EXPECT_EQ(HintOver("Frame3D3"), "Enter or change Department name (A mandatory field).");
    EXPECT_EQ(HintOver("frmWeekoption"),
              "Each day in a year has a week number.  Select the way the weeks are counted based on setting "
              "of the <First day of the week> above. This feature is mostly used in Europe.");
    EXPECT_EQ(HintOver("Frame3D1"), "When scheduling, you may select the listing order.");
    EXPECT_EQ(HintOver("Frame3D2"), "The first day of the scheduling week may start on any day.");
    EXPECT_EQ(HintOver("Frame3D4"),
              "Daily totals will be calculated and displayed between the hours that you set. This is the "
              "cut-off time by which you keep track of daily totals etc.");
    test::Unhover(Find<QWidget>(*form, "Frame3D4"));
    EXPECT_EQ(TextOf("Label4"), "");
}

TEST_F(DepartmentFormTest, the_hint_follows_the_focus_too) {
    Open(FormCommand::Change);
    Box("txtDayOff").setFocus();
    EXPECT_EQ(TextOf("Label4").substr(0, 15), "A requested day");
    Find<QWidget>(*form, "Combo1").setFocus();
    EXPECT_EQ(TextOf("Label4"), "The first day of the scheduling week may start on any day.");
    Find<QWidget>(*form, "Command3D1").setFocus();
    EXPECT_EQ(TextOf("Label4"), "");
}

// ---- for everybody ----

TEST_F(DepartmentFormTest, can_be_used_without_mouse_and_without_eyes) {
    Open(FormCommand::Change);
    EXPECT_EQ(test::Obstacles(*form), "");
    EXPECT_EQ(test::TabOrder(*form),
              (std::vector<std::string>{"Text1", "Combo1", "Combo2", "SSOption2(5)", "SSOption1(2)",
                                        "txtGenEmployee", "txtGenEmployees", "txtDayOff", "txtDaysOff",
                                        "Command3D3", "Command3D1", "Command3D2"}));
    EXPECT_EQ(test::SpokenName(Box("txtGenEmployees")), "Generic name for Employees, Plural");
    EXPECT_EQ(test::SpokenName(Box("txtDayOff")), "Generic name for requested days off, Single");
    EXPECT_EQ(test::SpokenName(Find<QWidget>(*form, "SSOption1(1)")), "First full week in the new year");
}

TEST_F(DepartmentFormTest, shows_every_text_whole_with_the_longest_words_and_times) {
    g.department.EmployeeNameSingle = "WWWWWWWWWWWWWW";
    g.application.options.ClockStyle = ClockStyle::TwelveHours;
    Open(FormCommand::Change);
    Pick("Combo2", 32);
    for (const char* frame : {"Frame1", "Frame3", "frmWeekoption", "Frame3D4"}) {
        HintOver(frame);
        EXPECT_EQ(test::CutTexts(*form), "") << frame;
    }
    test::TakePicture(*form, "Form13-longest");
}

} // namespace
} // namespace tvx
