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
DaytypeResult Check(const GlobalState& g, Prompt& prompt, const std::string& symbol,
                    const std::string& explanation, int except, const std::string& gap) {
    if (IsBlank(symbol) || IsBlank(explanation)) {
        prompt.Beep();
        return DaytypeResult::Incomplete;
    }
    const int taken = IndexOfSymbol(g.daytypes, symbol, except);
    if (taken == 0) return DaytypeResult::Done;
    prompt.Beep();
    prompt.MsgBox("DayType " + Trim(symbol) + "\r\n is in use for" + gap + g.daytypes.DayTypeNames[taken],
                  box::Ok, "DayType duplicate");
    return DaytypeResult::InUse;
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

void ReadAgain(GlobalState& g) {
    Quietly([&] { LoadDayTypes(g.store, g.department.CurrentDepNumber, g.daytypes); });
}

DayTypeRow RowOf(const GlobalState& g, const std::string& symbol, const std::string& explanation) {
    return {g.department.CurrentDepNumber, Trim(symbol), explanation};
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

DaytypeResult AddDaytype(GlobalState& g, Prompt& prompt, const std::string& symbol,
                         const std::string& explanation) {
    if (g.daytypes.DayTypeCount >= MostDayTypes) {
        prompt.Beep();
        return DaytypeResult::Incomplete;
    }
    const DaytypeResult result = Check(g, prompt, symbol, explanation, 0, " ");
    if (result != DaytypeResult::Done) return result;
    const int index = ++g.daytypes.DayTypeCount;
    g.daytypes.DayTypeSymbols[index] = Trim(symbol);
    g.daytypes.DayTypeNames[index] = Trim(explanation);
    Quietly([&] { AddDayTypeRow(g.store.Open(), RowOf(g, symbol, Trim(explanation))); });
    ReadAgain(g);
    return DaytypeResult::Done;
}

DaytypeResult ChangeDaytype(GlobalState& g, Prompt& prompt, int index, const std::string& symbol,
                            const std::string& explanation) {
    const std::string name = NormalizedExplanation(explanation);
    const DaytypeResult result = Check(g, prompt, symbol, name, index, "");
    if (result != DaytypeResult::Done) return result;
    const std::string oldSymbol = g.daytypes.DayTypeSymbols[index];
    g.daytypes.DayTypeSymbols[index] = Trim(symbol);
    g.daytypes.DayTypeNames[index] = name;
    Quietly([&] { ChangeDayTypeRow(g.store.Open(), oldSymbol, RowOf(g, symbol, name)); });
    ReadAgain(g);
    return DaytypeResult::Done;
}

void DeleteDaytype(GlobalState& g, int index) {
    Quietly([&] {
        DeleteDayTypeRow(g.store.Open(), g.department.CurrentDepNumber, g.daytypes.DayTypeSymbols[index]);
    });
    ReadAgain(g);
}

int DayOfDrop(const GlobalState& g) {
    return g.listDialog.DayTypeCaller == "Week" ? g.listDialog.DayTypeColumn : g.cursor.CurrentDay;
}

std::string DropDateText(const GlobalState& g, const Region& region) {
    const DaySerial date = g.week.WeekStartJulian + DayOfDrop(g) - 1;
    return region.Names().weekdays[Weekday(date)] + ", " +
           DateText(date, g.application.DateFormatSetting, region);
}

std::string DropTitle(const GlobalState& g) {
    const int e = g.cursor.CurrentEmployee;
    return g.department.CurrentDepName + ": " + g.roster.RosterName1[e] + " " + g.roster.RosterName2[e];
}

void DropDaytype(GlobalState& g, int index) {
    const int e = g.cursor.CurrentEmployee;
    const int day = DayOfDrop(g);
    const std::string symbol = Trim(g.daytypes.DayTypeSymbols[index]);
    if (symbol != Trim(g.week.DayTypeText[day][e])) WeekEdit(g).SetDaytype(e, day, symbol);
}

} // namespace tvx
