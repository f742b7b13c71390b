// The daytypes of a department: adding, changing and deleting them, and picking one for a day.
#pragma once

#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

#include <string>
#include <utility>
#include <vector>

namespace tvx {

/// What a list screen was opened for, by the numbers that its callers set.
enum class ListRequest { None = 0, Add = 30, Change = 31, Delete = 32, Drop = 33 };

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

enum class DaytypeResult {
    Done,       // stored: the screen closes, or, after adding, waits for the next
    Incomplete, // a box is blank, or there is no room for another: a beep, nothing else
    InUse,      // told: the symbol's box is emptied and takes the focus
};

/// Adds a daytype to the current department and reads the list anew. What the store refuses goes by without a
/// word.
DaytypeResult AddDaytype(GlobalState& g, Prompt& prompt, const std::string& symbol,
                         const std::string& explanation);
/// Changes the daytype at an index and reads the list anew. Days that carry the old symbol keep it.
DaytypeResult ChangeDaytype(GlobalState& g, Prompt& prompt, int index, const std::string& symbol,
                            const std::string& explanation);
/// Deletes the daytype at an index and reads the list anew. Days that carry its symbol keep it.
void DeleteDaytype(GlobalState& g, int index);

/// The day of the current employee that a picked daytype is for, 1 to 7: the current one, or, when the week
/// of one employee asked, the one of `DayTypeColumn`.
int DayOfDrop(const GlobalState& g);
/// "Monday, 2-Mar-2026" of that day.
std::string DropDateText(const GlobalState& g, const Region& region);
/// "Bakery: Adams Anna".
std::string DropTitle(const GlobalState& g);
/// Puts the daytype at an index on that day. The week has changed when it held another one.
void DropDaytype(GlobalState& g, int index);

} // namespace tvx
