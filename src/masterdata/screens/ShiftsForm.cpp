#include "masterdata/screens/ShiftsForm.h"

namespace tvx::qt {
namespace {

constexpr int NameLength = 30;
constexpr int DoubleQuote = 34;
constexpr int FirstIndexNotPicked = 21;

} // namespace

ShiftsForm::ShiftsForm(GlobalState& g, Ports& ports, const ShiftsRequest& request, Form* owner)
    : ListForm(ports, "Form23", owner), g_(g), request_(request) {
    QVBoxLayout& column = Column();
    BuildList(
        column, "Label1", "Stored shifts",
        "No shifts stored yet. To store one, press the right button on a day with hours and choose \"Add "
        "to standard Shifts\".");
    BuildName(column);
    BuildMenu(column);
    column.addStretch();
    BuildCommands(column, {"OptionsCMD", "SaveCMD", "ExitCMD"});
    pages_.ShowIn({Page::List, Page::Taken, Page::Drop}, {task_, List1});
    pages_.ShowIn({Page::Add, Page::Menu, Page::Taken}, {Frame1, save_});
    pages_.ShowIn({Page::Menu, Page::DropMenu}, {OtherActFRAME}); // beside the name of the one to add
    pages_.ShowIn({Page::Add, Page::Drop}, {other_});             // with twenty stored none can be added
    FixSize(5400, 5100);
}

void ShiftsForm::BuildName(QVBoxLayout& column) {
    Frame1 = &AddFrame("Frame1", "Store this shift for later use ", column);
    auto& lines = *new QVBoxLayout(Frame1);
    Label2 = &AddLabel("Label2", "", lines, Frame1);
    Text1 = &Add<TextBox>("Text1", "Name of the shift", Frame1);
    Text1->SetTypingLimit(NameLength);
    Text1->rule = [](int code) { return code == DoubleQuote ? 0 : code; };
    Text1->onEnter = Guarded([this] { SaveOrDelete(); });
    lines.addWidget(Text1);
    SetBoxes({Text1});
}

void ShiftsForm::BuildMenu(QVBoxLayout& column) {
    OtherActFRAME = &AddFrame("OtherActFRAME", "Other Shift activity", column);
    auto& lines = *new QVBoxLayout(OtherActFRAME);
    Label3 = &AddLabel("Label3", "", lines, OtherActFRAME);
    QHBoxLayout& row = Row(lines);
    cmdChange = &AddTask("cmdChange", "C&hange name", ListRequest::Change, row, *OtherActFRAME);
    cmdDelete = &AddTask("cmdDelete", "&Delete", ListRequest::Delete, row, *OtherActFRAME);
}

bool ShiftsForm::Opened() {
    const ListRequest asked = request_.DayTypeRequest;
    Enter(asked == ListRequest::None ? ListRequest::Add : asked);
    return true;
}

void ShiftsForm::Announce(ListRequest task) {
    // What is changed or deleted has been stored long ago.
    Frame1->SetTitle(task == ListRequest::Add ? "Store this shift for later use " : "");
    switch (task) {
    case ListRequest::Change:
        return AnnounceList("Select the shift to change", "Select the shift to change");
    case ListRequest::Delete:
        return AnnounceList("Select the shift to delete", "Select the Shift name you wish to delete");
    case ListRequest::Drop:
        AnnounceList("Select the shift to enter",
                     "Select Shift name for " + DropDateText(g_, ports_.region, request_.day));
        return setWindowTitle(ToQString(DropTitle(g_.department, g_.roster, request_.employee)));
    default:
        setWindowTitle(QStringLiteral("Put a shift in storage for later copy"));
        Label2->SetText("Name of the shift");
    }
}

void ShiftsForm::AnnounceList(const char* title, const std::string& task) {
    setWindowTitle(QLatin1String(title));
    List1->setAccessibleName(QLatin1String(title));
    task_->SetText(task);
}

void ShiftsForm::AnnounceTaken(bool deleting) {
    task_->SetText(deleting ? "Shift to be deleted " : " Change the  Shift name and Save");
    Label2->SetText(deleting ? "Shift to be deleted " : "Change the Shift name and Save");
}

void ShiftsForm::ShowMenu() {
    const bool picking = request_.DayTypeRequest == ListRequest::Drop;
    pages_.Show(picking ? Page::DropMenu : Page::Menu);
    cmdChange->setEnabled(g_.shifts.ShiftCount != 0);
    cmdDelete->setEnabled(g_.shifts.ShiftCount != 0);
    cmdChange->isEnabled() ? cmdChange->setFocus() : Text1->setFocus();
    Label3->SetText("The current number of Shifts to copy is:" + std::to_string(g_.shifts.ShiftCount));
}

bool ShiftsForm::MayPick(int index) const {
    return index < FirstIndexNotPicked;
}

SaveResult ShiftsForm::Save(ListRequest task, int index) {
    switch (task) {
    case ListRequest::Change:
        return RenameShift(g_.paths, g_.department, g_.shifts, ports_.prompt, index, Text1->Text());
    case ListRequest::Delete:
        return DeleteShift(g_.paths, g_.department, g_.shifts, ports_.prompt, index);
    default:
        return AddShift(g_.paths, g_.department, g_.shifts, ports_.prompt, Text1->Text());
    }
}

} // namespace tvx::qt
