#include "support/Quarters.h"

#include "editor/week/Totals.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tvx::test {

QuarterSet Covered(const BarList& bars) {
    QuarterSet set;
    for (const auto& [start, stop] : bars)
        for (int q = std::max(start, 0); q < std::min(stop, QuartersPerSpan); ++q)
            set.set(static_cast<std::size_t>(q));
    return set;
}

BarList RunsOf(const QuarterSet& quarters) {
    BarList bars;
    for (int q = 0; q < QuartersPerSpan && bars.size() < 35; ++q) {
        if (!quarters[static_cast<std::size_t>(q)]) continue;
        const int start = q;
        while (q < QuartersPerSpan && quarters[static_cast<std::size_t>(q)]) ++q;
        bars.emplace_back(start, q);
    }
    return bars;
}

QuarterSet PlainReading(const std::string& bytes, int day) {
    BarList bars;
    if (bytes.size() >= 14)
        for (int period = 0; period < 7; ++period) {
            const int stop = static_cast<unsigned char>(bytes[static_cast<std::size_t>(period) + 7]) - 32;
            const int start = static_cast<unsigned char>(bytes[static_cast<std::size_t>(period)]) - 32;
            if (stop < 1) continue;
            if (start > stop) break;
            bars.emplace_back((day - 1) * 96 + start, (day - 1) * 96 + stop);
        }
    return Covered(bars);
}

BarList RandomBars(Random& random, int most) {
    BarList bars;
    for (auto count = random.Whole(0, most); count > 0; --count) {
        const auto start = static_cast<int>(random.Whole(0, QuartersPerSpan - 1));
        const auto length = static_cast<int>(random.Chance(10) ? random.Whole(90, 300) : random.Whole(1, 40));
        bars.emplace_back(start, std::min(start + length, QuartersPerSpan));
    }
    return bars;
}

BarList RandomStorableBars(Random& random) {
    QuarterSet set;
    for (int day = 0; day < 8; ++day) {
        // Six begin on a day, a seventh may come over midnight.
        for (auto count = random.Chance(30) ? 0 : random.Whole(1, 3); count > 0; --count) {
            const auto start = random.Whole(0, 95);
            for (auto q = start; q < std::min<std::int64_t>(start + random.Whole(1, 60), 768 - day * 96); ++q)
                set.set(static_cast<std::size_t>(day * 96 + q));
        }
    }
    return RunsOf(set);
}

void MakeRoster(GlobalState& g, int people) {
    Roster& r = g.roster;
    r = {};
    r.EmployeeCount = people;
    for (int e = 0; e <= people; ++e) {
        r.RowOrder.push_back(e);
        r.EmployeeRowIndex.push_back(e);
        r.RosterName1.push_back("Last" + std::to_string(e));
        r.RosterName2.push_back("First" + std::to_string(e));
        r.RosterId.push_back("ID" + std::to_string(e));
        r.RosterAssignment.push_back("Oven" + std::to_string(e));
        r.RosterPay.push_back(e % 3 == 0 ? Currency::FromAmount(700)
                                         : Currency::FromScaled(72501 + 12347 * e));
        r.RosterWageOrSal.push_back(e % 3 == 0 ? 0 : -1);
        r.RosterEmployeeKey.push_back(e);
        r.RosterBarColor.push_back(1 + e % 14);
    }
    const auto size = static_cast<std::size_t>(people) + 1;
    r.RosterBirthDate.assign(size, 0);
    r.RosterHireDate.assign(size, 0);
    r.RosterDepNumber.assign(size, 0);
    r.AvailabilityCount.assign(size, 0);
    for (auto* texts : {&r.RosterPhone, &r.RosterComments, &r.RosterLaborType, &r.RosterDepName})
        texts->assign(size, "");
    r.AvailabilityStarts.assign(size, {});
    r.AvailabilityStops.assign(size, {});
    NewWeek(g, people);
    g.totals = {};
    g.application.options = {};
    g.screen = {1920 * 15, 1080 * 15 - 150, 24};
}

std::string Unsound(const GlobalState& g) {
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
        const int count = g.week.BarCount[e];
        if (count < 0 || count > MostBarsRead) return std::to_string(count) + " bars";
        int free = 0; // the first quarter that the next bar may take
        for (int b = 1; b <= BarSlots; ++b) {
            const int start = g.week.BarStarts[e][b];
            const int stop = g.week.BarStops[e][b];
            const bool right = b <= count ? start >= free && start < stop && stop <= QuartersPerSpan
                                          : start == 0 && stop == 0;
            if (!right)
                return "slot " + std::to_string(b) + " of employee " + std::to_string(e) + ": " +
                       std::to_string(start) + ".." + std::to_string(stop);
            free = stop + 1;
        }
    }
    return "";
}

void ExpectSound(const GlobalState& g) {
    EXPECT_EQ(Unsound(g), "");
}

std::string SumsText(const GlobalState& g) {
    std::ostringstream text;
    text.precision(17);
    const Totals& t = g.totals;
    text << t.TotalDayQuarters << " " << t.TotalWeekQuarters << " " << t.WageDayQuarters << " "
         << t.WageWeekQuarters << " " << t.SalaryDayQuarters << " " << t.SalaryWeekQuarters << " "
         << t.TotalDayWages.Fourths() << " " << t.TotalWeekWages.Fourths() << " |";
    for (int e = 1; e <= g.roster.EmployeeCount; ++e)
        text << " " << g.week.DayQuarters[e] << "/" << g.week.WeekQuarters[e];
    return text.str();
}

std::string SumsFromScratch(const GlobalState& g) {
    GlobalState fresh;
    fresh.application = g.application;
    fresh.rights = g.rights;
    fresh.department = g.department;
    fresh.roster = g.roster;
    WritableWeek(fresh) = g.week;
    SumWeek(WritableWeek(fresh), PayrollOf(fresh), g.week.SummedDay);
    return SumsText(fresh);
}

} // namespace tvx::test
