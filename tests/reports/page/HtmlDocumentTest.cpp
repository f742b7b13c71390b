#include "reports/page/HtmlDocument.h"

#include "platform/files/FileError.h"
#include "reports/page/HtmlStyle.h"
#include "support/ChildProcess.h"
#include "support/FixedMeasures.h"
#include "support/Random.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tvx {
namespace {

class HtmlDocumentTest : public testing::Test {
  protected:
    test::FixedMeasures measures;
    VpDocument vp{measures};

    void SetUp() override { vp.StartDoc(); }
    std::string Page(const std::string& title = "Title") {
        vp.EndDoc();
        return HtmlOf(vp, title, "en");
    }
    /// The markup of the body alone.
    std::string Body() {
        const std::string page = Page();
        const std::size_t at = page.find("</h1>\n") + 6;
        return page.substr(at, page.find("</main>") - at);
    }
};

bool Holds(const std::string& text, std::string_view part) {
    return text.find(part) != std::string::npos;
}

std::size_t CountOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) ++count;
    return count;
}

// ---- the page ----

TEST_F(HtmlDocumentTest, tells_its_language_its_letters_and_its_title) {
    const std::string page = HtmlOf(vp, "Bakery & Co", "nb");
    EXPECT_EQ(page.rfind("<!DOCTYPE html>", 0), 0U);
    EXPECT_TRUE(Holds(page, "<html lang=\"en\">")) << "whatever the desktop's, the words are English";
    EXPECT_TRUE(Holds(page, "<meta charset=\"utf-8\">"));
    EXPECT_TRUE(Holds(page, "<title>Bakery &amp; Co</title>"));
    EXPECT_TRUE(Holds(page, "<h1 class=\"hidden\">Bakery &amp; Co</h1>"));
    EXPECT_TRUE(Holds(page, "name=\"viewport\""));
}

TEST_F(HtmlDocumentTest, needs_no_other_file) {
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    const std::string page = Page();
    for (const char* way : {"src=", "href=", "url(", "@import", "<script", "http"})
        EXPECT_FALSE(Holds(page, way)) << way;
}

TEST_F(HtmlDocumentTest, has_a_style_for_print_and_one_for_phones) {
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "@media print"));
    EXPECT_TRUE(Holds(page, "max-width:40rem"));
}

TEST_F(HtmlDocumentTest, is_whole_without_a_single_table) {
    EXPECT_TRUE(Holds(Page(), "</html>"));
}

TEST_F(HtmlDocumentTest, uses_the_font_of_the_report) {
    vp.Font({"Courier New", 12.5, false, true});
    vp.AddTable("<~100%;", {"a"});
    EXPECT_TRUE(Holds(Page(), "body{font:italic 12.5pt/1.35 \"Courier New\",Arial,sans-serif}"));
}

TEST_F(HtmlDocumentTest, lets_no_font_name_break_out_of_the_style) {
    vp.Font({"A\"}</style><b>\\'", 9, false, false});
    vp.AddTable("<~100%;", {"a"});
    const std::string page = Page();
    EXPECT_EQ(CountOf(page, "</style>"), 1U);
    EXPECT_FALSE(Holds(page, "<b>"));
}

// ---- tables ----

TEST_F(HtmlDocumentTest, has_one_table_for_the_rows_that_belong_together) {
    vp.AddTable("<~100%;", {"a line"});
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    vp.AddTable("<~50%|<~50%;", {"c", "d"});
    vp.Meaning({"Something else", {}, 1, "", ""});
    vp.AddTable("<~50%|<~50%;", {"e", "f"});
    vp.TableBorder(TableBorders::Box);
    vp.AddTable("<~50%|<~50%;", {"g", "h"});
    const std::string body = Body();
    EXPECT_EQ(CountOf(body, "<table"), 3U) << body;
    EXPECT_EQ(CountOf(body, "<tr>"), 4U);
}

TEST_F(HtmlDocumentTest, keeps_shares_of_the_width) {
    vp.AddTable("<~15.5%|^~12%;", {"a", "b"});
    EXPECT_TRUE(Holds(Body(), "<col style=\"width:15.5%\"><col style=\"width:12%\">"));
}

TEST_F(HtmlDocumentTest, aligns_cells_as_their_columns) {
    vp.AddTable("<~30%|^~30%|>~30%;", {"left", "middle", "right"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "<th scope=\"row\" class=\"k0\">left</th>")) << body;
    EXPECT_TRUE(Holds(body, "<td class=\"k0 c\">middle</td>")) << body;
    EXPECT_TRUE(Holds(body, " r")) << body;
}

TEST_F(HtmlDocumentTest, makes_line_feeds_line_breaks) {
    vp.AddTable("<~100%;", {"a\nb"});
    EXPECT_TRUE(Holds(Body(), "a<br>b"));
}

TEST_F(HtmlDocumentTest, breaks_a_line_of_text_between_words_but_not_inside_a_date) {
    vp.AddTable("<~100%;", {"from  1-Mar-2026 to <x-y>"});
    EXPECT_TRUE(
        Holds(Body(), ">from  <span class=\"n\">1-Mar-2026</span> to <span class=\"n\">&lt;x-y&gt;</span><"))
        << Body();
}

TEST_F(HtmlDocumentTest, marks_head_cells_and_names_the_cells_below_them) {
    vp.AddTable("<~20%|^~+40%|^~+40%;", {"", "Sunday\n1-Mar-2026", "Monday\n2-Mar-2026"});
    vp.AddTable("<~20%|^~40%|^~40%;", {"Adams", "8-12", "9-13"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "<th scope=\"col\"")) << body;
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "td:nth-child(2)::before{content:\"Sunday\\0a 1-Mar-2026\"}")) << page;
    EXPECT_TRUE(Holds(page, "td:nth-child(3)::before{content:\"Monday\\0a 2-Mar-2026\"}"));
}

TEST_F(HtmlDocumentTest, captions_a_table_by_its_first_text) {
    vp.AddTable("<~50%|<~50%;", {"Adams Ann\nBaker", "8-12"});
    EXPECT_TRUE(Holds(Body(), "<caption class=\"hidden\">Adams Ann</caption>"));
}

TEST_F(HtmlDocumentTest, captions_a_table_by_its_first_text_that_shows) {
    vp.AddTable("<~50%|<~50%;", {" \nBaker", "8-12"});
    EXPECT_TRUE(Holds(Body(), "<caption class=\"hidden\">Baker</caption>"));
    vp.StartDoc();
    vp.AddTable("<~50%|<~50%;", {"\x01", " "});
    EXPECT_TRUE(Holds(Body(), "<caption class=\"hidden\">Schedule</caption>"));
}

TEST_F(HtmlDocumentTest, does_not_pass_a_line_of_text_for_a_table_of_data) {
    vp.AddTable("<~100%;", {"Adams"});
    EXPECT_EQ(Body(), "<p class=\"line k0\">Adams</p>\n");
}

TEST_F(HtmlDocumentTest, begins_with_its_title_where_the_report_does) {
    vp.AddTable("^~100%;", {"Title\nPrinted on: 3/5/2026"});
    vp.AddTable("^+100%;", {" "});
    vp.AddTable("<~100%;", {"Adams"});
    const std::string page = Page();
    EXPECT_TRUE(
        Holds(page, "<h1 class=\"line k0 c\">Title</h1>\n<p class=\"line k0 c\">Printed on: 3/5/2026</p>"))
        << page;
    EXPECT_EQ(CountOf(page, ">Title<"), 2U) << "in the head and once on the page";
    EXPECT_TRUE(Holds(page, "<p class=\"line k0 gap\">Adams</p>")) << "the blank line is room, not a line";
}

TEST_F(HtmlDocumentTest, shows_no_box_in_which_nothing_stands) {
    vp.TableBorder(TableBorders::Box);
    vp.AddTable("99.5%;", {" "});
    EXPECT_EQ(Body(), "");
}

TEST_F(HtmlDocumentTest, makes_headings_headings) {
    vp.FontBold(true);
    vp.NextRow({RowKind::Heading, {}});
    vp.AddTable("^~30%|>40% |^30%;", {" Productivity", ""}, QBColor(11));
    vp.AddTable("<~100%;", {"Adams"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "<h2 class=\"line k0 c b\" style=\"background:#00ffff\">")) << body;
    EXPECT_TRUE(Holds(body, " Productivity</span></h2>")) << body;
    EXPECT_TRUE(Holds(body, "<p class=\"line")) << "the next row is plain again";
}

TEST_F(HtmlDocumentTest, has_a_row_for_each_line_where_lines_belong_together) {
    vp.NextRow({RowKind::Lines, {}});
    vp.AddTable("<~30%|<~70%;", {"Sales\nTrans.", "100\n"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "<tr><th scope=\"row\" class=\"k0\">Sales</th><td class=\"k0\">100</td></tr>"))
        << body;
    EXPECT_TRUE(Holds(body, "<tr><th scope=\"row\" class=\"k0\">Trans.</th><td></td></tr>")) << body;
}

TEST_F(HtmlDocumentTest, lists_those_whom_it_is_about_with_links_to_them) {
    for (const char* name : {"Adams Ann", "Baker <Bob>"}) {
        vp.About(name);
        vp.AddTable("<~100%;", {name});
    }
    const std::string page = Page();
    EXPECT_TRUE(Holds(page, "<li><a href=\"#p1\">Adams Ann</a></li>\n"
                            "<li><a href=\"#p2\">Baker &lt;Bob&gt;</a></li>"))
        << page;
    EXPECT_TRUE(Holds(page, "<section id=\"p1\">\n<p class=\"line k0\">Adams Ann</p>")) << page;
    EXPECT_TRUE(Holds(page, "<section id=\"p2\">\n<p class=\"line k0\">Baker"));
    EXPECT_LT(page.find("<nav"), page.find("<section"));
}

TEST_F(HtmlDocumentTest, lists_nobody_where_there_is_but_one) {
    vp.About("Adams Ann");
    vp.AddTable("<~100%;", {"Adams Ann"});
    EXPECT_FALSE(Holds(Page(), "<nav"));
}

TEST_F(HtmlDocumentTest, gives_everybody_a_group_of_rows_in_a_table_of_all) {
    vp.AddTable("<~20%|^~+80%;", {"", "Sunday"});
    vp.About("Adams Ann");
    vp.AddTable("<~20%|^~80%;", {"Adams Ann\nCashier", "8-12"});
    vp.NextRow({RowKind::Figures, {}});
    vp.AddTable("<~20%|^~80%;", {"Total: 4:00", "Hours 4:00"});
    vp.About("");
    vp.AddTable("<~20%|^~80%;", {"Day Totals", "4:00"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "<tbody id=\"p1\"><tr><th scope=\"rowgroup\"")) << body;
    EXPECT_TRUE(Holds(body, "<span role=\"heading\" aria-level=\"2\">Adams Ann</span><br>Cashier</th>"))
        << body;
    EXPECT_TRUE(Holds(body, "<tr class=\"figures\"><td")) << body;
    EXPECT_TRUE(Holds(body, "</tbody>\n<tbody><tr><th scope=\"row\"")) << body;
    EXPECT_EQ(CountOf(body, "<table"), 1U);
}

TEST_F(HtmlDocumentTest, says_of_a_cell_that_it_has_nothing) {
    vp.Meaning({"Times", {{"Name"}, {"Sunday"}}, 1, "no time", ""});
    vp.NextRow({RowKind::Cells, 0b10});
    vp.AddTable("<~20%|^~80%;", {"Adams", ""});
    vp.AddTable("<~20%|^~80%;", {"Baker", ""});
    vp.Meaning({"Times", {{"Name"}, {"Sunday"}}, 1, "", ""});
    vp.NextRow({RowKind::Cells, 0b10});
    vp.AddTable("<~20%|^~80%;", {"Clark", ""});
    const std::string body = Body();
    EXPECT_EQ(CountOf(body, "<td><span class=\"none\">no time</span></td>"), 1U) << body;
    EXPECT_TRUE(Holds(body, ">Baker</th><td></td>")) << body;
    EXPECT_TRUE(Holds(body, ">Clark</th><td class=\"gone\"></td>")) << "a phone leaves it out";
}

TEST_F(HtmlDocumentTest, names_the_language_of_the_calendars_words_where_it_is_another) {
    vp.Meaning({"Times", {{"Name"}, {"sÃ¸ndag", CalendarWords::InHead}}, 1, "", ""});
    vp.AddTable("<~20%|^~80%;", {"Adams", "8-12"});
    vp.EndDoc();
    EXPECT_TRUE(Holds(HtmlOf(vp, "Title", "nb"), "<th scope=\"col\" lang=\"nb\"><span"));
    EXPECT_FALSE(Holds(HtmlOf(vp, "Title", "en-GB"), "lang=\"en-GB\""));
}

TEST_F(HtmlDocumentTest, shades_a_row_and_colours_its_texts) {
    vp.TextColor(QBColor(12));
    vp.AddTable("<~50%|<~50%;", {"a", "b"}, RGB(248, 254, 175));
    EXPECT_TRUE(Holds(Body(), "background:#f8feaf"));
    EXPECT_TRUE(Holds(Page(), ".k0{color:#"));
}

TEST_F(HtmlDocumentTest, borders_tables_as_they_are_on_paper) {
    vp.TableBorder(TableBorders::Box);
    vp.AddTable("<~100%;", {"a"});
    vp.TableBorder(TableBorders::BoxColumns);
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "<p class=\"line k0 box\">")) << body;
    EXPECT_TRUE(Holds(body, "columns")) << body;
}

TEST_F(HtmlDocumentTest, keeps_a_cell_bold_or_not_as_it_was_touched_up) {
    vp.FontBold(true);
    vp.StartTable();
    vp.AddTable("<~50%|<~50%;", {"plain", "heavy"});
    vp.TableCell(CellSetting::Bold, 1, 1, 0);
    vp.EndTable();
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "class=\"k0\">plain")) << body;
    EXPECT_TRUE(Holds(body, "class=\"k0 b\"")) << body;
}

// ---- texts ----

TEST_F(HtmlDocumentTest, shows_marks_of_markup_as_letters) {
    vp.AddTable("<~50%|<~50%;", {"O'Neil <b> & \"Co\"", "</td></table><script>"});
    const std::string body = Body();
    EXPECT_TRUE(Holds(body, "O&#39;Neil &lt;b&gt; &amp; &quot;Co&quot;")) << body;
    EXPECT_TRUE(Holds(body, "&lt;/td&gt;&lt;/table&gt;&lt;script&gt;")) << body;
    EXPECT_FALSE(Holds(body, "<script"));
    EXPECT_EQ(CountOf(body, "</table>"), 1U);
}

TEST_F(HtmlDocumentTest, shows_marks_of_markup_as_letters_in_its_title_too) {
    const std::string page = Page("</title><script>");
    EXPECT_FALSE(Holds(page, "<script"));
    EXPECT_EQ(CountOf(page, "</title>"), 1U);
}

TEST_F(HtmlDocumentTest, shows_marks_of_markup_as_letters_in_the_names_of_columns) {
    vp.AddTable("<~20%|^~+80%;", {"", "Sun\"><script>"});
    vp.AddTable("<~20%|^~80%;", {"Adams", "8-12"});
    EXPECT_FALSE(Holds(Body(), "<script"));
}

TEST_F(HtmlDocumentTest, lets_a_name_run_from_right_to_left) {
    vp.AddTable("<~50%|<~50%;", {"שרה כהן", "8-12"});
    EXPECT_TRUE(Holds(Body(), "dir=\"auto\">שרה כהן<")) << Body();
    EXPECT_EQ(CountOf(Body(), "dir="), 1U) << "only where letters beyond ASCII stand";
}

TEST_F(HtmlDocumentTest, keeps_a_name_from_turning_its_line_round) {
    vp.AddTable("<~100%;", {"\u2068שרה כהן\u2069,  Week from 1-Mar-2026"});
    EXPECT_TRUE(Holds(Body(), "dir=\"auto\"><bdi>שרה כהן</bdi>,  Week from <span class=\"n\">1-Mar"))
        << Body();
    vp.StartDoc();
    vp.AddTable("<~50%|<~50%;", {"\u2068שרה\u2068", "\u2069 8-12"});
    const std::string body = Body();
    EXPECT_EQ(CountOf(body, "<bdi>"), 4U) << "in the caption and in the cell";
    EXPECT_EQ(CountOf(body, "</bdi>"), 4U) << "whatever marks a name holds: " << body;
}

TEST_F(HtmlDocumentTest, leaves_out_characters_that_a_page_may_not_hold_and_marks_damaged_ones) {
    vp.AddTable("<~100%;", {std::string("a\x01\x7F") + "b\xC2\x85" + "c\xEF\xBF\xBF" + "d\xFF" + "e"});
    EXPECT_TRUE(Holds(Body(), "abcd\xEF\xBF\xBD"
                              "e"))
        << Body();
}

TEST_F(HtmlDocumentTest, of_any_texts_keeps_its_tables) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 300; ++round) {
        vp.StartDoc();
        std::vector<std::string> cells;
        for (int i = 0; i < 3; ++i)
            cells.push_back(random.Chance(50) ? random.Bytes(60) : random.TextOf("<>&\"'/ \n\tbrתé", 60));
        vp.AddTable(random.Chance(50) ? "<~+20%|^~+40%|>40%;" : "<~20%|^~40%|>~40%;", cells);
        const std::string body = Body();
        ASSERT_EQ(CountOf(body, "<table"), 1U);
        ASSERT_EQ(CountOf(body, "<td") + CountOf(body, "<th "), 3U);
        ASSERT_EQ(CountOf(body, "</td>") + CountOf(body, "</th>"), 3U);
        ASSERT_TRUE(std::none_of(body.begin(), body.end(), [](char c) {
            return static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t';
        }));
    }
}

// ---- contrast ----

TEST(Contrast, is_counted_as_the_guidelines_do) {
    EXPECT_DOUBLE_EQ(ContrastOf(QBColor(0), QBColor(15)), 21);
    EXPECT_DOUBLE_EQ(ContrastOf(QBColor(5), QBColor(5)), 1);
    EXPECT_NEAR(ContrastOf(RGB(119, 119, 119), QBColor(15)), 4.48, 0.01);
}

TEST(Contrast, of_every_colour_on_every_ground_can_be_read) {
    for (int text = 0; text < 16; ++text)
        for (int ground = 0; ground < 16; ++ground)
            EXPECT_GE(ContrastOf(Readable(QBColor(text), QBColor(ground)), QBColor(ground)), 4.5)
                << text << " on " << ground;
    EXPECT_GE(ContrastOf(Readable(QBColor(9), RGB(248, 254, 175)), RGB(248, 254, 175)), 4.5);
}

TEST(Contrast, that_is_enough_leaves_the_colour_alone) {
    for (const int enough : {0, 1, 2, 3, 4, 5, 9})
        EXPECT_EQ(Readable(QBColor(enough), QBColor(15)), QBColor(enough)) << enough;
    EXPECT_NE(Readable(QBColor(10), QBColor(15)), QBColor(10)) << "bright green on white is too faint";
}

TEST(Contrast, of_any_two_colours_can_be_reached) {
    test::Random random;
    SCOPED_TRACE(random.Trace());
    for (int round = 0; round < 5000; ++round) {
        const auto any = [&] { return static_cast<Colour>(random.Whole(0, 0xFFFFFF)); };
        const Colour ground = any();
        ASSERT_GE(ContrastOf(Readable(any(), ground), ground), 4.5) << ground;
    }
}

TEST_F(HtmlDocumentTest, has_only_colours_that_can_be_read) {
    for (int i = 0; i < 16; ++i) {
        vp.TextColor(QBColor(i));
        vp.AddTable("<~50%|<~50%;", {"a", "b"});
    }
    const std::string page = Page();
    std::size_t seen = 0;
    for (std::size_t at = 0; (at = page.find("{color:#", at)) != std::string::npos; ++seen) {
        const unsigned long hex = std::stoul(page.substr(at += 8, 6), nullptr, 16);
        const Colour colour = RGB(hex >> 16 & 0xFF, hex >> 8 & 0xFF, hex & 0xFF);
        EXPECT_GE(ContrastOf(colour, QBColor(15)), 4.5) << page.substr(at, 6);
    }
    EXPECT_EQ(seen, 16U);
}

// ---- the file ----

class HtmlFileTest : public HtmlDocumentTest {
  protected:
    test::TempFolder folder;
    void Write(const std::filesystem::path& file) { WriteHtml(vp, "Title", "en", file); }
    std::string Trouble(const std::filesystem::path& file) {
        try {
            Write(file);
            return "written";
        } catch (const FileError& trouble) {
            return std::to_string(trouble.Number());
        }
    }
    void SetUp() override {
        HtmlDocumentTest::SetUp();
        vp.AddTable("<~50%|<~50%;", {"Adams", "8-12"});
        vp.EndDoc();
    }
};

TEST_F(HtmlFileTest, holds_the_page) {
    Write(folder / "week.HTM");
    EXPECT_EQ(test::ReadFile(folder / "week.HTM"), HtmlOf(vp, "Title", "en"));
}

TEST_F(HtmlFileTest, takes_the_place_of_an_older_one) {
    test::WriteFile(folder / "week.HTM", "old");
    Write(folder / "week.HTM");
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"week.HTM"});
    EXPECT_NE(test::ReadFile(folder / "week.HTM"), "old");
}

TEST_F(HtmlFileTest, cannot_be_written_where_there_is_no_folder) {
    EXPECT_EQ(Trouble(folder / "none/week.HTM"), "76");
}

TEST_F(HtmlFileTest, cannot_take_the_place_of_a_folder) {
    std::filesystem::create_directory(folder / "week.HTM");
    EXPECT_EQ(Trouble(folder / "week.HTM"), "75");
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"week.HTM"});
}

TEST_F(HtmlFileTest, of_another_user_stays_as_it_was) {
    test::WriteFile(folder / "week.HTM", "old");
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0555));
    EXPECT_EQ(test::AskAnotherUser([&] { return Trouble(folder / "week.HTM"); }), "70");
    EXPECT_EQ(test::ReadFile(folder / "week.HTM"), "old");
}

TEST_F(HtmlFileTest, stays_as_it_was_on_a_full_disk) {
    test::WriteFile(folder / "week.HTM", "old");
    EXPECT_EQ(test::AskOnFullDisk(600, [&] { return Trouble(folder / "week.HTM"); }), "61");
    EXPECT_EQ(test::ReadFile(folder / "week.HTM"), "old");
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"week.HTM"});
}

} // namespace
} // namespace tvx
