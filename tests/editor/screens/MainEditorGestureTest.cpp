// The mouse on the lanes of the Main Editor: bars drawn, stretched and moved, refusals, and whatever comes in
// between a press and its release.
#include "MainEditorFixture.h"

namespace tvx {
namespace {

class MainEditorGestureTest : public MainEditorTest {
  protected:
    Rows RowOfClark(const std::string& periods, const std::string& hours) {
        return {"46083|1|CA|9:00am-5:00pm|8|10|W|0", "46083|3||" + periods + "|" + hours + "|10|W|0"};
    }
    void MoveTo(int row, int quarter) {
        const TwipsPoint at = Lane(row, quarter);
        QTest::mouseMove(&Grid(), test::At(at.x, at.y));
    }
    void ExpectNotPermitted() {
        store.prompt().Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                              "Scheduling not permitted");
    }
};

// --- what a drag does -------------------------------------------------------------------------------------

TEST_F(MainEditorGestureTest, a_drag_inside_a_bar_moves_it) {
    Open();
    Drag(1, 50, 54);
    EXPECT_EQ(Spoken(1), "Adams Anna: 10:00am - 6:00pm");
    EXPECT_EQ(ColourAt(Lane(1, 38)), QBColor(15));
    EXPECT_EQ(ColourAt(Lane(1, 70)), QBColor(2));
    EXPECT_TRUE(HasChanges());
}

TEST_F(MainEditorGestureTest, a_drag_at_either_end_stretches_a_bar) {
    Open();
    Drag(1, 68, 72);
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 6:00pm");
    Drag(1, 36, 33);
    EXPECT_EQ(Spoken(1), "Adams Anna: 8:15am - 6:00pm");
}

TEST_F(MainEditorGestureTest, an_end_that_is_drawn_past_the_other_turns_the_bar_over) {
    Open();
    Drag(1, 68, 32);
    EXPECT_EQ(Spoken(1), "Adams Anna: 8:00am - 9:00am");
}

TEST_F(MainEditorGestureTest, a_bar_drawn_to_nothing_is_gone) {
    Open();
    Drag(1, 36, 68);
    EXPECT_EQ(Spoken(1), "Adams Anna:");
    EXPECT_EQ(ValueOf(1), " 0:00");
    EXPECT_EQ(ColourAt(Lane(1, 50)), QBColor(15));
}

TEST_F(MainEditorGestureTest, bars_that_touch_become_one) {
    Open();
    Drag(1, 72, 80);
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 5:00pm 6:00pm - 8:00pm");
    Drag(1, 68, 73);
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 8:00pm");
    EXPECT_EQ(ValueOf(1), "11:00");
}

TEST_F(MainEditorGestureTest, a_bar_can_be_drawn_from_right_to_left) {
    Open();
    Drag(3, 48, 32);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
}

TEST_F(MainEditorGestureTest, a_click_on_an_empty_lane_leaves_no_bar) {
    Open();
    Drag(3, 40, 40);
    EXPECT_EQ(Spoken(3), "Clark Cleo:");
    EXPECT_EQ(Focus(), "Text1(3)");
}

TEST_F(MainEditorGestureTest, the_pointer_tells_what_a_drag_does) {
    Open();
    DragAndHold(3, 32, 48);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Cross);
    Release(3, 48);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    DragAndHold(3, 40, 44);
    EXPECT_EQ(store.prompt().Shape(), Pointer::SizeWestEast);
    Release(3, 44);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(MainEditorGestureTest, the_mouse_may_wander_over_other_rows) {
    Open();
    test::Drag(Grid(), Lane(3, 32), Lane(1, 48));
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 5:00pm");
    EXPECT_EQ(Focus(), "Text1(3)");
}

TEST_F(MainEditorGestureTest, a_drag_beyond_the_left_edge_ends_at_midnight) {
    Open();
    const TwipsPoint outside{-300, Lane(3, 0).y};
    test::Drag(Grid(), Lane(3, 8), outside);
    EXPECT_EQ(Spoken(3), "Clark Cleo: Midn. - 2:00am");
}

TEST_F(MainEditorGestureTest, the_mouse_lights_the_name_of_its_row) {
    Open();
    MoveTo(2, 40);
    EXPECT_TRUE(IsLit(2));
    MoveTo(3, 40);
    EXPECT_FALSE(IsLit(2));
    EXPECT_TRUE(IsLit(3));
    test::Unhover(Grid());
    EXPECT_FALSE(IsLit(3));
}

TEST_F(MainEditorGestureTest, the_mark_on_the_ruler_waits_for_the_release_where_the_mouse_is) {
    Open();
    const QImage bare = Ruler().grab().toImage();
    MoveTo(3, 32);
    const QImage marked = Ruler().grab().toImage();
    EXPECT_NE(marked, bare);
    DragAndHold(3, 48, 32);
    EXPECT_EQ(Ruler().grab().toImage(), bare);
    Release(3, 32);
    EXPECT_EQ(Ruler().grab().toImage(), marked);
}

TEST_F(MainEditorGestureTest, a_bar_in_hand_counts_as_a_head_where_it_was_until_the_release) {
    Open();
    Click("Label25");
    const QImage before = Ruler().grab().toImage();
    DragAndHold(1, 50, 62);
    EXPECT_EQ(Ruler().grab().toImage(), before);
    Release(1, 62);
    test::Unhover(Grid());
    EXPECT_NE(Ruler().grab().toImage(), before);
}

TEST_F(MainEditorGestureTest, other_buttons_of_the_mouse_draw_nothing_and_let_no_bar_go) {
    Open();
    const auto press = [this](int quarter) {
        const TwipsPoint at = Lane(3, quarter);
        QTest::mouseClick(&Grid(), Qt::BackButton, Qt::NoModifier, test::At(at.x, at.y));
    };
    press(30);
    EXPECT_FALSE(HasChanges());
    DragAndHold(3, 32, 40);
    press(40);
    DragOnAndRelease(3, 48);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
}

// --- refusals ---------------------------------------------------------------------------------------------

TEST_F(MainEditorGestureTest, a_day_off_takes_no_bar) {
    PutDayOff(Sunday + 1, 3);
    Open();
    EXPECT_EQ(ColourAt(Lane(3, 20)), DayOffShade);
    EXPECT_EQ(Spoken(3), "Clark Cleo: Vacation day");
    Drag(3, 32, 48);
    EXPECT_EQ(Spoken(3), "Clark Cleo: Vacation day");
    RightPress(3, 32); // no line menu
    ClickDay(3);
    Drag(3, 32, 48);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
}

TEST_F(MainEditorGestureTest, who_may_not_schedule_is_told_and_changes_nothing) {
    ForbidScheduling();
    Open();
    ExpectNotPermitted();
    Drag(3, 32, 48);
    EXPECT_EQ(Spoken(3), "Clark Cleo:");
    ExpectNotPermitted();
    RightPress(1, 50);
    EXPECT_FALSE(HasChanges());
    Click("Label13");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(MainEditorGestureTest, the_right_button_does_nothing_while_the_left_is_held) {
    Open();
    DragAndHold(3, 32, 48);
    RightPress(1, 50); // would open the line menu
    Release(3, 48);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
}

// --- what comes in between --------------------------------------------------------------------------------

TEST_F(MainEditorGestureTest, a_window_that_loses_the_front_keeps_the_bar_as_it_is) {
    Open();
    DragAndHold(3, 32, 48);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(ValueOf(3), " 4:00");
    EXPECT_EQ(TextOf("Label15(0)"), "12:00");
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    EXPECT_EQ(TextOf("Label31"), "");
    DragOnAndRelease(3, 60); // it comes too late
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    Drag(3, 48, 52);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - 1:00pm");
}

TEST_F(MainEditorGestureTest, a_window_that_is_hidden_keeps_the_bar_as_it_is) {
    Open();
    DragAndHold(3, 32, 48);
    form->hide();
    QApplication::processEvents();
    form->ShowModeless();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    Click("Label8");
    EXPECT_EQ(FileRows(), RowOfClark("8:00am-12:00pm", "4"));
}

TEST_F(MainEditorGestureTest, another_day_ends_a_drag_on_the_day_where_it_began) {
    Open();
    DragAndHold(3, 32, 48);
    ClickDay(4);
    DragOnAndRelease(3, 60);
    EXPECT_EQ(Spoken(3), "Clark Cleo:");
    EXPECT_EQ(TextOf("Label15(0)"), " 0:00");
    EXPECT_EQ(TextOf("Label15(1)"), "12:00");
    ClickDay(2);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(TextOf("Label15(0)"), "12:00");
}

TEST_F(MainEditorGestureTest, a_save_takes_the_bar_in_hand_along) {
    Open();
    DragAndHold(3, 32, 48);
    Click("Label8");
    EXPECT_EQ(FileRows(), RowOfClark("8:00am-12:00pm", "4"));
    EXPECT_FALSE(HasChanges());
    DragOnAndRelease(3, 60);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_FALSE(HasChanges());
}

TEST_F(MainEditorGestureTest, a_bar_taken_hold_of_while_a_save_begins_is_saved) {
    Open();
    Drag(3, 32, 48);
    bool once = false;
    store.prompt().WhenEventsRun([&] {
        if (!std::exchange(once, true)) DragAndHold(3, 48, 52);
    });
    Click("Label8");
    EXPECT_EQ(FileRows(), RowOfClark("8:00am-1:00pm", "5"));
}

TEST_F(MainEditorGestureTest, what_is_drawn_while_a_save_ends_is_a_change_again) {
    Open();
    Drag(3, 32, 48);
    int call = 0;
    store.prompt().WhenEventsRun([&] {
        if (++call == 5) Drag(3, 48, 52);
    });
    Click("Label8");
    EXPECT_EQ(FileRows(), RowOfClark("8:00am-12:00pm", "4"));
    EXPECT_TRUE(HasChanges());
    Click("Label8");
    EXPECT_EQ(FileRows(), RowOfClark("8:00am-1:00pm", "5"));
}

TEST_F(MainEditorGestureTest, the_arrow_asks_about_a_bar_in_hand_and_saves_it) {
    Open();
    DragAndHold(3, 32, 48);
    ExpectQuestion(Answer::Yes);
    Click("Label7(1)");
    EXPECT_EQ(FileRows(), RowOfClark("8:00am-12:00pm", "4"));
    DragOnAndRelease(3, 60);
    EXPECT_EQ(Spoken(3), "Clark Cleo:");
}

TEST_F(MainEditorGestureTest, another_option_leaves_the_bar_in_hand) {
    Open();
    DragAndHold(3, 32, 40);
    Click("Label4(3)");
    Release(3, 40);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - 10:00am");
    EXPECT_EQ(ValueOf(3), " 2:00");
}

TEST_F(MainEditorGestureTest, a_press_without_a_release_before_it_keeps_the_first_bar) {
    Open();
    DragAndHold(3, 32, 48);
    Drag(2, 40, 44);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_EQ(Spoken(2), "Brown Bob: 10:00am - 11:00am");
    EXPECT_EQ(TextOf("Label15(0)"), "13:00");
}

// --- a gesture that ends without its release --------------------------------------------------------------

class UnreleasedGestureTest : public MainEditorGestureTest {
  protected:
    /// Four hours for Clark, in hand; then something else comes.
    void HoldAnd(const std::function<void()>& deed) {
        Open();
        DragAndHold(3, 40, 56);
        deed();
        EXPECT_EQ(ValueOf(3), " 4:00");
        EXPECT_EQ(TextOf("Label15(0)"), "12:00");
        EXPECT_EQ(TextOf("Label15(1)"), "12:00");
        EXPECT_EQ(TextOf("Label15(2)"), " 98.00");
        EXPECT_EQ(TextOf("Label31"), "");
        EXPECT_EQ(Spoken(3), "Clark Cleo: 10:00am - 2:00pm");
    }
};

TEST_F(UnreleasedGestureTest, counts_after_another_press) {
    HoldAnd([this] { Drag(2, 80, 80); });
}

TEST_F(UnreleasedGestureTest, counts_after_the_hours_were_scrolled) {
    ShowHours(16);
    HoldAnd([this] { Bar("HScroll1").setValue(Bar("HScroll1").maximum()); });
}

TEST_F(UnreleasedGestureTest, counts_after_a_save) {
    HoldAnd([this] { Click("Label8"); });
}

TEST_F(UnreleasedGestureTest, counts_after_a_report) {
    HoldAnd([this] { test::Choose(*form, "NoLaser"); });
}

TEST_F(UnreleasedGestureTest, counts_after_a_toggle) {
    HoldAnd([this] { Click("Label25"); });
}

} // namespace
} // namespace tvx
