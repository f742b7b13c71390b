// The files of SQLite as this system wants them. Private to the session on SQLite.
#pragma once

namespace tvx::dao {

/// The name by which SQLite opens files that differ from its own in one thing: to delete a file succeeds once
/// it is gone, also when its folder could not be flushed. What ends a commit is that its journal is gone; a
/// commit told as refused after that would be stored, and done twice by who tries again.
const char* SqliteFiles();

} // namespace tvx::dao
