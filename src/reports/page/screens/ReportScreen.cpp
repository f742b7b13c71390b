#include "reports/page/screens/ReportScreen.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QProcess>
#include <QWindow>

namespace tvx::qt {
namespace {

constexpr Twips Gap = 120;
constexpr Twips FramesInPreview = 4700; // left of font and paper there

QFont SampleFont(const ReportFont& font, bool bold) {
    QFont sample(ToQString(font.name));
    sample.setPointSizeF(font.size);
    sample.setItalic(font.italic);
    sample.setBold(bold);
    return sample;
}

} // namespace

ReportScreen::ReportScreen(Ports& ports, Printer& printer, DeskSettings settings, const char* designerName,
                           Form* owner)
    : Form(ports, designerName, owner), desk_(*this, ports, printer, std::move(settings)) {}

// ---- font and paper ----

void ReportScreen::BuildFontAndPaper() {
    BuildFont();
    BuildPaper();
    BuildWrittenLine();
}

/// A box that can only be read, so that a long name can be gone through and copied.
void ReportScreen::BuildWrittenLine() {
    written_ = &Add<QWidget>("Written", "");
    auto* row = new QHBoxLayout(written_);
    row->setContentsMargins(0, 0, 0, 0);
    lblWritten = &Add<TextBox>("lblWritten", "File that was written", written_);
    lblWritten->setReadOnly(true);
    auto& open = Add<QPushButton>("cmdOpenFolder", "Open folder", written_);
    open.setText(QStringLiteral("Open f&older"));
    row->addWidget(lblWritten, 1);
    row->addWidget(&open);
    written_->hide();
    On(open, &QPushButton::clicked, [this] { OpenFolder(); });
}

void ReportScreen::Written(const std::filesystem::path& file) {
    writtenFile_ = std::filesystem::absolute(file);
    lblWritten->SetText("Written: " + writtenFile_.string());
    lblWritten->setCursorPosition(0);
    if (desk_.IsPreviewing()) return; // the form shows it when the preview has closed
    written_->show();
    PlaceNormal();
}

void ReportScreen::OpenFolder() {
    auto* opener = new QProcess(this);
    const auto ended = [this, opener](bool opened) {
        opener->deleteLater();
        if (!opened) ports_.prompt.MsgBox("The folder could not be opened.", box::Exclamation, "Open folder");
    };
    On(*opener, &QProcess::errorOccurred, [ended](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) ended(false);
    });
    On(*opener, &QProcess::finished, [ended](int code, QProcess::ExitStatus) { ended(code == 0); });
    opener->start(QStringLiteral("xdg-open"), {ToQString(writtenFile_.parent_path().string())});
}

void ReportScreen::BuildFont() {
    Frame1 = &Add<Frame>("Frame1", "Font");
    Frame1->SetTitle("Current Font ");
    auto* row = new QHBoxLayout(Frame1);
    row->setContentsMargins(Pixels(90), Pixels(60), Pixels(90), Pixels(60));
    Picture1 = &Add<PictureBox>("Picture1", "Sample of the font", Frame1);
    Picture1->setMinimumSize(Pixels(1800), Pixels(390));
    Picture1->onPaint = [this](QPainter& painter, const QRegion&) { PaintSample(painter); };
    row->addWidget(Picture1, 1);
    const auto choose = [this] {
        if (desk_.ChooseFont()) Picture1->update();
    };
    cmdFont = &AddCommand({"cmdFont", "&Font...", choose, Role::Aside}, *row, Frame1);
}

void ReportScreen::BuildPaper() {
    Frame2 = &Add<Frame>("Frame2", "Paper");
    Frame2->SetTitle("Paper Orientation ");
    auto* row = new QHBoxLayout(Frame2);
    row->setContentsMargins(Pixels(90), Pixels(60), Pixels(90), Pixels(60));
    AddOptions(optOrient, "optOrient", 0, {"Portrait", "Landscape"}, *Frame2, 0);
    optOrient.Choose(desk_.Settings().ReportOrientation);
    for (const auto& [index, option] : optOrient) {
        row->addWidget(option);
        On(*option, &QRadioButton::clicked, [this, number = index] { desk_.ChooseOrientation(number); });
    }
}

void ReportScreen::PaintSample(QPainter& painter) const {
    painter.fillRect(Picture1->rect(), Qt::white);
    const ReportFont font = FontOfSettings(desk_.Settings());
    const QFont plain = SampleFont(font, false);
    const QFont bold = SampleFont(font, true);
    const QString first = QStringLiteral("aAbB--");
    const QString second = QStringLiteral("yYzZ");
    const QFontMetrics plainMetrics(plain, Picture1);
    const QFontMetrics boldMetrics(bold, Picture1);
    const int width = plainMetrics.horizontalAdvance(first) + boldMetrics.horizontalAdvance(second);
    const int x = (Picture1->width() - width) / 2;
    const int y = (Picture1->height() - plainMetrics.height()) / 2 + plainMetrics.ascent();
    painter.setPen(Qt::black);
    painter.setFont(plain);
    painter.drawText(x, y, first);
    painter.setFont(bold);
    painter.drawText(x + plainMetrics.horizontalAdvance(first), y, second);
}

// ---- the preview ----

QPushButton* ReportScreen::AddPreviewButton(const char* name, const QString& caption,
                                            const std::string& accessible) {
    auto& button = Add<QPushButton>(name, accessible);
    button.setText(caption);
    return &button;
}

void ReportScreen::BuildPreview() {
    vp_ = &Add<Preview>("vp", "Preview of the pages");
    Place(*vp_, 0, 0, 200, 200);
    vp_->onPage = [this] {
        ShowPageNumber();
        ShowRemark();
    };
    pageBack_ = AddPreviewButton("cmdPageBack", QStringLiteral("\u25C4"), "Page before");
    pageNumber_ = &Add<Label>("lblPage", "Page");
    pageNumber_->SetAlignment(Qt::AlignCenter);
    remark_ = &Add<Label>("lblRemark", "About the pages");
    pageOn_ = AddPreviewButton("cmdPageOn", QStringLiteral("\u25BA"), "Next page");
    cmdCancelPreview = AddPreviewButton("cmdCancelPreview", QStringLiteral("&Cancel"), "");
    cmdPreviewPrint = AddPreviewButton("cmdPreviewPrint", QStringLiteral("&Print"), "");
    for (QWidget* part : std::initializer_list<QWidget*>{vp_, pageNumber_, remark_}) part->hide();
    for (QPushButton* part : {pageBack_, pageOn_, cmdCancelPreview, cmdPreviewPrint}) part->hide();
    On(*cmdPreviewPrint, &QPushButton::clicked, [this] { PrintFromPreview(); });
    On(*cmdCancelPreview, &QPushButton::clicked, [this] { ClosePreview(); });
    On(*pageBack_, &QPushButton::clicked, [this] { vp_->GoToPage(vp_->PageNumber() - 1); });
    On(*pageOn_, &QPushButton::clicked, [this] { vp_->GoToPage(vp_->PageNumber() + 1); });
}

/// As high as the screen but for 300 twips, the window's frame included.
void ReportScreen::PlacePreview() {
    const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
    const Twips width = ports_.screen.Width() - 300 - ToTwips(frame.left() + frame.right());
    const Twips height = ports_.screen.Height() - 300 - ToTwips(frame.top() + frame.bottom());
    setFixedSize(Pixels(width), Pixels(height));
    Place(*vp_, 100, 100, width - 200, height - 1400);
    Place(*pageBack_, 100, height - 720, 600, 390);
    Place(*pageNumber_, 750, height - 720, 1500, 390);
    Place(*pageOn_, 2300, height - 720, 600, 390);
    Place(*remark_, 100, height - 310, FramesInPreview - 200, 300);
    Place(*Frame1, FramesInPreview, height - 1300, FontFrameWidth, FrameHeight);
    Place(*Frame2, FramesInPreview + FontFrameWidth + Gap, height - 1300, PaperFrameWidth, FrameHeight);
    Place(*cmdCancelPreview, width - 2400, height - 1200, 1100, 420);
    Place(*cmdPreviewPrint, width - 1200, height - 1200, 1100, 420);
    CenterForm();
}

void ReportScreen::ShowParts(bool preview) {
    ShowOwnParts(!preview);
    written_->setVisible(!preview && HasWritten());
    for (QPushButton* part : {cmdPreviewPrint, cmdCancelPreview, pageBack_, pageOn_})
        part->setVisible(preview);
    vp_->setVisible(preview);
    pageNumber_->setVisible(preview);
    remark_->setVisible(preview);
}

void ReportScreen::ShowPreview() {
    QWidget* from = focusWidget();
    if (!desk_.OpenPreview(*vp_)) return;
    openedFrom_ = from;
    setWindowTitle(ToQString(PreviewTitle()));
    cmdPreviewPrint->setText(ToQString(PreviewPrintCaption()));
    PlacePreview();
    ShowParts(true);
    vp_->setFocus();
    SetCancelButton(*cmdCancelPreview);
    update();
}

void ReportScreen::ClosePreview() {
    desk_.ClosePreview();
    ShowParts(false);
    PlaceNormal();
    Place(*vp_, 0, 0, 200, 200);
    BackToPaper();
    if (openedFrom_ != nullptr) openedFrom_->setFocus();
    update();
}

void ReportScreen::ShowPageNumber() {
    const int pages = desk_.Document().PageCount();
    pageNumber_->SetText("Page " + std::to_string(vp_->PageNumber()) + " of " + std::to_string(pages));
    pageBack_->setEnabled(vp_->PageNumber() > 1);
    pageOn_->setEnabled(vp_->PageNumber() < pages);
}

void ReportScreen::ShowRemark() {
    remark_->SetText(desk_.Document().Remark());
}

void ReportScreen::PrintFromPreview() {
    if (desk_.Print()) ClosePreview();
}

bool ReportScreen::MayUnload() {
    if (!desk_.IsPreviewing()) return true;
    ClosePreview(); // the window's cross closes the preview first
    return false;
}

/// The keys of the pages work wherever the focus is.
void ReportScreen::keyPressEvent(QKeyEvent* event) {
    if (!desk_.IsPreviewing() || !vp_->Key(event->key())) Form::keyPressEvent(event);
}

void ReportScreen::paintEvent(QPaintEvent*) {
    if (!desk_.IsPreviewing()) return;
    QPainter painter(this);
    painter.setPen(ToColor(QBColor(9)));
    const int ascent = painter.fontMetrics().ascent();
    const Twips height = ToTwips(Face().height());
    painter.drawText(Pixels(100), Pixels(height - 1200) + ascent,
                     QStringLiteral("To move this page, hold down left mouse button."));
    painter.drawText(Pixels(100), Pixels(height - 1000) + ascent,
                     QStringLiteral("DoubleClick mouse buttons to zoom in and out."));
}

} // namespace tvx::qt
