// What stands under or behind the names of a schedule, from the store where the roster does not have it.
#pragma once

#include "shell/state/Roster.h"
#include "shell/state/Store.h"
#include "store/rows/EmployeeRow.h"

#include <optional>
#include <string>

namespace tvx {

/// Looks details up for one run. A record or a file that cannot be read gives "": the report goes on without.
class NameDetails {
  public:
    NameDetails(const Store& store, const Roster& roster, int nameOption)
        : store_(store), roster_(roster), nameOption_(nameOption) {}

    /// By the option: nothing, assignment, ID, phone or social security number.
    std::string Of(int employee);

  private:
    std::string StoredText(int employee, std::string EmployeeRow::*text);

    const Store& store_;
    const Roster& roster_;
    int nameOption_;
    std::optional<EmployeeTable> employees_; // opened with the first look
};

} // namespace tvx
