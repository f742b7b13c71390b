// A start of the program up to its painted console, and with "schedule" up to its painted Main Editor. The
// clock jumps over the splash's two seconds.
#include "desktop/QtPorts.h"
#include "shell/screens/ConsoleForm.h"
#include "shell/screens/Run.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPaintEvent>
#include <QTimer>

#include <cstring>

namespace {

class JumpingClock : public tvx::qt::QtClock {
  public:
    int SecondOfDay() const override { return looks_++ * 2 % 86400; }

  private:
    mutable int looks_ = 0;
};

/// Ends the run behind the first paint of a window.
class EndAfterPaint : public QObject {
  public:
    explicit EndAfterPaint(const QString& window) : window_(window) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->objectName() == window_)
            QTimer::singleShot(0, QApplication::instance(), [] { std::_Exit(0); });
        return false;
    }

  private:
    QString window_;
};

} // namespace

int main(int count, char** arguments) {
    const bool schedule = count > 1 && std::strcmp(arguments[1], "schedule") == 0;
    JumpingClock clock;
    EndAfterPaint end(schedule ? QStringLiteral("Picture1") : QStringLiteral("Form2"));
    tvx::qt::RunOptions options;
    options.clock = &clock;
    options.whenConsoleShows = [&](tvx::qt::ConsoleForm& console) {
        QApplication::instance()->installEventFilter(&end);
        if (!schedule) return;
        auto* button = console.Find<QAbstractButton>("cmdSchedule");
        QTimer::singleShot(0, button, &QAbstractButton::click);
    };
    return tvx::qt::RunTarvex(count, arguments, options);
}
