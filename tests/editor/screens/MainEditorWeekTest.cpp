// Weeks and days of the Main Editor: the arrows, the day header, saving and closing.
#include "MainEditorFixture.h"
#include "editor/week/SaveWeek.h"
#include "editor/week/WeekEdit.h"
#include "platform/dao/DaoError.h"
#include "support/OtherWorkstation.h"

namespace tvx {
namespace {

using MainEditorWeekTest = MainEditorTest;

const std::string AdamsOnMonday = "46083|1|CA|9:00am-5:00pm|0|10|W|0";
const std::string AdamsOnMondaySaved = "46083|1|CA|9:00am-5:00pm|8|10|W|0";
const std::string ClarkOnMonday = "46083|3||8:00am-12:00pm|4|10|W|0";

// --- the arrows -------------------------------------------------------------------------------------------

TEST_F(MainEditorWeekTest, the_arrow_to_the_right_shows_the_next_week_on_the_same_weekday) {
    store.PutDay(Sunday + 8, 3, test::StartsStops({{40, 48}}), "BK");
    Open();
    Click("Label7(1)");
    EXPECT_EQ(Title(), "Bakery,  Week from 8-Mar-2026  to  14-Mar-2026");
    EXPECT_EQ(DayShown(), "Monday 09-Mar-26");
    EXPECT_EQ(Spoken(1), "Adams Anna:");
    EXPECT_EQ(Spoken(3), "Clark Cleo: 10:00am - Noon");
    EXPECT_EQ(DaytypeOf(1), "");
    EXPECT_EQ(DaytypeOf(3), "BK");
    EXPECT_EQ(TextOf("Label15(0)"), " 2:00");
    EXPECT_EQ(ColourAt(Lane(3, 44)), QBColor(2));
    EXPECT_EQ(ColourAt(Lane(1, 50)), QBColor(15));
}

TEST_F(MainEditorWeekTest, the_arrow_to_the_left_shows_the_week_before) {
    Open();
    Click("Label7(0)");
    EXPECT_EQ(Title(), "Bakery,  Week from 22-Feb-2026  to  28-Feb-2026");
    EXPECT_EQ(DayShown(), "Monday 23-Feb-26");
    EXPECT_EQ(TextOf("Label15(1)"), " 0:00");
    Click("Label7(1)");
    EXPECT_EQ(Spoken(1), "Adams Anna: 9:00am - 5:00pm");
    EXPECT_EQ(TextOf("Label15(1)"), " 8:00");
}

TEST_F(MainEditorWeekTest, an_arrow_leaves_the_focus_in_its_row_and_the_column_as_chosen) {
    Open();
    FocusBox(2);
    Click("Label4(3)");
    Click("Label7(1)");
    EXPECT_EQ(Focus(), "Text1(2)");
    EXPECT_EQ(TextOf("Label28"), "Week time");
}

TEST_F(MainEditorWeekTest, an_arrow_asks_and_saves_a_changed_week) {
    Open();
    Drag(3, 32, 48);
    ExpectQuestion(Answer::Yes);
    Click("Label7(1)");
    EXPECT_EQ(Title(), "Bakery,  Week from 8-Mar-2026  to  14-Mar-2026");
    EXPECT_EQ(FileRows(), (Rows{AdamsOnMondaySaved, ClarkOnMonday}));
    EXPECT_FALSE(HasChanges());
}

TEST_F(MainEditorWeekTest, an_arrow_gives_up_changes_that_nobody_wants) {
    Open();
    Drag(3, 32, 48);
    ExpectQuestion(Answer::No);
    Click("Label7(0)");
    Click("Label7(1)"); // nothing is asked any more
    EXPECT_EQ(Spoken(3), "Clark Cleo:");
    EXPECT_EQ(FileRows(), Rows{AdamsOnMonday});
}

TEST_F(MainEditorWeekTest, an_arrow_stays_when_the_question_is_called_off) {
    Open();
    Drag(3, 32, 48);
    ExpectQuestion(Answer::Cancel);
    Click("Label7(1)");
    EXPECT_EQ(Title(), "Bakery,  Week from 1-Mar-2026  to  7-Mar-2026");
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    EXPECT_TRUE(HasChanges());
    EXPECT_EQ(FileRows(), Rows{AdamsOnMonday});
}

// --- the days ---------------------------------------------------------------------------------------------

TEST_F(MainEditorWeekTest, a_click_in_the_header_shows_that_day) {
    store.PutDay(Sunday + 2, 3, test::StartsStops({{40, 48}}), "BK");
    Open();
    ClickDay(3);
    EXPECT_EQ(DayShown(), "Tuesday 03-Mar-26");
    EXPECT_EQ(Spoken(1), "Adams Anna:");
    EXPECT_EQ(Spoken(3), "Clark Cleo: 10:00am - Noon");
    EXPECT_EQ(DaytypeOf(1), "");
    EXPECT_EQ(DaytypeOf(3), "BK");
    EXPECT_EQ(TextOf("Label15(0)"), " 2:00");
    EXPECT_EQ(TextOf("Label15(1)"), "10:00");
    EXPECT_EQ(TextOf("Label15(2)"), " 20.00");
}

TEST_F(MainEditorWeekTest, only_a_left_click_changes_the_day) {
    Open();
    ClickDay(5, Qt::RightButton);
    EXPECT_EQ(DayShown(), "Monday 02-Mar-26");
    ClickDay(2);
    EXPECT_EQ(DayShown(), "Monday 02-Mar-26");
    EXPECT_FALSE(HasChanges());
}

TEST_F(MainEditorWeekTest, a_day_keeps_what_was_drawn_and_typed_on_it) {
    Open();
    ClickDay(7);
    Drag(3, 80, 96);
    TypeInto(3, "bk");
    ClickDay(2);
    EXPECT_EQ(DaytypeOf(3), "");
    ClickDay(7);
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00pm - Midn.");
    EXPECT_EQ(DaytypeOf(3), "BK");
}

TEST_F(MainEditorWeekTest, the_day_shown_cannot_be_copied_onto_itself) {
    Open();
    EXPECT_EQ(Entry("CopyDay(2)").text().toStdString(), "2-Mar-2026");
    EXPECT_EQ(Entry("CopyDay(7)").text().toStdString(), "7-Mar-2026");
    EXPECT_FALSE(Entry("CopyDay(2)").isEnabled());
}

TEST_F(MainEditorWeekTest, a_day_with_a_memo_tells_it_over_its_icon) {
    store.PutFigures(Sunday + 3, 0, 0, "Flour comes at six");
    Open();
    const auto tip = [&](const char* name) {
        return test::Find<QWidget>(*form, name).toolTip().toStdString();
    };
    EXPECT_EQ(tip("imMemo(4)"), "Flour comes at six");
    EXPECT_EQ(tip("imMemo(3)"), "No memo for this day");
    Click("Label7(1)");
    EXPECT_EQ(tip("imMemo(4)"), "No memo for this day");
}

// --- saving -----------------------------------------------------------------------------------------------

TEST_F(MainEditorWeekTest, the_save_button_writes_the_week_and_returns_to_the_row) {
    Open();
    Drag(3, 32, 48);
    TypeInto(2, "v");
    Click("Label8");
    EXPECT_EQ(FileRows(), (Rows{AdamsOnMondaySaved, "46083|2|V||0|100|S|0", ClarkOnMonday}));
    EXPECT_FALSE(HasChanges());
    EXPECT_EQ(Focus(), "Text1(2)");
    EXPECT_FALSE(IsShown("Gauge"));
}

TEST_F(MainEditorWeekTest, the_menu_saves_too) {
    Open();
    Drag(3, 32, 48);
    test::Choose(*form, "SaveIt");
    EXPECT_EQ(FileRows(), (Rows{AdamsOnMondaySaved, ClarkOnMonday}));
}

TEST_F(MainEditorWeekTest, an_emptied_day_leaves_no_row) {
    Open();
    Drag(1, 68, 36);
    TypeInto(1, "\b\b");
    EXPECT_EQ(Spoken(1), "Adams Anna:");
    Click("Label8");
    EXPECT_EQ(FileRows(), Rows{});
}

TEST_F(MainEditorWeekTest, a_refused_save_keeps_the_week_for_another_try) {
    test::OtherWorkstation other;
    Open();
    Drag(3, 32, 48);
    other.Open(store.folder / "TVX.MDB");
    other.Hold();
    store.prompt().WillAnswer(Answer::Ok);
    Click("Label8");
    EXPECT_EQ(store.prompt().Last().title, "Locked page...");
    EXPECT_TRUE(HasChanges());
    EXPECT_EQ(Spoken(3), "Clark Cleo: 8:00am - Noon");
    other.LetGo();
    Click("Label8");
    EXPECT_EQ(FileRows(), (Rows{AdamsOnMondaySaved, ClarkOnMonday}));
}

// --- closing ----------------------------------------------------------------------------------------------

TEST_F(MainEditorWeekTest, an_unchanged_week_closes_without_a_question) {
    for (const char* entry : {"Gout", "GetOut"}) {
        Open();
        test::Choose(*form, entry);
        EXPECT_FALSE(form->isVisible()) << entry;
    }
    Open();
    Click("Label13");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(MainEditorWeekTest, a_changed_week_is_saved_on_closing) {
    Open();
    Drag(3, 32, 48);
    ExpectQuestion(Answer::Yes);
    Click("Label13");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(FileRows(), (Rows{AdamsOnMondaySaved, ClarkOnMonday}));
}

TEST_F(MainEditorWeekTest, closing_is_called_off_or_gives_the_changes_up) {
    Open();
    TypeInto(3, "x");
    ExpectQuestion(Answer::Cancel);
    test::Choose(*form, "GetOut");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(DaytypeOf(3), "X");
    ExpectQuestion(Answer::No);
    test::Choose(*form, "GetOut");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(FileRows(), Rows{AdamsOnMonday});
}

TEST_F(MainEditorWeekTest, the_end_of_the_desktop_session_asks_as_well) {
    Open();
    Drag(3, 32, 48);
    ExpectQuestion(Answer::Cancel);
    EXPECT_FALSE(form->close());
    EXPECT_TRUE(form->isVisible());
    ExpectQuestion(Answer::Yes);
    EXPECT_TRUE(form->close());
    EXPECT_EQ(FileRows(), (Rows{AdamsOnMondaySaved, ClarkOnMonday}));
}

TEST_F(MainEditorWeekTest, a_quiet_line_tells_when_the_week_was_saved) {
    Open();
    EXPECT_EQ(TextOf("SaveNote"), "");
    Drag(3, 32, 48);
    store.script.clock.Set(Sunday + 1, 19, 22);
    test::Press(*form, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(FileRows().size(), 2U);
    EXPECT_EQ(TextOf("SaveNote"), "Saved 19:22");
    Drag(3, 48, 52);
    EXPECT_EQ(TextOf("SaveNote"), "Saved 19:22");
    EXPECT_EQ(test::CutTexts(*form).find("SaveNote"), std::string::npos);
}

TEST_F(MainEditorWeekTest, a_quiet_line_tells_of_a_refused_save_until_the_next_edit) {
    Open();
    Drag(3, 32, 48);
    faults->Fail(test::Call::Commit, 1, 3260);
    store.prompt().WillAnswer(Answer::Ok);
    Click("Label8");
    EXPECT_EQ(TextOf("SaveNote"), "Not saved");
    ClickDay(3);
    EXPECT_EQ(TextOf("SaveNote"), "Not saved");
    TypeInto(2, "A");
    EXPECT_EQ(TextOf("SaveNote"), "");
}

TEST_F(MainEditorWeekTest, the_editor_stays_when_the_save_on_closing_is_refused) {
    test::OtherWorkstation other;
    Open();
    Drag(3, 32, 48);
    other.Open(store.folder / "TVX.MDB");
    other.Hold();
    ExpectQuestion(Answer::Yes);
    store.prompt().WillAnswer(Answer::Ok);
    Click("Label13");
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(HasChanges());
    other.LetGo();
}

// --- a store that fails -----------------------------------------------------------------------------------

constexpr int DiskError = 3043;

class FailingEditorTest : public MainEditorTest {
  protected:
    /// Opens the editor. A trouble before the week is the console's to tell, and one with the roster leaves
    /// the week that was.
    void TryToOpen() {
        form.reset();
        hasRoster = false;
        try {
            store.OpenEditor();
            hasRoster = true;
            form = std::make_unique<qt::MainEditorForm>(store.g, store.ports(), screens, nullptr);
            form->ShowModeless();
        } catch (const dao::DaoError&) {
            form.reset();
        }
    }
    bool hasRoster = false;
    bool IsOpen() const { return form != nullptr && form->isVisible(); }
    /// All that an arrow may not lose when the week that it leads to cannot be read.
    Rows Seen() {
        return {Title(),
                DayShown(),
                Spoken(1),
                Spoken(3),
                DaytypeOf(2),
                TextOf("Label15(1)"),
                WeekEdit(store.g).UndoHint(),
                HasChanges() ? "changed" : "as stored"};
    }
};

TEST_F(FailingEditorTest, whatever_read_fails_no_editor_stands_over_a_week_that_was_not_read) {
    const Rows stored = FileRows();
    store.prompt().AlwaysAnswer(Answer::Ok);
    int closed = 0;
    for (const test::Call call : {test::Call::Prepare, test::Call::Step, test::Call::Begin})
        test::FailEachInTurn(
            *faults, call, DiskError, [&] { TryToOpen(); },
            [&](int nth) {
                if (!hasRoster) return;
                EXPECT_EQ(IsOpen(), store.g.week.IsLoaded) << nth;
                if (IsOpen()) return; // not all that was read belongs to the schedule
                ++closed;
                EXPECT_TRUE(form == nullptr || store.prompt().Boxes().size() > 0) << nth;
                EXPECT_FALSE(SaveWeek(store.g, store.ports(), store.gauge, [] {})) << nth;
                EXPECT_EQ(FileRows(), stored) << nth;
            });
    EXPECT_GE(closed, 3);
}

TEST_F(FailingEditorTest, an_arrow_whose_week_cannot_be_read_says_why_and_leaves_everything_as_it_was) {
    store.prompt().AlwaysAnswer(Answer::No); // to give the changes up
    int stayed = 0;
    for (const test::Call call : {test::Call::Prepare, test::Call::Step, test::Call::Begin}) {
        form.reset();
        Open();
        Drag(3, 32, 48);
        TypeInto(2, "bk");
        const Rows before = Seen();
        test::FailEachInTurn(
            *faults, call, DiskError,
            [&] {
                if (HasChanges()) Click("Label7(1)");
            },
            [&](int nth) {
                if (!HasChanges()) return; // the next week is here, without its figures
                ++stayed;
                EXPECT_EQ(Seen(), before) << nth;
                EXPECT_EQ(store.prompt().Last().text,
                          "The disk or the network did not read or write as it should.");
            });
    }
    EXPECT_GE(stayed, 3);
}

} // namespace
} // namespace tvx
