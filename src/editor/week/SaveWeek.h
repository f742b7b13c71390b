// A week from memory into the store.
#pragma once

#include "platform/ports/Gauge.h"
#include "platform/ports/Ports.h"
#include "shell/state/TVXGLOB.h"

#include <functional>
#include <string>

namespace tvx {

/// Ends a gesture that may be under way on the grid, so that what it has drawn counts. Called before the week
/// is asked about or written.
using SettleGesture = std::function<void()>;

/// Writes days 1 to 8 of every roster row to `Day Schedule` in one transaction: a row for each employee and
/// day that holds anything, none otherwise; only rows that differ from what stands there now are touched. A
/// day off keeps its row and stores no working time. A row that carries a rate keeps it.
/// Throws DaoError and changes no row if the store refuses. Leaves the model and `WeekChanged` alone.
void WriteWeek(dao::Database& database, const Roster& roster, const Week& week);

/// WriteWeek with its gauge and its boxes. True when the week was saved; `WeekChanged` is then False. After a
/// refusal the model is untouched, and the person saves again.
bool SaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle);

/// Before a changed week is left: asks "Save the changes first?" and saves on Yes. True when the week may be
/// left: nothing was changed, the changes are saved, or the person gives them up. `title` heads the box.
bool MayLeaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                  const std::string& title);

/// The week arrows: -1 or 1. Asks before a changed week is left; stays when it is not to be left. True when
/// another week was loaded.
bool GoToNeighbourWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                       int direction);

} // namespace tvx
