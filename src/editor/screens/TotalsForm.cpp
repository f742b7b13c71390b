#include "editor/screens/TotalsForm.h"

#include <array>

namespace tvx::qt {
namespace {

constexpr Twips Width = 6900; // room for the title
constexpr Twips Height = 2700;
constexpr Twips Margin = 245;
constexpr Twips ColumnWidth = 1400;

/// Left edge of a column of figures: 0 money, 1 hours, which ends at the margin.
Twips LeftOf(int column) {
    return Width - Margin - ColumnWidth - (1 - column) * 2000;
}

} // namespace

TotalsForm::TotalsForm(const GlobalState& g, Ports& ports, Form* owner) : Form(ports, "Form15", owner) {
    setWindowTitle(QStringLiteral("Current weekly hours and compensation totals"));
    setFixedSize(Pixels(Width), Pixels(Height));
    PlaceControls(WeeklyTotalsBox(g));
    CenterForm();
}

void TotalsForm::PlaceControls(const TotalsBox& box) {
    constexpr std::array<const char*, 4> rows{"", "Wages", "Salaries", "Total"};
    constexpr std::array<const char*, 2> heads{"Compensation", "Hours"};
    for (std::size_t c = 0; c < heads.size(); ++c) {
        auto& head = Add<Label>("", heads[c]);
        head.SetText(heads[c]);
        head.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Place(head, LeftOf(static_cast<int>(c)), 180, ColumnWidth, 270);
    }
    for (int r = 1; r <= 3; ++r) {
        const Twips top = 150 + r * 330;
        auto& name = Add<Label>("", rows[r]);
        name.SetText(rows[r]);
        Place(name, Margin, top, 1200, 270);
        auto& money = Add(Label2, "Label2", r, std::string(rows[r]) + " compensation");
        money.SetText(box.Label2[r]);
        money.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Place(money, LeftOf(0), top, ColumnWidth, 270);
        auto& hours = Add(Label3, "Label3", r, std::string(rows[r]) + " hours");
        hours.SetText(box.Label3[r]);
        hours.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Place(hours, LeftOf(1), top, ColumnWidth, 270);
    }
    auto& active = Add<Label>("Active", "Active");
    active.SetText(box.activeCaption);
    const Twips captionWidth = ToTwips(active.fontMetrics().horizontalAdvance(active.text())) + 60;
    Place(active, Margin, 1502, captionWidth, 270);
    auto& count = Add<Label>("ActiveCount", "Active");
    count.SetText(box.activeCount);
    count.SetColours(QBColor(9), std::nullopt);
    Place(count, Margin + captionWidth, 1502, 900, 270);
    cmdCancel = &Add<QPushButton>("cmdCancel", "Close");
    cmdCancel->setText(QStringLiteral("&Close"));
    Place(*cmdCancel, Width - Margin - 1200, Height - Margin - 390, 1200, 390);
    On(*cmdCancel, &QPushButton::clicked, [this] { Unload(); });
    SetDefaultButton(*cmdCancel);
    SetCancelButton(*cmdCancel);
}

} // namespace tvx::qt
