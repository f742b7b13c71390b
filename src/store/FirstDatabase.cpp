#include "store/FirstDatabase.h"

#include "platform/files/FileError.h"
#include "platform/files/Folder.h"
#include "shell/common/TVXMOD1.h"
#include "store/rows/DayRow.h"
#include "store/rows/DepartmentDayRow.h"

#include <system_error>

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

/// A start that was cut off leaves its unfinished file, and the engine a journal, which it would play back
/// into the next file of that name.
void RemoveWhatWasCutOff(const fs::path& folder) {
    std::error_code ignored;
    for (const char* name : {"TVX.NEW", "TVX.NEW-journal", "TVX.MDB-journal"})
        fs::remove(folder / name, ignored);
}

} // namespace

void SeedFirstDatabase(const dao::Engine& engine, const fs::path& folder, DaySerial today) {
    const auto readyMade = FindFile(folder, ReadyMadeFile);
    if (!readyMade || FindFile(folder, DatabaseFile)) return;
    const fs::path unfinished = folder / "TVX.NEW";
    RemoveWhatWasCutOff(folder);
    CopyWholeFile(*readyMade, unfinished);
    MoveExampleWeek(*engine.OpenDatabase(unfinished), today);
    std::error_code trouble;
    fs::rename(unfinished, folder / DatabaseFile, trouble);
    if (trouble) throw FileError(FileErrorNumber::PathFileAccess, trouble.message());
}

} // namespace tvx
