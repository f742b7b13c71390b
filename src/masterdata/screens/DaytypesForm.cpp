#include "masterdata/screens/DaytypesForm.h"

#include "editor/week/WeekEdit.h"

namespace tvx::qt {
namespace {

constexpr int SymbolLength = 2;
constexpr int NameLength = 14;
constexpr Twips WidestName = 1200;

} // namespace

DaytypesForm::DaytypesForm(GlobalState& g, Ports& ports, const DaytypesRequest& request, Form* owner)
    : ListForm(ports, "Form22", owner), g_(g), request_(request) {
    QVBoxLayout& column = Column();
    BuildList(column, "Label4", "Daytypes", "No daytypes yet. Choose \"Other activity...\", then \"Add\".");
    BuildBoxes(column);
    BuildMenu(column);
    column.addStretch();
    Label5 = &AddLabel("Label5", "", column);
    Label5->SetColours(QBColor(1), std::nullopt);
    BuildCommands(column, {"Command3D4", "Command3D2", "Command3D1"});
    pages_.ShowIn({Page::Menu, Page::List, Page::Taken, Page::Drop}, {task_}); // adding is told by a frame
    pages_.ShowIn({Page::List, Page::Taken, Page::Drop}, {List1});
    pages_.ShowIn({Page::Add, Page::Taken}, {Frame3D1, save_});
    pages_.ShowIn({Page::Taken}, {Label6});
    pages_.ShowIn({Page::Menu}, {Frame3D2});
    pages_.ShowIn({Page::Add, Page::List, Page::Taken, Page::Drop}, {other_});
    pages_.ShowIn({Page::Menu, Page::Add, Page::List, Page::Taken}, {Label5});
    FixSize(5400, 5700);
}

void DaytypesForm::BuildBoxes(QVBoxLayout& column) {
    Frame3D1 = &AddFrame("Frame3D1", "Daytype", column);
    Label6 = &Add<Label>("Label6", "", Frame3D1);
    Lines(*Frame3D1).addWidget(Label6, 0, 0, 1, 2);
    Text1 = &AddField("Text1", "Symbol", *Frame3D1);
    Text1->setMaximumWidth(Pixels(900));
    Lines(*Frame3D1).setAlignment(Text1, Qt::AlignLeft);
    Text2 = &AddField("Text2", "Explanation", *Frame3D1);
    SetBoxes({Text1, Text2});
    ConnectBoxes();
}

void DaytypesForm::ConnectBoxes() {
    Text1->SetTypingLimit(SymbolLength);
    Text1->rule = FilterSymbolPaste;
    Text1->onRefused = Guarded([this](int code) { FilterSymbolKey(code, ports_.prompt); });
    Text1->onEdited = [this] {
        WeekEdit(g_).Touch();
        if (Text1->text().size() >= SymbolLength) Text2->setFocus();
    };
    Text2->SetTypingLimit(NameLength);
    Text2->rule = [this](int code) { return FilterName(code); };
    Text2->onEnter = Guarded([this] {
        const bool filled = !Text1->Text().empty() && !Text2->Text().empty();
        if (filled) SaveOrDelete();
        Text1->setFocus();
    });
    Text2->rest = [this] {
        Text2->SetText(NormalizedExplanation(Text2->Text()));
        return true;
    };
}

void DaytypesForm::BuildMenu(QVBoxLayout& column) {
    Frame3D2 = &AddFrame("Frame3D2", "Other Daytype activity", column);
    auto& row = *new QHBoxLayout(Frame3D2);
    cmdAdd = &AddTask("cmdAdd", "&Add", ListRequest::Add, row, *Frame3D2);
    cmdChange = &AddTask("cmdChange", "C&hange", ListRequest::Change, row, *Frame3D2);
    cmdDelete = &AddTask("cmdDelete", "&Delete", ListRequest::Delete, row, *Frame3D2);
}

bool DaytypesForm::Opened() {
    if (request_.DayTypeRequest == ListRequest::None)
        ShowMenu();
    else
        Enter(request_.DayTypeRequest);
    return true;
}

void DaytypesForm::Announce(ListRequest task) {
    const bool dropping = task == ListRequest::Drop;
    setWindowTitle(dropping ? ToQString(DropTitle(g_.department, g_.roster, request_.employee))
                            : QStringLiteral(" Daytypes"));
    task_->SetText(Task(task));
    if (task == ListRequest::Add) Frame3D1->SetTitle("Add a Daytype ");
    ShowCount();
}

/// What is to be done, over the list.
std::string DaytypesForm::Task(ListRequest task) const {
    switch (task) {
    case ListRequest::Change:
        return "Select the Daytype to change";
    case ListRequest::Delete:
        return "Delete the Daytype";
    case ListRequest::Drop:
        return "Select Daytype for " + DropDateText(g_, ports_.region, request_.day);
    default:
        return "";
    }
}

void DaytypesForm::ShowMenu() {
    setWindowTitle(QStringLiteral(" Daytypes"));
    pages_.Show(Page::Menu);
    task_->SetText("The current number of Daytypes is:" + std::to_string(g_.daytypes.DayTypeCount));
    ShowCount();
    cmdAdd->setEnabled(g_.daytypes.DayTypeCount < DaytypesOffered);
    cmdChange->setEnabled(g_.daytypes.DayTypeCount != 0);
    cmdDelete->setEnabled(g_.daytypes.DayTypeCount != 0);
    (cmdAdd->isEnabled() ? cmdAdd : cmdChange)->setFocus();
}

/// The count as it stands on the face of the form.
void DaytypesForm::ShowCount() {
    Label5->SetText("Current number of Daytypes= " + std::to_string(g_.daytypes.DayTypeCount));
}

void DaytypesForm::FillBoxes(int index) {
    oldSymbol_ = g_.daytypes.DayTypeSymbols[index];
    Text1->SetText(oldSymbol_);
    Text2->SetText(g_.daytypes.DayTypeNames[index]);
}

void DaytypesForm::AnnounceTaken(bool deleting) {
    Frame3D1->SetTitle(deleting ? "Daytype to be deleted" : "Change the Daytype");
    Label6->SetText(deleting ? "Daytype to be deleted" : " Change the  Daytype and Save");
}

int DaytypesForm::FilterName(int code) const {
    const QString soFar = ToQString(Text2->TextSoFar()).trimmed();
    const int width = Text2->fontMetrics().horizontalAdvance(soFar);
    return ToTwips(width) >= WidestName ? 0 : code;
}

SaveResult DaytypesForm::Save(ListRequest task, int) {
    const int index = IndexOfDaytype(g_.daytypes, oldSymbol_); // a refusal has read the list anew
    Text2->SetText(NormalizedExplanation(Text2->Text()));
    switch (task) {
    case ListRequest::Change:
        return ChangeDaytype(g_.store, g_.department, g_.daytypes, ports_.prompt, index, Text1->Text(),
                             Text2->Text());
    case ListRequest::Delete:
        return DeleteDaytype(g_.store, g_.department, g_.daytypes, ports_.prompt, index);
    default:
        return AddDaytype(g_.store, g_.department, g_.daytypes, ports_.prompt, Text1->Text(), Text2->Text());
    }
}

} // namespace tvx::qt
