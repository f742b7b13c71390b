// Painting the Main Editor with 100 lanes on a screen of 3840 x 2160, beside a bare painter that fills the
// same rectangles and writes the same texts.
#include "Ratios.h"
#include "desktop/QtPorts.h"
#include "editor/RowValues.h"
#include "editor/lanes/LaneView.h"
#include "editor/lanes/screens/PaintDrawing.h"
#include "editor/screens/MainEditorForm.h"
#include "support/TempFolder.h"
#include "support/TestStore.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>

#include <memory>

namespace tvx::bench {
namespace {

constexpr DaySerial Sunday = 45294;
constexpr int People = 100;

/// A store with a hundred people and the editor open on their week.
struct Editor {
    Editor() {
        store.g.screen = {3840 * 15, 2160 * 15 - 150, 24};
        store.AddDepartment("Bench");
        store.AddPeople(People);
        store.FillWeeks(Sunday, 1);
        store.script.clock.Set(Sunday + 2);
        store.OpenEditor();
        form = std::make_unique<qt::MainEditorForm>(store.g, store.ports(), screens, nullptr);
        form->ShowModeless();
        form->setWindowState(Qt::WindowNoState);
        form->setGeometry(0, 0, 3840, 2160);
        QApplication::processEvents();
    }
    GlobalState& g() { return store.g; }

    test::TestStore store;
    MainLanes lanes{store.grid, store.g.roster, store.g.cursor};
    BarDrag drag{lanes, store.g};
    LaneView view{lanes, drag, store.g};
    qt::Screens screens; // none: nothing is opened over it
    std::unique_ptr<qt::MainEditorForm> form;
};

int NextDay(Editor& editor) {
    return editor.g().cursor.CurrentDay % 7 + 1;
}

/// The lanes as rectangles and texts.
Drawing LanesOf(const Editor& editor) {
    Drawing drawing;
    for (int row = 1; row <= editor.lanes.Count(); ++row) {
        editor.view.DrawAvailability(row, drawing);
        editor.view.DrawRow(row, drawing);
    }
    return drawing;
}

/// What changes beside each lane: the value and the daytype.
void FillRowsBare(QPainter& painter, const Editor& editor) {
    const GlobalState& g = editor.store.g;
    const test::ScriptedRegion region;
    for (int row = 1; row <= editor.store.grid.VisibleRows; ++row) {
        const int e = editor.lanes.At(row).employee;
        for (const char* name : {"Label10(", "Text1("}) {
            const auto* control = editor.form->Find<QWidget>(name + std::to_string(row) + ")");
            const QRect place(control->mapTo(editor.form.get(), QPoint(0, 0)), control->size());
            painter.fillRect(place, qt::ToColor(LightBlue));
            const std::string text = name[0] == 'T'
                                         ? g.week.DayTypeText[g.cursor.CurrentDay][e]
                                         : ShowRowValues(g, editor.store.grid.ShowOption, e, region).single;
            painter.drawText(place, Qt::AlignVCenter, qt::ToQString(text));
        }
    }
}

double FillBare(Editor& editor, QImage& image, const Drawing& lanes, const Drawing& ruler) {
    return Seconds([&] {
        QPainter painter(&image);
        painter.setPen(Qt::black);
        painter.setFont(editor.form->Find<QWidget>("Label9(1)")->font());
        for (const char* surface : {"Picture1", "Picture2", "pctWeekday"}) {
            const auto* widget = editor.form->Find<QWidget>(surface);
            painter.fillRect(QRect(widget->mapTo(editor.form.get(), QPoint(0, 0)), widget->size()),
                             qt::ToColor(QBColor(8)));
        }
        qt::PaintDrawing(painter, lanes, {editor.store.grid.GridLeft, 3000});
        qt::PaintDrawing(painter, ruler, {editor.store.grid.GridLeft, 2000});
        FillRowsBare(painter, editor);
    });
}

void SelectDayPair(const std::shared_ptr<Editor>& editor, const std::shared_ptr<QImage>& image) {
    Pair(
        "SelectDay, painted/100",
        [editor] {
            const int day = NextDay(*editor);
            return Seconds([&] {
                editor->form->SelectDay(day);
                QApplication::processEvents();
            });
        },
        [editor, image] {
            editor->g().cursor.CurrentDay = NextDay(*editor);
            const Drawing lanes = LanesOf(*editor);
            Drawing ruler;
            const auto widthOf = [](const std::string& text) { return static_cast<Twips>(text.size()) * 90; };
            DrawHourRuler(editor->store.grid, 0, editor->g().application.options.ClockStyle, widthOf, ruler);
            DrawTickMarks(editor->store.grid, ruler);
            return FillBare(*editor, *image, lanes, ruler);
        });
}

void Send(QWidget& widget, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// A step of a drag, beside a paint of the whole grid: how many times it goes into it.
void DragPair(const std::shared_ptr<Editor>& editor) {
    auto* grid = editor->form->Find<QWidget>("Picture1");
    const auto step = std::make_shared<int>(0);
    Pair(
        "one step of a drag beside the whole grid/100",
        [=] {
            const double y = 6;
            if (*step == 0) Send(*grid, QEvent::MouseButtonPress, {100, y}, Qt::LeftButton, Qt::LeftButton);
            QApplication::processEvents();
            const int x = 110 + *step % 200;
            ++*step;
            return Seconds([&] {
                Send(*grid, QEvent::MouseMove, QPointF(x, y), Qt::NoButton, Qt::LeftButton);
                QApplication::processEvents();
            });
        },
        [=] {
            grid->update();
            return Seconds([&] { QApplication::processEvents(); });
        });
}

} // namespace
} // namespace tvx::bench

int main(int count, char** arguments) {
    const tvx::test::TempFolder folder;
    const std::string screen = (folder / "screen.json").string();
    tvx::test::WriteFile(screen,
                         R"({"screens":[{"name":"s","x":0,"y":0,"width":3840,"height":2160,"logicalDpi":96,)"
                         R"("logicalBaseDpi":96,"dpr":1}]})");
    qputenv("QT_QPA_PLATFORM", QByteArray("offscreen:configfile=") + screen.c_str());
    int none = 1;
    const QApplication application(none, arguments);
    tvx::qt::SetUpLook();
    const auto editor = std::make_shared<tvx::bench::Editor>();
    const auto image = std::make_shared<QImage>(3840, 2160, QImage::Format_RGB32);
    tvx::bench::SelectDayPair(editor, image);
    tvx::bench::DragPair(editor);
    return tvx::bench::RunPairs(count, arguments);
}
