#include "platform/dao/Connection.h"
#include "platform/dao/ShiftList.h"
#include "platform/dao/SqliteSession.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <list>

namespace tvx::dao {
namespace {

constexpr std::size_t MostKept = 64;

std::string TextOf(int number) {
    return "SELECT " + std::to_string(number) + " + count(*) FROM [Town list]";
}

class KeptStatementsTest : public test::DaoTest {
  protected:
    Connection connection{OpenSqliteSession(MadeFile(), test::TestOptions(), FileMode::Existing)};

    std::filesystem::path MadeFile() {
        MakeTables();
        return file;
    }
    void SetUp() override {}
    std::int64_t Answer(int number) {
        StatementUse use(connection, TextOf(number));
        return use.Step() ? std::get<std::int64_t>(ColumnValue(use.Row(), 0, FieldType::Memo)) : -1;
    }
};

TEST_F(KeptStatementsTest, are_bounded_however_many_texts_are_run) {
    for (int i = 1; i <= 5000; ++i) {
        ASSERT_EQ(Answer(i), i);
        ASSERT_LE(connection.KeptCount(), MostKept);
    }
    EXPECT_EQ(connection.KeptCount(), MostKept);
}

TEST_F(KeptStatementsTest, are_one_for_a_text_that_is_run_again) {
    Answer(0);
    const std::size_t before = connection.KeptCount();
    for (int i = 1; i <= 100; ++i) Answer(0);
    EXPECT_EQ(connection.KeptCount(), before);
}

TEST_F(KeptStatementsTest, let_the_one_go_that_was_not_needed_for_longest) {
    const auto handleOf = [this](int number) { return &StatementUse(connection, TextOf(number)).Row(); };
    const Statement* needed = handleOf(0);
    for (int i = 1; i <= 500; ++i) {
        Answer(i);
        ASSERT_EQ(handleOf(0), needed) << "prepared anew after " << i;
    }
}

TEST_F(KeptStatementsTest, do_not_count_while_they_are_in_use) {
    std::list<StatementUse> uses;
    for (int i = 1; i <= 200; ++i) ASSERT_TRUE(uses.emplace_back(connection, TextOf(i)).Step());
    for (int i = 201; i <= 400; ++i) Answer(i);
    int number = 0;
    for (StatementUse& use : uses)
        ASSERT_EQ(ColumnValue(use.Row(), 0, FieldType::Memo), Value(std::int64_t{++number}));
    uses.clear();
    EXPECT_EQ(connection.KeptCount(), MostKept);
}

TEST_F(KeptStatementsTest, may_be_in_use_when_the_file_is_closed) {
    {
        StatementUse use(connection, TextOf(1));
        ASSERT_TRUE(use.Step());
        connection.Close();
    }
    EXPECT_EQ(test::DaoErrorOf([this] { Answer(1); }), 3420);
}

TEST_F(KeptStatementsTest, cost_no_memory_that_grows_with_the_selects_opened) {
    const auto open = [this](int from, int count) {
        for (int i = from; i < from + count; ++i)
            db->OpenRecordset("SELECT * FROM [Shift list] WHERE [Day] = " + std::to_string(i));
    };
    open(0, 100);
    const auto before = sqlite3_memory_used();
    open(100, 5000);
    EXPECT_LT(sqlite3_memory_used() - before, 500'000);
}

} // namespace
} // namespace tvx::dao
