#include "store/rows/ApplicationRow.h"

#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "store/rows/PasswordText.h"
#include "store/rows/RowFields.h"
#include "store/rows/Schema.h"

#include <algorithm>
#include <limits>

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

int Held(std::int64_t number) {
    using Range = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(number, Range::min(), Range::max()));
}

int WholeNumber(const std::string& text) {
    return Held(RoundHalfToEven(Val(text)));
}

/// Quarters are whole, so more than a limit is more than the whole part of it.
int LimitOf(const std::string& text) {
    return Held(Int(Val(text)));
}

int StartHourOf(const std::string& text) {
    constexpr int InsteadOfNegative = 4;
    return Val(text) < 0 ? InsteadOfNegative : WholeNumber(text);
}

AgeLimit AgeLimitOf(const std::string& text) {
    constexpr int Most = 1000;
    return {std::clamp(WholeNumber(text), 0, Most), text};
}

} // namespace

Options OptionsOf(const ApplicationRow& row) {
    Options options;
    options.ClockStyle = Trim(row.clockStyle) == "12" ? ClockStyle::TwelveHours : ClockStyle::TwentyFourHours;
    options.TimeFormat = Trim(row.timeFormat) == "0" ? TimeFormat::Minutes : TimeFormat::Hundredths;
    options.StartHour = StartHourOf(Trim(row.startHour));
    options.BarColor = WholeNumber(Trim(row.barColor));
    options.UnderAge = AgeLimitOf(Trim(row.underAge));
    options.DayOvertime = LimitOf(Trim(row.dayOvertime));
    options.WeekOvertime = LimitOf(Trim(row.weekOvertime));
    options.OpenShared = !Trim(row.openShared).empty();
    return options;
}

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
