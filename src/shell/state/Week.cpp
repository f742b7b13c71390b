#include "shell/state/Week.h"

namespace tvx {

void Week::Resize(int count) {
    const auto size = static_cast<std::size_t>(count) + 1;
    BarCount.assign(size, 0);
    BarStarts.assign(size, {});
    BarStops.assign(size, {});
    WeekQuarters.assign(size, 0);
    DayQuarters.assign(size, 0);
    for (auto& day : DayTypeText) day.assign(size, "");
    for (auto& day : DayOffFlag) day.assign(size, false);
    KnownDaytypeOfDay8.assign(size, "");
    UnreadOfDay8.assign(size, "");
    IsLoaded = false;
    WeekChanged = false;
}

} // namespace tvx
