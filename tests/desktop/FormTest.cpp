#include "desktop/Form.h"

#include "support/Screens.h"
#include "support/Scripted.h"
#include "support/Usability.h"

#include <QRadioButton>

#include <gtest/gtest.h>

namespace tvx::qt {
namespace {

/// A form with a box and an option on a frame, and two buttons.
class SampleForm : public Form {
  public:
    explicit SampleForm(Ports& ports) : Form(ports, "Sample", nullptr) {
        frame = &Add<Frame>("Frame1", "A frame");
        box = &Add<TextBox>("Text1", "A box", frame);
        option = &Add<QRadioButton>("Option1", "An option", frame);
        ok = &Add<QPushButton>("Ok", "OK");
        cancel = &Add<QPushButton>("Cancel", "Cancel");
        SetDefaultButton(*ok);
        SetCancelButton(*cancel);
        SetHint(*frame, "about the frame");
        SetHint(*option, "about the option");
        resize(300, 200);
        On(*ok, &QPushButton::clicked, [this] { pressed += "ok "; });
        On(*cancel, &QPushButton::clicked, [this] { pressed += "cancel "; });
    }
    void ShowHint(const std::string& text) override { hint = text; }
    using Form::Guarded;

    Frame* frame = nullptr;
    TextBox* box = nullptr;
    QRadioButton* option = nullptr;
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
    std::string pressed;
    std::string hint = "none yet";
};

class FormTest : public testing::Test {
  protected:
    test::ScriptedPorts script;
    SampleForm form{script.ports};

    void SetUp() override {
        form.ShowModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
};

TEST_F(FormTest, presses_the_default_button_on_enter_and_the_cancel_button_on_escape) {
    form.box->setFocus();
    test::Press(form, Qt::Key_Return);
    test::Press(form, Qt::Key_Enter);
    test::Press(form, Qt::Key_Escape);
    EXPECT_EQ(form.pressed, "ok ok cancel ");
}

TEST_F(FormTest, presses_the_button_in_focus_on_enter) {
    form.cancel->setFocus();
    test::Press(form, Qt::Key_Return);
    EXPECT_EQ(form.pressed, "cancel ");
}

TEST_F(FormTest, leaves_a_disabled_button_alone) {
    form.ok->setEnabled(false);
    form.box->setFocus();
    test::Press(form, Qt::Key_Return);
    EXPECT_EQ(form.pressed, "");
}

TEST_F(FormTest, hints_at_what_the_mouse_has_come_to) {
    test::Hover(*form.frame);
    EXPECT_EQ(form.hint, "about the frame");
    test::Hover(*form.option);
    EXPECT_EQ(form.hint, "about the option");
    test::Unhover(*form.option);
    EXPECT_EQ(form.hint, "about the frame") << "the mouse is still over it";
    test::Unhover(*form.frame);
    EXPECT_EQ(form.hint, "");
}

TEST_F(FormTest, hints_at_what_the_keyboard_has_come_to) {
    form.box->setFocus();
    EXPECT_EQ(form.hint, "about the frame");
    form.option->setFocus();
    EXPECT_EQ(form.hint, "about the option");
    form.ok->setFocus();
    EXPECT_EQ(form.hint, "");
}

TEST_F(FormTest, goes_while_the_focus_is_in_it) {
    auto other = std::make_unique<SampleForm>(script.ports);
    other->ShowModeless();
    other->box->setFocus();
    other.reset();
}

TEST_F(FormTest, shows_the_error_of_a_handler_and_goes_on) {
    script.prompt.Expect("no bread", 16, "Tarvex");
    form.Guarded([] { throw std::runtime_error("no bread"); })();
    EXPECT_EQ(script.prompt.Shape(), Pointer::Default);
}

TEST(PlainCaption, shows_an_ampersand_as_itself) {
    EXPECT_EQ(PlainCaption("Bread & Cakes").toStdString(), "Bread && Cakes");
}

} // namespace
} // namespace tvx::qt
