// The open database and the recordsets that the screens hand to each other.
#pragma once

#include "platform/dao/DaoError.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"

#include <memory>

namespace tvx {

struct Store {
    dao::Engine Engine;
    std::unique_ptr<dao::Database> Db; // nullptr while no database is open; only who opens and closes asks it
    dao::Recordset ApplicationRs;
    dao::Recordset DepartmentRs;
    dao::Recordset EmployeeRs;
    dao::Recordset DayScheduleRs;
    dao::Recordset DepartmentDayRs;
    dao::Recordset DayTypesRs;

    /// The open database. Throws DaoError 3420 while none is open.
    dao::Database& Open() const {
        if (!Db) throw dao::DaoError(dao::error::ObjectInvalid, "Object invalid or no longer set.");
        return *Db;
    }
};

} // namespace tvx
