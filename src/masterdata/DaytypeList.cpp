#include "masterdata/DaytypeList.h"

#include "editor/lanes/DaytypeBox.h"
#include "editor/week/WeekEdit.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DayTypeRow.h"

namespace tvx {
namespace {

bool IsBlank(const std::string& text) {
    return Trim(text).empty();
}

/// Index of another entry with this symbol; 0 when there is none.
int IndexOfSymbol(const Daytypes& daytypes, const std::string& symbol, int except) {
    const std::string wanted = UpperCase(Trim(symbol));
    for (int i = 1; i <= daytypes.DayTypeCount; ++i)
        if (i != except && UpperCase(daytypes.DayTypeSymbols[i]) == wanted) return i;
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

/// Runs a step on the store; what it refuses goes by without a word.
template <typename Step>
void Quietly(Step step) {
    try {
        step();
    } catch (const dao::DaoError&) {
        return; // the lists on the screen are read anew from the store where that matters
    }
}

void ReadAgain(const Store& store, const Department& department, Daytypes& daytypes) {
    Quietly([&] { LoadDayTypes(store, department.CurrentDepNumber, daytypes); });
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

SaveResult AddDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                      const std::string& symbol, const std::string& explanation) {
    if (daytypes.DayTypeCount >= MostDayTypes) {
        prompt.Beep();
        return SaveResult::Incomplete;
    }
    const SaveResult result = Check(daytypes, prompt, symbol, explanation, 0, " ");
    if (result != SaveResult::Saved) return result;
    const int index = ++daytypes.DayTypeCount;
    daytypes.DayTypeSymbols[index] = Trim(symbol);
    daytypes.DayTypeNames[index] = Trim(explanation);
    Quietly([&] { AddDayTypeRow(store.Open(), RowOf(department, symbol, Trim(explanation))); });
    ReadAgain(store, department, daytypes);
    return SaveResult::Saved;
}

SaveResult ChangeDaytype(const Store& store, const Department& department, Daytypes& daytypes, Prompt& prompt,
                         int index, const std::string& symbol, const std::string& explanation) {
    const std::string name = NormalizedExplanation(explanation);
    const SaveResult result = Check(daytypes, prompt, symbol, name, index, "");
    if (result != SaveResult::Saved) return result;
    const std::string oldSymbol = daytypes.DayTypeSymbols[index];
    daytypes.DayTypeSymbols[index] = Trim(symbol);
    daytypes.DayTypeNames[index] = name;
    Quietly([&] { ChangeDayTypeRow(store.Open(), oldSymbol, RowOf(department, symbol, name)); });
    ReadAgain(store, department, daytypes);
    return SaveResult::Saved;
}

void DeleteDaytype(const Store& store, const Department& department, Daytypes& daytypes, int index) {
    Quietly(
        [&] { DeleteDayTypeRow(store.Open(), department.CurrentDepNumber, daytypes.DayTypeSymbols[index]); });
    ReadAgain(store, department, daytypes);
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
