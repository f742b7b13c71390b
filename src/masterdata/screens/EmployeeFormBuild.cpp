// The controls of the employee record, where they stand, and what is painted around them.
#include "desktop/FloodGauge.h"
#include "masterdata/screens/EmployeeForm.h"

#include <QPainter>

#include <array>
#include <string>
#include <vector>

namespace tvx::qt {
namespace {

constexpr Twips FormWidth = 10200;
constexpr Twips Margin = 120;
constexpr Twips GridLeft = 990;
constexpr Twips GridTop = 2230;
constexpr Twips StripTop = 2050;
constexpr Twips HoursTop = 3920;
constexpr Twips HoursRight = 1170; // right edge of the text of hour 0
constexpr Twips RulerTop = 4130;
constexpr Twips RulerRight = 9660;
constexpr Twips HourWidth = 4 * absence::QuarterWidth;
constexpr Colour RowGround = RGB(228, 228, 228); // light, so that a row reads as one lane around its band
constexpr Twips BoxHeight = 300;
constexpr Twips CaptionHeight = 210;
constexpr Twips FirstRow = 60; // top of the first of three rows of boxes above the grid
constexpr Twips RowStep = BoxHeight + CaptionHeight + FirstRow;
constexpr Twips LowerTop = 4380; // below the grid
constexpr Twips PanelWidth = 6600;
constexpr Twips SwatchLeft = 140 + 162; // of the first colour

struct Spot {
    int index;
    Twips width;
};

/// Rows of boxes in the order of their indexes, in which the keys go through them.
const std::array<std::vector<Spot>, 3> UpperRows{{
    {{box_of::LastName, 2700},
     {box_of::FirstName, 1500},
     {box_of::Id, 1100},
     {box_of::Assignment, 1300},
     {box_of::Pay, 1100}},
    {{box_of::Street, 3900}, {box_of::City, 2820}, {box_of::State, 700}, {box_of::Zip, 1500}},
    {{box_of::HireDate, 1300},
     {box_of::BirthDate, 1300},
     {box_of::Phone, 1700},
     {box_of::EmergencyPhone, 1700},
     {box_of::CellPhone, 1700},
     {box_of::SocSecNumber, 1660}},
}};

/// What stands in a column, close together.
QVBoxLayout& Stack(QBoxLayout& into, int stretch = 0) {
    auto* stack = new QVBoxLayout;
    stack->setSpacing(0);
    into.addLayout(stack, stretch);
    return *stack;
}

} // namespace

void EmployeeForm::Build() {
    QVBoxLayout& column = Column();
    column.setContentsMargins(Pixels(Margin), Pixels(FirstRow), Pixels(Margin), Pixels(Margin));
    column.setSpacing(0);
    BuildUpperBoxes(column);
    BuildGrid();
    column.addSpacing(Pixels(LowerTop) - Pixels(FirstRow) - 3 * Pixels(RowStep));
    QHBoxLayout& lower = Row(column);
    lower.setSpacing(Pixels(Margin));
    BuildKinds(Stack(lower, 2));
    BuildLooks(Stack(lower, 1));
    BuildHint(column);
    BuildButtons(column);
    HidePay();
    FixSize(FormWidth); // more where a button carries a long word of the department
}

void EmployeeForm::BuildUpperBoxes(QVBoxLayout& column) {
    for (const auto& spots : UpperRows) {
        QHBoxLayout& row = Row(column);
        row.setSpacing(Pixels(Margin));
        for (const Spot& spot : spots) BuildBox(row, spot.index, spot.width);
        row.addStretch();
        column.addSpacing(Pixels(RowStep) - Pixels(BoxHeight) - Pixels(CaptionHeight));
    }
    const std::string hint = DateHint(g_, ports_);
    for (const auto& [index, date] : dates) {
        date->setToolTip(ToQString(hint));
        SetHint(*date, hint);
    }
}

TextBox& EmployeeForm::AddBox(int index) {
    const std::string label = EmployeeBoxes()[index].label;
    if (index != box_of::HireDate && index != box_of::BirthDate) return Add(Text2, "Text2", index, label);
    DateBox& date = Add(dates, "Text2", index, label);
    Text2.Put(index, date);
    ConnectDate(index);
    return date;
}

/// A box under its caption.
void EmployeeForm::BuildBox(QBoxLayout& row, int index, Twips width) {
    const EmployeeBox& facts = EmployeeBoxes()[index];
    QVBoxLayout& stack = Stack(row);
    auto& caption = Add(Label1, "Label1", index, "");
    caption.SetText(facts.label);
    caption.setFixedSize(Pixels(width), Pixels(CaptionHeight));
    stack.addWidget(&caption);
    TextBox& box = AddBox(index);
    box.SetTypingLimit(facts.maxLength);
    box.SetFocusColours(QBColor(14), QBColor(15));
    box.setFixedSize(Pixels(width), Pixels(BoxHeight));
    stack.addWidget(&box);
    ConnectBox(index);
}

/// Stands where the hours are painted.
void EmployeeForm::BuildGrid() {
    Picture2 = &Add<PictureBox>("Picture2", "Place on the hours");
    Place(*Picture2, GridLeft, StripTop, absence::RightEnd, 150);
    Picture2->onPaint = [this](QPainter& painter, const QRegion&) { PaintStrip(painter); };
    Picture1 = &Add<PictureBox>("Picture1", "Hours of absence");
    Place(*Picture1, GridLeft, GridTop, absence::RightEnd, 7 * absence::RowHeight);
    Picture1->onPaint = [this](QPainter& painter, const QRegion&) { PaintGrid(painter); };
    for (int d = 1; d <= 7; ++d) {
        auto& day = Add(Label5, "Label5", d, "");
        day.SetText(ports_.region.Names().shortWeekdays[d]);
        day.SetColours(QBColor(0), LightBlue);
        Place(day, Margin, GridTop + (d - 1) * absence::RowHeight, GridLeft - 180, absence::RowHeight - 15);
    }
}

void EmployeeForm::BuildKinds(QVBoxLayout& column) {
    QHBoxLayout& mail = Row(column);
    BuildBox(mail, box_of::Email, 3900);
    mail.addStretch();
    column.addSpacing(Pixels(Margin));
    QHBoxLayout& row = Row(column);
    row.setSpacing(Pixels(Margin));
    Frame3D1 = &AddFrame("Frame3D1", "Pay rate", row);
    SetHint(*Frame3D1, "");
    BuildKind(Option3D2, "Option3D2", 1,
              {{" Hourly rate", "Pay is for one hour"}, {" Weekly salary", "Pay is for a whole week"}},
              *Frame3D1);
    BuildKind(Option3D1, "Option3D1", 1,
              {{"Active", "Listed in the Editors"}, {"Inactive", "Kept, but not listed in the Editors"}},
              AddFrame("Frame3D2(0)", "Status", row,
                       "Only Active " + g_.department.EmployeeNamePlural +
                           " will listed in the Editors for scheduling."));
    BuildKind(optLaborType, "optLaborType", 0,
              {{"Full- time", "Listed as Full time"},
               {"Part- time", "Listed as Part time"},
               {"Student", "Listed as Student"},
               {"Other", "Listed as Other"}},
              AddFrame("Frame3D2(1)", "Labor type", row));
    Label6 = &AddLabel("Label6", "", column);
    Label6->setAccessibleName(QStringLiteral("Age"));
    Label6->SetColours(QBColor(12), std::nullopt);
    Label6->setMinimumHeight(Pixels(CaptionHeight + Margin));
    column.addStretch();
}

/// The options of a frame, two in a column, each with a tip.
void EmployeeForm::BuildKind(Options<int>& options, const char* name, int first,
                             const std::vector<std::array<const char*, 2>>& kinds, Frame& frame) {
    std::vector<std::string> captions;
    captions.reserve(kinds.size());
    for (const auto& kind : kinds) captions.push_back(kind[0]);
    AddOptions(options, name, first, captions, frame, static_cast<int>(captions.size()) / 2);
    for (const auto& [index, option] : options) {
        const char* tip = kinds[static_cast<std::size_t>(index - first)][1];
        option->setToolTip(QLatin1String(tip));
        SetHint(*option, tip);
        On(*option, &QRadioButton::clicked, [this] { Changed(); });
    }
}

/// How the employee looks in the editors, and what else there is to say.
void EmployeeForm::BuildLooks(QVBoxLayout& column) {
    Label2 =
        &AddLabel("Label2", "Editor time bar color for this " + g_.department.EmployeeNameSingle, column);
    Label2->setWordWrap(true); // a department's own word may be long
    Label2->SetAlignment(Qt::AlignLeft | Qt::AlignBottom);
    Label2->setFixedHeight(Pixels(2 * CaptionHeight));
    BuildColours(column);
    Picture3 = &Add<PictureBox>("Picture3", "Sample of the time bar");
    Picture3->setFixedHeight(Pixels(240));
    column.addSpacing(Pixels(Margin));
    column.addWidget(Picture3);
    const std::string tip = "The time bar of this " + g_.department.EmployeeNameSingle + " in the Editors";
    Picture3->setToolTip(ToQString(tip));
    SetHint(*Picture3, tip);
    Picture3->onPaint = [this](QPainter& painter, const QRegion&) { PaintSample(painter); };
    column.addSpacing(Pixels(Margin));
    BuildComments(column);
}

void EmployeeForm::BuildColours(QVBoxLayout& column) {
    auto& line = Add<QWidget>("", "");
    line.setFixedHeight(Pixels(255));
    column.addWidget(&line);
    auto& colours = Add<QWidget>("Colors", "Time bar color", &line);
    Place(colours, -SwatchLeft, 0, SwatchLeft + 15 * 162, 255); // the first colour stands at the edge
    constexpr std::array<const char*, 15> names{"",           "Blue",           "Green",        "Cyan",
                                                "Red",        "Magenta",        "Brown",        "Light grey",
                                                "Grey",       "Bright blue",    "Bright green", "Bright cyan",
                                                "Bright red", "Bright magenta", "Yellow"};
    for (int i = 1; i <= 14; ++i) {
        auto& colour = Add(lblColor, "lblColor", i, names[static_cast<std::size_t>(i)], &colours);
        colour.SetColour(QBColor(i));
        Place(colour, i * 162 + 140, 0, 162, 255);
        On(colour, &QAbstractButton::clicked, [=, this] { ChooseColour(i); });
    }
}

void EmployeeForm::BuildComments(QVBoxLayout& column) {
    AddLabel("Label4", "Comments", column);
    Text1 = &Add<QPlainTextEdit>("Text1", "Comments");
    Text1->setTabChangesFocus(true);
    Text1->setFixedHeight(Pixels(870));
    SetHint(*Text1, "Add any comments you wish for this " + g_.department.EmployeeNameSingle + "...");
    column.addWidget(Text1);
    On(*Text1, &QPlainTextEdit::textChanged, [this] { Changed(); });
}

/// The line of hints, where a save floods its panel.
void EmployeeForm::BuildHint(QVBoxLayout& column) {
    auto* line = new QGridLayout;
    line->setContentsMargins(0, Pixels(Margin), 0, Pixels(Margin));
    column.addLayout(line);
    Label3 = &Add<Label>("Label3", "Hint");
    Label3->SetColours(QBColor(1), std::nullopt);
    Label3->setFixedHeight(Pixels(CaptionHeight));
    line->addWidget(Label3, 0, 0);
    Panel3D2 = &Add<FloodPanel>("Panel3D2", "Saving");
    Panel3D2->setFixedSize(Pixels(PanelWidth), Pixels(CaptionHeight));
    line->addWidget(Panel3D2, 0, 0);
    gauge_ = std::make_unique<FloodGauge>(*Panel3D2);
    saveNote_ = &Add<SaveNote>("SaveNote", "");
    line->addWidget(saveNote_, 0, 1);
    line->setColumnStretch(0, 1);
}

void EmployeeForm::BuildButtons(QVBoxLayout& column) {
    QHBoxLayout& row = Row(column);
    row.setSpacing(Pixels(Margin));
    Command2 = &AddCommand({"Command2", "&Previous ", [this] { MoveTo(-1); }}, row);
    Command3 = &AddCommand({"Command3", "&Next ", [this] { MoveTo(1); }}, row);
    const QString one = PlainCaption(g_.department.EmployeeNameSingle);
    Command2->setText(Command2->text() + one);
    Command3->setText(Command3->text() + one);
    row.setStretchFactor(Command2, 1);
    row.setStretchFactor(Command3, 1);
    const auto topic = [this] { ports_.help.ShowTopic(help::EmployeeRecord); };
    AddCommand({"Command3D3", "&Help", topic, Role::Help}, row);
    AddCommand({"Command3D1", "&OK", [this] { Save(); }}, row);
    AddCommand({"cmdExit", "&Close", [this] { Leave(); }, Role::Cancel}, row);
}

void EmployeeForm::HidePay() {
    if (!g_.rights.HideWages) return;
    Text2[box_of::Pay].hide();
    Label1[box_of::Pay].hide();
    Frame3D1->hide();
    for (const auto& [index, option] : Option3D2) option->hide();
}

// ---- painting ----

void EmployeeForm::PaintGrid(QPainter& painter) const {
    const QPaintDevice& device = *painter.device();
    const auto fill = [&](const TwipsBox& box, const QColor& colour) {
        painter.fillRect(SharpRect(box, device), colour);
    };
    painter.fillRect(Picture1->rect(), ToColor(RowGround));
    for (int row = 1; row <= 7; ++row) {
        const Twips top = (row - 1) * absence::RowHeight;
        PaintTicks(painter, top);
        for (const AbsenceBox& box : DrawAvailabilityRow(grid_.Bars(), row, grid_.SlotInHand(row)))
            fill({box.left, box.top, box.right, box.bottom}, ToColor(box.bar ? Red : QBColor(15)));
        fill({0, top + absence::SeparatorTop, absence::RightEnd, top + absence::SeparatorTop + 15},
             Qt::black);
    }
    const auto [left, right] = grid_.Band();
    const Twips top = (grid_.Row() - 1) * absence::RowHeight;
    if (left < right) fill({left, top + LaneTop, right, top + LaneBottom}, ToColor(QBColor(12)));
}

/// The ticks of a row stand on the line that ends it, those of the hours up to its band.
void EmployeeForm::PaintTicks(QPainter& painter, Twips top) const {
    for (Twips x = 0; x <= absence::RightEnd; x += absence::QuarterWidth) {
        const bool hour = x % HourWidth == 0;
        const Twips from = LaneBottom + (hour ? 0 : 30);
        painter.fillRect(SharpRect({x, top + from, x + 15, top + absence::SeparatorTop}, *painter.device()),
                         ToColor(hour ? QBColor(12) : QBColor(0)));
    }
}

void EmployeeForm::PaintStrip(QPainter& painter) const {
    painter.fillRect(Picture2->rect(), ToColor(QBColor(15)));
    const auto [left, right] = grid_.Band();
    if (left < right)
        painter.fillRect(SharpRect({left, 0, right, 150}, *painter.device()), ToColor(QBColor(3)));
    if (markerX_ >= 0)
        painter.fillRect(SharpRect({markerX_ + 110, 0, markerX_ + 170, 150}, *painter.device()),
                         ToColor(QBColor(12)));
}

void EmployeeForm::PaintSample(QPainter& painter) const {
    const QPaintDevice& device = *painter.device();
    painter.fillRect(Picture3->rect(), Qt::white);
    painter.fillRect(SharpRect({HourWidth, 60, 7 * HourWidth, 180}, device),
                     ToColor(QBColor(currentBarColor_)));
    for (Twips x = 0; x < 3180; x += absence::QuarterWidth) {
        const bool hour = x % HourWidth == 0;
        painter.fillRect(SharpRect({x, hour ? 190 : 210, x + 15, 240}, device),
                         ToColor(hour ? QBColor(12) : QBColor(0)));
    }
}

void EmployeeForm::PaintHours(QPainter& painter) const {
    const bool twelve = g_.application.options.ClockStyle == ClockStyle::TwelveHours;
    const QFontMetrics metrics = painter.fontMetrics();
    for (int hour = 0; hour <= 24; ++hour) {
        const bool named = hour % 12 == 0;
        std::string text = std::to_string(hour);
        if (hour % 24 == 0)
            text = "M";
        else if (twelve && hour != 12)
            text = hour < 12 ? text.append("a") : std::to_string(hour - 12) + "p";
        painter.setPen(named ? ToColor(QBColor(9)) : palette().color(QPalette::WindowText));
        const int right = Pixels(HoursRight + HourWidth * hour);
        painter.drawText(right - metrics.horizontalAdvance(ToQString(text)),
                         Pixels(HoursTop) + metrics.ascent(), ToQString(text));
    }
    const auto tick = [&](Twips x, Twips length, Colour colour) {
        painter.fillRect(SharpRect({x, RulerTop, x + 15, RulerTop + length}, *painter.device()),
                         ToColor(colour));
    };
    for (Twips x = GridLeft; x <= RulerRight; x += absence::QuarterWidth) tick(x, 60, QBColor(0));
    for (Twips x = HoursRight; x <= RulerRight; x += HourWidth) tick(x, 90, QBColor(0));
    for (Twips x = GridLeft; x <= RulerRight; x += HourWidth) tick(x, 120, QBColor(12));
}

void EmployeeForm::PaintHeading(QPainter& painter) const {
    const QFontMetrics metrics = painter.fontMetrics();
    int x = Pixels(GridLeft);
    const int y = Pixels(StripTop - 30) - metrics.descent();
    const auto print = [&](const std::string& text, int colour) {
        painter.setPen(ToColor(QBColor(colour)));
        painter.drawText(x, y, ToQString(text));
        x += metrics.horizontalAdvance(ToQString(text));
    };
    print("Use the mouse to enter the times that the " + g_.department.EmployeeNameSingle + " is", 3);
    print(" NOT ", 12);
    print("available for work.", 3);
}

void EmployeeForm::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintHeading(painter);
    PaintHours(painter);
}

} // namespace tvx::qt
