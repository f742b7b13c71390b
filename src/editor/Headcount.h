// The headcount under the hours of the Main Editor's ruler.
#pragma once

#include "editor/lanes/GridView.h"

namespace tvx {

/// The band of the headcount of a day; nothing while it is not shown. `widthOf` measures a text in the band's
/// font: a figure that would stand out at the right is left away, and where hours are narrower than their
/// figures, only every second or third is written.
void ShowHeadcount(const Grid& grid, const Week& week, int day, int cutoffQuarters, const TextWidth& widthOf,
                   Drawing& drawing);

} // namespace tvx
