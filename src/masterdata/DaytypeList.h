// The daytypes of a department: adding, changing and deleting them, and picking one for a day.
#pragma once

#include "platform/ports/Ports.h"
#include "shell/common/SaveResult.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx {

struct WeekChange;

constexpr int DaytypesOffered = 70; // no more can be added from here on

/// The key rule of the symbol's box: capitals, codes 48 to 57 and 65 to 122, backspace. The letter W is
/// refused with a box. 0 drops the key.
int FilterSymbolKey(int code, Prompt& prompt);
/// The same without a box, for text that comes in at once.
int FilterSymbolPaste(int code);

/// An explanation as it stands after leaving its box: trimmed, with a capital first letter.
std::string NormalizedExplanation(const std::string& text);

/// The rows of the list, "CA= Cashier", with the index of each; blank entries are passed over.
std::vector<std::pair<std::string, int>> DaytypeRows(const Daytypes& daytypes);

/// Index of the daytype with this symbol; 0 when there is none.
int IndexOfDaytype(const Daytypes& daytypes, const std::string& symbol);

/// Adds a daytype to the current department and reads the list anew. Refused, with its box, when the store
/// does not hold it afterwards; the same of the next two.
SaveResult AddDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                      const std::string& symbol, const std::string& explanation);
/// Changes the daytype at an index and reads the list anew. Days that carry the old symbol keep it.
SaveResult ChangeDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                         int index, const std::string& symbol, const std::string& explanation);
/// Deletes the daytype at an index and reads the list anew. Days that carry its symbol keep it.
SaveResult DeleteDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                         int index);

/// "Monday, 2-Mar-2026" of a day of the week, 1 to 7, that something is picked for.
std::string DropDateText(const GlobalState& g, const Region& region, int day);
/// "Bakery: Adams Anna" of the one that it is picked for.
std::string DropTitle(const Department& department, const Roster& roster, int employee);
/// Puts the daytype at an index on a day. Nothing has changed when the day held it already.
WeekChange DropDaytype(GlobalState& g, int employee, int day, int index);

} // namespace tvx
