#include "reports/screens/QtPrinter.h"

#include "platform/files/FileError.h"
#include "platform/qt/Scale.h"
#include "reports/screens/DocumentPainter.h"

#include <QApplication>
#include <QLocale>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace tvx::qt {

QtPrinter::QtPrinter() = default;
QtPrinter::~QtPrinter() = default;

bool QtPrinter::PrintDialog(PageOrientation orientation) {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setPageOrientation(orientation == PageOrientation::Landscape ? QPageLayout::Landscape
                                                                           : QPageLayout::Portrait);
    const bool a4 = UsualPaper().width != Paper().width;
    printer_->setPageSize(QPageSize(a4 ? QPageSize::A4 : QPageSize::Letter));
    QPrintDialog dialog(printer_.get(), QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
}

void QtPrinter::Print(const VpDocument& document) {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setFullPage(true);
    QPainter painter;
    if (!painter.begin(printer_.get()))
        throw FileError(FileErrorNumber::PathFileAccess,
                        "The printer, or the file to print to, cannot be opened.");
    const double scale = printer_->resolution() / static_cast<double>(TwipsPerInch);
    for (int page = 1; page <= document.PageCount(); ++page) {
        if (page > 1 && !printer_->newPage()) break;
        painter.resetTransform();
        painter.scale(scale, scale);
        painter.translate(document.Sheet().margin, document.Sheet().margin);
        PaintPage(painter, document, page);
    }
    if (!painter.end() || printer_->printerState() == QPrinter::Error)
        throw FileError(FileErrorNumber::PathFileAccess, "The document could not be printed.");
}

Paper UsualPaper() {
    constexpr Paper A4{11906, 16838, 720};
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? Paper() : A4;
}

} // namespace tvx::qt
