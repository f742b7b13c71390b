#include "platform/ports/MenuBar.h"

#include <algorithm>
#include <stdexcept>

namespace tvx {

const MenuEntry& MenuBar::operator[](std::string_view name) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const MenuEntry& entry) { return entry.name == name; });
    if (found == entries_.end()) throw std::out_of_range("no menu entry " + std::string(name));
    return *found;
}

MenuEntry& MenuBar::operator[](std::string_view name) {
    return const_cast<MenuEntry&>(static_cast<const MenuBar&>(*this)[name]);
}

bool MenuBar::CanChoose(std::string_view name) const {
    const MenuEntry& entry = (*this)[name];
    if (!entry.enabled || !entry.visible || entry.separator) return false;
    const bool isMenu = std::any_of(entries_.begin(), entries_.end(),
                                    [&](const MenuEntry& child) { return child.parent == entry.name; });
    if (!entry.built && !isMenu) return false;
    return entry.parent.empty() || CanChoose(entry.parent);
}

void MenuBar::Enable(std::initializer_list<std::string_view> names, bool enabled) {
    for (const std::string_view name : names) (*this)[name].enabled = enabled;
}

void MenuBar::Show(std::initializer_list<std::string_view> names, bool visible) {
    for (const std::string_view name : names) (*this)[name].visible = visible;
}

namespace {

/// What an empty function stands for.
bool Asked(const std::function<bool()>& question, bool otherwise) {
    return question ? question() : otherwise;
}

} // namespace

const Command& CommandTable::operator[](std::string_view name) const {
    const auto found = std::find_if(commands_.begin(), commands_.end(),
                                    [&](const Command& command) { return command.name == name; });
    if (found == commands_.end()) throw std::out_of_range("no command " + std::string(name));
    return *found;
}

bool CommandTable::HoldsOthers(const Command& command) const {
    return std::any_of(commands_.begin(), commands_.end(),
                       [&](const Command& other) { return other.parent == command.name; });
}

bool CommandTable::IsBelow(const Command& command, std::string_view top) const {
    if (command.parent == top) return true;
    return !command.parent.empty() && IsBelow((*this)[command.parent], top);
}

bool CommandTable::CanChoose(std::string_view name) const {
    const Command& command = (*this)[name];
    if (command.separator || !Asked(command.offered, true) || !Asked(command.shown, true)) return false;
    if (!command.run && !HoldsOthers(command)) return false;
    return command.parent.empty() || CanChoose(command.parent);
}

void CommandTable::Choose(std::string_view name) const {
    const Command& command = (*this)[name];
    if (command.run && CanChoose(name)) command.run();
}

std::vector<MenuEntry> CommandTable::Entries(std::string_view top) const {
    std::vector<MenuEntry> entries;
    for (const Command& command : commands_) {
        if (!IsBelow(command, top)) continue;
        MenuEntry entry;
        entry.name = command.name;
        if (command.parent != top) entry.parent = command.parent;
        entry.caption = command.wording ? command.wording() : command.caption;
        entry.separator = command.separator;
        entry.built = command.run != nullptr || HoldsOthers(command);
        entry.enabled = Asked(command.offered, true);
        entry.visible = Asked(command.shown, true);
        entry.checked = Asked(command.checked, false);
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::string WithoutMnemonic(const std::string& text) {
    std::string plain;
    for (const char c : text) plain += c == '&' ? "&&" : std::string(1, c);
    return plain;
}

} // namespace tvx
