#include "shell/screens/RegisterScreens.h"

#include "editor/EditorRequest.h"
#include "editor/screens/MainEditorForm.h"
#include "masterdata/screens/DaytypesForm.h"
#include "masterdata/screens/DepartmentForm.h"
#include "masterdata/screens/EmployeeForm.h"
#include "masterdata/screens/EmployeeSearchForm.h"
#include "masterdata/screens/ShiftsForm.h"
#include "reports/page/screens/QtPrinter.h"
#include "reports/schedules/SchedulesRequest.h"
#include "reports/screens/ScheduleForm.h"

namespace tvx::qt {
namespace {

/// A form that is made from its request and keeps the answer.
template <typename Request, typename Made>
void RegisterForm(Screens& screens, GlobalState& g, Ports& ports) {
    screens.Register<Request>([&g, &ports](const Request& request, Form& owner) {
        Made form(g, ports, request, &owner);
        form.ShowModal();
        return form.Answer();
    });
}

} // namespace

void RegisterScreens(Screens& screens, GlobalState& g, Ports& ports) {
    RegisterForm<DaytypesRequest, DaytypesForm>(screens, g, ports);
    RegisterForm<DepartmentRequest, DepartmentForm>(screens, g, ports);
    RegisterForm<EmployeeRequest, EmployeeForm>(screens, g, ports);
    RegisterForm<SearchRequest, EmployeeSearchForm>(screens, g, ports);
    RegisterForm<ShiftsRequest, ShiftsForm>(screens, g, ports);
    screens.Register<EditorRequest>([&](const EditorRequest&, Form& owner) {
        MainEditorForm(g, ports, screens, &owner).ShowModal();
        return EditorAnswer{};
    });
    screens.Register<SchedulesRequest>([&g, &ports](const SchedulesRequest& request, Form& owner) {
        QtPrinter printer;
        ScheduleForm(g, ports, printer, request, &owner).ShowModal();
        return SchedulesAnswer{};
    });
}

} // namespace tvx::qt
