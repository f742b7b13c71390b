#include "shell/screens/TipForm.h"

#include "shell/console/Console.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace tvx::qt {

TipForm::TipForm(const Department& department, Ports& ports, Form* owner) : Form(ports, "frmTip", owner) {
    setWindowTitle(QStringLiteral("Examle department"));
    auto* column = new QVBoxLayout(&Face());
    column->setContentsMargins(Pixels(240), Pixels(240), Pixels(240), Pixels(240));
    column->setSpacing(Pixels(180));
    auto& picture = Add<PictureBox>("Picture1", "Example department");
    picture.setFixedSize(Pixels(7200), Pixels(2100));
    const auto lines = ExampleNote(department);
    std::string spoken;
    for (const auto& [text, colour] : lines) spoken += text + " ";
    picture.setAccessibleDescription(ToQString(spoken));
    picture.onPaint = [&picture, lines](QPainter& painter, const QRegion&) {
        painter.fillRect(picture.rect(), Qt::white);
        const int step = painter.fontMetrics().height() + Pixels(75);
        int y = Pixels(120) + painter.fontMetrics().ascent();
        for (const auto& [text, colour] : lines) {
            painter.setPen(ToColor(QBColor(colour)));
            painter.drawText(Pixels(180), y, ToQString(text));
            y += step;
        }
    };
    auto& ok = Add<QPushButton>("cmdOk", "OK");
    ok.setText(QStringLiteral("&OK"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(&ok);
    column->addWidget(&picture);
    column->addLayout(buttons);
    On(ok, &QPushButton::clicked, [this] { Unload(); });
    SetDefaultButton(ok);
    SetCancelButton(ok);
    adjustSize();
    setFixedSize(size());
    CenterForm();
    ok.setFocus();
}

} // namespace tvx::qt
