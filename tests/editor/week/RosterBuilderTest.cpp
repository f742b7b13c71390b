#include "editor/week/RosterBuilder.h"

#include "platform/dao/DaoError.h"
#include "store/rows/ApplicationRow.h"
#include "support/Random.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

#include <bitset>

namespace tvx {
namespace {

using test::TestEmployee;

class RosterTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;

    void SetUp() override { store.AddDepartment("Bakery"); }

    /// The roster as "Name1 Name2, ..." in the listing order given.
    std::string Listed(int order) {
        g.department.EditorOrder = order;
        EXPECT_EQ(BuildRoster(g), RosterResult::Ready);
        std::string names;
        for (int e = 1; e <= g.roster.EmployeeCount; ++e)
            names += (e > 1 ? ", " : "") + g.roster.RosterName1[e] + " " + g.roster.RosterName2[e];
        return names;
    }
};

// --- order and names --------------------------------------------------------------------------------------

class ListingOrderTest : public RosterTest {
  protected:
    void SetUp() override {
        RosterTest::SetUp();
        TestEmployee one{.lastName = "brown", .firstName = "Cleo"};
        one.id = "20";
        one.assignment = "till";
        one.birthDate = 30000;
        one.hireDate = 45000;
        store.AddEmployee(one);
        TestEmployee two{.lastName = "Adams", .firstName = "dora"};
        two.id = "3";
        two.assignment = "Oven";
        two.hireDate = 44000;
        store.AddEmployee(two); // no birth date
        TestEmployee three{.lastName = "Brown", .firstName = "Anna"};
        three.id = "";
        three.assignment = "Apron";
        three.birthDate = 29000;
        three.hireDate = 46000;
        store.AddEmployee(three);
    }
};

TEST_F(ListingOrderTest, of_1_is_by_last_and_first_name_without_case) {
    EXPECT_EQ(Listed(1), "Adams dora, Brown Anna, brown Cleo");
}
TEST_F(ListingOrderTest, of_2_is_by_ID_as_text) {
    EXPECT_EQ(Listed(2), "Brown Anna, brown Cleo, Adams dora");
}
TEST_F(ListingOrderTest, of_3_is_by_assignment) {
    EXPECT_EQ(Listed(3), "Brown Anna, Adams dora, brown Cleo");
}
TEST_F(ListingOrderTest, of_4_is_by_birth_date_with_the_unknown_first) {
    EXPECT_EQ(Listed(4), "Adams dora, Brown Anna, brown Cleo");
}
TEST_F(ListingOrderTest, of_5_is_by_hire_date) {
    EXPECT_EQ(Listed(5), "Adams dora, brown Cleo, Brown Anna");
}
TEST_F(ListingOrderTest, of_6_is_by_first_name_and_shows_it_first) {
    EXPECT_EQ(Listed(6), "Anna Brown, Cleo brown, dora Adams");
}

TEST_F(ListingOrderTest, beyond_6_keeps_the_last_list_and_shows_first_names_first) {
    Listed(2);
    EXPECT_EQ(Listed(7), "Anna Brown, Cleo brown, dora Adams");
    Listed(5);
    EXPECT_EQ(Listed(99), "dora Adams, Cleo brown, Anna Brown");
}

TEST_F(ListingOrderTest, below_1_keeps_the_last_list) {
    Listed(5);
    EXPECT_EQ(Listed(0), "Adams dora, brown Cleo, Brown Anna");
}

TEST_F(ListingOrderTest, that_is_unknown_is_order_1_when_nothing_was_listed_before) {
    EXPECT_EQ(Listed(0), "Adams dora, Brown Anna, brown Cleo");
}

TEST_F(RosterTest, equal_names_stand_in_the_order_of_their_keys) {
    std::vector<int> keys;
    for (int i = 0; i < 20; ++i)
        keys.push_back(store.AddEmployee({.lastName = i % 2 == 0 ? "Smith" : "SMITH", .firstName = "Al"}));
    for (const int order : {1, 2, 3, 4, 5, 6}) {
        Listed(order);
        EXPECT_EQ(std::vector<int>(g.roster.RosterEmployeeKey.begin() + 1, g.roster.RosterEmployeeKey.end()),
                  keys)
            << order;
    }
}

// --- who is listed ----------------------------------------------------------------------------------------

TEST_F(RosterTest, holds_only_active_people_of_the_department) {
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    TestEmployee left{.lastName = "Brown", .firstName = "Bob"};
    left.active = false;
    store.AddEmployee(left);
    const int here = g.department.CurrentDepNumber;
    store.AddDepartment("Dairy");
    store.AddEmployee({.lastName = "Clark", .firstName = "Cleo"});
    EXPECT_EQ(Listed(1), "Clark Cleo");
    g.department.CurrentDepNumber = here;
    EXPECT_EQ(Listed(1), "Adams Anna");
}

TEST_F(RosterTest, begins_with_every_row_in_its_own_place_and_an_empty_week) {
    store.AddPeople(3);
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.roster.EmployeeCount, 3);
    EXPECT_EQ(g.roster.RowOrder, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(g.roster.EmployeeRowIndex, (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(g.roster.RosterName1[0], "");
    EXPECT_EQ(g.week.BarCount, (std::vector<int>{0, 0, 0, 0}));
    EXPECT_EQ(g.week.BarStarts.size(), 4U);
    EXPECT_EQ(g.week.DayTypeText[8].size(), 4U);
    EXPECT_EQ(g.week.DayOffFlag[8].size(), 4U);
    EXPECT_EQ(g.cursor.CurrentRow, 1);
    EXPECT_EQ(g.cursor.CurrentEmployee, 0);
    EXPECT_EQ(g.totals.TotalWeekQuarters, 0);
}

TEST_F(RosterTest, sums_the_weekly_salaries) {
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna", .pay = "700.50", .hourly = false});
    store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "10", .hourly = true});
    store.AddEmployee({.lastName = "Clark", .firstName = "Cleo", .pay = "299.50", .hourly = false});
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.TotalSalaries.Amount(), 1000);
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.TotalSalaries.Amount(), 1000);
}

// --- one row ----------------------------------------------------------------------------------------------

TEST_F(RosterTest, reads_missing_fields_as_nothing) {
    dao::Recordset rs = store.db().OpenRecordset("Employee");
    rs.AddNew();
    rs.Fields("Active") = true;
    rs.Fields("Dep number") = g.department.CurrentDepNumber;
    rs.Update();
    g.application.options.BarColor = 9;
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    const Roster& r = g.roster;
    EXPECT_EQ(r.RosterName1[1] + r.RosterName2[1] + r.RosterId[1] + r.RosterAssignment[1] + r.RosterPhone[1] +
                  r.RosterComments[1],
              "");
    EXPECT_EQ(r.RosterPay[1], Currency());
    EXPECT_FALSE(r.IsPaidByHour(1));
    EXPECT_EQ(r.RosterBirthDate[1], 0);
    EXPECT_EQ(r.RosterHireDate[1], 0);
    EXPECT_EQ(r.RosterLaborType[1], "Full time");
    EXPECT_EQ(r.RosterBarColor[1], 9);
    EXPECT_EQ(r.AvailabilityCount[1], 0);
}

TEST_F(RosterTest, takes_every_field_from_its_place) {
    TestEmployee anna{.lastName = "Adams", .firstName = "Anna", .pay = "7.25"};
    anna.id = "A-7";
    anna.assignment = "Oven";
    anna.birthDate = 30000;
    anna.hireDate = 45000;
    const int key = store.AddEmployee(anna);
    store.SetEmployee(key, "Phone", std::string("555-0100"));
    store.SetEmployee(key, "Comments", std::string("likes Mondays"));
    store.SetEmployee(key, "Hire date", 45000.75);
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    const Roster& r = g.roster;
    EXPECT_EQ(r.RosterEmployeeKey[1], key);
    EXPECT_EQ(r.RosterId[1], "A-7");
    EXPECT_EQ(r.RosterAssignment[1], "Oven");
    EXPECT_EQ(r.RosterPay[1], Currency::FromAmount(7.25));
    EXPECT_TRUE(r.IsPaidByHour(1));
    EXPECT_EQ(r.RosterPhone[1], "555-0100");
    EXPECT_EQ(r.RosterComments[1], "likes Mondays");
    EXPECT_EQ(r.RosterBirthDate[1], 30000);
    EXPECT_EQ(r.RosterHireDate[1], 45000);
}

TEST_F(RosterTest, reads_the_leading_number_of_a_pay) {
    struct Case {
        const char* typed;
        double amount;
    };
    const Case cases[] = {{"7.25", 7.25}, {"8.50 net", 8.5}, {"1,234", 1},   {"", 0},
                          {"none", 0},    {" 9 ", 9},        {"7.00005", 7}, {"7.00015", 7.0002}};
    const int key = store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    for (const Case& c : cases) {
        store.SetEmployee(key, "Pay", std::string(c.typed));
        ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
        EXPECT_EQ(g.roster.RosterPay[1], Currency::FromAmount(c.amount)) << c.typed;
    }
}

TEST_F(RosterTest, takes_a_bar_colour_of_0_to_14_and_any_other_as_2) {
    const int key = store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    const auto colour = [&](const dao::Value& stored, const char* option) {
        store.SetEmployee(key, "EbarColor", stored);
        ApplicationRow row;
        row.barColor = option;
        g.application.options.BarColor = OptionsOf(row).BarColor;
        EXPECT_EQ(BuildRoster(g), RosterResult::Ready);
        return g.roster.RosterBarColor[1];
    };
    for (int index = 0; index <= 14; ++index) EXPECT_EQ(colour(std::int64_t{index}, "5"), index);
    for (const std::int64_t index : {15, 16, 32767, -1}) EXPECT_EQ(colour(index, "5"), 2) << index;
    EXPECT_EQ(colour(dao::Null{}, "5"), 5);
    EXPECT_EQ(colour(dao::Null{}, "14"), 14);
    EXPECT_EQ(colour(dao::Null{}, "15"), 2);
    EXPECT_EQ(colour(dao::Null{}, "blue"), 0);
}

TEST(LaborTypeText, knows_four_codes) {
    EXPECT_EQ(LaborTypeText(0), "Full time");
    EXPECT_EQ(LaborTypeText(1), "Part time");
    EXPECT_EQ(LaborTypeText(2), "Student");
    EXPECT_EQ(LaborTypeText(4), "Other");
    for (const long code : {3, 5, -1, 99}) EXPECT_EQ(LaborTypeText(code), "") << code;
}

TEST_F(RosterTest, refuses_a_key_beyond_32767_and_keeps_the_roster_that_was_there) {
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    dao::Recordset rs = store.db().OpenRecordset("Employee");
    rs.AddNew();
    rs.Fields("Employee") = 32768;
    rs.Fields("Last name") = "Zuse";
    rs.Fields("Active") = true;
    rs.Fields("Dep number") = g.department.CurrentDepNumber;
    rs.Update();
    EXPECT_THROW(BuildRoster(g), dao::DaoError);
    EXPECT_EQ(g.roster.EmployeeCount, 1);
    EXPECT_EQ(g.roster.RosterName1, (std::vector<std::string>{"", "Adams"}));
    EXPECT_EQ(g.week.BarCount.size(), 2U);
}

TEST_F(RosterTest, takes_the_greatest_key) {
    dao::Recordset rs = store.db().OpenRecordset("Employee");
    rs.AddNew();
    rs.Fields("Employee") = 32767;
    rs.Fields("Active") = true;
    rs.Fields("Dep number") = g.department.CurrentDepNumber;
    rs.Update();
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(g.roster.RosterEmployeeKey[1], 32767);
}

// --- the messages -----------------------------------------------------------------------------------------

TEST_F(RosterTest, says_that_somebody_must_be_entered_first_and_keeps_what_was_there) {
    g.department.EmployeeNameSingle = "Nurse";
    g.department.EmployeeNamePlural = "Nurses";
    g.roster.EmployeeCount = 0;
    g.TotalSalaries = Wage::Whole(Currency::FromAmount(5));
    store.prompt().Expect("To begin scheduling, you must\nenter at least one Nurse!", box::Ok,
                          "No Nurses entered");
    EXPECT_FALSE(PrepareRoster(g, store.prompt()));
    EXPECT_EQ(g.TotalSalaries.Amount(), 5);
}

TEST_F(RosterTest, that_was_ready_survives_an_empty_department) {
    store.AddEmployee({.lastName = "Adams", .firstName = "Anna"});
    ASSERT_TRUE(PrepareRoster(g, store.prompt()));
    store.AddDepartment("Empty");
    EXPECT_EQ(BuildRoster(g), RosterResult::Empty);
    EXPECT_EQ(g.roster.EmployeeCount, 1);
    EXPECT_EQ(g.roster.RosterName1[1], "Adams");
}

// --- people of several departments ------------------------------------------------------------------------

class AllDepartmentsTest : public RosterTest {
  protected:
    int bakery = 0;
    int dairy = 0;

    int Add(const std::string& name, const std::string& id, bool active = true) {
        TestEmployee employee{.lastName = name, .firstName = "F", .pay = "500", .hourly = false};
        employee.id = id;
        employee.active = active;
        return store.AddEmployee(employee);
    }
    void SetUp() override {
        bakery = store.AddDepartment("Bakery of the West");
        Add("Adams", "7");
        Add("Brown", "8");
        Add("Clark", "");
        dairy = store.AddDepartment("Dairy");
        Add("Adams", " 7 ");
        Add("Dixon", "9");
        Add("Evans", "");
        Add("Frank", "  ");
        g.roster.AllDepartmentsMode = true;
    }
};

TEST_F(AllDepartmentsTest, lists_who_has_an_ID_that_stands_in_another_row_too) {
    EXPECT_EQ(Listed(1), "Adams F, Adams F");
    EXPECT_EQ(g.roster.RosterDepNumber, (std::vector<int>{0, bakery, dairy}));
    EXPECT_EQ(g.roster.RosterDepName, (std::vector<std::string>{"", "Bakery of the West", "Dairy"}));
    EXPECT_EQ(g.roster.EmployeeCount, 2);
    EXPECT_TRUE(g.roster.AllDepartmentsMode);
}

TEST_F(AllDepartmentsTest, sums_no_salaries) {
    g.TotalSalaries = Wage::Whole(Currency::FromAmount(99));
    Listed(1);
    EXPECT_EQ(g.TotalSalaries.Amount(), 0);
}

TEST_F(AllDepartmentsTest, tells_IDs_apart_by_their_case) {
    Add("Green", "x1");
    g.department.CurrentDepNumber = bakery;
    Add("Green", "X1");
    EXPECT_EQ(Listed(1), "Adams F, Adams F");
}

TEST_F(AllDepartmentsTest, looks_only_at_active_people) {
    Add("Brown", "8", false);
    EXPECT_EQ(Listed(1), "Adams F, Adams F");
}

TEST_F(AllDepartmentsTest, lists_in_the_order_of_the_department) {
    Add("Brown", "8");
    EXPECT_EQ(Listed(2), "Adams F, Adams F, Brown F, Brown F");
}

TEST_F(AllDepartmentsTest, says_when_nobody_works_in_two_departments) {
    dao::Recordset rs = store.db().OpenRecordset("Employee");
    rs.Delete(); // the Adams of the bakery
    g.department.EmployeeNameSingle = "Nurse";
    g.department.EmployeeNamePlural = "Nurses";
    store.prompt().Expect("No duplicate Emloyee IDs\nNurses entered in more than one Department\n"
                          "must be Active and have the same Nurse ID",
                          box::Stop, "Nurses entered in more then one Department");
    EXPECT_FALSE(PrepareRoster(g, store.prompt()));
    EXPECT_EQ(store.prompt().Beeps(), 1);
    EXPECT_FALSE(g.roster.AllDepartmentsMode);
}

// --- hours of absence -------------------------------------------------------------------------------------

/// Texts of 28 bytes from slots {day 1..7, place 1..4, start, stop}.
struct Slot {
    int day, place, start, stop;
};
using Slots = std::vector<std::pair<int, int>>;

struct Decoded {
    int count = 0;
    Slots slots; // up to the count, empty ones included

    friend bool operator==(const Decoded&, const Decoded&) = default;
};

Roster RosterOf(int people) {
    Roster r;
    r.AvailabilityCount.assign(static_cast<std::size_t>(people) + 1, 0);
    r.AvailabilityStarts.assign(static_cast<std::size_t>(people) + 1, {});
    r.AvailabilityStops.assign(static_cast<std::size_t>(people) + 1, {});
    return r;
}

Decoded DecodedOf(const Roster& r, int e) {
    Decoded decoded{r.AvailabilityCount[e], {}};
    for (int n = 1; n <= decoded.count; ++n)
        decoded.slots.emplace_back(r.AvailabilityStarts[e][n], r.AvailabilityStops[e][n]);
    return decoded;
}

std::pair<std::string, std::string> Texts(const std::vector<Slot>& slots) {
    std::pair<std::string, std::string> texts{std::string(28, ' '), std::string(28, ' ')};
    for (const Slot& slot : slots) {
        const int at = (slot.day - 1) * 4 + slot.place - 1;
        texts.first[at] = static_cast<char>(32 + slot.start);
        texts.second[at] = static_cast<char>(32 + slot.stop);
    }
    return texts;
}

Decoded Decode(const std::vector<Slot>& slots) {
    Roster r = RosterOf(1);
    const auto [starts, stops] = Texts(slots);
    DecodeAvailability(starts, stops, r, 1);
    return DecodedOf(r, 1);
}

TEST(DecodeAvailability, counts_week_quarters_from_Sunday) {
    EXPECT_EQ(Decode({{2, 1, 36, 68}}), (Decoded{1, {{132, 164}}}));
    EXPECT_EQ(Decode({{7, 4, 0, 96}}), (Decoded{1, {{576, 672}}}));
    EXPECT_EQ(Decode({{4, 1, 0, 8}, {4, 2, 20, 24}, {4, 3, 40, 44}, {4, 4, 90, 96}}),
              (Decoded{4, {{288, 296}, {308, 312}, {328, 332}, {378, 384}}}));
}

TEST(DecodeAvailability, repeats_Sunday_as_the_eighth_day) {
    EXPECT_EQ(Decode({{1, 1, 36, 68}}), (Decoded{2, {{36, 68}, {708, 740}}}));
}

TEST(DecodeAvailability, joins_a_slot_that_begins_where_the_one_before_ends) {
    EXPECT_EQ(Decode({{2, 1, 36, 68}, {2, 2, 68, 80}, {3, 1, 4, 8}}), (Decoded{2, {{132, 176}, {196, 200}}}));
    EXPECT_EQ(Decode({{2, 1, 80, 96}, {3, 1, 0, 8}, {4, 1, 4, 8}}), (Decoded{2, {{176, 200}, {292, 296}}}));
}

TEST(DecodeAvailability, leaves_an_empty_looking_slot_when_the_last_one_joins) {
    EXPECT_EQ(Decode({{2, 1, 36, 68}, {2, 2, 68, 80}}), (Decoded{2, {{132, 176}, {164, 0}}}));
    // Saturday night into the Sunday behind it.
    EXPECT_EQ(Decode({{1, 1, 0, 8}, {7, 1, 80, 96}}), (Decoded{3, {{0, 8}, {656, 680}, {672, 0}}}));
}

TEST(DecodeAvailability, keeps_people_apart) {
    Roster r = RosterOf(2);
    const auto [lateStarts, lateStops] = Texts({{7, 4, 90, 96}});
    const auto [earlyStarts, earlyStops] = Texts({{2, 1, 0, 8}});
    // The first one ends where, on a scale that went on, the second would begin.
    DecodeAvailability(earlyStarts, earlyStops, r, 1);
    DecodeAvailability(Texts({{2, 1, 8, 12}}).first, Texts({{2, 1, 8, 12}}).second, r, 2);
    EXPECT_EQ(DecodedOf(r, 1), (Decoded{1, {{96, 104}}}));
    EXPECT_EQ(DecodedOf(r, 2), (Decoded{1, {{104, 108}}}));
}

TEST(DecodeAvailability, reads_a_start_at_midnight_and_looks_only_at_the_stop) {
    std::string starts(28, ' ');
    std::string stops(28, ' ');
    stops[4] = '!'; // Monday, from midnight to 0:15
    starts[5] = 'z';
    Roster r = RosterOf(1);
    DecodeAvailability(starts, stops, r, 1);
    EXPECT_EQ(DecodedOf(r, 1), (Decoded{1, {{96, 97}}}));
}

TEST(DecodeAvailability, takes_shorter_starts_for_midnight_and_shorter_stops_for_no_absence) {
    const auto [starts, stops] = Texts({{2, 1, 36, 68}});
    Roster r = RosterOf(1);
    for (std::size_t length = 0; length < 28; ++length) {
        DecodeAvailability(starts.substr(0, length), stops, r, 1);
        EXPECT_EQ(r.AvailabilityCount[1], length == 0 ? 0 : 1) << length;
        EXPECT_TRUE(length == 0 || r.AvailabilityStarts[1][1] == 96) << length;
        EXPECT_TRUE(length == 0 || r.AvailabilityStops[1][1] == 96 + 68) << length;
        DecodeAvailability(starts, stops.substr(0, length), r, 1);
        EXPECT_EQ(r.AvailabilityCount[1], 0) << length;
    }
    DecodeAvailability(starts, stops, r, 1);
    EXPECT_EQ(r.AvailabilityCount[1], 1);
    DecodeAvailability("", "", r, 1);
    EXPECT_EQ(r.AvailabilityCount[1], 0);
}

TEST(DecodeAvailability, covers_exactly_the_hours_that_are_stored) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 3000; ++round) {
        std::vector<Slot> slots;
        std::bitset<769> wanted;
        for (int day = 1; day <= 7; ++day) {
            int from = 0;
            for (int place = 1; place <= 4; ++place) {
                if (random.Chance(40)) continue;
                const int start = static_cast<int>(random.Whole(from, 95));
                const int stop = static_cast<int>(random.Chance(20) ? 96 : random.Whole(start + 1, 96));
                slots.push_back({day, place, start, stop});
                for (int q = start; q < stop; ++q) {
                    wanted.set(static_cast<std::size_t>((day - 1) * 96 + q));
                    if (day == 1) wanted.set(static_cast<std::size_t>(672 + q));
                }
                from = stop;
                if (from > 95) break;
            }
        }
        const Decoded decoded = Decode(slots);
        std::bitset<769> covered;
        for (const auto& [start, stop] : decoded.slots)
            for (int q = start; q < stop; ++q) covered.set(static_cast<std::size_t>(q));
        ASSERT_EQ(covered, wanted);
        for (std::size_t n = 1; n < decoded.slots.size(); ++n) {
            if (decoded.slots[n].second == 0) continue;
            ASSERT_GT(decoded.slots[n].first, decoded.slots[n - 1].second) << "slots that touch are one";
        }
    }
}

TEST(DecodeAvailability, survives_any_bytes) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    Roster r = RosterOf(1);
    for (int round = 0; round < 20000; ++round) {
        DecodeAvailability(random.Bytes(40), random.Bytes(40), r, 1);
        ASSERT_GE(r.AvailabilityCount[1], 0);
        ASSERT_LE(r.AvailabilityCount[1], 32);
    }
}

TEST_F(RosterTest, holds_the_hours_of_absence_that_the_file_holds) {
    TestEmployee anna{.lastName = "Adams", .firstName = "Anna"};
    std::tie(anna.availStart, anna.availStop) = Texts({{2, 1, 36, 96}, {3, 1, 0, 8}, {5, 1, 0, 96}});
    store.AddEmployee(anna);
    store.AddEmployee({.lastName = "Brown", .firstName = "Bob"});
    ASSERT_EQ(BuildRoster(g), RosterResult::Ready);
    EXPECT_EQ(DecodedOf(g.roster, 1), (Decoded{2, {{132, 200}, {384, 480}}}));
    EXPECT_EQ(DecodedOf(g.roster, 2), (Decoded{0, {}}));
}

} // namespace
} // namespace tvx
