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

/// Writes days 1 to 8 of every roster row to `Day Schedule`, day 1 under the date `firstSerial`, in one
/// transaction: a row for each employee and day that holds anything, none otherwise; only rows that differ
/// from what stands there now are touched. A day off in the store keeps its row and stores no working time. A
/// row that carries a rate keeps it. Of day 8 the week behind keeps what is its own there, told by the
/// cut-off.
///
/// Shows the gauge, and tells what hinders it. True when the week was saved; when it is the loaded one and
/// went to its own date, `WeekChanged` is then False. If the store refuses, no row changes, the model is
/// untouched, and the person saves again. Who may not schedule is told so, and nothing is written. False,
/// without a word, for a week that is not loaded.
bool SaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle, const Week& week,
              DaySerial firstSerial);
/// The loaded week to its own date.
bool SaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle);

/// Before a changed week is left: asks "Save the changes first?" and saves on Yes. True when the week may be
/// left: nothing was changed, the changes are saved, the person gives them up or could not save them. `title`
/// heads the box.
bool MayLeaveWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                  const std::string& title);

/// The week arrows: -1 or 1. Asks before a changed week is left; stays when it is not to be left. True when
/// another week was loaded, False also when there is none to go from.
bool GoToNeighbourWeek(GlobalState& g, Ports& ports, Gauge& gauge, const SettleGesture& settle,
                       int direction);

} // namespace tvx
