// Reports on paper in real fonts: whatever the roster, the font and the sheet, every text has its place.
#include "desktop/Scale.h"
#include "platform/basic/Text.h"
#include "reports/page/screens/DocumentPainter.h"
#include "reports/schedules/LongSchedule.h"
#include "reports/schedules/ShortSchedule.h"
#include "support/Random.h"

#include <QDate>
#include <QLocale>
#include <QTextLayout>

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>

namespace tvx {
namespace {

using Routine = void (*)(const PrintedSchedule&, Vp&);
constexpr Routine Routines[] = {Print7day, PrintLongSchedule, PrintSelectedSchedules};
constexpr const char* Kinds[] = {"short", "long", "selected"};
constexpr Paper A4{11906, 16838};
constexpr Paper Letter{12240, 15840};

/// The weekdays and dates of a week in a language, as the program shows them.
void NameDays(SchedulePage& page, const QLocale& language) {
    for (int d = 1; d <= 7; ++d) {
        const QDate day(2026, 9, 19 + d);
        page.weekdays[d] = qt::FromQString(language.dayName(day.dayOfWeek()));
        page.shortWeekdays[d] = qt::FromQString(language.dayName(day.dayOfWeek(), QLocale::ShortFormat));
        page.dates[d] = qt::FromQString(language.toString(day, "dd-MMM-yyyy"));
        page.mediumDates[d] = qt::FromQString(language.toString(day, "dd-MMM-yy"));
        page.weekNumbers[d] = "39";
    }
    page.weekSpan = ",  Week from " + page.dates[1] + "  to  " + page.dates[7];
    page.title = page.departmentName + page.weekSpan;
    page.printedOn = "Printed on: 9/20/2026";
}

SchedulePage PageIn(const QLocale& language) {
    SchedulePage page;
    page.departmentName = "Bakery";
    page.dayOffWord = "Vacation day";
    page.options = {0, 1, 1, 1, 0, true, true};
    page.salaries = Wage::Whole(Currency::FromAmount(1234.50));
    NameDays(page, language);
    return page;
}

/// Somebody with so many ranges on each day, as long as times can be.
PrintedPerson Someone(int rangesPerDay) {
    PrintedPerson person;
    person.name1 = "Featherstone";
    person.name2 = "Anna";
    person.detail = "555-0101";
    person.pay = Currency::FromAmount(15.50);
    PrintedRanges bars;
    for (int d = 0; d < 7; ++d)
        for (int r = 0; r < rangesPerDay; ++r) bars.push_back({d * 96 + 10 * r + 42, d * 96 + 10 * r + 50});
    LoadPrintArrays(person, bars, {}, 0, 0);
    return person;
}

/// A text of a page with the room that it takes.
struct Placed {
    TwipsBox box;
    std::string text;
};

class ReportOnPaperTest : public testing::Test {
  protected:
    qt::QtFontMeasures measures;

    VpDocument Drawn(int kind, const PrintedSchedule& schedule, const Paper& sheet, PageOrientation turned,
                     const ReportFont& font) const {
        VpDocument vp(measures, sheet);
        vp.Orientation(turned);
        vp.Font(font);
        vp.StartDoc();
        Routines[kind](schedule, vp);
        vp.EndDoc();
        return vp;
    }

    /// The room that a text takes: as wide as it is set, as high as its letters are.
    TwipsBox InkOf(const DrawnPageText& text, const ReportFont& font) const {
        const QFontMetricsF metrics(qt::FontInTwips(font));
        const QRectF ink = metrics.tightBoundingRect(qt::ToQString(text.text));
        const double base = text.y + metrics.ascent();
        return {text.x, static_cast<Twips>(base + ink.top()),
                text.x + measures.Width(font, TrimRight(text.text)), static_cast<Twips>(base + ink.bottom())};
    }

    std::vector<Placed> TextsOf(const VpDocument& vp, int page) const {
        std::vector<Placed> texts;
        for (const PageOperation& operation : vp.Page(page))
            if (const auto* text = std::get_if<DrawnPageText>(&operation)) {
                texts.push_back({InkOf(*text, vp.FontAt(text->font)), text->text});
            }
        return texts;
    }

    /// Texts beyond the page, texts over one another, and texts that a line goes through.
    std::vector<std::string> Clashes(const VpDocument& vp) const {
        std::vector<std::string> found;
        for (int page = 1; page <= vp.PageCount(); ++page) {
            const std::vector<Placed> texts = TextsOf(vp, page);
            FindOutside(vp, page, texts, found);
            FindOver(texts, found);
            FindLines(vp.Page(page), texts, found);
        }
        if (found.size() > 5) found.resize(5);
        return found;
    }

  private:
    static void FindOutside(const VpDocument& vp, int page, const std::vector<Placed>& texts,
                            std::vector<std::string>& found) {
        const bool across = vp.Orientation() == PageOrientation::Landscape;
        const Twips margins = 2 * vp.Sheet().margin;
        const Twips width = (across ? vp.Sheet().height : vp.Sheet().width) - margins;
        const Twips height = (across ? vp.Sheet().width : vp.Sheet().height) - margins;
        for (const Placed& text : texts)
            if (text.box.left < 0 || text.box.top < 0 || text.box.right > width || text.box.bottom > height)
                found.push_back("\"" + text.text + "\" leaves page " + std::to_string(page));
    }

    static std::string Told(const TwipsBox& box) {
        return std::to_string(box.left) + "," + std::to_string(box.top) + ".." + std::to_string(box.right) +
               "," + std::to_string(box.bottom);
    }

    static bool Meet(const TwipsBox& a, const TwipsBox& b) {
        constexpr Twips Rounding = 3;
        return a.left + Rounding < b.right && b.left + Rounding < a.right && a.top + Rounding < b.bottom &&
               b.top + Rounding < a.bottom;
    }

    static void FindOver(std::vector<Placed> texts, std::vector<std::string>& found) {
        std::sort(texts.begin(), texts.end(),
                  [](const Placed& a, const Placed& b) { return a.box.top < b.box.top; });
        for (std::size_t i = 0; i < texts.size(); ++i)
            for (std::size_t j = i + 1; j < texts.size() && texts[j].box.top < texts[i].box.bottom; ++j)
                if (Meet(texts[i].box, texts[j].box))
                    found.push_back("\"" + texts[i].text + "\" over \"" + texts[j].text + "\"");
    }

    static void FindLines(const std::vector<PageOperation>& page, const std::vector<Placed>& texts,
                          std::vector<std::string>& found) {
        for (const PageOperation& operation : page)
            if (const auto* line = std::get_if<DrawnPageLine>(&operation)) {
                const Twips thick = line->y1 == line->y2 ? 4 : 0; // half of a line, above and below it
                const TwipsBox box{std::min(line->x1, line->x2) - 4, std::min(line->y1, line->y2) - thick,
                                   std::max(line->x1, line->x2) + 4, std::max(line->y1, line->y2) + thick};
                for (const Placed& text : texts)
                    if (Meet(box, text.box))
                        found.push_back("a line " + Told(box) + " through " + Told(text.box) + " \"" +
                                        text.text + "\"");
            }
    }
};

using Strings = std::vector<std::string>;

/// A schedule of which everything may be as wide as it can become.
PrintedSchedule AnySchedule(test::Random& random) {
    const auto any = [&](int high) { return static_cast<int>(random.Whole(0, high)); };
    const QLocale::Language languages[] = {QLocale::English,  QLocale::German,  QLocale::Finnish,
                                           QLocale::Japanese, QLocale::Russian, QLocale::Portuguese};
    PrintedSchedule schedule{PageIn(QLocale(languages[any(5)])), {}};
    SchedulePage& page = schedule.page;
    page.options = {0, any(1), any(1), any(5), 0, any(1) == 1, any(1) == 1};
    page.clockStyle = any(1) == 1 ? ClockStyle::TwelveHours : ClockStyle::TwentyFourHours;
    page.cutoffQuarters = any(1) == 1 ? 0 : 18;
    page.lastStop = any(3) == 0;
    page.openWord = std::string(static_cast<std::size_t>(any(20)), 'W');
    if (any(1) == 1) page.departmentName = std::string(40, 'W');
    page.title = page.departmentName + page.weekSpan;
    page.memos[3] = "Delivery at six. " + std::string(200, 'x');
    if (any(1) == 1) {
        page.productivity.emplace();
        page.productivity->sales.fill(123456.75);
        page.productivity->transactions.fill(98765);
    }
    const int people = any(3) == 0 ? 200 : any(20) + 1;
    for (int i = 0; i < people; ++i) {
        PrintedPerson person = Someone(any(7));
        if (any(2) == 0) person.name1 = person.name2 = std::string(40, 'W');
        if (any(2) == 0) person.detail = std::string(40, 'W');
        if (any(2) == 0) person.labels[any(6) + 1] = std::string(static_cast<std::size_t>(any(20)) + 1, 'W');
        if (any(4) == 0) person.labels[any(6) + 1] = page.dayOffWord;
        person.paidByHour = any(4) != 0;
        if (any(2) == 0) person.pay = Currency::FromAmount(123.75);
        schedule.people.push_back(person);
    }
    return schedule;
}

TEST_F(ReportOnPaperTest, puts_no_text_over_another_or_beyond_its_place) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    std::map<std::string, int> remarks;
    for (int round = 0; round < 90; ++round) {
        const PrintedSchedule schedule = AnySchedule(random);
        const int kind = round % 3;
        const Paper& sheet = random.Chance(50) ? A4 : Letter;
        const auto turned = random.Chance(50) ? PageOrientation::Landscape : PageOrientation::Portrait;
        const double size = static_cast<double>(random.Whole(16, 28)) / 2;
        const VpDocument vp = Drawn(kind, schedule, sheet, turned, {"Liberation Sans", size, false, false});
        ASSERT_EQ(Clashes(vp), Strings{})
            << Kinds[kind] << " at " << size << (turned == PageOrientation::Landscape ? " across" : "")
            << (sheet.width == A4.width ? " on A4" : " on Letter") << ": " << vp.Remark();
        ++remarks[vp.Remark()];
    }
    for (const auto& [remark, times] : remarks)
        std::cout << times << " times: " << (remark.empty() ? "the chosen size" : remark) << "\n";
    EXPECT_EQ(remarks.count("The paper is too small for this report."), 0U);
}

TEST_F(ReportOnPaperTest, says_at_the_foot_of_every_page_at_which_size_it_is_drawn) {
    const PrintedSchedule schedule{PageIn(QLocale::c()), std::vector<PrintedPerson>(30, Someone(2))};
    for (int kind = 0; kind < 3; ++kind) {
        const VpDocument vp =
            Drawn(kind, schedule, A4, PageOrientation::Portrait, {"Liberation Sans", 11, false, false});
        ASSERT_GT(vp.PageCount(), 1);
        EXPECT_EQ(vp.Remark().find("Drawn at "), 0U) << Kinds[kind];
        EXPECT_NE(vp.Remark().find(" points so that everything fits"), std::string::npos) << Kinds[kind];
        for (int page = 1; page <= vp.PageCount(); ++page) {
            const auto texts = TextsOf(vp, page);
            const auto lowest = std::max_element(texts.begin(), texts.end(),
                                                 [](auto& a, auto& b) { return a.box.top < b.box.top; });
            EXPECT_EQ(lowest->text, vp.Remark()) << Kinds[kind] << " page " << page;
        }
    }
}

TEST_F(ReportOnPaperTest, keeps_the_chosen_size_and_says_nothing_where_it_fits) {
    const PrintedSchedule schedule{PageIn(QLocale::c()), {Someone(2)}};
    for (int kind = 0; kind < 3; ++kind) {
        const VpDocument vp =
            Drawn(kind, schedule, A4, PageOrientation::Landscape, {"Liberation Sans", 9, false, false});
        EXPECT_EQ(vp.Remark(), "") << Kinds[kind];
        for (const Placed& text : TextsOf(vp, 1)) EXPECT_EQ(text.text.find("Drawn at"), std::string::npos);
        EXPECT_EQ(vp.FontAt(0).size, 9);
    }
}

TEST_F(ReportOnPaperTest, says_that_paper_is_too_small_instead_of_writing_over_itself) {
    const PrintedSchedule schedule{PageIn(QLocale::c()), {Someone(2)}};
    for (int kind = 0; kind < 3; ++kind) {
        const VpDocument vp = Drawn(kind, schedule, Paper{5000, 7000}, PageOrientation::Portrait,
                                    {"Liberation Sans", 9, false, false});
        EXPECT_EQ(vp.Remark(), "The paper is too small for this report.") << Kinds[kind];
        EXPECT_EQ(vp.PageCount(), 1);
        EXPECT_EQ(Clashes(vp), Strings{});
        ASSERT_FALSE(TextsOf(vp, 1).empty());
        EXPECT_EQ(TextsOf(vp, 1)[0].text, "  The paper is too small for this report.");
    }
}

TEST_F(ReportOnPaperTest, shows_every_day_by_letters_that_no_other_day_has) {
    for (const QLocale::Language language : {QLocale::English, QLocale::German, QLocale::Finnish,
                                             QLocale::Japanese, QLocale::Portuguese, QLocale::Vietnamese})
        for (const int kind : {0, 1}) {
            const SchedulePage page = PageIn(QLocale(language));
            const VpDocument vp = Drawn(kind, {page, {Someone(1)}}, A4, PageOrientation::Portrait,
                                        {"Liberation Sans", 14, false, false});
            for (int d = 1; d <= 7; ++d) {
                const std::string& full = kind == 0 ? page.weekdays[d] : page.shortWeekdays[d];
                const auto texts = TextsOf(vp, 1);
                const auto shown = std::count_if(texts.begin(), texts.end(), [&](const Placed& text) {
                    return text.text == full || text.text == page.shortWeekdays[d];
                });
                EXPECT_EQ(shown, 1) << full << " " << Kinds[kind];
            }
        }
}

TEST_F(ReportOnPaperTest, keeps_five_ranges_on_each_day_above_the_end_of_every_page) {
    const PrintedSchedule schedule{PageIn(QLocale::c()), std::vector<PrintedPerson>(8, Someone(5))};
    for (Twips height = 5600; height < 24000; height += 97)
        for (int kind = 0; kind < 3; ++kind) {
            const VpDocument vp = Drawn(kind, schedule, Paper{11906, height}, PageOrientation::Portrait,
                                        {"Liberation Sans", 9, false, false});
            ASSERT_EQ(Clashes(vp), Strings{}) << Kinds[kind] << " on a page of " << height;
        }
}

/// Where a part of a text begins when it is set on one line.
double PlaceOf(const QString& part, const QString& text) {
    QTextLayout layout(text);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.cursorToX(static_cast<int>(text.indexOf(part)));
}

TEST_F(ReportOnPaperTest, reads_a_title_from_left_to_right_whatever_script_a_name_has) {
    PrintedSchedule schedule{PageIn(QLocale::c()), {Someone(1)}};
    SchedulePage& page = schedule.page;
    page.departmentName = "מאפייה";
    page.title = Isolated(page.departmentName) + page.weekSpan;
    schedule.people[0].name1 = "בן־דוד";
    schedule.people[0].name2 = "אברהם";
    for (int kind = 0; kind < 3; ++kind) {
        const VpDocument vp =
            Drawn(kind, schedule, A4, PageOrientation::Landscape, {"Liberation Sans", 9, false, false});
        const auto texts = TextsOf(vp, 1);
        const auto title = std::find_if(texts.begin(), texts.end(), [](const Placed& text) {
            return text.text.find("Week from") != std::string::npos;
        });
        ASSERT_NE(title, texts.end());
        const QString shown = qt::ToQString(title->text);
        EXPECT_LT(PlaceOf("מאפייה", shown), PlaceOf("Week", shown)) << Kinds[kind];
        EXPECT_LT(PlaceOf("20-Sep", shown), PlaceOf("26-Sep", shown)) << Kinds[kind];
        if (kind == 2) {
            const QString whose = qt::ToQString(texts[0].text);
            EXPECT_LT(PlaceOf("Schedule", whose), PlaceOf("בן", whose));
            EXPECT_LT(PlaceOf("בן", whose), PlaceOf("555", whose));
        }
    }
}

/// Counts what is measured.
class CountingMeasures : public FontMeasures {
  public:
    mutable int measured = 0;
    mutable std::size_t longest = 0; // letters
    Twips Width(const ReportFont& font, std::string_view text) const override {
        ++measured;
        longest = std::max(longest, text.size());
        return static_cast<Twips>(static_cast<double>(text.size()) * font.size * 10);
    }
    Twips Height(const ReportFont& font) const override { return static_cast<Twips>(font.size * 23); }
};

/// What is measured for a schedule of people whose every word has so many letters.
CountingMeasures MeasuredOf(int kind, std::size_t letters) {
    PrintedSchedule schedule{PageIn(QLocale::c()), std::vector<PrintedPerson>(20, Someone(2))};
    schedule.page.departmentName = std::string(letters, 'W');
    schedule.page.title = schedule.page.departmentName + schedule.page.weekSpan;
    for (PrintedPerson& person : schedule.people) {
        person.name1 = person.name2 = person.detail = std::string(letters, 'W');
        person.labels[3] = person.name1;
    }
    CountingMeasures counting;
    VpDocument vp(counting, A4);
    vp.StartDoc();
    Routines[kind](schedule, vp);
    vp.EndDoc();
    return counting;
}

TEST_F(ReportOnPaperTest, measures_for_names_of_30000_letters_hardly_more_than_for_30) {
    for (int kind = 0; kind < 3; ++kind) {
        const CountingMeasures few = MeasuredOf(kind, 30);
        const CountingMeasures many = MeasuredOf(kind, 30000);
        const double ratio = static_cast<double>(many.measured) / few.measured;
        std::cout << Kinds[kind] << ": " << few.measured << " texts measured for 30 letters, "
                  << many.measured << " for 30000, " << ratio << " times as many; the longest has "
                  << many.longest << "\n";
        EXPECT_LE(ratio, 1.5) << Kinds[kind];
        EXPECT_LE(many.longest, 600U) << Kinds[kind];
    }
}

TEST_F(ReportOnPaperTest, parts_the_short_schedule_from_unit_2_to_142) {
    const PrintedSchedule schedule{PageIn(QLocale::c()), {Someone(2)}};
    const VpDocument vp =
        Drawn(0, schedule, A4, PageOrientation::Portrait, {"Liberation Sans", 8, false, false});
    const Twips unit = (A4.width - 2 * A4.margin) / 143;
    int rules = 0;
    for (const PageOperation& operation : vp.Page(1))
        if (const auto* line = std::get_if<DrawnPageLine>(&operation);
            line != nullptr && line->y1 == line->y2) {
            if (line->x2 - line->x1 < 100 * unit) continue; // of the productivity block
            EXPECT_EQ(line->x1, 2 * unit);
            EXPECT_EQ(line->x2, 142 * unit);
            ++rules;
        }
    EXPECT_EQ(rules, 3) << "below the title, below the dates, below the person";
}

} // namespace
} // namespace tvx
