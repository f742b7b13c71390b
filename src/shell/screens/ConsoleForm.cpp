#include "shell/screens/ConsoleForm.h"

#include "editor/EditorRequest.h"
#include "masterdata/DepartmentRequest.h"
#include "masterdata/Departments.h"
#include "masterdata/EmployeeRequest.h"
#include "masterdata/EmployeeSearch.h"
#include "masterdata/SearchRequest.h"
#include "platform/dao/DaoError.h"
#include "shell/common/TVXMOD1.h"
#include "shell/console/Passwords.h"
#include "shell/screens/AboutForm.h"
#include "shell/screens/Banner.h"
#include "shell/screens/SplashForm.h"
#include "shell/screens/TipForm.h"

#include <QApplication>
#include <QPainter>

namespace tvx::qt {
namespace {

constexpr Twips Width = 8350;
constexpr Twips Height = 4100;
constexpr Twips BannerHeight = 1900;
constexpr Twips Margin = 705;
constexpr Twips PromptTop = 2150;
constexpr Twips LineHeight = 390;
constexpr Twips ButtonsRight = 8010;
constexpr Twips PrintedTop = 3000;

/// A control that hides leaves its place empty.
void KeepPlace(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

} // namespace

ConsoleForm::ConsoleForm(GlobalState& g, Ports& ports, const Screens& screens)
    : Form(ports, "Form2", nullptr), g_(g), screens_(screens),
      commands_(ConsoleCommands(g.rights, g.departments, g.department, *this)) {
    menus_ = std::make_unique<MenuRenderer>(
        Menus(), commands_.Entries("MenuBar"),
        Guarded([this](const std::string& command) { commands_.Choose(command); }));
    Build();
    Connect();
}

LoadResult ConsoleForm::Load() {
    resize(Pixels(20), Pixels(20)); // out of sight while it loads
    const LoadResult result = LoadConsole(g_, ports_, model_);
    ShowFace();
    return result;
}

/// Under the banner a line that asks for a department or a password; the rest is printed text.
void ConsoleForm::Build() {
    QVBoxLayout& column = Column();
    column.setContentsMargins(Pixels(Margin), Pixels(PromptTop), Pixels(Width - ButtonsRight), 0);
    column.setSpacing(0);
    Label1 = &AddLabel("Label1", "Type in password....  press Enter...", column);
    Label1->setFixedHeight(Pixels(300));
    KeepPlace(*Label1);
    column.addSpacing(Pixels(60));
    QHBoxLayout& row = Row(column);
    row.setSpacing(0);
    BuildDepartment(row);
    BuildButtons(row);
    column.addStretch();
}

void ConsoleForm::BuildDepartment(QBoxLayout& row) {
    Frame1 = &Add<QWidget>("Frame1", "Department");
    auto& choice = *new QHBoxLayout(Frame1);
    choice.setContentsMargins(0, 0, 0, 0);
    Label2 = &Add<Label>("Label2", "Department", Frame1);
    Label2->SetAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label2->setFixedSize(Pixels(3500), Pixels(LineHeight));
    Combo1 = &Add<QComboBox>("Combo1", "Department", Frame1);
    Combo1->setFixedSize(Pixels(3300), Pixels(LineHeight));
    choice.addWidget(Label2);
    choice.addWidget(Combo1);
    choice.addStretch();
    Text3 = &Add<TextBox>("Text3", "Password");
    Text3->setEchoMode(QLineEdit::Password);
    Text3->SetTypingLimit(12);
    Text3->setFixedSize(Pixels(2400), Pixels(LineHeight));
    row.addWidget(Frame1);
    row.addWidget(Text3);
    row.addStretch();
}

void ConsoleForm::BuildButtons(QBoxLayout& row) {
    QFont small = font();
    small.setPointSizeF(8.25); // the caption carries a department's name
    const auto add = [&](const char* name, Twips width) {
        const std::string command = name;
        QPushButton& button = AddCommand({name, "", [=, this] { commands_.Choose(command); }}, row);
        button.setFixedSize(Pixels(width), Pixels(LineHeight));
        button.setFont(small);
        return &button;
    };
    cmdSchedule = add("cmdSchedule", 2490); // its caption names it
    row.addSpacing(Pixels(120));
    cmdExit = add("cmdExit", 1000);
    cmdExit->setText(ToQString(commands_["cmdExit"].caption));
    SetDefaultButton(*cmdSchedule);
}

void ConsoleForm::Connect() {
    On(*Combo1, &QComboBox::activated, [this](int index) { ChooseFromCombo(index); });
    Text3->rule = PromptKey;
    Text3->onRefused = [this](int) { ports_.prompt.Beep(); };
    Text3->onEnter = Guarded([this] { LogIn(); });
}

void ConsoleForm::ShowFace() {
    ShowCommands();
    setWindowTitle(ToQString(model_.title));
    Label2->SetText(model_.Label2);
    Label2->setVisible(model_.Label2Visible);
    Combo1->clear();
    for (const std::string& name : model_.Combo1) Combo1->addItem(ToQString(name));
    Combo1->setCurrentIndex(model_.Combo1Index);
    Combo1->setVisible(model_.Combo1Visible);
    Frame1->setVisible(model_.Frame1Visible);
    Label1->setVisible(model_.PromptVisible);
    Text3->setVisible(model_.PromptVisible);
    update();
}

void ConsoleForm::ShowCommands() {
    menus_->Show(commands_.Entries("MenuBar"));
    const MenuEntry schedule = commands_.Entry("cmdSchedule");
    ShowScheduleCaption(ToQString(schedule.caption));
    cmdSchedule->setEnabled(schedule.enabled);
}

/// A department's name may be longer than the button: its end gives way, and the hint tells the whole.
void ConsoleForm::ShowScheduleCaption(const QString& caption) {
    constexpr Twips Margin = 90;
    const int room = cmdSchedule->width() - 2 * Pixels(Margin);
    const QString shown = cmdSchedule->fontMetrics().elidedText(caption, Qt::ElideRight, room);
    cmdSchedule->setText(shown);
    cmdSchedule->setToolTip(shown == caption ? QString() : caption);
}

void ConsoleForm::CameBack() {
    ActivateConsole(g_, ports_, model_);
    ShowFace();
}

bool ConsoleForm::Opened() {
    CameBack();
    Face().setFixedSize(Pixels(Width), Pixels(Height) - Menus().sizeHint().height());
    adjustSize();
    setFixedSize(sizeHint());
    CenterForm();
    if (model_.PromptVisible)
        Text3->setFocus();
    else
        cmdSchedule->setFocus();
    return true;
}

bool ConsoleForm::MayUnload() {
    EndRun();
    return true;
}

void ConsoleForm::EndRun() {
    CloseDatabase(g_.store, ports_.prompt);
    QApplication::quit();
}

void ConsoleForm::ShowAbout() {
    AboutForm(g_, ports_, this).ShowModal();
}

void ConsoleForm::ShowQuestions() {
    ports_.help.ShowTopic(help::Questions);
}

void ConsoleForm::ShowConflicts() {
    g_.roster.AllDepartmentsMode = true;
    Schedule();
}

void ConsoleForm::EditDepartment(FormCommand command) {
    g_.application.FormCommand = command;
    g_.departments.PreviousDepNumber = g_.department.CurrentDepNumber;
    ports_.prompt.MousePointer(Pointer::Hourglass); // until the form has come to the front
    const DepartmentAnswer answer = screens_.Open(DepartmentRequest{command}, *this);
    // Without a new department the one that was current stays so.
    if (!answer.saved) g_.application.FormCommand = FormCommand::Change;
    ShowDepartments();
}

void ConsoleForm::DeleteDepartment() {
    g_.departments.PreviousDepNumber = g_.department.CurrentDepNumber;
    try {
        if (!AskAndDeleteDepartment(g_, ports_.prompt)) return;
    } catch (const dao::DaoError&) {
        g_.application.FormCommand = FormCommand::Change;
        ShowDepartments(); // as they stand now: another workstation may have been faster
        throw;
    }
    ShowDepartments();
}

void ConsoleForm::ShowDepartments() {
    RefreshDepartments(g_, ports_, model_);
    ShowFace();
}

void ConsoleForm::AddEmployee() {
    g_.application.FormCommand = FormCommand::Add;
    screens_.Open(EmployeeRequest{}, *this);
}

void ConsoleForm::ChangeEmployee() {
    g_.application.FormCommand = FormCommand::Change;
    const SearchAnswer found = screens_.Open(SearchRequest{FormCommand::Change}, *this);
    if (found.SelectedEmployee != 0) screens_.Open(EmployeeRequest{found.SelectedEmployee}, *this);
}

void ConsoleForm::DeleteEmployee() {
    g_.application.FormCommand = FormCommand::Delete;
    const SearchAnswer found = screens_.Open(SearchRequest{FormCommand::Delete}, *this);
    if (found.SelectedEmployee != 0)
        AskAndDeleteEmployee(g_.store, g_.department, ports_.prompt, found.SelectedEmployee);
}

void ConsoleForm::ChooseFromCombo(int index) {
    ChooseDepartment(g_.store, g_.departments, g_.department, model_, index);
    ShowFace();
}

void ConsoleForm::Schedule() {
    if (ExampleNoteIsDue(g_.department, g_.departments, g_.application)) {
        g_.application.FormCommand = FormCommand::Example;
        g_.application.ExampleNoteShown = true;
        const bool all = g_.roster.AllDepartmentsMode;
        TipForm(g_.department, ports_, this).ShowModal();
        g_.roster.AllDepartmentsMode = all; // the console came to the front in between
    }
    if (!PrepareSchedule(g_, ports_)) return;
    screens_.Open(EditorRequest{}, *this);
}

void ConsoleForm::LogIn() {
    const LoginResult result = LogInAtConsole(g_, ports_, model_, Text3->Text());
    if (result == LoginResult::Ignored) return;
    if (result == LoginResult::Denied) {
        Text3->clear();
        Text3->setFocus();
        return;
    }
    ShowFace();
    cmdSchedule->setFocus();
}

void ConsoleForm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int top = Face().y();
    PaintBanner(painter, QRect(0, top, width(), Pixels(BannerHeight)));
    painter.setPen(palette().color(QPalette::WindowText));
    int y = top + Pixels(PrintedTop) + painter.fontMetrics().ascent();
    for (const std::string& line : model_.printed) {
        const QString shown =
            painter.fontMetrics().elidedText(ToQString(line), Qt::ElideMiddle, Pixels(Width - 2 * Margin));
        painter.drawText(Pixels(Margin), y, shown);
        y += painter.fontMetrics().height();
    }
}

bool StartConsole(GlobalState& g, Ports& ports, const Screens& screens,
                  std::unique_ptr<ConsoleForm>& console) {
    SplashForm splash(ports);
    splash.ShowPainted();
    ports.prompt.DoEvents();
    const int start = ports.clock.SecondOfDay();
    while (!SplashIsOver(start, ports.clock.SecondOfDay())) continue;
    console = std::make_unique<ConsoleForm>(g, ports, screens);
    if (console->Load() == LoadResult::EndRun) return false;
    console->ShowModeless();
    return true;
}

} // namespace tvx::qt
