// What the Main Editor is opened for.
#pragma once

namespace tvx {

struct EditorAnswer {};

/// Needs the roster of what is to be scheduled: the current department, or all of them.
struct EditorRequest {
    using Answer = EditorAnswer;
};

} // namespace tvx
