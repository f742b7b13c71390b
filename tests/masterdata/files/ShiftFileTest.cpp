#include "masterdata/files/ShiftFile.h"

#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "support/ChildProcess.h"
#include "support/Random.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <thread>

namespace fs = std::filesystem;

namespace tvx {
namespace {

using Bars = std::vector<std::pair<int, int>>;

void Put(Shifts& shifts, const std::string& name, const Bars& bars) {
    const int n = ++shifts.ShiftCount;
    shifts.ShiftNames[n] = name;
    shifts.ShiftBarCount[n] = static_cast<int>(bars.size());
    for (std::size_t k = 0; k < bars.size(); ++k) {
        shifts.ShiftStarts[n][k + 1] = bars[k].first;
        shifts.ShiftStops[n][k + 1] = bars[k].second;
    }
}

/// A line for each shift: "Early: 36-68 72-80".
std::string Told(const Shifts& shifts) {
    std::string told;
    for (int n = 1; n <= shifts.ShiftCount; ++n) {
        told += shifts.ShiftNames[n] + ":";
        for (int k = 1; k <= shifts.ShiftBarCount[n]; ++k)
            told += " " + std::to_string(shifts.ShiftStarts[n][k]) + "-" +
                    std::to_string(shifts.ShiftStops[n][k]);
        told += "\n";
    }
    return told;
}

class ShiftFileTest : public testing::Test {
  protected:
    test::TempFolder folder;

    void Write(const Shifts& shifts, int department = 3) {
        WriteStoredShifts(folder.Path(), department, shifts);
    }
    std::string Content() { return test::ReadFile(folder / "3.SFT"); }
    Shifts Load(int department = 3) {
        Shifts shifts;
        LoadStoredShifts(folder.Path(), department, shifts);
        return shifts;
    }
};

TEST_F(ShiftFileTest, is_named_for_the_department) {
    EXPECT_EQ(ShiftFileName(3), "3.SFT");
    EXPECT_EQ(ShiftFileName(32767), "32767.SFT");
}

// ---- writing ----

TEST_F(ShiftFileTest, holds_one_value_on_each_line) {
    Shifts shifts;
    Put(shifts, "Early, baking", {{16, 48}});
    Put(shifts, "Split", {{40, 56}, {64, 100}});
    Write(shifts);
    EXPECT_EQ(Content(), "\"Early, baking\"\r\n1\r\n16\r\n48\r\n\"Split\"\r\n2\r\n40\r\n56\r\n64\r\n100\r\n");
}

TEST_F(ShiftFileTest, is_in_the_order_of_the_names_whatever_their_case) {
    Shifts shifts;
    for (const char* name : {"late", "Early", "b", "A", "Zebra", "éclair", "night", "EARLY bird"})
        Put(shifts, name, {{static_cast<int>(shifts.ShiftCount), 90}});
    Write(shifts);
    EXPECT_EQ(Told(Load()), "A: 3-90\nb: 2-90\nEarly: 1-90\nEARLY bird: 7-90\nlate: 0-90\nnight: 6-90\n"
                            "Zebra: 4-90\néclair: 5-90\n")
        << "the bars have moved with their names";
}

TEST_F(ShiftFileTest, leaves_out_shifts_without_a_name) {
    Shifts shifts;
    Put(shifts, "Early", {{16, 48}});
    Put(shifts, "", {{17, 49}});
    Put(shifts, "Late", {{18, 50}});
    Write(shifts);
    EXPECT_EQ(Told(Load()), "Early: 16-48\nLate: 18-50\n");
}

TEST_F(ShiftFileTest, exists_without_a_line_after_the_last_shift_is_deleted) {
    Write({});
    EXPECT_TRUE(fs::exists(folder / "3.SFT"));
    EXPECT_EQ(Content(), "");
    EXPECT_EQ(Load().ShiftCount, 0);
}

TEST_F(ShiftFileTest, belongs_to_one_department) {
    Shifts shifts;
    Put(shifts, "Early", {{16, 48}});
    Write(shifts, 3);
    EXPECT_EQ(Load(4).ShiftCount, 0);
    EXPECT_EQ(Load(3).ShiftCount, 1);
}

TEST_F(ShiftFileTest, is_found_in_any_spelling_and_kept_in_it) {
    test::WriteFile(folder / "3.sft", "\"Early\"\r\n1\r\n16\r\n48\r\n");
    Shifts shifts = Load();
    EXPECT_EQ(Told(shifts), "Early: 16-48\n");
    Put(shifts, "Late", {{60, 92}});
    Write(shifts);
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"3.sft"});
    EXPECT_EQ(Told(Load()), "Early: 16-48\nLate: 60-92\n");
}

// ---- reading ----

TEST_F(ShiftFileTest, of_an_old_code_page_shows_its_letters_and_is_written_in_UTF_8) {
    test::WriteFile(folder / "3.SFT", "\"Fr\xFChst\xFC"
                                      "ck \x96 5 \x80\"\r\n1\r\n16\r\n48\r\n");
    EXPECT_EQ(Told(Load()), "Frühstück – 5 €: 16-48\n");
    Write(ReadStoredShifts(folder.Path(), 3));
    EXPECT_EQ(Content(), "\"Frühstück – 5 €\"\r\n1\r\n16\r\n48\r\n");
}

TEST_F(ShiftFileTest, that_is_missing_means_no_shift) {
    Shifts shifts;
    Put(shifts, "Of another department", {{1, 2}});
    LoadStoredShifts(folder.Path(), 3, shifts);
    EXPECT_EQ(shifts.ShiftCount, 0);
}

TEST_F(ShiftFileTest, that_is_a_folder_means_no_shift) {
    fs::create_directory(folder / "3.SFT");
    EXPECT_EQ(Load().ShiftCount, 0);
}

TEST_F(ShiftFileTest, comes_back_as_it_was_written) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 200; ++round) {
        Shifts shifts;
        for (std::int64_t n = random.Whole(0, MostShifts); n > 0; --n) {
            Bars bars;
            for (std::int64_t k = random.Whole(0, MostShiftBars); k > 0; --k)
                bars.emplace_back(random.Whole(0, 96), random.Whole(0, 768));
            Put(shifts,
                "N" + std::to_string(100 + shifts.ShiftCount) + random.TextOf("ab ,;'|", 12) +
                    (random.Chance(50) ? "é" : "x"),
                bars);
        }
        Write(shifts);
        ASSERT_EQ(Told(Load()), Told(shifts));
    }
}

class ShiftCorpusTest : public testing::TestWithParam<std::string> {};

const fs::path Corpus = fs::path(TVX_SOURCE_DIR) / "tests" / "corpus" / "shifts";

std::vector<std::string> CorpusNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Corpus))
        if (entry.path().extension() == ".sft") names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST_P(ShiftCorpusTest, is_read_as_far_as_it_makes_sense) {
    test::TempFolder folder;
    test::WriteFile(folder / "3.SFT", test::ReadFile(Corpus / (GetParam() + ".sft")));
    Shifts shifts;
    LoadStoredShifts(folder.Path(), 3, shifts);
    EXPECT_EQ(Told(shifts), test::ReadFile(Corpus / (GetParam() + ".shifts")));
}

INSTANTIATE_TEST_SUITE_P(Files, ShiftCorpusTest, testing::ValuesIn(CorpusNames()),
                         [](const auto& file) { return file.param; });

void ExpectSound(const Shifts& shifts) {
    ASSERT_GE(shifts.ShiftCount, 0);
    ASSERT_LE(shifts.ShiftCount, MostShifts);
    for (int n = 1; n <= shifts.ShiftCount; ++n) {
        ASSERT_GE(shifts.ShiftBarCount[n], 0);
        ASSERT_LE(shifts.ShiftBarCount[n], MostShiftBars);
        for (int k = 1; k <= shifts.ShiftBarCount[n]; ++k)
            for (const int quarter : {shifts.ShiftStarts[n][k], shifts.ShiftStops[n][k]}) {
                ASSERT_GE(quarter, 0);
                ASSERT_LE(quarter, 768);
            }
    }
}

TEST_F(ShiftFileTest, of_any_bytes_is_read_and_written_again) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    std::vector<std::string> seeds;
    for (const std::string& name : CorpusNames()) seeds.push_back(test::ReadFile(Corpus / (name + ".sft")));
    for (int round = 0; round < 1500; ++round) {
        const std::string& seed =
            seeds[static_cast<std::size_t>(random.Whole(0, static_cast<std::int64_t>(seeds.size()) - 1))];
        test::WriteFile(folder / "3.SFT", random.Chance(20) ? random.Bytes(300) : random.Mutated(seed));
        const Shifts shifts = Load();
        ExpectSound(shifts);
        Write(shifts);
        ExpectSound(Load());
    }
}

// ---- trouble while writing ----

TEST_F(ShiftFileTest, is_old_or_new_and_never_a_part_when_the_program_is_killed_while_it_writes) {
    Shifts few;
    Put(few, "Early", {{16, 48}});
    Shifts many;
    for (int n = 1; n <= MostShifts; ++n) Put(many, "Shift " + std::to_string(100 + n), Bars(35, {10, 20}));
    Write(few);
    for (int round = 0; round < 10; ++round) {
        test::ChildProcess writer([&](test::ChildProcess& test) {
            test.Say("writing");
            for (;;) {
                Write(many);
                Write(few);
            }
        });
        ASSERT_EQ(writer.Hear(), "writing");
        std::this_thread::sleep_for(std::chrono::microseconds(700 * round));
        writer.Kill();
        const std::string now = Told(Load());
        EXPECT_TRUE(now == Told(few) || now == Told(many)) << now;
    }
}

TEST_F(ShiftFileTest, stays_as_it_was_on_a_full_disk) {
    Shifts shifts;
    Put(shifts, "Early", {{16, 48}});
    Write(shifts);
    const std::string before = Content();
    for (int n = 1; n <= 20; ++n) Put(shifts, "Shift " + std::to_string(n), Bars(35, {10, 20}));
    EXPECT_EQ(test::AskOnFullDisk(600,
                                  [&] {
                                      try {
                                          Write(shifts);
                                          return std::string("written");
                                      } catch (const FileError& trouble) {
                                          return std::to_string(trouble.Number());
                                      }
                                  }),
              "61");
    EXPECT_EQ(Content(), before);
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"3.SFT"});
}

} // namespace
} // namespace tvx
