// The commands of a form as a table: name, place, caption, when each is offered, and what it runs.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

/// A command as it stands now, for a menu or a button to show.
struct MenuEntry {
    std::string name;    // "AddDep"; unique in its table
    std::string parent;  // name of the menu that holds it; "" for a menu of the bar itself
    std::string caption; // "&" marks the letter that works it from the keyboard
    bool separator = false;
    bool enabled = true; // offered, and leads somewhere
    bool visible = true;
    bool toggles = false; // is on or off
    bool checked = false; // is on
    std::string keys;     // that work it too, "Ctrl+S"; "" for none
};

/// One thing that a person can choose, or a menu that holds such things.
struct Command {
    std::string name{};          // unique in its table; the name of the control that shows it
    std::string parent{};        // name of the menu or the strip that holds it; "" for one that nothing holds
    std::string caption{};       // "&" marks the letter that works it from the keyboard
    std::function<void()> run{}; // empty for a menu, and for what leads nowhere yet
    std::function<bool()> offered{};        // may be chosen now; empty: always
    std::function<bool()> shown{};          // can be seen now; empty: always
    std::function<bool()> checked{};        // carries a mark now; empty: never
    std::function<std::string()> wording{}; // the caption, where it changes
    std::string hint{};                     // tells on a tool what it is for
    bool separator = false;
    std::string keys{}; // that work it from everywhere on its form, "Ctrl+S"
};

/// The commands of a form, in the order in which they are shown: its menus, its tools and the menus at the
/// mouse. Whether a command can be chosen is decided here and nowhere else.
class CommandTable {
  public:
    explicit CommandTable(std::vector<Command> commands) : commands_(std::move(commands)) {}

    /// The command of that name. Throws std::out_of_range when there is none.
    const Command& operator[](std::string_view name) const;
    /// True when the command, and whatever holds it, is offered and shown, and leads somewhere.
    bool CanChoose(std::string_view name) const;
    /// Runs a command that can be chosen; any other does nothing. Throws std::out_of_range for a strange
    /// name.
    void Choose(std::string_view name) const;

    /// A command as it stands now. Throws std::out_of_range when there is none of that name.
    MenuEntry Entry(std::string_view name) const;
    /// What a menu shows now: everything below the command `top`, which is itself left out, so that its own
    /// entries have no parent.
    std::vector<MenuEntry> Entries(std::string_view top) const;

  private:
    bool HoldsOthers(const Command& command) const;
    bool LeadsSomewhere(const Command& command) const;
    bool IsBelow(const Command& command, std::string_view top) const;

    std::vector<Command> commands_;
};

/// The text of a caption in which an ampersand is meant as itself.
std::string WithoutMnemonic(const std::string& text);

} // namespace tvx
