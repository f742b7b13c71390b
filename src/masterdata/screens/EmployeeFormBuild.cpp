// The controls of the employee record, where they stand, and what is painted around them.
#include "desktop/FloodGauge.h"
#include "masterdata/screens/EmployeeForm.h"

#include <QPainter>

#include <array>
#include <string>

namespace tvx::qt {
namespace {

constexpr Twips FormWidth = 10200;
constexpr Twips FormHeight = 7500;
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
constexpr Twips FirstRow = 60; // tops of the rows of boxes above the grid
constexpr Twips SecondRow = 630;
constexpr Twips ThirdRow = 1200;
constexpr Twips LowerTop = 4380; // below the grid
constexpr Twips FramesTop = LowerTop + 660;
constexpr Twips FrameHeight = 960;
constexpr Twips RightColumn = 6900; // left edge of colours and comments
constexpr Twips RightWidth = FormWidth - RightColumn - Margin;

struct Spot {
    int index;
    Twips left;
    Twips top;
    Twips width;
};

/// Where the boxes stand: in the order of their indexes, in which the keys go through them.
constexpr std::array<Spot, box_of::Last> Spots{{
    {box_of::LastName, 120, FirstRow, 2700},
    {box_of::FirstName, 2940, FirstRow, 1500},
    {box_of::Id, 4560, FirstRow, 1100},
    {box_of::Assignment, 5780, FirstRow, 1300},
    {box_of::Pay, 7200, FirstRow, 1100},
    {box_of::Street, 120, SecondRow, 3900},
    {box_of::City, 4140, SecondRow, 2820},
    {box_of::State, 7080, SecondRow, 700},
    {box_of::Zip, 7900, SecondRow, 1500},
    {box_of::HireDate, 120, ThirdRow, 1300},
    {box_of::BirthDate, 1540, ThirdRow, 1300},
    {box_of::Phone, 2960, ThirdRow, 1700},
    {box_of::EmergencyPhone, 4780, ThirdRow, 1700},
    {box_of::CellPhone, 6600, ThirdRow, 1700},
    {box_of::SocSecNumber, 8420, ThirdRow, 1660},
    {box_of::Email, 120, LowerTop, 3900},
}};

} // namespace

void EmployeeForm::BuildBoxes() {
    setFixedSize(Pixels(FormWidth), Pixels(FormHeight));
    for (const Spot& spot : Spots) BuildBox(spot.index, spot.left, spot.top, spot.width);
    const std::string hint = DateHint(g_, ports_);
    for (const int date : {box_of::HireDate, box_of::BirthDate}) {
        Text2[date].setToolTip(ToQString(hint));
        SetHint(Text2[date], hint);
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

void EmployeeForm::BuildBox(int index, Twips left, Twips top, Twips width) {
    const EmployeeBox& facts = EmployeeBoxes()[index];
    auto& caption = Add(Label1, "Label1", index, "");
    caption.SetText(facts.label);
    Place(caption, left, top, width, CaptionHeight);
    TextBox& box = AddBox(index);
    box.SetTypingLimit(facts.maxLength);
    box.SetFocusColours(QBColor(14), QBColor(15));
    Place(box, left, top + CaptionHeight, width, BoxHeight);
    ConnectBox(index);
    if (index == box_of::Pay)
        box.rest = [&box] {
            box.SetText(NormalizedPay(box.Text()));
            return true;
        };
}

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
        Place(day, 120, GridTop + (d - 1) * absence::RowHeight, GridLeft - 180, absence::RowHeight - 15);
    }
}

Frame& EmployeeForm::AddFrame(const char* name, const char* title, Twips left, Twips width,
                              const std::string& hint) {
    auto& frame = Add<Frame>(name, title);
    frame.SetTitle(title);
    Place(frame, left, FramesTop, width, FrameHeight);
    SetHint(frame, hint);
    return frame;
}

/// Adds an option to its frame, two in a column.
void EmployeeForm::AddOption(ControlArray<QRadioButton>& array, const char* name, int index,
                             const char* caption, const char* tip, Frame& frame) {
    const auto place = static_cast<int>(array.Count());
    auto& option = Add(array, name, index, caption, &frame);
    option.setText(QString::fromLatin1(caption).trimmed());
    option.setToolTip(QLatin1String(tip));
    SetHint(option, tip);
    Place(option, 150 + place / 2 * 1500, 330 + place % 2 * 300, 1500, 240);
    On(option, &QRadioButton::clicked, [this] { Changed(); });
}

void EmployeeForm::BuildFrames() {
    Frame3D1 = &AddFrame("Frame3D1", "Pay rate", Margin, 1900, "");
    AddOption(Option3D2, "Option3D2", 1, " Hourly rate", "Pay is for one hour", *Frame3D1);
    AddOption(Option3D2, "Option3D2", 2, " Weekly salary", "Pay is for a whole week", *Frame3D1);
    Frame& status = AddFrame("Frame3D2(0)", "Status", 2140, 1500,
                             "Only Active " + g_.department.EmployeeNamePlural +
                                 " will listed in the Editors for scheduling.");
    AddOption(Option3D1, "Option3D1", 1, "Active", "Listed in the Editors", status);
    AddOption(Option3D1, "Option3D1", 2, "Inactive", "Kept, but not listed in the Editors", status);
    Frame& labor = AddFrame("Frame3D2(1)", "Labor type", 3760, 3040, "");
    AddOption(optLaborType, "optLaborType", 0, "Full- time", "Listed as Full time", labor);
    AddOption(optLaborType, "optLaborType", 1, "Part- time", "Listed as Part time", labor);
    AddOption(optLaborType, "optLaborType", 2, "Student", "Listed as Student", labor);
    AddOption(optLaborType, "optLaborType", 3, "Other", "Listed as Other", labor);
}

void EmployeeForm::BuildColours() {
    Label2 = &Add<Label>("Label2", "");
    Label2->setWordWrap(true); // a department's own word may be long
    Label2->SetAlignment(Qt::AlignLeft | Qt::AlignBottom);
    Place(*Label2, RightColumn, LowerTop, RightWidth, 2 * CaptionHeight);
    auto& colours = Add<QWidget>("Colors", "Time bar color");
    Place(colours, RightColumn - 302, LowerTop + 2 * CaptionHeight, 2700, 270);
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
    Picture3 = &Add<PictureBox>("Picture3", "Sample of the time bar");
    Place(*Picture3, RightColumn, LowerTop + 735, RightWidth, 240);
    const std::string tip = "The time bar of this " + g_.department.EmployeeNameSingle + " in the Editors";
    Picture3->setToolTip(ToQString(tip));
    SetHint(*Picture3, tip);
    Picture3->onPaint = [this](QPainter& painter, const QRegion&) { PaintSample(painter); };
}

void EmployeeForm::BuildComments() {
    constexpr Twips Top = LowerTop + 1035;
    auto& caption = Add<Label>("Label4", "");
    caption.SetText("Comments");
    Place(caption, RightColumn, Top, RightWidth, CaptionHeight);
    Text1 = &Add<QPlainTextEdit>("Text1", "Comments");
    Text1->setTabChangesFocus(true);
    SetHint(*Text1, "Add any comments you wish for this " + g_.department.EmployeeNameSingle + "...");
    Place(*Text1, RightColumn, Top + CaptionHeight, RightWidth, 870);
    On(*Text1, &QPlainTextEdit::textChanged, [this] { Changed(); });
}

void EmployeeForm::BuildFoot() {
    Label6 = &Add<Label>("Label6", "Age");
    Label6->SetColours(QBColor(12), std::nullopt);
    Place(*Label6, Margin, FramesTop + FrameHeight + 90, 6600, CaptionHeight);
    Label3 = &Add<Label>("Label3", "Hint");
    Label3->SetColours(QBColor(1), std::nullopt);
    Place(*Label3, Margin, FormHeight - 900, FormWidth - 2 * Margin, CaptionHeight);
    Panel3D2 = &Add<FloodPanel>("Panel3D2", "Saving");
    Place(*Panel3D2, Margin, FormHeight - 900, 6600, CaptionHeight);
    gauge_ = std::make_unique<FloodGauge>(*Panel3D2);
}

void EmployeeForm::BuildButtons() {
    const auto button = [&](const char* name, const char* text, Twips left, Twips width) {
        auto& made = Add<QPushButton>(name, "");
        made.setText(QLatin1String(text));
        Place(made, left, FormHeight - 570, width, 420);
        return &made;
    };
    constexpr Twips Wide = 3360; // room for the department's own word
    constexpr Twips Narrow = 900;
    constexpr Twips Step = Narrow + Margin;
    Command2 = button("Command2", "&Previous", Margin, Wide);
    Command3 = button("Command3", "&Next", 2 * Margin + Wide, Wide);
    QPushButton* helpButton = button("Command3D3", "&Help", FormWidth - 3 * Step, Narrow);
    QPushButton* ok = button("Command3D1", "&OK", FormWidth - 2 * Step, Narrow);
    QPushButton* close = button("cmdExit", "&Close", FormWidth - Step, Narrow);
    OnCommand(*Command2, Role::Plain, [this] { MoveTo(-1); });
    OnCommand(*Command3, Role::Plain, [this] { MoveTo(1); });
    OnCommand(*helpButton, Role::Aside, [this] { ports_.help.ShowTopic(help::EmployeeRecord); });
    OnCommand(*ok, Role::Plain, [this] { Save(); });
    OnCommand(*close, Role::Cancel, [this] { Leave(); });
}

void EmployeeForm::HidePay() {
    if (!g_.rights.HideWages) return;
    Text2[box_of::Pay].hide();
    Label1[box_of::Pay].hide();
    Frame3D1->hide();
    Option3D2[1].hide();
    Option3D2[2].hide();
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
