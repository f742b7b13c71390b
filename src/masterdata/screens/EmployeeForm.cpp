#include "masterdata/screens/EmployeeForm.h"

#include "desktop/FloodGauge.h"
#include "desktop/MenuRenderer.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "shell/common/Conversions.h"
#include "shell/common/TVXMOD1.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace tvx::qt {

EmployeeForm::EmployeeForm(GlobalState& g, Ports& ports, const EmployeeRequest& request, Form* owner)
    : Form(ports, "Form4", owner), g_(g),
      gridCommands_(AvailabilityCommands(grid_, [this] { ports_.prompt.Beep(); })),
      adding_(request.SelectedEmployee == 0), selectedEmployee_(request.SelectedEmployee) {
    Build();
    ConnectGrid();
}

EmployeeForm::~EmployeeForm() = default;

bool EmployeeForm::Opened() {
    if (!adding_) ReadKeys();
    LoadRecord();
    return true;
}

// ---- the record ----

void EmployeeForm::ReadKeys() {
    employeeKeys_ = EmployeeKeys(g_.store, g_.department);
    const auto found = std::find(employeeKeys_.begin(), employeeKeys_.end(), selectedEmployee_);
    position_ = found == employeeKeys_.end() ? 0 : static_cast<int>(found - employeeKeys_.begin());
}

void EmployeeForm::LoadRecord() {
    const EmployeeRecord record =
        adding_ ? NewEmployeeRecord(g_.application.options)
                : LoadEmployeeRecord(g_.store, g_.application, g_.rights, selectedEmployee_);
    setWindowTitle(ToQString(EmployeeTitle(g_.department, adding_)));
    Command2->setVisible(!adding_);
    Command3->setVisible(!adding_);
    Command2->setEnabled(position_ > 0);
    Command3->setEnabled(position_ + 1 < static_cast<int>(employeeKeys_.size()));
    ShowRecord(record);
    ShowUnderAgeNotice();
    WeekChanged = false;
    FocusBox(box_of::LastName);
}

void EmployeeForm::ShowRecord(const EmployeeRecord& record) {
    loading_ = true;
    key_ = record.key;
    for (const auto& [index, box] : Text2) box->SetText(record.Text2[index]);
    dates[box_of::HireDate].SetDate(record.hireDate);
    dates[box_of::BirthDate].SetDate(record.birthDate);
    Text1->setPlainText(ToQString(record.comments));
    Option3D1.Choose(record.active ? 1 : 2);
    Option3D2.Choose(record.hourly ? 1 : 2);
    optLaborType.Choose(record.laborOption);
    currentBarColor_ = record.barColor;
    ShowChosen(lblColor, record.barColor);
    grid_.SetBars(record.absence);
    Label6->hide();
    for (PictureBox* surface : {Picture1, Picture2, Picture3}) surface->update();
    loading_ = false;
}

EmployeeRecord EmployeeForm::Record() const {
    EmployeeRecord record;
    record.key = key_;
    record.payHidden = g_.rights.HideWages;
    for (const auto& [index, box] : Text2)
        if (!dates.Has(index)) record.Text2[index] = box->Text();
    record.hireDate = dates[box_of::HireDate].Date();
    record.birthDate = dates[box_of::BirthDate].Date();
    record.comments = FromQString(Text1->toPlainText());
    record.active = Option3D1.Chosen() == 1;
    record.hourly = Option3D2.Chosen() == 1;
    record.laborOption = optLaborType.Chosen().value_or(-1);
    record.barColor = currentBarColor_;
    record.absence = grid_.Bars();
    return record;
}

bool EmployeeForm::Save() {
    if (grid_.Settle()) Picture1->update();
    const SaveResult result = SaveEmployeeRecord(g_.store, g_.department, ports_, Record());
    if (result == SaveResult::Incomplete) FocusBox(box_of::LastName);
    saveNote_->Tell(result == SaveResult::Saved, ports_.clock.SecondOfDay());
    if (result != SaveResult::Saved) return false;
    // Before the flood lets events run: what is typed meanwhile is a change again.
    WeekChanged = false;
    if (adding_) MakeReadyForNext();
    ShowSaved();
    return true;
}

/// Empties the screen for the next new employee, who is likely to be of the same kind.
void EmployeeForm::MakeReadyForNext() {
    EmployeeRecord next = NewEmployeeRecord(g_.application.options);
    next.hourly = Option3D2.Chosen() == 1;
    next.laborOption = optLaborType.Chosen().value_or(-1);
    next.barColor = currentBarColor_;
    ShowRecord(next);
    FocusBox(box_of::LastName);
}

void EmployeeForm::ShowSaved() {
    gauge_->Flood(0);
    gauge_->Show(true);
    FloodTwentySteps(ports_.clock, ports_.prompt, [this](int percent) { gauge_->Flood(percent); });
    gauge_->Show(false);
}

bool EmployeeForm::MayLeaveRecord() {
    if (!WeekChanged) return true;
    ports_.prompt.Beep();
    switch (ports_.prompt.MsgBox("Save the changes?", box::YesNoCancel + box::Stop, "You made changes")) {
    case Answer::Yes:
        return Save();
    case Answer::No:
        return true;
    default:
        return false;
    }
}

void EmployeeForm::MoveTo(int direction) {
    Label6->hide();
    if (MayLeaveRecord()) LoadNeighbour(direction);
}

void EmployeeForm::LoadNeighbour(int direction) {
    const int next = position_ + direction;
    const int before = selectedEmployee_;
    if (next >= 0 && next < static_cast<int>(employeeKeys_.size())) {
        position_ = next;
        selectedEmployee_ = employeeKeys_[static_cast<std::size_t>(next)];
    }
    try {
        LoadRecord();
    } catch (const dao::DaoError&) {
        // Another workstation deleted that one: stay, and go by the people who are there now.
        selectedEmployee_ = before;
        ReadKeys();
        LoadRecord();
        throw;
    }
}

bool EmployeeForm::MayUnload() {
    // What is typed while adding goes without a word.
    return adding_ || (Settle() && MayLeaveRecord());
}

void EmployeeForm::Leave() {
    if (!MayUnload()) return;
    const Hourglass hourglass(ports_.prompt);
    Unload();
}

/// Is there a text in a box? The pay that its box gives itself is none.
bool EmployeeForm::HoldsText() const {
    const auto holds = [](const auto& place) {
        const auto& [index, box] = place;
        return !box->Text().empty() && (index != box_of::Pay || box->Text() != NormalizedPay(""));
    };
    return std::any_of(Text2.begin(), Text2.end(), holds) || !Text1->toPlainText().isEmpty();
}

/// Escape does not throw away what was typed for a new one; the button does.
void EmployeeForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && adding_ && HoldsText())
        ports_.prompt.Beep();
    else
        Form::keyPressEvent(event);
}

void EmployeeForm::Changed() {
    if (loading_) return;
    WeekChanged = true;
    saveNote_->Edited();
}

// ---- boxes ----

void EmployeeForm::FocusBox(int index) {
    Text2[index].setFocus(Qt::OtherFocusReason);
}

void EmployeeForm::ShowHint(const std::string& hint) {
    Label3->SetText(hint);
}

void EmployeeForm::ShowUnderAgeNotice() {
    const std::string notice = UnderAgeNotice(dates[box_of::BirthDate].DateSoFar(), g_, ports_);
    Label6->SetText(notice);
    Label6->setVisible(!notice.empty());
}

void EmployeeForm::ConnectBox(int index) {
    TextBox& box = Text2[index];
    box.rule = [=, this](int code) {
        return FilterEmployeeKey(index, code, Text2[index].TextSoFar(), ports_.region.DecimalSign());
    };
    box.onRefused = [=, this](int code) {
        if (index == box_of::Pay && code == ',') ports_.prompt.Beep();
        Changed();
    };
    box.onEdited = [this] { Changed(); };
    box.onEnter = [=, this] {
        Changed();
        FocusBox(BoxAfterEnter(index, g_.rights.HideWages));
    };
    box.onVerticalArrow = [=, this](int direction) {
        Changed();
        FocusBox(BoxAfterArrow(index, direction, g_.rights.HideWages));
    };
    box.onFocus = [&box] { box.SetText(TrimRight(box.Text())); };
    if (index == box_of::Pay)
        box.rest = [&box] {
            box.SetText(NormalizedPay(box.Text()));
            return true;
        };
}

void EmployeeForm::ConnectDate(int index) {
    DateBox& box = dates[index];
    box.read = [this](const std::string& text) {
        return TypedDate(text, ports_.region, ports_.clock.Today());
    };
    box.write = [this](DaySerial date) {
        return DateText(date, g_.application.DateFormatSetting, ports_.region);
    };
    box.refuse = Guarded([this] {
        ShowDateHelp(ports_.prompt, g_.application.DateFormatSetting, ports_.region, ports_.clock.Today());
    });
}

// ---- the grid ----

void EmployeeForm::ConnectGrid() {
    using Button = MouseButton;
    const auto shiftHeld = [] { return (QApplication::keyboardModifiers() & Qt::ShiftModifier) != 0; };
    Picture1->onMouseDown = Guarded([=, this](Qt::MouseButton button, TwipsPoint at) {
        const Button which = button == Qt::RightButton ? Button::Right : Button::Left;
        Follow(grid_.Press({which, at.x, at.y, shiftHeld()}));
    });
    Picture1->onMouseMove = Guarded([=, this](Qt::MouseButtons held, TwipsPoint at) {
        const Button which = held == Qt::NoButton ? Button::None : Button::Left;
        Follow(grid_.Move({which, at.x, at.y, shiftHeld()}));
    });
    Picture1->onMouseUp = Guarded([=, this](Qt::MouseButton button, TwipsPoint at) {
        const Button which = button == Qt::RightButton ? Button::Right : Button::Left;
        Follow(grid_.Release({which, at.x, at.y, shiftHeld()}));
    });
    Picture1->onMouseLeave = Guarded([this] {
        HighlightDay(0);
        markerX_ = -1;
        Picture2->update();
    });
}

void EmployeeForm::Follow(const AbsenceChange& change) {
    if (change.pressed) {
        markerX_ = -1;
        ShowUnderAgeNotice();
        Changed();
    }
    if (change.pointer) ports_.prompt.MousePointer(change.shape);
    if (change.hoverRow != 0) HighlightDay(change.hoverRow);
    if (change.markerMoved) markerX_ = change.markerX;
    if (change.row) Picture1->update();
    if (change.row || change.markerMoved || change.pressed) Picture2->update();
    if (change.menu) OpenGridMenu();
}

void EmployeeForm::OpenGridMenu() {
    OpenMenu(*this, gridCommands_, "Popup", Guarded([this](const std::string& command) {
        gridCommands_.Choose(command);
        Picture1->update();
    }));
}

void EmployeeForm::HighlightDay(int day) {
    if (day == highlightedDay_) return;
    highlightedDay_ = day;
    for (const auto& [d, label] : Label5) {
        const bool lit = d == day;
        label->SetColours(QBColor(lit ? 15 : 0), lit ? QBColor(9) : LightBlue);
    }
}

void EmployeeForm::ChooseColour(int colour) {
    currentBarColor_ = colour;
    Picture3->update();
    Changed();
}

} // namespace tvx::qt
