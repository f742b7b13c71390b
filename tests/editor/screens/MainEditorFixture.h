// The Main Editor as its tests work it: a bakery of three with a week, the real form, and a person's eyes and
// hands. What a test cannot see is read here and nowhere else.
#pragma once

#include "editor/lanes/screens/TimeGrid.h"
#include "editor/screens/MainEditorForm.h"
#include "masterdata/DaytypesRequest.h"
#include "masterdata/ShiftsRequest.h"
#include "reports/schedules/SchedulesRequest.h"
#include "support/FailingSession.h"
#include "support/Screens.h"
#include "support/TestStore.h"
#include "support/Usability.h"

#include <QAccessible>

#include <gtest/gtest.h>

#include <fstream>

namespace tvx {

/// Notes what was opened over the editor, and does there what the test says.
class ScriptedScreens : public qt::Screens {
  public:
    ScriptedScreens() {
        Script<DaytypesRequest>("Daytypes");
        Script<ShiftsRequest>("Shifts");
        Script<SchedulesRequest>("Schedules");
    }
    std::vector<std::string> opened;
    std::function<void()> deed;

  private:
    template <typename Request>
    void Script(const char* screen) {
        Register<Request>([this, screen](const Request&, qt::Form&) {
            opened.emplace_back(screen);
            if (deed) deed();
            return typename Request::Answer{};
        });
    }
};

class MainEditorTest : public testing::Test {
  protected:
    using Rows = std::vector<std::string>;
    static constexpr DaySerial Sunday = 46082; // 1 March 2026; the editor opens on the Monday after

    std::shared_ptr<test::Faults> faults = std::make_shared<test::Faults>();
    test::TestStore store{dao::Engine(test::TestEngineOptions(), test::FailingSessions(faults))};
    ScriptedScreens screens;
    std::unique_ptr<qt::MainEditorForm> form;

    /// Adams by the hour, on Monday from 9 to 5; Brown on salary; Clark by the hour.
    void SetUp() override {
        qt::InstallPartsAccessibility();
        store.AddDepartment("Bakery");
        store.AddEmployee({.lastName = "Adams",
                           .firstName = "Anna",
                           .pay = "7.25",
                           .id = "A7",
                           .assignment = "Oven",
                           .laborType = 1,
                           .hireDate = 43570}); // 15 April 2019
        store.AddEmployee({.lastName = "Brown", .firstName = "Bob", .pay = "700", .hourly = false});
        store.AddEmployee({.lastName = "Clark", .firstName = "Cleo", .pay = "10"});
        store.PutDay(Sunday + 1, 1, test::StartsStops({{36, 68}}), "CA");
        store.script.clock.Set(Sunday + 1);
    }

    // --- before the form opens
    void PutDayOff(DaySerial day, int key) { store.PutDay(day, key, test::StartsStops({}), "", true); }
    /// Keeps a shift of one bar, in quarters of a day, for the department.
    void KeepShift(const std::string& name, int start, int stop) {
        std::ofstream file(store.folder / "1.SFT", std::ios::app | std::ios::binary);
        file << '"' << name << "\"\r\n1\r\n" << start << "\r\n" << stop << "\r\n";
    }
    /// More people than a screen of `rows` rows shows: "Evans 1" to "Evans `count`" behind the three.
    void CrowdRows(int rows, int count) {
        for (int i = 1; i <= count; ++i)
            store.AddEmployee({.lastName = "Evans", .firstName = std::to_string(i)});
        store.g.screen.ScreenHeight = 3820 + 240 * rows;
    }
    /// Explains a daytype to the department.
    void ExplainDaytype(const std::string& symbol, const std::string& meaning) {
        dao::Recordset rows = store.db().OpenRecordset("Day Types");
        rows.AddNew();
        rows.Fields("Dep number") = store.g.department.CurrentDepNumber;
        rows.Fields("Symbol") = symbol;
        rows.Fields("Explaination") = meaning;
        rows.Update();
    }
    /// From how many quarters of a day, and of a week, on time is overtime.
    void LimitTime(int day, int week) {
        store.g.application.options.DayOvertime = day;
        store.g.application.options.WeekOvertime = week;
    }
    /// The business day of the department begins so many quarters after midnight; the week on a Sunday.
    void BeginDaysAt(int quarters) { store.g.department.DayCutoffQuarters = quarters; }
    void ShowHours(int hours) { store.g.screen.VisibleHours = hours; }
    void ForbidScheduling() { store.g.rights.SchedulingAllowed = false; }
    void HidePay() { store.g.rights.HideWages = true; }

    qt::MainEditorForm& Open() {
        store.OpenEditor();
        form = std::make_unique<qt::MainEditorForm>(store.g, store.ports(), screens, nullptr);
        form->ShowModeless();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get())); // until then no control hears of its focus
        return *form;
    }

    // --- what a person sees
    qt::TimeGrid& Grid() const { return test::Find<qt::TimeGrid>(*form, "Picture1"); }
    QWidget& Ruler() { return test::Find<QWidget>(*form, "Picture2"); }
    QScrollBar& Bar(const std::string& name) { return test::Find<QScrollBar>(*form, name); }
    std::string Title() const { return form->windowTitle().toStdString(); }
    std::string TextOf(const std::string& name) {
        return test::Find<QLabel>(*form, name).text().toStdString();
    }
    std::string CaptionOf(const std::string& name) {
        return test::Find<QPushButton>(*form, name).text().toStdString();
    }
    static std::string Indexed(const char* name, int index) {
        return std::string(name) + "(" + std::to_string(index) + ")";
    }
    std::string NameOf(int row) { return TextOf(Indexed("Label9", row)); }
    std::string ValueOf(int row) { return TextOf(Indexed("Label10", row)); }
    std::string DaytypeOf(int row) {
        return test::Find<QLineEdit>(*form, Indexed("Text1", row)).text().toStdString();
    }
    bool IsShown(const std::string& name) { return test::Find<QWidget>(*form, name).isVisible(); }
    bool IsEnabled(const std::string& name) { return test::Find<QWidget>(*form, name).isEnabled(); }
    QAction& Entry(const std::string& name) {
        auto* action = form->findChild<QAction*>(qt::ToQString(name));
        auto* menu = action == nullptr ? form->findChild<QMenu*>(qt::ToQString(name)) : nullptr;
        if (action == nullptr && menu == nullptr) throw std::runtime_error("no entry " + name);
        return action != nullptr ? *action : *menu->menuAction();
    }
    /// What assistive tools say of a row: its name and the bars of the day shown.
    std::string Spoken(int row) {
        const QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&Grid());
        const QAccessibleInterface* lane = grid->child(row - 1);
        return lane == nullptr ? "no row" : lane->text(QAccessible::Name).toStdString();
    }
    /// The day that the header marks: "Monday 02-Mar-26".
    std::string DayShown() {
        return test::Find<QWidget>(*form, "pctWeekday").accessibleDescription().toStdString();
    }
    Colour ColourAt(TwipsPoint place) { return test::ColourAt(Grid(), place.x, place.y); }
    /// The ground of a control, at its corner.
    Colour GroundOf(const std::string& name) {
        return test::ColourAt(test::Find<QWidget>(*form, name), 30, 30);
    }
    bool IsLit(int row) { return GroundOf(Indexed("Label9", row)) == QBColor(9); }
    /// Rows of the file: "day|employee|daytype|periods|hours|rate|mark|vacation".
    Rows FileRows() const { return store.Rows(); }

    // --- what a person does
    /// The middle of a row's lane a little behind a quarter of the day shown.
    TwipsPoint Lane(int row, int quarter) const {
        const tvx::Grid& grid = Grid().Geometry();
        return {(quarter - grid.FirstQuarter) * grid.QuarterWidth + 5, (row - 1) * grid.RowHeight + 110};
    }
    void Drag(int row, int from, int to) { test::Drag(Grid(), Lane(row, from), Lane(row, to)); }
    void DragAndHold(int row, int from, int to) { test::DragAndHold(Grid(), Lane(row, from), Lane(row, to)); }
    /// Moves on with the button held, and lets go there.
    void DragOnAndRelease(int row, int quarter) {
        test::DragOn(Grid(), Lane(row, quarter));
        Release(row, quarter);
    }
    void Release(int row, int quarter) {
        const TwipsPoint at = Lane(row, quarter);
        QTest::mouseRelease(&Grid(), Qt::LeftButton, Qt::NoModifier, test::At(at.x, at.y));
    }
    void RightPress(int row, int quarter) {
        const TwipsPoint at = Lane(row, quarter);
        QTest::mousePress(&Grid(), Qt::RightButton, Qt::NoModifier, test::At(at.x, at.y));
    }
    /// Opens the line menu of a row and does something with it; it closes afterwards.
    void WithLineMenu(int row, int quarter, const std::function<void(QMenu&)>& deed) {
        test::WhenShown("Popup", [=](QWidget& popup) {
            deed(dynamic_cast<QMenu&>(popup));
            popup.close();
        });
        RightPress(row, quarter);
    }
    void Click(const std::string& name) { test::Click(*form, name); }
    void ClickDay(int day, Qt::MouseButton button = Qt::LeftButton) {
        auto& header = test::Find<QWidget>(*form, "pctWeekday");
        const QPoint middle(header.width() * (2 * day - 1) / 14, header.height() / 2);
        QTest::mouseClick(&header, button, Qt::NoModifier, middle);
    }
    void FocusBox(int row) { test::Find<QWidget>(*form, Indexed("Text1", row)).setFocus(); }
    void TypeInto(int row, const std::string& text) {
        FocusBox(row);
        test::Type(*form, text);
    }
    std::string Focus() const { return test::FocusOf(*form); }
    void ExpectQuestion(Answer answer) {
        store.prompt().Expect("Save the changes first?", box::YesNoCancel + box::Question, "You made changes",
                              answer);
    }

    // --- what only the next question would show
    bool HasChanges() const { return store.g.week.WeekChanged; }
};

} // namespace tvx
