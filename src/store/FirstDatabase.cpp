#include "store/FirstDatabase.h"

#include "platform/dao/LeftJournal.h"
#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "platform/files/TemporaryName.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DayRow.h"
#include "store/rows/DepartmentDayRow.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr const char* ReadyMadeFile = "TVX.JAN";
constexpr DaySerial ExampleWeek = 38774; // 26 February 2006, the first day of the ready-made week

void MoveExampleWeek(dao::Database& db, DaySerial today) {
    constexpr int Sunday = 1;
    const int days = FirstDayOfWeek(today, Sunday) - ExampleWeek;
    dao::Transaction transaction(db);
    MoveDayRows(db, ExampleWeek, ExampleWeek + 6, days);
    MoveDepartmentDayRows(db, ExampleWeek, ExampleWeek + 6, days);
    transaction.Commit();
}

/// What a start of an earlier version left, and what starts that were cut off have left.
void ClearWhatWasCutOff(const fs::path& folder) {
    ClearTemporariesBeside(folder / DatabaseFile);
    std::error_code ignored;
    for (const char* name : {"TVX.NEW", "TVX.NEW-journal"}) fs::remove(folder / name, ignored);
}

/// Renames where nothing has that name yet; returns the error of the system, EEXIST when something has.
int RenameToFreeName(const fs::path& from, const fs::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    return link(from.c_str(), to.c_str()) == 0 ? 0 : errno; // a share that knows no such renaming
}

/// Gives the finished file its name, unless another start was first. The journal of a database that is gone,
/// which the engine would play back into this one, is cleared while nobody can open the new file: later it
/// could be that of somebody's first save.
void Publish(const fs::path& finished, const fs::path& database) {
    const auto held = dao::HeldFile::TryToHold(finished);
    const int trouble = held ? RenameToFreeName(finished, database) : EBUSY;
    if (trouble != 0 && trouble != EEXIST)
        throw FileError(FileErrorNumber::PathFileAccess, std::generic_category().message(trouble));
    std::error_code ignored;
    if (trouble == 0) fs::remove(dao::JournalOf(database), ignored);
}

/// Clears the unfinished file at the end, whatever the end is.
class Unfinished {
  public:
    explicit Unfinished(const fs::path& database) : path(TemporaryBeside(database)) {}
    ~Unfinished() {
        std::error_code ignored;
        fs::remove(path, ignored);
        fs::remove(dao::JournalOf(path), ignored);
    }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    const fs::path path;
};

} // namespace

void SeedFirstDatabase(const dao::Engine& engine, const fs::path& folder, DaySerial today) {
    const auto readyMade = FindFile(folder, ReadyMadeFile);
    if (!readyMade || FindFile(folder, DatabaseFile)) return;
    ClearWhatWasCutOff(folder);
    const Unfinished file(folder / DatabaseFile);
    CopyWholeFile(*readyMade, file.path);
    MoveExampleWeek(*engine.OpenDatabase(file.path), today);
    Publish(file.path, folder / DatabaseFile);
}

} // namespace tvx
