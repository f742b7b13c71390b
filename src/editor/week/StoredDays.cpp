#include "editor/week/StoredDays.h"

#include "editor/week/WeekModel.h"
#include "platform/dao/TimeText.h"
#include "store/rows/Schema.h"

namespace tvx {
namespace {

constexpr const char* RangeOfDays =
    "SELECT [Day Julian], Employee, DayType, [Starts & Stops], [Work hours], Salary,"
    " [Vacation day] FROM [Day Schedule] WHERE [Day Julian] BETWEEN ? AND ?";
constexpr const char* OneDay =
    "SELECT [Day Julian], Employee, DayType, [Starts & Stops], [Work hours], Salary,"
    " [Vacation day] FROM [Day Schedule] WHERE [Day Julian] = ? AND Employee = ?";

/// A scan passes over the rows of everybody in the file, a seek costs about three of its rows.
constexpr std::int64_t RowsScannedForOneSeek = 3;

std::int64_t PeopleInFile(const dao::Database& database) {
    std::int64_t people = 0;
    database.Scan("SELECT count(*) FROM Employee", {},
                  [&](const dao::ScanRow& row) { people = row.Long(0); });
    return people;
}

void Take(const dao::ScanRow& row, StoredDay& day) {
    day.found = true;
    day.dayType = row.Text(2);
    day.startsStops = dao::DecodeTimeText(row.Text(3));
    day.workHours = row.Double(4);
    const std::string_view mark = row.Text(5);
    day.rateFrozen = mark == "S" || mark == "W";
    day.vacation = row.Long(6) != 0;
}

void ScanDays(const dao::Database& database, const Roster& roster, DaySerial first, StoredWeek& stored) {
    std::vector<int> employeeOfKey(GreatestEmployeeKey + 1, 0);
    for (int e = 1; e <= roster.EmployeeCount; ++e) employeeOfKey[roster.RosterEmployeeKey[e]] = e;
    const auto take = [&](const dao::ScanRow& row) {
        // In a damaged file a row may stand where its key does not belong, outside the days asked for too.
        const std::int64_t day = row.Long(0);
        const std::int64_t key = row.Long(1);
        if (day < first || day >= first + DaysInSpan || key < SmallestKey || key > GreatestEmployeeKey)
            return;
        if (const int e = employeeOfKey[key]; e != 0) Take(row, stored[e][day - first + 1]);
    };
    database.Scan(RangeOfDays, {std::int64_t{first}, std::int64_t{first + DaysInSpan - 1}}, take);
}

void SeekDays(const dao::Database& database, const Roster& roster, DaySerial first, StoredWeek& stored) {
    for (int e = 1; e <= roster.EmployeeCount; ++e)
        for (int d = 1; d <= DaysInSpan; ++d)
            database.Scan(OneDay, {std::int64_t{first + d - 1}, std::int64_t{roster.RosterEmployeeKey[e]}},
                          [&](const dao::ScanRow& row) { Take(row, stored[e][d]); });
}

int CodeAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

} // namespace

StoredWeek ReadStoredWeek(const dao::Database& database, const Roster& roster, DaySerial firstSerial) {
    StoredWeek stored(static_cast<std::size_t>(roster.EmployeeCount) + 1);
    const dao::Snapshot snapshot(database);
    if (RowsScannedForOneSeek * roster.EmployeeCount >= PeopleInFile(database))
        ScanDays(database, roster, firstSerial, stored);
    else
        SeekDays(database, roster, firstSerial, stored);
    return stored;
}

void PaintStoredDay(Week& week, int day, std::string_view text) {
    if (text.size() < StartsStopsLength) return;
    const int offset = (day - 1) * QuartersPerDay - 32;
    for (std::size_t p = 0; p < PeriodsPerDay; ++p) {
        const int stopCode = CodeAt(text, p + PeriodsPerDay);
        if (stopCode < 33) continue;
        const int startCode = CodeAt(text, p);
        if (startCode > stopCode) return;
        PaintWeekGrid(week, startCode + offset, stopCode + offset);
    }
}

std::string StartsStopsOf(const Week& week, int e, int day, int& quarters) {
    const int dayLow = (day - 1) * QuartersPerDay;
    const int dayHigh = day * QuartersPerDay;
    std::string text(StartsStopsLength, ' ');
    quarters = 0;
    std::size_t p = 0;
    for (int b = 1; b <= week.BarCount[e] && p < PeriodsPerDay; ++b) {
        int s = week.BarStarts[e][b];
        int t = week.BarStops[e][b];
        if ((t <= dayLow && s < dayLow) || (s >= dayHigh && t > dayHigh)) continue;
        if (s <= dayLow) s = dayLow;
        if (t > dayHigh) t = dayHigh;
        quarters += t - s;
        text[p] = static_cast<char>(s - dayLow + 32);
        text[p + PeriodsPerDay] = static_cast<char>(t - dayLow + 32);
        ++p;
    }
    return text;
}

} // namespace tvx
