// Measures of screens and pages: twips, 1/1440 inch.
#pragma once

#include <cstdint>

namespace tvx {

using Twips = std::int32_t; // 1/1440 inch; 15 to a pixel at 96 dots an inch

constexpr Twips TwipsPerInch = 1440;

/// A rectangle in twips: left and top inside, right and bottom outside.
struct TwipsBox {
    Twips left = 0;
    Twips top = 0;
    Twips right = 0;
    Twips bottom = 0;

    constexpr Twips Width() const { return right - left; }
    constexpr Twips Height() const { return bottom - top; }
    friend bool operator==(const TwipsBox&, const TwipsBox&) = default;
};

struct TwipsPoint {
    Twips x = 0;
    Twips y = 0;

    friend bool operator==(const TwipsPoint&, const TwipsPoint&) = default;
};

} // namespace tvx
