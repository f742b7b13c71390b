#include "masterdata/EmployeeSearch.h"

#include "editor/week/RosterBuilder.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <iostream>

namespace tvx {
namespace {

using test::RowsOf;

/// Every character as wide as a digit of the screen font.
Twips Wide(const std::string& text) {
    return 105 * static_cast<Twips>(CharacterCount(text));
}

class EmployeeSearchTest : public testing::Test {
  protected:
    test::OtherWorkstation other;
    test::TestStore store;
    GlobalState& g = store.g;

    void SetUp() override {
        store.AddDepartment("Stores");
        store.AddEmployee({.lastName = "Adler", .firstName = "Zoe"});
        store.AddDepartment("Bakery");
        store.AddEmployee(Person("Brown", "Bob", "102", "Baker"));
        store.AddEmployee(Person("adams", "Anna", "101", "Counter"));
        test::TestEmployee away = Person("Clark", "Cleo", "103", "");
        away.active = false;
        store.AddEmployee(away);
        other.Open(store.folder / "TVX.MDB");
    }
    static test::TestEmployee Person(const std::string& last, const std::string& first, const std::string& id,
                                     const std::string& assignment) {
        test::TestEmployee person;
        person.lastName = last;
        person.firstName = first;
        person.id = id;
        person.assignment = assignment;
        return person;
    }
    std::vector<FoundEmployee> Find() { return FindEmployees(g.store, g.department, Wide); }
    bool Delete(int key) { return AskAndDeleteEmployee(g.store, g.department, store.prompt(), key); }
};

// ---- the list ----

TEST_F(EmployeeSearchTest, lists_the_department_in_the_order_of_last_names_with_inactive_people) {
    const auto rows = Find();
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(TrimRight(rows[0].name), "adams Anna");
    EXPECT_EQ(TrimRight(rows[1].name), "Brown Bob");
    EXPECT_EQ(TrimRight(rows[2].name), "Clark Cleo");
    EXPECT_EQ(rows[1].id, "102");
    EXPECT_EQ(rows[1].assignment, "Baker");
    EXPECT_EQ(rows[1].key, 2);
    EXPECT_EQ(rows[2].Text(), rows[2].name + "\t103\t");
}

TEST_F(EmployeeSearchTest, takes_missing_fields_for_empty_texts) {
    for (const char* field : {"First name", "ID", "Assignment"})
        test::PutField(store.db(), "Employee", "Employee", 2, field, dao::Null{});
    EXPECT_EQ(TrimRight(Find()[1].name), "Brown");
    EXPECT_EQ(Find()[1].id, "");
}

TEST_F(EmployeeSearchTest, is_empty_where_nobody_is) {
    store.AddDepartment("Empty");
    EXPECT_TRUE(Find().empty());
}

TEST_F(EmployeeSearchTest, leaves_the_people_of_the_roster_to_the_roster) {
    store.OpenEditor();
    g.department.EditorOrder = 0; // of no meaning: the people of the last roster stay
    EXPECT_EQ(Find().size(), 3U);
    store.prompt().WillAnswer(Answer::No);
    EXPECT_FALSE(Delete(1));
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.roster.RosterName1, (std::vector<std::string>{"", "adams", "Brown"}));
}

TEST(FitToNameColumn, pads_to_1500_twips) {
    const std::string fitted = FitToNameColumn("Adams Anna", Wide);
    EXPECT_EQ(TrimRight(fitted), "Adams Anna");
    EXPECT_GE(Wide(fitted), 1500);
    EXPECT_LT(Wide(fitted.substr(1)), 1500) << "and no further";
}

TEST(FitToNameColumn, leaves_a_name_between_the_limits) {
    const std::string name(15, 'n'); // 1575 twips
    EXPECT_EQ(FitToNameColumn(name, Wide), name);
}

TEST(FitToNameColumn, cuts_below_1750_twips_and_no_character_in_two) {
    EXPECT_EQ(FitToNameColumn(std::string(40, 'n'), Wide), std::string(16, 'n'));
    std::string cakes;
    for (int i = 0; i < 40; ++i) cakes += "🥐";
    EXPECT_EQ(FitToNameColumn(cakes, Wide), cakes.substr(0, 16 * 4));
}

TEST(FitToNameColumn, measures_of_a_name_of_30000_letters_hardly_more_than_of_30) {
    std::size_t longest = 0;
    const auto measured = [&](std::size_t length) {
        int times = 0;
        FitToNameColumn(std::string(length, 'n'), [&](const std::string& text) {
            ++times;
            longest = std::max(longest, text.size());
            return Wide(text);
        });
        return times;
    };
    const int few = measured(30);
    const int many = measured(30000);
    std::cout << few << " texts measured for 30 letters, " << many << " for 30000; the longest has "
              << longest << "\n";
    EXPECT_LE(many, 1.5 * few);
    EXPECT_LE(longest, 40U);
}

TEST(FitToNameColumn, ends_with_a_font_that_measures_nothing) {
    EXPECT_EQ(FitToNameColumn(std::string(3, 'n'), [](const std::string&) { return Twips{2000}; }), "");
    EXPECT_EQ(FitToNameColumn("", Wide).size(), 15U);
}

// ---- typing ----

TEST_F(EmployeeSearchTest, finds_the_first_row_that_begins_like_it_whatever_the_case) {
    const auto rows = Find();
    for (const auto& [typed, row] : std::vector<std::pair<const char*, int>>{{"a", 0},
                                                                             {"ADAMS", 0},
                                                                             {"adams an", 0},
                                                                             {"b", 1},
                                                                             {"Brown B", 1},
                                                                             {"c", 2},
                                                                             {"", 0},
                                                                             {"x", -1},
                                                                             {"adamson", -1},
                                                                             {"Anna", -1}})
        EXPECT_EQ(FirstMatch(rows, typed), row) << typed;
    EXPECT_EQ(FirstMatch({}, ""), -1);
    EXPECT_EQ(FirstMatch({}, "a"), -1);
}

TEST_F(EmployeeSearchTest, compares_the_whole_text_of_a_row) {
    const auto rows = Find();
    EXPECT_EQ(FirstMatch(rows, rows[1].Text()), 1);
    EXPECT_EQ(FirstMatch(rows, rows[1].Text() + "x"), -1);
}

TEST_F(EmployeeSearchTest, knows_capitals_of_other_alphabets) {
    store.AddEmployee(Person("Öztürk", "Emre", "", ""));
    EXPECT_EQ(FirstMatch(Find(), "öZT"), 3);
}

TEST_F(EmployeeSearchTest, is_titled_by_what_the_pick_is_for) {
    g.department.EmployeeNameSingle = "Associate";
    for (const auto& [command, title] : {std::pair{FormCommand::Delete, "Delete Associate"},
                                         {FormCommand::Change, "Change Associate"},
                                         {FormCommand::Transfer, "Transfer Associate"}}) {
        EXPECT_EQ(SearchTitle(g.department, command), title);
    }
}

// ---- deleting ----

TEST_F(EmployeeSearchTest, asks_before_it_deletes) {
    g.department.EmployeeNamePlural = "Associates";
    store.prompt().Expect("Deleting:  Bob Brown - 102 - Baker\n\nAre you sure?\n\nNote!\nDeleted Associates "
                          "will not be\npart of any statistics or history...\nIf you mark them as "
                          "Inactive,\nthey will be.",
                          20, "Employee delete", Answer::No);
    EXPECT_FALSE(Delete(2));
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name"}).size(), 4U);
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(Delete(2));
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name"}),
              (std::vector<std::string>{"Adler", "adams", "Clark"}));
}

TEST_F(EmployeeSearchTest, leaves_the_schedule_of_a_deleted_employee) {
    store.PutDay(46082, 2, test::StartsStops({{36, 68}}));
    store.PutDay(46083, 3, test::StartsStops({{36, 68}}));
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(Delete(2));
    EXPECT_EQ(RowsOf(store.db(), "Day Schedule", {"Employee"}), (std::vector<std::string>{"2", "3"}));
}

TEST_F(EmployeeSearchTest, deletes_the_rows_of_a_day_with_the_number_of_the_employee) {
    // No real day has so small a number; what stands there belongs to nobody.
    store.PutDay(2, 7, test::StartsStops({{36, 68}}));
    store.PutDay(2, 8, test::StartsStops({{36, 68}}));
    store.PutDay(3, 2, test::StartsStops({{36, 68}}));
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(Delete(2));
    EXPECT_EQ(RowsOf(store.db(), "Day Schedule", {"Day Julian", "Employee"}),
              std::vector<std::string>{"3|2"});
}

TEST_F(EmployeeSearchTest, deletes_while_no_schedule_is_stored_at_all) {
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(Delete(3));
}

TEST_F(EmployeeSearchTest, asks_nothing_about_somebody_whom_another_workstation_deleted) {
    other.Delete("Employee", "Employee", "2");
    EXPECT_FALSE(Delete(2));
}

TEST_F(EmployeeSearchTest, deletes_nothing_while_another_workstation_saves) {
    other.Hold();
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_THROW(Delete(2), dao::DaoError);
    other.LetGo();
    EXPECT_EQ(RowsOf(store.db(), "Employee", {"Last name"}).size(), 4U);
    store.prompt().WillAnswer(Answer::Yes);
    EXPECT_TRUE(Delete(2));
}

} // namespace
} // namespace tvx
