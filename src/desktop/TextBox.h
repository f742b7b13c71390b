// A line of text that asks before it changes, and that comes to rest when it is left.
#pragma once

#include "desktop/Scale.h"

#include <QLineEdit>

#include <functional>
#include <optional>
#include <string>

namespace tvx::qt {

/// What a person does to the text, by keys, paste, drop, input method, the menu, Delete, Cut or Undo, passes
/// one gate and one rule. What the program fills in passes neither.
class TextBox : public QLineEdit {
    Q_OBJECT
  public:
    explicit TextBox(QWidget* parent = nullptr);

    /// May the text change now? Asked before every change, removal included. May show a box.
    std::function<bool()> gate;
    /// Takes the code of a character that comes in and gives the one to enter; 0 drops it. Shows no box.
    std::function<int(int)> rule;
    /// A typed character was dropped by the rule. May show a box.
    std::function<void(int)> onRefused;
    /// The person has changed the text.
    std::function<void()> onEdited;

    /// Brings the text into the form in which it stands when nobody types, and shows no box. False when it
    /// cannot stand so. Asked when the box is left.
    std::function<bool()> rest;
    /// Tells why the text cannot stand. The box is empty by then, and has the focus afterwards.
    std::function<void()> refuse;
    /// The box was left with a text that cannot stand. The form sees to it.
    std::function<void()> onUnsettled;

    /// Up (-1) and Down (1), when set, once the box is settled.
    std::function<void(int)> onVerticalArrow;
    /// Enter, when set, once the box is settled.
    std::function<void()> onEnter;
    std::function<void()> onFocus;
    std::function<void()> onHover;
    /// A key was released.
    std::function<void()> onKeyUp;

    /// Settles the box: false when its text could not stand, was told of and is gone.
    bool Settle();

    /// How many characters can be entered; text that the program sets may be longer. 0 is no limit.
    void SetTypingLimit(int characters) { typingLimit_ = characters; }
    /// Marks the text, in a colour and to assistive tools, as one that `why` tells of; "" takes the mark
    /// away.
    void Mark(const std::string& why);
    /// Ground with and without the focus.
    void SetFocusColours(Colour focused, Colour resting);
    void SetText(const std::string& text);
    std::string Text() const { return FromQString(text()); }
    /// What the next character comes to, for rules that look at the whole: the text but for its selection,
    /// with what of a paste has been let through so far.
    std::string TextSoFar() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    bool MayChange() const;
    void Paste(const QString& text);
    QString Filtered(const QString& text);
    bool HandleCommandKey(QKeyEvent& event);
    void Type(QKeyEvent& event);
    void TypeCharacter(QKeyEvent& event, int code);
    void ShowGround(bool focused);
    int Room() const;

    int typingLimit_ = 0;
    bool composing_ = false; // an input method is at work, and the gate has let it in
    QString arriving_;       // of a paste, while its characters are asked for
    std::optional<Colour> focused_;
    std::optional<Colour> resting_;
};

} // namespace tvx::qt
