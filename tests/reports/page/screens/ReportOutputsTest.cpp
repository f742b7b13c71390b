// Finished reports as others read them: PDF files by their text, web pages by a checker and in a browser.
#include "editor/week/Totals.h"
#include "platform/basic/Text.h"
#include "reports/page/HtmlDocument.h"
#include "reports/page/screens/DocumentPainter.h"
#include "reports/schedules/Schedules.h"
#include "shell/common/Conversions.h"
#include "support/ScheduleFormFixture.h"
#include "support/WeekWriter.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProcess>
#include <QStandardPaths>

#include <sstream>

namespace tvx {
namespace {

namespace fs = std::filesystem;

constexpr ScheduleKind Kinds[] = {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected};
constexpr int Patience = 120000; // milliseconds

struct Ended {
    int code = -1;
    std::string out;
    std::string errors;
};

bool IsInstalled(const char* program) {
    return !QStandardPaths::findExecutable(QLatin1String(program)).isEmpty();
}

Ended RunProgram(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QLatin1String(program), arguments);
    if (!process.waitForFinished(Patience)) return {};
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

/// A text with every run of blanks as one.
std::string Squeezed(const std::string& text) {
    std::string squeezed;
    for (const char c : text)
        if (c != ' ' || squeezed.empty() || squeezed.back() != ' ') squeezed += c;
    return squeezed;
}

class ReportOutputsTest : public ScheduleFormFixture {
  protected:
    // Kept for a look at them; each test its own, for tests run side by side.
    const fs::path out =
        fs::path(TVX_BINARY_DIR) / "reports" / testing::UnitTest::GetInstance()->current_test_info()->name();
    qt::QtFontMeasures measures;
    double fontSize = 9;

    void SetUp() override {
        ScheduleFormFixture::SetUp();
        fs::create_directories(out);
        g.reports.options = {0, 1, 1, 1, 0, true, true};
    }
    VpDocument Draw(ScheduleKind kind, bool html) {
        VpDocument document(measures, Paper{11906, 16838, 720});
        document.Font({"Liberation Sans", fontSize, false, false});
        if (kind == ScheduleKind::Short) document.Orientation(PageOrientation::Landscape);
        ScheduleRequest request;
        request.kind = kind;
        request.productivity = true;
        request.picked = {1, 6};
        RunSchedule(g, store.ports(), request, html, document);
        return document;
    }
    std::string Title() const { return WeekTitle(g.department, g.week); }

    /// The text of a kind's PDF, as it lies on the pages.
    std::string PdfText(ScheduleKind kind) {
        const fs::path file = out / (TextOf(kind) + ".pdf");
        qt::WritePdf(Draw(kind, false), Title(), file);
        return RunProgram("pdftotext", {"-layout", QString::fromStdString(file.string()), "-"}).out;
    }
    fs::path PutPage(const std::string& name, ScheduleKind kind) {
        const fs::path file = out / (name + ".html");
        WriteHtml(Draw(kind, true), Title(), "en", file);
        return file;
    }
    /// What could break a page: marks of markup, right to left, no blanks, nothing at all.
    void NameThemBadly() {
        g.roster.RosterName1[1] = "O'Neil <b>&amp; \"Sons\"</td>";
        g.roster.RosterName1[2] = "בן־דוד";
        g.roster.RosterName2[2] = "אברהם";
        g.roster.RosterName1[3] = std::string(200, 'W');
        g.roster.RosterName1[4] = g.roster.RosterName2[4] = "";
        g.roster.RosterAssignment[1] = "a\x01\x02 \xFF\xFE b";
        g.department.CurrentDepName = "R&D <Nord>";
        g.figures.DayMemoFlag[3] = true;
        g.figures.DayMemoText[3] = "<script>alert(1)</script> " + std::string(300, 'x');
    }
};

// ---- PDF ----

TEST_F(ReportOutputsTest, a_PDF_holds_the_totals_of_the_screen) {
    if (!IsInstalled("pdftotext")) GTEST_SKIP() << "pdftotext is not installed";
    const auto screen = TotalsTexts(
        g.totals, g.rights, g.application.options.TimeFormat); // day time, week time, day wages, week wages
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long}) {
        std::string text = Squeezed(PdfText(kind));
        std::erase(text, ',');
        EXPECT_NE(text.find("Department total time: " + Trim(screen[1]) + "\n"), std::string::npos)
            << TextOf(kind) << ": " << screen[1];
        EXPECT_NE(text.find("Department total wages: " + Trim(screen[3]) + "\n"), std::string::npos)
            << TextOf(kind) << ": " << screen[3];
        for (int e = 1; e <= g.roster.EmployeeCount; ++e)
            EXPECT_NE(text.find(g.roster.RosterName1[e]), std::string::npos) << TextOf(kind);
    }
}

TEST_F(ReportOutputsTest, a_PDF_of_each_person_holds_the_hours_of_the_editors_row) {
    if (!IsInstalled("pdftotext")) GTEST_SKIP() << "pdftotext is not installed";
    const std::string text = Squeezed(PdfText(ScheduleKind::Selected));
    for (const int e : {1, 6})
        EXPECT_NE(text.find("Total: " + Trim(QuartersToText(g.week.WeekQuarters[e], TimeFormat::Minutes))),
                  std::string::npos)
            << g.roster.RosterName1[e];
    EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2) << "a page each";
}

TEST_F(ReportOutputsTest, a_PDF_holds_names_of_any_script) {
    if (!IsInstalled("pdftotext")) GTEST_SKIP() << "pdftotext is not installed";
    g.roster.RosterName1[1] = "Łukasiewicz";
    g.roster.RosterName1[2] = "Ångström & <Söhne>";
    const std::string text = PdfText(ScheduleKind::Long);
    EXPECT_NE(text.find("Łukasiewicz"), std::string::npos);
    EXPECT_NE(text.find("Ångström & <Söhne>"), std::string::npos);
}

TEST_F(ReportOutputsTest, a_PDF_has_a_title_and_the_sheet_that_was_asked_for) {
    if (!IsInstalled("pdfinfo")) GTEST_SKIP() << "pdfinfo is not installed";
    PdfText(ScheduleKind::Short);
    const std::string info =
        RunProgram("pdfinfo", {QString::fromStdString((out / "7DayShort.pdf").string())}).out;
    EXPECT_NE(info.find("Example department,  Week from 26-Feb-2006"), std::string::npos) << info;
    EXPECT_NE(info.find("A4"), std::string::npos) << info;
}

/// The first page of a document as a screen or a printer shows it.
QImage Painted(const VpDocument& document) {
    QImage page(800, 560, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.scale(0.05, 0.05);
    qt::PaintPage(painter, document, 1);
    return page;
}

TEST_F(ReportOutputsTest, pages_are_the_same_on_a_dark_desktop) {
    const QPalette light = QApplication::palette();
    const QImage wanted = Painted(Draw(ScheduleKind::Short, false));
    QPalette dark = light;
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(240, 240, 240));
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        dark.setColor(role, QColor(30, 30, 30));
    QApplication::setPalette(dark);
    for (const bool html : {false, true}) {
        const QImage seen = Painted(Draw(ScheduleKind::Short, html));
        QApplication::setPalette(light);
        EXPECT_EQ(seen, Painted(Draw(ScheduleKind::Short, html)));
        QApplication::setPalette(dark);
    }
    QApplication::setPalette(light);
    EXPECT_EQ(Painted(Draw(ScheduleKind::Short, false)), wanted);
}

// ---- web pages ----

TEST_F(ReportOutputsTest, web_pages_of_every_kind_are_valid) {
    if (!IsInstalled("tidy")) GTEST_SKIP() << "tidy is not installed";
    for (const bool bad : {false, true}) {
        if (bad) NameThemBadly();
        for (const ScheduleKind kind : Kinds)
            for (const int week : {0, 3}) {
                g.department.WeekMethod = week;
                g.department.DayCutoffQuarters = week == 0 ? 16 : 0;
                const fs::path page = PutPage(bad ? TextOf(kind) + "-odd" : TextOf(kind), kind);
                const Ended checked = RunProgram("tidy", {"-errors", "-quiet", "-utf8", "--show-warnings",
                                                          "yes", QString::fromStdString(page.string())});
                EXPECT_EQ(checked.code, 0) << TextOf(kind) << "\n" << checked.errors;
            }
    }
}

TEST_F(ReportOutputsTest, a_web_page_of_nobody_is_valid) {
    if (!IsInstalled("tidy")) GTEST_SKIP() << "tidy is not installed";
    test::WritableWeek(g).Resize(0);
    g.roster.EmployeeCount = 0;
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long}) {
        const fs::path page = PutPage(TextOf(kind) + "-nobody", kind);
        const Ended checked =
            RunProgram("tidy", {"-errors", "-quiet", "-utf8", QString::fromStdString(page.string())});
        EXPECT_EQ(checked.code, 0) << TextOf(kind) << "\n" << checked.errors;
    }
}

TEST_F(ReportOutputsTest, web_pages_hold_the_totals_of_the_screen) {
    const auto screen = TotalsTexts(g.totals, g.rights, g.application.options.TimeFormat);
    for (const ScheduleKind kind : {ScheduleKind::Short, ScheduleKind::Long}) {
        std::string page = test::ReadFile(PutPage(TextOf(kind), kind));
        std::erase(page, ',');
        EXPECT_NE(page.find(Trim(screen[1]) + "</"), std::string::npos) << TextOf(kind) << screen[1];
        EXPECT_NE(page.find(Trim(screen[3]) + "</"), std::string::npos) << TextOf(kind) << screen[3];
    }
}

// ---- in a browser ----

/// Shows pages in frames of some widths and tells of each whether anything lies beyond its frame: the names
/// of the culprits, and how wide the page has become.
class Browser {
  public:
    void Add(const fs::path& page, int width) {
        std::string markup;
        for (const char c : test::ReadFile(page)) {
            if (c == '&')
                markup += "&amp;";
            else if (c == '"')
                markup += "&quot;";
            else
                markup += c;
        }
        frames_ << "<iframe title=\"" << page.stem().string() << " at " << width
                << "\" style=\"width:" << width << "px;height:900px;border:0\" srcdoc=\"" << markup
                << "\"></iframe>\n";
    }

    /// "7DayLong at 375: fits", or "too wide" and what sticks out; a line for each frame.
    std::vector<std::string> Look() {
        test::TempFolder folder;
        test::WriteFile(folder / "look.html",
                        "<!DOCTYPE html><html><body>" + frames_.str() + Script() + "</body>");
        const Ended ended = RunProgram(
            "chromium", {"--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                         "--disable-background-networking", "--disable-component-update", "--disable-sync",
                         "--user-data-dir=" + QString::fromStdString((folder / "profile").string()),
                         "--virtual-time-budget=10000", "--dump-dom",
                         "file://" + QString::fromStdString((folder / "look.html").string())});
        std::vector<std::string> told;
        const std::size_t from = ended.out.find("<pre id=\"told\">");
        const std::size_t end = ended.out.find("</pre>", from);
        if (from == std::string::npos || end == std::string::npos) return told;
        for (const std::string& line : Split(ended.out.substr(from + 15, end - from - 15), '\n'))
            if (!line.empty()) told.push_back(line);
        return told;
    }

  private:
    static std::string Script() {
        const fs::path file = fs::path(TVX_SOURCE_DIR) / "tests/reports/screens/look.js";
        return "<script>" + test::ReadFile(file) + "</script>";
    }

    std::ostringstream frames_;
};

TEST_F(ReportOutputsTest, web_pages_fit_a_phone_and_a_desk_without_scrolling_sideways) {
    if (!IsInstalled("chromium")) GTEST_SKIP() << "chromium is not installed";
    Browser browser;
    std::vector<std::string> wanted;
    for (const bool bad : {false, true}) {
        if (bad) NameThemBadly();
        for (const ScheduleKind kind : Kinds) {
            const std::string name = bad ? TextOf(kind) + "-odd" : TextOf(kind);
            const fs::path page = PutPage(name, kind);
            for (const int width : {375, 641, 800, 1024, 1200}) {
                browser.Add(page, width);
                wanted.push_back(name + " at " + std::to_string(width) + ": fits");
            }
        }
    }
    fontSize = 14;
    for (const int width : {375, 641, 800, 1024, 1200})
        for (const ScheduleKind kind : Kinds) {
            browser.Add(PutPage(TextOf(kind) + "-large", kind), width);
            wanted.push_back(TextOf(kind) + "-large at " + std::to_string(width) + ": fits");
        }
    const fs::path wide = out / "wide.html";
    test::WriteFile(wide, "<!DOCTYPE html><body><p style='width:500px'>A page of 500 pixels</p>");
    browser.Add(wide, 375);
    wanted.push_back("wide at 375: too wide, body \"A page of 500 pixels\", p \"A page of 500 pixels\"");
    EXPECT_EQ(browser.Look(), wanted);
}

/// The folder of the auditor's modules, fetched once for a build; "" where they cannot be had.
std::string AuditorModules() {
    const fs::path folder = fs::path(TVX_BINARY_DIR) / "audit";
    fs::create_directories(folder);
    fs::copy_file(fs::path(TVX_SOURCE_DIR) / "tests/reports/page/screens/audit/package.json",
                  folder / "package.json", fs::copy_options::overwrite_existing);
    const Ended fetched =
        RunProgram("npm", {"install", "--prefix", QString::fromStdString(folder.string()), "--prefer-offline",
                           "--no-audit", "--no-fund", "--fetch-retries=0", "--fetch-timeout=20000"});
    return fetched.code == 0 ? (folder / "node_modules").string() : "";
}

TEST_F(ReportOutputsTest, web_pages_pass_an_automatic_audit) {
    for (const char* program : {"npm", "node", "chromium"})
        if (!IsInstalled(program)) GTEST_SKIP() << program << " is not installed";
    const std::string modules = AuditorModules();
    if (modules.empty()) GTEST_SKIP() << "axe-core and puppeteer-core cannot be fetched";
    QStringList arguments{
        QString::fromStdString(std::string(TVX_SOURCE_DIR) + "/tests/reports/page/screens/audit/audit.cjs"),
        QString::fromStdString(modules)};
    for (const bool bad : {false, true}) {
        if (bad) NameThemBadly();
        for (const ScheduleKind kind : Kinds)
            arguments << QString::fromStdString(PutPage(TextOf(kind) + (bad ? "-odd" : ""), kind).string());
    }
    qputenv("TVX_CHROMIUM", QStandardPaths::findExecutable("chromium").toLocal8Bit());
    const Ended audited = RunProgram("node", arguments);
    ASSERT_EQ(audited.code, 0) << audited.errors;
    std::size_t pages = 0;
    for (const std::string& line : Split(audited.out, '\n'))
        if (!line.empty()) {
            ++pages;
            EXPECT_NE(line.find(": 0 findings"), std::string::npos) << line;
        }
    EXPECT_EQ(pages, 12U) << "six pages, each on a desk and on a phone";
}

TEST_F(ReportOutputsTest, web_pages_break_no_time_when_a_browser_prints_them) {
    for (const char* program : {"chromium", "pdftotext"})
        if (!IsInstalled(program)) GTEST_SKIP() << program << " is not installed";
    for (const ScheduleKind kind : Kinds) {
        const fs::path page = PutPage(TextOf(kind), kind);
        const fs::path pdf = out / (TextOf(kind) + ".pdf");
        const test::TempFolder profile;
        RunProgram("chromium", {"--headless", "--no-sandbox", "--disable-gpu", "--no-pdf-header-footer",
                                "--user-data-dir=" + QString::fromStdString(profile.Path().string()),
                                "--print-to-pdf=" + QString::fromStdString(pdf.string()),
                                "file://" + QString::fromStdString(page.string())});
        const std::string text =
            Squeezed(RunProgram("pdftotext", {"-layout", QString::fromStdString(pdf.string()), "-"}).out);
        const bool isShort = kind == ScheduleKind::Short;
        for (const std::string& words :
             isShort ? std::vector<std::string>{"Hours 8:00", "8:00a Noon", "Total: 39:00"}
                     : std::vector<std::string>{"8:00am Noon", "27-Feb-06>", "Total: 39:00"})
            EXPECT_NE(text.find(words), std::string::npos) << TextOf(kind) << " lacks " << words;
    }
}

} // namespace
} // namespace tvx
