#include "desktop/Controls.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <utility>

namespace tvx::qt {
namespace {

bool IsControl(char32_t code) {
    return code < U' ' || code == 0x7F;
}

} // namespace

QString PlainCaption(const std::string& text) {
    return ToQString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

// ---- Label ----

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
    if (onPress)
        onPress(event->button());
    else
        QLabel::mousePressEvent(event);
}

void Label::mouseMoveEvent(QMouseEvent* event) {
    if (onHover) onHover();
    QLabel::mouseMoveEvent(event);
}

// ---- LabelButton ----

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

QSize LabelButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 16 + (icon().isNull() ? 0 : iconSize().width() + 4),
            fontMetrics().height() + 6};
}

void LabelButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool chosen = isCheckable() && isChecked();
    QColor back = ToColor(chosen ? QBColor(9) : back_);
    if (underMouse() && isEnabled() && !chosen) back = back.darker(106);
    if (isDown()) back = back.darker(115);
    painter.fillRect(rect(), back);
    painter.setPen(ToColor(Silver).darker(110));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    QColor text = ToColor(chosen ? QBColor(15) : text_);
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

// ---- TextBox ----

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
    setMouseTracking(true);
}

void TextBox::SetFocusColours(Colour focused, Colour resting) {
    focused_ = focused;
    resting_ = resting;
    ShowGround(hasFocus());
}

void TextBox::ShowGround(bool focused) {
    const std::optional<Colour>& ground = focused ? focused_ : resting_;
    if (!ground) return;
    QPalette colours = palette();
    colours.setColor(QPalette::Base, ToColor(*ground));
    colours.setColor(QPalette::Text, Qt::black);
    setPalette(colours);
}

void TextBox::SetText(const std::string& text) {
    const QString wanted = ToQString(text);
    if (wanted != this->text()) setText(wanted);
}

std::string TextBox::TextSoFar() const {
    QString before = text();
    if (hasSelectedText()) before.remove(selectionStart(), selectionLength());
    return FromQString(before + arriving_);
}

/// The characters of a text that the filter lets through, as many as there is room for.
QString TextBox::Filtered(const QString& text) {
    const std::function<int(int)>& filter = pasteFilter ? pasteFilter : keyFilter;
    const qsizetype room = Room();
    for (const auto c : text.toUcs4()) {
        const int asked = static_cast<int>(c);
        const auto code = static_cast<char32_t>(filter && !IsControl(c) ? filter(asked) : asked);
        if (IsControl(code)) continue;
        const QString character = QString::fromUcs4(&code, 1);
        if (arriving_.size() + character.size() > room) break;
        arriving_ += character;
    }
    return std::exchange(arriving_, QString());
}

/// Characters that can still be entered; what is selected makes room.
int TextBox::Room() const {
    if (typingLimit_ == 0) return 32767;
    return std::max(0, typingLimit_ - static_cast<int>(text().size() - selectedText().size()));
}

void TextBox::Paste(const QString& text) {
    if (isReadOnly()) return;
    insert(Filtered(text));
    if (onKeyUp) onKeyUp();
}

/// Keys that are commands rather than characters. True when the key is dealt with.
bool TextBox::HandleCommandKey(QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste)) {
        Paste(QApplication::clipboard()->text());
        return true;
    }
    const bool up = event.key() == Qt::Key_Up;
    if (onVerticalArrow && (up || event.key() == Qt::Key_Down)) {
        onVerticalArrow(up ? -1 : 1);
        return true;
    }
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        const bool passes = !keyFilter || keyFilter(key::Enter) == key::Enter;
        if (passes && onEnter) onEnter();
        return !passes || onEnter;
    }
    if (event.key() == Qt::Key_Backspace && keyFilter) return keyFilter(key::Backspace) != key::Backspace;
    return false;
}

void TextBox::TypeCharacter(QKeyEvent& event) {
    const auto typed = event.text().toUcs4();
    const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    if (command || typed.size() != 1 || IsControl(static_cast<char32_t>(typed[0]))) {
        QLineEdit::keyPressEvent(&event);
        return;
    }
    const auto code =
        static_cast<char32_t>(keyFilter ? keyFilter(static_cast<int>(typed[0])) : static_cast<int>(typed[0]));
    event.accept();
    if (code < 32 || Room() < (code > 0xFFFF ? 2 : 1)) return;
    QKeyEvent passed(event.type(), event.key(), event.modifiers(), QString::fromUcs4(&code, 1));
    QLineEdit::keyPressEvent(&passed);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly())
        QLineEdit::keyPressEvent(event);
    else if (HandleCommandKey(*event))
        event->accept();
    else
        TypeCharacter(*event);
}

void TextBox::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    if (onKeyUp) onKeyUp();
}

void TextBox::focusInEvent(QFocusEvent* event) {
    ShowGround(true);
    QLineEdit::focusInEvent(event);
    if (onFocus) onFocus();
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A box or another program in front leaves the place of work marked.
    if (event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason) return;
    ShowGround(false);
    if (onLeave) onLeave();
}

void TextBox::mouseMoveEvent(QMouseEvent* event) {
    if (onHover) onHover();
    QLineEdit::mouseMoveEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    const QClipboard* clipboard = QApplication::clipboard();
    if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
        deselect();
        setCursorPosition(cursorPositionAt(event->pos()));
        Paste(clipboard->text(QClipboard::Selection));
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void TextBox::dropEvent(QDropEvent* event) {
    if (!event->mimeData()->hasText()) return;
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    Paste(event->mimeData()->text());
    event->acceptProposedAction();
}

void TextBox::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    if (event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(Filtered(event->commitString()), event->replacementStart(),
                             event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
    if (onKeyUp) onKeyUp();
}

void TextBox::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    for (QAction* action : menu->actions())
        if (action->text().startsWith(QLineEdit::tr("&Paste"))) {
            action->disconnect(SIGNAL(triggered(bool)));
            connect(action, &QAction::triggered, this, [this] { Paste(QApplication::clipboard()->text()); });
        }
    menu->exec(event->globalPos());
}

// ---- ListBox ----

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

// ---- PictureBox ----

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::UpdateBox(const TwipsBox& box) {
    update(SharpRect(box, *this).toAlignedRect());
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (onPaint) onPaint(painter, event->region());
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (onMouseDown)
        onMouseDown(event->button(), {ToTwips(event->position().x()), ToTwips(event->position().y())});
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (onMouseMove)
        onMouseMove(event->buttons(), {ToTwips(event->position().x()), ToTwips(event->position().y())});
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (onMouseUp)
        onMouseUp(event->button(), {ToTwips(event->position().x()), ToTwips(event->position().y())});
}

void PictureBox::leaveEvent(QEvent* event) {
    if (onMouseLeave) onMouseLeave();
    QWidget::leaveEvent(event);
}

// ---- FloodPanel ----

FloodPanel::FloodPanel(QWidget* parent) : QWidget(parent) {}

void FloodPanel::Flood(int percent) {
    percent_ = percent;
    update();
}

void FloodPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.fillRect(0, 0, width() * percent_ / 100, height(), ToColor(QBColor(9)));
    painter.setPen(ToColor(QBColor(8)));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace tvx::qt
