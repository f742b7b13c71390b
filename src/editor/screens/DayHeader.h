// The seven days above the grid: which one is shown, its date, its week number and whether it has a memo. For
// the keyboard and for assistive tools they are a row of tabs.
#pragma once

#include "desktop/Controls.h"
#include "desktop/Parts.h"
#include "editor/DayHeader.h"

#include <array>

namespace tvx::qt {

class DayHeaderBar : public QWidget, public Parted {
    Q_OBJECT
  public:
    explicit DayHeaderBar(QWidget* parent = nullptr);

    /// True when the longer form of the date fits in a column.
    bool IsWide() const;
    void Show(const std::array<HeaderColumn, 8>& columns);
    /// Hides the memo icons, for the list of all departments.
    void HideMemos();
    /// A day was chosen that is not the one shown: by a left click, an arrow, or an assistive tool.
    std::function<void(int)> onDay;

    ControlArray<Label> imMemo; // [1..7]

    Roles PartRoles() const override { return {QAccessible::PageTabList, QAccessible::PageTab}; }
    int PartCount() const override { return 7; }
    Part PartAt(int index) const override;
    void ChoosePart(int index) override { Choose(index + 1); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    QRect Column(int day) const;
    int Selected() const;
    void Choose(int day);
    void TellSelection();
    void PlaceMemos();
    void PaintColumn(QPainter& painter, int day) const;
    QString DateAndWeek(const HeaderColumn& column, int room) const;

    std::array<HeaderColumn, 8> columns_;
    bool memos_ = true;
};

} // namespace tvx::qt
