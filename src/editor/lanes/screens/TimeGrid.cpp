#include "editor/lanes/screens/TimeGrid.h"

#include "editor/lanes/screens/PaintDrawing.h"

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

TimeGrid::TimeGrid(const LaneView& view, QWidget* parent) : PictureBox(parent), view_(view) {
    onPaint = [this](QPainter& painter, const QRegion& region) { Paint(painter, region); };
}

QRect TimeGrid::RowRect(int row) const {
    const Grid& grid = view_.Rows().Geometry();
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
    const Twips height = view_.Rows().Geometry().RowHeight;
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

void InstallGridAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

} // namespace tvx::qt
