#include "masterdata/StoredShifts.h"

#include "masterdata/files/ShiftFile.h"
#include "platform/basic/Collation.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"

#include <functional>

namespace tvx {
namespace {

/// Index of another shift with this name but for case; 0 when there is none.
int IndexOfName(const Shifts& shifts, const std::string& name, int except) {
    for (int i = 1; i <= shifts.ShiftCount; ++i)
        if (i != except && IsSameName(Trim(shifts.ShiftNames[i]), Trim(name))) return i;
    return 0;
}

/// Whether a shift can have this name; tells when it is another's.
SaveResult Check(const Shifts& shifts, Prompt& prompt, const std::string& name, int except,
                 const char* what) {
    if (IndexOfName(shifts, name, except) == 0) return SaveResult::Saved;
    prompt.Beep();
    prompt.MsgBox(std::string(what) + Trim(name) + "\r\n is in use...", box::Ok, "Shift name duplicate");
    return SaveResult::InUse;
}

SaveResult TellFile(Prompt& prompt, const std::string& what, const FileError& trouble) {
    prompt.MsgBox(what + "\r\n\r\n" + trouble.what(), box::Exclamation, "File error");
    return SaveResult::Refused;
}

SaveResult TellRefusal(Prompt& prompt, const std::string& text) {
    prompt.Beep();
    prompt.MsgBox(text, box::Ok, "Stored shifts");
    return SaveResult::Refused;
}

/// Changes the list as the file holds it at this moment, which another workstation may have written, and
/// writes it. The list in memory follows; on trouble it is as it was before.
SaveResult Keep(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                const std::function<SaveResult(Shifts& stored)>& change) {
    const char* trying = "Could not read the file of the shifts to its end. It stays as it is.";
    try {
        Shifts stored = ReadStoredShifts(paths.ProgramPath, department.CurrentDepNumber);
        if (const SaveResult result = change(stored); result != SaveResult::Saved) return result;
        trying = "Could not write the file of the shifts.";
        WriteStoredShifts(paths.ProgramPath, department.CurrentDepNumber, stored);
        shifts = InOrderOfNames(stored);
        return SaveResult::Saved;
    } catch (const FileError& trouble) {
        return TellFile(prompt, trying, trouble);
    }
}

/// Where a shift of the list in memory stands in the file now; 0 when it is gone.
int PlaceOf(const std::string& name, int index, const Shifts& stored) {
    const bool same = index <= stored.ShiftCount && stored.ShiftNames[index] == name;
    return same ? index : IndexOfName(stored, name, 0);
}

/// Adds the shift that waits behind the last one of the list.
SaveResult Append(const Shifts& waiting, const std::string& name, Shifts& stored, Prompt& prompt) {
    if (stored.ShiftCount >= MostShiftsToAdd)
        return TellRefusal(prompt, "Twenty shifts are stored, which is the most.\r\nDelete one first.");
    const SaveResult result = Check(stored, prompt, name, 0, "Shift ");
    if (result != SaveResult::Saved) return result;
    const int from = waiting.ShiftCount + 1;
    if (waiting.ShiftBarCount[from] == 0)
        return TellRefusal(prompt, "No time begins on this day. There is nothing to store.");
    const int to = ++stored.ShiftCount;
    stored.ShiftNames[to] = Trim(name);
    stored.ShiftBarCount[to] = waiting.ShiftBarCount[from];
    stored.ShiftStarts[to] = waiting.ShiftStarts[from];
    stored.ShiftStops[to] = waiting.ShiftStops[from];
    return SaveResult::Saved;
}

} // namespace

SaveResult AddShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                    const std::string& name) {
    if (Trim(name).empty() || shifts.ShiftCount >= MostShifts) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    return Keep(paths, department, shifts, prompt,
                [&](Shifts& stored) { return Append(shifts, name, stored, prompt); });
}

SaveResult RenameShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                       int index, const std::string& name) {
    if (Trim(name).empty()) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    const std::string before = shifts.ShiftNames[index];
    return Keep(paths, department, shifts, prompt, [&](Shifts& stored) {
        const int place = PlaceOf(before, index, stored);
        if (place == 0)
            return TellRefusal(prompt, "Shift " + before +
                                           "\r\nis no longer stored. Somebody else has "
                                           "renamed or deleted it.");
        const SaveResult result = Check(stored, prompt, name, place, "Shift name ");
        if (result == SaveResult::Saved) stored.ShiftNames[place] = Trim(name);
        return result;
    });
}

SaveResult DeleteShift(const Paths& paths, const Department& department, Shifts& shifts, Prompt& prompt,
                       int index) {
    const std::string name = shifts.ShiftNames[index];
    return Keep(paths, department, shifts, prompt, [&](Shifts& stored) {
        // One that somebody else has deleted is gone as wished.
        if (const int place = PlaceOf(name, index, stored); place > 0) stored.ShiftNames[place].clear();
        return SaveResult::Saved;
    });
}

std::vector<std::pair<std::string, int>> ShiftRows(const Shifts& shifts) {
    std::vector<std::pair<std::string, int>> rows;
    for (int i = 1; i <= shifts.ShiftCount; ++i) rows.emplace_back(shifts.ShiftNames[i], i);
    return rows;
}

} // namespace tvx
