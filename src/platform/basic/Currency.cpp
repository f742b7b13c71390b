#include "platform/basic/Currency.h"

#include "platform/basic/Number.h"

#include <limits>

namespace tvx {
namespace {

/// The end of the range on the side where a result has left it.
Wage Beyond(bool negative) {
    using Range = std::numeric_limits<std::int64_t>;
    return Wage::FromFourths(negative ? Range::min() : Range::max());
}

} // namespace

Currency Currency::FromAmount(double amount) {
    return FromScaled(RoundHalfToEven(amount * 10000.0));
}

Wage Wage::ForQuarters(std::int64_t quarters, Currency hourlyRate) {
    std::int64_t fourths = 0;
    if (__builtin_mul_overflow(quarters, hourlyRate.Scaled(), &fourths))
        return Beyond((quarters < 0) != (hourlyRate.Scaled() < 0));
    return FromFourths(fourths);
}

Wage operator+(Wage a, Wage b) {
    std::int64_t sum = 0;
    return __builtin_add_overflow(a.fourths_, b.fourths_, &sum) ? Beyond(a.fourths_ < 0)
                                                                : Wage::FromFourths(sum);
}

Wage operator-(Wage a, Wage b) {
    std::int64_t difference = 0;
    return __builtin_sub_overflow(a.fourths_, b.fourths_, &difference) ? Beyond(a.fourths_ < 0)
                                                                       : Wage::FromFourths(difference);
}

} // namespace tvx
