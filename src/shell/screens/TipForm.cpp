#include "shell/screens/TipForm.h"

#include "shell/console/Console.h"

#include <QPainter>

namespace tvx::qt {

TipForm::TipForm(const Department& department, Ports& ports, Form* owner) : Form(ports, "frmTip", owner) {
    setWindowTitle(QStringLiteral("Examle department"));
    QVBoxLayout& column = Column();
    column.setContentsMargins(Pixels(240), Pixels(240), Pixels(240), Pixels(240));
    column.setSpacing(Pixels(180));
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
    column.addWidget(&picture);
    QHBoxLayout& buttons = Row(column);
    buttons.addStretch();
    QPushButton& ok = AddCommand({"cmdOk", "&OK", [this] { Unload(); }, Role::Default}, buttons);
    SetCancelButton(ok);
    FixSize();
    ok.setFocus();
}

} // namespace tvx::qt
