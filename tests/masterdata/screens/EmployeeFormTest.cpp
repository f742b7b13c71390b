#include "masterdata/screens/EmployeeForm.h"

#include "desktop/QtPorts.h"
#include "platform/dao/TimeText.h"
#include "support/FormFixture.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"

#include <QAccessible>
#include <QMenu>

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::Find;

constexpr DaySerial Today = 46086; // 5 March 2026

class EmployeeFormTest : public test::FormFixture<qt::EmployeeForm> {
  protected:
    test::OtherWorkstation other;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "7.25"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "700", .hourly = false});
        store.AddEmployee({.lastName = "Clark", .firstName = "Cleo", .pay = "10"});
        other.Open(store.folder / "TVX.MDB");
    }
    qt::EmployeeForm& Add() { return OpenFor(EmployeeRequest{}); }
    qt::EmployeeForm& Change(int key) { return OpenFor(EmployeeRequest{key}); }

    static std::string Name(int index) { return "Text2(" + std::to_string(index) + ")"; }
    qt::TextBox& Box(int index) { return FormFixture::Box(Name(index)); }
    QPlainTextEdit& Comments() { return Get<QPlainTextEdit>("Text1"); }
    QWidget& Grid() { return Get("Picture1"); }
    void Enter(int index, const std::string& text) { Retype(Box(index), text); }
    /// The text of a box after it was left.
    std::string Left(int index, const std::string& text) {
        Enter(index, text);
        Box(index == box_of::LastName ? box_of::FirstName : box_of::LastName).setFocus();
        return Box(index).Text();
    }
    /// Paints hours of absence on a day, Sunday first.
    void Paint(int day, int fromQuarter, int toQuarter) {
        test::Drag(Grid(), {fromQuarter * 90, day * 240 - 130}, {toQuarter * 90, day * 240 - 130});
    }
    std::string Stored(int key, const std::string& field) {
        return dao::ToText(test::FieldOf(store.db(), "Employee", "Employee", key, field), "(null)");
    }
    std::vector<std::string> LastNames() { return test::RowsOf(store.db(), "Employee", {"Last name"}); }
    void ExpectDateHelp() {
        store.prompt().Expect("Acceptable date formats are;\n\n2-Mar-2026, Aug-12-2026,\n\n12-23-2026 or "
                              "12/23/2026",
                              0, "Date error");
    }
    void ExpectQuestion(Answer answer) {
        store.prompt().Expect("Save the changes?", 19, "You made changes", answer);
    }
    void ExpectLocked(int number, const std::string& word = "Employee") {
        store.prompt().Expect("Could not save this " + word +
                                  ",\nthis page is locked by another user, try again..\n\n(" +
                                  std::to_string(number) + ")",
                              0, "Locked page...");
    }
};

// ---- opening ----

TEST_F(EmployeeFormTest, opens_empty_for_a_new_one) {
    Add();
    EXPECT_EQ(form->windowTitle().toStdString(), "Bakery: Add new Employee");
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(Box(i).Text(), "") << i;
    EXPECT_EQ(test::FocusOf(*form), Name(1));
    EXPECT_TRUE(Chosen("Option3D1(1)"));
    EXPECT_TRUE(Chosen("Option3D2(1)"));
    EXPECT_TRUE(Chosen("optLaborType(0)"));
    EXPECT_FALSE(Shown("Command2"));
    EXPECT_FALSE(Shown("Command3"));
    EXPECT_FALSE(Shown("Label6"));
    EXPECT_FALSE(form->WeekChanged);
}

TEST_F(EmployeeFormTest, opens_for_a_change_with_every_field) {
    const int key = store.AddEmployee({.lastName = "Dale",
                                       .firstName = "Dora",
                                       .pay = "12.5",
                                       .hourly = false,
                                       .id = "D-7",
                                       .assignment = "Ovens",
                                       .active = false,
                                       .barColor = 9,
                                       .laborType = 4,
                                       .hireDate = Today,
                                       .birthDate = Today - 10000});
    store.SetEmployee(key, "Comments", std::string("Has \"keys\"\nto the safe"));
    store.SetEmployee(key, "Email", std::string("dora@example.com"));
    Change(key);
    EXPECT_EQ(form->windowTitle().toStdString(), "Bakery: Change Employee record");
    EXPECT_EQ(Box(1).Text(), "Dale");
    EXPECT_EQ(Box(3).Text(), "D-7");
    EXPECT_EQ(Box(5).Text(), "12.50");
    EXPECT_EQ(Box(10).Text(), "5-Mar-2026");
    EXPECT_EQ(Box(16).Text(), "dora@example.com");
    EXPECT_EQ(Comments().toPlainText().toStdString(), "Has \"keys\"\nto the safe");
    EXPECT_TRUE(Chosen("Option3D1(2)"));
    EXPECT_TRUE(Chosen("Option3D2(2)"));
    EXPECT_TRUE(Chosen("optLaborType(3)"));
    EXPECT_TRUE(Find<QAbstractButton>(*form, "lblColor(9)").isChecked());
    EXPECT_EQ(test::ColourAt(Find<QWidget>(*form, "Picture3"), 720, 120), QBColor(9));
    EXPECT_FALSE(form->WeekChanged);
}

TEST_F(EmployeeFormTest, a_stored_labor_type_without_an_option_chooses_none_and_is_saved_as_full_time) {
    store.SetEmployee(1, "Labor type", std::int64_t{3});
    Change(1);
    for (int i = 0; i <= 3; ++i) EXPECT_FALSE(Chosen("optLaborType(" + std::to_string(i) + ")")) << i;
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Labor type"), "0");
}

TEST_F(EmployeeFormTest, uses_the_departments_own_word) {
    g.department.EmployeeNameSingle = "Associate";
    g.department.EmployeeNamePlural = "Associates";
    Change(2);
    EXPECT_EQ(form->windowTitle().toStdString(), "Bakery: Change Associate record");
    EXPECT_EQ(TextOf("Label2"), "Editor time bar color for this Associate");
    EXPECT_EQ(Find<QPushButton>(*form, "Command2").text().toStdString(), "&Previous Associate");
    EXPECT_EQ(Find<QPushButton>(*form, "Command3").text().toStdString(), "&Next Associate");
    test::Hover(Find<QWidget>(*form, "Frame3D2(0)"));
    EXPECT_EQ(TextOf("Label3"), "Only Active Associates will listed in the Editors for scheduling.");
    test::Hover(Comments());
    EXPECT_EQ(TextOf("Label3"), "Add any comments you wish for this Associate...");
}

TEST_F(EmployeeFormTest, hides_the_pay_where_wages_are_hidden) {
    g.rights.HideWages = true;
    Change(1);
    for (const char* name : {"Text2(5)", "Label1(5)", "Frame3D1", "Option3D2(1)", "Option3D2(2)"})
        EXPECT_FALSE(Shown(name)) << name;
    Enter(1, "Addams");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Last name"), "Addams");
    EXPECT_EQ(Stored(1, "Pay"), "7.25");
}

/// Everything that assistive tools are told of a control and of what stands on it.
std::string Spoken(QAccessibleInterface* control) {
    std::string told;
    if (control == nullptr) return told;
    for (const auto kind :
         {QAccessible::Name, QAccessible::Value, QAccessible::Description, QAccessible::Help})
        told += control->text(kind).toStdString() + "\n";
    if (auto* text = control->textInterface())
        told += text->text(0, text->characterCount()).toStdString() + "\n";
    for (int i = 0; i < control->childCount(); ++i) told += Spoken(control->child(i));
    return told;
}

TEST_F(EmployeeFormTest, a_hidden_pay_reaches_no_control) {
    g.rights.HideWages = true;
    store.SetEmployee(1, "Pay", std::string("63.75"));
    store.SetEmployee(1, "Wage or Sal", std::int64_t{0});
    Change(1);
    std::string everything = Spoken(QAccessible::queryAccessibleInterface(form.get()));
    EXPECT_NE(everything.find("Adams"), std::string::npos) << "the tree is there";
    for (const auto* box : form->findChildren<QLineEdit*>()) everything += box->text().toStdString() + "\n";
    for (const auto* control : form->findChildren<QWidget*>())
        everything += control->toolTip().toStdString() + control->whatsThis().toStdString();
    for (const char* digit : {"63", "75", "64"})
        EXPECT_EQ(everything.find(digit), std::string::npos) << digit;
    EXPECT_EQ(Box(5).Text(), "");
    EXPECT_FALSE(Chosen("Option3D2(2)"));
    for (int i = 1; i <= 16; ++i) test::Press(*form, Qt::Key_Return);
    Enter(1, "Addams");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Last name"), "Addams");
    EXPECT_EQ(Stored(1, "Pay"), "63.75");
    EXPECT_EQ(Stored(1, "Wage or Sal"), "0");
}

TEST_F(EmployeeFormTest, help_opens_its_topic) {
    Add();
    test::Click(*form, "Command3D3");
    EXPECT_EQ(store.script.help.topics, std::vector<int>{70});
}

// ---- keys ----

TEST_F(EmployeeFormTest, enter_goes_through_the_boxes_and_round) {
    Add();
    for (int i = 1; i <= 16; ++i) {
        EXPECT_EQ(test::FocusOf(*form), Name(i));
        test::Press(*form, Qt::Key_Return);
    }
    EXPECT_EQ(test::FocusOf(*form), Name(1));
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(EmployeeFormTest, arrows_go_up_to_the_first_and_down_to_the_fifteenth) {
    Add();
    test::Press(*form, Qt::Key_Up);
    EXPECT_EQ(test::FocusOf(*form), Name(1));
    for (int i = 2; i <= 15; ++i) {
        test::Press(*form, Qt::Key_Down);
        EXPECT_EQ(test::FocusOf(*form), Name(i));
    }
    test::Press(*form, Qt::Key_Down);
    EXPECT_EQ(test::FocusOf(*form), Name(15));
    Box(16).setFocus();
    test::Press(*form, Qt::Key_Up);
    EXPECT_EQ(test::FocusOf(*form), Name(15));
}

TEST_F(EmployeeFormTest, keys_pass_over_a_hidden_pay) {
    g.rights.HideWages = true;
    Add();
    Box(4).setFocus();
    test::Press(*form, Qt::Key_Return);
    EXPECT_EQ(test::FocusOf(*form), Name(6));
    test::Press(*form, Qt::Key_Up);
    EXPECT_EQ(test::FocusOf(*form), Name(4));
    test::Press(*form, Qt::Key_Down);
    EXPECT_EQ(test::FocusOf(*form), Name(6));
}

TEST_F(EmployeeFormTest, no_box_takes_a_double_quote_however_it_comes) {
    Add();
    for (int i = 1; i <= 16; ++i) {
        if (i == 5 || i == 10 || i == 11) continue;
        for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
            Box(i).clear();
            Box(i).setFocus();
            way(Box(i), "\"O\"\"K");
            EXPECT_EQ(Box(i).Text(), "OK") << i;
        }
    }
}

TEST_F(EmployeeFormTest, pay_takes_digits_and_one_point_however_they_come) {
    Add();
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        Box(5).clear();
        Box(5).setFocus();
        way(Box(5), "$1a2.5.-0\"");
        EXPECT_EQ(Box(5).Text(), "12.50");
    }
}

TEST_F(EmployeeFormTest, pay_takes_the_decimal_sign_of_the_country_as_its_point) {
    store.script.region.decimalSign = ',';
    Add();
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        Box(5).clear();
        Box(5).setFocus();
        way(Box(5), "15,5");
        EXPECT_EQ(Box(5).Text(), "15.5");
    }
    EXPECT_EQ(Left(5, "15,50"), "15.50");
    EXPECT_EQ(store.prompt().Beeps(), 0);
}

TEST_F(EmployeeFormTest, pay_beeps_at_a_comma_that_is_no_decimal_sign) {
    Add();
    EXPECT_EQ(Left(5, "15,5"), "155.00");
    EXPECT_EQ(store.prompt().Beeps(), 1);
}

TEST_F(EmployeeFormTest, pay_is_an_amount_after_leaving_its_box) {
    Add();
    EXPECT_EQ(Left(5, "7"), "7.00");
    EXPECT_EQ(Left(5, ".5"), ".50");
    EXPECT_EQ(Left(5, ""), ".00");
    EXPECT_EQ(Left(5, "9999999"), "9999999.00");
}

TEST_F(EmployeeFormTest, the_state_is_in_capitals_however_it_comes) {
    Add();
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        Box(8).clear();
        way(Box(8), "ohé");
        EXPECT_EQ(Box(8).Text(), "OHé");
    }
}

TEST_F(EmployeeFormTest, boxes_take_so_many_characters_however_they_come) {
    Add();
    for (int i = 1; i <= 16; ++i) {
        const std::string many(60, i == 5 ? '7' : 'M');
        for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
            Box(i).clear();
            way(Box(i), many);
            EXPECT_EQ(Box(i).Text().size(), static_cast<std::size_t>(EmployeeBoxes()[i].maxLength)) << i;
        }
        Box(i).clear();
    }
}

TEST_F(EmployeeFormTest, every_way_of_entering_something_is_a_change) {
    Change(1);
    const auto expectChange = [&](const char* what) {
        EXPECT_TRUE(form->WeekChanged) << what;
        form->WeekChanged = false;
    };
    Box(2).setFocus();
    EXPECT_FALSE(form->WeekChanged);
    test::Press(*form, Qt::Key_X);
    expectChange("key");
    test::Press(*form, Qt::Key_Delete);
    test::Press(*form, Qt::Key_Backspace);
    expectChange("backspace");
    test::Paste(Box(3), "A1");
    expectChange("paste");
    test::Drop(Box(4), "Ovens");
    expectChange("drop");
    test::Compose(Box(6), "北");
    expectChange("input method");
    test::Click(*form, "Option3D1(2)");
    expectChange("status");
    test::Click(*form, "Option3D2(2)");
    expectChange("pay rate");
    test::Click(*form, "optLaborType(2)");
    expectChange("labor type");
    test::Click(*form, "lblColor(5)");
    expectChange("colour");
    test::TypeAny(Comments(), "x");
    expectChange("comments");
    Paint(1, 4, 8);
    expectChange("grid");
}

TEST_F(EmployeeFormTest, a_box_is_yellow_while_it_has_the_focus) {
    Change(1);
    Box(2).setFocus();
    EXPECT_EQ(test::ColourAt(Box(2), 1200, 60), QBColor(14));
    Box(3).setFocus();
    EXPECT_EQ(test::ColourAt(Box(2), 1200, 60), QBColor(15));
    EXPECT_EQ(test::ColourAt(Box(3), 800, 60), QBColor(14));
}

TEST_F(EmployeeFormTest, a_box_loses_its_last_blanks_on_the_next_visit) {
    Change(1);
    Enter(6, " Mill Lane  ");
    Box(7).setFocus();
    EXPECT_EQ(Box(6).Text(), " Mill Lane  ");
    Box(6).setFocus();
    EXPECT_EQ(Box(6).Text(), " Mill Lane");
}

// ---- hints ----

TEST_F(EmployeeFormTest, the_date_boxes_tell_what_can_be_typed) {
    Add();
    const std::string hint = "Use format like 2-Jan-2026 or Apr-12-26";
    Box(10).setFocus();
    EXPECT_EQ(TextOf("Label3"), hint);
    EXPECT_EQ(Box(11).toolTip().toStdString(), hint);
    Box(9).setFocus();
    EXPECT_EQ(TextOf("Label3"), "");
    test::Hover(Box(11));
    EXPECT_EQ(TextOf("Label3"), hint);
    test::Unhover(Box(11));
    EXPECT_EQ(TextOf("Label3"), "");
}

TEST_F(EmployeeFormTest, options_and_the_sample_show_their_tips_and_the_pay_rate_none) {
    Add();
    for (const char* name : {"Option3D1(1)", "Option3D2(2)", "optLaborType(3)", "Picture3"}) {
        auto& control = Find<QWidget>(*form, name);
        test::Hover(control);
        EXPECT_NE(TextOf("Label3"), "") << name;
        EXPECT_EQ(TextOf("Label3"), control.toolTip().toStdString()) << name;
    }
    test::Hover(Find<QWidget>(*form, "Frame3D1"));
    EXPECT_EQ(TextOf("Label3"), "");
}

// ---- dates ----

TEST_F(EmployeeFormTest, dates_are_rewritten_when_their_box_is_left) {
    Add();
    for (const int box : {10, 11}) {
        EXPECT_EQ(Left(box, "2-Mar-2026"), "2-Mar-2026");
        EXPECT_EQ(Left(box, "Apr-12-26"), "12-Apr-2026");
        EXPECT_EQ(Left(box, "12/23/2026"), "23-Dec-2026");
        EXPECT_EQ(Left(box, " 2-mar-26"), "2-Mar-2026");
        EXPECT_EQ(Left(box, "29-Feb-2024"), "29-Feb-2024");
        EXPECT_EQ(Left(box, "   "), "");
    }
}

TEST_F(EmployeeFormTest, what_is_no_date_is_erased_and_told_and_keeps_the_focus) {
    Add();
    for (const char* nonsense : {"hello", "29-Feb-2026", "13/13/2026", "0-0-0", "🥐"}) {
        ExpectDateHelp();
        Enter(11, nonsense);
        test::Press(*form, Qt::Key_Return);
        EXPECT_EQ(Box(11).Text(), "") << nonsense;
        EXPECT_EQ(test::FocusOf(*form), Name(11)) << nonsense;
    }
    EXPECT_EQ(store.prompt().Boxes().size(), 5u);
}

TEST_F(EmployeeFormTest, no_command_gets_past_what_is_no_date) {
    for (const char* command : {"Command3D1", "Command3", "cmdExit"}) {
        Change(1);
        ExpectDateHelp();
        Enter(10, "soon");
        auto& button = Find<QAbstractButton>(*form, command);
        button.click(); // as its letter does: the box keeps the focus
        EXPECT_TRUE(form->isVisible()) << command;
        EXPECT_EQ(Box(1).Text(), "Adams") << command;
        EXPECT_EQ(test::FocusOf(*form), Name(10)) << command;
    }
    EXPECT_EQ(Stored(1, "Hire Date"), "(null)");
}

TEST_F(EmployeeFormTest, a_click_on_ok_after_a_wrong_date_brings_one_box_and_the_next_click_stores) {
    Add();
    Enter(1, "Dale");
    Enter(10, "soon");
    ExpectDateHelp();
    auto& ok = Find<QPushButton>(*form, "Command3D1");
    QTest::mousePress(&ok, Qt::LeftButton);
    QTest::qWait(60); // a hand is slower than the program
    EXPECT_TRUE(store.prompt().Boxes().empty());
    QTest::mouseRelease(&ok, Qt::LeftButton);
    QTest::qWait(60);
    EXPECT_EQ(store.prompt().Boxes().size(), 1u);
    EXPECT_EQ(Box(10).Text(), "");
    EXPECT_EQ(test::FocusOf(*form), Name(10));
    EXPECT_FALSE(ok.isDown());
    EXPECT_EQ(LastNames().size(), 3u);
    test::Click(*form, "Command3D1");
    EXPECT_EQ(LastNames().size(), 4u);
}

TEST_F(EmployeeFormTest, a_date_is_stored_as_its_day_and_none_as_null) {
    Add();
    Enter(1, "Dale");
    Enter(10, "3/2/26");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(4, "Hire Date"), "46083");
    EXPECT_EQ(Stored(4, "Birth date"), "(null)");
}

TEST_F(EmployeeFormTest, dates_that_nobody_touches_stay_in_every_language) {
    for (const char* language : {"zh_CN", "ja_JP", "ko_KR", "vi_VN", "th_TH", "ar_LB", "cs_CZ", "de_DE"}) {
        store.SetEmployee(1, "Hire Date", std::int64_t{Today - 4000});
        store.SetEmployee(1, "Birth date", std::int64_t{Today - 12345});
        qt::QtRegion region{QLocale(QLatin1String(language))};
        Ports ports{store.prompt(),        store.script.clock, region, store.script.help, store.script.screen,
                    store.script.instance, store.script.teller};
        form = std::make_unique<qt::EmployeeForm>(g, ports, EmployeeRequest{1}, nullptr);
        form->ShowModeless();
        for (const int box : {10, 11, 1}) Box(box).setFocus();
        Enter(2, "Ann");
        test::Click(*form, "Command3D1");
        EXPECT_EQ(Stored(1, "Hire Date"), std::to_string(Today - 4000)) << language;
        EXPECT_EQ(Stored(1, "Birth date"), std::to_string(Today - 12345)) << language;
        form.reset();
    }
}

// ---- under age ----

TEST_F(EmployeeFormTest, tells_who_is_under_age_after_loading_and_after_a_press_on_the_grid) {
    store.SetEmployee(1, "Birth date", std::int64_t{Today - 15 * 365});
    g.department.EmployeeNameSingle = "Associate";
    Change(1);
    EXPECT_TRUE(Shown("Label6"));
    EXPECT_EQ(TextOf("Label6"), "Associate is under the age of 16.");
    Enter(11, "5-Mar-2010"); // sixteen today
    EXPECT_TRUE(Shown("Label6"));
    test::Drag(Grid(), {4, 100}, {8, 100});
    EXPECT_FALSE(Shown("Label6"));
    Enter(11, "6-Mar-2010");
    test::Drag(Grid(), {4, 100}, {8, 100});
    EXPECT_TRUE(Shown("Label6"));
    test::Click(*form, "Command3D1"); // it only informs
    EXPECT_EQ(Stored(1, "Birth date"), "40243");
}

// ---- saving ----

TEST_F(EmployeeFormTest, a_last_name_is_needed) {
    Add();
    Enter(1, "   ");
    Enter(2, "Dora");
    store.prompt().Expect("Last name must be filled out.", 0, "Last Name is blank");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(test::FocusOf(*form), Name(1));
    EXPECT_EQ(Box(2).Text(), "Dora");
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(LastNames().size(), 3u);
}

TEST_F(EmployeeFormTest, after_adding_the_screen_is_ready_for_the_next) {
    Add();
    Enter(1, "Dale");
    Enter(16, "dora@example.com");
    Comments().setPlainText(QStringLiteral("Bakes"));
    test::Click(*form, "Option3D1(2)");
    test::Click(*form, "Option3D2(2)");
    test::Click(*form, "optLaborType(1)");
    test::Click(*form, "lblColor(6)");
    Paint(3, 8, 16);
    test::Click(*form, "Command3D1");
    EXPECT_TRUE(form->isVisible());
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(Box(i).Text(), "") << i;
    EXPECT_EQ(Comments().toPlainText().toStdString(), "");
    EXPECT_EQ(test::FocusOf(*form), Name(1));
    EXPECT_TRUE(Chosen("Option3D1(1)"));
    EXPECT_TRUE(Chosen("Option3D2(2)")); // the next is likely to be of the same kind
    EXPECT_TRUE(Chosen("optLaborType(1)"));
    EXPECT_FALSE(form->WeekChanged);
    Enter(1, "Evans");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(
        test::RowsOf(store.db(), "Employee",
                     {"Last name", "Active", "Wage or Sal", "Labor type", "EbarColor", "Comments", "Email"})
            .back(),
        "Evans|-1|0|1|6|| ");
}

TEST_F(EmployeeFormTest, a_full_record_comes_back_as_it_was_entered) {
    Add();
    const std::array<const char*, 17> texts{"",
                                            "Łukasiewicz 🥐",
                                            "Zoë",
                                            "A1-007",
                                            "Cashier",
                                            "1234.50",
                                            "O'Brien's [Lane]; DROP TABLE",
                                            "北京",
                                            "OHX",
                                            "44101-1234",
                                            "2-Mar-1998",
                                            "29-Feb-1972",
                                            "+1 440 555 0101",
                                            "+1 440 555 0161",
                                            "+1 440 555 0171",
                                            "000-00-0101",
                                            "z@example.com"};
    for (int i = 1; i <= 16; ++i) Enter(i, texts[static_cast<std::size_t>(i)]);
    Comments().setFocus();
    test::TypeAny(Comments(), "\"Quoted\", 👩‍🍳");
    test::Press(*form, Qt::Key_Return);
    test::TypeAny(Comments(), "second line");
    test::Click(*form, "Command3D1");
    Change(4);
    for (int i = 1; i <= 16; ++i) EXPECT_EQ(Box(i).Text(), texts[static_cast<std::size_t>(i)]);
    EXPECT_EQ(Comments().toPlainText().toStdString(), "\"Quoted\", 👩‍🍳\nsecond line");
}

TEST_F(EmployeeFormTest, an_empty_email_is_stored_as_a_blank) {
    Change(1);
    Enter(16, "");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Email"), " ");
}

TEST_F(EmployeeFormTest, a_quiet_line_tells_how_the_last_save_ended) {
    Add();
    store.script.clock.Set(Today, 19, 22);
    EXPECT_EQ(TextOf("SaveNote"), "");
    store.prompt().WillAnswer(Answer::Ok); // the last name is missing
    test::Click(*form, "Command3D1");
    EXPECT_EQ(TextOf("SaveNote"), "Not saved");
    Enter(1, "Dunn");
    EXPECT_EQ(TextOf("SaveNote"), "");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(TextOf("SaveNote"), "Saved 19:22");
    Enter(1, "Evans");
    EXPECT_EQ(TextOf("SaveNote"), "Saved 19:22");
    EXPECT_EQ(LastNames().size(), 4U);
}

TEST_F(EmployeeFormTest, the_panel_floods_while_a_save_is_shown) {
    Change(1);
    Enter(2, "Ann");
    std::vector<int> seen;
    auto& panel = Find<qt::FloodPanel>(*form, "Panel3D2");
    store.prompt().WhenEventsRun([&] {
        EXPECT_TRUE(panel.isVisible());
        if (seen.empty() || seen.back() != panel.FloodPercent()) seen.push_back(panel.FloodPercent());
    });
    test::Click(*form, "Command3D1");
    store.prompt().WhenEventsRun(nullptr);
    ASSERT_EQ(seen.size(), 20u); // the last step is the end itself
    for (std::size_t i = 0; i < seen.size(); ++i) EXPECT_EQ(seen[i], static_cast<int>(i) * 5);
    EXPECT_EQ(panel.FloodPercent(), 100);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_FALSE(form->WeekChanged);
    EXPECT_TRUE(form->isVisible());
}

// ---- moving and leaving ----

TEST_F(EmployeeFormTest, goes_through_the_department_by_last_name_and_stops_at_its_ends) {
    store.AddEmployee({.lastName = "Abel", .active = false});
    Change(1);
    const auto enabled = [&](const char* name) { return Find<QWidget>(*form, name).isEnabled(); };
    EXPECT_TRUE(enabled("Command2"));
    test::Click(*form, "Command2");
    EXPECT_EQ(Box(1).Text(), "Abel");
    EXPECT_FALSE(enabled("Command2"));
    for (const char* name : {"Adams", "Brown", "Clark"}) {
        test::Click(*form, "Command3");
        EXPECT_EQ(Box(1).Text(), name);
        EXPECT_EQ(test::FocusOf(*form), Name(1));
        EXPECT_FALSE(form->WeekChanged);
    }
    EXPECT_FALSE(enabled("Command3"));
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(EmployeeFormTest, asks_before_it_moves_away_from_changes) {
    Change(2);
    Enter(2, "Robert");
    ExpectQuestion(Answer::Cancel);
    test::Click(*form, "Command3");
    EXPECT_EQ(Box(1).Text(), "Brown");
    EXPECT_EQ(Box(2).Text(), "Robert");
    EXPECT_TRUE(form->WeekChanged);
    ExpectQuestion(Answer::No);
    test::Click(*form, "Command3");
    EXPECT_EQ(Box(1).Text(), "Clark");
    EXPECT_EQ(Stored(2, "First name"), "Bob");
    test::Click(*form, "Command2");
    Enter(2, "Robert");
    ExpectQuestion(Answer::Yes);
    test::Click(*form, "Command2");
    EXPECT_EQ(Box(1).Text(), "Adams");
    EXPECT_EQ(Stored(2, "First name"), "Robert");
    EXPECT_EQ(store.prompt().Beeps(), 3);
}

TEST_F(EmployeeFormTest, a_move_that_could_not_save_stays) {
    Change(1);
    Enter(2, "Ann");
    other.Hold();
    ExpectQuestion(Answer::Yes);
    ExpectLocked(3260);
    test::Click(*form, "Command3");
    EXPECT_EQ(Box(1).Text(), "Adams");
    EXPECT_EQ(Box(2).Text(), "Ann");
    other.LetGo();
}

TEST_F(EmployeeFormTest, a_neighbour_that_another_workstation_deleted_is_told_and_passed_over) {
    Change(1);
    other.Delete("Employee", "Last name", "Brown");
    store.prompt().WillAnswer(Answer::Ok);
    test::Click(*form, "Command3");
    EXPECT_EQ(Box(1).Text(), "Adams");
    test::Click(*form, "Command3");
    EXPECT_EQ(Box(1).Text(), "Clark");
}

TEST_F(EmployeeFormTest, asks_before_it_closes_over_changes) {
    const auto changed = [&] {
        Change(1);
        Enter(2, "Ann");
    };
    changed();
    ExpectQuestion(Answer::Cancel);
    test::Press(*form, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Box(2).Text(), "Ann");
    ExpectQuestion(Answer::No);
    test::Click(*form, "cmdExit");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored(1, "First name"), "Anna");
    changed();
    ExpectQuestion(Answer::Yes);
    form->close(); // the cross of the window
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored(1, "First name"), "Ann");
}

TEST_F(EmployeeFormTest, closes_without_a_question_when_nothing_changed_and_while_adding) {
    Change(1);
    test::Press(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    Add();
    Enter(1, "Dale");
    test::Click(*form, "cmdExit");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(LastNames().size(), 3u);
}

TEST_F(EmployeeFormTest, escape_throws_nothing_away_that_was_typed_for_a_new_one) {
    Add();
    Enter(3, "7");
    test::Press(*form, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Box(3).Text(), "7");
    EXPECT_EQ(store.prompt().Beeps(), 1);
    Enter(3, "");
    Comments().setPlainText(QStringLiteral("Bakes"));
    Comments().setFocus();
    test::Press(*form, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    Comments().clear();
    Box(5).setFocus(); // gives itself ".00"
    Box(6).setFocus();
    test::Press(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(EmployeeFormTest, captions_stand_as_they_are_with_their_blanks) {
    Add();
    EXPECT_EQ(Caption("Option3D2(1)"), " Hourly rate");
    EXPECT_EQ(Caption("Option3D2(2)"), " Weekly salary");
}

// ---- two workstations ----

TEST_F(EmployeeFormTest, nothing_typed_is_lost_while_another_workstation_saves) {
    g.department.EmployeeNameSingle = "Associate";
    Change(1);
    Enter(12, "555-0101");
    Comments().setPlainText(QStringLiteral("Bakes"));
    test::Click(*form, "Option3D1(2)");
    test::Click(*form, "lblColor(12)");
    Paint(2, 0, 96);
    other.Hold();
    ExpectLocked(3260, "Associate");
    test::Click(*form, "Command3D1");
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->WeekChanged);
    EXPECT_FALSE(Shown("Panel3D2"));
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    other.LetGo();
    test::Click(*form, "Command3D1");
    EXPECT_FALSE(form->WeekChanged);
    EXPECT_EQ(Stored(1, "Phone"), "555-0101");
    EXPECT_EQ(Stored(1, "Comments"), "Bakes");
    EXPECT_EQ(Stored(1, "Active"), "0");
    EXPECT_EQ(Stored(1, "EbarColor"), "12");
    EXPECT_EQ(Stored(1, "Avail stop").substr(4, 1), "\x80");
}

TEST_F(EmployeeFormTest, an_addition_beside_another_save_is_kept_and_made_once) {
    Add();
    Enter(1, "Dale");
    Enter(2, "Dora");
    other.Hold();
    ExpectLocked(3260);
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Box(1).Text(), "Dale");
    EXPECT_EQ(Box(2).Text(), "Dora");
    other.LetGo();
    test::Click(*form, "Command3D1");
    EXPECT_EQ(LastNames(), (std::vector<std::string>{"Adams", "Brown", "Clark", "Dale"}));
}

TEST_F(EmployeeFormTest, of_two_workstations_that_change_somebody_the_last_save_wins) {
    Change(1);
    other.Change("Employee", "Employee", "1", "Phone", "555-9999");
    Enter(6, "Mill Lane");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Phone"), "");
    EXPECT_EQ(Stored(1, "Street"), "Mill Lane");
}

TEST_F(EmployeeFormTest, somebody_whom_another_workstation_deleted_is_told_and_stays_on_the_screen) {
    Change(1);
    other.Delete("Employee", "Employee", "1");
    Enter(6, "Mill Lane");
    ExpectLocked(3167);
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Box(6).Text(), "Mill Lane");
    EXPECT_TRUE(form->isVisible());
}

// ---- hours of absence ----

TEST_F(EmployeeFormTest, painted_hours_are_stored_and_painted_again) {
    Change(1);
    Paint(2, 0, 32);
    Paint(2, 60, 96);
    Paint(7, 40, 48);
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Avail start"), "    "
                                        " \x5C  " +
                                            std::string(16, ' ') + "H   ");
    EXPECT_EQ(Stored(1, "Avail stop"), "    "
                                       "@\x80  " +
                                           std::string(16, ' ') + "P   ");
    Change(1);
    const auto colour = [&](int day, int quarter) {
        return test::ColourAt(Grid(), quarter * 90 + 45, day * 240 - 130);
    };
    EXPECT_EQ(colour(2, 10), Red);
    EXPECT_EQ(colour(2, 50), QBColor(15));
    EXPECT_EQ(colour(2, 95), Red);
    EXPECT_EQ(colour(7, 44), Red);
    EXPECT_EQ(colour(1, 44), QBColor(15));
    EXPECT_FALSE(form->WeekChanged);
}

TEST_F(EmployeeFormTest, hours_of_a_record_that_nobody_touches_stay_byte_for_byte) {
    const std::string start = "    \x20\x5C  " + std::string(20, ' ');
    const std::string stop = "    \x40\x80  " + std::string(19, ' ') + "\x80";
    store.SetEmployee(1, "Avail start", start);
    store.SetEmployee(1, "Avail stop", stop);
    Change(1);
    Enter(2, "Ann");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Avail start"), start);
    EXPECT_EQ(Stored(1, "Avail stop"), stop);
}

TEST_F(EmployeeFormTest, a_fourth_bar_shows_while_it_is_drawn_and_goes) {
    Change(1);
    for (const int quarter : {8, 24, 40}) Paint(1, quarter, quarter + 8);
    test::DragAndHold(Grid(), {56 * 90, 110}, {64 * 90, 110});
    EXPECT_EQ(test::ColourAt(Grid(), 60 * 90 + 45, 110), QBColor(12));
    QTest::mouseRelease(&Grid(), Qt::LeftButton, Qt::NoModifier, test::At(64 * 90, 110));
    EXPECT_EQ(test::ColourAt(Grid(), 60 * 90 + 45, 110), QBColor(15));
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Avail stop").substr(0, 4), "0@P ");
}

TEST_F(EmployeeFormTest, a_bar_moves_with_shift_and_stretches_at_its_end) {
    Change(1);
    Paint(1, 8, 16);
    Paint(1, 16, 20); // by its end
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Avail start").substr(0, 1), "(");
    EXPECT_EQ(Stored(1, "Avail stop").substr(0, 1), "4");
}

TEST_F(EmployeeFormTest, the_day_under_the_mouse_is_lit) {
    Change(1);
    const auto ground = [&](int day) {
        return test::ColourAt(Find<QWidget>(*form, "Label5(" + std::to_string(day) + ")"), 700, 30);
    };
    EXPECT_EQ(TextOf("Label5(1)"), "Sun");
    EXPECT_EQ(ground(3), LightBlue);
    QTest::mouseMove(&Grid(), test::At(900, 600));
    QApplication::processEvents();
    EXPECT_EQ(ground(3), QBColor(9));
    EXPECT_EQ(ground(2), LightBlue);
}

TEST_F(EmployeeFormTest, hours_are_cut_copied_and_pasted_by_the_menu) {
    Change(1);
    Paint(2, 8, 16);
    const auto choose = [&](int day, const std::string& entry) {
        test::WhenShown("Popup", [entry](QWidget& menu) {
            auto* action = menu.findChild<QAction*>(qt::ToQString(entry));
            EXPECT_TRUE(action->isEnabled()) << entry;
            action->trigger();
            menu.close();
        });
        QTest::mouseClick(&Grid(), Qt::RightButton, Qt::NoModifier, test::At(4000, day * 240 - 130));
    };
    choose(2, "CopyLine");
    choose(5, "PasteLine");
    choose(2, "CutLine");
    choose(6, "PasteLine");
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "Avail stop"), std::string(16, ' ') + "0   "
                                                              "0   "
                                                              "    ");
}

// ---- for everybody ----

TEST_F(EmployeeFormTest, can_be_used_without_mouse_and_without_eyes) {
    for (const bool adding : {true, false}) {
        if (adding)
            Add();
        else
            Change(2);
        EXPECT_EQ(test::Obstacles(*form), "");
        std::vector<std::string> expected;
        for (int i = 1; i <= 16; ++i) expected.push_back(Name(i));
        for (const char* name : {"Option3D2(1)", "Option3D1(1)", "optLaborType(0)", "lblColor(2)", "Text1"})
            expected.emplace_back(name);
        if (!adding) {
            expected[16] = "Option3D2(2)";
            expected.insert(expected.end(), {"Command2", "Command3"});
        }
        expected.insert(expected.end(), {"Command3D3", "Command3D1", "cmdExit"});
        EXPECT_EQ(test::TabOrder(*form), expected);
    }
    EXPECT_EQ(test::SpokenName(Box(13)), "Emerg. Phone");
    EXPECT_EQ(test::SpokenName(Find<QWidget>(*form, "lblColor(2)")), "Green");
}

TEST_F(EmployeeFormTest, the_colour_can_be_chosen_with_the_arrow_keys) {
    Change(1);
    auto& green = Find<QWidget>(*form, "lblColor(2)");
    green.setFocus();
    QTest::keyClick(&green, Qt::Key_Right);
    test::Click(*form, "Command3D1");
    EXPECT_EQ(Stored(1, "EbarColor"), "3");
}

TEST_F(EmployeeFormTest, shows_every_text_whole_with_the_longest_words) {
    g.department.EmployeeNameSingle = "WWWWWWWWWWWWWW";
    g.department.EmployeeNamePlural = "WWWWWWWWWWWWWW";
    store.SetEmployee(2, "Birth date", std::int64_t{Today - 15 * 365});
    Change(2);
    test::Hover(Find<QWidget>(*form, "Frame3D2(0)"));
    EXPECT_EQ(test::CutTexts(*form), "");
    test::TakePicture(*form, "Form4-longest");
}

} // namespace
} // namespace tvx
