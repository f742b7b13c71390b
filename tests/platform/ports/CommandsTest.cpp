#include "platform/ports/Commands.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tvx {
namespace {

class CommandTableTest : public testing::Test {
  protected:
    std::vector<std::string> ran;
    bool open = true;
    bool seen = true;
    std::string word = "&Print";

    std::function<void()> Note(const char* name) {
        return [this, name] { ran.emplace_back(name); };
    }
    CommandTable table{{
        {.name = "Bar"},
        {.name = "Fi", .parent = "Bar", .caption = "&File"},
        {.name = "Save",
         .parent = "Fi",
         .caption = "&Save",
         .run = Note("Save"),
         .offered = [this] { return open; }},
        {.name = "line", .parent = "Fi", .separator = true},
        {.name = "More", .parent = "Fi", .shown = [this] { return seen; }},
        {.name = "Deep", .parent = "More", .run = Note("Deep"), .checked = [this] { return open; }},
        {.name = "Print", .parent = "Fi", .wording = [this] { return word; }},
        {.name = "Strip"},
        {.name = "Tool", .parent = "Strip", .caption = "Save", .run = Note("Tool"), .hint = "Saves"},
    }};
};

TEST_F(CommandTableTest, runs_what_can_be_chosen) {
    table.Choose("Save");
    table.Choose("Deep");
    table.Choose("Tool");
    EXPECT_EQ(ran, (std::vector<std::string>{"Save", "Deep", "Tool"}));
}

TEST_F(CommandTableTest, runs_nothing_that_is_not_offered_or_lies_under_what_is_not_shown) {
    open = seen = false;
    for (const char* name : {"Save", "Deep", "Print", "line", "Fi"}) table.Choose(name);
    EXPECT_TRUE(ran.empty());
    EXPECT_FALSE(table.CanChoose("Save"));
    EXPECT_FALSE(table.CanChoose("Deep"));
    EXPECT_TRUE(table.CanChoose("Fi"));
}

TEST_F(CommandTableTest, offers_nothing_that_leads_nowhere) {
    EXPECT_FALSE(table.CanChoose("Print"));
    EXPECT_FALSE(table.CanChoose("line"));
}

TEST_F(CommandTableTest, lists_what_is_below_a_command_with_the_states_of_now) {
    const auto states = [this](const char* top) {
        std::vector<std::string> list;
        for (const MenuEntry& entry : table.Entries(top))
            list.push_back(entry.parent + ">" + entry.name + ":" + entry.caption +
                           (entry.enabled ? "" : " off") + (entry.visible ? "" : " hidden") +
                           (entry.checked ? " marked" : "") + (entry.separator ? " line" : ""));
        return list;
    };
    EXPECT_EQ(states("Bar"),
              (std::vector<std::string>{">Fi:&File", "Fi>Save:&Save", "Fi>line: off line",
                                        "Fi>More:", "More>Deep: marked", "Fi>Print:&Print off"}));
    open = seen = false;
    word = "&Draw";
    EXPECT_EQ(states("Fi"), (std::vector<std::string>{">Save:&Save off", ">line: off line", ">More: hidden",
                                                      "More>Deep:", ">Print:&Draw off"}));
    EXPECT_EQ(states("Strip"), std::vector<std::string>{">Tool:Save"});
}

TEST(CommandTable, closes_what_lies_under_a_menu_that_is_not_offered) {
    bool offered = true;
    const CommandTable table({{.name = "Fi", .offered = [&] { return offered; }},
                              {.name = "More", .parent = "Fi"},
                              {.name = "Save", .parent = "More", .run = [] {}}});
    EXPECT_TRUE(table.CanChoose("Save"));
    offered = false;
    EXPECT_FALSE(table.CanChoose("Save"));
    EXPECT_TRUE(table.Entry("Save").enabled); // by itself
}

TEST_F(CommandTableTest, knows_only_its_own_commands) {
    EXPECT_THROW(table.Choose("Quit"), std::out_of_range);
    EXPECT_THROW(table.Entry("Quit"), std::out_of_range);
    EXPECT_EQ(table["Tool"].hint, "Saves");
}

TEST(WithoutMnemonic, doubles_each_ampersand) {
    EXPECT_EQ(WithoutMnemonic("Late & long"), "Late && long");
    EXPECT_EQ(WithoutMnemonic("Early"), "Early");
}

} // namespace
} // namespace tvx
