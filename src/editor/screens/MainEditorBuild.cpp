// The controls of the Main Editor and where they stand.
#include "desktop/FloodGauge.h"
#include "editor/RowValues.h"
#include "editor/lanes/DaytypeBox.h"
#include "editor/screens/MainEditorForm.h"

#include <QHBoxLayout>
#include <QShortcut>

#include <algorithm>
#include <array>

namespace tvx::qt {
namespace {

constexpr Twips StripHeight = 420;
constexpr Twips HeaderHeight = 525;
constexpr Twips PanelHeight = 1200;
constexpr Twips RulerTop = GridTop - RulerHeight;
constexpr Twips BoxWidth = 350;
constexpr Twips BoxHeight = 255;
constexpr Twips ToolTop = 45;
constexpr Twips TotalsLeft = 4620;
constexpr Twips ToggleWidth = 1180;
constexpr Twips GaugeLeft = 3448;
constexpr Twips GaugeWidth = 1100;
constexpr double RowPoints = 8.25;

/// What the value column takes of the room left of the grid: a share of it, and what its texts need at least.
struct ValueRoom {
    int percent;
    Twips least;
};

ValueRoom RoomForValue(int option) {
    switch (option) {
    case 7: // two figures
    case 8:
        return {28, 1240};
    case 11: // a department's name
    case 12: // a month in letters
        return {40, 1350};
    default:
        return {28, 840};
    }
}

/// Columns left of the grid: the name, the value, the daytype box at the grid's edge. What the value needs, a
/// narrow screen takes from the names.
struct LeftColumns {
    Twips nameLeft = 60;
    Twips valueLeft = 0;
    Twips valueWidth = 0;
    Twips boxLeft = 0;

    LeftColumns(const Grid& grid, Twips headWidth) : boxLeft(grid.GridLeft - BoxWidth) {
        const ValueRoom room = RoomForValue(grid.ShowOption);
        valueWidth = std::max({room.least, headWidth, grid.GridLeft * room.percent / 100});
        valueLeft = boxLeft - valueWidth - 30;
    }
    Twips NameWidth() const { return valueLeft - nameLeft - 30; }
};

QFont RowFont(const QWidget& widget) {
    QFont font = widget.font();
    font.setPointSizeF(RowPoints);
    return font;
}

} // namespace

/// No cross of its own: the editor is left on the ways that guard unsaved changes.
void MainEditorForm::RemoveCancelMenuItem() {
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinMaxButtonsHint);
}

void MainEditorForm::BuildMenus() {
    menus_ = std::make_unique<MenuRenderer>(Menus(), commands_.Entries("MenuBar"), Chosen());
}

std::function<void(const std::string&)> MainEditorForm::Chosen() {
    return Guarded([this](const std::string& command) { Choose(command); });
}

void MainEditorForm::AddTool(const char* name, Twips left, Twips width) {
    const Command& command = commands_[name];
    auto& tool = Add<LabelButton>(name, command.hint, strip_);
    tool.setText(ToQString(command.caption));
    tool.setToolTip(ToQString(command.hint));
    Place(tool, left, ToolTop, width, StripHeight - 2 * ToolTop);
    if (command.checked) {
        tool.setCheckable(true);
        tool.SetColours(QBColor(0), QBColor(15));
        tool.SetChosenColours(QBColor(0), QBColor(14));
    }
    On(tool, &QPushButton::clicked, [=, this] { Choose(name); });
    tools_[name] = &tool;
}

void MainEditorForm::BuildToolStrip(QWidget& strip) {
    strip.setFixedHeight(Pixels(StripHeight));
    AddTool("Label7(0)", 60, 860);
    AddTool("Label7(1)", 940, 860);
    AddTool("Label7(2)", 1820, 740);
    AddTool("Label8", 2580, 800);
    saveNote_ = &Add<SaveNote>("SaveNote", "", &strip);
    auto& panel = Add<FloodPanel>("Gauge", "Saving", &strip);
    for (QWidget* inOnePlace : std::initializer_list<QWidget*>{saveNote_, &panel})
        Place(*inOnePlace, GaugeLeft, ToolTop, GaugeWidth, StripHeight - 2 * ToolTop);
    saveNote_->SetAlignment(Qt::AlignCenter);
    gauge_ = std::make_unique<FloodGauge>(
        panel, [this](bool saved) { saveNote_->Tell(saved, ports_.clock.SecondOfDay()); });
    AddTool("Label12", TotalsLeft, 840);
    AddTool("Label16", 5480, 780);
    AddTool("Label17", 6280, 1080);
    AddTool("Label18", 7380, ToggleWidth);
    AddTool("Label25", 8580, ToggleWidth);
    AddTool("Label19", 9780, 1220);
    AddTool("Label13", 11020, 840);
}

void MainEditorForm::BuildHeader(QWidget& band) {
    band.setFixedHeight(Pixels(HeaderHeight));
    pctWeekday = &Add<DayHeaderBar>("pctWeekday", "Days of the week", &band);
    Place(*pctWeekday, grid_.GridLeft, 0, grid_.GridWidth, HeaderHeight);
    pctWeekday->onDay = Guarded([this](int day) { SelectDay(day); });
    auto& department = Add<Label>("Label26", "Department", &band);
    QFont bold = department.font();
    bold.setBold(true);
    department.setFont(bold);
    department.SetText(g_.department.CurrentDepName);
    department.SetAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Place(department, 60, 0, grid_.GridLeft - 120, HeaderHeight);
}

void MainEditorForm::BuildSheet(QWidget& sheet) {
    const Grid& grid = grid_;
    sheet.setMinimumHeight(Pixels(GridTop + grid.GridHeight));
    BuildEndsOfDay(sheet);
    Picture2 = &Add<PictureBox>("Picture2", "Hours of the day", &sheet);
    Place(*Picture2, grid.GridLeft - 2 * grid.QuarterWidth, RulerTop, grid.GridWidth + 4 * grid.QuarterWidth,
          RulerHeight);
    Picture2->setFont(RowFont(*Picture2));
    Picture1 = &Add<TimeGrid>("Picture1", "Time bars", &sheet, view_);
    Place(*Picture1, grid.GridLeft, GridTop, grid.GridWidth, grid.GridHeight);
    Picture1->setFont(RowFont(*Picture1));
    VScroll1 = &Add<QScrollBar>("VScroll1", "Rows", &sheet, Qt::Vertical);
    Place(*VScroll1, grid.GridLeft + grid.GridWidth, GridTop, 240, grid.GridHeight);
    VScroll1->setRange(0, std::max(0, g_.roster.EmployeeCount - grid.RowCapacity));
    VScroll1->setPageStep(grid.RowCapacity);
    VScroll1->setVisible(grid.RowCapacity < g_.roster.EmployeeCount);
    BuildRows(sheet);
}

void MainEditorForm::BuildEndsOfDay(QWidget& sheet) {
    const Grid& grid = grid_;
    constexpr Twips JumpWidth = 840;
    const auto jump = [&](const char* name, const char* tip, Twips left) {
        auto& button = Add<LabelButton>(name, tip, &sheet);
        button.setText(
            ToQString(EndOfDayCaption(g_.department.DayCutoffQuarters, g_.application.options.ClockStyle)));
        button.setToolTip(QLatin1String(tip));
        button.setFont(RowFont(button));
        Place(button, left, 0, JumpWidth, 225);
        return &button;
    };
    Label21 = jump("Label21", "Shift schedules left", grid.GridLeft);
    Label22 = jump("Label22", "Shift schedules right", grid.GridLeft + grid.GridWidth - JumpWidth);
    HScroll1 = &Add<QScrollBar>("HScroll1", "Hours", &sheet, Qt::Horizontal);
    Place(*HScroll1, grid.GridLeft + JumpWidth + 30, 0, grid.GridWidth - 2 * JumpWidth - 60, 225);
    HScroll1->setRange(grid.MinFirstQuarter, grid.MaxFirstQuarter);
    HScroll1->setSingleStep(4);
    HScroll1->setPageStep(grid.HoursShown * 4);
    HScroll1->setValue(grid.FirstQuarter);
    HScroll1->setVisible(grid.HoursShown < 24);
}

void MainEditorForm::BuildRows(QWidget& sheet) {
    listHead_ = &Add<Label>("Label27", "", &sheet);
    listHead_->SetText(g_.department.EmployeeNamePlural);
    valueHead_ = &Add<Label>("Label28", "", &sheet);
    Label20 = &Add<LabelButton>("Label20", "First or last page", &sheet);
    Label20->setText(QStringLiteral("Last page"));
    Label20->setFont(RowFont(*Label20));
    Place(*Label20, 60, 0, 1000, 225);
    Label20->setVisible(grid_.RowCapacity < g_.roster.EmployeeCount);
    dragTime_ = &Add<Label>("Label31", "Time of the bar", &sheet);
    QFont large = dragTime_->font();
    large.setPointSizeF(11);
    large.setBold(true);
    dragTime_->setFont(large);
    Place(*dragTime_, 60, 240, grid_.GridLeft - 2 * grid_.QuarterWidth - 60, 300);
    for (int row = 1; row <= lanes_.Count(); ++row) BuildRow(sheet, row);
    ConnectDaytypes();
    PlaceColumns();
}

void MainEditorForm::PlaceColumns() {
    const LeftColumns columns(grid_, ToTwips(valueHead_->sizeHint().width() + 2));
    const Twips half = columns.valueWidth / 2;
    Place(*listHead_, columns.nameLeft, GridTop - 285, columns.NameWidth(), 270);
    Place(*valueHead_, columns.valueLeft, GridTop - 285, columns.valueWidth, 270);
    for (int row = 1; row <= lanes_.Count(); ++row) {
        const Twips top = GridTop + lanes_.TopOf(row);
        Place(Label9[row], columns.nameLeft, top, columns.NameWidth(), 225);
        Place(Label10[row], columns.valueLeft, top, columns.valueWidth, 225);
        Place(Label23[row], columns.valueLeft, top, half - 15, 225);
        Place(Label24[row], columns.valueLeft + half, top, half, 225);
        Place(squares_[row], columns.valueLeft, top, columns.valueWidth, 225);
        Place(Text1[row], columns.boxLeft, top, BoxWidth, BoxHeight);
    }
}

void MainEditorForm::BuildRow(QWidget& sheet, int row) {
    const QFont font = RowFont(sheet);
    Label& name = Add(Label9, "Label9", row, "", &sheet);
    name.setToolTip(ToQString("Show entire week schedule - Right click for " +
                              g_.department.DayOffNamePlural + " calendar"));
    name.onHover = [=, this] { HighlightRow(row); };
    name.onPress = [=, this](Qt::MouseButton) { lanes_.MakeCurrent(lanes_.At(row)); };
    Label& value = Add(Label10, "Label10", row, "", &sheet);
    Label& day = Add(Label23, "Label23", row, "", &sheet);
    Label& week = Add(Label24, "Label24", row, "", &sheet);
    PictureBox& days = Add(squares_, "squares", row, "", &sheet);
    days.onPaint = [=, this](QPainter& painter, const QRegion&) { PaintSquares(painter, row); };
    TextBox& box = Add(Text1, "Text1", row, "", &sheet);
    box.setFrame(false);
    box.SetTypingLimit(2);
    box.setAlignment(Qt::AlignCenter);
    box.setTextMargins(0, 0, 0, Pixels(45)); // on one line with the name
    box.SetFocusColours(Yellow, LightBlue);
    box.setVisible(lanes_.HaveDaytypes());
    for (QWidget* part : std::initializer_list<QWidget*>{&name, &value, &day, &week, &box})
        part->setFont(font);
    daytypes_.Connect(row, [this](auto handler) { return Guarded(handler); });
}

void MainEditorForm::BuildSidePanel(QWidget& panel) {
    panel.setFixedHeight(Pixels(PanelHeight));
    BuildOptions(panel);
    BuildTotals(panel);
}

void MainEditorForm::BuildOptions(QWidget& panel) {
    const auto& options = ShowOptions();
    const Twips width = (g_.screen.ScreenWidth - 120) / 12;
    auto& group = Add<Group>("Options", "What the column of values shows", &panel);
    Place(group, 60, 60, 12 * width, 300);
    for (int option = 1; option <= 12; ++option) {
        LabelButton& button = Add(Label4, "Label4", option, options[option].tooltip, &group);
        button.setText(QLatin1String(options[option].caption));
        button.setToolTip(QLatin1String(options[option].tooltip));
        button.setFont(RowFont(button));
        button.setCheckable(true);
        button.setAutoExclusive(true);
        button.setEnabled(CanShow(g_.roster, g_.rights, option));
        Place(button, (option - 1) * width, 0, width - 30, 300);
        On(button, &QPushButton::clicked, [=, this] { ChooseOption(option); });
    }
}

void MainEditorForm::BuildTotals(QWidget& panel) {
    constexpr Twips top = 420;
    constexpr Twips line = 240;
    const auto right = Qt::AlignRight | Qt::AlignVCenter;
    const auto place = [&](Label& label, Twips left, int row, Twips width, const std::string& text) {
        label.SetText(text);
        label.SetAlignment(right);
        Place(label, left, top + row * line, width, line);
    };
    place(Add<Label>("Label29", "", &panel), 700, 0, 900, "Time");
    Label& wagesHead = Add<Label>("Label30", "", &panel);
    place(wagesHead, 1700, 0, 1200, "Wages");
    wagesHead.setVisible(!g_.rights.HideWages);
    constexpr std::array<const char*, 2> spans{" Day", " Wk"};
    constexpr std::array<const char*, 2> spanNames{"Day", "Week"};
    constexpr std::array<const char*, 3> figures{"Labor %", "Sales/hrs", "Trans/hrs"};
    for (int span = 0; span < 2; ++span) {
        const std::string spoken = spanNames[span];
        place(Add(Label14, "Label14", span, "", &panel), 60, span + 1, 560, spans[span]);
        place(Add(Label15, "Label15", span, spoken + " time", &panel), 700, span + 1, 900, "");
        place(Add(Label15, "Label15", span + 2, spoken + " wages", &panel), 1700, span + 1, 1200, "");
        place(Add(Label5, "Label5", span, "", &panel), 3300, span + 1, 560, spans[span]);
        for (int f = 0; f < 3; ++f)
            place(Add(Label1, "Label1", span * 3 + f, spoken + " " + figures[f], &panel), 3900 + f * 1150,
                  span + 1, 1050, "");
    }
    for (int f = 0; f < 3; ++f)
        place(Add(Label1, "Label1", 6 + f, "", &panel), 3900 + f * 1150, 0, 1050, figures[f]);
}

void MainEditorForm::HideForAllDepartments() {
    if (!g_.roster.AllDepartmentsMode) return;
    pctWeekday->HideMemos();
    for (const auto& [option, button] : Label4) button->setVisible(option == 11);
    Place(*tools_.at("Label18"), TotalsLeft, ToolTop, ToggleWidth, StripHeight - 2 * ToolTop);
    Place(*tools_.at("Label25"), TotalsLeft + 1200, ToolTop, ToggleWidth, StripHeight - 2 * ToolTop);
}

void MainEditorForm::ConnectScrollBars() {
    On(*Label20, &QPushButton::clicked,
       [this] { VScroll1->setValue(VScroll1->value() == 0 ? VScroll1->maximum() : 0); });
    On(*Label21, &QPushButton::clicked, [this] { HScroll1->setValue(HScroll1->minimum()); });
    On(*Label22, &QPushButton::clicked, [this] { HScroll1->setValue(HScroll1->maximum()); });
    const auto key = [this](const char* keys, int days) {
        On(*new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated,
           [=, this] { StepDay(days); });
    };
    key("Ctrl+PgUp", -1);
    key("Ctrl+PgDown", 1);
    On(*HScroll1, &QScrollBar::valueChanged, [this](int value) { ScrollDay(value); });
    On(*VScroll1, &QScrollBar::valueChanged, [this](int value) { ScrollRows(value); });
}

} // namespace tvx::qt
