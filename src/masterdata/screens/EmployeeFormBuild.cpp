// The controls of the employee record, where they stand, and what is painted around them.
#include "masterdata/screens/EmployeeForm.h"
#include "platform/qt/FloodGauge.h"

#include <QPainter>

#include <array>
#include <string>

namespace tvx::qt {
namespace {

constexpr Twips FormWidth = 10200;
constexpr Twips FormHeight = 7560;
constexpr Twips GridLeft = 990;
constexpr Twips GridTop = 2230;
constexpr Twips StripTop = 2050;
constexpr Twips HoursTop = 3920;
constexpr Twips RulerTop = 4130;
constexpr Twips HourWidth = 4 * absence::QuarterWidth;
constexpr Twips BoxHeight = 300;
constexpr Twips CaptionHeight = 210;
constexpr Twips LowerTop = 4500;

struct Spot {
    int index;
    Twips left;
    Twips top;
    Twips width;
};

/// Where the boxes stand: name and address above the grid, the rest below it.
constexpr std::array<Spot, box_of::Last> Spots{{
    {box_of::LastName, 120, 90, 2700},
    {box_of::FirstName, 2940, 90, 1500},
    {box_of::Id, 4560, 90, 1100},
    {box_of::Assignment, 5780, 90, 1300},
    {box_of::Street, 120, 690, 3900},
    {box_of::City, 4140, 690, 2820},
    {box_of::State, 7080, 690, 700},
    {box_of::Zip, 7900, 690, 1500},
    {box_of::Phone, 120, 1290, 2100},
    {box_of::EmergencyPhone, 2340, 1290, 2100},
    {box_of::CellPhone, 4560, 1290, 2100},
    {box_of::Email, 6780, 1290, 3300},
    {box_of::HireDate, 120, LowerTop, 1700},
    {box_of::BirthDate, 1940, LowerTop, 1700},
    {box_of::SocSecNumber, 3760, LowerTop, 1700},
    {box_of::Pay, 5700, LowerTop, 1100},
}};

} // namespace

void EmployeeForm::BuildBoxes() {
    setFixedSize(Pixels(FormWidth), Pixels(FormHeight));
    for (int index = 1; index <= box_of::Last; ++index)
        for (const Spot& spot : Spots)
            if (spot.index == index) BuildBox(index, spot.left, spot.top, spot.width);
    const QString hint = ToQString(DateHint(g_, ports_));
    Text2[box_of::HireDate].setToolTip(hint);
    Text2[box_of::BirthDate].setToolTip(hint);
}

void EmployeeForm::BuildBox(int index, Twips left, Twips top, Twips width) {
    const EmployeeBox& facts = EmployeeBoxes()[index];
    auto& caption = Add(Label1, "Label1", index, "");
    caption.SetText(facts.label);
    Place(caption, left, top, width, CaptionHeight);
    auto& box = Add(Text2, "Text2", index, facts.label);
    box.SetTypingLimit(facts.maxLength);
    box.SetFocusColours(QBColor(14), QBColor(15));
    Place(box, left, top + CaptionHeight, width, BoxHeight);
    ConnectBox(index);
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

QRadioButton& EmployeeForm::AddOption(ControlArray<QRadioButton>& array, const char* name, int index,
                                      const char* caption, Frame& frame, Twips left, Twips top) {
    auto& option = Add(array, name, index, caption, &frame);
    option.setText(QString::fromLatin1(caption).trimmed());
    Place(option, left, top, 1500, 240);
    On(option, &QRadioButton::clicked, [this] { Changed(); });
    return option;
}

void EmployeeForm::BuildFrames() {
    const auto frame = [&](const char* name, const char* title, Twips left, Twips width,
                           const std::string& hint) {
        auto& made = Add<Frame>(name, title);
        made.SetTitle(title);
        Place(made, left, LowerTop + 600, width, 1140);
        made.onHover = [=, this](bool over) { ShowHint(over ? hint : ""); };
        return &made;
    };
    Frame3D1 = frame("Frame3D1", "Pay rate", 120, 1900, "");
    AddOption(Option3D2, "Option3D2", 1, " Hourly rate", *Frame3D1, 150, 330);
    AddOption(Option3D2, "Option3D2", 2, " Weekly salary", *Frame3D1, 150, 630);
    Frame* status = frame("Frame3D2(0)", "Status", 2140, 1500,
                          "Only Active " + g_.department.EmployeeNamePlural +
                              " will listed in the Editors for scheduling.");
    AddOption(Option3D1, "Option3D1", 1, "Active", *status, 150, 330);
    AddOption(Option3D1, "Option3D1", 2, "Inactive", *status, 150, 630);
    Frame* labor = frame("Frame3D2(1)", "Labor type", 3760, 3040, "");
    constexpr std::array<const char*, 4> types{"Full- time", "Part- time", "Student", "Other"};
    for (int i = 0; i < 4; ++i)
        AddOption(optLaborType, "optLaborType", i, types[static_cast<std::size_t>(i)], *labor,
                  150 + i / 2 * 1500, 330 + i % 2 * 300);
}

void EmployeeForm::BuildColours() {
    Label2 = &Add<Label>("Label2", "");
    Place(*Label2, 6900, LowerTop, 3200, CaptionHeight);
    auto& colours = Add<QWidget>("Colors", "Time bar color");
    Place(colours, 6900, LowerTop + CaptionHeight, 2700, 300);
    constexpr std::array<const char*, 15> names{"",           "Blue",           "Green",        "Cyan",
                                                "Red",        "Magenta",        "Brown",        "Light grey",
                                                "Grey",       "Bright blue",    "Bright green", "Bright cyan",
                                                "Bright red", "Bright magenta", "Yellow"};
    for (int i = 1; i <= 14; ++i) {
        auto& colour = Add(lblColor, "lblColor", i, names[static_cast<std::size_t>(i)], &colours);
        colour.SetColours(QBColor(0), QBColor(i));
        Place(colour, i * 162 + 140, 30, 162, 240);
        On(colour, &QPushButton::clicked, [=, this] { ChooseColour(i); });
    }
    Picture3 = &Add<PictureBox>("Picture3", "Sample of the time bar");
    Place(*Picture3, 6900, LowerTop + 540, 3180, 240);
    Picture3->setToolTip(
        ToQString("The time bar of this " + g_.department.EmployeeNameSingle + " in the Editors"));
    Picture3->onPaint = [this](QPainter& painter, const QRegion&) { PaintSample(painter); };
    Picture3->onMouseMove = [this](Qt::MouseButtons, TwipsPoint) {
        ShowHint(FromQString(Picture3->toolTip()));
    };
}

void EmployeeForm::BuildFoot() {
    auto& caption = Add<Label>("Label4", "");
    caption.SetText("Comments");
    Place(caption, 6900, LowerTop + 840, 3180, CaptionHeight);
    Text1 = &Add<QPlainTextEdit>("Text1", "Comments");
    Text1->setTabChangesFocus(true);
    Text1->setToolTip(
        ToQString("Add any comments you wish for this " + g_.department.EmployeeNameSingle + "..."));
    Place(*Text1, 6900, LowerTop + 840 + CaptionHeight, 3180, 690);
    On(*Text1, &QPlainTextEdit::textChanged, [this] { Changed(); });
    Label6 = &Add<Label>("Label6", "Age");
    Label6->SetColours(QBColor(12), std::nullopt);
    Place(*Label6, 120, LowerTop + 1830, 6600, 270);
    Label3 = &Add<Label>("Label3", "Hint");
    Label3->SetColours(QBColor(1), std::nullopt);
    Place(*Label3, 120, FormHeight - 990, FormWidth - 240, 270);
    Panel3D2 = &Add<FloodPanel>("Panel3D2", "Saving");
    Place(*Panel3D2, 120, LowerTop + 2130, 6600, 210);
    gauge_ = std::make_unique<FloodGauge>(*Panel3D2);
    const auto button = [&](const char* name, const char* text, Twips left, Twips width) {
        auto& made = Add<QPushButton>(name, "");
        made.setText(QLatin1String(text));
        Place(made, left, FormHeight - 600, width, 420);
        return &made;
    };
    Command2 = button("Command2", "&Previous", 120, 2300);
    Command3 = button("Command3", "&Next", 2520, 2300);
    QPushButton* helpButton = button("Command3D3", "&Help", FormWidth - 4140, 1260);
    QPushButton* ok = button("Command3D1", "&OK", FormWidth - 2760, 1260);
    QPushButton* close = button("cmdExit", "&Close", FormWidth - 1380, 1260);
    On(*Command2, &QPushButton::clicked, [this] { MoveTo(-1); });
    On(*Command3, &QPushButton::clicked, [this] { MoveTo(1); });
    On(*helpButton, &QPushButton::clicked, [this] { ports_.help.ShowTopic(help::EmployeeRecord); });
    On(*ok, &QPushButton::clicked, [this] { SaveFromButton(); });
    On(*close, &QPushButton::clicked, [this] { Leave(); });
    SetCancelButton(*close);
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
    painter.fillRect(Picture1->rect(), ToColor(Silver));
    const auto line = [&](Twips x, Twips top, Twips bottom, Colour colour) {
        painter.fillRect(SharpRect({x, top, x + 15, bottom}, device), ToColor(colour));
    };
    const Twips height = 7 * absence::RowHeight;
    for (Twips x = 0; x <= absence::RightEnd; x += absence::QuarterWidth) line(x, 0, height, QBColor(0));
    for (Twips x = 0; x <= absence::RightEnd; x += HourWidth) line(x, 0, height, QBColor(12));
    for (int row = 1; row <= 7; ++row)
        for (const AbsenceBox& box : DrawAvailabilityRow(grid_.Bars(), row))
            painter.fillRect(SharpRect({box.left, box.top, box.right, box.bottom}, device),
                             ToColor(box.bar ? Red : QBColor(15)));
    for (Twips y = 230; y < height; y += absence::RowHeight)
        painter.fillRect(SharpRect({0, y, absence::RightEnd, y + 15}, device), Qt::black);
    const auto [left, right] = grid_.Band();
    const Twips top = (grid_.Row() - 1) * absence::RowHeight;
    if (left < right)
        painter.fillRect(SharpRect({left, top + absence::BandTop, right, top + absence::BandBottom}, device),
                         ToColor(QBColor(12)));
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
    const bool twelve = g_.application.Settings[setting::ClockStyle] == "12";
    const QFontMetrics metrics = painter.fontMetrics();
    for (int hour = 0; hour <= 24; ++hour) {
        const bool named = hour % 12 == 0;
        std::string text = std::to_string(hour);
        if (hour % 24 == 0)
            text = "M";
        else if (twelve && hour != 12)
            text = hour < 12 ? text + "a" : std::to_string(hour - 12) + "p";
        painter.setPen(named ? ToColor(QBColor(9)) : palette().color(QPalette::WindowText));
        // Right edges stand half an hour behind the tick, so that two characters are centred on it.
        const int right = Pixels(1170 + HourWidth * hour) - Pixels(60);
        painter.drawText(right - metrics.horizontalAdvance(ToQString(text)),
                         Pixels(HoursTop) + metrics.ascent(), ToQString(text));
    }
    const auto tick = [&](Twips x, Twips length, Colour colour) {
        painter.fillRect(SharpRect({x, RulerTop, x + 15, RulerTop + length}, *painter.device()),
                         ToColor(colour));
    };
    for (Twips x = 990; x <= 9660; x += absence::QuarterWidth) tick(x, 60, QBColor(0));
    for (Twips x = 1170; x <= 9660; x += HourWidth) tick(x, 105, QBColor(0));
    for (Twips x = 990; x <= 9660; x += HourWidth) tick(x, 105, QBColor(12));
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
