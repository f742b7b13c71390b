// Captions of buttons, menus and frames.
#pragma once

#include <QString>

#include <string>

namespace tvx::qt {

/// The caption of a button, menu or frame that shows a text as it stands, ampersands included.
QString PlainCaption(const std::string& text);

} // namespace tvx::qt
