#include "reports/screens/OptionFrames.h"

#include "reports/page/ListingOrder.h"

#include <QVBoxLayout>

namespace tvx::qt {

Frame& OptionFrames::AddChoice(ControlArray<QRadioButton>& array, const char* name, const FrameNames& names,
                               const std::vector<std::string>& captions, int first, int& chosen) {
    auto& frame = Add<Frame>(names.name, names.accessible, &Options());
    frame.SetTitle(names.title);
    auto* lines = new QVBoxLayout(&frame);
    int index = first;
    for (const std::string& caption : captions) {
        auto& option = Add(array, name, index, caption, &frame);
        option.setText(PlainCaption(caption));
        option.setChecked(index == chosen);
        lines->addWidget(&option);
        On(option, &QRadioButton::clicked, [index, &chosen] { chosen = index; });
        ++index;
    }
    lines->addStretch();
    return frame;
}

Frame& OptionFrames::AddChecks(const FrameNames& names) {
    auto& frame = Add<Frame>(names.name, names.accessible, &Options());
    frame.SetTitle(names.title);
    (new QVBoxLayout(&frame))->addStretch();
    return frame;
}

QCheckBox& OptionFrames::AddCheck(Frame& frame, const char* name, const std::string& caption, bool checked) {
    auto& check = Add<QCheckBox>(name, caption, &frame);
    check.setText(ToQString(caption));
    check.setChecked(checked);
    auto* lines = static_cast<QVBoxLayout*>(frame.layout());
    lines->insertWidget(lines->count() - 1, &check); // above the stretch
    return check;
}

Frame& OptionFrames::AddBreaks(const FrameNames& frame) {
    return AddChoice(Option3D2, "Option3D2", frame,
                     {"Print all breaks", "Print breaks over 15 Minutes", "Print breaks over 30 Minutes",
                      "Print breaks over 45 Minutes", "Print breaks over 1 Hour"},
                     0, options_.BreakThreshold);
}

Frame& OptionFrames::AddWhoToPrint(const FrameNames& frame, const std::string& employees) {
    return AddChoice(Option3D3, "Option3D3", frame, {"All " + employees, employees + " with schedules"}, 0,
                     options_.WhoToPrint);
}

void OptionFrames::AddTotals(Frame& frame, bool wagesMayBeSeen) {
    Check3D1 = &AddCheck(frame, "Check3D1", "Total Hours", options_.PrintTotalHours != 0);
    Check3D2 =
        &AddCheck(frame, "Check3D2", "Total Wages/Salaries", wagesMayBeSeen && options_.PrintTotalWages != 0);
    Check3D2->setEnabled(wagesMayBeSeen);
    On(*Check3D1, &QCheckBox::toggled, [this](bool on) { options_.PrintTotalHours = on ? 1 : 0; });
    On(*Check3D2, &QCheckBox::toggled, [this](bool on) { options_.PrintTotalWages = on ? 1 : 0; });
}

Frame& OptionFrames::AddListingOrder(const FrameNames& frame, int& order) {
    std::vector<std::string> captions;
    captions.reserve(ListingOrders.size());
    for (const ListingOrder& listing : ListingOrders) captions.emplace_back(listing.caption);
    return AddChoice(Option3D1, "Option3D1", frame, captions, ListingOrders.front().index, order);
}

} // namespace tvx::qt
