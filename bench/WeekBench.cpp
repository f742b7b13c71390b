// Loading and saving a week, beside the fewest bare statements that read or leave the same rows.
#include "Ratios.h"
#include "editor/week/LoadWeek.h"
#include "editor/week/SaveWeek.h"
#include "editor/week/StoredDays.h"
#include "platform/dao/TimeText.h"
#include "support/TestStore.h"
#include "support/WeekWriter.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace tvx::bench {
namespace {

constexpr DaySerial FirstSunday = 45294; // 2 January 2024
constexpr int YearsStored = 3;

bool Smoke() {
    return std::getenv("TVX_BENCH_SMOKE") != nullptr;
}

/// A connection of its own with the pragmas of the program, and one prepared statement.
class Bare {
  public:
    explicit Bare(const std::filesystem::path& file) {
        sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        for (const char* pragma : {"PRAGMA journal_mode = DELETE", "PRAGMA synchronous = EXTRA",
                                   "PRAGMA mmap_size = 0", "PRAGMA cell_size_check = ON"})
            Run(pragma);
    }
    ~Bare() {
        for (sqlite3_stmt* statement : {scan_, insert_, update_}) sqlite3_finalize(statement);
        sqlite3_close(db_);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    void Run(const char* sql) {
        char* trouble = nullptr;
        if (sqlite3_exec(db_, sql, nullptr, nullptr, &trouble) == SQLITE_OK) return;
        std::fprintf(stderr, "%s: %s\n", sql, trouble);
        std::exit(1);
    }

    /// Reads and decodes the rows of eight days. Returns the quarters, so that nothing is left out.
    long ScanWeek(DaySerial first) {
        if (scan_ == nullptr)
            Prepare(scan_, "SELECT [Day Julian], Employee, DayType, [Starts & Stops], [Work hours], Salary,"
                           " [Vacation day] FROM [Day Schedule] WHERE [Day Julian] BETWEEN ? AND ?");
        sqlite3_bind_int(scan_, 1, first);
        sqlite3_bind_int(scan_, 2, first + 7);
        long quarters = 0;
        while (sqlite3_step(scan_) == SQLITE_ROW) {
            const std::string bytes = dao::DecodeTimeText(Text(3));
            const std::string dayType(Text(2));
            quarters += sqlite3_column_int(scan_, 1) + static_cast<long>(dayType.size()) +
                        static_cast<long>(sqlite3_column_double(scan_, 4)) + sqlite3_column_int(scan_, 6);
            for (std::size_t p = 0; bytes.size() >= 14 && p < 7; ++p)
                if (static_cast<unsigned char>(bytes[p + 7]) >= 33)
                    quarters +=
                        static_cast<unsigned char>(bytes[p + 7]) - static_cast<unsigned char>(bytes[p]);
        }
        sqlite3_reset(scan_);
        return quarters;
    }

    void Insert(DaySerial day, int employee, const std::string& text, double hours, double rate,
                const char* mark) {
        if (insert_ == nullptr)
            Prepare(insert_,
                    "INSERT INTO [Day Schedule] ([Day Julian], Employee, DayType, [Starts & Stops],"
                    " [Work hours], [Current Rate], Salary, [Vacation day]) VALUES (?,?,'',?,?,?,?,0)");
        sqlite3_bind_int(insert_, 1, day);
        sqlite3_bind_int(insert_, 2, employee);
        sqlite3_bind_text(insert_, 3, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        sqlite3_bind_double(insert_, 4, hours);
        sqlite3_bind_double(insert_, 5, rate);
        sqlite3_bind_text(insert_, 6, mark, 1, SQLITE_STATIC);
        Step(insert_);
    }

    void Update(DaySerial day, int employee, const std::string& text, double hours) {
        if (update_ == nullptr)
            Prepare(update_, "UPDATE [Day Schedule] SET [Starts & Stops] = ?, [Work hours] = ?"
                             " WHERE [Day Julian] = ? AND Employee = ?");
        sqlite3_bind_text(update_, 1, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        sqlite3_bind_double(update_, 2, hours);
        sqlite3_bind_int(update_, 3, day);
        sqlite3_bind_int(update_, 4, employee);
        Step(update_);
    }

  private:
    void Prepare(sqlite3_stmt*& statement, const char* sql) {
        sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr);
    }
    static void Step(sqlite3_stmt* statement) {
        if (sqlite3_step(statement) != SQLITE_DONE) std::exit(1);
        sqlite3_reset(statement);
    }
    std::string_view Text(int column) const {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(scan_, column));
        return text == nullptr
                   ? std::string_view()
                   : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(scan_, column)));
    }

    sqlite3* db_ = nullptr;
    sqlite3_stmt* scan_ = nullptr;
    sqlite3_stmt* insert_ = nullptr;
    sqlite3_stmt* update_ = nullptr;
};

/// A row that a save leaves.
struct LeftRow {
    DaySerial day;
    int employee;
    std::string text; // as the file holds it
    double hours;
    double rate;
    const char* mark;
};

/// A department of some size with years of stored weeks, a week of it in memory, and a bare connection
/// beside.
class Department {
  public:
    explicit Department(int people) {
        store.AddDepartment("Bench");
        store.AddPeople(people);
        store.FillWeeks(FirstSunday, Smoke() ? 3 : 52 * YearsStored);
        week = FirstSunday + 7 * (Smoke() ? 1 : 52);
        store.OpenWeek(week);
        bare = std::make_unique<Bare>(store.folder / "TVX.MDB");
    }

    std::vector<LeftRow> RowsOfWeek() {
        std::vector<LeftRow> rows;
        const Roster& roster = store.g.roster;
        for (int e = 1; e <= roster.EmployeeCount; ++e)
            for (int d = 1; d <= 8; ++d) {
                int quarters = 0;
                const std::string text = StartsStopsOf(store.g.week, e, d, quarters);
                if (quarters == 0) continue;
                const double pay = roster.RosterPay[e].Amount();
                rows.push_back({store.g.week.WeekStartJulian + d - 1, roster.RosterEmployeeKey[e],
                                dao::EncodeTimeText(text), quarters / 4.0,
                                roster.IsPaidByHour(e) ? pay : pay / 7, roster.IsPaidByHour(e) ? "W" : "S"});
            }
        return rows;
    }

    /// To the dates of the week in memory.
    void Save() {
        if (!SaveWeek(store.g, store.ports(), store.gauge, [] {})) throw std::runtime_error("not saved");
    }

    test::TestStore store;
    DaySerial week = 0;
    std::unique_ptr<Bare> bare;
};

void Load(const std::shared_ptr<Department>& d, const std::string& size) {
    Pair(
        "LoadWeek/" + size, [d] { return Seconds([&] { LoadWeek(d->store.g, d->store.ports(), d->week); }); },
        [d] {
            return Seconds([&] {
                d->bare->Run("BEGIN");
                benchmark::DoNotOptimize(d->bare->ScanWeek(d->week));
                d->bare->Run("COMMIT");
            });
        });
}

void SaveUnchanged(const std::shared_ptr<Department>& d, const std::string& size) {
    Pair(
        "SaveWeek unchanged/" + size, [d] { return Seconds([&] { d->Save(); }); },
        [d] {
            return Seconds([&] {
                d->bare->Run("BEGIN IMMEDIATE");
                benchmark::DoNotOptimize(d->bare->ScanWeek(d->week));
                d->bare->Run("COMMIT");
            });
        });
}

/// Each round saves the week to dates that hold nothing yet.
void SaveFirst(const std::shared_ptr<Department>& d, const std::string& size) {
    const auto next = std::make_shared<DaySerial>(70000);
    Pair(
        "SaveWeek first/" + size,
        [d, next] {
            test::WritableWeek(d->store.g).WeekStartJulian = *next += 8;
            const double seconds = Seconds([&] { d->Save(); });
            test::WritableWeek(d->store.g).WeekStartJulian = d->week;
            return seconds;
        },
        [d, next] {
            *next += 8;
            const auto rows = d->RowsOfWeek();
            const DaySerial shift = *next - d->week;
            return Seconds([&] {
                d->bare->Run("BEGIN IMMEDIATE");
                for (const LeftRow& row : rows)
                    d->bare->Insert(row.day + shift, row.employee, row.text, row.hours, row.rate, row.mark);
                d->bare->Run("COMMIT");
            });
        });
}

/// Each round shifts the start of every twentieth row's first bar to and fro.
void SaveSome(const std::shared_ptr<Department>& d, const std::string& size) {
    const auto change = [d] {
        static int turn = 0;
        ++turn;
        for (int e = 1; e <= d->store.g.roster.EmployeeCount; ++e)
            for (int b = 1; b <= d->store.g.week.BarCount[e]; ++b)
                if ((e + 7 * b) % 20 == 0)
                    test::WritableWeek(d->store.g).BarStarts[e][b] += turn % 2 == 0 ? 1 : -1;
    };
    Pair(
        "SaveWeek five in 100/" + size,
        [d, change] {
            change();
            return Seconds([&] { d->Save(); });
        },
        [d, change] {
            const auto before = d->RowsOfWeek();
            change();
            const auto after = d->RowsOfWeek();
            return Seconds([&] {
                d->bare->Run("BEGIN IMMEDIATE");
                benchmark::DoNotOptimize(d->bare->ScanWeek(d->week));
                for (std::size_t i = 0; i < after.size(); ++i)
                    if (after[i].text != before[i].text)
                        d->bare->Update(after[i].day, after[i].employee, after[i].text, after[i].hours);
                d->bare->Run("COMMIT");
            });
        });
}

} // namespace
} // namespace tvx::bench

int main(int count, char** arguments) {
    const std::vector<int> sizes =
        std::getenv("TVX_BENCH_SMOKE") != nullptr ? std::vector<int>{30} : std::vector<int>{30, 300, 1000};
    for (const int people : sizes) {
        const auto department = std::make_shared<tvx::bench::Department>(people);
        const std::string size = std::to_string(people);
        tvx::bench::Load(department, size);
        tvx::bench::SaveUnchanged(department, size);
        tvx::bench::SaveSome(department, size);
        tvx::bench::SaveFirst(department, size);
    }
    return tvx::bench::RunPairs(count, arguments);
}
