#include "platform/basic/Palette.h"

#include <gtest/gtest.h>

#include <array>

namespace tvx {
namespace {

using Parts = std::array<unsigned, 3>; // red, green, blue

Parts PartsOf(Colour colour) {
    return {RedOf(colour), GreenOf(colour), BlueOf(colour)};
}

TEST(Palette, has_red_in_the_lowest_byte) {
    EXPECT_EQ(RGB(255, 0, 0), 255U);
    EXPECT_EQ(RGB(255, 255, 0), 65535U);
    EXPECT_EQ(RGB(0, 0, 255), 0xFF0000U);
    EXPECT_EQ(RGB(1, 2, 3), 0x030201U);
}

TEST(Palette, takes_a_colour_apart) {
    EXPECT_EQ(PartsOf(13420030), (Parts{254, 197, 204}));
    EXPECT_EQ(PartsOf(DayOffShade), (Parts{254, 197, 204}));
    EXPECT_EQ(PartsOf(LightBlue), (Parts{222, 238, 243}));
    EXPECT_EQ(PartsOf(LightGreen), (Parts{199, 255, 177}));
    EXPECT_EQ(PartsOf(Yellow), (Parts{255, 255, 0}));
    EXPECT_EQ(PartsOf(Red), (Parts{255, 0, 0}));
    EXPECT_EQ(PartsOf(Silver), (Parts{192, 192, 192}));
}

TEST(Palette, marks_colours_of_the_desktop_by_the_highest_bit) {
    EXPECT_EQ(WindowText, 0x80000008U);
    EXPECT_EQ(ButtonFace, 0x8000000FU);
}

TEST(QBColor, has_sixteen_colours) {
    constexpr Parts palette[] = {{0, 0, 0},       {0, 0, 128},   {0, 128, 0},   {0, 128, 128},
                                 {128, 0, 0},     {128, 0, 128}, {128, 128, 0}, {192, 192, 192},
                                 {128, 128, 128}, {0, 0, 255},   {0, 255, 0},   {0, 255, 255},
                                 {255, 0, 0},     {255, 0, 255}, {255, 255, 0}, {255, 255, 255}};
    for (int i = 0; i < 16; ++i) EXPECT_EQ(PartsOf(QBColor(i)), palette[i]) << i;
}

TEST(QBColor, is_black_outside_the_palette) {
    EXPECT_EQ(QBColor(-1), QBColor(0));
    EXPECT_EQ(QBColor(16), QBColor(0));
}

} // namespace
} // namespace tvx
