// What holds for the web pages of schedules: whoever reads a figure learns whose it is and of which day.
#include "HeaderCells.h"
#include "reports/page/HtmlDocument.h"
#include "reports/schedules/Schedules.h"
#include "support/FixedMeasures.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026
constexpr ScheduleKind Kinds[] = {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected};
constexpr const char* Weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};

class WebPageTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;
    test::FixedMeasures measures;
    VpDocument vp{measures, Paper{16000, 14000, 0}};
    ScheduleRequest request;

    void Open(int people) {
        store.AddDepartment("Bakery");
        store.AddPeople(people);
        store.FillWeeks(Sunday, 2);
        store.OpenWeek(Sunday);
        g.reports.options = {0, 1, 1, 1, 0, true, true};
        g.figures.DailySales[2] = g.totals.SalesTotal = 1000;
        g.totals.SalesDays = 1;
        g.figures.DayMemoFlag[2] = true;
        g.figures.DayMemoText[2] = "Delivery at six.";
        request.productivity = true;
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) request.picked.push_back(e);
    }
    std::string Page(ScheduleKind kind) {
        request.kind = kind;
        RunSchedule(g, store.ports(), request, true, vp);
        return HtmlOf(vp, "Week", "en");
    }
};

std::size_t CountOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) ++count;
    return count;
}

bool AnyHolds(const std::vector<std::string>& texts, const std::string& part) {
    return std::any_of(texts.begin(), texts.end(),
                       [&](const std::string& text) { return text.find(part) != std::string::npos; });
}

/// The headers of a cell, for a message.
std::string Told(const test::DataCell& cell) {
    std::string told = cell.text + " |";
    for (const std::string& header : cell.headers) told += " [" + header + "]";
    return told;
}

/// True when a header names a day or the week. A sum below the names of people says itself what it is.
bool NamesDay(const test::DataCell& cell) {
    const auto& headers = cell.headers;
    const auto named = [&](const char* day) { return AnyHolds(headers, std::string(day).substr(0, 3)); };
    return std::any_of(std::begin(Weekdays), std::end(Weekdays), named) || AnyHolds(headers, "Week") ||
           cell.text.rfind("Total:", 0) == 0;
}

TEST_F(WebPageTest, lead_from_every_figure_to_its_person_and_its_day) {
    Open(60);
    std::size_t figures = 0;
    for (const ScheduleKind kind : Kinds)
        for (const auto& table : test::DataCellsOf(Page(kind)))
            for (const test::DataCell& cell : table) {
                if (AnyHolds(cell.headers, "includes") || AnyHolds(cell.headers, "include"))
                    continue; // words
                ++figures;
                ASSERT_TRUE(NamesDay(cell)) << TextOf(kind) << ": " << Told(cell);
                ASSERT_TRUE(AnyHolds(cell.headers, "Last") || AnyHolds(cell.headers, "Day Totals") ||
                            AnyHolds(cell.headers, "Sales") || AnyHolds(cell.headers, "Trans") ||
                            AnyHolds(cell.headers, "Labor") || AnyHolds(cell.headers, "Week"))
                    << TextOf(kind) << ": " << Told(cell);
            }
    std::printf("data cells of three pages of 60 people: %zu\n", figures);
    EXPECT_GT(figures, 60U * 7U * 3U);
}

TEST_F(WebPageTest, name_whose_figure_it_is_by_his_own_name) {
    Open(3);
    g.reports.options.PrintTotalWages = 0;
    for (const ScheduleKind kind : Kinds) {
        std::size_t people = 0;
        for (const auto& table : test::DataCellsOf(Page(kind)))
            for (const test::DataCell& cell : table)
                for (const char* name : {"Last0001", "Last0002", "Last0003"})
                    people += AnyHolds(cell.headers, name) ? 1U : 0U;
        std::size_t cells = 0;
        for (const auto& table : test::DataCellsOf(Page(kind)))
            for (const test::DataCell& cell : table) cells += AnyHolds(cell.headers, "Last") ? 1U : 0U;
        EXPECT_EQ(people, cells) << TextOf(kind) << ": no figure is two people's";
    }
}

TEST_F(WebPageTest, have_a_table_for_a_person_or_one_for_all) {
    Open(60);
    request.productivity = false;
    for (const int weeks : {0, 3}) { // with and without numbers of the weeks
        g.department.WeekMethod = weeks;
        EXPECT_EQ(CountOf(Page(ScheduleKind::Short), "<table"), 1U) << weeks;
    }
    EXPECT_EQ(CountOf(Page(ScheduleKind::Long), "<table"), 60U);
    EXPECT_EQ(CountOf(Page(ScheduleKind::Selected), "<table"), 60U);
}

TEST_F(WebPageTest, make_everybody_a_heading_and_a_link_at_the_top) {
    Open(60);
    for (const ScheduleKind kind : Kinds) {
        const std::string page = Page(kind);
        EXPECT_EQ(CountOf(page, "<a href=\"#p"), 60U) << TextOf(kind);
        EXPECT_GE(CountOf(page, "<h2") + CountOf(page, "role=\"heading\" aria-level=\"2\""), 60U)
            << TextOf(kind);
        for (int person = 1; person <= 60; ++person)
            EXPECT_EQ(CountOf(page, " id=\"p" + std::to_string(person) + "\""), 1U) << TextOf(kind);
        EXPECT_LT(page.find("<nav"), page.find("Last0001")) << TextOf(kind);
    }
}

TEST_F(WebPageTest, tell_an_empty_day_but_not_where_space_is_to_be_saved) {
    Open(2);
    test::SetBars(g, 1, {{32, 64}}); // Sunday alone
    test::SetBars(g, 2, {});
    for (const ScheduleKind kind : Kinds) {
        request.saveSpace = false;
        EXPECT_EQ(CountOf(Page(kind), ">no time<"), 13U) << TextOf(kind);
        request.saveSpace = true;
        EXPECT_EQ(CountOf(Page(kind), ">no time<"), 0U) << TextOf(kind);
    }
}

TEST_F(WebPageTest, tell_no_day_empty_that_has_hours_of_the_night_before) {
    Open(1);
    test::SetBars(g, 1, {{80, 112}}); // Sunday 20:00 to Monday 4:00
    EXPECT_EQ(CountOf(Page(ScheduleKind::Short), ">no time<"), 5U);
    EXPECT_EQ(CountOf(Page(ScheduleKind::Long), ">no time<"), 5U);
}

TEST_F(WebPageTest, keep_a_name_from_right_to_left_apart_from_the_words_around_it) {
    Open(2);
    g.roster.RosterName1[1] = "כהן";
    g.roster.RosterName2[1] = "שרה";
    g.department.CurrentDepName = "מאפייה";
    EXPECT_NE(Page(ScheduleKind::Short).find("<bdi>כהן שרה</bdi>"), std::string::npos);
    EXPECT_NE(Page(ScheduleKind::Long).find("<bdi>כהן, שרה</bdi>"), std::string::npos);
    EXPECT_NE(Page(ScheduleKind::Long).find("<bdi>מאפייה</bdi>, total time:"), std::string::npos);
    EXPECT_NE(Page(ScheduleKind::Selected).find("Schedule for: <bdi>שרה כהן</bdi>"), std::string::npos);
}

} // namespace
} // namespace tvx
