// A menu bar as the rules see it: entries by name, with caption and state, before any window shows it.
#pragma once

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

} // namespace tvx
