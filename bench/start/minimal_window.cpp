// The floor of a start: a Qt program that paints one window and ends. With "screen" the window is as large as
// the screen.
#include <QApplication>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWidget>

namespace {

class Window : public QWidget {
  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Tarvex"));
        QTimer::singleShot(0, QApplication::instance(), &QApplication::quit);
    }
};

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    Window window;
    window.resize(count > 1 ? QGuiApplication::primaryScreen()->size() : QSize(557, 273));
    window.show();
    return QApplication::exec();
}
