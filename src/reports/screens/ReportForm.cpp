#include "reports/screens/ReportForm.h"

#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "reports/screens/QtPrinter.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPainter>

namespace tvx::qt {
namespace {

constexpr Twips FrameHeight = 900;
constexpr Twips FontFrameWidth = 3300;
constexpr Twips PaperFrameWidth = 2700;
constexpr Twips Gap = 120;
constexpr Twips FootHeight = 1200; // of the row of frames and buttons

} // namespace

ReportForm::ReportForm(GlobalState& g, Ports& ports, Printer& printer, const char* designerName,
                       std::string_view extension, Form* owner)
    : Form(ports, designerName, owner), g_(g), printer_(printer), extension_(extension),
      document_(measures_, UsualPaper()) {
    ReadReportSettings(g_, extension_);
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
        PreviewClosed();
        PrintNow();
    });
}

QPushButton& ReportForm::AddButton(const char* name, const char* caption) {
    auto& button = Add<QPushButton>(name, "", buttons_);
    button.setText(QLatin1String(caption));
    buttons_->layout()->addWidget(&button);
    return button;
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

void ReportForm::BuildPreview() {
    vp_ = &Add<Preview>("vp", "Preview of the pages");
    vp_->hide();
    vp_->onPage = [this] { ShowPageNumber(); };
    const auto button = [&](const char* name, const char* caption) {
        auto& made = Add<QPushButton>(name, "");
        made.setText(QLatin1String(caption));
        made.hide();
        return &made;
    };
    cmdPreviewPrint = button("cmdPreviewPrint", "&Print");
    cmdCancelPreview = button("cmdCancelPreview", "&Cancel");
    pageBack_ = button("cmdPageBack", "\u25C4");
    pageBack_->setText(QStringLiteral("\u25C4"));
    pageBack_->setAccessibleName(QStringLiteral("Page before"));
    pageOn_ = button("cmdPageOn", "");
    pageOn_->setText(QStringLiteral("\u25BA"));
    pageOn_->setAccessibleName(QStringLiteral("Next page"));
    pageNumber_ = &Add<Label>("lblPage", "Page");
    pageNumber_->SetAlignment(Qt::AlignCenter);
    pageNumber_->hide();
    On(*cmdPreviewPrint, &QPushButton::clicked, [this] { PrintFromPreview(); });
    On(*cmdCancelPreview, &QPushButton::clicked, [this] { ClosePreview(); });
    On(*pageBack_, &QPushButton::clicked, [this] { vp_->GoToPage(vp_->PageNumber() - 1); });
    On(*pageOn_, &QPushButton::clicked, [this] { vp_->GoToPage(vp_->PageNumber() + 1); });
}

void ReportForm::FinishLayout(const std::string& title) {
    title_ = title;
    cmdCancel = &AddButton("cmdCancel", "&Cancel");
    On(*cmdCancel, &QPushButton::clicked, [this] { Unload(); });
    options_->adjustSize();
    const QSize wanted = options_->sizeHint();
    const int foot = buttons_->sizeHint().width() + Pixels(FontFrameWidth + PaperFrameWidth + 5 * Gap);
    normalSize_ = {std::max(wanted.width() + 2 * Pixels(Gap), foot),
                   wanted.height() + Pixels(FootHeight + 2 * Gap)};
    PlaceNormal();
}

void ReportForm::PlaceNormal() {
    setWindowTitle(ToQString(title_));
    setMinimumSize(0, 0);
    setFixedSize(normalSize_);
    const Twips width = ToTwips(normalSize_.width());
    const Twips top = ToTwips(normalSize_.height()) - FootHeight;
    Place(*options_, Gap, Gap, width - 2 * Gap, top - Gap);
    Place(*Frame1, Gap, top, FontFrameWidth, FrameHeight + 180);
    Place(*Frame2, 2 * Gap + FontFrameWidth, top, PaperFrameWidth, FrameHeight + 180);
    const QSize buttons = buttons_->sizeHint();
    buttons_->setGeometry(normalSize_.width() - buttons.width() - Pixels(Gap), Pixels(top + 480),
                          buttons.width(), buttons.height());
    Place(*vp_, 0, 0, 200, 200);
    CenterForm();
}

void ReportForm::PlacePreview() {
    const Twips width = g_.screen.ScreenWidth - 300;
    const Twips height = g_.screen.ScreenHeight - 300;
    setFixedSize(Pixels(width), Pixels(height));
    Place(*vp_, 100, 100, width - 200, height - 1400);
    Place(*Frame1, 4700, height - 1300, FontFrameWidth, FrameHeight + 180);
    Place(*Frame2, 4700 + FontFrameWidth + Gap, height - 1300, PaperFrameWidth, FrameHeight + 180);
    Place(*pageBack_, width - 5300, height - 1200, 500, 420);
    Place(*pageNumber_, width - 4750, height - 1200, 1500, 420);
    Place(*pageOn_, width - 3200, height - 1200, 500, 420);
    Place(*cmdPreviewPrint, width - 2500, height - 1200, 1200, 420);
    Place(*cmdCancelPreview, width - 1200, height - 1200, 1080, 420);
    CenterForm();
}

void ReportForm::ShowPreview() {
    previewShown_ = true;
    options_->hide();
    buttons_->hide();
    setWindowTitle(ToQString(PreviewTitle()));
    cmdPreviewPrint->setText(ToQString(PreviewPrintCaption()));
    PlacePreview();
    for (QWidget* part : std::initializer_list<QWidget*>{vp_, cmdPreviewPrint, cmdCancelPreview, pageBack_,
                                                         pageOn_, pageNumber_})
        part->show();
    FontInPicture();
    RunReport();
    vp_->GoToPage(1);
    vp_->setFocus();
    SetCancelButton(*cmdCancelPreview);
    update();
}

void ReportForm::ClosePreview() {
    previewShown_ = false;
    for (QWidget* part : std::initializer_list<QWidget*>{vp_, cmdPreviewPrint, cmdCancelPreview, pageBack_,
                                                         pageOn_, pageNumber_})
        part->hide();
    options_->show();
    buttons_->show();
    PlaceNormal();
    PreviewClosed();
    SetCancelButton(*cmdCancel);
    cmdPreview->setFocus();
    update();
}

void ReportForm::RunReport() {
    const Hourglass hourglass(ports_.prompt);
    document_.Orientation(OrientationOfSettings(g_.reports.settings));
    document_.Font(FontOfSettings(g_.reports.settings));
    Run(document_);
    if (previewShown_) vp_->Show(document_);
}

void ReportForm::ShowPageNumber() {
    const int pages = document_.PageCount();
    pageNumber_->SetText("Page " + std::to_string(vp_->PageNumber()) + " of " + std::to_string(pages));
    pageBack_->setEnabled(vp_->PageNumber() > 1);
    pageOn_->setEnabled(vp_->PageNumber() < pages);
}

void ReportForm::PrintNow() {
    if (!printer_.PrintDialog(OrientationOfSettings(g_.reports.settings))) return;
    RunReport();
    printer_.Print(document_);
}

void ReportForm::PrintFromPreview() {
    if (!printer_.PrintDialog(OrientationOfSettings(g_.reports.settings))) return;
    RunReport();
    printer_.Print(document_);
    ClosePreview();
}

bool ReportForm::MayUnload() {
    if (!previewShown_) return true;
    ClosePreview(); // the window's cross closes the preview first
    return false;
}

// ---- font and paper ----

void ReportForm::KeepSettings() {
    try {
        WriteReportSettings(g_, extension_);
    } catch (const FileError& trouble) {
        ports_.prompt.MsgBox("The font and paper could not be kept.\r\n\r\n" + std::string(trouble.what()),
                             box::Exclamation, "File error");
    }
}

void ReportForm::ChooseFont() {
    ReportSettings& settings = g_.reports.settings;
    FontChoice present{settings.ReportFontName, settings.ReportFontSize, settings.ReportFontBold,
                       settings.ReportFontItalic};
    if (Trim(present.name).empty()) present = FontChoice{"Arial", 9, false, false};
    const auto chosen = ports_.prompt.FontDialog(present, "Select a font and size");
    if (!chosen) return;
    settings.ReportFontName = chosen->name;
    settings.ReportFontSize = chosen->size;
    settings.ReportFontBold = chosen->bold;
    settings.ReportFontItalic = chosen->italic;
    document_.Font(FontOfSettings(settings));
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
    document_.Font(FontOfSettings(g_.reports.settings));
    Picture1->update();
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
