#include "masterdata/screens/DepartmentForm.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace tvx::qt {
namespace {

constexpr int NameLength = 30;
constexpr int WordLength = 14;

constexpr const char* EmployeeHint = "The default name on an employee is: Employee.  Some organizations "
                                     "refer to employees as Associates or any local "
                                     "name that is appropriate";
constexpr const char* DayOffHint =
    "A requested day off is usually called a Vacation day. You may however substitute "
    "a Day off for any local term that is appropriate.";
constexpr const char* NameHint = "Enter or change Department name (A mandatory field).";
constexpr const char* WeekHint = "Each day in a year has a week number.  Select the way the weeks are "
                                 "counted based on setting of the <First day "
                                 "of the week> above. This feature is mostly used in Europe.";
constexpr const char* OrderHint = "When scheduling, you may select the listing order.";
constexpr const char* FirstDayHint = "The first day of the scheduling week may start on any day.";
constexpr const char* CutoffHint = "Daily totals will be calculated and displayed between the hours that you "
                                   "set. This is the cut-off time by which "
                                   "you keep track of daily totals etc.";

} // namespace

DepartmentForm::DepartmentForm(GlobalState& g, Ports& ports, Form* owner)
    : Form(ports, "Form13", owner), g_(g) {
    const bool adding = g_.application.FormCommand == "Add";
    setWindowTitle(adding ? QStringLiteral("Add a new Department")
                          : QStringLiteral("Change Department information"));
    auto* column = new QVBoxLayout(&Face());
    column->setContentsMargins(Pixels(240), Pixels(180), Pixels(240), Pixels(180));
    column->setSpacing(Pixels(120));
    BuildName(*column);
    BuildWeek(*column);
    BuildOrder(*column);
    BuildWords(*column);
    Label4 = &Add<Label>("Label4", "Hint");
    Label4->setWordWrap(true);
    Label4->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Label4->setMinimumHeight(3 * Label4->fontMetrics().height());
    Label4->SetColours(QBColor(1), std::nullopt);
    column->addWidget(Label4);
    BuildButtons(*column);
    ShowProfile(DepartmentProfile());
    setFixedWidth(std::max(Pixels(9000), minimumSizeHint().width())); // a title carries the department's word
    adjustSize();
    setFixedSize(size());
    CenterForm();
    Text1->setFocus();
}

bool DepartmentForm::Opened() {
    const auto profile = OpenProfile(g_, ports_.prompt);
    ports_.prompt.MousePointer(Pointer::Default);
    if (!profile) return false;
    ShowProfile(*profile);
    Text1->selectAll();
    return true;
}

Frame& DepartmentForm::AddTitled(const char* name, const std::string& title, const std::string& hint) {
    auto& frame = Add<Frame>(name, title);
    frame.SetTitle(title);
    SetHint(frame, hint);
    return frame;
}

void DepartmentForm::BuildName(QVBoxLayout& column) {
    Frame& frame = AddTitled("Frame3D3", "Department name", NameHint);
    auto* row = new QHBoxLayout(&frame);
    Text1 = &Add<TextBox>("Text1", "Department name", &frame);
    Text1->SetTypingLimit(NameLength);
    row->addWidget(Text1);
    column.addWidget(&frame);
}

void DepartmentForm::BuildWeek(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    Frame& first = AddTitled("Frame3D2", "First day of the week", FirstDayHint);
    Combo1 = &Add<QComboBox>("Combo1", "First day of the week", &first);
    for (int d = 1; d <= 7; ++d) Combo1->addItem(ToQString(ports_.region.Names().weekdays[d]));
    (new QHBoxLayout(&first))->addWidget(Combo1);
    row->addWidget(&first, 1);

    Frame& cutoff = AddTitled("Frame3D4", "Calculate daily statistics between ", CutoffHint);
    auto* line = new QHBoxLayout(&cutoff);
    Combo2 = &Add<QComboBox>("Combo2", "Start of the business day", &cutoff);
    for (const std::string& text : CutoffTexts(g_.application.Settings[setting::ClockStyle]))
        Combo2->addItem(ToQString(text));
    Label1 = &Add<Label>("Label1", "End of the business day", &cutoff);
    Label2 = &Add<Label>("Label2", "", &cutoff);
    Label2->SetText("the next day");
    line->addWidget(Combo2);
    line->addWidget(Label1);
    line->addWidget(Label2);
    line->addStretch();
    Label1->setMinimumWidth(Label1->fontMetrics().horizontalAdvance(QStringLiteral("and 10:45am ")));
    row->addWidget(&cutoff, 2);
    column.addLayout(row);
    On(*Combo2, &QComboBox::currentIndexChanged, [this](int) { ShowCutoff(); });
}

void DepartmentForm::BuildOrder(QVBoxLayout& column) {
    constexpr std::array<const char*, 7> orders{"",           "Last name", "Employee ID", "Assignment",
                                                "Birth date", "Hire date", "First name"};
    constexpr std::array<const char*, 4> weeks{
        "First week that has 4 days in the new year", " First full week in the new year ",
        "First week that has a January date", "Do not show week numbers"};
    auto* row = new QHBoxLayout;
    Frame& order =
        AddTitled("Frame3D1", g_.department.EmployeeNameSingle + " listing order in Main Editor ", OrderHint);
    auto* grid = new QGridLayout(&order);
    for (int i = 1; i <= 6; ++i) {
        auto& option = Add(SSOption2, "SSOption2", i, orders[static_cast<std::size_t>(i)], &order);
        option.setText(QLatin1String(orders[static_cast<std::size_t>(i)]));
        grid->addWidget(&option, (i - 1) % 3, (i - 1) / 3);
    }
    row->addWidget(&order, 1);
    Frame& week = AddTitled("frmWeekoption", "The first week of the year is...  ", WeekHint);
    auto* lines = new QVBoxLayout(&week);
    for (int i = 0; i <= 3; ++i) {
        auto& option = Add(SSOption1, "SSOption1", i, weeks[static_cast<std::size_t>(i)], &week);
        option.setText(QString::fromLatin1(weeks[static_cast<std::size_t>(i)]).trimmed());
        lines->addWidget(&option);
    }
    row->addWidget(&week, 1);
    column.addLayout(row);
}

TextBox& DepartmentForm::AddWord(Frame& frame, const char* name, const char* label) {
    auto* line = static_cast<QGridLayout*>(frame.layout());
    const int row = line->rowCount();
    auto& caption = Add<Label>("", "", &frame);
    caption.SetText(label);
    auto& box = Add<TextBox>(name, FromQString(frame.title().trimmed()) + ", " + label, &frame);
    box.SetTypingLimit(WordLength);
    line->addWidget(&caption, row, 0);
    line->addWidget(&box, row, 1);
    return box;
}

void DepartmentForm::BuildWords(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    Frame& people = AddTitled("Frame1", "Generic name for Employees", EmployeeHint);
    new QGridLayout(&people);
    txtGenEmployee = &AddWord(people, "txtGenEmployee", "Single");
    txtGenEmployees = &AddWord(people, "txtGenEmployees", "Plural");
    Frame& daysOff = AddTitled("Frame3", "Generic name for requested days off ", DayOffHint);
    new QGridLayout(&daysOff);
    txtDayOff = &AddWord(daysOff, "txtDayOff", "Single");
    txtDaysOff = &AddWord(daysOff, "txtDaysOff", "Plural");
    row->addWidget(&people, 1);
    row->addWidget(&daysOff, 1);
    column.addLayout(row);
}

void DepartmentForm::BuildButtons(QVBoxLayout& column) {
    AddCommands(
        column,
        {{"Command3D3", "&Help", [this] { ports_.help.ShowTopic(help::DepartmentProfile); }, Role::Aside}},
        {{"Command3D1", "&OK", [this] { Save(); }, Role::Default},
         {"Command3D2", "&Cancel", [this] { Unload(); }, Role::Cancel}});
}

void DepartmentForm::ShowProfile(const DepartmentProfile& profile) {
    Text1->SetText(profile.name);
    Combo1->setCurrentIndex(profile.firstWeekday - 1);
    Combo2->setCurrentIndex(profile.cutoffQuarters);
    ShowCutoff();
    if (!profile.weekKnown) Label1->SetText("and Midn.");
    SSOption1[profile.weekMethod].setChecked(true);
    SSOption2[profile.editorOrder].setChecked(true);
    ShowWords(profile);
}

void DepartmentForm::ShowWords(const DepartmentProfile& profile) {
    txtGenEmployee->SetText(profile.employeeNameSingle);
    txtGenEmployees->SetText(profile.employeeNamePlural);
    txtDayOff->SetText(profile.dayOffNameSingle);
    txtDaysOff->SetText(profile.dayOffNamePlural);
}

DepartmentProfile DepartmentForm::Profile() const {
    DepartmentProfile profile;
    profile.name = Text1->Text();
    profile.firstWeekday = Combo1->currentIndex() + 1;
    profile.cutoffQuarters = Combo2->currentIndex();
    for (const auto& [index, option] : SSOption1)
        if (option->isChecked()) profile.weekMethod = index;
    for (const auto& [index, option] : SSOption2)
        if (option->isChecked()) profile.editorOrder = index;
    profile.employeeNameSingle = txtGenEmployee->Text();
    profile.employeeNamePlural = txtGenEmployees->Text();
    profile.dayOffNameSingle = txtDayOff->Text();
    profile.dayOffNamePlural = txtDaysOff->Text();
    return profile;
}

void DepartmentForm::ShowCutoff() {
    Label1->SetText("and " + FromQString(Combo2->currentText()));
    Label2->setVisible(Combo2->currentIndex() > 0);
}

void DepartmentForm::Save() {
    DepartmentProfile profile = Profile();
    const ProfileResult result = SaveDepartment(g_, ports_.prompt, profile);
    ShowWords(profile); // an empty one has become the usual one
    switch (result) {
    case ProfileResult::Saved:
        saved_ = true;
        Unload();
        break;
    case ProfileResult::NameMissing:
    case ProfileResult::NameInUse:
        Text1->setFocus();
        break;
    case ProfileResult::Refused:
        break;
    }
}

} // namespace tvx::qt
