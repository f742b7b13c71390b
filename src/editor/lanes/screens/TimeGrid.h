// The grid of an editor: paints its lanes, takes the mouse to the gestures, and tells assistive tools what
// the lanes hold.
#pragma once

#include "desktop/Controls.h"
#include "desktop/Parts.h"
#include "editor/lanes/LaneView.h"

#include <string>

namespace tvx::qt {

class TimeGrid : public PictureBox, public Parted {
    Q_OBJECT
  public:
    TimeGrid(const LaneView& view, QWidget* parent);

    /// Repaints one lane, from 1.
    void UpdateRow(int row);

    /// What a row holds, in words: "Adams Anna: 9:00am - 5:00pm".
    std::string RowText(int row) const { return view_.SpokenRow(row); }
    /// Place of a row on the grid, logical pixels.
    QRect RowRect(int row) const;
    int RowCount() const { return view_.Rows().Count(); }
    /// How the editor's grid stands and is scrolled.
    const Grid& Geometry() const { return view_.Rows().Geometry(); }

    Roles PartRoles() const override { return {QAccessible::Table, QAccessible::Row}; }
    int PartCount() const override { return RowCount(); }
    Part PartAt(int index) const override { return {RowText(index + 1), RowRect(index + 1)}; }

  private:
    void Paint(QPainter& painter, const QRegion& region) const;

    const LaneView& view_;
};

/// A press, a move or a release of the window system as an event on a grid.
GridMouse ToGridMouse(Qt::MouseButton button, TwipsPoint at);
GridMouse ToGridMouse(Qt::MouseButtons held, TwipsPoint at);

} // namespace tvx::qt
