#include "support/FullDisk.h"
#include "support/ScheduleFormFixture.h"
#include "support/Usability.h"
#include "support/WeekWriter.h"

#include <QListWidget>

namespace tvx {
namespace {

using Strings = std::vector<std::string>;

class ScheduleFormTest : public ScheduleFormFixture {
  protected:
    void Pick(const std::vector<int>& rows) {
        auto& list = Get<QListWidget>("List1");
        for (const int row : rows) list.item(row)->setSelected(true);
    }
    void ExpectNoFileBut(const Strings& names) {
        Strings seen;
        for (const std::string& name : test::NamesIn(store.folder.Path()))
            if (name.rfind("TVX", 0) != 0) seen.push_back(name);
        EXPECT_EQ(seen, names);
    }
};

// ---- opening ----

TEST_F(ScheduleFormTest, sets_breaks_and_who_back_and_keeps_the_other_options_of_the_run) {
    g.reports.options = {3, 1, 1, 2, 1, true, true};
    Open(ScheduleKind::Short);
    EXPECT_TRUE(Checked("Option3D2(0)"));
    EXPECT_TRUE(Checked("Option3D3(0)"));
    EXPECT_TRUE(Checked("Option3D1(2)"));
    for (const char* check : {"Check3D1", "Check3D2", "Check3D5", "SSCheck1"})
        EXPECT_TRUE(Checked(check)) << check;
    EXPECT_EQ(g.reports.options.BreakThreshold, 0);
    EXPECT_EQ(g.reports.options.WhoToPrint, 0);
}

TEST_F(ScheduleFormTest, opens_on_the_social_security_number_where_space_was_saved) {
    g.reports.options.NameOption = 5;
    Open(ScheduleKind::Short);
    EXPECT_TRUE(Checked("Option3D1(4)"));
    EXPECT_EQ(g.reports.options.NameOption, 4);
}

TEST_F(ScheduleFormTest, shows_what_each_kind_can_print) {
    Open(ScheduleKind::Short);
    EXPECT_EQ(Title(), "Include in schedule");
    for (const char* part : {"Check3D4", "Check3D5", "SSCheck1", "Frame3D4"})
        EXPECT_TRUE(Shown(part)) << part;
    EXPECT_FALSE(Shown("List1"));
    Open(ScheduleKind::Long);
    for (const char* part : {"Check3D4", "Check3D5", "SSCheck1", "List1"}) EXPECT_FALSE(Shown(part)) << part;
    EXPECT_TRUE(Shown("Frame3D4"));
    Open(ScheduleKind::Selected);
    for (const char* part : {"Check3D4", "Check3D5", "SSCheck1", "Frame3D4"})
        EXPECT_FALSE(Shown(part)) << part;
    EXPECT_TRUE(Shown("List1"));
}

TEST_F(ScheduleFormTest, offers_productivity_only_in_a_week_with_figures) {
    g.figures.DailySales = {};
    g.figures.DailyTransactions = {};
    Open(ScheduleKind::Short);
    EXPECT_FALSE(Shown("Check3D4"));
    g.figures.DailyTransactions[7] = 1;
    Open(ScheduleKind::Short);
    EXPECT_TRUE(Shown("Check3D4"));
}

TEST_F(ScheduleFormTest, says_its_options_in_the_departments_words) {
    g.department.EmployeeNameSingle = "R&D fellow";
    g.department.EmployeeNamePlural = "R&D fellows";
    Open(ScheduleKind::Short);
    const auto plain = [this](const char* name) {
        std::string text = Caption(name);
        for (std::size_t at; (at = text.find("&&")) != std::string::npos;) text.erase(at, 1);
        return text;
    };
    EXPECT_EQ(plain("Option3D1(2)"), "R&D fellow ID");
    EXPECT_EQ(plain("Option3D3(0)"), "All R&D fellows");
    EXPECT_EQ(plain("Option3D3(1)"), "R&D fellows with schedules");
    EXPECT_NE(Caption("Option3D3(0)").find("&&"), std::string::npos) << "no letter is underlined";
}

TEST_F(ScheduleFormTest, hides_pay_where_it_may_not_be_seen) {
    g.reports.options.PrintTotalWages = 1;
    g.rights.HideWages = true;
    Open(ScheduleKind::Short);
    EXPECT_FALSE(Get("Check3D2").isEnabled());
    EXPECT_FALSE(Checked("Check3D2"));
    Click("cmdPrint");
    for (const std::string& text : printer.texts) EXPECT_EQ(text.find("wages"), std::string::npos) << text;
    EXPECT_EQ(g.reports.options.PrintTotalWages, 1) << "kept for who may see it";
}

TEST_F(ScheduleFormTest, remembers_its_options_for_the_run) {
    Open(ScheduleKind::Short);
    for (const char* control :
         {"Option3D1(3)", "Option3D2(2)", "Option3D3(1)", "Check3D1", "Check3D2", "Check3D5", "SSCheck1"})
        Click(control);
    const ReportOptions& options = g.reports.options;
    EXPECT_EQ(options.NameOption, 3);
    EXPECT_EQ(options.BreakThreshold, 2);
    EXPECT_EQ(options.WhoToPrint, 1);
    EXPECT_EQ(options.PrintTotalHours, 1);
    EXPECT_EQ(options.PrintTotalWages, 1);
    EXPECT_TRUE(options.PrintTimeBars);
    EXPECT_TRUE(options.PrintDayComments);
    Open(ScheduleKind::Long);
    EXPECT_TRUE(Checked("Option3D1(3)"));
    EXPECT_TRUE(Checked("Check3D1"));
    EXPECT_TRUE(Checked("Check3D2"));
    EXPECT_TRUE(Checked("Option3D2(0)"));
}

TEST_F(ScheduleFormTest, prints_the_options_as_they_are_chosen) {
    Open(ScheduleKind::Short);
    Click("cmdPrint");
    EXPECT_FALSE(printer.Has("Department total time:"));
    EXPECT_FALSE(printer.Has("Productivity"));
    for (const char* check : {"Check3D1", "Check3D4", "SSCheck1"}) Click(check);
    Click("cmdPrint");
    EXPECT_TRUE(printer.Has("Department total time:"));
    EXPECT_TRUE(printer.Has("Productivity"));
    EXPECT_TRUE(printer.Has("Day comments: Monday 27-Feb-2006"));
}

TEST_F(ScheduleFormTest, fills_a_blank_word_for_the_last_stop) {
    Open(ScheduleKind::Long);
    Click("ckbLastStop");
    auto& word = Get<QLineEdit>("txtOpen");
    EXPECT_EQ(word.text(), " Open");
    word.setText("  ");
    Click("cmdPrint");
    EXPECT_EQ(word.text(), "_____");
    EXPECT_TRUE(std::any_of(printer.texts.begin(), printer.texts.end(),
                            [](const std::string& text) { return text.ends_with("  _____"); }));
}

TEST_F(ScheduleFormTest, opens_help_on_schedules) {
    Open(ScheduleKind::Short);
    Click("cmdHelp");
    EXPECT_EQ(store.script.help.topics.size(), 1U);
}

TEST_F(ScheduleFormTest, has_no_obstacles_for_people_without_a_mouse_or_eyes) {
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected}) {
        Open(kind);
        EXPECT_EQ(test::Obstacles(*form), "") << TextOf(kind);
        EXPECT_EQ(test::CutTexts(*form), "") << TextOf(kind);
        if (kind == ScheduleKind::Selected) Pick({0});
        Click("cmdPreview");
        EXPECT_EQ(test::Obstacles(*form), "") << TextOf(kind) << " in the preview";
        EXPECT_EQ(test::CutTexts(*form), "") << TextOf(kind) << " in the preview";
    }
}

TEST_F(ScheduleFormTest, is_walked_by_the_tab_key_in_the_order_in_which_it_is_read) {
    Open(ScheduleKind::Short);
    Get("Option3D1(0)").setFocus();
    Strings order = test::TabOrder(*form);
    // Once a window is active, the key stops at one option of each group.
    std::erase_if(order,
                  [](const std::string& name) { return name.ends_with(")") && !name.ends_with("(0)"); });
    EXPECT_EQ(order,
              (Strings{"Option3D1(0)", "Check3D1", "Check3D2", "Check3D5", "SSCheck1", "Check3D4",
                       "Option3D2(0)", "Option3D3(0)", "ckbLastStop", "txtOpen", "cmdFont", "optOrient(0)",
                       "cmdPreview", "cmdPrint", "cmdPreviewHTML", "cmdSaveHTML", "cmdHelp", "cmdCancel"}));
}

TEST_F(ScheduleFormTest, is_left_by_Escape_and_writes_nothing_then) {
    Open(ScheduleKind::Short);
    test::Press(*form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    ExpectNoFileBut({});
}

// ---- picked people ----

TEST_F(ScheduleFormTest, lists_everybody_in_the_order_of_the_rows) {
    std::swap(g.roster.RowOrder[1], g.roster.RowOrder[2]);
    Open(ScheduleKind::Selected);
    EXPECT_EQ(Title(), "Printing schedules for selected Employees");
    EXPECT_EQ(Get<QGroupBox>("FrameList").title(), "Select Employees to print");
    const auto& list = Get<QListWidget>("List1");
    ASSERT_EQ(list.count(), g.roster.EmployeeCount);
    EXPECT_EQ(list.item(0)->data(Qt::UserRole).toInt(), 2);
    const QStringList parts = list.item(0)->text().split('\t');
    ASSERT_EQ(parts.size(), 3);
    EXPECT_TRUE(parts[0].startsWith("Baker Luis "));
    EXPECT_EQ(parts[1], "102");
    EXPECT_EQ(parts[2], "Baker");
}

TEST_F(ScheduleFormTest, shortens_a_long_name_in_the_list_and_pads_a_short_one) {
    g.roster.RosterName1[1] = std::string(60, 'W');
    g.roster.RosterName1[2] = g.roster.RosterName2[2] = "i";
    Open(ScheduleKind::Selected);
    const auto& list = Get<QListWidget>("List1");
    const auto width = [&](int row) {
        return qt::ToTwips(list.fontMetrics().horizontalAdvance(list.item(row)->text().split(" \t").first()));
    };
    EXPECT_LT(width(0), 1750);
    EXPECT_GE(width(1), 1500);
    EXPECT_LT(width(1), 1750);
}

TEST_F(ScheduleFormTest, prints_a_page_for_each_picked_person_in_the_order_of_the_list) {
    Open(ScheduleKind::Selected);
    Pick({5, 0});
    Click("cmdPrint");
    EXPECT_EQ(printer.pages, 2);
    ASSERT_FALSE(printer.texts.empty());
    EXPECT_EQ(printer.texts.front(), "Schedule for: Abbott Grace");
    EXPECT_TRUE(printer.Has("Schedule for: Fischer Anton"));
}

TEST_F(ScheduleFormTest, prints_nothing_when_nobody_is_picked_and_says_so) {
    Open(ScheduleKind::Selected);
    for (const char* way : {"cmdPrint", "cmdPreview", "cmdPreviewHTML", "cmdSaveHTML"}) {
        store.prompt().Expect("No Employees selected....", box::Ok, "Select Employees");
        Click(way);
        EXPECT_FALSE(Shown("vp")) << way;
    }
    EXPECT_EQ(printer.asked, 0);
    Pick({0});
    Click("cmdPrint");
    EXPECT_EQ(printer.pages, 1);
}

TEST_F(ScheduleFormTest, shows_paper_after_a_web_page_that_did_not_come_for_want_of_people) {
    Open(ScheduleKind::Selected);
    store.prompt().Expect("No Employees selected....", box::Ok, "Select Employees");
    Click("cmdPreviewHTML");
    Pick({0});
    Click("cmdPreview");
    EXPECT_EQ(Title(), "Review print pages...");
}

TEST_F(ScheduleFormTest, picks_by_the_keyboard) {
    Open(ScheduleKind::Selected);
    Get("List1").setFocus();
    test::Press(*form, Qt::Key_Home);
    test::Press(*form, Qt::Key_Down, Qt::ShiftModifier);
    test::Press(*form, Qt::Key_Down, Qt::ShiftModifier);
    Click("cmdPrint");
    EXPECT_EQ(printer.pages, 3);
}

// ---- web pages ----

class WebPageTest : public ScheduleFormTest {
  protected:
    std::filesystem::path Target(const char* name) { return store.folder / name; }
};

TEST_F(WebPageTest, are_previewed_before_they_are_saved) {
    Open(ScheduleKind::Short);
    Click("cmdPreviewHTML");
    EXPECT_EQ(Title(), "Review HTML pages...");
    EXPECT_EQ(Caption("cmdPreviewPrint"), "&Save HTML");
    EXPECT_TRUE(Shown("vp"));
    store.prompt().WillSaveTo(Target("week"));
    Click("cmdPreviewPrint");
    EXPECT_EQ(Title(), "Include in schedule");
    EXPECT_EQ(printer.asked, 0);
    EXPECT_NE(test::ReadFile(Target("week.HTM")).find("Abbott Grace"), std::string::npos);
}

TEST_F(WebPageTest, get_an_ending_only_where_the_name_has_no_point) {
    Open(ScheduleKind::Short);
    for (const char* name : {"plain", "with.point", "week.htm"}) {
        store.prompt().WillSaveTo(Target(name));
        Click("cmdSaveHTML");
    }
    ExpectNoFileBut({"plain.HTM", "week.htm", "with.point"});
}

TEST_F(WebPageTest, are_not_written_when_the_dialog_is_cancelled_and_the_preview_stays) {
    Open(ScheduleKind::Long);
    Click("cmdPreviewHTML");
    store.prompt().WillSaveTo(std::nullopt);
    Click("cmdPreviewPrint");
    EXPECT_EQ(Title(), "Review HTML pages...");
    ExpectNoFileBut({});
    Click("cmdCancelPreview");
    store.prompt().WillSaveTo(std::nullopt);
    Click("cmdSaveHTML");
    ExpectNoFileBut({});
}

TEST_F(WebPageTest, take_the_place_of_an_older_one_that_the_dialog_has_asked_about) {
    test::WriteFile(Target("week.htm"), "old");
    Open(ScheduleKind::Short);
    store.prompt().WillSaveTo(Target("week.htm"));
    Click("cmdSaveHTML");
    EXPECT_NE(test::ReadFile(Target("week.htm")).find("</html>"), std::string::npos);
}

TEST_F(WebPageTest, ask_before_the_longer_name_takes_the_place_of_another_file) {
    test::WriteFile(Target("week.HTM"), "old");
    Open(ScheduleKind::Short);
    const std::string question = "week.HTM already exists.\nDo you want to replace it?";
    store.prompt().WillSaveTo(Target("week"));
    store.prompt().Expect(question, box::YesNo + box::Exclamation, "Save HTML", Answer::No);
    Click("cmdSaveHTML");
    EXPECT_EQ(test::ReadFile(Target("week.HTM")), "old");
    store.prompt().WillSaveTo(Target("week"));
    store.prompt().Expect(question, box::YesNo + box::Exclamation, "Save HTML", Answer::Yes);
    Click("cmdSaveHTML");
    EXPECT_NE(test::ReadFile(Target("week.HTM")), "old");
}

TEST_F(WebPageTest, tell_that_they_cannot_be_written_and_the_preview_stays) {
    std::filesystem::create_directory(Target("week.htm"));
    Open(ScheduleKind::Short);
    Click("cmdPreviewHTML");
    store.prompt().WillSaveTo(Target("week.htm"));
    store.prompt().WillAnswer(Answer::Ok);
    Click("cmdPreviewPrint");
    EXPECT_EQ(store.prompt().Last().title, "File error");
    EXPECT_EQ(store.prompt().Last().text.rfind("The web page could not be written.\n\n", 0), 0U);
    EXPECT_EQ(Title(), "Review HTML pages...");
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
    store.prompt().WillSaveTo(Target("none/week.htm"));
    store.prompt().WillAnswer(Answer::Ok);
    Click("cmdPreviewPrint");
    EXPECT_EQ(Title(), "Review HTML pages...");
    ExpectNoFileBut({"week.htm"});
}

TEST_F(WebPageTest, leave_the_old_file_whole_on_a_full_disk) {
    test::WriteFile(Target("week.htm"), "old");
    Open(ScheduleKind::Short);
    store.prompt().WillSaveTo(Target("week.htm"));
    store.prompt().WillAnswer(Answer::Ok);
    {
        const test::FullDisk full(2000);
        Click("cmdSaveHTML");
    }
    EXPECT_EQ(store.prompt().Last().title, "File error");
    EXPECT_EQ(test::ReadFile(Target("week.htm")), "old");
    ExpectNoFileBut({"week.htm"});
}

TEST_F(WebPageTest, leave_days_with_nothing_out_when_space_is_to_be_saved) {
    Open(ScheduleKind::Long);
    store.prompt().WillSaveTo(Target("all.htm"));
    Click("cmdSaveHTML");
    Click("Option3D1(5)");
    store.prompt().WillSaveTo(Target("less.htm"));
    Click("cmdSaveHTML");
    EXPECT_LT(std::filesystem::file_size(Target("less.htm")), std::filesystem::file_size(Target("all.htm")));
}

TEST_F(WebPageTest, do_not_turn_the_next_print_into_one) {
    Open(ScheduleKind::Short);
    Click("cmdPreviewHTML");
    Click("cmdCancelPreview");
    Click("cmdPrint");
    EXPECT_TRUE(printer.Has("Page 1")) << "only paper has page numbers";
    store.prompt().WillSaveTo(Target("week"));
    Click("cmdSaveHTML");
    Click("cmdPreview");
    EXPECT_EQ(Title(), "Review print pages...");
    EXPECT_EQ(Caption("cmdPreviewPrint"), "&Print");
}

TEST_F(WebPageTest, are_the_same_when_saved_twice_from_one_preview) {
    test::WritableWeek(g).DayOffFlag[2][1] = true;
    Open(ScheduleKind::Long);
    Click("Check3D1");
    for (const char* name : {"one.htm", "two.htm"}) {
        Click("cmdPreviewHTML");
        store.prompt().WillSaveTo(Target(name));
        Click("cmdPreviewPrint");
    }
    EXPECT_EQ(test::ReadFile(Target("one.htm")), test::ReadFile(Target("two.htm")));
}

// ---- pictures ----

TEST_F(ScheduleFormTest, pictures) {
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected}) {
        Open(kind);
        const std::string name = TextOf(kind);
        if (kind == ScheduleKind::Selected) Pick({0, 5});
        test::TakePicture(*form, "Form8-" + name);
        for (const char* check : {"Check3D1", "Check3D2"})
            if (!Checked(check)) Click(check);
        if (kind == ScheduleKind::Short) Click("optOrient(1)");
        Click("cmdPreview");
        test::TakePicture(*form, "Form8-preview-" + name);
        Click("cmdCancelPreview");
        Click("cmdPreviewHTML");
        test::TakePicture(*form, "Form8-preview-html-" + name);
        Click("cmdCancelPreview");
    }
}

} // namespace
} // namespace tvx
