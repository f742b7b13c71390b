// What a person without a mouse, or without eyes, meets on a form; and texts that do not fit.
#pragma once

#include <QWidget>

#include <string>
#include <vector>

namespace tvx::test {

/// Names of the controls that the Tab key reaches, from the one in focus on, until it comes round.
std::vector<std::string> TabOrder(QWidget& form);

/// What is wrong, one line each: visible controls for input that have no name for assistive tools, and
/// letters that work two visible controls at once. "" when nothing is.
std::string Obstacles(QWidget& form);

/// Controls that can take the focus, shown or hidden, and have no name of their own for assistive tools, one
/// line each: the class, and the designer name where there is one. A frame's title names no box in it.
std::string Nameless(QWidget& form);

/// Visible labels, buttons and titles whose text does not fit, one line each.
std::string CutTexts(QWidget& form);

/// What holds other controls and has no name for assistive tools, nor a title, one line each.
std::string NamelessHolders(QWidget& form);

/// What assistive tools call a control.
std::string SpokenName(QWidget& control);

/// Types characters of any script into a control, one key each.
void TypeAny(QWidget& control, const std::string& text);
/// Pastes a text into a control from the clipboard, by key.
void Paste(QWidget& control, const std::string& text);
/// Drops a text on the middle of a control.
void Drop(QWidget& control, const std::string& text);
/// Enters a text at once, as an input method does.
void Compose(QWidget& control, const std::string& text);

/// Moves the mouse onto a control, or off it.
void Hover(QWidget& control);
void Unhover(QWidget& control);

} // namespace tvx::test
