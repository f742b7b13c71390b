// Who sits at the screen, and what that allows.
#pragma once

#include <string>

namespace tvx {

struct Rights {
    std::string AccessLevel;       // "Big boss", "Manager 1", "Manager 2" or ""
    bool SchedulingAllowed = true; // false refuses every change of a schedule
    bool HideWages = false;        // true hides pay and the totals of money
    bool PasswordOk = false;       // the prompt was passed, or none is needed
    int WorkstationFlags = 0;      // what the workstation's own file takes away, bits of `workstation`
    bool PasswordsAllowed = true;  // a manager's login sets it: the menu for changing the own password

    bool IsManager() const { return AccessLevel == "Manager 1" || AccessLevel == "Manager 2"; }
};

} // namespace tvx
