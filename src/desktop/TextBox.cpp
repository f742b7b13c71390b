#include "desktop/TextBox.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <algorithm>
#include <memory>
#include <utility>

namespace tvx::qt {
namespace {

bool IsControl(char32_t code) {
    return code < U' ' || code == 0x7F;
}

} // namespace

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

} // namespace tvx::qt
