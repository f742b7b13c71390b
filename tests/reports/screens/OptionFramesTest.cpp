// The shared option frames on a report that is not a schedule.
#include "reports/screens/OptionFrames.h"

#include "reports/page/ListingOrder.h"
#include "support/ScheduleFormFixture.h"

#include <QHBoxLayout>

namespace tvx {
namespace {

class PeopleForm : public qt::OptionFrames {
  public:
    PeopleForm(GlobalState& g, Ports& ports, Printer& printer)
        : OptionFrames(g.reports.options, ports, printer, {g.reports.settings, std::nullopt}, "FormPeople",
                       nullptr) {
        auto* row = new QHBoxLayout(&Options());
        AddListingOrder("Frame3D1", "Listing order", ListingOrder, *row);
        AddBreaks("SSFrame3", "Lunch ", *row);
        AddWhoToPrint("Frame3D4", " Who to print ", "Employees", *row);
        qt::Frame& totals = AddFrame("SSFrame4", "Other print options..", *row);
        AddTotals(totals, !g.rights.HideWages);
        KeepAtTop(totals);
        FinishLayout("People");
    }
    int ListingOrder = 1;

  protected:
    void Run(Vp& vp) override {
        vp.StartDoc();
        TextAt(vp, 0, 0, std::string(ListingOrders[static_cast<std::size_t>(ListingOrder) - 1].words));
        vp.EndDoc();
    }
};

class OptionFramesTest : public ScheduleFormFixture {};

TEST_F(OptionFramesTest, show_and_change_the_options_of_the_run) {
    g.reports.options.BreakThreshold = 2;
    g.reports.options.WhoToPrint = 1;
    PeopleForm people(g, store.ports(), printer);
    people.ShowModeless();
    EXPECT_TRUE(test::Find<QRadioButton>(people, "Option3D2(2)").isChecked());
    EXPECT_TRUE(test::Find<QRadioButton>(people, "Option3D3(1)").isChecked());
    for (const char* option : {"Option3D2(4)", "Option3D3(0)", "Check3D1", "Check3D2"})
        test::Find<QAbstractButton>(people, option).click();
    EXPECT_EQ(g.reports.options.BreakThreshold, 4);
    EXPECT_EQ(g.reports.options.WhoToPrint, 0);
    EXPECT_EQ(g.reports.options.PrintTotalHours, 1);
    EXPECT_EQ(g.reports.options.PrintTotalWages, 1);
    test::TakePicture(people, "FormPeople");
}

TEST_F(OptionFramesTest, offer_no_wages_that_may_not_be_seen) {
    g.rights.HideWages = true;
    g.reports.options.PrintTotalWages = 1;
    PeopleForm people(g, store.ports(), printer);
    EXPECT_FALSE(test::Find<QCheckBox>(people, "Check3D2").isEnabled());
    EXPECT_FALSE(test::Find<QCheckBox>(people, "Check3D2").isChecked());
    EXPECT_EQ(g.reports.options.PrintTotalWages, 1);
}

TEST_F(OptionFramesTest, offer_the_listing_orders_with_the_words_of_their_titles) {
    PeopleForm people(g, store.ports(), printer);
    people.ShowModeless();
    const std::vector<std::pair<std::string, std::string>> wanted{
        {"Last name", "in last name order."},   {"Employee ID", "in Employee ID order."},
        {"Assignment", "in assignment order."}, {"Birth date", "in date of birth order."},
        {"Hire date", "hired date order."},     {"First name", "in first name order."},
    };
    EXPECT_TRUE(test::Find<QRadioButton>(people, "Option3D1(1)").isChecked());
    for (int order = 1; order <= 6; ++order) {
        const auto& [caption, words] = wanted[static_cast<std::size_t>(order) - 1];
        auto& option = test::Find<QRadioButton>(people, "Option3D1(" + std::to_string(order) + ")");
        EXPECT_EQ(option.text().toStdString(), caption);
        option.click();
        EXPECT_EQ(people.ListingOrder, order);
        test::Click(people, "cmdPrint");
        EXPECT_EQ(printer.texts, std::vector<std::string>{words});
    }
}

} // namespace
} // namespace tvx
