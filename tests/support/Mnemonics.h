// Letters that work two entries of one menu.
#pragma once

#include "platform/ports/Commands.h"

#include <cctype>
#include <map>
#include <string>
#include <vector>

namespace tvx::test {

/// The letter that works an entry, a capital; 0 when none does.
inline char MnemonicOf(const std::string& caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] != '&') return static_cast<char>(std::toupper(caption[i + 1]));
        ++i;
    }
    return 0;
}

/// "C: &Copy, &Close" for each letter that works more than one entry of a menu.
inline std::vector<std::string> SharedMnemonics(const std::vector<MenuEntry>& entries) {
    std::map<std::pair<std::string, char>, std::vector<std::string>> found;
    for (const MenuEntry& entry : entries)
        if (const char letter = MnemonicOf(entry.caption); letter != 0)
            found[{entry.parent, letter}].push_back(entry.caption);
    std::vector<std::string> shared;
    for (const auto& [place, captions] : found) {
        if (captions.size() < 2) continue;
        std::string line = std::string(1, place.second) + ":";
        for (const std::string& caption : captions) line += (line.size() > 2 ? ", " : " ") + caption;
        shared.push_back(line);
    }
    return shared;
}

} // namespace tvx::test
