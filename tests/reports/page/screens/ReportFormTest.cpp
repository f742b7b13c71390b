// What every report form shares, seen on the schedule form; and that a form needs no more than its options
// and its drawing.
#include "desktop/Scale.h"
#include "support/ScheduleFormFixture.h"
#include "support/TempFolder.h"
#include "support/Usability.h"
#include "support/WeekWriter.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPainter>
#include <QStandardPaths>

namespace tvx {
namespace {

constexpr Paper Roomy{20000, 26000}; // any size fits

class ReportFormTest : public ScheduleFormFixture {
  protected:
    std::string Font(const std::string& name, double size) {
        return name + "\r\n" + (size == 10 ? " 10 " : " 12.5 ") +
               "\r\n 0 \r\n-1 \r\n 1 \r\n 0 \r\n 0 \r\n 0 \r\n";
    }
    qt::Preview& Vp() { return Get<qt::Preview>("vp"); }
    /// Many pages: everybody on a page of his own.
    void OpenPreviewOfPages() {
        Open(ScheduleKind::Selected);
        Get<QListWidget>("List1").selectAll();
        Click("cmdPreview");
    }
    /// Where the preview shows texts.
    QPoint TopOfPage() { return {Vp().width() / 2, Vp().height() / 6}; }
    QImage Seen() { return Vp().grab().toImage(); }
};

// ---- the settings file ----

TEST_F(ReportFormTest, opens_with_the_font_and_paper_of_its_kind) {
    test::WriteFile(store.folder / "1.Sho", Font("Liberation Serif", 12.5));
    test::WriteFile(store.folder / "1.Lon", "Liberation Mono\r\n 10 \r\n");
    Open(ScheduleKind::Short);
    EXPECT_TRUE(Checked("optOrient(1)"));
    Click("cmdPrint");
    EXPECT_EQ(printer.font, (ReportFont{"Liberation Serif", 12.5, false, true}));
    EXPECT_EQ(printer.orientation, PageOrientation::Landscape);
    Open(ScheduleKind::Long);
    EXPECT_EQ(g.reports.settings.font.name, "Liberation Mono");
    EXPECT_TRUE(Checked("optOrient(1)")) << "what the file does not tell stays";
}

TEST_F(ReportFormTest, opens_with_the_font_of_the_report_before_where_there_is_no_file) {
    test::WriteFile(store.folder / "1.Sho", Font("Liberation Serif", 10));
    Open(ScheduleKind::Short);
    Open(ScheduleKind::Selected);
    EXPECT_EQ(g.reports.settings.font.name, "Liberation Serif");
}

TEST_F(ReportFormTest, opens_in_Arial_9_portrait_in_a_fresh_run) {
    printer.sheet = Roomy;
    Open(ScheduleKind::Short);
    EXPECT_TRUE(Checked("optOrient(0)"));
    Click("cmdPrint");
    EXPECT_EQ(printer.font, (ReportFont{"Arial", 9, false, false}));
    EXPECT_EQ(g.reports.settings.font.name, "");
    EXPECT_EQ(SettingsFile(".Sho"), "") << "opening and printing write nothing";
}

TEST_F(ReportFormTest, does_not_open_in_bold) {
    test::WriteFile(store.folder / "1.Sho", "Arial\r\n 9 \r\n-1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
    Open(ScheduleKind::Short);
    Click("cmdPrint");
    EXPECT_FALSE(printer.font.bold);
    EXPECT_TRUE(g.reports.settings.font.bold) << "it is kept all the same";
}

TEST_F(ReportFormTest, keeps_a_chosen_font_at_once) {
    printer.sheet = Roomy;
    Open(ScheduleKind::Short);
    store.prompt().WillChoose(ReportFont{"Liberation Mono", 10, true, true});
    Click("cmdFont");
    EXPECT_EQ(SettingsFile(".Sho"), "Liberation Mono\r\n 10 \r\n-1 \r\n-1 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
    Click("cmdPrint");
    EXPECT_EQ(printer.font, (ReportFont{"Liberation Mono", 10, true, true})) << "bold until the form closes";
}

TEST_F(ReportFormTest, changes_nothing_when_the_font_dialog_is_cancelled) {
    Open(ScheduleKind::Short);
    store.prompt().WillChoose(std::nullopt);
    Click("cmdFont");
    EXPECT_EQ(SettingsFile(".Sho"), "");
    EXPECT_EQ(g.reports.settings.font.name, "");
}

TEST_F(ReportFormTest, tells_that_a_font_is_gone_and_takes_it_without_keeping_it) {
    Open(ScheduleKind::Short);
    store.prompt().WillChoose(ReportFont{"Gone Grotesk", 10, false, false});
    store.prompt().Expect("Font Gone Grotesk is not available.", box::Ok, "Tarvex");
    Click("cmdFont");
    EXPECT_EQ(SettingsFile(".Sho"), "");
    EXPECT_EQ(g.reports.settings.font.name, "Gone Grotesk");
    Click("cmdPrint");
    EXPECT_EQ(printer.font.name, "Gone Grotesk");
    EXPECT_TRUE(printer.Has("Abbott Grace "));
}

TEST_F(ReportFormTest, compares_the_name_of_a_font_letter_by_letter) {
    Open(ScheduleKind::Short);
    store.prompt().WillChoose(ReportFont{"liberation mono", 10, false, false});
    store.prompt().Expect("Font liberation mono is not available.", box::Ok, "Tarvex");
    Click("cmdFont");
}

TEST_F(ReportFormTest, shows_pages_in_another_font_where_the_kept_one_is_gone) {
    test::WriteFile(store.folder / "1.Sho", Font("Gone Grotesk", 10));
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    EXPECT_EQ(PageShown().rfind("Page 1 of ", 0), 0U);
    test::TakePicture(*form, "Form8-preview-font-gone");
}

TEST_F(ReportFormTest, keeps_the_paper_at_once_and_cancelling_does_not_undo_it) {
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    const QImage upright = Seen();
    Click("optOrient(1)");
    EXPECT_EQ(SettingsFile(".Sho"), "\r\n 9 \r\n 0 \r\n 0 \r\n 1 \r\n 0 \r\n 0 \r\n 0 \r\n");
    EXPECT_NE(Seen(), upright) << "the open preview is drawn again";
    Click("cmdCancelPreview");
    EXPECT_EQ(g.reports.settings.ReportOrientation, 1);
    EXPECT_TRUE(Checked("optOrient(1)"));
}

TEST_F(ReportFormTest, tells_that_the_settings_could_not_be_kept_and_goes_on) {
    std::filesystem::create_directory(store.folder / "1.Sho");
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    store.prompt().WillAnswer(Answer::Ok);
    Click("optOrient(1)");
    EXPECT_EQ(store.prompt().Last().title, "File error");
    EXPECT_EQ(store.prompt().Last().text.rfind("The font and paper could not be kept.\n\n", 0), 0U);
    EXPECT_TRUE(Shown("vp"));
    EXPECT_EQ(g.reports.settings.ReportOrientation, 1);
}

TEST_F(ReportFormTest, samples_the_font_and_draws_it_anew) {
    Open(ScheduleKind::Short);
    const QImage before = Get("Picture1").grab().toImage();
    store.prompt().WillChoose(ReportFont{"Liberation Mono", 10, false, true});
    Click("cmdFont");
    EXPECT_NE(Get("Picture1").grab().toImage(), before);
}

// ---- the preview ----

TEST_F(ReportFormTest, shows_the_preview_in_place_of_its_options) {
    Open(ScheduleKind::Short);
    const QSize normal = form->size();
    Click("cmdPreview");
    EXPECT_EQ(Title(), "Review print pages...");
    for (const char* part : {"vp", "cmdPreviewPrint", "cmdCancelPreview", "Frame1", "Frame2", "lblPage"})
        EXPECT_TRUE(Shown(part)) << part;
    for (const char* part : {"cmdPreview", "cmdPrint", "cmdCancel", "frame3D1", "Frame3D2"})
        EXPECT_FALSE(Shown(part)) << part;
    EXPECT_EQ(qt::ToTwips(form->frameGeometry().height()), store.ports().screen.Height() - 300);
    Click("cmdCancelPreview");
    EXPECT_EQ(Title(), "Include in schedule");
    EXPECT_EQ(form->size(), normal);
    EXPECT_FALSE(Shown("vp"));
    EXPECT_EQ(Vp().size(), QSize(qt::Pixels(200), qt::Pixels(200)));
    EXPECT_TRUE(Shown("cmdPreview"));
    EXPECT_EQ(test::FocusOf(*form), "cmdPreview") << "where the person was";
}

TEST_F(ReportFormTest, places_the_preview_as_stated) {
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    const Twips width = qt::ToTwips(form->width());
    const Twips height = qt::ToTwips(form->height());
    const auto at = [this](const char* name) {
        const QRect place = Get(name).geometry();
        return TwipsPoint{qt::ToTwips(place.x()), qt::ToTwips(place.y())};
    };
    EXPECT_EQ(at("vp"), (TwipsPoint{100 / 15 * 15 + 15, 105}));
    EXPECT_NEAR(at("cmdPreviewPrint").x, width - 1200, 15);
    EXPECT_NEAR(at("cmdCancelPreview").x, width - 2400, 15);
    EXPECT_NEAR(at("cmdPreviewPrint").y, height - 1200, 15);
    EXPECT_NEAR(at("Frame1").y, height - 1300, 15);
    EXPECT_NEAR(at("Frame2").y, height - 1300, 15);
}

TEST_F(ReportFormTest, is_under_a_busy_pointer_only_while_it_draws) {
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(ReportFormTest, closes_the_preview_before_itself_by_Escape_and_by_the_cross) {
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    test::Press(*form, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(Shown("vp"));
    Click("cmdPreview");
    form->close();
    EXPECT_TRUE(form->isVisible());
    EXPECT_FALSE(Shown("vp"));
    form->close();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(ReportFormTest, draws_an_open_preview_again_in_a_new_font) {
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    const QImage before = Seen();
    store.prompt().WillChoose(ReportFont{"Liberation Serif", 14, false, false});
    Click("cmdFont");
    EXPECT_NE(Seen(), before);
    EXPECT_EQ(Title(), "Review print pages...");
}

TEST_F(ReportFormTest, turns_pages_by_keys_wherever_the_focus_is) {
    OpenPreviewOfPages();
    EXPECT_EQ(test::FocusOf(*form), "vp");
    const std::string of = " of " + std::to_string(g.roster.EmployeeCount);
    EXPECT_EQ(PageShown(), "Page 1" + of);
    for (const char* focused : {"vp", "cmdFont", "cmdPreviewPrint"}) {
        Get(focused).setFocus();
        test::Press(*form, Qt::Key_PageDown);
        EXPECT_EQ(PageShown(), "Page 2" + of) << focused;
        test::Press(*form, Qt::Key_End);
        EXPECT_EQ(PageShown(), "Page " + std::to_string(g.roster.EmployeeCount) + of) << focused;
        test::Press(*form, Qt::Key_PageDown);
        EXPECT_EQ(PageShown(), "Page " + std::to_string(g.roster.EmployeeCount) + of) << "the last";
        test::Press(*form, Qt::Key_Home);
        test::Press(*form, Qt::Key_PageUp);
        EXPECT_EQ(PageShown(), "Page 1" + of) << "the first";
    }
}

TEST_F(ReportFormTest, turns_pages_by_buttons_that_stop_at_both_ends) {
    OpenPreviewOfPages();
    EXPECT_FALSE(Get("cmdPageBack").isEnabled());
    Click("cmdPageOn");
    Click("cmdPageOn");
    EXPECT_EQ(Vp().PageNumber(), 3);
    Click("cmdPageBack");
    EXPECT_EQ(Vp().PageNumber(), 2);
    test::Press(*form, Qt::Key_End);
    EXPECT_FALSE(Get("cmdPageOn").isEnabled());
}

TEST_F(ReportFormTest, begins_at_the_first_page_each_time) {
    OpenPreviewOfPages();
    test::Press(*form, Qt::Key_End);
    Click("cmdCancelPreview");
    Click("cmdPreview");
    EXPECT_EQ(Vp().PageNumber(), 1);
}

TEST_F(ReportFormTest, stays_on_a_page_while_font_and_paper_change_as_far_as_there_is_one) {
    OpenPreviewOfPages();
    Vp().GoToPage(5);
    Click("optOrient(1)");
    EXPECT_EQ(Vp().PageNumber(), 5);
}

TEST_F(ReportFormTest, zooms_by_a_double_click_around_the_place_and_back) {
    OpenPreviewOfPages();
    const QImage whole = Seen();
    const QPoint place = TopOfPage();
    QTest::mouseDClick(&Vp(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_TRUE(Vp().IsZoomed());
    EXPECT_NE(Seen(), whole);
    test::TakePicture(*form, "Form8-preview-zoomed");
    QTest::mouseDClick(&Vp(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_FALSE(Vp().IsZoomed());
    EXPECT_EQ(Seen(), whole);
}

TEST_F(ReportFormTest, zooms_by_keys) {
    OpenPreviewOfPages();
    test::Press(*form, Qt::Key_Plus);
    EXPECT_TRUE(Vp().IsZoomed());
    test::Press(*form, Qt::Key_Plus);
    EXPECT_TRUE(Vp().IsZoomed());
    test::Press(*form, Qt::Key_Minus);
    EXPECT_FALSE(Vp().IsZoomed());
}

TEST_F(ReportFormTest, moves_a_zoomed_page_with_the_mouse_and_never_out_of_sight) {
    OpenPreviewOfPages();
    QTest::mouseDClick(&Vp(), Qt::LeftButton, Qt::NoModifier, TopOfPage());
    const QImage before = Seen();
    test::Drag(Vp(), {9000, 9000}, {9000, 6000});
    const QImage moved = Seen();
    EXPECT_NE(moved, before);
    test::Drag(Vp(), {9000, 9000}, {9000, -90000});
    test::Drag(Vp(), {9000, 9000}, {9000, -90000});
    EXPECT_NE(Seen().pixelColor(Vp().width() / 2, Vp().height() / 2), QColor(128, 128, 128))
        << "paper is still in the middle";
}

TEST_F(ReportFormTest, leaves_a_page_that_fits_where_it_is) {
    OpenPreviewOfPages();
    const QImage before = Seen();
    test::Drag(Vp(), {9000, 9000}, {12000, 12000});
    EXPECT_EQ(Seen(), before);
}

TEST_F(ReportFormTest, stays_sharp_when_zoomed) {
    OpenPreviewOfPages();
    QTest::mouseDClick(&Vp(), Qt::LeftButton, Qt::NoModifier, TopOfPage());
    // Letters that are drawn at this size have edges of a pixel; ones that are blown up have none.
    const QImage seen = Seen().convertToFormat(QImage::Format_Grayscale8);
    int sharp = 0;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 1; x < seen.width(); ++x)
            sharp += std::abs(qGray(seen.pixel(x, y)) - qGray(seen.pixel(x - 1, y))) > 200 ? 1 : 0;
    EXPECT_GT(sharp, 300);
}

TEST_F(ReportFormTest, tells_in_the_preview_and_on_the_page_at_which_size_the_report_is_drawn) {
    g.reports.settings.font = {"Liberation Sans", 12};
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    const auto& remark = Get<qt::Label>("lblRemark");
    const std::string told = remark.text().toStdString();
    EXPECT_EQ(told.find("Drawn at "), 0U) << told;
    EXPECT_NE(told.find(" points so that everything fits"), std::string::npos) << told;
    EXPECT_TRUE(remark.isVisible());
    EXPECT_LE(remark.fontMetrics().horizontalAdvance(remark.text()), remark.width());
    EXPECT_TRUE(form->rect().contains(remark.geometry()));
    Click("cmdPreviewPrint");
    EXPECT_TRUE(printer.Has(told));
    EXPECT_FALSE(remark.isVisible());
    EXPECT_EQ(g.reports.settings.font.size, 12) << "the chosen size stays";
}

TEST_F(ReportFormTest, tells_nothing_where_the_chosen_size_fits) {
    g.reports.settings.font = {"Liberation Sans", 8};
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    EXPECT_EQ(Get<qt::Label>("lblRemark").text(), "");
}

// ---- printing ----

TEST_F(ReportFormTest, prints_on_the_sheet_of_the_printer) {
    printer.sheet = Paper{11000, 8000, 0};
    Open(ScheduleKind::Long);
    Click("cmdPrint");
    const int small = printer.pages;
    printer.sheet = Paper{16000, 30000, 0};
    Click("cmdPrint");
    EXPECT_LT(printer.pages, small);
    EXPECT_EQ(printer.title, "Example department,  Week from 26-Feb-2006  to  4-Mar-2006");
}

TEST_F(ReportFormTest, tells_which_PDF_was_written_with_a_way_to_its_folder) {
    Open(ScheduleKind::Short);
    Click("cmdPrint");
    EXPECT_FALSE(Shown("lblWritten")) << "a printer writes no file";
    printer.file = store.folder / "plans" / "week.pdf";
    Click("cmdPrint");
    EXPECT_EQ(Get<qt::TextBox>("lblWritten").Text(), "Written: " + printer.file->string());
    ASSERT_TRUE(Shown("lblWritten") && Shown("cmdOpenFolder"));
    EXPECT_TRUE(form->rect().contains(Get("Written").geometry()));
    EXPECT_FALSE(Get("Written").geometry().intersects(Get("Buttons").geometry()));
    EXPECT_EQ(test::Obstacles(*form), "");
    Click("cmdPreview");
    EXPECT_FALSE(Shown("lblWritten"));
    Click("cmdPreviewPrint");
    EXPECT_TRUE(Shown("lblWritten")) << "behind the preview too";
}

TEST_F(ReportFormTest, opens_the_folder_of_the_file_that_was_written) {
    const std::filesystem::path program = store.folder / "xdg-open";
    test::WriteFile(program, "#!/bin/sh\necho \"$1\" > \"" + (store.folder / "opened").string() + "\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString(store.folder.Path().string()) + ":" + path);
    printer.file = store.folder / "week.pdf";
    Open(ScheduleKind::Short);
    Click("cmdPrint");
    Click("cmdOpenFolder");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !test::ReadFile(store.folder / "opened").empty(); }));
    EXPECT_EQ(test::ReadFile(store.folder / "opened"), store.folder.Path().string() + "\n");
    test::WriteFile(program, "#!/bin/sh\nexit 3\n");
    store.prompt().Expect("The folder could not be opened.", box::Exclamation, "Open folder");
    Click("cmdOpenFolder");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !store.prompt().Boxes().empty(); }));
    qputenv("PATH", path);
}

TEST_F(ReportFormTest, proposes_another_name_for_each_report_and_week) {
    std::vector<std::string> names;
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected})
        for (const char* day : {"26-Feb-2006", "5/3/2006"}) {
            test::WritableWeek(g).WeekDateTexts[1] = day;
            Open(kind);
            Get<QListWidget>("List1").selectAll();
            Click("cmdPrint");
            names.push_back(printer.proposed.filename().string());
        }
    EXPECT_EQ(names, (std::vector<std::string>{"Example department schedule 26-Feb-2006.pdf",
                                               "Example department schedule 5-3-2006.pdf",
                                               "Example department long schedule 26-Feb-2006.pdf",
                                               "Example department long schedule 5-3-2006.pdf",
                                               "Example department selected schedules 26-Feb-2006.pdf",
                                               "Example department selected schedules 5-3-2006.pdf"}));
}

TEST_F(ReportFormTest, proposes_documents_and_its_own_folder_and_then_the_folder_last_used) {
    const std::filesystem::path documents =
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
    Open(ScheduleKind::Short);
    Click("cmdPrint");
    EXPECT_EQ(printer.proposed.parent_path(), documents);
    store.prompt().WillSaveTo(std::nullopt);
    Click("cmdSaveHTML");
    EXPECT_EQ(store.prompt().LastSave().folder, g.paths.ProgramPath);
    EXPECT_EQ(store.prompt().LastSave().fileName, "Example department schedule 26-Feb-2006.HTM");
    std::filesystem::create_directory(store.folder / "web");
    store.prompt().WillSaveTo(store.folder / "web" / "week.htm");
    Click("cmdSaveHTML");
    EXPECT_EQ(Get<qt::TextBox>("lblWritten").Text(), "Written: " + (store.folder / "web/week.htm").string());
    Open(ScheduleKind::Long);
    Click("cmdPrint");
    EXPECT_EQ(printer.proposed.parent_path(), store.folder / "web");
    printer.file = store.folder / "week.pdf";
    Click("cmdPrint");
    store.prompt().WillSaveTo(std::nullopt);
    Click("cmdSaveHTML");
    EXPECT_EQ(store.prompt().LastSave().folder, store.folder.Path());
}

TEST_F(ReportFormTest, prints_nothing_when_the_dialog_is_cancelled) {
    printer.accepts = false;
    Open(ScheduleKind::Short);
    Click("cmdPrint");
    EXPECT_EQ(printer.asked, 1);
    EXPECT_EQ(printer.printed, 0);
    Click("cmdPreview");
    Click("cmdPreviewPrint");
    EXPECT_EQ(printer.printed, 0);
    EXPECT_TRUE(Shown("vp")) << "the preview stays as it is";
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

TEST_F(ReportFormTest, prints_from_the_preview_and_closes_it) {
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    Click("cmdPreviewPrint");
    EXPECT_EQ(printer.printed, 1);
    EXPECT_FALSE(Shown("vp"));
    EXPECT_EQ(Title(), "Include in schedule");
}

TEST_F(ReportFormTest, tells_that_it_could_not_print_and_the_preview_stays) {
    printer.fails = true;
    Open(ScheduleKind::Short);
    Click("cmdPreview");
    store.prompt().Expect("The report could not be printed.\n\nNo space left", box::Exclamation,
                          "File error");
    Click("cmdPreviewPrint");
    EXPECT_TRUE(Shown("vp"));
    EXPECT_EQ(store.prompt().Shape(), Pointer::Default);
}

// ---- another form ----

/// A whole report: one option and two lines of drawing.
class NoticeForm : public qt::ReportForm {
  public:
    NoticeForm(Ports& ports, Printer& printer, qt::DeskSettings settings)
        : ReportForm(ports, printer, std::move(settings), "FormNotice", nullptr) {
        loud_ = &Add<QCheckBox>("Check1", "Loud", &Options());
        loud_->setText(QStringLiteral("Loud"));
        Options().setMinimumSize(200, 40);
        FinishLayout("Notices");
    }

  protected:
    void Run(Vp& vp) override {
        vp.StartDoc();
        TextAt(vp, 0, 0, loud_->isChecked() ? "CLOSED" : "closed");
        vp.EndDoc();
    }
    bool IsLoud() const { return loud_->isChecked(); }

  private:
    QCheckBox* loud_ = nullptr;
};

class NoticeFormTest : public ReportFormTest {
  protected:
    qt::DeskSettings Kept() { return {g.reports.settings, store.folder / "1.Emp"}; }
    qt::DeskSettings NotKept() { return {g.reports.settings, std::nullopt}; }
};

TEST_F(NoticeFormTest, needs_only_options_and_a_drawing_from_another_report) {
    NoticeForm notice(store.ports(), printer, Kept());
    notice.ShowModeless();
    test::Click(notice, "Check1");
    test::Click(notice, "cmdPreview");
    EXPECT_EQ(notice.windowTitle(), "Review print...");
    EXPECT_EQ(test::Find<qt::Label>(notice, "lblPage").text(), "Page 1 of 1");
    test::Click(notice, "optOrient(1)");
    test::Click(notice, "cmdPreviewPrint");
    EXPECT_EQ(printer.texts, std::vector<std::string>{"CLOSED"});
    EXPECT_EQ(printer.title, "Notices");
    EXPECT_NE(SettingsFile(".Emp"), "");
    EXPECT_EQ(notice.windowTitle(), "Notices");
    test::TakePicture(notice, "FormNotice");
}

TEST_F(NoticeFormTest, does_without_a_settings_file) {
    g.reports.settings = {{"Liberation Serif", 12, false, false}, 0};
    NoticeForm notice(store.ports(), printer, NotKept());
    notice.ShowModeless();
    const auto before = test::NamesIn(store.folder.Path());
    test::Click(notice, "optOrient(1)");
    store.prompt().WillChoose(ReportFont{"Liberation Mono", 10, false, false});
    test::Click(notice, "cmdFont");
    test::Click(notice, "cmdPrint");
    EXPECT_EQ(printer.font.name, "Liberation Mono");
    EXPECT_EQ(printer.orientation, PageOrientation::Landscape);
    EXPECT_EQ(test::NamesIn(store.folder.Path()), before) << "nothing was written";
}

/// Does not run until it is loud.
class VetoingForm : public NoticeForm {
  public:
    VetoingForm(Ports& ports, Printer& printer, qt::DeskSettings settings,
                const std::filesystem::path& folder)
        : NoticeForm(ports, printer, std::move(settings)) {
        auto& save = Add<QPushButton>("cmdSave", "Save");
        On(save, &QPushButton::clicked, [this, folder] { Desk().SaveWebPage(folder); });
    }

  protected:
    bool MayRun() override {
        if (!IsLoud()) ports_.prompt.MsgBox("No Departments selected....", box::Ok, "Select departments");
        return IsLoud();
    }
};

TEST_F(NoticeFormTest, can_refuse_to_run_before_anything_happens) {
    VetoingForm notice(store.ports(), printer, NotKept(), store.folder.Path());
    notice.ShowModeless();
    for (const char* button : {"cmdPreview", "cmdPrint", "cmdSave"}) {
        store.prompt().Expect("No Departments selected....", box::Ok, "Select departments");
        if (std::string(button) == "cmdSave")
            notice.Find<QPushButton>(button)->click();
        else
            test::Click(notice, button);
        EXPECT_EQ(notice.windowTitle(), "Notices");
        EXPECT_FALSE(test::Find<QWidget>(notice, "vp").isVisible()) << button;
        EXPECT_EQ(printer.asked, 0) << button;
    }
    test::Click(notice, "Check1");
    test::Click(notice, "cmdPreview");
    EXPECT_TRUE(test::Find<QWidget>(notice, "vp").isVisible());
    test::Click(notice, "cmdPreviewPrint");
    EXPECT_EQ(printer.printed, 1);
}

/// A form that is itself a picture, with flat buttons of its own and no row of options.
class PictureForm : public qt::ReportScreen {
  public:
    PictureForm(Ports& ports, Printer& printer, qt::DeskSettings settings)
        : ReportScreen(ports, printer, std::move(settings), "FormPicture", nullptr) {
        graph_ = &Add<qt::PictureBox>("graph", "Heads by quarter");
        graph_->onPaint = [this](QPainter& painter, const QRegion&) {
            painter.fillRect(graph_->rect(), Qt::darkGreen);
        };
        BuildPreview();
        BuildFontAndPaper();
        preview_ = AddFlat(4, "Print Preview", [this] { ShowPreview(); });
        exit_ = AddFlat(9, "Exit", [this] { Unload(); });
        PlaceNormal();
    }

  protected:
    void Run(Vp& vp) override {
        vp.StartDoc();
        TextAt(vp, 0, 0, "heads");
        vp.EndDoc();
    }
    std::string DocumentTitle() const override { return "Heads"; }
    void PlaceNormal() override {
        setWindowTitle(QStringLiteral("A day"));
        setFixedSize(qt::Pixels(9000), qt::Pixels(6000));
        Place(*graph_, 0, 0, 9000, 4500);
        Place(*Frame1, 100, 4700, qt::FontFrameWidth, qt::FrameHeight);
        Place(*Frame2, 3500, 4700, qt::PaperFrameWidth, qt::FrameHeight);
        Place(*preview_, 6400, 4800, 1300, 400);
        Place(*exit_, 7800, 4800, 1000, 400);
        SetCancelButton(*exit_);
    }
    void ShowOwnParts(bool shown) override {
        for (QWidget* part : std::initializer_list<QWidget*>{graph_, preview_, exit_})
            part->setVisible(shown);
    }

  private:
    qt::LabelButton* AddFlat(int index, const char* caption, std::function<void()> onPress) {
        auto& button = Add(Label1_, "Label1", index, caption);
        button.setText(QLatin1String(caption));
        On(button, &QPushButton::clicked, std::move(onPress));
        return &button;
    }

    qt::PictureBox* graph_ = nullptr;
    qt::ControlArray<qt::LabelButton> Label1_;
    qt::LabelButton* preview_ = nullptr;
    qt::LabelButton* exit_ = nullptr;
};

TEST_F(NoticeFormTest, can_be_a_picture_with_a_layout_of_its_own) {
    PictureForm picture(store.ports(), printer, Kept());
    picture.ShowModeless();
    const QSize normal = picture.size();
    const QRect paper = test::Find<QWidget>(picture, "Frame2").geometry();
    test::TakePicture(picture, "FormPicture");
    test::Click(picture, "Label1(4)");
    EXPECT_FALSE(test::Find<QWidget>(picture, "graph").isVisible());
    EXPECT_TRUE(test::Find<QWidget>(picture, "vp").isVisible());
    test::Press(picture, Qt::Key_Escape);
    EXPECT_TRUE(test::Find<QWidget>(picture, "graph").isVisible());
    EXPECT_EQ(picture.size(), normal);
    EXPECT_EQ(test::Find<QWidget>(picture, "Frame2").geometry(), paper);
    EXPECT_EQ(picture.windowTitle(), "A day");
    test::Press(picture, Qt::Key_Escape);
    EXPECT_FALSE(picture.isVisible());
}

} // namespace
} // namespace tvx
