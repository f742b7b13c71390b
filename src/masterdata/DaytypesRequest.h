// What the screen of daytypes is opened for, and what it answers.
#pragma once

#include "masterdata/ListRequest.h"

namespace tvx {

struct DaytypesAnswer {
    int SelectedDayType = 0; // index of the daytype that was picked; 0 when none was
};

struct DaytypesRequest {
    using Answer = DaytypesAnswer;
    ListRequest DayTypeRequest = ListRequest::None;
    int employee = 0; // of the roster, and
    int day = 1;      // the day of the week, 1 to 7, that a daytype is picked for
};

} // namespace tvx
