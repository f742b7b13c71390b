// What the record of an employee is opened for.
#pragma once

namespace tvx {

struct EmployeeAnswer {};

struct EmployeeRequest {
    using Answer = EmployeeAnswer;
    int SelectedEmployee = 0; // key of the one to change; 0 adds one after the other
};

} // namespace tvx
