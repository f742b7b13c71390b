// Reports, beside a bare painter that writes the same texts and lines and beside a bare write of the same
// bytes; how memory grows with the pages, and how soon a preview shows.
#include "Ratios.h"
#include "desktop/Scale.h"
#include "platform/files/WholeFile.h"
#include "reports/page/HtmlDocument.h"
#include "reports/page/screens/DocumentPainter.h"
#include "reports/page/screens/Preview.h"
#include "reports/schedules/Schedules.h"
#include "support/TestStore.h"

#include <QApplication>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <memory>

namespace tvx::bench {
namespace {

constexpr DaySerial Sunday = 46082; // 1 March 2026
constexpr Paper A4{11906, 16838, 567};

bool Smoke() {
    return std::getenv("TVX_BENCH_SMOKE") != nullptr;
}

/// A department with a week in memory, all of it printed.
struct Department {
    explicit Department(int people) {
        store.AddDepartment("Bench");
        store.AddPeople(people);
        store.FillWeeks(Sunday, 2);
        store.OpenWeek(Sunday);
        store.g.reports.options = {0, 1, 1, 2, 0, false, true};
        document.Orientation(PageOrientation::Landscape);
        document.Font({"Liberation Sans", 9, false, false});
    }

    void Draw(bool html) { RunSchedule(store.g, store.ports(), ScheduleRequest{}, html, document); }

    test::TestStore store;
    qt::QtFontMeasures measures;
    VpDocument document{measures, A4};
};

// ---- PDF ----

/// What a page shows, ready for a painter.
struct BareText {
    QPointF at;
    QString text;
    QFont font;
    QColor colour;
};
struct BarePage {
    std::vector<BareText> texts;
    std::vector<DrawnPageLine> lines;
    std::vector<DrawnPageBox> boxes;
};

std::vector<BarePage> BarePagesOf(const VpDocument& document) {
    std::vector<BarePage> pages;
    for (int number = 1; number <= document.PageCount(); ++number) {
        BarePage page;
        for (const PageOperation& operation : document.Page(number)) {
            if (const auto* text = std::get_if<DrawnPageText>(&operation)) {
                const QFont font = qt::FontInTwips(document.FontAt(text->font));
                page.texts.push_back({QPointF(text->x, text->y + QFontMetricsF(font).ascent()),
                                      QString::fromStdString(text->text), font, qt::ToColor(text->colour)});
            } else if (const auto* line = std::get_if<DrawnPageLine>(&operation)) {
                page.lines.push_back(*line);
            } else if (const auto* box = std::get_if<DrawnPageBox>(&operation)) {
                page.boxes.push_back(*box);
            }
        }
        pages.push_back(std::move(page));
    }
    return pages;
}

void PaintBare(QPainter& painter, const BarePage& page) {
    for (const BareText& text : page.texts) {
        painter.setFont(text.font);
        painter.setPen(text.colour);
        painter.drawText(text.at, text.text);
    }
    painter.setPen(QPen(Qt::black, 8));
    for (const DrawnPageLine& line : page.lines) painter.drawLine(line.x1, line.y1, line.x2, line.y2);
    for (const DrawnPageBox& box : page.boxes)
        painter.fillRect(QRectF(QPointF(box.box.left, box.box.top), QPointF(box.box.right, box.box.bottom)),
                         qt::ToColor(box.fill));
}

void WriteBarePdf(const std::vector<BarePage>& pages, const std::filesystem::path& file) {
    QPdfWriter writer(QString::fromStdString(file.string()));
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF()));
    writer.setResolution(TwipsPerInch);
    QPainter painter(&writer);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0) writer.newPage();
        painter.resetTransform();
        painter.translate(A4.margin, A4.margin);
        PaintBare(painter, pages[i]);
    }
}

void PdfPair(int people) {
    const auto department = std::make_shared<Department>(people);
    department->Draw(false);
    const auto bare = std::make_shared<std::vector<BarePage>>(BarePagesOf(department->document));
    const auto file = [department](const char* name) { return department->store.folder / name; };
    Pair(
        "short schedule as PDF/" + std::to_string(people),
        [=] {
            return Seconds([&] {
                department->Draw(false);
                qt::WritePdf(department->document, "Week", file("work.pdf"));
            });
        },
        [=] { return Seconds([&] { WriteBarePdf(*bare, file("floor.pdf")); }); });
}

// ---- web pages ----

void HtmlPair(int people) {
    const auto department = std::make_shared<Department>(people);
    department->Draw(true);
    const auto bytes = std::make_shared<std::string>(HtmlOf(department->document, "Week", "en"));
    const auto file = [department](const char* name) { return department->store.folder / name; };
    const auto write = [=] { ReplaceWholeFile(file("floor.htm"), *bytes); };
    std::printf("web page of %d people: %.2f MB\n", people, static_cast<double>(bytes->size()) / 1e6);
    Pair(
        "short schedule as a web page/" + std::to_string(people),
        [=] {
            return Seconds([&] {
                department->Draw(true);
                WriteHtml(department->document, "Week", "en", file("work.htm"));
            });
        },
        [=] { return Seconds(write); });
    Pair(
        "the same from the drawn document/" + std::to_string(people),
        [=] { return Seconds([&] { WriteHtml(department->document, "Week", "en", file("work.htm")); }); },
        [=] { return Seconds(write); });
}

// ---- memory ----

std::size_t BytesInUse() {
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// Kilobytes that a finished document keeps for each of its pages.
double KilobytesPerPage(int people) {
    Department department(people);
    department.Draw(false); // fonts and the like stay
    department.document.StartDoc();
    const std::size_t before = BytesInUse();
    department.Draw(false);
    const double kilobytes = static_cast<double>(BytesInUse() - before) / 1000;
    const int pages = department.document.PageCount();
    std::printf("memory of %4d people: %3d pages, %8.1f kB, %6.2f kB a page\n", people, pages, kilobytes,
                kilobytes / pages);
    return kilobytes / pages;
}

/// Prints the memory of two sizes. False when a page of the larger document costs clearly more; the smoke run
/// is too small to tell.
bool MemoryGrowsWithPages() {
    const double few = KilobytesPerPage(Smoke() ? 40 : 300);
    const double many = KilobytesPerPage(Smoke() ? 160 : 1200);
    std::printf("memory of a page, four times the people: %.2f times\n", many / few);
    return Smoke() || many < few * 1.25;
}

// ---- the preview ----

/// From the order to preview until page 1 stands on a surface of a screen's size.
void TellPreview(int people) {
    Department department(people);
    qt::Preview preview;
    preview.resize(1880, 960);
    std::vector<double> drawn;
    std::vector<double> shown;
    for (int round = 0; round < (Smoke() ? 1 : 9); ++round) {
        double drawing = 0;
        shown.push_back(Seconds([&] {
            drawing = Seconds([&] { department.Draw(false); });
            preview.Show(department.document);
            preview.grab();
        }));
        drawn.push_back(drawing);
    }
    std::sort(drawn.begin(), drawn.end());
    std::sort(shown.begin(), shown.end());
    std::printf("preview of %d people: page 1 of %d shows after %.1f ms; drawing all of them takes %.1f ms\n",
                people, department.document.PageCount(), shown[shown.size() / 2] * 1000,
                drawn[drawn.size() / 2] * 1000);
}

} // namespace
} // namespace tvx::bench

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int none = 1;
    const QApplication application(none, arguments);
    const bool smoke = tvx::bench::Smoke();
    const bool grows = tvx::bench::MemoryGrowsWithPages();
    tvx::bench::TellPreview(smoke ? 30 : 300);
    tvx::bench::PdfPair(smoke ? 30 : 300);
    tvx::bench::HtmlPair(smoke ? 30 : 1000);
    const int status = tvx::bench::RunPairs(count, arguments);
    return grows ? status : 1;
}
