// What every report form shares: font and paper with their file, the preview, and printing. A report adds its
// options and its drawing routine.
#pragma once

#include "desktop/Form.h"
#include "reports/page/Printer.h"
#include "reports/page/ReportSettingsFile.h"
#include "reports/page/screens/DocumentPainter.h"
#include "reports/page/screens/Preview.h"
#include "shell/state/TVXGLOB.h"

#include <QRadioButton>

#include <string_view>

namespace tvx::qt {

class ReportForm : public Form {
    Q_OBJECT
  protected:
    /// `extension` names the settings file of the kind of report; it is read here.
    ReportForm(GlobalState& g, Ports& ports, Printer& printer, const char* designerName,
               std::string_view extension, Form* owner);

    /// Draws the whole report between StartDoc and EndDoc.
    virtual void Run(Vp& vp) = 0;
    /// The title while the preview shows.
    virtual std::string PreviewTitle() const { return "Review print..."; }
    /// The caption of cmdPreviewPrint.
    virtual std::string PreviewPrintCaption() const { return "&Print"; }
    /// The title of the printed document.
    virtual std::string DocumentTitle() const { return title_; }
    /// What cmdPreviewPrint does; on paper it prints.
    virtual void PrintFromPreview();
    /// The form prints on paper again: cmdPrint was pressed, or the preview is closing.
    virtual void BackToPaper() {}

    /// Where the form's own option frames stand. Call FinishLayout when they are there.
    QWidget& Options() { return *options_; }
    /// A button beside cmdPreview and cmdPrint.
    QPushButton& AddButton(const char* name, const char* caption);
    void FinishLayout(const std::string& title);

    void ShowPreview();
    void ClosePreview();
    bool PreviewShown() const { return previewShown_; }
    VpDocument& Document() { return document_; }
    /// Runs the report into the document under a busy pointer.
    void RunReport();

    GlobalState& g_;

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool MayUnload() override;

  private:
    void BuildFont();
    void BuildPaper();
    void BuildPreview();
    QPushButton* AddPreviewButton(const char* name, const QString& caption, const std::string& accessible);
    void OrderTabs();
    void PlaceNormal();
    void PlacePreview();
    void ShowParts(bool preview);
    void ChooseFont();
    void ChooseOrientation(int index);
    void FontInPicture();
    ReportFont FontOfDocument() const;
    void PaintSample(QPainter& painter) const;
    void KeepSettings();
    bool Print();
    void ShowPageNumber();

    Printer& printer_;
    std::filesystem::path settingsFile_;
    QtFontMeasures measures_;
    VpDocument document_;
    bool previewShown_ = false;
    bool fontBold_ = false;         // as the font dialog left it; no form opens with it
    QWidget* openedFrom_ = nullptr; // had the focus before the preview
    std::string title_;
    QSize normalSize_;
    QWidget* options_ = nullptr;
    QWidget* buttons_ = nullptr; // cmdPreview, cmdPrint, cmdCancel and the form's own

    Frame* Frame1 = nullptr; // font
    Frame* Frame2 = nullptr; // paper
    PictureBox* Picture1 = nullptr;
    ControlArray<QRadioButton> optOrient; // 0 portrait, 1 landscape
    Preview* vp_ = nullptr;
    QPushButton* cmdFont = nullptr;
    QPushButton* cmdPreview = nullptr;
    QPushButton* cmdPrint = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdPreviewPrint = nullptr;
    QPushButton* cmdCancelPreview = nullptr;
    QPushButton* pageBack_ = nullptr;
    QPushButton* pageOn_ = nullptr;
    Label* pageNumber_ = nullptr;
};

} // namespace tvx::qt
