#include "masterdata/screens/ShiftsForm.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tvx::qt {
namespace {

constexpr int NameLength = 30;
constexpr int DoubleQuote = 34;
constexpr int FirstIndexNotPicked = 21;

} // namespace

ShiftsForm::ShiftsForm(GlobalState& g, Ports& ports, Form* owner) : Form(ports, "Form23", owner), g_(g) {
    auto* column = new QVBoxLayout(&Face());
    column->setContentsMargins(Pixels(240), Pixels(180), Pixels(240), Pixels(180));
    column->setSpacing(Pixels(120));
    Label1 = &Add<Label>("Label1", "");
    column->addWidget(Label1);
    List1 = &Add<ListBox>("List1", "Stored shifts");
    List1->onChoose = Guarded([this](int index) { TakeRow(index); });
    column->addWidget(List1, 1000); // all the room while it shows
    BuildNameFrame(*column);
    BuildOtherFrame(*column);
    column->addStretch();
    BuildButtons(*column);
    setFixedSize(Pixels(5400), Pixels(5100));
    CenterForm();
}

void ShiftsForm::BuildNameFrame(QVBoxLayout& column) {
    Frame1 = &Add<Frame>("Frame1", "Store this shift for later use ");
    auto* lines = new QVBoxLayout(Frame1);
    Label2 = &Add<Label>("Label2", "", Frame1);
    lines->addWidget(Label2);
    Text1 = &Add<TextBox>("Text1", "Name of the shift", Frame1);
    Text1->SetTypingLimit(NameLength);
    Text1->rule = [](int code) { return code == DoubleQuote ? 0 : code; };
    Text1->onEnter = Guarded([this] { SaveOrDelete(); });
    lines->addWidget(Text1);
    column.addWidget(Frame1);
}

void ShiftsForm::BuildOtherFrame(QVBoxLayout& column) {
    OtherActFRAME = &Add<Frame>("OtherActFRAME", "Other Shift activity");
    OtherActFRAME->SetTitle("Other Shift activity");
    auto* lines = new QVBoxLayout(OtherActFRAME);
    Label3 = &Add<Label>("Label3", "", OtherActFRAME);
    lines->addWidget(Label3);
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const char* text, Mode mode) {
        return &AddCommand({name, text, [=, this] { Enter(mode); }}, *row, OtherActFRAME);
    };
    cmdChange = add("cmdChange", "C&hange name", Mode::Change);
    cmdDelete = add("cmdDelete", "&Delete", Mode::Delete);
    lines->addLayout(row);
    column.addWidget(OtherActFRAME);
}

void ShiftsForm::BuildButtons(QVBoxLayout& column) {
    QHBoxLayout& row = Row(column);
    OptionsCMD = &AddCommand({"OptionsCMD", "&Other activity...", [this] { ShowOther(); }}, row);
    row.addStretch();
    SaveCMD = &AddCommand({"SaveCMD", "&Save", [this] { SaveOrDelete(); }}, row);
    ExitCMD = &AddCommand({"ExitCMD", "&Close", [this] { Leave(); }, Role::Cancel}, row);
}

bool ShiftsForm::Opened() {
    switch (static_cast<ListRequest>(g_.listDialog.DayTypeRequest)) {
    case ListRequest::Change:
        Enter(Mode::Change);
        break;
    case ListRequest::Delete:
        Enter(Mode::Delete);
        break;
    case ListRequest::Drop:
        Enter(Mode::Drop);
        break;
    default:
        Enter(Mode::Add);
        break;
    }
    return true;
}

void ShiftsForm::Enter(Mode mode) {
    mode_ = mode;
    Text1->clear();
    Text1->setReadOnly(false);
    OtherActFRAME->hide();
    // What is changed or deleted has been stored long ago.
    Frame1->SetTitle(mode == Mode::Add ? "Store this shift for later use " : "");
    SaveCMD->setText(mode == Mode::Delete ? QStringLiteral("&Delete") : QStringLiteral("&Save"));
    switch (mode) {
    case Mode::Add:
        return EnterAdd();
    case Mode::Change:
        return EnterList("Select the shift to change", "Select the shift to change");
    case Mode::Delete:
        return EnterList("Select the shift to delete", "Select the Shift name you wish to delete");
    case Mode::Drop:
        break;
    }
    EnterList("Select the shift to enter", "Select Shift name for " + DropDateText(g_, ports_.region));
    setWindowTitle(ToQString(DropTitle(g_)));
}

void ShiftsForm::EnterAdd() {
    setWindowTitle(QStringLiteral("Put a shift in storage for later copy"));
    Label1->hide();
    List1->hide();
    Frame1->show();
    Label2->SetText("Name of the shift");
    OptionsCMD->show();
    SaveCMD->show();
    Text1->setFocus();
}

void ShiftsForm::EnterList(const char* title, const std::string& label) {
    setWindowTitle(QLatin1String(title));
    List1->setAccessibleName(QLatin1String(title));
    Label1->SetText(label);
    Label1->show();
    Frame1->hide();
    SaveCMD->hide();
    OptionsCMD->hide();
    List1->Fill(ShiftRows(g_.shifts));
    List1->show();
    if (List1->count() > 0) List1->setCurrentRow(0);
    List1->setFocus();
}

void ShiftsForm::ShowOther() {
    OtherActFRAME->show();
    cmdChange->setEnabled(g_.shifts.ShiftCount != 0);
    cmdDelete->setEnabled(g_.shifts.ShiftCount != 0);
    cmdChange->isEnabled() ? cmdChange->setFocus() : Text1->setFocus();
    OptionsCMD->hide();
    Label3->SetText("The current number of Shifts to copy is:" + std::to_string(g_.shifts.ShiftCount));
}

void ShiftsForm::TakeRow(int index) {
    if (mode_ == Mode::Drop) {
        if (index >= FirstIndexNotPicked) return;
        g_.listDialog.SelectedDayType = index;
        Unload();
        return;
    }
    g_.listDialog.SelectedDayType = index;
    Text1->SetText(g_.shifts.ShiftNames[index]);
    Frame1->show();
    SaveCMD->show();
    const bool deleting = mode_ == Mode::Delete;
    Text1->setReadOnly(deleting);
    Label1->SetText(deleting ? "Shift to be deleted " : " Change the  Shift name and Save");
    Label2->SetText(deleting ? "Shift to be deleted " : "Change the Shift name and Save");
    if (deleting)
        SaveCMD->setFocus();
    else
        Text1->setFocus();
}

void ShiftsForm::SaveOrDelete() {
    const int index = g_.listDialog.SelectedDayType;
    switch (mode_) {
    case Mode::Add:
        return Follow(AddShift(g_, ports_.prompt, Text1->Text()));
    case Mode::Change:
        return Follow(RenameShift(g_, ports_.prompt, index, Text1->Text()));
    case Mode::Delete:
        return Follow(DeleteShift(g_, ports_.prompt, index));
    case Mode::Drop:
        return;
    }
}

void ShiftsForm::Follow(ShiftResult result) {
    if (result == ShiftResult::InUse) {
        Text1->clear();
        Text1->setFocus();
    }
    if (result != ShiftResult::Done) return;
    g_.listDialog.DayTypeRequest = 0;
    Unload();
}

void ShiftsForm::Leave() {
    g_.listDialog.DayTypeRequest = 0; // tells the editor that nothing was picked
    Unload();
}

bool ShiftsForm::MayUnload() {
    g_.listDialog.DayTypeRequest = 0;
    return true;
}

} // namespace tvx::qt
