#include "reports/page/ReportSettingsFile.h"

#include "platform/basic/Number.h"
#include "platform/files/FileError.h"
#include "support/ChildProcess.h"
#include "support/Random.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace tvx {
namespace {

/// "Arial, 9, bold, italic, landscape": what is held, in one line.
std::string Told(const ReportSettings& s) {
    return "'" + s.font.name + "' " + TrimmedNumber(s.font.size) + (s.font.bold ? " bold" : "") +
           (s.font.italic ? " italic" : "") + (s.ReportOrientation == 0 ? " portrait" : " landscape");
}

class ReportSettingsFileTest : public testing::Test {
  protected:
    test::TempFolder folder;
    ReportSettings held;

    std::filesystem::path File(std::string_view extension = report_file::Short) const {
        Paths paths;
        paths.ProgramPath = folder.Path();
        return ReportSettingsPath(paths, 12, extension);
    }
    ReportSettings& Held() { return held; }
    void Put(std::string_view content) { test::WriteFile(folder / "12.Sho", content); }
    std::string Read() {
        ReadReportSettings(File(), held);
        return Told(Held());
    }
    void HoldAnother() { Held() = {{"Courier New", 14, true, true}, 1}; }
};

// ---- writing ----

TEST_F(ReportSettingsFileTest, holds_eight_lines) {
    Held() = {{"Times New Roman", 11.5, true, false}, 1};
    WriteReportSettings(File(), held);
    EXPECT_EQ(test::ReadFile(folder / "12.Sho"),
              "Times New Roman\r\n 11.5 \r\n-1 \r\n 0 \r\n 1 \r\n 0 \r\n 0 \r\n 0 \r\n");
}

TEST_F(ReportSettingsFileTest, is_named_for_the_department_and_the_kind_of_report) {
    for (const auto extension :
         {report_file::Long, report_file::Short, report_file::Selected, report_file::Departments,
          report_file::BarChart, report_file::DayGraph, report_file::Employees})
        WriteReportSettings(File(extension), held);
    EXPECT_EQ(test::NamesIn(folder.Path()), (std::vector<std::string>{"12.Bar", "12.Dep", "12.Emp", "12.Lon",
                                                                      "12.One", "12.Sho", "12.gra"}));
}

TEST_F(ReportSettingsFileTest, comes_back_as_it_was_written) {
    for (const bool flag : {false, true})
        for (const double size : {8.0, 8.25, 72.0}) {
            Held() = {{"DejaVu Sans Mono", size, flag, !flag}, flag ? 1 : 0};
            const std::string before = Told(Held());
            WriteReportSettings(File(), held);
            Held() = {};
            EXPECT_EQ(Read(), before);
        }
}

TEST_F(ReportSettingsFileTest, is_found_in_any_spelling_and_kept_in_it) {
    test::WriteFile(folder / "12.SHO", "Courier New\r\n 10 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
    EXPECT_EQ(Read(), "'Courier New' 10 portrait");
    WriteReportSettings(File(), held);
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"12.SHO"});
}

// ---- reading ----

TEST_F(ReportSettingsFileTest, that_is_missing_gives_the_defaults_in_a_fresh_run) {
    Held().font.size = 33;
    Held().ReportOrientation = 1;
    EXPECT_EQ(Read(), "'' 9 portrait");
    EXPECT_EQ(FontOfSettings(Held()).name, "Arial") << "a document keeps the font that it was made with";
}

TEST_F(ReportSettingsFileTest, that_is_missing_leaves_the_font_of_the_report_before) {
    HoldAnother();
    EXPECT_EQ(Read(), "'Courier New' 14 bold italic landscape");
}

TEST_F(ReportSettingsFileTest, that_ends_early_leaves_what_it_does_not_tell) {
    HoldAnother();
    Put("Times New Roman\r\n 8 \r\n");
    EXPECT_EQ(Read(), "'Times New Roman' 8 bold italic landscape");
}

TEST_F(ReportSettingsFileTest, that_is_empty_gives_the_defaults_in_a_fresh_run) {
    Held().font.italic = true;
    Put("");
    EXPECT_EQ(Read(), "'' 9 portrait");
}

TEST_F(ReportSettingsFileTest, whose_fifth_line_is_above_1_is_landscape) {
    Put("Arial\r\n 9 \r\n 0 \r\n 0 \r\n 7 \r\n 0 \r\n 0 \r\n 0 \r\n");
    EXPECT_EQ(Read(), "'Arial' 9 landscape");
}

TEST_F(ReportSettingsFileTest, whose_lines_are_no_numbers_holds_zeros) {
    HoldAnother();
    Put("Arial\r\nbig\r\nyes\r\nno\r\nacross\r\n\r\n\r\n\r\n");
    EXPECT_EQ(Read(), "'Arial' 0 portrait");
    EXPECT_EQ(FontOfSettings(Held()).size, 9) << "no letters are drawn of that size";
}

TEST_F(ReportSettingsFileTest, is_read_alike_when_its_values_stand_on_one_line) {
    Put("Arial, 12,-1,-1, 1,0,0,0");
    EXPECT_EQ(Read(), "'Arial' 12 bold italic landscape");
}

TEST_F(ReportSettingsFileTest, opens_no_report_in_bold) {
    Put("Arial\r\n 9 \r\n-1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
    EXPECT_EQ(Read(), "'Arial' 9 bold portrait");
    EXPECT_FALSE(FontOfSettings(Held()).bold);
}

TEST_F(ReportSettingsFileTest, that_is_a_folder_is_as_good_as_missing) {
    fs::create_directory(folder / "12.Sho");
    EXPECT_EQ(Read(), "'' 9 portrait");
}

TEST_F(ReportSettingsFileTest, draws_no_impossible_sizes) {
    for (const auto& [size, drawn] : std::vector<std::pair<double, double>>{
             {0, 9}, {-4, 9}, {0.5, 9}, {1, 1}, {200, 200}, {201, 9}, {1e300, 9}}) {
        Held().font.size = size;
        EXPECT_EQ(FontOfSettings(Held()).size, drawn) << size;
    }
}

// ---- any bytes ----

const fs::path Corpus = fs::path(TVX_SOURCE_DIR) / "tests/corpus/report-settings";

std::vector<std::string> CorpusNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Corpus))
        if (entry.path().extension() == ".Sho") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

/// Beside each file stands what it gives in a fresh run and over the settings of another report.
TEST_F(ReportSettingsFileTest, of_the_corpus_is_read_as_stated) {
    const auto names = CorpusNames();
    EXPECT_GE(names.size(), 12U);
    for (const std::string& name : names) {
        Put(test::ReadFile(Corpus / (name + ".Sho")));
        Held() = {};
        std::string told = "fresh:  " + Read() + "\n";
        HoldAnother();
        told += "before: " + Read() + "\n";
        EXPECT_EQ(test::ReadFile(Corpus / (name + ".settings")), told) << name;
    }
}

TEST_F(ReportSettingsFileTest, of_any_bytes_is_read_and_written_again) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    std::vector<std::string> seeds;
    for (const std::string& name : CorpusNames()) seeds.push_back(test::ReadFile(Corpus / (name + ".Sho")));
    for (int round = 0; round < 1500; ++round) {
        const auto& seed =
            seeds[static_cast<std::size_t>(random.Whole(0, static_cast<std::int64_t>(seeds.size()) - 1))];
        Put(random.Chance(20) ? random.Bytes(200) : random.Mutated(seed));
        if (random.Chance(50)) Held() = {};
        ReadReportSettings(File(), held);
        ASSERT_TRUE(Held().ReportOrientation == 0 || Held().ReportOrientation == 1);
        const ReportFont font = FontOfSettings(Held());
        ASSERT_GE(font.size, 1);
        ASSERT_LE(font.size, 200);
        ASSERT_FALSE(font.name.empty());
        WriteReportSettings(File(), held);
        ReadReportSettings(File(), held);
    }
}

// ---- trouble ----

TEST_F(ReportSettingsFileTest, in_a_folder_that_is_read_only_is_read_and_refuses_to_be_written) {
    Put("Courier New\r\n 10 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
    const std::string before = test::ReadFile(folder / "12.Sho");
    fs::permissions(folder / "12.Sho", fs::perms(0444));
    fs::permissions(folder.Path(), fs::perms(0555));
    EXPECT_EQ(test::AskAnotherUser([&] {
                  const std::string read = Read();
                  try {
                      WriteReportSettings(File(), held);
                      return read + ", written";
                  } catch (const FileError& trouble) {
                      return read + ", " + std::to_string(trouble.Number());
                  }
              }),
              "'Courier New' 10 portrait, 70");
    EXPECT_EQ(test::ReadFile(folder / "12.Sho"), before);
}

TEST_F(ReportSettingsFileTest, that_may_not_be_read_is_as_good_as_missing) {
    Put("Courier New\r\n 10 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
    fs::permissions(folder / "12.Sho", fs::perms(0000));
    folder.OpenToAll();
    EXPECT_EQ(test::AskAnotherUser([&] { return Read(); }), "'' 9 portrait");
}

TEST_F(ReportSettingsFileTest, stays_as_it_was_on_a_full_disk) {
    WriteReportSettings(File(), held);
    const std::string before = test::ReadFile(folder / "12.Sho");
    HoldAnother();
    EXPECT_EQ(test::AskOnFullDisk(10,
                                  [&] {
                                      try {
                                          WriteReportSettings(File(), held);
                                          return std::string("written");
                                      } catch (const FileError& trouble) {
                                          return std::to_string(trouble.Number());
                                      }
                                  }),
              "61");
    EXPECT_EQ(test::ReadFile(folder / "12.Sho"), before);
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"12.Sho"});
}

} // namespace
} // namespace tvx
