#include "shell/screens/SplashForm.h"

#include "shell/console/Console.h"
#include "shell/screens/Banner.h"

#include <QEventLoop>
#include <QPainter>
#include <QTimer>

namespace tvx::qt {

SplashForm::SplashForm(Ports& ports) : Form(ports, "frmSplash", nullptr) {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setWindowTitle(QStringLiteral("Tarvex"));
    FixSize(6600, 2700);
}

void SplashForm::ShowPainted() {
    constexpr int PatienceMilliseconds = 1000;
    QEventLoop loop;
    onPainted_ = [&loop] { loop.quit(); };
    QTimer::singleShot(PatienceMilliseconds, &loop, &QEventLoop::quit);
    ShowModeless();
    if (!painted_) loop.exec();
    onPainted_ = nullptr;
}

void SplashForm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintBanner(painter, rect());
    painter.setPen(ToColor(QBColor(8)));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::black);
    painter.drawText(rect().adjusted(0, 0, -Pixels(180), -Pixels(120)), Qt::AlignRight | Qt::AlignBottom,
                     QStringLiteral("Version %1.%2").arg(ProgramMajor).arg(ProgramRevision));
    painted_ = true;
    if (onPainted_) onPainted_();
}

} // namespace tvx::qt
