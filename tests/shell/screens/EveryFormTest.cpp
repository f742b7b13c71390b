// What holds for every form of the program, whatever it is for.
#include "desktop/Parts.h"
#include "editor/lanes/screens/TimeGrid.h"
#include "editor/screens/MainEditorForm.h"
#include "editor/screens/TotalsForm.h"
#include "masterdata/DaytypeList.h"
#include "masterdata/screens/DaytypesForm.h"
#include "masterdata/screens/DepartmentForm.h"
#include "masterdata/screens/EmployeeForm.h"
#include "masterdata/screens/EmployeeSearchForm.h"
#include "masterdata/screens/ShiftsForm.h"
#include "reports/page/screens/QtPrinter.h"
#include "reports/screens/ScheduleForm.h"
#include "shell/screens/AboutForm.h"
#include "shell/screens/ConsoleForm.h"
#include "shell/screens/RegisterScreens.h"
#include "shell/screens/SplashForm.h"
#include "shell/screens/TipForm.h"
#include "support/Screens.h"
#include "support/TestStore.h"
#include "support/Usability.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace tvx {
namespace {

constexpr DaySerial Monday = 46083; // 2 March 2026

class EveryFormTest : public testing::Test {
  protected:
    test::TestStore store;
    GlobalState& g = store.g;
    Ports& ports = store.ports();
    qt::QtPrinter printer;
    qt::Screens screens;

    void SetUp() override {
        qt::InstallPartsAccessibility();
        qt::RegisterScreens(screens, g, ports);
        store.AddDepartment("Bakery");
        store.AddPeople(40); // more than a page of rows
        store.script.clock.Set(Monday);
        store.OpenWeek(Monday);
        AddDaytype(g.store, g.department, g.daytypes, ports.prompt, "CA", "Cashier");
    }

    /// Shows each form in turn.
    void WithEveryForm(const std::function<void(qt::Form&)>& deed) {
        const auto with = [&](qt::Form& form) {
            form.ShowModeless();
            QApplication::processEvents();
            deed(form);
        };
        WithFormsOfTheShell(with);
        WithFormsOfTheEditor(with);
        WithFormsOfMasterData(with);
        for (const auto kind : {ScheduleKind::Short, ScheduleKind::Long, ScheduleKind::Selected}) {
            qt::ScheduleForm schedule(g, ports, printer, {kind}, nullptr);
            with(schedule);
        }
    }

  private:
    using Deed = std::function<void(qt::Form&)>;

    void WithFormsOfTheShell(const Deed& with) {
        qt::SplashForm splash(ports);
        with(splash);
        qt::AboutForm about(g, ports, nullptr);
        with(about);
        qt::TipForm tip(g.department, ports, nullptr);
        with(tip);
        qt::ConsoleForm console(g, ports, screens);
        EXPECT_EQ(console.Load(), LoadResult::Ready);
        with(console);
    }
    void WithFormsOfTheEditor(const Deed& with) {
        store.OpenWeek(Monday);
        qt::MainEditorForm editor(g, ports, screens, nullptr);
        with(editor);
        qt::TotalsForm totals(g, ports, nullptr);
        with(totals);
    }
    void WithFormsOfMasterData(const Deed& with) {
        qt::DepartmentForm department(g, ports, {FormCommand::Change}, nullptr);
        with(department);
        for (const int key : {0, 3}) {
            qt::EmployeeForm employee(g, ports, {key}, nullptr);
            with(employee);
        }
        for (const auto command : {FormCommand::Change, FormCommand::Delete}) {
            qt::EmployeeSearchForm search(g, ports, {command}, nullptr);
            with(search);
        }
        for (const auto task : {ListRequest::None, ListRequest::Add, ListRequest::Drop}) {
            qt::DaytypesForm daytypes(g, ports, {task, 1, 1}, nullptr);
            with(daytypes);
            qt::ShiftsForm shifts(g, ports, {task, 1, 1}, nullptr);
            with(shifts);
        }
    }
};

TEST_F(EveryFormTest, says_what_each_control_is_that_can_take_the_focus) {
    int forms = 0;
    WithEveryForm([&](qt::Form& form) {
        ++forms;
        EXPECT_EQ(test::Nameless(form), "") << form.objectName().toStdString();
    });
    EXPECT_EQ(forms, 20);
}

TEST_F(EveryFormTest, of_the_shell_has_its_picture_taken) {
    WithEveryForm([](qt::Form& form) {
        const std::string name = form.objectName().toStdString();
        for (const char* own : {"frmSplash", "frmAbout", "frmTip", "Form2"})
            if (name == own) test::TakePicture(form, name);
    });
}

} // namespace
} // namespace tvx
