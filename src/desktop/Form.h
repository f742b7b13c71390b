// What every screen is: a window with a designer name, perhaps a menu bar, and a face on which named controls
// stand.
#pragma once

#include "desktop/Controls.h"
#include "platform/ports/Ports.h"

#include <QAction>
#include <QLayout>
#include <QMenuBar>
#include <QPushButton>
#include <QWidget>

#include <concepts>
#include <exception>
#include <map>
#include <string>
#include <type_traits>
#include <utility>

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

    /// Shows the form over the others and returns when it is hidden or unloaded. The owner is activated then.
    void ShowModal();
    /// Shows the form beside the others and activates it.
    void ShowModeless();
    /// Closes the form without asking MayUnload.
    void Unload();

    /// Moves the form to the middle of the screen.
    void CenterForm();

    /// Finds a control by its designer name, "Text1(3)"; nullptr when there is none of that kind.
    template <typename T>
    T* Find(const std::string& name) const {
        return findChild<T*>(ToQString(name));
    }

  protected:
    /// The form has come to the front within the program: first shown, or the form over it has gone.
    virtual void Activated() {}
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

    /// Makes a button, behind the others of a row. Its caption names it.
    QPushButton& AddButton(const char* name, const char* caption, QLayout& row, QWidget* parent = nullptr);

    /// Places a control on its parent, in twips.
    static void Place(QWidget& control, Twips left, Twips top, Twips width, Twips height);

    /// The button that Enter and the one that Escape presses, unless the control in focus takes the key. A
    /// button in focus takes Enter.
    void SetDefaultButton(QAbstractButton& button) { defaultButton_ = &button; }
    void SetCancelButton(QAbstractButton& button) { cancelButton_ = &button; }

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
                TellTrouble(trouble);
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
    static void Name(QWidget& control, const char* name, const std::string& accessible);
    void TellTrouble(const std::exception& trouble);
    void Activate();
    QAbstractButton* ButtonOfEnter() const;
    std::string HintOf(const QObject* control) const;

    Form* owner_;
    QWidget* face_;
    QMenuBar* menus_ = nullptr;
    QEventLoop* modalLoop_ = nullptr;
    QAbstractButton* defaultButton_ = nullptr;
    QAbstractButton* cancelButton_ = nullptr;
    std::map<const QObject*, std::string> hints_;
    QMetaObject::Connection focusMoves_;
    bool unloading_ = false;
};

} // namespace tvx::qt
