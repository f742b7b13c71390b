// The grid of the Main Editor: paints the lanes of the visible rows, and tells assistive tools what they
// hold.
#pragma once

#include "desktop/Controls.h"
#include "editor/lanes/GridView.h"

#include <string>

namespace tvx::qt {

class TimeGrid : public PictureBox {
    Q_OBJECT
  public:
    TimeGrid(const GlobalState& g, QWidget* parent);

    /// Repaints one lane, from 1.
    void UpdateRow(int row);

    /// What a row holds, in words: "Adams Anna: 9:00am - 5:00pm".
    std::string RowText(int row) const;
    /// Place of a row on the grid, logical pixels.
    QRect RowRect(int row) const;
    int RowCount() const { return g_.grid.VisibleRows; }

  private:
    void Paint(QPainter& painter, const QRegion& region) const;

    const GlobalState& g_;
};

/// Makes the grid known to assistive tools. Call once.
void InstallGridAccessibility();

} // namespace tvx::qt
