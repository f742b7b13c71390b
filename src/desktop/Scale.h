// Twips on a screen: the one place where measures become pixels.
#pragma once

#include "platform/basic/Palette.h"
#include "platform/basic/Twips.h"

#include <QColor>
#include <QRectF>
#include <QString>

#include <string>

class QPaintDevice;
class QWidget;

namespace tvx::qt {

/// Logical pixels of a measure, rounded; by the logical resolution of the main screen.
int Pixels(Twips twips);
/// Twips of a place in logical pixels.
Twips ToTwips(double pixels);

/// A box in logical pixels whose edges fall on device pixels of `device`, so that it is sharp at any scale.
QRectF SharpRect(const TwipsBox& box, const QPaintDevice& device);

/// A colour number; the two names of desktop colours give the palette's.
QColor ToColor(Colour colour);

inline QString ToQString(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}
inline std::string FromQString(const QString& text) {
    return text.toStdString();
}

} // namespace tvx::qt
