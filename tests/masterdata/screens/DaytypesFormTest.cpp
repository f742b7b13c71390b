#include "masterdata/screens/DaytypesForm.h"

#include "shell/common/TVXMOD1.h"
#include "support/FormFixture.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"
#include "support/WeekWriter.h"

#include <QStyleHints>

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::Find;

constexpr DaySerial Sunday = 46082; // 1 March 2026

class DaytypesFormTest : public test::FormFixture<qt::DaytypesForm> {
  protected:
    test::OtherWorkstation other;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
        for (const auto& [symbol, name] : {std::pair("CA", "Cashier"), {"BK", "Baker"}, {"D", "Driver"}})
            AddDaytype(g.store, g.department, g.daytypes, store.prompt(), symbol, name);
        store.OpenWeek(Sunday);
        test::WritableWeek(g).WeekChanged = false;
        other.Open(store.folder / "TVX.MDB");
    }
    qt::DaytypesForm& Open(int task, int employee = 2, int day = 3) {
        return OpenFor(DaytypesRequest{static_cast<ListRequest>(task), employee, day});
    }
    qt::TextBox& Symbol() { return Box("Text1"); }
    qt::TextBox& Explanation() { return Box("Text2"); }
    std::vector<std::string> Stored() {
        return test::RowsOf(store.db(), "Day types", {"Symbol", "Explaination"}); // by symbol
    }
    void Fill(const std::string& symbol, const std::string& explanation) {
        Retype(Symbol(), symbol);
        Retype(Explanation(), explanation);
    }
    void FillUp(int count) {
        for (int i = g.daytypes.DayTypeCount; i < count; ++i) {
            const std::string symbol{static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
            AddDaytype(g.store, g.department, g.daytypes, store.prompt(), symbol, "Number " + symbol);
        }
        ASSERT_EQ(g.daytypes.DayTypeCount, count);
    }
};

TEST_F(DaytypesFormTest, text_that_comes_in_by_whatever_way_is_a_change_of_the_week) {
    Open(30);
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        test::WritableWeek(g).WeekChanged = false;
        Symbol().clear();
        way(Symbol(), "c");
        EXPECT_TRUE(g.week.WeekChanged);
    }
}

// ---- the menu page ----

TEST_F(DaytypesFormTest, without_a_request_opens_on_its_menu) {
    Open(0);
    EXPECT_EQ(form->windowTitle().toStdString(), " Daytypes");
    EXPECT_EQ(TitleOf("Frame3D2"), "Other Daytype activity");
    EXPECT_TRUE(Shown("cmdAdd") && Shown("cmdChange") && Shown("cmdDelete"));
    EXPECT_EQ(TextOf("Label4"), "The current number of Daytypes is:3");
    EXPECT_EQ(TextOf("Label5"), "Current number of Daytypes= 3");
    EXPECT_FALSE(Shown("List1"));
    EXPECT_FALSE(Shown("Frame3D1"));
}

TEST_F(DaytypesFormTest, offers_what_can_be_done) {
    Open(0);
    EXPECT_TRUE(Enabled("cmdAdd") && Enabled("cmdChange") && Enabled("cmdDelete"));
    FillUp(69);
    Open(0);
    EXPECT_TRUE(Enabled("cmdAdd"));
    FillUp(70);
    Open(0);
    EXPECT_FALSE(Enabled("cmdAdd"));
    EXPECT_EQ(test::FocusOf(*form), "cmdChange");
    while (g.daytypes.DayTypeCount > 0) DeleteDaytype(g.store, g.department, g.daytypes, store.prompt(), 1);
    Open(0);
    EXPECT_FALSE(Enabled("cmdChange") || Enabled("cmdDelete"));
    EXPECT_EQ(test::FocusOf(*form), "cmdAdd");
}

// ---- adding ----

TEST_F(DaytypesFormTest, adds_one_after_the_other_from_the_keyboard) {
    Open(30);
    EXPECT_EQ(TitleOf("Frame3D1"), "Add a Daytype ");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    test::Type(*form, "oV");
    EXPECT_EQ(Symbol().Text(), "OV");
    EXPECT_EQ(test::FocusOf(*form), "Text2");
    test::Type(*form, " ovens ");
    test::Press(*form, Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Symbol().Text() + Explanation().Text(), "");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(TextOf("Label5"), "Current number of Daytypes= 4");
    Fill("E", "Evening");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Stored(),
              (std::vector<std::string>{"BK|Baker", "CA|Cashier", "D|Driver", "E|Evening", "OV|Ovens"}));
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(DaytypesFormTest, enter_only_goes_back_to_the_symbol_while_a_box_is_empty) {
    Open(30);
    Explanation().setFocus();
    test::Type(*form, " ovens ");
    test::Press(*form, Qt::Key_Return);
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(Explanation().Text(), "Ovens");
    EXPECT_EQ(Stored().size(), 3u);
    EXPECT_EQ(store.prompt().Beeps(), 0);
}

TEST_F(DaytypesFormTest, an_empty_list_says_how_to_begin) {
    while (g.daytypes.DayTypeCount > 0) DeleteDaytype(g.store, g.department, g.daytypes, store.prompt(), 1);
    Open(33);
    EXPECT_EQ(List().accessibleDescription().toStdString(),
              "No daytypes yet. Choose \"Other activity...\", then \"Add\".");
    test::TakePicture(*form, "Form22-empty");
    AddDaytype(g.store, g.department, g.daytypes, store.prompt(), "CA", "Cashier");
    Open(33);
    EXPECT_EQ(List().accessibleDescription().toStdString(), "");
}

TEST_F(DaytypesFormTest, the_second_press_of_a_double_click_reaches_nothing_below_the_list) {
    Open(33);
    qt::PictureBox below;
    int presses = 0;
    below.onMouseDown = [&](Qt::MouseButton, TwipsPoint) { ++presses; };
    const QPoint place = List().viewport()->mapToGlobal(List().visualItemRect(List().item(1)).center());
    ClickRow(1);
    EXPECT_FALSE(form->isVisible());
    below.setGeometry(form->geometry());
    below.show();
    const auto press = [&] {
        QTest::mouseClick(&below, Qt::LeftButton, Qt::NoModifier, below.mapFromGlobal(place));
        return presses;
    };
    EXPECT_EQ(press(), 0) << "the second press";
    EXPECT_EQ(press(), 1) << "a third one is meant";
    Open(33);
    ClickRow(1);
    QTest::mouseClick(&below, Qt::LeftButton, Qt::NoModifier, below.mapFromGlobal(place) + QPoint(0, 60));
    EXPECT_EQ(presses, 2) << "elsewhere";
    QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
    EXPECT_EQ(press(), 3) << "too late for a double click";
}

TEST_F(DaytypesFormTest, symbols_pass_their_filter_however_they_come) {
    Open(30);
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        Symbol().clear();
        Symbol().setFocus();
        way(Symbol(), " \"é🥐{-[a9");
        EXPECT_EQ(Symbol().Text(), "[A");
    }
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(DaytypesFormTest, the_letter_w_is_refused_with_a_box_by_key_and_without_one_in_a_paste) {
    Open(30);
    test::Type(*form, "c");
    for (const char* letter : {"w", "W"}) {
        store.prompt().Expect("The <W> cannot be used as a Daytype...", 48, "Font for W is to wide.");
        test::Type(*form, letter);
        EXPECT_EQ(Symbol().Text(), "C");
    }
    EXPECT_EQ(store.prompt().Beeps(), 2);
    test::Paste(Symbol(), "wW1");
    EXPECT_EQ(Symbol().Text(), "C1");
    EXPECT_EQ(store.prompt().Boxes().size(), 2u);
}

TEST_F(DaytypesFormTest, a_refused_key_is_no_change_of_the_week) {
    Open(30);
    test::Type(*form, " ");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    test::Type(*form, "1");
    EXPECT_TRUE(g.week.WeekChanged);
}

TEST_F(DaytypesFormTest, explanations_take_14_characters_and_no_more_than_the_cell_is_wide) {
    Open(30);
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        Explanation().clear();
        way(Explanation(), std::string(30, 'i'));
        EXPECT_EQ(Explanation().Text(), std::string(14, 'i'));
        Explanation().clear();
        way(Explanation(), std::string(14, 'M'));
        EXPECT_GE(Explanation().Text().size(), 6u);
        EXPECT_LT(Explanation().Text().size(), 14u);
        Explanation().clear();
        way(Explanation(), "Œvre \"1\" 🥐");
        EXPECT_EQ(Explanation().Text(), "Œvre \"1\" 🥐");
    }
}

TEST_F(DaytypesFormTest, a_blank_box_brings_a_beep_and_nothing_else) {
    Open(30);
    Fill("E", "  ");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(Symbol().Text(), "E");
    Fill("", "Evening");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_EQ(Explanation().Text(), "Evening");
    EXPECT_EQ(Stored().size(), 3u);
}

TEST_F(DaytypesFormTest, a_symbol_in_use_is_told_and_emptied_and_its_explanation_stays) {
    Open(30);
    Fill("ca", "Counter");
    store.prompt().Expect("DayType CA\n is in use for Cashier", 0, "DayType duplicate");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Symbol().Text(), "");
    EXPECT_EQ(Explanation().Text(), "Counter");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(store.prompt().Beeps(), 1);
}

TEST_F(DaytypesFormTest, a_71st_is_taken_and_closes_the_screen) {
    FillUp(69);
    Open(30);
    Fill("Y", "Seventieth");
    test::Click(*form, "Command3D2");
    EXPECT_TRUE(form->isVisible());
    Fill("Z", "Last");
    test::Click(*form, "Command3D2");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(g.daytypes.DayTypeCount, 71);
    EXPECT_EQ(Stored().size(), 71u);
}

// ---- changing ----

TEST_F(DaytypesFormTest, changes_the_one_that_is_clicked) {
    Open(31);
    EXPECT_EQ(Listed(), (std::vector<std::string>{"BK= Baker", "CA= Cashier", "D= Driver"}));
    EXPECT_FALSE(Shown("Frame3D1"));
    ClickRow(1);
    EXPECT_EQ(TitleOf("Frame3D1"), "Change the Daytype");
    EXPECT_EQ(TextOf("Label6"), " Change the  Daytype and Save");
    EXPECT_EQ(Symbol().Text(), "CA");
    EXPECT_EQ(Explanation().Text(), "Cashier");
    Fill("co", "counter");
    test::Click(*form, "Command3D2");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored(), (std::vector<std::string>{"BK|Baker", "CO|Counter", "D|Driver"}));
    EXPECT_EQ(g.daytypes.DayTypeSymbols[2], "CO");
}

TEST_F(DaytypesFormTest, an_explanation_alone_can_be_changed) {
    Open(31);
    ClickRow(2);
    Fill("D", "delivery");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Stored().back(), "D|Delivery");
}

TEST_F(DaytypesFormTest, a_change_to_the_symbol_of_another_is_told) {
    Open(31);
    test::Press(*form, Qt::Key_Return); // the first row
    Fill("d", "Baker");
    store.prompt().Expect("DayType D\n is in use forDriver", 0, "DayType duplicate");
    test::Click(*form, "Command3D2");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Symbol().Text(), "");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(Stored().front(), "BK|Baker");
}

// ---- deleting ----

TEST_F(DaytypesFormTest, deletes_the_one_that_is_clicked_without_a_question) {
    store.PutDay(Sunday, 1, test::StartsStops({{36, 68}}), "CA");
    Open(32);
    EXPECT_EQ(TextOf("Label4"), "Delete the Daytype");
    ClickRow(1);
    EXPECT_EQ(TextOf("Label6"), "Daytype to be deleted");
    EXPECT_EQ(Find<QPushButton>(*form, "Command3D2").text().toStdString(), "&Delete");
    test::TypeAny(Symbol(), "X"); // only shown
    EXPECT_EQ(Symbol().Text(), "CA");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored(), (std::vector<std::string>{"BK|Baker", "D|Driver"}));
    EXPECT_EQ(g.daytypes.DayTypeCount, 2);
    EXPECT_EQ(store.Rows().at(0).substr(0, 10), "46082|1|CA"); // days keep their symbol
}

// ---- from one to the other ----

TEST_F(DaytypesFormTest, every_activity_leads_to_every_other) {
    Open(32);
    ClickRow(0);
    test::Click(*form, "Command3D4");
    EXPECT_FALSE(Shown("List1"));
    test::Click(*form, "cmdAdd");
    EXPECT_EQ(Find<QPushButton>(*form, "Command3D2").text().toStdString(), "&Save");
    Fill("E", "Evening");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Stored().back(), "E|Evening");
    test::Click(*form, "Command3D4");
    test::Click(*form, "cmdDelete");
    ClickRow(3);
    test::Click(*form, "Command3D4");
    test::Click(*form, "cmdChange");
    EXPECT_EQ(Listed().size(), 4u);
    ClickRow(3);
    Fill("F", "Late");
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Stored().back(), "F|Late");
}

// ---- putting one on a day ----

TEST_F(DaytypesFormTest, answers_with_the_one_that_is_clicked_and_leaves_the_week_alone) {
    Open(33);
    EXPECT_EQ(form->windowTitle().toStdString(), "Bakery: Brown Bob");
    EXPECT_EQ(TextOf("Label4"), "Select Daytype for Tuesday, 3-Mar-2026");
    EXPECT_FALSE(Shown("Frame3D1"));
    ClickRow(1);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 2);
    EXPECT_EQ(g.week.DayTypeText[3][2], "");
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_TRUE(store.Rows().empty());
}

TEST_F(DaytypesFormTest, picks_for_the_day_that_it_is_asked_for) {
    Open(33, 1, 6);
    EXPECT_EQ(form->windowTitle().toStdString(), "Bakery: Adams Anna");
    EXPECT_EQ(TextOf("Label4"), "Select Daytype for Friday, 6-Mar-2026");
    test::Press(*form, Qt::Key_Down);
    test::Press(*form, Qt::Key_Return);
    EXPECT_EQ(form->Answer().SelectedDayType, 2);
}

TEST_F(DaytypesFormTest, leaving_answers_that_none_was_picked) {
    Open(33);
    test::Press(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 0);
}

// ---- two workstations ----

TEST_F(DaytypesFormTest, what_a_locked_file_does_not_take_is_told_and_stays_in_the_boxes) {
    Open(30);
    Fill("E", "Evening");
    other.Hold();
    const auto expectBox = [&] {
        store.prompt().Expect("Could not save,\nthis page is locked by another user, try again..", 0,
                              "Locked page...");
    };
    expectBox();
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Symbol().Text() + Explanation().Text(), "EEvening");
    EXPECT_EQ(TextOf("Label5"), "Current number of Daytypes= 3");
    other.LetGo();
    test::Click(*form, "Command3D2");
    EXPECT_EQ(Stored().size(), 4u);
    Open(31);
    test::Press(*form, Qt::Key_Return); // "BK= Baker"
    Fill("BX", "Boxer");
    other.Hold();
    expectBox();
    test::Click(*form, "Command3D2");
    EXPECT_TRUE(form->isVisible());
    other.LetGo();
    test::Click(*form, "Command3D2");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Stored(), (std::vector<std::string>{"BX|Boxer", "CA|Cashier", "D|Driver", "E|Evening"}));
}

// ---- for everybody ----

TEST_F(DaytypesFormTest, can_be_used_without_mouse_and_without_eyes) {
    Open(0);
    ExpectUsable({"cmdAdd", "cmdChange", "cmdDelete", "Command3D1"});
    Open(30);
    ExpectUsable({"Text1", "Text2", "Command3D2", "Command3D1", "Command3D4"});
    test::TakePicture(*form, "Form22-add");
    Open(31);
    test::Press(*form, Qt::Key_Return);
    ExpectUsable({"Text1", "Text2", "Command3D2", "Command3D1", "Command3D4", "List1"});
    Open(32);
    test::Press(*form, Qt::Key_Return);
    EXPECT_EQ(test::FocusOf(*form), "Command3D2");
    EXPECT_EQ(test::Obstacles(*form), "");
    test::TakePicture(*form, "Form22-delete");
    Open(33);
    ExpectUsable({"List1", "Command3D1", "Command3D4"});
    EXPECT_EQ(test::SpokenName(Explanation()), "Explanation");
}

} // namespace
} // namespace tvx
