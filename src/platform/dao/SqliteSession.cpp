#include "platform/dao/SqliteSession.h"

#include "platform/basic/Collation.h"
#include "platform/dao/DaoError.h"
#include "platform/dao/SqliteFiles.h"
#include "platform/dao/SqliteStatement.h"

#include <map>
#include <system_error>

namespace fs = std::filesystem;

namespace tvx::dao {
namespace {

constexpr std::uintmax_t SmallestDatabase = 512; // bytes; one page of the least size

using Handle = std::unique_ptr<sqlite3, int (*)(sqlite3*)>;

void CheckFileIsThere(const fs::path& path) {
    std::error_code code;
    if (!fs::exists(path, code))
        throw DaoError(error::FileNotFound, "Couldn't find file '" + path.string() + "'.", path.string());
    if (!fs::is_regular_file(path, code))
        throw DaoError(error::CannotOpen, "Cannot open '" + path.string() + "'. It is not a file.",
                       path.string());
    // SQLite takes a file of no byte, or of one, for a new database; here it is one that lost its content.
    if (fs::file_size(path, code) < SmallestDatabase && !code)
        throw DaoError(error::UnrecognisedFormat, "Unrecognized database format '" + path.string() + "'.",
                       path.string());
}

/// Opens what may be no database; the handle tells why when it did not work. A session belongs to one thread,
/// which spares it a mutex at every column read.
Handle OpenHandle(const fs::path& path, int flags, int& code) {
    sqlite3* handle = nullptr;
    code = sqlite3_open_v2(path.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, SqliteFiles());
    return {handle, sqlite3_close_v2};
}

void MakeFile(const fs::path& path) {
    int code = SQLITE_OK;
    {
        const Handle handle = OpenHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, code);
        // A mark in the head of the file, without which nothing would be written before the first table.
        if (code == SQLITE_OK)
            code =
                sqlite3_exec(handle.get(), "PRAGMA application_id = 0x54525658", nullptr, nullptr, nullptr);
    }
    if (code == SQLITE_OK) return;
    std::error_code ignored;
    fs::remove(path, ignored);
    throw DaoError(error::CannotOpen, "Cannot make '" + path.string() + "'.", path.string());
}

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
    return quoted + "'";
}

/// The name behind CONSTRAINT that stands before PRIMARY KEY in a table's text; "" when it has none.
std::string KeyNameIn(const std::string& createText) {
    const std::size_t key = createText.find("] PRIMARY KEY");
    if (key == std::string::npos) return "";
    const std::size_t open = createText.rfind('[', key);
    constexpr std::string_view word = "CONSTRAINT ";
    if (open == std::string::npos || open < word.size() ||
        createText.compare(open - word.size(), word.size(), word) != 0)
        return "";
    return createText.substr(open + 1, key - open - 1);
}

int CompareNamesOf(void*, int lengthA, const void* a, int lengthB, const void* b) {
    const auto text = [](const void* bytes, int length) {
        return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(length));
    };
    return CompareNames(text(a, lengthA), text(b, lengthB));
}

class SqliteSession final : public Session {
  public:
    SqliteSession(const fs::path& path, const EngineOptions& options);

    const Dialect& Words() const override { return SqliteDialect(); }
    std::unique_ptr<Statement> Prepare(const std::string& sql) override;
    std::int64_t Changes() const override { return sqlite3_changes64(handle_.get()); }

    // Immediate: a transaction that begins by reading and turns to writing would be refused at once when
    // another workstation did the same.
    void Begin(Access access) override { Run(access == Access::Write ? "BEGIN IMMEDIATE" : "BEGIN"); }
    void Commit() override { Run("COMMIT"); }
    void Rollback() override { Run("ROLLBACK"); }
    bool InTransaction() const override { return sqlite3_get_autocommit(handle_.get()) == 0; }

    void BeginPart() override { Run("SAVEPOINT part"); }
    void KeepPart() override { Run("RELEASE part"); }
    void UndoPart() override { Run("ROLLBACK TO part; RELEASE part"); }

    std::vector<std::string> TableNames() override;
    TableDef ReadTable(const std::string& name) override;

    void CopyTo(const fs::path& target) override { Run("VACUUM INTO " + Quoted(target.string())); }
    void RebuildIndexes() override { Run("REINDEX"); }
    bool IsCutOff() override;
    bool IsSound() override;

  private:
    void SetUp(const EngineOptions& options);
    void Run(const std::string& sql);
    SqliteStatement Ask(const std::string& sql, const std::string& table);
    std::string ReadHead(TableDef& table);
    void ReadFields(TableDef& table, bool counts);
    void ReadIndexes(TableDef& table);

    Handle handle_{nullptr, sqlite3_close_v2};
};

SqliteSession::SqliteSession(const fs::path& path, const EngineOptions& options) {
    CheckFileIsThere(path);
    int code = SQLITE_OK;
    handle_ = OpenHandle(path, SQLITE_OPEN_READWRITE, code);
    if (code != SQLITE_OK) FailSqlite(handle_.get(), code);
    if (sqlite3_db_readonly(handle_.get(), "main") == 1)
        throw DaoError(error::CannotOpen,
                       "Cannot open '" + path.string() + "'. You may not have permission to write the file.",
                       path.string());
    SetUp(options);
}

void SqliteSession::SetUp(const EngineOptions& options) {
    sqlite3_extended_result_codes(handle_.get(), 1);
    sqlite3_busy_timeout(handle_.get(), options.busyMilliseconds);
    // The file may lie on a share: a rollback journal, every commit on the disk before it counts, and no
    // memory mapping.
    Run("PRAGMA locking_mode = NORMAL");
    Run("PRAGMA mmap_size = 0");
    // No page reaches the file before its commit, which puts the first page into the journal: so every
    // journal that could be played back tells by the count of changes in there which file it is of.
    Run("PRAGMA cache_spill = OFF");
    Run("PRAGMA cell_size_check = ON");
    Run("PRAGMA trusted_schema = OFF");
    Run("PRAGMA journal_mode = DELETE");
    Run("PRAGMA synchronous = EXTRA");
    sqlite3_create_collation(handle_.get(), NameCollation, SQLITE_UTF8, nullptr, CompareNamesOf);
    if (options.reverseUnorderedSelects) Run("PRAGMA reverse_unordered_selects = ON");
    Run("SELECT count(*) FROM sqlite_schema"); // a file of another make, or a cut-off one, shows here
}

void SqliteSession::Run(const std::string& sql) {
    const int code = sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) FailSqlite(handle_.get(), code);
}

std::unique_ptr<Statement> SqliteSession::Prepare(const std::string& sql) {
    return std::make_unique<SqliteStatement>(handle_.get(), sql);
}

SqliteStatement SqliteSession::Ask(const std::string& sql, const std::string& table) {
    SqliteStatement statement(handle_.get(), sql);
    statement.Bind(1, table);
    return statement;
}

std::vector<std::string> SqliteSession::TableNames() {
    SqliteStatement names(handle_.get(),
                          "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE"
                          " 'sqlite~_%' ESCAPE '~' ORDER BY name");
    std::vector<std::string> found;
    while (names.Step()) found.emplace_back(names.Text(0));
    return found;
}

TableDef SqliteSession::ReadTable(const std::string& name) {
    TableDef table;
    table.name = name;
    const std::string createText = ReadHead(table);
    ReadFields(table, createText.find("AUTOINCREMENT") != std::string::npos);
    table.key.name = KeyNameIn(createText);
    ReadIndexes(table);
    return table;
}

/// The name as the table writes it; returns the text that made the table.
std::string SqliteSession::ReadHead(TableDef& table) {
    SqliteStatement find = Ask(
        "SELECT name, sql FROM sqlite_schema WHERE type = 'table' AND name = ? COLLATE NOCASE", table.name);
    if (!find.Step())
        throw DaoError(error::TableNotFound,
                       "The database engine cannot find the input table or query '" + table.name + "'.",
                       table.name);
    table.name = find.Text(0);
    return std::string(find.Text(1));
}

void SqliteSession::ReadFields(TableDef& table, bool counts) {
    SqliteStatement columns = Ask("SELECT name, type, pk FROM pragma_table_info(?) ORDER BY cid", table.name);
    std::map<std::int64_t, std::string> keyFields; // by place in the key
    while (columns.Step()) {
        const std::int64_t place = columns.Whole(2);
        table.fields.push_back(
            FieldOfDeclaration(std::string(columns.Text(0)), columns.Text(1), counts && place == 1));
        if (place > 0) keyFields[place] = table.fields.back().name;
    }
    for (const auto& [place, field] : keyFields) table.key.fields.push_back(field);
}

void SqliteSession::ReadIndexes(TableDef& table) {
    SqliteStatement indexes =
        Ask("SELECT l.name, i.name FROM pragma_index_list(?) l, pragma_index_info(l.name) i"
            " WHERE l.origin = 'c' ORDER BY l.name, i.seqno",
            table.name);
    const std::string prefix = table.name + ".";
    while (indexes.Step()) {
        std::string index(indexes.Text(0));
        if (index.starts_with(prefix)) index.erase(0, prefix.size());
        if (table.indexes.empty() || table.indexes.back().name != index) table.indexes.push_back({index, {}});
        table.indexes.back().fields.emplace_back(indexes.Text(1));
    }
}

bool SqliteSession::IsCutOff() {
    // The count reads the file, which locks it against a change of its length.
    SqliteStatement size(handle_.get(),
                         "SELECT page_size FROM pragma_page_size, (SELECT count(*) FROM sqlite_schema)");
    const auto pageSize = static_cast<std::uintmax_t>(size.Step() ? size.Whole(0) : 0);
    std::error_code unknown;
    const std::uintmax_t length = fs::file_size(sqlite3_db_filename(handle_.get(), "main"), unknown);
    return !unknown && pageSize > 0 && length % pageSize != 0;
}

bool SqliteSession::IsSound() {
    SqliteStatement check(handle_.get(), "PRAGMA quick_check(1)");
    return check.Step() && check.Text(0) == "ok";
}

} // namespace

std::unique_ptr<Session> OpenSqliteSession(const fs::path& path, const EngineOptions& options,
                                           FileMode mode) {
    if (mode == FileMode::New) MakeFile(path);
    return std::make_unique<SqliteSession>(path, options);
}

} // namespace tvx::dao
