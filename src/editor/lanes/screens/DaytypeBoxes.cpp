#include "editor/lanes/screens/DaytypeBoxes.h"

namespace tvx::qt {

DaytypeBoxes::DaytypeBoxes(ControlArray<TextBox>& boxes, Lanes& lanes, GlobalState& g, Prompt& prompt)
    : boxes_(boxes), lanes_(lanes), rules_(lanes, g), daytypes_(g.daytypes), prompt_(prompt) {}

bool DaytypeBoxes::MayType(int row) {
    const DaytypeKey::Refusal refusal = rules_.MayType(row);
    TellDaytypeRefusal(prompt_, refusal);
    return refusal == DaytypeKey::Refusal::None;
}

void DaytypeBoxes::PutTyped(int row) {
    const WeekChange change = rules_.PutText(row, boxes_[row].Text());
    if (!change.Done()) boxes_[row].SetText(rules_.TextOf(row));
    onChange(change);
}

void DaytypeBoxes::Show(int row, const std::string& person) {
    boxes_[row].SetText(rules_.TextOf(row));
    boxes_[row].setAccessibleName(ToQString("Daytype of " + person));
}

void DaytypeBoxes::Focus(int row) {
    if (boxes_.Has(row) && boxes_[row].isVisibleTo(boxes_[row].window()))
        boxes_[row].setFocus(Qt::OtherFocusReason);
}

void DaytypeBoxes::ShowHint(int row) {
    boxes_[row].setToolTip(ToQString(DaytypeTooltip(daytypes_, boxes_[row].Text())));
}

} // namespace tvx::qt
