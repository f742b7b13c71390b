#include "masterdata/screens/DepartmentForm.h"

#include "shell/common/Conversions.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

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
constexpr const char* WordTip = "A new department begins with the usual words.  You can give it words of its "
                                "own under Change.";
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

DepartmentForm::DepartmentForm(GlobalState& g, Ports& ports, const DepartmentRequest& request, Form* owner)
    : Form(ports, "Form13", owner), g_(g), request_(request) {
    const bool adding = request_.command == FormCommand::Add;
    setWindowTitle(adding ? QStringLiteral("Add a new Department")
                          : QStringLiteral("Change Department information"));
    QVBoxLayout& column = Column();
    BuildName(column);
    BuildWeek(Row(column));
    BuildOptions(Row(column));
    BuildWords(Row(column));
    BuildHint(column);
    AddCommands(
        column,
        {{"Command3D3", "&Help", [this] { ports_.help.ShowTopic(help::DepartmentProfile); }, Role::Help}},
        {{"Command3D1", "&OK", [this] { Save(); }, Role::Default},
         {"Command3D2", "&Cancel", [this] { Unload(); }, Role::Cancel}});
    ShowProfile(DepartmentProfile());
    FixSize(9000); // more where a title carries a long word of the department
    Text1->setFocus();
}

bool DepartmentForm::Opened() {
    const auto profile = OpenProfile(g_.store, g_.department, ports_.prompt, request_.command);
    ports_.prompt.MousePointer(Pointer::Default);
    if (!profile) return false;
    ShowProfile(*profile);
    Text1->selectAll();
    return true;
}

void DepartmentForm::BuildName(QVBoxLayout& column) {
    Frame& frame = AddFrame("Frame3D3", "Department name", column, NameHint);
    Text1 = &Add<TextBox>("Text1", "Department name", &frame);
    Text1->SetTypingLimit(NameLength);
    (new QHBoxLayout(&frame))->addWidget(Text1);
}

void DepartmentForm::BuildWeek(QHBoxLayout& row) {
    Frame& first = AddFrame("Frame3D2", "First day of the week", row, FirstDayHint);
    Combo1 = &Add<QComboBox>("Combo1", "First day of the week", &first);
    for (int d = 1; d <= 7; ++d) Combo1->addItem(ToQString(ports_.region.Names().weekdays[d]));
    (new QHBoxLayout(&first))->addWidget(Combo1);

    Frame& cutoff = AddFrame("Frame3D4", "Calculate daily statistics between ", row, CutoffHint);
    auto& line = *new QHBoxLayout(&cutoff);
    Combo2 = &Add<QComboBox>("Combo2", "Start of the business day", &cutoff);
    for (const std::string& text : CutoffTexts(g_.application.options.ClockStyle))
        Combo2->addItem(ToQString(text));
    line.addWidget(Combo2);
    Label1 = &Add<Label>("Label1", "End of the business day", &cutoff);
    Label1->setMinimumWidth(Label1->fontMetrics().horizontalAdvance(QStringLiteral("and 10:45am ")));
    line.addWidget(Label1);
    Label2 = &AddLabel("Label2", "the next day", line, &cutoff);
    line.addStretch();
    row.setStretch(0, 1);
    row.setStretch(1, 2);
    On(*Combo2, &QComboBox::currentIndexChanged, [this](int) { ShowCutoff(); });
}

void DepartmentForm::BuildOptions(QHBoxLayout& row) {
    Frame& order = AddFrame("Frame3D1", g_.department.EmployeeNameSingle + " listing order in Main Editor ",
                            row, OrderHint);
    AddOptions(SSOption2, "SSOption2", 1,
               {"Last name", "Employee ID", "Assignment", "Birth date", "Hire date", "First name"}, order, 2);
    Frame& week = AddFrame("frmWeekoption", "The first week of the year is...  ", row, WeekHint);
    AddOptions(SSOption1, "SSOption1", 0,
               {"First week that has 4 days in the new year", " First full week in the new year ",
                "First week that has a January date", "Do not show week numbers"},
               week, 1);
    row.setStretch(0, 1);
    row.setStretch(1, 1);
}

/// A frame for the two forms of a word.
void DepartmentForm::BuildWord(QHBoxLayout& row, const WordFrame& word) {
    Frame& frame = AddFrame(word.name, word.title, row, word.hint);
    const std::string what = FromQString(frame.title().trimmed());
    word.single = &AddField(word.singleName, "Single", frame, what + ", Single");
    word.plural = &AddField(word.pluralName, "Plural", frame, what + ", Plural");
    for (TextBox* box : {word.single, word.plural}) {
        box->SetTypingLimit(WordLength);
        if (request_.command != FormCommand::Add) continue;
        box->setEnabled(false);
        box->setToolTip(QLatin1String(WordTip));
    }
    row.setStretchFactor(&frame, 1);
}

void DepartmentForm::BuildWords(QHBoxLayout& row) {
    BuildWord(row, {"Frame1", "Generic name for Employees", EmployeeHint, "txtGenEmployee", txtGenEmployee,
                    "txtGenEmployees", txtGenEmployees});
    BuildWord(row, {"Frame3", "Generic name for requested days off ", DayOffHint, "txtDayOff", txtDayOff,
                    "txtDaysOff", txtDaysOff});
}

void DepartmentForm::BuildHint(QVBoxLayout& column) {
    Label4 = &Add<Label>("Label4", "Hint");
    Label4->setWordWrap(true);
    Label4->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Label4->setMinimumHeight(3 * Label4->fontMetrics().height());
    Label4->SetColours(QBColor(1), std::nullopt);
    column.addWidget(Label4);
}

void DepartmentForm::ShowProfile(const DepartmentProfile& profile) {
    Text1->SetText(profile.name);
    Combo1->setCurrentIndex(profile.firstWeekday - 1);
    storedCutoff_ = profile.cutoffQuarters;
    Combo2->setCurrentIndex(storedCutoff_ <= MostCutoffQuarters ? storedCutoff_ : -1);
    ShowCutoff();
    if (!profile.weekKnown) Label1->SetText("and Midn.");
    SSOption1.Choose(profile.weekMethod);
    SSOption2.Choose(profile.editorOrder);
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
    profile.cutoffQuarters = Cutoff();
    profile.weekMethod = SSOption1.Chosen().value_or(profile.weekMethod);
    profile.editorOrder = SSOption2.Chosen().value_or(profile.editorOrder);
    profile.employeeNameSingle = txtGenEmployee->Text();
    profile.employeeNamePlural = txtGenEmployees->Text();
    profile.dayOffNameSingle = txtDayOff->Text();
    profile.dayOffNamePlural = txtDaysOff->Text();
    return profile;
}

int DepartmentForm::Cutoff() const {
    return Combo2->currentIndex() < 0 ? storedCutoff_ : Combo2->currentIndex();
}

void DepartmentForm::ShowCutoff() {
    Label1->SetText("and " + QuarterToClockText(Cutoff(), g_.application.options.ClockStyle));
    Label2->setVisible(Cutoff() > 0);
}

void DepartmentForm::Save() {
    DepartmentProfile profile = Profile();
    const SaveResult result =
        SaveDepartment(g_.store, g_.department, ports_.prompt, request_.command, profile);
    ShowWords(profile); // an empty one has become the usual one
    switch (result) {
    case SaveResult::Saved:
        saved_ = true;
        Unload();
        break;
    case SaveResult::Incomplete:
    case SaveResult::InUse:
        Text1->setFocus();
        break;
    case SaveResult::Refused:
        break;
    }
}

} // namespace tvx::qt
