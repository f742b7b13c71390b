// What the screen of stored shifts is opened for, and what it answers.
#pragma once

#include "masterdata/ListRequest.h"

namespace tvx {

struct ShiftsAnswer {
    int SelectedDayType = 0; // index of the shift that was picked; 0 when none was
};

/// To add one, its bars wait behind the last shift of the list.
struct ShiftsRequest {
    using Answer = ShiftsAnswer;
    ListRequest DayTypeRequest = ListRequest::Add;
    int employee = 0; // of the roster, and
    int day = 1;      // the day of the week, 1 to 7, that a shift is picked for
};

} // namespace tvx
