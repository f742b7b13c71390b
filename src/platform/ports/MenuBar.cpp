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

} // namespace tvx
