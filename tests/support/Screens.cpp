#include "support/Screens.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

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

/// Looks for the window again and again until it shows.
struct Watch {
    std::string window;
    std::function<void(QWidget&)> deed;
    QTimer timer;
    bool done = false;

    ~Watch() {
        if (!done) ADD_FAILURE() << "the window " << window << " never showed";
    }
};

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

void DragAndHold(QWidget& surface, TwipsPoint from, TwipsPoint to, int steps) {
    QTest::mousePress(&surface, Qt::LeftButton, Qt::NoModifier, At(from.x, from.y));
    for (int i = 1; i <= steps; ++i) {
        const QPoint at = At(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps);
        QMouseEvent move(QEvent::MouseMove, at, surface.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&surface, &move);
    }
}

void Drag(QWidget& surface, TwipsPoint from, TwipsPoint to, int steps) {
    DragAndHold(surface, from, to, steps);
    QTest::mouseRelease(&surface, Qt::LeftButton, Qt::NoModifier, At(to.x, to.y));
}

void WhenShown(const std::string& window, std::function<void(QWidget&)> deed) {
    auto watch = std::make_shared<Watch>();
    watch->window = window;
    watch->deed = std::move(deed);
    Watch* raw = watch.get();
    // The watch lives in the connection and ends with the timer's stop.
    QObject::connect(&watch->timer, &QTimer::timeout, qApp, [watch, raw] {
        QWidget* found = VisibleWindow(raw->window);
        if (found == nullptr || raw->done) return;
        raw->done = true;
        raw->timer.stop();
        const auto act = raw->deed;
        act(*found);
    });
    watch->timer.start(5);
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
