// The word by which a menu tells a screen, and what comes after it, what is to be done.
#pragma once

#include <array>
#include <string>

namespace tvx {

enum class FormCommand {
    None,
    Add,
    Change,
    Delete,
    Transfer,
    Convert,
    Restore,
    Backup,
    PriorToDate,
    Network,
    EmplStats,
    Options,
    Example,
};

/// The word of a command: "Delete".
inline std::string TextOf(FormCommand command) {
    constexpr std::array<const char*, 13> words{"",          "Add",     "Change", "Delete",        "Transfer",
                                                "Convert",   "Restore", "Backup", "Prior to date", "Network",
                                                "EmplStats", "Options", "Example"};
    return words.at(static_cast<std::size_t>(command));
}

} // namespace tvx
