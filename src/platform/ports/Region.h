// The country and language that the desktop is set to.
#pragma once

#include "platform/basic/Date.h"

#include <string>

namespace tvx {

class Region {
  public:
    virtual ~Region() = default;

    /// Names of months and weekdays in the language of the system.
    virtual const CalendarNames& Names() const = 0;
    /// The language as web pages name it: "en", "de-CH".
    virtual std::string Language() const = 0;
    /// The character between whole and decimals: '.' or ',' as a rule.
    virtual int DecimalSign() const = 0;
    /// The order of the parts in the system's short date.
    virtual DateOrder ShortDateOrder() const = 0;
    /// The system's short date: 3/5/2026.
    virtual std::string ShortDate(DaySerial serial) const = 0;
    /// The system's long date: Thursday, March 5, 2026.
    virtual std::string LongDate(DaySerial serial) const = 0;
    /// Day with two digits, short month, two digits of the year: 05-Mar-26.
    std::string MediumDate(DaySerial serial) const { return FormatDate(serial, "dd-mmm-yy", Names()); }
};

} // namespace tvx
