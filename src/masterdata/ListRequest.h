// What the screens of a department's lists are opened for.
#pragma once

namespace tvx {

/// By the numbers of `DayTypeRequest`. None lets the person choose.
enum class ListRequest { None = 0, Add = 30, Change = 31, Delete = 32, Drop = 33 };

struct ListAnswer {
    int SelectedDayType = 0; // index of what was picked for a day; 0 when nothing was
};

/// What both screens are asked.
struct ListOpening {
    using Answer = ListAnswer;
    ListRequest DayTypeRequest = ListRequest::None;
    int employee = 0; // of the roster, and
    int day = 1;      // the day of the week, 1 to 7, that something is picked for
};

} // namespace tvx
