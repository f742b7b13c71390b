// The columns of the short schedule, in units of which 143 go across the page.
#pragma once

namespace tvx::short_grid {

constexpr int UnitsAcross = 143;
constexpr double LeftUnit = 2;
constexpr int NameUnits = 30;
constexpr int DayUnits = 16;
constexpr int RightUnit = NameUnits + 7 * DayUnits; // 142
constexpr double NameUnit = 2.7;                    // clear of the line at the left
constexpr double WeekNumberUnit = 3;
constexpr double FiguresInDay = 15.5; // right edge of a day's figures in its column
constexpr double WeekFiguresEdge = 29;
constexpr double TotalLabelsEdge = RightUnit - DayUnits - 1;
constexpr double HeadLines = 5; // the first block begins below these

// The columns of the productivity block, in hundredths of the page's width.
constexpr double WordLabelPercent = 25;
constexpr double WordPercent = 20;
constexpr double FigureLabelPercent = 14;
constexpr double WeekFigurePercent = 10.4;
constexpr double DayFigurePercent = 10.8;

} // namespace tvx::short_grid
