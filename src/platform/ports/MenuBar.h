// Commands and menus before any window shows them: what a person can choose, by name, with caption and state.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx {

struct MenuEntry {
    std::string name;    // "AddDep"; unique in its bar
    std::string parent;  // name of the menu that holds it; "" for a menu of the bar itself
    std::string caption; // "&" marks the letter that works it from the keyboard
    bool separator = false;
    bool built = false; // leads somewhere; an entry whose screen does not exist is never enabled
    bool enabled = true;
    bool visible = true;
    bool checked = false;
};

class MenuBar {
  public:
    explicit MenuBar(std::vector<MenuEntry> entries) : entries_(std::move(entries)) {}

    const std::vector<MenuEntry>& Entries() const { return entries_; }
    /// The entry of that name. Throws std::out_of_range when there is none.
    MenuEntry& operator[](std::string_view name);
    const MenuEntry& operator[](std::string_view name) const;
    /// True when a person can choose the entry now, its menus included.
    bool CanChoose(std::string_view name) const;

    void Enable(std::initializer_list<std::string_view> names, bool enabled);
    void Show(std::initializer_list<std::string_view> names, bool visible);

  private:
    std::vector<MenuEntry> entries_;
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

    /// What a menu shows now: everything below the command `top`, which is itself left out, so that its own
    /// entries have no parent.
    std::vector<MenuEntry> Entries(std::string_view top) const;

  private:
    bool HoldsOthers(const Command& command) const;
    bool IsBelow(const Command& command, std::string_view top) const;

    std::vector<Command> commands_;
};

/// The text of a caption in which an ampersand is meant as itself.
std::string WithoutMnemonic(const std::string& text);

} // namespace tvx
