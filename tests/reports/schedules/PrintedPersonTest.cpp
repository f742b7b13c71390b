// Schedules of people who come from nowhere but the test: no state, no week, no store.
#include "reports/page/VpDocument.h"
#include "reports/schedules/HtmlSchedules.h"
#include "reports/schedules/LongSchedule.h"
#include "reports/schedules/ShortSchedule.h"
#include "support/FixedMeasures.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tvx {
namespace {

PrintedPerson Made(const std::string& name, const PrintedRanges& bars) {
    PrintedPerson person;
    person.name1 = name;
    person.pay = Currency::FromAmount(10);
    LoadPrintArrays(person, bars, {}, 0, 0);
    return person;
}

/// Puts the department of each person below the name, and goes on with it on the next page.
class DepartmentsSchedule : public ShortSchedule {
  public:
    using ShortSchedule::ShortSchedule;

    void Department(const std::string& name) {
        name_ = name;
        Need(3);
        TextAt(vp_, X(2), Y(++line_), name);
    }

  protected:
    void Name(const Block& block) override {
        TextAt(vp_, X(2.5), Y(line_ + 1.1), block.person.name1 + ", " + block.person.name2);
    }
    void PageWentOn() override { TextAt(vp_, X(2), Y(++line_), name_ + "... Cont."); }

  private:
    std::string name_;
};

class PrintedPersonTest : public testing::Test {
  protected:
    test::FixedMeasures measures;
    VpDocument vp{measures, Paper{14300, 6000, 0}};
    PrintedSchedule schedule;

    void SetUp() override {
        schedule.page.title = "Both departments";
        schedule.page.options = {0, 1, 1, 0, 0, false, false};
        schedule.page.salaries = Wage();
        schedule.people = {Made("Ann", {{36, 68}}), Made("Bea", {{96 + 36, 96 + 52}})};
    }
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (int page = 1; page <= vp.PageCount(); ++page)
            for (const PageOperation& operation : vp.Page(page))
                if (const auto* text = std::get_if<DrawnPageText>(&operation)) texts.push_back(text->text);
        return texts;
    }
    long Count(const std::string& text) const {
        const auto texts = Texts();
        return std::count(texts.begin(), texts.end(), text);
    }
};

TEST_F(PrintedPersonTest, is_drawn_by_every_schedule) {
    for (const auto draw : {Print7day, PrintLongSchedule, PrintSelectedSchedules, PrintShortScheduleHTML,
                            PrintLongScheduleHTML, PrintSelectedSchedulesHTML}) {
        vp.StartDoc();
        draw(schedule, vp);
        vp.EndDoc();
        const auto texts = Texts();
        EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [](const std::string& text) {
            return text.find("Ann") != std::string::npos;
        }));
    }
}

TEST_F(PrintedPersonTest, is_drawn_by_a_schedule_of_other_words) {
    schedule.page.words = {"Hrs ", "Wa ", "Selected Departments"};
    vp.StartDoc();
    Print7day(schedule, vp);
    EXPECT_EQ(Count("Hrs  8:00"), 2) << "of the day and of everybody";
    EXPECT_EQ(Count("Wa 80.00"), 2);
    EXPECT_EQ(Count("Selected Departments total wages:"), 1);
    EXPECT_EQ(Count("120.00"), 2) << "wages and compensation";
}

TEST_F(PrintedPersonTest, is_drawn_one_by_one_between_other_lines_and_with_a_name_of_another_look) {
    vp.StartDoc();
    DepartmentsSchedule drawing(schedule.page, vp);
    drawing.Begin();
    for (const char* department : {"Bakery", "Kitchen"}) {
        drawing.Department(department);
        for (int i = 0; i < 6; ++i) drawing.Person(schedule.people[0]);
    }
    drawing.Finish();
    EXPECT_EQ(Count("Ann, "), 12);
    EXPECT_EQ(Count("Bakery"), 1);
    EXPECT_EQ(Count("Kitchen"), 1);
    EXPECT_GE(vp.PageCount(), 3);
    EXPECT_GE(Count("Bakery... Cont."), 1);
    EXPECT_GE(Count("Kitchen... Cont."), 1);
    EXPECT_EQ(Count("960.00"), 2) << "the wages of them all, and with the salaries";
}

TEST_F(PrintedPersonTest, has_wages_that_are_summed_exactly) {
    PrintedPerson person = Made("Ann", {});
    person.pay = Currency::FromScaled(101); // 0.0101 an hour
    for (int d = 1; d <= 7; ++d) person.PrintDayQuarters[static_cast<std::size_t>(d)] = 1;
    ScheduleSums sums;
    const EmployeeSums own = AddToSums(schedule.page, person, sums);
    EXPECT_EQ(own.weekWages, Wage::ForQuarters(7, *person.pay));
    EXPECT_EQ(own.weekWages, DayWageAmount(person, 7)) << "by days or at once";
}

} // namespace
} // namespace tvx
