// The search for an employee and the saving of one, beside a bare list and a bare transaction.
#include "Ratios.h"
#include "desktop/QtPorts.h"
#include "masterdata/EmployeeRecord.h"
#include "masterdata/screens/EmployeeSearchForm.h"
#include "platform/dao/TimeText.h"
#include "support/TestStore.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <utility>

namespace tvx::bench {
namespace {

bool Smoke() {
    return std::getenv("TVX_BENCH_SMOKE") != nullptr;
}

void Complain(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

/// A connection of its own with the pragmas of the program.
class Bare {
  public:
    explicit Bare(const std::filesystem::path& file) {
        sqlite3_open_v2(file.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        for (const char* pragma : {"PRAGMA journal_mode = DELETE", "PRAGMA synchronous = EXTRA",
                                   "PRAGMA mmap_size = 0", "PRAGMA cell_size_check = ON"})
            Run(pragma);
        Prepare(list_, "SELECT [Last name] || ' ' || [First name] || char(9) || ID || char(9) || Assignment,"
                       " Employee FROM Employee WHERE [Dep number] = ? ORDER BY [Last name]");
        Prepare(find_, "SELECT Employee FROM Employee WHERE Employee = ?");
        Prepare(update_,
                "UPDATE Employee SET [Last name] = ?, [First name] = ?, ID = ?, Assignment = ?, Pay = ?,"
                " [Wage or Sal] = ?, Active = ?, Street = ?, City = ?, State = ?, Zip = ?, [Hire Date] = ?,"
                " [Birth date] = ?, [Labor type] = ?, EbarColor = ?, Phone = ?, [Emergency phone] = ?,"
                " [Page/Cell phone] = ?, [Soc Sec number] = ?, Email = ?, Comments = ?, [Avail start] = ?,"
                " [Avail stop] = ? WHERE Employee = ?");
    }
    ~Bare() {
        for (sqlite3_stmt* statement : {list_, find_, update_}) sqlite3_finalize(statement);
        sqlite3_close(db_);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    void Run(const char* sql) {
        if (sqlite3_exec(db_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Complain(sql);
    }

    /// The texts of the search and the keys, by last name.
    std::vector<std::pair<QString, int>> People(int department) {
        std::vector<std::pair<QString, int>> people;
        sqlite3_bind_int(list_, 1, department);
        while (sqlite3_step(list_) == SQLITE_ROW)
            people.emplace_back(
                QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(list_, 0))),
                sqlite3_column_int(list_, 1));
        sqlite3_reset(list_);
        return people;
    }

    /// Looks for an employee and writes the whole record, in one transaction.
    void Save(int key, const EmployeeRecord& record) {
        Run("BEGIN IMMEDIATE");
        sqlite3_bind_int(find_, 1, key);
        if (sqlite3_step(find_) != SQLITE_ROW) Complain("nobody there");
        sqlite3_reset(find_);
        int column = 0;
        const auto text = [&](const std::string& value) {
            sqlite3_bind_text(update_, ++column, value.data(), static_cast<int>(value.size()),
                              SQLITE_TRANSIENT);
        };
        const auto number = [&](int value) { sqlite3_bind_int(update_, ++column, value); };
        for (int i = box_of::LastName; i <= box_of::Pay; ++i) text(record.Text2[i]);
        number(record.hourly ? -1 : 0);
        number(record.active ? -1 : 0);
        for (int i = box_of::Street; i <= box_of::Zip; ++i) text(record.Text2[i]);
        for (int i = 0; i < 2; ++i) sqlite3_bind_null(update_, ++column);
        number(record.laborOption);
        number(record.barColor);
        for (int i = box_of::Phone; i <= box_of::Email; ++i) text(record.Text2[i]);
        text(record.comments);
        text(dao::EncodeTimeText(EncodeStarts(record.absence)));
        text(dao::EncodeTimeText(EncodeStops(record.absence)));
        number(key);
        if (sqlite3_step(update_) != SQLITE_DONE) Complain("not saved");
        sqlite3_reset(update_);
        Run("COMMIT");
    }

  private:
    void Prepare(sqlite3_stmt*& statement, const char* sql) {
        if (sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr) != SQLITE_OK) Complain(sql);
    }

    sqlite3* db_ = nullptr;
    sqlite3_stmt* list_ = nullptr;
    sqlite3_stmt* find_ = nullptr;
    sqlite3_stmt* update_ = nullptr;
};

/// A line of text over a list, and nothing else.
class BareSearch : public QWidget {
  public:
    explicit BareSearch(const std::vector<std::pair<QString, int>>& people) {
        auto* column = new QVBoxLayout(this);
        column->addWidget(&line);
        column->addWidget(&list);
        for (const auto& [text, key] : people) {
            auto* item = new QListWidgetItem(text, &list);
            item->setData(Qt::UserRole, key);
        }
        list.setCurrentRow(0);
        connect(&line, &QLineEdit::textChanged, this, [this](const QString& typed) {
            for (int row = 0; row < list.count(); ++row)
                if (list.item(row)->text().startsWith(typed, Qt::CaseInsensitive))
                    return list.setCurrentRow(row);
        });
        setFixedSize(qt::Pixels(5400), qt::Pixels(6000));
        line.setFocus();
    }
    QLineEdit line;
    QListWidget list;
};

/// A department of 1,000 people and a bare connection beside.
struct People {
    People() {
        store.AddDepartment("Bench");
        store.AddPeople(Smoke() ? 30 : 1000);
        bare = std::make_unique<Bare>(store.folder / "TVX.MDB");
    }
    std::unique_ptr<qt::EmployeeSearchForm> Search() {
        auto form =
            std::make_unique<qt::EmployeeSearchForm>(store.g, store.ports(), SearchRequest{}, nullptr);
        form->ShowModeless();
        QApplication::processEvents();
        return form;
    }
    std::unique_ptr<BareSearch> Floor() {
        auto form = std::make_unique<BareSearch>(bare->People(store.g.department.CurrentDepNumber));
        form->show();
        form->activateWindow();
        QApplication::processEvents();
        return form;
    }

    test::TestStore store;
    std::unique_ptr<Bare> bare;
};

/// From nothing to the painted list.
void Open(const std::shared_ptr<People>& people) {
    Pair(
        "Search opens",
        [people] {
            std::unique_ptr<qt::EmployeeSearchForm> form;
            return Seconds([&] { form = people->Search(); });
        },
        [people] {
            std::unique_ptr<BareSearch> form;
            return Seconds([&] { form = people->Floor(); });
        });
}

/// Types a name from its first key to its last, over and over, and paints what each key selects.
template <typename Form>
std::function<double()> Typing(std::shared_ptr<Form> form, QLineEdit& line) {
    return [form = std::move(form), &line, step = 0]() mutable {
        const std::string name = Smoke() ? "Last0025" : "Last0975";
        if (step == 0) line.clear();
        const QString key{QLatin1Char(name[static_cast<std::size_t>(step)])};
        step = (step + 1) % static_cast<int>(name.size());
        return Seconds([&] {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, key);
            QApplication::sendEvent(&line, &press);
            QApplication::processEvents();
        });
    };
}

void Step(const std::shared_ptr<People>& people) {
    std::shared_ptr<qt::EmployeeSearchForm> form = people->Search();
    std::shared_ptr<BareSearch> bare = people->Floor();
    QLineEdit& line = *form->findChild<QLineEdit*>(QStringLiteral("Text1"));
    Pair("Search follows a key", Typing(form, line), Typing(bare, bare->line));
}

/// Changes the comments of one employee to and fro and saves the record.
void Save(const std::shared_ptr<People>& people) {
    constexpr int Key = 17;
    const auto load = [people] {
        return LoadEmployeeRecord(people->store.g.store, people->store.g.application, people->store.g.rights,
                                  Key);
    };
    const auto turn = std::make_shared<int>(0);
    Pair(
        "Save one employee",
        [=] {
            EmployeeRecord record = load();
            record.comments = "Round " + std::to_string(++*turn);
            return Seconds([&] {
                if (SaveEmployeeRecord(people->store.g.store, people->store.g.department,
                                       people->store.ports(), record) != SaveResult::Saved)
                    Complain("not saved");
            });
        },
        [=] {
            EmployeeRecord record = load();
            record.comments = "Round " + std::to_string(++*turn);
            return Seconds([&] { people->bare->Save(Key, record); });
        });
}

} // namespace
} // namespace tvx::bench

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int none = 1;
    const QApplication application(none, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    tvx::qt::SetUpLook();
    const auto people = std::make_shared<tvx::bench::People>();
    tvx::bench::Open(people);
    tvx::bench::Save(people);
    tvx::bench::Step(people);
    return tvx::bench::RunPairs(count, arguments);
}
