#include "masterdata/EmployeeRecord.h"

#include "platform/basic/Format.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"

#include <algorithm>

namespace tvx {
namespace {

constexpr std::array<int, 4> LaborCodes{0, 1, 2, 4}; // code 3 was never given
constexpr int GreatestBarColor = 14;

int DefaultBarColor(const ApplicationState& application) {
    return static_cast<int>(RoundHalfToEven(Val(application.Settings[setting::BarColor])));
}

int ColorOf(const dao::Value& field, const ApplicationState& application) {
    const std::int64_t color = dao::IsNull(field) ? DefaultBarColor(application) : dao::ToLong(field);
    return color < 0 || color > GreatestBarColor ? 2 : static_cast<int>(color);
}

int LaborOptionOf(std::int64_t code) {
    const auto found = std::find(LaborCodes.begin(), LaborCodes.end(), static_cast<int>(code));
    return found == LaborCodes.end() || code != *found ? -1 : static_cast<int>(found - LaborCodes.begin());
}

bool IsDateBox(int index) {
    return index == box_of::HireDate || index == box_of::BirthDate;
}

std::string DateOf(const dao::Value& field, const GlobalState& g, const Region& region) {
    if (dao::IsNull(field)) return "";
    return DateText(static_cast<DaySerial>(Int(dao::ToDouble(field))), g.application.DateFormatSetting,
                    region);
}

void SeekEmployee(GlobalState& g, int key) {
    dao::Recordset& rs = g.store.EmployeeRs;
    rs = g.store.Open().OpenRecordset("Employee");
    rs.Index("Seq");
    rs.Seek({std::int64_t{key}});
    if (rs.NoMatch()) throw dao::DaoError(dao::error::NoCurrentRecord, "No current record.");
}

void TakeTexts(EmployeeRecord& record, dao::Recordset& rs, const GlobalState& g, const Region& region) {
    for (int i = 1; i <= box_of::Last; ++i) {
        dao::Field field = rs.Fields(EmployeeBoxes()[i].field);
        if (i == box_of::Pay)
            record.Text2[i] = NormalizedPay(field.Text());
        else if (IsDateBox(i))
            record.Text2[i] = DateOf(field.Value(), g, region);
        else
            record.Text2[i] = field.Text();
    }
}

dao::Value StoredText(const EmployeeRecord& record, int i, const Ports& ports) {
    const std::string& text = record.Text2[i];
    if (i == box_of::Pay) return text.empty() ? "0" : text;
    if (i == box_of::Email) return text.empty() ? " " : text;
    if (!IsDateBox(i)) return text;
    const auto serial = DateValue(text, ports.region, ports.clock.Today());
    return serial ? dao::Value(std::int64_t{*serial}) : dao::Value(dao::Null{});
}

void Fill(dao::Recordset& rs, const EmployeeRecord& record, const Ports& ports) {
    for (int i = 1; i <= box_of::Last; ++i)
        rs.Fields(EmployeeBoxes()[i].field) = StoredText(record, i, ports);
    rs.Fields("Wage or Sal") = record.hourly ? -1 : 0;
    rs.Fields("Active") = record.active;
    rs.Fields("Labor type") = LaborCodes[static_cast<std::size_t>(std::max(0, record.laborOption))];
    rs.Fields("EbarColor") = record.barColor;
    rs.Fields("Comments") = record.comments;
    rs.Fields("Avail start") = EncodeStarts(record.absence);
    rs.Fields("Avail stop") = EncodeStops(record.absence);
}

void WriteRecord(GlobalState& g, const EmployeeRecord& record, const Ports& ports) {
    dao::Recordset& rs = g.store.EmployeeRs;
    const bool adding = g.application.FormCommand == "Add";
    if (adding) rs = g.store.Open().OpenRecordset("Employee");
    dao::Transaction transaction(g.store.Open());
    if (adding)
        rs.AddNew();
    else
        rs.Edit();
    Fill(rs, record, ports);
    if (adding) rs.Fields("Dep number") = g.department.CurrentDepNumber;
    rs.Update();
    if (adding) rs.MoveLast();
    transaction.Commit();
}

} // namespace

const std::array<EmployeeBox, box_of::Last + 1>& EmployeeBoxes() {
    static const std::array<EmployeeBox, box_of::Last + 1> boxes{{
        {},
        {"Last name", 18, "Last name"},
        {"First name", 9, "First name"},
        {"I.D.", 6, "ID"},
        {"Assignmt.", 7, "Assignment"},
        {"Pay ", 7, "Pay"},
        {"Street", 30, "Street"},
        {"City", 20, "City"},
        {"State", 3, "State"},
        {"Zip", 10, "Zip"},
        {"Hire date", 12, "Hire Date"},
        {"Birth date", 12, "Birth date"},
        {"Phone", 15, "Phone"},
        {"Emerg. Phone", 15, "Emergency phone"},
        {"Cell phone", 15, "Page/Cell phone"},
        {"Soc. Sec. Nbr", 11, "Soc Sec number"},
        {"Email", 40, "Email"},
    }};
    return boxes;
}

EmployeeRecord NewEmployeeRecord(const ApplicationState& application) {
    EmployeeRecord record;
    record.barColor = ColorOf(dao::Null{}, application);
    return record;
}

EmployeeRecord LoadEmployeeRecord(GlobalState& g, const Region& region, int employeeKey) {
    SeekEmployee(g, employeeKey);
    dao::Recordset& rs = g.store.EmployeeRs;
    EmployeeRecord record;
    TakeTexts(record, rs, g, region);
    record.comments = rs.Fields("Comments").Text();
    record.hourly = rs.Fields("Wage or Sal").Flag();
    record.active = rs.Fields("Active").Flag();
    record.laborOption = LaborOptionOf(rs.Fields("Labor type").Long());
    record.barColor = ColorOf(rs.Fields("EbarColor").Value(), g.application);
    record.absence = DecodeAbsence(rs.Fields("Avail start").Text(), rs.Fields("Avail stop").Text());
    return record;
}

std::vector<int> EmployeeKeys(GlobalState& g) {
    dao::Recordset rs = g.store.Open().OpenRecordset("SELECT Employee FROM Employee  WHERE [Dep number] = " +
                                                     std::to_string(g.department.CurrentDepNumber) +
                                                     " ORDER BY [Last name] ASC;");
    std::vector<int> keys;
    for (; !rs.AtEnd(); rs.MoveNext()) keys.push_back(static_cast<int>(rs.Fields(std::size_t{0}).Long()));
    return keys;
}

EmployeeResult SaveEmployeeRecord(GlobalState& g, Ports& ports, const EmployeeRecord& record) {
    if (Trim(record.Text2[box_of::LastName]).empty()) {
        ports.prompt.Beep();
        ports.prompt.MsgBox("Last name must be filled out.", box::Ok, "Last Name is blank");
        return EmployeeResult::NameMissing;
    }
    try {
        WriteRecord(g, record, ports);
    } catch (const dao::DaoError& trouble) {
        ports.prompt.MousePointer(Pointer::Default);
        ports.prompt.MsgBox("Could not save this " + g.department.EmployeeNameSingle +
                                ",\r\nthis page is locked by another user, try again..\r\n\r\n(" +
                                std::to_string(trouble.Number()) + ")",
                            box::Ok, "Locked page...");
        return EmployeeResult::Refused;
    }
    return EmployeeResult::Saved;
}

int FilterEmployeeKey(int index, int code, const std::string& text) {
    constexpr int Backspace = 8;
    constexpr int Enter = 13;
    constexpr int DoubleQuote = 34;
    if (code == DoubleQuote) return 0;
    if (index == box_of::State && code >= 'a' && code <= 'z') return code - 32;
    if (index != box_of::Pay || code == Backspace || code == Enter || (code >= '0' && code <= '9'))
        return code;
    return code == '.' && text.find('.') == std::string::npos ? code : 0;
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

std::optional<std::string> NormalizedDate(const std::string& text, const GlobalState& g, const Ports& ports) {
    if (Trim(text).empty()) return "";
    const std::string normal =
        NormalizeDateText(text, g.application.DateFormatSetting, ports.region, ports.clock.Today());
    if (normal.empty()) return std::nullopt;
    return normal;
}

std::string UnderAgeNotice(const std::string& birthDate, const GlobalState& g, const Ports& ports) {
    const std::string& age = g.application.Settings[setting::UnderAge];
    const auto birth = DateValue(birthDate, ports.region, ports.clock.Today());
    if (!birth) return "";
    const DateParts today = PartsOf(ports.clock.Today());
    const int years = static_cast<int>(std::clamp<std::int64_t>(RoundHalfToEven(Val(age)), 0, 1000));
    const DaySerial limit = SerialFromParts(today.year - years, today.month, today.day);
    return *birth > limit ? g.department.EmployeeNameSingle + " is under the age of " + age + "." : "";
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

std::string EmployeeTitle(const GlobalState& g) {
    const Department& d = g.department;
    if (g.application.FormCommand == "Add") return d.CurrentDepName + ": Add new " + d.EmployeeNameSingle;
    return d.CurrentDepName + ": Change " + d.EmployeeNameSingle + " record";
}

} // namespace tvx
