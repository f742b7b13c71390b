// The state of the time grid on screen, and of the gesture that edits it.
#pragma once

#include "platform/basic/Twips.h"

namespace tvx {

struct Grid {
    Twips QuarterWidth = 120; // of one quarter of an hour
    Twips GridLeft = 0;       // of the grid on its form
    Twips GridWidth = 0;      // QuarterWidth * 4 * hours shown
    Twips GridHeight = 0;
    Twips WeekTwips = 0; // QuarterWidth * 768
    Twips RowHeight = 240;
    int HoursShown = 24;  // VisibleHours, but at least 1
    int RowCapacity = 0;  // rows that fit
    int VisibleRows = 0;  // rows shown
    int FirstQuarter = 0; // quarter of the day at the grid's left edge
    int MinFirstQuarter = 0;
    int MaxFirstQuarter = 0;
    Twips ScrollX = 0;  // week x at the grid's left edge
    int ShowOption = 1; // 1 to 12, what the value column shows
    int PreviousShowOption = 1;
    bool AvailabilityShown = false;
    bool HeadcountShown = false;
};

/// A bar being drawn, stretched or moved.
struct Drag {
    int MouseState = 0;       // 0 idle, 1 stretching an end, 2 moving a bar
    int DragBar = 0;          // slot of the bar; 0 is a new one
    int DragEmployee = 0;     // whose bar it is, wherever the row is scrolled or sorted to meanwhile
    Twips DayLeftBar = 0;     // the anchored end of the bar, in week twips
    Twips DayRightBar = 0;    // the end under the mouse; both 0 when nothing is drawn
    Twips LastMouseX = 0;     // of the last mouse event, grid twips
    bool IgnoreMouse = false; // after a refused press, until the next
    bool EditBusy = false;    // while a gesture is being committed
    bool LeftDown = false;
    bool GestureOpen = false; // a bar lives in the drag values and waits for the release
};

/// The line clipboard: one employee's day.
struct LineClipboard {
    bool ClipFull = false;
};

} // namespace tvx
