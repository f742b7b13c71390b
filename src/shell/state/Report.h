// What reports share: the font and paper of the report last shown, and the options that last for the run.
#pragma once

#include "platform/ports/ReportFont.h"

namespace tvx {

/// One current set, read from a department's file whenever a report form opens.
struct ReportSettings {
    /// Its name is "" until a file or the font dialog gives one; bold is kept and written, though no report
    /// opens in it.
    ReportFont font{.name = "", .size = 9, .bold = false, .italic = false};
    int ReportOrientation = 0; // 0 portrait, 1 landscape
};

struct ReportOptions {
    int BreakThreshold = 0;  // quarters that a break must exceed to part a printed time range, 0 to 4
    int PrintTotalHours = 0; // 0 or 1
    int PrintTotalWages = 0; // 0 or 1
    int NameOption = 0;      // what stands under the name, 0 to 5
    int WhoToPrint = 0;      // 0 everybody, 1 only those with schedules
    bool PrintDayComments = false;
    bool PrintTimeBars = false;
};

struct Reports {
    ReportSettings settings;
    ReportOptions options;
};

} // namespace tvx
