#include "reports/schedules/NameDetails.h"

#include "platform/dao/DaoError.h"

namespace tvx {
namespace {

enum Option { Assignment = 1, Id = 2, Phone = 3, SocSec = 4 };

} // namespace

std::string NameDetails::Of(int e) {
    switch (nameOption_) {
    case Assignment:
        return roster_.RosterAssignment[e];
    case Id:
        return roster_.RosterId[e];
    case Phone:
        return FieldOf(e, "Phone");
    case SocSec:
        return FieldOf(e, "Soc Sec number");
    default:
        return "";
    }
}

std::string NameDetails::FieldOf(int e, const char* field) {
    try {
        if (!employees_.IsOpen()) {
            employees_ = store_.Open().OpenRecordset("Employee");
            employees_.Index("Seq");
        }
        employees_.Seek({std::int64_t{roster_.RosterEmployeeKey[e]}});
        return employees_.NoMatch() ? "" : employees_.Fields(field).Text();
    } catch (const dao::DaoError&) {
        return "";
    }
}

} // namespace tvx
