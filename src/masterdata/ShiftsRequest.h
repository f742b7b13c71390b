// What the screen of stored shifts is opened for.
#pragma once

#include "masterdata/ListRequest.h"

namespace tvx {

/// To add one, its bars wait behind the last shift of the list.
struct ShiftsRequest : ListOpening {};

} // namespace tvx
