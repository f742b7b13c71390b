// The controls that screens are made of, and arrays of them under one designer name.
#pragma once

#include "desktop/Scale.h"
#include "platform/basic/Palette.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tvx::qt {

/// The caption of a button, menu or frame that shows a text as it stands, ampersands included.
QString PlainCaption(const std::string& text);

/// Controls that share a designer name and differ by an index, which need not begin at 0.
template <typename T>
class ControlArray {
  public:
    T& operator[](int index) const { return *controls_.at(index); }
    bool Has(int index) const { return controls_.contains(index); }
    void Put(int index, T& control) { controls_[index] = &control; }
    std::size_t Count() const { return controls_.size(); }
    auto begin() const { return controls_.begin(); } // of pairs: index, control
    auto end() const { return controls_.end(); }

  private:
    std::map<int, T*> controls_;
};

/// A text on a coloured ground that repaints only when something about it changed.
class Label : public QLabel {
    Q_OBJECT
  public:
    explicit Label(QWidget* parent = nullptr);

    void SetText(const std::string& text);
    void SetColours(Colour text, std::optional<Colour> back);
    void SetAlignment(Qt::Alignment alignment);

    /// A press on the label, and the mouse passing over it.
    std::function<void(Qt::MouseButton)> onPress;
    std::function<void()> onHover;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    QString Fitted(int room) const;

    Colour text_ = WindowText;
    std::optional<Colour> back_;
};

/// A flat button that looks like a label: chosen ones are white on blue.
class LabelButton : public QPushButton {
    Q_OBJECT
  public:
    explicit LabelButton(QWidget* parent = nullptr);
    void SetColours(Colour text, Colour back);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    Colour text_ = QBColor(0);
    Colour back_ = LightBlue;
};

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

/// A titled frame.
class Frame : public QGroupBox {
    Q_OBJECT
  public:
    explicit Frame(QWidget* parent = nullptr) : QGroupBox(parent) {}
    void SetTitle(const std::string& title) { setTitle(PlainCaption(title)); }
};

/// A list of texts with a number each. A click and Enter both choose a row.
class ListBox : public QListWidget {
    Q_OBJECT
  public:
    explicit ListBox(QWidget* parent = nullptr);

    void Fill(const std::vector<std::pair<std::string, int>>& rows);
    /// The number of the selected row; nothing when none is.
    std::optional<int> ItemData() const;

    std::function<void(int)> onChoose;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Choose(const QListWidgetItem* item);
};

/// A surface that a screen paints; positions of the mouse reach it in twips.
class PictureBox : public QWidget {
    Q_OBJECT
  public:
    explicit PictureBox(QWidget* parent = nullptr);

    std::function<void(QPainter&, const QRegion&)> onPaint;
    std::function<void(Qt::MouseButton, TwipsPoint)> onMouseDown;
    std::function<void(Qt::MouseButtons, TwipsPoint)> onMouseMove;
    std::function<void(Qt::MouseButton, TwipsPoint)> onMouseUp;
    std::function<void()> onMouseLeave;

    /// Repaints a box of the surface.
    void UpdateBox(const TwipsBox& box);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
};

/// A panel that floods from left to right.
class FloodPanel : public QWidget {
    Q_OBJECT
  public:
    explicit FloodPanel(QWidget* parent = nullptr);
    void Flood(int percent);
    int FloodPercent() const { return percent_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int percent_ = 0;
};

} // namespace tvx::qt
