#include "masterdata/DaytypeList.h"

#include "editor/lanes/DaytypeBox.h"
#include "editor/week/WeekEdit.h"
#include "platform/basic/Collation.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DayTypeRow.h"

#include <optional>

namespace tvx {
namespace {

bool IsBlank(const std::string& text) {
    return Trim(text).empty();
}

/// Index of another entry with this symbol; 0 when there is none.
int IndexOfSymbol(const Daytypes& daytypes, const std::string& symbol, int except) {
    for (int i = 1; i <= daytypes.DayTypeCount; ++i)
        if (i != except && IsSameName(Trim(daytypes.DayTypeSymbols[i]), Trim(symbol))) return i;
    return 0;
}

/// Checks both texts. `gap` stands behind "for" in the box on a symbol in use.
SaveResult Check(const Daytypes& daytypes, Prompt& prompt, const std::string& symbol,
                 const std::string& explanation, int except, const std::string& gap) {
    if (IsBlank(symbol) || IsBlank(explanation)) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    const int taken = IndexOfSymbol(daytypes, symbol, except);
    if (taken == 0) return SaveResult::Saved;
    prompt.Beep();
    prompt.MsgBox("DayType " + Trim(symbol) + "\r\n is in use for" + gap + daytypes.DayTypeNames[taken],
                  box::Ok, "DayType duplicate");
    return SaveResult::InUse;
}

/// Runs a step on the store; what it refuses is seen by what the store holds afterwards.
template <typename Step>
void Quietly(Step step) {
    try {
        step();
    } catch (const dao::DaoError&) {
        return;
    }
}

/// True when the store holds the row; with nothing to hold, when it has none of that symbol.
bool Holds(const Store& store, const Department& department, const std::string& symbol,
           const std::optional<DayTypeRow>& row) {
    bool holds = false;
    Quietly([&] { holds = FindDayTypeRow(store.Open(), department.CurrentDepNumber, symbol) == row; });
    return holds;
}

SaveResult TellNotWritten(Prompt& prompt) {
    prompt.MsgBox("Could not save,\r\nthis page is locked by another user, try again..", box::Ok,
                  "Locked page...");
    return SaveResult::Refused;
}

void ReadAgain(const Store& store, const Department& department, Daytypes& daytypes) {
    Quietly([&] { LoadDayTypes(store, department.CurrentDepNumber, daytypes); });
}

void Put(Daytypes& daytypes, int index, const DayTypeRow& row) {
    daytypes.DayTypeSymbols[index] = row.symbol;
    daytypes.DayTypeNames[index] = row.explanation;
}

DayTypeRow RowOf(const Department& department, const std::string& symbol, const std::string& explanation) {
    return {department.CurrentDepNumber, Trim(symbol), explanation};
}

} // namespace

int FilterSymbolKey(int code, Prompt& prompt) {
    const DaytypeKey key = FilterDaytypeKey(code);
    TellDaytypeRefusal(prompt, key.refusal);
    return key.code;
}

int FilterSymbolPaste(int code) {
    return FilterDaytypeKey(code).code;
}

std::string NormalizedExplanation(const std::string& text) {
    const std::string trimmed = Trim(text);
    const std::string first = Left(trimmed, 1);
    return UpperCase(first) + trimmed.substr(first.size());
}

std::vector<std::pair<std::string, int>> DaytypeRows(const Daytypes& daytypes) {
    std::vector<std::pair<std::string, int>> rows;
    for (int i = 1; i <= daytypes.DayTypeCount; ++i)
        if (!IsBlank(daytypes.DayTypeSymbols[i]))
            rows.emplace_back(daytypes.DayTypeSymbols[i] + "= " + daytypes.DayTypeNames[i], i);
    return rows;
}

int IndexOfDaytype(const Daytypes& daytypes, const std::string& symbol) {
    return IndexOfSymbol(daytypes, symbol, 0);
}

SaveResult AddDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                      const std::string& symbol, const std::string& explanation) {
    if (daytypes.DayTypeCount >= MostDayTypes) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    const SaveResult result = Check(daytypes, prompt, symbol, explanation, 0, " ");
    if (result != SaveResult::Saved) return result;
    const DayTypeRow row = RowOf(department, symbol, Trim(explanation));
    Quietly([&] { AddDayTypeRow(store.Open(), row); });
    const bool written = Holds(store, department, row.symbol, row);
    if (written) Put(daytypes, ++daytypes.DayTypeCount, row);
    ReadAgain(store, department, daytypes);
    return written ? SaveResult::Saved : TellNotWritten(prompt);
}

SaveResult ChangeDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                         int index, const std::string& symbol, const std::string& explanation) {
    const std::string name = NormalizedExplanation(explanation);
    const SaveResult result = Check(daytypes, prompt, symbol, name, index, "");
    if (result != SaveResult::Saved) return result;
    const DayTypeRow row = RowOf(department, symbol, name);
    Quietly([&] { ChangeDayTypeRow(store.Open(), daytypes.DayTypeSymbols[index], row); });
    const bool written = Holds(store, department, row.symbol, row);
    if (written) Put(daytypes, index, row);
    ReadAgain(store, department, daytypes);
    return written ? SaveResult::Saved : TellNotWritten(prompt);
}

SaveResult DeleteDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                         int index) {
    const std::string symbol = daytypes.DayTypeSymbols[index];
    Quietly([&] { DeleteDayTypeRow(store.Open(), department.CurrentDepNumber, symbol); });
    const bool gone = Holds(store, department, symbol, std::nullopt);
    ReadAgain(store, department, daytypes);
    return gone ? SaveResult::Saved : TellNotWritten(prompt);
}

std::string DropDateText(const GlobalState& g, const Region& region, int day) {
    const DaySerial date = g.week.WeekStartJulian + day - 1;
    return region.Names().weekdays[Weekday(date)] + ", " +
           DateText(date, g.application.DateFormatSetting, region);
}

std::string DropTitle(const Department& department, const Roster& roster, int employee) {
    return Isolated(department.CurrentDepName) + ": " +
           Isolated(roster.RosterName1[employee] + " " + roster.RosterName2[employee]);
}

WeekChange DropDaytype(GlobalState& g, int employee, int day, int index) {
    const std::string symbol = Trim(g.daytypes.DayTypeSymbols[index]);
    if (symbol == Trim(g.week.DayTypeText[day][employee])) return {};
    return WeekEdit(g).SetDaytype(employee, day, symbol);
}

} // namespace tvx
