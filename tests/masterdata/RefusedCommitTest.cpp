// What a person is told after a commit that met trouble is what the next program reads: flushes that fail,
// one by one and for ever, and answers that are lost.
#include "editor/week/LoadWeek.h"
#include "editor/week/SaveWeek.h"
#include "masterdata/Departments.h"
#include "masterdata/EmployeeRecord.h"
#include "shell/common/TVXMOD1.h"
#include "support/ChildProcess.h"
#include "support/FailingFlush.h"
#include "support/FailingSession.h"
#include "support/RawFile.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <iostream>

namespace tvx {
namespace {

using test::FailingFlush;
using Rows = std::vector<std::string>;

constexpr DaySerial Sunday = 46082; // 1 March 2026

/// One kind of save, and where another process finds it.
struct Save {
    const char* name;
    std::function<bool(test::TestStore&, int version)> run; // true when the person is told that it was saved
    const char* stored;                                     // rows that hold the version, given as a text
};

bool SaveNewEmployee(test::TestStore& store, int version) {
    EmployeeRecord record = NewEmployeeRecord(store.g.application.options);
    record.Text2[box_of::LastName] = "New" + std::to_string(version);
    return SaveEmployeeRecord(store.g.store, store.g.department, store.ports(), record) == SaveResult::Saved;
}

bool SaveAdams(test::TestStore& store, int version) {
    EmployeeRecord record = LoadEmployeeRecord(store.g.store, store.g.application, store.g.rights, 1);
    record.Text2[box_of::FirstName] = "New" + std::to_string(version);
    return SaveEmployeeRecord(store.g.store, store.g.department, store.ports(), record) == SaveResult::Saved;
}

bool SaveNewDepartment(test::TestStore& store, int version) {
    Department department = store.g.department;
    DepartmentProfile profile;
    profile.name = "New" + std::to_string(version);
    return SaveDepartment(store.g.store, department, store.prompt(), FormCommand::Add, profile) ==
           SaveResult::Saved;
}

/// The version stands in the start of the bar.
bool SaveBar(test::TestStore& store, int version) {
    test::SetBars(store.g, 1, {{1 + version, 90}});
    return SaveWeek(store.g, store.ports(), store.gauge, [] {});
}

const std::vector<Save>& Saves() {
    static const std::vector<Save> saves{
        {"a new employee", SaveNewEmployee, "SELECT count(*) FROM Employee WHERE [Last name] = 'New' || ?"},
        {"an employee", SaveAdams, "SELECT count(*) FROM Employee WHERE [First name] = 'New' || ?"},
        {"a new department", SaveNewDepartment,
         "SELECT count(*) FROM Department WHERE [Department name] = 'New' || ?"},
        {"a week", SaveBar,
         "SELECT count(*) FROM [Day Schedule] WHERE unicode([Starts & Stops]) = 33 + CAST(? AS INTEGER)"},
    };
    return saves;
}

/// Hears a file, a select and its value, and answers with the number that it reads.
void AnswerSelects(test::ChildProcess& test) {
    for (std::string file = test.Hear(); !file.empty(); file = test.Hear()) {
        const std::string select = test.Hear();
        test.Say(test::RawFile(file).Rows(select, {test.Hear()}).front());
    }
}

class RefusedCommitTest : public testing::Test {
  protected:
    // Before anything is opened here; its disk is sound.
    test::ChildProcess other{AnswerSelects};
    std::shared_ptr<test::Faults> faults = std::make_shared<test::Faults>();
    test::TestStore store{dao::Engine(test::TestEngineOptions(), test::FailingSessions(faults))};
    int version = 0;

    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
        store.OpenWeek(Sunday);
        store.prompt().AlwaysAnswer(Answer::Ok);
    }
    /// As the other process reads the file.
    int StoredRows(const Save& save) {
        other.Say((store.folder / "TVX.MDB").string());
        other.Say(save.stored);
        other.Say(std::to_string(version));
        return std::stoi(other.Hear());
    }
    bool Run(const Save& save) { return save.run(store, ++version); }
    /// Saves until the person is told that it worked, three times at most.
    bool Try(const Save& save) {
        ++version;
        for (int attempt = 0; attempt < 3; ++attempt)
            if (save.run(store, version)) return true;
        return false;
    }
};

TEST_F(RefusedCommitTest, is_told_as_what_is_stored_whichever_flush_fails) {
    for (const Save& save : Saves()) {
        int flushes = 0, told = 0;
        for (int nth = 1;; ++nth) {
            const bool saved = [&] {
                const FailingFlush failing(FailingFlush::Which::Nth, nth);
                return Run(save);
            }();
            EXPECT_EQ(StoredRows(save), saved ? 1 : 0) << save.name << ", flush " << nth;
            if (FailingFlush::Failed() == 0) break;
            ++flushes;
            told += saved ? 0 : 1;
        }
        std::cout << save.name << ": " << flushes << " flushes failed, " << told << " told as refused\n";
        EXPECT_GE(flushes, 5) << save.name;
        EXPECT_GT(told, 0) << save.name;
        EXPECT_LT(told, flushes) << save.name;
    }
}

TEST_F(RefusedCommitTest, is_told_as_what_is_stored_when_every_flush_fails_for_ever) {
    for (const Save& save : Saves()) {
        const bool saved = [&] {
            const FailingFlush failing(FailingFlush::Which::All);
            return Try(save);
        }();
        EXPECT_GT(FailingFlush::Failed(), 0);
        EXPECT_FALSE(saved) << save.name;
        EXPECT_EQ(StoredRows(save), 0) << save.name;
        EXPECT_TRUE(Try(save)) << save.name << ", the disk being sound again";
        EXPECT_EQ(StoredRows(save), 1) << save.name;
    }
}

TEST_F(RefusedCommitTest, does_not_come_of_a_file_system_that_never_flushes_folders) {
    for (const Save& save : Saves()) {
        const FailingFlush failing(FailingFlush::Which::Folders);
        EXPECT_TRUE(Run(save)) << save.name;
        EXPECT_GT(FailingFlush::Failed(), 0) << save.name;
        EXPECT_EQ(StoredRows(save), 1) << save.name;
    }
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(RefusedCommitTest, makes_one_employee_of_three_tries_whichever_flush_fails) {
    for (int nth = 1; nth <= 6; ++nth) {
        const FailingFlush failing(FailingFlush::Which::Nth, nth);
        EXPECT_TRUE(Try(Saves().front())) << nth;
        EXPECT_EQ(StoredRows(Saves().front()), 1) << nth;
    }
}

TEST_F(RefusedCommitTest, counts_when_the_rows_stand_and_only_the_answer_was_lost) {
    for (const Save& save : Saves()) {
        faults->Fail(test::Call::Committed, 1, 3043);
        EXPECT_TRUE(Run(save)) << save.name;
        EXPECT_TRUE(faults->Met()) << save.name;
        faults->Clear();
        EXPECT_EQ(StoredRows(save), 1) << save.name;
    }
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

} // namespace
} // namespace tvx
