#include "editor/SaveWeek.h"

#include "editor/LoadWeek.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026

class SaveWeekTest : public testing::Test {
  protected:
    test::TestStore store;
    int adams = 0;

    void SetUp() override {
        store.AddDepartment("Bakery");
        adams = store.AddEmployee({"Adams", "Anna", "7.25"});
        store.AddEmployee({"Brown", "Bob", "700", false});
    }
};

TEST_F(SaveWeekTest, a_bar_is_stored_as_a_row_of_its_day) {
    store.OpenWeek(Sunday);
    test::SetBars(store.g, 1, {{36, 68}});
    EXPECT_TRUE(SaveWeek(store.g, store.ports(), store.gauge));
    EXPECT_EQ(store.Rows(),
              std::vector<std::string>{"46082|1||68 32 32 32 32 32 32 100 32 32 32 32 32 32|8|7.25|W|0"});
    EXPECT_FALSE(store.g.week.WeekChanged);
    EXPECT_EQ(store.gauge.floods.back(), 100);
    EXPECT_FALSE(store.gauge.visible);
}

TEST_F(SaveWeekTest, a_bar_over_midnight_comes_back_as_one_bar) {
    store.OpenWeek(Sunday);
    test::SetBars(store.g, 2, {{88, 120}});
    ASSERT_TRUE(SaveWeek(store.g, store.ports(), store.gauge));
    EXPECT_EQ(store.Rows().size(), 2U);
    LoadWeek(store.g, store.ports(), Sunday);
    EXPECT_EQ(test::Bars(store.g, 2), (test::BarList{{88, 120}}));
    EXPECT_EQ(store.g.totals.SalaryWeekQuarters, 32);
}

TEST_F(SaveWeekTest, an_unchanged_week_with_random_shifts_saves_and_loads_the_same) {
    store.AddPeople(40);
    store.FillWeeks(Sunday, 2, 7);
    store.OpenWeek(Sunday);
    const auto before = store.Rows();
    const auto bars = test::Bars(store.g, 5);
    ASSERT_TRUE(SaveWeek(store.g, store.ports(), store.gauge));
    LoadWeek(store.g, store.ports(), Sunday);
    EXPECT_EQ(test::Bars(store.g, 5), bars);
    EXPECT_EQ(store.Rows().size(), before.size());
}

} // namespace
} // namespace tvx
