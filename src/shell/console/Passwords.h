// Passwords and what a login allows.
#pragma once

#include "platform/ports/Ports.h"
#include "shell/console/Console.h"

#include <string>
#include <string_view>

namespace tvx {

/// The key that the password prompt takes for a typed one: capitals for letters; 0 for a key that is dropped
/// with a beep. Codes are 8 for backspace and 13 for Enter.
int PromptKey(int code);

enum class LoginResult {
    Ignored, // fewer than two characters, or no department to look in
    Denied,
    Granted,
};

/// Compares a typed password with the general manager's and with those of every department, and sets the
/// rights and the current department. The first match in the order of the departments counts.
LoginResult LogIn(GlobalState& g, std::string_view typed);

/// LogIn with its box, and with the console opened for who came in.
LoginResult LogInAtConsole(GlobalState& g, Ports& ports, ConsoleFace& face, std::string_view typed);

} // namespace tvx
