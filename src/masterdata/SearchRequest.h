// What the search for an employee is opened for, and what it answers.
#pragma once

#include "shell/state/FormCommand.h"

namespace tvx {

struct SearchAnswer {
    int SelectedEmployee = 0; // key of the one that was picked; 0 when nobody was
};

struct SearchRequest {
    using Answer = SearchAnswer;
    FormCommand command = FormCommand::Change; // Change, Delete or Transfer
};

} // namespace tvx
