// What came of saving what a person typed.
#pragma once

namespace tvx {

enum class SaveResult {
    Saved,
    Incomplete, // something is missing, or there is no room for more
    InUse,      // told: the name is another's
    Refused,    // told: the store or the file refused; what was typed is still there
};

} // namespace tvx
