// What the screens of a department's lists are opened for.
#pragma once

namespace tvx {

/// By the numbers of `DayTypeRequest`. None lets the person choose.
enum class ListRequest { None = 0, Add = 30, Change = 31, Delete = 32, Drop = 33 };

} // namespace tvx
