#include "shell/console/Passwords.h"

#include "platform/basic/Text.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DepartmentRow.h"

#include <vector>

namespace tvx {
namespace {

void GrantManager(Rights& rights, const ManagerRow& manager, int place) {
    rights.HideWages = manager.hideWages;
    rights.SchedulingAllowed = manager.allowScheduling;
    rights.AccessLevel = "Manager " + std::to_string(place);
    rights.PasswordOk = true;
    rights.PasswordsAllowed = manager.allowPasswords;
}

/// The words stay those of the first department.
bool LogInManager(GlobalState& g, const std::vector<DepartmentRow>& rows, const std::string& typed) {
    ReadGenericNames(rows.front(), g.department);
    for (const DepartmentRow& row : rows) {
        int place = 0;
        for (const ManagerRow& manager : row.managers) {
            ++place;
            if (manager.password.empty() || manager.password != typed) continue;
            GrantManager(g.rights, manager, place);
            ReadDepartment(row, g.department);
            return true;
        }
    }
    return false;
}

void OpenForManager(const Department& department, ConsoleFace& face) {
    face.title = "------ " + department.CurrentDepName + " ------";
    face.Frame1Visible = true;
    face.Label2 = department.CurrentDepName;
    face.Label2Visible = true;
}

void OpenForGeneralManager(GlobalState& g, Ports& ports, ConsoleFace& face) {
    g.rights.SchedulingAllowed = true;
    RefreshDepartments(g, ports, face);
}

} // namespace

int PromptKey(int code) {
    constexpr int Backspace = 8;
    constexpr int Enter = 13;
    if (code == Backspace || code == Enter) return code;
    if (code >= 'a' && code <= 'z') code -= 32;
    return code >= 32 && code <= 94 ? code : 0;
}

LoginResult LogIn(GlobalState& g, std::string_view typed) {
    const std::string text = UpperCase(Trim(typed));
    if (CharacterCount(text) < 2) return LoginResult::Ignored;
    if (text == g.application.GeneralManagerPassword) {
        g.rights.PasswordOk = true;
        g.rights.AccessLevel = "Big boss";
        return LoginResult::Granted;
    }
    const std::vector<DepartmentRow> rows = ReadDepartmentRows(g.store.Open());
    if (rows.empty()) return LoginResult::Ignored;
    return LogInManager(g, rows, text) ? LoginResult::Granted : LoginResult::Denied;
}

LoginResult LogInAtConsole(GlobalState& g, Ports& ports, ConsoleFace& face, std::string_view typed) {
    const LoginResult result = LogIn(g, typed);
    if (result == LoginResult::Denied) {
        ports.prompt.Beep();
        ports.prompt.MsgBox("Access denied!", box::Stop, "Password not valid");
    }
    if (result != LoginResult::Granted) return result;
    face.PromptVisible = false;
    if (g.rights.IsManager())
        OpenForManager(g.department, face);
    else
        OpenForGeneralManager(g, ports, face);
    return result;
}

} // namespace tvx
