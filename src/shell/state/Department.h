// The current department, and the list of all.
#pragma once

#include <string>
#include <vector>

namespace tvx {

struct Department {
    int CurrentDepNumber = 0;
    std::string CurrentDepName;
    int EditorOrder = 1;       // 1 to 6, the listing order of the Main Editor
    int FirstWeekday = 1;      // 1 Sunday to 7 Saturday
    int DayCutoffQuarters = 0; // quarters after midnight at which a business day begins
    int WeekMethod = 0;        // how weeks are numbered; 3 shows no number
    std::string EmployeeNameSingle = "Employee";
    std::string EmployeeNamePlural = "Employees";
    std::string DayOffNameSingle = "Vacation day";
    std::string DayOffNamePlural = "Vacation days";
};

struct DepartmentList {
    int DepartmentCount = 0;
    std::vector<int> DepNumbers;       // [0..DepartmentCount - 1], ascending
    std::vector<std::string> DepNames; // [0..DepartmentCount - 1]
    int PreviousDepNumber = 0;         // the department to come back to after a change
    bool MultipleDepartments = false;
};

} // namespace tvx
