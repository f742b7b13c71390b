#include "desktop/SaveNote.h"

#include <QTime>

namespace tvx::qt {

void SaveNote::Tell(bool saved, int secondOfDay) {
    refused_ = !saved;
    const QTime time = QTime::fromMSecsSinceStartOfDay(secondOfDay * 1000);
    SetText(saved ? "Saved " + FromQString(time.toString(QStringLiteral("HH:mm"))) : "Not saved");
}

void SaveNote::Edited() {
    if (refused_) SetText("");
    refused_ = false;
}

} // namespace tvx::qt
