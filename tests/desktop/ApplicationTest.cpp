#include "desktop/Application.h"

#include "desktop/Form.h"
#include "support/Screens.h"
#include "support/Scripted.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <stdexcept>

namespace tvx::qt {
namespace {

/// A window whose every part can be made to fail.
class Brittle : public QWidget {
  public:
    std::string fails; // the part that fails, and with which words
    int painted = 0;

    void Fail(const std::string& part) const {
        if (fails == part) throw std::runtime_error("no " + part);
        if (fails == "?" + part) throw 7; // no error of any known kind
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        ++painted;
        Fail("paint");
    }
    void keyPressEvent(QKeyEvent*) override { Fail("key"); }
    void mousePressEvent(QMouseEvent*) override { Fail("press"); }
    void mouseMoveEvent(QMouseEvent*) override { Fail("move"); }
    void timerEvent(QTimerEvent*) override { Fail("timer"); }
    void closeEvent(QCloseEvent*) override { Fail("close"); }
};

class ApplicationTest : public testing::Test {
  protected:
    test::ScriptedPrompt prompt;
    StoreTeller teller{prompt};
    Brittle window;

    static Application& Net() { return dynamic_cast<Application&>(*qApp); }
    void SetUp() override {
        Net().TellBy([this](const std::exception& trouble) { teller.Tell(trouble); });
        window.setMouseTracking(true);
        window.resize(100, 100);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { Net().TellBy(nullptr); }
    void Paint() {
        const int before = window.painted;
        window.update();
        QTest::qWait(20);
        EXPECT_GT(window.painted, before);
    }
    void ExpectBox(const std::string& text) { prompt.Expect(text, 16, "Tarvex"); }
    static void Wait() { QTest::qWait(40); }
};

TEST_F(ApplicationTest, an_error_in_a_key_or_a_press_is_told_each_time) {
    for (const char* part : {"key", "press"})
        for (int i = 0; i < 2; ++i) {
            window.fails = part;
            ExpectBox(std::string("no ") + part);
            if (window.fails == "key")
                QTest::keyClick(&window, Qt::Key_A);
            else
                QTest::mouseClick(&window, Qt::LeftButton);
        }
    EXPECT_EQ(prompt.Boxes().size(), 4u);
}

TEST_F(ApplicationTest, an_error_in_a_paint_is_told_once_until_a_paint_goes_well) {
    window.fails = "paint";
    ExpectBox("no paint");
    for (int i = 0; i < 5; ++i) Paint();
    EXPECT_EQ(prompt.Boxes().size(), 1u);
    window.fails = "";
    Paint();
    window.fails = "paint";
    ExpectBox("no paint");
    Paint();
    EXPECT_EQ(prompt.Boxes().size(), 2u);
    window.fails = "";
}

TEST_F(ApplicationTest, a_box_waits_until_the_paint_is_over) {
    window.fails = "paint";
    ExpectBox("no paint");
    QPaintEvent paint(window.rect());
    QApplication::sendEvent(&window, &paint);
    EXPECT_TRUE(prompt.Boxes().empty());
    Wait();
    EXPECT_EQ(prompt.Boxes().size(), 1u);
    window.fails = "";
}

TEST_F(ApplicationTest, an_error_in_a_timer_is_told_once_while_it_goes_on) {
    window.fails = "timer";
    ExpectBox("no timer");
    const int timer = window.startTimer(1);
    Wait();
    window.killTimer(timer);
    EXPECT_EQ(prompt.Boxes().size(), 1u);
}

TEST_F(ApplicationTest, an_error_in_a_callback_of_a_timer_is_told) {
    ExpectBox("no bread");
    QTimer::singleShot(0, &window, [] { throw std::runtime_error("no bread"); });
    Wait();
}

TEST_F(ApplicationTest, an_error_while_the_mouse_moves_is_told_once) {
    window.fails = "move";
    ExpectBox("no move");
    for (int i = 0; i < 5; ++i) {
        QMouseEvent move(QEvent::MouseMove, QPointF(i, i), window.mapToGlobal(QPointF(i, i)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(&window, &move);
        Wait();
    }
}

TEST_F(ApplicationTest, a_window_whose_close_fails_stays) {
    window.fails = "close";
    ExpectBox("no close");
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    window.fails = "";
    EXPECT_TRUE(window.close());
}

TEST_F(ApplicationTest, what_is_no_error_of_a_known_kind_is_told_too) {
    window.fails = "?key";
    ExpectBox("Something went wrong, and nothing tells what.");
    QTest::keyClick(&window, Qt::Key_A);
    window.fails = "?paint";
    ExpectBox("Something went wrong, and nothing tells what.");
    Paint();
    window.fails = "";
}

TEST_F(ApplicationTest, the_pointer_is_given_back_with_the_box) {
    prompt.MousePointer(Pointer::Hourglass);
    window.fails = "key";
    ExpectBox("no key");
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_EQ(prompt.Shape(), Pointer::Default);
}

TEST_F(ApplicationTest, a_paint_of_a_surface_that_fails_is_caught_with_its_painter) {
    test::ScriptedPorts script;
    Form form(script.ports, "Sample", nullptr);
    auto surface = std::make_unique<PictureBox>(&form);
    surface->onPaint = [](QPainter&, const QRegion&) { throw std::logic_error("no picture"); };
    surface->resize(50, 50);
    form.resize(200, 100);
    ExpectBox("no picture");
    form.ShowModeless();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    Wait();
    surface->onPaint = nullptr;
    surface->update();
    Wait();
    EXPECT_TRUE(form.isVisible());
}

} // namespace
} // namespace tvx::qt
