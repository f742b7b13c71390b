#include "ExampleText.h"

#include "masterdata/files/ShiftFile.h"
#include "platform/basic/Date.h"
#include "platform/basic/Number.h"
#include "platform/basic/Text.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "shell/state/Roster.h"
#include "store/rows/Schema.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace tvx {
namespace {

constexpr DaySerial ExampleSunday = 38774; // 26 February 2006

/// One record of a text file.
struct Line {
    std::string place; // "week.txt, line 12"
    std::vector<std::string> fields;

    const std::string& operator[](std::size_t i) const {
        if (i >= fields.size()) throw ExampleError(place + ": too few fields");
        return fields[i];
    }
};

std::vector<Line> ReadLines(const fs::path& folder, const std::string& name) {
    std::ifstream file(folder / name);
    if (!file) throw ExampleError("cannot read " + (folder / name).string());
    std::vector<Line> lines;
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        if (Trim(text).empty() || text.front() == '#') continue;
        Line line{name + ", line " + std::to_string(number), {}};
        for (const std::string& field : Split(text, '|')) line.fields.push_back(Trim(field));
        lines.push_back(std::move(line));
    }
    return lines;
}

/// 0 for Sunday to 6 for Saturday, from the first three letters.
int DayOf(const Line& line, const std::string& name) {
    const auto& names = EnglishNames().shortWeekdays;
    for (std::size_t d = 1; d <= 7; ++d)
        if (EqualsNoCase(names[d], Left(name, 3))) return static_cast<int>(d) - 1;
    throw ExampleError(line.place + ": no day '" + name + "'");
}

/// Quarters after midnight of "9:15".
int QuarterOf(const Line& line, const std::string& time) {
    const auto parts = Split(time, ':');
    const int minutes = parts.size() == 2 ? static_cast<int>(Val(parts[0]) * 60 + Val(parts[1])) : -1;
    if (minutes < 0 || minutes > 1440 || minutes % 15 != 0)
        throw ExampleError(line.place + ": no time '" + time + "'");
    return minutes / 15;
}

std::pair<int, int> PeriodOf(const Line& line, const std::string& text) {
    const auto ends = Split(text, '-');
    if (ends.size() != 2) throw ExampleError(line.place + ": no period '" + text + "'");
    return {QuarterOf(line, ends[0]), QuarterOf(line, ends[1])};
}

DaySerial DateOf(const Line& line, const std::string& text) {
    const auto serial = ParseDate(text, DateOrder::YearMonthDay, EnglishNames(), ExampleSunday);
    if (!serial) throw ExampleError(line.place + ": no date '" + text + "'");
    return *serial;
}

class Builder {
  public:
    Builder(const fs::path& folder, dao::Database& db) : folder_(folder), db_(db) {}

    void Build() {
        dao::Transaction transaction(db_);
        AddOptions();
        AddDepartment();
        AddDaytypes();
        AddEmployees();
        AddWeek();
        AddDays();
        transaction.Commit();
    }

  private:
    struct Person {
        int key = 0;
        bool hourly = true;
        double pay = 0;
    };
    struct Day {
        std::vector<std::pair<int, int>> periods;
        std::string dayType;
        bool off = false;
    };

    void AddOptions() {
        dao::Recordset rs = db_.OpenRecordset("Application");
        rs.AddNew();
        rs.Fields("12 or 24") = "12";
        rs.Fields("StartHour") = "4";
        rs.Fields("BarColor") = "2";
        rs.Fields("TimeFormat") = "0";
        rs.Fields("UnderAge") = "16";
        rs.Fields("DayOvertime") = "96";
        rs.Fields("WeekOvertime") = "672";
        rs.Fields("To Try") = "S";
        rs.Fields("BigBoss") = "";
        rs.Fields("DB Version") = SchemaVersion;
        rs.Update();
    }

    void AddDepartment() {
        const Line line = ReadLines(folder_, "department.txt").at(0);
        dao::Recordset rs = db_.OpenRecordset("Department");
        rs.AddNew();
        rs.Fields("Department name") = line[0];
        rs.Fields("First weekday") = (DayOf(line, line[1]) + 1) * 100 + QuarterOf(line, line[2]);
        rs.Fields("Editor order") = static_cast<int>(Val(line[3]));
        rs.Fields("Week methode pick") = static_cast<int>(Val(line[4]));
        rs.Update();
        rs.MoveLast();
        department_ = static_cast<int>(rs.Fields("Dep number").Long());
    }

    void AddDaytypes() {
        dao::Recordset rs = db_.OpenRecordset("Day Types");
        for (const Line& line : ReadLines(folder_, "daytypes.txt")) {
            rs.AddNew();
            rs.Fields("Dep number") = department_;
            rs.Fields("Symbol") = line[0];
            rs.Fields("Explaination") = line[1];
            rs.Update();
        }
    }

    void AddEmployees() {
        dao::Recordset rs = db_.OpenRecordset("Employee");
        for (const Line& line : ReadLines(folder_, "employees.txt")) {
            rs.AddNew();
            FillEmployee(rs, line);
            rs.Update();
            rs.MoveLast();
            people_[line[0]] = {static_cast<int>(rs.Fields("Employee").Long()), line[5] == "hour",
                                Val(line[4])};
        }
    }

    void FillEmployee(dao::Recordset& rs, const Line& line) const {
        constexpr std::array<std::pair<const char*, std::size_t>, 15> texts{{{"Last name", 0},
                                                                             {"First name", 1},
                                                                             {"ID", 2},
                                                                             {"Assignment", 3},
                                                                             {"Pay", 4},
                                                                             {"Street", 7},
                                                                             {"City", 8},
                                                                             {"State", 9},
                                                                             {"Zip", 10},
                                                                             {"Phone", 13},
                                                                             {"Emergency phone", 14},
                                                                             {"Page/Cell phone", 15},
                                                                             {"Soc Sec number", 16},
                                                                             {"Comments", 17},
                                                                             {"Email", 20}}};
        for (const auto& [field, column] : texts) rs.Fields(field) = line[column];
        if (line[20].empty()) rs.Fields("Email") = " ";
        rs.Fields("Wage or Sal") = line[5] == "hour" ? -1 : 0;
        rs.Fields("Active") = line[6] == "yes";
        rs.Fields("Dep number") = department_;
        rs.Fields("Hire Date") = DateOf(line, line[11]);
        rs.Fields("Birth date") = DateOf(line, line[12]);
        rs.Fields("Labor type") = static_cast<int>(Val(line[18]));
        rs.Fields("EbarColor") = static_cast<int>(Val(line[19]));
        FillAvailability(rs, line);
    }

    static void FillAvailability(dao::Recordset& rs, const Line& line) {
        std::string starts(28, ' ');
        std::string stops(28, ' ');
        std::array<std::size_t, 7> used{};
        for (const std::string& entry : Split(line[21], ',')) {
            const auto words = Split(Trim(entry), ' ');
            if (words.size() != 2) continue;
            const auto day = static_cast<std::size_t>(DayOf(line, words[0]));
            const auto [start, stop] = PeriodOf(line, words[1]);
            const std::size_t place = day * 4 + used[day]++;
            starts.at(place) = static_cast<char>(32 + start);
            stops.at(place) = static_cast<char>(32 + stop);
        }
        rs.Fields("Avail start") = starts;
        rs.Fields("Avail stop") = stops;
    }

    void AddWeek() {
        for (const Line& line : ReadLines(folder_, "week.txt")) {
            const auto person = people_.find(line[0]);
            if (person == people_.end()) throw ExampleError(line.place + ": nobody is called " + line[0]);
            const int day = DayOf(line, line[1]);
            std::map<int, Day>& week = weeks_[person->second.key];
            week[day].dayType = line[3];
            week[day].off = line[4] == "off";
            AddPeriods(line, day, week);
        }
        for (auto& [name, person] : people_)
            for (auto& [day, what] : weeks_[person.key]) AddRow(person, day, what);
    }

    static void AddPeriods(const Line& line, int day, std::map<int, Day>& week) {
        if (line[2].empty()) return;
        for (const std::string& text : Split(line[2], ' ')) {
            auto [start, stop] = PeriodOf(line, text);
            if (stop > start) {
                week[day].periods.emplace_back(start, stop);
                continue;
            }
            week[day].periods.emplace_back(start, QuartersPerDay);
            if (stop > 0) week[day + 1].periods.emplace_back(0, stop);
        }
    }

    void AddRow(const Person& person, int day, Day& what) {
        std::sort(what.periods.begin(), what.periods.end());
        std::string text(14, ' ');
        int quarters = 0;
        for (std::size_t p = 0; p < what.periods.size(); ++p) {
            text.at(p) = static_cast<char>(32 + what.periods[p].first);
            text.at(p + 7) = static_cast<char>(32 + what.periods[p].second);
            quarters += what.periods[p].second - what.periods[p].first;
        }
        dao::Recordset rs = db_.OpenRecordset("Day Schedule");
        rs.AddNew();
        rs.Fields("Day Julian") = ExampleSunday + day;
        rs.Fields("Employee") = person.key;
        rs.Fields("DayType") = what.dayType;
        rs.Fields("Starts & Stops") = text;
        rs.Fields("Work hours") = quarters / 4.0;
        rs.Fields("Current Rate") = person.hourly ? person.pay : person.pay / 7;
        rs.Fields("Salary") = person.hourly ? "W" : "S";
        rs.Fields("Vacation day") = what.off;
        rs.Update();
    }

    void AddDays() {
        dao::Recordset rs = db_.OpenRecordset("Department day");
        for (const Line& line : ReadLines(folder_, "days.txt")) {
            rs.AddNew();
            rs.Fields("Day") = ExampleSunday + DayOf(line, line[0]);
            rs.Fields("Dep number") = department_;
            rs.Fields("Sales") = Val(line[1]);
            rs.Fields("Transactions") = Val(line[2]);
            if (!line[3].empty()) rs.Fields("Remarks") = line[3];
            rs.Update();
        }
    }

    const fs::path& folder_;
    dao::Database& db_;
    int department_ = 0;
    std::map<std::string, Person> people_;    // by last name
    std::map<int, std::map<int, Day>> weeks_; // [key][day 0..6]
};

} // namespace

void MakeExampleDatabase(const fs::path& folder, const fs::path& target) {
    const auto db = dao::Engine().CreateDatabase(target);
    CreateSystemTables(*db);
    Builder(folder, *db).Build();
}

void MakeExampleShifts(const fs::path& folder, const fs::path& programFolder) {
    Shifts shifts;
    for (const Line& line : ReadLines(folder, "shifts.txt")) {
        const int n = ++shifts.ShiftCount;
        shifts.ShiftNames.at(static_cast<std::size_t>(n)) = line[0];
        for (const std::string& text : Split(line[1], ' ')) {
            const auto [start, stop] = PeriodOf(line, text);
            const int k = ++shifts.ShiftBarCount[n];
            shifts.ShiftStarts[n][k] = start;
            shifts.ShiftStops[n][k] = stop > start ? stop : stop + QuartersPerDay;
        }
    }
    WriteStoredShifts(programFolder, 1, shifts);
}

} // namespace tvx
