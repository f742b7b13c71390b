#include "store/rows/ApplicationRow.h"

#include "store/rows/PasswordText.h"
#include "store/rows/RowFields.h"
#include "store/rows/Schema.h"

namespace tvx {
namespace {

constexpr const char* Table = "Application";

struct OptionFields {
    using Row = ApplicationRow;
    static void Of(auto& row, auto&& field) {
        field("12 or 24", row.clockStyle, "12");
        field("StartHour", row.startHour);
        field("BarColor", row.barColor, "2");
        field("TimeFormat", row.timeFormat, "0");
        field("UnderAge", row.underAge, "16");
        field("DayOvertime", row.dayOvertime, "96");
        field("WeekOvertime", row.weekOvertime, "672)");
        field("To Try", row.openShared);
    }
};

struct AllFields {
    using Row = ApplicationRow;
    static void Of(auto& row, auto&& field) {
        OptionFields::Of(row, field);
        field("BigBoss", row.password);
        field("DB Version", row.version);
    }
};

} // namespace

std::optional<ApplicationRow> ReadApplicationRow(dao::Database& database) {
    dao::Recordset set = database.OpenRecordset(Table);
    if (set.BOF() && set.AtEnd()) return std::nullopt;
    ApplicationRow row = rows::Record<AllFields>(set).Read();
    row.password = UnscramblePassword(row.password);
    return row;
}

void AddApplicationRow(dao::Database& database, const ApplicationRow& row) {
    dao::Recordset set = database.OpenRecordset(Table);
    set.AddNew();
    rows::Record<OptionFields>(set).Write(row);
    set.Update();
}

void UpgradeDatabase(dao::Database& database) {
    dao::Recordset set = database.OpenRecordset(Table);
    set.MoveFirst();
    CheckDBversion(database, set);
}

} // namespace tvx
