// What the screen of daytypes is opened for.
#pragma once

#include "masterdata/ListRequest.h"

namespace tvx {

struct DaytypesRequest : ListOpening {};

} // namespace tvx
