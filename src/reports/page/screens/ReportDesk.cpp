#include "reports/page/screens/ReportDesk.h"

#include "desktop/Scale.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "reports/page/HtmlDocument.h"
#include "reports/page/screens/Preview.h"
#include "reports/page/screens/QtPrinter.h"

#include <QFontDatabase>
#include <QStandardPaths>

namespace tvx::qt {

namespace fs = std::filesystem;

namespace {

fs::path DocumentsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdU16String();
}

} // namespace

ReportDesk::ReportDesk(Report& report, Ports& ports, Printer& printer, DeskSettings settings)
    : report_(report), ports_(ports), printer_(printer), settings_(std::move(settings)),
      document_(measures_, UsualPaper()) {
    if (settings_.file) ReadReportSettings(*settings_.file, settings_.settings);
}

// ---- font and paper ----

void ReportDesk::Keep() {
    if (!settings_.file) return;
    TellIfFails("The font and paper could not be kept.",
                [this] { WriteReportSettings(*settings_.file, settings_.settings); });
}

bool ReportDesk::ChooseFont() {
    ReportFont& font = settings_.settings.font;
    const ReportFont present = Trim(font.name).empty() ? ReportFont() : font;
    const auto chosen = ports_.prompt.FontDialog(present, "Select a font and size");
    if (!chosen) return false;
    font = *chosen;
    bold_ = chosen->bold;
    if (!QFontDatabase::families().contains(ToQString(chosen->name))) {
        ports_.prompt.MsgBox("Font " + chosen->name + " is not available.", box::Ok, "Tarvex");
        return false;
    }
    Keep();
    if (IsPreviewing()) Draw();
    return true;
}

void ReportDesk::ChooseOrientation(int index) {
    settings_.settings.ReportOrientation = index;
    Keep();
    if (IsPreviewing()) Draw();
}

ReportFont ReportDesk::FontOfDocument() const {
    ReportFont font = FontOfSettings(Settings());
    font.bold = bold_;
    return font;
}

// ---- running ----

void ReportDesk::Draw() {
    const Hourglass hourglass(ports_.prompt);
    document_.Orientation(OrientationOfSettings(Settings()));
    document_.Font(FontOfDocument());
    report_.Run(document_);
    if (preview_ != nullptr) preview_->Show(document_);
}

bool ReportDesk::Run() {
    if (!report_.MayRun()) return false;
    Draw();
    return true;
}

bool ReportDesk::OpenPreview(Preview& preview) {
    if (!report_.MayRun()) return false;
    Draw();
    preview.Show(document_);
    preview.GoToPage(1);
    preview_ = &preview;
    return true;
}

/// True when the work was done without trouble with a file.
bool ReportDesk::TellIfFails(const std::string& what, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const FileError& trouble) {
        ports_.prompt.MsgBox(what + "\r\n\r\n" + trouble.what(), box::Exclamation, "File error");
        return false;
    }
}

/// The report's name as a file can have it, in the folder of the last one or else in this one.
fs::path ReportDesk::Proposed(const fs::path& folder, const std::string& ending) const {
    constexpr std::size_t Longest = 80; // letters
    std::string name = Left(report_.FileName(), Longest);
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' ||
            std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
            c = '-';
    return printer_.LastFolder().value_or(folder) / fs::path(Trim(name) + ending);
}

void ReportDesk::TellWritten(const fs::path& file) {
    printer_.Wrote(file);
    report_.Written(file);
}

bool ReportDesk::Print() {
    if (!report_.MayRun()) return false;
    if (!printer_.PrintDialog(OrientationOfSettings(Settings()), report_.DocumentTitle(),
                              Proposed(DocumentsFolder(), ".pdf")))
        return false;
    document_.Sheet(printer_.Sheet());
    Draw();
    return TellIfFails("The report could not be printed.", [this] {
        const Hourglass hourglass(ports_.prompt);
        if (const auto file = printer_.Print(document_)) TellWritten(*file);
    });
}

/// Asks for a file; a name without a point gets ".HTM". Nothing on cancel, or when a file that only the
/// longer name meets is to stay.
std::optional<std::filesystem::path> ReportDesk::AskForPage(const std::filesystem::path& folder) {
    const fs::path proposed = Proposed(folder, ".HTM");
    const FileRequest request{"Save HTML", "HTML Web pages (*.htm)", "*.HTM", proposed.parent_path(),
                              proposed.filename().string()};
    auto file = ports_.prompt.SaveDialog(request);
    if (!file || file->filename().string().find('.') != std::string::npos) return file;
    *file += ".HTM";
    if (!FileExists(*file)) return file;
    const Answer answer =
        ports_.prompt.MsgBox(file->filename().string() + " already exists.\r\nDo you want to replace it?",
                             box::YesNo + box::Exclamation, "Save HTML");
    return answer == Answer::Yes ? file : std::nullopt;
}

bool ReportDesk::SaveWebPage(const std::filesystem::path& folder) {
    if (!report_.MayRun()) return false;
    const auto file = AskForPage(folder);
    if (!file) return false;
    Draw();
    return TellIfFails("The web page could not be written.", [&] {
        WriteHtml(document_, report_.DocumentTitle(), ports_.region.Language(), *file);
        TellWritten(*file);
    });
}

} // namespace tvx::qt
