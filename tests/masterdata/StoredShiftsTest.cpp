#include "masterdata/StoredShifts.h"

#include "editor/week/DayShifts.h"
#include "editor/week/Totals.h"
#include "masterdata/files/ShiftFile.h"
#include "support/Bakery.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <filesystem>

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
    TakeShiftFromDay(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    EXPECT_EQ(Add(""), SaveResult::Incomplete);
    EXPECT_EQ(Add("   "), SaveResult::Incomplete);
    EXPECT_EQ(store.prompt().Beeps(), 2);
    EXPECT_FALSE(fs::exists(store.folder / "1.SFT"));
}

TEST_F(StoredShiftsTest, names_that_differ_in_case_alone_are_the_same) {
    Keep("Early", {{16, 48}});
    TakeShiftFromDay(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    ExpectNameInUse("Shift EARLY");
    EXPECT_EQ(Add(" EARLY "), SaveResult::InUse);
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(Names(), std::vector<std::string>{"Early"});
}

TEST_F(StoredShiftsTest, twenty_can_be_added) {
    for (int n = 1; n <= 20; ++n) Keep("Shift " + std::to_string(100 + n), {{n, n + 8}});
    TakeShiftFromDay(g.week, g.cursor.CurrentEmployee, g.cursor.CurrentDay, g.shifts);
    EXPECT_EQ(Add("One more"), SaveResult::Incomplete);
    EXPECT_EQ(Names().size(), 20U);
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

TEST_F(StoredShiftsTest, of_two_workstations_the_last_write_wins) {
    Keep("Early", {{16, 48}});
    Shifts theirs = g.shifts;
    theirs.ShiftNames[++theirs.ShiftCount] = "Theirs";
    WriteStoredShifts(store.folder.Path(), 1, theirs);
    Keep("Ours", {{20, 30}});
    EXPECT_EQ(NamesInFile(), (std::vector<std::string>{"Early", "Ours"}));
}

} // namespace
} // namespace tvx
