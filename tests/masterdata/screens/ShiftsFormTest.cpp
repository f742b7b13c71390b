#include "masterdata/screens/ShiftsForm.h"

#include "editor/week/DayShifts.h"
#include "masterdata/files/ShiftFile.h"
#include "platform/files/Folder.h"
#include "support/FormFixture.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace tvx {
namespace {

using test::Find;

constexpr DaySerial Sunday = 46082; // 1 March 2026

class ShiftsFormTest : public test::FormFixture<qt::ShiftsForm> {
  protected:
    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
        store.OpenWeek(Sunday);
        g.cursor.CurrentEmployee = 1;
        g.cursor.CurrentDay = 3;
        test::WritableWeek(g).WeekChanged = false;
    }
    qt::ShiftsForm& Open(int task) { return OpenFor(ShiftsRequest{static_cast<ListRequest>(task), 1, 3}); }
    /// Opens the screen over a day with these bars, quarters of that day.
    void OpenToAdd(const test::BarList& bars) {
        test::BarList week;
        for (const auto& [start, stop] : bars) week.emplace_back(start + 192, stop + 192);
        test::SetBars(g, 1, week);
        CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
        Open(30);
    }
    void Store(const std::string& name, const test::BarList& bars = {{36, 68}}) {
        OpenToAdd(bars);
        test::TypeAny(Name(), name);
        test::Click(*form, "SaveCMD");
    }
    qt::TextBox& Name() { return Box("Text1"); }
    std::string File() {
        std::ifstream in(store.folder / "1.SFT", std::ios::binary);
        std::stringstream all;
        all << in.rdbuf();
        return all.str();
    }
    std::vector<std::string> Names() {
        return {g.shifts.ShiftNames.begin() + 1, g.shifts.ShiftNames.begin() + 1 + g.shifts.ShiftCount};
    }
};

// ---- storing ----

TEST_F(ShiftsFormTest, a_day_is_stored_under_a_name_from_the_keyboard) {
    OpenToAdd({{36, 52}, {92, 100}});
    EXPECT_EQ(Title(), "Put a shift in storage for later copy");
    EXPECT_EQ(Find<qt::Frame>(*form, "Frame1").title().toStdString(), "Store this shift for later use ");
    EXPECT_EQ(TextOf("Label2"), "Name of the shift");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_FALSE(Shown("List1") || Shown("OtherActFRAME"));
    EXPECT_TRUE(Shown("OptionsCMD"));
    test::Type(*form, " Early, long ");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 0);
    EXPECT_EQ(Names(), std::vector<std::string>{"Early, long"});
    EXPECT_EQ(File(), "\"Early, long\"\r\n2\r\n36\r\n52\r\n92\r\n100\r\n");
}

TEST_F(ShiftsFormTest, a_shift_needs_a_name) {
    OpenToAdd({{36, 52}});
    test::Click(*form, "SaveCMD");
    test::TypeAny(Name(), "   ");
    test::Click(*form, "SaveCMD");
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(std::filesystem::exists(store.folder / "1.SFT"));
}

TEST_F(ShiftsFormTest, a_name_in_use_is_told_and_emptied) {
    Store("Early");
    OpenToAdd({{40, 60}});
    test::Type(*form, "eARLY ");
    store.prompt().Expect("Shift eARLY\n is in use...", 0, "Shift name duplicate");
    test::Click(*form, "SaveCMD");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Name().Text(), "");
    EXPECT_EQ(test::FocusOf(*form), "Text1");
    EXPECT_EQ(store.prompt().Beeps(), 1);
    test::Type(*form, "Late");
    test::Click(*form, "SaveCMD");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Early", "Late"}));
    EXPECT_EQ(g.shifts.ShiftStarts[2][1], 40);
}

TEST_F(ShiftsFormTest, a_name_takes_30_characters_and_no_double_quote_however_they_come) {
    OpenToAdd({{36, 52}});
    for (const auto& way : {test::TypeAny, test::Paste, test::Drop, test::Compose}) {
        Name().clear();
        way(Name(), "\"a\"" + std::string(60, 'b'));
        EXPECT_EQ(Name().Text(), "a" + std::string(29, 'b'));
    }
    Retype(Name(), "Früh 🥐, パン");
    test::Click(*form, "SaveCMD");
    LoadStoredShifts(g.paths.ProgramPath, 1, g.shifts);
    EXPECT_EQ(Names(), std::vector<std::string>{"Früh 🥐, パン"});
}

TEST_F(ShiftsFormTest, leaving_stores_nothing_and_the_next_day_starts_anew) {
    OpenToAdd({{36, 52}, {60, 68}});
    test::Type(*form, "Early");
    test::Press(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(g.shifts.ShiftCount, 0);
    EXPECT_EQ(form->Answer().SelectedDayType, 0);
    Store("Late", {{70, 80}});
    EXPECT_EQ(File(), "\"Late\"\r\n1\r\n70\r\n80\r\n");
}

TEST_F(ShiftsFormTest, a_file_that_cannot_be_written_is_told_and_the_name_stays) {
    OpenToAdd({{36, 52}});
    std::filesystem::create_directory(store.folder / "1.SFT");
    test::Type(*form, "Early");
    store.prompt().WillAnswer(Answer::Ok);
    test::Click(*form, "SaveCMD");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(Name().Text(), "Early");
    EXPECT_EQ(g.shifts.ShiftCount, 0);
    std::filesystem::remove(store.folder / "1.SFT");
    test::Click(*form, "SaveCMD");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Names(), std::vector<std::string>{"Early"});
}

// ---- other activity ----

TEST_F(ShiftsFormTest, offers_changes_when_there_is_something_to_change) {
    OpenToAdd({{36, 52}});
    test::Click(*form, "OptionsCMD");
    EXPECT_EQ(Find<qt::Frame>(*form, "OtherActFRAME").title().toStdString(), "Other Shift activity");
    EXPECT_EQ(TextOf("Label3"), "The current number of Shifts to copy is:0");
    EXPECT_FALSE(Enabled("cmdChange") || Enabled("cmdDelete"));
    Store("Early");
    OpenToAdd({{36, 52}});
    test::Click(*form, "OptionsCMD");
    EXPECT_EQ(TextOf("Label3"), "The current number of Shifts to copy is:1");
    EXPECT_TRUE(Enabled("cmdChange") && Enabled("cmdDelete"));
}

TEST_F(ShiftsFormTest, a_name_is_changed_and_the_bars_stay) {
    Store("Early", {{24, 40}});
    Store("Late", {{60, 92}});
    OpenToAdd({{36, 52}});
    test::Click(*form, "OptionsCMD");
    test::Click(*form, "cmdChange");
    EXPECT_EQ(Title(), "Select the shift to change");
    EXPECT_EQ(TextOf("Label1"), "Select the shift to change");
    EXPECT_EQ(List().count(), 2);
    EXPECT_FALSE(Shown("SaveCMD"));
    ClickRow(1);
    EXPECT_EQ(Name().Text(), "Late");
    EXPECT_EQ(TextOf("Label1"), " Change the  Shift name and Save");
    EXPECT_EQ(TextOf("Label2"), "Change the Shift name and Save");
    EXPECT_EQ(Find<qt::Frame>(*form, "Frame1").title().toStdString(), "");
    Retype(Name(), "Day");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(File(), "\"Day\"\r\n1\r\n60\r\n92\r\n\"Early\"\r\n1\r\n24\r\n40\r\n");
}

TEST_F(ShiftsFormTest, a_change_to_the_name_of_another_or_to_none_is_refused) {
    Store("Early");
    Store("Late");
    Open(31);
    ClickRow(0);
    Retype(Name(), "LATE");
    store.prompt().Expect("Shift name LATE\n is in use...", 0, "Shift name duplicate");
    test::Click(*form, "SaveCMD");
    EXPECT_EQ(Name().Text(), "");
    test::Click(*form, "SaveCMD");
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_TRUE(form->isVisible());
    Retype(Name(), "EARLY"); // its own name in other letters
    test::Click(*form, "SaveCMD");
    EXPECT_EQ(Names(), (std::vector<std::string>{"EARLY", "Late"}));
}

TEST_F(ShiftsFormTest, a_shift_is_deleted_without_a_question) {
    Store("Early");
    Store("Late");
    Open(32);
    EXPECT_EQ(Title(), "Select the shift to delete");
    EXPECT_EQ(TextOf("Label1"), "Select the Shift name you wish to delete");
    ClickRow(0);
    EXPECT_EQ(TextOf("Label1"), "Shift to be deleted ");
    EXPECT_EQ(Caption("SaveCMD"), "&Delete");
    test::TypeAny(Name(), "x"); // only shown
    EXPECT_EQ(Name().Text(), "Early");
    EXPECT_EQ(test::FocusOf(*form), "SaveCMD");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(Names(), std::vector<std::string>{"Late"});
    Open(32);
    ClickRow(0);
    test::Click(*form, "SaveCMD");
    EXPECT_EQ(g.shifts.ShiftCount, 0);
    EXPECT_TRUE(std::filesystem::exists(store.folder / "1.SFT"));
    EXPECT_EQ(File(), "");
}

// ---- with twenty ----

class TwentyShiftsTest : public ShiftsFormTest {
  protected:
    void SetUp() override {
        ShiftsFormTest::SetUp();
        Shifts twenty;
        for (int n = 1; n <= MostShiftsToAdd; ++n) {
            twenty.ShiftNames[++twenty.ShiftCount] = "Shift " + std::to_string(100 + n);
            twenty.ShiftBarCount[n] = 1;
            twenty.ShiftStarts[n][1] = n;
            twenty.ShiftStops[n][1] = n + 8;
        }
        WriteStoredShifts(g.paths.ProgramPath, 1, twenty);
        LoadStoredShifts(g.paths.ProgramPath, 1, g.shifts);
    }
    /// The way that is left when no more can be stored: from the list to pick from.
    void OpenOthers() {
        Open(33);
        ASSERT_TRUE(Shown("OptionsCMD"));
        test::Click(*form, "OptionsCMD");
        EXPECT_FALSE(Shown("Frame1") || Shown("SaveCMD")) << "there is nothing to name";
        EXPECT_EQ(TextOf("Label3"), "The current number of Shifts to copy is:20");
        EXPECT_EQ(test::FocusOf(*form), "cmdChange");
    }
};

TEST_F(TwentyShiftsTest, one_is_deleted_from_the_list_to_pick_from) {
    OpenOthers();
    test::Click(*form, "cmdDelete");
    ClickRow(4);
    test::Click(*form, "SaveCMD");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 0) << "nothing is dropped on the day";
    EXPECT_EQ(g.shifts.ShiftCount, 19);
    EXPECT_EQ(File().find("Shift 105"), std::string::npos);
}

TEST_F(TwentyShiftsTest, one_is_renamed_from_the_list_to_pick_from) {
    OpenOthers();
    test::Click(*form, "cmdChange");
    ClickRow(4);
    Retype(Name(), "Baking");
    test::Press(*form, Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 0);
    EXPECT_EQ(Names().front(), "Baking");
    EXPECT_EQ(g.shifts.ShiftCount, 20);
}

// ---- picking ----

TEST_F(ShiftsFormTest, a_click_picks_a_shift_for_the_day) {
    Store("Early");
    Store("Late");
    Open(33);
    EXPECT_EQ(Title(), "Bakery: Adams Anna");
    EXPECT_EQ(TextOf("Label1"), "Select Shift name for Tuesday, 3-Mar-2026");
    EXPECT_FALSE(Shown("Frame1") || Shown("SaveCMD"));
    ClickRow(1);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 2);
    Open(33);
    test::Press(*form, Qt::Key_Return);
    EXPECT_EQ(form->Answer().SelectedDayType, 1);
}

TEST_F(ShiftsFormTest, leaving_by_every_way_tells_that_nothing_was_picked) {
    Store("Early");
    for (const int way : {1, 2, 3}) {
        Open(33);
        if (way == 1) test::Click(*form, "ExitCMD");
        if (way == 2) test::Press(*form, Qt::Key_Escape);
        if (way == 3) form->close();
        EXPECT_FALSE(form->isVisible());
        EXPECT_EQ(form->Answer().SelectedDayType, 0) << way;
    }
}

TEST_F(ShiftsFormTest, a_21st_shift_of_a_file_is_listed_and_not_picked) {
    std::ofstream out(store.folder / "1.SFT", std::ios::binary);
    for (char c = 'A'; c < 'A' + 22; ++c) out << '"' << c << "\"\r\n1\r\n36\r\n68\r\n";
    out.close();
    LoadStoredShifts(g.paths.ProgramPath, 1, g.shifts);
    Open(33);
    ASSERT_EQ(List().count(), 21);
    List().scrollToBottom();
    ClickRow(20);
    EXPECT_TRUE(form->isVisible());
    ClickRow(19);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Answer().SelectedDayType, 20);
}

TEST_F(ShiftsFormTest, an_empty_list_says_how_to_begin) {
    Open(33);
    EXPECT_EQ(
        List().accessibleDescription().toStdString(),
        "No shifts stored yet. To store one, press the right button on a day with hours and choose \"Add to "
        "standard Shifts\".");
    test::TakePicture(*form, "Form23-empty");
}

// ---- for everybody ----

TEST_F(ShiftsFormTest, can_be_used_without_mouse_and_without_eyes) {
    Store("Early");
    OpenToAdd({{36, 52}});
    ExpectUsable({"Text1", "SaveCMD", "ExitCMD", "OptionsCMD"});
    test::Click(*form, "OptionsCMD");
    EXPECT_EQ(test::FocusOf(*form), "cmdChange");
    ExpectUsable({"cmdChange", "cmdDelete", "SaveCMD", "ExitCMD", "Text1"});
    Open(31);
    test::Press(*form, Qt::Key_Return);
    ExpectUsable({"Text1", "SaveCMD", "ExitCMD", "List1"});
    test::TakePicture(*form, "Form23-change");
    Open(33);
    ExpectUsable({"List1", "ExitCMD", "OptionsCMD"});
    test::TakePicture(*form, "Form23-drop");
    test::Click(*form, "OptionsCMD");
    ExpectUsable({"cmdChange", "cmdDelete", "ExitCMD"});
    test::TakePicture(*form, "Form23-drop-menu");
}

} // namespace
} // namespace tvx
