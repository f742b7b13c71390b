// What is seen on the lanes of a grid: bars, days off, hours of absence and the bar in hand.
#pragma once

#include "editor/lanes/BarDrag.h"
#include "editor/lanes/GridView.h"
#include "editor/lanes/Lanes.h"

#include <optional>
#include <string>

namespace tvx {

class LaneView {
  public:
    LaneView(const Lanes& lanes, const BarDrag& drag, const GlobalState& g);

    const Lanes& Rows() const { return lanes_; }

    /// The lane of a row: the white band, the bars but for the one in hand, the shade of days off. Added to
    /// `drawing`.
    void DrawRow(int row, Drawing& drawing) const;
    /// Hours of absence above and below a lane; nothing while they are not shown, or on a day off.
    void DrawAvailability(int row, Drawing& drawing) const;
    /// What of the bar in hand lies on a row, as it stands under the mouse; nothing when it is not there.
    std::optional<DrawnBox> DrawDragBar(int row) const;

    /// "9:00am -  5:00pm" of the bar in hand, snapped to quarters; "" when there is none.
    std::string DragTimeText() const;
    /// What a row holds, in words: "Adams Anna: 9:00am - 5:00pm".
    std::string SpokenRow(int row) const;

  private:
    Twips XOf(const LaneDay& lane, WeekQuarter quarter) const;
    void DrawBars(int row, Drawing& drawing) const;
    void DrawDaysOff(int row, Drawing& drawing) const;
    std::string ClockText(int dayQuarter) const;

    const Lanes& lanes_;
    const BarDrag& drag_;
    const Week& week_;
    const Roster& roster_;
    const Department& department_;
    const Options& options_;
};

} // namespace tvx
