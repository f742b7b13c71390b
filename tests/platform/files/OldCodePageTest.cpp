#include "platform/files/OldCodePage.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

TEST(FromOldCodePage, reads_each_byte_that_is_no_UTF_8_as_its_letter) {
    EXPECT_EQ(FromOldCodePage("Fr\xFCh"), "Früh");
    EXPECT_EQ(FromOldCodePage("\xC0 la carte"), "À la carte");
    EXPECT_EQ(FromOldCodePage("5 \x80 \x84"
                              "so\x93 \x8A\x9A \x8E\x9E \x9F"),
              "5 € „so“ Šš Žž Ÿ");
    EXPECT_EQ(FromOldCodePage("\xE9"), "é") << "at the end, where it begins a character of three bytes";
    EXPECT_EQ(FromOldCodePage("\x81"), "\xC2\x81") << "which has no letter";
}

TEST(FromOldCodePage, leaves_UTF_8_as_it_is) {
    for (const char* text : {"", "Early, baking", "Früh 🥐, パン", "€", "\xEF\xBF\xBD"})
        EXPECT_EQ(FromOldCodePage(text), text);
    EXPECT_EQ(FromOldCodePage("Früh and sp\xE4t"), "Früh and spät") << "in one text";
}

} // namespace
} // namespace tvx
