// Working real forms on the offscreen platform: finding controls, keys, drags, modal windows, pictures.
#pragma once

#include "desktop/Form.h"

#include <QTest>

#include <functional>
#include <string>

namespace tvx::test {

/// The control of a designer name, "Text1(3)". Fails the test when the form has none of that kind.
template <typename T = QWidget>
T& Find(const QWidget& form, const std::string& name) {
    T* control = form.findChild<T*>(qt::ToQString(name));
    if (control == nullptr)
        throw std::runtime_error("no control " + name + " on " + form.objectName().toStdString());
    return *control;
}

void Click(QWidget& form, const std::string& name);
/// Chooses a menu entry by its name; fails the test when it is disabled or hidden.
void Choose(QWidget& form, const std::string& entry);
/// Types text, or one key, into the control that has the focus.
void Type(QWidget& form, const std::string& text);
void Press(QWidget& form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The designer name of the control that has the focus of a form.
std::string FocusOf(const QWidget& form);

/// The pixel of a place in twips.
QPoint At(Twips x, Twips y);
/// Presses the left button, moves in steps, and releases, on a surface; places in twips.
void Drag(QWidget& surface, TwipsPoint from, TwipsPoint to, int steps = 6);
/// The same without the release.
void DragAndHold(QWidget& surface, TwipsPoint from, TwipsPoint to, int steps = 6);

/// Moves on to a place with the left button held.
void DragOn(QWidget& surface, TwipsPoint to);

/// Fails tests that wait for a window in vain, or leave one waiting. Called once, before the tests run.
void WatchOverTests();

/// Does something with the next modal window of that name as soon as it shows; the deed must close it. The
/// test fails when the window has not come before the test ends.
void WhenShown(const std::string& window, std::function<void(QWidget&)> deed);

/// Writes a picture of a form to the build folder's pictures, and to "name@2x.png" at 200 per cent.
void TakePicture(QWidget& form, const std::string& name);

/// The colour of a pixel of a control, &HBBGGRR, at a place in twips.
Colour ColourAt(QWidget& control, Twips x, Twips y);

} // namespace tvx::test
