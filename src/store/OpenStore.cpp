#include "store/OpenStore.h"

#include "platform/basic/Number.h"
#include "platform/dao/DaoError.h"
#include "platform/files/Folder.h"
#include "store/FirstDatabase.h"
#include "store/rows/ApplicationRow.h"
#include "store/rows/Schema.h"

namespace tvx {
namespace {

ApplicationRow DefaultRow(const ScreenState& screen) {
    ApplicationRow row;
    row.startHour = TrimmedNumber(24 - screen.VisibleHours);
    row.weekOvertime = "672";
    row.openShared = "S";
    return row;
}

void Authorise(const ApplicationState& application, Rights& rights) {
    const bool locked = !application.GeneralManagerPassword.empty();
    if (locked) rights.AccessLevel = "Big boss";
    rights.PasswordOk = !locked;
}

void BringToVersion(dao::Database& database) {
    const auto row = ReadApplicationRow(database);
    if (row && row->version != SchemaVersion) return UpgradeDatabase(database);
    if (const std::string missing = MissingFromFile(database); !missing.empty())
        throw dao::DaoError(dao::error::ItemNotFound, "Item not found in this collection: " + missing);
}

} // namespace

void ReadSettings(dao::Database& database, const ScreenState& screen, ApplicationState& application) {
    std::optional<ApplicationRow> row = ReadApplicationRow(database);
    if (!row) AddApplicationRow(database, row.emplace(DefaultRow(screen)));
    application.options = OptionsOf(*row);
    application.GeneralManagerPassword = row->password;
}

void OpenStore(GlobalState& g, DaySerial today) {
    SeedFirstDatabase(g.store.Engine, g.paths.DatabasePath, today);
    g.store.Db = g.store.Engine.OpenDatabase(FilePath(g.paths.DatabasePath, DatabaseFile));
    dao::Database& database = g.store.Open();
    RequireUsableFile(database);
    ReadSettings(database, g.screen, g.application);
    Authorise(g.application, g.rights);
    BringToVersion(database);
}

} // namespace tvx
