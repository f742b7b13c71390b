#include "platform/dao/SelectText.h"
#include "platform/dao/ShiftList.h"
#include "platform/dao/SqliteSession.h"
#include "support/FailingSession.h"

#include <gtest/gtest.h>

namespace tvx::dao {
namespace {

using test::Call;
using test::DaoErrorOf;

// --- the words of an engine -------------------------------------------------------------------------------

/// As many servers write names, marks and types.
class ServerWords final : public Dialect {
  public:
    std::string Name(std::string_view name) const override { return '"' + std::string(name) + '"'; }
    std::string Mark(std::size_t number) const override { return "$" + std::to_string(number); }
    std::string RowKey() const override { return "ctid"; }
    std::string DeclaredType(const FieldDef& field) const override {
        return field.type == FieldType::Text ? "VARCHAR(" + std::to_string(field.width) + ")" : "BIGINT";
    }
    std::string WithoutCase() const override { return " COLLATE \"any_case\""; }
    std::string NameOrder() const override { return "COLLATE \"und-x-icu\""; }
    std::string CountedKey() const override { return " PRIMARY KEY GENERATED ALWAYS AS IDENTITY"; }
    std::string StoredByKey() const override { return ""; }
};

TEST(InDialect, writes_names_and_marks_as_the_engine_wants_them) {
    EXPECT_EQ(InDialect("SELECT [Day], x FROM [Shift list] WHERE [Day] >= ? AND [Label] = '[?]' OR x = ?",
                        ServerWords()),
              "SELECT \"Day\", x FROM \"Shift list\" WHERE \"Day\" >= $1 AND \"Label\" = '[?]' OR x = $2");
    EXPECT_EQ(InDialect("ORDER BY [Day] _names_ DESC", ServerWords()),
              "ORDER BY \"Day\" COLLATE \"und-x-icu\" DESC");
    EXPECT_EQ(InDialect("SELECT _rowid_ FROM [Log]", ServerWords()), "SELECT ctid FROM \"Log\"");
}

TEST(InDialect, leaves_a_text_as_it_is_where_the_engine_writes_the_same) {
    const std::string sql = "SELECT _rowid_, [Day] FROM [Shift list] WHERE ([Day], Worker) > (?, ?) LIMIT 1";
    EXPECT_EQ(InDialect(sql, SqliteDialect()), sql);
}

TEST(InDialect, refuses_what_is_left_open) {
    EXPECT_EQ(DaoErrorOf([] { InDialect("SELECT [Day", ServerWords()); }), 3075);
    EXPECT_EQ(DaoErrorOf([] { InDialect("SELECT 'x", ServerWords()); }), 3075);
}

TEST(CreateStatements, declare_a_table_in_the_words_of_the_engine) {
    const std::vector<std::string> statements = CreateStatements(test::TownList(), ServerWords());
    ASSERT_EQ(statements.size(), 2U);
    EXPECT_EQ(InDialect(statements[0], ServerWords()),
              "CREATE TABLE \"Town list\" (\"Town number\" BIGINT CONSTRAINT \"Nbr\" PRIMARY KEY GENERATED"
              " ALWAYS AS IDENTITY, \"Town name\" VARCHAR(12) COLLATE \"any_case\", \"Open\" BIGINT NOT NULL"
              " DEFAULT 0, \"Hours\" BIGINT)");
    EXPECT_EQ(InDialect(statements[1], ServerWords()),
              "CREATE INDEX \"Town list.By name\" ON \"Town list\" (\"Town name\")");
}

// --- faults -----------------------------------------------------------------------------------------------

class FailingSessionTest : public test::DaoTest {
  protected:
    std::shared_ptr<test::Faults> faults = std::make_shared<test::Faults>();

    void SetUp() override {
        engine = Engine(test::TestOptions(), FailingSessions(faults));
        MakeTables();
        AddTown("Ulm");
    }
    void AddTwoTowns() {
        Transaction all(*db);
        AddTown("Bonn");
        AddTown("Kiel");
        all.Commit();
    }
    /// Fails each call of that kind while two towns are added, and sees that none of them stays.
    int FailEach(Call call, int number) {
        const auto add = [this] { met = DaoErrorOf([this] { AddTwoTowns(); }); };
        return FailEachInTurn(*faults, call, number, add, [&](int nth) {
            EXPECT_EQ(met, number) << nth;
            EXPECT_FALSE(db->InTransaction()) << nth;
            EXPECT_EQ(TownNames(), "Ulm ") << nth;
        });
    }
    int met = 0;
};

TEST_F(FailingSessionTest, leaves_the_rows_as_they_were_whichever_call_fails) {
    EXPECT_EQ(FailEach(Call::Begin, 3260), 1);
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ") << "the run that met no fault";
}

TEST_F(FailingSessionTest, leaves_the_rows_as_they_were_when_the_end_fails) {
    EXPECT_EQ(FailEach(Call::Commit, 3043), 1);
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(FailingSessionTest, leaves_the_rows_as_they_were_at_every_step) {
    EXPECT_GE(FailEach(Call::Step, 3026), 2);
    EXPECT_EQ(TownNames(), "Ulm Bonn Kiel ");
}

TEST_F(FailingSessionTest, tells_a_text_that_cannot_be_prepared) {
    faults->Fail(Call::Prepare, 1, 3035);
    EXPECT_EQ(DaoErrorOf([this] { db->OpenRecordset("SELECT [Open] FROM [Town list]"); }), 3035);
    EXPECT_TRUE(faults->Met());
    EXPECT_EQ(All("SELECT [Open] FROM [Town list]"), "-1 ") << "the next time it works";
}

TEST_F(FailingSessionTest, keeps_a_change_pending_whose_write_failed) {
    Recordset towns = db->OpenRecordset("Town list");
    towns.MoveFirst();
    towns.Edit();
    towns.Fields("Town name") = "Trier";
    faults->Fail(Call::Step, 1, 3260);
    EXPECT_EQ(DaoErrorOf([&] { towns.Update(); }), 3260);
    towns.Update();
    EXPECT_EQ(TownNames(), "Trier ");
}

TEST_F(FailingSessionTest, reads_nothing_when_a_table_is_opened) {
    faults->Fail(Call::Step, 1, 3260);
    Recordset towns = db->OpenRecordset("Town list");
    towns.Index("Nbr");
    EXPECT_EQ(faults->Count(Call::Step), 0);
    EXPECT_EQ(DaoErrorOf([&] { towns.BOF(); }), 3260);
    EXPECT_FALSE(towns.BOF()) << "the second time it is read";
    EXPECT_EQ(towns.Fields("Town name").Text(), "Ulm");
}

TEST_F(FailingSessionTest, makes_no_part_of_a_table) {
    const TableDef log{"Log", {{"Line", FieldType::Text, 9}}, {}, {{"By line", {"Line"}}}};
    int number = 0;
    const auto make = [&] { number = DaoErrorOf([&] { db->CreateTable(log); }); };
    const int failed = FailEachInTurn(*faults, Call::Step, 3026, make, [&](int nth) {
        EXPECT_EQ(number, 3026) << nth;
        EXPECT_FALSE(db->HasTable("Log")) << nth;
    });
    EXPECT_EQ(failed, 2) << "the table and its index";
    EXPECT_TRUE(db->HasTable("Log"));
}

TEST_F(FailingSessionTest, opens_no_file_that_another_workstation_holds) {
    const Engine held(test::TestOptions(),
                      [](const auto&, const auto&, FileMode) -> std::unique_ptr<Session> {
                          throw DaoError(error::CouldNotLock, "locked");
                      });
    EXPECT_EQ(DaoErrorOf([&] { held.OpenDatabase(file); }), 3045);
}

} // namespace
} // namespace tvx::dao
