// Must not compile: nobody takes the loaded week out of its keeping.
#include "shell/state/TVXGLOB.h"

tvx::Week& OpenTheWeek(tvx::GlobalState& g) {
    return g.loadedWeek.week_;
}
