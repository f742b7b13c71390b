// Money: a whole number of ten-thousandths, and wages in fourths of those.
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

  private:
    std::int64_t scaled_ = 0; // ten-thousandths of the unit of money
};

/// Pay for time: an hourly rate times quarters of an hour, kept in whole fourths of a ten-thousandth, so that
/// it does not matter in which order or in which parts time is paid and summed. It is divided once, where it
/// is written (Format) or leaves money (Amount). What would lie beyond 64 bits stays at their end.
class Wage {
  public:
    constexpr Wage() = default;

    /// For a number of quarters at an hourly rate; either may be negative.
    static Wage ForQuarters(std::int64_t quarters, Currency hourlyRate);
    /// An amount that no time is counted for, such as a salary.
    static Wage Whole(Currency amount) { return ForQuarters(4, amount); }
    static constexpr Wage FromFourths(std::int64_t fourths) {
        Wage wage;
        wage.fourths_ = fourths;
        return wage;
    }

    constexpr std::int64_t Fourths() const { return fourths_; }
    constexpr double Amount() const { return static_cast<double>(fourths_) / 40000.0; }

    friend Wage operator+(Wage a, Wage b);
    friend Wage operator-(Wage a, Wage b);
    Wage& operator+=(Wage other) { return *this = *this + other; }
    Wage& operator-=(Wage other) { return *this = *this - other; }
    friend constexpr auto operator<=>(Wage, Wage) = default;

  private:
    std::int64_t fourths_ = 0; // 40,000 to the unit of money
};

} // namespace tvx
