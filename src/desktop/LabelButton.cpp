#include "desktop/LabelButton.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace tvx::qt {

LabelButton::LabelButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the row that is being edited
}

void LabelButton::SetColours(Colour text, Colour back) {
    if (text == text_ && back == back_) return;
    text_ = text;
    back_ = back;
    update();
}

void LabelButton::SetChosenColours(Colour text, Colour back) {
    chosenText_ = text;
    chosenBack_ = back;
    update();
}

QSize LabelButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 16 + (icon().isNull() ? 0 : iconSize().width() + 4),
            fontMetrics().height() + 6};
}

void LabelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool chosen = isCheckable() && isChecked();
    QColor back = ToColor(chosen ? chosenBack_ : back_);
    if (underMouse() && isEnabled() && !chosen) back = back.darker(106);
    if (isDown()) back = back.darker(115);
    painter.fillRect(rect(), back);
    painter.setPen(ToColor(Silver).darker(110));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    QColor text = ToColor(chosen ? chosenText_ : text_);
    if (!isEnabled()) text = palette().color(QPalette::Disabled, QPalette::ButtonText);
    painter.setPen(text);
    const int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
    if (icon().isNull())
        painter.drawText(rect(), flags, this->text());
    else
        icon().paint(&painter, rect().adjusted(3, 3, -3, -3), Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(2, 2, -2, -2);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void LabelButton::enterEvent(QEnterEvent* event) {
    update();
    QPushButton::enterEvent(event);
}

void LabelButton::leaveEvent(QEvent* event) {
    update();
    QPushButton::leaveEvent(event);
}

} // namespace tvx::qt
