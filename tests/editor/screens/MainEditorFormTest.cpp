#include "MainEditorFixture.h"

namespace tvx {
namespace {

using test::Find;
using MainEditorFormTest = MainEditorTest;

TEST_F(MainEditorFormTest, opens_on_today_with_the_stored_bars) {
    Open();
    EXPECT_EQ(Title(), "Bakery,  Week from 1-Mar-2026  to  7-Mar-2026");
    EXPECT_EQ(DayShown(), "Monday 02-Mar-26");
    EXPECT_EQ(NameOf(1), "Adams Anna");
    EXPECT_EQ(ValueOf(1), " 8:00");
    EXPECT_EQ(DaytypeOf(1), "CA");
    EXPECT_EQ(ColourAt(Lane(1, 50)), QBColor(2));
    EXPECT_EQ(ColourAt(Lane(1, 70)), QBColor(15));
    test::TakePicture(*form, "Form1");
}

TEST_F(MainEditorFormTest, a_drag_on_an_empty_lane_draws_a_bar_and_the_totals_follow) {
    Open();
    Drag(3, 32, 48);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(ValueOf(3), " 4:00");
    EXPECT_EQ(TextOf("Label15(0)"), "12:00");
    EXPECT_EQ(TextOf("Label15(2)"), " 98.00");
    EXPECT_TRUE(HasChanges());
    EXPECT_EQ(Focus(), "Text1(3)");
}

TEST_F(MainEditorFormTest, the_time_of_a_bar_shows_while_it_is_drawn) {
    Open();
    DragAndHold(3, 32, 48);
    EXPECT_EQ(TextOf("Label31"), "8:00am - Noon");
    EXPECT_EQ(ColourAt(Lane(3, 40)), QBColor(2));
    Release(3, 48);
    EXPECT_EQ(TextOf("Label31"), "");
}

TEST_F(MainEditorFormTest, a_typed_daytype_becomes_capitals_and_belongs_to_the_day) {
    Open();
    TypeInto(2, "bk");
    EXPECT_EQ(DaytypeOf(2), "BK");
    ClickDay(3);
    EXPECT_EQ(DaytypeOf(2), "");
    ClickDay(2);
    EXPECT_EQ(DaytypeOf(2), "BK");
    EXPECT_TRUE(HasChanges());
}

TEST_F(MainEditorFormTest, the_letter_w_is_refused_with_a_box) {
    Open();
    store.prompt().Expect("The <W> cannot be used as a Daytype...", 48, "Font for W is to wide.");
    TypeInto(2, "w");
    EXPECT_EQ(DaytypeOf(2), "");
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
