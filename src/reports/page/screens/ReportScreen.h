// A form with a report desk: the frames of font and paper, the preview and its buttons. How the form looks
// beside them is its own affair.
#pragma once

#include "desktop/Form.h"
#include "reports/page/screens/Preview.h"
#include "reports/page/screens/ReportDesk.h"

#include <QRadioButton>

namespace tvx::qt {

class ReportScreen : public Form, protected Report {
    Q_OBJECT
  protected:
    ReportScreen(Ports& ports, Printer& printer, DeskSettings settings, const char* designerName,
                 Form* owner);

    /// Gives the form the title, the size and the cancel button that it has without the preview, and places
    /// Frame1 and Frame2 there.
    virtual void PlaceNormal() = 0;
    /// Shows or hides everything that the preview takes the place of.
    virtual void ShowOwnParts(bool shown) = 0;
    /// The title while the preview shows.
    virtual std::string PreviewTitle() const { return "Review print..."; }
    /// The caption of cmdPreviewPrint.
    virtual std::string PreviewPrintCaption() const { return "&Print"; }
    /// What cmdPreviewPrint does; on paper it prints.
    virtual void PrintFromPreview();
    /// The form prints on paper again: the preview is closing.
    virtual void BackToPaper() {}

    /// The form's constructor builds both, in the order in which they are to be read.
    void BuildPreview();
    void BuildFontAndPaper();

    /// Nothing happens when the report may not run.
    void ShowPreview();
    void ClosePreview();
    ReportDesk& Desk() { return desk_; }
    void Written(const std::filesystem::path& file) override;
    /// The line that tells which file was written, once there is one; the form places it.
    QWidget& WrittenLine() { return *written_; }
    bool HasWritten() const { return !writtenFile_.empty(); }

    Frame* Frame1 = nullptr; // font
    Frame* Frame2 = nullptr; // paper
    QPushButton* cmdFont = nullptr;
    Options<> optOrient; // 0 portrait, 1 landscape

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool MayUnload() override;

  private:
    void BuildWrittenLine();
    void OpenFolder();
    void BuildFont();
    void BuildPaper();
    QPushButton* AddPreviewButton(const char* name, const QString& caption, const std::string& accessible);
    void PlacePreview();
    void ShowParts(bool preview);
    void PaintSample(QPainter& painter) const;
    void ShowPageNumber();
    void ShowRemark();

    ReportDesk desk_;
    QWidget* openedFrom_ = nullptr; // had the focus before the preview

    std::filesystem::path writtenFile_;
    QWidget* written_ = nullptr; // its name, and a button that opens its folder
    TextBox* lblWritten = nullptr;

    PictureBox* Picture1 = nullptr;
    Preview* vp_ = nullptr;
    QPushButton* cmdPreviewPrint = nullptr;
    QPushButton* cmdCancelPreview = nullptr;
    QPushButton* pageBack_ = nullptr;
    QPushButton* pageOn_ = nullptr;
    Label* pageNumber_ = nullptr;
    Label* remark_ = nullptr; // of the document
};

constexpr Twips FrameHeight = 1080;  // of Frame1 and Frame2
constexpr Twips WrittenHeight = 420; // of the line that tells which file was written
constexpr Twips FontFrameWidth = 3300;
constexpr Twips PaperFrameWidth = 2700;

} // namespace tvx::qt
