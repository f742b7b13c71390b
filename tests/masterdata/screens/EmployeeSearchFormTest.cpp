#include "masterdata/screens/EmployeeSearchForm.h"

#include "support/FormFixture.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::Find;

class EmployeeSearchFormTest : public test::FormFixture<qt::EmployeeSearchForm> {
  protected:
    void SetUp() override { store.AddDepartment("Bakery"); }
    void AddUsual() {
        store.AddEmployee({.lastName = "Clark", .firstName = "Cleo", .id = "C3", .assignment = "Ovens"});
        store.AddEmployee({.lastName = "adams", .firstName = "Anna"});
        store.AddEmployee({.lastName = "Carter", .firstName = "Carl", .active = false});
        store.AddEmployee({.lastName = "Østby", .firstName = "Åse"});
    }
    qt::EmployeeSearchForm& Open(FormCommand command = FormCommand::Change) {
        return OpenFor(SearchRequest{command});
    }
    QListView& List() { return Find<QListView>(*form, "List1"); }
    std::string Row(int row) {
        return List().model()->index(row, 0).data(Qt::DisplayRole).toString().toStdString();
    }
    std::string Selected() {
        const std::string row = Row(List().currentIndex().row());
        return row.substr(0, row.find(' '));
    }
    void Search(const std::string& text) {
        auto& box = Find<qt::TextBox>(*form, "Text1");
        box.setFocus();
        box.selectAll();
        test::TypeAny(box, text);
    }
};

TEST_F(EmployeeSearchFormTest, lists_the_department_by_last_name_and_selects_the_first) {
    AddUsual();
    Open();
    ASSERT_EQ(List().model()->rowCount(), 4);
    EXPECT_EQ(Row(0).substr(0, 10), "adams Anna");
    EXPECT_EQ(Row(1).substr(0, 11), "Carter Carl");
    EXPECT_EQ(Row(2).substr(0, 10), "Clark Cleo");
    EXPECT_TRUE(Row(2).ends_with("\tC3\tOvens")) << Row(2);
    EXPECT_EQ(Selected(), "adams");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
}

TEST_F(EmployeeSearchFormTest, is_titled_for_what_the_pick_is_for) {
    g.department.EmployeeNameSingle = "Associate";
    for (const FormCommand command : {FormCommand::Change, FormCommand::Delete, FormCommand::Transfer})
        EXPECT_EQ(Open(command).windowTitle().toStdString(), tvx::TextOf(command) + " Associate");
}

TEST_F(EmployeeSearchFormTest, follows_what_is_typed) {
    AddUsual();
    Open();
    Search("c");
    EXPECT_EQ(Selected(), "Carter");
    Search("cL");
    EXPECT_EQ(Selected(), "Clark");
    test::Press(*form, Qt::Key_Backspace);
    EXPECT_EQ(Selected(), "Carter");
    Search("cx");
    EXPECT_EQ(Selected(), "Carter"); // no match leaves the selection
    Search("øs");
    EXPECT_EQ(Selected(), "Østby");
    test::Paste(Find<qt::TextBox>(*form, "Text1"), "\"');🥐");
    EXPECT_EQ(Selected(), "Østby");
    Search("CARTER CARL");
    EXPECT_EQ(Selected(), "Carter");
}

TEST_F(EmployeeSearchFormTest, marks_a_text_that_no_row_begins_with) {
    AddUsual();
    Open();
    auto& box = Find<qt::TextBox>(*form, "Text1");
    const auto colour = [&] { return box.palette().color(QPalette::Text); };
    const QColor plain = colour();
    Search("c");
    EXPECT_EQ(colour(), plain);
    Search("zz");
    EXPECT_NE(colour(), plain);
    EXPECT_EQ(box.accessibleDescription(), "No last name begins with this.");
    test::TakePicture(*form, "Form5-missing");
    test::Press(*form, Qt::Key_Backspace);
    EXPECT_NE(colour(), plain);
    test::Press(*form, Qt::Key_Backspace);
    EXPECT_EQ(colour(), plain);
    EXPECT_EQ(box.accessibleDescription(), "");
}

TEST_F(EmployeeSearchFormTest, arrows_in_the_box_move_the_selection) {
    AddUsual();
    Open();
    test::Press(*form, Qt::Key_Up);
    EXPECT_EQ(Selected(), "adams");
    test::Press(*form, Qt::Key_Down);
    test::Press(*form, Qt::Key_Down);
    EXPECT_EQ(Selected(), "Clark");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
}

TEST_F(EmployeeSearchFormTest, is_chosen_by_enter_double_click_and_ok) {
    AddUsual();
    const auto expectClark = [&] {
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(form->Answer().SelectedEmployee, 1);
    };
    Open();
    Search("cl");
    test::Press(*form, Qt::Key_Return);
    expectClark();
    Open();
    Search("cl");
    List().setFocus();
    test::Press(*form, Qt::Key_Return);
    expectClark();
    Open();
    Search("cl");
    test::Click(*form, "Command3D1");
    expectClark();
    Open();
    const QPoint place = List().visualRect(List().model()->index(2, 0)).center();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    expectClark();
}

TEST_F(EmployeeSearchFormTest, cancel_and_escape_choose_nobody) {
    AddUsual();
    for (const bool byKey : {true, false}) {
        Open(FormCommand::Delete);
        if (byKey)
            test::Press(*form, Qt::Key_Escape);
        else
            test::Click(*form, "Command3D2");
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(form->Answer().SelectedEmployee, 0);
    }
}

TEST_F(EmployeeSearchFormTest, says_so_when_nobody_is_there) {
    g.department.EmployeeNamePlural = "Associates";
    Open();
    EXPECT_EQ(List().model()->rowCount(), 0);
    Search("a");
    store.prompt().Expect("Department has no Associates entered!", 0, "No Associates");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedEmployee, 0);
    EXPECT_EQ(store.prompt().Beeps(), 1);
}

TEST_F(EmployeeSearchFormTest, can_be_used_without_mouse_and_without_eyes) {
    AddUsual();
    Open();
    EXPECT_EQ(test::Obstacles(*form), "");
    EXPECT_EQ(test::CutTexts(*form), "");
    EXPECT_EQ(test::TabOrder(*form),
              (std::vector<std::string>{"Text1", "List1", "Command3D1", "Command3D2"}));
    EXPECT_EQ(test::SpokenName(List()), "Employees");
    test::TakePicture(*form, "Form5");
}

} // namespace
} // namespace tvx
