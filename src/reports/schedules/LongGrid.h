// The columns of the long schedule, in units of which 80 go across the page. All but the first are right
// edges.
#pragma once

namespace tvx::long_grid {

constexpr int UnitsAcross = 80;
constexpr double LeftEdge = 0.1; // of names, weekdays and notes
constexpr double DateEdge = 9.8;
constexpr double FirstSlotBase = 10;
constexpr double SlotWidth = 11;
constexpr int Slots = 4;
constexpr double LastSlotEdge = FirstSlotBase + Slots * SlotWidth;
constexpr double TimeLabelEdge = 61;
constexpr double HoursEdge = 68;
constexpr double MoneyLabelEdge = 70;
constexpr double MoneyEdge = 77;
constexpr double PageNumberEdge = UnitsAcross - 1;
constexpr int HeadLines = 2; // the first of them is line 1

} // namespace tvx::long_grid
