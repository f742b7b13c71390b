#include "editor/screens/TotalsForm.h"

#include <array>

namespace tvx::qt {
namespace {

constexpr Twips Width = 4800;
constexpr Twips Height = 2700;

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
        Place(head, 1500 + static_cast<Twips>(c) * 1600, 180, 1400, 270);
    }
    for (int r = 1; r <= 3; ++r) {
        const Twips top = 150 + r * 330;
        auto& name = Add<Label>("", rows[r]);
        name.SetText(rows[r]);
        Place(name, 245, top, 1200, 270);
        auto& money = Add(Label2, "Label2", r, std::string(rows[r]) + " compensation");
        money.SetText(box.Label2[r]);
        money.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Place(money, 1500, top, 1400, 270);
        auto& hours = Add(Label3, "Label3", r, std::string(rows[r]) + " hours");
        hours.SetText(box.Label3[r]);
        hours.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
        Place(hours, 3100, top, 1400, 270);
    }
    auto& active = Add<Label>("Active", "Active");
    active.SetText(box.activeCaption);
    const Twips captionWidth = ToTwips(active.fontMetrics().horizontalAdvance(active.text())) + 60;
    Place(active, 245, 1502, captionWidth, 270);
    auto& count = Add<Label>("ActiveCount", "Active");
    count.SetText(box.activeCount);
    count.SetColours(QBColor(9), std::nullopt);
    Place(count, 245 + captionWidth, 1502, 900, 270);
    cmdCancel = &Add<QPushButton>("cmdCancel", "Close");
    cmdCancel->setText(QStringLiteral("&Close"));
    Place(*cmdCancel, Width - 245 - 1200, Height - 245 - 390, 1200, 390);
    On(*cmdCancel, &QPushButton::clicked, [this] { Unload(); });
    SetDefaultButton(*cmdCancel);
    SetCancelButton(*cmdCancel);
}

} // namespace tvx::qt
