// What every screen is: a window with a designer name, perhaps a menu bar, and a face on which named controls
// stand.
#pragma once

#include "desktop/Controls.h"
#include "desktop/Options.h"
#include "platform/ports/Ports.h"

#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <concepts>
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

class QAbstractButton;
class QEventLoop;

namespace tvx::qt {

class Form : public QWidget {
    Q_OBJECT
  public:
    /// `designerName` is the window's objectName; `owner` is the form that it opens over, nullptr for the
    /// first.
    Form(Ports& ports, const char* designerName, Form* owner);
    ~Form() override;

    /// Opens the form over the others and returns when it is hidden or unloaded, or did not open. The owner
    /// has the front again then.
    void ShowModal();
    /// Opens the form beside the others. False when it did not open.
    bool ShowModeless();
    /// Closes the form without asking MayUnload.
    void Unload();

    /// Moves the form to the middle of the screen, as the port measures it.
    void CenterForm();

    /// Finds a control by its designer name, "Text1(3)"; nullptr when there is none of that kind.
    template <typename T>
    T* Find(const std::string& name) const {
        return findChild<T*>(ToQString(name));
    }

  protected:
    /// Loads what the form shows, before it shows, and not again while it is only hidden. On false it does
    /// not open; an error that is let through is told, and keeps it from opening too.
    virtual bool Opened() { return true; }
    /// The form over this one has gone.
    virtual void CameBack() {}
    /// A person wants to close the window. False keeps it open.
    virtual bool MayUnload() { return true; }

    QWidget& Face() { return *face_; }
    QMenuBar& Menus();

    /// Makes a control on the face, or on `parent`, under a designer name and the name that a person would
    /// call it by.
    template <typename T, typename... Arguments>
    T& Add(const char* name, const std::string& accessible, QWidget* parent = nullptr,
           Arguments&&... arguments) {
        auto* control = new T(std::forward<Arguments>(arguments)..., parent != nullptr ? parent : face_);
        Name(*control, name, accessible);
        return *control;
    }
    /// The same for one control of an array.
    template <typename T>
    T& Add(ControlArray<T>& array, const char* name, int index, const std::string& accessible,
           QWidget* parent = nullptr) {
        T& control =
            Add<T>((std::string(name) + "(" + std::to_string(index) + ")").c_str(), accessible, parent);
        array.Put(index, control);
        return control;
    }

    // ---- what forms are built of; captions name their controls ----

    /// What a button does to a text that is being typed, and which key presses it.
    enum class Role {
        Plain,   // acts when every box is settled
        Default, // the same, and Enter presses it
        Cancel,  // acts whatever the boxes hold; Escape presses it
        Aside,   // acts whatever the boxes hold
        Help,    // the same, and F1 presses it
    };
    struct ButtonCommand {
        const char* name;
        const char* caption;
        std::function<void()> act;
        Role role = Role::Plain;
    };

    /// Lays the face out as a column, with the margins and the spacing of every form.
    QVBoxLayout& Column();
    /// A column behind what stands in a row.
    static QVBoxLayout& ColumnIn(QBoxLayout& row);
    /// A row behind what stands in a column.
    static QHBoxLayout& Row(QBoxLayout& column);
    /// A titled frame behind what stands in a column or row. `hint` is that of SetHint, "" for none.
    Frame& AddFrame(const char* name, const std::string& title, QBoxLayout& into,
                    const std::string& hint = {});
    /// A text behind what stands in a column or row.
    Label& AddLabel(const char* name, const std::string& text, QBoxLayout& into, QWidget* parent = nullptr);
    /// A caption and its box, on a new line of a frame that is laid out by such lines. `accessible` names the
    /// box where the caption alone does not.
    template <typename Box = TextBox>
    Box& AddField(const char* name, const std::string& caption, QWidget& frame,
                  const std::string& accessible = {}) {
        QGridLayout& grid = Lines(frame);
        const int line = grid.rowCount();
        auto& label = Add<Label>("", "", &frame);
        label.SetText(caption);
        grid.addWidget(&label, line, 0);
        auto& box = Add<Box>(name, accessible.empty() ? caption : accessible, &frame);
        grid.addWidget(&box, line, 1);
        return box;
    }
    /// The lines of a frame: captions in column 0, boxes in column 1.
    static QGridLayout& Lines(QWidget& frame);
    /// The options of a group, with indexes from `first` on. `columns` lays them out, each column from its
    /// top; 0 leaves that to the caller.
    template <typename Answer>
    void AddOptions(Options<Answer>& options, const char* name, int first,
                    const std::vector<std::string>& captions, QWidget& frame, int columns) {
        int index = first;
        for (const std::string& caption : captions) {
            auto& option = Add(options, name, index++, caption, &frame);
            option.setText(PlainCaption(caption));
        }
        if (columns > 0) LayInColumns(options, frame, columns);
    }
    /// A check box on a new line of a frame that is laid out by such lines.
    QCheckBox& AddCheck(const char* name, const std::string& caption, QWidget& frame, bool checked = false);
    static void LayInColumns(const ControlArray<QRadioButton>& options, QWidget& frame, int columns);
    /// A button behind what stands in a row.
    QPushButton& AddButton(const char* name, const char* caption, QLayout& row, QWidget* parent = nullptr);
    /// The same with what it does.
    QPushButton& AddCommand(const ButtonCommand& command, QBoxLayout& row, QWidget* parent = nullptr);
    /// The row of buttons of a form, those of `left` at its left end and those of `right` at its right.
    void AddCommands(QBoxLayout& column, const std::vector<ButtonCommand>& left,
                     const std::vector<ButtonCommand>& right);
    /// Runs a button's command.
    void OnCommand(QAbstractButton& button, Role role, std::function<void()> act);

    /// Fixes the size in twips and moves the form to the middle of the screen. A measure of 0 is what the
    /// content needs; `width` is the least one then.
    void FixSize(Twips width = 0, Twips height = 0);

    /// Settles the box that was left last and the one in focus. False when a text could not stand: it was
    /// told of, its box is empty and in focus, and nothing may act on it.
    bool Settle();

    /// Places a control on its parent, in twips.
    static void Place(QWidget& control, Twips left, Twips top, Twips width, Twips height);

    /// The button that Enter and the one that Escape presses, unless the control in focus takes the key. A
    /// button in focus takes Enter.
    void SetDefaultButton(QAbstractButton& button) { defaultButton_ = &button; }
    void SetCancelButton(QAbstractButton& button) { cancelButton_ = &button; }
    /// The button that F1 presses.
    void SetHelpButton(QAbstractButton& button) { helpButton_ = &button; }

    /// Gives a control, and what stands on it, a line that tells what it is for.
    void SetHint(QWidget& control, const std::string& hint);
    /// The line of the control that the mouse or the keyboard has come to; "" when that has none.
    virtual void ShowHint(const std::string& hint) { static_cast<void>(hint); }

    /// Wraps an event handler: an error that it lets through is shown, and ends this action only.
    template <typename Handler>
    auto Guarded(Handler handler) {
        return [ this, handler ](
            auto&&... arguments) mutable requires std::invocable<Handler&, decltype(arguments)...> {
            using Result = std::invoke_result_t<Handler&, decltype(arguments)...>;
            try {
                return handler(std::forward<decltype(arguments)>(arguments)...);
            } catch (const std::exception& trouble) {
                ports_.teller.Tell(trouble);
                if constexpr (!std::is_void_v<Result>) return Result{};
            }
        };
    }
    /// Connects a signal of a control to a handler, guarded.
    template <typename Sender, typename Signal, typename Handler>
    void On(Sender& sender, Signal signal, Handler handler) {
        QObject::connect(&sender, signal, this, Guarded(std::move(handler)));
    }

    Ports& ports_;

    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Name(QWidget& control, const char* name, const std::string& accessible);
    bool Open();
    void SettleSoon(TextBox& box);
    void SettleLeft();
    bool IsButtonDown() const;
    QAbstractButton* ButtonOfEnter() const;
    QAbstractButton* ButtonOfKey(int key) const;
    bool OpenMenus();
    std::string HintOf(const QObject* control) const;

    Form* owner_;
    QWidget* face_;
    QMenuBar* menus_ = nullptr;
    QEventLoop* modalLoop_ = nullptr;
    QAbstractButton* defaultButton_ = nullptr;
    QAbstractButton* cancelButton_ = nullptr;
    QAbstractButton* helpButton_ = nullptr;
    std::map<const QObject*, std::string> hints_;
    QMetaObject::Connection focusMoves_;
    QPointer<TextBox> left_; // with a text that cannot stand, which nobody has been told yet
    bool opened_ = false;
    bool unloading_ = false;
};

} // namespace tvx::qt
