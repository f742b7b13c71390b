// The picture on the splash and on the console: the program's name over a day of time bars.
#pragma once

class QPainter;
class QRect;

namespace tvx::qt {

void PaintBanner(QPainter& painter, const QRect& place);

} // namespace tvx::qt
