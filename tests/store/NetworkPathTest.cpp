#include "store/NetworkPath.h"

#include "platform/files/FileError.h"
#include "platform/files/SequentialFile.h"
#include "support/Random.h"
#include "support/ReadFault.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

class NetworkPathTest : public testing::Test {
  protected:
    test::TempFolder folder;

    NetworkPathFile Read(const std::string& content) {
        test::WriteFile(folder / "NetworkPath.DAT", content);
        const auto file = ReadNetworkPath(folder.Path());
        EXPECT_TRUE(file.has_value());
        return file.value_or(NetworkPathFile());
    }
    /// What reading the file throws; "" when it is read.
    std::string Trouble() const {
        try {
            ReadNetworkPath(folder.Path());
            return "";
        } catch (const FileError& trouble) {
            return trouble.what();
        }
    }
    std::string TroubleOf(const std::string& content) {
        test::WriteFile(folder / "NetworkPath.DAT", content);
        return Trouble();
    }
};

TEST_F(NetworkPathTest, is_nothing_without_a_file) {
    EXPECT_FALSE(ReadNetworkPath(folder.Path()).has_value());
    EXPECT_FALSE(ReadNetworkPath("/no/such/folder").has_value());
}

TEST_F(NetworkPathTest, holds_the_folder_and_the_flags) {
    struct Case {
        const char* content;
        const char* path;
        int flags;
    };
    const Case cases[] = {
        {"\"/srv/plan\"\r\n32\r\n", "/srv/plan", 32},
        {"\"/srv/plan\"\n32\n", "/srv/plan", 32},
        {"\"/srv/plan\",32", "/srv/plan", 32},
        {"/srv/plan\r\n0\r\n", "/srv/plan", 0},
        {"\"/srv/our plan, 2nd floor\"\r\n127\r\n", "/srv/our plan, 2nd floor", 127},
        {"\"/srv/\xC3\x9C"
         "bung\"\r\n1\r\n",
         "/srv/\xC3\x9C"
         "bung",
         1},
        {"\"/srv/plan\"\r\nnone\r\n", "/srv/plan", 0},  // no number
        {"\"/srv/plan\"\r\n-5\r\n", "/srv/plan", 0},    // below all bits
        {"\"/srv/plan\"\r\n128\r\n", "/srv/plan", 127}, // above them
        {"\"/srv/plan\"\r\n9E99\r\n", "/srv/plan", 127},
        {"\"/srv/plan\"\r\n32.5\r\n", "/srv/plan", 32},
        {"\"\"\r\n3\r\n", "", 0},
        {"\"\"\r\n", "", 0},
        {"\r\n\r\n", "", 0},
        {"  \r\n3\r\n", "", 0},
    };
    for (const Case& c : cases) {
        const NetworkPathFile file = Read(c.content);
        EXPECT_EQ(file.databasePath, c.path) << c.content;
        EXPECT_EQ(file.flags, c.flags) << c.content;
    }
}

TEST_F(NetworkPathTest, is_found_in_any_spelling) {
    for (const char* name : {"networkpath.dat", "NETWORKPATH.DAT", "NetworkPath.dat"}) {
        test::WriteFile(folder / name, "\"/srv/plan\"\r\n4\r\n");
        EXPECT_EQ(ReadNetworkPath(folder.Path())->flags, 4) << name;
        fs::remove(folder / name);
    }
}

TEST_F(NetworkPathTest, reads_back_what_was_written_as_two_lines) {
    for (int flags = 0; flags <= 127; ++flags) {
        SequentialWriter writer;
        writer.WriteText("/srv/share " + std::to_string(flags));
        writer.WriteNumber(flags);
        const NetworkPathFile file = Read(writer.Text());
        ASSERT_EQ(file.databasePath, "/srv/share " + std::to_string(flags));
        ASSERT_EQ(file.flags, flags);
    }
}

TEST_F(NetworkPathTest, that_lacks_a_line_is_trouble_and_not_an_empty_path) {
    for (const std::string& content :
         {std::string(), std::string("   "), std::string("\"/srv/plan\"\r\n"), std::string("\"/srv/plan"),
          std::string("/srv"), std::string("\"/never closed\r\n32\r\n"), std::string(4096, '\0')}) {
        EXPECT_NE(TroubleOf(content).find((folder / "NetworkPath.DAT").string()), std::string::npos)
            << content;
        EXPECT_EQ(test::ReadFile(folder / "NetworkPath.DAT"), content);
    }
}

TEST_F(NetworkPathTest, that_cannot_be_read_is_trouble_and_not_missing) {
    const std::string path = (folder / "NetworkPath.DAT").string();
    for (const int code : {EIO, EACCES, ENFILE, EMFILE, ESTALE, ELOOP, ENOMEM})
        for (int call = 0; call <= 2; ++call) {
            const test::ReadFault fault("NetworkPath.DAT", call, code);
            EXPECT_NE(TroubleOf("\"/srv/plan\"\r\n32\r\n").find(path), std::string::npos) << code << call;
            EXPECT_EQ(fault.Met(), 1);
        }
    fs::remove(path);
    fs::create_directory(path);
    EXPECT_NE(Trouble().find(path), std::string::npos) << "a folder";
    fs::remove(path);
    fs::create_symlink(folder / "not mounted", path);
    EXPECT_NE(Trouble().find(path), std::string::npos) << "a link that leads nowhere";
    fs::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_NE(Trouble().find(path), std::string::npos) << "a pipe";
}

TEST_F(NetworkPathTest, over_1_MB_is_a_damaged_one) {
    EXPECT_NE(TroubleOf("\"/srv/plan\"\r\n32\r\n" + std::string(1024 * 1024, ' ')).find("too large"),
              std::string::npos);
}

TEST_F(NetworkPathTest, of_any_bytes_gives_flags_that_exist) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 3000; ++round) {
        const std::string content =
            round % 2 == 0 ? random.Bytes(80) : random.Mutated("\"/srv/plan, east\"\r\n96\r\n");
        test::WriteFile(folder / "NetworkPath.DAT", content);
        if (!Trouble().empty()) continue;
        const NetworkPathFile file = ReadNetworkPath(folder.Path()).value_or(NetworkPathFile());
        ASSERT_GE(file.flags, 0);
        ASSERT_LE(file.flags, 127);
        ASSERT_LE(file.databasePath.size(), content.size());
    }
}

} // namespace
} // namespace tvx
