// Texts of any kind in the file: quotes, brackets, percent signs, characters of four bytes, ten thousand of
// them. They are shown as they stand, and a save leaves them as they stand.
#include "editor/DayHeader.h"
#include "editor/RowValues.h"
#include "editor/week/LoadWeek.h"
#include "editor/week/RosterBuilder.h"
#include "editor/week/SaveWeek.h"
#include "platform/basic/Text.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Console.h"
#include "support/ConsoleMenus.h"
#include "support/Quarters.h"
#include "support/RawFile.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::RawFile;
using Rows = std::vector<std::string>;

constexpr DaySerial Sunday = 46082; // 1 March 2026

std::string Repeated(const std::string& text, std::size_t characters) {
    std::string repeated;
    while (CharacterCount(repeated) < characters) repeated += text;
    return Left(repeated, characters);
}

const std::vector<std::string>& OddTexts() {
    static const std::vector<std::string> texts{
        "O'Brien",
        "\"Bob\"",
        "'; DROP TABLE Employee; --",
        "[Last name]",
        "a]b[c",
        "100% %s %n %08x",
        "_%_",
        "back\\slash",
        "\xF0\x9F\x8D\x9E baker \xF0\x9F\xA5\x90", // four bytes each
        "\xE9\x9B\xAA\xC3\xA9\xC3\x9F",            // three and two
        "e\xCC\x81",                               // a letter and its accent apart
        "line\r\nend\ttab",
        "  blanks around  ",
        "\x80\xFF broken \xC3", // no UTF-8
        Repeated("X", 10000),
        Repeated("\xF0\x9F\x8D\x9E'\"[%]", 10000),
    };
    return texts;
}

class OddTextTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;
    test::ScriptedRegion region;

    RawFile File() { return RawFile(store.folder / "TVX.MDB"); }
    void SetUp() override { store.AddDepartment("Bakery"); }
    /// One employee a text, all of whose texts are that one.
    void AddOddPeople() {
        RawFile file(store.folder / "TVX.MDB");
        for (const std::string& text : OddTexts())
            file.Run(
                "INSERT INTO Employee ([Last name], [First name], ID, Assignment, Pay, [Wage or Sal], Active,"
                " Phone, Comments, [Dep number]) VALUES (?1, ?1, ?1, ?1, '10', -1, -1, ?1, ?1, ?2)",
                {text, std::int64_t{g.department.CurrentDepNumber}});
    }
    Rows Everything() {
        Rows rows;
        RawFile file(store.folder / "TVX.MDB");
        for (const char* table : {"Employee", "Department", "[Department day]", "[Day Types]"})
            for (const std::string& row : file.Rows(std::string("SELECT * FROM ") + table))
                rows.push_back(row);
        return rows;
    }
};

TEST_F(OddTextTest, of_people_reaches_the_roster_and_its_values_as_it_stands) {
    AddOddPeople();
    store.OpenWeek(Sunday);
    ASSERT_EQ(g.roster.EmployeeCount, static_cast<int>(OddTexts().size()));
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
        const std::string& text = OddTexts()[g.roster.RosterEmployeeKey[e] - 1];
        EXPECT_TRUE(g.roster.RosterName1[e] == text) << text.substr(0, 40);
        EXPECT_TRUE(g.roster.RosterName2[e] == text) << text.substr(0, 40);
        EXPECT_TRUE(g.roster.RosterId[e] == text) << text.substr(0, 40);
        EXPECT_TRUE(g.roster.RosterAssignment[e] == text) << text.substr(0, 40);
        EXPECT_TRUE(g.roster.RosterPhone[e] == text) << text.substr(0, 40);
        EXPECT_TRUE(g.roster.RosterComments[e] == text) << text.substr(0, 40);
        for (const int option : {5, 6})
            EXPECT_TRUE(ShowRowValues(g, option, e, region).single == text) << text.substr(0, 40);
    }
}

TEST_F(OddTextTest, of_people_is_listed_in_every_order) {
    AddOddPeople();
    for (int order = 1; order <= 6; ++order) {
        g.department.EditorOrder = order;
        ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
        EXPECT_EQ(g.roster.EmployeeCount, static_cast<int>(OddTexts().size())) << order;
    }
    // As Unicode orders them: blanks, underscores, quotes, brackets, pictures, digits, letters.
    g.department.EditorOrder = 1;
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    Rows shown;
    for (int e = 1; e <= 6; ++e) shown.push_back(Left(g.roster.RosterName1[e], 7));
    EXPECT_EQ(shown, (Rows{"  blank", "_%_", "'; DROP", "\"Bob\"", "[Last n", "🍞 baker"}));
}

TEST_F(OddTextTest, of_IDs_is_shared_by_the_same_bytes_after_the_trim) {
    AddOddPeople();
    const int first = g.department.CurrentDepNumber;
    store.AddDepartment("Dairy");
    AddOddPeople();
    g.roster.AllDepartmentsMode = true;
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.roster.EmployeeCount, 2 * static_cast<int>(OddTexts().size()));
    EXPECT_EQ(std::count(g.roster.RosterDepNumber.begin() + 1, g.roster.RosterDepNumber.end(), first),
              static_cast<std::ptrdiff_t>(OddTexts().size()));
}

TEST_F(OddTextTest, of_memos_is_loaded_as_it_stands) {
    RawFile file(store.folder / "TVX.MDB");
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    store.OpenEditor();
    for (std::size_t i = 0; i < OddTexts().size(); ++i)
        file.Run("INSERT INTO [Department day] (Day, [Dep number], Remarks) VALUES (?, ?, ?)",
                 {std::int64_t{Sunday} + static_cast<std::int64_t>(i),
                  std::int64_t{g.department.CurrentDepNumber}, OddTexts()[i]});
    for (std::size_t i = 0; i < OddTexts().size(); ++i) {
        LoadWeek(g, store.ports(), Sunday + static_cast<DaySerial>(i));
        EXPECT_TRUE(g.figures.DayMemoText[1] == OddTexts()[i]) << OddTexts()[i].substr(0, 40);
        EXPECT_TRUE(g.figures.DayMemoFlag[1]);
    }
}

TEST_F(OddTextTest, of_daytypes_is_loaded_in_capitals_and_left_as_it_stands_by_a_save) {
    AddOddPeople();
    store.OpenWeek(Sunday);
    RawFile file(store.folder / "TVX.MDB");
    for (std::size_t i = 0; i < OddTexts().size(); ++i)
        file.Run("INSERT INTO [Day Schedule] ([Day Julian], Employee, DayType, [Starts & Stops], Salary, "
                 "[Work hours])"
                 " VALUES (?, ?, ?, ?, 'W', 8)",
                 {std::int64_t{Sunday}, static_cast<std::int64_t>(i) + 1, OddTexts()[i],
                  test::StartsStops({{36, 68}})});
    LoadWeek(g, store.ports(), Sunday);
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
        const std::string& text = OddTexts()[g.roster.RosterEmployeeKey[e] - 1];
        EXPECT_TRUE(g.week.DayTypeText[1][e] == UpperCase(text)) << text.substr(0, 40);
    }
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) test::SetBars(g, e, {{40, 60}});
    EXPECT_TRUE(SaveWeek(g, store.ports(), store.gauge, [] {}));
    const Rows stored = file.Rows("SELECT DayType FROM [Day Schedule] ORDER BY Employee");
    for (std::size_t i = 0; i < OddTexts().size(); ++i) {
        // A symbol that fits its field is written in capitals.
        const bool fits = CharacterCount(OddTexts()[i]) <= 2;
        EXPECT_TRUE(stored[i] == (fits ? UpperCase(OddTexts()[i]) : OddTexts()[i]))
            << OddTexts()[i].substr(0, 40);
    }
    EXPECT_EQ(file.Rows("SELECT DISTINCT [Work hours] FROM [Day Schedule]"), Rows{"5.0"});
}

TEST_F(OddTextTest, in_the_file_survives_a_save_of_the_week) {
    AddOddPeople();
    RawFile file(store.folder / "TVX.MDB");
    for (std::size_t i = 0; i < OddTexts().size(); ++i)
        file.Run("INSERT INTO [Day Types] VALUES (?, ?, ?)",
                 {OddTexts()[i], OddTexts()[i], std::int64_t{g.department.CurrentDepNumber}});
    file.Run("INSERT INTO [Department day] (Day, [Dep number], Remarks) VALUES (?, ?, ?)",
             {std::int64_t{Sunday}, std::int64_t{g.department.CurrentDepNumber}, OddTexts().back()});
    const Rows before = Everything();
    store.OpenWeek(Sunday);
    for (int e = 1; e <= g.roster.EmployeeCount; ++e) test::SetBars(g, e, {{36, 68}});
    EXPECT_TRUE(SaveWeek(g, store.ports(), store.gauge, [] {}));
    EXPECT_EQ(store.Rows().size(), OddTexts().size());
    EXPECT_EQ(Everything(), before);
}

TEST_F(OddTextTest, of_daytype_lists_is_loaded_as_it_stands) {
    RawFile file(store.folder / "TVX.MDB");
    for (const std::string& text : OddTexts())
        file.Run("INSERT INTO [Day Types] VALUES (?, ?, ?)",
                 {text, text, std::int64_t{g.department.CurrentDepNumber}});
    LoadDayTypes(g.store, g.department.CurrentDepNumber, g.daytypes);
    ASSERT_EQ(g.daytypes.DayTypeCount, static_cast<int>(OddTexts().size()));
    for (int i = 1; i <= g.daytypes.DayTypeCount; ++i) {
        EXPECT_TRUE(g.daytypes.DayTypeSymbols[i] == g.daytypes.DayTypeNames[i]);
        EXPECT_EQ(std::count(OddTexts().begin(), OddTexts().end(), g.daytypes.DayTypeSymbols[i]), 1);
    }
}

TEST_F(OddTextTest, of_a_department_reaches_its_list_captions_and_titles) {
    RawFile file(store.folder / "TVX.MDB");
    file.Run("DELETE FROM Department");
    for (const std::string& text : OddTexts())
        file.Run("INSERT INTO Department ([Department name], EmployeeNamePlural, [First weekday]) VALUES "
                 "(?1, ?1, 100)",
                 {text});
    ConsoleFace face;
    const test::ConsoleMenus menus(g);
    RefreshDepartments(g, store.ports(), face);
    ASSERT_EQ(g.departments.DepNames, OddTexts());
    for (std::size_t i = 0; i < OddTexts().size(); ++i) {
        ChooseDepartment(g.store, g.departments, g.department, face, static_cast<int>(i));
        EXPECT_TRUE(g.department.CurrentDepName == OddTexts()[i]);
        EXPECT_TRUE(g.department.EmployeeNamePlural == OddTexts()[i]);
        EXPECT_TRUE(face.Label2 == "------ " + OddTexts()[i] + " ------");
        EXPECT_TRUE(menus["cmdSchedule"].caption == "Schedule " + OddTexts()[i]);
        EXPECT_TRUE(EditorTitle(g.roster, g.department, g.week) == OddTexts()[i] + ",  Week from   to  ");
    }
}

} // namespace
} // namespace tvx
