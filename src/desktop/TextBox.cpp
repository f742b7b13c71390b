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
#include <array>
#include <memory>
#include <utility>

namespace tvx::qt {
namespace {

bool IsControl(char32_t code) {
    return code < U' ' || code == 0x7F;
}

/// Keys that take something out of a text, or bring back what was.
bool Removes(const QKeyEvent& event) {
    static constexpr std::array Removals{
        QKeySequence::Undo,
        QKeySequence::Redo,
        QKeySequence::Cut,
        QKeySequence::Delete,
        QKeySequence::DeleteStartOfWord,
        QKeySequence::DeleteEndOfWord,
        QKeySequence::DeleteEndOfLine,
        QKeySequence::DeleteCompleteLine,
        QKeySequence::Backspace,
    };
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete ||
           std::any_of(Removals.begin(), Removals.end(), [&](auto key) { return event.matches(key); });
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {
    setMouseTracking(true);
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (onEdited) onEdited();
    });
}

bool TextBox::Settle() {
    if (!rest || rest()) return true;
    clear();
    if (refuse) refuse();
    setFocus(Qt::OtherFocusReason);
    return false;
}

bool TextBox::MayChange() const {
    return !isReadOnly() && (!gate || gate());
}

void TextBox::SetFocusColours(Colour focused, Colour resting) {
    focused_ = focused;
    resting_ = resting;
    ShowGround(hasFocus());
}

void TextBox::Mark(const std::string& why) {
    QPalette colours = palette();
    colours.setColor(QPalette::Text, ToColor(why.empty() ? WindowText : QBColor(4)));
    setPalette(colours);
    setAccessibleDescription(ToQString(why));
    setToolTip(ToQString(why));
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

/// The characters of a text that the rule lets through, as many as there is room for.
QString TextBox::Filtered(const QString& text) {
    const qsizetype room = Room();
    for (const auto c : text.toUcs4()) {
        const int asked = static_cast<int>(c);
        const auto code = static_cast<char32_t>(rule && !IsControl(c) ? rule(asked) : asked);
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
    if (!MayChange()) return;
    insert(Filtered(text));
    if (onKeyUp) onKeyUp();
}

/// Keys that are commands rather than characters. True when the key is dealt with.
bool TextBox::HandleCommandKey(QKeyEvent& event) {
    const bool up = event.key() == Qt::Key_Up;
    if (event.matches(QKeySequence::Paste))
        Paste(QApplication::clipboard()->text());
    else if (onVerticalArrow && (up || event.key() == Qt::Key_Down)) {
        if (Settle()) onVerticalArrow(up ? -1 : 1);
    } else if (onEnter && IsEnter(event)) {
        if (Settle()) onEnter();
    } else
        return Removes(event) && !MayChange();
    return true;
}

void TextBox::Type(QKeyEvent& event) {
    const auto typed = event.text().toUcs4();
    // Some keyboards write their third characters with Ctrl and Alt together.
    const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
    const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
    if ((control && !alt) || typed.isEmpty() || IsControl(static_cast<char32_t>(typed[0])))
        return QLineEdit::keyPressEvent(&event);
    if (alt && !control) return event.ignore(); // a letter of the menus, or of nothing
    event.accept();
    if (!MayChange()) return;
    if (typed.size() == 1)
        TypeCharacter(event, static_cast<int>(typed[0]));
    else
        insert(Filtered(event.text())); // a key may write a letter and its accent
}

void TextBox::TypeCharacter(QKeyEvent& event, int code) {
    const auto taken = static_cast<char32_t>(rule ? rule(code) : code);
    if (taken < U' ') {
        if (onRefused) onRefused(code);
        return;
    }
    if (Room() < (taken > 0xFFFF ? 2 : 1)) return;
    QKeyEvent passed(event.type(), event.key(), event.modifiers(), QString::fromUcs4(&taken, 1));
    QLineEdit::keyPressEvent(&passed);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly())
        QLineEdit::keyPressEvent(event);
    else if (HandleCommandKey(*event))
        event->accept();
    else
        Type(*event);
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
    if (rest && !rest() && onUnsettled) onUnsettled();
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
    const bool writes = !event->preeditString().isEmpty() || !event->commitString().isEmpty() ||
                        event->replacementLength() > 0;
    if (isReadOnly() || (writes && !composing_ && !MayChange())) {
        event->ignore();
        return;
    }
    composing_ = !event->preeditString().isEmpty();
    if (event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(Filtered(event->commitString()), event->replacementStart(),
                             event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
    if (onKeyUp) onKeyUp();
}

void TextBox::contextMenuEvent(QContextMenuEvent* event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    const auto take = [&](const char* caption, auto change) {
        for (QAction* action : menu->actions()) {
            if (!action->text().startsWith(QLineEdit::tr(caption))) continue;
            action->disconnect(SIGNAL(triggered(bool)));
            connect(action, &QAction::triggered, this, change);
        }
    };
    const auto guarded = [this](auto change) {
        return [this, change] {
            if (!MayChange()) return;
            change();
            if (onKeyUp) onKeyUp();
        };
    };
    take("&Paste", [this] { Paste(QApplication::clipboard()->text()); });
    take("&Undo", guarded([this] { undo(); }));
    take("&Redo", guarded([this] { redo(); }));
    take("Cu&t", guarded([this] { cut(); }));
    take("Delete", guarded([this] { del(); }));
    menu->exec(event->globalPos());
}

} // namespace tvx::qt
