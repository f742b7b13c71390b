#include "platform/dao/Recordset.h"

#include "platform/dao/ShiftList.h"
#include "support/RawFile.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

using test::DaoErrorOf;

class RecordsetTest : public test::DaoTest {};

// --- opening and moving ---------------------------------------------------------------------------------

TEST_F(RecordsetTest, stands_on_its_first_record_when_opened) {
    AddTown("Ulm");
    AddTown("Bonn");
    for (const char* text : {"Town list", "TOWN LIST", "SELECT * FROM [town list]"}) {
        Recordset towns = db->OpenRecordset(text);
        EXPECT_FALSE(towns.BOF());
        EXPECT_FALSE(towns.AtEnd());
        EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm") << text;
    }
}

TEST_F(RecordsetTest, has_both_marks_and_no_record_when_it_is_empty) {
    for (const char* text : {"Town list", "SELECT * FROM [Town list]"}) {
        Recordset towns = db->OpenRecordset(text);
        EXPECT_TRUE(towns.IsOpen());
        EXPECT_TRUE(towns.BOF());
        EXPECT_TRUE(towns.AtEnd());
        EXPECT_EQ(towns.RecordCount(), 0);
        EXPECT_EQ(DaoErrorOf([&] { towns.MoveFirst(); }), 3021);
        EXPECT_EQ(DaoErrorOf([&] { towns.MoveLast(); }), 3021);
        EXPECT_EQ(DaoErrorOf([&] { towns.MoveNext(); }), 3021);
        EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Town name").Text(); }), 3021);
        EXPECT_EQ(DaoErrorOf([&] { towns.Edit(); }), 3021);
        EXPECT_EQ(DaoErrorOf([&] { towns.Delete(); }), 3021);
    }
}

TEST_F(RecordsetTest, moves_to_its_end_and_no_further) {
    AddTown("Ulm");
    AddTown("Bonn");
    for (const char* text : {"Town list", "SELECT * FROM [Town list]"}) {
        Recordset towns = db->OpenRecordset(text);
        towns.MoveNext();
        EXPECT_EQ(towns.Fields(1).Text(), "Bonn");
        EXPECT_FALSE(towns.AtEnd());
        towns.MoveNext();
        EXPECT_TRUE(towns.AtEnd());
        EXPECT_FALSE(towns.BOF());
        EXPECT_EQ(DaoErrorOf([&] { towns.Fields(1).Text(); }), 3021);
        EXPECT_EQ(DaoErrorOf([&] { towns.MoveNext(); }), 3021);
        towns.MoveFirst();
        EXPECT_EQ(towns.Fields(1).Text(), "Ulm");
        towns.MoveLast();
        EXPECT_EQ(towns.Fields(1).Text(), "Bonn");
        EXPECT_FALSE(towns.AtEnd());
    }
}

TEST_F(RecordsetTest, refuses_what_it_cannot_open) {
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("Villages"); }), 3078);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT * FROM Villages"); }), 3078);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT [Mayor] FROM [Town list]"); }), 3265);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT * FROM [Town list] WHERE Mayor = 1"); }), 3265);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT * FROM"); }), 3075);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT * FROM [Town list"); }), 3075);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT * FROM [Town list] WHERE = ="); }), 3075);
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset(""); }), 3078);
}

TEST_F(RecordsetTest, counts_the_records_of_a_table) {
    for (const char* name : {"Ulm", "Bonn", "Kiel"}) AddTown(name);
    Recordset towns = db->OpenRecordset("Town list");
    EXPECT_EQ(towns.RecordCount(), 3);
    AddTown("Trier");
    EXPECT_EQ(towns.RecordCount(), 4);
}

TEST_F(RecordsetTest, counts_of_a_select_what_was_visited) {
    for (const char* name : {"Ulm", "Bonn", "Kiel"}) AddTown(name);
    Recordset towns = db->OpenRecordset("SELECT * FROM [Town list]");
    EXPECT_EQ(towns.RecordCount(), 1);
    towns.MoveNext();
    EXPECT_EQ(towns.RecordCount(), 2);
    towns.MoveFirst();
    EXPECT_EQ(towns.RecordCount(), 2);
    towns.MoveLast();
    EXPECT_EQ(towns.RecordCount(), 3);
    towns.MoveFirst();
    EXPECT_EQ(towns.RecordCount(), 3);
}

TEST_F(RecordsetTest, finds_fields_by_name_and_by_position) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    EXPECT_EQ(towns.FieldCount(), 4U);
    EXPECT_EQ(towns.Fields("TOWN name").Text(), "Ulm");
    EXPECT_EQ(towns.Fields(1).Text(), "Ulm");
    EXPECT_EQ(towns.PositionOf("OPEN"), 2U);
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Mayor"); }), 3265);
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields(4); }), 3265);
    EXPECT_EQ(DaoErrorOf([&] { towns.PositionOf("Mayor"); }), 3265);
    Recordset names = db->OpenRecordset("SELECT [Town name], Open FROM [Town list]");
    EXPECT_EQ(names.FieldCount(), 2U);
    EXPECT_EQ(names.Fields(0).Text(), "Ulm");
    EXPECT_EQ(DaoErrorOf([&] { names.Fields("Town number"); }), 3265);
}

TEST_F(RecordsetTest, is_of_no_use_when_it_is_closed) {
    AddTown("Ulm");
    Recordset closed = db->OpenRecordset("Town list");
    closed.Close();
    Recordset never;
    for (Recordset* set : {&closed, &never}) {
        EXPECT_FALSE(set->IsOpen());
        EXPECT_EQ(DaoErrorOf([&] { set->MoveFirst(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->MoveLast(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->MoveNext(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Index("Nbr"); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Seek({std::int64_t{1}}); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->AddNew(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Edit(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Update(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Delete(); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Fields("Town name"); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->Fields(0); }), 3420);
        EXPECT_EQ(DaoErrorOf([&] { set->RecordCount(); }), 3420);
    }
}

TEST_F(RecordsetTest, outlives_its_database_without_harm) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    db.reset();
    EXPECT_EQ(DaoErrorOf([&] { towns.MoveFirst(); }), 3420);
    EXPECT_EQ(DaoErrorOf([&] { towns.RecordCount(); }), 3420);
    towns.AddNew();
    towns.Fields("Town name") = "Bonn";
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3420);
    EXPECT_EQ(DaoErrorOf([&] { towns.Delete(); }), 3420);
}

// --- adding ---------------------------------------------------------------------------------------------

TEST_F(RecordsetTest, gives_ascending_numbers_and_keeps_the_current_record) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Fields("Town name") = "Bonn";
    towns.Update();
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
    towns.MoveLast();
    EXPECT_EQ(towns.Fields(0).Long(), 2);
    EXPECT_EQ(towns.Fields("Town name").Text(), "Bonn");
}

TEST_F(RecordsetTest, gives_no_number_twice) {
    AddTown("Ulm");
    AddTown("Bonn");
    Recordset towns = db->OpenRecordset("Town list");
    towns.MoveLast();
    towns.Delete();
    AddTown("Kiel");
    EXPECT_EQ(All("Town list"), "1 3 ");
}

TEST_F(RecordsetTest, adds_to_an_empty_set) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Fields("Town name") = "Ulm";
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm") << "what was set can be read before it is written";
    towns.Update();
    EXPECT_EQ(towns.RecordCount(), 1);
    EXPECT_FALSE(towns.BOF());
    EXPECT_FALSE(towns.AtEnd());
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Town name").Text(); }), 3021) << "none was current before";
    towns.MoveFirst();
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
}

TEST_F(RecordsetTest, leaves_an_empty_select_empty_when_it_adds) {
    Recordset towns = db->OpenRecordset("SELECT * FROM [Town list]");
    towns.AddNew();
    towns.Fields("Town name") = "Ulm";
    towns.Update();
    EXPECT_TRUE(towns.BOF());
    EXPECT_TRUE(towns.AtEnd());
    EXPECT_EQ(TownNames(), "Ulm ");
}

TEST_F(RecordsetTest, adds_a_record_of_which_nothing_was_set) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Update();
    towns.MoveFirst();
    EXPECT_EQ(towns.Fields(0).Long(), 1);
    EXPECT_TRUE(towns.Fields("Town name").IsNull());
}

TEST_F(RecordsetTest, adds_through_a_select_without_showing_it) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("SELECT * FROM [Town list]");
    towns.AddNew();
    towns.Fields("Town name") = "Bonn";
    towns.Update();
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
    towns.MoveLast();
    EXPECT_EQ(towns.RecordCount(), 1) << "a select is read when it is opened";
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
}

TEST_F(RecordsetTest, drops_what_was_not_updated_before_a_move) {
    AddTown("Ulm");
    AddTown("Bonn");
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Fields("Town name") = "Kiel";
    towns.MoveFirst();
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3020);
    towns.Edit();
    towns.Fields("Town name") = "Kiel";
    towns.MoveNext();
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3020);
    towns.Edit();
    towns.Fields("Town name") = "Kiel";
    towns.MoveLast();
    EXPECT_EQ(towns.Fields("Town name").Text(), "Bonn");
    towns.Index("Nbr");
    towns.Edit();
    towns.Fields("Town name") = "Kiel";
    towns.Seek({std::int64_t{2}});
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3020);
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
}

TEST_F(RecordsetTest, drops_what_was_set_when_it_is_begun_anew) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Fields("Town name") = "Bonn";
    towns.AddNew();
    EXPECT_TRUE(towns.Fields("Town name").IsNull());
    towns.Edit();
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
    towns.Update();
    EXPECT_EQ(TownNames(), "Ulm ");
}

// --- changing -------------------------------------------------------------------------------------------

TEST_F(RecordsetTest, stays_on_the_record_that_was_changed) {
    AddTown("Ulm");
    AddTown("Bonn");
    for (const char* text : {"Town list", "SELECT * FROM [Town list] ORDER BY [Town number]"}) {
        Recordset towns = db->OpenRecordset(text);
        towns.MoveLast();
        towns.Edit();
        towns.Fields("Town name") = std::string(text).substr(0, 6);
        EXPECT_EQ(towns.Fields("Town name").Text(), std::string(text).substr(0, 6));
        EXPECT_EQ(towns.Fields("Town number").Long(), 2) << "what was not set reads as before";
        towns.Update();
        EXPECT_EQ(towns.Fields("Town name").Text(), std::string(text).substr(0, 6));
        EXPECT_EQ(TownNames(), "Ulm " + std::string(text).substr(0, 6) + " ");
    }
}

TEST_F(RecordsetTest, writes_only_the_fields_that_were_set) {
    AddTown("Ulm");
    Recordset mine = db->OpenRecordset("Town list");
    Recordset theirs = db->OpenRecordset("Town list");
    theirs.Edit();
    theirs.Fields("Open") = false;
    theirs.Update();
    mine.Edit();
    mine.Fields("Town name") = "Bonn";
    mine.Update();
    EXPECT_EQ(All("SELECT [Town name] FROM [Town list] WHERE [Open] = False"), "Bonn ");
}

TEST_F(RecordsetTest, refuses_writing_without_AddNew_or_Edit) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3020);
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Town name") = "Bonn"; }), 3020);
    towns.Edit();
    towns.Fields("Town name") = "Bonn";
    towns.Update();
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3020) << "once is enough";
    EXPECT_EQ(TownNames(), "Bonn ");
}

TEST_F(RecordsetTest, refuses_a_key_that_exists_and_keeps_the_change_pending) {
    AddShift(1, 1, "a");
    AddShift(1, 2, "b");
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.AddNew();
    shifts.Fields("Day") = 1;
    shifts.Fields("Worker") = 2;
    EXPECT_EQ(DaoErrorOf([&] { shifts.Update(); }), 3022);
    shifts.Fields("Worker") = 3;
    shifts.Update();
    EXPECT_EQ(All("Shift list", 1), "1 2 3 ");
    shifts.MoveFirst();
    shifts.Edit();
    shifts.Fields("Worker") = 2;
    EXPECT_EQ(DaoErrorOf([&] { shifts.Update(); }), 3022);
    shifts.MoveFirst();
    EXPECT_EQ(shifts.Fields("Worker").Long(), 1);
}

TEST_F(RecordsetTest, refuses_a_text_wider_than_its_field) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Town name") = "1234567890123"; }), 3163);
    EXPECT_TRUE(towns.Fields("Town name").IsNull()) << "what was refused is not there";
    towns.Fields("Town name") = "äöüß€😀äöüß€😀"; // twelve characters
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Town name") = "äöüß€😀äöüß€😀x"; }), 3163);
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Hours") = std::string(15, ' '); }), 3163);
    towns.Fields("Hours") = std::string(14, '\x80'); // bytes count here
    towns.Update();
    EXPECT_EQ(TownNames(), "äöüß€😀äöüß€😀 ");
}

TEST_F(RecordsetTest, leaves_an_old_text_alone_that_is_wider_than_its_field) {
    AddTown("Ulm");
    db.reset();
    test::RunSql(file, "UPDATE [Town list] SET [Town name] = 'Recklinghausen'");
    db = engine.OpenDatabase(file);
    Recordset towns = db->OpenRecordset("Town list");
    towns.Edit();
    towns.Fields("Town name") = "Recklinghausen";
    towns.Update();
    EXPECT_EQ(TownNames(), "Recklinghausen ");
    towns.AddNew();
    EXPECT_EQ(DaoErrorOf([&] { towns.Fields("Town name") = "Recklinghausen"; }), 3163);
}

TEST_F(RecordsetTest, cannot_change_what_another_has_deleted) {
    AddTown("Ulm");
    Recordset mine = db->OpenRecordset("Town list");
    mine.MoveFirst();
    Recordset theirs = db->OpenRecordset("Town list");
    theirs.Delete();
    mine.Edit();
    mine.Fields("Town name") = "Bonn";
    EXPECT_EQ(DaoErrorOf([&] { mine.Update(); }), 3167);
    EXPECT_EQ(TownNames(), "");
}

TEST_F(RecordsetTest, has_no_record_when_others_emptied_the_table_before_it_was_read) {
    AddTown("Ulm");
    Recordset mine = db->OpenRecordset("Town list");
    db->OpenRecordset("Town list").Delete();
    EXPECT_EQ(DaoErrorOf([&] { mine.Edit(); }), 3021);
    EXPECT_TRUE(mine.BOF());
    EXPECT_TRUE(mine.AtEnd());
}

TEST_F(RecordsetTest, knows_after_a_miss_whether_there_are_others) {
    for (const bool empty : {true, false}) {
        if (!empty) AddTown("Ulm");
        Recordset towns = db->OpenRecordset("Town list");
        towns.Index("Nbr");
        towns.Seek({std::int64_t{7}});
        EXPECT_TRUE(towns.NoMatch());
        EXPECT_EQ(towns.BOF(), empty);
        EXPECT_EQ(towns.AtEnd(), empty);
        EXPECT_EQ(DaoErrorOf([&] { towns.Fields(1).Text(); }), 3021);
    }
}

TEST_F(RecordsetTest, keeps_the_first_record_when_one_is_added_before_it_was_read) {
    AddShift(5, 1, "first");
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.AddNew();
    shifts.Fields("Day") = 1;
    shifts.Fields("Worker") = 1;
    shifts.Update();
    EXPECT_EQ(shifts.Fields("Label").Text(), "first");
}

TEST_F(RecordsetTest, has_no_record_left_when_others_emptied_the_table) {
    AddTown("Ulm");
    Recordset mine = db->OpenRecordset("Town list");
    db->OpenRecordset("Town list").Delete();
    EXPECT_EQ(DaoErrorOf([&] { mine.MoveFirst(); }), 3021);
    EXPECT_EQ(DaoErrorOf([&] { mine.Fields(0).Text(); }), 3021);
    EXPECT_TRUE(mine.BOF());
    EXPECT_TRUE(mine.AtEnd());
}

TEST_F(RecordsetTest, takes_the_value_of_another_field) {
    AddTown("Ulm");
    AddTown("Bonn");
    Recordset from = db->OpenRecordset("Town list");
    Recordset to = db->OpenRecordset("SELECT * FROM [Town list] WHERE [Town number] = 2");
    to.Edit();
    to.Fields("Town name") = from.Fields("Town name");
    to.Fields("Hours") = from.Fields("Hours");
    to.Update();
    EXPECT_EQ(TownNames(), "Ulm Ulm ");
}

// --- deleting -------------------------------------------------------------------------------------------

TEST_F(RecordsetTest, cannot_read_a_deleted_record_before_it_moves) {
    AddTown("Ulm");
    AddTown("Bonn");
    for (const char* text : {"Town list", "SELECT * FROM [Town list]"}) {
        Recordset towns = db->OpenRecordset(text);
        towns.Delete();
        EXPECT_FALSE(towns.AtEnd());
        EXPECT_EQ(DaoErrorOf([&] { towns.Fields(1).Text(); }), 3167);
        EXPECT_EQ(DaoErrorOf([&] { towns.Edit(); }), 3167);
        EXPECT_EQ(DaoErrorOf([&] { towns.Delete(); }), 3167);
        AddTown("Ulm");
    }
    EXPECT_EQ(TownNames(), "Ulm Ulm ");
}

TEST_F(RecordsetTest, stands_on_the_next_record_after_a_deletion_and_a_move) {
    for (const char* text : {"Town list", "SELECT * FROM [Town list]"}) {
        for (const char* name : {"Ulm", "Bonn", "Kiel"}) AddTown(name);
        Recordset towns = db->OpenRecordset(text);
        towns.MoveNext();
        towns.Delete();
        towns.MoveNext();
        EXPECT_EQ(towns.Fields(1).Text(), "Kiel");
        towns.Delete();
        towns.MoveNext();
        EXPECT_TRUE(towns.AtEnd());
        EXPECT_FALSE(towns.BOF());
        towns.MoveLast();
        EXPECT_EQ(towns.Fields(1).Text(), "Ulm") << "the deleted are gone for good: " << text;
        EXPECT_EQ(towns.RecordCount(), 1);
        towns.Delete();
        EXPECT_EQ(DaoErrorOf([&] { towns.MoveFirst(); }), 3021);
        EXPECT_TRUE(towns.BOF());
        EXPECT_TRUE(towns.AtEnd());
    }
}

TEST_F(RecordsetTest, loses_every_record_in_a_loop_of_deletions) {
    for (const char* text : {"Town list", "SELECT * FROM [Town list] ORDER BY [Town name]"}) {
        for (const char* name : {"Ulm", "Bonn", "Kiel"}) AddTown(name);
        int deleted = 0;
        for (Recordset towns = db->OpenRecordset(text); !towns.AtEnd(); towns.MoveNext()) {
            towns.Delete();
            ++deleted;
        }
        EXPECT_EQ(deleted, 3);
        EXPECT_EQ(TownNames(), "");
    }
}

TEST_F(RecordsetTest, deletes_in_the_middle_of_a_scan_by_the_index) {
    FillDays(600);
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("Day and worker");
    shifts.Seek({std::int64_t{100}});
    while (shifts.Fields("Day").Long() < 500) {
        if (shifts.Fields("Day").Long() % 3 == 0) shifts.Delete();
        shifts.MoveNext();
    }
    EXPECT_EQ(shifts.Fields("Day").Long(), 500);
    EXPECT_EQ(shifts.RecordCount(), 600 - 133);
    shifts.Index("By worker");
    shifts.Seek({std::int64_t{1}});
    EXPECT_EQ(shifts.Fields("Day").Long(), 1);
}

TEST_F(RecordsetTest, deletes_while_a_change_is_pending) {
    AddTown("Ulm");
    Recordset towns = db->OpenRecordset("Town list");
    towns.Edit();
    towns.Fields("Town name") = "Bonn";
    towns.Delete();
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3020);
    EXPECT_EQ(TownNames(), "");
}

} // namespace
} // namespace tvx::dao
