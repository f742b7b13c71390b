#include "masterdata/screens/DaytypesForm.h"

#include "editor/week/WeekEdit.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tvx::qt {
namespace {

constexpr int SymbolLength = 2;
constexpr int NameLength = 14;
constexpr Twips WidestName = 1200;

} // namespace

DaytypesForm::DaytypesForm(GlobalState& g, Ports& ports, Form* owner) : Form(ports, "Form22", owner), g_(g) {
    setWindowTitle(QStringLiteral(" Daytypes"));
    auto* column = new QVBoxLayout(&Face());
    column->setContentsMargins(Pixels(240), Pixels(180), Pixels(240), Pixels(180));
    column->setSpacing(Pixels(120));
    Label4 = &Add<Label>("Label4", "");
    column->addWidget(Label4);
    List1 = &Add<ListBox>("List1", "Daytypes");
    List1->onChoose = Guarded([this](int index) { TakeRow(index); });
    column->addWidget(List1, 1000); // all the room while it shows
    BuildEditFrame(*column);
    BuildMenuFrame(*column);
    BuildButtons(*column);
    setFixedSize(Pixels(5400), Pixels(5700));
    CenterForm();
}

void DaytypesForm::BuildEditFrame(QVBoxLayout& column) {
    Frame3D1 = &Add<Frame>("Frame3D1", "Daytype");
    auto* grid = new QGridLayout(Frame3D1);
    const auto caption = [&](const char* text, int line) {
        auto& label = Add<Label>("", "", Frame3D1);
        label.SetText(text);
        grid->addWidget(&label, line, 0);
    };
    Label6 = &Add<Label>("Label6", "", Frame3D1);
    grid->addWidget(Label6, 0, 0, 1, 2);
    caption("Symbol", 1);
    Text1 = &Add<TextBox>("Text1", "Symbol", Frame3D1);
    Text1->setMaximumWidth(Pixels(900));
    grid->addWidget(Text1, 1, 1, Qt::AlignLeft);
    caption("Explanation", 2);
    Text2 = &Add<TextBox>("Text2", "Explanation", Frame3D1);
    grid->addWidget(Text2, 2, 1);
    column.addWidget(Frame3D1);
    ConnectSymbol();
    ConnectName();
}

void DaytypesForm::ConnectSymbol() {
    Text1->SetTypingLimit(SymbolLength);
    Text1->rule = FilterSymbolPaste;
    Text1->onRefused = Guarded([this](int code) { FilterSymbolKey(code, ports_.prompt); });
    Text1->onEdited = [this] {
        WeekEdit(g_).Touch();
        if (Text1->text().size() >= SymbolLength) Text2->setFocus();
    };
}

void DaytypesForm::ConnectName() {
    Text2->SetTypingLimit(NameLength);
    Text2->rule = [this](int code) { return FilterName(code); };
    Text2->onEnter = [this] { Text1->setFocus(); };
    Text2->rest = [this] {
        Text2->SetText(NormalizedExplanation(Text2->Text()));
        return true;
    };
}

void DaytypesForm::BuildMenuFrame(QVBoxLayout& column) {
    Frame3D2 = &Add<Frame>("Frame3D2", "Other Daytype activity");
    Frame3D2->SetTitle("Other Daytype activity");
    auto* row = new QHBoxLayout(Frame3D2);
    const auto add = [&](const char* name, const char* text, Mode mode) {
        return &AddCommand({name, text, [=, this] { Enter(mode); }}, *row, Frame3D2);
    };
    cmdAdd = add("cmdAdd", "&Add", Mode::Add);
    cmdChange = add("cmdChange", "C&hange", Mode::Change);
    cmdDelete = add("cmdDelete", "&Delete", Mode::Delete);
    column.addWidget(Frame3D2);
    column.addStretch();
    Label5 = &Add<Label>("Label5", "");
    Label5->SetColours(QBColor(1), std::nullopt);
    column.addWidget(Label5);
}

void DaytypesForm::BuildButtons(QVBoxLayout& column) {
    QHBoxLayout& row = Row(column);
    Command3D4 = &AddCommand({"Command3D4", "&Other activity...", [this] { ShowMenuPage(); }}, row);
    row.addStretch();
    Command3D2 = &AddCommand({"Command3D2", "&Save", [this] { SaveOrDelete(); }}, row);
    Command3D1 = &AddCommand({"Command3D1", "&Close", [this] { Unload(); }, Role::Cancel}, row);
}

bool DaytypesForm::Opened() {
    switch (static_cast<ListRequest>(g_.listDialog.DayTypeRequest)) {
    case ListRequest::Add:
        Enter(Mode::Add);
        break;
    case ListRequest::Change:
        Enter(Mode::Change);
        break;
    case ListRequest::Delete:
        Enter(Mode::Delete);
        break;
    case ListRequest::Drop:
        Enter(Mode::Drop);
        break;
    case ListRequest::None:
        ShowMenuPage();
        break;
    }
    return true;
}

void DaytypesForm::Enter(Mode mode) {
    mode_ = mode;
    selected_ = 0;
    EmptyBoxes();
    Text1->setReadOnly(false); // the one to be deleted was only shown
    Text2->setReadOnly(false);
    Frame3D2->hide();
    Command3D4->show();
    ShowBoxes(mode == Mode::Add);
    List1->setVisible(mode != Mode::Add);
    Label5->setVisible(mode != Mode::Drop);
    Command3D2->setText(mode == Mode::Delete ? QStringLiteral("&Delete") : QStringLiteral("&Save"));
    setWindowTitle(mode == Mode::Drop ? ToQString(DropTitle(g_)) : QStringLiteral(" Daytypes"));
    Label4->SetText(Task(mode));
    Label4->setVisible(mode != Mode::Add); // its frame says it
    Label6->hide();
    if (mode == Mode::Add)
        EnterAdd();
    else
        ShowList();
}

/// What is to be done, over the list or the boxes.
std::string DaytypesForm::Task(Mode mode) const {
    switch (mode) {
    case Mode::Change:
        return "Select the Daytype to change";
    case Mode::Delete:
        return "Delete the Daytype";
    case Mode::Drop:
        return "Select Daytype for " + DropDateText(g_, ports_.region);
    default:
        return "";
    }
}

void DaytypesForm::EnterAdd() {
    Frame3D1->SetTitle("Add a Daytype ");
    ShowCount();
    Text1->setFocus();
}

void DaytypesForm::ShowMenuPage() {
    mode_ = Mode::None;
    setWindowTitle(QStringLiteral(" Daytypes"));
    ShowBoxes(false);
    List1->hide();
    Command3D4->hide();
    Frame3D2->show();
    Label5->show();
    Label4->show();
    Label4->SetText("The current number of Daytypes is:" + std::to_string(g_.daytypes.DayTypeCount));
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

void DaytypesForm::ShowList() {
    ShowCount();
    List1->Fill(DaytypeRows(g_.daytypes));
    if (List1->count() > 0) List1->setCurrentRow(0);
    List1->setFocus();
}

void DaytypesForm::ShowBoxes(bool shown) {
    Frame3D1->setVisible(shown);
    Command3D2->setVisible(shown);
}

void DaytypesForm::EmptyBoxes() {
    Text1->clear();
    Text2->clear();
}

void DaytypesForm::TakeRow(int index) {
    if (mode_ == Mode::Drop) {
        g_.listDialog.SelectedDayType = index;
        DropDaytype(g_, index);
        Unload();
        return;
    }
    selected_ = index;
    Text1->SetText(g_.daytypes.DayTypeSymbols[index]);
    Text2->SetText(g_.daytypes.DayTypeNames[index]);
    ShowBoxes(true);
    const bool deleting = mode_ == Mode::Delete;
    Frame3D1->SetTitle(deleting ? "Daytype to be deleted" : "Change the Daytype");
    Label6->SetText(deleting ? "Daytype to be deleted" : " Change the  Daytype and Save");
    Label6->show();
    Text1->setReadOnly(deleting);
    Text2->setReadOnly(deleting);
    if (deleting)
        Command3D2->setFocus();
    else
        Text1->setFocus();
}

int DaytypesForm::FilterName(int code) const {
    const QString soFar = ToQString(Text2->TextSoFar()).trimmed();
    const int width = Text2->fontMetrics().horizontalAdvance(soFar);
    return ToTwips(width) >= WidestName ? 0 : code;
}

void DaytypesForm::SaveOrDelete() {
    Text2->SetText(NormalizedExplanation(Text2->Text()));
    switch (mode_) {
    case Mode::Add:
        return Follow(AddDaytype(g_, ports_.prompt, Text1->Text(), Text2->Text()));
    case Mode::Change:
        return Follow(ChangeDaytype(g_, ports_.prompt, selected_, Text1->Text(), Text2->Text()));
    case Mode::Delete:
        DeleteDaytype(g_, selected_);
        Unload();
        return;
    default:
        return;
    }
}

void DaytypesForm::Follow(DaytypeResult result) {
    if (result == DaytypeResult::Incomplete) return;
    if (result == DaytypeResult::InUse) {
        Text1->clear();
        Text1->setFocus();
        return;
    }
    if (mode_ == Mode::Change || g_.daytypes.DayTypeCount > DaytypesOffered) {
        Unload();
        return;
    }
    EmptyBoxes();
    ShowCount();
    Text1->setFocus();
}

} // namespace tvx::qt
