#include "shell/console/Passwords.h"

#include "platform/basic/Text.h"
#include "shell/common/TVXMOD1.h"

namespace tvx {
namespace {

std::string Shifted(std::string_view text, std::int64_t direction) {
    std::string shifted;
    int place = 0;
    for (const char32_t c : DecodeUtf8(Trim(text))) {
        ++place;
        AppendUtf8(shifted, static_cast<char32_t>(static_cast<std::int64_t>(c) + direction * place));
    }
    return shifted;
}

/// Fields of a department record that belong to one of its two managers.
struct ManagerFields {
    const char* password;
    const char* hideWages;
    const char* allowScheduling;
    const char* allowPasswords;
    const char* level;
};

constexpr ManagerFields Managers[] = {{"MGR1", "HM1", "OKSCH1", "OKPW1", "Manager 1"},
                                      {"MGR2", "HM2", "OKSCH2", "OKPW2", "Manager 2"}};

void GrantManager(GlobalState& g, dao::Recordset& rs, const ManagerFields& manager) {
    g.rights.HideWages = rs.Fields(manager.hideWages).Flag();
    g.rights.SchedulingAllowed = rs.Fields(manager.allowScheduling).Flag();
    g.rights.AccessLevel = manager.level;
    g.rights.PasswordOk = true;
    g.rights.PasswordsAllowed = rs.Fields(manager.allowPasswords).Flag();
    Department& d = g.department;
    d.CurrentDepNumber = static_cast<int>(rs.Fields("Dep number").Long());
    d.CurrentDepName = rs.Fields("Department name").Text();
    d.EditorOrder = static_cast<int>(rs.Fields("Editor order").Long(1));
    d.WeekMethod = static_cast<int>(rs.Fields("Week methode pick").Long(0));
    DecodeFirstWeekday(rs.Fields("First weekday").Long(), d.FirstWeekday, d.DayCutoffQuarters);
}

bool LogInManager(GlobalState& g, const std::string& typed) {
    dao::Recordset& rs = g.store.DepartmentRs;
    rs.MoveFirst();
    ReadGenericNames(rs, g.department);
    for (; !rs.AtEnd(); rs.MoveNext())
        for (const ManagerFields& manager : Managers) {
            const std::string password = UnscramblePassword(rs.Fields(manager.password).Text());
            if (password.empty() || password != typed) continue;
            GrantManager(g, rs, manager);
            return true;
        }
    return false;
}

void OpenForManager(const GlobalState& g, ConsoleFace& face) {
    face.menus.Enable({"Dep", "Fi", "OptionFrame"}, false);
    face.menus.Enable({"EmplRecords"}, g.rights.SchedulingAllowed);
    face.menus.Enable({"PW"}, g.rights.PasswordsAllowed);
    face.menus.Enable({"NeedHelp"}, true);
    face.title = "------ " + g.department.CurrentDepName + " ------";
    face.Frame1Visible = true;
    face.Label2 = g.department.CurrentDepName;
    face.Label2Visible = true;
    SetMenuCaptions(g.department, face);
}

void OpenForGeneralManager(GlobalState& g, Ports& ports, ConsoleFace& face) {
    face.menus.Enable({"Dep", "Fi", "EmplRecords", "OptionFrame", "PW", "NeedHelp"}, true);
    g.rights.SchedulingAllowed = true;
    RefreshDepartments(g, ports, face);
}

} // namespace

std::string ScramblePassword(std::string_view text) {
    return Shifted(text, 1);
}
std::string UnscramblePassword(std::string_view text) {
    return Shifted(text, -1);
}

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
    dao::Recordset& rs = g.store.DepartmentRs;
    rs = g.store.Open().OpenRecordset("Department");
    if (rs.BOF() && rs.AtEnd()) return LoginResult::Ignored;
    return LogInManager(g, text) ? LoginResult::Granted : LoginResult::Denied;
}

LoginResult LogInAtConsole(GlobalState& g, Ports& ports, ConsoleFace& face, std::string_view typed) {
    const LoginResult result = LogIn(g, typed);
    if (result == LoginResult::Denied) {
        ports.prompt.Beep();
        ports.prompt.MsgBox("Access denied!", box::Stop, "Password not valid");
    }
    if (result != LoginResult::Granted) return result;
    face.PromptVisible = false;
    face.menus.Enable({"ww"}, true);
    face.cmdScheduleEnabled = true;
    if (g.rights.IsManager())
        OpenForManager(g, face);
    else
        OpenForGeneralManager(g, ports, face);
    return result;
}

} // namespace tvx
