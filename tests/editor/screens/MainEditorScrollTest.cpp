// The scroll bars of the Main Editor, and the jumps beside them.
#include "MainEditorFixture.h"

namespace tvx {
namespace {

using MainEditorScrollTest = MainEditorTest;

// --- hours ------------------------------------------------------------------------------------------------

TEST_F(MainEditorScrollTest, a_whole_day_needs_no_scroll_bar) {
    Open();
    EXPECT_FALSE(IsShown("HScroll1"));
}

TEST_F(MainEditorScrollTest, the_hours_scroll_in_whole_hours_from_midnight_to_midnight) {
    ShowHours(12);
    Open();
    QScrollBar& hours = Bar("HScroll1");
    EXPECT_TRUE(hours.isVisible());
    EXPECT_EQ(hours.minimum(), 0);
    EXPECT_EQ(hours.maximum(), 48);
    EXPECT_EQ(hours.singleStep(), 4);
    EXPECT_EQ(hours.pageStep(), 48);
    hours.setValue(30); // not on an hour
    EXPECT_EQ(hours.value(), 0);
}

TEST_F(MainEditorScrollTest, the_bars_move_with_the_hours) {
    ShowHours(12);
    Open();
    const TwipsPoint atLeft = Lane(1, Bar("HScroll1").value() + 2);
    Bar("HScroll1").setValue(0);
    EXPECT_EQ(ColourAt(Lane(1, 40)), QBColor(2));
    EXPECT_EQ(ColourAt(Lane(1, 30)), QBColor(15));
    Bar("HScroll1").setValue(40);
    EXPECT_EQ(ColourAt(atLeft), QBColor(2));
    EXPECT_EQ(ColourAt(Lane(1, 66)), QBColor(2));
    EXPECT_EQ(ColourAt(Lane(1, 70)), QBColor(15));
    EXPECT_EQ(ValueOf(1), " 8:00");
    EXPECT_FALSE(HasChanges());
}

TEST_F(MainEditorScrollTest, the_jumps_lead_to_both_ends_of_the_day) {
    ShowHours(12);
    Open();
    EXPECT_EQ(CaptionOf("Label21"), "Midnight");
    EXPECT_EQ(CaptionOf("Label22"), "Midnight");
    Click("Label22");
    EXPECT_EQ(Bar("HScroll1").value(), 48);
    Click("Label21");
    EXPECT_EQ(Bar("HScroll1").value(), 0);
}

TEST_F(MainEditorScrollTest, a_bar_drawn_after_scrolling_has_the_hours_under_the_mouse) {
    ShowHours(12);
    Open();
    Click("Label22");
    Drag(3, 80, 92);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00pm - 11:00pm");
    Click("Label8");
    EXPECT_EQ(FileRows().back(), "46083|3||8:00pm-11:00pm|3|10|W|0");
}

TEST_F(MainEditorScrollTest, a_day_that_begins_late_scrolls_from_its_cut_off) {
    BeginDaysAt(16);
    ShowHours(12);
    Open();
    EXPECT_EQ(CaptionOf("Label21"), "4:00am");
    EXPECT_EQ(Bar("HScroll1").minimum(), 16);
    EXPECT_EQ(Bar("HScroll1").maximum(), 64);
    Click("Label22");
    Drag(3, 88, 104); // over midnight
    EXPECT_EQ(Spoken(3), "Clark Cleo: 10:00pm - 2:00am");
    EXPECT_EQ(ValueOf(3), " 4:00");
    Click("Label8");
    EXPECT_EQ(FileRows(), (Rows{"46083|1|CA|9:00am-5:00pm|8|10|W|0", "46083|3||10:00pm-midnight|2|10|W|0",
                                "46084|3||12:00am-2:00am|2|10|W|0"}));
}

// --- rows -------------------------------------------------------------------------------------------------

TEST_F(MainEditorScrollTest, rows_that_all_fit_need_no_scroll_bar) {
    Open();
    EXPECT_FALSE(IsShown("VScroll1"));
    EXPECT_FALSE(IsShown("Label20"));
}

TEST_F(MainEditorScrollTest, scrolled_rows_show_the_next_people_with_all_that_is_theirs) {
    CrowdRows(4, 3);
    store.PutDay(Sunday + 1, 5, test::StartsStops({{40, 48}}), "BK");
    Open();
    EXPECT_EQ(Bar("VScroll1").maximum(), 2);
    EXPECT_EQ(NameOf(4), "Evans 1");
    Bar("VScroll1").setValue(2);
    EXPECT_EQ(NameOf(1), "Clark Cleo");
    EXPECT_EQ(NameOf(4), "Evans 3");
    EXPECT_EQ(Spoken(3), "Evans 2: 10:00am - Noon");
    EXPECT_EQ(DaytypeOf(3), "BK");
    EXPECT_EQ(DaytypeOf(1), "");
    EXPECT_EQ(ValueOf(3), " 2:00");
    EXPECT_EQ(ColourAt(Lane(3, 44)), QBColor(2));
    EXPECT_EQ(ColourAt(Lane(1, 44)), QBColor(15));
    EXPECT_EQ(test::SpokenName(test::Find<QWidget>(*form, "Text1(3)")), "Daytype of Evans 2");
}

TEST_F(MainEditorScrollTest, the_button_leads_to_the_last_page_and_back) {
    CrowdRows(4, 3);
    Open();
    EXPECT_EQ(CaptionOf("Label20"), "Last page");
    Click("Label20");
    EXPECT_EQ(NameOf(1), "Clark Cleo");
    EXPECT_EQ(CaptionOf("Label20"), "First page");
    Click("Label20");
    EXPECT_EQ(NameOf(1), "Adams Anna");
    EXPECT_EQ(CaptionOf("Label20"), "Last page");
}

TEST_F(MainEditorScrollTest, what_is_done_on_a_scrolled_row_belongs_to_who_stands_there) {
    CrowdRows(4, 3);
    Open();
    Bar("VScroll1").setValue(2);
    Drag(1, 32, 48);  // Clark
    TypeInto(2, "v"); // Evans 1
    Bar("VScroll1").setValue(0);
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 5:00pm");
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(DaytypeOf(4), "V");
    Click("Label8");
    EXPECT_EQ(FileRows(), (Rows{"46083|1|CA|9:00am-5:00pm|8|10|W|0", "46083|3||8:00am-12:00pm|4|10|W|0",
                                "46083|4|V||0|10|W|0"}));
}

TEST_F(MainEditorScrollTest, the_rows_stay_scrolled_over_days_and_weeks) {
    CrowdRows(4, 3);
    Open();
    Bar("VScroll1").setValue(1);
    ClickDay(5);
    EXPECT_EQ(NameOf(1), "Brown Bob");
    Click("Label7(1)");
    EXPECT_EQ(NameOf(1), "Brown Bob");
}

TEST_F(MainEditorScrollTest, an_editor_opened_again_begins_at_the_first_page_and_without_its_marks) {
    CrowdRows(4, 3);
    Open();
    Bar("VScroll1").setValue(2);
    Click("Label25");
    Click("Label4(3)");
    form.reset();
    Open();
    EXPECT_EQ(NameOf(1), "Adams Anna");
    EXPECT_TRUE(test::Find<QWidget>(*form, "Text1(1)").hasFocus());
    EXPECT_FALSE(test::Find<QPushButton>(*form, "Label25").isChecked());
    EXPECT_TRUE(test::Find<QPushButton>(*form, "Label4(1)").isChecked());
}

// --- while a bar is in hand -------------------------------------------------------------------------------

TEST_F(MainEditorScrollTest, scrolled_rows_end_a_drag_in_the_row_where_it_began) {
    CrowdRows(4, 3);
    Open();
    DragAndHold(3, 32, 48);
    Bar("VScroll1").setValue(2);
    DragOnAndRelease(3, 60);
    EXPECT_EQ(Spoken(1), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(Spoken(3), "Evans 2:");
    Bar("VScroll1").setValue(0);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
}

TEST_F(MainEditorScrollTest, scrolled_hours_end_a_drag_with_the_hours_that_it_had) {
    ShowHours(12);
    Open();
    Bar("HScroll1").setValue(0);
    DragAndHold(3, 32, 40);
    Bar("HScroll1").setValue(48);
    DragOnAndRelease(3, 90);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - 10:00am");
}

} // namespace
} // namespace tvx
