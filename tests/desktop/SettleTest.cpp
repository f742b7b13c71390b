#include "desktop/DateBox.h"
#include "desktop/Form.h"
#include "support/Screens.h"
#include "support/Scripted.h"
#include "support/Usability.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

constexpr DaySerial March5 = 46086;

/// A form with a date that reads "5-Mar" only, another box, and its commands.
class DateForm : public Form {
  public:
    explicit DateForm(Ports& ports) : Form(ports, "Dates", nullptr) {
        QVBoxLayout& column = Column();
        Frame& frame = AddFrame("Frame1", "Hire", column);
        date = &AddField<DateBox>("Text1", "Hire date", frame);
        name = &AddField("Text2", "Name", frame);
        AddOptions(status, "Option1", 1, {"Active", "Inactive"}, frame, 0);
        AddCommands(column, {{"Help", "&Help", [this] { done += "help "; }, Role::Aside}},
                    {{"Ok", "&OK", [this] { Store(); }, Role::Default},
                     {"Cancel", "&Cancel", [this] { done += "cancel "; }, Role::Cancel}});
        date->read = [](const std::string& text) {
            return text == "5-Mar" ? std::optional(March5) : std::nullopt;
        };
        date->write = [](DaySerial) { return std::string("5-Mar-2026"); };
        date->refuse = [this] { ports_.prompt.MsgBox("no date", box::Ok, "Date error"); };
        FixSize(6000);
    }
    void Store() { done += "stored " + (date->Date() ? std::to_string(*date->Date()) : "none") + " "; }

    DateBox* date = nullptr;
    TextBox* name = nullptr;
    Options<int> status;
    std::string done;
};

class SettleTest : public testing::Test {
  protected:
    test::ScriptedPorts script;
    DateForm form{script.ports};

    void SetUp() override {
        form.ShowModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    QPushButton& Button(const char* name) { return test::Find<QPushButton>(form, name); }
    void TypeDate(const std::string& text) {
        form.date->setFocus();
        form.date->selectAll();
        test::TypeAny(*form.date, text);
    }
    void ExpectBox() { script.prompt.Expect("no date", 0, "Date error"); }
    /// Lets a box come that waits for the end of what the person is doing.
    static void Breathe() { QTest::qWait(60); }
};

TEST_F(SettleTest, a_date_stands_behind_its_text) {
    TypeDate("5-Mar");
    form.name->setFocus();
    EXPECT_EQ(form.date->Text(), "5-Mar-2026");
    EXPECT_EQ(form.date->Date(), March5);
    TypeDate("  ");
    form.name->setFocus();
    EXPECT_EQ(form.date->Text(), "");
    EXPECT_EQ(form.date->Date(), std::nullopt);
    Breathe();
}

TEST_F(SettleTest, what_the_program_put_in_is_not_read_back) {
    form.date->SetDate(March5 + 1); // shows as a text that reads as nothing
    form.date->setFocus();
    form.name->setFocus();
    test::Click(form, "Ok");
    EXPECT_EQ(form.done, "stored 46087 ");
}

TEST_F(SettleTest, a_click_on_ok_after_a_wrong_date_brings_one_box_and_the_next_click_stores) {
    TypeDate("soon");
    ExpectBox();
    auto& ok = Button("Ok");
    QTest::mousePress(&ok, Qt::LeftButton);
    Breathe(); // a hand is slower than the program
    EXPECT_TRUE(script.prompt.Boxes().empty());
    QTest::mouseRelease(&ok, Qt::LeftButton);
    Breathe();
    EXPECT_EQ(script.prompt.Boxes().size(), 1u);
    EXPECT_EQ(form.date->Text(), "");
    EXPECT_EQ(test::FocusOf(form), "Text1");
    EXPECT_FALSE(ok.isDown());
    EXPECT_EQ(form.done, "");
    test::Click(form, "Ok");
    EXPECT_EQ(form.done, "stored none ");
}

TEST_F(SettleTest, a_press_that_is_no_click_brings_the_box_when_it_ends) {
    TypeDate("soon");
    ExpectBox();
    QTest::mousePress(&Button("Ok"), Qt::LeftButton);
    QTest::mouseRelease(&Button("Ok"), Qt::LeftButton, Qt::NoModifier, QPoint(-50, -50));
    Breathe();
    EXPECT_EQ(script.prompt.Boxes().size(), 1u);
    EXPECT_EQ(form.done, "");
    EXPECT_EQ(test::FocusOf(form), "Text1");
}

TEST_F(SettleTest, keys_that_press_a_button_settle_the_box_in_focus_first) {
    TypeDate("soon");
    ExpectBox();
    test::Press(form, Qt::Key_Return);
    EXPECT_EQ(form.done, "");
    EXPECT_EQ(form.date->Text(), "");
    TypeDate("5-Mar");
    test::Press(form, Qt::Key_Return);
    EXPECT_EQ(form.done, "stored 46086 ");
}

TEST_F(SettleTest, help_and_cancel_act_whatever_the_boxes_hold) {
    TypeDate("soon");
    test::Press(form, Qt::Key_Escape);
    Button("Help").click();
    EXPECT_EQ(form.done, "cancel help ");
    EXPECT_EQ(form.date->Text(), "soon");
}

TEST_F(SettleTest, a_box_that_is_left_by_tab_is_told_of_once_and_has_the_focus_again) {
    TypeDate("soon");
    ExpectBox();
    test::Press(form, Qt::Key_Tab);
    EXPECT_EQ(test::FocusOf(form), "Text2");
    Breathe();
    EXPECT_EQ(test::FocusOf(form), "Text1");
    EXPECT_EQ(script.prompt.Boxes().size(), 1u);
}

TEST_F(SettleTest, a_form_that_has_gone_tells_of_no_box) {
    TypeDate("soon");
    form.name->setFocus();
    form.Unload();
    Breathe();
    EXPECT_TRUE(script.prompt.Boxes().empty());
}

TEST_F(SettleTest, options_answer_with_the_index_that_is_chosen) {
    EXPECT_EQ(form.status.Chosen(), std::nullopt);
    form.status.Choose(2);
    EXPECT_EQ(form.status.Chosen(), 2);
    form.status.Choose(7);
    EXPECT_EQ(form.status.Chosen(), std::nullopt);
}

TEST_F(SettleTest, a_caption_names_what_it_stands_at) {
    EXPECT_EQ(test::Obstacles(form), "");
    EXPECT_EQ(test::SpokenName(*form.date), "Hire date");
    EXPECT_EQ(test::SpokenName(Button("Ok")), "OK");
}

} // namespace
} // namespace tvx::qt
