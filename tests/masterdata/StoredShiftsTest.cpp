#include "masterdata/StoredShifts.h"

#include "editor/week/DayShifts.h"
#include "editor/week/Totals.h"
#include "masterdata/files/ShiftFile.h"
#include "support/Bakery.h"
#include "support/ReadFault.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <iostream>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::BarList;
using test::Sunday;

class StoredShiftsTest : public test::PlannedBakery {
  protected:
    /// Stores bars of Monday under a name.
    void Keep(const std::string& name, const BarList& bars) {
        KeepMonday(bars, [&] {
            ASSERT_EQ(AddShift(g.paths, g.department, g.shifts, store.prompt(), name), SaveResult::Saved);
        });
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const auto& [name, index] : ShiftRows(g.shifts)) names.push_back(name);
        return names;
    }
    std::vector<std::string> NamesInFile() {
        Shifts read;
        LoadStoredShifts(store.folder.Path(), g.department.CurrentDepNumber, read);
        return {read.ShiftNames.begin() + 1, read.ShiftNames.begin() + 1 + read.ShiftCount};
    }
    SaveResult Add(const std::string& name) {
        return AddShift(g.paths, g.department, g.shifts, store.prompt(), name);
    }
    SaveResult Rename(int index, const std::string& name) {
        return RenameShift(g.paths, g.department, g.shifts, store.prompt(), index, name);
    }
    void ExpectNameInUse(const std::string& text) {
        store.prompt().Expect(text + "\n is in use...", 0, "Shift name duplicate");
    }
};

// ---- naming ----

TEST_F(StoredShiftsTest, a_named_shift_is_in_the_list_and_in_the_file) {
    Keep("  Late ", {{60, 92}});
    Keep("Early, baking", {{16, 48}});
    EXPECT_EQ(Names(), (std::vector<std::string>{"Early, baking", "Late"}));
    EXPECT_EQ(NamesInFile(), Names());
    EXPECT_EQ(Stored(1), (BarList{{16, 48}}));
    EXPECT_EQ(Stored(2), (BarList{{60, 92}}));
}

TEST_F(StoredShiftsTest, a_shift_needs_a_name) {
    test::SetBars(g, 1, {{20, 30}});
    CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    EXPECT_EQ(Add(""), SaveResult::Incomplete);
    EXPECT_EQ(Add("   "), SaveResult::Incomplete);
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_FALSE(fs::exists(store.folder / "1.SFT"));
}

TEST_F(StoredShiftsTest, names_that_differ_in_case_alone_are_the_same) {
    Keep("Early", {{16, 48}});
    CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    ExpectNameInUse("Shift EARLY");
    EXPECT_EQ(Add(" EARLY "), SaveResult::InUse);
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(Names(), std::vector<std::string>{"Early"});
}

TEST_F(StoredShiftsTest, twenty_can_be_added) {
    for (int n = 1; n <= 20; ++n) Keep("Shift " + std::to_string(100 + n), {{n, n + 8}});
    CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    store.prompt().Expect("Twenty shifts are stored, which is the most.\nDelete one first.", 0,
                          "Stored shifts");
    EXPECT_EQ(Add("One more"), SaveResult::Refused);
    EXPECT_EQ(Names().size(), 20U);
}

TEST_F(StoredShiftsTest, a_day_without_a_bar_of_its_own_is_never_stored) {
    g.department.DayCutoffQuarters = 16;
    test::SetBars(g, 1, {{96 + 96 + 4, 96 + 96 + 12}}); // a night that begins behind Monday's midnight
    CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    store.prompt().Expect("No time begins on this day. There is nothing to store.", 0, "Stored shifts");
    EXPECT_EQ(Add("Night"), SaveResult::Refused);
    EXPECT_FALSE(fs::exists(store.folder / "1.SFT"));
}

// ---- renaming and deleting ----

TEST_F(StoredShiftsTest, a_new_name_moves_a_shift_with_its_bars) {
    Keep("Early", {{16, 48}});
    Keep("Late", {{60, 92}});
    EXPECT_EQ(Rename(1, " Zero "), SaveResult::Saved);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Late", "Zero"}));
    EXPECT_EQ(Stored(2), (BarList{{16, 48}}));
    EXPECT_EQ(NamesInFile(), Names());
}

TEST_F(StoredShiftsTest, a_shift_may_take_its_own_name_in_other_letters) {
    Keep("Early", {{16, 48}});
    EXPECT_EQ(Rename(1, "EARLY"), SaveResult::Saved);
    EXPECT_EQ(Names(), std::vector<std::string>{"EARLY"});
}

TEST_F(StoredShiftsTest, a_shift_cannot_take_the_name_of_another_or_none) {
    Keep("Early", {{16, 48}});
    Keep("Late", {{60, 92}});
    ExpectNameInUse("Shift name late");
    EXPECT_EQ(Rename(1, "late"), SaveResult::InUse);
    EXPECT_EQ(Rename(1, " "), SaveResult::Incomplete);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Early", "Late"}));
}

TEST_F(StoredShiftsTest, a_deleted_shift_is_gone_and_the_others_stay) {
    for (const char* name : {"A", "B", "C"}) Keep(name, {{16, 48}});
    EXPECT_EQ(DeleteShift(g.paths, g.department, g.shifts, store.prompt(), 2), SaveResult::Saved);
    EXPECT_EQ(Names(), (std::vector<std::string>{"A", "C"}));
    EXPECT_EQ(DeleteShift(g.paths, g.department, g.shifts, store.prompt(), 1), SaveResult::Saved);
    EXPECT_EQ(DeleteShift(g.paths, g.department, g.shifts, store.prompt(), 1), SaveResult::Saved);
    EXPECT_TRUE(Names().empty());
    EXPECT_EQ(test::ReadFile(store.folder / "1.SFT"), "");
    EXPECT_TRUE(fs::exists(store.folder / "1.SFT"));
}

TEST_F(StoredShiftsTest, a_file_that_cannot_be_written_is_told_and_nothing_changes) {
    Keep("Early", {{16, 48}});
    fs::rename(store.folder / "1.SFT", store.folder / "old");
    fs::create_directory(store.folder / "1.SFT");
    fs::create_directory(store.folder / "1.SFT" / "full");
    for (const auto& deed : std::vector<std::function<SaveResult()>>{
             [&] { return Add("Late"); }, [&] { return Rename(1, "Late"); },
             [&] { return DeleteShift(g.paths, g.department, g.shifts, store.prompt(), 1); }}) {
        store.prompt().WillAnswer(Answer::Ok);
        EXPECT_EQ(deed(), SaveResult::Refused);
        EXPECT_EQ(store.prompt().Last().title, "File error");
        EXPECT_EQ(Names(), std::vector<std::string>{"Early"});
    }
}

// ---- the file as it is at that moment ----

/// Another workstation writes the same file, with the list as it knows it.
class SharedShiftsTest : public StoredShiftsTest {
  protected:
    void SetUp() override {
        StoredShiftsTest::SetUp();
        Keep("Early", {{16, 48}});
        Keep("Late", {{60, 92}});
        theirs = g.shifts;
    }
    SaveResult TheyAdd(const std::string& name) {
        theirs.ShiftBarCount[theirs.ShiftCount + 1] = 1;
        theirs.ShiftStarts[theirs.ShiftCount + 1][1] = 1;
        theirs.ShiftStops[theirs.ShiftCount + 1][1] = 9;
        return AddShift(g.paths, g.department, theirs, store.prompt(), name);
    }
    SaveResult TheyRename(int index, const std::string& name) {
        return RenameShift(g.paths, g.department, theirs, store.prompt(), index, name);
    }
    SaveResult Delete(int index) {
        return DeleteShift(g.paths, g.department, g.shifts, store.prompt(), index);
    }
    void Wait(const BarList& bars) {
        test::SetBars(g, 1, bars);
        CopyDayIntoShifts(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    }

    Shifts theirs;
};

TEST_F(SharedShiftsTest, a_colleagues_new_shift_stays_whatever_is_done) {
    ASSERT_EQ(TheyAdd("Day"), SaveResult::Saved);
    Wait({{120, 130}});
    EXPECT_EQ(Add("Ours"), SaveResult::Saved);
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Day", "Early", "Late", "Ours"}));
    EXPECT_EQ(Names(), NamesInFile());
    ASSERT_EQ(TheyAdd("Brunch"), SaveResult::Saved);
    EXPECT_EQ(Rename(3, "Evening"), SaveResult::Saved) << "Late";
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Brunch", "Day", "Early", "Evening", "Ours"}));
    ASSERT_EQ(TheyAdd("Above all"), SaveResult::Saved);
    EXPECT_EQ(Delete(3), SaveResult::Saved) << "Early";
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Above all", "Brunch", "Day", "Evening", "Ours"}));
    EXPECT_EQ(Stored(4), (BarList{{60, 92}})) << "of the evening";
    EXPECT_EQ(Stored(5), (BarList{{24, 34}})) << "our own";
}

TEST_F(SharedShiftsTest, a_name_taken_meanwhile_is_in_use) {
    ASSERT_EQ(TheyAdd("Day"), SaveResult::Saved);
    Wait({{120, 130}});
    ExpectNameInUse("Shift day");
    EXPECT_EQ(Add("day"), SaveResult::InUse);
    ExpectNameInUse("Shift name DAY");
    EXPECT_EQ(Rename(1, "DAY"), SaveResult::InUse);
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Day", "Early", "Late"}));
}

TEST_F(SharedShiftsTest, a_twentieth_taken_meanwhile_refuses_ours) {
    for (int n = 3; n <= 20; ++n) ASSERT_EQ(TheyAdd("Shift " + std::to_string(n)), SaveResult::Saved);
    Wait({{120, 130}});
    store.prompt().Expect("Twenty shifts are stored, which is the most.\nDelete one first.", 0,
                          "Stored shifts");
    EXPECT_EQ(Add("Ours"), SaveResult::Refused);
    EXPECT_EQ(NamesInFile().size(), 20U);
}

TEST_F(SharedShiftsTest, what_a_colleague_renamed_is_neither_renamed_nor_deleted) {
    ASSERT_EQ(TheyRename(1, "Dawn"), SaveResult::Saved);
    store.prompt().Expect("Shift Early\nis no longer stored. Somebody else has renamed or deleted it.", 0,
                          "Stored shifts");
    EXPECT_EQ(Rename(1, "Morning"), SaveResult::Refused);
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Dawn", "Late"}));
    EXPECT_EQ(Delete(1), SaveResult::Saved) << "it is gone";
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Dawn", "Late"}));
}

// ---- a file that is not read to its end ----

class UnreadShiftsTest : public SharedShiftsTest {
  protected:
    std::vector<std::pair<std::string, std::function<SaveResult()>>> Deeds() {
        return {{"add", [this] { return Add("Ours"); }},
                {"change", [this] { return Rename(1, "Other"); }},
                {"delete", [this] { return Delete(1); }}};
    }
    /// Each deed leaves the file as it is, and its box names it.
    void ExpectNothingWritten(const std::string& trouble) {
        const std::string before = test::ReadFile(store.folder / "1.SFT");
        const std::vector<std::string> names = Names();
        for (const auto& [deed, run] : Deeds()) {
            store.prompt().WillAnswer(Answer::Ok);
            EXPECT_EQ(run(), SaveResult::Refused) << deed << " of " << trouble;
            EXPECT_EQ(store.prompt().Last().title, "File error");
            EXPECT_NE(store.prompt().Last().text.find((store.folder / "1.SFT").string()), std::string::npos);
            EXPECT_TRUE(test::ReadFile(store.folder / "1.SFT") == before) << deed << " of " << trouble;
            EXPECT_EQ(Names(), names);
        }
    }
};

TEST_F(UnreadShiftsTest, is_byte_for_byte_as_before_when_any_read_fails) {
    Wait({{120, 130}});
    int met = 0;
    for (const int code : {EIO, EACCES, EMFILE, ESTALE})
        for (int call = 0; call <= 2; ++call)
            for (const auto& [deed, run] : Deeds()) {
                const std::string before = test::ReadFile(store.folder / "1.SFT");
                store.prompt().WillAnswer(Answer::Ok);
                {
                    const test::ReadFault fault("1.SFT", call, code);
                    EXPECT_EQ(run(), SaveResult::Refused) << deed << ", call " << call;
                    met += fault.Met();
                }
                EXPECT_EQ(store.prompt().Last().title, "File error");
                EXPECT_NE(store.prompt().Last().text.find((store.folder / "1.SFT").string()),
                          std::string::npos);
                EXPECT_EQ(test::ReadFile(store.folder / "1.SFT"), before) << deed << ", call " << call;
            }
    std::cout << met << " faults met, no byte of the file changed\n";
    EXPECT_EQ(met, 4 * 3 * 3);
}

TEST_F(UnreadShiftsTest, that_failed_when_the_department_was_opened_loses_nothing) {
    for (const int call : {0, 1, 2}) {
        const std::vector<std::string> before = NamesInFile();
        {
            const test::ReadFault fault("1.SFT", call, EIO);
            LoadStoredShifts(store.folder.Path(), 1, g.shifts);
        }
        Wait({{120, 130}});
        const std::string name = "Ours " + std::to_string(call);
        EXPECT_EQ(Add(name), SaveResult::Saved);
        std::vector<std::string> after = before;
        after.push_back(name);
        EXPECT_EQ(NamesInFile(), after);
        EXPECT_EQ(Names(), after);
    }
}

TEST_F(UnreadShiftsTest, is_not_written_when_it_is_damaged_or_too_large) {
    Wait({{120, 130}});
    const std::string sound = test::ReadFile(store.folder / "1.SFT");
    std::string twentyTwo;
    for (char c = 'A'; c < 'A' + 22; ++c) twentyTwo += std::string("\"") + c + "\"\r\n1\r\n36\r\n68\r\n";
    const std::vector<std::pair<std::string, std::string>> files{
        {"cut off in a bar", sound.substr(0, sound.size() - 5)},
        {"cut off in a name", sound + "\"Nig"},
        {"a line lost", "\"Early\"\r\n1\r\n16\r\n\"Late\"\r\n1\r\n60\r\n92\r\n"},
        {"a number no week holds", "\"Early\"\r\n1\r\n16\r\n4800\r\n"},
        {"36 bars", sound + "\"Many\"\r\n36\r\n"},
        {"22 shifts", twentyTwo},
        {"over 1 MB", sound + std::string(1024 * 1024, '\n')},
    };
    for (const auto& [trouble, content] : files) {
        test::WriteFile(store.folder / "1.SFT", content);
        ExpectNothingWritten(trouble);
    }
}

TEST_F(UnreadShiftsTest, is_not_replaced_when_it_leads_nowhere) {
    Wait({{120, 130}});
    fs::remove(store.folder / "1.SFT");
    fs::create_symlink(store.folder / "not mounted/1.SFT", store.folder / "1.SFT");
    ExpectNothingWritten("a link to a share that is not there");
    EXPECT_TRUE(fs::is_symlink(store.folder / "1.SFT"));
}

TEST_F(UnreadShiftsTest, that_is_missing_is_made) {
    fs::remove(store.folder / "1.SFT");
    Wait({{120, 130}});
    EXPECT_EQ(Add("Ours"), SaveResult::Saved);
    EXPECT_EQ(NamesInFile(), std::vector<std::string>{"Ours"});
}

} // namespace
} // namespace tvx
