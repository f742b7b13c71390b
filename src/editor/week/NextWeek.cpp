#include "editor/week/NextWeek.h"

#include "shell/common/Conversions.h"

#include <algorithm>
#include <bitset>

namespace tvx {
namespace {

using QuarterSet = std::bitset<QuartersPerDay>;

void Mark(QuarterSet& quarters, const Period& period) {
    const int stop = std::min(period.stop, QuartersPerDay);
    for (int q = std::max(period.start, 0); q < stop; ++q) quarters.set(static_cast<std::size_t>(q));
}

QuarterSet QuartersOf(const auto& periods) {
    QuarterSet quarters;
    for (const Period& period : periods) Mark(quarters, period);
    return quarters;
}

std::vector<Period> RunsOf(const QuarterSet& quarters) {
    std::vector<Period> runs;
    for (int q = 0; q < QuartersPerDay; ++q) {
        if (!quarters[static_cast<std::size_t>(q)]) continue;
        if (runs.empty() || runs.back().stop != q) runs.push_back({q, q});
        runs.back().stop = q + 1;
    }
    return runs;
}

bool RunsIntoTheNight(const StoredDay& day) {
    const auto periods = ReadablePeriods(day.startsStops);
    return std::any_of(periods.begin(), periods.end(),
                       [](const Period& period) { return period.stop >= QuartersPerDay; });
}

/// The stored periods of the week behind.
std::vector<Period> OwnOfNextWeek(const StoredDay& day7, const StoredDay& day8, const QuarterSet& unread,
                                  int cutoffQuarters) {
    const bool carried = RunsIntoTheNight(day7);
    std::vector<Period> own;
    for (const Period& period : ReadablePeriods(day8.startsStops)) {
        const bool continues = period.start == 0 && carried;
        if (period.start >= cutoffQuarters && !continues) {
            own.push_back(period);
        } else {
            QuarterSet before;
            Mark(before, period);
            const auto left = RunsOf(before & unread);
            own.insert(own.end(), left.begin(), left.end());
        }
    }
    return own;
}

/// Time of the model beside that of the week behind, which goes first where there is no room for all. Periods
/// that meet stay apart, so that a later save still tells them from each other.
std::vector<Period> Joined(std::vector<Period> own, const QuarterSet& model) {
    for (const Period& run : RunsOf(model & ~QuartersOf(own)))
        if (own.size() < PeriodsPerDay) own.push_back(run);
    std::stable_sort(own.begin(), own.end(),
                     [](const Period& a, const Period& b) { return a.start < b.start; });
    return own;
}

/// Only an edit that says something takes the place of a stored daytype: a week that was cleared holds none.
std::string DaytypeOfNextWeek(const std::string& model, const std::string& known, const StoredDay& day8) {
    return model == known || model.empty() ? day8.dayType : model;
}

} // namespace

std::optional<DayRow> WithNextWeek(DayRow wanted, const Week& week, int e, const StoredDay& day7,
                                   const StoredDay& day8, int cutoffQuarters) {
    const ReadPeriods ofModel = ReadablePeriods(wanted.startsStops);
    const ReadPeriods ofStore = ReadablePeriods(day8.startsStops);
    const ReadPeriods ofBefore = ReadablePeriods(week.UnreadOfDay8[e]);
    const bool noTime = ofModel.empty() && ofStore.empty() && ofBefore.empty();
    if (noTime && wanted.dayType == day8.dayType) return std::nullopt; // so with nearly everybody
    const QuarterSet stored = QuartersOf(ofStore);
    const auto periods =
        Joined(OwnOfNextWeek(day7, day8, QuartersOf(ofBefore), cutoffQuarters), QuartersOf(ofModel));
    const QuarterSet joined = QuartersOf(periods);
    wanted.dayType = DaytypeOfNextWeek(wanted.dayType, week.KnownDaytypeOfDay8[e], day8);
    if (joined == stored && wanted.dayType == day8.dayType) return std::nullopt;
    if (joined == stored && day8.found) {
        wanted.startsStops = day8.startsStops;
        wanted.workHours = day8.workHours;
    } else {
        wanted.startsStops = EncodePeriods(periods);
        wanted.workHours = HoursOfQuarters(static_cast<int>(joined.count()));
    }
    return wanted;
}

} // namespace tvx
