#include "reports/screens/OptionFrames.h"

#include "reports/page/ListingOrder.h"

namespace tvx::qt {

void OptionFrames::AddChoice(qt::Options<>& options, const char* name, int first,
                             const std::vector<std::string>& captions, Frame& frame, int& chosen) {
    AddOptions(options, name, first, captions, frame, 1);
    KeepAtTop(frame);
    options.Choose(chosen);
    for (const auto& [index, option] : options)
        On(*option, &QRadioButton::clicked, [&chosen, number = index] { chosen = number; });
}

void OptionFrames::KeepAtTop(Frame& frame) {
    Lines(frame).setRowStretch(Lines(frame).rowCount(), 1);
}

void OptionFrames::AddBreaks(const char* name, const std::string& title, QBoxLayout& into) {
    AddChoice(Option3D2, "Option3D2", 0,
              {"Print all breaks", "Print breaks over 15 Minutes", "Print breaks over 30 Minutes",
               "Print breaks over 45 Minutes", "Print breaks over 1 Hour"},
              AddFrame(name, title, into), options_.BreakThreshold);
}

Frame& OptionFrames::AddWhoToPrint(const char* name, const std::string& title, const std::string& employees,
                                   QBoxLayout& into) {
    Frame& frame = AddFrame(name, title, into);
    AddChoice(Option3D3, "Option3D3", 0, {"All " + employees, employees + " with schedules"}, frame,
              options_.WhoToPrint);
    return frame;
}

void OptionFrames::AddTotals(Frame& frame, bool wagesMayBeSeen) {
    Check3D1 = &AddCheck("Check3D1", "Total Hours", frame, options_.PrintTotalHours != 0);
    Check3D2 =
        &AddCheck("Check3D2", "Total Wages/Salaries", frame, wagesMayBeSeen && options_.PrintTotalWages != 0);
    Check3D2->setEnabled(wagesMayBeSeen);
    On(*Check3D1, &QCheckBox::toggled, [this](bool on) { options_.PrintTotalHours = on ? 1 : 0; });
    On(*Check3D2, &QCheckBox::toggled, [this](bool on) { options_.PrintTotalWages = on ? 1 : 0; });
}

void OptionFrames::AddListingOrder(const char* name, const std::string& title, int& order, QBoxLayout& into) {
    std::vector<std::string> captions;
    captions.reserve(ListingOrders.size());
    for (const ListingOrder& listing : ListingOrders) captions.emplace_back(listing.caption);
    AddChoice(Option3D1, "Option3D1", ListingOrders.front().index, captions, AddFrame(name, title, into),
              order);
}

} // namespace tvx::qt
