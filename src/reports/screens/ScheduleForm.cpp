#include "reports/screens/ScheduleForm.h"

#include "masterdata/EmployeeSearch.h"
#include "platform/basic/Text.h"
#include "reports/schedules/Schedules.h"
#include "shell/common/Conversions.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tvx::qt {
namespace {

constexpr int SaveSpaceOption = 5;

std::string_view ExtensionOf(ScheduleKind kind) {
    if (kind == ScheduleKind::Long) return report_file::Long;
    return kind == ScheduleKind::Selected ? report_file::Selected : report_file::Short;
}

/// The productivity figures make sense only in a week that has some.
bool HasFigures(const DepartmentFigures& figures) {
    const auto above = [](double figure) { return figure > 0; };
    return std::any_of(figures.DailySales.begin(), figures.DailySales.end(), above) ||
           std::any_of(figures.DailyTransactions.begin(), figures.DailyTransactions.end(), above);
}

DeskSettings SettingsOf(GlobalState& g, ScheduleKind kind) {
    return {g.reports.settings,
            ReportSettingsPath(g.paths, g.department.CurrentDepNumber, ExtensionOf(kind))};
}

} // namespace

ScheduleForm::ScheduleForm(GlobalState& g, Ports& ports, Printer& printer, const SchedulesRequest& request,
                           Form* owner)
    : OptionFrames(g.reports.options, ports, printer, SettingsOf(g, request.kind), "Form8", owner), g_(g),
      kind_(request.kind) {
    options_.WhoToPrint = 0;
    options_.BreakThreshold = 0;
    options_.NameOption = std::min(options_.NameOption, 4);
    BuildOptions();
    AddCommands({{"cmdPreviewHTML", "Preview HT&ML", [this] { PreviewHtml(); }},
                 {"cmdSaveHTML", "&Save HTML", [this] { SaveAsHtml(); }},
                 {"cmdHelp", "&Help", [this] { ports_.help.ShowTopic(help::Schedules); }, Role::Help}});
    FinishLayout(IsSelected() ? "Printing schedules for selected " + g_.department.EmployeeNamePlural
                              : "Include in schedule");
}

/// Three frames beside each other, and what differs by the kind beside them; picked people take all the
/// height.
void ScheduleForm::BuildOptions() {
    auto& row = *new QHBoxLayout(&Options());
    row.setContentsMargins(0, 0, 0, IsSelected() ? 0 : row.spacing());
    QVBoxLayout& left = ColumnIn(row);
    QHBoxLayout& frames = Row(left);
    BuildNames(frames);
    BuildOther(frames);
    AddBreaks("Frame3D3", "Lunch ", frames);
    QVBoxLayout& right = ColumnIn(row);
    right.setSpacing(0); // a frame begins with its title
    AddWhoToPrint("Frame3D4", " Who to print ", g_.department.EmployeeNamePlural, right)
        .setVisible(!IsSelected());
    BuildLastStop(IsSelected() ? left : right);
    if (IsSelected()) left.setStretch(1, 1); // the list is higher than both
    BuildPicking(right);
}

void ScheduleForm::BuildNames(QBoxLayout& row) {
    AddChoice(Option3D1, "Option3D1", 0,
              {"Name only", "Assignment", g_.department.EmployeeNameSingle + " ID", "Phone number",
               "Soc.Sec.Nbr.", "Save space"},
              AddFrame("frame3D1", "Print name and...", row), options_.NameOption);
}

void ScheduleForm::BuildOther(QBoxLayout& row) {
    Frame& frame = AddFrame("Frame3D2", "Other print options..", row);
    AddTotals(frame, !g_.rights.HideWages);
    Check3D5 = &AddCheck("Check3D5", "Print time bars (Not on HTML)", frame, options_.PrintTimeBars);
    SSCheck1 = &AddCheck("SSCheck1", "Print day comments", frame, options_.PrintDayComments);
    Check3D4 = &AddCheck("Check3D4", "Productivity summary", frame);
    KeepAtTop(frame);
    Check3D5->setVisible(IsShort());
    SSCheck1->setVisible(IsShort());
    Check3D4->setVisible(IsShort() && HasFigures(g_.figures));
    On(*Check3D5, &QCheckBox::toggled, [this](bool on) { options_.PrintTimeBars = on; });
    On(*SSCheck1, &QCheckBox::toggled, [this](bool on) { options_.PrintDayComments = on; });
}

void ScheduleForm::BuildLastStop(QBoxLayout& column) {
    Frame& frame = AddFrame("Frame3", "Last stop time of the day ", column);
    auto& row = *new QHBoxLayout(&frame);
    // The box for the word lies over the gap in the caption.
    const char* caption = "Print                  for the last           stop time of the day";
    ckbLastStop = &Add<QCheckBox>("ckbLastStop", caption, &frame);
    ckbLastStop->setText(QStringLiteral("Print"));
    txtOpen = &Add<TextBox>("txtOpen", "Word for the last stop time", &frame);
    txtOpen->SetText(" Open");
    txtOpen->setMaximumWidth(Pixels(900));
    row.addWidget(ckbLastStop);
    row.addWidget(txtOpen);
    Label& rest = AddLabel("", "for the last\nstop time of the day", row, &frame);
    rest.setWordWrap(true);
    row.setStretchFactor(&rest, 1);
}

void ScheduleForm::BuildPicking(QBoxLayout& column) {
    Frame& frame = AddFrame("FrameList", "Select " + g_.department.EmployeeNamePlural + " to print", column);
    auto& lines = *new QVBoxLayout(&frame);
    List1 = &Add<QListWidget>("List1", g_.department.EmployeeNamePlural, &frame);
    List1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    List1->setUniformItemSizes(true);
    List1->setMinimumSize(Pixels(4200), Pixels(3000));
    lines.addWidget(List1);
    FillList();
    frame.setVisible(IsSelected());
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

bool ScheduleForm::MayRun() {
    if (!IsSelected() || !List1->selectedItems().isEmpty()) return true;
    const std::string& people = g_.department.EmployeeNamePlural;
    ports_.prompt.MsgBox("No " + people + " selected....", box::Ok, "Select " + people);
    return false;
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

std::string ScheduleForm::FileName() const {
    const char* format = IsShort() ? " schedule " : IsSelected() ? " selected schedules " : " long schedule ";
    return g_.department.CurrentDepName + format + g_.week.WeekDateTexts[1];
}

void ScheduleForm::EnterHtml() {
    HtmlMode = true;
    SaveSpace = Option3D1[SaveSpaceOption].isChecked();
}

void ScheduleForm::PreviewHtml() {
    EnterHtml();
    ShowPreview();
    if (!Desk().IsPreviewing()) HtmlMode = false;
}

void ScheduleForm::PrintFromPreview() {
    if (!HtmlMode) return OptionFrames::PrintFromPreview();
    SaveHtml();
}

void ScheduleForm::SaveAsHtml() {
    EnterHtml();
    SaveHtml();
    HtmlMode = false;
}

void ScheduleForm::SaveHtml() {
    if (Desk().SaveWebPage(g_.paths.ProgramPath) && Desk().IsPreviewing()) ClosePreview();
}

} // namespace tvx::qt
