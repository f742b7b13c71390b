// The open database and the one recordset that outlives a call.
#pragma once

#include "platform/dao/DaoError.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"

#include <memory>

namespace tvx {

struct Store {
    dao::Engine Engine;
    std::unique_ptr<dao::Database> Db; // nullptr while no database is open; only who opens and closes asks it
    dao::Recordset EmployeeRs;         // the roster's query; a listing order of no meaning reads it again

    /// The open database. Throws DaoError 3420 while none is open.
    dao::Database& Open() const {
        if (!Db) throw dao::DaoError(dao::error::ObjectInvalid, "Object invalid or no longer set.");
        return *Db;
    }
};

} // namespace tvx
