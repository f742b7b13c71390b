// Colours as numbers, red in the lowest byte, and the palette of sixteen.
#pragma once

#include <cstdint>

namespace tvx {

/// A colour: red, above it green, then blue. 0x800000nn is colour nn of the desktop instead.
using Colour = std::uint32_t;

/// Colour from its parts, each 0 to 255.
constexpr Colour RGB(unsigned red, unsigned green, unsigned blue) {
    return red | green << 8 | blue << 16;
}

constexpr unsigned RedOf(Colour colour) {
    return colour & 0xFF;
}
constexpr unsigned GreenOf(Colour colour) {
    return colour >> 8 & 0xFF;
}
constexpr unsigned BlueOf(Colour colour) {
    return colour >> 16 & 0xFF;
}

/// The palette of sixteen: 0 black, 1 blue, 2 green, 3 cyan, 4 red, 5 magenta, 6 brown, 7 light grey, 8 grey,
/// 9 bright blue, 10 bright green, 11 bright cyan, 12 bright red, 13 bright magenta, 14 yellow, 15 white.
/// An index outside 0 to 15 gives black.
constexpr Colour QBColor(int index) {
    constexpr Colour palette[16] = {
        RGB(0, 0, 0),       RGB(0, 0, 128),   RGB(0, 128, 0),   RGB(0, 128, 128),
        RGB(128, 0, 0),     RGB(128, 0, 128), RGB(128, 128, 0), RGB(192, 192, 192),
        RGB(128, 128, 128), RGB(0, 0, 255),   RGB(0, 255, 0),   RGB(0, 255, 255),
        RGB(255, 0, 0),     RGB(255, 0, 255), RGB(255, 255, 0), RGB(255, 255, 255)};
    return index >= 0 && index <= 15 ? palette[index] : palette[0];
}

constexpr Colour LightBlue = RGB(222, 238, 243);  // names, day header, daytype boxes at rest
constexpr Colour LightGreen = RGB(199, 255, 177); // value column of facts that are no figures
constexpr Colour DayOffShade = 13420030;          // RGB 254, 197, 204
constexpr Colour Yellow = 65535;                  // a box that has the focus
constexpr Colour Red = 255;
constexpr Colour Silver = 0xC0C0C0;
constexpr Colour WindowText = 0x80000008; // the desktop's own text colour
constexpr Colour ButtonFace = 0x8000000F; // the desktop's own surface colour

} // namespace tvx
