#include "desktop/ListBox.h"

#include "desktop/Scale.h"

#include <QKeyEvent>

namespace tvx::qt {

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
}

std::optional<int> ListBox::ItemData() const {
    const QListWidgetItem* item = currentItem();
    if (item == nullptr) return std::nullopt;
    return item->data(Qt::UserRole).toInt();
}

void ListBox::Choose(const QListWidgetItem* item) {
    if (item != nullptr && onChoose) onChoose(item->data(Qt::UserRole).toInt());
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && currentItem() != nullptr && onChoose)
        Choose(currentItem());
    else
        QListWidget::keyPressEvent(event);
}

} // namespace tvx::qt
