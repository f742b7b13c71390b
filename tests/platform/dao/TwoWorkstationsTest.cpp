#include "platform/dao/ShiftList.h"
#include "support/ChildProcess.h"
#include "support/RawFile.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

using test::ChildProcess;
using test::DaoErrorOf;
using test::RawFile;
using test::TestEngine;

constexpr int LongWait = 20000; // milliseconds; a machine may be busy with other tests

/// A file with two towns that nobody has open, since a second process must open it by itself.
class TwoWorkstationsTest : public test::DaoTest {
  protected:
    void SetUp() override {
        MakeTables();
        AddTown("Ulm");
        AddTown("Bonn");
        db.reset();
    }
    void Open(int busyMilliseconds = 300) { db = TestEngine(busyMilliseconds).OpenDatabase(file); }

    using Work = std::function<void(Database& theirs, ChildProcess& test)>;
    /// The other workstation: opens the file, does its work, and waits until the test says a last word.
    std::unique_ptr<ChildProcess> Other(const Work& work, int busyMilliseconds = 300) const {
        return std::make_unique<ChildProcess>([=, this](ChildProcess& test) {
            const auto theirs = TestEngine(busyMilliseconds).OpenDatabase(file);
            work(*theirs, test);
            test.Hear();
        });
    }
    /// Another workstation in the middle of a save, which it completes on a word.
    std::unique_ptr<ChildProcess> OtherSaving() const {
        auto other = Other([](Database& theirs, ChildProcess& test) {
            Transaction save(theirs);
            AddTown(theirs, "Kiel");
            test.Say("saving");
            test.Hear();
            save.Commit();
            test.Say("saved");
        });
        EXPECT_EQ(other->Hear(), "saving");
        return other;
    }
    /// Another program in the middle of a save too large for its memory, which has written a part of it into
    /// the file and closed it to readers. This one holds a save in memory until its end.
    std::unique_ptr<ChildProcess> OtherSavingMuch() const {
        auto other = std::make_unique<ChildProcess>([this](ChildProcess& test) {
            RawFile theirs(file);
            theirs.Run("PRAGMA cache_size = 1");
            theirs.Run("BEGIN IMMEDIATE");
            theirs.Run("UPDATE [Town list] SET [Town name] = 'Changed' WHERE [Town number] = 1");
            theirs.Run("INSERT INTO [Shift list] (Day, Worker, Remarks) WITH RECURSIVE n(i) AS (SELECT 1"
                       " UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
                       " SELECT 100000 + i, 1, printf('%.2000c', 'x') FROM n");
            test.Say("saving");
            test.Hear();
            theirs.Run("COMMIT");
            test.Say("saved");
            test.Hear();
        });
        EXPECT_EQ(other->Hear(), "saving");
        return other;
    }
    static void LetSave(ChildProcess& other) {
        other.Say("save");
        EXPECT_EQ(other.Hear(), "saved");
    }
};

// --- saving at once ---------------------------------------------------------------------------------------

TEST_F(TwoWorkstationsTest, refuses_a_transaction_after_a_bounded_wait_while_the_other_saves) {
    const auto other = OtherSaving();
    Open();
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(DaoErrorOf([this] { db->BeginTrans(); }), 3260);
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(waited, std::chrono::milliseconds(200));
    EXPECT_LE(waited, std::chrono::seconds(5));
    EXPECT_FALSE(db->InTransaction());
    EXPECT_EQ(TownNames(), "Ulm Bonn ") << "reading goes on, and shows what was saved before";
    LetSave(*other);
    db->BeginTrans();
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
    db->Rollback();
}

TEST_F(TwoWorkstationsTest, waits_for_a_save_that_ends_in_time) {
    const auto other = Other([](Database& theirs, ChildProcess& test) {
        Transaction save(theirs);
        AddTown(theirs, "Kiel");
        test.Say("saving");
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        save.Commit();
    });
    EXPECT_EQ(other->Hear(), "saving");
    Open(LongWait);
    Transaction mine(*db);
    AddTown("Trier");
    mine.Commit();
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel Trier ");
}

TEST_F(TwoWorkstationsTest, refuses_a_record_while_the_other_saves_and_keeps_it_pending) {
    const auto other = OtherSaving();
    Open();
    Recordset towns = db->OpenRecordset("Town list");
    towns.Edit();
    towns.Fields("Town name") = "Aalen";
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3260);
    EXPECT_EQ(DaoErrorOf([&] { AddTown("Trier"); }), 3260);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("Town list").Delete(); }), 3260);
    LetSave(*other);
    towns.Update();
    EXPECT_EQ(TownNames(), "Aalen Bonn Kiel ");
}

TEST_F(TwoWorkstationsTest, shows_a_save_only_when_it_is_committed) {
    Open();
    const auto other = TestEngine().OpenDatabase(file);
    Transaction save(*other);
    AddTown(*other, "Kiel");
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    save.Commit();
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(TwoWorkstationsTest, loses_no_change_when_both_count_in_one_record) {
    const auto countUp = [](Database& database) {
        for (int i = 0; i < 40; ++i) {
            Transaction save(database);
            Recordset towns = database.OpenRecordset("Town list");
            towns.Edit();
            towns.Fields("Town name") = towns.Fields("Town name").Int() + 1;
            towns.Update();
            AddTown(database, "new");
            save.Commit();
        }
    };
    const auto other = Other(
        [&](Database& theirs, ChildProcess& test) {
            test.Say("ready");
            test.Hear();
            countUp(theirs);
            test.Say("done");
        },
        LongWait);
    EXPECT_EQ(other->Hear(), "ready");
    Open(LongWait);
    other->Say("go");
    countUp(*db);
    EXPECT_EQ(other->Hear(), "done");
    Recordset towns = db->OpenRecordset("Town list");
    EXPECT_EQ(towns.Fields("Town name").Long(), 80);
    EXPECT_EQ(towns.RecordCount(), 82);
    towns.MoveLast();
    EXPECT_EQ(towns.Fields("Town number").Long(), 82) << "every number once";
}

// --- readers ----------------------------------------------------------------------------------------------

TEST_F(TwoWorkstationsTest, is_not_held_up_by_an_idle_reader) {
    const auto other = Other([](Database& theirs, ChildProcess& test) {
        Recordset towns = theirs.OpenRecordset("Town list");
        Recordset select = theirs.OpenRecordset("SELECT * FROM [Town list] ORDER BY [Town name]");
        Recordset sought = theirs.OpenRecordset("Town list");
        sought.Index("Nbr");
        sought.Seek({std::int64_t{2}});
        sought.Edit();
        sought.Fields("Town name") = "thinking";
        theirs.Scan("SELECT * FROM [Town list]", {}, [](const ScanRow&) {});
        test.Say("idle on " + towns.Fields(1).Text() + select.Fields(1).Text() + sought.Fields(1).Text());
        test.Hear();
    });
    EXPECT_EQ(other->Hear(), "idle on UlmBonnthinking");
    Open(0);
    Transaction save(*db);
    AddTown("Kiel");
    save.Commit();
    AddTown("Trier");
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel Trier ");
}

TEST_F(TwoWorkstationsTest, reads_one_state_in_a_snapshot_and_the_saver_waits) {
    const auto other = Other([](Database& theirs, ChildProcess& test) {
        theirs.BeginTrans();
        AddTown(theirs, "Kiel");
        test.Say("changed");
        for (const char* attempt : {"first", "second"}) {
            test.Hear();
            const int number = DaoErrorOf([&] { theirs.CommitTrans(); });
            test.Say(std::string(attempt) + " " + std::to_string(number) +
                     (theirs.InTransaction() ? " open" : " closed"));
        }
    });
    EXPECT_EQ(other->Hear(), "changed");
    Open();
    {
        const Snapshot state(*db);
        EXPECT_EQ(TownNames(), "Ulm Bonn ");
        other->Say("commit");
        EXPECT_EQ(other->Hear(), "first 3260 open");
        EXPECT_EQ(TownNames(), "Ulm Bonn ");
        EXPECT_EQ(db->OpenRecordset("Town list").RecordCount(), 2);
    }
    other->Say("again");
    EXPECT_EQ(other->Hear(), "second 0 closed");
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(TwoWorkstationsTest, reads_different_states_without_a_snapshot) {
    const auto other = OtherSaving();
    Open();
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    LetSave(*other);
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(TwoWorkstationsTest, needs_no_snapshot_inside_a_transaction) {
    Open();
    Transaction save(*db);
    {
        const Snapshot state(*db);
        AddTown("Kiel");
    }
    EXPECT_TRUE(db->InTransaction());
    save.Commit();
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(TwoWorkstationsTest, ends_its_snapshot_with_the_block) {
    Open();
    {
        const Snapshot state(*db);
        EXPECT_EQ(TownNames(), "Ulm Bonn ");
    }
    EXPECT_FALSE(db->InTransaction());
    const auto other = TestEngine(0).OpenDatabase(file);
    AddTown(*other, "Kiel");
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(TwoWorkstationsTest, reads_on_while_the_other_prepares_a_save_of_any_size) {
    const auto other = Other([](Database& theirs, ChildProcess& test) {
        Transaction save(theirs);
        Recordset shifts = theirs.OpenRecordset("Shift list");
        for (int day = 1; day <= 5000; ++day) {
            shifts.AddNew();
            shifts.Fields("Day") = 100000 + day;
            shifts.Fields("Worker") = 1;
            shifts.Fields("Remarks") = std::string(2000, 'x');
            shifts.Update();
        }
        test.Say("saving");
        test.Hear();
        save.Commit();
        test.Say("saved");
    });
    ASSERT_EQ(other->Hear(), "saving");
    const auto before = fs::file_size(file);
    Open();
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    LetSave(*other);
    EXPECT_GT(fs::file_size(file), 2 * before) << "nothing of it was in the file before its end";
    EXPECT_EQ(db->OpenRecordset("Shift list").RecordCount(), 5000);
}

// --- a file that is half written --------------------------------------------------------------------------

TEST_F(TwoWorkstationsTest, cannot_open_the_file_while_the_other_writes_it) {
    const auto other = OtherSavingMuch();
    EXPECT_EQ(DaoErrorOf([this] { Open(); }), 3045);
    LetSave(*other);
    Open();
    EXPECT_EQ(TownNames(), "Changed Bonn ");
}

TEST_F(TwoWorkstationsTest, keeps_its_record_when_a_read_is_refused) {
    Open();
    FillDays(300);
    db.reset();
    // The reader is the second process here: it must be on its record before the other begins.
    ChildProcess reader([this](ChildProcess& test) {
        Open();
        Recordset shifts = db->OpenRecordset("Shift list");
        shifts.Index("Day and worker");
        shifts.Seek({std::int64_t{256}}); // what follows it is not read yet
        test.Say("reading");
        test.Hear();
        std::string errors = std::to_string(DaoErrorOf([&] { shifts.MoveNext(); })) + " ";
        errors += std::to_string(DaoErrorOf([&] { shifts.MoveFirst(); })) + " ";
        errors += std::to_string(DaoErrorOf([&] { shifts.MoveLast(); })) + " ";
        errors += std::to_string(DaoErrorOf([&] { shifts.Seek({std::int64_t{1}}); })) + " ";
        errors += std::to_string(DaoErrorOf([&] { shifts.RecordCount(); })) + " ";
        errors += std::to_string(DaoErrorOf([&] { db->OpenRecordset("Town list"); }));
        test.Say(errors + " on " + shifts.Fields(0).Text());
        test.Hear();
        shifts.MoveNext();
        test.Say("on " + shifts.Fields(0).Text());
    });
    EXPECT_EQ(reader.Hear(), "reading");
    const auto other = OtherSavingMuch();
    reader.Say("read");
    EXPECT_EQ(reader.Hear(), "3260 3260 3260 3260 3260 3260 on 256");
    LetSave(*other);
    reader.Say("read");
    EXPECT_EQ(reader.Hear(), "on 257");
}

TEST_F(TwoWorkstationsTest, opens_a_table_while_the_other_writes_the_file_and_is_refused_when_it_reads) {
    ChildProcess reader([this](ChildProcess& test) {
        Open();
        db->Table("Town list");
        test.Say("ready");
        test.Hear();
        Recordset towns = db->OpenRecordset("Town list");
        towns.Index("Nbr");
        std::string errors;
        const auto note = [&](auto work) { errors += std::to_string(DaoErrorOf(work)) + " "; };
        note([&] { towns.Seek({std::int64_t{1}}); });
        note([&] { towns.BOF(); });
        note([&] { towns.AtEnd(); });
        note([&] { towns.MoveFirst(); });
        note([&] { towns.MoveNext(); });
        note([&] { towns.Edit(); });
        towns.AddNew();
        towns.Fields("Town name") = "Trier";
        note([&] { towns.Update(); });
        test.Say(errors);
        test.Hear();
        towns.Update();
        test.Say(TownNames());
    });
    EXPECT_EQ(reader.Hear(), "ready");
    const auto other = OtherSavingMuch();
    reader.Say("open");
    EXPECT_EQ(reader.Hear(), "3260 3260 3260 3260 3260 3260 3260 ");
    LetSave(*other);
    reader.Say("save");
    EXPECT_EQ(reader.Hear(), "Changed Bonn Trier ");
}

TEST_F(TwoWorkstationsTest, has_the_old_rows_after_the_other_was_killed_in_a_save) {
    const auto other = OtherSaving();
    other->Kill();
    Open();
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    AddTown("Trier");
    EXPECT_EQ(TownNames(), "Ulm Bonn Trier ");
}

TEST_F(TwoWorkstationsTest, has_the_old_rows_after_the_other_was_killed_with_the_file_half_written) {
    const auto before = fs::file_size(file);
    const auto other = OtherSavingMuch();
    EXPECT_GT(fs::file_size(file), 2 * before) << "the file is written to before the end";
    other->Kill();
    EXPECT_TRUE(fs::exists(folder / "t.mdb-journal"));
    Open();
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    EXPECT_EQ(db->OpenRecordset("Shift list").RecordCount(), 0);
    AddTown("Trier");
    db.reset();
    EXPECT_EQ(test::AskSql(file, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"t.mdb"});
    EXPECT_EQ(fs::file_size(file), before);
}

TEST_F(TwoWorkstationsTest, has_old_or_new_rows_wherever_the_other_was_killed) {
    for (int i = 1; i <= 20; ++i) {
        const auto other = Other(
            [](Database& theirs, ChildProcess& test) {
                test.Say("ready");
                for (int value = 1;; ++value) {
                    Transaction save(theirs);
                    for (Recordset towns = theirs.OpenRecordset("Town list"); !towns.AtEnd();
                         towns.MoveNext()) {
                        towns.Edit();
                        towns.Fields("Town name") = value;
                        towns.Update();
                    }
                    save.Commit();
                }
            },
            LongWait);
        EXPECT_EQ(other->Hear(), "ready");
        std::this_thread::sleep_for(std::chrono::milliseconds(i));
        other->Kill();
        Open();
        Recordset towns = db->OpenRecordset("Town list");
        const std::string first = towns.Fields("Town name").Text();
        towns.MoveLast();
        EXPECT_TRUE(towns.Fields("Town name").Text() == first || first == "Ulm") << "both of one save";
        db.reset();
    }
    EXPECT_EQ(test::AskSql(file, "PRAGMA integrity_check"), "ok");
}

TEST_F(TwoWorkstationsTest, refuses_to_write_a_file_that_was_deleted_while_open) {
    Open();
    Recordset towns = db->OpenRecordset("Town list");
    fs::remove(file);
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    EXPECT_EQ(DaoErrorOf([this] { AddTown("Kiel"); }), 3027);
    EXPECT_FALSE(fs::exists(file));
}

} // namespace
} // namespace tvx::dao
