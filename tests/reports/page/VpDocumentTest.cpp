#include "reports/page/VpDocument.h"

#include "support/FixedMeasures.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr Twips Line = test::FixedMeasures::Line;
constexpr Twips Letter = test::FixedMeasures::Letter;

class VpDocumentTest : public testing::Test {
  protected:
    test::FixedMeasures measures;
    VpDocument vp{measures, Paper{10000, 6000, 0}};

    void SetUp() override { vp.StartDoc(); }

    /// The texts of a page with their places, "x,y text", one a line.
    std::string Texts(int page = 1) const {
        std::string told;
        for (const PageOperation& operation : vp.Page(page))
            if (const auto* text = std::get_if<DrawnPageText>(&operation))
                told += std::to_string(text->x) + "," + std::to_string(text->y) + " " + text->text + "\n";
        return told;
    }
    template <typename Kind>
    std::vector<Kind> All(int page = 1) const {
        std::vector<Kind> all;
        for (const PageOperation& operation : vp.Page(page))
            if (const auto* one = std::get_if<Kind>(&operation)) all.push_back(*one);
        return all;
    }
};

// ---- measures ----

TEST_F(VpDocumentTest, gives_the_size_of_what_can_be_printed_on) {
    VpDocument letter(measures, Paper{12240, 15840, 720});
    EXPECT_EQ(letter.PageWidth(), 10800);
    EXPECT_EQ(letter.PageHeight(), 14400);
}

TEST_F(VpDocumentTest, turns_the_sheet_at_the_next_start) {
    vp.Orientation(PageOrientation::Landscape);
    EXPECT_EQ(vp.PageWidth(), 10000) << "an open document stays as it lies";
    vp.EndDoc();
    EXPECT_EQ(vp.PageWidth(), 6000) << "a report may measure before it starts";
    vp.StartDoc();
    EXPECT_EQ(vp.PageWidth(), 6000);
    EXPECT_EQ(vp.PageHeight(), 10000);
    EXPECT_EQ(std::as_const(vp).Orientation(), PageOrientation::Landscape);
}

TEST_F(VpDocumentTest, takes_another_sheet_at_the_next_start) {
    vp.Sheet(Paper{2000, 3000, 100});
    EXPECT_EQ(vp.PageWidth(), 10000);
    vp.StartDoc();
    EXPECT_EQ(vp.PageWidth(), 1800);
    EXPECT_EQ(vp.PageHeight(), 2800);
}

TEST_F(VpDocumentTest, measures_texts_in_the_present_font) {
    EXPECT_EQ(vp.TextWidth("Anna"), 4 * Letter);
    EXPECT_EQ(vp.TextWidth("Žofie"), 5 * Letter) << "letters, not bytes";
    EXPECT_EQ(vp.TextHeight("V"), Line);
    vp.FontBold(true);
    EXPECT_EQ(vp.TextWidth("Anna"), 4 * test::FixedMeasures::BoldLetter);
}

// ---- drawing ----

TEST_F(VpDocumentTest, draws_a_text_at_the_present_position_in_its_colour_and_font) {
    vp.TextColor(QBColor(12));
    vp.Font({"Courier New", 12, true, true});
    TextAt(vp, 300, 400, "Anna");
    const auto texts = All<DrawnPageText>();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(texts[0].x, 300);
    EXPECT_EQ(texts[0].y, 400);
    EXPECT_EQ(texts[0].colour, QBColor(12));
    EXPECT_EQ(vp.FontAt(texts[0].font), (ReportFont{"Courier New", 12, true, true}));
}

TEST_F(VpDocumentTest, calls_a_font_without_a_name_Arial) {
    vp.Font({"", 10, false, false});
    EXPECT_EQ(std::as_const(vp).Font().name, "Arial");
}

TEST_F(VpDocumentTest, writes_texts_that_end_at_or_stand_around_a_place) {
    TextEndingAt(vp, 1000, 0, "Anna");
    TextCentredAt(vp, 1000, 200, "Anna");
    EXPECT_EQ(Texts(), "640,0 Anna\n820,200 Anna\n");
}

TEST_F(VpDocumentTest, draws_no_empty_text) {
    TextAt(vp, 0, 0, "");
    EXPECT_TRUE(vp.Page(1).empty());
}

TEST_F(VpDocumentTest, draws_lines_with_the_pen) {
    vp.PenColor(Red);
    vp.PenWidth(2);
    vp.DrawLine(1, 2, 3, 4);
    const auto lines = All<DrawnPageLine>();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].x1, 1);
    EXPECT_EQ(lines[0].y2, 4);
    EXPECT_EQ(lines[0].colour, Red);
    EXPECT_EQ(lines[0].width, 2);
}

TEST_F(VpDocumentTest, fills_rectangles_with_the_brush_and_outlines_them_unless_told_not_to) {
    vp.BrushColor(QBColor(11));
    vp.PenColor(QBColor(1));
    vp.DrawRectangle(10, 20, 30, 40);
    vp.PenStyle(PenStyles::NoOutline);
    vp.DrawRectangle(10, 20, 30, 40);
    vp.PenStyle(PenStyles::Solid);
    vp.DrawRectangle(10, 20, 30, 40);
    const auto boxes = All<DrawnPageBox>();
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(boxes[0].box, (TwipsBox{10, 20, 30, 40}));
    EXPECT_EQ(boxes[0].fill, QBColor(11));
    EXPECT_EQ(boxes[0].outline, QBColor(1));
    EXPECT_TRUE(boxes[0].outlined);
    EXPECT_FALSE(boxes[1].outlined);
    EXPECT_TRUE(boxes[2].outlined);
}

// ---- pages ----

TEST_F(VpDocumentTest, counts_pages_from_1) {
    EXPECT_EQ(vp.CurrentPage(), 1);
    vp.NewPage();
    TextAt(vp, 0, 0, "second");
    EXPECT_EQ(vp.CurrentPage(), 2);
    EXPECT_EQ(vp.PageCount(), 2);
    EXPECT_EQ(Texts(1), "");
    EXPECT_EQ(Texts(2), "0,0 second\n");
}

TEST_F(VpDocumentTest, begins_a_page_at_its_top) {
    TextAt(vp, 500, 700, "a");
    vp.NewPage();
    EXPECT_EQ(std::as_const(vp).CurrentX(), 0);
    EXPECT_EQ(std::as_const(vp).CurrentY(), 0);
}

TEST_F(VpDocumentTest, may_be_closed_twice) {
    TextAt(vp, 0, 0, "kept");
    vp.EndDoc();
    vp.EndDoc();
    EXPECT_FALSE(vp.IsOpen());
    EXPECT_EQ(vp.PageCount(), 1);
    EXPECT_EQ(Texts(), "0,0 kept\n");
}

TEST_F(VpDocumentTest, takes_nothing_after_it_was_closed) {
    vp.EndDoc();
    TextAt(vp, 0, 0, "late");
    vp.DrawLine(0, 0, 1, 1);
    vp.DrawRectangle(0, 0, 1, 1);
    vp.AddTable("<100%;", {"late"});
    vp.NewPage();
    EXPECT_EQ(vp.PageCount(), 1);
    EXPECT_TRUE(vp.Page(1).empty());
    EXPECT_TRUE(vp.Tables().empty());
}

TEST_F(VpDocumentTest, starts_from_nothing_each_time) {
    vp.TextColor(Red);
    vp.PenWidth(2);
    vp.PenStyle(PenStyles::NoOutline);
    vp.TableBorder(TableBorders::Box);
    vp.AddTable("<100%;", {"old"});
    vp.StartTable();
    vp.NewPage();
    vp.StartDoc();
    vp.AddTable("<100%;", {"new"});
    TextAt(vp, 0, 900, "new");
    vp.DrawRectangle(0, 0, 1, 1);
    vp.DrawLine(0, 0, 1, 1);
    EXPECT_EQ(vp.PageCount(), 1);
    ASSERT_EQ(vp.Tables().size(), 1U) << "a table that was being touched up is gone with its document";
    EXPECT_EQ(vp.Tables()[0].border, TableBorders::None);
    EXPECT_EQ(All<DrawnPageText>().back().colour, 0U);
    EXPECT_TRUE(All<DrawnPageBox>().back().outlined);
    EXPECT_EQ(All<DrawnPageLine>().back().width, 0);
}

TEST_F(VpDocumentTest, keeps_the_font_from_one_document_to_the_next) {
    vp.Font({"Courier New", 12, false, false});
    vp.StartDoc();
    EXPECT_EQ(std::as_const(vp).Font().name, "Courier New");
}

// ---- tables ----

TEST_F(VpDocumentTest, lays_a_row_out_by_its_columns) {
    vp.AddTable("<~25%|^~25%|>~50%;", {"left", "mid", "right"});
    EXPECT_EQ(Texts(), "45,22 left\n"
                       "3615,22 mid\n"
                       "9505,22 right\n");
}

TEST_F(VpDocumentTest, puts_one_table_below_the_other) {
    vp.CurrentY(1000);
    vp.AddTable("<~100%;", {"first\nof two lines"});
    vp.AddTable("<~100%;", {"second"});
    EXPECT_EQ(Texts(), "45,1022 first\n45,1222 of two lines\n45,1467 second\n");
}

TEST_F(VpDocumentTest, gives_a_missing_cell_no_text_and_drops_one_too_many) {
    vp.AddTable("<~50%|<~50%;", {"only"});
    vp.AddTable("<~100%;", {"only", "more"});
    ASSERT_EQ(vp.Tables().size(), 2U);
    EXPECT_EQ(vp.Tables()[0].cells.size(), 2U);
    EXPECT_EQ(vp.Tables()[0].cells[1].text, "");
    EXPECT_EQ(vp.Tables()[1].cells.size(), 1U);
}

TEST_F(VpDocumentTest, wraps_a_cell_at_blanks_unless_its_lines_are_kept) {
    // 10 per cent of 10000 less the padding is 910 twips, ten letters.
    vp.AddTable("<10%;", {"one two three four"});
    EXPECT_EQ(Texts(), "45,22 one two\n45,222 three four\n");
    vp.StartDoc();
    vp.AddTable("<~10%;", {"one two three four"});
    EXPECT_EQ(Texts(), "45,22 one two three four\n");
}

TEST_F(VpDocumentTest, does_not_lose_a_word_that_is_wider_than_its_column) {
    vp.AddTable("<10%;", {"incomprehensible word"});
    EXPECT_EQ(Texts(), "45,22 incomprehensible\n45,222 word\n");
}

TEST_F(VpDocumentTest, breaks_cells_at_line_feeds_of_any_kind) {
    vp.AddTable("<~100%;", {"a\r\nb\nc"});
    EXPECT_EQ(vp.Tables()[0].cells[0].text, "a\nb\nc");
    EXPECT_EQ(Texts(), "45,22 a\n45,222 b\n45,422 c\n");
}

TEST_F(VpDocumentTest, shades_a_row_over_the_whole_width_below_its_texts) {
    vp.AddTable("<~50%;", {"a"}, QBColor(11));
    ASSERT_EQ(vp.Page(1).size(), 2U);
    const auto* box = std::get_if<DrawnPageBox>(vp.Page(1).data());
    ASSERT_NE(box, nullptr) << "the shade comes first";
    EXPECT_EQ(box->box, (TwipsBox{0, 0, 10000, 245}));
    EXPECT_EQ(box->fill, QBColor(11));
    EXPECT_FALSE(box->outlined);
}

TEST_F(VpDocumentTest, borders_a_table_with_nothing_a_box_or_a_box_with_columns) {
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    EXPECT_EQ(All<DrawnPageLine>().size(), 0U);
    vp.TableBorder(TableBorders::Box);
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    EXPECT_EQ(All<DrawnPageLine>().size(), 4U);
    vp.TableBorder(TableBorders::BoxColumns);
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    const auto lines = All<DrawnPageLine>();
    ASSERT_EQ(lines.size(), 4U + 5U);
    EXPECT_EQ(lines.back().x1, 5000);
    EXPECT_EQ(lines.back().x2, 5000);
}

TEST_F(VpDocumentTest, touches_up_the_cells_of_a_table_before_it_is_drawn) {
    vp.TextColor(QBColor(12));
    vp.FontBold(true);
    vp.StartTable();
    vp.AddTable("<~50%|<~50%;", {"a", "b"});
    vp.TableCell(CellSetting::TextColor, 1, 1, QBColor(9));
    vp.TableCell(CellSetting::Bold, 1, 1, 0);
    EXPECT_TRUE(vp.Page(1).empty());
    vp.EndTable();
    const auto texts = All<DrawnPageText>();
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].colour, QBColor(9));
    EXPECT_FALSE(vp.FontAt(texts[0].font).bold);
    EXPECT_EQ(texts[1].colour, QBColor(12));
    EXPECT_TRUE(vp.FontAt(texts[1].font).bold);
}

TEST_F(VpDocumentTest, does_nothing_when_a_cell_that_is_not_there_is_touched_up) {
    vp.TableCell(CellSetting::TextColor, 1, 1, Red);
    vp.EndTable();
    vp.StartTable();
    vp.EndTable();
    EXPECT_TRUE(vp.Tables().empty());
    vp.StartTable();
    vp.AddTable("<~100%;", {"a"});
    vp.TableCell(CellSetting::TextColor, 1, 2, Red);
    vp.TableCell(CellSetting::TextColor, 1, 0, Red);
    vp.TableCell(CellSetting::TextColor, 2, 1, Red);
    vp.EndTable();
    ASSERT_EQ(vp.Tables().size(), 1U);
    EXPECT_EQ(vp.Tables()[0].cells[0].colour, 0U);
}

TEST_F(VpDocumentTest, keeps_every_row_of_a_table_and_touches_up_the_cells_of_each) {
    vp.StartTable();
    vp.AddTable("<~90%|<~10%;", {"title", "Page 1"});
    vp.AddTable("<~100%;", {"below"});
    vp.AddTable("<~100%;", {" "});
    vp.TableCell(CellSetting::TextColor, 1, 2, Red);
    vp.TableCell(CellSetting::TextColor, 2, 1, QBColor(9));
    vp.TableCell(CellSetting::TextColor, 4, 1, QBColor(9));
    vp.TableCell(CellSetting::TextColor, 0, 1, QBColor(9));
    EXPECT_TRUE(vp.Tables().empty()) << "until the table ends";
    vp.EndTable();
    ASSERT_EQ(vp.Tables().size(), 3U);
    EXPECT_EQ(vp.Tables()[0].cells[1].colour, Red);
    EXPECT_EQ(vp.Tables()[0].cells[0].colour, 0U);
    EXPECT_EQ(vp.Tables()[1].cells[0].colour, QBColor(9));
    EXPECT_EQ(Texts(), "45,22 title\n9045,22 Page 1\n45,267 below\n45,512  \n");
}

TEST_F(VpDocumentTest, keeps_a_row_together_on_the_next_page) {
    vp.CurrentY(5500);
    vp.AddTable("<~100%;", {"a\nb\nc"});
    EXPECT_EQ(vp.PageCount(), 2);
    EXPECT_EQ(Texts(1), "");
    EXPECT_EQ(Texts(2), "45,22 a\n45,222 b\n45,422 c\n");
}

TEST_F(VpDocumentTest, carries_a_row_that_is_higher_than_a_page_on_over_pages) {
    std::string cell = "1";
    for (int i = 2; i <= 70; ++i) cell += "\n" + std::to_string(i);
    vp.AddTable("<~100%;", {cell});
    EXPECT_EQ(vp.PageCount(), 3) << "29 lines fit a page of 6000 twips";
    EXPECT_EQ(All<DrawnPageText>(1).size() + All<DrawnPageText>(2).size() + All<DrawnPageText>(3).size(),
              70U);
    EXPECT_EQ(All<DrawnPageText>(2).front().text, "30");
    for (int page = 1; page <= 3; ++page)
        for (const DrawnPageText& text : All<DrawnPageText>(page)) EXPECT_LE(text.y + Line, 6000);
}

TEST_F(VpDocumentTest, puts_a_line_on_each_page_of_a_sheet_too_low_for_any) {
    VpDocument low(measures, Paper{1000, 50, 0});
    low.StartDoc();
    low.AddTable("<~100%;", {"a\nb\nc"});
    low.AddTable("<~100%;", {"d"});
    EXPECT_EQ(low.PageCount(), 4);
}

TEST_F(VpDocumentTest, draws_tables_and_texts_in_the_order_in_which_they_came) {
    vp.AddTable("<~100%;", {"table"});
    vp.Text("below it");
    vp.AddTable("<~100%;", {"another"});
    EXPECT_EQ(std::as_const(vp).CurrentY(), 490);
    vp.NewPage();
    vp.AddTable("<~100%;", {"last"});
    vp.EndDoc();
    EXPECT_EQ(Texts(1), "45,22 table\n0,245 below it\n45,267 another\n");
    EXPECT_EQ(Texts(2), "45,22 last\n");
}

TEST_F(VpDocumentTest, lays_tables_out_on_its_own_sheet_whatever_is_wanted_for_the_next) {
    vp.AddTable(">~100%;", {"right"});
    vp.EndDoc();
    vp.Orientation(PageOrientation::Landscape);
    vp.Sheet(Paper{100, 100, 0});
    vp.PenColor(Red);
    EXPECT_EQ(Texts(), "9505,22 right\n");
}

TEST_F(VpDocumentTest, borders_a_table_with_the_pen_that_it_had) {
    vp.TableBorder(TableBorders::Box);
    vp.PenColor(QBColor(1));
    vp.AddTable("<~100%;", {"a"});
    vp.PenColor(QBColor(2));
    EXPECT_EQ(All<DrawnPageLine>().front().colour, QBColor(1));
}

TEST_F(VpDocumentTest, stands_a_sheet_that_is_all_margin) {
    VpDocument margin(measures, Paper{1000, 1000, 720});
    margin.StartDoc();
    TextAt(margin, 0, 0, "a");
    margin.AddTable("<~50%|>~50%;", {"a", "b c d"});
    EXPECT_GE(margin.PageCount(), 1);
}

// ---- the page event ----

class PageEventTest : public VpDocumentTest {
  protected:
    /// Draws the number of the page in a table of its own, in another font and colour.
    void HeadEachPage() {
        vp.OnPage([this] {
            vp.FontBold(true);
            vp.TextColor(Red);
            vp.TableBorder(TableBorders::Box);
            vp.AddTable("<~100%;", {"Page " + std::to_string(vp.CurrentPage())});
        });
        vp.StartDoc();
    }
};

TEST_F(PageEventTest, is_raised_at_the_first_page_too_and_what_follows_stands_below) {
    HeadEachPage();
    EXPECT_EQ(std::as_const(vp).CurrentY(), 245);
    vp.Text("body");
    EXPECT_EQ(Texts(), "45,22 Page 1\n0,245 body\n");
}

TEST_F(PageEventTest, is_raised_by_a_new_page_and_by_a_table_that_does_not_fit_in_drawing_order) {
    HeadEachPage();
    vp.NewPage();
    vp.CurrentY(5600);
    vp.AddTable("<~100%;", {"first"});
    vp.AddTable("<~100%;", {"second"});
    vp.AddTable("<~100%;", {"third"});
    EXPECT_EQ(Texts(1), "45,22 Page 1\n");
    EXPECT_EQ(Texts(2), "45,22 Page 2\n45,5622 first\n");
    EXPECT_EQ(Texts(3), "45,22 Page 3\n45,267 second\n45,512 third\n");
}

TEST_F(PageEventTest, leaves_font_and_colours_as_they_were) {
    HeadEachPage();
    vp.TextColor(QBColor(9));
    vp.NewPage();
    vp.Text("body");
    const auto texts = All<DrawnPageText>(2);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].colour, Red);
    EXPECT_TRUE(vp.FontAt(texts[0].font).bold);
    EXPECT_EQ(texts[1].colour, QBColor(9));
    EXPECT_FALSE(vp.FontAt(texts[1].font).bold);
}

TEST_F(PageEventTest, comes_between_the_parts_of_a_row_that_is_higher_than_a_page) {
    HeadEachPage();
    std::string cell = "1";
    for (int i = 2; i <= 70; ++i) cell += "\n" + std::to_string(i);
    vp.AddTable("<~100%;", {cell});
    EXPECT_EQ(vp.PageCount(), 3);
    for (int page = 1; page <= 3; ++page) {
        const auto texts = All<DrawnPageText>(page);
        EXPECT_EQ(texts.front().text, "Page " + std::to_string(page));
        for (const DrawnPageText& text : texts) EXPECT_LE(text.y + Line, 6000);
    }
}

TEST_F(PageEventTest, draws_a_foot_and_leaves_the_body_its_place) {
    vp.OnPage([this] {
        const Twips y = std::as_const(vp).CurrentY();
        TextAt(vp, 0, vp.PageHeight() - Line, "foot");
        vp.CurrentY(y);
    });
    vp.StartDoc();
    vp.AddTable("<~100%;", {"body"});
    EXPECT_EQ(Texts(), "0,5800 foot\n45,22 body\n");
}

TEST_F(PageEventTest, does_not_mix_with_a_table_that_is_being_collected) {
    HeadEachPage();
    vp.StartTable();
    vp.AddTable("<~100%;", {"row"});
    vp.NewPage();
    vp.EndTable();
    EXPECT_EQ(Texts(2), "45,22 Page 2\n45,267 row\n");
}

TEST_F(PageEventTest, shows_nothing_on_a_web_page) {
    HeadEachPage();
    vp.AddTable("<~100%;", {"body"});
    vp.NewPage();
    ASSERT_EQ(vp.Tables().size(), 1U);
    EXPECT_EQ(vp.Tables()[0].cells[0].text, "body");
}

TEST_F(PageEventTest, is_forgotten_when_the_document_is_closed) {
    HeadEachPage();
    vp.EndDoc();
    vp.StartDoc();
    vp.NewPage();
    EXPECT_EQ(Texts(1), "");
    EXPECT_EQ(Texts(2), "");
}

TEST_F(PageEventTest, ends_where_its_head_is_higher_than_the_page) {
    VpDocument low(measures, Paper{1000, 300, 0});
    low.OnPage([&] {
        low.AddTable("<~100%;", {"a"});
        low.AddTable("<~100%;", {"b"});
    });
    low.StartDoc();
    low.AddTable("<~100%;", {"c\nd"});
    EXPECT_LT(low.PageCount(), 10);
}

// ---- paper's colours ----

TEST_F(VpDocumentTest, has_black_where_a_screen_has_the_desktops_text) {
    vp.TextColor(WindowText);
    vp.PenColor(WindowText);
    vp.BrushColor(ButtonFace);
    vp.Text("text");
    vp.DrawRectangle(0, 0, 1, 1);
    vp.TextColor(ButtonFace);
    vp.AddTable("<~100%;", {"cell"}, ButtonFace);
    EXPECT_EQ(All<DrawnPageText>()[0].colour, QBColor(0));
    EXPECT_EQ(All<DrawnPageBox>()[0].outline, QBColor(0));
    EXPECT_EQ(All<DrawnPageBox>()[0].fill, RGB(240, 240, 240));
    EXPECT_EQ(vp.Tables()[0].shade, RGB(240, 240, 240));
    for (int colour = 0; colour < 16; ++colour) EXPECT_EQ(PaperColour(QBColor(colour)), QBColor(colour));
}

// ---- the size that fits ----

/// Letters as wide as the size; from 8 points up half as wide again, as hinted fonts can jump.
class SizedMeasures : public FontMeasures {
  public:
    Twips Width(const ReportFont& font, std::string_view text) const override {
        const double letter = font.size * 10 * (font.size > 8 ? 1.5 : 1) + (font.bold ? 20 : 0);
        return static_cast<Twips>(letter * static_cast<double>(text.size()));
    }
    Twips Height(const ReportFont& font) const override { return static_cast<Twips>(font.size * 20); }
};

class FittingSizeTest : public testing::Test {
  protected:
    SizedMeasures measures;
    VpDocument vp{measures};

    std::optional<double> From(double size, const std::vector<WidestText>& texts) {
        vp.Font({"Arial", size, false, false});
        return vp.FittingSize(texts);
    }
};

TEST_F(FittingSizeTest, is_the_chosen_one_where_everything_fits) {
    EXPECT_EQ(From(11, {{"abcd", 660}}), 11);
    EXPECT_EQ(From(9.3, {{"abcd", 600}, {"", 0}}), 9.3);
    EXPECT_EQ(From(9, {}), 9);
}

TEST_F(FittingSizeTest, goes_down_by_halves_of_a_point_and_measures_each) {
    EXPECT_EQ(From(11, {{"abcd", 570}}), 9.5);
    EXPECT_EQ(From(9.3, {{"abcd", 550}}), 9);
    EXPECT_EQ(From(11, {{"abcd", 500}}), 8) << "by proportion it would be less";
    EXPECT_EQ(From(11, {{"abcd", 570}, {"abcdefgh", 600}}), 7.5) << "of all columns the narrowest";
}

TEST_F(FittingSizeTest, measures_bold_texts_in_bold) {
    EXPECT_EQ(From(8, {{"abcd", 320}}), 8);
    EXPECT_EQ(From(8, {{"abcd", 360, true}}), 7);
}

TEST_F(FittingSizeTest, is_none_below_7_points) {
    EXPECT_EQ(From(11, {{"abcd", 280}}), 7);
    EXPECT_EQ(From(11, {{"abcd", 279}}), std::nullopt);
    EXPECT_EQ(From(6, {{"abcd", 240}}), 6) << "the chosen one is asked in any case";
    EXPECT_EQ(From(6, {{"abcd", 239}}), std::nullopt);
}

TEST_F(FittingSizeTest, leaves_the_font_as_it_is) {
    From(11, {{"abcd", 280}});
    EXPECT_EQ(std::as_const(vp).Font().size, 11);
}

} // namespace
} // namespace tvx
