#include "desktop/HelpWindow.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>
#include <QToolBar>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>

namespace fs = std::filesystem;

namespace tvx::qt {
namespace {

const fs::path Topics = fs::path(TVX_SOURCE_DIR) / "data/help";

class HelpWindowTest : public testing::Test {
  protected:
    HelpWindow window{Topics};
    QTextBrowser& page = *window.findChild<QTextBrowser*>();
    QListWidget& found = *window.findChild<QListWidget*>();
    QLineEdit& search = *window.findChild<QLineEdit*>();

    HelpWindowTest() { window.show(); }
    QString Title() const { return page.documentTitle(); }
    QAction* Button(const char* caption) const {
        for (QAction* action : window.findChild<QToolBar*>()->actions())
            if (action->text() == QLatin1String(caption)) return action;
        return nullptr;
    }
    QStringList Found() const {
        QStringList titles;
        for (int i = 0; i < found.count(); ++i)
            titles << found.item(i)->text().section(QLatin1Char('\n'), 0, 0);
        return titles;
    }
};

TEST_F(HelpWindowTest, shows_a_topic_and_the_contents_where_there_is_none) {
    window.ShowPage("170.html");
    EXPECT_EQ(Title(), "Entering time");
    window.ShowPage("999.html");
    EXPECT_EQ(Title(), "Tarvex help");
}

TEST_F(HelpWindowTest, goes_to_the_contents_and_back) {
    window.ShowPage("170.html");
    EXPECT_FALSE(Button("&Back")->isEnabled());
    Button("&Contents")->trigger();
    EXPECT_EQ(Title(), "Tarvex help");
    Button("&Back")->trigger();
    EXPECT_EQ(Title(), "Entering time");
}

TEST_F(HelpWindowTest, finds_the_topics_that_have_all_words_whatever_their_case) {
    window.ShowPage("index.html");
    QTest::keyClicks(&search, "JOIN bars");
    EXPECT_EQ(Found(), QStringList{"Entering time"});
    EXPECT_TRUE(found.isVisible());
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_TRUE(page.isVisible());
    EXPECT_EQ(Title(), "Entering time");
    EXPECT_EQ(page.textCursor().selectedText().toLower(), "join");
}

TEST_F(HelpWindowTest, says_when_no_topic_has_the_words) {
    window.ShowPage("170.html");
    QTest::keyClicks(&search, "zz <b>");
    EXPECT_EQ(Found(), QStringList{"No topic has these words."});
    QTest::keyClick(&search, Qt::Key_Return);
    EXPECT_TRUE(found.isVisible());
    search.clear();
    EXPECT_TRUE(page.isVisible());
    EXPECT_EQ(Title(), "Entering time");
}

TEST_F(HelpWindowTest, closes_by_escape_also_from_its_search) {
    search.setFocus();
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

// --- the topics -------------------------------------------------------------------------------------------

std::string TextOf(const fs::path& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(HelpTopics, are_all_reached_from_the_contents_and_lead_nowhere_else) {
    std::set<std::string> there, linked;
    for (const auto& entry : fs::directory_iterator(Topics)) there.insert(entry.path().filename().string());
    for (const std::string& name : there) {
        const std::string text = TextOf(Topics / name);
        static const std::regex link("href=\"([^\"]*)\"");
        for (std::sregex_iterator it(text.begin(), text.end(), link), end; it != end; ++it) {
            EXPECT_TRUE(there.contains((*it)[1])) << name << " leads to " << (*it)[1];
            if (name == "index.html") linked.insert((*it)[1]);
        }
    }
    there.erase("index.html");
    EXPECT_EQ(linked, there);
}

// --- its place --------------------------------------------------------------------------------------------

constexpr QRect Screen{0, 0, 1280, 800};
constexpr QSize Wanted{480, 560};

TEST(PlaceBeside, is_on_the_side_of_the_form_that_has_more_room) {
    EXPECT_EQ(PlaceBeside({100, 50, 600, 400}, Screen, Wanted, 320), QRect(700, 50, 480, 560));
    EXPECT_EQ(PlaceBeside({600, 50, 600, 400}, Screen, Wanted, 320), QRect(120, 50, 480, 560));
    EXPECT_EQ(PlaceBeside({0, 50, 900, 400}, Screen, Wanted, 320), QRect(900, 50, 380, 560)) << "narrower";
}

TEST(PlaceBeside, is_always_on_the_screen_and_off_the_form_while_there_is_room) {
    for (int left = -200; left < 1300; left += 37)
        for (int width = 100; width <= 1280; width += 59)
            for (int top = -100; top < 900; top += 111) {
                const QRect form(left, top, width, 500);
                const QRect place = PlaceBeside(form, Screen, Wanted, 320);
                EXPECT_TRUE(Screen.contains(place));
                const int room = std::max(form.left(), Screen.right() - form.right());
                EXPECT_TRUE(room < 320 || !form.intersects(place)) << left << " " << width;
            }
}

} // namespace
} // namespace tvx::qt
