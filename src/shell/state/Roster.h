// The people of the department, one row of parallel arrays each, as the Main Editor opened them.
#pragma once

#include "platform/basic/Currency.h"
#include "platform/basic/Date.h"

#include <array>
#include <string>
#include <vector>

namespace tvx {

using WeekQuarter = int; // quarters of an hour after midnight of day 1, 0 to 768
using DayQuarter = int;  // quarters of an hour after midnight, 0 to 96

constexpr int QuartersPerDay = 96;
constexpr int QuartersPerSpan = 768; // eight days
constexpr int AvailabilitySlots = 34;

struct Roster {
    int EmployeeCount = 0;
    // All below: [0..EmployeeCount], element 0 empty.
    std::vector<int> RowOrder;            // [sorted position], employee
    std::vector<int> EmployeeRowIndex;    // [row], the row's own number, kept through sorts
    std::vector<std::string> RosterName1; // last name, or first name in listing order 6
    std::vector<std::string> RosterName2; // the other name
    std::vector<std::string> RosterId;
    std::vector<std::string> RosterAssignment;
    std::vector<Currency> RosterPay;    // hourly wage, or weekly salary
    std::vector<int> RosterWageOrSal;   // not 0: paid by the hour
    std::vector<int> RosterEmployeeKey; // 1 to 32767, key of the employee's rows
    std::vector<std::string> RosterPhone;
    std::vector<std::string> RosterComments;
    std::vector<DaySerial> RosterBirthDate;   // 0 when not known
    std::vector<DaySerial> RosterHireDate;    // 0 when not known
    std::vector<std::string> RosterLaborType; // "Full time", "Part time", "Student", "Other" or ""
    std::vector<int> RosterBarColor;          // palette index 0 to 14
    std::vector<int> RosterDepNumber;         // only when all departments are shown
    std::vector<std::string> RosterDepName;   // only when all departments are shown

    // Hours at which the employee is not available, on a Sunday-first scale of eight days.
    std::vector<int> AvailabilityCount; // a trailing slot may be empty: readers skip a stop of 0
    std::vector<std::array<WeekQuarter, AvailabilitySlots + 1>> AvailabilityStarts; // [employee][slot 1..34]
    std::vector<std::array<WeekQuarter, AvailabilitySlots + 1>> AvailabilityStops;  // [employee][slot 1..34]

    bool AllDepartmentsMode = false; // the roster holds the people who share an ID across departments

    bool IsPaidByHour(int employee) const { return RosterWageOrSal[static_cast<std::size_t>(employee)] != 0; }
};

} // namespace tvx
