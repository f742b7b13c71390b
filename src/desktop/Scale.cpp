#include "desktop/Scale.h"

#include <QGuiApplication>
#include <QPaintDevice>
#include <QPalette>
#include <QScreen>

#include <cmath>

namespace tvx::qt {
namespace {

double DotsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->logicalDotsPerInchX() : 96.0;
}

double PixelsPerTwip() {
    return DotsPerInch() / TwipsPerInch;
}

} // namespace

int Pixels(Twips twips) {
    return static_cast<int>(std::lround(twips * PixelsPerTwip()));
}

Twips ToTwips(double pixels) {
    return static_cast<Twips>(std::floor(pixels / PixelsPerTwip()));
}

QRectF SharpRect(const TwipsBox& box, const QPaintDevice& device) {
    const double ratio = device.devicePixelRatio();
    const double scale = PixelsPerTwip() * ratio;
    const auto edge = [&](Twips twips) { return std::round(twips * scale) / ratio; };
    return {QPointF(edge(box.left), edge(box.top)), QPointF(edge(box.right), edge(box.bottom))};
}

QColor ToColor(Colour colour) {
    if (colour == WindowText) return QGuiApplication::palette().color(QPalette::WindowText);
    if (colour == ButtonFace) return QGuiApplication::palette().color(QPalette::Button);
    return {static_cast<int>(RedOf(colour)), static_cast<int>(GreenOf(colour)),
            static_cast<int>(BlueOf(colour))};
}

} // namespace tvx::qt
