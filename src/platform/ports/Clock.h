// What time it is.
#pragma once

#include "platform/basic/Date.h"

namespace tvx {

class Clock {
  public:
    virtual ~Clock() = default;

    /// Serial of the present date.
    virtual DaySerial Today() const = 0;
    /// Whole seconds since midnight by the wall clock, 0 to 86399.
    virtual int SecondOfDay() const = 0;
    /// Seconds since midnight with their fraction; falls back to 0 at midnight.
    virtual double Timer() const = 0;
};

} // namespace tvx
