#include "editor/screens/MainEditorForm.h"

#include "editor/EditorMenus.h"
#include "editor/RowValues.h"
#include "editor/lanes/DaytypeBox.h"
#include "editor/screens/TotalsForm.h"
#include "editor/week/DayShifts.h"
#include "editor/week/LoadWeek.h"
#include "editor/week/SaveWeek.h"
#include "editor/week/WeekEdit.h"
#include "masterdata/StoredShifts.h"
#include "masterdata/files/ProductivityFile.h"
#include "masterdata/files/ShiftFile.h"
#include "shell/common/TVXMOD1.h"

#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

namespace tvx::qt {
MainEditorForm::MainEditorForm(GlobalState& g, Ports& ports, EditorScreens& screens, Form* owner)
    : Form(ports, "Form1", owner), g_(g), screens_(screens), menuModel_(EditorMenus(g)), drag_(g) {
    RemoveCancelMenuItem();
    g_.cursor.CurrentDay = 1;
    g_.grid.ShowOption = g_.grid.PreviousShowOption = g_.roster.AllDepartmentsMode ? 11 : 1;
    g_.grid.AvailabilityShown = g_.grid.HeadcountShown = false;
    g_.drag = {};
    SetGridGeometry(g_);
    LoadLists();
    BuildMenus();

    auto* column = new QVBoxLayout(&Face());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    strip_ = new QWidget(&Face());
    auto* header = new QWidget(&Face());
    sheet_ = new QWidget(&Face());
    auto* panel = new QWidget(&Face());
    BuildToolStrip(*strip_);
    BuildHeader(*header);
    BuildSheet(*sheet_);
    BuildSidePanel(*panel);
    for (QWidget* part : {strip_, header, sheet_, panel}) column->addWidget(part, part == sheet_ ? 1 : 0);
    HideForAllDepartments();
    ConnectTools();
    ConnectGrid();
    setWindowTitle(ToQString(g_.department.CurrentDepName + ", schedule (Untitled)"));
    setWindowState(Qt::WindowMaximized);
    resize(Pixels(g_.screen.ScreenWidth), Pixels(g_.screen.ScreenHeight));
}

MainEditorForm::~MainEditorForm() = default;

void MainEditorForm::LoadLists() {
    LoadDayTypes(g_.store, g_.department.CurrentDepNumber, g_.daytypes);
    LoadStoredShifts(g_.paths.ProgramPath, g_.department.CurrentDepNumber, g_.shifts);
}

void MainEditorForm::Activated() {
    if (!firstActivation_) return;
    firstActivation_ = false;
    ReadProductivity(g_.paths.ProgramPath, g_.department.CurrentDepNumber, g_.productivity);
    LoadWeekOf(g_, ports_, ports_.clock.Today());
    SelectDay();
    ShowSelectedOption();
    FocusRow(1);
}

bool MainEditorForm::MayUnload() {
    // The end of the desktop session comes this way, and must not lose the week.
    return MayLeaveWeek(
        g_, ports_, *gauge_, [this] { drag_.Settle(); }, "You made changes");
}

void MainEditorForm::changeEvent(QEvent* event) {
    // A window that loses the front in mid-gesture never hears of the release.
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && drag_.Settle()) {
        ports_.prompt.MousePointer(Pointer::Default);
        SelectDay();
    }
    Form::changeEvent(event);
}

// ---- commands ----

void MainEditorForm::Choose(const std::string& entry) {
    if (entry == "SaveIt")
        Save();
    else if (entry == "Gout" || entry == "GetOut")
        LeaveEditor();
    else if (entry == "TimeHelp")
        ports_.help.ShowTopic(help::EnteringTime);
    else if (entry == "DTHelp")
        ports_.help.ShowTopic(help::Daytypes);
    else if (entry == "LetSeeAvailability")
        ToggleAvailability();
    else if (entry == "LetSeeHeadcount")
        ToggleHeadcount();
    else if (entry == "ShowDayTypes")
        PickDaytype();
    else if (entry == "Shift")
        PickShift();
    else if (entry == "NoLaser")
        OpenSchedules("7DayLong");
    else if (entry == "Graphbased")
        OpenSchedules("7DayShort");
    else if (entry == "One")
        OpenSchedules("SelectedEmployees");
    else if (entry == "OneEmpl")
        TellHowToSeeOneWeek();
}

void MainEditorForm::Save() {
    SaveWeek(g_, ports_, *gauge_, [this] { drag_.Settle(); });
    ShowRows();
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::GoToWeek(int direction) {
    if (!GoToNeighbourWeek(
            g_, ports_, *gauge_, [this] { drag_.Settle(); }, direction))
        return;
    SelectDay();
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::LeaveEditor() {
    if (MayLeaveWeek(
            g_, ports_, *gauge_, [this] { drag_.Settle(); }, "You made changes"))
        Unload();
}

void MainEditorForm::ChooseDay(int day) {
    g_.cursor.CurrentDay = day;
    SelectDay();
}

void MainEditorForm::SelectDay() {
    drag_.Settle();
    UpdateScrollX(g_);
    WeekEdit(g_).ShowDay(g_.cursor.CurrentDay);
    DrawDayHeader();
    ShowTitle();
    ShowMenus();
    ShowRows();
    ShowTotals();
    ShowRuler();
    Picture1->update();
    ports_.prompt.MousePointer(Pointer::Default);
    g_.cursor.CurrentRow = g_.cursor.LastFocusRow;
}

void MainEditorForm::ChooseOption(int option) {
    ChooseShowOption(g_, option);
    ShowSelectedOption();
}

void MainEditorForm::ToggleAvailability() {
    g_.grid.AvailabilityShown = !g_.grid.AvailabilityShown;
    ShowToggles();
    Picture1->update();
}

void MainEditorForm::ToggleHeadcount() {
    g_.grid.HeadcountShown = !g_.grid.HeadcountShown;
    ShowToggles();
    ShowRuler();
}

void MainEditorForm::ShowTotalsBox() {
    TotalsForm(g_, ports_, this).ShowModal();
}

void MainEditorForm::PickDaytype() {
    drag_.Settle();
    g_.cursor.CurrentRow = g_.cursor.LastFocusRow;
    g_.cursor.CurrentEmployee = EmployeeOfRow(g_, g_.cursor.CurrentRow);
    if (g_.week.DayOffFlag[g_.cursor.CurrentDay][g_.cursor.CurrentEmployee]) return ports_.prompt.Beep();
    g_.listDialog.DayTypeRequest = static_cast<int>(ListRequest::Drop);
    g_.listDialog.DayTypeCaller = "Main";
    screens_.OpenDaytypes(*this);
    ShowRows();
    FocusRow(g_.cursor.LastFocusRow);
}

void MainEditorForm::PickShift() {
    drag_.Settle();
    g_.cursor.CurrentRow = g_.cursor.LastFocusRow;
    g_.cursor.CurrentEmployee = EmployeeOfRow(g_, g_.cursor.CurrentRow);
    g_.listDialog.DayTypeRequest = static_cast<int>(ListRequest::Drop);
    g_.listDialog.DayTypeCaller = "Main";
    g_.listDialog.SelectedDayType = 0;
    screens_.OpenShifts(*this);
    ShowMenus();
    const bool picked = g_.listDialog.DayTypeRequest == static_cast<int>(ListRequest::Drop);
    if (picked && g_.listDialog.SelectedDayType > 0) PasteStoredShift(g_.listDialog.SelectedDayType);
}

void MainEditorForm::StoreShift() {
    TakeShiftFromDay(g_.week, g_.cursor.CurrentEmployee, g_.cursor.CurrentDay, g_.shifts);
    g_.listDialog.DayTypeRequest = static_cast<int>(ListRequest::Add);
    g_.listDialog.DayTypeCaller = "Main";
    screens_.OpenShifts(*this);
    g_.clipboard.ClipFull = false;
    ShowMenus();
    FocusRow(g_.cursor.CurrentRow);
}

void MainEditorForm::PasteStoredShift(int index) {
    g_.cursor.CurrentEmployee = EmployeeOfRow(g_, g_.cursor.CurrentRow);
    const PasteResult result = PasteShift(g_, index);
    if (result == PasteResult::NotPermitted) TellSchedulingNotPermitted(ports_.prompt);
    if (result == PasteResult::Occupied || result == PasteResult::Full) ports_.prompt.Beep();
    ShowRowValue(g_.cursor.CurrentRow);
    ShowTotals();
    ShowRuler();
    Picture1->UpdateRow(g_.cursor.CurrentRow);
    FocusRow(g_.cursor.CurrentRow);
}

void MainEditorForm::OpenSchedules(const char* kind) {
    drag_.Settle();
    g_.application.FormCommand = kind;
    screens_.OpenSchedules(*this);
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
    if (scrollLock_) return;
    drag_.Settle();
    const int taken = ScrollToQuarter(g_, value);
    if (taken != value) HScroll1->setValue(taken);
    ShowRuler();
    Picture1->update();
}

void MainEditorForm::ScrollRows(int value) {
    if (scrollLock_) return;
    drag_.Settle();
    g_.cursor.TopRow = value;
    Label20->setText(value != 0 ? QStringLiteral("First page") : QStringLiteral("Last page"));
    ShowRows();
    Picture1->update();
}

// ---- the grid ----

void MainEditorForm::ConnectGrid() {
    const auto buttonOf = [](Qt::MouseButton button) {
        if (button == Qt::LeftButton) return MouseButton::Left;
        return button == Qt::RightButton ? MouseButton::Right : MouseButton::Other;
    };
    const auto heldOf = [](Qt::MouseButtons buttons) {
        if (buttons == Qt::NoButton) return MouseButton::None;
        if ((buttons & Qt::LeftButton) != 0) return MouseButton::Left;
        return (buttons & Qt::RightButton) != 0 ? MouseButton::Right : MouseButton::Other;
    };
    Picture1->onMouseDown = Guarded([=, this](Qt::MouseButton button, TwipsPoint at) {
        Follow(drag_.Press({buttonOf(button), at.x, at.y}));
    });
    Picture1->onMouseMove = Guarded([=, this](Qt::MouseButtons buttons, TwipsPoint at) {
        Follow(drag_.Move({heldOf(buttons), at.x, at.y}));
    });
    Picture1->onMouseUp = Guarded([=, this](Qt::MouseButton button, TwipsPoint at) {
        Follow(drag_.Release({buttonOf(button), at.x, at.y}));
    });
    Picture1->onMouseLeave = Guarded([this] {
        HighlightRow(0);
        markerX_ = -1;
        ShowRuler();
    });
    Picture2->onPaint = [this](QPainter& painter, const QRegion&) { PaintRuler(painter); };
}

/// Shows what a mouse event has changed.
void MainEditorForm::Follow(const GridChange& change) {
    if (change.notPermitted) return TellSchedulingNotPermitted(ports_.prompt);
    if (change.pointer) ports_.prompt.MousePointer(change.shape);
    if (change.hoverRow != 0) HighlightRow(change.hoverRow);
    if (change.hideMarker) markerX_ = -1;
    if (change.markerMoved) markerX_ = change.markerX;
    if (change.hideMarker || change.markerMoved) Picture2->update();
    if (change.ghost || change.lane) Picture1->UpdateRow(g_.cursor.CurrentRow);
    if (change.ghost || change.lane) dragTime_->SetText(g_.drag.GestureOpen ? DragTimeText(g_) : "");
    if (change.lane) {
        ShowRowValue(g_.cursor.CurrentRow);
        if (g_.grid.HeadcountShown) ShowRuler();
    }
    if (change.totals) ShowTotals();
    if (change.focusRow) FocusRow(g_.cursor.CurrentRow);
    if (change.lineMenu) OpenLineMenu();
}

void MainEditorForm::OpenLineMenu() {
    const LineMenu offered = ArrangeLineMenu(g_);
    // Copying a line has no commands yet; its entries stand in the menu and wait.
    constexpr bool Built = false;
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("Popup"));
    const auto add = [&](const char* name, const char* caption, bool enabled) {
        QAction* action = menu.addAction(QLatin1String(caption));
        action->setObjectName(QLatin1String(name));
        action->setEnabled(enabled);
        return action;
    };
    add("CutLine", "&Cut", offered.CutLine && Built);
    add("CopyLine", "C&opy", offered.CopyLine && Built);
    add("PasteLine", "&Paste", offered.PasteLine && Built);
    menu.addSeparator();
    On(*add("AddToShift", "&Add to standard Shifts", offered.AddToShift), &QAction::triggered,
       [this] { StoreShift(); });
    QMenu* shifts = menu.addMenu(QStringLiteral("Paste &Shift"));
    shifts->menuAction()->setObjectName(QStringLiteral("PasteShift"));
    shifts->setEnabled(offered.PasteShift);
    int index = 0;
    for (const std::string& name : offered.ShiftNaam) {
        QAction* action = shifts->addAction(PlainCaption(name));
        action->setObjectName(QStringLiteral("ShiftNaam(%1)").arg(++index));
        On(*action, &QAction::triggered, [this, index] { PasteStoredShift(index); });
    }
    menu.exec(QCursor::pos());
}

void MainEditorForm::FocusRow(int row) {
    if (Text1.Has(row) && Text1[row].isVisibleTo(this)) Text1[row].setFocus(Qt::OtherFocusReason);
}

int MainEditorForm::TypeInto(int row, int code) {
    const DaytypeKey key = TypeDaytype(g_, row, code);
    TellDaytypeRefusal(ports_.prompt, key.refusal);
    return key.code;
}

void MainEditorForm::ConnectDaytypeBox(int row) {
    TextBox& box = Text1[row];
    box.keyFilter = Guarded([=, this](int code) { return TypeInto(row, code); });
    box.pasteFilter = [=, this](int code) {
        const bool closed =
            g_.week.DayOffFlag[g_.cursor.CurrentDay][EmployeeOfRow(g_, row)] || !g_.rights.SchedulingAllowed;
        return closed ? 0 : FilterDaytypeKey(code).code;
    };
    box.onKeyUp = Guarded([=, this] {
        const int e = EmployeeOfRow(g_, row);
        const std::string text = Text1[row].Text();
        if (text == g_.week.DayTypeText[g_.cursor.CurrentDay][e]) return;
        TakeDaytype(g_, row, text);
    });
    box.onVerticalArrow = [=, this](int direction) { FocusRow(NeighbourRow(g_.grid, row, direction)); };
    box.onFocus = [=, this] { g_.cursor.CurrentRow = g_.cursor.LastFocusRow = row; };
    box.onHover = [=, this] {
        Text1[row].setToolTip(ToQString(DaytypeTooltip(g_.daytypes, Text1[row].Text())));
    };
}

} // namespace tvx::qt
