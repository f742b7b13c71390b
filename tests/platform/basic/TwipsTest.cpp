#include "platform/basic/Twips.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(Twips, come_fifteen_to_a_pixel_at_96_dots_an_inch) {
    EXPECT_EQ(TwipsPerInch / 96, 15);
}

TEST(TwipsBox, measures_from_the_edge_inside_to_the_edge_outside) {
    constexpr TwipsBox box{.left = 100, .top = 20, .right = 400, .bottom = 25};
    EXPECT_EQ(box.Width(), 300);
    EXPECT_EQ(box.Height(), 5);
}

} // namespace
} // namespace tvx
