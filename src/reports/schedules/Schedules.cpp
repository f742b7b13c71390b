#include "reports/schedules/Schedules.h"

#include "reports/schedules/HtmlSchedules.h"
#include "reports/schedules/LongSchedule.h"
#include "reports/schedules/ShortSchedule.h"

namespace tvx {
namespace {

using Routine = void (*)(const PrintedSchedule& schedule, Vp& vp);

Routine RoutineOf(ScheduleKind kind, bool html) {
    switch (kind) {
    case ScheduleKind::Short:
        return html ? PrintShortScheduleHTML : Print7day;
    case ScheduleKind::Selected:
        return html ? PrintSelectedSchedulesHTML : PrintSelectedSchedules;
    default:
        return html ? PrintLongScheduleHTML : PrintLongSchedule;
    }
}

} // namespace

void RunSchedule(GlobalState& g, const Ports& ports, const ScheduleRequest& request, bool html, Vp& vp) {
    const PrintedSchedule schedule = LoadSchedule(g, ports, request);
    const ReportFont chosen = vp.Font(); // a routine may take a smaller one
    vp.StartDoc();
    RoutineOf(request.kind, html)(schedule, vp);
    vp.EndDoc();
    vp.Font(chosen);
}

} // namespace tvx
