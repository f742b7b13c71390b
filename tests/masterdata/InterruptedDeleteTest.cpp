#include "masterdata/Departments.h"
#include "platform/files/Folder.h"
#include "support/ChildProcess.h"
#include "support/FailingSession.h"
#include "support/Rows.h"
#include "support/TestEngine.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using test::Call;
using test::RowsOf;

constexpr int Diskio = 3030;

/// A department of people with days, daytypes and figures, in a file that each interrupted delete gets a copy
/// of.
class InterruptedDeleteTest : public testing::Test {
  protected:
    std::shared_ptr<test::Faults> faults = std::make_shared<test::Faults>();
    test::TestStore store{dao::Engine(test::TestEngineOptions(), test::FailingSessions(faults))};
    GlobalState& g = store.g;
    std::vector<std::string> whole;

    void SetUp() override {
        store.AddDepartment("Stores");
        store.AddPeople(3);
        store.AddDepartment("Bakery");
        store.AddPeople(12);
        store.FillWeeks(46082, 2);
        store.PutFigures(46082, 100, 10, "Party");
        test::RunAsAnotherProgram(store.db(),
                                  "INSERT INTO \"Day Types\" (Symbol, \"Dep number\") VALUES ('CA', 2)");
        whole = All(store.db());
    }
    static std::vector<std::string> All(dao::Database& db) {
        std::vector<std::string> all;
        for (const auto& [table, field] :
             {std::pair<const char*, const char*>{"Department", "Department name"},
              {"Employee", "Dep number"},
              {"Day Schedule", "Day Julian"},
              {"Day Types", "Dep number"},
              {"Department day", "Dep number"}})
            for (const std::string& row : RowsOf(db, table, {field}))
                all.push_back(std::string(table) + " " + row);
        return all;
    }
    static std::vector<std::string> AllIn(const fs::path& file) {
        const auto db = test::TestEngine().OpenDatabase(file);
        return All(*db);
    }
    /// What is left when nothing interrupts it.
    std::vector<std::string> Gone() {
        const test::TempFolder folder;
        CopyWholeFile(store.folder / "TVX.MDB", folder / "TVX.MDB");
        GlobalState other;
        other.store.Db = test::TestEngine().OpenDatabase(folder / "TVX.MDB");
        DeleteDepartment(other.store, g.department);
        return All(other.store.Open());
    }
    /// Deletes in a process of its own, which ends at the nth call. True when it came to its end before.
    bool KilledAt(const fs::path& file, Call call, int nth) const {
        test::ChildProcess child([&](test::ChildProcess& test) {
            const auto kill = std::make_shared<test::Faults>();
            GlobalState other;
            other.store.Db = dao::Engine(test::TestOptions(), test::FailingSessions(kill)).OpenDatabase(file);
            kill->Before(call, nth, [] { _exit(9); });
            DeleteDepartment(other.store, g.department);
            test.Say("done");
        });
        return child.Hear() == "done";
    }
};

TEST_F(InterruptedDeleteTest, leaves_the_department_whole_when_any_call_fails) {
    int failed = 0;
    const std::vector<std::string> gone = Gone();
    for (const Call call : {Call::Prepare, Call::Step, Call::Begin, Call::Commit}) {
        const test::TempFolder folder;
        CopyWholeFile(store.folder / "TVX.MDB", folder / "TVX.MDB");
        GlobalState other;
        const dao::Engine engine(test::TestOptions(), test::FailingSessions(faults));
        const auto deleteAnew = [&] { // no statement is known yet
            other.store.Db = engine.OpenDatabase(folder / "TVX.MDB");
            faults->Restart();
            EXPECT_TRUE(test::DaoErrorOf([&] { DeleteDepartment(other.store, g.department); }) == Diskio ||
                        !faults->Met());
        };
        failed += test::FailEachInTurn(*faults, call, Diskio, deleteAnew, [&](int nth) {
            EXPECT_FALSE(other.store.Open().InTransaction());
            ASSERT_EQ(All(other.store.Open()), whole)
                << "call " << nth << " of kind " << static_cast<int>(call);
        });
        EXPECT_EQ(All(other.store.Open()), gone) << "the last one met no fault";
    }
    std::cout << failed << " calls failed, the department whole after each\n";
    EXPECT_GT(failed, 12);
}

TEST_F(InterruptedDeleteTest, leaves_the_department_whole_or_gone_when_it_is_killed_at_any_call) {
    const std::vector<std::string> gone = Gone();
    ASSERT_NE(gone, whole);
    int kills = 0;
    for (const Call call : {Call::Prepare, Call::Step, Call::Begin, Call::Commit})
        for (int nth = 1;; ++nth, ++kills) {
            const test::TempFolder folder;
            CopyWholeFile(store.folder / "TVX.MDB", folder / "TVX.MDB");
            if (KilledAt(folder / "TVX.MDB", call, nth)) break;
            ASSERT_EQ(AllIn(folder / "TVX.MDB"), whole) << "call " << nth;
        }
    std::cout << kills << " kills, the department whole after each\n";
    EXPECT_GT(kills, 12);
}

TEST_F(InterruptedDeleteTest, takes_one_statement_a_table_however_many_days_there_are) {
    const auto calls = [&] {
        faults->Clear();
        faults->Fail(Call::Step, 1000000, Diskio);
        DeleteDepartment(g.store, g.department);
        return faults->Count(Call::Step);
    };
    const int few = calls();
    store.AddDepartment("Kitchen");
    store.AddPeople(40);
    store.FillWeeks(46082 + 14, 60);
    const auto rows = RowsOf(store.db(), "Day Schedule", {"Employee"}).size();
    const auto begin = std::chrono::steady_clock::now();
    const int many = calls();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    std::cout << "steps of the engine: " << few << " with 12 people, " << many << " with 40; " << rows
              << " stored days: " << took.count() << " ms\n";
    EXPECT_LE(many, few + 40) << "the list of the people is read row by row, and no more";
}

} // namespace
} // namespace tvx
