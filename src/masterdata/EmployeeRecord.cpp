#include "masterdata/EmployeeRecord.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/AmountKeys.h"
#include "shell/common/Conversions.h"
#include "store/Troubles.h"
#include "store/rows/EmployeeRow.h"
#include "store/rows/Schema.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::array<int, 4> LaborCodes{0, 1, 2, 4}; // code 3 was never given
constexpr int GreatestBarColor = 14;

int ColorOf(const std::optional<int>& stored, const Options& options) {
    const int color = stored.value_or(options.BarColor);
    return color < 0 || color > GreatestBarColor ? 2 : color;
}

int LaborOptionOf(int code) {
    const auto found = std::find(LaborCodes.begin(), LaborCodes.end(), code);
    return found == LaborCodes.end() ? -1 : static_cast<int>(found - LaborCodes.begin());
}

/// The members of the row whose texts stand in boxes as they are stored; nullptr for pay and the two dates.
std::string EmployeeRow::*TextOfBox(int index) {
    static constexpr std::array<std::string EmployeeRow::*, box_of::Last + 1> texts{
        nullptr,
        &EmployeeRow::lastName,
        &EmployeeRow::firstName,
        &EmployeeRow::id,
        &EmployeeRow::assignment,
        nullptr,
        &EmployeeRow::street,
        &EmployeeRow::city,
        &EmployeeRow::state,
        &EmployeeRow::zip,
        nullptr,
        nullptr,
        &EmployeeRow::phone,
        &EmployeeRow::emergencyPhone,
        &EmployeeRow::cellPhone,
        &EmployeeRow::socSecNumber,
        &EmployeeRow::email,
    };
    return texts[static_cast<std::size_t>(index)];
}

void ShowPay(EmployeeRecord& record, const EmployeeRow& row) {
    record.Text2[box_of::Pay] = NormalizedPay(row.pay);
    record.hourly = row.wageOrSal != 0;
}

void ShowTexts(EmployeeRecord& record, const EmployeeRow& row) {
    for (int i = 1; i <= box_of::Last; ++i)
        if (const auto text = TextOfBox(i)) record.Text2[i] = row.*text;
    record.hireDate = row.hireDate;
    record.birthDate = row.birthDate;
}

void CopyTexts(EmployeeRow& row, const EmployeeRecord& record) {
    for (int i = 1; i <= box_of::Last; ++i)
        if (const auto text = TextOfBox(i)) row.*text = record.Text2[i];
    row.pay = record.Text2[box_of::Pay].empty() ? "0" : record.Text2[box_of::Pay];
    if (row.email.empty()) row.email = " ";
    row.hireDate = record.hireDate;
    row.birthDate = record.birthDate;
}

EmployeeRow RowOf(const EmployeeRecord& record, const Department& department) {
    EmployeeRow row;
    row.key = record.key;
    row.depNumber = department.CurrentDepNumber;
    CopyTexts(row, record);
    row.wageOrSal = record.hourly ? -1 : 0;
    row.active = record.active;
    row.laborType = LaborCodes[static_cast<std::size_t>(std::max(0, record.laborOption))];
    row.barColor = record.barColor;
    row.comments = record.comments;
    row.availStart = EncodeStarts(record.absence);
    row.availStop = EncodeStops(record.absence);
    return row;
}

/// Returns the key.
int WriteRow(dao::Database& database, const EmployeeRow& row, bool payHidden) {
    if (row.key == 0) return AddEmployeeRow(database, row);
    if (payHidden)
        ChangeEmployeeRowButPay(database, row);
    else
        ChangeEmployeeRow(database, row);
    return row.key;
}

/// False, and nothing is written, when no number is left for an addition.
bool WriteRecord(const Store& store, const Department& department, const EmployeeRecord& record) {
    EmployeeRow row = RowOf(record, department);
    dao::Transaction transaction(store.Open());
    row.key = WriteRow(store.Open(), row, record.payHidden);
    if (record.key == 0 && row.key > GreatestEmployeeKey) return false;
    const auto written = FindEmployeeRow(store.Open(), row.key);
    transaction.Commit([&] { return FindEmployeeRow(store.Open(), row.key) == written; });
    return true;
}

SaveResult TellNoNumberLeft(Prompt& prompt, const Department& department) {
    prompt.Beep();
    prompt.MsgBox("Could not add this " + department.EmployeeNameSingle + ".\n\n" +
                      department.EmployeeNamePlural +
                      " are numbered from 1 to 32,767, and the last number has been given.",
                  box::Ok, "No number left...");
    return SaveResult::Refused;
}

} // namespace

const std::array<EmployeeBox, box_of::Last + 1>& EmployeeBoxes() {
    static const std::array<EmployeeBox, box_of::Last + 1> boxes{{
        {},
        {"Last name", 18},
        {"First name", 9},
        {"I.D.", 6},
        {"Assignmt.", 7},
        {"Pay ", 7},
        {"Street", 30},
        {"City", 20},
        {"State", 3},
        {"Zip", 10},
        {"Hire date", 12},
        {"Birth date", 12},
        {"Phone", 15},
        {"Emerg. Phone", 15},
        {"Cell phone", 15},
        {"Soc. Sec. Nbr", 11},
        {"Email", 40},
    }};
    return boxes;
}

EmployeeRecord NewEmployeeRecord(const Options& options) {
    EmployeeRecord record;
    record.barColor = ColorOf(std::nullopt, options);
    return record;
}

EmployeeRecord LoadEmployeeRecord(const Store& store, const ApplicationState& application,
                                  const Rights& rights, int employeeKey) {
    const std::optional<EmployeeRow> row = FindEmployeeRow(store.Open(), employeeKey);
    if (!row) throw dao::DaoError(dao::error::NoCurrentRecord, "No current record.");
    EmployeeRecord record;
    record.key = row->key;
    ShowTexts(record, *row);
    record.payHidden = rights.HideWages;
    if (!record.payHidden) ShowPay(record, *row);
    record.comments = row->comments;
    record.active = row->active;
    record.laborOption = LaborOptionOf(row->laborType);
    record.barColor = ColorOf(row->barColor, application.options);
    record.absence = DecodeAbsence(row->availStart, row->availStop);
    return record;
}

std::vector<int> EmployeeKeys(const Store& store, const Department& department) {
    return ReadEmployeeKeys(store.Open(), department.CurrentDepNumber);
}

SaveResult SaveEmployeeRecord(const Store& store, const Department& department, Ports& ports,
                              const EmployeeRecord& record) {
    if (Trim(record.Text2[box_of::LastName]).empty()) {
        ports.prompt.Beep();
        ports.prompt.MsgBox("Last name must be filled out.", box::Ok, "Last Name is blank");
        return SaveResult::Incomplete;
    }
    try {
        if (!WriteRecord(store, department, record)) return TellNoNumberLeft(ports.prompt, department);
    } catch (const dao::DaoError& trouble) {
        TellTrouble(ports.prompt, TroubleOf(Occasion::Saving, trouble, department.EmployeeNameSingle));
        return SaveResult::Refused;
    }
    return SaveResult::Saved;
}

int FilterEmployeeKey(int index, int code, const std::string& text, int decimalSign) {
    constexpr int DoubleQuote = 34;
    if (code == DoubleQuote) return 0;
    if (index == box_of::State && code >= 'a' && code <= 'z') return code - 32;
    return index == box_of::Pay ? FilterAmountKey(code, text, decimalSign) : code;
}

int BoxAfterEnter(int index, bool hideWages) {
    if (index >= box_of::Last) return box_of::LastName;
    return hideWages && index == box_of::Assignment ? box_of::Street : index + 1;
}

int BoxAfterArrow(int index, int direction, bool hideWages) {
    if (direction < 0) {
        if (index < 2) return index;
        return hideWages && index == box_of::Street ? box_of::Assignment : index - 1;
    }
    if (index >= box_of::SocSecNumber) return index;
    return hideWages && index == box_of::Assignment ? box_of::Street : index + 1;
}

std::string NormalizedPay(const std::string& text) {
    return Format(Val(text), ".00");
}

std::string UnderAgeNotice(std::optional<DaySerial> birthDate, const GlobalState& g, const Ports& ports) {
    const AgeLimit& age = g.application.options.UnderAge;
    if (!birthDate) return "";
    const DateParts today = PartsOf(ports.clock.Today());
    const DaySerial limit = SerialFromParts(today.year - age.years, today.month, today.day);
    return *birthDate > limit ? g.department.EmployeeNameSingle + " is under the age of " + age.text + "."
                              : "";
}

std::string DateHint(const GlobalState& g, const Ports& ports) {
    const int year = PartsOf(ports.clock.Today()).year;
    const std::string whole = std::to_string(year);
    const std::string two = whole.substr(whole.size() - 2);
    const std::string& january = ports.region.Names().shortMonths[1];
    const std::string& april = ports.region.Names().shortMonths[4];
    if (g.application.DateFormatSetting == "YYYY-MM-DD")
        return "Use format like " + january + "-12-" + two + " or " + two + "-" + april + "-12";
    return "Use format like 2-" + january + "-" + whole + " or " + april + "-12-" + two;
}

std::string EmployeeTitle(const Department& d, bool adding) {
    if (adding) return Isolated(d.CurrentDepName) + ": Add new " + d.EmployeeNameSingle;
    return Isolated(d.CurrentDepName) + ": Change " + d.EmployeeNameSingle + " record";
}

} // namespace tvx
