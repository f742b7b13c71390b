#include "shell/common/TVXMOD1.h"

#include "platform/dao/DaoError.h"
#include "support/TestEngine.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

// --- waiting ----------------------------------------------------------------------------------------------

TEST(Pause, lets_events_run_until_the_time_is_over) {
    test::ScriptedClock clock;
    test::ScriptedPrompt prompt;
    int rounds = 0;
    prompt.WhenEventsRun([&] { ++rounds; });
    clock.Set(46086, 9);
    Pause(0.02, clock, prompt);
    EXPECT_GE(clock.Timer(), 9 * 3600 + 0.02);
    EXPECT_GE(rounds, 18);
    EXPECT_LE(rounds, 21);
}

TEST(Pause, goes_on_over_midnight) {
    test::ScriptedClock clock;
    test::ScriptedPrompt prompt;
    int rounds = 0;
    prompt.WhenEventsRun([&] {
        if (++rounds > 10000) FAIL() << "the wait does not end";
    });
    clock.Set(46086, 23, 59, 59);
    while (clock.Timer() < 86399.9) continue;
    Pause(0.5, clock, prompt);
    const double now = clock.Timer();
    EXPECT_LT(now, 1);
    EXPECT_GT(now, 0.39);
}

TEST(Pause, of_no_time_returns_at_once) {
    test::ScriptedClock clock;
    test::ScriptedPrompt prompt;
    prompt.WhenEventsRun([] { FAIL() << "nothing to wait for"; });
    Pause(0, clock, prompt);
}

TEST(FloodTwentySteps, shows_every_fifth_per_cent) {
    test::ScriptedClock clock;
    test::ScriptedPrompt prompt;
    std::vector<int> shown;
    FloodTwentySteps(clock, prompt, [&](int percent) { shown.push_back(percent); });
    std::vector<int> expected;
    for (int percent = 5; percent <= 100; percent += 5) expected.push_back(percent);
    EXPECT_EQ(shown, expected);
}

// --- the country ------------------------------------------------------------------------------------------

TEST(DetectDateFormat, follows_the_order_of_the_short_date) {
    EXPECT_EQ(DetectDateFormat(test::ScriptedRegion(DateOrder::MonthDayYear)), "MM-DD-YYYY");
    EXPECT_EQ(DetectDateFormat(test::ScriptedRegion(DateOrder::DayMonthYear)), "DD-MM-YYYY");
    EXPECT_EQ(DetectDateFormat(test::ScriptedRegion(DateOrder::YearMonthDay)), "YYYY-MM-DD");
}

// --- weeks ------------------------------------------------------------------------------------------------

TEST(FirstDayOfWeek, is_the_latest_such_weekday_at_or_before_the_date) {
    for (DaySerial date = 36000; date < 36100; ++date)
        for (int first = 1; first <= 7; ++first) {
            DaySerial day = date;
            while (Weekday(day) != first) --day;
            ASSERT_EQ(FirstDayOfWeek(date, first), day);
        }
}

/// Weeks counted one by one, as a person would on a calendar.
int CountedWeek(DaySerial date, int method, int first) {
    const DaySerial start = FirstDayOfWeek(date, first);
    const int middle = method == 0 ? 3 : 0; // which day of a week says to what year it belongs
    if (method == 2) {
        int week = 1;
        for (DaySerial day = SerialFromParts(PartsOf(date).year, 1, 1) + 1; day <= date; ++day)
            if (Weekday(day) == first) ++week;
        return week;
    }
    int week = 1;
    for (DaySerial earlier = start - 7; PartsOf(earlier + middle).year == PartsOf(start + middle).year;
         earlier -= 7)
        ++week;
    return week;
}

TEST(WeekNumber, counts_as_a_person_does_on_the_calendar) {
    constexpr int Monday = 2;
    for (int first = 1; first <= 7; ++first)
        for (DaySerial date = SerialFromParts(1999, 12, 1); date < SerialFromParts(2033, 2, 1); date += 1) {
            const int day = PartsOf(date).day;
            const int month = PartsOf(date).month;
            if (month > 1 && month < 12 && day != 15) continue; // the turn of the year is what differs
            int four = CountedWeek(date, 0, first);
            if (four > 52 && CountedWeek(date, 0, Monday) == 1) four = 1;
            ASSERT_EQ(WeekNumber(date, 0, first), four) << date << " " << first;
            ASSERT_EQ(WeekNumber(date, 1, first), CountedWeek(date, 1, first)) << date << " " << first;
            ASSERT_EQ(WeekNumber(date, 2, first), CountedWeek(date, 2, first)) << date << " " << first;
        }
}

TEST(WeekNumber, calls_1_January_2004_week_1_though_its_Sunday_week_is_the_53rd) {
    EXPECT_EQ(WeekNumber(SerialFromParts(2004, 1, 1), 0, 1), 1);
}

TEST(WeekNumber, gives_week_1_on_the_late_December_Mondays_that_begin_it) {
    for (const auto& [year, day] : {std::pair{2003, 29}, {2007, 31}, {2019, 30}})
        EXPECT_EQ(WeekNumber(SerialFromParts(year, 12, day), 0, 2), 1) << year;
}

TEST(WeekNumber, is_not_shown_by_any_other_method) {
    for (const int method : {3, 4, -1, 99}) EXPECT_EQ(WeekNumber(46086, method, 1), std::nullopt) << method;
}

// --- lists of the department ------------------------------------------------------------------------------

class DayTypesTest : public testing::Test {
  protected:
    test::TestStore store;

    void SetUp() override { store.AddDepartment("Bakery"); }
    void Add(const std::string& symbol, const std::string& name, int department) {
        dao::Recordset rs = store.db().OpenRecordset("Day types");
        rs.AddNew();
        rs.Fields("Symbol") = symbol;
        rs.Fields("Explaination") = name;
        rs.Fields("Dep number") = department;
        rs.Update();
    }
    const Daytypes& Load() {
        LoadDayTypes(store.g.store, store.g.department.CurrentDepNumber, store.g.daytypes);
        return store.g.daytypes;
    }
};

TEST_F(DayTypesTest, stand_in_the_order_of_their_symbols_without_case_from_1_on) {
    const int here = store.g.department.CurrentDepNumber;
    Add("V", "Vacation", here);
    Add("b", "Baking", here);
    Add("X", "elsewhere", here + 1);
    Add("A", "Assisting", here);
    const Daytypes& types = Load();
    ASSERT_EQ(types.DayTypeCount, 3);
    EXPECT_EQ(types.DayTypeSymbols[0], "");
    EXPECT_EQ(types.DayTypeSymbols[1] + types.DayTypeSymbols[2] + types.DayTypeSymbols[3], "AbV");
    EXPECT_EQ(types.DayTypeNames[2], "Baking");
    EXPECT_EQ(types.DayTypeSymbols[4], "");
}

TEST_F(DayTypesTest, are_forgotten_when_the_next_list_is_shorter) {
    const int here = store.g.department.CurrentDepNumber;
    Add("A", "Assisting", here);
    Load();
    LoadDayTypes(store.g.store, here + 1, store.g.daytypes);
    EXPECT_EQ(store.g.daytypes.DayTypeCount, 0);
    EXPECT_EQ(store.g.daytypes.DayTypeSymbols[1], "");
    EXPECT_EQ(store.g.daytypes.DayTypeNames[1], "");
}

TEST_F(DayTypesTest, beyond_71_are_left_out) {
    const int here = store.g.department.CurrentDepNumber;
    for (int i = 0; i < 80; ++i)
        Add(std::string{static_cast<char>('A' + i / 10), static_cast<char>('0' + i % 10)}, "d", here);
    const Daytypes& types = Load();
    EXPECT_EQ(types.DayTypeCount, 71);
    EXPECT_EQ(types.DayTypeSymbols[71], "H0");
}

TEST_F(DayTypesTest, with_an_empty_name_read_as_empty_text) {
    dao::Recordset rs = store.db().OpenRecordset("Day Types");
    rs.AddNew();
    rs.Fields("Symbol") = "Q";
    rs.Fields("Dep number") = store.g.department.CurrentDepNumber;
    rs.Update();
    EXPECT_EQ(Load().DayTypeNames[1], "");
    EXPECT_EQ(store.g.daytypes.DayTypeCount, 1);
}

TEST(CloseDatabase, closes_every_set_and_may_be_called_twice) {
    test::TestStore store;
    store.g.store.EmployeeRs = store.db().OpenRecordset("Employee");
    CloseDatabase(store.g.store, store.prompt());
    EXPECT_EQ(store.g.store.Db, nullptr);
    EXPECT_FALSE(store.g.store.EmployeeRs.IsOpen());
    CloseDatabase(store.g.store, store.prompt());
    EXPECT_EQ(store.g.store.Db, nullptr);
}

TEST(CloseDatabase, leaves_a_store_that_tells_who_asks_for_its_database) {
    test::TestStore store;
    EXPECT_EQ(&store.g.store.Open(), store.g.store.Db.get());
    CloseDatabase(store.g.store, store.prompt());
    EXPECT_EQ(test::DaoErrorOf([&] { store.g.store.Open(); }), 3420);
}

TEST(ReadGenericNames, makes_the_words_of_a_department_those_of_the_state) {
    Department department;
    department.EmployeeNameSingle = department.DayOffNamePlural = "of another department";
    DepartmentRow row;
    row.employeeNameSingle = "Nurse";
    row.dayOffNamePlural = "Off days";
    ReadGenericNames(row, department);
    EXPECT_EQ(department.EmployeeNameSingle, "Nurse");
    EXPECT_EQ(department.EmployeeNamePlural, "Employees");
    EXPECT_EQ(department.DayOffNameSingle, "Vacation day");
    EXPECT_EQ(department.DayOffNamePlural, "Off days");
}

TEST(ReadDepartment, makes_a_department_the_current_one_but_for_its_words) {
    Department department;
    department.EmployeeNameSingle = "Nurse";
    department.DayCutoffQuarters = 7;
    DepartmentRow row;
    row.number = 5;
    row.name = "Ward";
    row.editorOrder = 3;
    row.weekMethod = 2;
    row.firstWeekday = 4;
    ReadDepartment(row, department);
    EXPECT_EQ(department.CurrentDepNumber, 5);
    EXPECT_EQ(department.CurrentDepName, "Ward");
    EXPECT_EQ(department.EditorOrder, 3);
    EXPECT_EQ(department.WeekMethod, 2);
    EXPECT_EQ(department.FirstWeekday, 4);
    EXPECT_EQ(department.DayCutoffQuarters, 7);
    EXPECT_EQ(department.EmployeeNameSingle, "Nurse");
    row.firstWeekday.reset();
    ReadDepartment(row, department);
    EXPECT_EQ(department.FirstWeekday, 1);
    EXPECT_EQ(department.DayCutoffQuarters, 0);
}

} // namespace
} // namespace tvx
