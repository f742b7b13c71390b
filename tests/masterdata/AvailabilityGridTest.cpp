#include "masterdata/AvailabilityGrid.h"

#include "support/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <ostream>

namespace tvx {
namespace {

using Button = MouseButton;
using Bars = std::vector<std::pair<int, int>>; // start and stop in quarters

constexpr int Monday = 2; // row of the gestures

Twips Middle(int row) {
    return (row - 1) * absence::RowHeight + 110;
}

Bars BarsOf(const Absence& absence, int row) {
    Bars bars;
    for (int k = 1; k <= absence.AvailCount[row]; ++k)
        bars.emplace_back(absence.AvailStart[row][k], absence.AvailStop[row][k]);
    return bars;
}

Absence WithBars(int row, const Bars& bars) {
    Absence absence;
    for (const auto& [start, stop] : bars) {
        const int k = ++absence.AvailCount[row];
        absence.AvailStart[row][k] = start;
        absence.AvailStop[row][k] = stop;
    }
    return absence;
}

AvailabilityGrid GridWith(const Bars& bars, int row = Monday) {
    AvailabilityGrid grid;
    grid.SetBars(WithBars(row, bars));
    return grid;
}

void Draw(AvailabilityGrid& grid, int row, Twips from, Twips to, bool shift = false) {
    constexpr int Steps = 5;
    const Twips y = Middle(row);
    grid.Press({Button::Left, from, y, shift});
    for (int i = 1; i <= Steps; ++i) grid.Move({Button::Left, from + (to - from) * i / Steps, y, shift});
    grid.Release({Button::Left, to, y, shift});
}

// ---- one gesture ----

struct Gesture {
    const char* name;
    Bars before;
    Twips from; // places on the grid; a quarter is 90 twips
    Twips to;
    bool shift;
    Bars after;
};

std::ostream& operator<<(std::ostream& out, const Gesture& gesture) {
    return out << gesture.name;
}

class GestureTest : public testing::TestWithParam<Gesture> {};

TEST_P(GestureTest, gives) {
    const Gesture& gesture = GetParam();
    AvailabilityGrid grid = GridWith(gesture.before);
    Draw(grid, Monday, gesture.from, gesture.to, gesture.shift);
    EXPECT_EQ(BarsOf(grid.Bars(), Monday), gesture.after);
    EXPECT_EQ(grid.Band(), (std::pair<Twips, Twips>{0, 0}));
    for (int row = 1; row <= 7; ++row) EXPECT_TRUE(row == Monday || grid.Bars().AvailCount[row] == 0) << row;
}

const std::vector<Gesture> Gestures{
    {"a_drag_to_the_right_draws_a_bar", {}, 900, 1800, false, {{10, 20}}},
    {"a_drag_to_the_left_draws_the_same_bar", {}, 1800, 900, false, {{10, 20}}},
    {"a_click_draws_nothing", {}, 900, 900, false, {}},
    {"a_drag_of_less_than_a_quarter_draws_nothing", {}, 900, 989, false, {}},
    {"a_drag_of_a_quarter_draws_one", {}, 900, 990, false, {{10, 11}}},
    {"the_press_is_snapped_before_the_length_is_measured", {}, 100, 185, false, {{1, 2}}},
    {"a_remainder_of_45_rounds_down", {}, 945, 1845, false, {{10, 20}}},
    {"a_remainder_of_46_rounds_up", {}, 946, 1846, false, {{11, 21}}},
    {"a_drag_out_on_the_right_ends_at_midnight", {}, 7200, 9500, false, {{80, 96}}},
    {"a_drag_out_on_the_left_ends_at_midnight", {}, 900, -400, false, {{0, 10}}},
    {"the_last_place_holds_no_bar_of_its_own", {}, 8610, 8670, false, {}},
    {"a_whole_day_can_be_drawn", {}, 0, 8670, false, {{0, 96}}},

    {"the_left_end_is_stretched", {{10, 20}}, 900, 450, false, {{5, 20}}},
    {"the_left_end_is_grabbed_60_twips_inside", {{10, 20}}, 960, 510, false, {{5, 20}}},
    {"the_left_end_is_grabbed_60_twips_outside", {{10, 20}}, 840, 390, false, {{5, 20}}},
    {"the_right_end_is_stretched", {{10, 20}}, 1800, 2700, false, {{10, 30}}},
    {"the_right_end_is_grabbed_60_twips_outside", {{10, 20}}, 1860, 2760, false, {{10, 30}}},
    {"61_twips_outside_a_new_bar_begins", {{10, 20}}, 1861, 2790, false, {{10, 20}, {21, 31}}},
    {"an_end_dragged_past_the_other_turns_the_bar_over", {{10, 20}}, 900, 2700, false, {{20, 30}}},
    {"an_end_dragged_onto_the_other_deletes_the_bar", {{10, 20}}, 1800, 900, false, {}},
    {"an_end_dragged_near_the_other_deletes_the_bar", {{10, 20}}, 1800, 989, false, {}},
    {"an_end_dragged_out_ends_at_midnight", {{10, 20}}, 1800, 9000, false, {{10, 96}}},
    {"a_bar_of_one_quarter_is_taken_by_its_left_end", {{10, 11}}, 945, 495, false, {{5, 11}}},
    {"of_two_bars_within_reach_the_earlier_is_taken",
     {{10, 20}, {21, 30}},
     1840,
     1700,
     false,
     {{10, 18}, {21, 30}}},

    {"the_middle_of_a_bar_stays_without_the_shift_key", {{10, 20}}, 1350, 2250, false, {{10, 20}}},
    {"the_middle_moves_the_bar_with_the_shift_key", {{10, 20}}, 1350, 2250, true, {{20, 30}}},
    {"an_end_is_stretched_with_the_shift_key_too", {{10, 20}}, 1800, 2700, true, {{10, 30}}},
    {"a_bar_moved_out_on_the_left_is_cut_at_midnight", {{10, 20}}, 1350, 900, true, {{5, 15}}},
    {"a_bar_moved_far_out_on_the_left_is_cut_at_midnight", {{10, 20}}, 1350, 0, true, {{0, 5}}},
    {"a_bar_moved_out_on_the_right_is_cut_at_midnight", {{10, 20}}, 1350, 8670, true, {{91, 96}}},
    {"an_empty_place_takes_a_new_bar_with_the_shift_key", {}, 900, 1800, true, {{10, 20}}},

    {"bars_that_overlap_become_one", {{10, 20}, {30, 40}}, 1800, 3000, false, {{10, 40}}},
    {"bars_that_touch_become_one", {{10, 20}, {30, 40}}, 1800, 2700, false, {{10, 40}}},
    {"a_bar_over_two_others_takes_both", {{10, 20}, {30, 40}}, 450, 4500, false, {{5, 50}}},
    {"a_bar_before_the_others_comes_first", {{30, 40}}, 900, 1800, false, {{10, 20}, {30, 40}}},
    {"a_fourth_bar_behind_three_goes",
     {{4, 8}, {12, 16}, {20, 24}},
     2700,
     3600,
     false,
     {{4, 8}, {12, 16}, {20, 24}}},
    {"a_fourth_bar_before_three_makes_the_last_one_go",
     {{14, 18}, {22, 26}, {30, 34}},
     450,
     900,
     false,
     {{5, 10}, {14, 18}, {22, 26}}},
    {"a_fourth_bar_that_joins_two_leaves_two",
     {{4, 8}, {12, 16}, {20, 24}},
     1260,
     1890,
     false,
     {{4, 8}, {12, 16}, {20, 24}}},
    {"the_third_of_three_can_be_stretched",
     {{4, 8}, {12, 16}, {20, 24}},
     2160,
     2700,
     false,
     {{4, 8}, {12, 16}, {20, 30}}},
    {"a_stored_fourth_bar_cannot_be_reached",
     {{4, 8}, {12, 16}, {20, 24}, {30, 40}},
     3600,
     4500,
     false,
     {{4, 8}, {12, 16}, {20, 24}, {30, 40}}},
    {"a_stored_fourth_bar_keeps_new_ones_away",
     {{4, 8}, {12, 16}, {20, 24}, {30, 40}},
     5400,
     6300,
     false,
     {{4, 8}, {12, 16}, {20, 24}, {30, 40}}},
    {"a_stored_fourth_bar_goes_with_the_next_edit",
     {{4, 8}, {12, 16}, {20, 24}, {30, 40}},
     720,
     810,
     false,
     {{4, 9}, {12, 16}, {20, 24}}},
};

INSTANTIATE_TEST_SUITE_P(Absence, GestureTest, testing::ValuesIn(Gestures),
                         [](const auto& gesture) { return gesture.param.name; });

// ---- what a gesture shows on its way ----

TEST(AvailabilityGrid, shows_a_fourth_bar_while_it_is_drawn_and_drops_it_at_the_release) {
    AvailabilityGrid grid = GridWith({{4, 8}, {12, 16}, {20, 24}});
    grid.Press({Button::Left, 2700, Middle(Monday)});
    grid.Move({Button::Left, 3600, Middle(Monday)});
    EXPECT_EQ(grid.Band(), (std::pair<Twips, Twips>{2700, 3600}));
    EXPECT_EQ(grid.Row(), Monday);
    grid.Release({Button::Left, 3600, Middle(Monday)});
    EXPECT_EQ(grid.Band(), (std::pair<Twips, Twips>{0, 0}));
    EXPECT_EQ(grid.Bars().AvailCount[Monday], 3);
}

TEST(AvailabilityGrid, counts_every_press_as_a_change_of_the_record) {
    AvailabilityGrid grid;
    const AbsenceChange change = grid.Press({Button::Left, 900, Middle(1)});
    EXPECT_TRUE(change.pressed);
    EXPECT_TRUE(change.row);
    EXPECT_TRUE(change.pointer);
    EXPECT_EQ(change.shape, Pointer::Cross);
    const AbsenceChange released = grid.Release({Button::Left, 900, Middle(1)});
    EXPECT_TRUE(released.pointer);
    EXPECT_EQ(released.shape, Pointer::Default);
    EXPECT_TRUE(released.markerMoved);
}

TEST(AvailabilityGrid, shows_by_the_pointer_what_a_press_will_do) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    EXPECT_EQ(grid.Press({Button::Left, 1350, Middle(Monday), true}).shape, Pointer::SizeWestEast);
    grid.Release({Button::Left, 1350, Middle(Monday), true});
    EXPECT_EQ(grid.Press({Button::Left, 900, Middle(Monday)}).shape, Pointer::Cross);
    grid.Release({Button::Left, 900, Middle(Monday)});
    EXPECT_FALSE(grid.Press({Button::Left, 1350, Middle(Monday)}).pointer);
    EXPECT_EQ(grid.Band(), (std::pair<Twips, Twips>{900, 1800})) << "a bar that does not move stays in sight";
}

TEST(AvailabilityGrid, gives_the_pointer_back_when_a_drag_reaches_the_end) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 8100, Middle(1)});
    const AbsenceChange change = grid.Move({Button::Left, 8670, Middle(1)});
    EXPECT_TRUE(change.pointer);
    EXPECT_EQ(change.shape, Pointer::Default);
    grid.Move({Button::Left, 4500, Middle(1)});
    EXPECT_EQ(grid.Band(), (std::pair<Twips, Twips>{8100, 8670})) << "the drag is over";
    grid.Release({Button::Left, 4500, Middle(1)});
    EXPECT_EQ(BarsOf(grid.Bars(), 1), (Bars{{90, 96}}));
}

TEST(AvailabilityGrid, tells_the_day_under_an_idle_mouse) {
    AvailabilityGrid grid;
    for (int row = 1; row <= 7; ++row)
        EXPECT_EQ(grid.Move({Button::None, 500, (row - 1) * absence::RowHeight}).hoverRow, row);
    EXPECT_EQ(grid.Move({Button::None, 500, 7 * absence::RowHeight}).hoverRow, 0);
    EXPECT_EQ(grid.Move({Button::None, 500, -1}).hoverRow, 0);
    EXPECT_EQ(grid.Move({Button::None, 500, 0}).markerX, 360);
}

TEST(AvailabilityGrid, does_nothing_on_a_press_outside_its_rows) {
    AvailabilityGrid grid = GridWith({{10, 20}}, 7);
    const Absence before = grid.Bars();
    for (const auto& [x, y] : {std::pair<Twips, Twips>{8671, 100}, {-1, 100}, {900, -1}, {900, 1680}})
        for (const Button button : {Button::Left, Button::Right}) {
            const AbsenceChange change = grid.Press({button, x, y});
            EXPECT_FALSE(change.pressed || change.row || change.menu || change.pointer) << x << " " << y;
            grid.Move({button, x + 900, y});
            grid.Release({button, x + 900, y});
        }
    EXPECT_EQ(grid.Bars(), before);
}

TEST(AvailabilityGrid, takes_every_place_inside_its_rows) {
    for (const auto& [x, y] : {std::pair<Twips, Twips>{0, 0}, {8670, 0}, {0, 1679}, {8670, 1679}}) {
        AvailabilityGrid grid;
        EXPECT_TRUE(grid.Press({Button::Left, x, y}).pressed) << x << " " << y;
    }
}

TEST(AvailabilityGrid, commits_a_drag_that_ends_below_its_rows) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 900, Middle(7)});
    grid.Move({Button::Left, 1800, 2000});
    grid.Release({Button::Left, 1800, 2000});
    EXPECT_EQ(BarsOf(grid.Bars(), 7), (Bars{{10, 20}}));
}

TEST(AvailabilityGrid, stays_on_the_row_of_the_press) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 900, Middle(3)});
    grid.Move({Button::Left, 1800, Middle(5)});
    grid.Release({Button::Left, 1800, Middle(5)});
    EXPECT_EQ(BarsOf(grid.Bars(), 3), (Bars{{10, 20}}));
    EXPECT_EQ(grid.Bars().AvailCount[5], 0);
}

// ---- gestures that are cut off ----

TEST(AvailabilityGrid, commits_a_gesture_when_the_record_is_saved_in_the_middle_of_it) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 900, Middle(1)});
    grid.Move({Button::Left, 1800, Middle(1)});
    EXPECT_TRUE(grid.Settle());
    EXPECT_FALSE(grid.Settle());
    EXPECT_EQ(BarsOf(grid.Bars(), 1), (Bars{{10, 20}}));
    grid.Release({Button::Left, 2700, Middle(1)});
    EXPECT_EQ(BarsOf(grid.Bars(), 1), (Bars{{10, 20}}));
}

TEST(AvailabilityGrid, commits_a_gesture_whose_release_was_lost) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 900, Middle(1)});
    grid.Move({Button::Left, 1800, Middle(1)});
    const AbsenceChange change = grid.Move({Button::None, 5000, Middle(1)});
    EXPECT_TRUE(change.row);
    EXPECT_TRUE(change.pointer);
    EXPECT_EQ(BarsOf(grid.Bars(), 1), (Bars{{10, 20}}));
    EXPECT_TRUE(grid.Press({Button::Right, 900, Middle(1)}).menu) << "the left button is not held any more";
}

TEST(AvailabilityGrid, ignores_the_right_button_while_the_left_one_draws) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 900, Middle(1)});
    grid.Move({Button::Left, 1800, Middle(1)});
    const AbsenceChange change = grid.Press({Button::Right, 1800, Middle(4)});
    EXPECT_FALSE(change.pressed || change.menu);
    grid.Release({Button::Right, 1800, Middle(4)});
    grid.Move({Button::Left, 2700, Middle(1)});
    grid.Release({Button::Left, 2700, Middle(1)});
    EXPECT_EQ(BarsOf(grid.Bars(), 1), (Bars{{10, 30}}));
}

TEST(AvailabilityGrid, begins_a_new_record_without_the_old_gesture) {
    AvailabilityGrid grid;
    grid.Press({Button::Left, 900, Middle(1)});
    grid.SetBars(WithBars(3, {{4, 8}}));
    grid.Release({Button::Left, 1800, Middle(1)});
    EXPECT_EQ(grid.Bars(), WithBars(3, {{4, 8}}));
}

// ---- the menu ----

void RightClick(AvailabilityGrid& grid, int row) {
    grid.Press({Button::Right, 900, Middle(row)});
    grid.Release({Button::Right, 900, Middle(row)});
}

TEST(AvailabilityGrid, offers_to_cut_and_copy_only_where_bars_are) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    EXPECT_TRUE(grid.Press({Button::Right, 900, Middle(Monday)}).menu);
    EXPECT_TRUE(grid.CanCut());
    EXPECT_FALSE(grid.CanPaste());
    RightClick(grid, 5);
    EXPECT_FALSE(grid.CanCut());
    EXPECT_FALSE(grid.CanPaste()) << "nothing was copied yet";
}

TEST(AvailabilityGrid, copies_a_day_to_an_empty_one) {
    AvailabilityGrid grid = GridWith({{10, 20}, {30, 96}});
    RightClick(grid, Monday);
    grid.CopyLine();
    EXPECT_FALSE(grid.CanPaste()) << "a day with bars takes none";
    RightClick(grid, 5);
    EXPECT_TRUE(grid.CanPaste());
    EXPECT_TRUE(grid.PasteLine());
    EXPECT_EQ(BarsOf(grid.Bars(), 5), (Bars{{10, 20}, {30, 96}}));
    EXPECT_EQ(BarsOf(grid.Bars(), Monday), (Bars{{10, 20}, {30, 96}}));
}

TEST(AvailabilityGrid, cuts_a_day_and_pastes_it_elsewhere) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    RightClick(grid, Monday);
    grid.CutLine();
    EXPECT_EQ(grid.Bars().AvailCount[Monday], 0);
    EXPECT_EQ(grid.Bars().AvailStop[Monday][1], 0);
    RightClick(grid, 6);
    EXPECT_TRUE(grid.PasteLine());
    EXPECT_EQ(BarsOf(grid.Bars(), 6), (Bars{{10, 20}}));
}

TEST(AvailabilityGrid, refuses_to_paste_over_bars) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    RightClick(grid, Monday);
    grid.CopyLine();
    Draw(grid, 4, 4500, 5400);
    RightClick(grid, 4);
    EXPECT_FALSE(grid.PasteLine());
    EXPECT_EQ(BarsOf(grid.Bars(), 4), (Bars{{50, 60}}));
}

TEST(AvailabilityGrid, keeps_its_clipboard_for_the_next_record) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    RightClick(grid, Monday);
    grid.CopyLine();
    grid.SetBars({});
    RightClick(grid, 1);
    EXPECT_TRUE(grid.CanPaste());
    EXPECT_TRUE(grid.PasteLine());
    EXPECT_EQ(BarsOf(grid.Bars(), 1), (Bars{{10, 20}}));
}

TEST(AvailabilityCommands, offer_what_the_row_of_the_last_press_allows) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    const CommandTable menu = AvailabilityCommands(grid, [] { FAIL() << "nothing was refused"; });
    RightClick(grid, Monday);
    EXPECT_TRUE(menu.CanChoose("CutLine") && menu.CanChoose("CopyLine"));
    EXPECT_FALSE(menu.CanChoose("PasteLine"));
    menu.Choose("CutLine");
    EXPECT_FALSE(menu.CanChoose("CutLine") || menu.CanChoose("CopyLine"));
    RightClick(grid, 5);
    menu.Choose("PasteLine");
    EXPECT_EQ(BarsOf(grid.Bars(), 5), (Bars{{10, 20}}));
}

TEST(AvailabilityCommands, refuse_to_paste_where_a_bar_in_hand_comes_to_lie) {
    AvailabilityGrid grid = GridWith({{10, 20}});
    int refused = 0;
    const CommandTable menu = AvailabilityCommands(grid, [&] { ++refused; });
    RightClick(grid, Monday);
    menu.Choose("CopyLine");
    grid.Press({Button::Left, 4500, Middle(4)});
    grid.Move({Button::Left, 5400, Middle(4)});
    menu.Choose("PasteLine");
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(BarsOf(grid.Bars(), 4), (Bars{{50, 60}}));
}

// ---- drawing ----

TEST(DrawAvailabilityRow, gives_a_white_band_and_a_red_box_for_each_bar) {
    const auto boxes = DrawAvailabilityRow(WithBars(3, {{0, 4}, {92, 96}}), 3);
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_FALSE(boxes[0].bar);
    EXPECT_EQ(boxes[0].left, 0);
    EXPECT_EQ(boxes[0].right, 8670);
    for (const AbsenceBox& box : boxes) {
        EXPECT_EQ(box.top, 480 + 50);
        EXPECT_EQ(box.bottom, 480 + 170);
    }
    EXPECT_TRUE(boxes[1].bar && boxes[2].bar);
    EXPECT_EQ(boxes[1].right, 360);
    EXPECT_EQ(boxes[2].left, 8280);
    EXPECT_EQ(boxes[2].right, 8640);
}

TEST(DrawAvailabilityRow, ends_at_the_first_empty_place) {
    Absence absence = WithBars(1, {{4, 8}});
    absence.AvailStart[1][3] = 20;
    absence.AvailStop[1][3] = 30;
    EXPECT_EQ(DrawAvailabilityRow(absence, 1).size(), 2U);
}

TEST(DrawAvailabilityRow, passes_over_a_bar_that_ends_before_it_begins) {
    const auto boxes = DrawAvailabilityRow(WithBars(1, {{8, 4}, {20, 30}}), 1);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[1].left, 1800);
}

// ---- the stored texts ----

std::string Blanks() {
    return std::string(28, ' ');
}

TEST(DecodeAbsence, reads_each_day_from_its_four_places) {
    std::string starts = Blanks();
    std::string stops = Blanks();
    starts[4] = static_cast<char>(32 + 10); // Monday, slot 1
    stops[4] = static_cast<char>(32 + 20);
    starts[27] = static_cast<char>(32 + 90); // Saturday, slot 4
    stops[27] = static_cast<char>(32 + 96);
    const Absence absence = DecodeAbsence(starts, stops);
    EXPECT_EQ(BarsOf(absence, 2), (Bars{{10, 20}}));
    EXPECT_EQ(absence.AvailStart[7][4], 90);
    EXPECT_EQ(absence.AvailStop[7][4], 96);
    EXPECT_EQ(absence.AvailCount[7], 0) << "drawing ends at the empty first place";
}

TEST(DecodeAbsence, takes_a_blank_start_as_midnight) {
    std::string stops = Blanks();
    stops[0] = static_cast<char>(32 + 8);
    EXPECT_EQ(BarsOf(DecodeAbsence(Blanks(), stops), 1), (Bars{{0, 8}}));
}

TEST(DecodeAbsence, goes_by_the_stop_alone) {
    std::string starts = Blanks();
    starts[0] = static_cast<char>(32 + 8);
    EXPECT_EQ(DecodeAbsence(starts, Blanks()), Absence());
}

TEST(DecodeAbsence, takes_a_short_text_for_blanks) {
    EXPECT_EQ(DecodeAbsence("", ""), Absence());
    EXPECT_EQ(DecodeAbsence(std::string(27, '@'), std::string(27, '@')), Absence());
}

TEST(DecodeAbsence, reads_the_last_quarter_from_code_128) {
    std::string stops = Blanks();
    stops[0] = static_cast<char>(128);
    const Absence absence = DecodeAbsence(Blanks(), stops);
    EXPECT_EQ(BarsOf(absence, 1), (Bars{{0, 96}}));
    EXPECT_EQ(EncodeStops(absence), stops);
    EXPECT_EQ(static_cast<unsigned char>(EncodeStops(absence)[0]), 128U);
}

TEST(DecodeAbsence, gives_back_what_it_was_given_for_all_that_the_grid_can_draw) {
    for (int start = 0; start < 96; ++start)
        for (int stop = start + 1; stop <= 96; ++stop) {
            const Absence absence = WithBars(4, {{start, stop}});
            ASSERT_EQ(DecodeAbsence(EncodeStarts(absence), EncodeStops(absence)), absence)
                << start << " " << stop;
        }
}

// ---- any gestures ----

void ExpectSound(const Absence& absence, int row) {
    const Bars bars = BarsOf(absence, row);
    EXPECT_LE(bars.size(), 3U);
    int before = -1;
    for (const auto& [start, stop] : bars) {
        EXPECT_GT(start, before) << "sorted, apart";
        EXPECT_GT(stop, start);
        EXPECT_LE(stop, 96);
        before = stop;
    }
    for (int k = absence.AvailCount[row] + 1; k <= 4; ++k)
        EXPECT_TRUE(absence.AvailStart[row][k] == 0 && absence.AvailStop[row][k] == 0) << k;
}

Button RandomButton(test::Random& random) {
    constexpr std::array<Button, 3> buttons{Button::Left, Button::Left, Button::Right};
    return buttons[static_cast<std::size_t>(random.Whole(0, 2))];
}

GridMouse RandomMouse(test::Random& random, Button button) {
    return {button, static_cast<Twips>(random.Whole(-300, 9000)),
            static_cast<Twips>(random.Whole(-100, 1900)), random.Chance(30)};
}

void DoAnything(AvailabilityGrid& grid, test::Random& random) {
    switch (random.Whole(0, 9)) {
    case 0:
        grid.CopyLine();
        break;
    case 1:
        grid.CutLine();
        break;
    case 2:
        grid.PasteLine();
        break;
    case 3:
        grid.Settle();
        break;
    case 4:
        grid.Move(RandomMouse(random, Button::None));
        break;
    default:
        grid.Press(RandomMouse(random, RandomButton(random)));
        for (std::int64_t moves = random.Whole(0, 4); moves > 0; --moves)
            grid.Move(RandomMouse(random, Button::Left));
        if (random.Chance(90)) grid.Release(RandomMouse(random, RandomButton(random)));
    }
}

TEST(AvailabilityGrid, keeps_sound_days_whatever_the_mouse_does) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    AvailabilityGrid grid;
    for (int i = 0; i < 5000; ++i) {
        DoAnything(grid, random);
        const auto [left, right] = grid.Band();
        ASSERT_TRUE(left >= 0 && left <= right && right <= absence::RightEnd) << i;
        AvailabilityGrid settled = grid;
        settled.Settle();
        for (int row = 1; row <= 7; ++row) ExpectSound(settled.Bars(), row);
        Absence days = settled.Bars();
        days.AvailCount[0] = 0;
        days.AvailStart[0] = days.AvailStop[0] = {};
        ASSERT_EQ(DecodeAbsence(EncodeStarts(days), EncodeStops(days)), days) << i;
        ASSERT_FALSE(testing::Test::HasFailure()) << i;
    }
}

TEST(AvailabilityGrid, takes_any_stored_bytes) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 300; ++i) {
        AvailabilityGrid grid;
        grid.SetBars(DecodeAbsence(random.Bytes(40), random.Bytes(40)));
        for (int steps = 0; steps < 30; ++steps) DoAnything(grid, random);
        for (const std::string& text : {EncodeStarts(grid.Bars()), EncodeStops(grid.Bars())}) {
            ASSERT_EQ(text.size(), 28U);
            EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) {
                const auto code = static_cast<unsigned char>(c);
                return code >= 32 && code <= 128;
            }));
        }
        for (int row = 1; row <= 7; ++row) DrawAvailabilityRow(grid.Bars(), row);
    }
}

/// The quarters that bars cover.
std::bitset<96> Covered(const Bars& bars) {
    std::bitset<96> quarters;
    for (const auto& [start, stop] : bars)
        for (int q = start; q < stop; ++q) quarters.set(static_cast<std::size_t>(q));
    return quarters;
}

TEST(AvailabilityGrid, adds_what_is_drawn_to_what_is_there) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 500; ++i) {
        // Two bars at most, so that no fourth one is lost.
        const int start = static_cast<int>(random.Whole(30, 50));
        const Bars before{{start, start + 10}};
        AvailabilityGrid grid = GridWith(before);
        const int from = static_cast<int>(random.Whole(0, 28));
        const int to = static_cast<int>(random.Whole(from + 1, 96));
        Draw(grid, Monday, from * 90, to * 90);
        ASSERT_EQ(Covered(BarsOf(grid.Bars(), Monday)), Covered(before) | Covered({{from, to}}))
            << from << " to " << to << " beside " << start;
    }
}

} // namespace
} // namespace tvx
