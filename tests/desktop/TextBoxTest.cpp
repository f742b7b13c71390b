#include "desktop/Controls.h"
#include "support/Screens.h"
#include "support/Usability.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QTimer>

#include <gtest/gtest.h>

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
    void FilterDigitsAndLetters() {
        box.keyFilter = [](int code) {
            if (code >= 'a' && code <= 'z') return code - 32;
            return (code >= '0' && code <= '9') || code == key::Backspace || code == key::Enter ? code : 0;
        };
    }
};

/// Every way in which text comes into a box at once.
using Way = void (*)(QWidget&, const std::string&);
const std::vector<std::pair<std::string, Way>> Ways{
    {"paste", test::Paste}, {"drop", test::Drop}, {"input method", test::Compose}};

TEST_F(TextBoxTest, asks_its_filter_about_every_typed_character) {
    FilterDigitsAndLetters();
    Type("1a-b 2\"");
    EXPECT_EQ(box.Text(), "1AB2");
}

TEST_F(TextBoxTest, asks_its_filter_whichever_way_text_comes_in) {
    FilterDigitsAndLetters();
    for (const auto& [name, enter] : Ways) {
        box.clear();
        enter(box, "1a-b 2\"\r\n\t");
        EXPECT_EQ(box.Text(), "1AB2") << name;
    }
}

TEST_F(TextBoxTest, asks_the_filter_for_pastes_where_there_is_one) {
    box.keyFilter = [](int) -> int { throw std::logic_error("a paste shows no box"); };
    box.pasteFilter = [](int code) { return code == 'x' ? 0 : code; };
    for (const auto& [name, enter] : Ways) {
        box.clear();
        enter(box, "axbx");
        EXPECT_EQ(box.Text(), "ab") << name;
    }
}

TEST_F(TextBoxTest, lets_filters_look_at_the_whole) {
    box.keyFilter = [&](int code) {
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

TEST_F(TextBoxTest, filters_a_paste_by_the_menu_of_the_mouse_too) {
    FilterDigitsAndLetters();
    QApplication::clipboard()->setText(QStringLiteral("1a\""));
    QTimer::singleShot(0, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions())
            if (action->text().startsWith(QLatin1String("&Paste"))) action->trigger();
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(2, 2), box.mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&box, &event);
    EXPECT_EQ(box.Text(), "1A");
}

TEST_F(TextBoxTest, asks_its_filter_about_backspace_and_enter) {
    std::vector<int> asked;
    int entered = 0;
    box.keyFilter = [&](int code) {
        asked.push_back(code);
        return code;
    };
    box.onEnter = [&] { ++entered; };
    Type("a");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    Press(Qt::Key_Enter);
    EXPECT_EQ(asked, (std::vector<int>{'a', 8, 13, 13}));
    EXPECT_EQ(entered, 2);
    EXPECT_EQ(box.Text(), "");
    box.keyFilter = [](int) { return 0; };
    box.SetText("a");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    EXPECT_EQ(box.Text(), "a");
    EXPECT_EQ(entered, 2);
}

TEST_F(TextBoxTest, tells_of_coming_and_leaving_with_its_colours) {
    std::vector<std::string> told;
    box.SetFocusColours(QBColor(14), QBColor(15));
    box.onFocus = [&] { told.emplace_back("came"); };
    box.onLeave = [&] { told.emplace_back("left"); };
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
