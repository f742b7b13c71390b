#include "editor/week/DayShifts.h"
#include "masterdata/screens/DaytypesForm.h"
#include "masterdata/screens/DepartmentForm.h"
#include "masterdata/screens/EmployeeForm.h"
#include "masterdata/screens/EmployeeSearchForm.h"
#include "masterdata/screens/ShiftsForm.h"
#include "shell/common/TVXMOD1.h"
#include "support/Screens.h"
#include "support/TestStore.h"

#include <gtest/gtest.h>

namespace tvx {
namespace {

class Pictures : public testing::Test {
  protected:
    test::TestStore store;
    void SetUp() override {
        store.AddDepartment("Bakery");
        store.AddPeople(12);
        store.OpenWeek(46083);
        store.g.cursor.CurrentEmployee = 1;
        AddDaytype(store.g.store, store.g.department, store.g.daytypes, store.prompt(), "CA", "Cashier");
        AddDaytype(store.g.store, store.g.department, store.g.daytypes, store.prompt(), "BK", "Baker");
        LoadDayTypes(store.g.store, store.g.department.CurrentDepNumber, store.g.daytypes);
    }
};

TEST_F(Pictures, of_every_screen) {
    qt::DepartmentForm department(store.g, store.ports(), {FormCommand::Change}, nullptr);
    department.ShowModeless();
    test::TakePicture(department, "Form13");

    qt::EmployeeSearchForm search(store.g, store.ports(), {FormCommand::Change}, nullptr);
    search.ShowModeless();
    test::TakePicture(search, "Form5");

    qt::EmployeeForm employee(store.g, store.ports(), {3}, nullptr);
    employee.ShowModeless();
    test::Find<QLineEdit>(employee, "Text2(11)").setText("2-Jan-2015");
    test::Drag(test::Find<QWidget>(employee, "Picture1"), {900, 300}, {2700, 300});
    test::TakePicture(employee, "Form4");

    qt::DaytypesForm daytypes(store.g, store.ports(), {ListRequest::Drop, 1, 2}, nullptr);
    daytypes.ShowModeless();
    test::TakePicture(daytypes, "Form22-drop");
    test::Click(daytypes, "Command3D4");
    test::TakePicture(daytypes, "Form22-menu");
    test::Click(daytypes, "cmdChange");
    QTest::keyClick(test::Find<QWidget>(daytypes, "List1").focusWidget()
                        ? &test::Find<QWidget>(daytypes, "List1")
                        : &daytypes,
                    Qt::Key_Return);
    test::TakePicture(daytypes, "Form22-change");

    test::SetBars(store.g, 1, {{96 + 36, 96 + 68}});
    CopyDayIntoShifts(store.g.week, 1, store.g.cursor.CurrentDay, store.g.shifts);
    EXPECT_EQ(AddShift(store.g.paths, store.g.department, store.g.shifts, store.prompt(), "Morning, long"),
              SaveResult::Saved);
    qt::ShiftsForm shifts(store.g, store.ports(), {ListRequest::Add, 1, 1}, nullptr);
    shifts.ShowModeless();
    test::TakePicture(shifts, "Form23-add");
    test::Click(shifts, "OptionsCMD");
    test::TakePicture(shifts, "Form23-options");
}

} // namespace
} // namespace tvx
