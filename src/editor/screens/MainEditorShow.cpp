// What the Main Editor shows: names, values, totals, header and ruler.
#include "editor/DayHeader.h"
#include "editor/Headcount.h"
#include "editor/RowValues.h"
#include "editor/lanes/screens/PaintDrawing.h"
#include "editor/screens/MainEditorForm.h"

#include <QPainter>
#include <QPainterPath>

namespace tvx::qt {
namespace {

constexpr Twips SquareStep = 75;
constexpr Twips SquareWidth = 60;
constexpr double HeadcountPoints = 9.75; // figures of nine pixels at 96 to the inch

Qt::Alignment AlignmentOf(const RowValues& values) {
    return (values.align == Align::Right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

void MainEditorForm::ShowTitle() {
    setWindowTitle(ToQString(EditorTitle(g_.roster, g_.department, g_.week)));
}

void MainEditorForm::DrawDayHeader() {
    pctWeekday->Show(DayHeader(g_.department, g_.week, g_.figures, g_.cursor.CurrentDay, ports_.region,
                               pctWeekday->IsWide()));
    for (int d = 1; d <= 7; ++d)
        if (g_.figures.DayMemoFlag[d]) pctWeekday->imMemo[d].setToolTip(ToQString(g_.figures.DayMemoText[d]));
}

/// What can be chosen now, and which of the toggles are on.
void MainEditorForm::ShowCommands() {
    menus_->Show(commands_.Entries("MenuBar"));
    for (const MenuEntry& entry : commands_.Entries("ToolStrip")) {
        LabelButton& tool = *tools_.at(entry.name);
        tool.setEnabled(entry.enabled);
        tool.setVisible(entry.visible);
        if (entry.toggles) tool.setChecked(entry.checked);
    }
}

void MainEditorForm::ShowRows() {
    for (int row = 1; row <= lanes_.Count(); ++row) ShowRow(row);
}

void MainEditorForm::ShowRow(int row) {
    const int e = lanes_.At(row).employee;
    const std::string name = g_.roster.RosterName1[e] + " " + g_.roster.RosterName2[e];
    Label9[row].SetText(name);
    const bool lit = row == highlighted_;
    Label9[row].SetColours(QBColor(lit ? 15 : 0), lit ? QBColor(9) : LightBlue);
    daytypes_.Show(row, name);
    ShowRowValue(row);
}

void MainEditorForm::ShowRowValue(int row) {
    const RowValues values = ShowRowValues(g_, grid_.ShowOption, lanes_.At(row).employee, ports_.region);
    const auto show = [&](Label& label, const std::string& text, const ValueColours& colours) {
        label.SetText(text);
        label.SetColours(colours.text, colours.back);
        label.SetAlignment(AlignmentOf(values));
    };
    Label10[row].setVisible(!values.pair && !values.squares);
    Label23[row].setVisible(values.pair);
    Label24[row].setVisible(values.pair);
    squares_[row].setVisible(values.squares);
    if (values.pair) {
        show(Label23[row], values.day, values.dayColours);
        show(Label24[row], values.week, values.weekColours);
    } else if (values.squares) {
        squares_[row].update();
    } else {
        show(Label10[row], values.single, values.singleColours);
    }
}

void MainEditorForm::PaintSquares(QPainter& painter, int row) const {
    const RowValues values = ShowRowValues(g_, grid_.ShowOption, lanes_.At(row).employee, ports_.region);
    painter.fillRect(squares_[row].rect(), ToColor(LightBlue));
    for (int d = 1; d <= 7; ++d) {
        const Twips left = d * SquareStep;
        painter.fillRect(SharpRect({left, 50, left + SquareWidth, 180}, *painter.device()),
                         ToColor(values.squareColours[d]));
    }
}

void MainEditorForm::ShowTotals() {
    RefreshTotalsLabels();
    ShowProductivity();
}

void MainEditorForm::RefreshTotalsLabels() {
    const auto texts = TotalsTexts(g_.totals, g_.rights, g_.application.options.TimeFormat);
    for (int i = 0; i < 4; ++i) Label15[i].SetText(texts[i]);
}

/// The labor figures, which show only in a week that has sales or transactions.
void MainEditorForm::ShowProductivity() {
    const bool figures = g_.figures.HasDepartmentFigures;
    const auto texts = ProductivityTexts(g_);
    for (int i = 0; figures && i < 6; ++i) Label1[i].SetText(texts[i]);
    for (const auto& [index, label] : Label1) label->setVisible(figures);
    for (const auto& [index, label] : Label5) label->setVisible(figures);
}

void MainEditorForm::ShowSelectedOption() {
    for (const auto& [option, button] : Label4) button->setChecked(option == grid_.ShowOption);
    valueHead_->SetText(ShowOptions()[grid_.ShowOption].caption);
    valueHead_->SetAlignment(
        AlignmentOf(ShowRowValues(g_, grid_.ShowOption, lanes_.At(1).employee, ports_.region)));
    PlaceColumns();
    for (int row = 1; row <= lanes_.Count(); ++row) ShowRowValue(row);
}

void MainEditorForm::ShowRuler() {
    Picture2->update();
}

void MainEditorForm::HighlightRow(int row) {
    if (row == highlighted_) return;
    const int before = highlighted_;
    highlighted_ = row;
    for (const int changed : {before, row})
        if (Label9.Has(changed)) {
            const bool lit = changed == row;
            Label9[changed].SetColours(QBColor(lit ? 15 : 0), lit ? QBColor(9) : LightBlue);
        }
}

void MainEditorForm::PaintRuler(QPainter& painter) const {
    // The ruler is two quarters wider than the grid on both sides, so that the texts at its ends are whole.
    const TwipsPoint origin{2 * grid_.QuarterWidth, 0};
    PaintRulerGround(painter, origin.x);
    const auto measure = [&](const QFont& font) {
        return [metrics = QFontMetrics(font, painter.device())](const std::string& text) {
            return ToTwips(metrics.horizontalAdvance(ToQString(text)));
        };
    };
    const int cutoff = g_.department.DayCutoffQuarters;
    Drawing ruler;
    DrawHourRuler(grid_, cutoff, g_.application.options.ClockStyle, measure(painter.font()), ruler);
    PaintDrawing(painter, ruler, origin);
    QFont small = painter.font();
    small.setPointSizeF(HeadcountPoints);
    Drawing headcount;
    ShowHeadcount(grid_, g_.week, g_.cursor.CurrentDay, cutoff, measure(small), headcount);
    painter.save();
    painter.setFont(small);
    PaintDrawing(painter, headcount, origin);
    painter.restore();
    Drawing ticks;
    DrawTickMarks(grid_, ticks);
    PaintDrawing(painter, ticks, origin);
    PaintMarker(painter);
}

/// Grey under the ticks; at both ends only the band of the hours runs on, under the halves of their texts.
void MainEditorForm::PaintRulerGround(QPainter& painter, Twips overhang) const {
    constexpr Twips BandHeight = 280;
    const Twips right = overhang + grid_.GridWidth;
    const auto fill = [&](const TwipsBox& box, Colour colour) {
        painter.fillRect(SharpRect(box, *painter.device()), ToColor(colour));
    };
    painter.fillRect(Picture2->rect(), palette().color(QPalette::Window));
    fill({0, 0, overhang, BandHeight}, QBColor(3));
    fill({right, 0, right + overhang, BandHeight}, QBColor(3));
    fill({overhang, 0, right, RulerHeight}, QBColor(8));
}

/// The mark that follows the mouse along the ruler.
void MainEditorForm::PaintMarker(QPainter& painter) const {
    if (markerX_ < 0) return;
    const double x = Pixels(markerX_ + 2 * grid_.QuarterWidth);
    const double bottom = Picture2->height();
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath arrow(QPointF(x, bottom));
    arrow.lineTo(x - 5, bottom - 9);
    arrow.lineTo(x + 5, bottom - 9);
    arrow.closeSubpath();
    painter.fillPath(arrow, ToColor(QBColor(12)));
}

} // namespace tvx::qt
