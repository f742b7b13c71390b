// What the profile of a department is opened for, and what it answers.
#pragma once

#include "shell/state/FormCommand.h"

namespace tvx {

struct DepartmentAnswer {
    bool saved = false;
};

struct DepartmentRequest {
    using Answer = DepartmentAnswer;
    FormCommand command = FormCommand::Change; // Add, or Change of the current department
};

} // namespace tvx
