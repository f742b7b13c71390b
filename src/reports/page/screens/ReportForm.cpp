#include "reports/page/screens/ReportForm.h"

#include <QHBoxLayout>

#include <algorithm>

namespace tvx::qt {
namespace {

constexpr Twips Gap = 120;
constexpr Twips FootHeight = 1200; // of the row of frames and buttons

} // namespace

ReportForm::ReportForm(Ports& ports, Printer& printer, DeskSettings settings, const char* designerName,
                       Form* owner)
    : ReportScreen(ports, printer, std::move(settings), designerName, owner) {
    options_ = &Add<QWidget>("Options", "Options");
    BuildPreview();
    BuildFontAndPaper();
    buttons_ = &Add<QWidget>("Buttons", "");
    (new QHBoxLayout(buttons_))->setContentsMargins(0, 0, 0, 0);
    AddCommands({{"cmdPreview", "Pre&view", [this] { ShowPreview(); }}, {"cmdPrint", "&Print", [this] {
                                                                             BackToPaper();
                                                                             Desk().Print();
                                                                         }}});
}

void ReportForm::AddCommands(const std::vector<ButtonCommand>& commands) {
    auto& row = static_cast<QBoxLayout&>(*buttons_->layout());
    for (const ButtonCommand& command : commands) AddCommand(command, row, buttons_);
}

void ReportForm::FinishLayout(const std::string& title) {
    title_ = title;
    AddCommands({{"cmdCancel", "&Cancel", [this] { Unload(); }, Role::Cancel}});
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
    const int line = HasWritten() ? Pixels(WrittenHeight) : 0;
    setFixedSize(normalSize_ + QSize(0, line));
    const Twips width = ToTwips(normalSize_.width());
    const Twips top = ToTwips(normalSize_.height()) - FootHeight;
    Place(*options_, Gap, Gap, width - 2 * Gap, top - Gap);
    Place(*Frame1, Gap, top, FontFrameWidth, FrameHeight);
    Place(*Frame2, 2 * Gap + FontFrameWidth, top, PaperFrameWidth, FrameHeight);
    const QSize buttons = buttons_->sizeHint();
    buttons_->setGeometry(normalSize_.width() - buttons.width() - Pixels(Gap), Pixels(top + 480),
                          buttons.width(), buttons.height());
    Place(WrittenLine(), Gap, ToTwips(normalSize_.height()), width - 2 * Gap, WrittenHeight - Gap);
    SetCancelButton(*Find<QPushButton>("cmdCancel")); // the preview has one of its own
    CenterForm();
}

void ReportForm::ShowOwnParts(bool shown) {
    for (QWidget* part : {options_, buttons_}) part->setVisible(shown);
}

} // namespace tvx::qt
