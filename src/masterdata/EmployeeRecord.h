// One employee's record: what the screen holds, the rules of its boxes, loading and saving.
#pragma once

#include "masterdata/AvailabilityGrid.h"
#include "platform/ports/Ports.h"
#include "shell/common/SaveResult.h"
#include "shell/state/TVXGLOB.h"

#include <array>
#include <optional>
#include <string>

namespace tvx {

/// Boxes of the record, by their index on the screen.
namespace box_of {
constexpr int LastName = 1;
constexpr int FirstName = 2;
constexpr int Id = 3;
constexpr int Assignment = 4;
constexpr int Pay = 5;
constexpr int Street = 6;
constexpr int City = 7;
constexpr int State = 8;
constexpr int Zip = 9;
constexpr int HireDate = 10;
constexpr int BirthDate = 11;
constexpr int Phone = 12;
constexpr int EmergencyPhone = 13;
constexpr int CellPhone = 14;
constexpr int SocSecNumber = 15;
constexpr int Email = 16;
constexpr int Last = 16;
} // namespace box_of

/// What a box is called, and how much it takes.
struct EmployeeBox {
    const char* label = "";
    int maxLength = 0; // characters that can be typed
};
/// [1..16]
const std::array<EmployeeBox, box_of::Last + 1>& EmployeeBoxes();

/// What the screen holds.
struct EmployeeRecord {
    int key = 0;                                     // of the stored record; 0 for a new one
    std::array<std::string, box_of::Last + 1> Text2; // [1..16], empty for the two dates and a hidden pay
    std::optional<DaySerial> hireDate;
    std::optional<DaySerial> birthDate;
    std::string comments;
    bool payHidden = false; // neither pay nor its kind is here: a change keeps those that are stored
    bool hourly = true;
    bool active = true;
    int laborOption = 0; // 0 full time, 1 part time, 2 student, 3 other; -1 none chosen
    int barColor = 2;    // palette index 1 to 14
    Absence absence;

    friend bool operator==(const EmployeeRecord&, const EmployeeRecord&) = default;
};

/// An empty record with the options' bar colour.
EmployeeRecord NewEmployeeRecord(const Options& options);

/// The stored record of an employee, as far as the rights let it be seen. Throws DaoError; 3021 when it is
/// gone.
EmployeeRecord LoadEmployeeRecord(const Store& store, const ApplicationState& application,
                                  const Rights& rights, int employeeKey);

/// Keys of the whole department in the order of last names, inactive people included. Throws DaoError.
std::vector<int> EmployeeKeys(const Store& store, const Department& department);

/// Adds the record to the current department, or writes it to the stored record of its key, in one
/// transaction, with the boxes of any refusal. Refuses an addition when all numbers for employees are given.
SaveResult SaveEmployeeRecord(const Store& store, const Department& department, Ports& ports,
                              const EmployeeRecord& record);

/// The key rule of a box: 0 drops the key. The double quote is dropped everywhere; pay takes what an amount
/// takes (FilterAmountKey); the state's letters become capitals. `text` is what the box holds.
int FilterEmployeeKey(int index, int code, const std::string& text, int decimalSign);

/// The box that Enter, or an arrow up (-1) or down (1), leads to from a box; the same box when to none. With
/// pay hidden its box is passed over.
int BoxAfterEnter(int index, bool hideWages);
int BoxAfterArrow(int index, int direction, bool hideWages);

/// A pay as it stands after leaving its box: its leading number, two decimals.
std::string NormalizedPay(const std::string& text);

/// "Robert is under the age of 16." when the birth date says so, else "". On the birthday itself nobody is.
std::string UnderAgeNotice(std::optional<DaySerial> birthDate, const GlobalState& g, const Ports& ports);

/// What can be typed as a date, for the hint line: "Use format like 2-Jan-2026 or Apr-12-26".
std::string DateHint(const GlobalState& g, const Ports& ports);

/// Title of the screen.
std::string EmployeeTitle(const Department& department, bool adding);

} // namespace tvx
