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
        return StoredText(e, &EmployeeRow::phone);
    case SocSec:
        return StoredText(e, &EmployeeRow::socSecNumber);
    default:
        return "";
    }
}

std::string NameDetails::StoredText(int e, std::string EmployeeRow::*text) {
    try {
        if (!employees_) employees_.emplace(store_.Open());
        const auto row = employees_->Find(roster_.RosterEmployeeKey[e]);
        return row ? (*row).*text : "";
    } catch (const dao::DaoError&) {
        return "";
    }
}

} // namespace tvx
