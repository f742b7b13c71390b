#include "platform/files/SequentialFile.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/TemporaryName.h"
#include "platform/files/WholeFile.h"
#include "support/ChildProcess.h"
#include "support/FileTrouble.h"
#include "support/Random.h"
#include "support/ReadFault.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using Names = std::vector<std::string>;
using test::NumberOf;

// --- reading ----------------------------------------------------------------------------------------------

std::string TextIn(const std::string& content) {
    return SequentialReader::FromText(content).InputText();
}
double NumberIn(const std::string& content) {
    return SequentialReader::FromText(content).InputNumber();
}

TEST(SequentialReader, reads_lines_and_lists_alike) {
    for (const char* content :
         {"5\r\n\"a, b\"\r\n-7.5\r\n", "5,\"a, b\",-7.5", " 5 , \"a, b\" , -7.5 \r\n"}) {
        SequentialReader file = SequentialReader::FromText(content);
        EXPECT_EQ(file.InputNumber(), 5) << content;
        EXPECT_EQ(file.InputText(), "a, b") << content;
        EXPECT_EQ(file.InputNumber(), -7.5) << content;
        EXPECT_EQ(NumberOf([&] { file.InputText(); }), 62) << content;
    }
}

TEST(SequentialReader, runs_a_quoted_text_to_its_closing_quote) {
    EXPECT_EQ(TextIn("\"Arial, narrow\",9"), "Arial, narrow");
    EXPECT_EQ(TextIn("  \" kept \" "), " kept ");
    EXPECT_EQ(TextIn("\"\",1"), "");
    EXPECT_EQ(TextIn("\"two\r\nlines\""), "two\r\nlines");
    EXPECT_EQ(TextIn("\"never closed"), "never closed");
}

TEST(SequentialReader, runs_a_bare_text_to_the_comma_or_line_end) {
    EXPECT_EQ(TextIn("Times New Roman  ,9"), "Times New Roman");
    EXPECT_EQ(TextIn("  Arial\r\n9"), "Arial");
    EXPECT_EQ(TextIn("Arial\n9"), "Arial");
    EXPECT_EQ(TextIn("12\" board"), "12\" board"); // a quote in the middle is a character like others
    EXPECT_EQ(TextIn("Arial"), "Arial");
}

TEST(SequentialReader, breaks_a_bare_font_name_at_its_comma) {
    SequentialReader file = SequentialReader::FromText("Arial, narrow\r\n9\r\n");
    EXPECT_EQ(file.InputText(), "Arial");
    EXPECT_EQ(file.InputNumber(), 0);
    EXPECT_EQ(file.InputNumber(), 9);
}

TEST(SequentialReader, ends_a_number_at_a_blank_comma_or_line_end) {
    SequentialReader file = SequentialReader::FromText("1 2\t3,4\r\n5\n6");
    for (int expected = 1; expected <= 6; ++expected) EXPECT_EQ(file.InputNumber(), expected);
    EXPECT_TRUE(file.AtEnd());
}

TEST(SequentialReader, reads_a_text_that_is_no_number_as_zero) {
    EXPECT_EQ(NumberIn("nine,9"), 0);
    EXPECT_EQ(NumberIn("\"nine\""), 0);
    EXPECT_EQ(NumberIn("\"9 lives\""), 9);
    EXPECT_EQ(NumberIn(",9"), 0);
    EXPECT_EQ(NumberIn("#TRUE#"), -1);
    EXPECT_EQ(NumberIn("#FALSE#"), 0);
}

TEST(SequentialReader, fails_with_62_past_the_end) {
    for (const char* content : {"", " ", "\r\n", " \t\r\n\n"}) {
        EXPECT_EQ(NumberOf([&] { TextIn(content); }), 62);
        EXPECT_EQ(NumberOf([&] { NumberIn(content); }), 62);
    }
    SequentialReader file = SequentialReader::FromText("1\r\n");
    EXPECT_FALSE(file.AtEnd());
    file.InputNumber();
    EXPECT_TRUE(file.AtEnd());
    EXPECT_EQ(NumberOf([&] { file.InputNumber(); }), 62);
    EXPECT_EQ(NumberOf([&] { file.InputNumber(); }), 62) << "and again";
}

class SequentialFileTest : public testing::Test {
  protected:
    test::TempFolder folder;
    const fs::path file = folder / "Shift.txt";

    int OpeningFailsWith() const {
        return NumberOf([this] { SequentialReader reader(file); });
    }
};

TEST_F(SequentialFileTest, opens_with_53_a_file_that_is_missing) {
    EXPECT_EQ(OpeningFailsWith(), 53);
}

TEST_F(SequentialFileTest, opens_with_75_what_cannot_be_read) {
    fs::create_directory(file);
    EXPECT_EQ(OpeningFailsWith(), 75);
}

TEST_F(SequentialFileTest, does_not_wait_for_a_pipe_that_nobody_writes) {
    ASSERT_EQ(mkfifo(file.c_str(), 0666), 0);
    test::ChildProcess other(
        [this](test::ChildProcess& test) { test.Say(std::to_string(OpeningFailsWith())); });
    EXPECT_EQ(other.Hear(), "75");
}

TEST_F(SequentialFileTest, opens_with_75_the_closed_file_of_another) {
    folder.OpenToAll();
    test::WriteFile(file, "1");
    fs::permissions(file, fs::perms::owner_read);
    EXPECT_EQ(test::AskAnotherUser([this] { return std::to_string(OpeningFailsWith()); }), "75");
}

TEST_F(SequentialFileTest, opens_with_75_what_fails_at_any_read) {
    test::WriteFile(file, std::string(200000, 'x'));
    int met = 0;
    for (const int code : {EIO, EACCES, ENFILE, ESTALE, ENOMEM})
        for (int call = 0; call <= 5; ++call) {
            const test::ReadFault fault("Shift.txt", call, code);
            EXPECT_EQ(OpeningFailsWith(), 75) << "call " << call << ", error " << code;
            met += fault.Met();
        }
    std::cout << met << " faults met at the opening and the five reads of a file of 200,000 bytes\n";
    EXPECT_EQ(met, 30);
}

TEST_F(SequentialFileTest, reads_on_after_a_signal) {
    test::WriteFile(file, "12\r\n");
    const test::ReadFault fault("Shift.txt", 1, EINTR);
    EXPECT_EQ(SequentialReader(file).InputNumber(), 12);
    EXPECT_EQ(fault.Met(), 1);
}

TEST_F(SequentialFileTest, opens_with_75_a_file_of_more_than_1_MB_without_reading_it_whole) {
    test::WriteFile(file, std::string(1024 * 1024, '1'));
    EXPECT_EQ(OpeningFailsWith(), 0);
    test::WriteFile(file, std::string(1024 * 1024 + 1, '1'));
    EXPECT_EQ(OpeningFailsWith(), 75);
    fs::resize_file(file, 2ULL * 1024 * 1024 * 1024); // holes, so that it takes no room
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(OpeningFailsWith(), 75);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    std::cout << "a side file of 2 GB is refused in " << took.count() << " ms\n";
    EXPECT_LT(took.count(), 500);
}

TEST_F(SequentialFileTest, opens_with_75_a_link_that_leads_nowhere) {
    fs::create_symlink(folder / "gone", file);
    EXPECT_EQ(OpeningFailsWith(), 75);
}

// --- files that a person can list -------------------------------------------------------------------------

const fs::path Corpus = fs::path(TVX_SOURCE_DIR) / "tests/corpus/sequential";

std::vector<fs::path> CorpusFiles() {
    std::vector<fs::path> files;
    for (const std::string& name : test::NamesIn(Corpus))
        if (name.ends_with(".txt")) files.push_back(Corpus / name);
    return files;
}

std::string WithMarkedLineEnds(const std::string& text) {
    std::string marked;
    for (const char c : text) marked += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
    return marked;
}

/// Reads values by the kinds that the list beside the file names, and writes what came in the same form.
std::string ReadLike(const std::string& list, SequentialReader& file) {
    std::string seen;
    for (const std::string& line : Split(list, '\n')) {
        if (line.starts_with("text ")) seen += "text " + WithMarkedLineEnds(file.InputText()) + "\n";
        if (line.starts_with("number ")) seen += "number " + TrimmedNumber(file.InputNumber()) + "\n";
        if (line == "end") seen += NumberOf([&] { file.InputText(); }) == 62 ? "end\n" : "more\n";
    }
    return seen;
}

class CorpusTest : public testing::TestWithParam<fs::path> {};

TEST_P(CorpusTest, is_read_as_the_list_beside_it_says) {
    fs::path beside = GetParam();
    const std::string list = test::ReadFile(beside.replace_extension(".values"));
    SequentialReader file(GetParam());
    EXPECT_EQ(ReadLike(list, file), list);
    EXPECT_EQ(NumberOf([&] { file.InputText(); }), 62);
}

INSTANTIATE_TEST_SUITE_P(Files, CorpusTest, testing::ValuesIn(CorpusFiles()),
                         [](const auto& entry) { return entry.param.stem().string(); });

/// Reads values of both kinds until the end; each read must come on, and only the end may fail.
void ReadToTheEnd(const std::string& content, test::Random& random) {
    SequentialReader file = SequentialReader::FromText(content);
    std::size_t reads = 0;
    try {
        for (; reads <= content.size(); ++reads) {
            if (random.Chance(50))
                ASSERT_LE(file.InputText().size(), content.size());
            else
                ASSERT_TRUE(std::isfinite(file.InputNumber()));
        }
        FAIL() << "more values than bytes";
    } catch (const FileError& trouble) {
        ASSERT_EQ(trouble.Number(), 62);
        ASSERT_TRUE(file.AtEnd());
    }
}

TEST(SequentialReader, comes_to_the_end_of_any_bytes) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int i = 0; i < 5000; ++i) {
        ReadToTheEnd(random.Bytes(100), random);
        ReadToTheEnd(random.TextOf("\"\"\",,\r\n 19.-aE#&H\t", 60), random);
    }
}

TEST(SequentialReader, comes_to_the_end_of_changed_files) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (const fs::path& path : CorpusFiles()) {
        const std::string content = test::ReadFile(path);
        for (int i = 0; i < 300; ++i) ReadToTheEnd(random.Mutated(content), random);
    }
}

// --- writing ----------------------------------------------------------------------------------------------

TEST(SequentialWriter, writes_one_value_a_line) {
    SequentialWriter file;
    file.WriteText("Arial, narrow");
    file.WriteText("");
    file.WriteNumber(-1);
    file.WriteNumber(250);
    file.PrintText("bare text");
    file.PrintNumber(9);
    file.PrintNumber(-1);
    file.PrintNumber(8.25);
    file.PrintNumber(.5);
    EXPECT_EQ(file.Text(), "\"Arial, narrow\"\r\n\"\"\r\n-1\r\n250\r\nbare text\r\n"
                           " 9 \r\n-1 \r\n 8.25 \r\n .5 \r\n");
}

TEST(SequentialWriter, writes_what_the_reader_reads) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    const std::string letters = "abc ,.;#&19\t\r\n\xC3\xA9\xE2\x82\xAC";
    for (int i = 0; i < 2000; ++i) {
        SequentialWriter written;
        std::vector<std::string> expected;
        for (std::int64_t values = random.Whole(0, 12); values > 0; --values) {
            const std::int64_t number = random.Whole(-100000, 100000);
            switch (random.Whole(0, 2)) {
            case 0:
                expected.push_back("t" + random.TextOf(letters, 12));
                written.WriteText(expected.back().substr(1));
                break;
            case 1:
                expected.push_back("n" + TrimmedNumber(static_cast<double>(number)));
                written.WriteNumber(number);
                break;
            default:
                expected.push_back("n" + TrimmedNumber(static_cast<double>(number) / 4));
                written.PrintNumber(static_cast<double>(number) / 4);
            }
        }
        SequentialReader read = SequentialReader::FromText(written.Text());
        for (const std::string& value : expected) {
            ASSERT_FALSE(read.AtEnd());
            ASSERT_EQ(value[0] == 't' ? "t" + read.InputText() : "n" + TrimmedNumber(read.InputNumber()),
                      value)
                << written.Text();
        }
        ASSERT_TRUE(read.AtEnd());
    }
}

SequentialWriter WriterOf(const std::string& text) {
    SequentialWriter writer;
    writer.PrintText(text);
    return writer;
}

TEST_F(SequentialFileTest, makes_a_new_file) {
    WriterOf("new").ReplaceFile(file);
    EXPECT_EQ(test::ReadFile(file), "new\r\n");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
}

TEST_F(SequentialFileTest, replaces_the_whole_file) {
    test::WriteFile(file, "old and much longer than the new one");
    WriterOf("new").ReplaceFile(file);
    EXPECT_EQ(test::ReadFile(file), "new\r\n");
    SequentialWriter().ReplaceFile(file);
    EXPECT_EQ(test::ReadFile(file), "");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
}

TEST_F(SequentialFileTest, is_made_of_the_pieces_in_their_order) {
    ReplaceWholeFile(file, [](const ByteSink& sink) {
        for (const char* piece : {"one, ", "", "two"}) sink(piece);
    });
    EXPECT_EQ(test::ReadFile(file), "one, two");
}

TEST_F(SequentialFileTest, is_as_before_when_the_next_piece_cannot_be_made) {
    test::WriteFile(file, "old");
    const auto fail = [](const ByteSink& sink) {
        sink("new");
        throw std::runtime_error("no second piece");
    };
    EXPECT_THROW(ReplaceWholeFile(file, fail), std::runtime_error);
    EXPECT_EQ(test::ReadFile(file), "old");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
}

TEST_F(SequentialFileTest, fails_with_76_when_the_folder_has_vanished) {
    EXPECT_EQ(NumberOf([&] { WriterOf("new").ReplaceFile(folder / "gone/Shift.txt"); }), 76);
    test::WriteFile(file, "old");
    EXPECT_EQ(NumberOf([&] { WriterOf("new").ReplaceFile(file / "Shift.txt"); }), 76)
        << "a file is no folder";
    EXPECT_EQ(test::ReadFile(file), "old");
}

TEST_F(SequentialFileTest, leaves_the_old_file_on_a_full_disk) {
    test::WriteFile(file, "old");
    const auto save = [this] {
        return std::to_string(NumberOf([&] { WriterOf(std::string(9000, 'x')).ReplaceFile(file); }));
    };
    EXPECT_EQ(test::AskOnFullDisk(0, save), "61");
    EXPECT_EQ(test::AskOnFullDisk(5000, save), "61");
    EXPECT_EQ(test::ReadFile(file), "old");
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
}

TEST_F(SequentialFileTest, leaves_the_old_file_in_the_folder_of_another) {
    test::WriteFile(file, "old");
    fs::permissions(folder.Path(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    EXPECT_EQ(test::AskAnotherUser(
                  [this] { return std::to_string(NumberOf([&] { WriterOf("new").ReplaceFile(file); })); }),
              "70");
    EXPECT_EQ(test::ReadFile(file), "old");
}

TEST_F(SequentialFileTest, does_not_replace_a_folder) {
    fs::create_directory(file);
    EXPECT_EQ(NumberOf([&] { WriterOf("new").ReplaceFile(file); }), 75);
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
}

TEST_F(SequentialFileTest, fails_with_64_on_a_name_too_long) {
    EXPECT_EQ(NumberOf([&] { WriterOf("new").ReplaceFile(folder / std::string(300, 'x')); }), 64);
}

// --- rights, links and what is left -----------------------------------------------------------------------

class ReplacedFileTest : public SequentialFileTest {
  protected:
    static std::string RightsOf(const fs::path& path) {
        struct stat found {};
        stat(path.c_str(), &found);
        std::ostringstream told;
        told << std::oct << (found.st_mode & 07777U) << std::dec << " of " << found.st_uid << ":"
             << found.st_gid;
        return told.str();
    }
    static std::string Mine(const std::string& mode) {
        return mode + " of " + std::to_string(geteuid()) + ":" + std::to_string(getegid());
    }
};

TEST_F(ReplacedFileTest, keeps_its_mode_its_owner_and_its_group) {
    test::WriteFile(file, "old");
    for (const mode_t mode : {0600U, 0640U, 0664U, 0444U, 0666U}) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        ASSERT_TRUE(geteuid() != 0 || chown(file.c_str(), 65534, 65534) == 0);
        const std::string before = RightsOf(file);
        WriterOf("new").ReplaceFile(file);
        EXPECT_EQ(RightsOf(file), before);
    }
}

TEST_F(ReplacedFileTest, that_is_new_in_a_closed_folder_is_for_its_owner_alone) {
    WriterOf("new").ReplaceFile(file);
    EXPECT_EQ(RightsOf(file), Mine("600"));
}

TEST_F(ReplacedFileTest, that_is_new_takes_the_mode_of_the_database_and_the_group_of_the_folder) {
    folder.OpenToAll();
    test::WriteFile(folder / "TVX.MDB", "x");
    for (const char* mode : {"660", "664", "640", "600", "666"}) {
        ASSERT_EQ(chmod((folder / "TVX.MDB").c_str(), static_cast<mode_t>(std::stoul(mode, nullptr, 8))), 0);
        ASSERT_TRUE(geteuid() != 0 || chown(folder.Path().c_str(), static_cast<uid_t>(-1), 65534) == 0);
        WriterOf("new").ReplaceFile(file);
        const std::string group = geteuid() == 0 ? "65534" : std::to_string(getegid());
        EXPECT_EQ(RightsOf(file), std::string(mode) + " of " + std::to_string(geteuid()) + ":" + group);
        fs::remove(file);
    }
}

TEST_F(ReplacedFileTest, that_is_new_in_an_open_folder_without_database_is_made_as_the_users_files_are) {
    folder.OpenToAll();
    test::WriteFile(folder / "plain", "x");
    WriterOf("new").ReplaceFile(file);
    EXPECT_EQ(RightsOf(file), RightsOf(folder / "plain"));
}

TEST_F(ReplacedFileTest, that_is_a_link_stays_one_and_what_it_leads_to_is_written) {
    fs::create_directory(folder / "share");
    test::WriteFile(folder / "share/real", "old");
    ASSERT_EQ(chmod((folder / "share/real").c_str(), 0640), 0);
    fs::create_symlink("share/middle", file);
    fs::create_symlink(folder / "share/real", folder / "share/middle");
    WriterOf("new").ReplaceFile(file);
    EXPECT_EQ(fs::read_symlink(file), "share/middle");
    EXPECT_TRUE(fs::is_symlink(folder / "share/middle"));
    EXPECT_EQ(test::ReadFile(folder / "share/real"), "new\r\n");
    EXPECT_EQ(RightsOf(folder / "share/real"), Mine("640"));
    EXPECT_EQ(test::NamesIn(folder / "share"), (Names{"middle", "real"}));
}

TEST_F(ReplacedFileTest, that_is_a_link_into_a_missing_folder_is_refused_and_stays) {
    fs::create_symlink(folder / "not mounted/real", file);
    EXPECT_EQ(NumberOf([&] { WriterOf("new").ReplaceFile(file); }), 76);
    EXPECT_EQ(fs::read_symlink(file), folder / "not mounted/real");
}

TEST_F(ReplacedFileTest, leaves_nothing_behind_that_the_next_write_does_not_clear) {
    constexpr int Kills = 40;
    std::size_t left = 0;
    for (int round = 0; round < Kills; ++round) {
        test::ChildProcess killed([this](test::ChildProcess& test) {
            ReplaceWholeFile(file, [&](const ByteSink& sink) {
                sink(std::string(100000, 'x'));
                test.Say("half way");
                test.Hear();
            });
        });
        ASSERT_EQ(killed.Hear(), "half way");
        left += test::NamesIn(folder.Path()).size();
        killed.Kill();
        if (round % 2 == 0) continue;
        WriterOf("new").ReplaceFile(file);
        ASSERT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
    }
    std::cout << Kills << " writes killed, " << left << " files seen meanwhile, 0 left\n";
}

class LeftFilesTest : public SequentialFileTest {
  protected:
    /// Made by this test's process, which runs, or by one that is gone.
    std::string NameOf(const std::string& of, bool gone) const {
        std::string name = TemporaryBeside(folder / of).filename().string();
        if (!gone) return name;
        pid_t child = fork();
        if (child == 0) _exit(0);
        waitpid(child, nullptr, 0);
        const std::string mine = "-" + std::to_string(getpid()) + "-";
        return name.replace(name.find(mine), mine.size(), "-" + std::to_string(child) + "-");
    }
    void Make(const std::string& name, int hoursAgo = 0) {
        test::WriteFile(folder / name, "x");
        fs::last_write_time(folder / name, fs::file_time_type::clock::now() - std::chrono::hours(hoursAgo));
        made.push_back(name);
    }
    Names made;
};

TEST_F(LeftFilesTest, are_cleared_when_their_process_is_gone_or_after_a_day) {
    Make(NameOf("TVX.NEW", true));
    Make(NameOf("TVX.NEW", true) + "-journal");
    Make(NameOf("3.SFT", true));
    Make("3.SFT.other-host-17-5.tmp", 25);
    ClearTemporariesIn(folder.Path());
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{});
}

TEST_F(LeftFilesTest, of_those_who_may_still_write_and_of_other_programs_stay) {
    Make(NameOf("3.SFT", false));
    Make("3.SFT.other-host-17-5.tmp", 23);
    for (const char* foreign :
         {"notes.tmp", "3.SFT.draft.tmp", "a-b-c.tmp", "report-1-2.txt", "x-1-.tmp", "TVX.MDB"})
        Make(foreign, 1000);
    std::sort(made.begin(), made.end());
    ClearTemporariesIn(folder.Path());
    ClearTemporariesBeside(folder / "3.SFT");
    EXPECT_EQ(test::NamesIn(folder.Path()), made);
}

TEST_F(LeftFilesTest, of_older_versions_are_cleared_with_the_file_that_they_belong_to) {
    Make("Shift.txt.123456.tmp", 25);
    Make("Other.txt.123456.tmp", 25);
    WriterOf("new").ReplaceFile(file);
    EXPECT_EQ(test::NamesIn(folder.Path()), (Names{"Other.txt.123456.tmp", "Shift.txt"}));
}

// --- two at once ------------------------------------------------------------------------------------------

/// Content that shows whose it is and whether it is whole.
std::string Letter(char writer, std::size_t length) {
    return std::string(length, writer) + "end";
}

bool IsWhole(const std::string& content) {
    const std::size_t length = content.size() < 5 ? 0 : content.size() - 5;
    return content == Letter(content.front(), length) + "\r\n";
}

TEST_F(SequentialFileTest, is_whole_at_any_moment_while_two_workstations_write_it) {
    WriterOf(Letter('c', 10)).ReplaceFile(file);
    const auto writeOften = [this](char writer) {
        return [this, writer](test::ChildProcess& test) {
            for (std::size_t i = 0; i < 150; ++i)
                WriterOf(Letter(writer, 1 + i * 997 % 200000)).ReplaceFile(file);
            test.Say("done");
        };
    };
    test::ChildProcess a(writeOften('a'));
    test::ChildProcess b(writeOften('b'));
    for (int i = 0; i < 500; ++i) ASSERT_TRUE(IsWhole(test::ReadFile(file)));
    EXPECT_EQ(a.Hear(), "done");
    EXPECT_EQ(b.Hear(), "done");
    EXPECT_TRUE(IsWhole(test::ReadFile(file)));
    EXPECT_EQ(test::NamesIn(folder.Path()), Names{"Shift.txt"});
}

} // namespace
} // namespace tvx
