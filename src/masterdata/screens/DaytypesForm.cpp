#include "masterdata/screens/DaytypesForm.h"

#include "platform/basic/Text.h"
#include "shell/Conversions.h"
#include "shell/TVXMOD1.h"

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
    column->addWidget(List1, 1);
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
    Text1->SetTypingLimit(SymbolLength);
    Text1->setMaximumWidth(Pixels(900));
    Text1->keyFilter = Guarded([this](int code) {
        if (code == key::Enter) return 0;
        const int taken = FilterSymbolKey(code, ports_.prompt);
        if (taken != 0 && taken != key::Backspace) g_.week.WeekChanged = true;
        return taken;
    });
    Text1->pasteFilter = FilterSymbolPaste;
    On(*Text1, &QLineEdit::textEdited, [this](const QString& text) {
        if (text.size() >= SymbolLength) Text2->setFocus();
    });
    grid->addWidget(Text1, 1, 1, Qt::AlignLeft);
    caption("Explanation", 2);
    Text2 = &Add<TextBox>("Text2", "Explanation", Frame3D1);
    Text2->SetTypingLimit(NameLength);
    Text2->keyFilter = [this](int code) { return FilterName(code); };
    Text2->pasteFilter = [](int code) { return code; };
    Text2->onEnter = [this] { Text1->setFocus(); };
    Text2->onLeave = [this] { Text2->SetText(NormalizedExplanation(Text2->Text())); };
    grid->addWidget(Text2, 2, 1);
    column.addWidget(Frame3D1);
}

void DaytypesForm::BuildMenuFrame(QVBoxLayout& column) {
    Frame3D2 = &Add<Frame>("Frame3D2", "Other Daytype activity");
    Frame3D2->SetTitle("Other Daytype activity");
    auto* lines = new QVBoxLayout(Frame3D2);
    Label5 = &Add<Label>("Label5", "", Frame3D2);
    lines->addWidget(Label5);
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const char* text, Mode mode) {
        auto& button = Add<QPushButton>(name, "", Frame3D2);
        button.setText(QLatin1String(text));
        row->addWidget(&button);
        On(button, &QPushButton::clicked, [=, this] { Enter(mode); });
        return &button;
    };
    cmdAdd = add("cmdAdd", "&Add", Mode::Add);
    cmdChange = add("cmdChange", "C&hange", Mode::Change);
    cmdDelete = add("cmdDelete", "&Delete", Mode::Delete);
    lines->addLayout(row);
    column.addWidget(Frame3D2);
}

void DaytypesForm::BuildButtons(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const char* text) {
        auto& button = Add<QPushButton>(name, "");
        button.setText(QLatin1String(text));
        row->addWidget(&button);
        return &button;
    };
    Command3D4 = add("Command3D4", "&Other activity...");
    row->addStretch();
    Command3D2 = add("Command3D2", "&Save");
    Command3D1 = add("Command3D1", "&Close");
    column.addLayout(row);
    On(*Command3D4, &QPushButton::clicked, [this] { ShowMenuPage(); });
    On(*Command3D2, &QPushButton::clicked, [this] { SaveOrDelete(); });
    On(*Command3D1, &QPushButton::clicked, [this] { Unload(); });
    SetCancelButton(*Command3D1);
}

void DaytypesForm::Activated() {
    switch (static_cast<ListRequest>(g_.listDialog.DayTypeRequest)) {
    case ListRequest::Add:
        return Enter(Mode::Add);
    case ListRequest::Change:
        return Enter(Mode::Change);
    case ListRequest::Delete:
        return Enter(Mode::Delete);
    case ListRequest::Drop:
        return Enter(Mode::Drop);
    case ListRequest::None:
        break;
    }
    ShowMenuPage();
}

/// "Monday, 2-Mar-2026" of the cell that is to be filled.
std::string DaytypesForm::CellText() const {
    const DaySerial date = g_.week.WeekStartJulian + g_.week.CurrentDay - 1;
    return ports_.region.Names().weekdays[Weekday(date)] + ", " +
           DateText(date, g_.application.DateFormatSetting, ports_.region);
}

void DaytypesForm::Enter(Mode mode) {
    mode_ = mode;
    selected_ = 0;
    EmptyBoxes();
    Frame3D2->hide();
    const bool list = mode != Mode::Add;
    List1->setVisible(list);
    if (list) ShowList();
    ShowBoxes(mode == Mode::Add);
    Command3D4->setVisible(mode == Mode::Drop);
    Command3D2->setText(mode == Mode::Delete ? QStringLiteral("&Delete") : QStringLiteral("&Save"));
    Label6->SetText("");
    switch (mode) {
    case Mode::Add:
        Frame3D1->SetTitle("Add a Daytype ");
        Label4->SetText("Current number of Daytypes= " + std::to_string(g_.daytypes.DayTypeCount));
        Text1->setFocus();
        break;
    case Mode::Change:
        Label4->SetText("Select the Daytype to change");
        break;
    case Mode::Delete:
        Label4->SetText("Delete the Daytype");
        break;
    case Mode::Drop: {
        const int e = g_.week.CurrentEmployee;
        setWindowTitle(ToQString(g_.department.CurrentDepName + ": " + g_.roster.RosterName1[e] + " " +
                                 g_.roster.RosterName2[e]));
        Label4->SetText("Select Daytype for " + CellText());
        break;
    }
    case Mode::None:
        break;
    }
    if (list) List1->setFocus();
}

void DaytypesForm::ShowMenuPage() {
    mode_ = Mode::None;
    ShowBoxes(false);
    List1->hide();
    Command3D4->hide();
    Frame3D2->show();
    Label5->SetText("The current number of Daytypes is:" + std::to_string(g_.daytypes.DayTypeCount));
    Label4->SetText("Current number of Daytypes= " + std::to_string(g_.daytypes.DayTypeCount));
    cmdAdd->setEnabled(g_.daytypes.DayTypeCount < DaytypesOffered);
    cmdChange->setEnabled(g_.daytypes.DayTypeCount != 0);
    cmdDelete->setEnabled(g_.daytypes.DayTypeCount != 0);
    cmdAdd->setFocus();
}

void DaytypesForm::ShowList() {
    List1->Fill(DaytypeRows(g_.daytypes));
    if (List1->count() > 0) List1->setCurrentRow(0);
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
        DropDaytype(g_, index, g_.week.CurrentDay);
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
    Text1->setReadOnly(deleting);
    Text2->setReadOnly(deleting);
    if (deleting)
        Command3D2->setFocus();
    else
        Text1->setFocus();
}

int DaytypesForm::FilterName(int code) const {
    if (code == key::Enter || code == key::Backspace) return code;
    const int width = Text2->fontMetrics().horizontalAdvance(Text2->text().trimmed());
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
    LoadDayTypes(g_.store, g_.department.CurrentDepNumber, g_.daytypes);
    if (mode_ == Mode::Change || g_.daytypes.DayTypeCount > DaytypesOffered) {
        Unload();
        return;
    }
    EmptyBoxes();
    Label4->SetText("Current number of Daytypes= " + std::to_string(g_.daytypes.DayTypeCount));
    Text1->setFocus();
}

} // namespace tvx::qt
