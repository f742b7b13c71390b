#include "editor/screens/MainEditorForm.h"

#include "editor/RowValues.h"
#include "editor/screens/TotalsForm.h"
#include "editor/week/DayShifts.h"
#include "editor/week/LoadWeek.h"
#include "editor/week/Refusal.h"
#include "editor/week/SaveWeek.h"
#include "editor/week/WeekEdit.h"
#include "masterdata/DaytypeList.h"
#include "masterdata/DaytypesRequest.h"
#include "masterdata/ShiftsRequest.h"
#include "masterdata/files/ShiftFile.h"
#include "platform/basic/Text.h"
#include "reports/schedules/SchedulesRequest.h"
#include "shell/common/TVXMOD1.h"

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace tvx::qt {

MainEditorForm::MainEditorForm(GlobalState& g, Ports& ports, const Screens& screens, Form* owner)
    : Form(ports, "Form1", owner), g_(g), screens_(screens), grid_(g.cursor.FirstQuarter),
      lanes_(grid_, g.roster, g.cursor), drag_(lanes_, g), view_(lanes_, drag_, g),
      daytypes_(Text1, lanes_, g, ports.prompt), commands_(EditorCommands(g, grid_, *this)) {
    RemoveCancelMenuItem();
    g_.cursor.CurrentDay = 1;
    g_.cursor.TopRow = 0;
    g_.cursor.LastFocusRow = 1;
    grid_.ShowOption = g_.roster.AllDepartmentsMode ? 11 : 1;
    SetGridGeometry(grid_, g_.screen, g_.roster.EmployeeCount, g_.department.DayCutoffQuarters,
                    g_.application.options.StartHour);
    LoadLists();
    BuildMenus();
    BuildFace();
    HideForAllDepartments();
    ConnectScrollBars();
    ConnectGrid();
    ShowCommands();
    setWindowTitle(ToQString(Isolated(g_.department.CurrentDepName) + ", schedule (Untitled)"));
    setWindowState(Qt::WindowMaximized);
    resize(Pixels(g_.screen.ScreenWidth), Pixels(g_.screen.ScreenHeight));
}

MainEditorForm::~MainEditorForm() = default;

void MainEditorForm::BuildFace() {
    auto* column = new QVBoxLayout(&Face());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    strip_ = &Add<Group>("Strip", "Tools");
    QWidget* header = &Add<Group>("Header", "Week");
    sheet_ = &Add<Group>("Sheet", "Schedule of the day");
    QWidget* panel = &Add<Group>("Panel", "Values and totals");
    BuildToolStrip(*strip_);
    BuildHeader(*header);
    BuildSheet(*sheet_);
    BuildSidePanel(*panel);
    for (QWidget* part : {strip_, header, sheet_, panel}) column->addWidget(part, part == sheet_ ? 1 : 0);
}

void MainEditorForm::LoadLists() {
    LoadDayTypes(g_.store, g_.department.CurrentDepNumber, g_.daytypes);
    LoadStoredShifts(g_.paths.ProgramPath, g_.department.CurrentDepNumber, g_.shifts);
}

bool MainEditorForm::Opened() {
    LoadWeekOf(g_, ports_, ports_.clock.Today());
    SelectDay(g_.cursor.CurrentDay);
    ShowSelectedOption();
    FocusRow(1);
    return true;
}

bool MainEditorForm::MayLeave() {
    return MayLeaveWeek(g_, ports_, *gauge_, Settling(), "You made changes");
}

bool MainEditorForm::MayUnload() {
    // The end of the desktop session comes this way, and must not lose the week.
    return MayLeave();
}

void MainEditorForm::changeEvent(QEvent* event) {
    // A window that loses the front in mid-gesture never hears of the release.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) Guarded([this] { Settle(); })();
    Form::changeEvent(event);
}

/// Lets a bar in hand go, and shows what came of it. Whatever works on the week, or moves what is seen of it,
/// comes after this.
void MainEditorForm::Settle() {
    Follow(drag_.Settle());
}

SettleGesture MainEditorForm::Settling() {
    return [this] { Settle(); };
}

// ---- commands ----

void MainEditorForm::Choose(const std::string& command) {
    Settle();
    commands_.Choose(command);
    ShowCommands();
}

void MainEditorForm::Save() {
    SaveWeek(g_, ports_, *gauge_, Settling());
    ShowRows();
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::GoToWeek(int direction) {
    if (!GoToNeighbourWeek(g_, ports_, *gauge_, Settling(), direction)) return;
    drag_.Forget();
    SelectDay(g_.cursor.CurrentDay);
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::LeaveEditor() {
    if (MayLeave()) Unload();
}

/// The day before or behind, within the week.
void MainEditorForm::StepDay(int days) {
    const int day = g_.cursor.CurrentDay + days;
    if (day >= 1 && day <= 7) SelectDay(day);
}

void MainEditorForm::SelectDay(int day) {
    Settle();
    WeekEdit(g_).ShowDay(day);
    DrawDayHeader();
    ShowTitle();
    ShowCommands();
    ShowRows();
    ShowTotals();
    ShowRuler();
    Picture1->update();
    ports_.prompt.MousePointer(Pointer::Default);
    g_.cursor.CurrentRow = g_.cursor.LastFocusRow;
}

void MainEditorForm::ChooseOption(int option) {
    ChooseShowOption(grid_, g_.roster, g_.rights, option);
    ShowSelectedOption();
}

void MainEditorForm::ToggleAvailability() {
    grid_.AvailabilityShown = !grid_.AvailabilityShown;
    Picture1->update();
}

void MainEditorForm::ToggleHeadcount() {
    grid_.HeadcountShown = !grid_.HeadcountShown;
    ShowRuler();
}

void MainEditorForm::ShowTotalsBox() {
    TotalsForm(g_, ports_, this).ShowModal();
}

void MainEditorForm::ShowHelp(int topic) {
    ports_.help.ShowTopic(topic);
}

void MainEditorForm::PickDaytype() {
    lanes_.MakeCurrent(lanes_.At(g_.cursor.LastFocusRow));
    const int e = g_.cursor.CurrentEmployee;
    const int day = g_.cursor.CurrentDay;
    if (g_.week.DayOffFlag[day][e]) return ports_.prompt.Beep();
    const auto answer = screens_.Open(DaytypesRequest{ListRequest::Drop, e, day}, *this);
    if (answer.SelectedDayType > 0) Follow(DropDaytype(g_, e, day, answer.SelectedDayType));
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::PickShift() {
    lanes_.MakeCurrent(lanes_.At(g_.cursor.LastFocusRow));
    const ShiftsRequest request{ListRequest::Drop, g_.cursor.CurrentEmployee, g_.cursor.CurrentDay};
    const ListAnswer answer = screens_.Open(request, *this);
    if (answer.SelectedDayType > 0) PasteStoredShift(answer.SelectedDayType);
}

void MainEditorForm::StoreShift() {
    CopyDayIntoShifts(g_.week, g_.cursor.CurrentEmployee, g_.cursor.CurrentDay, g_.shifts);
    screens_.Open(ShiftsRequest{ListRequest::Add, g_.cursor.CurrentEmployee, g_.cursor.CurrentDay}, *this);
    g_.clipboard.ClipFull = false;
    FocusRow(g_.cursor.CurrentRow);
}

void MainEditorForm::PasteStoredShift(int index) {
    lanes_.MakeCurrent(lanes_.At(g_.cursor.CurrentRow));
    const PasteResult result = PasteShift(g_, index);
    if (result == PasteResult::NotPermitted) TellSchedulingNotPermitted(ports_.prompt);
    if (result == PasteResult::Occupied || result == PasteResult::Full) ports_.prompt.Beep();
    if (result == PasteResult::Pasted) {
        WeekChange change;
        change.employees = {g_.cursor.CurrentEmployee};
        change.figures = true;
        Follow(change);
    }
    FocusRow(g_.cursor.CurrentRow);
}

void MainEditorForm::OpenSchedules(ScheduleKind kind) {
    screens_.Open(SchedulesRequest{kind}, *this);
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::TellHowToSeeOneWeek() {
    const Department& words = g_.department;
    const std::string& one = words.EmployeeNameSingle;
    ports_.prompt.MsgBox("To see the Week schedule for this " + one + ", click on the " + one +
                             " name.\nFor marking " + words.DayOffNamePlural +
                             ", do a right mouse click on the " + one + " name.",
                         box::Ok, "Look at " + one + " week");
}

void MainEditorForm::ScrollDay(int value) {
    Settle();
    const int taken = ScrollToQuarter(grid_, g_.department.DayCutoffQuarters, value);
    if (taken != value) HScroll1->setValue(taken);
    ShowRuler();
    Picture1->update();
}

void MainEditorForm::ScrollRows(int value) {
    Settle();
    g_.cursor.TopRow = value;
    Label20->setText(value != 0 ? QStringLiteral("First page") : QStringLiteral("Last page"));
    ShowRows();
    Picture1->update();
}

// ---- the grid ----

void MainEditorForm::ConnectGrid() {
    Picture1->onMouseDown = Guarded(
        [this](Qt::MouseButton button, TwipsPoint at) { Follow(drag_.Press(ToGridMouse(button, at))); });
    Picture1->onMouseMove =
        Guarded([this](Qt::MouseButtons held, TwipsPoint at) { Follow(drag_.Move(ToGridMouse(held, at))); });
    Picture1->onMouseUp = Guarded(
        [this](Qt::MouseButton button, TwipsPoint at) { Follow(drag_.Release(ToGridMouse(button, at))); });
    Picture1->onMouseLeave = Guarded([this] {
        HighlightRow(0);
        markerX_ = -1;
        ShowRuler();
    });
    Picture2->onPaint = [this](QPainter& painter, const QRegion&) { PaintRuler(painter); };
}

/// Shows what a mouse event has changed.
void MainEditorForm::Follow(const GridChange& change) {
    Follow(change.week);
    if (change.pointer) ports_.prompt.MousePointer(change.shape);
    if (change.hoverRow != 0) HighlightRow(change.hoverRow);
    if (change.hideMarker) markerX_ = -1;
    if (change.markerMoved) markerX_ = change.markerX;
    if (change.hideMarker || change.markerMoved) Picture2->update();
    for (const int row : change.rows) Picture1->UpdateRow(row);
    dragTime_->SetText(view_.DragTimeText());
    if (change.notPermitted) return TellSchedulingNotPermitted(ports_.prompt);
    if (change.focusRow) FocusRow(g_.cursor.CurrentRow);
    if (change.lineMenu) OpenMenu(*this, commands_, "Popup", Chosen());
}

/// Shows what an edit has changed in the week.
void MainEditorForm::Follow(const WeekChange& change) {
    for (const int employee : change.employees)
        for (const int row : lanes_.RowsOf(employee)) {
            ShowRow(row);
            Picture1->UpdateRow(row);
        }
    if (!change.employees.empty() || change.figures) saveNote_->Edited();
    if (change.figures) ShowTotals();
    if (!change.employees.empty() && grid_.HeadcountShown) ShowRuler();
}

void MainEditorForm::FocusRow(int row) {
    daytypes_.Focus(row);
}

void MainEditorForm::ConnectDaytypes() {
    daytypes_.onFocus = [this](int row) { g_.cursor.CurrentRow = g_.cursor.LastFocusRow = row; };
    daytypes_.onChange = [this](const WeekChange& change) { Follow(change); };
}

} // namespace tvx::qt
