#include "desktop/Label.h"

#include <QMouseEvent>
#include <QPainter>

namespace tvx::qt {

Label::Label(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
}

void Label::SetText(const std::string& text) {
    const QString wanted = ToQString(text);
    if (wanted == this->text()) return;
    setText(wanted);
    // A label with a name of its own is called by it; what it says must still reach assistive tools.
    if (!accessibleName().isEmpty()) setAccessibleDescription(wanted);
}

void Label::SetColours(Colour text, std::optional<Colour> back) {
    if (text == text_ && back == back_) return;
    text_ = text;
    back_ = back;
    update();
}

void Label::SetAlignment(Qt::Alignment alignment) {
    if (alignment != this->alignment()) setAlignment(alignment);
}

/// The text with an ellipsis where it is too long. Blanks at its end are not shown and need no room.
QString Label::Fitted(int room) const {
    QString shown = text();
    while (shown.endsWith(QLatin1Char(' '))) shown.chop(1);
    return fontMetrics().elidedText(shown, Qt::ElideRight, room);
}

void Label::paintEvent(QPaintEvent* event) {
    if (!pixmap(Qt::ReturnByValue).isNull()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    if (back_) painter.fillRect(rect(), ToColor(*back_));
    const int margin = back_ ? 3 : 0;
    const QRect inside = rect().adjusted(margin, 0, -margin, 0);
    painter.setPen(isEnabled() ? ToColor(text_) : palette().color(QPalette::Disabled, QPalette::WindowText));
    const int flags = static_cast<int>(alignment()) | (wordWrap() ? Qt::TextWordWrap : Qt::TextExpandTabs);
    const bool whole = wordWrap() || text().contains(QLatin1Char('\n'));
    const QString shown = whole ? text() : Fitted(inside.width());
    painter.drawText(inside, flags, shown);
}

void Label::mousePressEvent(QMouseEvent* event) {
    const bool acts = event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (onPress && acts)
        onPress(event->button());
    else
        QLabel::mousePressEvent(event);
}

void Label::mouseMoveEvent(QMouseEvent* event) {
    if (onHover) onHover();
    QLabel::mouseMoveEvent(event);
}

} // namespace tvx::qt
