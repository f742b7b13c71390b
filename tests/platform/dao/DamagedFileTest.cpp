#include "platform/dao/ShiftList.h"
#include "support/ChildProcess.h"
#include "support/Random.h"
#include "support/RawFile.h"

#include <gtest/gtest.h>

#include <set>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

using test::DaoErrorOf;
using Names = std::vector<std::string>;

constexpr std::size_t PageSize = 4096;

/// A sound file of some pages, closed, to be damaged.
class DamagedFileTest : public test::DaoTest {
  protected:
    std::string sound;

    void SetUp() override {
        MakeTables();
        for (int i = 1; i <= 30; ++i) AddTown("Town " + std::to_string(i));
        FillDays(3000);
        db.reset();
        sound = test::ReadFile(file);
        ASSERT_GT(sound.size(), 10 * PageSize);
    }
    int OpeningFailsWith() const {
        return DaoErrorOf([this] { engine.OpenDatabase(file); });
    }
    /// The error of opening a file of that content, which must leave the content as it is.
    int OpeningFailsWith(const std::string& content) const {
        test::WriteFile(file, content);
        const int number = OpeningFailsWith();
        EXPECT_TRUE(test::ReadFile(file) == content) << "opening has changed the file";
        EXPECT_EQ(test::NamesIn(folder.Path()), Names{"t.mdb"});
        return number;
    }
};

TEST_F(DamagedFileTest, is_refused_with_3024_when_it_is_missing) {
    fs::remove(file);
    EXPECT_EQ(OpeningFailsWith(), 3024);
    EXPECT_FALSE(fs::exists(file)) << "nothing is made in its place";
    EXPECT_EQ(DaoErrorOf([this] { engine.OpenDatabase(folder / "gone/t.mdb"); }), 3024);
}

TEST_F(DamagedFileTest, is_refused_with_3051_when_it_is_a_folder) {
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_EQ(OpeningFailsWith(), 3051);
    EXPECT_TRUE(fs::is_empty(file));
}

TEST_F(DamagedFileTest, is_refused_with_3343_when_it_is_empty) {
    EXPECT_EQ(OpeningFailsWith(""), 3343);
}

TEST_F(DamagedFileTest, is_refused_with_3343_when_it_is_no_database) {
    EXPECT_EQ(OpeningFailsWith("x"), 3343);
    EXPECT_EQ(OpeningFailsWith("Dear reader,\r\nthis is a letter.\r\n"), 3343);
    EXPECT_EQ(OpeningFailsWith(std::string(100000, 'x')), 3343);
    EXPECT_EQ(OpeningFailsWith(std::string(100000, '\0')), 3343);
    EXPECT_EQ(OpeningFailsWith("SQLite format 2" + sound.substr(15)), 3343);
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 50; ++i) EXPECT_EQ(OpeningFailsWith("!" + random.Bytes(9000)), 3343);
}

TEST_F(DamagedFileTest, is_refused_with_3343_when_it_is_cut_off) {
    for (const std::size_t size :
         {std::size_t{1}, std::size_t{50}, std::size_t{100}, std::size_t{511}, PageSize - 1, PageSize,
          PageSize + 1, sound.size() / 2, sound.size() - PageSize})
        EXPECT_EQ(OpeningFailsWith(sound.substr(0, size)), 3343) << size;
}

TEST_F(DamagedFileTest, is_known_to_be_cut_off_within_a_page_once_it_is_open) {
    test::WriteFile(file, sound.substr(0, sound.size() - 100));
    const auto isWhole = [this] {
        return DaoErrorOf([this] { engine.OpenDatabase(file)->RequireWholeFile(); });
    };
    EXPECT_EQ(isWhole(), 3343);
    test::WriteFile(file, sound);
    EXPECT_EQ(isWhole(), 0);
}

TEST_F(DamagedFileTest, is_read_as_far_as_it_is_sound) {
    std::string damaged = sound;
    const std::size_t from = sound.size() / PageSize / 2 * PageSize;
    for (std::size_t at = from; at < damaged.size(); ++at) damaged[at] = static_cast<char>(at * 37);
    test::WriteFile(file, damaged);
    db = engine.OpenDatabase(file);
    EXPECT_TRUE(TownNames().starts_with("Town 1 Town 2 "));
    Recordset shifts = db->OpenRecordset("Shift list");
    int read = 0;
    const int number = DaoErrorOf([&] {
        for (; !shifts.AtEnd(); shifts.MoveNext()) ++read;
    });
    EXPECT_EQ(number, 3343);
    EXPECT_GT(read, 0);
    EXPECT_EQ(shifts.Fields("Day").Long(), read) << "the set stands where it stood";
    EXPECT_EQ(DaoErrorOf([&] { db->OpenRecordset("SELECT * FROM [Shift list]"); }), 3343);
    EXPECT_EQ(DaoErrorOf([&] { shifts.MoveLast(); }), 3343);
    EXPECT_EQ(DaoErrorOf([&] { db->Scan("SELECT * FROM [Shift list]", {}, [](const ScanRow&) {}); }), 3343);
    db.reset();
    EXPECT_TRUE(test::ReadFile(file) == damaged);
}

TEST_F(DamagedFileTest, is_neither_repaired_nor_compacted_when_its_pages_are_damaged) {
    std::string damaged = sound;
    damaged.replace(sound.size() / 2, 3 * PageSize, std::string(3 * PageSize, '\xA5'));
    test::WriteFile(file, damaged);
    EXPECT_EQ(DaoErrorOf([this] { engine.RepairDatabase(file); }), 3343);
    EXPECT_EQ(DaoErrorOf([this] { engine.CompactDatabase(file, folder / "copy"); }), 3343);
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"t.mdb"});
}

TEST_F(DamagedFileTest, has_no_table_of_ours_when_another_program_made_it) {
    fs::remove(file);
    test::RunSql(
        file, "CREATE TABLE songs (id INTEGER PRIMARY KEY, title TEXT); INSERT INTO songs VALUES (1, 'x')");
    const std::string content = test::ReadFile(file);
    db = engine.OpenDatabase(file);
    EXPECT_EQ(DaoErrorOf([this] { db->OpenRecordset("Town list"); }), 3078);
    EXPECT_EQ(All("songs", 1), "x ");
    db.reset();
    EXPECT_EQ(test::ReadFile(file), content);
}

/// Reads everything that there is, table by table and by select.
void ReadAll(Database& database) {
    for (const std::string& name : database.TableNames()) {
        Recordset set = database.OpenRecordset(name);
        for (std::size_t i = 0; !set.AtEnd() && i < 20000; set.MoveNext(), ++i)
            for (std::size_t field = 0; field < set.FieldCount(); ++field) set.Fields(field).Text();
        database.OpenRecordset("SELECT * FROM " + Bracketed(name) + " ORDER BY 2 DESC");
    }
}

TEST_F(DamagedFileTest, never_stops_the_program_whatever_bytes_changed) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    const std::set<int> known{0, 3000, 3027, 3043, 3075, 3078, 3265, 3343};
    for (int i = 0; i < 150; ++i) {
        std::string damaged = sound;
        const auto last = static_cast<std::int64_t>(random.Chance(50) ? 2 * PageSize : sound.size()) - 1;
        // Byte 18 on tells the kind of journal, which is no damage.
        for (std::int64_t changes = random.Whole(1, 40); changes > 0; --changes)
            damaged[static_cast<std::size_t>(random.Whole(20, last))] =
                static_cast<char>(random.Whole(0, 255));
        test::WriteFile(file, damaged);
        const int number = DaoErrorOf([this] { ReadAll(*engine.OpenDatabase(file)); });
        ASSERT_TRUE(known.contains(number)) << number;
        ASSERT_TRUE(test::ReadFile(file) == damaged) << "reading has changed the file";
    }
}

TEST_F(DamagedFileTest, is_opened_beside_a_leftover_that_is_no_journal) {
    test::WriteFile(folder / "t.mdb-journal", "left over, and of no meaning");
    db = engine.OpenDatabase(file);
    EXPECT_TRUE(TownNames().starts_with("Town 1 Town 2 "));
    AddTown("Kiel");
    db.reset();
    EXPECT_EQ(test::AskSql(file, "PRAGMA integrity_check"), "ok");
}

// --- files of other users ---------------------------------------------------------------------------------

constexpr fs::perms MayRead = fs::perms::owner_all | fs::perms::group_read | fs::perms::others_read;

TEST_F(DamagedFileTest, is_refused_with_3051_when_it_may_not_be_written) {
    folder.OpenToAll();
    fs::permissions(file, MayRead);
    EXPECT_EQ(test::AskAnotherUser([this] { return std::to_string(OpeningFailsWith()); }), "3051");
    EXPECT_TRUE(test::ReadFile(file) == sound);
}

TEST_F(DamagedFileTest, is_refused_with_3051_when_it_may_not_be_read) {
    folder.OpenToAll();
    fs::permissions(file, fs::perms::owner_all);
    EXPECT_EQ(test::AskAnotherUser([this] { return std::to_string(OpeningFailsWith()); }), "3051");
    EXPECT_TRUE(test::ReadFile(file) == sound);
}

TEST_F(DamagedFileTest, can_be_read_but_not_changed_in_a_folder_that_may_not_be_written) {
    fs::permissions(file, fs::perms::all);
    fs::permissions(folder.Path(), MayRead | fs::perms::others_exec);
    const std::string answer = test::AskAnotherUser([this] {
        db = engine.OpenDatabase(file);
        const std::string read = TownNames().substr(0, 7);
        return read + std::to_string(DaoErrorOf([this] { AddTown("Kiel"); }));
    });
    EXPECT_EQ(answer, "Town 1 3027");
    EXPECT_TRUE(test::ReadFile(file) == sound);
}

TEST_F(DamagedFileTest, cannot_be_made_in_a_folder_that_may_not_be_written) {
    fs::permissions(folder.Path(), MayRead | fs::perms::others_exec);
    EXPECT_EQ(test::AskAnotherUser([this] {
                  return std::to_string(DaoErrorOf([this] { engine.CreateDatabase(folder / "new.mdb"); }));
              }),
              "3051");
}

} // namespace
} // namespace tvx::dao
