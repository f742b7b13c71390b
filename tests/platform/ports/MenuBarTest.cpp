#include "platform/ports/MenuBar.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tvx {
namespace {

MenuBar SmallBar() {
    const bool built = true;
    return MenuBar({{"Fi", "", "&File"},
                    {"Save", "Fi", "&Save", false, built},
                    {"line", "Fi", "", true},
                    {"Print", "Fi", "&Print"},
                    {"More", "Fi", "&More"},
                    {"Deep", "More", "&Deep", false, built}});
}

TEST(MenuBar, offers_an_entry_that_leads_somewhere) {
    const MenuBar bar = SmallBar();
    EXPECT_TRUE(bar.CanChoose("Save"));
    EXPECT_TRUE(bar.CanChoose("Deep"));
    EXPECT_TRUE(bar.CanChoose("Fi"));
    EXPECT_TRUE(bar.CanChoose("More"));
}

TEST(MenuBar, never_offers_an_entry_that_leads_nowhere_or_a_line) {
    MenuBar bar = SmallBar();
    bar.Enable({"Print", "line"}, true);
    EXPECT_FALSE(bar.CanChoose("Print"));
    EXPECT_FALSE(bar.CanChoose("line"));
}

TEST(MenuBar, closes_what_lies_under_a_menu_that_is_disabled_or_hidden) {
    MenuBar bar = SmallBar();
    bar.Enable({"More"}, false);
    EXPECT_FALSE(bar.CanChoose("Deep"));
    EXPECT_TRUE(bar.CanChoose("Save"));
    bar.Enable({"More"}, true);
    bar.Show({"Fi"}, false);
    EXPECT_FALSE(bar.CanChoose("Deep"));
    EXPECT_FALSE(bar.CanChoose("Save"));
    bar.Show({"Fi"}, true);
    EXPECT_TRUE(bar.CanChoose("Deep"));
    bar.Show({"Deep"}, false);
    EXPECT_FALSE(bar.CanChoose("Deep"));
}

TEST(MenuBar, knows_only_its_own_entries) {
    MenuBar bar = SmallBar();
    EXPECT_THROW(bar["Quit"], std::out_of_range);
    EXPECT_THROW(bar.Enable({"Quit"}, true), std::out_of_range);
    EXPECT_EQ(bar["Save"].caption, "&Save");
    EXPECT_EQ(bar.Entries().size(), 6U);
}

} // namespace
} // namespace tvx
