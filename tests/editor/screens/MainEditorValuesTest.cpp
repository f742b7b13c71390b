// The value column, the totals and the labor figures of the Main Editor.
#include "MainEditorFixture.h"

namespace tvx {
namespace {

class MainEditorValuesTest : public MainEditorTest {
  protected:
    /// Chooses an option of the value column.
    void ChooseOption(int option) { Click(Indexed("Label4", option)); }
    Rows Values() { return {ValueOf(1), ValueOf(2), ValueOf(3)}; }
    /// Day and week values of a row, for the options that show both.
    std::string PairOf(int row) {
        return TextOf(Indexed("Label23", row)) + "|" + TextOf(Indexed("Label24", row));
    }
    bool IsPair(int row) {
        return IsShown(Indexed("Label23", row)) && IsShown(Indexed("Label24", row)) &&
               !IsShown(Indexed("Label10", row));
    }
    std::string Totals() {
        return TextOf("Label15(0)") + "|" + TextOf("Label15(1)") + "|" + TextOf("Label15(2)") + "|" +
               TextOf("Label15(3)");
    }
    std::string Figures() {
        std::string figures;
        for (int i = 0; i < 6; ++i) figures += (i == 0 ? "" : "|") + TextOf(Indexed("Label1", i));
        return figures;
    }
};

// --- the options ------------------------------------------------------------------------------------------

TEST_F(MainEditorValuesTest, the_column_begins_with_the_time_of_the_day) {
    Open();
    EXPECT_EQ(TextOf("Label28"), "Day time");
    EXPECT_EQ(Values(), (Rows{" 8:00", " 0:00", " 0:00"}));
    EXPECT_TRUE(test::Find<QPushButton>(*form, "Label4(1)").isChecked());
    EXPECT_EQ(CaptionOf("Label4(1)"), "Day time");
    EXPECT_EQ(GroundOf("Label10(1)"), QBColor(15));
}

TEST_F(MainEditorValuesTest, only_the_chosen_option_is_marked) {
    Open();
    ChooseOption(5);
    ChooseOption(3);
    for (int option = 1; option <= 12; ++option)
        EXPECT_EQ(test::Find<QPushButton>(*form, Indexed("Label4", option)).isChecked(), option == 3)
            << option;
    ChooseOption(3);
    EXPECT_TRUE(test::Find<QPushButton>(*form, "Label4(3)").isChecked());
}

TEST_F(MainEditorValuesTest, day_wages_name_who_is_on_salary) {
    Open();
    ChooseOption(2);
    EXPECT_EQ(TextOf("Label28"), "Day wages");
    EXPECT_EQ(Values(), (Rows{"58.00", "Salary ", ".00"}));
}

TEST_F(MainEditorValuesTest, week_time_counts_all_days) {
    store.PutDay(Sunday + 3, 1, test::StartsStops({{40, 45}}));
    Open();
    ChooseOption(3);
    EXPECT_EQ(Values(), (Rows{" 9:15", " 0:00", " 0:00"}));
    EXPECT_EQ(GroundOf("Label10(1)"), Yellow);
}

TEST_F(MainEditorValuesTest, week_wages_count_all_days) {
    store.PutDay(Sunday + 3, 3, test::StartsStops({{40, 48}}));
    Open();
    ChooseOption(4);
    EXPECT_EQ(Values(), (Rows{"58.00", "Salary ", "20.00"}));
}

TEST_F(MainEditorValuesTest, the_id_stands_beside_the_name) {
    Open();
    ChooseOption(5);
    EXPECT_EQ(TextOf("Label28"), " ID");
    EXPECT_EQ(Values(), (Rows{"A7", "", ""}));
}

TEST_F(MainEditorValuesTest, the_assignment_stands_beside_the_name) {
    Open();
    ChooseOption(6);
    EXPECT_EQ(TextOf("Label28"), "Assignment");
    EXPECT_EQ(Values(), (Rows{"Oven", "", ""}));
}

TEST_F(MainEditorValuesTest, times_of_day_and_week_stand_side_by_side) {
    store.PutDay(Sunday + 3, 1, test::StartsStops({{40, 48}}));
    Open();
    ChooseOption(7);
    EXPECT_EQ(TextOf("Label28"), "D/W time");
    EXPECT_TRUE(IsPair(1));
    EXPECT_EQ(PairOf(1), "  8:00| 10:00");
    EXPECT_EQ(PairOf(2), "  0:00|  0:00");
    ChooseOption(1);
    EXPECT_FALSE(IsPair(1));
}

TEST_F(MainEditorValuesTest, wages_of_day_and_week_stand_side_by_side) {
    store.PutDay(Sunday + 3, 1, test::StartsStops({{40, 48}}));
    Open();
    ChooseOption(8);
    EXPECT_TRUE(IsPair(3));
    EXPECT_EQ(PairOf(1), "58.00|72.50");
    EXPECT_EQ(PairOf(2), "Salary  |Salary  ");
}

TEST_F(MainEditorValuesTest, seven_squares_mark_the_days_with_time) {
    Open();
    ChooseOption(9);
    EXPECT_TRUE(IsShown("squares(1)"));
    EXPECT_FALSE(IsShown("Label10(1)"));
    auto& squares = test::Find<QWidget>(*form, "squares(1)");
    EXPECT_EQ(test::ColourAt(squares, 75 * 1 + 30, 110), Silver); // Sunday
    EXPECT_EQ(test::ColourAt(squares, 75 * 2 + 30, 110), QBColor(2));
    ClickDay(4);
    Drag(1, 40, 48);
    EXPECT_EQ(test::ColourAt(squares, 75 * 4 + 30, 110), QBColor(2));
}

TEST_F(MainEditorValuesTest, the_labor_type_stands_beside_the_name) {
    Open();
    ChooseOption(10);
    EXPECT_EQ(Values(), (Rows{"Part time", "Full time", "Full time"}));
}

TEST_F(MainEditorValuesTest, the_department_stands_beside_every_name) {
    Open();
    ChooseOption(11);
    EXPECT_EQ(Values(), (Rows{"Bakery", "Bakery", "Bakery"}));
}

TEST_F(MainEditorValuesTest, the_month_of_hire_stands_beside_the_name) {
    Open();
    ChooseOption(12);
    EXPECT_EQ(TextOf("Label28"), "Hire date");
    EXPECT_EQ(ValueOf(1), "April-2019");
    EXPECT_EQ(ValueOf(2), "");
}

TEST_F(MainEditorValuesTest, the_column_follows_the_day) {
    Open();
    ChooseOption(7);
    ClickDay(3);
    EXPECT_EQ(PairOf(1), "  0:00|  8:00");
}

TEST_F(MainEditorValuesTest, overtime_is_red) {
    LimitTime(34, 40);
    Open();
    EXPECT_EQ(GroundOf("Label10(1)"), QBColor(15));
    Drag(1, 68, 72);
    EXPECT_EQ(ValueOf(1), " 9:00");
    EXPECT_EQ(GroundOf("Label10(1)"), QBColor(12));
    ChooseOption(7);
    EXPECT_EQ(GroundOf("Label23(1)"), QBColor(12));
    EXPECT_EQ(GroundOf("Label24(1)"), QBColor(14));
    ClickDay(3);
    Drag(1, 36, 44);
    EXPECT_EQ(GroundOf("Label23(1)"), QBColor(15));
    EXPECT_EQ(GroundOf("Label24(1)"), QBColor(12));
}

// --- the totals -------------------------------------------------------------------------------------------

TEST_F(MainEditorValuesTest, the_totals_follow_every_edit) {
    Open();
    EXPECT_EQ(Totals(), " 8:00| 8:00| 58.00| 58.00");
    Drag(3, 32, 48);
    EXPECT_EQ(Totals(), "12:00|12:00| 98.00| 98.00");
    Drag(3, 48, 52); // its end
    EXPECT_EQ(Totals(), "13:00|13:00| 108.00| 108.00");
    Drag(3, 40, 60); // the whole bar
    EXPECT_EQ(Totals(), "13:00|13:00| 108.00| 108.00");
    Drag(2, 32, 36); // on salary
    EXPECT_EQ(Totals(), "14:00|14:00| 108.00| 108.00");
    ClickDay(4);
    EXPECT_EQ(Totals(), " 0:00|14:00| .00| 108.00");
    Drag(1, 40, 44);
    EXPECT_EQ(Totals(), " 1:00|15:00| 7.25| 115.25");
    Drag(1, 44, 40);
    EXPECT_EQ(Totals(), " 0:00|14:00| .00| 108.00");
}

TEST_F(MainEditorValuesTest, a_bar_in_hand_counts_when_it_is_let_go) {
    Open();
    DragAndHold(1, 68, 84);
    EXPECT_EQ(ValueOf(1), " 8:00");
    EXPECT_EQ(Totals(), " 8:00| 8:00| 58.00| 58.00");
    Release(1, 84);
    EXPECT_EQ(ValueOf(1), "12:00");
    EXPECT_EQ(Totals(), "12:00|12:00| 87.00| 87.00");
}

TEST_F(MainEditorValuesTest, the_labor_figures_show_in_a_week_with_sales) {
    store.PutFigures(Sunday + 1, 1000, 40);
    Open();
    EXPECT_TRUE(IsShown("Label1(0)"));
    EXPECT_EQ(Figures(), " 5.80| 125.00| 5.00| 5.80| 125.00| 5.00");
    Drag(3, 32, 64);
    EXPECT_EQ(Figures(), " 13.80| 62.50| 2.50| 13.80| 62.50| 2.50");
    Click("Label8");
    Click("Label7(1)");
    EXPECT_FALSE(IsShown("Label1(0)"));
    EXPECT_FALSE(IsShown("Label5(0)"));
}

// --- narrow screens ---------------------------------------------------------------------------------------

TEST_F(MainEditorValuesTest, the_heads_of_all_options_fit_on_screens_of_any_width) {
    for (const int pixels : {800, 1024, 1280, 1920}) {
        store.g.screen.ScreenWidth = pixels * 15;
        store.g.screen.VisibleHours = std::min(24, (pixels * 15 - 2400) / 480);
        Open();
        for (int option = 1; option <= 12; ++option) {
            Click(Indexed("Label4", option));
            EXPECT_EQ(test::CutTexts(*form).find("Label28"), std::string::npos) << pixels << " " << option;
        }
    }
}

TEST_F(MainEditorValuesTest, figures_of_the_headcount_are_nine_pixels_high) {
    Open();
    Click("Label25");
    const QImage band = Ruler().grab().toImage();
    const Twips quarter = Grid().Geometry().QuarterWidth;
    const int left = test::At(3 * quarter, 0).x(); // between the ticks of two hours
    const int right = test::At(5 * quarter, 0).x();
    int height = 0;
    for (int y = test::At(0, 240).y(); y < test::At(0, 450).y(); ++y) {
        int brightest = 0;
        for (int x = left; x < right; ++x) brightest = std::max(brightest, band.pixelColor(x, y).green());
        height += brightest > 128 ? 1 : 0;
    }
    std::cout << "headcount figures: " << height << " pixels\n";
    EXPECT_GE(height, 9);
}

// --- hidden pay -------------------------------------------------------------------------------------------

TEST_F(MainEditorValuesTest, hidden_pay_shows_nowhere) {
    HidePay();
    store.PutFigures(Sunday + 1, 1000, 40);
    Open();
    for (const int money : {2, 4, 8}) EXPECT_FALSE(IsEnabled(Indexed("Label4", money))) << money;
    for (const int other : {1, 3, 5, 6, 7, 9, 10, 11, 12})
        EXPECT_TRUE(IsEnabled(Indexed("Label4", other))) << other;
    EXPECT_EQ(Totals(), " 8:00| 8:00||");
    EXPECT_FALSE(IsShown("Label30"));
    EXPECT_EQ(Figures(), "| 125.00| 5.00|| 125.00| 5.00");
    Drag(3, 32, 64);
    EXPECT_EQ(Totals(), "16:00|16:00||");
}

TEST_F(MainEditorValuesTest, the_totals_box_hides_pay_and_keeps_the_hours) {
    HidePay();
    Open();
    test::WhenShown("Form15", [](QWidget& box) {
        for (const char* money : {"Label2(1)", "Label2(2)", "Label2(3)"})
            EXPECT_EQ(test::Find<QLabel>(box, money).text().toStdString(), "") << money;
        EXPECT_EQ(test::Find<QLabel>(box, "Label3(1)").text().toStdString(), " 8:00");
        test::Click(box, "cmdCancel");
    });
    Click("Label12");
}

} // namespace
} // namespace tvx
