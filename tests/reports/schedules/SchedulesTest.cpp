// What holds for schedules of every kind, whatever the week; what stands where is shown by the cases.
#include "reports/schedules/Schedules.h"

#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "reports/page/HtmlDocument.h"
#include "support/FixedMeasures.h"
#include "support/Random.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tvx {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026
constexpr ScheduleKind Kinds[] = {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected};

/// A document that counts how often it was closed.
class ClosedDocument : public VpDocument {
  public:
    using VpDocument::VpDocument;
    int closed = 0;
    void EndDoc() override {
        ++closed;
        VpDocument::EndDoc();
    }
};

class SchedulesTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;
    test::FixedMeasures measures;
    VpDocument vp{measures, Paper{16000, 14000, 0}};

    void Open(int people) {
        store.AddDepartment("Bakery");
        store.AddPeople(people);
        store.FillWeeks(Sunday, 2);
        store.OpenWeek(Sunday);
        g.reports.options = {0, 1, 1, 1, 0, true, true};
        g.figures.DailySales[2] = g.totals.SalesTotal = 1000;
        g.figures.DayMemoFlag[2] = true;
        g.figures.DayMemoText[2] = "Delivery at six. Two trucks.";
        g.totals.SalesDays = 1;
    }
    ScheduleRequest Request(ScheduleKind kind) const {
        ScheduleRequest request;
        request.kind = kind;
        request.productivity = true;
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) request.picked.push_back(e);
        return request;
    }
    void Run(ScheduleKind kind, bool html, Vp& document) {
        RunSchedule(g, store.ports(), Request(kind), html, document);
    }
    /// All texts of a document, each once for each time that it stands there.
    std::multiset<std::string> Texts() const {
        std::multiset<std::string> texts;
        for (int page = 1; page <= vp.PageCount(); ++page)
            for (const PageOperation& operation : vp.Page(page))
                if (const auto* text = std::get_if<DrawnPageText>(&operation)) texts.insert(text->text);
        return texts;
    }
    /// What stands on a line behind "Department total ...", without blanks and thousands marks.
    std::set<std::string> Totals() const {
        std::set<std::string> totals;
        bool behind = false;
        for (int page = 1; page <= vp.PageCount(); ++page)
            for (const PageOperation& operation : vp.Page(page))
                if (const auto* text = std::get_if<DrawnPageText>(&operation)) {
                    std::string amount = Trim(text->text);
                    std::erase(amount, ',');
                    if (behind) totals.insert(amount);
                    behind = amount.rfind("Department total", 0) == 0;
                }
        return totals;
    }
};

std::string Name(ScheduleKind kind, bool html) {
    return TextOf(kind) + (html ? " as a web page" : " on paper");
}

TEST_F(SchedulesTest, close_their_document_once_or_twice_and_it_is_the_same) {
    Open(3);
    for (const ScheduleKind kind : Kinds)
        for (const bool html : {false, true}) {
            ClosedDocument document(measures, Paper{16000, 14000, 0});
            Run(kind, html, document);
            EXPECT_EQ(document.closed, kind == ScheduleKind::Long ? 2 : 1) << Name(kind, html);
            EXPECT_FALSE(document.IsOpen());
        }
}

TEST_F(SchedulesTest, of_a_week_are_the_same_the_second_time) {
    Open(20);
    test::WritableWeek(g).DayOffFlag[3][5] = test::WritableWeek(g).DayOffFlag[4][6] = true;
    for (const ScheduleKind kind : Kinds)
        for (const bool html : {false, true}) {
            Run(kind, html, vp);
            const auto first = Texts();
            Run(kind, html, vp);
            EXPECT_EQ(Texts(), first) << Name(kind, html);
        }
}

TEST_F(SchedulesTest, leave_the_week_unsaved_and_unsaid) {
    Open(5);
    for (const ScheduleKind kind : Kinds) Run(kind, false, vp);
    EXPECT_FALSE(g.week.WeekChanged);
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    EXPECT_TRUE(store.prompt().Boxes().empty());
}

TEST_F(SchedulesTest, of_nobody_have_one_page) {
    store.AddDepartment("Bakery");
    test::WritableWeek(g).Resize(0);
    test::WritableWeek(g).WeekStartJulian = Sunday;
    g.reports.options = {0, 1, 1, 1, 0, true, true};
    for (const ScheduleKind kind : Kinds)
        for (const bool html : {false, true}) {
            Run(kind, html, vp);
            EXPECT_EQ(vp.PageCount(), 1) << Name(kind, html);
            EXPECT_NE(HtmlOf(vp, "Nobody", "en").find("</html>"), std::string::npos);
        }
}

TEST_F(SchedulesTest, of_2000_people_have_everybody_once_and_inside_the_page) {
    Open(2000);
    g.reports.options.NameOption = 0;
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long}) {
        Run(kind, false, vp);
        const auto texts = Texts();
        const bool shortKind = kind == ScheduleKind::Short;
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
            const std::string name = shortKind ? g.roster.RosterName1[e] + " " + g.roster.RosterName2[e] + " "
                                               : g.roster.RosterName1[e] + ", " + g.roster.RosterName2[e];
            ASSERT_EQ(texts.count(name), 1U) << TextOf(kind) << name;
        }
        for (int page = 1; page <= vp.PageCount(); ++page)
            for (const PageOperation& operation : vp.Page(page))
                if (const auto* text = std::get_if<DrawnPageText>(&operation)) {
                    ASSERT_GE(text->y, 0);
                    ASSERT_LE(text->y + test::FixedMeasures::Line, vp.PageHeight())
                        << TextOf(kind) << text->text;
                    ASSERT_LE(text->x, vp.PageWidth());
                }
    }
}

TEST_F(SchedulesTest, of_2000_people_as_web_pages_have_everybody) {
    Open(2000);
    for (const ScheduleKind kind : Kinds) {
        Run(kind, true, vp);
        const std::string page = HtmlOf(vp, "Week", "en");
        EXPECT_NE(page.find("Last0001"), std::string::npos) << TextOf(kind);
        EXPECT_NE(page.find("Last2000"), std::string::npos) << TextOf(kind);
    }
}

TEST_F(SchedulesTest, put_each_picked_person_on_a_page_of_his_own) {
    Open(2000);
    Run(ScheduleKind::Selected, false, vp);
    EXPECT_EQ(vp.PageCount(), 2000);
}

TEST_F(SchedulesTest, end_on_pages_too_small_for_a_block_a_line_or_a_letter) {
    Open(6);
    for (const Paper& paper :
         {Paper{3000, 1500, 0}, Paper{200, 300, 0}, Paper{90, 10, 0}, Paper{1, 1, 0}, Paper{1000, 1000, 720}})
        for (const ScheduleKind kind : Kinds)
            for (const bool html : {false, true}) {
                VpDocument small(measures, paper);
                Run(kind, html, small);
                EXPECT_GE(small.PageCount(), 1) << Name(kind, html);
                EXPECT_LT(small.PageCount(), 4000) << Name(kind, html) << " on " << paper.height;
            }
}

TEST_F(SchedulesTest, leave_nobody_out_on_a_page_too_small_for_a_block) {
    Open(6);
    VpDocument small(measures, Paper{14300, 1500, 0});
    Run(ScheduleKind::Short, false, small);
    int names = 0;
    for (int page = 1; page <= small.PageCount(); ++page)
        for (const PageOperation& operation : small.Page(page))
            if (const auto* text = std::get_if<DrawnPageText>(&operation))
                names += text->text.rfind("Last", 0) == 0 ? 1 : 0;
    EXPECT_EQ(names, 6);
}

TEST_F(SchedulesTest, total_what_the_editor_totals_for_any_week_and_cut_off) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    Open(12);
    for (int round = 0; round < 60; ++round) {
        g.department.DayCutoffQuarters = static_cast<int>(random.Whole(0, 32));
        for (int e = 1; e <= g.roster.EmployeeCount; ++e) {
            test::BarList bars;
            for (int at = 0; at < 740 && bars.size() < 35;) {
                const int start = at + static_cast<int>(random.Whole(1, 40));
                const int stop = std::min(768, start + static_cast<int>(random.Whole(1, 50)));
                if (start < 760) bars.emplace_back(start, stop);
                at = stop;
            }
            test::SetBars(g, e, bars);
        }
        SumWeek(test::WritableWeek(g), PayrollOf(g), g.cursor.CurrentDay);
        const auto screen = TotalsTexts(g.totals, g.rights, g.application.options.TimeFormat);
        for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long}) {
            Run(kind, false, vp);
            const auto totals = Totals();
            ASSERT_EQ(totals.count(Trim(screen[1])), 1U) << TextOf(kind) << " lacks " << screen[1];
            ASSERT_EQ(totals.count(Trim(screen[3])), 1U) << TextOf(kind) << " lacks " << screen[3];
        }
    }
}

TEST_F(SchedulesTest, of_any_options_end_well) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    Open(8);
    const auto any = [&](int high) { return static_cast<int>(random.Whole(0, high)); };
    for (int round = 0; round < 200; ++round) {
        g.reports.options = {any(4), any(1), any(1), any(5), any(1), any(1) == 1, any(1) == 1};
        g.department.WeekMethod = any(3);
        g.department.DayCutoffQuarters = any(32);
        g.rights.HideWages = any(1) == 1;
        g.figures.DayMemoText[2] = random.TextOf("ab ^\r\nÄ", 300);
        ScheduleRequest request = Request(Kinds[any(2)]);
        request.productivity = any(1) == 1;
        request.saveSpace = any(1) == 1;
        request.lastStop = any(1) == 1;
        request.openWord = random.Bytes(12);
        RunSchedule(g, store.ports(), request, any(1) == 1, vp);
        ASSERT_FALSE(vp.IsOpen());
        ASSERT_GE(vp.PageCount(), 1);
    }
}

TEST_F(SchedulesTest, show_no_pay_that_may_not_be_seen_in_any_kind) {
    Open(12);
    g.rights.HideWages = true;
    for (const ScheduleKind kind : Kinds)
        for (const bool html : {false, true}) {
            g.reports.options.PrintTotalWages = 1; // as an earlier run left it
            Run(kind, html, vp);
            for (const std::string& text : Texts()) {
                EXPECT_EQ(text.find("900.00"), std::string::npos) << Name(kind, html) << ": " << text;
                EXPECT_EQ(text.find("wages"), std::string::npos) << Name(kind, html) << ": " << text;
            }
        }
}

} // namespace
} // namespace tvx
