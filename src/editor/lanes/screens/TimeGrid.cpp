#include "editor/lanes/screens/TimeGrid.h"

#include "editor/lanes/screens/PaintDrawing.h"
#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "shell/common/Conversions.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>

namespace tvx::qt {
namespace {

/// One lane, as an assistive tool sees it. It has no object of its own: the grid hands it out by number.
class AccessibleRow : public QAccessibleInterface {
  public:
    AccessibleRow(TimeGrid& grid, int row) : grid_(&grid), row_(row) {}
    bool isValid() const override { return grid_ != nullptr && row_ <= grid_->RowCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(grid_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && isValid() ? ToQString(grid_->RowText(row_)) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid()) return {};
        const QRect place = grid_->RowRect(row_);
        return {grid_->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::Role role() const override { return QAccessible::Row; }
    QAccessible::State state() const override { return {}; }

  private:
    QPointer<TimeGrid> grid_;
    int row_;
};

class AccessibleGrid : public QAccessibleWidget {
  public:
    explicit AccessibleGrid(TimeGrid* grid) : QAccessibleWidget(grid, QAccessible::Table), grid_(*grid) {}
    ~AccessibleGrid() override {
        for (const auto& [row, id] : rows_) QAccessible::deleteAccessibleInterface(id);
    }
    int childCount() const override { return grid_.RowCount(); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= grid_.RowCount()) return nullptr;
        const auto known = rows_.find(index);
        if (known != rows_.end()) return QAccessible::accessibleInterface(known->second);
        auto* row = new AccessibleRow(grid_, index + 1);
        rows_[index] = QAccessible::registerAccessibleInterface(row);
        return row;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (const auto& [index, id] : rows_)
            if (QAccessible::accessibleInterface(id) == wanted) return index;
        return -1;
    }

  private:
    TimeGrid& grid_;
    mutable std::map<int, QAccessible::Id> rows_;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* grid = qobject_cast<TimeGrid*>(object);
    return grid != nullptr ? new AccessibleGrid(grid) : nullptr;
}

} // namespace

TimeGrid::TimeGrid(const GlobalState& g, QWidget* parent) : PictureBox(parent), g_(g) {
    onPaint = [this](QPainter& painter, const QRegion& region) { Paint(painter, region); };
}

QRect TimeGrid::RowRect(int row) const {
    const Twips top = TopOfRow(g_.grid, row);
    return SharpRect({0, top, g_.grid.GridWidth, top + g_.grid.RowHeight}, *this).toAlignedRect();
}

void TimeGrid::UpdateRow(int row) {
    if (row >= 1 && row <= g_.grid.VisibleRows) update(RowRect(row));
}

std::string TimeGrid::RowText(int row) const {
    if (row < 1 || row > g_.grid.VisibleRows) return "";
    const int e = EmployeeOfRow(g_, row);
    const DayWindow day = WindowOfDay(g_.cursor.CurrentDay, g_.department.DayCutoffQuarters);
    const auto clock = [&](WeekQuarter quarter) {
        const int ofDay = quarter % QuartersPerDay;
        return Trim(QuarterToClockText(ofDay, g_.application.Settings[setting::ClockStyle]));
    };
    std::string text = g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e] + ":";
    for (int b = 1; b <= g_.week.BarCount[e]; ++b) {
        if (g_.week.BarStops[e][b] <= day.low || g_.week.BarStarts[e][b] >= day.high) continue;
        text += " " + clock(g_.week.BarStarts[e][b]) + " - " + clock(g_.week.BarStops[e][b]);
    }
    if (g_.week.DayOffFlag[g_.cursor.CurrentDay][e]) text += " " + g_.department.DayOffNameSingle;
    return text;
}

void TimeGrid::Paint(QPainter& painter, const QRegion& region) const {
    const QRect dirty = region.boundingRect();
    painter.fillRect(dirty, ToColor(QBColor(8)));
    Drawing drawing;
    const int first = std::max(1, ToTwips(dirty.top()) / g_.grid.RowHeight + 1);
    const int last = std::min(g_.grid.VisibleRows, ToTwips(dirty.bottom() + 1) / g_.grid.RowHeight + 1);
    for (int row = first; row <= last; ++row) {
        DrawAvailability(g_, row, drawing);
        DrawRow(g_, row, drawing);
    }
    if (g_.drag.GestureOpen)
        if (const auto ghost = DrawDragBar(g_)) drawing.boxes.push_back(*ghost);
    PaintDrawing(painter, drawing);
}

void InstallGridAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

} // namespace tvx::qt
