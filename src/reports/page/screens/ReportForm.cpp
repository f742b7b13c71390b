#include "reports/page/screens/ReportForm.h"

#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "reports/page/screens/QtPrinter.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QWindow>

namespace tvx::qt {
namespace {

constexpr Twips FrameHeight = 1080;
constexpr Twips FontFrameWidth = 3300;
constexpr Twips PaperFrameWidth = 2700;
constexpr Twips Gap = 120;
constexpr Twips FootHeight = 1200;      // of the row of frames and buttons
constexpr Twips FramesInPreview = 4700; // left of font and paper there

} // namespace

ReportForm::ReportForm(GlobalState& g, Ports& ports, Printer& printer, const char* designerName,
                       std::string_view extension, Form* owner)
    : Form(ports, designerName, owner), g_(g), printer_(printer),
      settingsFile_(ReportSettingsPath(g.paths, g.department.CurrentDepNumber, extension)),
      document_(measures_, UsualPaper()) {
    ReadReportSettings(settingsFile_, g_.reports.settings);
    options_ = &Add<QWidget>("Options", "Options");
    BuildPreview();
    BuildFont();
    BuildPaper();
    buttons_ = &Add<QWidget>("Buttons", "");
    (new QHBoxLayout(buttons_))->setContentsMargins(0, 0, 0, 0);
    cmdPreview = &AddButton("cmdPreview", "Pre&view");
    cmdPrint = &AddButton("cmdPrint", "&Print");
    On(*cmdPreview, &QPushButton::clicked, [this] { ShowPreview(); });
    On(*cmdPrint, &QPushButton::clicked, [this] {
        BackToPaper();
        Print();
    });
}

QPushButton& ReportForm::AddButton(const char* name, const char* caption) {
    return Form::AddButton(name, caption, *buttons_->layout(), buttons_);
}

void ReportForm::BuildFont() {
    Frame1 = &Add<Frame>("Frame1", "Font");
    Frame1->SetTitle("Current Font ");
    auto* row = new QHBoxLayout(Frame1);
    row->setContentsMargins(Pixels(90), Pixels(60), Pixels(90), Pixels(60));
    Picture1 = &Add<PictureBox>("Picture1", "Sample of the font", Frame1);
    Picture1->setMinimumSize(Pixels(1800), Pixels(390));
    Picture1->onPaint = [this](QPainter& painter, const QRegion&) { PaintSample(painter); };
    cmdFont = &Add<QPushButton>("cmdFont", "Font", Frame1);
    cmdFont->setText(QStringLiteral("&Font..."));
    row->addWidget(Picture1, 1);
    row->addWidget(cmdFont);
    On(*cmdFont, &QPushButton::clicked, [this] { ChooseFont(); });
}

void ReportForm::BuildPaper() {
    Frame2 = &Add<Frame>("Frame2", "Paper");
    Frame2->SetTitle("Paper Orientation ");
    auto* row = new QHBoxLayout(Frame2);
    row->setContentsMargins(Pixels(90), Pixels(60), Pixels(90), Pixels(60));
    const char* captions[] = {"Portrait", "Landscape"};
    for (int i = 0; i < 2; ++i) {
        auto& option = Add(optOrient, "optOrient", i, captions[i], Frame2);
        option.setText(QLatin1String(captions[i]));
        option.setChecked(i == g_.reports.settings.ReportOrientation);
        row->addWidget(&option);
        On(option, &QRadioButton::clicked, [=, this] { ChooseOrientation(i); });
    }
    FontInPicture();
}

QPushButton* ReportForm::AddPreviewButton(const char* name, const QString& caption,
                                          const std::string& accessible) {
    auto& button = Add<QPushButton>(name, accessible);
    button.setText(caption);
    return &button;
}

void ReportForm::BuildPreview() {
    vp_ = &Add<Preview>("vp", "Preview of the pages");
    vp_->onPage = [this] { ShowPageNumber(); };
    pageBack_ = AddPreviewButton("cmdPageBack", QStringLiteral("\u25C4"), "Page before");
    pageNumber_ = &Add<Label>("lblPage", "Page");
    pageNumber_->SetAlignment(Qt::AlignCenter);
    pageOn_ = AddPreviewButton("cmdPageOn", QStringLiteral("\u25BA"), "Next page");
    cmdCancelPreview = AddPreviewButton("cmdCancelPreview", QStringLiteral("&Cancel"), "");
    cmdPreviewPrint = AddPreviewButton("cmdPreviewPrint", QStringLiteral("&Print"), "");
    for (QWidget* part : {static_cast<QWidget*>(vp_), static_cast<QWidget*>(pageNumber_)}) part->hide();
    for (QPushButton* part : {pageBack_, pageOn_, cmdCancelPreview, cmdPreviewPrint}) part->hide();
    On(*cmdPreviewPrint, &QPushButton::clicked, [this] { PrintFromPreview(); });
    On(*cmdCancelPreview, &QPushButton::clicked, [this] { ClosePreview(); });
    On(*pageBack_, &QPushButton::clicked, [this] { vp_->GoToPage(vp_->PageNumber() - 1); });
    On(*pageOn_, &QPushButton::clicked, [this] { vp_->GoToPage(vp_->PageNumber() + 1); });
}

void ReportForm::FinishLayout(const std::string& title) {
    title_ = title;
    cmdCancel = &AddButton("cmdCancel", "&Cancel");
    On(*cmdCancel, &QPushButton::clicked, [this] { Unload(); });
    SetCancelButton(*cmdCancel);
    OrderTabs();
    options_->adjustSize();
    const QSize wanted = options_->sizeHint();
    const int foot = buttons_->sizeHint().width() + Pixels(FontFrameWidth + PaperFrameWidth + 5 * Gap);
    normalSize_ = {std::max(wanted.width() + 2 * Pixels(Gap), foot),
                   wanted.height() + Pixels(FootHeight + 3 * Gap)};
    PlaceNormal();
}

/// The Tab key goes on from the options to font and paper and then along the buttons, whatever was made
/// first.
void ReportForm::OrderTabs() {
    QWidget* last = options_;
    for (QWidget* next = options_->nextInFocusChain(); next != options_; next = next->nextInFocusChain())
        if (options_->isAncestorOf(next)) last = next;
    std::vector<QWidget*> order{cmdFont, &optOrient[0], &optOrient[1]};
    for (int i = 0; i < buttons_->layout()->count(); ++i)
        order.push_back(buttons_->layout()->itemAt(i)->widget());
    for (QWidget* next : order) {
        setTabOrder(last, next);
        last = next;
    }
}

void ReportForm::PlaceNormal() {
    setWindowTitle(ToQString(title_));
    setMinimumSize(0, 0);
    setFixedSize(normalSize_);
    const Twips width = ToTwips(normalSize_.width());
    const Twips top = ToTwips(normalSize_.height()) - FootHeight;
    Place(*options_, Gap, Gap, width - 2 * Gap, top - Gap);
    Place(*Frame1, Gap, top, FontFrameWidth, FrameHeight);
    Place(*Frame2, 2 * Gap + FontFrameWidth, top, PaperFrameWidth, FrameHeight);
    const QSize buttons = buttons_->sizeHint();
    buttons_->setGeometry(normalSize_.width() - buttons.width() - Pixels(Gap), Pixels(top + 480),
                          buttons.width(), buttons.height());
    Place(*vp_, 0, 0, 200, 200);
    CenterForm();
}

/// As high as the screen but for 300 twips, the window's frame included.
void ReportForm::PlacePreview() {
    const QMargins frame = windowHandle() != nullptr ? windowHandle()->frameMargins() : QMargins();
    const Twips width = ports_.screen.Width() - 300 - ToTwips(frame.left() + frame.right());
    const Twips height = ports_.screen.Height() - 300 - ToTwips(frame.top() + frame.bottom());
    setFixedSize(Pixels(width), Pixels(height));
    Place(*vp_, 100, 100, width - 200, height - 1400);
    Place(*pageBack_, 100, height - 720, 600, 390);
    Place(*pageNumber_, 750, height - 720, 1500, 390);
    Place(*pageOn_, 2300, height - 720, 600, 390);
    Place(*Frame1, FramesInPreview, height - 1300, FontFrameWidth, FrameHeight);
    Place(*Frame2, FramesInPreview + FontFrameWidth + Gap, height - 1300, PaperFrameWidth, FrameHeight);
    Place(*cmdCancelPreview, width - 2400, height - 1200, 1100, 420);
    Place(*cmdPreviewPrint, width - 1200, height - 1200, 1100, 420);
    CenterForm();
}

void ReportForm::ShowParts(bool preview) {
    for (QWidget* part : {options_, buttons_}) part->setVisible(!preview);
    for (QPushButton* part : {cmdPreviewPrint, cmdCancelPreview, pageBack_, pageOn_})
        part->setVisible(preview);
    vp_->setVisible(preview);
    pageNumber_->setVisible(preview);
}

void ReportForm::ShowPreview() {
    openedFrom_ = focusWidget();
    previewShown_ = true;
    setWindowTitle(ToQString(PreviewTitle()));
    cmdPreviewPrint->setText(ToQString(PreviewPrintCaption()));
    PlacePreview();
    ShowParts(true);
    FontInPicture();
    RunReport();
    vp_->GoToPage(1);
    vp_->setFocus();
    SetCancelButton(*cmdCancelPreview);
    update();
}

void ReportForm::ClosePreview() {
    previewShown_ = false;
    ShowParts(false);
    PlaceNormal();
    BackToPaper();
    SetCancelButton(*cmdCancel);
    (openedFrom_ != nullptr ? openedFrom_ : cmdPreview)->setFocus();
    update();
}

void ReportForm::RunReport() {
    const Hourglass hourglass(ports_.prompt);
    document_.Orientation(OrientationOfSettings(g_.reports.settings));
    document_.Font(FontOfDocument());
    Run(document_);
    if (previewShown_) vp_->Show(document_);
}

void ReportForm::ShowPageNumber() {
    const int pages = document_.PageCount();
    pageNumber_->SetText("Page " + std::to_string(vp_->PageNumber()) + " of " + std::to_string(pages));
    pageBack_->setEnabled(vp_->PageNumber() > 1);
    pageOn_->setEnabled(vp_->PageNumber() < pages);
}

/// Asks for a printer and prints the report, drawn anew for its sheet. False when it was not printed.
bool ReportForm::Print() {
    if (!printer_.PrintDialog(OrientationOfSettings(g_.reports.settings), DocumentTitle())) return false;
    document_.Sheet(printer_.Sheet());
    RunReport();
    try {
        const Hourglass hourglass(ports_.prompt);
        printer_.Print(document_);
    } catch (const FileError& trouble) {
        ports_.prompt.MsgBox("The report could not be printed.\r\n\r\n" + std::string(trouble.what()),
                             box::Exclamation, "File error");
        return false;
    }
    return true;
}

void ReportForm::PrintFromPreview() {
    if (Print()) ClosePreview();
}

bool ReportForm::MayUnload() {
    if (!previewShown_) return true;
    ClosePreview(); // the window's cross closes the preview first
    return false;
}

// ---- font and paper ----

void ReportForm::KeepSettings() {
    try {
        WriteReportSettings(settingsFile_, g_.reports.settings);
    } catch (const FileError& trouble) {
        ports_.prompt.MsgBox("The font and paper could not be kept.\r\n\r\n" + std::string(trouble.what()),
                             box::Exclamation, "File error");
    }
}

void ReportForm::ChooseFont() {
    ReportSettings& settings = g_.reports.settings;
    const ReportFont present = Trim(settings.font.name).empty() ? ReportFont() : settings.font;
    const auto chosen = ports_.prompt.FontDialog(present, "Select a font and size");
    if (!chosen) return;
    settings.font = *chosen;
    fontBold_ = chosen->bold;
    document_.Font(FontOfDocument());
    if (!QFontDatabase::families().contains(ToQString(chosen->name))) {
        ports_.prompt.MsgBox("Font " + chosen->name + " is not available.", box::Ok, "Tarvex");
        return;
    }
    KeepSettings();
    FontInPicture();
    if (previewShown_) RunReport();
}

void ReportForm::ChooseOrientation(int index) {
    g_.reports.settings.ReportOrientation = index;
    KeepSettings();
    if (previewShown_) RunReport();
}

void ReportForm::FontInPicture() {
    document_.Font(FontOfDocument());
    Picture1->update();
}

ReportFont ReportForm::FontOfDocument() const {
    ReportFont font = FontOfSettings(g_.reports.settings);
    font.bold = fontBold_;
    return font;
}

void ReportForm::PaintSample(QPainter& painter) const {
    painter.fillRect(Picture1->rect(), Qt::white);
    const ReportFont font = FontOfSettings(g_.reports.settings);
    QFont plain(ToQString(font.name));
    plain.setPointSizeF(font.size);
    plain.setItalic(font.italic);
    QFont bold = plain;
    bold.setBold(true);
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

/// The keys of the pages work wherever the focus is.
void ReportForm::keyPressEvent(QKeyEvent* event) {
    if (!previewShown_ || !vp_->Key(event->key())) Form::keyPressEvent(event);
}

void ReportForm::paintEvent(QPaintEvent*) {
    if (!previewShown_) return;
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
