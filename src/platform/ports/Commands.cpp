#include "platform/ports/Commands.h"

#include <algorithm>
#include <stdexcept>

namespace tvx {

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

bool CommandTable::LeadsSomewhere(const Command& command) const {
    return command.run != nullptr || HoldsOthers(command);
}

bool CommandTable::IsBelow(const Command& command, std::string_view top) const {
    if (command.parent == top) return true;
    return !command.parent.empty() && IsBelow((*this)[command.parent], top);
}

bool CommandTable::CanChoose(std::string_view name) const {
    const Command& command = (*this)[name];
    if (command.separator || !Asked(command.offered, true) || !Asked(command.shown, true)) return false;
    if (!LeadsSomewhere(command)) return false;
    return command.parent.empty() || CanChoose(command.parent);
}

void CommandTable::Choose(std::string_view name) const {
    const Command& command = (*this)[name];
    if (command.run && CanChoose(name)) command.run();
}

MenuEntry CommandTable::Entry(std::string_view name) const {
    const Command& command = (*this)[name];
    MenuEntry entry;
    entry.name = command.name;
    entry.parent = command.parent;
    entry.caption = command.wording ? command.wording() : command.caption;
    entry.separator = command.separator;
    entry.enabled = LeadsSomewhere(command) && Asked(command.offered, true);
    entry.visible = Asked(command.shown, true);
    entry.keys = command.keys;
    entry.toggles = command.checked != nullptr;
    entry.checked = Asked(command.checked, false);
    return entry;
}

std::vector<MenuEntry> CommandTable::Entries(std::string_view top) const {
    std::vector<MenuEntry> entries;
    for (const Command& command : commands_) {
        if (!IsBelow(command, top)) continue;
        entries.push_back(Entry(command.name));
        if (command.parent == top) entries.back().parent.clear();
    }
    return entries;
}

std::string WithoutMnemonic(const std::string& text) {
    std::string plain;
    for (const char c : text) plain += c == '&' ? "&&" : std::string(1, c);
    return plain;
}

} // namespace tvx
