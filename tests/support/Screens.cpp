#include "support/Screens.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>
#include <vector>

namespace tvx::test {
namespace {

QWidget* VisibleWindow(const std::string& name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == qt::ToQString(name)) return window;
    return nullptr;
}

QWidget& Focused(QWidget& form) {
    QWidget* focused = form.focusWidget();
    return focused != nullptr ? *focused : form;
}

/// A window that a test waits for, and what it does there.
struct Awaited {
    std::string window;
    std::function<void(QWidget&)> deed;
};

/// Does the deeds of a test as their windows show. What never showed when the test ends fails it, and so does
/// a window that nobody closes.
class Doorkeeper : public testing::EmptyTestEventListener {
  public:
    void Await(Awaited awaited) { awaited_.push_back(std::move(awaited)); }
    void OnTestStart(const testing::TestInfo&) override {
        stuckSteps_ = 0;
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
        timer_.start(Step);
    }
    void OnTestEnd(const testing::TestInfo&) override {
        timer_.stop();
        timer_.disconnect();
        for (const Awaited& missing : std::exchange(awaited_, {}))
            ADD_FAILURE() << "the window " << missing.window << " never showed";
    }

  private:
    static constexpr int Step = 5;                 // milliseconds
    static constexpr int MostSteps = 20000 / Step; // nothing that a test does takes so long

    void Look() {
        timer_.start(Step); // anew: a timer does not fire while its own deed lets events run
        for (std::size_t i = 0; i < awaited_.size(); ++i)
            if (QWidget* window = VisibleWindow(awaited_[i].window)) {
                const Awaited now = awaited_[i];
                awaited_.erase(awaited_.begin() + static_cast<std::ptrdiff_t>(i));
                stuckSteps_ = 0;
                now.deed(*window);
                return;
            }
        CloseWhatIsStuck();
    }

    /// A window that waits for a person would wait for ever.
    void CloseWhatIsStuck() {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* waiting = popup != nullptr ? popup : QApplication::activeModalWidget();
        stuckSteps_ = waiting != nullptr && waiting == stuck_ ? stuckSteps_ + 1 : 0;
        stuck_ = waiting;
        if (stuckSteps_ < MostSteps) return;
        stuckSteps_ = 0;
        ADD_FAILURE() << "nobody closes the window " << waiting->objectName().toStdString();
        waiting->hide();
    }

    QTimer timer_;
    std::vector<Awaited> awaited_;
    QWidget* stuck_ = nullptr; // only compared
    int stuckSteps_ = 0;
};

Doorkeeper* doorkeeper = nullptr; // of the run, owned by the list of listeners

} // namespace

void Click(QWidget& form, const std::string& name) {
    auto& control = Find<QWidget>(form, name);
    EXPECT_TRUE(control.isEnabled()) << name;
    EXPECT_TRUE(control.isVisible()) << name;
    QTest::mouseClick(&control, Qt::LeftButton);
}

void Choose(QWidget& form, const std::string& entry) {
    auto* action = form.findChild<QAction*>(qt::ToQString(entry));
    ASSERT_NE(action, nullptr) << entry;
    EXPECT_TRUE(action->isEnabled()) << entry;
    EXPECT_TRUE(action->isVisible()) << entry;
    if (action->isEnabled()) action->trigger();
}

void Type(QWidget& form, const std::string& text) {
    QTest::keyClicks(&Focused(form), qt::ToQString(text));
}

void Press(QWidget& form, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&Focused(form), key, modifiers);
}

std::string FocusOf(const QWidget& form) {
    return form.focusWidget() == nullptr ? "" : form.focusWidget()->objectName().toStdString();
}

QPoint At(Twips x, Twips y) {
    return {qt::Pixels(x), qt::Pixels(y)};
}

void DragOn(QWidget& surface, TwipsPoint to) {
    const QPoint at = At(to.x, to.y);
    QMouseEvent move(QEvent::MouseMove, at, surface.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&surface, &move);
}

void DragAndHold(QWidget& surface, TwipsPoint from, TwipsPoint to, int steps) {
    QTest::mousePress(&surface, Qt::LeftButton, Qt::NoModifier, At(from.x, from.y));
    for (int i = 1; i <= steps; ++i)
        DragOn(surface, {from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
}

void Drag(QWidget& surface, TwipsPoint from, TwipsPoint to, int steps) {
    DragAndHold(surface, from, to, steps);
    QTest::mouseRelease(&surface, Qt::LeftButton, Qt::NoModifier, At(to.x, to.y));
}

void WatchOverTests() {
    doorkeeper = new Doorkeeper;
    testing::UnitTest::GetInstance()->listeners().Append(doorkeeper);
}

void WhenShown(const std::string& window, std::function<void(QWidget&)> deed) {
    doorkeeper->Await({window, std::move(deed)});
}

void TakePicture(QWidget& form, const std::string& name) {
    const std::filesystem::path folder = std::filesystem::path(TVX_BINARY_DIR) / "pictures";
    std::filesystem::create_directories(folder);
    QApplication::processEvents(); // what has changed is laid out
    for (const int scale : {1, 2}) {
        QImage image(form.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::white);
        form.render(&image);
        const std::string file = name + (scale == 2 ? "@2x.png" : ".png");
        EXPECT_TRUE(image.save(qt::ToQString((folder / file).string()))) << file;
    }
}

Colour ColourAt(QWidget& control, Twips x, Twips y) {
    const QImage image = control.grab().toImage();
    const QPoint at = At(x, y);
    const QColor colour = image.pixelColor(at);
    return RGB(static_cast<unsigned>(colour.red()), static_cast<unsigned>(colour.green()),
               static_cast<unsigned>(colour.blue()));
}

} // namespace tvx::test
