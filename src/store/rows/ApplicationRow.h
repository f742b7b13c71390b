// The one row of table Application: the options, the general manager's password and the schema's version.
#pragma once

#include "platform/dao/Database.h"
#include "shell/state/Options.h"

#include <optional>
#include <string>

namespace tvx {

/// Texts stand as they are stored, untrimmed; of a Null each has its default.
struct ApplicationRow {
    std::string clockStyle = "12";
    std::string startHour;
    std::string barColor = "2";
    std::string timeFormat = "0";
    std::string underAge = "16";
    std::string dayOvertime = "96";
    std::string weekOvertime = "672)"; // only the leading number is ever used
    std::string openShared;            // "S" when the database is opened shared
    std::string password;              // the general manager's, in clear; "" is no protection
    std::optional<int> version;        // of the schema

    friend bool operator==(const ApplicationRow&, const ApplicationRow&) = default;
};

/// Nothing while the table is empty. Throws DaoError.
std::optional<ApplicationRow> ReadApplicationRow(dao::Database& database);

/// The options that stored texts stand for; blanks around them do not count. Any clock but "12" is the one of
/// 24 hours, any time format but "0" hundredths. Of a number only what leads the text counts, a text without
/// one is 0, and a negative first hour is 4.
Options OptionsOf(const ApplicationRow& row);

/// Adds the row with its options alone: the file may be an old one, which is brought up to date next.
/// Throws DaoError.
void AddApplicationRow(dao::Database& database, const ApplicationRow& row);

/// CheckDBversion on the row of the file. Throws DaoError and leaves the file as it was.
void UpgradeDatabase(dao::Database& database);

} // namespace tvx
