// Where a report is worked on: its document, the font and paper that are kept for it, and the ways out.
#pragma once

#include "platform/ports/Ports.h"
#include "reports/page/Printer.h"
#include "reports/page/ReportSettingsFile.h"
#include "reports/page/screens/DocumentPainter.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tvx::qt {

class Preview;

/// What a desk needs to know of a report.
class Report {
  public:
    virtual ~Report() = default;
    /// Draws the whole report between StartDoc and EndDoc.
    virtual void Run(Vp& vp) = 0;
    /// False keeps the report from running; a box has then said why. Asked before anything else happens.
    virtual bool MayRun() { return true; }
    /// The title of the printed document and of the web page.
    virtual std::string DocumentTitle() const = 0;
    /// What a file of it is proposed to be called, without an ending: another name for each report and week.
    virtual std::string FileName() const { return DocumentTitle(); }
    /// A file of it was written.
    virtual void Written(const std::filesystem::path&) {}
};

/// The settings are shared by all reports of a run; without a file they are neither read nor kept.
struct DeskSettings {
    ReportSettings& settings;
    std::optional<std::filesystem::path> file;
};

class ReportDesk {
  public:
    /// Reads the settings file where there is one.
    ReportDesk(Report& report, Ports& ports, Printer& printer, DeskSettings settings);

    const ReportSettings& Settings() const { return settings_.settings; }
    const VpDocument& Document() const { return document_; }

    /// Asks for a font, keeps it, and draws an open preview again. False when there is nothing new to show:
    /// on cancel, or when the font is not there, which a box tells.
    bool ChooseFont();
    /// Keeps the paper's orientation, an index of the two, and draws an open preview again.
    void ChooseOrientation(int index);

    /// Draws the report under a busy pointer, into the open preview too. False when it may not run.
    bool Run();
    /// Shows the report in a preview from its first page on, and whatever is drawn until ClosePreview. False
    /// when it may not run.
    bool OpenPreview(Preview& preview);
    void ClosePreview() { preview_ = nullptr; }
    bool IsPreviewing() const { return preview_ != nullptr; }

    /// In a run the first PDF is proposed for the person's documents and the first web page for a folder of
    /// the caller's; then both for the folder where a file was written last.

    /// Asks for a printer, of which a PDF file may be one, and prints the report, drawn anew for its sheet.
    /// False when it was not printed; a box tells of trouble.
    bool Print();
    /// Asks for a file and writes the report as a web page. False when it was not written; a box tells of
    /// trouble.
    bool SaveWebPage(const std::filesystem::path& folder);

  private:
    bool TellIfFails(const std::string& what, const std::function<void()>& work);
    void Draw();
    void Keep();
    ReportFont FontOfDocument() const;
    std::filesystem::path Proposed(const std::filesystem::path& folder, const std::string& ending) const;
    void TellWritten(const std::filesystem::path& file);
    std::optional<std::filesystem::path> AskForPage(const std::filesystem::path& folder);

    Report& report_;
    Ports& ports_;
    Printer& printer_;
    DeskSettings settings_;
    QtFontMeasures measures_;
    VpDocument document_;
    Preview* preview_ = nullptr; // while one is open
    bool bold_ = false;          // as the font dialog left it; no report opens in it
};

} // namespace tvx::qt
