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
    explicit SampleForm(Ports& ports, Form* owner = nullptr) : Form(ports, "Sample", owner) {
        frame = &Add<Frame>("Frame1", "A frame");
        box = &Add<TextBox>("Text1", "A box", frame);
        option = &Add<QRadioButton>("Option1", "An option", frame);
        ok = &Add<QPushButton>("Ok", "OK");
        cancel = &Add<QPushButton>("Cancel", "Cancel");
        help = &Add<QPushButton>("Help", "Help");
        SetHelpButton(*help);
        On(*help, &QPushButton::clicked, [this] { pressed += "help "; });
        SetDefaultButton(*ok);
        SetCancelButton(*cancel);
        SetHint(*frame, "about the frame");
        SetHint(*option, "about the option");
        resize(300, 200);
        On(*ok, &QPushButton::clicked, [this] { pressed += "ok "; });
        On(*cancel, &QPushButton::clicked, [this] { pressed += "cancel "; });
    }
    void ShowHint(const std::string& text) override { hint = text; }
    bool Opened() override {
        if (load) load();
        return opens;
    }
    void CameBack() override { ++returns; }
    using Form::Guarded;
    using Form::Menus;

    std::function<void()> load;
    bool opens = true;
    int returns = 0;

    Frame* frame = nullptr;
    TextBox* box = nullptr;
    QRadioButton* option = nullptr;
    QPushButton* ok = nullptr;
    QPushButton* cancel = nullptr;
    QPushButton* help = nullptr;
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

TEST_F(FormTest, helps_on_f1) {
    form.box->setFocus();
    test::Press(form, Qt::Key_F1);
    EXPECT_EQ(form.pressed, "help ");
}

TEST_F(FormTest, opens_the_first_menu_that_can_be_opened_on_f10) {
    test::Press(form, Qt::Key_F10); // there is none yet
    form.Menus().addMenu("Closed")->setEnabled(false);
    QMenu* open = form.Menus().addMenu("Open");
    open->addAction("An entry");
    form.Menus().addAction("No menu");
    form.Menus().show();
    QApplication::processEvents();
    form.box->setFocus();
    test::Press(form, Qt::Key_F10);
    EXPECT_EQ(form.Menus().activeAction(), open->menuAction());
    EXPECT_TRUE(open->isVisible());
    open->close();
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

TEST_F(FormTest, stands_in_the_middle_of_the_screen_that_it_is_made_for) {
    script.screen.width = 600 * 15;
    script.screen.height = 520 * 15;
    form.CenterForm();
    const QPoint corner = QGuiApplication::primaryScreen()->geometry().topLeft();
    const QRect frame = form.frameGeometry().translated(-corner);
    EXPECT_EQ(2 * frame.left() + frame.width(), 600);
    EXPECT_EQ(2 * frame.top() + frame.height(), 520 - 10);
}

// ---- opening ----

TEST_F(FormTest, loads_before_it_shows) {
    SampleForm other(script.ports);
    bool shown = true;
    other.load = [&] { shown = other.isVisible(); };
    EXPECT_TRUE(other.ShowModeless());
    EXPECT_FALSE(shown);
    EXPECT_TRUE(other.isVisible());
}

TEST_F(FormTest, loads_anew_after_it_was_closed_and_not_while_it_is_only_hidden) {
    SampleForm other(script.ports);
    int loads = 0;
    other.load = [&] { ++loads; };
    other.ShowModeless();
    other.hide();
    other.ShowModeless();
    EXPECT_EQ(loads, 1);
    other.close();
    other.ShowModeless();
    EXPECT_EQ(loads, 2);
}

TEST_F(FormTest, stays_away_when_it_refuses_to_open) {
    SampleForm other(script.ports, &form);
    other.opens = false;
    other.ShowModal();
    EXPECT_FALSE(other.isVisible());
    EXPECT_EQ(form.returns, 1);
}

TEST_F(FormTest, stays_away_and_says_why_when_its_load_fails) {
    SampleForm other(script.ports, &form);
    other.load = [] { throw std::runtime_error("no bread"); };
    script.prompt.Expect("no bread", 16, "Tarvex");
    other.ShowModal();
    EXPECT_FALSE(other.isVisible());
    EXPECT_TRUE(form.isVisible());
}

TEST_F(FormTest, tells_its_owner_that_it_has_gone) {
    test::WhenShown("Over", [](QWidget& window) { window.close(); });
    SampleForm over(script.ports, &form);
    over.setObjectName("Over");
    over.ShowModal();
    EXPECT_EQ(form.returns, 1);
    EXPECT_EQ(over.returns, 0);
}

TEST(PlainCaption, shows_an_ampersand_as_itself) {
    EXPECT_EQ(PlainCaption("Bread & Cakes").toStdString(), "Bread && Cakes");
}

} // namespace
} // namespace tvx::qt
