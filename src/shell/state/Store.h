// The open database and the recordsets that the screens hand to each other.
#pragma once

#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"

#include <memory>

namespace tvx {

struct Store {
    dao::Engine Engine;
    std::unique_ptr<dao::Database> Db; // nullptr while no database is open
    dao::Recordset ApplicationRs;
    dao::Recordset DepartmentRs;
    dao::Recordset EmployeeRs;
    dao::Recordset DayScheduleRs;
    dao::Recordset DepartmentDayRs;
    dao::Recordset DayTypesRs;
};

} // namespace tvx
