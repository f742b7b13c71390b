#include "platform/dao/Database.h"

#include "platform/dao/ShiftList.h"
#include "platform/dao/SqliteSession.h"
#include "support/ChildProcess.h"
#include "support/RawFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace fs = std::filesystem;

namespace tvx::dao {

void PrintTo(const FieldDef& field, std::ostream* out) {
    *out << field.name << " " << SqliteDialect().DeclaredType(field);
}

namespace {

using test::DaoErrorOf;
using Names = std::vector<std::string>;

class DatabaseTest : public test::DaoTest {
  protected:
    void Reopen() {
        db.reset();
        db = engine.OpenDatabase(file);
    }
};

// --- files ------------------------------------------------------------------------------------------------

TEST_F(DatabaseTest, is_an_empty_file_at_first) {
    const auto fresh = engine.CreateDatabase(folder / "fresh.mdb");
    EXPECT_EQ(fresh->Path(), folder / "fresh.mdb");
    EXPECT_EQ(fresh->TableNames(), Names{});
    EXPECT_EQ(engine.OpenDatabase(folder / "fresh.mdb")->TableNames(), Names{});
}

TEST_F(DatabaseTest, is_not_made_over_another_file) {
    AddTown("Ulm");
    EXPECT_EQ(DaoErrorOf([&] { engine.CreateDatabase(file); }), 3204);
    EXPECT_EQ(TownNames(), "Ulm ");
}

TEST_F(DatabaseTest, is_not_made_where_there_is_no_folder) {
    EXPECT_EQ(DaoErrorOf([&] { engine.CreateDatabase(folder / "gone/t.mdb"); }), 3051);
}

TEST_F(DatabaseTest, is_not_half_made_on_a_full_disk) {
    EXPECT_EQ(test::AskOnFullDisk(100,
                                  [this] {
                                      return std::to_string(
                                          DaoErrorOf([&] { engine.CreateDatabase(folder / "new.mdb"); }));
                                  }),
              "3051");
    EXPECT_FALSE(fs::exists(folder / "new.mdb"));
}

TEST_F(DatabaseTest, keeps_everything_when_it_is_closed) {
    AddTown("Ulm");
    AddShift(1, 2, "late");
    Reopen();
    EXPECT_EQ(TownNames(), "Ulm ");
    EXPECT_EQ(All("Shift list", 2), "late ");
}

TEST_F(DatabaseTest, leaves_nothing_beside_its_file) {
    AddTown("Ulm");
    db.reset();
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"t.mdb"});
}

// --- tables -----------------------------------------------------------------------------------------------

TEST_F(DatabaseTest, lists_its_tables) {
    EXPECT_EQ(db->TableNames(), (Names{"Shift list", "Town list"}));
    EXPECT_TRUE(db->HasTable("TOWN LIST"));
    EXPECT_FALSE(db->HasTable("Villages"));
    EXPECT_EQ(DaoErrorOf([&] { db->Table("Villages"); }), 3078);
}

void ExpectSame(const TableDef& found, const TableDef& made) {
    EXPECT_EQ(found.name, made.name);
    ASSERT_EQ(found.fields.size(), made.fields.size());
    for (std::size_t i = 0; i < made.fields.size(); ++i) {
        EXPECT_EQ(found.fields[i].name, made.fields[i].name);
        EXPECT_EQ(found.fields[i].type, made.fields[i].type) << made.fields[i].name;
        EXPECT_EQ(found.fields[i].width, made.fields[i].width) << made.fields[i].name;
    }
    EXPECT_EQ(found.key.name, made.key.name);
    EXPECT_EQ(found.key.fields, made.key.fields);
    ASSERT_EQ(found.indexes.size(), made.indexes.size());
    for (std::size_t i = 0; i < made.indexes.size(); ++i) {
        EXPECT_EQ(found.indexes[i].name, made.indexes[i].name);
        EXPECT_EQ(found.indexes[i].fields, made.indexes[i].fields);
    }
}

TEST_F(DatabaseTest, reads_its_tables_back_as_they_were_made) {
    const TableDef keyless{"Log", {{"Line", FieldType::Text, 9}, {"Read", FieldType::Boolean, 0}}, {}, {}};
    const TableDef manyIndexes{"Index's list",
                               {{"b.a", FieldType::Long, 0}, {"a 'x'", FieldType::Text, 3}},
                               {"Key", {"b.a"}},
                               {{"1", {"a 'x'"}}, {"2", {"a 'x'", "b.a"}}}};
    db->CreateTable(keyless);
    db->CreateTable(manyIndexes);
    Reopen();
    ExpectSame(db->Table("town list"), test::TownList());
    ExpectSame(db->Table("SHIFT LIST"), test::ShiftList());
    ExpectSame(db->Table("Log"), keyless);
    ExpectSame(db->Table("Index's list"), manyIndexes);
}

TEST_F(DatabaseTest, finds_fields_and_indexes_without_case) {
    const TableDef& shifts = db->Table("Shift list");
    EXPECT_EQ(shifts.PositionOf("WORKER"), 1);
    EXPECT_EQ(shifts.PositionOf("Colour"), -1);
    EXPECT_EQ(shifts.FindIndex("day AND worker"), &shifts.key);
    EXPECT_EQ(shifts.FindIndex("BY WORKER"), &shifts.indexes[0]);
    EXPECT_EQ(shifts.FindIndex("By colour"), nullptr);
}

TEST_F(DatabaseTest, understands_declarations_of_other_makers) {
    struct Case {
        const char* declared;
        FieldType type;
        std::size_t width;
    };
    constexpr Case cases[] = {
        {"INTEGER", FieldType::Integer, 0},
        {"int", FieldType::Integer, 0},
        {"varchar text(40)", FieldType::Text, 40},
        {"REAL", FieldType::Double, 0},
        {"boolean", FieldType::Boolean, 0},
        {"date", FieldType::Date, 0},
        {"", FieldType::Text, 0},
        {"strange", FieldType::Text, 0},
    };
    for (const Case& c : cases) {
        const FieldDef field = FieldOfDeclaration("x", c.declared, false);
        EXPECT_EQ(field.type, c.type) << c.declared;
        EXPECT_EQ(field.width, c.width) << c.declared;
    }
}

TEST_F(DatabaseTest, takes_no_name_that_holds_a_bracket) {
    for (const char* name : {"", "a]b", "[a"}) EXPECT_EQ(DaoErrorOf([&] { Bracketed(name); }), 3265) << name;
    EXPECT_EQ(DaoErrorOf([] { Bracketed(std::string("a\0b", 3)); }), 3265);
    EXPECT_EQ(DaoErrorOf([&] {
                  db->CreateTable({"a]; DROP TABLE [Town list", {{"x", FieldType::Long, 0}}, {}, {}});
              }),
              3265);
    EXPECT_TRUE(db->HasTable("Town list"));
}

TEST_F(DatabaseTest, makes_a_table_with_its_indexes_or_not_at_all) {
    const TableDef wrong{"Bad", {{"x", FieldType::Long, 0}}, {"Key", {"x"}}, {{"By y", {"y"}}}};
    EXPECT_NE(DaoErrorOf([&] { db->CreateTable(wrong); }), 0);
    EXPECT_FALSE(db->HasTable("Bad"));
    AddTown("Ulm");
    {
        Transaction all(*db);
        AddTown("Bonn");
        EXPECT_NE(DaoErrorOf([&] { db->CreateTable(wrong); }), 0);
        all.Commit();
    }
    EXPECT_FALSE(db->HasTable("Bad"));
    EXPECT_EQ(TownNames(), "Ulm Bonn ") << "the rest of the transaction stands";
    EXPECT_NE(DaoErrorOf([&] { db->CreateTable(test::TownList()); }), 0);
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
}

TEST_F(DatabaseTest, gets_new_fields_behind_the_last) {
    AddTown("Ulm");
    AddShift(1, 2, "x");
    using enum FieldType;
    const FieldDef fields[] = {
        {"New text", Text, 5},       {"New memo", Memo, 0},      {"New hours", TimeText, 7},
        {"New integer", Integer, 0}, {"New long", Long, 0},      {"New single", Single, 0},
        {"New double", Double, 0},   {"New yes no", Boolean, 0}, {"New date", Date, 0}};
    for (const char* table : {"town list", "Shift list"}) {
        const std::size_t before = db->Table(table).fields.size();
        for (const FieldDef& field : fields) db->AppendField(table, field);
        Reopen();
        const TableDef& grown = db->Table(table);
        ASSERT_EQ(grown.fields.size(), before + std::size(fields));
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            EXPECT_EQ(grown.fields[before + i].name, fields[i].name);
            EXPECT_EQ(grown.fields[before + i].type, fields[i].type) << fields[i].name;
            EXPECT_EQ(grown.fields[before + i].width, fields[i].width) << fields[i].name;
        }
    }
}

TEST_F(DatabaseTest, has_Null_in_the_new_fields_of_old_records_and_no_in_the_yes_no_ones) {
    AddTown("Ulm");
    db->AppendField("Town list", {"Mayor", FieldType::Text, 20});
    db->AppendField("Town list", {"Taxed", FieldType::Boolean, 0});
    Recordset towns = db->OpenRecordset("Town list");
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
    EXPECT_TRUE(towns.Fields("Mayor").IsNull());
    EXPECT_FALSE(towns.Fields("Taxed").IsNull());
    EXPECT_EQ(towns.Fields("Taxed").Long(5), 0);
    EXPECT_EQ(All("SELECT [Town name] FROM [Town list] WHERE [Taxed] = False"), "Ulm ");
    towns.Edit();
    towns.Fields("Mayor") = "Anna";
    towns.Fields("Taxed") = true;
    towns.Update();
    EXPECT_EQ(All("SELECT [Mayor] FROM [Town list] WHERE [Taxed] = True and [Mayor] = 'ANNA'"), "Anna ");
}

TEST_F(DatabaseTest, gets_no_field_twice) {
    EXPECT_EQ(DaoErrorOf([&] { db->AppendField("Town list", {"OPEN", FieldType::Boolean, 0}); }), 3191);
    EXPECT_EQ(DaoErrorOf([&] { db->AppendField("Villages", {"Open", FieldType::Boolean, 0}); }), 3078);
    EXPECT_EQ(db->Table("Town list").fields.size(), 4U);
}

TEST_F(DatabaseTest, gets_no_field_that_another_workstation_added_meanwhile) {
    const auto other = engine.OpenDatabase(file);
    const FieldDef mayor{"Mayor", FieldType::Text, 20};
    EXPECT_EQ(db->Table("Town list").fields.size(), 4U);
    other->AppendField("Town list", mayor);
    EXPECT_EQ(DaoErrorOf([&] { db->AppendField("Town list", mayor); }), 3191);
}

// --- transactions -----------------------------------------------------------------------------------------

TEST_F(DatabaseTest, keeps_what_was_committed_and_drops_what_was_rolled_back) {
    EXPECT_FALSE(db->InTransaction());
    db->BeginTrans();
    EXPECT_TRUE(db->InTransaction());
    AddTown("Ulm");
    db->CommitTrans();
    EXPECT_FALSE(db->InTransaction());
    db->BeginTrans();
    AddTown("Bonn");
    EXPECT_EQ(TownNames(), "Ulm Bonn ");
    db->Rollback();
    EXPECT_FALSE(db->InTransaction());
    EXPECT_EQ(TownNames(), "Ulm ");
}

TEST_F(DatabaseTest, has_nothing_to_roll_back_outside_a_transaction) {
    AddTown("Ulm");
    db->Rollback();
    EXPECT_EQ(TownNames(), "Ulm ");
    EXPECT_NE(DaoErrorOf([&] { db->CommitTrans(); }), 0);
}

TEST_F(DatabaseTest, rolls_back_a_transaction_that_was_not_committed) {
    AddTown("Ulm");
    {
        const Transaction guard(*db);
        AddTown("Bonn");
    }
    EXPECT_FALSE(db->InTransaction());
    EXPECT_EQ(TownNames(), "Ulm ");
    {
        Transaction guard(*db);
        AddTown("Kiel");
        guard.Commit();
    }
    EXPECT_FALSE(db->InTransaction());
    EXPECT_EQ(TownNames(), "Ulm Kiel ");
}

TEST_F(DatabaseTest, rolls_back_when_an_error_leaves_the_transaction) {
    AddShift(1, 1);
    const auto saveTwice = [this] {
        Transaction guard(*db);
        AddShift(1, 2);
        AddShift(1, 1);
        guard.Commit();
    };
    EXPECT_EQ(DaoErrorOf(saveTwice), 3022);
    EXPECT_EQ(All("Shift list", 1), "1 ");
}

TEST_F(DatabaseTest, goes_on_in_a_transaction_after_a_refused_record) {
    AddShift(1, 1);
    Transaction guard(*db);
    EXPECT_EQ(DaoErrorOf([&] { AddShift(1, 1); }), 3022);
    AddShift(1, 2);
    guard.Commit();
    EXPECT_EQ(All("Shift list", 1), "1 2 ");
}

TEST_F(DatabaseTest, rolls_back_tables_and_fields_too) {
    const FieldDef mayor{"Mayor", FieldType::Text, 20};
    {
        const Transaction guard(*db);
        db->CreateTable({"Log", {{"Line", FieldType::Text, 9}}, {}, {}});
        db->AppendField("Town list", mayor);
        EXPECT_TRUE(db->HasTable("Log"));
        EXPECT_EQ(db->Table("Town list").PositionOf("Mayor"), 4);
    }
    EXPECT_FALSE(db->HasTable("Log"));
    EXPECT_EQ(db->Table("Town list").PositionOf("Mayor"), -1);
    db->AppendField("Town list", mayor);
    AddTown("Ulm");
    EXPECT_EQ(All("Town list", 4), "- ");
}

TEST_F(DatabaseTest, rolls_back_when_it_is_closed) {
    AddTown("Ulm");
    db->BeginTrans();
    AddTown("Bonn");
    Reopen();
    EXPECT_EQ(TownNames(), "Ulm ");
}

TEST_F(DatabaseTest, is_as_before_when_the_disk_was_full) {
    AddTown("Ulm");
    db.reset();
    const std::string answer = test::AskOnFullDisk(100000, [this] {
        db = engine.OpenDatabase(file);
        const int number = DaoErrorOf([this] { FillDays(5000); });
        return std::string(number == 3026 || number == 3043 ? "refused, " : "?") + TownNames() +
               All("Shift list");
    });
    EXPECT_EQ(answer, "refused, Ulm ");
    db = engine.OpenDatabase(file);
    EXPECT_EQ(TownNames() + All("Shift list"), "Ulm ");
}

// --- scans ------------------------------------------------------------------------------------------------

TEST_F(DatabaseTest, scans_rows_with_parameters) {
    AddShift(1, 7, "early");
    AddShift(2, 7, "late");
    AddShift(3, 8, "late");
    std::string seen;
    db->Scan("SELECT [Day], [Label], [Rate], [Off] FROM [Shift list] WHERE [Worker] = ? AND [Label] = ?",
             {std::int64_t{7}, "LATE"}, [&](const ScanRow& row) {
                 seen += std::to_string(row.Long(0)) + " " + std::string(row.Text(1));
                 EXPECT_EQ(row.Double(0), 2.0);
                 EXPECT_FALSE(row.IsNull(1));
                 EXPECT_TRUE(row.IsNull(2));
                 EXPECT_EQ(row.Double(2), 0);
                 EXPECT_EQ(row.Long(2), 0);
                 EXPECT_EQ(row.Text(2), "");
                 EXPECT_EQ(row.Long(3), 0);
             });
    EXPECT_EQ(seen, "2 late");
}

TEST_F(DatabaseTest, scans_time_texts_as_the_file_holds_them) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.AddNew();
    towns.Fields("Hours") = " \x80";
    towns.Update();
    db->Scan("SELECT [Hours] FROM [Town list]", {},
             [](const ScanRow& row) { EXPECT_EQ(row.Text(0), " \xC2\x80"); });
}

TEST_F(DatabaseTest, scans_inside_a_scan_of_the_same_text) {
    for (const char* name : {"Ulm", "Bonn"}) AddTown(name);
    const std::string sql = "SELECT [Town number] FROM [Town list] WHERE [Town number] > ? ORDER BY 1";
    std::string seen;
    db->Scan(sql, {std::int64_t{0}}, [&](const ScanRow& outer) {
        db->Scan(sql, {outer.Long(0)}, [&](const ScanRow& inner) {
            seen += std::to_string(outer.Long(0)) + "<" + std::to_string(inner.Long(0)) + " ";
        });
        seen += "; ";
        ASSERT_LT(seen.size(), 100U);
    });
    EXPECT_EQ(seen, "1<2 ; ; ");
}

TEST_F(DatabaseTest, holds_no_lock_after_a_scan_that_was_left) {
    AddTown("Ulm");
    AddTown("Bonn");
    const auto other = engine.OpenDatabase(file);
    const auto leave = [](const ScanRow&) { throw std::runtime_error("left"); };
    EXPECT_THROW(db->Scan("SELECT * FROM [Town list]", {}, leave), std::runtime_error);
    AddTown(*other, "Kiel");
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(DatabaseTest, refuses_a_scan_that_it_does_not_understand) {
    const auto scan = [this](const char* sql) {
        return DaoErrorOf([&] { db->Scan(sql, {}, [](const ScanRow&) {}); });
    };
    EXPECT_EQ(scan("SELECT * FROM Villages"), 3078);
    EXPECT_EQ(scan("SELECT Mayor FROM [Town list]"), 3265);
    EXPECT_EQ(scan("SELEKT"), 3075);
    EXPECT_EQ(scan(""), 3075);
}

TEST_F(DatabaseTest, answers_unordered_rows_backwards_where_tests_want_it) {
    AddTown("Ulm");
    AddTown("Bonn");
    std::string seen;
    db->Scan("SELECT * FROM [Town list]", {},
             [&](const ScanRow& row) { seen += std::to_string(row.Long(0)); });
    EXPECT_EQ(seen, test::TestOptions().reverseUnorderedSelects ? "21" : "12");
}

// --- keeping files whole ----------------------------------------------------------------------------------

TEST_F(DatabaseTest, is_compacted_into_a_smaller_copy) {
    FillDays(1000);
    AddTown("Ulm");
    AddTown("Bonn");
    Recordset towns = db->OpenRecordset("Town list");
    towns.MoveLast();
    towns.Delete();
    {
        Transaction all(*db);
        for (Recordset shifts = db->OpenRecordset("Shift list"); !shifts.AtEnd(); shifts.MoveNext())
            if (shifts.Fields("Day").Long() != 7) shifts.Delete();
        all.Commit();
    }
    db.reset();
    const fs::path copy = folder / "it's a copy.mdb";
    engine.CompactDatabase(file, copy);
    EXPECT_LT(fs::file_size(copy), fs::file_size(file));
    db = engine.OpenDatabase(copy);
    EXPECT_EQ(TownNames() + All("Shift list"), "Ulm 7 ");
    ExpectSame(db->Table("Shift list"), test::ShiftList());
    AddTown("Kiel");
    EXPECT_EQ(All("Town list"), "1 3 ") << "numbers are not given again";
}

TEST_F(DatabaseTest, is_not_compacted_over_another_file) {
    test::WriteFile(folder / "other", "old");
    EXPECT_EQ(DaoErrorOf([&] { engine.CompactDatabase(file, folder / "other"); }), 3204);
    EXPECT_EQ(test::ReadFile(folder / "other"), "old");
    EXPECT_EQ(DaoErrorOf([&] { engine.CompactDatabase(folder / "missing", folder / "copy"); }), 3024);
    EXPECT_FALSE(fs::exists(folder / "copy"));
}

TEST_F(DatabaseTest, leaves_no_part_of_a_compact_copy) {
    FillDays(1000);
    db.reset();
    const auto compact = [this] {
        return DaoErrorOf([&] { engine.CompactDatabase(file, folder / "copy"); }) != 0 ? "refused" : "done";
    };
    EXPECT_EQ(test::AskOnFullDisk(8192, compact), "refused");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"t.mdb"});
}

TEST_F(DatabaseTest, is_repaired_when_an_index_does_not_fit_its_table) {
    AddShift(1, 7, "late");
    AddShift(1, 8, "early");
    db.reset();
    // The index is declared anew over another field, and keeps its old entries.
    test::RunSql(file, "PRAGMA writable_schema = ON;"
                       "UPDATE sqlite_schema SET sql = 'CREATE INDEX [Shift list.By worker] ON "
                       "[Shift list] ([Label], [Day])' WHERE name = 'Shift list.By worker'");
    ASSERT_NE(test::AskSql(file, "PRAGMA integrity_check"), "ok");
    engine.RepairDatabase(file);
    EXPECT_EQ(test::AskSql(file, "PRAGMA integrity_check"), "ok");
    db = engine.OpenDatabase(file);
    Recordset shifts = db->OpenRecordset("Shift list");
    shifts.Index("By worker");
    shifts.Seek({"early"});
    EXPECT_EQ(shifts.Fields("Worker").Long(), 8);
}

TEST_F(DatabaseTest, is_the_same_after_a_repair_that_was_not_needed) {
    AddTown("Ulm");
    db.reset();
    engine.RepairDatabase(file);
    db = engine.OpenDatabase(file);
    EXPECT_EQ(TownNames(), "Ulm ");
}

} // namespace
} // namespace tvx::dao
