#include "reports/page/screens/QtPrinter.h"

#include "desktop/Scale.h"
#include "platform/files/FileError.h"
#include "reports/page/screens/DocumentPainter.h"

#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QPageLayout>
#include <QPageRanges>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>
#include <cmath>

namespace tvx::qt {
namespace {

constexpr double MillimetersPerInch = 25.4;

bool IsImperial() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
}

Twips TwipsOf(double millimeters) {
    return static_cast<Twips>(std::lround(millimeters / MillimetersPerInch * TwipsPerInch));
}

/// The pages of a document that a printer was told to print, in the order in which they come out.
std::vector<int> PagesFor(const QPrinter& printer, int count) {
    const QPageRanges ranges = printer.pageRanges();
    const bool all = printer.printRange() != QPrinter::PageRange || ranges.isEmpty();
    std::vector<int> pages;
    for (int page = 1; page <= count; ++page)
        if (all || ranges.contains(page)) pages.push_back(page);
    if (printer.pageOrder() == QPrinter::LastPageFirst) std::reverse(pages.begin(), pages.end());
    return pages;
}

/// Puts a name into the dialog's box for a file. To tell the printer of it would take the choice of a file,
/// and not of a printer, for granted.
void Propose(const QPrintDialog& dialog, const std::filesystem::path& file) {
    if (auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("filename")))
        box->setText(QString::fromStdU16String(file.u16string()));
}

} // namespace

QtPrinter::QtPrinter() = default;
QtPrinter::~QtPrinter() = default;

QPrinter& QtPrinter::Device() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setPageSize(QPageSize(IsImperial() ? QPageSize::Letter : QPageSize::A4));
    }
    return *printer_;
}

bool QtPrinter::PrintDialog(PageOrientation orientation, const std::string& title,
                            const std::filesystem::path& file) {
    QPrinter& printer = Device();
    printer.setPageOrientation(orientation == PageOrientation::Landscape ? QPageLayout::Landscape
                                                                         : QPageLayout::Portrait);
    printer.setDocName(ToQString(title));
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    Propose(dialog, file);
    return dialog.exec() == QDialog::Accepted;
}

Paper QtPrinter::Sheet() const {
    if (!printer_) return UsualPaper();
    const QSizeF size = printer_->pageLayout().pageSize().size(QPageSize::Millimeter);
    return {TwipsOf(size.width()), TwipsOf(size.height()), Paper().margin};
}

std::optional<std::filesystem::path> QtPrinter::Print(const VpDocument& document) {
    const QPrinter& printer = Device();
    if (printer.outputFormat() != QPrinter::PdfFormat || printer.outputFileName().isEmpty()) {
        PrintOnPaper(document);
        return std::nullopt;
    }
    const std::filesystem::path file = printer.outputFileName().toStdU16String();
    WritePdf(document, FromQString(printer.docName()), file, PagesFor(printer, document.PageCount()));
    return file;
}

void QtPrinter::PrintOnPaper(const VpDocument& document) {
    QPrinter& printer = Device();
    printer.setFullPage(true);
    printer.setPageOrientation(document.Orientation() == PageOrientation::Landscape ? QPageLayout::Landscape
                                                                                    : QPageLayout::Portrait);
    QPainter painter;
    if (!painter.begin(&printer))
        throw FileError(FileErrorNumber::PathFileAccess, "The printer cannot be opened.");
    const double scale = printer.resolution() / static_cast<double>(TwipsPerInch);
    PaintPages(painter, printer, document, PagesFor(printer, document.PageCount()), scale);
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        throw FileError(FileErrorNumber::PathFileAccess, "The document could not be printed.");
}

Paper UsualPaper() {
    constexpr Paper A4{11906, 16838};
    return IsImperial() ? Paper() : A4;
}

} // namespace tvx::qt
