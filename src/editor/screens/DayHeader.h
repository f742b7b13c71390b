// The seven days above the grid: which one is shown, its date, its week number and whether it has a memo.
#pragma once

#include "desktop/Controls.h"
#include "editor/DayHeader.h"

#include <array>

namespace tvx::qt {

class DayHeaderBar : public QWidget {
    Q_OBJECT
  public:
    explicit DayHeaderBar(QWidget* parent = nullptr);

    /// True when the longer form of the date fits in a column.
    bool IsWide() const;
    void Show(const std::array<HeaderColumn, 8>& columns);
    /// Hides the memo icons, for the list of all departments.
    void HideMemos();
    /// A left click in the column of a day.
    std::function<void(int)> onDay;

    ControlArray<Label> imMemo; // [1..7]

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QRect Column(int day) const;
    void PlaceMemos();
    void PaintColumn(QPainter& painter, int day) const;
    QString DateAndWeek(const HeaderColumn& column, int room) const;

    std::array<HeaderColumn, 8> columns_;
    bool memos_ = true;
};

} // namespace tvx::qt
