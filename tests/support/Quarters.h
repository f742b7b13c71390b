// A week as a plain set of quarters: what every way of keeping bars must agree with. And a roster without a
// store, for tests of the week in memory.
#pragma once

#include "support/Random.h"
#include "support/TestStore.h"

#include <bitset>

namespace tvx::test {

using QuarterSet = std::bitset<QuartersPerSpan>;

/// The quarters that bars cover; what lies outside the eight days is cut off.
QuarterSet Covered(const BarList& bars);
/// The runs of a set as bars, 35 at most.
BarList RunsOf(const QuarterSet& quarters);

/// A day's stored bytes read one by one, as quarters of the week when they stand on a day 1 to 8.
QuarterSet PlainReading(const std::string& bytes, int day);

/// Bars anywhere in the eight days, in no order, overlapping as they come.
BarList RandomBars(Random& random, int most);
/// Bars as a week holds them, in order and apart, at most seven of them on any day.
BarList RandomStorableBars(Random& random);

/// A roster of `people` with odd rates of pay, every third one paid by the week, and an empty week.
void MakeRoster(GlobalState& g, int people);

/// What is wrong with the bars of a roster; "" when they stand in order, apart, not empty, within the eight
/// days, 35 at most, with nothing in the slots behind them.
std::string Unsound(const GlobalState& g);
void ExpectSound(const GlobalState& g);

/// Every sum of quarters and wages in one line.
std::string SumsText(const GlobalState& g);
/// The same after everything was counted from scratch.
std::string SumsFromScratch(const GlobalState& g);

} // namespace tvx::test
