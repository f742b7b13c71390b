// Paints what the grid's geometry gives.
#pragma once

#include "editor/lanes/GridView.h"

class QPainter;

namespace tvx::qt {

/// Fills the boxes and writes the texts, moved by `origin`, on the device of the painter.
void PaintDrawing(QPainter& painter, const Drawing& drawing, TwipsPoint origin = {});

} // namespace tvx::qt
