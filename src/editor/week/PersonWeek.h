// One person's week, taken from the arrays and put back.
#pragma once

#include "shell/state/WeekSteps.h"

#include <cstddef>

namespace tvx {

/// The bars of a person, 1 to EmployeeCount.
WeekBars BarsOf(const Week& week, int employee);

/// A copy of what the week holds of a person.
PersonWeek PersonOf(const Week& week, int employee);

/// Puts a person's week back as it stands, without merging or cutting. Quarters and sums are the caller's.
void PutPerson(Week& week, int employee, const PersonWeek& person);

/// Bytes that a copy takes in memory, to within the allocator's rounding.
std::size_t BytesOf(const PersonWeek& person);

} // namespace tvx
