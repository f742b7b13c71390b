// A line of text that asks before it changes.
#pragma once

#include "desktop/Scale.h"

#include <QLineEdit>

#include <functional>
#include <optional>
#include <string>

namespace tvx::qt {

/// Codes that a key filter sees for keys that write nothing.
namespace key {
constexpr int Backspace = 8;
constexpr int Enter = 13;
} // namespace key

/// A line of text whose every way in, keys, paste, drop, input method, goes through one filter.
class TextBox : public QLineEdit {
    Q_OBJECT
  public:
    explicit TextBox(QWidget* parent = nullptr);

    /// Takes the code of a typed character and gives the one to enter; 0 drops it. Backspace and Enter are
    /// asked too. May show a box.
    std::function<int(int)> keyFilter;
    /// The same for text that comes in at once; without it `keyFilter` is used. Must not show a box.
    std::function<int(int)> pasteFilter;
    /// Up (-1) and Down (1), when set.
    std::function<void(int)> onVerticalArrow;
    /// Enter, after the filter let it pass or when there is no filter.
    std::function<void()> onEnter;
    std::function<void()> onFocus;
    std::function<void()> onLeave;
    std::function<void()> onHover;
    /// A key was released, the text may have changed.
    std::function<void()> onKeyUp;

    /// How many characters can be entered; text that the program sets may be longer. 0 is no limit.
    void SetTypingLimit(int characters) { typingLimit_ = characters; }
    /// Ground with and without the focus.
    void SetFocusColours(Colour focused, Colour resting);
    void SetText(const std::string& text);
    std::string Text() const { return FromQString(text()); }
    /// What the next character comes to, for filters that look at the whole: the text but for its selection,
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
    void Paste(const QString& text);
    QString Filtered(const QString& text);
    bool HandleCommandKey(QKeyEvent& event);
    void TypeCharacter(QKeyEvent& event);
    void ShowGround(bool focused);
    int Room() const;

    int typingLimit_ = 0;
    QString arriving_; // of a paste, while its characters are asked for
    std::optional<Colour> focused_;
    std::optional<Colour> resting_;
};

} // namespace tvx::qt
