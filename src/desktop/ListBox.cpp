#include "desktop/ListBox.h"

#include "desktop/Scale.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleHints>
#include <QTimer>

namespace tvx::qt {

namespace {

/// Swallows the second press of a double click, and its release, wherever it lands. Lives as long as one can
/// come.
class SecondPress : public QObject {
  public:
    explicit SecondPress(QPoint first) : QObject(qApp), first_(first) {
        qApp->installEventFilter(this);
        QTimer::singleShot(QGuiApplication::styleHints()->mouseDoubleClickInterval(), this, [this] {
            if (!held_) deleteLater();
        });
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (!object->isWidgetType()) return false;
        const QEvent::Type type = event->type();
        const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
        if (press && IsSecond(*static_cast<QMouseEvent*>(event))) return held_ = true;
        if (!held_ || type != QEvent::MouseButtonRelease) return false;
        qApp->removeEventFilter(this);
        deleteLater();
        return true;
    }

  private:
    bool IsSecond(const QMouseEvent& event) const {
        const int distance = (event.globalPosition().toPoint() - first_).manhattanLength();
        return event.button() == Qt::LeftButton &&
               distance <= QGuiApplication::styleHints()->mouseDoubleClickDistance();
    }

    QPoint first_;
    bool held_ = false;
};

} // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { Choose(item); });
}

void ListBox::Fill(const std::vector<std::pair<std::string, int>>& rows) {
    clear();
    for (const auto& [text, number] : rows) {
        auto* item = new QListWidgetItem(ToQString(text), this);
        item->setData(Qt::UserRole, number);
    }
    setAccessibleDescription(rows.empty() ? ToQString(beginning_) : QString());
}

std::optional<int> ListBox::ItemData() const {
    const QListWidgetItem* item = currentItem();
    if (item == nullptr) return std::nullopt;
    return item->data(Qt::UserRole).toInt();
}

void ListBox::Choose(const QListWidgetItem* item) {
    if (item != nullptr && onChoose) onChoose(item->data(Qt::UserRole).toInt());
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint place = event->globalPosition().toPoint();
    const QPointer<ListBox> self(this);
    QListWidget::mouseReleaseEvent(event);
    if (self == nullptr || !isVisible()) new SecondPress(place);
}

void ListBox::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() > 0 || beginning_.empty()) return;
    QPainter painter(viewport());
    constexpr int Gap = 8;
    painter.drawText(viewport()->rect().adjusted(Gap, Gap, -Gap, -Gap), Qt::TextWordWrap,
                     ToQString(beginning_));
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentItem() != nullptr && onChoose)
        Choose(currentItem());
    else
        QListWidget::keyPressEvent(event);
}

} // namespace tvx::qt
