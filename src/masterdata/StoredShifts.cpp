#include "masterdata/StoredShifts.h"

#include "masterdata/files/ShiftFile.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"

namespace tvx {
namespace {

/// Index of another shift with this name but for case; 0 when there is none.
int IndexOfName(const Shifts& shifts, const std::string& name, int except) {
    const std::string wanted = UpperCase(Trim(name));
    for (int i = 1; i <= shifts.ShiftCount; ++i)
        if (i != except && UpperCase(shifts.ShiftNames[i]) == wanted) return i;
    return 0;
}

SaveResult Check(const Shifts& shifts, Prompt& prompt, const std::string& name, int except,
                 const char* what) {
    if (Trim(name).empty()) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    if (IndexOfName(shifts, name, except) == 0) return SaveResult::Saved;
    prompt.Beep();
    prompt.MsgBox(std::string(what) + Trim(name) + "\r\n is in use...", box::Ok, "Shift name duplicate");
    return SaveResult::InUse;
}

/// Writes the changed list and reads it back. On trouble the list in memory is as it was before.
SaveResult Keep(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                const Shifts& changed) {
    try {
        WriteStoredShifts(paths.ProgramPath, department.CurrentDepNumber, changed);
    } catch (const FileError& trouble) {
        prompt.MsgBox("Could not write the file of the shifts.\r\n\r\n" + std::string(trouble.what()),
                      box::Exclamation, "File error");
        return SaveResult::Refused;
    }
    LoadStoredShifts(paths.ProgramPath, department.CurrentDepNumber, shifts);
    return SaveResult::Saved;
}

} // namespace

SaveResult AddShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                    const std::string& name) {
    if (shifts.ShiftCount >= MostShiftsToAdd) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    const SaveResult result = Check(shifts, prompt, name, 0, "Shift ");
    if (result != SaveResult::Saved) return result;
    Shifts changed = shifts;
    changed.ShiftNames[++changed.ShiftCount] = Trim(name);
    return Keep(paths, department, shifts, prompt, changed);
}

SaveResult RenameShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                       int index, const std::string& name) {
    const SaveResult result = Check(shifts, prompt, name, index, "Shift name ");
    if (result != SaveResult::Saved) return result;
    Shifts changed = shifts;
    changed.ShiftNames[index] = Trim(name);
    return Keep(paths, department, shifts, prompt, changed);
}

SaveResult DeleteShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                       int index) {
    Shifts changed = shifts;
    changed.ShiftNames[index].clear();
    return Keep(paths, department, shifts, prompt, changed);
}

std::vector<std::pair<std::string, int>> ShiftRows(const Shifts& shifts) {
    std::vector<std::pair<std::string, int>> rows;
    for (int i = 1; i <= shifts.ShiftCount; ++i) rows.emplace_back(shifts.ShiftNames[i], i);
    return rows;
}

} // namespace tvx
