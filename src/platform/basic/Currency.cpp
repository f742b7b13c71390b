#include "platform/basic/Currency.h"

#include "platform/basic/Number.h"

namespace tvx {

Currency Currency::FromAmount(double amount) {
    return FromScaled(RoundHalfToEven(amount * 10000.0));
}

Currency Currency::Quarter() const {
    std::int64_t quotient = scaled_ / 4;
    const std::int64_t rest = scaled_ % 4;
    const std::int64_t away = scaled_ < 0 ? -1 : 1;
    if (rest == 3 * away || (rest == 2 * away && quotient % 2 != 0)) quotient += away;
    return FromScaled(quotient);
}

} // namespace tvx
