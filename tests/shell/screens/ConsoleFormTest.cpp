#include "shell/screens/ConsoleForm.h"

#include "editor/lanes/screens/TimeGrid.h"
#include "masterdata/DaytypeList.h"
#include "masterdata/files/ShiftFile.h"
#include "platform/files/Folder.h"
#include "shell/common/TVXMOD1.h"
#include "shell/screens/RegisterScreens.h"
#include "store/rows/PasswordText.h"
#include "support/RawFile.h"
#include "support/Rows.h"
#include "support/Screens.h"
#include "support/TestEngine.h"
#include "support/TestStore.h"
#include "support/Usability.h"

#include <QApplication>
#include <QListView>
#include <QMenu>

#include <gtest/gtest.h>

#include <filesystem>

namespace tvx {
namespace {

using test::BarList;
using test::Find;
using test::WhenShown;

constexpr DaySerial Monday = 46083; // 2 March 2026

/// A file is prepared in `made`; Start() then begins a run on it with a state of its own.
class ConsoleFormTest : public testing::Test {
  protected:
    test::TestStore made;
    GlobalState g;
    qt::Screens screens;
    std::unique_ptr<qt::ConsoleForm> console;
    QWidget* editor = nullptr;

    void SetUp() override {
        qt::RegisterScreens(screens, g, made.ports());
        made.AddDepartment("Bakery");
        made.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "7.25"});
        made.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "10"});
        made.AddEmployee({.lastName = "Clark", .firstName = "Cleo", .pay = "10"});
        made.PutDay(Monday, 1, test::StartsStops({{36, 68}}), "CA");
        made.script.clock.Set(Monday);
    }
    test::ScriptedPrompt& prompt() { return made.prompt(); }

    void Start() {
        CloseDatabase(made.g.store, prompt());
        g.store.Engine = dao::Engine(test::TestEngineOptions());
        g.paths.ProgramPath = made.folder.Path();
        console = std::make_unique<qt::ConsoleForm>(g, made.ports(), screens);
        ASSERT_EQ(console->Load(), LoadResult::Ready);
        console->ShowModeless();
        QApplication::processEvents(); // it becomes the active window
    }
    dao::Database& db() { return g.store.Open(); }
    std::vector<std::string> Departments() { return test::RowsOf(db(), "Department", {"Department name"}); }
    std::vector<std::string> LastNames() { return test::RowsOf(db(), "Employee", {"Last name"}); }

    /// Chooses an entry of the console and does something with the window that it opens.
    void Open(const std::string& entry, const std::string& window, std::function<void(QWidget&)> deed) {
        WhenShown(window, std::move(deed));
        test::Choose(*console, entry);
    }
    /// Opens the Main Editor, does something there, and leaves it without saving.
    void InEditor(const std::function<void()>& deed) {
        WhenShown("Form1", [this, deed](QWidget& form) {
            editor = &form;
            deed();
            if (g.week.WeekChanged) prompt().WillAnswer(Answer::No);
            test::Choose(form, "GetOut");
        });
        test::Click(*console, "cmdSchedule");
    }
    static void Enter(QWidget& form, const std::string& box, const std::string& text) {
        auto& control = Find<qt::TextBox>(form, box);
        control.setFocus();
        control.selectAll();
        test::TypeAny(control, text);
    }
    /// Picks somebody in the search by the beginning of the name.
    static void Search(QWidget& search, const std::string& name) {
        Enter(search, "Text1", name);
        test::Press(search, Qt::Key_Return);
    }

    std::string Caption(const std::string& entry) {
        return console->findChild<QAction*>(qt::ToQString(entry))->text().toStdString();
    }
    std::string EditorCaption(const std::string& entry) {
        return editor->findChild<QAction*>(qt::ToQString(entry))->text().toStdString();
    }
    std::string ComboText() { return Find<QComboBox>(*console, "Combo1").currentText().toStdString(); }
    std::string Schedule() { return Find<QPushButton>(*console, "cmdSchedule").text().toStdString(); }
    qt::TimeGrid& Grid() { return Find<qt::TimeGrid>(*editor, "Picture1"); }
    /// The names of the Main Editor's rows.
    std::vector<std::string> Roster() {
        std::vector<std::string> names;
        for (int row = 1; row <= Grid().RowCount(); ++row)
            if (const auto name = Find<qt::Label>(*editor, "Label9(" + std::to_string(row) + ")").text();
                !name.isEmpty())
                names.push_back(name.toStdString());
        return names;
    }
    qt::TextBox& Daytype(int row) { return Find<qt::TextBox>(*editor, "Text1(" + std::to_string(row) + ")"); }
    void Focus(int row) {
        QApplication::processEvents(); // the editor becomes the active window again
        Daytype(row).setFocus();
    }
    /// Opens the line menu of a row and does something with one of its entries.
    void OnLine(int row, const std::string& entry, std::function<void(QAction&)> deed) {
        WhenShown("Popup", [=](QWidget& menu) {
            auto* action = menu.findChild<QAction*>(qt::ToQString(entry));
            menu.close();
            ASSERT_NE(action, nullptr) << entry;
            deed(*action);
        });
        QTest::mouseClick(&Grid(), Qt::RightButton, Qt::NoModifier,
                          test::At(300, (row - 1) * Grid().Geometry().RowHeight + 110));
    }
    void ChooseOnLine(int row, const std::string& entry) {
        OnLine(row, entry, [](QAction& action) { action.trigger(); });
    }
    bool OfferedOnLine(int row, const std::string& entry) {
        bool offered = false;
        OnLine(row, entry, [&](QAction& action) { offered = action.isEnabled(); });
        return offered;
    }
};

// ---- departments ----

TEST_F(ConsoleFormTest, a_new_department_is_the_current_one_at_once) {
    Start();
    Open("AddDep", "Form13", [](QWidget& form) {
        test::Type(form, "Kitchen");
        Find<QComboBox>(form, "Combo2").setCurrentIndex(8);
        test::Click(form, "Command3D1");
    });
    EXPECT_EQ(ComboText(), "Kitchen");
    EXPECT_EQ(g.department.CurrentDepName, "Kitchen");
    EXPECT_EQ(g.department.DayCutoffQuarters, 8);
    EXPECT_NE(Caption("ChangeName").find("Kitchen"), std::string::npos) << Caption("ChangeName");
    EXPECT_NE(Schedule().find("Kitchen"), std::string::npos) << Schedule();
    EXPECT_TRUE(console->findChild<QAction*>("FixConflics")->isVisible()); // there are two now
}

TEST_F(ConsoleFormTest, the_first_department_brings_the_commands_that_need_one) {
    Start();
    prompt().WillAnswer(Answer::Yes);
    test::Choose(*console, "DeleteDep");
    EXPECT_FALSE(Find<QWidget>(*console, "cmdSchedule").isEnabled());
    EXPECT_FALSE(console->findChild<QAction*>("ChangeName")->isEnabled());
    Open("AddDep", "Form13", [](QWidget& form) {
        test::Type(form, "Kitchen");
        test::Press(form, Qt::Key_Return);
    });
    EXPECT_TRUE(Find<QWidget>(*console, "cmdSchedule").isEnabled());
    EXPECT_TRUE(console->findChild<QAction*>("ChangeName")->isEnabled());
    EXPECT_TRUE(console->findChild<QMenu*>("EmplRecords")->isEnabled());
}

TEST_F(ConsoleFormTest, a_department_that_was_not_added_leaves_the_current_one) {
    made.AddDepartment("Stores");
    Start();
    Open("AddDep", "Form13", [](QWidget& form) {
        test::Type(form, "Kitchen");
        test::Press(form, Qt::Key_Escape);
    });
    EXPECT_EQ(ComboText(), "Bakery");
    EXPECT_EQ(Departments(), (std::vector<std::string>{"Bakery", "Stores"}));
}

TEST_F(ConsoleFormTest, a_departments_own_words_show_everywhere_at_once) {
    Start();
    Open("ChangeName", "Form13", [](QWidget& form) {
        Enter(form, "Text1", "Patisserie");
        Enter(form, "txtGenEmployee", "Associate");
        Enter(form, "txtGenEmployees", "Associates");
        Enter(form, "txtDaysOff", "Free days");
        test::Click(form, "Command3D1");
    });
    EXPECT_NE(Schedule().find("Patisserie"), std::string::npos) << Schedule();
    EXPECT_EQ(Find<qt::Label>(*console, "Label2").text().toStdString(), "------ Patisserie ------");
    EXPECT_EQ(Caption("NewEmployee"), "&Add new Associate to Patisserie");
    EXPECT_EQ(Caption("ChangeEmplRec"), "&Change Patisserie Associate record");
    EXPECT_EQ(Caption("DeleteEmpl"), "&Delete Associate from Patisserie");
    Open("NewEmployee", "Form4", [](QWidget& form) {
        EXPECT_EQ(form.windowTitle().toStdString(), "Patisserie: Add new Associate");
        test::Click(form, "cmdExit");
    });
    InEditor([this] {
        EXPECT_EQ(editor->windowTitle().toStdString().substr(0, 11), "Patisserie,");
        EXPECT_EQ(EditorCaption("OneEmpl"), "One Associate");
    });
}

TEST_F(ConsoleFormTest, a_changed_week_and_listing_order_are_those_of_the_main_editor) {
    Start();
    Open("ChangeName", "Form13", [](QWidget& form) {
        Find<QComboBox>(form, "Combo1").setCurrentIndex(1); // Monday
        test::Click(form, "SSOption2(6)");                  // by first name
        test::Click(form, "Command3D1");
    });
    WhenShown("Form5", [](QWidget& form) { Search(form, "cl"); });
    Open("ChangeEmplRec", "Form4", [this](QWidget& form) {
        Enter(form, "Text2(2)", "Aaron");
        prompt().WillAnswer(Answer::Yes);
        test::Click(form, "cmdExit");
    });
    InEditor([this] {
        EXPECT_EQ(editor->windowTitle().toStdString(), "Bakery,  Week from 2-Mar-2026  to  8-Mar-2026");
        EXPECT_EQ(Roster().front(), "Aaron Clark");
    });
}

TEST_F(ConsoleFormTest, a_deleted_department_is_gone_and_the_first_one_is_current) {
    made.AddDepartment("Stores");
    Start();
    Find<QComboBox>(*console, "Combo1").setCurrentIndex(1);
    emit Find<QComboBox>(*console, "Combo1").activated(1);
    EXPECT_EQ(g.department.CurrentDepName, "Stores");
    const auto question = [&](Answer answer) {
        prompt().Expect("You are about to delete the Stores from the database.  Are you sure?", 20,
                        "Delete Stores", answer);
        test::Choose(*console, "DeleteDep");
    };
    question(Answer::No);
    EXPECT_EQ(ComboText(), "Stores");
    question(Answer::Yes);
    EXPECT_EQ(g.department.CurrentDepName, "Bakery");
    EXPECT_EQ(Departments(), std::vector<std::string>{"Bakery"});
    EXPECT_FALSE(Find<QWidget>(*console, "Combo1").isVisible());
    EXPECT_EQ(Find<qt::Label>(*console, "Label2").text().toStdString(), "------ Bakery ------");
    EXPECT_FALSE(console->findChild<QAction*>("FixConflics")->isVisible());
}

TEST_F(ConsoleFormTest, a_department_goes_also_while_its_shift_file_cannot_be_written) {
    std::filesystem::create_directory(made.folder / "1.SFT"); // nobody can write a folder
    Start();
    prompt().WillAnswer(Answer::Yes);
    test::Choose(*console, "DeleteDep");
    EXPECT_TRUE(Departments().empty());
    EXPECT_TRUE(LastNames().empty());
    EXPECT_EQ(prompt().Boxes().size(), 1u);
    EXPECT_EQ(prompt().Shape(), Pointer::Default);
    EXPECT_TRUE(std::filesystem::is_directory(made.folder / "1.SFT"));
}

// ---- employees ----

TEST_F(ConsoleFormTest, somebody_new_is_in_the_roster_at_once) {
    Start();
    Open("NewEmployee", "Form4", [](QWidget& form) {
        for (const char* name : {"Bell", "Cole"}) {
            Enter(form, "Text2(1)", name);
            test::Click(form, "Command3D1");
        }
        test::Press(form, Qt::Key_Escape);
    });
    InEditor([this] {
        ASSERT_EQ(Roster().size(), 5u);
        EXPECT_EQ(Roster()[1].substr(0, 4), "Bell");
        EXPECT_EQ(Roster()[4].substr(0, 4), "Cole");
    });
}

TEST_F(ConsoleFormTest, a_change_of_name_colour_and_status_shows_in_the_main_editor) {
    Start();
    const auto change = [&](const char* who, std::function<void(QWidget&)> deed) {
        WhenShown("Form5", [=](QWidget& form) { Search(form, who); });
        Open("ChangeEmplRec", "Form4", [=](QWidget& form) {
            deed(form);
            test::Click(form, "Command3D1");
            test::Click(form, "cmdExit");
        });
    };
    change("br", [](QWidget& form) { test::Click(form, "Option3D1(2)"); });
    change("ad", [](QWidget& form) {
        Enter(form, "Text2(1)", "Zimmer");
        test::Click(form, "lblColor(5)");
    });
    InEditor([this] {
        EXPECT_EQ(Roster(), (std::vector<std::string>{"Clark Cleo", "Zimmer Anna"}));
        const tvx::Grid& grid = Grid().Geometry();
        const int noon = (50 - grid.FirstQuarter) * grid.QuarterWidth + 5;
        EXPECT_EQ(test::ColourAt(Grid(), noon, grid.RowHeight + 110), QBColor(5));
    });
}

TEST_F(ConsoleFormTest, a_search_that_is_left_opens_nothing) {
    Start();
    for (const char* entry : {"ChangeEmplRec", "DeleteEmpl"})
        Open(entry, "Form5", [](QWidget& form) { test::Press(form, Qt::Key_Escape); });
    EXPECT_EQ(LastNames().size(), 3u);
}

TEST_F(ConsoleFormTest, somebody_whom_another_workstation_deletes_meanwhile_is_told_and_not_opened) {
    Start();
    const auto deleteMeanwhile = [this](QWidget& form) {
        test::RunAsAnotherProgram(db(), "DELETE FROM Employee WHERE [Last name] = 'Clark'");
        prompt().WillAnswer(Answer::Ok);
        Search(form, "clark");
    };
    Open("ChangeEmplRec", "Form5", deleteMeanwhile);
    EXPECT_EQ(prompt().Last().text, "The record is not there any more.");
    Open("ChangeEmplRec", "Form5", [](QWidget& form) {
        EXPECT_EQ(Find<QListView>(form, "List1").model()->rowCount(), 2);
        test::Press(form, Qt::Key_Escape);
    });
}

TEST_F(ConsoleFormTest, somebody_deleted_leaves_roster_and_list_and_the_schedule_stays) {
    Start();
    const auto remove = [&](Answer answer) {
        prompt().Expect("Deleting:  Anna Adams -  - \n\nAre you sure?\n\nNote!\nDeleted Employees will not "
                        "be\npart of any statistics or history...\nIf you mark them as Inactive,\nthey will "
                        "be.",
                        20, "Employee delete", answer);
        Open("DeleteEmpl", "Form5", [](QWidget& form) { Search(form, "adams"); });
    };
    remove(Answer::No);
    EXPECT_EQ(LastNames().size(), 3u);
    remove(Answer::Yes);
    EXPECT_EQ(LastNames(), (std::vector<std::string>{"Brown", "Clark"}));
    EXPECT_EQ(test::RowsOf(db(), "Day schedule", {"Employee"}), std::vector<std::string>{"1"});
    InEditor([this] { EXPECT_EQ(Roster(), (std::vector<std::string>{"Brown Bob", "Clark Cleo"})); });
}

TEST_F(ConsoleFormTest, after_the_only_one_is_deleted_the_search_has_nobody) {
    Start();
    for (const char* name : {"adams", "brown", "clark"}) {
        prompt().WillAnswer(Answer::Yes);
        Open("DeleteEmpl", "Form5", [=](QWidget& form) { Search(form, name); });
    }
    prompt().Expect("Department has no Employees entered!", 0, "No Employees");
    Open("DeleteEmpl", "Form5", [](QWidget& form) { test::Click(form, "Command3D1"); });
    EXPECT_TRUE(LastNames().empty());
}

// ---- daytypes from the Main Editor ----

TEST_F(ConsoleFormTest, a_daytype_is_added_changed_and_picked_from_the_main_editor) {
    Start();
    InEditor([this] {
        WhenShown("Form22", [](QWidget& form) {
            test::Click(form, "Command3D4");
            test::Click(form, "cmdAdd");
            Enter(form, "Text1", "OV");
            Enter(form, "Text2", "ovens");
            test::Click(form, "Command3D2");
            test::Press(form, Qt::Key_Escape);
        });
        test::Choose(*editor, "ShowDayTypes");
        EXPECT_EQ(test::RowsOf(db(), "Day types", {"Symbol", "Explaination"}),
                  std::vector<std::string>{"OV|Ovens"});
        Focus(2);
        WhenShown("Form22", [](QWidget& form) {
            EXPECT_EQ(form.windowTitle().toStdString(), "Bakery: Brown Bob");
            EXPECT_EQ(Find<qt::Label>(form, "Label4").text().toStdString(),
                      "Select Daytype for Monday, 2-Mar-2026");
            test::Press(form, Qt::Key_Return);
        });
        test::Choose(*editor, "ShowDayTypes");
        EXPECT_EQ(Daytype(2).Text(), "OV");
        EXPECT_EQ(Daytype(1).Text(), "CA");
        EXPECT_EQ(test::FocusOf(*editor), "Text1(2)");
        EXPECT_TRUE(g.week.WeekChanged);
        test::Choose(*editor, "SaveIt");
        EXPECT_EQ(test::RowsOf(db(), "Day schedule", {"Employee", "DayType"}),
                  (std::vector<std::string>{"1|CA", "2|OV"}));
    });
}

TEST_F(ConsoleFormTest, a_day_off_takes_no_daytype) {
    made.PutDay(Monday, 2, std::string(14, ' '), "", true);
    Start();
    InEditor([this] {
        Focus(2);
        test::Choose(*editor, "ShowDayTypes");
        EXPECT_EQ(prompt().Beeps(), 1);
    });
}

// ---- stored shifts from the Main Editor ----

TEST_F(ConsoleFormTest, a_day_is_stored_and_pasted_from_the_line_menu) {
    Start();
    InEditor([this] {
        EXPECT_FALSE(editor->findChild<QAction*>("Shift")->isEnabled());
        EXPECT_FALSE(OfferedOnLine(2, "PasteShift"));
        WhenShown("Form23", [](QWidget& form) {
            test::Type(form, "Day & night");
            test::Press(form, Qt::Key_Return);
        });
        ChooseOnLine(1, "AddToShift");
        EXPECT_EQ(g.shifts.ShiftCount, 1);
        EXPECT_TRUE(std::filesystem::exists(made.folder / "1.SFT"));
        EXPECT_TRUE(editor->findChild<QAction*>("Shift")->isEnabled());
        EXPECT_FALSE(OfferedOnLine(1, "PasteShift")); // that day has time
        ChooseOnLine(3, "ShiftNaam(1)");
        EXPECT_EQ(test::Bars(g, 3), (BarList{{132, 164}}));
        EXPECT_EQ(Daytype(3).Text(), ""); // a shift carries no symbol
        EXPECT_EQ(test::FocusOf(*editor), "Text1(3)");
        EXPECT_EQ(Find<qt::Label>(*editor, "Label10(3)").text().toStdString(), " 8:00");
        EXPECT_TRUE(OfferedOnLine(3, "AddToShift"));
        EXPECT_TRUE(g.week.WeekChanged);
    });
}

TEST_F(ConsoleFormTest, the_shifts_menu_pastes_on_the_row_in_focus) {
    test::WriteFile(made.folder / "1.SFT",
                    "\"Early\"\r\n2\r\n24\r\n40\r\n44\r\n60\r\n\"Late\"\r\n1\r\n88\r\n100\r\n");
    Start();
    InEditor([this] {
        const auto pick = [&](int row, int downs) {
            Focus(row);
            WhenShown("Form23", [=](QWidget& form) {
                for (int i = 0; i < downs; ++i) test::Press(form, Qt::Key_Down);
                test::Press(form, Qt::Key_Return);
            });
            test::Choose(*editor, "Shift");
        };
        pick(2, 0);
        EXPECT_EQ(test::Bars(g, 2), (BarList{{120, 136}, {140, 156}}));
        pick(3, 1);
        EXPECT_EQ(test::Bars(g, 3), (BarList{{184, 196}})); // on into Tuesday
        pick(1, 0);                                         // has time: a beep and nothing
        EXPECT_EQ(prompt().Beeps(), 1);
        EXPECT_EQ(test::Bars(g, 1), (BarList{{132, 164}}));
        Focus(2);
        WhenShown("Form23", [](QWidget& form) { test::Press(form, Qt::Key_Escape); });
        test::Choose(*editor, "Shift");
        EXPECT_EQ(test::Bars(g, 2).size(), 2u);
        test::Choose(*editor, "SaveIt");
        EXPECT_EQ(test::RowsOf(db(), "Day schedule", {"Day Julian", "Employee"}),
                  (std::vector<std::string>{"46083|1", "46083|2", "46083|3", "46084|3"}));
    });
}

TEST_F(ConsoleFormTest, an_abandoned_shift_is_not_listed) {
    Start();
    InEditor([this] {
        WhenShown("Form23", [](QWidget& form) {
            test::Type(form, "Never");
            test::Press(form, Qt::Key_Escape);
        });
        ChooseOnLine(1, "AddToShift");
        EXPECT_EQ(g.shifts.ShiftCount, 0);
        EXPECT_FALSE(editor->findChild<QAction*>("Shift")->isEnabled());
        EXPECT_FALSE(OfferedOnLine(2, "PasteShift"));
    });
}

TEST_F(ConsoleFormTest, each_department_has_its_own_daytypes_and_shifts) {
    made.AddDepartment("Stores");
    made.AddEmployee({.lastName = "Stone", .firstName = "Sam"});
    test::WriteFile(made.folder / "2.SFT", "\"Stock\"\r\n1\r\n24\r\n40\r\n");
    Start();
    InEditor([this] { EXPECT_EQ(g.shifts.ShiftCount, 0); });
    emit Find<QComboBox>(*console, "Combo1").activated(1);
    InEditor([this] {
        EXPECT_EQ(g.shifts.ShiftCount, 1);
        EXPECT_EQ(Roster(), std::vector<std::string>{"Stone Sam"});
    });
}

// ---- pictures ----

TEST_F(ConsoleFormTest, a_picture_of_one_department) {
    Start();
    test::TakePicture(*console, "Form2");
}

TEST_F(ConsoleFormTest, pictures_of_several_departments) {
    made.AddDepartment("Stores, cellar, yard and gate");
    Start();
    test::TakePicture(*console, "Form2-departments");
    emit Find<QComboBox>(*console, "Combo1").activated(1);
    test::TakePicture(*console, "Form2-longest");
}

TEST_F(ConsoleFormTest, a_picture_of_the_password_prompt) {
    test::RawFile(made.folder / "TVX.MDB")
        .Run("UPDATE Application SET [BigBoss] = ?", {ScramblePassword("SESAME")});
    Start();
    EXPECT_TRUE(Find(*console, "Text3").isVisible());
    test::TakePicture(*console, "Form2-password");
}

} // namespace
} // namespace tvx
