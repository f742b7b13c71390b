#include "platform/files/Folder.h"

#include "support/ChildProcess.h"
#include "support/FileTrouble.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using Names = std::vector<std::string>;
using test::NumberOf;

class FolderTest : public testing::Test {
  protected:
    test::TempFolder folder;
};

TEST_F(FolderTest, finds_a_file_in_any_case) {
    test::WriteFile(folder / "TVX.Mdb", "x");
    EXPECT_EQ(FindFile(folder.Path(), "tvx.mdb"), folder / "TVX.Mdb");
    EXPECT_EQ(FindFile(folder.Path(), "TVX.MDB"), folder / "TVX.Mdb");
    EXPECT_EQ(FindFile(folder.Path(), "TVX.Mdb"), folder / "TVX.Mdb");
}

TEST_F(FolderTest, prefers_the_exact_spelling) {
    for (const char* name : {"tvx.ini", "TVX.INI", "Tvx.ini"}) test::WriteFile(folder / name, name);
    for (const char* name : {"tvx.ini", "TVX.INI", "Tvx.ini"})
        EXPECT_EQ(FindFile(folder.Path(), name), folder / name);
}

TEST_F(FolderTest, finds_nothing_that_is_not_there) {
    test::WriteFile(folder / "TVX.MDB", "x");
    EXPECT_EQ(FindFile(folder.Path(), "TVX.MD"), std::nullopt);
    EXPECT_EQ(FindFile(folder.Path(), "TVX.MDB2"), std::nullopt);
    EXPECT_EQ(FindFile(folder.Path(), ""), std::nullopt);
    EXPECT_EQ(FindFile(folder / "missing", "TVX.MDB"), std::nullopt);
    EXPECT_EQ(FindFile(folder / "TVX.MDB", "TVX.MDB"), std::nullopt) << "a file is no folder";
}

TEST_F(FolderTest, finds_names_with_letters_of_any_language) {
    test::WriteFile(folder / "Büro 1.TXT", "x");
    EXPECT_EQ(FindFile(folder.Path(), "BüRO 1.txt"), folder / "Büro 1.TXT");
    test::WriteFile(folder / "\xFF"
                             "a",
                    "x"); // a name in another code page
    EXPECT_EQ(FindFile(folder.Path(), "\xFF"
                                      "A"),
              folder / "\xFF"
                       "a");
}

TEST_F(FolderTest, finds_nothing_in_a_folder_that_cannot_be_read) {
    folder.OpenToAll();
    fs::create_directory(folder / "closed");
    test::WriteFile(folder / "closed/TVX.MDB", "x");
    fs::permissions(folder / "closed", fs::perms::owner_all);
    EXPECT_EQ(test::AskAnotherUser([&] {
                  return FindFile(folder / "closed", "tvx.mdb") || FileExists(folder / "closed/TVX.MDB")
                             ? "found"
                             : "nothing";
              }),
              "nothing");
}

TEST_F(FolderTest, spells_a_new_file_as_given) {
    EXPECT_EQ(FilePath(folder.Path(), "Shift.txt"), folder / "Shift.txt");
    test::WriteFile(folder / "SHIFT.TXT", "x");
    EXPECT_EQ(FilePath(folder.Path(), "Shift.txt"), folder / "SHIFT.TXT");
}

TEST_F(FolderTest, tells_files_and_folders_that_exist) {
    test::WriteFile(folder / "a", "");
    EXPECT_TRUE(FileExists(folder / "a"));
    EXPECT_TRUE(FileExists(folder.Path()));
    EXPECT_FALSE(FileExists(folder / "b"));
    EXPECT_FALSE(FileExists(folder / "a/b"));
    EXPECT_FALSE(FileExists(""));
}

// --- copying ----------------------------------------------------------------------------------------------

TEST_F(FolderTest, copies_a_file_byte_by_byte) {
    const std::string content = std::string(100000, 'x') + std::string("\0\r\n\xFF", 4);
    test::WriteFile(folder / "from", content);
    CopyWholeFile(folder / "from", folder / "to");
    EXPECT_EQ(test::ReadFile(folder / "to"), content);
    EXPECT_EQ(test::ReadFile(folder / "from"), content);
    EXPECT_EQ(test::NamesIn(folder.Path()), (Names{"from", "to"}));
}

TEST_F(FolderTest, copies_an_empty_file) {
    test::WriteFile(folder / "from", "");
    CopyWholeFile(folder / "from", folder / "to");
    EXPECT_TRUE(FileExists(folder / "to"));
}

TEST_F(FolderTest, does_not_copy_over_a_file) {
    test::WriteFile(folder / "from", "new");
    test::WriteFile(folder / "to", "old");
    EXPECT_EQ(NumberOf([&] { CopyWholeFile(folder / "from", folder / "to"); }), 58);
    EXPECT_EQ(test::ReadFile(folder / "to"), "old");
}

TEST_F(FolderTest, cannot_copy_what_is_missing) {
    EXPECT_EQ(NumberOf([&] { CopyWholeFile(folder / "from", folder / "to"); }), 53);
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{});
}

TEST_F(FolderTest, cannot_copy_a_folder) {
    fs::create_directory(folder / "from");
    EXPECT_EQ(NumberOf([&] { CopyWholeFile(folder / "from", folder / "to"); }), 75);
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"from"});
}

TEST_F(FolderTest, cannot_copy_into_a_folder_that_is_missing) {
    test::WriteFile(folder / "from", "x");
    EXPECT_EQ(NumberOf([&] { CopyWholeFile(folder / "from", folder / "gone/to"); }), 76);
}

TEST_F(FolderTest, makes_a_copy_that_can_be_written) {
    folder.OpenToAll();
    test::WriteFile(folder / "from", "x");
    fs::permissions(folder / "from", fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_EQ(test::AskAnotherUser([&] {
                  CopyWholeFile(folder / "from", folder / "to");
                  test::WriteFile(folder / "to", "changed");
                  return test::ReadFile(folder / "to");
              }),
              "changed");
}

TEST_F(FolderTest, leaves_no_part_of_a_copy_on_a_full_disk) {
    test::WriteFile(folder / "from", std::string(100000, 'x'));
    EXPECT_EQ(
        test::AskOnFullDisk(
            50000,
            [&] { return std::to_string(NumberOf([&] { CopyWholeFile(folder / "from", folder / "to"); })); }),
        "61");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"from"});
}

TEST_F(FolderTest, may_not_copy_into_the_folder_of_another) {
    folder.OpenToAll();
    test::WriteFile(folder / "from", "x");
    fs::create_directory(folder / "closed");
    fs::permissions(folder / "closed",
                    fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    EXPECT_EQ(test::AskAnotherUser([&] {
                  return std::to_string(
                      NumberOf([&] { CopyWholeFile(folder / "from", folder / "closed/to"); }));
              }),
              "70");
}

// --- the program's folder ---------------------------------------------------------------------------------

TEST_F(FolderTest, tries_writing_without_leaving_a_trace) {
    EXPECT_TRUE(CanWriteInto(folder.Path()));
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{});
    EXPECT_FALSE(CanWriteInto(folder / "missing"));
}

class ProgramFolderTest : public FolderTest {
  protected:
    const Names shipped{"TVX.JAN", "tvx.hlp", "notes.txt"};
    const fs::path own = folder / "program";
    const fs::path users = folder / "home/of/user";

    void SetUp() override {
        folder.OpenToAll();
        fs::create_directory(own);
        test::WriteFile(own / "TVX.JAN", "ready-made");
        test::WriteFile(own / "TVX.HLP", "help");
        test::WriteFile(own / "other", "not shipped");
    }
    /// The folder as one finds it who may read but not write beside the program.
    /// What another user is told, to whom the folder of the program is open, or its own, if wished.
    std::string AskOther() const {
        return test::AskAnotherUser([this] { return ProgramFolder(own, users, shipped).string(); });
    }
    std::string AskInstalled() const {
        fs::permissions(own, fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
        return AskOther();
    }
    static unsigned ModeOf(const fs::path& path) {
        return static_cast<unsigned>(fs::status(path).permissions() & fs::perms::mask);
    }
};

TEST_F(ProgramFolderTest, is_where_the_program_lies_when_that_can_be_written) {
    EXPECT_EQ(ProgramFolder(own, users, shipped), own);
    EXPECT_FALSE(FileExists(folder / "home"));
    EXPECT_EQ(test::NamesIn(own), (Names{"TVX.HLP", "TVX.JAN", "other"}));
}

TEST_F(ProgramFolderTest, is_the_users_own_for_an_installed_program) {
    EXPECT_EQ(AskInstalled(), users.string());
    EXPECT_EQ(test::NamesIn(users), (Names{"TVX.JAN", "tvx.hlp"})) << "what is shipped, found in any case";
    EXPECT_EQ(test::ReadFile(users / "TVX.JAN"), "ready-made");
    EXPECT_EQ(test::ReadFile(users / "tvx.hlp"), "help");
}

TEST_F(ProgramFolderTest, is_the_users_own_where_the_program_is_somebody_elses) {
    fs::permissions(own, fs::perms::all);
    EXPECT_EQ(AskOther(), users.string()) << "though everybody may write there";
}

TEST_F(ProgramFolderTest, is_never_where_programs_are_installed) {
    for (const char* place :
         {"/usr", "/usr/bin", "/usr/local/lib/x", "/opt", "/opt/tarvex", "/home/../opt/x"})
        EXPECT_TRUE(IsInstalled(place)) << place;
    for (const char* place : {"/", "/home/usr", "/usrlocal", "/srv/opt", "/usr/../home", "/optional"})
        EXPECT_FALSE(IsInstalled(place)) << place;
}

TEST_F(ProgramFolderTest, that_is_made_is_closed_to_others_with_all_that_is_in_it) {
    AskInstalled();
    EXPECT_EQ(ModeOf(folder / "home"), 0700U);
    EXPECT_EQ(ModeOf(folder / "home/of"), 0700U);
    EXPECT_EQ(ModeOf(users), 0700U);
    EXPECT_EQ(ModeOf(users / "TVX.JAN"), 0600U);
    EXPECT_EQ(ModeOf(folder.Path()), 0777U) << "it was there";
}

TEST_F(ProgramFolderTest, is_filled_once) {
    AskInstalled();
    test::WriteFile(users / "TVX.JAN", "changed by the user");
    fs::remove(users / "tvx.hlp");
    test::WriteFile(users / "Tvx.Hlp", "a spelling of his own");
    AskInstalled();
    EXPECT_EQ(test::NamesIn(users), (Names{"TVX.JAN", "Tvx.Hlp"}));
    EXPECT_EQ(test::ReadFile(users / "TVX.JAN"), "changed by the user");
    EXPECT_EQ(test::ReadFile(users / "Tvx.Hlp"), "a spelling of his own");
}

TEST_F(ProgramFolderTest, gets_later_what_was_missing_at_first) {
    AskInstalled();
    test::WriteFile(own / "notes.txt", "came with an update");
    AskInstalled();
    EXPECT_EQ(test::ReadFile(users / "notes.txt"), "came with an update");
}

TEST(ShippedFolder, is_the_programs_own_or_the_shared_one_of_its_installation) {
    const test::TempFolder folder;
    fs::create_directories(folder / "usr/bin");
    fs::create_directories(folder / "usr/share/tarvex");
    EXPECT_EQ(ShippedFolder(folder / "usr/bin"), folder / "usr/bin") << "the data stays where it was";
    test::WriteFile(folder / "usr/share/tarvex/TVX.JAN", "ready-made");
    EXPECT_EQ(ShippedFolder(folder / "usr/bin"), folder / "usr/share/tarvex");
    test::WriteFile(folder / "usr/bin/tvx.jan", "ready-made");
    EXPECT_EQ(ShippedFolder(folder / "usr/bin"), folder / "usr/bin");
}

TEST_F(ProgramFolderTest, is_answered_even_when_it_cannot_be_made) {
    test::WriteFile(folder / "home", "a file in the way");
    EXPECT_EQ(AskInstalled(), users.string());
    EXPECT_EQ(test::ReadFile(folder / "home"), "a file in the way");
}

} // namespace
} // namespace tvx
