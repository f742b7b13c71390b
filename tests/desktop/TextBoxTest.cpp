#include "desktop/Controls.h"
#include "support/Screens.h"
#include "support/Usability.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <utility>

namespace tvx::qt {
namespace {

const std::string Bread = "🥖"; // four bytes, and two units of the box's own counting

class TextBoxTest : public testing::Test {
  protected:
    QWidget window;
    TextBox& box = *new TextBox(&window);
    TextBox& next = *new TextBox(&window);

    void SetUp() override {
        next.move(0, 60);
        window.resize(300, 120);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        box.setFocus();
    }
    void Type(const std::string& text) { test::TypeAny(box, text); }
    void Press(Qt::Key key) { QTest::keyClick(&box, key); }
    /// Digits pass, small letters become capitals.
    void TakeDigitsAndLetters() {
        box.rule = [](int code) {
            if (code >= 'a' && code <= 'z') return code - 32;
            return code >= '0' && code <= '9' ? code : 0;
        };
    }
    /// Opens the menu of the mouse and chooses an entry by the beginning of its caption.
    void ChooseFromMenu(const char* caption) {
        QTimer::singleShot(0, [caption] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction* action : menu->actions())
                if (action->text().startsWith(QLatin1String(caption))) action->trigger();
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), box.mapToGlobal(QPoint(2, 2)));
        QApplication::sendEvent(&box, &event);
    }
    void Key(const QKeySequence& keys) { QTest::keySequence(&box, keys); }
};

TEST_F(TextBoxTest, takes_no_letter_that_comes_with_Alt) {
    TakeDigitsAndLetters();
    QTest::keyClick(&box, 'w', Qt::AltModifier);
    EXPECT_EQ(box.text(), "");
    QTest::keyClick(&box, 'q', Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(box.text(), "Q") << "as some keyboards write";
}

/// Every way in which text comes into a box at once.
using Way = void (*)(QWidget&, const std::string&);
const std::vector<std::pair<std::string, Way>> Ways{
    {"paste", test::Paste}, {"drop", test::Drop}, {"input method", test::Compose}};

TEST_F(TextBoxTest, asks_its_rule_about_every_typed_character) {
    TakeDigitsAndLetters();
    Type("1a-b 2\"");
    EXPECT_EQ(box.Text(), "1AB2");
}

TEST_F(TextBoxTest, asks_its_rule_whichever_way_text_comes_in) {
    TakeDigitsAndLetters();
    for (const auto& [name, enter] : Ways) {
        box.clear();
        enter(box, "1a-b 2\"\r\n\t");
        EXPECT_EQ(box.Text(), "1AB2") << name;
    }
}

TEST_F(TextBoxTest, tells_of_a_typed_character_that_its_rule_drops_and_of_none_in_a_paste) {
    std::vector<int> refused;
    box.rule = [](int code) { return code == 'x' ? 0 : code; };
    box.onRefused = [&](int code) { refused.push_back(code); };
    for (const auto& [name, enter] : Ways) {
        box.clear();
        enter(box, "axbx");
        EXPECT_EQ(box.Text(), "ab") << name;
    }
    EXPECT_TRUE(refused.empty());
    Type("xy");
    EXPECT_EQ(box.Text(), "aby");
    EXPECT_EQ(refused, std::vector<int>{'x'});
}

TEST_F(TextBoxTest, lets_rules_look_at_the_whole) {
    box.rule = [&](int code) {
        return code == '.' && box.TextSoFar().find('.') != std::string::npos ? 0 : code;
    };
    Type("1.2.3");
    EXPECT_EQ(box.Text(), "1.23");
    for (const auto& [name, enter] : Ways) {
        box.clear();
        enter(box, "1.2.3");
        EXPECT_EQ(box.Text(), "1.23") << name;
        enter(box, ".4");
        EXPECT_EQ(box.Text().find('.'), box.Text().rfind('.')) << name;
    }
    box.SetText("1.2");
    box.selectAll();
    EXPECT_EQ(box.TextSoFar(), "") << "what is selected will go";
    Type(".5");
    EXPECT_EQ(box.Text(), ".5");
}

TEST_F(TextBoxTest, takes_as_many_characters_as_its_limit) {
    box.SetTypingLimit(4);
    Type("12345");
    EXPECT_EQ(box.Text(), "1234");
    for (const auto& [name, enter] : Ways) {
        box.SetText("12");
        box.setCursorPosition(2);
        enter(box, "3456");
        EXPECT_EQ(box.Text().size(), 4U) << name;
    }
}

TEST_F(TextBoxTest, makes_room_by_what_is_selected) {
    box.SetTypingLimit(4);
    box.SetText("1234");
    box.setSelection(1, 2);
    Type("x");
    EXPECT_EQ(box.Text(), "1x4");
    box.selectAll();
    test::Paste(box, "abcdef");
    EXPECT_EQ(box.Text(), "abcd");
}

TEST_F(TextBoxTest, leaves_longer_text_of_the_program_alone) {
    box.SetTypingLimit(4);
    box.SetText("123456789");
    EXPECT_EQ(box.Text(), "123456789");
    Type("x");
    test::Paste(box, "x");
    EXPECT_EQ(box.Text(), "123456789");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box.Text(), "12345678");
}

TEST_F(TextBoxTest, cuts_no_character_in_two) {
    for (const int limit : {1, 2, 3, 4, 5}) {
        for (const auto& [name, enter] : Ways) {
            box.clear();
            box.SetTypingLimit(limit);
            enter(box, Bread + Bread + Bread);
            std::string whole;
            for (int i = 0; i < limit / 2; ++i) whole += Bread;
            EXPECT_EQ(box.Text(), whole) << name << " " << limit;
        }
        box.clear();
        Type(Bread + Bread + Bread);
        EXPECT_LE(box.text().size(), limit);
    }
}

TEST_F(TextBoxTest, drops_line_ends_and_control_characters) {
    for (const auto& [name, enter] : Ways) {
        box.clear();
        enter(box, "12 Mill\r\nLane\t\x7F\x01");
        EXPECT_EQ(box.Text(), "12 MillLane") << name;
    }
}

TEST_F(TextBoxTest, asks_its_rule_about_a_paste_by_the_menu_of_the_mouse_too) {
    TakeDigitsAndLetters();
    QApplication::clipboard()->setText(QStringLiteral("1a\""));
    ChooseFromMenu("&Paste");
    EXPECT_EQ(box.Text(), "1A");
}

TEST_F(TextBoxTest, a_closed_gate_keeps_every_way_out) {
    int asked = 0;
    int edited = 0;
    Type("old"); // something that an undo could take away
    box.onEdited = [&] { ++edited; };
    box.gate = [&] {
        ++asked;
        return false;
    };
    QApplication::clipboard()->setText(QStringLiteral("new"));
    const std::vector<std::pair<std::string, std::function<void()>>> deeds{
        {"character", [this] { Type("x"); }},
        {"backspace", [this] { Press(Qt::Key_Backspace); }},
        {"word", [this] { QTest::keyClick(&box, Qt::Key_Backspace, Qt::ControlModifier); }},
        {"delete", [this] { Press(Qt::Key_Delete); }},
        {"cut", [this] { Key(QKeySequence(QKeySequence::Cut)); }},
        {"old cut", [this] { QTest::keyClick(&box, Qt::Key_Delete, Qt::ShiftModifier); }},
        {"undo", [this] { Key(QKeySequence(QKeySequence::Undo)); }},
        {"paste", [this] { test::Paste(box, "new"); }},
        {"drop", [this] { test::Drop(box, "new"); }},
        {"input method", [this] { test::Compose(box, "new"); }},
        {"undo of the menu", [this] { ChooseFromMenu("&Undo"); }},
        {"cut of the menu", [this] { ChooseFromMenu("Cu&t"); }},
        {"paste of the menu", [this] { ChooseFromMenu("&Paste"); }},
        {"delete of the menu", [this] { ChooseFromMenu("Delete"); }},
    };
    for (const auto& [name, deed] : deeds) {
        const int before = asked;
        box.selectAll();
        deed();
        EXPECT_EQ(box.Text(), "old") << name;
        EXPECT_EQ(asked, before + 1) << name;
    }
    EXPECT_EQ(edited, 0);
}

TEST_F(TextBoxTest, an_open_gate_lets_every_way_in_and_each_is_told_as_an_edit) {
    int edited = 0;
    box.gate = [] { return true; };
    box.onEdited = [&] { ++edited; };
    const auto expectEdit = [&](const char* name, const std::string& text) {
        EXPECT_EQ(box.Text(), text) << name;
        EXPECT_EQ(std::exchange(edited, 0), 1) << name;
    };
    Type("a");
    expectEdit("character", "a");
    test::Paste(box, "b");
    expectEdit("paste", "ab");
    Press(Qt::Key_Backspace);
    expectEdit("backspace", "a");
    Key(QKeySequence(QKeySequence::Undo));
    expectEdit("undo", "ab");
    box.selectAll();
    ChooseFromMenu("Cu&t");
    expectEdit("cut of the menu", "");
    test::Compose(box, "c");
    expectEdit("input method", "c");
    box.selectAll();
    ChooseFromMenu("Delete");
    expectEdit("delete of the menu", "");
}

TEST_F(TextBoxTest, what_the_program_fills_in_passes_neither_gate_nor_rule) {
    box.gate = []() -> bool { throw std::logic_error("asked"); };
    box.rule = [](int) -> int { throw std::logic_error("asked"); };
    box.onEdited = [] { throw std::logic_error("told"); };
    box.SetText("Baker \"&\"");
    EXPECT_EQ(box.Text(), "Baker \"&\"");
}

TEST_F(TextBoxTest, a_composition_asks_its_gate_once) {
    int asked = 0;
    box.gate = [&] {
        ++asked;
        return true;
    };
    for (const char* preedit : {"p", "pa", "pan"}) {
        QInputMethodEvent event(QLatin1String(preedit), {});
        QApplication::sendEvent(&box, &event);
    }
    test::Compose(box, "パン");
    EXPECT_EQ(box.Text(), "パン");
    EXPECT_EQ(asked, 1);
}

TEST_F(TextBoxTest, enter_and_arrows_act_on_a_settled_box) {
    std::vector<std::string> told;
    box.rest = [&] { return box.Text() != "bad"; };
    box.refuse = [&] { told.emplace_back("refused"); };
    box.onEnter = [&] { told.emplace_back("enter"); };
    box.onVerticalArrow = [&](int) { told.emplace_back("arrow"); };
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down}) {
        box.SetText("bad");
        Press(key);
        EXPECT_EQ(box.Text(), "");
        EXPECT_TRUE(box.hasFocus());
        Press(key);
    }
    EXPECT_EQ(told, (std::vector<std::string>{"refused", "enter", "refused", "enter", "refused", "arrow"}));
}

TEST_F(TextBoxTest, tells_of_coming_and_leaving_with_its_colours) {
    std::vector<std::string> told;
    box.SetFocusColours(QBColor(14), QBColor(15));
    box.onFocus = [&] { told.emplace_back("came"); };
    box.rest = [&] {
        told.emplace_back("left");
        return true;
    };
    next.setFocus();
    EXPECT_EQ(test::ColourAt(box, 60, 60), QBColor(15));
    box.setFocus();
    EXPECT_EQ(test::ColourAt(box, 60, 60), QBColor(14));
    EXPECT_EQ(told, (std::vector<std::string>{"left", "came"}));
}

TEST_F(TextBoxTest, moves_by_the_arrows_where_there_is_something_to_move_to) {
    std::vector<int> moves;
    Press(Qt::Key_Down);
    box.onVerticalArrow = [&](int direction) { moves.push_back(direction); };
    Press(Qt::Key_Up);
    Press(Qt::Key_Down);
    EXPECT_EQ(moves, (std::vector<int>{-1, 1}));
}

TEST_F(TextBoxTest, takes_nothing_while_it_is_only_for_reading) {
    box.setReadOnly(true);
    Type("a");
    EXPECT_EQ(box.Text(), "");
    for (const auto& [name, enter] : Ways) {
        enter(box, "a");
        EXPECT_EQ(box.Text(), "") << name;
    }
}

} // namespace
} // namespace tvx::qt
