// The daytype boxes of an editor on its form: typing, pasting, arrows, hints.
#pragma once

#include "desktop/Controls.h"
#include "editor/lanes/DaytypeBox.h"

#include <functional>

namespace tvx::qt {

class DaytypeBoxes {
  public:
    /// `boxes` are the form's, [1..rows]; the form guards what is called back.
    DaytypeBoxes(ControlArray<TextBox>& boxes, Lanes& lanes, GlobalState& g, Prompt& prompt);

    /// Makes a box work. Its handlers run as `guarded` wraps them.
    template <typename Guard>
    void Connect(int row, const Guard& guarded) {
        TextBox& box = boxes_[row];
        box.gate = guarded([=, this] { return MayType(row); });
        box.rule = [](int code) { return FilterDaytypeKey(code).code; };
        box.onRefused =
            guarded([this](int code) { TellDaytypeRefusal(prompt_, FilterDaytypeKey(code).refusal); });
        box.onEdited = guarded([=, this] { PutTyped(row); });
        box.onEnter = [] {}; // and no button of the form
        box.onVerticalArrow = [=, this](int direction) {
            Focus(NeighbourRow(lanes_.Geometry(), row, direction));
        };
        box.onFocus = [=, this] { onFocus(row); };
        box.onHover = [=, this] { ShowHint(row); };
    }

    /// Shows the daytype of a row's day, and whose it is.
    void Show(int row, const std::string& person);
    /// Gives a box the focus, where there is one to be seen.
    void Focus(int row);

    std::function<void(int)> onFocus;                // a row's box has got the focus
    std::function<void(const WeekChange&)> onChange; // a typed daytype went into the week, or was refused

  private:
    bool MayType(int row);
    void PutTyped(int row);
    void ShowHint(int row);

    ControlArray<TextBox>& boxes_;
    Lanes& lanes_;
    DaytypeBox rules_;
    const Daytypes& daytypes_;
    Prompt& prompt_;
};

} // namespace tvx::qt
