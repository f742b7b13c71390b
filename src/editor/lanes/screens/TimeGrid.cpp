#include "editor/lanes/screens/TimeGrid.h"

#include "editor/lanes/screens/PaintDrawing.h"

#include <QPainter>

#include <algorithm>

namespace tvx::qt {
TimeGrid::TimeGrid(const LaneView& view, QWidget* parent) : PictureBox(parent), view_(view) {
    onPaint = [this](QPainter& painter, const QRegion& region) { Paint(painter, region); };
}

QRect TimeGrid::RowRect(int row) const {
    const Grid& grid = Geometry();
    const Twips top = view_.Rows().TopOf(row);
    return SharpRect({0, top, grid.GridWidth, top + grid.RowHeight}, *this).toAlignedRect();
}

void TimeGrid::UpdateRow(int row) {
    if (row >= 1 && row <= RowCount()) update(RowRect(row));
}

void TimeGrid::Paint(QPainter& painter, const QRegion& region) const {
    const QRect dirty = region.boundingRect();
    painter.fillRect(dirty, ToColor(QBColor(8)));
    Drawing drawing;
    const Twips height = Geometry().RowHeight;
    const int first = std::max(1, ToTwips(dirty.top()) / height + 1);
    const int last = std::min(RowCount(), ToTwips(dirty.bottom() + 1) / height + 1);
    for (int row = first; row <= last; ++row) {
        view_.DrawAvailability(row, drawing);
        view_.DrawRow(row, drawing);
    }
    for (int row = first; row <= last; ++row)
        if (const auto ghost = view_.DrawDragBar(row)) drawing.boxes.push_back(*ghost);
    PaintDrawing(painter, drawing);
}

GridMouse ToGridMouse(Qt::MouseButton button, TwipsPoint at) {
    return ToGridMouse(Qt::MouseButtons(button), at);
}

GridMouse ToGridMouse(Qt::MouseButtons held, TwipsPoint at) {
    GridMouse mouse{MouseButton::None, at.x, at.y};
    if ((held & Qt::RightButton) != 0) mouse.button = MouseButton::Right;
    if ((held & Qt::LeftButton) != 0) mouse.button = MouseButton::Left;
    return mouse;
}

} // namespace tvx::qt
