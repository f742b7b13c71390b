// The desktop's own print dialog on a machine that has no printer.
#include "reports/page/screens/QtPrinter.h"

#include "platform/files/FileError.h"
#include "reports/page/screens/DocumentPainter.h"
#include "support/FullDisk.h"
#include "support/TempFolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace tvx {
namespace {

class QtPrinterTest : public testing::Test {
  protected:
    test::TempFolder folder;
    qt::QtFontMeasures measures;
    qt::QtPrinter printer;
    bool came_ = false;

    void SetUp() override {
        if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "this machine has a printer";
    }
    /// Does something with the next print dialog.
    void WhenAsked(std::function<void(QPrintDialog&)> deed) {
        timer_.setInterval(5);
        QObject::connect(&timer_, &QTimer::timeout, [this, deed = std::move(deed)] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            timer_.stop();
            came_ = true;
            deed(*dialog);
        });
        timer_.start();
    }
    static void Accept(QPrintDialog& dialog) {
        for (auto* box : dialog.findChildren<QDialogButtonBox*>())
            if (auto* button = box->button(QDialogButtonBox::Ok)) return button->click();
        for (auto* button : dialog.findChildren<QAbstractButton*>())
            if (button->text().contains(QLatin1String("Print")) && button->isVisible() &&
                button->inherits("QPushButton"))
                return button->click();
        ADD_FAILURE() << "no button prints";
        dialog.reject();
    }
    static void FileName(QPrintDialog& dialog, const std::filesystem::path& file) {
        for (auto* line : dialog.findChildren<QLineEdit*>())
            if (line->isVisible() && line->objectName() == QLatin1String("filename"))
                return line->setText(QString::fromStdString(file.string()));
        ADD_FAILURE() << "no box for the name of a file";
    }
    void Draw(VpDocument& document, int pages) {
        document.StartDoc();
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) document.NewPage();
            TextAt(document, 0, 0, "Sheet " + std::to_string(page));
        }
        document.EndDoc();
    }

  private:
    QTimer timer_;
};

TEST_F(QtPrinterTest, offers_a_PDF_file_where_there_is_no_printer) {
    bool offered = false;
    WhenAsked([&](QPrintDialog& dialog) {
        for (const auto* choice : dialog.findChildren<QComboBox*>())
            for (int i = 0; i < choice->count(); ++i)
                offered = offered || choice->itemText(i).contains(QLatin1String("PDF"));
        dialog.reject();
    });
    EXPECT_FALSE(printer.PrintDialog(PageOrientation::Portrait, "Week", folder / "Proposed.pdf"))
        << "a cancel is a cancel";
    EXPECT_TRUE(came_);
    EXPECT_TRUE(offered);
}

TEST_F(QtPrinterTest, writes_the_PDF_that_was_chosen) {
    QString proposed;
    WhenAsked([&](QPrintDialog& dialog) {
        proposed = dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->text();
        FileName(dialog, folder / "week.pdf");
        Accept(dialog);
    });
    ASSERT_TRUE(printer.PrintDialog(PageOrientation::Landscape, "Week", folder / "Proposed.pdf"));
    VpDocument document(measures, printer.Sheet());
    document.Orientation(PageOrientation::Landscape);
    Draw(document, 3);
    EXPECT_EQ(printer.Print(document), folder / "week.pdf");
    EXPECT_EQ(proposed.toStdString(), (folder / "Proposed.pdf").string());
    EXPECT_EQ(test::ReadFile(folder / "week.pdf").rfind("%PDF", 0), 0U);
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"week.pdf"});
}

TEST_F(QtPrinterTest, leaves_an_old_PDF_whole_when_it_cannot_be_written) {
    std::filesystem::create_directory(folder / "week.pdf");
    VpDocument document(measures);
    Draw(document, 1);
    EXPECT_THROW(qt::WritePdf(document, "Week", folder / "week.pdf"), FileError);
    EXPECT_THROW(qt::WritePdf(document, "Week", folder / "none/week.pdf"), FileError);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "week.pdf"));
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"week.pdf"});
}

TEST_F(QtPrinterTest, leaves_an_old_PDF_whole_on_a_full_disk) {
    test::WriteFile(folder / "week.pdf", "old");
    VpDocument document(measures);
    Draw(document, 2);
    {
        const test::FullDisk full(1000);
        EXPECT_THROW(qt::WritePdf(document, "Week", folder / "week.pdf"), FileError);
    }
    EXPECT_EQ(test::ReadFile(folder / "week.pdf"), "old");
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"week.pdf"});
}

TEST_F(QtPrinterTest, knows_a_sheet_before_anybody_was_asked) {
    const Paper paper = printer.Sheet();
    EXPECT_GT(paper.width, 10000);
    EXPECT_GT(paper.height, paper.width);
}

} // namespace
} // namespace tvx
