#include "editor/screens/TotalsForm.h"

#include <array>

namespace tvx::qt {
namespace {

constexpr Twips Width = 6900; // room for the title
constexpr Twips Height = 2700;
constexpr Twips Margin = 245;
constexpr Twips Line = 270;        // the height of a text
constexpr Twips HoursWidth = 2010; // of the last column, the gap before it included

} // namespace

TotalsForm::TotalsForm(const GlobalState& g, Ports& ports, Form* owner) : Form(ports, "Form15", owner) {
    setWindowTitle(QStringLiteral("Current weekly hours and compensation totals"));
    const TotalsBox box = WeeklyTotalsBox(g);
    QVBoxLayout& column = Column();
    column.setContentsMargins(Pixels(Margin), Pixels(180), Pixels(Margin), Pixels(Margin));
    column.setSpacing(0);
    BuildFigures(column, box);
    column.addSpacing(Pixels(30));
    BuildActive(column, box);
    column.addStretch();
    QHBoxLayout& row = Row(column);
    row.addStretch();
    QPushButton& close = AddCommand({"cmdCancel", "&Close", [this] { Unload(); }, Role::Default}, row);
    close.setFixedSize(Pixels(1200), Pixels(390));
    SetCancelButton(close);
    FixSize(Width, Height);
}

void TotalsForm::BuildFigures(QBoxLayout& column, const TotalsBox& box) {
    constexpr std::array<const char*, 4> lines{"", "Wages", "Salaries", "Total"};
    auto& grid = *new QGridLayout;
    column.addLayout(&grid);
    grid.setSpacing(0);
    grid.setColumnStretch(0, 1);
    grid.setColumnMinimumWidth(2, Pixels(HoursWidth));
    grid.setRowMinimumHeight(0, Pixels(300));
    AddText(grid, 0, 1, Add<Label>("", "Compensation"), "Compensation");
    AddText(grid, 0, 2, Add<Label>("", "Hours"), "Hours");
    for (int line = 1; line <= 3; ++line) {
        const std::string what = lines.at(static_cast<std::size_t>(line));
        grid.setRowMinimumHeight(line, Pixels(330));
        AddText(grid, line, 0, Add<Label>("", what), what);
        AddText(grid, line, 1, Add(Label2, "Label2", line, what + " compensation"), box.Label2[line]);
        AddText(grid, line, 2, Add(Label3, "Label3", line, what + " hours"), box.Label3[line]);
    }
}

/// Column 0 says what the figures of a line are.
void TotalsForm::AddText(QGridLayout& grid, int line, int column, Label& label, const std::string& text) {
    label.SetText(text);
    if (column > 0) label.SetAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label.setFixedHeight(Pixels(Line));
    grid.addWidget(&label, line, column, Qt::AlignTop);
}

void TotalsForm::BuildActive(QBoxLayout& column, const TotalsBox& box) {
    QHBoxLayout& row = Row(column);
    row.setSpacing(Pixels(60));
    Label& caption = AddLabel("Active", box.activeCaption, row);
    Label& count = AddLabel("ActiveCount", box.activeCount, row);
    count.SetColours(QBColor(9), std::nullopt);
    for (Label* label : {&caption, &count}) {
        label->setAccessibleName(QStringLiteral("Active"));
        label->setFixedHeight(Pixels(Line));
    }
    row.addStretch();
}

} // namespace tvx::qt
