// Money as the system keeps it: a whole number of ten-thousandths.
#pragma once

#include <compare>
#include <cstdint>

namespace tvx {

/// An amount of money with four exact decimals. Sums and whole multiples stay exact; dividing, or mixing
/// with a real number, leaves Currency through Amount(). Storing a real number rounds half to even at the
/// fourth decimal.
class Currency {
  public:
    constexpr Currency() = default;

    /// From an amount in whole units of money, rounded half to even at the fourth decimal.
    static Currency FromAmount(double amount);
    /// From ten-thousandths.
    static constexpr Currency FromScaled(std::int64_t scaled) {
        Currency c;
        c.scaled_ = scaled;
        return c;
    }

    constexpr std::int64_t Scaled() const { return scaled_; }
    constexpr double Amount() const { return static_cast<double>(scaled_) / 10000.0; }

    friend constexpr Currency operator+(Currency a, Currency b) { return FromScaled(a.scaled_ + b.scaled_); }
    friend constexpr Currency operator-(Currency a, Currency b) { return FromScaled(a.scaled_ - b.scaled_); }
    friend constexpr Currency operator*(Currency a, std::int64_t times) {
        return FromScaled(a.scaled_ * times);
    }
    constexpr Currency& operator+=(Currency other) {
        scaled_ += other.scaled_;
        return *this;
    }
    friend constexpr auto operator<=>(Currency, Currency) = default;

    /// A quarter of the amount, rounded half to even at the fourth decimal.
    Currency Quarter() const;

  private:
    std::int64_t scaled_ = 0; // ten-thousandths of the unit of money
};

} // namespace tvx
