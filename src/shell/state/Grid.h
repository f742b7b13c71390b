// The state of a time grid on screen, and the clipboard of its lines.
#pragma once

#include "platform/basic/Twips.h"

namespace tvx {

/// Each editor owns one. The quarter at its left edge alone is the cursor's, so that a person finds the same
/// hours in every editor; the cursor must outlive the grid.
struct Grid {
    explicit Grid(int& firstQuarter) : FirstQuarter(firstQuarter) {}

    Twips QuarterWidth = 120; // of one quarter of an hour
    Twips GridLeft = 0;       // of the grid on its form
    Twips GridWidth = 0;      // QuarterWidth * 4 * hours shown
    Twips GridHeight = 0;
    Twips WeekTwips = 0; // QuarterWidth * 768
    Twips RowHeight = 240;
    int HoursShown = 24; // VisibleHours, but at least 1
    int RowCapacity = 0; // rows that fit
    int VisibleRows = 0; // rows shown
    int& FirstQuarter;   // quarter of the day at the grid's left edge
    int MinFirstQuarter = 0;
    int MaxFirstQuarter = 0;
    int ShowOption = 1; // 1 to 12, what the value column shows
    bool AvailabilityShown = false;
    bool HeadcountShown = false;
};

/// The line clipboard: one employee's day.
struct LineClipboard {
    bool ClipFull = false;
};

} // namespace tvx
