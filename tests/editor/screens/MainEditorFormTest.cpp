#include "editor/screens/MainEditorForm.h"

#include "editor/lanes/GridView.h"
#include "support/Screens.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::BarList;
using test::Find;

constexpr DaySerial Sunday = 46082; // 1 March 2026

/// Notes what was opened over the editor, and does there what the test says.
class ScriptedScreens : public qt::EditorScreens {
  public:
    std::vector<std::string> opened;
    std::function<void()> deed;
    void OpenDaytypes(qt::Form&) override { Open("Daytypes"); }
    void OpenShifts(qt::Form&) override { Open("Shifts"); }
    void OpenSchedules(qt::Form&) override { Open("Schedules"); }

  private:
    void Open(const char* screen) {
        opened.emplace_back(screen);
        if (deed) deed();
    }
};

class MainEditorFormTest : public testing::Test {
  protected:
    test::TestStore store;
    ScriptedScreens screens;
    std::unique_ptr<qt::MainEditorForm> form;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({"Adams", "Anna", "7.25"});
        store.AddEmployee({"Brown", "Bob", "700", false});
        store.AddEmployee({"Clark", "Cleo", "10"});
        store.PutDay(Sunday + 1, 1, test::StartsStops({{36, 68}}), "CA");
        store.script.clock.Set(Sunday + 1);
    }

    qt::MainEditorForm& Open() {
        store.OpenEditor();
        form = std::make_unique<qt::MainEditorForm>(store.g, store.ports(), screens, nullptr);
        form->ShowModeless();
        return *form;
    }

    QWidget& Grid() { return Find<QWidget>(*form, "Picture1"); }
    /// The middle of a row's lane at a quarter of the day.
    TwipsPoint Lane(int row, int quarter) const {
        const tvx::Grid& grid = store.g.grid;
        return {(quarter - grid.FirstQuarter) * grid.QuarterWidth + 5, TopOfRow(grid, row) + 110};
    }
    std::string TextOf(const std::string& name) { return Find<QLabel>(*form, name).text().toStdString(); }
};

TEST_F(MainEditorFormTest, opens_on_today_with_the_stored_bars) {
    Open();
    EXPECT_EQ(form->windowTitle().toStdString(), "Bakery,  Week from 1-Mar-2026  to  7-Mar-2026");
    EXPECT_EQ(store.g.week.CurrentDay, 2);
    EXPECT_EQ(TextOf("Label9(1)"), "Adams Anna");
    EXPECT_EQ(TextOf("Label10(1)"), " 8:00");
    EXPECT_EQ(Find<QLineEdit>(*form, "Text1(1)").text().toStdString(), "CA");
    EXPECT_EQ(test::ColourAt(Grid(), Lane(1, 50).x, Lane(1, 50).y), QBColor(2));
    EXPECT_EQ(test::ColourAt(Grid(), Lane(1, 70).x, Lane(1, 70).y), QBColor(15));
    test::TakePicture(*form, "Form1");
}

TEST_F(MainEditorFormTest, a_drag_on_an_empty_lane_draws_a_bar_and_the_totals_follow) {
    Open();
    test::Drag(Grid(), Lane(3, 32), Lane(3, 48));
    EXPECT_EQ(test::Bars(store.g, 3), (BarList{{128, 144}}));
    EXPECT_EQ(TextOf("Label10(3)"), " 4:00");
    EXPECT_EQ(TextOf("Label15(0)"), "12:00");
    EXPECT_EQ(TextOf("Label15(2)"), " 98.00");
    EXPECT_TRUE(store.g.week.WeekChanged);
    EXPECT_EQ(test::FocusOf(*form), "Text1(3)");
}

TEST_F(MainEditorFormTest, the_time_of_a_bar_shows_while_it_is_drawn) {
    Open();
    test::DragAndHold(Grid(), Lane(3, 32), Lane(3, 48));
    EXPECT_EQ(TextOf("Label31"), "8:00am - Noon");
    EXPECT_EQ(test::ColourAt(Grid(), Lane(3, 40).x, Lane(3, 40).y), QBColor(2));
    QTest::mouseRelease(&Grid(), Qt::LeftButton, Qt::NoModifier, test::At(Lane(3, 48).x, Lane(3, 48).y));
    EXPECT_EQ(TextOf("Label31"), "");
}

TEST_F(MainEditorFormTest, a_typed_daytype_becomes_capitals_and_belongs_to_the_day) {
    Open();
    Find<QWidget>(*form, "Text1(2)").setFocus();
    test::Type(*form, "bk");
    EXPECT_EQ(Find<QLineEdit>(*form, "Text1(2)").text().toStdString(), "BK");
    EXPECT_EQ(store.g.week.DayTypeText[2][2], "BK");
    EXPECT_TRUE(store.g.week.WeekChanged);
}

TEST_F(MainEditorFormTest, the_letter_w_is_refused_with_a_box) {
    Open();
    Find<QWidget>(*form, "Text1(2)").setFocus();
    store.prompt().Expect("The <W> cannot be used as a Daytype...", 48, "Font for W is to wide.");
    test::Type(*form, "w");
    EXPECT_EQ(Find<QLineEdit>(*form, "Text1(2)").text().toStdString(), "");
    EXPECT_EQ(store.prompt().Beeps(), 1);
}

TEST_F(MainEditorFormTest, the_totals_box_shows_the_week) {
    Open();
    test::WhenShown("Form15", [](QWidget& box) {
        EXPECT_EQ(Find<QLabel>(box, "Label2(1)").text().toStdString(), "58.00");
        EXPECT_EQ(Find<QLabel>(box, "Label2(3)").text().toStdString(), "758.00");
        EXPECT_EQ(Find<QLabel>(box, "Label3(3)").text().toStdString(), " 8:00");
        test::TakePicture(box, "Form15");
        test::Click(box, "cmdCancel");
    });
    test::Click(*form, "Label12");
}

} // namespace
} // namespace tvx
