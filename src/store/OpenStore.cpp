#include "store/OpenStore.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/DaoError.h"
#include "platform/files/Folder.h"
#include "store/FirstDatabase.h"
#include "store/rows/ApplicationRow.h"
#include "store/rows/Schema.h"

namespace tvx {
namespace {

void TakeSettings(const ApplicationRow& row, ApplicationState& application) {
    auto& settings = application.Settings;
    settings[setting::ClockStyle] = Trim(row.clockStyle);
    settings[setting::StartHour] = Trim(row.startHour);
    settings[setting::BarColor] = Trim(row.barColor);
    settings[setting::TimeFormat] = Trim(row.timeFormat);
    settings[setting::UnderAge] = Trim(row.underAge);
    settings[setting::DayOvertime] = Trim(row.dayOvertime);
    settings[setting::WeekOvertime] = Trim(row.weekOvertime);
    application.OpenShared = !Trim(row.openShared).empty();
    application.GeneralManagerPassword = row.password;
}

ApplicationRow DefaultRow(const ScreenState& screen) {
    ApplicationRow row;
    row.startHour = TrimmedNumber(24 - screen.VisibleHours);
    row.weekOvertime = "672";
    row.openShared = "S";
    return row;
}

void ApplySettings(ApplicationState& application) {
    auto& settings = application.Settings;
    if (Val(settings[setting::StartHour]) < 0) settings[setting::StartHour] = "4";
    application.StartHour = static_cast<int>(RoundHalfToEven(Val(settings[setting::StartHour])));
    application.DefaultBarColor =
        QBColor(static_cast<int>(RoundHalfToEven(Val(settings[setting::BarColor]))));
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
    TakeSettings(*row, application);
}

void OpenStore(GlobalState& g, DaySerial today) {
    SeedFirstDatabase(g.store.Engine, g.paths.DatabasePath, today);
    g.store.Db = g.store.Engine.OpenDatabase(FilePath(g.paths.DatabasePath, DatabaseFile));
    dao::Database& database = g.store.Open();
    RequireUsableFile(database);
    ReadSettings(database, g.screen, g.application);
    Authorise(g.application, g.rights);
    ApplySettings(g.application);
    BringToVersion(database);
}

} // namespace tvx
