// The daytype boxes of the Main Editor, and its use without a mouse.
#include "MainEditorFixture.h"

#include <QContextMenuEvent>
#include <QTimer>

namespace tvx {
namespace {

class MainEditorDaytypeTest : public MainEditorTest {
  protected:
    qt::TextBox& BoxOf(int row) { return test::Find<qt::TextBox>(*form, Indexed("Text1", row)); }
    /// Chooses an entry of a box's own menu, with its text selected.
    void ChooseInMenu(int row, const char* caption) {
        qt::TextBox& box = BoxOf(row);
        box.setFocus();
        box.selectAll();
        QTimer::singleShot(0, &box, [caption] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction* entry : menu->actions())
                if (entry->text().startsWith(caption)) entry->trigger();
            menu->close();
        });
        const QPoint corner(4, 4);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, corner, box.mapToGlobal(corner));
        QApplication::sendEvent(&box, &event);
    }
    /// The daytype of somebody on the day shown, as the week has it.
    std::string Planned(int employee) const {
        return store.g.week.DayTypeText[store.g.cursor.CurrentDay][employee];
    }
};

TEST_F(MainEditorDaytypeTest, a_box_takes_two_characters_and_no_more) {
    Open();
    TypeInto(3, "abc");
    EXPECT_EQ(DaytypeOf(3), "AB");
}

TEST_F(MainEditorDaytypeTest, digits_pass_and_signs_do_not) {
    Open();
    TypeInto(3, "- 7;,.");
    EXPECT_EQ(DaytypeOf(3), "7");
    EXPECT_EQ(store.prompt().Beeps(), 0);
}

TEST_F(MainEditorDaytypeTest, backspace_takes_a_character_away) {
    Open();
    FocusBox(1);
    test::Press(*form, Qt::Key_End);
    test::Press(*form, Qt::Key_Backspace);
    EXPECT_EQ(DaytypeOf(1), "C");
    EXPECT_TRUE(HasChanges());
    Click("Label8");
    EXPECT_EQ(FileRows(), Rows{"46083|1|C|9:00am-5:00pm|8|10|W|0"});
}

TEST_F(MainEditorDaytypeTest, a_key_that_is_swallowed_leaves_the_week_unchanged) {
    Open();
    FocusBox(1); // which is full
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Minus, Qt::Key_A})
        test::Press(*form, key);
    store.prompt().WillAnswer(Answer::Ok);
    test::Type(*form, "w");
    EXPECT_EQ(DaytypeOf(1), "CA");
    EXPECT_FALSE(HasChanges());
    Click("Label13");
    EXPECT_FALSE(form->isVisible()) << "nothing was asked";
}

TEST_F(MainEditorDaytypeTest, a_day_off_swallows_every_key) {
    PutDayOff(Sunday + 1, 3);
    Open();
    TypeInto(3, "vw");
    EXPECT_EQ(DaytypeOf(3), "");
    EXPECT_FALSE(HasChanges());
    test::Paste(test::Find<QWidget>(*form, "Text1(3)"), "V");
    EXPECT_EQ(DaytypeOf(3), "");
    ClickDay(3);
    TypeInto(3, "v");
    EXPECT_EQ(DaytypeOf(3), "V");
}

TEST_F(MainEditorDaytypeTest, who_may_not_schedule_is_told_at_the_first_key_and_at_a_paste) {
    ForbidScheduling();
    Open();
    for (int i = 0; i < 2; ++i)
        store.prompt().Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                              "Scheduling not permitted");
    TypeInto(3, "v");
    EXPECT_EQ(DaytypeOf(3), "");
    test::Paste(test::Find<QWidget>(*form, "Text1(3)"), "V");
    EXPECT_EQ(DaytypeOf(3), "");
    EXPECT_FALSE(HasChanges());
}

TEST_F(MainEditorDaytypeTest, who_may_not_schedule_cannot_take_a_symbol_away_by_any_way) {
    ForbidScheduling();
    Open();
    auto& box = test::Find<qt::TextBox>(*form, "Text1(1)");
    box.setFocus();
    for (const QKeySequence::StandardKey way :
         {QKeySequence::Cut, QKeySequence::Delete, QKeySequence::Undo}) {
        store.prompt().Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                              "Scheduling not permitted");
        box.selectAll();
        QTest::keySequence(&box, QKeySequence(way));
        EXPECT_EQ(DaytypeOf(1), "CA");
    }
    EXPECT_FALSE(HasChanges());
}

TEST_F(MainEditorDaytypeTest, the_menu_of_a_box_is_closed_to_who_may_not_schedule) {
    Open();
    TypeInto(3, "bk");
    ForbidScheduling();
    for (const char* entry : {"Cu&t", "Delete", "&Undo"}) {
        store.prompt().Expect("Your authorization does not allow scheduling changes", box::Exclamation,
                              "Scheduling not permitted");
        ChooseInMenu(3, entry);
        EXPECT_EQ(DaytypeOf(3), "BK") << entry;
        EXPECT_EQ(Planned(3), "BK") << entry;
    }
    const Rows before = FileRows();
    Click("Label13");
    EXPECT_FALSE(form->isVisible()) << "nobody is asked about what cannot be saved";
    EXPECT_EQ(FileRows(), before);
}

TEST_F(MainEditorDaytypeTest, the_menu_of_a_box_changes_the_week_at_once) {
    Open();
    ChooseInMenu(1, "Cu&t");
    EXPECT_EQ(Planned(1), "");
    ChooseInMenu(1, "&Paste");
    EXPECT_EQ(Planned(1), "CA");
    ChooseInMenu(1, "Delete");
    EXPECT_EQ(Planned(1), "");
}

TEST_F(MainEditorDaytypeTest, letters_of_keys_that_overlap_and_of_a_key_still_down_are_kept) {
    Open();
    qt::TextBox& box = BoxOf(3);
    box.setFocus();
    QTest::keyPress(&box, Qt::Key_B);
    QTest::keyPress(&box, Qt::Key_K);
    EXPECT_EQ(Planned(3), "BK");
    ClickDay(3);
    QTest::keyRelease(&box, Qt::Key_B);
    QTest::keyRelease(&box, Qt::Key_K);
    EXPECT_EQ(Planned(3), "");
    ClickDay(2);
    EXPECT_EQ(DaytypeOf(3), "BK");
}

TEST_F(MainEditorDaytypeTest, a_symbol_is_taken_by_cut_and_given_back_by_undo_in_the_week_too) {
    Open();
    auto& box = test::Find<qt::TextBox>(*form, "Text1(3)");
    box.setFocus();
    test::TypeAny(box, "bk");
    box.selectAll();
    QTest::keySequence(&box, QKeySequence(QKeySequence::Cut));
    EXPECT_EQ(store.g.week.DayTypeText[store.g.cursor.CurrentDay][3], "");
    QTest::keySequence(&box, QKeySequence(QKeySequence::Undo));
    EXPECT_EQ(store.g.week.DayTypeText[store.g.cursor.CurrentDay][3], "BK");
    EXPECT_TRUE(HasChanges());
}

TEST_F(MainEditorDaytypeTest, a_pasted_symbol_is_filtered_and_saved_like_a_typed_one) {
    Open();
    test::Paste(test::Find<QWidget>(*form, "Text1(3)"), "-bkx");
    EXPECT_EQ(DaytypeOf(3), "BK");
    EXPECT_TRUE(HasChanges());
    Click("Label8");
    EXPECT_EQ(FileRows().back(), "46083|3|BK||0|10|W|0");
}

TEST_F(MainEditorDaytypeTest, a_symbol_from_an_input_method_or_a_drop_is_a_change_too) {
    Open();
    test::Compose(test::Find<QWidget>(*form, "Text1(3)"), "v");
    EXPECT_EQ(DaytypeOf(3), "V");
    EXPECT_TRUE(HasChanges());
    test::Drop(test::Find<QWidget>(*form, "Text1(2)"), "x");
    EXPECT_EQ(DaytypeOf(2), "X");
    Click("Label8");
    EXPECT_EQ(FileRows(),
              (Rows{"46083|1|CA|9:00am-5:00pm|8|10|W|0", "46083|2|X||0|100|S|0", "46083|3|V||0|10|W|0"}));
}

TEST_F(MainEditorDaytypeTest, the_tip_of_a_box_explains_its_symbol) {
    ExplainDaytype("CA", "Cakes");
    Open();
    const auto tip = [&](int row) {
        auto& box = test::Find<QWidget>(*form, Indexed("Text1", row));
        QTest::mouseMove(&box, QPoint(4, 4));
        return box.toolTip().toStdString();
    };
    EXPECT_EQ(tip(1), "Cakes");
    EXPECT_EQ(tip(2), "Place for Daytype");
}

TEST_F(MainEditorDaytypeTest, the_box_in_focus_is_yellow) {
    Open();
    FocusBox(2);
    EXPECT_EQ(GroundOf("Text1(2)"), Yellow);
    EXPECT_EQ(GroundOf("Text1(1)"), LightBlue);
}

// --- without a mouse --------------------------------------------------------------------------------------

TEST_F(MainEditorDaytypeTest, the_arrows_walk_the_rows_and_come_round) {
    Open();
    FocusBox(1);
    test::Press(*form, Qt::Key_Down);
    EXPECT_EQ(Focus(), "Text1(2)");
    test::Press(*form, Qt::Key_Up);
    test::Press(*form, Qt::Key_Up);
    EXPECT_EQ(Focus(), "Text1(3)");
    test::Press(*form, Qt::Key_Down);
    EXPECT_EQ(Focus(), "Text1(1)");
}

TEST_F(MainEditorDaytypeTest, tab_leads_from_the_boxes_to_the_options_and_round) {
    Open();
    FocusBox(1);
    const Rows order = test::TabOrder(*form);
    const auto place = [&](const char* name) { return std::find(order.begin(), order.end(), name); };
    EXPECT_EQ((Rows{order.begin(), order.begin() + 3}), (Rows{"Text1(1)", "Text1(2)", "Text1(3)"}));
    for (const char* tool : {"Label7(0)", "Label7(1)", "Label8", "Label12", "Label13", "Label18", "Label25",
                             "pctWeekday", "Label4(1)"})
        EXPECT_NE(place(tool), order.end()) << tool;
}

TEST_F(MainEditorDaytypeTest, the_options_of_the_values_are_one_group_that_arrows_walk) {
    Open();
    QWidget& first = test::Find<QWidget>(*form, "Label4(1)");
    const QAccessibleInterface* group = QAccessible::queryAccessibleInterface(first.parentWidget());
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->childCount(), 12);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&first)->role(), QAccessible::RadioButton);
    first.setFocus();
    test::Press(*form, Qt::Key_Right);
    EXPECT_EQ(Focus(), "Label4(2)");
    EXPECT_EQ(TextOf("Label28"), "Day wages");
}

TEST_F(MainEditorDaytypeTest, the_day_is_chosen_by_arrows_in_the_header) {
    Open();
    test::Find<QWidget>(*form, "pctWeekday").setFocus();
    test::Press(*form, Qt::Key_Right);
    EXPECT_EQ(DayShown(), "Tuesday 03-Mar-26");
    EXPECT_EQ(Focus(), "pctWeekday");
    test::Press(*form, Qt::Key_Left);
    EXPECT_EQ(DayShown(), "Monday 02-Mar-26");
    test::Press(*form, Qt::Key_Home);
    test::Press(*form, Qt::Key_Left); // there is none before
    EXPECT_EQ(DayShown(), "Sunday 01-Mar-26");
    test::Press(*form, Qt::Key_End);
    test::Press(*form, Qt::Key_Right);
    EXPECT_EQ(DayShown(), "Saturday 07-Mar-26");
}

TEST_F(MainEditorDaytypeTest, the_day_is_changed_by_keys_from_everywhere) {
    Open();
    for (const char* place : {"Text1(2)", "Label8", "Label4(1)", "HScroll1"}) {
        test::Find<QWidget>(*form, place).setFocus();
        test::Press(*form, Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(DayShown(), "Tuesday 03-Mar-26") << place;
        test::Press(*form, Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(DayShown(), "Monday 02-Mar-26") << place;
    }
    for (int press = 0; press < 9; ++press) test::Press(*form, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(DayShown(), "Sunday 01-Mar-26");
}

TEST_F(MainEditorDaytypeTest, the_days_are_spoken_as_tabs) {
    Open();
    QAccessibleInterface* days =
        QAccessible::queryAccessibleInterface(&test::Find<QWidget>(*form, "pctWeekday"));
    EXPECT_EQ(days->role(), QAccessible::PageTabList);
    ASSERT_EQ(days->childCount(), 7 + 7) << "the days and their memos";
    QAccessibleInterface* tuesday = days->child(2);
    EXPECT_EQ(tuesday->role(), QAccessible::PageTab);
    EXPECT_EQ(tuesday->text(QAccessible::Name), "Tuesday 03-Mar-26");
    EXPECT_TRUE(days->child(1)->state().selected);
    EXPECT_FALSE(tuesday->state().selected);
    ASSERT_NE(tuesday->actionInterface(), nullptr);
    tuesday->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(DayShown(), "Tuesday 03-Mar-26");
    EXPECT_TRUE(tuesday->state().selected);
    EXPECT_EQ(days->child(7)->role(), QAccessible::Graphic);
    EXPECT_EQ(days->indexOfChild(tuesday), 2);
}

TEST_F(MainEditorDaytypeTest, toggles_say_whether_they_are_on) {
    Open();
    const auto state = [this] {
        return QAccessible::queryAccessibleInterface(&test::Find<QWidget>(*form, "Label25"))->state();
    };
    EXPECT_TRUE(state().checkable);
    EXPECT_FALSE(state().checked);
    test::Choose(*form, "LetSeeHeadcount");
    EXPECT_TRUE(state().checked);
    EXPECT_TRUE(Entry("LetSeeHeadcount").isChecked());
    Click("Label25");
    EXPECT_FALSE(state().checked);
    EXPECT_FALSE(Entry("LetSeeHeadcount").isChecked());
    EXPECT_TRUE(Entry("LetSeeHeadcount").isCheckable());
}

TEST_F(MainEditorDaytypeTest, whatever_holds_others_has_a_name_for_assistive_tools) {
    Open();
    EXPECT_EQ(test::NamelessHolders(*form), "");
}

TEST_F(MainEditorDaytypeTest, f1_helps_and_f10_opens_the_menu) {
    Open();
    FocusBox(1);
    test::Press(*form, Qt::Key_F1);
    EXPECT_EQ(store.script.help.topics.size(), 1U);
    test::Press(*form, Qt::Key_F10);
    auto* bar = form->findChild<QMenuBar*>();
    ASSERT_NE(bar->activeAction(), nullptr);
    EXPECT_EQ(bar->activeAction()->menu()->objectName(), "Sched");
    bar->activeAction()->menu()->close();
}

TEST_F(MainEditorDaytypeTest, the_space_bar_presses_a_tool_in_focus) {
    Open();
    test::Find<QWidget>(*form, "Label7(1)").setFocus();
    test::Press(*form, Qt::Key_Space);
    EXPECT_EQ(Title(), "Bakery,  Week from 8-Mar-2026  to  14-Mar-2026");
    test::Find<QWidget>(*form, "Label4(3)").setFocus();
    test::Press(*form, Qt::Key_Space);
    EXPECT_EQ(TextOf("Label28"), "Week time");
}

TEST_F(MainEditorDaytypeTest, a_click_on_a_tool_leaves_the_focus_in_the_row) {
    Open();
    FocusBox(2);
    Click("Label4(3)");
    Click("Label25");
    EXPECT_EQ(Focus(), "Text1(2)");
}

// --- for assistive tools ----------------------------------------------------------------------------------

TEST_F(MainEditorDaytypeTest, everything_that_takes_input_has_a_name) {
    Open();
    EXPECT_EQ(test::Obstacles(*form), "");
    EXPECT_EQ(test::SpokenName(test::Find<QWidget>(*form, "Text1(3)")), "Daytype of Clark Cleo");
    EXPECT_EQ(test::SpokenName(test::Find<QWidget>(*form, "Label7(0)")), "Previous week");
    EXPECT_EQ(test::SpokenName(test::Find<QWidget>(*form, "Label4(2)")), "Show Day wages");
    EXPECT_EQ(test::SpokenName(Grid()), "Time bars");
    EXPECT_EQ(test::SpokenName(Bar("HScroll1")), "Hours");
    EXPECT_EQ(test::SpokenName(Bar("VScroll1")), "Rows");
}

TEST_F(MainEditorDaytypeTest, the_grid_has_a_row_for_everybody_with_its_place) {
    Open();
    const QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&Grid());
    EXPECT_EQ(grid->role(), QAccessible::Table);
    ASSERT_EQ(grid->childCount(), 3);
    EXPECT_EQ(grid->child(3), nullptr);
    const QAccessibleInterface* brown = grid->child(1);
    EXPECT_EQ(brown->role(), QAccessible::Row);
    EXPECT_EQ(grid->indexOfChild(brown), 1);
    EXPECT_EQ(brown->parent(), grid);
    const TwipsPoint lane = Lane(2, 40);
    EXPECT_TRUE(brown->rect().contains(Grid().mapToGlobal(test::At(lane.x, lane.y))));
    EXPECT_EQ(Spoken(2), "Brown Bob:");
}

TEST_F(MainEditorDaytypeTest, the_totals_are_spoken_with_their_name) {
    Open();
    auto& dayTime = test::Find<QWidget>(*form, "Label15(0)");
    EXPECT_EQ(test::SpokenName(dayTime), "Day time");
    EXPECT_EQ(dayTime.accessibleDescription().toStdString(), " 8:00");
}

} // namespace
} // namespace tvx
