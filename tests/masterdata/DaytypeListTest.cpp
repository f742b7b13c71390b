#include "masterdata/DaytypeList.h"

#include "editor/week/WeekEdit.h"
#include "shell/common/TVXMOD1.h"
#include "support/OtherWorkstation.h"
#include "support/Rows.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

using test::RowsOf;

class DaytypeListTest : public testing::Test {
  protected:
    test::OtherWorkstation other;
    test::TestStore store;
    GlobalState& g = store.g;

    void SetUp() override {
        store.AddDepartment("Stores");
        Put("CA", "Carrying", 1);
        store.AddDepartment("Bakery");
        Put("CA", "Cashier", 2);
        Put("BK", "Baker", 2);
        Reload();
        other.Open(store.folder / "TVX.MDB");
    }
    void Put(const std::string& symbol, const std::string& name, int department) {
        dao::Recordset rs = store.db().OpenRecordset("Day Types");
        rs.AddNew();
        rs.Fields("Symbol") = symbol;
        rs.Fields("Explaination") = name;
        rs.Fields("Dep number") = department;
        rs.Update();
    }
    void Reload() { LoadDayTypes(g.store, g.department.CurrentDepNumber, g.daytypes); }
    SaveResult Add(const std::string& symbol, const std::string& name) {
        return AddDaytype(g.store, g.department, g.daytypes, store.prompt(), symbol, name);
    }
    SaveResult Change(int index, const std::string& symbol, const std::string& name) {
        return ChangeDaytype(g.store, g.department, g.daytypes, store.prompt(), index, symbol, name);
    }
    std::vector<std::string> Rows() {
        return RowsOf(store.db(), "Day Types", {"Dep number", "Symbol", "Explaination"});
    }
    std::vector<std::string> Listed() {
        std::vector<std::string> texts;
        for (const auto& [text, index] : DaytypeRows(g.daytypes)) texts.push_back(text);
        return texts;
    }
    /// "01", "02" .. as daytypes, up to a count of all.
    void FillTo(int count) {
        for (int i = 1; g.daytypes.DayTypeCount < count; ++i) {
            const std::string symbol = std::to_string(100 + i).substr(1);
            ASSERT_EQ(Add(symbol, "Number " + symbol), SaveResult::Saved);
        }
    }
    void ExpectNotWritten() {
        store.prompt().Expect("Could not save,\nthis page is locked by another user, try again..", 0,
                              "Locked page...");
    }
};

// ---- the list ----

TEST_F(DaytypeListTest, is_read_in_the_order_of_the_symbols) {
    EXPECT_EQ(g.daytypes.DayTypeCount, 2);
    EXPECT_EQ(Listed(), (std::vector<std::string>{"BK= Baker", "CA= Cashier"}));
    EXPECT_EQ(g.daytypes.DayTypeSymbols[0], "");
}

TEST_F(DaytypeListTest, passes_over_blank_entries_and_keeps_the_indexes) {
    g.daytypes.DayTypeSymbols[1] = " ";
    const auto rows = DaytypeRows(g.daytypes);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].second, 2);
}

// ---- keys ----

TEST_F(DaytypeListTest, symbols_take_capitals_digits_and_what_stands_between_the_letters) {
    for (int code = 0; code < 300; ++code) {
        const bool small = code >= 'a' && code <= 'z';
        const int capital = small ? code - 32 : code;
        if (capital == 'W') continue;
        const bool passes = code == 8 || (code >= 48 && code <= 57) || (code >= 65 && code <= 122);
        EXPECT_EQ(FilterSymbolKey(code, store.prompt()), passes ? capital : 0) << code;
        EXPECT_EQ(FilterSymbolPaste(code), passes ? capital : 0) << code;
    }
}

TEST_F(DaytypeListTest, the_letter_w_is_refused_with_a_box_and_without_one_in_a_paste) {
    for (const int code : {'w', 'W'}) {
        store.prompt().Expect("The <W> cannot be used as a Daytype...", 48, "Font for W is to wide.");
        EXPECT_EQ(FilterSymbolKey(code, store.prompt()), 0);
        EXPECT_EQ(FilterSymbolPaste(code), 0);
    }
    EXPECT_EQ(store.prompt().Beeps(), 2);
}

TEST(NormalizedExplanation, is_trimmed_and_begins_with_a_capital) {
    EXPECT_EQ(NormalizedExplanation("  cashier "), "Cashier");
    EXPECT_EQ(NormalizedExplanation("Cash Desk"), "Cash Desk");
    EXPECT_EQ(NormalizedExplanation(""), "");
    EXPECT_EQ(NormalizedExplanation("  "), "");
    EXPECT_EQ(NormalizedExplanation("éclair"), "Éclair");
    EXPECT_EQ(NormalizedExplanation("🥐 baking"), "🥐 baking");
}

// ---- adding ----

TEST_F(DaytypeListTest, an_added_one_is_stored_for_the_department_and_listed_in_its_place) {
    EXPECT_EQ(Add("BX", "Boxing"), SaveResult::Saved);
    EXPECT_EQ(Listed(), (std::vector<std::string>{"BK= Baker", "BX= Boxing", "CA= Cashier"}));
    EXPECT_EQ(Rows(),
              (std::vector<std::string>{"1|CA|Carrying", "2|BK|Baker", "2|BX|Boxing", "2|CA|Cashier"}));
}

TEST_F(DaytypeListTest, a_bracket_is_a_symbol) {
    EXPECT_EQ(Add("[A", "Bracket"), SaveResult::Saved);
    EXPECT_EQ(Listed(), (std::vector<std::string>{"[A= Bracket", "BK= Baker", "CA= Cashier"}));
}

TEST_F(DaytypeListTest, a_symbol_of_one_character_is_one) {
    EXPECT_EQ(Add("C", "Cleaning"), SaveResult::Saved);
    EXPECT_EQ(g.daytypes.DayTypeCount, 3);
}

TEST_F(DaytypeListTest, a_blank_box_brings_a_beep_and_nothing_else) {
    EXPECT_EQ(Add("", "Name"), SaveResult::Incomplete);
    EXPECT_EQ(Add("  ", "Name"), SaveResult::Incomplete);
    EXPECT_EQ(Add("DL", ""), SaveResult::Incomplete);
    EXPECT_EQ(Add("DL", "   "), SaveResult::Incomplete);
    EXPECT_EQ(store.prompt().Beeps(), 4);
    EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(DaytypeListTest, a_symbol_in_use_is_told_with_its_explanation) {
    store.prompt().Expect("DayType ca\n is in use for Cashier", 0, "DayType duplicate");
    EXPECT_EQ(Add("ca ", "Carpentry"), SaveResult::InUse);
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_EQ(Rows().size(), 3U);
}

TEST_F(DaytypeListTest, a_71st_is_taken_and_a_72nd_is_not) {
    FillTo(71);
    EXPECT_EQ(g.daytypes.DayTypeCount, 71);
    EXPECT_EQ(Add("ZZ", "Too many"), SaveResult::Incomplete);
    EXPECT_EQ(Rows().size(), 72U) << "one is of the other department";
}

TEST_F(DaytypeListTest, a_file_with_more_gives_71) {
    FillTo(71);
    for (const char* symbol : {"YX", "YY", "YZ"}) Put(symbol, "More", 2);
    Reload();
    EXPECT_EQ(g.daytypes.DayTypeCount, 71);
}

// ---- changing ----

TEST_F(DaytypeListTest, a_change_replaces_symbol_and_explanation) {
    EXPECT_EQ(Change(2, "CH", " cash desk "), SaveResult::Saved);
    EXPECT_EQ(Rows(), (std::vector<std::string>{"1|CA|Carrying", "2|BK|Baker", "2|CH|Cash desk"}));
    EXPECT_EQ(Listed(), (std::vector<std::string>{"BK= Baker", "CH= Cash desk"}));
}

TEST_F(DaytypeListTest, a_change_of_the_explanation_alone_is_taken) {
    EXPECT_EQ(Change(2, "CA", "Cash"), SaveResult::Saved);
    EXPECT_EQ(Rows()[2], "2|CA|Cash");
}

TEST_F(DaytypeListTest, a_change_to_the_symbol_of_another_is_told) {
    store.prompt().Expect("DayType BK\n is in use forBaker", 0, "DayType duplicate");
    EXPECT_EQ(Change(2, "BK", "Cash"), SaveResult::InUse);
    EXPECT_EQ(Rows()[2], "2|CA|Cashier");
}

TEST_F(DaytypeListTest, a_change_to_nothing_brings_a_beep) {
    EXPECT_EQ(Change(2, "", "Cash"), SaveResult::Incomplete);
    EXPECT_EQ(Change(2, "CA", " "), SaveResult::Incomplete);
    EXPECT_EQ(store.prompt().Beeps(), 2);
}

TEST_F(DaytypeListTest, stored_days_keep_the_symbol_that_they_were_saved_with) {
    store.AddEmployee({.lastName = "Adams"});
    store.PutDay(46082, 1, test::StartsStops({{36, 68}}), "CA");
    const auto before = store.Rows();
    EXPECT_EQ(Change(2, "CH", "Cash"), SaveResult::Saved);
    EXPECT_EQ(store.Rows(), before);
    DeleteDaytype(g.store, g.department, g.daytypes, store.prompt(), 2);
    EXPECT_EQ(store.Rows(), before);
}

// ---- deleting ----

TEST_F(DaytypeListTest, a_deleted_one_is_gone_from_file_and_list_without_a_question) {
    DeleteDaytype(g.store, g.department, g.daytypes, store.prompt(), 1);
    EXPECT_EQ(Rows(), (std::vector<std::string>{"1|CA|Carrying", "2|CA|Cashier"}));
    EXPECT_EQ(Listed(), std::vector<std::string>{"CA= Cashier"});
    EXPECT_EQ(g.daytypes.DayTypeCount, 1);
}

// ---- two workstations ----

TEST_F(DaytypeListTest, what_a_locked_file_does_not_take_is_told_and_the_list_is_that_of_the_file) {
    other.Hold();
    for (int i = 0; i < 3; ++i) ExpectNotWritten();
    EXPECT_EQ(Add("DL", "Delivery"), SaveResult::Refused);
    EXPECT_EQ(Change(1, "BX", "Boxing"), SaveResult::Refused);
    EXPECT_EQ(DeleteDaytype(g.store, g.department, g.daytypes, store.prompt(), 1), SaveResult::Refused);
    EXPECT_EQ(Listed(), (std::vector<std::string>{"BK= Baker", "CA= Cashier"}));
    EXPECT_FALSE(store.db().InTransaction());
    other.LetGo();
    EXPECT_EQ(Add("DL", "Delivery"), SaveResult::Saved);
    EXPECT_EQ(Rows().size(), 4U);
}

TEST_F(DaytypeListTest, a_symbol_that_another_workstation_added_meanwhile_stays_that_of_the_other) {
    Put("DL", "Dealing", 2);
    ExpectNotWritten();
    EXPECT_EQ(Add("DL", "Delivery"), SaveResult::Refused);
    EXPECT_EQ(Rows().back(), "2|DL|Dealing");
    EXPECT_EQ(Listed().back(), "DL= Dealing");
}

TEST_F(DaytypeListTest, a_daytype_that_another_workstation_deleted_is_not_changed_into_a_new_one) {
    other.Delete("Day Types", "Explaination", "Cashier");
    ExpectNotWritten();
    EXPECT_EQ(Change(2, "CH", "Cash"), SaveResult::Refused);
    EXPECT_EQ(Rows(), (std::vector<std::string>{"1|CA|Carrying", "2|BK|Baker"}));
    EXPECT_EQ(Listed(), std::vector<std::string>{"BK= Baker"});
}

// ---- picking ----

class DropDaytypeTest : public DaytypeListTest {
  protected:
    void SetUp() override {
        DaytypeListTest::SetUp();
        store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
        store.OpenWeek(46082);
    }
};

TEST_F(DropDaytypeTest, is_put_on_a_day_of_an_employee) {
    EXPECT_EQ(DropDateText(g, store.script.region, 3), "Tuesday, 3-Mar-2026");
    EXPECT_EQ(DropDateText(g, store.script.region, 6), "Friday, 6-Mar-2026");
    EXPECT_EQ(DropTitle(g.department, g.roster, 2), "Bakery: Brown Bob");
    const WeekChange change = DropDaytype(g, 2, 3, 2);
    EXPECT_EQ(change.employees, std::vector<int>{2});
    EXPECT_EQ(change.days, std::vector<int>{3});
    EXPECT_EQ(g.week.DayTypeText[3][2], "CA");
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(g.week.DayTypeText[3][1], "");
    EXPECT_EQ(g.week.DayTypeText[6][2], "");
}

TEST_F(DropDaytypeTest, is_no_change_of_the_week_when_the_day_has_it_already) {
    test::WritableWeek(g).DayTypeText[3][2] = "CA ";
    test::WritableWeek(g).WeekChanged = false;
    EXPECT_TRUE(DropDaytype(g, 2, 3, 2).employees.empty());
    EXPECT_FALSE(g.week.WeekChanged);
    DropDaytype(g, 2, 3, 1);
    EXPECT_TRUE(g.week.WeekChanged);
    EXPECT_EQ(g.week.DayTypeText[3][2], "BK");
}

} // namespace
} // namespace tvx
