#include "editor/screens/DayHeader.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace tvx::qt {
namespace {

constexpr int IconSize = 12;

/// A note with a folded corner: red with a memo, grey without.
QPixmap MemoIcon(bool memo, double ratio) {
    QPixmap icon(QSize(IconSize, IconSize) * ratio);
    icon.setDevicePixelRatio(ratio);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(memo ? QColor(140, 0, 0) : QColor(130, 130, 130), 1));
    painter.setBrush(memo ? QColor(230, 40, 40) : QColor(225, 225, 225));
    painter.drawPolygon(QPolygonF({{1.5, 1.5}, {7.5, 1.5}, {10.5, 4.5}, {10.5, 10.5}, {1.5, 10.5}}));
    painter.setPen(QPen(memo ? Qt::white : QColor(160, 160, 160), 1));
    painter.drawLine(QPointF(3.5, 5.5), QPointF(8.5, 5.5));
    painter.drawLine(QPointF(3.5, 8), QPointF(8.5, 8));
    return icon;
}

} // namespace

DayHeaderBar::DayHeaderBar(QWidget* parent) : QWidget(parent) {
    QFont small = font();
    small.setPointSizeF(8.25);
    setFont(small);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the row that is being edited
    for (int d = 1; d <= 7; ++d) {
        auto* icon = new Label(this);
        icon->setObjectName(QStringLiteral("imMemo(%1)").arg(d));
        imMemo.Put(d, *icon);
    }
}

bool DayHeaderBar::IsWide() const {
    return fontMetrics().horizontalAdvance(QStringLiteral("22 Dec,1997 ")) <= width() / 7;
}

QRect DayHeaderBar::Column(int day) const {
    const int left = width() * (day - 1) / 7;
    return {left, 0, width() * day / 7 - left, height()};
}

void DayHeaderBar::PlaceMemos() {
    for (int d = 1; d <= 7; ++d) {
        const QRect column = Column(d);
        imMemo[d].setGeometry(column.left() + 4, (height() - IconSize) / 2, IconSize, IconSize);
    }
}

int DayHeaderBar::Selected() const {
    for (int d = 1; d <= 7; ++d)
        if (columns_[d].selected) return d;
    return 0;
}

void DayHeaderBar::Choose(int day) {
    if (day >= 1 && day <= 7 && day != Selected() && onDay) onDay(day);
}

Parted::Part DayHeaderBar::PartAt(int index) const {
    const HeaderColumn& column = columns_[index + 1];
    return {column.weekday + " " + column.date, Column(index + 1), column.selected};
}

/// Assistive tools follow the tab that is chosen.
void DayHeaderBar::TellSelection() {
    for (const auto type : {QAccessible::Selection, QAccessible::Focus}) {
        if (type == QAccessible::Focus && !hasFocus()) continue;
        QAccessibleEvent event(this, type);
        event.setChild(Selected() - 1);
        QAccessible::updateAccessibility(&event);
    }
}

void DayHeaderBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        return Choose(Selected() - 1);
    case Qt::Key_Right:
        return Choose(Selected() + 1);
    case Qt::Key_Home:
        return Choose(1);
    case Qt::Key_End:
        return Choose(7);
    default:
        QWidget::keyPressEvent(event);
    }
}

void DayHeaderBar::Show(const std::array<HeaderColumn, 8>& columns) {
    const int before = Selected();
    columns_ = columns;
    for (int d = 1; d <= 7; ++d) {
        imMemo[d].setPixmap(MemoIcon(columns_[d].memo, devicePixelRatioF()));
        imMemo[d].setVisible(memos_);
        imMemo[d].setToolTip(columns_[d].memo ? QString() : QStringLiteral("No memo for this day"));
        imMemo[d].setAccessibleName(ToQString("Memo of " + columns_[d].weekday));
        if (columns_[d].selected)
            setAccessibleDescription(ToQString(columns_[d].weekday + " " + columns_[d].date));
    }
    update();
    if (Selected() != before) TellSelection();
}

void DayHeaderBar::HideMemos() {
    memos_ = false;
}

void DayHeaderBar::resizeEvent(QResizeEvent*) {
    PlaceMemos();
}

void DayHeaderBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    for (int d = 1; d <= 7; ++d)
        if (Column(d).contains(event->position().toPoint())) return Choose(d);
}

/// "20-Nov-26   week 47", with the shorter "(47)" where the column is narrow.
QString DayHeaderBar::DateAndWeek(const HeaderColumn& column, int room) const {
    QString date = ToQString(column.date);
    if (column.weekNumber.empty()) return date;
    const QString number = ToQString(column.weekNumber);
    QString whole = date + QStringLiteral("   week ") + number;
    if (fontMetrics().horizontalAdvance(whole) <= room) return whole;
    return date + QStringLiteral(" (") + number + QLatin1Char(')');
}

void DayHeaderBar::PaintColumn(QPainter& painter, int day) const {
    const HeaderColumn& column = columns_[day];
    const QRect box = Column(day);
    painter.fillRect(box, ToColor(column.selected ? QBColor(9) : LightBlue));
    painter.setPen(ToColor(Silver));
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    painter.setPen(column.selected ? Qt::white : Qt::black);
    const int line = fontMetrics().height();
    const int top = (height() - 2 * line) / 2;
    const QRect text = box.adjusted(memos_ ? IconSize + 6 : 2, 0, -2, 0);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(QRect(text.left(), top, text.width(), line), Qt::AlignCenter, ToQString(column.weekday));
    painter.setFont(font());
    painter.drawText(QRect(text.left(), top + line, text.width(), line), Qt::AlignCenter,
                     DateAndWeek(column, text.width()));
    if (!column.selected || !hasFocus()) return;
    painter.setPen(QPen(Qt::white, 1, Qt::DotLine));
    painter.drawRect(box.adjusted(2, 2, -3, -3));
}

void DayHeaderBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int d = 1; d <= 7; ++d) PaintColumn(painter, d);
}

} // namespace tvx::qt
