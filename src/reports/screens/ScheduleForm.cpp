#include "reports/screens/ScheduleForm.h"

#include "masterdata/EmployeeSearch.h"
#include "platform/basic/Text.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "reports/page/HtmlDocument.h"
#include "reports/schedules/Schedules.h"
#include "shell/common/Conversions.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tvx::qt {
namespace {

constexpr int SaveSpaceOption = 5;

std::string_view ExtensionOf(const std::string& kind) {
    if (kind == "7DayLong") return report_file::Long;
    return kind == "SelectedEmployees" ? report_file::Selected : report_file::Short;
}

/// The productivity figures make sense only in a week that has some.
bool HasFigures(const Week& week) {
    const auto above = [](double figure) { return figure > 0; };
    return std::any_of(week.DailySales.begin(), week.DailySales.end(), above) ||
           std::any_of(week.DailyTransactions.begin(), week.DailyTransactions.end(), above);
}

} // namespace

ScheduleForm::ScheduleForm(GlobalState& g, Ports& ports, Printer& printer, Form* owner)
    : ReportForm(g, ports, printer, "Form8", ExtensionOf(g.application.FormCommand), owner),
      kind_(g.application.FormCommand) {
    ReportOptions& options = g_.reports.options;
    options.WhoToPrint = 0;
    options.BreakThreshold = 0;
    options.NameOption = std::min(options.NameOption, 4);
    BuildOptions();
    auto& html = AddButton("cmdPreviewHTML", "Preview HT&ML");
    auto& save = AddButton("cmdSaveHTML", "&Save HTML");
    auto& helpButton = AddButton("cmdHelp", "&Help");
    On(html, &QPushButton::clicked, [this] { PreviewHtml(); });
    On(save, &QPushButton::clicked, [this] {
        EnterHtml();
        SaveHtml();
        HtmlMode = false;
    });
    On(helpButton, &QPushButton::clicked, [this] { ports_.help.ShowTopic(help::Schedules); });
    FinishLayout(IsSelected() ? "Printing schedules for selected " + g_.department.EmployeeNamePlural
                              : "Include in schedule");
}

void ScheduleForm::BuildOptions() {
    auto* grid = new QGridLayout(&Options());
    grid->setContentsMargins(0, 0, 0, 0);
    BuildNames(*grid);
    BuildOther(*grid);
    BuildBreaks(*grid);
    BuildWho(*grid);
    BuildLastStop(*grid);
    BuildPicking(*grid);
}

void ScheduleForm::BuildNames(QGridLayout& grid) {
    const std::array<std::string, 6> captions{
        "Name only",    "Assignment",   g_.department.EmployeeNameSingle + " ID",
        "Phone number", "Soc.Sec.Nbr.", "Save space"};
    auto& frame = Add<Frame>("frame3D1", "Name", &Options());
    frame.SetTitle("Print name and...");
    auto* lines = new QVBoxLayout(&frame);
    for (int i = 0; i < 6; ++i) {
        auto& option = Add(Option3D1, "Option3D1", i, captions[static_cast<std::size_t>(i)], &frame);
        option.setText(PlainCaption(captions[static_cast<std::size_t>(i)]));
        lines->addWidget(&option);
        option.setChecked(i == g_.reports.options.NameOption);
        On(option, &QRadioButton::clicked, [=, this] { g_.reports.options.NameOption = i; });
    }
    lines->addStretch();
    grid.addWidget(&frame, 0, 0, 2, 1);
}

QCheckBox& ScheduleForm::AddCheck(Frame& frame, const char* name, const std::string& caption, bool checked) {
    auto& check = Add<QCheckBox>(name, caption, &frame);
    check.setText(ToQString(caption));
    check.setChecked(checked);
    frame.layout()->addWidget(&check);
    return check;
}

void ScheduleForm::BuildOther(QGridLayout& grid) {
    const ReportOptions options = OptionsOfRun(g_.reports.options, g_.rights);
    auto& frame = Add<Frame>("Frame3D2", "Other options", &Options());
    frame.SetTitle("Other print options..");
    new QVBoxLayout(&frame);
    Check3D1 = &AddCheck(frame, "Check3D1", "Total Hours", options.PrintTotalHours != 0);
    Check3D2 = &AddCheck(frame, "Check3D2", "Total Wages/Salaries", options.PrintTotalWages != 0);
    Check3D2->setEnabled(!g_.rights.HideWages);
    Check3D5 = &AddCheck(frame, "Check3D5", "Print time bars (Not on HTML)", options.PrintTimeBars);
    SSCheck1 = &AddCheck(frame, "SSCheck1", "Print day comments", options.PrintDayComments);
    Check3D4 = &AddCheck(frame, "Check3D4", "Productivity summary", false);
    Check3D5->setVisible(IsShort());
    SSCheck1->setVisible(IsShort());
    Check3D4->setVisible(IsShort() && HasFigures(g_.week));
    static_cast<QVBoxLayout*>(frame.layout())->addStretch();
    On(*Check3D1, &QCheckBox::toggled, [this](bool on) { g_.reports.options.PrintTotalHours = on ? 1 : 0; });
    On(*Check3D2, &QCheckBox::toggled, [this](bool on) { g_.reports.options.PrintTotalWages = on ? 1 : 0; });
    On(*Check3D5, &QCheckBox::toggled, [this](bool on) { g_.reports.options.PrintTimeBars = on; });
    On(*SSCheck1, &QCheckBox::toggled, [this](bool on) { g_.reports.options.PrintDayComments = on; });
    grid.addWidget(&frame, 0, 1, 2, 1);
}

void ScheduleForm::BuildBreaks(QGridLayout& grid) {
    constexpr std::array<const char*, 5> captions{"Print all breaks", "Print breaks over 15 Minutes",
                                                  "Print breaks over 30 Minutes",
                                                  "Print breaks over 45 Minutes", "Print breaks over 1 Hour"};
    auto& frame = Add<Frame>("Frame3D3", "Breaks", &Options());
    frame.SetTitle("Lunch ");
    auto* lines = new QVBoxLayout(&frame);
    for (int i = 0; i < 5; ++i) {
        auto& option = Add(Option3D2, "Option3D2", i, captions[static_cast<std::size_t>(i)], &frame);
        option.setText(QLatin1String(captions[static_cast<std::size_t>(i)]));
        lines->addWidget(&option);
        option.setChecked(i == g_.reports.options.BreakThreshold);
        On(option, &QRadioButton::clicked, [=, this] { g_.reports.options.BreakThreshold = i; });
    }
    lines->addStretch();
    grid.addWidget(&frame, 0, 2, 2, 1);
}

void ScheduleForm::BuildWho(QGridLayout& grid) {
    const std::string& many = g_.department.EmployeeNamePlural;
    const std::array<std::string, 2> captions{"All " + many, many + " with schedules"};
    auto& frame = Add<Frame>("Frame3D4", "Who", &Options());
    frame.SetTitle(" Who to print ");
    auto* lines = new QVBoxLayout(&frame);
    for (int i = 0; i < 2; ++i) {
        auto& option = Add(Option3D3, "Option3D3", i, captions[static_cast<std::size_t>(i)], &frame);
        option.setText(PlainCaption(captions[static_cast<std::size_t>(i)]));
        lines->addWidget(&option);
        option.setChecked(i == g_.reports.options.WhoToPrint);
        On(option, &QRadioButton::clicked, [=, this] { g_.reports.options.WhoToPrint = i; });
    }
    frame.setVisible(!IsSelected());
    grid.addWidget(&frame, 0, 3);
}

void ScheduleForm::BuildLastStop(QGridLayout& grid) {
    auto& frame = Add<Frame>("Frame3", "Last stop time", &Options());
    frame.SetTitle("Last stop time of the day ");
    auto* row = new QHBoxLayout(&frame);
    // The box for the word lies over the gap in the caption.
    const char* caption = "Print                  for the last           stop time of the day";
    ckbLastStop = &Add<QCheckBox>("ckbLastStop", caption, &frame);
    ckbLastStop->setText(QStringLiteral("Print"));
    txtOpen = &Add<TextBox>("txtOpen", "Word for the last stop time", &frame);
    txtOpen->SetText(" Open");
    txtOpen->setMaximumWidth(Pixels(900));
    auto& rest = Add<Label>("", "", &frame);
    rest.setWordWrap(true);
    rest.SetText("for the last\nstop time of the day");
    row->addWidget(ckbLastStop);
    row->addWidget(txtOpen);
    row->addWidget(&rest, 1);
    grid.addWidget(&frame, IsSelected() ? 2 : 1, IsSelected() ? 0 : 3, 1, IsSelected() ? 3 : 1);
}

void ScheduleForm::BuildPicking(QGridLayout& grid) {
    auto& frame = Add<Frame>("FrameList", "Selection", &Options());
    frame.SetTitle("Select " + g_.department.EmployeeNamePlural + " to print");
    auto* lines = new QVBoxLayout(&frame);
    List1 = &Add<QListWidget>("List1", g_.department.EmployeeNamePlural, &frame);
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->setUniformItemSizes(true);
    List1->setMinimumSize(Pixels(4200), Pixels(3000));
    lines->addWidget(List1);
    FillList();
    frame.setVisible(IsSelected());
    grid.addWidget(&frame, 0, 3, 3, 1);
}

void ScheduleForm::FillList() {
    const QFontMetrics metrics = List1->fontMetrics();
    const auto widthOf = [&](const std::string& text) {
        return ToTwips(metrics.horizontalAdvance(ToQString(text)));
    };
    for (int row = 1; row <= g_.roster.EmployeeCount; ++row) {
        const int e = g_.roster.RowOrder[row];
        const std::string name =
            FitToNameColumn(Trim(g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e]), widthOf);
        auto* item = new QListWidgetItem(
            ToQString(name + " \t" + g_.roster.RosterId[e] + "\t" + g_.roster.RosterAssignment[e]), List1);
        item->setData(Qt::UserRole, e);
    }
}

ScheduleRequest ScheduleForm::Request() const {
    ScheduleRequest request;
    request.kind = kind_;
    request.lastStop = ckbLastStop->isChecked();
    request.openWord = txtOpen->Text();
    request.productivity = !Check3D4->isHidden() && Check3D4->isChecked();
    request.saveSpace = SaveSpace;
    for (int i = 0; i < List1->count() && IsSelected(); ++i)
        if (List1->item(i)->isSelected())
            request.picked.push_back(List1->item(i)->data(Qt::UserRole).toInt());
    return request;
}

void ScheduleForm::Run(Vp& vp) {
    if (Trim(txtOpen->Text()).empty()) txtOpen->SetText("_____");
    RunSchedule(g_, ports_, Request(), HtmlMode, vp);
}

std::string ScheduleForm::PreviewTitle() const {
    return HtmlMode ? "Review HTML pages..." : "Review print pages...";
}

std::string ScheduleForm::PreviewPrintCaption() const {
    return HtmlMode ? "&Save HTML" : "&Print";
}

std::string ScheduleForm::DocumentTitle() const {
    return WeekTitle(g_.department, g_.week);
}

void ScheduleForm::EnterHtml() {
    HtmlMode = true;
    SaveSpace = Option3D1[SaveSpaceOption].isChecked();
}

void ScheduleForm::PreviewHtml() {
    EnterHtml();
    ShowPreview();
}

void ScheduleForm::PrintFromPreview() {
    if (!HtmlMode) return ReportForm::PrintFromPreview();
    SaveHtml();
}

/// Asks for a file; a name without a point gets ".HTM". Nothing on cancel, or when a file that only the
/// longer name meets is to stay.
std::optional<std::filesystem::path> ScheduleForm::AskForPage() {
    const FileRequest request{"Save HTML", "HTML Web pages (*.htm)", "*.HTM", g_.paths.ProgramPath, ""};
    auto file = ports_.prompt.SaveDialog(request);
    if (!file || file->filename().string().find('.') != std::string::npos) return file;
    *file += ".HTM";
    if (!FileExists(*file)) return file;
    const Answer answer =
        ports_.prompt.MsgBox(file->filename().string() + " already exists.\r\nDo you want to replace it?",
                             box::YesNo + box::Exclamation, "Save HTML");
    return answer == Answer::Yes ? file : std::nullopt;
}

void ScheduleForm::SaveHtml() {
    const auto file = AskForPage();
    if (!file) return;
    RunReport();
    try {
        WriteHtml(Document(), DocumentTitle(), ports_.region.Language(), *file);
    } catch (const FileError& trouble) {
        ports_.prompt.MsgBox("The web page could not be written.\r\n\r\n" + std::string(trouble.what()),
                             box::Exclamation, "File error");
        return;
    }
    if (PreviewShown()) ClosePreview();
}

} // namespace tvx::qt
