// Opening the database at the start of a run: the first database, the options, the upgrade.
#pragma once

#include "shell/state/TVXGLOB.h"

namespace tvx {

/// Opens the database of `DatabasePath`, after making the first one where there is none, takes the options
/// and whether a password is due from it, and brings it to the present version. Throws DaoError or FileError;
/// what was opened is then still open.
void OpenStore(GlobalState& g, DaySerial today);

/// Reads the options and the general manager's password from the one row of `Application` into the state,
/// each with its default; writes the row with the defaults when there is none. Throws DaoError.
void ReadSettings(dao::Database& database, const ScreenState& screen, ApplicationState& application);

} // namespace tvx
